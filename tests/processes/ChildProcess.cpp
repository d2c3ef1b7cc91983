#include "ChildProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace
{

std::array<int, 2> Pipe()
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        std::perror("pipe");
        std::abort();
    }
    return ends;
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const Environment& environment)
{
    signal(SIGPIPE, SIG_IGN); // a program that was ended reads no more, which Send tells
    const std::array<int, 2> input = Pipe();
    const std::array<int, 2> output = Pipe();
    const std::array<int, 2> tell = Pipe();
    m_process = fork();
    if (m_process == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        dup2(tell[1], kTellFile);
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        for (const std::string& argument : command) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(input[0]);
    close(output[1]);
    close(tell[1]);
    m_input = fdopen(input[1], "w");
    m_output = fdopen(output[0], "r");
    m_tell = tell[0];
}

ChildProcess::~ChildProcess()
{
    if (m_process > 0) {
        Kill();
        Wait();
    }
    CloseInput();
    std::fclose(m_output);
    close(m_tell);
}

void ChildProcess::WaitForTelling()
{
    char byte = 0;
    if (read(m_tell, &byte, 1) < 0) {
        std::perror("read");
    }
}

bool ChildProcess::Send(const std::string& line)
{
    return std::fputs((line + "\n").c_str(), m_input) >= 0 && std::fflush(m_input) == 0;
}

std::string ChildProcess::ReadLine()
{
    std::string line;
    for (int character = std::fgetc(m_output); character != EOF && character != '\n';
         character = std::fgetc(m_output)) {
        line += static_cast<char>(character);
    }
    return line;
}

std::string ChildProcess::Ask(const std::string& line)
{
    return Send(line) ? ReadLine() : std::string();
}

void ChildProcess::CloseInput()
{
    if (m_input != nullptr) {
        std::fclose(std::exchange(m_input, nullptr));
    }
}

void ChildProcess::Kill()
{
    kill(m_process, SIGKILL);
}

int ChildProcess::Wait()
{
    int status = 0;
    waitpid(std::exchange(m_process, -1), &status, 0);
    return status;
}
