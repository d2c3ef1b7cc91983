#pragma once

#include "CATCollections.h"
#include "CATDlgFile.h"
#include "CATIDOMDocument.h"
#include "CATTrace.h"

#include <functional>

/// How a preview writes its report: the file that it takes when the user names none, the box that
/// asks for one, and the writing itself with what the user reads about it.
///
/// The texts stand in the preview's catalog under the keys "SaveReport.MsgWindow.Title",
/// "SaveReport.FileExists.Text01", "SaveReport.SuccessMsg.Text01", "SaveReport.ErrorMsg.Text01" and
/// "SaveReport.FileBox.Title".
class WBReportFile
{
public:
    /// The dialog stands above all boxes and outlives this object, as does the catalog's name.
    WBReportFile(CATDlgDialog& dialog, const DSTrace& trace, const char* catalog)
        : m_dialog(dialog), m_trace(trace), m_catalog(catalog)
    {}

    /// "WBReport_", what the report was made for, "_", the present time and ".xml".
    void SetDefaultName(const CATUnicodeString& selectionText);
    /// What the variable "ZALKR4REPORTPATH" says, else "C:\Temp", which the host's file layer takes
    /// as the system's directory for such files.
    void SetDefaultDirectory();

    /// Writes the document to `path` and tells the user how it went. When there is a file already,
    /// the user is asked first and may refuse. An empty path is the default name, made for
    /// `selectionText`, in the default directory, where nobody is asked.
    void Write(const CATIDOMDocument_var& document, const CATUnicodeString& path,
               const CATUnicodeString& selectionText);

    /// Shows the box that asks for a file to save to, beginning with the default name in the
    /// default directory. One of the two is called when the user is done. A box that is open
    /// already goes away.
    void OpenBox(std::function<void()> onChosen, std::function<void()> onCancelled);
    /// The file that the user chose, with ".xml" at its end; empty for none. The box goes away.
    CATUnicodeString TakeChosenPath();
    /// The box goes away.
    void CloseBox();

private:
    CATUnicodeString Text(const char* key, const char* defaultText,
                          const CATListValCATUnicodeString& parameters = {}) const;
    bool MayReplace(const CATUnicodeString& path) const;
    bool WriteFile(const CATIDOMDocument_var& document, bool isDefault,
                   const CATUnicodeString& target) const;

    CATDlgDialog& m_dialog;
    const DSTrace& m_trace;
    const char* m_catalog;
    CATUnicodeString m_defaultName;
    CATUnicodeString m_defaultDirectory;
    CATDlgFile* m_box = nullptr; // a child of the dialog
};
