#pragma once

#include "CATCommand.h"

#include <deque>
#include <functional>

/// The commands that wait for their destruction, in the order of asking.
class CATDestructionQueue
{
public:
    /// The session's queue. It is never destroyed, so that commands which end with the program's
    /// statics can still leave it.
    static CATDestructionQueue& Get();

    void Add(CATCommand* command);
    void Remove(const CATCommand* command);
    bool Contains(const CATCommand* command) const;
    int Size() const { return static_cast<int>(m_waiting.size()); }

    /// Destroys what waits; nothing inside a nested loop, and nothing inside a run.
    void Run();
    /// Destroys what waits wherever control is: the session ends.
    void RunToTheEnd();
    void EnterNestedLoop() { ++m_nestedLoops; }
    void LeaveNestedLoop();
    void SetScheduler(std::function<void()> scheduler);

private:
    /// Has the event loop come back when something waits and a run could do something about it.
    void Schedule() const;

    std::deque<CATCommand*> m_waiting;
    std::function<void()> m_scheduler;
    int m_nestedLoops = 0;
    bool m_running = false;
};
