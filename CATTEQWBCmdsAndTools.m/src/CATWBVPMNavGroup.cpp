#include "CATWBVPMNavGroup.h"

#include "WBMainWindow.h"
#include "WBNavigatorSelection.h"
#include "WBPickedObject.h"

#include "CATWBServices.h"

#include "CATWBVPMNavFilterPanel.h"

#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATMsgCatalog.h"

namespace
{

constexpr const char* kCommandName = "CATWBVPMNavGroup";
constexpr int kWarningStyle = 0x8000000;

CATWBVPMNavGroupPanel* MakePanel(const CATUnicodeString& root, const WBNavigatorRecord& record)
{
    CATDlgDialog* window = WBMainWindow();
    // Without a window to belong to, nobody would destroy the panel.
    return window == nullptr
               ? nullptr
               : CATWBVPMNavGroupPanel::Create(window, root, record.part, record.version);
}

void WarnOfFilter()
{
    CATWBServices::DisplayMsg(
        WBMainWindow(),
        CATMsgCatalog::BuildMessage(kCommandName, "PVSFilterWarning.Title", "@Filter"),
        CATMsgCatalog::BuildMessage(
            kCommandName, "PVSFilterWarning_100",
            "@The filter of the product leaves the instance out, so it cannot be in a group."),
        kWarningStyle);
}

} // namespace

CATWBVPMNavGroup::CATWBVPMNavGroup() : CATStateCommand(kCommandName)
{}

CATWBVPMNavGroup::~CATWBVPMNavGroup()
{
    CATRequestDelayedDestruction(m_agent);
    CATRequestDelayedDestruction(m_panel.Get());
}

const char* CATWBVPMNavGroup::ClassName() const
{
    return kCommandName;
}

CATString CATWBVPMNavGroup::GetResourceFilename(int level) const
{
    return level > 0 ? CATDialogAgent::GetResourceFilename(level - 1) : CATString(kCommandName);
}

bool CATWBVPMNavGroup::ValidSelection(const CATBaseUnknown_var& object) const
{
    if (!object.IsNull()) {
        return WBIsItemInstance(object);
    }
    const CATPathElement_var picked =
        m_agent == nullptr ? CATPathElement_var() : m_agent->GetValue();
    return !picked.IsNull() && WBIsItemInstance(picked->Search<CATBaseUnknown>());
}

void CATWBVPMNavGroup::OnCloseAction()
{
    RequestDelayedDestruction();
}

void CATWBVPMNavGroup::BuildGraph()
{
    m_agent = WBMakeNavigatorAgent(); // asked away in the destructor
    // The prompt is the compute-part command's: both ask for the same.
    CATDialogState* initialState = AddState(CATMsgCatalog::BuildMessage(
        "CATTEQWBComputePartCmd", "initialState.Message", "@Select a Part in VPM Navigator"));
    initialState->AddAgent(m_agent);
    AddTransition(initialState, initialState, m_agent, [this] { return ProcessSelection(); });
}

bool CATWBVPMNavGroup::ProcessSelection()
{
    WBNavigatorSelection selection(WBNavigatorCommand::Group);
    if (!selection.Ask(*m_agent)) {
        return false;
    }
    const bool tookAll = selection.HandRecordsTo([this, &selection](const WBNavigatorRecord& each) {
        return TakeRecord(selection.RootIdentifier(), each);
    });
    CATWBVPMNavGroupPanel* panel = m_panel.Get();
    // Only a pick that was taken whole ties the command's end to the panel. A panel that opened
    // with a pick of which the filter left something out can be closed without ending the command:
    // the next pick shows it again.
    if (tookAll && panel != nullptr) {
        // Each pick subscribes again; to ask for the end more than once is harmless.
        const Handler close = [this](const CATNotification&) {
            OnCloseAction();
        };
        Subscribe(panel, CATDlgDialog::WindowClosed, close);
        Subscribe(panel->GetCloseButton(), CATDlgPushButton::Activated, close);
    }
    return true;
}

bool CATWBVPMNavGroup::TakeRecord(const CATUnicodeString& root, const WBNavigatorRecord& record)
{
    if (m_panel.Get() != nullptr && m_panel.Get()->IsInstanceInputActive()) {
        // The panel asks for one instance, which does not go into the group: no filter matters.
        m_panel.Get()->SetWMMInstance(record.instance, record.part, record.version, record.path,
                                      record.count);
        return true;
    }
    if (!CATWBVPMNavFilterPanel::IsValid(root, record.instance, record.part, record.version,
                                         record.count, record.path)) {
        WarnOfFilter();
        return false;
    }
    if (m_panel.Get() == nullptr) {
        m_panel = MakePanel(root, record);
        if (m_panel.Get() == nullptr) {
            return true;
        }
        m_panel.Get()->Build();
    }
    m_panel.Get()->SetVisibility(true);
    m_panel.Get()->AddValuesInMultiList(record.instance, record.part, record.version, record.path,
                                        record.count, record.partName);
    return true;
}

CATCommand* fctCreateCATWBVPMNavGroup()
{
    return new CATWBVPMNavGroup(); // handed to the command tree
}
