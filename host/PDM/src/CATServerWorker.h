#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// The one thread on which the session calls the server. It starts with the first job and ends with
/// the program, so that a caller may keep things that belong to one thread, such as a connection.
class CATServerWorker
{
public:
    static CATServerWorker& Session();

    CATServerWorker();
    CATServerWorker(const CATServerWorker&) = delete;
    CATServerWorker& operator=(const CATServerWorker&) = delete;
    ~CATServerWorker();

    /// Runs the job, which must not throw, on the thread. Not to be called before the former job is
    /// done.
    void Start(std::function<void()> job);
    /// Whether the job is done within that time.
    bool IsDoneWithin(std::chrono::milliseconds time);
    void WaitUntilDone();

private:
    void Work();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::function<void()> m_job; // empty once the thread has taken it
    bool m_busy = false;
    bool m_ends = false;
    std::thread m_thread; // last: it uses the others
};
