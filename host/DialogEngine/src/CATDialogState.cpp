#include "CATStateCommand.h"

#include <algorithm>

CATDialogState::~CATDialogState()
{
    while (!m_agents.empty()) {
        RemoveAgent(m_agents.back());
    }
}

void CATDialogState::AddAgent(CATDialogAgent* agent)
{
    if (agent == nullptr || std::ranges::find(m_agents, agent) != m_agents.end()) {
        return;
    }
    m_agents.push_back(agent);
    agent->m_states.push_back(this);
}

void CATDialogState::RemoveAgent(CATDialogAgent* agent)
{
    // Looked up before the agent is touched: it may be another state's, or null.
    if (std::erase(m_agents, agent) > 0) {
        std::erase(agent->m_states, this);
    }
}
