#pragma once

#include <functional>
#include <string>

/// What happens while the interface thread waits for the server. `whileWaiting` runs once in each
/// wait, before the first look at the call; it gets what the real loop has.
struct FakeWait
{
    struct Hooks
    {
        std::string title;
        std::function<void()> cancel;
        std::function<double()> progress;
    };
    /// Null: the wait only waits.
    static std::function<void(const Hooks& hooks)>& WhileWaiting();
};
