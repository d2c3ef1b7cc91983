#include "WBReportFile.h"

#include "CATWBServices.h"

#include "CATDlgNotify.h"
#include "CATEnvironment.h"
#include "CATFileAccess.h"
#include "CATIXMLDOMDocumentBuilder.h"
#include "CATMsgCatalog.h"
#include "CATTime.h"

#include <memory>
#include <utility>

namespace
{

constexpr const char* kExtension = ".xml";
constexpr int kExists = 0;
constexpr int kInformationStyle = 0;
constexpr int kErrorStyle = 0x10000000;
constexpr int kNo = 2; // of a question

} // namespace

CATUnicodeString WBReportFile::Text(const char* key, const char* defaultText,
                                    const CATListValCATUnicodeString& parameters) const
{
    return CATMsgCatalog::BuildMessage(m_catalog, key, defaultText, parameters);
}

void WBReportFile::SetDefaultName(const CATUnicodeString& selectionText)
{
    m_defaultName =
        "WBReport_" + selectionText + "_" + CATTime::Now().ToText("%Y%m%d%H%M%S") + kExtension;
}

void WBReportFile::SetDefaultDirectory()
{
    if (CATGetEnvValue("ZALKR4REPORTPATH", m_defaultDirectory) != S_OK) {
        m_defaultDirectory = "C:\\Temp";
    }
}

bool WBReportFile::MayReplace(const CATUnicodeString& path) const
{
    const auto box =
        std::make_unique<CATDlgNotify>(&m_dialog, "ReplaceReport", CATDlgNotify::kQuestion);
    box->SetTitle(Text("SaveReport.MsgWindow.Title", "@Save the report"));
    box->SetText(Text("SaveReport.FileExists.Text01",
                      "@/p1\nis there already. Shall it be replaced?", {path}));
    return box->DisplayBlocking() != kNo;
}

bool WBReportFile::WriteFile(const CATIDOMDocument_var& document, bool isDefault,
                             const CATUnicodeString& target) const
{
    // A "\" behind a directory that is not there is an ordinary character: without this look the
    // report would go into a file of a strange name beside the place where the directory should be.
    if (isDefault && CATFileAccess(m_defaultDirectory, kExists) != S_OK) {
        m_trace.Line("There is no directory ", m_defaultDirectory);
        return false;
    }
    CATXMLProblem problem;
    if (CreateCATIXMLDOMDocumentBuilder()->WriteToFile(document, target, {}, {}, problem) != S_OK) {
        m_trace.Line(problem.sentence);
        return false;
    }
    return true;
}

void WBReportFile::Write(const CATIDOMDocument_var& document, const CATUnicodeString& path,
                         const CATUnicodeString& selectionText)
{
    const bool isDefault = path.IsEmpty();
    CATUnicodeString target = path;
    if (isDefault) {
        SetDefaultName(selectionText);
        SetDefaultDirectory();
        target = m_defaultDirectory + "\\" + m_defaultName;
    }
    // A path of the user's alone is looked for: a default name has its time in it.
    if (CATFileAccess(path, kExists) == S_OK && !MayReplace(path)) {
        return;
    }
    const bool isWritten = WriteFile(document, isDefault, target);
    const CATUnicodeString text =
        isWritten ? Text("SaveReport.SuccessMsg.Text01", "@The report was saved as ")
                  : Text("SaveReport.ErrorMsg.Text01", "@The report could not be saved as ");
    CATWBServices::DisplayMsg(&m_dialog, Text("SaveReport.MsgWindow.Title", "@Save the report"),
                              text + target, isWritten ? kInformationStyle : kErrorStyle);
}

void WBReportFile::OpenBox(std::function<void()> onChosen, std::function<void()> onCancelled)
{
    CloseBox();
    m_box = new CATDlgFile(&m_dialog, "Choose a directory", CATDlgFile::Mode::Save);
    m_box->SetTitle(Text("SaveReport.FileBox.Title", "@Save the report"));
    m_box->SetFileType("xml", "xml");
    m_box->SetSuggestedName(m_defaultName);
    m_box->SetDirectory(m_defaultDirectory);
    const auto listen = [this](const CATEvent& event, std::function<void()> handler) {
        m_dialog.Subscribe(m_box, event,
                           [handler = std::move(handler)](const CATNotification&) { handler(); });
    };
    listen(CATDlgFile::FileChosen, std::move(onChosen));
    listen(CATDlgFile::Cancelled, std::move(onCancelled));
    m_box->Display();
}

CATUnicodeString WBReportFile::TakeChosenPath()
{
    CATUnicodeString path = m_box == nullptr ? CATUnicodeString() : m_box->Path();
    m_trace.Line("Selected directory: ", path);
    CloseBox();
    if (path.IsEmpty()) {
        return path;
    }
    // Any letter case of the ending is one.
    const int endingLength = CATUnicodeString(kExtension).Length();
    if (path.Part(path.Length() - endingLength).Compare(kExtension) == 0) {
        path.Append(kExtension);
    }
    return path;
}

void WBReportFile::CloseBox()
{
    CATRequestDelayedDestruction(m_box);
    m_box = nullptr;
}
