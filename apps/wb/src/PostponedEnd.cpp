#include "PostponedEnd.h"

namespace
{

volatile std::sig_atomic_t arrived = 0;

void Remember(int signal)
{
    arrived = signal;
}

} // namespace

PostponedEnd::PostponedEnd() : m_before{{{SIGINT, {}}, {SIGTERM, {}}, {SIGHUP, {}}}}
{
    arrived = 0;
    struct sigaction remember = {};
    remember.sa_handler = Remember;
    remember.sa_flags = SA_RESETHAND;
    for (Before& before : m_before) {
        sigaction(before.signal, nullptr, &before.action);
        // What the caller has the program ignore (nohup, a job in the background) stays ignored.
        if (before.action.sa_handler != SIG_IGN) {
            sigaction(before.signal, &remember, nullptr);
        }
    }
}

PostponedEnd::~PostponedEnd()
{
    for (const Before& before : m_before) {
        sigaction(before.signal, &before.action, nullptr);
    }
    if (arrived != 0) {
        std::raise(arrived);
    }
}

void PostponedEnd::LeaveWhenAsked() const
{
    if (arrived != 0) {
        throw Interrupted();
    }
}
