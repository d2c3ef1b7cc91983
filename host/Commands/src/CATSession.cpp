#include "CATSession.h"

#include "CATCommandWatch.h"
#include "CATDestructionQueue.h"
#include "CATDiagnostics.h"
#include "CATFatalError.h"
#include "CATHandle.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace
{
struct SharedCommand
{
    CATCommand* command;
    bool isHidden;
};

struct SessionState
{
    CATCommandWatch<CATCommand> root;
    CATCommand* running = nullptr;
    std::vector<SharedCommand> shared;
    std::vector<std::function<void(CATCommand*)>> listeners;
    std::function<void(const CATUnicodeString&, const CATUnicodeString&)> reporter;
    std::vector<CATCommand*> failing; // commands whose fault is being dealt with
};

// Never destroyed: commands that end with the program's statics still tell the session so.
SessionState& State()
{
    static auto& state = *new SessionState;
    return state;
}

bool IsShared(const CATCommand* command)
{
    return std::ranges::any_of(State().shared,
                               [command](const auto& shared) { return shared.command == command; });
}

void ForgetShared(const CATCommand* command)
{
    std::erase_if(State().shared,
                  [command](const auto& shared) { return shared.command == command; });
}

void TellListeners()
{
    // A copy, since a listener may add another one; each hears what is running by then.
    const auto listeners = State().listeners;
    for (const auto& listener : listeners) {
        listener(State().running);
    }
}

/// The first shared command that is hidden or visible, or null.
CATCommand* FindShared(bool isHidden)
{
    const auto& shared = State().shared;
    const auto found = std::ranges::find_if(
        shared, [isHidden](const auto& entry) { return entry.isHidden == isHidden; });
    return found == shared.end() ? nullptr : found->command;
}

void HideSharedCommands(const CATCommandWatch<CATCommand>& from)
{
    while (State().running != nullptr) {
        CATCommand* command = FindShared(false);
        if (command == nullptr) {
            return;
        }
        for (SharedCommand& shared : State().shared) {
            shared.isHidden = shared.isHidden || shared.command == command;
        }
        CATSession::RunGuarded(command, [&] { command->Desactivate(from.Get(), nullptr); });
    }
}

void ShowSharedCommands()
{
    // Starting them anew lets a command that has asked for another mode meanwhile have it.
    while (State().running == nullptr) {
        CATCommand* command = FindShared(true);
        if (command == nullptr) {
            return;
        }
        CATSession::Start(command);
    }
}

void Report(const CATUnicodeString& command, const CATUnicodeString& what)
{
    if (State().reporter) {
        State().reporter(command, what);
    } else {
        CATDiagnosticErrors().Line(command, ": ", what);
    }
}

/// Has a command end. One that fails at that is not asked whether it can go on.
void CancelCommand(CATCommand* command, CATCommand* from)
{
    const CATCommandWatch<CATCommand> watch(command);
    const CATUnicodeString name = command->Name();
    if (const auto fault = CATSession::CatchFault([&] { command->Cancel(from, nullptr); })) {
        CATRequestDelayedDestruction(watch.Get());
        Report(name, *fault);
    }
}

CATUnicodeString Hexadecimal(long status)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%08X", static_cast<std::uint32_t>(status));
    return text.data();
}

/// Brings the command back into order or ends it; answers what is to be told beyond the fault.
CATUnicodeString RecoverOrEnd(CATCommand* command)
{
    auto& failing = State().failing;
    // A fault of what recovers or cancels the command must not start that again.
    if (command->IsDestructionRequested() || std::ranges::find(failing, command) != failing.end()) {
        return {};
    }
    failing.push_back(command);
    const CATCommandWatch<CATCommand> watch(command);
    CATUnicodeString more;
    bool recovered = false;
    if (const auto fault =
            CATSession::CatchFault([&] { recovered = command->RecoverFromFault(); })) {
        more += " Recovering failed too: " + *fault;
    }
    if (!recovered && watch.Get() != nullptr) {
        if (const auto fault = CATSession::CatchFault([&] { command->Cancel(nullptr, nullptr); })) {
            more += " Ending it failed too: " + *fault;
        }
        CATRequestDelayedDestruction(watch.Get());
    }
    std::erase(failing, command);
    return more;
}
} // namespace

CATCommand& CATSession::Root()
{
    if (State().root.Get() == nullptr) {
        State().root = new CATCommand(nullptr, "Root"); // Close gives it back
    }
    return *State().root.Get();
}

bool CATSession::Start(CATCommand* command)
{
    if (command == nullptr || command->IsDestructionRequested()) {
        return false;
    }
    if (command->Parent() == nullptr) {
        command->JoinParent(&Root());
    }
    const CATCommandWatch<CATCommand> watch(command);
    if (command->Mode() == CATCommandMode::Shared) {
        Ended(command); // it may have run in the other mode
        State().shared.push_back({command, false});
    } else {
        ForgetShared(command);
        // The new one is the running one before the old one ends, so that the shared commands do
        // not come back for a moment.
        CATCommand* previous = std::exchange(State().running, command);
        if (previous != nullptr && previous != command) {
            CancelCommand(previous, command);
        }
        HideSharedCommands(watch);
        if (previous != command) {
            TellListeners();
        }
    }
    // What was cancelled, hidden or told may have ended this command, or started another one.
    const auto runs = [&watch] {
        return watch.Get() != nullptr && (State().running == watch.Get() || IsShared(watch.Get()));
    };
    if (!runs()) {
        return false;
    }
    long status = S_OK;
    if (!RunGuarded(command, [&] { status = command->Activate(nullptr, nullptr); })) {
        return runs();
    }
    if (status < 0 && watch.Get() != nullptr) {
        const CATUnicodeString name = command->Name();
        CancelCommand(command, nullptr);
        CATRequestDelayedDestruction(watch.Get());
        Report(name, "It could not be activated (status " + Hexadecimal(status) + ").");
    }
    return status >= 0;
}

CATCommand* CATSession::RunningCommand()
{
    return State().running;
}

void CATSession::CancelRunningCommand()
{
    CATCommand* command = State().running;
    if (command == nullptr) {
        return;
    }
    const CATCommandWatch<CATCommand> watch(command);
    CancelCommand(command, nullptr);
    Ended(watch.Get());
}

void CATSession::OnRunningCommandChanged(std::function<void(CATCommand* running)> listener)
{
    State().listeners.push_back(std::move(listener));
}

void CATSession::SetDestructionScheduler(std::function<void()> scheduler)
{
    CATDestructionQueue::Get().SetScheduler(std::move(scheduler));
}

void CATSession::RunDelayedDestructions()
{
    CATDestructionQueue::Get().Run();
}

int CATSession::PendingDestructions()
{
    return CATDestructionQueue::Get().Size();
}

CATSession::NestedLoop::NestedLoop()
{
    CATDestructionQueue::Get().EnterNestedLoop();
}

CATSession::NestedLoop::~NestedLoop()
{
    CATDestructionQueue::Get().LeaveNestedLoop();
}

std::optional<CATUnicodeString> CATSession::CatchFault(const std::function<void()>& action)
{
    try {
        action();
    } catch (const CATFatalError& error) {
        return CATUnicodeString(error.Text() + " (" + error.Source() + ":" +
                                std::to_string(error.Line()) + ").");
    } catch (const CATNullHandle& error) {
        return CATUnicodeString(std::string(error.What()) + ".");
    }
    return std::nullopt;
}

bool CATSession::RunGuarded(CATCommand* command, const std::function<void()>& action)
{
    const CATCommandWatch<CATCommand> watch(command);
    const CATUnicodeString name = command == nullptr ? CATUnicodeString() : command->Name();
    auto what = CatchFault(action);
    if (!what) {
        return true;
    }
    if (watch.Get() != nullptr) {
        *what += RecoverOrEnd(command);
    }
    Report(name, *what);
    return false;
}

void CATSession::SetFaultReporter(
    std::function<void(const CATUnicodeString& command, const CATUnicodeString& what)> reporter)
{
    State().reporter = std::move(reporter);
}

void CATSession::Close()
{
    State().listeners.clear();
    State().running = nullptr;
    State().shared.clear();
    if (CATCommand* root = State().root.Get()) {
        root->Release();
    }
    CATDestructionQueue::Get().RunToTheEnd();
}

void CATSession::Ended(CATCommand* command)
{
    ForgetShared(command);
    if (command == nullptr || State().running != command) {
        return;
    }
    State().running = nullptr;
    TellListeners();
    ShowSharedCommands();
}
