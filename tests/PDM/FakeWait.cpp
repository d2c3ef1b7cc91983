#include "FakeWait.h"

#include "CATDlgApplication.h"

#include <thread>
#include <utility>

std::function<void(const FakeWait::Hooks& hooks)>& FakeWait::WhileWaiting()
{
    static std::function<void(const Hooks& hooks)> hook;
    return hook;
}

// Stands in for the loop of the dialog library: a program's own definition goes before a library's.
void CATDlgWaitFor(const std::string& title, const std::function<bool()>& isDone,
                   const std::function<void()>& cancel, const std::function<double()>& progress)
{
    // Taken out while it runs, so that a call made inside waits without it.
    if (const auto hook = std::exchange(FakeWait::WhileWaiting(), {})) {
        hook({title, cancel, progress});
        FakeWait::WhileWaiting() = hook;
    }
    while (!isDone()) {
        std::this_thread::yield();
    }
}
