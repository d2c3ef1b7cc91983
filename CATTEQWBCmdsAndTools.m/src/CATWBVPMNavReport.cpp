#include "CATWBVPMNavReport.h"

#include "WBMainWindow.h"
#include "WBNavigatorSelection.h"

#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATMsgCatalog.h"

namespace
{

constexpr const char* kCommandName = "CATWBVPMNavReport";

CATWBVPMNavReportPanel* OpenPanel()
{
    CATDlgDialog* window = WBMainWindow();
    // Without a window to belong to, nobody would destroy the panel.
    CATWBVPMNavReportPanel* panel =
        window == nullptr ? nullptr : CATWBVPMNavReportPanel::Create(window);
    if (panel == nullptr) {
        return nullptr;
    }
    try {
        panel->Build();
        panel->SetVisibility(true);
    } catch (...) {
        // There will be no command that takes it along, and nobody sees it to close it.
        panel->RequestDelayedDestruction();
        throw;
    }
    return panel;
}

} // namespace

CATWBVPMNavReport::CATWBVPMNavReport() : CATStateCommand(kCommandName), m_panel(OpenPanel())
{}

CATWBVPMNavReport::~CATWBVPMNavReport()
{
    CATRequestDelayedDestruction(m_agent);
    CATRequestDelayedDestruction(m_panel.Get());
}

const char* CATWBVPMNavReport::ClassName() const
{
    return kCommandName;
}

CATString CATWBVPMNavReport::GetResourceFilename(int level) const
{
    return level > 0 ? CATDialogAgent::GetResourceFilename(level - 1) : CATString(kCommandName);
}

void CATWBVPMNavReport::BuildGraph()
{
    m_agent = WBMakeNavigatorAgent(); // asked away in the destructor
    CATDialogState* initialState = AddState(CATMsgCatalog::BuildMessage(
        kCommandName, "initialState.Message", "@Select a Part in VPM Navigator"));
    initialState->AddAgent(m_agent);
    AddTransition(initialState, initialState, m_agent, [this] { return ProcessSelection(); });

    if (CATWBVPMNavReportPanel* panel = m_panel.Get()) {
        const Handler close = [this](const CATNotification&) {
            RequestDelayedDestruction();
        };
        Subscribe(panel, CATDlgDialog::WindowClosed, close);
        Subscribe(panel->GetCloseButton(), CATDlgPushButton::Activated, close);
    }
}

bool CATWBVPMNavReport::ProcessSelection()
{
    WBNavigatorSelection selection(WBNavigatorCommand::Report);
    if (!selection.Ask(*m_agent)) {
        return false;
    }
    return selection.HandRecordsTo([this](const WBNavigatorRecord& record) {
        // The panel says for itself whether picks belong into its list; others are dropped.
        CATWBVPMNavReportPanel* panel = m_panel.Get();
        if (panel != nullptr && panel->IsInstanceInputActive()) {
            panel->SetWMMInstance(record.instance, record.part, record.version, record.path,
                                  record.count);
        }
        return true;
    });
}

CATCommand* fctCreateCATWBVPMNavReport()
{
    return new CATWBVPMNavReport(); // handed to the command tree
}
