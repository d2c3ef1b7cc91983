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

/// Shows a weight and balance report: the product root in a short list, its part instances in a
/// long one, an attribute a column. The user turns the symbols of the units and trailing zeros on
/// and off, and saves the report as an XML file. How it was shown last is how the next one opens.
///
/// The report is shared with whoever made the preview, and changed in place: its order when the
/// navigator's option of a stable order is on, its values whenever the user chooses another way to
/// show them. So what is saved is what is seen, and two previews never share one document.
///
/// The preview stands above the session's main window and stays when the panel that opened it goes.
/// It is made by "new", built, and shown with SetVisibility; the command tree owns it, and closing
/// it destroys it. The component of its trace is "CATWBRepPreview".
class WB_EXPORT CATWBVPMNavReportPreview : public CATDlgDialog
{
public:
    /// The window's name, and that of its catalog and its resource file.
    static constexpr const char* kName = "CATWBVPMNavReportPreview";

    /// `selectionText` says what the report was made for. The document's values are in the user's
    /// units; a null one is shown as nothing. The flag belongs to whoever makes the preview and
    /// means nothing here.
    CATWBVPMNavReportPreview(CATUnicodeString selectionText, CATIDOMDocument_var document,
                             unsigned char creatorFlag);
    /// Another window for the same report, made as above: it is not built yet. Controls cannot be
    /// copied.
    CATWBVPMNavReportPreview(const CATWBVPMNavReportPreview& other);
    /// Takes over what the other one was made for. The window and its options stay; where it is
    /// built it shows the other report.
    CATWBVPMNavReportPreview& operator=(const CATWBVPMNavReportPreview& other);
    /// Remembers the options for the user's next preview. A preview that was never built has none,
    /// and leaves everything off.
    ~CATWBVPMNavReportPreview() override;

    const char* ClassName() const override;
    /// Level 0 and below are the preview's own resources; above stand those of the dialog base.
    CATString GetResourceFilename(int level) const override;

    /// Makes the controls, sorts the document where a stable order is asked for, fills the lists
    /// and brings the options to where they were. To be called once. Where the report cannot be
    /// read the trace says why, and the window keeps what was made until then: without a root there
    /// are two empty lists and no options.
    void Build();

    // What the user does, and what a row is made of. Slot order is binary interface: append, never
    // sort.

    /// Saves under the default name in the default directory, whatever is there.
    virtual void OnSaveNotification();
    /// Hides the window and asks for its delayed destruction.
    virtual void OnCloseNotification();
    /// Shows the values as the options say.
    virtual void OnUnitsDisplayNotification();
    /// Adds the node's depth below the product root to `count`: 1 for its child. Where there is no
    /// root, every node up to the document counts.
    virtual void CountAncestors(const CATIDOMNode_var& node, int& count);
    /// Writes an attribute's text as the document holds it into a cell. Row and column count from
    /// 0; the row after the last is added. The failure of the element when it lacks the attribute,
    /// E_FAIL for a null one.
    virtual long PrintNode(const CATIDOMElement_var& element, const CATUnicodeString& name,
                           int column, int row, CATDlgMultiList* list);
    /// Fills both lists from the document again.
    virtual void UpdatePreviewPanelList();
    virtual void OnTrailingZeroNotification();
    virtual void OnTrailingDigitsNotification();
    /// Asks for a file and saves into it.
    virtual void OnSaveToNotification();

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

private:
    void BuildLists();
    bool ReadColumns();
    bool ReadInstanceColumns();
    bool ReadRootColumns();
    void SortInStableOrder();
    long SortDOMDocument(CATIDOMDocument_var& document);
    long SortListOfNodes(CATIDOMNode_var& parent, CATIDOMNodeList_var& children);

    CATUnicodeString m_selectionText;
    CATIDOMDocument_var m_document;
    unsigned char m_creatorFlag;
    CATListValCATUnicodeString m_instanceColumns;     // attributes, in the order of the columns
    CATListValCATUnicodeString m_rootColumns;         // the same of the root
    CATListValCATUnicodeString m_magnitudeAttributes; // "__magnitude__..." of the instances
    // The controls belong to the window; null until it is built.
    CATDlgEditor* m_selection = nullptr;
    CATDlgMultiList* m_rootList = nullptr;
    CATDlgMultiList* m_instanceList = nullptr;
    std::unique_ptr<WBDisplayOptions> m_options;
    std::unique_ptr<WBReportFile> m_file;
};
