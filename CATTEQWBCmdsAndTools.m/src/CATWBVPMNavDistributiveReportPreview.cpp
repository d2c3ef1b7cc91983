#include "CATWBVPMNavDistributiveReportPreview.h"

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

#include <optional>
#include <utility>

namespace
{

constexpr int kWindowStyle = 0x4001; // no standard buttons
constexpr int kPlainFrame = 0x80001; // no title, no border
constexpr int kRootLines = 3;
constexpr int kSectionLines = 15;
constexpr int kInstanceLines = 20;
// A report has two dozen columns: wider than the lists ask for.
constexpr int kWindowWidth = 1200;
constexpr int kWindowHeight = 800;

const DSTrace kTrace("CATWBDistributiveRepPreview");

/// The element child with the most attributes, the first of them where several have as many: the
/// columns of the sections are those of the one that has most to show. Null without such a child.
CATIDOMNode_var RichestChild(const CATIDOMNode_var& node)
{
    CATIDOMNode_var richest;
    int most = -1;
    for (CATIDOMNode_var child = node->FirstChild(); !child.IsNull();
         child = child->NextSibling()) {
        const CATIDOMElement* const element = child->AsElement();
        if (element != nullptr && element->AttributeCount() > most) {
            most = element->AttributeCount();
            richest = child;
        }
    }
    return richest;
}

/// Takes over the columns, and shows them in their list.
void TakeColumns(const CATIDOMDocument& document, const WBPreviewColumns& columns,
                 const CATUnicodeString& firstTitle, CATListValCATUnicodeString& names,
                 CATDlgMultiList& list)
{
    names = columns.Names();
    ShowColumns(columns, firstTitle, list);
    ShowColumnUnits(document, names, list);
}

} // namespace

CATWBVPMNavDistributiveReportPreview::CATWBVPMNavDistributiveReportPreview(
    CATUnicodeString selectionText, CATIDOMDocument_var document, unsigned char creatorFlag)
    : CATDlgDialog(WBMainWindow(), kName, kWindowStyle),
      m_selectionText(std::move(selectionText)),
      m_document(std::move(document)),
      m_creatorFlag(creatorFlag),
      m_options(std::make_unique<WBDisplayOptions>()),
      m_file(std::make_unique<WBReportFile>(*this, kTrace, kName))
{
    kTrace.Line("CATWBVPMNavDistributiveReportPreview");
    if (m_document.IsNull()) {
        kTrace.Line("The DOM Doc received as argument is null!");
    }
}

CATWBVPMNavDistributiveReportPreview::CATWBVPMNavDistributiveReportPreview(
    const CATWBVPMNavDistributiveReportPreview& other)
    : CATWBVPMNavDistributiveReportPreview(other.m_selectionText, other.m_document,
                                           other.m_creatorFlag)
{}

CATWBVPMNavDistributiveReportPreview&
CATWBVPMNavDistributiveReportPreview::operator=(const CATWBVPMNavDistributiveReportPreview& other)
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
        for (CATDlgMultiList* list : {m_rootList, m_sectionList, m_instanceList}) {
            list->RemoveAll();
        }
        if (!m_document.IsNull() && ReadColumns()) {
            m_options->TellUnits(*m_document);
            UpdatePreviewPanelList();
        }
    }
    return *this;
}

CATWBVPMNavDistributiveReportPreview::~CATWBVPMNavDistributiveReportPreview()
{
    kTrace.Line("~CATWBVPMNavDistributiveReportPreview");
    m_options->Store();
}

const char* CATWBVPMNavDistributiveReportPreview::ClassName() const
{
    return kName;
}

CATString CATWBVPMNavDistributiveReportPreview::GetResourceFilename(int level) const
{
    return level <= 0 ? CATString(kName) : CATDlgDialog::GetResourceFilename(level - 1);
}

void CATWBVPMNavDistributiveReportPreview::Build()
{
    kTrace.Line("Build");
    if (m_document.IsNull()) {
        kTrace.Line("_hDOMDocument is null! Can't continue");
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
                      {{"SavePushB", &CATWBVPMNavDistributiveReportPreview::OnSaveNotification},
                       {"SaveToPushB", &CATWBVPMNavDistributiveReportPreview::OnSaveAsNotification},
                       {"ClosePushB", &CATWBVPMNavDistributiveReportPreview::OnCloseNotification}});
    Subscribe(this, WindowClosed, [this](const CATNotification&) { OnCloseNotification(); });
    if (!hasColumns) {
        return;
    }
    // The user is told when the option cannot be read, as before a report. Its answer changes
    // nothing: sections come by their masses, and an order by identifiers would undo that.
    AsksForStableOrder(*this, kTrace);
    UpdatePreviewPanelList();
    m_options->ApplySaved();
}

void CATWBVPMNavDistributiveReportPreview::BuildLists()
{
    auto* frame = new CATDlgFrame(this, "ReportFrame", kPlainFrame); // the window owns it
    frame->SetPlacement(1, 0);
    m_rootList = AddPreviewList(*frame, "ReportMultiListPRC", 0, kRootLines);
    m_sectionList = AddPreviewList(*frame, "ReportMultiListSection", 1, kSectionLines);
    m_instanceList = AddPreviewList(*frame, "ReportMultiListInst", 2, kInstanceLines);
    for (CATDlgMultiList* list : {m_rootList, m_sectionList, m_instanceList}) {
        TakeListTexts(*list, kName);
    }
    // What room there is belongs to the sections and the instances.
    frame->SetRowStretch(1, kSectionLines);
    frame->SetRowStretch(2, kInstanceLines);
}

bool CATWBVPMNavDistributiveReportPreview::ReadColumns()
{
    const CATIDOMElement_var root = FirstRoot(*m_document);
    if (root.IsNull()) {
        kTrace.Line("Unable to retrieve the node of type PRC!");
        return false;
    }
    return ReadRootColumns(root) && ReadSectionColumns(root) && ReadInstanceColumns();
}

bool CATWBVPMNavDistributiveReportPreview::ReadRootColumns(const CATIDOMElement_var& root)
{
    const std::optional<CATListValCATUnicodeString> names =
        ReadAttributes(kTrace, *m_document, root, WBReportElement::Root);
    if (names) {
        TakeColumns(*m_document, DistributiveRootColumns(*names), "", m_rootColumns, *m_rootList);
    }
    return names.has_value();
}

bool CATWBVPMNavDistributiveReportPreview::ReadSectionColumns(const CATIDOMElement_var& root)
{
    const CATIDOMNode_var richest = RichestChild(root);
    if (richest.IsNull()) {
        TakeColumns(*m_document, {}, "", m_sectionColumns, *m_sectionList);
        return true;
    }
    const std::optional<CATListValCATUnicodeString> names =
        ReadAttributes(kTrace, *m_document, richest, WBReportElement::Section);
    if (names) {
        TakeColumns(*m_document, DistributiveSectionColumns(*names), "", m_sectionColumns,
                    *m_sectionList);
    }
    return names.has_value();
}

// The server puts the instance with the most attributes first, so that its attributes are all that
// there are.
bool CATWBVPMNavDistributiveReportPreview::ReadInstanceColumns()
{
    const CATIDOMNodeList_var instances = m_document->ElementsByTagName(kPartInstanceElement);
    const CATIDOMNode_var first = instances.IsNull() ? CATIDOMNode_var() : instances->Item(0);
    if (first.IsNull()) {
        kTrace.Line("Unable to retrieve the first node of type PartInstance!");
        return false;
    }
    const std::optional<CATListValCATUnicodeString> names =
        ReadAttributes(kTrace, *m_document, first, WBReportElement::PartInstance);
    if (names) {
        TakeColumns(*m_document, DistributiveInstanceColumns(*names), "Sr.No.", m_instanceColumns,
                    *m_instanceList);
    }
    return names.has_value();
}

void CATWBVPMNavDistributiveReportPreview::UpdatePreviewPanelList()
{
    kTrace.Line("UpdatePreviewPanelList");
    if (m_instanceList == nullptr) {
        return;
    }
    for (CATDlgMultiList* list : {m_rootList, m_sectionList, m_instanceList}) {
        list->RemoveAll();
    }
    if (m_document.IsNull()) {
        return;
    }
    const CATIDOMElement_var root = FirstRoot(*m_document);
    if (root.IsNull()) {
        return;
    }
    PrintRow(*this, root, m_rootColumns, 0, m_rootList); // its first column stays empty
    if (ShowSections(root)) {
        ShowInstances();
    }
}

/// False where the fill has to end: the root has no children, or one that is no element. Such a
/// report is damaged, and the instances alone would look like a whole one.
bool CATWBVPMNavDistributiveReportPreview::ShowSections(const CATIDOMElement_var& root)
{
    const CATIDOMNodeList_var children = root->ChildNodes();
    if (children.IsNull()) {
        return false;
    }
    int index = 0;
    int row = 0;
    CATIDOMNode_var child = children->Item(index);
    const bool hasChildren = !child.IsNull();
    while (!child.IsNull()) {
        if (child->AsElement() == nullptr) {
            return false;
        }
        if (!IsElementNamed(child, kPartInstanceElement)) {
            ShowNumberedRow(child, m_sectionColumns, row, m_sectionList);
            ++row;
        }
        ++index;
        child = children->Item(index);
    }
    return hasChildren;
}

void CATWBVPMNavDistributiveReportPreview::ShowInstances()
{
    const CATIDOMNodeList_var instances = m_document->ElementsByTagName(kPartInstanceElement);
    if (!instances.IsNull()) {
        ForLeadingElements(*instances, [this](const CATIDOMElement_var& element, int row) {
            ShowNumberedRow(element, m_instanceColumns, row, m_instanceList);
        });
    }
}

void CATWBVPMNavDistributiveReportPreview::ShowNumberedRow(
    const CATIDOMElement_var& element, const CATListValCATUnicodeString& columns, int row,
    CATDlgMultiList* list)
{
    list->SetCell(0, row + 1, CATUnicodeString::FromInt(row + 1), CATDlgMultiList::kAppendRow);
    PrintRow(*this, element, columns, row, list);
}

void CATWBVPMNavDistributiveReportPreview::CountAncestors(const CATIDOMNode_var& node, int& count)
{
    kTrace.Line("CountAncestors");
    CountStepsToRoot(node, count);
}

long CATWBVPMNavDistributiveReportPreview::PrintNode(const CATIDOMElement_var& element,
                                                     const CATUnicodeString& name, int column,
                                                     int row, CATDlgMultiList* list)
{
    kTrace.Line("PrintNode");
    return PrintAttribute(kTrace, element, name, column, row, *list);
}

long CATWBVPMNavDistributiveReportPreview::SortDOMDocument(CATIDOMDocument_var& document)
{
    CATIDOMNode_var top;
    CATIDOMNodeList_var children;
    const long status = ReadTopLevel(kTrace, document, top, children);
    return status == S_OK ? SortListOfNodes(top, children) : status;
}

long CATWBVPMNavDistributiveReportPreview::SortListOfNodes(CATIDOMNode_var& parent,
                                                           CATIDOMNodeList_var& children)
{
    return SortReportNodes(kTrace, parent, children);
}

void CATWBVPMNavDistributiveReportPreview::OnUnitsDisplayNotification()
{
    kTrace.Line("OnUnitsDisplayNotification");
    if (m_document.IsNull()) {
        return;
    }
    CATWBServices::ManageUnitsDisplayDistributive(m_document, m_options->WithUnits(),
                                                  m_options->Decimals());
    UpdatePreviewPanelList();
    m_options->EnableUpButton();
}

void CATWBVPMNavDistributiveReportPreview::OnTrailingZeroNotification()
{
    kTrace.Line("OnTrailingZeroNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavDistributiveReportPreview::OnTrailingDigitsNotification()
{
    kTrace.Line("OnTrailingDigitsNotification");
    OnUnitsDisplayNotification();
}

void CATWBVPMNavDistributiveReportPreview::OnSaveNotification()
{
    kTrace.Line("OnSaveNotification");
    if (!m_document.IsNull()) {
        WriteReportToFile("");
    }
}

void CATWBVPMNavDistributiveReportPreview::OnSaveAsNotification()
{
    kTrace.Line("OnSaveAsNotification");
    SetDefaultFileName();
    SetDefaultFileDir();
    m_file->OpenBox([this] { OnDlgStdFileDiaOKNotification(); },
                    [this] { OnDlgStdFileDiaCancelNotification(); });
}

void CATWBVPMNavDistributiveReportPreview::OnDlgStdFileDiaOKNotification()
{
    kTrace.Line("OnDlgStdFileDiaOKNotification");
    const CATUnicodeString path = m_file->TakeChosenPath();
    if (!path.IsEmpty()) {
        WriteReportToFile(path);
    }
}

void CATWBVPMNavDistributiveReportPreview::OnDlgStdFileDiaCancelNotification()
{
    kTrace.Line("OnDlgStdFileDiaCancelNotification");
    m_file->CloseBox();
}

void CATWBVPMNavDistributiveReportPreview::SetDefaultFileName()
{
    kTrace.Line("SetDefaultFileName");
    m_file->SetDefaultName(m_selectionText);
}

void CATWBVPMNavDistributiveReportPreview::SetDefaultFileDir()
{
    kTrace.Line("SetDefaultFileDir");
    m_file->SetDefaultDirectory();
}

void CATWBVPMNavDistributiveReportPreview::WriteReportToFile(const CATUnicodeString& path)
{
    kTrace.Line("WriteReportToFile");
    m_file->Write(m_document, path, m_selectionText);
}

void CATWBVPMNavDistributiveReportPreview::OnCloseNotification()
{
    kTrace.Line("OnCloseNotification");
    SetVisibility(false);
    RequestDelayedDestruction();
}
