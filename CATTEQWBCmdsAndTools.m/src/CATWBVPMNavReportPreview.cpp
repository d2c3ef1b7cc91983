#include "CATWBVPMNavReportPreview.h"

#include "WBDisplayOptions.h"
#include "WBMainWindow.h"
#include "WBPreviewColumns.h"
#include "WBPreviewFrame.h"
#include "WBPreviewRows.h"
#include "WBPreviewUnits.h"
#include "WBReportAttributeNames.h"
#include "WBReportFile.h"
#include "WBReportNodes.h"
#include "WBReportOrder.h"

#include "CATWBServices.h"

#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "CATEnvironment.h"
#include "CATMsgCatalog.h"

#include <chrono>
#include <optional>
#include <utility>

namespace
{

constexpr int kWindowStyle = 0x4201; // no standard buttons
constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kRootLines = 3;
constexpr int kInstanceLines = 30;
// A report has two dozen columns: wider than the lists ask for.
constexpr int kWindowWidth = 1200;
constexpr int kWindowHeight = 800;

const DSTrace kTrace("CATWBRepPreview");

CATUnicodeString FirstColumnTitle()
{
    return CATMsgCatalog::BuildMessage(CATWBVPMNavReportPreview::kName,
                                       "ReportFrame.ReportMultiList.ColumnTitle1", "@Level");
}

} // namespace

CATWBVPMNavReportPreview::CATWBVPMNavReportPreview(CATUnicodeString selectionText,
                                                   CATIDOMDocument_var document,
                                                   unsigned char creatorFlag)
    : CATDlgDialog(WBMainWindow(), kName, kWindowStyle),
      m_selectionText(std::move(selectionText)),
      m_document(std::move(document)),
      m_creatorFlag(creatorFlag),
      m_options(std::make_unique<WBDisplayOptions>()),
      m_file(std::make_unique<WBReportFile>(*this, kTrace, kName))
{
    kTrace.Line("CATWBVPMNavReportPreview");
    if (m_document.IsNull()) {
        kTrace.Line("The DOM Doc received as argument is null!");
    }
}

CATWBVPMNavReportPreview::CATWBVPMNavReportPreview(const CATWBVPMNavReportPreview& other)
    : CATWBVPMNavReportPreview(other.m_selectionText, other.m_document, other.m_creatorFlag)
{}

CATWBVPMNavReportPreview& CATWBVPMNavReportPreview::operator=(const CATWBVPMNavReportPreview& other)
{
    kTrace.Line("operator=");
    if (this == &other) {
        return *this;
    }
    m_selectionText = other.m_selectionText;
    m_document = other.m_document;
    m_creatorFlag = other.m_creatorFlag;
    if (m_instanceList != nullptr) {
        m_selection->SetText(m_selectionText);
        m_rootList->RemoveAll();
        m_instanceList->RemoveAll();
        if (!m_document.IsNull() && ReadColumns()) {
            m_options->TellUnits(*m_document);
            UpdatePreviewPanelList();
        }
    }
    return *this;
}

CATWBVPMNavReportPreview::~CATWBVPMNavReportPreview()
{
    kTrace.Line("~CATWBVPMNavReportPreview");
    m_options->Store();
}

const char* CATWBVPMNavReportPreview::ClassName() const
{
    return kName;
}

CATString CATWBVPMNavReportPreview::GetResourceFilename(int level) const
{
    return level <= 0 ? CATString(kName) : CATDlgDialog::GetResourceFilename(level - 1);
}

void CATWBVPMNavReportPreview::Build()
{
    kTrace.Line("Build");
    if (m_document.IsNull()) {
        kTrace.Line("_hDOMDocument is null! We cannot continue");
        return;
    }
    SetPreferredSize(kWindowWidth, kWindowHeight);
    m_selection = AddPreviewSelection(*this, {0, 0}, m_selectionText);
    BuildLists();
    const bool hasColumns = ReadColumns();
    if (hasColumns) {
        m_options->Build(*this, 2, 0, WBDisplayOptions::HandlersOf(*this));
        m_options->TellUnits(*m_document);
    }
    // Last, so that the Tab key comes to them last.
    AddPreviewButtons(*this, "ButtonsFrame", {3, 0},
                      {{"SavePushB", &CATWBVPMNavReportPreview::OnSaveNotification},
                       {"SaveToPushB", &CATWBVPMNavReportPreview::OnSaveToNotification},
                       {"ClosePushB", &CATWBVPMNavReportPreview::OnCloseNotification}});
    Subscribe(this, WindowClosed, [this](const CATNotification&) { OnCloseNotification(); });
    if (!hasColumns) {
        return;
    }
    SortInStableOrder();
    UpdatePreviewPanelList();
    m_options->ApplySaved();
}

void CATWBVPMNavReportPreview::BuildLists()
{
    auto* frame = new CATDlgFrame(this, "ReportFrame", kPlainFrame); // the window owns it
    frame->SetPlacement(1, 0);
    m_rootList = AddPreviewList(*frame, "ReportMultiListPRC", 0, kRootLines);
    m_instanceList = AddPreviewList(*frame, "ReportMultiListInst", 1, kInstanceLines);
    for (CATDlgMultiList* list : {m_rootList, m_instanceList}) {
        TakeListTexts(*list, kName);
    }
    frame->SetRowStretch(1, 1); // what room there is belongs to the instances
}

bool CATWBVPMNavReportPreview::ReadColumns()
{
    return ReadInstanceColumns() && ReadRootColumns();
}

bool CATWBVPMNavReportPreview::ReadInstanceColumns()
{
    const bool withoutDate = CATGetEnv("ODT_KR4_REPORT_NO_DATE") != nullptr;
    const std::optional<WBInstanceAttributes> attributes =
        ReadInstanceAttributes(kTrace, *m_document, withoutDate);
    if (!attributes) {
        return false;
    }
    const WBPreviewColumns columns = ReportInstanceColumns(attributes->columns, withoutDate);
    m_instanceColumns = columns.Names();
    m_magnitudeAttributes = attributes->magnitudes;
    ShowColumns(columns, FirstColumnTitle(), *m_instanceList);
    int column = 1;
    for (const CATUnicodeString& name : m_instanceColumns.Items()) {
        if (m_magnitudeAttributes.Locate("__magnitude__" + name) > 0) {
            m_instanceList->SetColumnIsNumber(column, true);
        }
        ++column;
    }
    ShowColumnUnits(*m_document, m_instanceColumns, *m_instanceList);
    ShowPropertyUnits(*m_document, m_instanceColumns, m_magnitudeAttributes, *m_instanceList);
    return true;
}

bool CATWBVPMNavReportPreview::ReadRootColumns()
{
    const std::optional<CATListValCATUnicodeString> names = ReadRootAttributes(kTrace, *m_document);
    if (!names) {
        return false;
    }
    const WBPreviewColumns columns = ReportRootColumns(*names);
    m_rootColumns = columns.Names();
    ShowColumns(columns, FirstColumnTitle(), *m_rootList);
    ShowColumnUnits(*m_document, m_rootColumns, *m_rootList);
    return true;
}

void CATWBVPMNavReportPreview::SortInStableOrder()
{
    if (AsksForStableOrder(*this, kTrace)) {
        const auto begin = std::chrono::steady_clock::now();
        // Whatever comes of it: a part of the order is better than none.
        SortDOMDocument(m_document);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
        kTrace.Line("Time elapsed for sorting the DOM: ", elapsed.count(), " seconds.");
    }
}

long CATWBVPMNavReportPreview::SortDOMDocument(CATIDOMDocument_var& document)
{
    CATIDOMNode_var top;
    CATIDOMNodeList_var children;
    const long status = ReadTopLevel(kTrace, document, top, children);
    return status == S_OK ? SortListOfNodes(top, children) : status;
}

long CATWBVPMNavReportPreview::SortListOfNodes(CATIDOMNode_var& parent,
                                               CATIDOMNodeList_var& children)
{
    return SortReportNodes(kTrace, parent, children);
}

void CATWBVPMNavReportPreview::UpdatePreviewPanelList()
{
    kTrace.Line("UpdatePreviewPanelList");
    if (m_document.IsNull() || m_instanceList == nullptr) {
        return;
    }
    m_rootList->RemoveAll();
    m_instanceList->RemoveAll();
    const CATIDOMElement_var root = FirstRoot(*m_document);
    if (root.IsNull()) {
        return;
    }
    const auto print = [this](const CATIDOMElement_var& element, int row, int level,
                              const CATListValCATUnicodeString& columns, CATDlgMultiList* list) {
        list->SetCell(0, row + 1, CATUnicodeString::FromInt(level), CATDlgMultiList::kAppendRow);
        PrintRow(*this, element, columns, row, list);
    };
    print(root, 0, 0, m_rootColumns, m_rootList);
    const CATIDOMNodeList_var instances = m_document->ElementsByTagName(kPartInstanceElement);
    if (instances.IsNull()) {
        return;
    }
    ForLeadingElements(*instances, [&](const CATIDOMElement_var& element, int row) {
        int level = 0;
        CountAncestors(element, level);
        print(element, row, level, m_instanceColumns, m_instanceList);
    });
}

void CATWBVPMNavReportPreview::CountAncestors(const CATIDOMNode_var& node, int& count)
{
    kTrace.Line("CountAncestors");
    CountStepsToRoot(node, count);
}

long CATWBVPMNavReportPreview::PrintNode(const CATIDOMElement_var& element,
                                         const CATUnicodeString& name, int column, int row,
                                         CATDlgMultiList* list)
{
    kTrace.Line("PrintNode");
    return PrintAttribute(kTrace, element, name, column, row, *list);
}

void CATWBVPMNavReportPreview::OnUnitsDisplayNotification()
{
    kTrace.Line("OnUnitsDisplayNotification");
    if (m_document.IsNull()) {
        return;
    }
    CATWBServices::ManageUnitsDisplay(m_document, m_magnitudeAttributes, m_options->WithUnits(),
                                      m_options->Decimals());
    UpdatePreviewPanelList();
    m_options->EnableUpButton();
}

void CATWBVPMNavReportPreview::OnTrailingZeroNotification()
{
    kTrace.Line("OnTrailingZeroNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavReportPreview::OnTrailingDigitsNotification()
{
    kTrace.Line("OnTrailingDigitsNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavReportPreview::OnSaveNotification()
{
    kTrace.Line("OnSaveNotification");
    if (!m_document.IsNull()) {
        WriteReportToFile("");
    }
}

void CATWBVPMNavReportPreview::OnSaveToNotification()
{
    kTrace.Line("OnSaveToNotification");
    SetDefaultFileName();
    SetDefaultFileDir();
    m_file->OpenBox([this] { OnDlgStdFileDiaOKNotification(); },
                    [this] { OnDlgStdFileDiaCancelNotification(); });
}

void CATWBVPMNavReportPreview::OnDlgStdFileDiaOKNotification()
{
    kTrace.Line("OnDlgStdFileDiaOKNotification");
    const CATUnicodeString path = m_file->TakeChosenPath();
    if (!path.IsEmpty()) {
        WriteReportToFile(path);
    }
}

void CATWBVPMNavReportPreview::OnDlgStdFileDiaCancelNotification()
{
    kTrace.Line("OnDlgStdFileDiaCancelNotification");
    m_file->CloseBox();
}

void CATWBVPMNavReportPreview::SetDefaultFileName()
{
    kTrace.Line("SetDefaultFileName");
    m_file->SetDefaultName(m_selectionText);
}

void CATWBVPMNavReportPreview::SetDefaultFileDir()
{
    kTrace.Line("SetDefaultFileDir");
    m_file->SetDefaultDirectory();
}

void CATWBVPMNavReportPreview::WriteReportToFile(const CATUnicodeString& path)
{
    kTrace.Line("WriteReportToFile");
    m_file->Write(m_document, path, m_selectionText);
}

void CATWBVPMNavReportPreview::OnCloseNotification()
{
    kTrace.Line("OnCloseNotification");
    SetVisibility(false);
    RequestDelayedDestruction();
}
