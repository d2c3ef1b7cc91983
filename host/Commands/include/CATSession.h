#pragma once

#include "CATCommand.h"

#include <functional>
#include <optional>

/// The session: the root of the command tree, the commands that run, the queue of delayed
/// destructions, and what happens to a command that fails. One a program, on the user-interface
/// thread.
class WB_EXPORT CATSession
{
public:
    /// The root of the command tree; made at the first call. The main window and the main panel are
    /// its children.
    static CATCommand& Root();

    /// Gives a command the hand; one without a parent becomes a child of the root. An exclusive
    /// command first cancels the running exclusive one and hides the shared ones (Desactivate),
    /// which come back (Activate) when it ends. A shared command started meanwhile stays visible
    /// beside it: the user has just asked for it. A fault or a negative status of the activation
    /// ends the command and is reported. False when it could not be started; a command that did its
    /// work and ended at once was.
    static bool Start(CATCommand* command);
    /// The running exclusive command, or null.
    static CATCommand* RunningCommand();
    /// Cancels the running exclusive command, if there is one: what Esc does.
    static void CancelRunningCommand();
    /// Adds one who is told when the running command changes (null: none runs), until Close. A
    /// command stops being the running one when it is cancelled or destroyed, and already when its
    /// destruction is asked for.
    static void OnRunningCommandChanged(std::function<void(CATCommand* running)> listener);

    // Delayed destruction: a queue run in order when control is back in the outermost event loop.

    /// Who makes the event loop call RunDelayedDestructions soon (the dialog library does). It is
    /// asked whenever something begins to wait outside nested loops, and when the last of these
    /// ends.
    static void SetDestructionScheduler(std::function<void()> scheduler);
    /// Destroys what was asked for, in the order of asking, also what is asked for meanwhile; does
    /// nothing inside a nested loop or inside itself.
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

    /// Runs `action`. When it raises a fatal error or a null handle: has `command` recover, or else
    /// be cancelled and destroyed, then tells the user (the fault reporter) and answers false.
    /// Where a transition runs, where a notification is dispatched and where a command is activated
    /// this is used. `command` may be null, and may go away inside the action.
    static bool RunGuarded(CATCommand* command, const std::function<void()>& action);
    /// Runs `action` and answers the sentence of the fault that it raised, or nothing; nobody is
    /// told.
    static std::optional<CATUnicodeString> CatchFault(const std::function<void()>& action);
    /// Who tells the user of a caught fault: the command's name and what was wrong, as a sentence.
    /// It may show a blocking box: the command is in order or ended by then. Without one, the line
    /// goes to the diagnostic errors.
    static void SetFaultReporter(
        std::function<void(const CATUnicodeString& command, const CATUnicodeString& what)>
            reporter);

    /// Destroys all commands and windows, last to first, then what still waits for destruction; the
    /// end of the program. Nobody is told of it, and the listeners are forgotten.
    static void Close();

private:
    friend class CATCommand;
    /// The command is no longer one of the running ones.
    static void Ended(CATCommand* command);
};
