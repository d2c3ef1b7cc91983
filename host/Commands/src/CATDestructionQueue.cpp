#include "CATDestructionQueue.h"

#include <algorithm>

CATDestructionQueue& CATDestructionQueue::Get()
{
    static auto& queue = *new CATDestructionQueue;
    return queue;
}

void CATDestructionQueue::Add(CATCommand* command)
{
    if (Contains(command)) {
        return;
    }
    m_waiting.push_back(command);
    Schedule();
}

void CATDestructionQueue::Remove(const CATCommand* command)
{
    std::erase(m_waiting, command);
}

bool CATDestructionQueue::Contains(const CATCommand* command) const
{
    return std::ranges::find(m_waiting, command) != m_waiting.end();
}

void CATDestructionQueue::Run()
{
    // A destructor that brings the event loop round must not destroy the next one beneath itself.
    if (m_nestedLoops > 0 || m_running) {
        return;
    }
    m_running = true;
    RunToTheEnd();
    m_running = false;
}

void CATDestructionQueue::RunToTheEnd()
{
    while (!m_waiting.empty()) {
        CATCommand* command = m_waiting.front();
        m_waiting.pop_front();
        CATCommand::GiveBack(command);
    }
}

void CATDestructionQueue::LeaveNestedLoop()
{
    --m_nestedLoops;
    Schedule();
}

void CATDestructionQueue::SetScheduler(std::function<void()> scheduler)
{
    m_scheduler = std::move(scheduler);
    Schedule();
}

void CATDestructionQueue::Schedule() const
{
    if (m_scheduler && !m_waiting.empty() && m_nestedLoops == 0 && !m_running) {
        m_scheduler();
    }
}
