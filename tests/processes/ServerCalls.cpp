// A W&B server in a process of its own, for tests: reads a call a line (user, method and request
// with tabs between) from the standard input and answers each with a line. Line ends inside an
// answer go out as "\n".

#include "WBServer.h"
#include "WBStore.h"

#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    const auto opened = wb::Store::Open(argc > 1 ? argv[1] : "");
    if (!opened.store) {
        std::cerr << opened.error << "\n";
        return 1;
    }
    wb::Server server(*opened.store);
    for (std::string line; std::getline(std::cin, line);) {
        const std::size_t method = line.find('\t') + 1;
        const std::size_t request = line.find('\t', method) + 1;
        wb::CallContext context;
        context.user = line.substr(0, method - 1);
        const std::string answer =
            server.Call(line.substr(method, request - method - 1), line.substr(request), context);
        for (const char character : answer) {
            if (character == '\n') {
                std::cout << "\\n";
            } else {
                std::cout << character;
            }
        }
        std::cout << std::endl;
    }
    return 0;
}
