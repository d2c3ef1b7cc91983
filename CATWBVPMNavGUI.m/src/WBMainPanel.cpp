#include "WBMainPanel.h"

#include "WBInitialValues.h"
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
constexpr int kMatrixRows = 3;

} // namespace

WBMainPanel::WBMainPanel(CATCommand* parent, CATWBAllDataBuffer* record)
    : CATWBVPMMainPanel(parent),
      m_record(record),
      m_editing(*this, [this] { ShowAnew(); }),
      m_unitWatch([this](const CATICkeMagnitude_var&) { ShowRecord(WBRewriteTable); }),
      m_serverWatch([this](const CATUnicodeString& method) { HearOfServerCall(method); })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
    BuildHeading();
    BuildPages();
    BuildComputeBar();
    BuildLastLine();
    SetGuard([this] { return m_editing.MayClose(); });
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
    // Edits are written into the record: what is shown beside them stays until they are applied.
    if (!m_editing.HasUnapplied()) {
        Read();
    }
    ShowRecord(WBRewriteTable);
    return true;
}

void WBMainPanel::SetModel(CATWBAllDataBuffer* record)
{
    const CATHandle<CATWBAllDataBuffer> next(record);
    if (m_editing.HasUnapplied()) {
        if (!m_editing.ApplyBeforeReplacing()) {
            return;
        }
        if (record != nullptr) {
            WBReadAnew(this, *record); // it was read before the edits were applied
        }
    }
    m_record = next;
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
    constexpr int kColumns = 5;
    m_editing.Form().AddProblemLine(frame, 6, kColumns);
    auto* active = m_editing.Form().AddFact({frame, "ActiveMassType", 3, 0},
                                            WBEditField::Kind::ActiveMassType);
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
    m_tabs = tabs;
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
    BuildChanges(tabs);
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
    BuildStatedValues(page, 3);
    m_whyNoValues = WBAddNote(page, "WhyNot", 4, 2);
    m_setFigures = WBAddList(page, "List", 5, WBPanelText("Set.None", "@Nothing selected"), 0, 2);
}

void WBMainPanel::BuildStatedValues(CATDlgTabPage* page, int row)
{
    using Kind = WBEditField::Kind;
    constexpr int kColumns = 8; // four captions and their fields
    auto* frame = new CATDlgFrame(page, "Stated", kWBPlainFrame);
    m_statedValues = frame;
    frame->SetPlacement(row, 0, 1, 2);
    for (int column = 1; column < kColumns; column += 2) {
        frame->SetColumnStretch(column, 1);
    }
    WBEditForm& form = m_editing.Form();
    form.AddProblemLine(frame, 2, kColumns);
    form.AddField({frame, "StatedMass", 0, 0}, Kind::Mass);
    form.AddField({frame, "CentreX", 0, 2}, Kind::CentreX);
    form.AddField({frame, "CentreY", 0, 4}, Kind::CentreY);
    form.AddField({frame, "CentreZ", 0, 6}, Kind::CentreZ);
    form.AddField({frame, "PrecisionKind", 1, 0, 3}, Kind::PrecisionKind);
    form.AddField({frame, "LowerPrecision", 1, 4}, Kind::LowerPrecision);
    form.AddField({frame, "UpperPrecision", 1, 6}, Kind::UpperPrecision);
}

void WBMainPanel::BuildInertia(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Inertia");
    m_inertiaPage = page;
    constexpr int kColumns = 2; // the fields, and beside them the matrix that they are the terms of
    page->SetColumnStretch(1, 3);
    auto* heading = new CATDlgLabel(page, "Heading");
    heading->SetPlacement(0, 0, 1, kColumns);
    auto* words = new CATDlgLabel(page, "Words");
    words->SetPlacement(1, 0, 1, kColumns);
    m_inertiaFacts = {{heading, &WBInertiaFacts::heading}, {words, &WBInertiaFacts::words}};
    m_editing.Form().AddProblemLine(page, 3, kColumns);
    BuildStatedInertia(page, 2);
    m_inertia = WBAddList(page, "Matrix", 2, WBPanelText("Inertia.None", "@Not known"), 1);
    m_whyNoInertia = WBAddNote(page, "WhyNot", 4, kColumns);
    WBAddNote(page, "InertiaNote", 5, kColumns);
    m_principal = WBAddList(page, "Principal", 6,
                            WBPanelText("Principal.None", "@No principal moments"), 0, kColumns);
    WBAddNote(page, "PrincipalNote", 7, kColumns);
    for (CATDlgMultiList* list : {m_inertia, m_principal}) {
        list->SetVisibleLines(kMatrixRows);
    }
}

void WBMainPanel::BuildStatedInertia(CATDlgTabPage* page, int row)
{
    using Kind = WBEditField::Kind;
    auto* frame = new CATDlgFrame(page, "Stated", kWBPlainFrame);
    m_statedInertia = frame;
    frame->SetPlacement(row, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    WBEditForm& form = m_editing.Form();
    form.AddField({frame, "Ixx", 0, 0}, Kind::Ixx);
    form.AddField({frame, "Iyy", 1, 0}, Kind::Iyy);
    form.AddField({frame, "Izz", 2, 0}, Kind::Izz);
    form.AddField({frame, "Ixy", 0, 2}, Kind::Ixy);
    form.AddField({frame, "Ixz", 1, 2}, Kind::Ixz);
    form.AddField({frame, "Iyz", 2, 2}, Kind::Iyz);
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
    using Kind = WBEditField::Kind;
    WBEditForm& form = m_editing.Form();
    form.AddProblemLine(page, 3, 4);
    m_material = {
        {form.AddFact({page, "Density", 0, 0}, Kind::Density), &WBMaterialFacts::density},
        {form.AddFact({page, "MaterialName", 1, 0}, Kind::Material), &WBMaterialFacts::material},
        {form.AddFact({page, "AppliedOn", 2, 0}, Kind::AppliedOn), &WBMaterialFacts::appliedOn},
        {WBAddFact(page, "PartDensity", 0, 2), &WBMaterialFacts::partDensity},
        {WBAddFact(page, "PartMaterial", 1, 2), &WBMaterialFacts::partMaterial},
        {form.AddFact({page, "Priority", 2, 2}, Kind::DensityOrder), &WBMaterialFacts::priority}};
    m_materials =
        WBAddList(page, "List", 4, WBPanelText("Materials.None", "@No material statistics"), 0, 4);
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
    page->SetColumnStretch(1, 1);
    m_properties =
        WBAddList(page, "List", 0, WBPanelText("Properties.None", "@No further properties"), 0, 2);
    auto* selected = new CATDlgLabel(page, "Selected");
    selected->SetPlacement(1, 0, 1, 2);
    m_editing.Form().AddProblemLine(page, 3, 2);
    m_property = {
        {selected, &WBPropertyFacts::heading},
        {m_editing.Form().AddFact({page, "PropertyValue", 2, 0}, WBEditField::Kind::Property),
         &WBPropertyFacts::value}};
    Subscribe(m_properties, CATDlgMultiList::RowSelected,
              [this](const CATNotification& chosen) { SelectProperty(chosen.detail); });
}

void WBMainPanel::BuildPosition(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Position");
    m_placementWords = new CATDlgLabel(page, "Words");
    m_placementWords->SetPlacement(0, 0);
    m_placement = WBAddList(page, "List", 1, WBPanelText("Placement.None", "@Not known"));
    WBAddNote(page, "Note", 2);
}

void WBMainPanel::BuildChanges(CATDlgTabContainer* tabs)
{
    m_changes = std::make_unique<WBChangesPage>(tabs);
    Subscribe(tabs, CATDlgTabContainer::PageSelected,
              [this](const CATNotification&) { LookAtChanges(); });
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
    m_marks = WBAddNote(frame, "MarksNote", 0);
    m_marks->SetPlacement(0, 1);
    m_marks->SetMark(true); // shown as what it explains
    m_editing.BuildBar(frame, m_marks);
    m_close = new CATDlgPushButton(frame, "CloseButton");
    m_close->SetPlacement(0, 5);
    m_close->SetGuard([this] { return m_editing.MayClose(); });
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
    m_selectedProperty = 0;
    m_editing.Begin(m_record.Get());
    m_changes->SetRecord(m_record.Get());
    EditSelected();
    ShowRecord(WBShowTable);
    m_massTypes->SelectRow(m_selectedRow);
    LookAtChanges();
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
    for (int row = 1; row <= m_massTypes->RowCount(); ++row) {
        m_massTypes->SetRowEmphasis(row, row == ActiveRow());
    }
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
    ShowSelectedProperty(showing);
    m_placementWords->SetTitle(WBPlacementWords(m_shown.placement));
    showing.ShowTable(*m_placement, WBPlacementTable);
    m_changes->Show(write);
    m_marks->SetVisibility(showing.HasMarks());
    m_editing.Show();
    ShowFieldsOfSelectedMassType();
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

void WBMainPanel::ShowFieldsOfSelectedMassType()
{
    using Kind = WBEditField::Kind;
    const WBEditForm& form = m_editing.Form();
    const auto show = [&](CATDlgFrame& fields, CATDlgLabel& whyNot, Kind kind) {
        const bool isEditable = form.IsEditable(kind);
        const bool isSelected = SelectedIn(m_shown) != nullptr;
        const CATUnicodeString reason =
            isEditable || !isSelected ? CATUnicodeString() : form.Tooltip(kind);
        fields.SetVisibility(isEditable);
        whyNot.SetTitle(reason);
        whyNot.SetVisibility(!reason.IsEmpty());
    };
    show(*m_statedValues, *m_whyNoValues, Kind::Mass);
    show(*m_statedInertia, *m_whyNoInertia, Kind::Ixx);
    // Fields that are not there leave their room to the matrix.
    m_inertiaPage->SetColumnStretch(0, form.IsEditable(Kind::Ixx) ? 2 : 0);
}

void WBMainPanel::ShowSelectedProperty(WBShowing& showing)
{
    showing.ShowFacts<WBPropertyFacts>(m_property, [this](const WBPanelRecord& record) {
        return WBReadPropertyFacts(record, m_selectedProperty);
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
    EditSelected();
    WBShowing showing(m_shown, m_before ? &*m_before : nullptr, WBShowTable);
    ShowSelectedMassType(showing);
    m_editing.Show();
    ShowFieldsOfSelectedMassType();
}

void WBMainPanel::SelectProperty(int row)
{
    m_selectedProperty = row;
    EditSelected();
    WBShowing showing(m_shown, m_before ? &*m_before : nullptr, WBShowTable);
    ShowSelectedProperty(showing);
    m_editing.Show();
}

void WBMainPanel::EditSelected()
{
    const WBPanelMassType* massType = SelectedIn(m_shown);
    m_editing.Form().SetMassType(massType == nullptr ? CATUnicodeString() : massType->name);
    m_editing.Form().SetProperty(m_selectedProperty);
}

void WBMainPanel::ShowAnew()
{
    WBReadAnew(this, *m_record);
    m_before.reset();
    m_computed.reset();
    m_request = WBStoredValuesRequest(*m_record);
    Read();
    m_editing.Begin(m_record.Get());
    EditSelected();
    ShowRecord(WBRewriteTable);
    m_changes->Outdate();
    LookAtChanges();
}

void WBMainPanel::HearOfServerCall(const CATUnicodeString& method)
{
    if (!(method == "WBSaveManagement") || m_record.IsNull()) {
        return;
    }
    if (m_editing.HasUnapplied()) {
        m_changes->Outdate(); // the record waits until its edits are applied
        LookAtChanges();
    } else {
        ShowAnew();
    }
}

void WBMainPanel::LookAtChanges()
{
    constexpr int kChanges = 9; // the last page
    if (m_tabs->SelectedPage() == kChanges) {
        m_changes->Look();
    }
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
    if (!m_computeBar->Sums().CheckLevel(this) || !m_editing.ApplyBeforeComputing()) {
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
    m_editing.BeginAgain();
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
        WBTellUnreadable(this);
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
