#include "CATWBComputeCmd.h"

#include "WBComputeAnswer.h"
#include "WBComputeControls.h"
#include "WBComputeRequest.h"
#include "WBComputeTexts.h"
#include "WBMainWindow.h"
#include "WBMassTypeNames.h"

#include "CATWBServices.h"

#include "CATWBVPMNavFilterPanel.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATENOWBCSCommonServices.h"

#include "CATDiagnostics.h"
#include "CATPDMServices.h"
#include "RunServerCode.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace
{

constexpr int kWindowStyle = 0x4001; // no standard buttons
constexpr int kErrorStyle = 0x10000000;
constexpr int kResultPage = 0;
// The units panel's types of masses, lengths and inertias.
constexpr std::array kShownUnitsTypes{2, 3, 4};
// Centres of gravity come in millimetres, inertias are per square metre.
constexpr double kMetresPerMillimetre = 0.001;

void ShowTexts(std::span<CATDlgEditor* const> editors, const std::vector<CATUnicodeString>& texts)
{
    for (std::size_t index = 0; index < editors.size(); ++index) {
        editors[index]->SetText(texts[index]);
    }
}

void ShowInUnits(const char* magnitude, std::span<const double> values,
                 std::span<CATDlgEditor* const> editors)
{
    const std::optional<std::vector<CATUnicodeString>> texts = WBShownInUnits(magnitude, values);
    if (texts) {
        ShowTexts(editors, *texts);
    }
}

/// An answer that announces no rows says nothing about the list: what stood there stays.
void ShowTable(CATDlgMultiList& list, int count,
               const std::vector<CATListValCATUnicodeString>& table)
{
    if (count > 0) {
        list.SetRows(table); // in the place of the rows before
    }
}

} // namespace

CATWBComputeCmd::CATWBComputeCmd()
    : CATDlgDialog(WBMainWindow(), kName, kWindowStyle),
      m_values(std::make_unique<WBComputeValues>())
{
    RequestStatusChange(CATCommandMode::Exclusive);
}

CATWBComputeCmd::~CATWBComputeCmd()
{
    UnsubscribeToCallbacks();
}

const char* CATWBComputeCmd::ClassName() const
{
    return kName;
}

CATString CATWBComputeCmd::GetResourceFilename(int level) const
{
    return level <= 0 ? CATString(kName) : CATDlgDialog::GetResourceFilename(level - 1);
}

long CATWBComputeCmd::Activate(CATCommand* from, const CATNotification* why)
{
    if (CATImmCAAServices::GetCurrentRootIdentifiers(m_rootNames, m_rootValues, m_rootType) !=
        S_OK) {
        return Cancel(from, why);
    }
    if (m_isFirstActivation) {
        Build();
        SubscribeToCallbacks();
        m_isFirstActivation = false;
    }
    ShowSelection();
    SetVisibility(true);
    return S_OK;
}

long CATWBComputeCmd::Desactivate(CATCommand*, const CATNotification*)
{
    SetVisibility(false);
    return S_OK;
}

long CATWBComputeCmd::Cancel(CATCommand*, const CATNotification*)
{
    SetVisibility(false);
    RequestDelayedDestruction();
    return S_OK;
}

void CATWBComputeCmd::Build()
{
    m_controls = std::make_unique<WBComputeControls>(WBBuildComputeControls(*this));
    SubscribeToControls();
    SetInitialState();
    GetSpecifiedMassTypes();
}

void CATWBComputeCmd::SubscribeToControls()
{
    const auto listen = [this](CATCommand* sender, const CATEvent& event,
                               void (CATWBComputeCmd::*handler)()) {
        Subscribe(sender, event, [this, handler](const CATNotification&) { (this->*handler)(); });
    };
    listen(m_controls->compute, CATDlgPushButton::Activated,
           &CATWBComputeCmd::OnComputeButtonPushBActivateNotification);
    listen(m_controls->close, CATDlgPushButton::Activated,
           &CATWBComputeCmd::OnCloseButtonPushBActivateNotification);
    listen(this, WindowClosed, &CATWBComputeCmd::OnCloseButtonPushBActivateNotification);
    listen(m_controls->aboutReference, CATDlgRadioButton::Modified,
           &CATWBComputeCmd::OnReferenceButtonRadBModifyNotification);
    listen(m_controls->specified, CATDlgRadioButton::Modified,
           &CATWBComputeCmd::OnSpecifiedButtonRadBModifyNotification);
    listen(m_controls->assumeUpToDate, CATDlgRadioButton::Modified,
           &CATWBComputeCmd::OnAssumeUpToDateButtonNotification);
    listen(m_controls->resultTabs, CATDlgTabContainer::PageSelected,
           &CATWBComputeCmd::OnResultTabContainerSelectNotification);
}

void CATWBComputeCmd::SetInitialState()
{
    m_controls->aboutCentre->SetChecked(true);
    m_controls->active->SetChecked(true);
    m_controls->checkUpToDate->SetChecked(true);
    m_controls->updateLevel->SetText("0");
    OnAssumeUpToDateButtonNotification();
    OnSpecifiedButtonRadBModifyNotification();
}

void CATWBComputeCmd::SubscribeToCallbacks()
{
    m_unitsPanel = CATWBVPMNavUnitsConversion::Instance();
    for (const int type : kShownUnitsTypes) {
        Subscribe(m_unitsPanel.Get(), CATWBVPMNavUnitsConversion::GetChangedEvent(type),
                  [this](const CATNotification&) { OnModifyUnit(); });
    }
}

void CATWBComputeCmd::UnsubscribeToCallbacks()
{
    UnsubscribeFrom(m_unitsPanel.Get());
}

CATUnicodeString CATWBComputeCmd::SelectedIdentifier() const
{
    // The first value, whatever it is called: no entry "V_ID" is looked for.
    return m_rootValues.IsEmpty() ? CATUnicodeString() : m_rootValues[1];
}

void CATWBComputeCmd::ShowSelection()
{
    const CATUnicodeString identifier = SelectedIdentifier();
    m_controls->selection->SetText(identifier);
    m_controls->filter->SetText(CATWBVPMNavFilterPanel::GetDisplayFilter(identifier));
}

void CATWBComputeCmd::GetSpecifiedMassTypes()
{
    const CATUnicodeString answer = RunServerCode("WBGetMassTypesAndAttrNames", "");
    CATIDOMDocument_var document;
    CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer(answer, document);
    if (document.IsNull()) {
        return;
    }
    int line = 0;
    for (const CATUnicodeString& name : WBReadMassTypeNames(document)) {
        m_controls->massTypes->SetLine(line, name);
        ++line;
    }
}

CATUnicodeString CATWBComputeCmd::ComputeRequest() const
{
    WBComputeOptions options;
    if (m_controls->mostPrecise->IsChecked()) {
        options.precision = WBComputePrecision::MostPrecise;
    } else if (m_controls->specified->IsChecked()) {
        options.precision = WBComputePrecision::Specified;
        const int line = m_controls->massTypes->SelectedIndex();
        options.massType = line < 0 ? CATUnicodeString(CATENOWBCSCommonDefinitions::Computed)
                                    : m_controls->massTypes->Line(line);
    }
    if (m_controls->forceUpdate->IsChecked()) {
        options.policy = WBUpdatePolicy::Force;
    } else if (!m_controls->checkUpToDate->IsChecked()) {
        options.policy = WBUpdatePolicy::Assume;
        options.level = m_controls->updateLevel->Text();
    }
    options.rootIdentifier = SelectedIdentifier();
    options.filter = CATWBVPMNavFilterPanel::GetFilter(options.rootIdentifier);
    return WBComputeRequest(options);
}

void CATWBComputeCmd::OnComputeButtonPushBActivateNotification()
{
    if (!CATWBServices::ValidateFilterCondition(this, SelectedIdentifier())) {
        return;
    }
    const CATUnicodeString request = ComputeRequest();
    CATDiagnosticOutput().Line("String to send to the server for compute : ", request);
    const CATUnicodeString answer = RunServerCode("WBComputeVPMValues", request);
    CATDiagnosticOutput().Line("SERVER ANSWER FOR VPMCOMPUTEVALUES : ", answer);
    const CATUnicodeString marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    if (answer.Contains(marker)) {
        // The marker is taken to stand at the start: as many characters as it has are cut off
        // there, wherever it is.
        CATWBServices::DisplayMsg(this, WBComputeMessage("ServerError.Title", "@Server Error"),
                                  answer.Part(marker.Length()), kErrorStyle);
        return;
    }
    if (answer.IsEmpty()) {
        CATWBServices::DisplayMsg(
            this, WBComputeMessage("CommunicationError.Title", "@Communication Error"),
            WBComputeMessage("CommunicationError.Text", "@The server could not be reached."),
            kErrorStyle);
        return;
    }
    const bool isWhole = RefreshPanelWithInfo(answer);
    if (!isWhole) {
        CATWBServices::DisplayMsg(
            this, WBComputeMessage("UnreadableAnswer.Title", "@Unreadable Answer"),
            WBComputeMessage("UnreadableAnswer.Text",
                             "@The server's answer could not be read in full."),
            kErrorStyle);
    }
    ShowPendingWarning();
}

void CATWBComputeCmd::ShowPendingWarning()
{
    CATUnicodeString warning;
    CATWBServices::GetWarningMsgFromEnovia(warning);
    if (warning.IsEmpty()) {
        return;
    }
    // The server says by a word of its own that there are errors among the warnings.
    const bool hasErrors = warning.Contains(WBComputeMessage("WBWarnings001.Message", "@ERROR"));
    const CATUnicodeString title = hasErrors ? WBComputeMessage("WBErrors001.Title", "@Errors")
                                             : WBComputeMessage("WBWarnings001.Title", "@Warnings");
    CATUnicodeString shown;
    CATWBServices::CleanWarningForDisplay(warning, shown);
    CATWBServices::DisplayMsg(this, title, shown, kErrorStyle); // a warning in the same style
}

void CATWBComputeCmd::OnCloseButtonPushBActivateNotification()
{
    Cancel(this, nullptr);
}

void CATWBComputeCmd::OnSpecifiedButtonRadBModifyNotification()
{
    m_controls->specifiedMassType->SetSensitivity(m_controls->specified->IsChecked());
}

void CATWBComputeCmd::OnAssumeUpToDateButtonNotification()
{
    const bool assumes = m_controls->assumeUpToDate->IsChecked();
    m_controls->updateLevel->SetSensitivity(assumes);
    m_controls->updateLevelInfo->SetSensitivity(assumes);
}

void CATWBComputeCmd::OnResultTabContainerSelectNotification()
{
    m_controls->inertiaMode->SetSensitivity(m_controls->resultTabs->SelectedPage() == kResultPage);
}

void CATWBComputeCmd::OnReferenceButtonRadBModifyNotification()
{
    if (m_values->mass.IsEmpty()) {
        return; // nothing was computed yet
    }
    if (m_controls->aboutReference->IsChecked()) {
        std::unique_ptr<CATMath3x3Matrix> aboutOrigin;
        ConvertInertiaMatrixInRefMode(aboutOrigin);
        FillInertiaWithValues(aboutOrigin.get());
    } else {
        FillInertiaWithValues(m_inertia.get());
    }
}

void CATWBComputeCmd::OnModifyUnit()
{}

bool CATWBComputeCmd::RefreshPanelWithInfo(const CATUnicodeString& answer)
{
    const WBComputeAnswer read = WBReadComputeAnswer(answer);
    *m_values = read.values;
    // The lower deviation is shown as it was received, and gets the session's separator only then,
    // unlike every other value.
    ShowTexts(m_controls->mass,
              {m_values->mass, m_values->lowerDeviation, m_values->upperDeviation});
    CATWBServices::SynchronizeDoubleString(m_values->lowerDeviation);
    RefreshMassUnits();
    ShowTexts(m_controls->centre, {m_values->cgX, m_values->cgY, m_values->cgZ});
    RefreshLengthUnits();

    m_inertia = std::make_unique<CATMath3x3Matrix>(WBCentreInertia(*m_values));
    if (m_controls->aboutReference->IsChecked()) {
        std::unique_ptr<CATMath3x3Matrix> aboutOrigin;
        ConvertInertiaMatrixInRefMode(aboutOrigin);
        RefreshMomentOfInertiaUnits(*aboutOrigin);
    } else {
        RefreshMomentOfInertiaUnits(*m_inertia);
    }

    const double totalMass = WBValueOf(m_values->mass);
    ShowTable(*m_controls->statistics, read.statistics.count,
              WBStatisticsTable(read.statistics.rows, totalMass));
    ShowTable(*m_controls->massTypeStatistics, read.massTypes.count,
              WBMassTypeTable(read.massTypes.rows, totalMass));
    return read.isWhole;
}

void CATWBComputeCmd::RefreshMassUnits()
{
    ShowInUnits("MASS",
                std::array{WBValueOf(m_values->mass), WBValueOf(m_values->lowerDeviation),
                           WBValueOf(m_values->upperDeviation)},
                m_controls->mass);
}

void CATWBComputeCmd::RefreshLengthUnits()
{
    ShowInUnits(
        "LENGTH",
        std::array{WBValueOf(m_values->cgX), WBValueOf(m_values->cgY), WBValueOf(m_values->cgZ)},
        m_controls->centre);
}

void CATWBComputeCmd::RefreshMomentOfInertiaUnits(const CATMath3x3Matrix& matrix)
{
    ShowInUnits("INERTIAMOMENT", WBInertiaValues(matrix), m_controls->inertia);
}

void CATWBComputeCmd::FillInertiaWithValues(const CATMath3x3Matrix* matrix)
{
    if (matrix == nullptr) {
        return;
    }
    std::vector<CATUnicodeString> texts;
    for (const double value : WBInertiaValues(*matrix)) {
        texts.push_back(CATUnicodeString::FromReal(value, "%g"));
    }
    ShowTexts(m_controls->inertia, texts);
    RefreshMomentOfInertiaUnits(*matrix);
}

long CATWBComputeCmd::ConvertInertiaMatrixInRefMode(std::unique_ptr<CATMath3x3Matrix>& matrix) const
{
    matrix = std::make_unique<CATMath3x3Matrix>(WBCentreInertia(*m_values));
    const CATMathPoint centre(WBValueOf(m_values->cgX) * kMetresPerMillimetre,
                              WBValueOf(m_values->cgY) * kMetresPerMillimetre,
                              WBValueOf(m_values->cgZ) * kMetresPerMillimetre);
    return CATWBServices::ConvertInertiaMatrix(*matrix, WBValueOf(m_values->mass), centre,
                                               CATMathPoint(), 1);
}

CATCommand* fctCreateCATWBComputeCmd()
{
    return new CATWBComputeCmd(); // handed to the command tree
}
