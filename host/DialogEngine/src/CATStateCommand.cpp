#include "CATStateCommand.h"

#include "CATApplicationFrame.h"
#include "CATCommandWatch.h"
#include "CATSession.h"

struct CATStateCommand::Transition
{
    const CATDialogState* from;
    CATDialogState* to;
    CATCommandWatch<CATDialogAgent> agent;
    Action action;
};

namespace
{
/// Whose prompt stands in the frame: a command that ends later than its successor started must not
/// take the successor's prompt away.
CATCommandWatch<CATStateCommand>& PromptOwner()
{
    static auto& owner = *new CATCommandWatch<CATStateCommand>;
    return owner;
}

void ShowPrompt(CATStateCommand* owner, const CATUnicodeString& prompt)
{
    if (CATApplicationFrame* frame = CATApplicationFrame::GetFrame()) {
        PromptOwner() = owner;
        frame->SetPrompt(prompt);
    }
}

void ClearPrompt(const CATStateCommand* owner)
{
    if (PromptOwner().Get() == owner) {
        ShowPrompt(nullptr, {});
    }
}
} // namespace

CATStateCommand::CATStateCommand(const CATString& name, CATCommandMode mode) : CATDialogAgent(name)
{
    RequestStatusChange(mode);
}

CATStateCommand::~CATStateCommand()
{
    ClearPrompt(this);
}

long CATStateCommand::Activate(CATCommand*, const CATNotification*)
{
    if (!m_built) {
        m_built = true;
        BuildGraph();
    }
    if (m_current == nullptr && !m_states.empty()) {
        m_current = m_states.front().get();
    }
    m_waiting = m_current != nullptr;
    Enter(m_current);
    return S_OK;
}

long CATStateCommand::Desactivate(CATCommand*, const CATNotification*)
{
    StopWaiting();
    return S_OK;
}

long CATStateCommand::Cancel(CATCommand*, const CATNotification*)
{
    StopWaiting();
    m_current = nullptr;
    RequestDelayedDestruction();
    return S_OK;
}

bool CATStateCommand::IsWaiting() const
{
    return m_waiting && !IsDestructionRequested();
}

bool CATStateCommand::Offer(const std::vector<CATPathElement_var>& picked)
{
    if (!IsWaiting() || m_inAction) {
        return false;
    }
    const CATCommandWatch<CATStateCommand> watch(this);
    bool taken = false;
    m_inAction = true;
    CATSession::RunGuarded(this, [&] { taken = TakePick(picked); });
    if (watch.Get() != nullptr) {
        m_inAction = false;
    }
    return taken;
}

CATDialogState* CATStateCommand::AddState(const CATUnicodeString& prompt)
{
    m_states.push_back(std::make_unique<CATDialogState>(prompt));
    return m_states.back().get();
}

void CATStateCommand::AddTransition(CATDialogState* from, CATDialogState* to, CATDialogAgent* agent,
                                    Action action)
{
    if (from != nullptr && to != nullptr && agent != nullptr) {
        m_transitions.push_back({from, to, agent, std::move(action)});
    }
}

void CATStateCommand::Enter(CATDialogState* state)
{
    m_current = state;
    const CATCommand* running = CATSession::RunningCommand();
    if (IsWaiting() && (running == nullptr || running == this)) {
        ShowPrompt(this, state->Prompt());
    }
}

void CATStateCommand::StopWaiting()
{
    m_waiting = false;
    ClearPrompt(this);
}

bool CATStateCommand::TakePick(const std::vector<CATPathElement_var>& picked)
{
    for (CATDialogAgent* agent : m_current->Agents()) {
        auto* pathAgent = dynamic_cast<CATPathElementAgent*>(agent);
        if (pathAgent != nullptr && pathAgent->Offer(picked)) {
            return RunTransition();
        }
    }
    return false;
}

bool CATStateCommand::RunTransition()
{
    for (const Transition& transition : m_transitions) {
        const CATDialogAgent* agent = transition.agent.Get();
        if (transition.from != m_current || agent == nullptr || !agent->IsOutputSet()) {
            continue;
        }
        // Copies: the action may add transitions, end the command's waiting, or destroy the
        // command.
        const Action action = transition.action;
        CATDialogState* to = transition.to;
        const CATCommandWatch<CATStateCommand> watch(this);
        const bool taken = !action || action();
        if (taken && watch.Get() != nullptr && m_current != nullptr) {
            Enter(to);
        }
        return taken;
    }
    return true;
}

bool CATOfferPick(const std::vector<CATPathElement_var>& picked)
{
    auto* command = dynamic_cast<CATStateCommand*>(CATSession::RunningCommand());
    return command != nullptr && command->Offer(picked);
}
