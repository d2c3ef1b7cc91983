#include "CATDialogAgent.h"

#include "CATStateCommand.h"

CATDialogAgent::CATDialogAgent(const CATString& name, CATCommand* parent) : CATCommand(parent, name)
{}

CATDialogAgent::~CATDialogAgent()
{
    while (!m_states.empty()) {
        m_states.back()->RemoveAgent(this);
    }
}

CATString CATDialogAgent::GetResourceFilename(int) const
{
    return {};
}

void CATDialogAgent::InitializeAcquisition()
{
    m_outputSet = false;
}
