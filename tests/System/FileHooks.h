#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

/// What a test wants to be told of, or to go wrong, when a file is flushed or renamed. What a hook
/// answers other than 0 is the error of the call.
struct FileHooks
{
    static std::function<int(int file)> flush;
    static std::function<int(const char* to)> rename;
    static void Clear()
    {
        flush = {};
        rename = {};
    }
    static bool IsDirectory(int file);
};

/// Runs in a child process, so that its limits and its end are its own; gives its wait status.
template <class Body>
int RunInChild(Body body)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}
