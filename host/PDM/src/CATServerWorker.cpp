#include "CATServerWorker.h"

#include <utility>

CATServerWorker& CATServerWorker::Session()
{
    static CATServerWorker worker;
    return worker;
}

CATServerWorker::CATServerWorker() : m_thread([this] { Work(); })
{}

CATServerWorker::~CATServerWorker()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void CATServerWorker::Start(std::function<void()> job)
{
    {
        const std::lock_guard lock(m_mutex);
        m_job = std::move(job);
        m_busy = true;
    }
    m_changed.notify_all();
}

bool CATServerWorker::IsDoneWithin(std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, time, [this] { return !m_busy; });
}

void CATServerWorker::WaitUntilDone()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_busy; });
}

void CATServerWorker::Work()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_ends || m_job; });
        if (m_ends) {
            return;
        }
        std::function<void()> job = std::exchange(m_job, {});
        lock.unlock();
        job();
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}
