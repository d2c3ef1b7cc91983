#include "CATWBVPMNavMatStatPreview.h"

#include "WBDisplayOptions.h"
#include "WBMainWindow.h"
#include "WBPreviewFrame.h"
#include "WBPreviewRows.h"
#include "WBPreviewUnits.h"
#include "WBReportFile.h"
#include "WBReportNodes.h"
#include "WBStatisticsUnits.h"

#include "CATMsgCatalog.h"

#include <array>
#include <initializer_list>
#include <span>
#include <string>
#include <utility>

namespace
{

constexpr int kWindowStyle = 0x4201; // no standard buttons
constexpr unsigned char kWithPartInstances = 1;
constexpr int kRootLines = 8;
constexpr int kPartLines = 16;
constexpr int kWindowWidth = 1200;
constexpr int kWindowHeight = 800;

const DSTrace kTrace(CATWBVPMNavMatStatPreview::kName);

/// What a row shows, in the order of the columns; numbers stand at the right.
struct Column
{
    const char* attribute;
    bool isNumber;
};
constexpr std::array kMaterialColumns{Column{"InstanceID", false}, Column{"Name", false},
                                      Column{"Mass", true},        Column{"Density", true},
                                      Column{"Mass_ratio", true},  Column{"InstancePath", false}};
constexpr std::array kMassTypeColumns{Column{"InstanceID", false}, Column{"Name", false},
                                      Column{"Mass", true}, Column{"Mass_ratio", true},
                                      Column{"InstancePath", false}};

/// A list below those that the frame has, with the first `titleCount` of the columns. A list that
/// has fewer columns than its rows have values shows no value beyond them: the root's lists leave
/// out where an instance stands, since the root stands nowhere.
CATDlgMultiList* AddStatisticsList(CATDlgFrame& frame, const char* name, int row, int lines,
                                   std::span<const Column> columns, std::size_t titleCount)
{
    CATDlgMultiList* const list = AddPreviewList(frame, name, row, lines);
    TakeListTexts(*list, CATWBVPMNavMatStatPreview::kName);
    const std::string path = frame.Name().ToStdString() + "." + name + ".";
    CATListValCATUnicodeString titles;
    for (const Column& column : columns.first(titleCount)) {
        titles.Append(CATMsgCatalog::BuildMessage(
            CATWBVPMNavMatStatPreview::kName,
            path + "ColumnTitle" + std::to_string(titles.Size() + 1), column.attribute));
    }
    list->SetColumnTitles(titles);
    int index = 0;
    for (const Column& column : columns) {
        list->SetColumnIsNumber(index, column.isNumber);
        ++index;
    }
    frame.SetRowStretch(row, lines); // what room there is is shared as the lines are
    return list;
}

CATUnicodeString UnitsOf(const CATIDOMDocument& document, const CATUnicodeString& attribute)
{
    const WBPreviewUnits units(document);
    if (attribute == "Mass") {
        return units.Of("MASS");
    }
    if (attribute == "Mass_ratio") {
        return WBPreviewUnits::OfShares();
    }
    return attribute == "Density" ? units.OfDensities() : CATUnicodeString();
}

/// Gives the columns their units as tooltips; lists that are not there are passed over.
void ShowStatisticsUnits(const CATIDOMDocument& document, std::span<const Column> columns,
                         std::initializer_list<CATDlgMultiList*> lists)
{
    for (CATDlgMultiList* list : lists) {
        int index = 0;
        for (const Column& column : columns) {
            if (list != nullptr) {
                list->SetColumnTooltip(index, UnitsOf(document, column.attribute));
            }
            ++index;
        }
    }
}

} // namespace

CATWBVPMNavMatStatPreview::CATWBVPMNavMatStatPreview(CATUnicodeString selectionText,
                                                     CATIDOMDocument_var document,
                                                     unsigned char creatorFlag)
    : CATDlgDialog(WBMainWindow(), kName, kWindowStyle),
      m_selectionText(std::move(selectionText)),
      m_document(std::move(document)),
      m_creatorFlag(creatorFlag),
      m_isConverted(std::make_shared<bool>(false)),
      m_options(std::make_unique<WBDisplayOptions>()),
      m_file(std::make_unique<WBReportFile>(*this, kTrace, kName))
{
    kTrace.Line("CATWBVPMNavMatStatPreview");
    if (m_document.IsNull()) {
        kTrace.Line("The DOM Doc received as argument is null!");
    }
}

CATWBVPMNavMatStatPreview::CATWBVPMNavMatStatPreview(const CATWBVPMNavMatStatPreview& other)
    : CATWBVPMNavMatStatPreview(other.m_selectionText, other.m_document, other.m_creatorFlag)
{
    m_isConverted = other.m_isConverted;
}

CATWBVPMNavMatStatPreview&
CATWBVPMNavMatStatPreview::operator=(const CATWBVPMNavMatStatPreview& other)
{
    kTrace.Line("operator=");
    if (this == &other) {
        return *this;
    }
    m_selectionText = other.m_selectionText;
    m_document = other.m_document;
    m_creatorFlag = other.m_creatorFlag;
    m_isConverted = other.m_isConverted;
    if (m_options->IsBuilt()) {
        TellWhatFor();
        ClearLists();
        ConvertOnce();
        OnUnitsDisplayNotification();
    }
    return *this;
}

CATWBVPMNavMatStatPreview::~CATWBVPMNavMatStatPreview()
{
    kTrace.Line("~CATWBVPMNavMatStatPreview");
    m_options->Store();
}

const char* CATWBVPMNavMatStatPreview::ClassName() const
{
    return kName;
}

CATString CATWBVPMNavMatStatPreview::GetResourceFilename(int level) const
{
    return level <= 0 ? CATString(kName) : CATDlgDialog::GetResourceFilename(level - 1);
}

void CATWBVPMNavMatStatPreview::Build()
{
    kTrace.Line("Build");
    if (m_document.IsNull()) {
        kTrace.Line("_hDOMDocument is null! We cannot continue");
        return;
    }
    TellWhatFor();
    BuildLists();
    m_options->Build(*this, 1, 0, WBDisplayOptions::HandlersOf(*this), 2);
    AddPreviewButtons(*this, "PushButtonFrame", {2, 0, 2},
                      {{"SavePushButton", &CATWBVPMNavMatStatPreview::OnSaveNotification},
                       {"SaveAsPushButton", &CATWBVPMNavMatStatPreview::OnSaveAsNotification},
                       {"ClosePushButton", &CATWBVPMNavMatStatPreview::OnCloseNotification}});
    Subscribe(this, WindowClosed, [this](const CATNotification&) { OnCloseNotification(); });
    ConvertOnce();
    UpdatePreviewPanelList();
    m_options->ApplySaved();
}

// There is no line for it in this window: its title says what the statistics were made for.
void CATWBVPMNavMatStatPreview::TellWhatFor()
{
    SetTitle(CATMsgCatalog::BuildMessage(kName, "Window.Title", "@Material statistics of /p1",
                                         {m_selectionText}));
}

void CATWBVPMNavMatStatPreview::BuildLists()
{
    auto* materials = new CATDlgFrame(this, "MultiListMatStatFrame"); // the window owns it
    materials->SetPlacement(0, 0);
    auto* massTypes = new CATDlgFrame(this, "MultiListMassTypeFrame"); // the window owns it
    massTypes->SetPlacement(0, 1);
    // Materials have a column more, and long names.
    SetColumnStretch(0, 3);
    SetColumnStretch(1, 2);
    SetPreferredSize(kWindowWidth, kWindowHeight);
    m_rootLists = {AddStatisticsList(*materials, "MatStatPRCMultiList", 0, kRootLines,
                                     kMaterialColumns, kMaterialColumns.size() - 1),
                   AddStatisticsList(*massTypes, "MassTypePRCMultiList", 0, kRootLines,
                                     kMassTypeColumns, kMassTypeColumns.size() - 1)};
    if (m_creatorFlag == kWithPartInstances) {
        m_partLists = {AddStatisticsList(*materials, "MatStatPartMultiList", 1, kPartLines,
                                         kMaterialColumns, kMaterialColumns.size()),
                       AddStatisticsList(*massTypes, "MassTypePartMultiList", 1, kPartLines,
                                         kMassTypeColumns, kMassTypeColumns.size())};
    }
}

/// Brings the values to the user's units without symbols, from storage units or from what another
/// window for the same report has made of them.
void CATWBVPMNavMatStatPreview::ConvertOnce()
{
    if (*m_isConverted) {
        ManageUnitsDisplay(m_document, 0, 0);
    } else {
        ManageUnitsConversion(m_document, 0, 0);
        *m_isConverted = true;
    }
    ShowUnits();
}

void CATWBVPMNavMatStatPreview::ShowUnits()
{
    if (m_document.IsNull()) {
        return;
    }
    ShowStatisticsUnits(*m_document, kMaterialColumns,
                        {m_rootLists.materials, m_partLists.materials});
    ShowStatisticsUnits(*m_document, kMassTypeColumns,
                        {m_rootLists.massTypes, m_partLists.massTypes});
    m_options->TellUnits(*m_document);
}

void CATWBVPMNavMatStatPreview::UpdatePreviewPanelList()
{
    kTrace.Line("UpdatePreviewPanelList");
    if (m_document.IsNull() || m_rootLists.materials == nullptr) {
        return;
    }
    ClearLists();
    const CATIDOMElement_var root = FirstRoot(*m_document);
    if (root.IsNull()) {
        return;
    }
    ShowStatistics(root, m_rootLists);
    if (m_partLists.materials != nullptr) {
        ShowPartInstances();
    }
}

void CATWBVPMNavMatStatPreview::ClearLists()
{
    for (CATDlgMultiList* list : {m_rootLists.materials, m_rootLists.massTypes,
                                  m_partLists.materials, m_partLists.massTypes}) {
        if (list != nullptr) {
            list->RemoveAll();
        }
    }
}

void CATWBVPMNavMatStatPreview::ShowPartInstances()
{
    const CATIDOMNodeList_var instances = m_document->ElementsByTagName(kPartInstanceElement);
    if (instances.IsNull()) {
        return;
    }
    int index = 0;
    CATIDOMNode_var instance = instances->Item(index);
    while (ElementOf(instance) != nullptr) {
        if (!ShowStatistics(instance, m_partLists)) {
            kTrace.Line("Could not retrieve the children of the Part Instance node");
            return;
        }
        ++index;
        instance = instances->Item(index);
    }
}

/// Adds a row for each statistic below the element, the last one first. False when its children
/// cannot be read. The name alone makes a child a statistic: what has the name and no attributes
/// that could be read is an empty row, by which the user sees that the report is damaged.
bool CATWBVPMNavMatStatPreview::ShowStatistics(const CATIDOMElement_var& element,
                                               const StatisticsLists& lists)
{
    const CATIDOMNodeList_var children = element->ChildNodes();
    if (children.IsNull()) {
        return false;
    }
    const auto show = [this](const CATIDOMElement_var& statistic, std::span<const Column> columns,
                             CATDlgMultiList* list) {
        const int row = list->RowCount();
        int column = 0;
        for (const Column& each : columns) {
            PrintNode(statistic, each.attribute, column, row, list);
            ++column;
        }
        if (list->RowCount() == row) {
            list->SetCell(0, row + 1, ""); // one that says nothing has its row all the same
        }
    };
    for (int index = children->Length() - 1; index >= 0; --index) {
        const CATIDOMNode_var child = children->Item(index);
        const CATUnicodeString name = child->NodeName();
        if (name == kMaterialStatElement) {
            show(child, kMaterialColumns, lists.materials);
        } else if (name == kMassTypeStatElement) {
            show(child, kMassTypeColumns, lists.massTypes);
        }
    }
    return true;
}

long CATWBVPMNavMatStatPreview::PrintNode(const CATIDOMElement_var& element,
                                          const CATUnicodeString& name, int column, int row,
                                          CATDlgMultiList* list)
{
    kTrace.Line("PrintNode");
    return PrintAttribute(kTrace, element, name, column, row, *list);
}

void CATWBVPMNavMatStatPreview::ManageUnitsConversion(CATIDOMDocument_var& document,
                                                      const unsigned char& unitsDisplay,
                                                      int trailingZero)
{
    kTrace.Line("ManageUnitsConversion");
    RewriteStatistics(document, WBUnitsTask::Convert, {unitsDisplay != 0, trailingZero});
}

void CATWBVPMNavMatStatPreview::ManageUnitsDisplay(CATIDOMDocument_var& document,
                                                   const unsigned char& unitsDisplay,
                                                   int trailingZero)
{
    kTrace.Line("ManageUnitsDisplay");
    RewriteStatistics(document, WBUnitsTask::Display, {unitsDisplay != 0, trailingZero});
}

void CATWBVPMNavMatStatPreview::OnUnitsDisplayNotification()
{
    kTrace.Line("OnUnitsDisplayNotification");
    ManageUnitsDisplay(m_document, m_options->WithUnits(), m_options->Decimals());
    UpdatePreviewPanelList();
    m_options->EnableUpButton();
}

void CATWBVPMNavMatStatPreview::OnTrailingZeroNotification()
{
    kTrace.Line("OnTrailingZeroNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavMatStatPreview::OnTrailingDigitsNotification()
{
    kTrace.Line("OnTrailingDigitsNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavMatStatPreview::OnSaveNotification()
{
    kTrace.Line("OnSaveNotification");
    if (!m_document.IsNull()) {
        WriteReportToFile("");
    }
}

void CATWBVPMNavMatStatPreview::OnSaveAsNotification()
{
    kTrace.Line("OnSaveAsNotification");
    SetDefaultFileName();
    SetDefaultFileDir();
    m_file->OpenBox([this] { OnDlgStdFileDiaOKNotification(); },
                    [this] { OnDlgStdFileDiaCancelNotification(); });
}

void CATWBVPMNavMatStatPreview::OnDlgStdFileDiaOKNotification()
{
    kTrace.Line("OnDlgStdFileDiaOKNotification");
    const CATUnicodeString path = m_file->TakeChosenPath();
    if (!path.IsEmpty()) {
        WriteReportToFile(path);
    }
}

void CATWBVPMNavMatStatPreview::OnDlgStdFileDiaCancelNotification()
{
    kTrace.Line("OnDlgStdFileDiaCancelNotification");
    m_file->CloseBox();
}

void CATWBVPMNavMatStatPreview::SetDefaultFileName()
{
    kTrace.Line("SetDefaultFileName");
    m_file->SetDefaultName(m_selectionText);
}

void CATWBVPMNavMatStatPreview::SetDefaultFileDir()
{
    kTrace.Line("SetDefaultFileDir");
    m_file->SetDefaultDirectory();
}

void CATWBVPMNavMatStatPreview::WriteReportToFile(const CATUnicodeString& path)
{
    kTrace.Line("WriteReportToFile");
    m_file->Write(m_document, path, m_selectionText);
}

void CATWBVPMNavMatStatPreview::OnCloseNotification()
{
    kTrace.Line("OnCloseNotification");
    SetVisibility(false);
    RequestDelayedDestruction();
}
