#include "CATTEQWBDefineFilterCmd.h"

#include "WBMainWindow.h"
#include "WBNavigatorSelection.h"
#include "WBPickedObject.h"

#include "CATDiagnostics.h"
#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATMsgCatalog.h"
#include "CATPDMServices.h"

namespace
{

constexpr const char* kCommandName = "CATTEQWBDefineFilterCmd";

/// The identifier of the navigator's current root; empty when there is no root or it has none.
CATUnicodeString RootIdentifier()
{
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    CATUnicodeString type;
    if (CATImmCAAServices::GetCurrentRootIdentifiers(names, values, type) != S_OK) {
        return {};
    }
    CATDiagnosticOutput().Line("The root type: ", type);
    CATUnicodeString identifier;
    WBFindRootIdentifier(names, values, identifier); // stays empty when there is none
    return identifier;
}

} // namespace

CATTEQWBDefineFilterCmd::CATTEQWBDefineFilterCmd() : CATStateCommand(kCommandName)
{}

CATTEQWBDefineFilterCmd::~CATTEQWBDefineFilterCmd()
{
    CATRequestDelayedDestruction(m_agent);
    CATRequestDelayedDestruction(m_panel.Get());
}

const char* CATTEQWBDefineFilterCmd::ClassName() const
{
    return kCommandName;
}

CATString CATTEQWBDefineFilterCmd::GetResourceFilename(int level) const
{
    return level > 0 ? CATDialogAgent::GetResourceFilename(level - 1) : CATString(kCommandName);
}

void CATTEQWBDefineFilterCmd::BuildGraph()
{
    m_agent = WBMakeNavigatorAgent(); // asked away in the destructor
    CATDialogState* initialState = AddState(CATMsgCatalog::BuildMessage(
        kCommandName, "initialState.Message",
        "@Select one or several Part Instances in the product structure"));
    initialState->AddAgent(m_agent);
    AddTransition(initialState, initialState, m_agent, [this] { return ProcessSelection(); });
    OpenPanel();
}

void CATTEQWBDefineFilterCmd::OpenPanel()
{
    CATDlgDialog* window = WBMainWindow();
    // Without a window to belong to, nobody would destroy the panel.
    m_panel = window == nullptr ? nullptr : CATWBVPMNavFilterPanel::Create(window);
    m_rootIdentifier = RootIdentifier();
    CATWBVPMNavFilterPanel* panel = m_panel.Get();
    if (panel == nullptr) {
        return;
    }
    if (!m_rootIdentifier.IsEmpty()) {
        panel->SetPRCId(m_rootIdentifier);
    }
    panel->Build();
    panel->SetVisibility(true);
    const Handler close = [this](const CATNotification&) {
        RequestDelayedDestruction();
    };
    Subscribe(panel->GetOkButton(), CATDlgPushButton::Activated, close);
    Subscribe(panel, CATDlgDialog::WindowClosed, close);
    Subscribe(panel->GetCancelButton(), CATDlgPushButton::Activated, close);
}

bool CATTEQWBDefineFilterCmd::ProcessSelection()
{
    WBNavigatorSelection selection(WBNavigatorCommand::DefineFilter);
    if (!selection.Ask(*m_agent, m_rootIdentifier)) {
        return false;
    }
    CATWBVPMNavFilterPanel* panel = m_panel.Get();
    if (panel == nullptr) {
        return true;
    }
    panel->SetPRCId(m_rootIdentifier);
    if (!panel->IsVisible()) {
        panel->SetCurrentFilters(); // what it showed when it was hidden may be out of date
        panel->SetVisibility(true);
    }
    return selection.HandRecordsTo([panel](const WBNavigatorRecord& record) {
        panel->AddValuesInMultiList(record.instance, record.part, record.version, record.path,
                                    record.count);
        return true;
    });
}

CATCommand* fctCreateCATTEQWBDefineFilterCmd()
{
    return new CATTEQWBDefineFilterCmd(); // handed to the command tree
}
