#pragma once

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

/// A program that a test runs beside itself and talks to line by line.
class ChildProcess
{
public:
    using Environment = std::map<std::string, std::string>;

    /// Starts the program with further variables in its environment. The descriptors that it
    /// inherits are its input, its output and `kTellFile`, which WaitForTelling reads.
    explicit ChildProcess(const std::vector<std::string>& command,
                          const Environment& environment = {});
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    /// Ends the program where it still runs.
    ~ChildProcess();

    static constexpr int kTellFile = 9;
    /// Waits until the program wrote to kTellFile, or ended without.
    void WaitForTelling();

    /// Sends a line; false when nobody reads it any more.
    bool Send(const std::string& line);
    /// The next line of the program's output without its end; empty where the program has ended.
    std::string ReadLine();
    std::string Ask(const std::string& line);
    void CloseInput();
    void Kill();
    /// Waits for the end and gives the wait status.
    int Wait();

private:
    pid_t m_process = -1;
    std::FILE* m_input = nullptr;
    std::FILE* m_output = nullptr;
    int m_tell = -1;
};
