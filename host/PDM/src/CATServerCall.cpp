#include "CATServerCall.h"

#include "CATDiagnostics.h"
#include "CATDlgApplication.h"
#include "CATPDMMessages.h"
#include "CATServerWorker.h"

#include <atomic>
#include <chrono>
#include <exception>
#include <optional>
#include <string>

namespace
{
/// How long one look at the running call may take. A short call comes back within the first look,
/// and the waiting loop still repaints often enough.
constexpr std::chrono::milliseconds kLook{2};

/// True while a call waits. Calls from inside the waiting loop (a window that repaints and asks for
/// more) and from the server thread itself would wait for ever behind the one that waits already.
std::atomic<bool> s_waiting = false;

class Waiting
{
public:
    Waiting() : m_isFirst(!s_waiting.exchange(true)) {}
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting()
    {
        if (m_isFirst) {
            s_waiting = false;
        }
    }
    bool IsFirst() const { return m_isFirst; }

private:
    bool m_isFirst;
};

/// A job on the server thread; the scope ends only when the thread is done with it, however the
/// waiting loop was left.
class RunningJob
{
public:
    explicit RunningJob(std::function<void()> job) { m_worker.Start(std::move(job)); }
    RunningJob(const RunningJob&) = delete;
    RunningJob& operator=(const RunningJob&) = delete;
    ~RunningJob() { m_worker.WaitUntilDone(); }
    bool IsDoneWithin(std::chrono::milliseconds time) { return m_worker.IsDoneWithin(time); }

private:
    CATServerWorker& m_worker = CATServerWorker::Session();
};

/// Does the work and answers why it failed; nothing when it did not.
std::optional<std::string> FailureOf(const CATServerWork& work, CATServerCaller& caller,
                                     CATServerCallState& state)
{
    try {
        work(caller, state);
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "an error of an unknown kind";
    }
}
} // namespace

CATServerCallEnd CATCallServer(const CATServerWork& work)
{
    const Waiting waiting;
    if (!waiting.IsFirst()) {
        CATDiagnosticErrors().Line("A server call was refused: another one is waiting.");
        return CATServerCallEnd::NotMade;
    }
    const std::shared_ptr<CATServerCaller> caller = CATCurrentServerCaller();
    if (caller == nullptr) {
        CATDiagnosticErrors().Line("A server call was not made: there is no server.");
        return CATServerCallEnd::NotMade;
    }
    CATServerCallState state;
    std::optional<std::string> failure;
    {
        RunningJob job([&] { failure = FailureOf(work, *caller, state); });
        CATDlgWaitFor(
            PDMText(kWaitTitle).ToStdString(), [&job] { return job.IsDoneWithin(kLook); },
            [&state] { state.cancelled = true; }, [&state] { return state.progress.load(); });
    }
    if (failure) {
        CATDiagnosticErrors().Line("A server call failed: ", *failure);
        return CATServerCallEnd::Failed;
    }
    return state.cancelled ? CATServerCallEnd::Cancelled : CATServerCallEnd::Done;
}
