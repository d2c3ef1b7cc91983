#pragma once

#include "CATCollections.h"
#include "CATDlgDialog.h"
#include "CATIDOMDocument.h"
#include "CATUnicodeString.h"
#include "WBExport.h"

#include <memory>

class CATDlgEditor;
class CATDlgMultiList;
class WBDisplayOptions;
class WBReportFile;

/// Shows a distributive report, which says how the mass of a product is distributed: the product
/// root in a short list, its sections in a second, all part instances in a third, an attribute a
/// column. The user turns the symbols of the units and trailing zeros on and off, and saves the
/// report as an XML file. How it was shown last is how the next one opens.
///
/// The report is shared with whoever made the preview, and its values are changed in place whenever
/// the user chooses another way to show them. So what is saved is what is seen, and two previews
/// never share one document. Its order is the server's and stays so, whatever the navigator's
/// option of a stable order says.
///
/// The preview stands above the session's main window and stays when the panel that opened it goes.
/// It is made by "new", built, and shown with SetVisibility; the command tree owns it, and closing
/// it destroys it. The component of its trace is "CATWBDistributiveRepPreview".
class WB_EXPORT CATWBVPMNavDistributiveReportPreview : public CATDlgDialog
{
public:
    /// The window's name, and that of its catalog and its resource file.
    static constexpr const char* kName = "CATWBVPMNavDistributiveReportPreview";

    /// `selectionText` says what the report was made for. The document's values are in the user's
    /// units; a null one is shown as nothing. The flag belongs to whoever makes the preview and
    /// means nothing here.
    CATWBVPMNavDistributiveReportPreview(CATUnicodeString selectionText,
                                         CATIDOMDocument_var document, unsigned char creatorFlag);
    /// Another window for the same report, made as above: it is not built yet. Controls cannot be
    /// copied.
    CATWBVPMNavDistributiveReportPreview(const CATWBVPMNavDistributiveReportPreview& other);
    /// Takes over what the other one was made for. The window stays; where it is built it shows the
    /// other report by the other one's columns.
    CATWBVPMNavDistributiveReportPreview&
    operator=(const CATWBVPMNavDistributiveReportPreview& other);
    /// Remembers the options for the user's next preview. A preview that was never built has none,
    /// and leaves everything off.
    ~CATWBVPMNavDistributiveReportPreview() override;

    const char* ClassName() const override;
    /// Level 0 and below are the preview's own resources; above stand those of the dialog base.
    CATString GetResourceFilename(int level) const override;

    /// Makes the controls, fills the lists and brings the options to where they were. To be called
    /// once. Where the report cannot be read the trace says why, and the window keeps what was made
    /// until then: without a root or without a part instance there are empty lists and no options.
    void Build();

    // What the user does, and what a row is made of. Slot order is binary interface: append, never
    // sort.

    /// Saves under the default name in the default directory, whatever is there.
    virtual void OnSaveNotification();
    /// Hides the window and asks for its delayed destruction.
    virtual void OnCloseNotification();
    /// Asks for a file and saves into it.
    virtual void OnSaveAsNotification();
    /// Shows the values as the options say.
    virtual void OnUnitsDisplayNotification();
    virtual void OnTrailingZeroNotification();
    virtual void OnTrailingDigitsNotification();
    /// Adds the node's depth below the product root to `count`: 1 for its child. Where there is no
    /// root, every node up to the document counts. No row of this preview shows it: it is there for
    /// previews that derive from this one.
    virtual void CountAncestors(const CATIDOMNode_var& node, int& count);
    /// Writes an attribute's text as the document holds it into a cell. Row and column count from
    /// 0; the row after the last is added. The failure of the element when it lacks the attribute,
    /// E_FAIL for a null one.
    virtual long PrintNode(const CATIDOMElement_var& element, const CATUnicodeString& name,
                           int column, int row, CATDlgMultiList* list);
    /// Fills the lists from the document again.
    virtual void UpdatePreviewPanelList();

    /// Writes the document and tells the user how it went. A file at `path` is replaced only when
    /// the user agrees; an empty path is the default name in the default directory, where nobody is
    /// asked.
    void WriteReportToFile(const CATUnicodeString& path);
    /// "WBReport_", the selection text, "_", the present time as yyyymmddhhmmss and ".xml".
    void SetDefaultFileName();
    /// The directory that the environment variable "ZALKR4REPORTPATH" names, else "C:\Temp".
    void SetDefaultFileDir();
    /// The user has chosen a file: the box goes away and the report is written.
    void OnDlgStdFileDiaOKNotification();
    /// The user wants no file: the box goes away.
    void OnDlgStdFileDiaCancelNotification();

protected:
    // This preview keeps the server's order and calls neither; a preview that derives from it and
    // wants the order of the report preview, so that the two can be compared line by line, does.

    /// Sorts what stands below the document element. E_INVALIDARG for a null document.
    long SortDOMDocument(CATIDOMDocument_var& document);
    /// Sorts the element children of `parent` by the identifiers of their instances and goes down
    /// as far as the first child that has children. S_OK for an empty list, E_INVALIDARG for a null
    /// one, E_FAIL for every other, with all sorted that is going to be.
    long SortListOfNodes(CATIDOMNode_var& parent, CATIDOMNodeList_var& children);

private:
    void BuildLists();
    bool ReadColumns();
    bool ReadRootColumns(const CATIDOMElement_var& root);
    bool ReadSectionColumns(const CATIDOMElement_var& root);
    bool ReadInstanceColumns();
    void ShowNumberedRow(const CATIDOMElement_var& element,
                         const CATListValCATUnicodeString& columns, int row, CATDlgMultiList* list);
    bool ShowSections(const CATIDOMElement_var& root);
    void ShowInstances();

    CATUnicodeString m_selectionText;
    CATIDOMDocument_var m_document;
    unsigned char m_creatorFlag;
    // Attributes, in the order of the columns.
    CATListValCATUnicodeString m_rootColumns;
    CATListValCATUnicodeString m_sectionColumns;
    CATListValCATUnicodeString m_instanceColumns;
    // The controls belong to the window; null until it is built.
    CATDlgEditor* m_selection = nullptr;
    CATDlgMultiList* m_rootList = nullptr;
    CATDlgMultiList* m_sectionList = nullptr;
    CATDlgMultiList* m_instanceList = nullptr;
    std::unique_ptr<WBDisplayOptions> m_options;
    std::unique_ptr<WBReportFile> m_file;
};
