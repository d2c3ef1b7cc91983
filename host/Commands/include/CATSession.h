#pragma once

#include "CATCommand.h"

#include <functional>

/// The session: the root of the command tree, the commands that run, the queue of delayed
/// destructions, and what happens to a command that fails. One a program, on the user-interface
/// thread.
class WB_EXPORT CATSession
{
public:
    /// The root of the command tree; made at the first call. The main window and the main panel are
    /// its children.
    static CATCommand& Root();

    /// Gives a new command the hand. An exclusive command first cancels the running exclusive one and
    /// hides the shared ones (Desactivate), which come back (Activate) when it ends. A failure ends
    /// the command and is reported. False when it could not be started.
    static bool Start(CATCommand* command);
    /// The running exclusive command, or null.
    static CATCommand* RunningCommand();
    /// Cancels the running exclusive command, if there is one: what Esc does.
    static void CancelRunningCommand();
    /// Who is told when the running command changes (null: none runs).
    static void OnRunningCommandChanged(std::function<void(CATCommand* running)> listener);

    // Delayed destruction: a queue run in order when control is back in the outermost event loop.

    /// Who makes the event loop call RunDelayedDestructions soon (the dialog library does).
    static void SetDestructionScheduler(std::function<void()> scheduler);
    /// Destroys what was asked for, in the order of asking; does nothing inside a nested loop.
    static void RunDelayedDestructions();
    /// How many commands wait.
    static int PendingDestructions();
    /// Stands on the stack while a blocking box or a waiting call runs a loop of its own.
    class WB_EXPORT NestedLoop
    {
    public:
        NestedLoop();
        ~NestedLoop();
        NestedLoop(const NestedLoop&) = delete;
        NestedLoop& operator=(const NestedLoop&) = delete;
    };

    /// Runs `action`; when it raises a fatal error or a null handle, tells the user (the fault
    /// reporter), has `command` recover or be cancelled and destroyed, and answers false. The three
    /// places where faults are caught (transition, notification, creation or activation) use this.
    static bool RunGuarded(CATCommand* command, const std::function<void()>& action);
    /// Who tells the user of a caught fault: the command's name and what was wrong, as a sentence.
    static void SetFaultReporter(
        std::function<void(const CATUnicodeString& command, const CATUnicodeString& what)> reporter);

    /// Destroys all commands and windows, last to first; the end of the program.
    static void Close();
};
