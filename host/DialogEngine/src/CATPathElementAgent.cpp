#include "CATDialogAgent.h"

CATPathElementAgent::CATPathElementAgent(const CATString& name, CATCommand* parent)
    : CATDialogAgent(name, parent)
{}

bool CATPathElementAgent::Offer(const std::vector<CATPathElement_var>& picked)
{
    if (picked.empty()) {
        return false;
    }
    if ((Behaviour() & kTakesSets) != 0) {
        m_values = picked;
    } else {
        m_values = {picked.back()};
    }
    SetOutput(true);
    return true;
}

void CATPathElementAgent::InitializeAcquisition()
{
    CATDialogAgent::InitializeAcquisition();
    m_values.clear();
}

CATPathElement_var CATPathElementAgent::GetValue() const
{
    return m_values.empty() ? CATPathElement_var() : m_values.front();
}
