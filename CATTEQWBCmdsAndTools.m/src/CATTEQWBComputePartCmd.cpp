#include "CATTEQWBComputePartCmd.h"

#include "WBInitialValuesTexts.h"
#include "WBMainWindow.h"
#include "WBObjectService.h"
#include "WBPickedObject.h"

#include "CATWBAllDataBuffer.h"
#include "CATWBServices.h"

#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavFilterPanel.h"

#include "CATENOWBCSCommonDefinitions.h"

#include "CATApplicationFrame.h"
#include "CATDiagnostics.h"
#include "CATDocument.h"
#include "CATIProduct.h"
#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATMsgCatalog.h"
#include "RunServerCode.h"

#include <array>
#include <optional>

namespace
{

constexpr const char* kCommandName = "CATTEQWBComputePartCmd";
constexpr int kErrorStyle = 0x10000000;
constexpr int kNavigatorBehaviour = 0x40a00010;
constexpr int kProductBehaviour = 0x40a00000;

CATUnicodeString Message(const char* key, const char* defaultText)
{
    return CATMsgCatalog::BuildMessage(kCommandName, key, defaultText);
}

void TellError(const CATUnicodeString& title, const CATUnicodeString& text)
{
    CATWBServices::DisplayMsg(WBMainWindow(), title, text, kErrorStyle);
}

bool Refuse(const char* reason)
{
    CATDiagnosticErrors().Line(reason);
    return false;
}

/// The newest main panel below `parent`, null when there is none.
CATWBVPMMainPanel* FindMainPanel(const CATCommand& parent)
{
    for (int position = parent.ChildCount(); position >= 1; --position) {
        CATCommand* child = parent.Child(position);
        if (child->Name() == CATWBVPMMainPanel::kName) {
            return dynamic_cast<CATWBVPMMainPanel*>(child);
        }
    }
    return nullptr;
}

/// The object service's record of the picked object; nothing, after a diagnostic line, when there
/// is none.
std::optional<CATUnicodeString> AskObjectService(WBPickedObject& picked)
{
    const CATUnicodeString input = WBObjectServiceInput(
        picked.rootIdentifier, CATWBVPMNavFilterPanel::selectedPRCConfigHandler, picked.fieldA,
        picked.fieldB);
    std::optional<CATUnicodeString> answer = WBAskObjectService(picked.identificators, input).text;
    if (!answer) {
        CATDiagnosticErrors().Line("The character pointer returned by the server is NULL!");
        return std::nullopt;
    }
    CATDiagnosticOutput().Line("Returned by RunObjectService(): ", *answer);
    return answer;
}

/// The server's values; nothing, after a box that says why, when there are none.
std::optional<CATUnicodeString> AskForValues(const CATUnicodeString& request)
{
    CATDiagnosticOutput().Line("String to send to the server : ", request);
    const CATUnicodeString answer = RunServerCode("WBCompPartGetInitialValues", request);
    CATDiagnosticOutput().Line("Server's response: <", answer, ">");
    if (answer.IsEmpty()) {
        TellError(Message("CommunicationError.Title", "@Communication Error"),
                  Message("CommunicationError.Text", "@The server could not be reached."));
        return std::nullopt;
    }
    const CATUnicodeString marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    if (answer.Contains(marker)) {
        // As many characters as the marker has are cut off the start, wherever the marker stands:
        // an answer that says something before it loses that beginning.
        TellError(Message("ServerError.Title", "@Server Error"), answer.Part(marker.Length()));
        return std::nullopt;
    }
    return answer;
}

} // namespace

CATTEQWBComputePartCmd::CATTEQWBComputePartCmd() : CATStateCommand(kCommandName)
{
    if (const CATApplicationFrame* frame = CATApplicationFrame::GetFrame()) {
        m_workshop = frame->Workshop();
        m_workbench = frame->Workbench();
    }
    CATDiagnosticOutput().Line("<", m_workbench, ">/<", m_workshop, ">");
}

CATTEQWBComputePartCmd::~CATTEQWBComputePartCmd()
{
    CATRequestDelayedDestruction(m_mainPanel.Get());
    CATRequestDelayedDestruction(m_identifierAgent);
    CATRequestDelayedDestruction(m_pathAgent);
}

const char* CATTEQWBComputePartCmd::ClassName() const
{
    return kCommandName;
}

CATString CATTEQWBComputePartCmd::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kCommandName) : CATDialogAgent::GetResourceFilename(level - 1);
}

void CATTEQWBComputePartCmd::BuildGraph()
{
    CATDialogAgent* agent = nullptr;
    if (m_workshop == CATENOWBCSCommonDefinitions::vpmNavWshp) {
        m_identifierAgent = new CATImmIdentifierAcquisitionAgent(); // asked away in the destructor
        m_identifierAgent->SetBehaviour(kNavigatorBehaviour);
        agent = m_identifierAgent;
    } else if (m_workshop == CATENOWBCSCommonDefinitions::prodStructWshp) {
        m_pathAgent = new CATPathElementAgent("pathElemAcqAgent"); // asked away in the destructor
        m_pathAgent->SetBehaviour(kProductBehaviour);
        agent = m_pathAgent;
    } else {
        CATDiagnosticErrors().Line("Unexpected situation!");
        return;
    }
    CATDialogState* initialState =
        AddState(Message("initialState.Message", "@Select a Part/Assy in this workbench"));
    initialState->AddAgent(agent);
    AddTransition(initialState, initialState, agent, [this] { return ProcessSelection(); });
}

bool CATTEQWBComputePartCmd::IsSelectionValid()
{
    return m_identifierAgent != nullptr ? IsNavigatorSelectionValid() : IsProductSelectionValid();
}

bool CATTEQWBComputePartCmd::IsNavigatorSelectionValid() const
{
    const CATUnicodeString type = m_identifierAgent->GetType();
    CATDiagnosticOutput().Line("selection type: ", type);
    return WBIsNavigatorInstanceType(type);
}

bool CATTEQWBComputePartCmd::IsProductSelectionValid()
{
    const CATPathElement_var path = m_pathAgent->GetValue();
    const CATILinkableObject_var leaf =
        path.IsNull() ? CATBaseUnknown_var() : path->Element(path->Size());
    if (leaf.IsNull()) {
        return Refuse("Unable to retrieve a valid link ptr for the current object!");
    }
    const CATDocument_var document = leaf->GetDocument();
    if (document.IsNull()) {
        return Refuse("Unable to retrieve the document!");
    }
    CATUnicodeString identifier;
    if (document->GetIdentifier(identifier) != S_OK) {
        return Refuse("Could not retrieve the Id of the document!");
    }
    CATUnicodeString environment;
    if (document->GetStorageEnvironment(environment) != S_OK) {
        return Refuse("Could not retrieve the environment!");
    }
    CATDiagnosticOutput().Line("PDM: ", environment);
    if (!(environment == CATProductDocument::kPdmEnvironment)) {
        m_pendingMessage = Message("WrongEnvironment.Text",
                                   "@The selected object belongs to a document outside the PDM.");
        return false;
    }
    const CATUnicodeString type = leaf->GetType();
    CATDiagnosticOutput().Line("selection type: ", type);
    if (type.Compare("ASMPRODUCT") == 0) { // letter case does not count
        return false;
    }
    if (path->Size() < 2) {
        return Refuse("the selected object seems to be the PRC");
    }
    return true;
}

bool CATTEQWBComputePartCmd::ProcessSelection()
{
    bool isTaken = true;
    if (IsSelectionValid()) {
        isTaken = ShowSelection();
    } else {
        ShowWrongSelection(); // the user picks again: nothing went wrong
    }
    RearmAgents();
    return isTaken;
}

void CATTEQWBComputePartCmd::ShowWrongSelection()
{
    if (m_pendingMessage.IsEmpty()) {
        return;
    }
    TellError(Message("WrongEnvironment.Title", "@Wrong Environment"), m_pendingMessage);
    m_pendingMessage = CATUnicodeString();
}

void CATTEQWBComputePartCmd::RearmAgents()
{
    for (CATDialogAgent* agent : std::array<CATDialogAgent*, 2>{m_identifierAgent, m_pathAgent}) {
        if (agent != nullptr) {
            agent->InitializeAcquisition();
        }
    }
}

bool CATTEQWBComputePartCmd::ShowSelection()
{
    WBPickedObject picked;
    const bool isIdentified = m_identifierAgent != nullptr
                                  ? WBIdentifyNavigatorPick(m_identifierAgent, picked)
                                  : WBIdentifyProductPick(m_pathAgent, picked);
    if (!isIdentified) {
        return false;
    }
    const std::optional<CATUnicodeString> objectRecord = AskObjectService(picked);
    WBInstanceIdentity identity;
    if (!objectRecord || !WBReadObjectRecord(*objectRecord, identity)) {
        return false;
    }
    identity.hasInstance = picked.hasInstance;
    identity.rootIdentifier = picked.rootIdentifier;
    if (picked.depth > 0) {
        int depth = -1;
        CATUnicodeString leafName;
        CATUnicodeString path;
        if (GetInstancePath(depth, leafName, path) != S_OK) {
            return Refuse("Unable to get the instance path!");
        }
        WBTakeProductPath(depth, leafName, path, identity);
    }

    const std::optional<CATUnicodeString> answer = AskForValues(WBInitialValuesRequest(identity));
    if (!answer) {
        return false;
    }
    const CATUnicodeString stream = WBInitialValuesStream(identity, *answer);
    CATDiagnosticOutput().Line("Final stream that goes into the buffer: ", stream);
    const auto record = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer());
    if (record->SetAllData(stream, true) != S_OK) {
        return Refuse("SetAllData() crashed!");
    }
    if (!identity.hasInstance && !AddTransformation(*record)) {
        return false;
    }
    record->SetIsLeaf(identity.isLeaf);
    return FillPanel(*record);
}

long CATTEQWBComputePartCmd::GetInstancePath(int& depth, CATUnicodeString& leafName,
                                             CATUnicodeString& path) const
{
    return WBReadInstancePath(m_pathAgent->GetValue(), depth, leafName, path);
}

bool CATTEQWBComputePartCmd::AddTransformation(CATWBAllDataBuffer& record) const
{
    const CATPathElement_var path = m_pathAgent->GetValue();
    const CATIMovable_var leaf = path->Element(path->Size());
    if (leaf.IsNull()) {
        return Refuse("Unable to retrieve the instance transformation!");
    }
    std::array<double, 12> coefficients{};
    leaf->GetAbsoluteTransformation().GetCoefficients(coefficients);
    CATDiagnosticOutput().Line("This instance's transformation:");
    CATRawColldouble values;
    for (std::size_t index = 0; index < coefficients.size(); ++index) {
        values.Append(coefficients[index]);
        if (index % 3 == 2) {
            CATDiagnosticOutput().Line(coefficients[index - 2], " ", coefficients[index - 1], " ",
                                       coefficients[index]);
        }
    }
    record.SetListOfTransMatrix(values);
    return true;
}

bool CATTEQWBComputePartCmd::FillPanel(CATWBAllDataBuffer& record)
{
    const CATDlgDialog* window = WBMainWindow();
    if (window == nullptr) {
        return Refuse("There is no main window to open the panel beside!");
    }
    CATCommand* parent = window->Parent();
    CATWBVPMMainPanel* panel = FindMainPanel(*parent);
    if (panel != nullptr) {
        // Whoever made the panel listens to its closing. A panel that another command opened does
        // not end this one when it is closed; this command goes on waiting and shows the panel
        // again.
        CATDiagnosticOutput().Line("Filling in the panel...");
        panel->SetModel(&record);
    } else {
        CATDiagnosticOutput().Line("MainPanel is null here... instantiating it");
        panel = CATWBVPMMainPanel::Create(parent, &record);
        if (panel == nullptr) {
            return Refuse("The main panel could not be made!");
        }
        const Handler close = [this](const CATNotification&) {
            RequestDelayedDestruction();
        };
        Subscribe(panel, CATDlgDialog::WindowClosed, close);
        Subscribe(panel->GetCloseButton(), CATDlgPushButton::Activated, close);
    }
    m_mainPanel = panel;
    panel->SetVisibility(true);
    return true;
}

CATCommand* fctCreateCATTEQWBComputePartCmd()
{
    return new CATTEQWBComputePartCmd(); // handed to the command tree
}
