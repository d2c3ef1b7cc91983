#pragma once

#include "CATDialogAgent.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// One state of a command: what it prompts the user for and which agents wait in it.
class WB_EXPORT CATDialogState
{
public:
    explicit CATDialogState(CATUnicodeString prompt) : m_prompt(std::move(prompt)) {}
    ~CATDialogState();
    CATDialogState(const CATDialogState&) = delete;
    CATDialogState& operator=(const CATDialogState&) = delete;

    /// The agent is borrowed: whoever made it destroys it, and it leaves the state then. Null and
    /// an agent that is there already change nothing.
    void AddAgent(CATDialogAgent* agent);
    void RemoveAgent(CATDialogAgent* agent);
    const CATUnicodeString& Prompt() const { return m_prompt; }
    const std::vector<CATDialogAgent*>& Agents() const { return m_agents; }

private:
    CATUnicodeString m_prompt;
    std::vector<CATDialogAgent*> m_agents;
};

/// A command that waits in states for input and runs an action with each transition. It builds its
/// graph at its first activation and starts in its initial state. The prompt stands in the
/// session's frame while the command waits and no other one is the running command.
class WB_EXPORT CATStateCommand : public CATDialogAgent
{
public:
    explicit CATStateCommand(const CATString& name,
                             CATCommandMode mode = CATCommandMode::Exclusive);
    ~CATStateCommand() override;

    /// Builds the graph (once), enters the initial state (or the one it was left in) and shows its
    /// prompt. A graph without a state waits for nothing.
    long Activate(CATCommand* from, const CATNotification* why) override;
    /// Stops waiting; keeps the state.
    long Desactivate(CATCommand* from, const CATNotification* why) override;
    /// Stops waiting and asks for the command's delayed destruction.
    long Cancel(CATCommand* from, const CATNotification* why) override;

    /// The current state, null before the first activation and after the end.
    const CATDialogState* CurrentState() const { return m_current; }
    /// Whether it takes picks; a command whose destruction was asked for does not.
    bool IsWaiting() const;
    /// Offers the user's pick to the agents of the current state, in their order, until one takes
    /// it, and takes the first transition whose condition holds. True when an agent took the pick
    /// and the action, if one ran, answered true. Does nothing (false) while the command does not
    /// wait or runs an action. A fault is caught here: the command recovers and stays in its state,
    /// or it ends.
    bool Offer(const std::vector<CATPathElement_var>& picked);

protected:
    /// Called once; makes states, agents and transitions.
    virtual void BuildGraph() = 0;

    /// The first state made this way is the initial one; the command owns its states.
    CATDialogState* AddState(const CATUnicodeString& prompt);
    using Action = std::function<bool()>;
    /// Taken when the agent's output is set in `from`: runs the action (which may be empty), then
    /// enters `to`. An action that answers false did not take the input: the command stays in
    /// `from`. It goes on waiting either way. A transition that lacks a state or the agent is not
    /// added.
    void AddTransition(CATDialogState* from, CATDialogState* to, CATDialogAgent* agent,
                       Action action);

private:
    struct Transition;
    void Enter(CATDialogState* state);
    void StopWaiting();
    bool TakePick(const std::vector<CATPathElement_var>& picked);
    bool RunTransition();

    std::vector<std::unique_ptr<CATDialogState>> m_states;
    std::vector<Transition> m_transitions;
    CATDialogState* m_current = nullptr;
    bool m_built = false;
    bool m_waiting = false;
    bool m_inAction = false;
};

/// Gives a pick to the session's running command: what a tree does when the user releases the
/// mouse. True when a command took it.
WB_EXPORT bool CATOfferPick(const std::vector<CATPathElement_var>& picked);
