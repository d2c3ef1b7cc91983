#pragma once

#include "CATCollections.h"
#include "CATDlgDialog.h"
#include "CATIDOMDocument.h"
#include "CATUnicodeString.h"
#include "WBExport.h"

#include <memory>

class CATDlgFrame;
class CATDlgMultiList;
class WBDisplayOptions;
class WBReportFile;

/// Shows what a product is made of and where its mass comes from: for the product root, and on
/// request for every part instance, each material and each mass type with its mass and its share of
/// the whole. The user turns the symbols of the units and trailing zeros on and off, and saves the
/// report as an XML file. How it was shown last is how the next one opens.
///
/// The report is shared with whoever made the preview, and changed in place: its values come in
/// storage units, are brought to the user's units when the window is built, and are written anew
/// whenever the user chooses another way to show them. So what is saved is what is seen, and two
/// previews never share one document, copies of one preview excepted.
///
/// The preview stands above the session's main window and stays when the panel that opened it goes.
/// It is made by "new", built, and shown with SetVisibility; the command tree owns it, and closing
/// it destroys it. The component of its trace has the window's name.
class WB_EXPORT CATWBVPMNavMatStatPreview : public CATDlgDialog
{
public:
    /// The window's name, and that of its catalog and its resource file.
    static constexpr const char* kName = "CATWBVPMNavMatStatPreview";

    /// `selectionText` says what the report was made for. A null document is shown as nothing. Only
    /// with a `creatorFlag` of 1 the part instances are shown too.
    CATWBVPMNavMatStatPreview(CATUnicodeString selectionText, CATIDOMDocument_var document,
                              unsigned char creatorFlag);
    /// Another window for the same report, made as above: it is not built yet. Controls cannot be
    /// copied.
    CATWBVPMNavMatStatPreview(const CATWBVPMNavMatStatPreview& other);
    /// Takes over what the other one was made for. The window and its lists stay; where it is built
    /// it shows the other report.
    CATWBVPMNavMatStatPreview& operator=(const CATWBVPMNavMatStatPreview& other);
    /// Remembers the options for the user's next preview. A preview that was never built has none,
    /// and leaves everything off.
    ~CATWBVPMNavMatStatPreview() override;

    const char* ClassName() const override;
    /// Level 0 and below are the preview's own resources; above stand those of the dialog base.
    CATString GetResourceFilename(int level) const override;

    /// Makes the controls, brings the values to the user's units, fills the lists and brings the
    /// options to where they were. To be called once.
    void Build();

    // What the user does, and what a row is made of. Slot order is binary interface: append, never
    // sort.

    /// Saves under the default name in the default directory, whatever is there.
    virtual void OnSaveNotification();
    /// Hides the window and asks for its delayed destruction.
    virtual void OnCloseNotification();
    /// Asks for a file and saves into it.
    virtual void OnSaveAsNotification();
    /// Writes an attribute's text as the document holds it into a cell. Row and column count from
    /// 0; the row after the last is added. The failure of the element when it lacks the attribute,
    /// E_FAIL for a null one.
    virtual long PrintNode(const CATIDOMElement_var& element, const CATUnicodeString& name,
                           int column, int row, CATDlgMultiList* list);
    /// Fills the lists from the document again. Below each element the last statistic comes first.
    virtual void UpdatePreviewPanelList();
    /// Shows the values as the options say.
    virtual void OnUnitsDisplayNotification();
    virtual void OnTrailingZeroNotification();
    virtual void OnTrailingDigitsNotification();

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

    // The statistics' masses and densities, with their symbols when `unitsDisplay` is non-zero;
    // `trailingZero` -1 keeps the decimals of the unit, 0 drops the zeros at the end. The shares of
    // mass have three digits, and "%" with the symbols. The units are named on the document
    // element. A null document is left alone.

    /// Brings them from storage units to the user's, once for a document.
    void ManageUnitsConversion(CATIDOMDocument_var& document, const unsigned char& unitsDisplay,
                               int trailingZero);
    /// Shows what was converted anew.
    void ManageUnitsDisplay(CATIDOMDocument_var& document, const unsigned char& unitsDisplay,
                            int trailingZero);

private:
    struct StatisticsLists
    {
        CATDlgMultiList* materials = nullptr;
        CATDlgMultiList* massTypes = nullptr;
    };
    void TellWhatFor();
    void BuildLists();
    void ConvertOnce();
    void ShowUnits();
    void ClearLists();
    bool ShowStatistics(const CATIDOMElement_var& element, const StatisticsLists& lists);
    void ShowPartInstances();

    CATUnicodeString m_selectionText;
    CATIDOMDocument_var m_document;
    unsigned char m_creatorFlag;
    /// Whether the document's values stand in the user's units; one for all copies of a preview,
    /// since they share the document.
    std::shared_ptr<bool> m_isConverted;
    // The controls belong to the window; null until it is built, those of parts also where they
    // are not asked for.
    StatisticsLists m_rootLists;
    StatisticsLists m_partLists;
    std::unique_ptr<WBDisplayOptions> m_options;
    std::unique_ptr<WBReportFile> m_file;
};
