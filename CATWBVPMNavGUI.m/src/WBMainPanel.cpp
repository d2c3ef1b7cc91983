#include "WBMainPanel.h"

#include "WBListTable.h"
#include "WBPanelControls.h"
#include "WBRootFilter.h"
#include "WBServerAnswer.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATWBServices.h"
#include "CATWBVPMNavFilterPanel.h"
#include "RunServerCode.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr int kPreferredWidth = 1000;
constexpr int kPreferredHeight = 700;
constexpr int kErrorStyle = 0x10000000;
constexpr int kMatrixRows = 3;

} // namespace

WBMainPanel::WBMainPanel(CATCommand* parent, CATWBAllDataBuffer* record)
    : CATWBVPMMainPanel(parent),
      m_record(record),
      m_unitWatch([this](const CATICkeMagnitude_var&) { ShowRecord(WBRewriteTable); })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
    BuildHeading();
    BuildPages();
    BuildComputeBar();
    BuildLastLine();
    Fill();
}

const char* WBMainPanel::ClassName() const
{
    return "WBMainPanel";
}

CATString WBMainPanel::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kName) : CATWBVPMMainPanel::GetResourceFilename(level - 1);
}

bool WBMainPanel::RecoverFromFault()
{
    Read();
    ShowRecord(WBRewriteTable);
    return true;
}

void WBMainPanel::SetModel(CATWBAllDataBuffer* record)
{
    m_record = CATHandle<CATWBAllDataBuffer>(record);
    Fill();
}

CATDlgPushButton* WBMainPanel::GetCloseButton()
{
    return m_close;
}

void WBMainPanel::BuildHeading()
{
    auto* frame = new CATDlgFrame(this, "Heading", kWBPlainFrame);
    frame->SetPlacement(0, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    auto* name = new CATDlgLabel(frame, "Name");
    name->SetRole(CATDlgLabel::Role::Heading);
    name->SetPlacement(0, 0, 1, 4);
    m_upToDate = new CATDlgLabel(frame, "UpToDate");
    m_upToDate->SetPlacement(0, 4);
    auto* kind = new CATDlgLabel(frame, "Kind");
    kind->SetPlacement(1, 4);
    m_summary = {{name, &WBPanelSummary::name},
                 {kind, &WBPanelSummary::kind},
                 {WBAddFact(frame, "Part", 1), &WBPanelSummary::part},
                 {WBAddFact(frame, "Instance", 1, 2), &WBPanelSummary::instance},
                 {WBAddFact(frame, "Path", 2, 0, 4), &WBPanelSummary::path}};
    BuildSummary(frame);
}

void WBMainPanel::BuildSummary(CATDlgFrame* frame)
{
    // In the frame of the heading, so that all captions and all values stand below one another.
    auto* active = WBAddFact(frame, "ActiveMassType", 3);
    auto* mass = WBAddFact(frame, "Mass", 3, 2);
    for (CATDlgLabel* value : {active, mass}) {
        value->SetRole(CATDlgLabel::Role::Heading);
    }
    m_unusualSum = new CATDlgLabel(frame, "UnusualSum");
    m_unusualSum->SetRole(CATDlgLabel::Role::Warning);
    m_unusualSum->SetPlacement(3, 4, 3, 1);
    const std::vector<WBFactLabel<WBPanelSummary>> values{
        {active, &WBPanelSummary::active},
        {mass, &WBPanelSummary::mass},
        {WBAddFact(frame, "LastImposed", 4), &WBPanelSummary::imposed},
        {WBAddFact(frame, "Bounds", 4, 2), &WBPanelSummary::bounds},
        {WBAddFact(frame, "Centre", 5, 0, 4), &WBPanelSummary::centre}};
    m_summary.insert(m_summary.end(), values.begin(), values.end());
}

void WBMainPanel::BuildPages()
{
    auto* tabs = new CATDlgTabContainer(this, "Tabs");
    tabs->SetPlacement(1, 0);
    BuildMassTypes(tabs);
    BuildValues(tabs);
    BuildInertia(tabs);
    BuildSum(tabs);
    BuildImposed(tabs);
    BuildMaterial(tabs);
    BuildDocuments(tabs);
    BuildProperties(tabs);
    BuildPosition(tabs);
}

void WBMainPanel::BuildMassTypes(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "MassTypes");
    m_massTypes = WBAddList(page, "List", 0, WBPanelText("MassTypes.None", "@No mass types"));
    Subscribe(m_massTypes, CATDlgMultiList::RowSelected,
              [this](const CATNotification& selected) { SelectMassType(selected.detail); });
}

void WBMainPanel::BuildValues(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Values");
    page->SetColumnStretch(1, 1);
    auto* heading = new CATDlgLabel(page, "Heading");
    heading->SetPlacement(0, 0, 1, 2);
    m_set = {{heading, &WBSetFacts::heading},
             {WBAddFact(page, "Source", 1), &WBSetFacts::source},
             {WBAddFact(page, "Remark", 2), &WBSetFacts::note}};
    m_setFigures = WBAddList(page, "List", 3, WBPanelText("Set.None", "@Nothing selected"), 0, 2);
}

void WBMainPanel::BuildInertia(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Inertia");
    auto* heading = new CATDlgLabel(page, "Heading");
    heading->SetPlacement(0, 0);
    auto* words = new CATDlgLabel(page, "Words");
    words->SetPlacement(1, 0);
    m_inertiaFacts = {{heading, &WBInertiaFacts::heading}, {words, &WBInertiaFacts::words}};
    m_inertia = WBAddList(page, "Matrix", 2, WBPanelText("Inertia.None", "@Not known"));
    WBAddNote(page, "InertiaNote", 3);
    m_principal =
        WBAddList(page, "Principal", 4, WBPanelText("Principal.None", "@No principal moments"));
    WBAddNote(page, "PrincipalNote", 5);
    for (CATDlgMultiList* list : {m_inertia, m_principal}) {
        list->SetVisibleLines(kMatrixRows);
    }
}

void WBMainPanel::BuildSum(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Sum");
    auto* facts = new CATDlgFrame(page, "Facts", kWBPlainFrame);
    facts->SetPlacement(0, 0, 1, 2);
    facts->SetColumnStretch(1, 1);
    facts->SetColumnStretch(3, 1);
    m_what = new CATDlgLabel(facts, "What");
    m_what->SetPlacement(0, 0, 1, 4);
    m_sum = {{WBAddFact(facts, "Items", 1), &WBSumFacts::items},
             {WBAddFact(facts, "WithoutCentre", 2), &WBSumFacts::withoutCentre},
             {WBAddFact(facts, "WithoutInertia", 3), &WBSumFacts::withoutInertia},
             {WBAddFact(facts, "Growth", 1, 2), &WBSumFacts::growth},
             {WBAddFact(facts, "Predicted", 2, 2), &WBSumFacts::predicted},
             {WBAddFact(facts, "Uncertainty", 3, 2), &WBSumFacts::uncertainty}};
    BuildShares(page);
}

void WBMainPanel::BuildShares(CATDlgTabPage* page)
{
    const CATUnicodeString none = WBPanelText("Shares.None", "@Nothing is summed up");
    m_massTypeShares = WBAddList(page, "MassTypeShares", 1, none, 0);
    m_codes = WBAddList(page, "Codes", 1, none, 1);
    constexpr int kCharacters = 20;
    for (CATDlgMultiList* list : {m_massTypeShares, m_codes}) {
        list->SetVisibleTextWidth(kCharacters);
    }
    page->SetColumnStretch(0, 1);
    page->SetColumnStretch(1, 1);
    page->SetRowStretch(1, 1);
    m_warnings = WBAddList(page, "Warnings", 2, WBPanelText("Warnings.None", "@No warnings"), 0, 2);
    constexpr int kLines = 3;
    m_warnings->SetVisibleLines(kLines);
}

void WBMainPanel::BuildImposed(CATDlgTabContainer* tabs)
{
    m_imposedPage = new CATDlgTabPage(tabs, "Imposed");
    m_imposedWords = new CATDlgLabel(m_imposedPage, "Words");
    m_imposedWords->SetPlacement(0, 0);
    m_imposed =
        WBAddList(m_imposedPage, "List", 1, WBPanelText("Imposed.None", "@Nothing imposed"));
    WBAddNote(m_imposedPage, "Note", 2);
}

void WBMainPanel::BuildMaterial(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Material");
    page->SetColumnStretch(1, 1);
    page->SetColumnStretch(3, 1);
    m_material = {{WBAddFact(page, "Density", 0), &WBMaterialFacts::density},
                  {WBAddFact(page, "MaterialName", 1), &WBMaterialFacts::material},
                  {WBAddFact(page, "AppliedOn", 2), &WBMaterialFacts::appliedOn},
                  {WBAddFact(page, "PartDensity", 0, 2), &WBMaterialFacts::partDensity},
                  {WBAddFact(page, "PartMaterial", 1, 2), &WBMaterialFacts::partMaterial},
                  {WBAddFact(page, "Priority", 2, 2), &WBMaterialFacts::priority}};
    m_materials =
        WBAddList(page, "List", 3, WBPanelText("Materials.None", "@No material statistics"), 0, 4);
}

void WBMainPanel::BuildDocuments(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Documents");
    page->SetColumnStretch(1, 1);
    page->SetColumnStretch(3, 1);
    m_documents = {{WBAddFact(page, "ActiveDocument", 0), &WBDocumentFacts::active},
                   {WBAddFact(page, "AttachedRevision", 1), &WBDocumentFacts::attached},
                   {WBAddFact(page, "ComputedOn", 2), &WBDocumentFacts::computedOn},
                   {WBAddFact(page, "OldRevisions", 0, 2), &WBDocumentFacts::oldRevisions},
                   {WBAddFact(page, "SpecificRevision", 1, 2), &WBDocumentFacts::specificRevision},
                   {WBAddFact(page, "Saving", 2, 2), &WBDocumentFacts::saving}};
    m_revisions =
        WBAddList(page, "List", 3, WBPanelText("Revisions.None", "@No document revisions"), 0, 4);
}

void WBMainPanel::BuildProperties(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Properties");
    m_properties =
        WBAddList(page, "List", 0, WBPanelText("Properties.None", "@No further properties"));
}

void WBMainPanel::BuildPosition(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Position");
    m_placementWords = new CATDlgLabel(page, "Words");
    m_placementWords->SetPlacement(0, 0);
    m_placement = WBAddList(page, "List", 1, WBPanelText("Placement.None", "@Not known"));
    WBAddNote(page, "Note", 2);
}

void WBMainPanel::BuildComputeBar()
{
    m_computeBar = std::make_unique<WBComputeBar>(this, 2);
    Subscribe(m_computeBar->Button(), CATDlgPushButton::Activated,
              [this](const CATNotification&) { Compute(); });
    Subscribe(m_computeBar->Sums().StoredSums(), CATDlgCombo::Selected,
              [this](const CATNotification&) { m_computeBar->Sums().ShowWhetherALevelCounts(); });
}

void WBMainPanel::BuildLastLine()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(3, 0);
    frame->SetColumnStretch(0, 1);
    m_marks = WBAddNote(frame, "MarksNote", 0);
    m_marks->SetMark(true); // shown as what it explains
    m_close = new CATDlgPushButton(frame, "CloseButton");
    m_close->SetPlacement(0, 1);
    Subscribe(m_close, CATDlgPushButton::Activated,
              [this](const CATNotification&) { SetVisibility(false); });
}

void WBMainPanel::Fill()
{
    m_before.reset();
    m_computed.reset();
    m_request = m_record.IsNull() ? CATUnicodeString() : WBStoredValuesRequest(*m_record);
    Read();
    m_computeBar->Offer(m_record.Get(), m_shown.filter);
    m_selectedRow = ActiveRow();
    ShowRecord(WBShowTable);
    if (m_selectedRow > 0) {
        m_massTypes->SetRowEmphasis(m_selectedRow, true);
        m_massTypes->SelectRow(m_selectedRow);
    }
}

void WBMainPanel::Read()
{
    m_shown = WBPanelRecord();
    if (m_record.IsNull()) {
        return;
    }
    const WBDetailsOf what = m_computed ? WBDetailsOf::Computation : WBDetailsOf::StoredValues;
    m_shown = WBReadPanelRecord(*m_record, WBAskValueDetails(what, m_request));
    m_shown.computed = m_computed;
    m_shown.filter = CATWBVPMNavFilterPanel::GetDisplayFilter(m_shown.root);
    m_shown.isFiltered = !(CATWBVPMNavFilterPanel::GetFilter(m_shown.root) == kWBNoFilter);
}

void WBMainPanel::ShowRecord(WBTableWriter write)
{
    WBShowing showing(m_shown, m_before ? &*m_before : nullptr, write);
    const WBPanelSummary summary = WBSummarise(m_shown);
    SetTitle(summary.windowTitle);
    m_upToDate->SetTitle(summary.upToDate);
    m_upToDate->SetRole(m_shown.isUpToDate ? CATDlgLabel::Role::Good : CATDlgLabel::Role::Warning);
    showing.ShowFacts<WBPanelSummary>(m_summary, WBSummarise);
    const CATUnicodeString unusualSum = WBUnusualSum(m_shown);
    m_unusualSum->SetTitle(unusualSum);
    m_unusualSum->SetVisibility(!unusualSum.IsEmpty());
    showing.ShowTable(*m_massTypes, WBMassTypeTable);
    ShowSelectedMassType(showing);
    m_what->SetTitle(WBWhatIsSummedUp(m_shown));
    showing.ShowFacts<WBSumFacts>(m_sum, WBReadSumFacts);
    showing.ShowTable(*m_massTypeShares, WBMassTypeShareTable);
    showing.ShowTable(*m_codes, WBCodeTable);
    write(*m_warnings, WBWarningTable(m_shown));
    m_imposedPage->SetVisibility(m_shown.details.imposed.has_value());
    m_imposedWords->SetTitle(WBImposedWords(m_shown));
    showing.ShowTable(*m_imposed, WBImposedTable);
    ShowMaterial(showing);
    ShowDocuments(showing);
    showing.ShowTable(*m_properties, WBPropertyTable);
    m_placementWords->SetTitle(WBPlacementWords(m_shown.placement));
    showing.ShowTable(*m_placement, WBPlacementTable);
    m_marks->SetVisibility(showing.HasMarks());
}

void WBMainPanel::ShowSelectedMassType(WBShowing& showing)
{
    showing.ShowFacts<WBSetFacts>(m_set, [this](const WBPanelRecord& record) {
        return WBReadSetFacts(record, SelectedIn(record));
    });
    showing.ShowTable(*m_setFigures, [this](const WBPanelRecord& record) {
        return WBSetTable(record, SelectedIn(record));
    });
    showing.ShowFacts<WBInertiaFacts>(m_inertiaFacts, [this](const WBPanelRecord& record) {
        return WBReadInertiaFacts(record, SelectedIn(record));
    });
    showing.ShowTable(*m_inertia, [this](const WBPanelRecord& record) {
        return WBInertiaTable(SelectedIn(record));
    });
    showing.ShowTable(*m_principal, [this](const WBPanelRecord& record) {
        return WBPrincipalTable(record, SelectedIn(record));
    });
}

void WBMainPanel::ShowMaterial(WBShowing& showing)
{
    showing.ShowFacts<WBMaterialFacts>(m_material, WBReadMaterialFacts);
    showing.ShowTable(*m_materials, WBMaterialTable);
}

void WBMainPanel::ShowDocuments(WBShowing& showing)
{
    showing.ShowFacts<WBDocumentFacts>(m_documents, WBReadDocumentFacts);
    showing.ShowTable(*m_revisions, WBRevisionTable);
}

int WBMainPanel::ActiveRow() const
{
    int activeRow = 0;
    int row = 0;
    for (const WBPanelMassType& massType : m_shown.massTypes) {
        ++row;
        activeRow = massType.name == m_shown.activeMassType ? row : activeRow;
    }
    return activeRow;
}

void WBMainPanel::SelectMassType(int row)
{
    m_selectedRow = row;
    WBShowing showing(m_shown, m_before ? &*m_before : nullptr, WBShowTable);
    ShowSelectedMassType(showing);
}

const WBPanelMassType* WBMainPanel::SelectedIn(const WBPanelRecord& record) const
{
    const auto index = static_cast<std::size_t>(m_selectedRow) - 1;
    return m_selectedRow >= 1 && index < record.massTypes.size() ? &record.massTypes[index]
                                                                 : nullptr;
}

void WBMainPanel::Compute()
{
    const WBComputationChoice choice = m_computeBar->Choice();
    if (!m_computeBar->Sums().CheckLevel(this)) {
        return;
    }
    WBFillChoices(*m_record, choice);
    const CATUnicodeString request = WBComputationRequest(*m_record, choice);
    const std::optional<CATUnicodeString> answer = AskForComputation(request);
    if (!answer) {
        return;
    }
    // Before the server is asked for anything else: they belong to the last computation.
    CATUnicodeString warning;
    CATWBServices::GetWarningMsgFromEnovia(warning);
    Take(*answer, choice);
    m_before = m_shown;
    m_computed = choice;
    m_request = request;
    Read();
    ShowRecord(WBRewriteTable);
    WBShowWarning(this, warning,
                  {WBPanelText("Warnings.Title", "@Warnings of the computation"),
                   WBPanelText("Errors.Title", "@Errors in the computation")});
}

std::optional<CATUnicodeString> WBMainPanel::AskForComputation(const CATUnicodeString& request)
{
    std::optional<CATUnicodeString> answer = WBCheckedAnswer(
        this, RunServerCode("WBCompPartCompute", request),
        WBPanelText("CommunicationError.Text",
                    "@The server did not answer, so nothing was computed. Check that it "
                    "is running, then compute again."));
    if (answer && !WBIsComputedAnswer(*answer)) {
        CATWBServices::DisplayMsg(
            this, WBPanelText("AnswerError.Title", "@The answer cannot be read"),
            WBPanelText("AnswerError.Text",
                        "@The answer of the server is incomplete or damaged, so nothing "
                        "was taken from it: what is shown is as it was before."),
            kErrorStyle);
        return std::nullopt;
    }
    return answer;
}

void WBMainPanel::Take(const CATUnicodeString& answer, const WBComputationChoice& choice)
{
    // Read into a copy: a field that is no number ends this action in the middle, and the record
    // that is shown must not be left half written.
    const auto copy = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer(*m_record));
    // A product instance has its place from the session; of the root the answer tells the root's.
    const bool isPlaceMeant = m_record->HasInstInENOVIA() && choice.entity != Definitions::Root;
    copy->SetComputedData(answer, isPlaceMeant);
    if (WBIsKeptAsTheSum(*copy, choice)) {
        copy->SetUpToDateFlag(true);
    }
    *m_record = *copy;
}
