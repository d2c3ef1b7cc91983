#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

/// What a command answered.
struct Outcome
{
    int status = -1;
    std::string output; ///< standard output and standard error
};

inline Outcome RunCommand(const std::string& command)
{
    std::FILE* const pipe = popen((command + " 2>&1").c_str(), "r");
    Outcome outcome;
    char piece[4096];
    for (std::size_t size = 0; (size = std::fread(piece, 1, sizeof piece, pipe)) > 0;) {
        outcome.output.append(piece, size);
    }
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}
