#include "WBMainPanel.h"

#include "WBListTable.h"
#include "WBValueDetails.h"

#include "CATDlgMultiList.h"

#include <string>

namespace
{

constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kOwnSize = 4;
constexpr int kPreferredWidth = 1000;
constexpr int kPreferredHeight = 700;

/// Caption and value, side by side from `column` on. The caption's text comes from the resources.
CATDlgLabel* AddFact(CATDialog* parent, const char* name, int row, int column = 0,
                     int valueColumns = 1)
{
    auto* caption = new CATDlgLabel(parent, std::string(name) + "Label");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(row, column);
    auto* value = new CATDlgLabel(parent, name);
    value->SetPlacement(row, column + 1, 1, valueColumns);
    return value;
}

CATDlgMultiList* AddList(CATDialog* parent, const char* name, int row,
                         const CATUnicodeString& emptyText, int columns = 1)
{
    auto* list = new CATDlgMultiList(parent, name);
    list->SetPlacement(row, 0, 1, columns);
    list->SetEmptyText(emptyText);
    return list;
}

} // namespace

WBMainPanel::WBMainPanel(CATCommand* parent, CATWBAllDataBuffer* record)
    : CATWBVPMMainPanel(parent),
      m_record(record),
      m_unitWatch([this](const CATICkeMagnitude_var&) { ShowRecord(WBRewriteTable); })
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
    BuildHeading();
    auto* tabs = new CATDlgTabContainer(this, "Tabs");
    tabs->SetPlacement(1, 0);
    BuildMassTypes(tabs);
    BuildMaterial(tabs);
    BuildDocuments(tabs);
    BuildProperties(tabs);
    BuildPosition(tabs);
    BuildCloseButton();
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
    Fill();
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
    auto* frame = new CATDlgFrame(this, "Heading", kPlainFrame);
    frame->SetPlacement(0, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 1);
    m_name = new CATDlgLabel(frame, "Name");
    m_name->SetRole(CATDlgLabel::Role::Heading);
    m_name->SetPlacement(0, 0, 1, 4);
    m_upToDate = new CATDlgLabel(frame, "UpToDate");
    m_upToDate->SetPlacement(0, 4);
    m_kind = new CATDlgLabel(frame, "Kind");
    m_kind->SetPlacement(1, 4);
    m_part = AddFact(frame, "Part", 1);
    m_instance = AddFact(frame, "Instance", 1, 2);
    m_path = AddFact(frame, "Path", 2, 0, 4);
    BuildSummary(frame);
}

void WBMainPanel::BuildSummary(CATDlgFrame* frame)
{
    // In the frame of the heading, so that all captions and all values stand below one another.
    m_active = AddFact(frame, "ActiveMassType", 3);
    m_mass = AddFact(frame, "Mass", 3, 2);
    m_imposed = AddFact(frame, "LastImposed", 4);
    m_bounds = AddFact(frame, "Bounds", 4, 2);
    m_centre = AddFact(frame, "Centre", 5, 0, 4);
    for (CATDlgLabel* value : {m_active, m_mass}) {
        value->SetRole(CATDlgLabel::Role::Heading);
    }
}

void WBMainPanel::BuildMassTypes(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "MassTypes");
    // Of the two lists the mass types take the room that is left.
    page->SetRowStretch(0, 1);
    m_massTypes = AddList(page, "List", 0, WBPanelText("MassTypes.None", "@No mass types"));
    m_inertiaHeading = new CATDlgLabel(page, "InertiaHeading");
    m_inertiaHeading->SetPlacement(1, 0);
    m_inertia = AddList(page, "Inertia", 2, WBPanelText("Inertia.None", "@Not known"));
    constexpr int kMatrixRows = 3;
    m_inertia->SetVisibleLines(kMatrixRows);
    auto* note = new CATDlgLabel(page, "InertiaNote");
    note->SetRole(CATDlgLabel::Role::Caption);
    Subscribe(m_massTypes, CATDlgMultiList::RowSelected,
              [this](const CATNotification& selected) { ShowInertiaOf(selected.detail); });
}

void WBMainPanel::BuildMaterial(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Material");
    page->SetColumnStretch(1, 1);
    page->SetColumnStretch(3, 1);
    m_density = AddFact(page, "Density", 0);
    m_material = AddFact(page, "MaterialName", 1);
    m_appliedOn = AddFact(page, "AppliedOn", 2);
    m_partDensity = AddFact(page, "PartDensity", 0, 2);
    m_partMaterial = AddFact(page, "PartMaterial", 1, 2);
    m_priority = AddFact(page, "Priority", 2, 2);
    m_materials =
        AddList(page, "List", 3, WBPanelText("Materials.None", "@No material statistics"), 4);
}

void WBMainPanel::BuildDocuments(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Documents");
    page->SetColumnStretch(1, 1);
    page->SetColumnStretch(3, 1);
    m_activeDocument = AddFact(page, "ActiveDocument", 0);
    m_attachedRevision = AddFact(page, "AttachedRevision", 1);
    m_computedOn = AddFact(page, "ComputedOn", 2);
    m_oldRevisions = AddFact(page, "OldRevisions", 0, 2);
    m_specificRevision = AddFact(page, "SpecificRevision", 1, 2);
    m_saving = AddFact(page, "Saving", 2, 2);
    m_revisions =
        AddList(page, "List", 3, WBPanelText("Revisions.None", "@No document revisions"), 4);
}

void WBMainPanel::BuildProperties(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Properties");
    m_properties =
        AddList(page, "List", 0, WBPanelText("Properties.None", "@No further properties"));
}

void WBMainPanel::BuildPosition(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Position");
    m_placementWords = new CATDlgLabel(page, "Words");
    m_placementWords->SetPlacement(0, 0);
    m_placement = AddList(page, "List", 1, WBPanelText("Placement.None", "@Not known"));
    auto* note = new CATDlgLabel(page, "Note");
    note->SetRole(CATDlgLabel::Role::Caption);
}

void WBMainPanel::BuildCloseButton()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kPlainFrame);
    frame->SetPlacement(2, 0, 1, 1, kOwnSize);
    m_close = new CATDlgPushButton(frame, "CloseButton");
    Subscribe(m_close, CATDlgPushButton::Activated,
              [this](const CATNotification&) { SetVisibility(false); });
}

void WBMainPanel::Fill()
{
    m_shown = m_record.IsNull() ? WBPanelRecord()
                                : WBReadPanelRecord(*m_record, WBValueDetails::Ask(*m_record));
    m_inertiaRow = ActiveRow();
    ShowRecord(WBShowTable);
    if (m_inertiaRow > 0) {
        m_massTypes->SetRowEmphasis(m_inertiaRow, true);
        m_massTypes->SelectRow(m_inertiaRow);
    }
}

void WBMainPanel::ShowRecord(TableWriter write)
{
    FillHeadingAndSummary();
    write(*m_massTypes, WBMassTypeTable(m_shown));
    FillInertia(write);
    FillMaterial(write);
    FillDocuments(write);
    write(*m_properties, WBPropertyTable(m_shown));
    m_placementWords->SetTitle(WBPlacementWords(m_shown.placement));
    write(*m_placement, WBPlacementTable(m_shown));
}

void WBMainPanel::FillHeadingAndSummary()
{
    const WBPanelSummary summary = WBSummarise(m_shown);
    SetTitle(summary.windowTitle);
    m_name->SetTitle(summary.name);
    m_part->SetTitle(summary.part);
    m_instance->SetTitle(summary.instance);
    m_path->SetTitle(summary.path);
    m_upToDate->SetTitle(summary.upToDate);
    m_upToDate->SetRole(m_shown.isUpToDate ? CATDlgLabel::Role::Good : CATDlgLabel::Role::Warning);
    m_kind->SetTitle(summary.kind);
    m_active->SetTitle(summary.active);
    m_imposed->SetTitle(summary.imposed);
    m_mass->SetTitle(summary.mass);
    m_bounds->SetTitle(summary.bounds);
    m_centre->SetTitle(summary.centre);
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

void WBMainPanel::FillMaterial(TableWriter write)
{
    const WBMaterialFacts facts = WBReadMaterialFacts(m_shown);
    m_density->SetTitle(facts.density);
    m_material->SetTitle(facts.material);
    m_appliedOn->SetTitle(facts.appliedOn);
    m_partDensity->SetTitle(facts.partDensity);
    m_partMaterial->SetTitle(facts.partMaterial);
    m_priority->SetTitle(facts.priority);
    write(*m_materials, WBMaterialTable(m_shown));
}

void WBMainPanel::FillDocuments(TableWriter write)
{
    const WBDocumentFacts facts = WBReadDocumentFacts(m_shown);
    m_activeDocument->SetTitle(facts.active);
    m_attachedRevision->SetTitle(facts.attached);
    m_computedOn->SetTitle(facts.computedOn);
    m_oldRevisions->SetTitle(facts.oldRevisions);
    m_specificRevision->SetTitle(facts.specificRevision);
    m_saving->SetTitle(facts.saving);
    write(*m_revisions, WBRevisionTable(m_shown));
}

void WBMainPanel::ShowInertiaOf(int row)
{
    m_inertiaRow = row;
    FillInertia(WBShowTable);
}

void WBMainPanel::FillInertia(TableWriter write)
{
    const auto index = static_cast<std::size_t>(m_inertiaRow) - 1;
    const WBPanelMassType* massType =
        m_inertiaRow >= 1 && index < m_shown.massTypes.size() ? &m_shown.massTypes[index] : nullptr;
    m_inertiaHeading->SetTitle(WBInertiaHeading(massType));
    write(*m_inertia, WBInertiaTable(massType));
}
