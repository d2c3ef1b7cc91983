#pragma once

#include "CATDialogAgent.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class CATStateCommand;

/// One state of a command: what it prompts the user for and which agents wait in it.
class WB_EXPORT CATDialogState
{
public:
    explicit CATDialogState(CATUnicodeString prompt) : m_prompt(std::move(prompt)) {}
    /// The agent is borrowed: whoever made it destroys it.
    void AddAgent(CATDialogAgent* agent);
    void RemoveAgent(const CATDialogAgent* agent);
    const CATUnicodeString& Prompt() const { return m_prompt; }
    const std::vector<CATDialogAgent*>& Agents() const { return m_agents; }

private:
    CATUnicodeString m_prompt;
    std::vector<CATDialogAgent*> m_agents;
};

/// A command that waits in states for input and runs an action with each transition. It builds its
/// graph at its first activation and starts in its initial state.
class WB_EXPORT CATStateCommand : public CATDialogAgent
{
public:
    explicit CATStateCommand(const CATString& name, CATCommandMode mode = CATCommandMode::Exclusive);
    ~CATStateCommand() override;

    /// Builds the graph (once), enters the initial state (or the one it was left in) and shows its
    /// prompt.
    long Activate(CATCommand* from, const CATNotification* why) override;
    /// Stops waiting; keeps the state.
    long Desactivate(CATCommand* from, const CATNotification* why) override;
    /// Stops waiting and asks for the command's delayed destruction.
    long Cancel(CATCommand* from, const CATNotification* why) override;

    /// The current state, null before the first activation and after the end.
    const CATDialogState* CurrentState() const { return m_current; }
    bool IsWaiting() const { return m_waiting; }
    /// Offers the user's pick to the agents of the current state, and takes the first transition whose
    /// condition holds. True when an agent took it. Does nothing (false) while the command does not wait
    /// or runs an action.
    bool Offer(const std::vector<CATPathElement_var>& picked);

protected:
    /// Called once; makes states, agents and transitions.
    virtual void BuildGraph() = 0;

    /// The first state made this way is the initial one; the command owns its states.
    CATDialogState* AddState(const CATUnicodeString& prompt);
    using Action = std::function<bool()>;
    /// Taken when the agent's output is set in `from`: runs the action, then enters `to`. What the
    /// action returns says whether the command took the input; it goes on waiting either way.
    void AddTransition(CATDialogState* from, CATDialogState* to, CATDialogAgent* agent, Action action);

private:
    struct Transition;
    void Enter(CATDialogState* state);
    void RunTransitions();

    std::vector<std::unique_ptr<CATDialogState>> m_states;
    std::vector<Transition> m_transitions;
    CATDialogState* m_current = nullptr;
    bool m_built = false;
    bool m_waiting = false;
    bool m_inAction = false;
};

/// Gives a pick to the running command: what a tree does when the user releases the mouse. True when a
/// command took it.
WB_EXPORT bool CATOfferPick(const std::vector<CATPathElement_var>& picked);
