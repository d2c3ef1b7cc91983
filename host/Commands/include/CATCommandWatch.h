#pragma once

#include "CATCommand.h"

/// Remembers a command without owning it, and forgets it when it is destroyed: what to hold across
/// a user action, since windows and commands may go away meanwhile. T derives from CATCommand.
template <class T>
class CATCommandWatch
{
public:
    CATCommandWatch() = default;
    CATCommandWatch(T* command) // NOLINT(google-explicit-constructor)
        : m_command(command)
    {
        if (command != nullptr) {
            m_life = command->Life();
        }
    }
    /// The command, or null when there was none or it is gone.
    T* Get() const { return m_life.expired() ? nullptr : m_command; }

private:
    T* m_command = nullptr;
    std::weak_ptr<const void> m_life;
};
