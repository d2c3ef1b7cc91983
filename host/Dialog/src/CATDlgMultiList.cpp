#include "CATDlgMultiList.h"

#include "CATDlgFile.h"
#include "CATDlgNotify.h"
#include "CATFileReplacement.h"
#include "CATStatus.h"
#include "ListModel.h"
#include "ListView.h"
#include "Toolkit.h"

#include <QFileInfo>
#include <QPointer>

#include <cerrno>
#include <system_error>
#include <utility>

const CATEvent CATDlgMultiList::RowSelected("RowSelected");

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kYes = 1;
constexpr std::size_t kPieceBytes = 1 << 20; // written at once

bool MayReplace(CATDialog& list, const QString& path)
{
    if (!QFileInfo::exists(path)) {
        return true;
    }
    auto* question = new CATDlgNotify(&list, "ReplaceFile", CATDlgNotify::kQuestion);
    question->SetTitle(
        FromQt(DialogMessage("List.ExportTitle", "@Export the list as it is shown")));
    question->SetText(FromQt(DialogMessage(
        "List.ExportExists", "@/p1\nis there already. Shall it be replaced?", {path})));
    const int answer = question->DisplayBlocking();
    question->RequestDelayedDestruction();
    return answer == kYes;
}

void TellFailure(CATDialog& list, const QString& path, const QString& reason)
{
    auto* box = new CATDlgNotify(&list, "ExportFailed", kErrorStyle); // deletes itself when closed
    box->SetTitle(FromQt(DialogMessage("List.ExportTitle", "@Export the list as it is shown")));
    box->SetText(FromQt(
        DialogMessage("List.ExportFailed", "@/p1\ncould not be written: /p2.", {path, reason})));
    box->DisplayNonBlocking();
}

/// What the user can do something about, in the user's language.
QString ReasonOf(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return DialogMessage("List.NoRoom", "@there is no room left on the disk");
    case ENOENT:
    case ENOTDIR:
        return DialogMessage("List.NoDirectory", "@there is no such directory");
    case EISDIR:
        return DialogMessage("List.IsDirectory", "@there is a directory of that name");
    case EACCES:
    case EPERM:
    case EROFS:
        return DialogMessage("List.NoPermission", "@you may not write there");
    default:
        return QString::fromStdString(std::generic_category().message(error));
    }
}

/// The system's number of what failed, or 0. The old file stands until the new one is whole: a full
/// disk does not cost it.
int WriteAsShown(const ListView& view, const std::string& path)
{
    CATFileReplacement file(path);
    if (!file.Open()) {
        return file.Error();
    }
    std::string piece;
    const bool isWritten = view.GiveShown([&](const ListLine& line) {
        AppendCsvLine(piece, line);
        if (piece.size() < kPieceBytes) {
            return true;
        }
        return file.Write(std::exchange(piece, std::string()));
    });
    if (isWritten && file.Write(piece)) {
        file.Commit();
    }
    return file.Error();
}

void ExportAsShown(CATDialog& list, ListView& view)
{
    auto* box = new CATDlgFile(&list, "ExportFile", CATDlgFile::Mode::Save);
    box->SetTitle(FromQt(DialogMessage("List.ExportTitle", "@Export the list as it is shown")));
    box->SetFileType(FromQt(DialogMessage("List.ExportType", "@Comma-separated values")), "csv");
    box->SetSuggestedName(list.Name() + ".csv");
    const QString path = ToQt(box->DisplayBlocking());
    box->RequestDelayedDestruction();
    if (path.isEmpty() || !MayReplace(list, path)) {
        return;
    }
    if (const int error = WriteAsShown(view, path.toStdString())) {
        TellFailure(list, path, ReasonOf(error));
    }
}

} // namespace

struct CATDlgMultiList::Model
{
    QPointer<ListBox> box;
    ListModel* rows = nullptr; ///< a child of the box
    /// The rows, null where the list has no widget (any more).
    ListModel* Rows() const { return box == nullptr ? nullptr : rows; }
};

CATDlgMultiList::CATDlgMultiList(CATDialog* parent, const CATString& name, int style)
    : CATDialog(parent, name, style), m_model(std::make_unique<Model>())
{
    QWidget* inside = Inside(parent);
    if (inside == nullptr) {
        return;
    }
    auto* model = new ListModel(nullptr);
    auto* box = new ListBox(inside, *model);
    model->setParent(box); // the box deletes it, after the view
    m_model->box = box;
    m_model->rows = model;
    Adopt(&box->View(), box);
    box->SetFilterName(ToQt(name) + QStringLiteral("Filter"));
    model->SetOnSettled([box](bool hasChanged) { box->Refresh(hasChanged); });
    box->View().onRowSelected = [this](int row) {
        SendFromUser(*this, RowSelected, row + 1);
    };
    box->View().onExport = [this, box] {
        ExportAsShown(*this, box->View());
    };
}

CATDlgMultiList::~CATDlgMultiList() = default;

void CATDlgMultiList::SetColumnTitles(const CATListValCATUnicodeString& titles)
{
    if (ListModel* model = m_model->Rows()) {
        model->SetTitles(titles);
    }
}

CATListValCATUnicodeString CATDlgMultiList::ColumnTitles() const
{
    const ListModel* model = m_model->Rows();
    return model == nullptr ? CATListValCATUnicodeString() : model->Titles();
}

void CATDlgMultiList::SetColumnIsNumber(int column, bool isNumber)
{
    if (ListModel* model = m_model->Rows()) {
        model->SetNumberColumn(column, isNumber);
    }
}

void CATDlgMultiList::SetColumnTooltip(int column, const CATUnicodeString& tooltip)
{
    if (ListModel* model = m_model->Rows()) {
        model->SetColumnTooltip(column, ToQt(tooltip));
    }
}

long CATDlgMultiList::SetCell(int column, int row, const CATUnicodeString& text, int option)
{
    ListModel* model = m_model->Rows();
    if (model == nullptr || row < 1 || column < 0 || column >= model->Titles().Size()) {
        return E_INVALIDARG;
    }
    const auto index = static_cast<std::size_t>(row) - 1;
    const std::size_t rowCount = model->Cells().RowCount();
    if (index > rowCount || (index == rowCount && (option & kAppendRow) == 0)) {
        return S_FALSE;
    }
    return model->SetCell(index, static_cast<std::size_t>(column), text.View()) ? S_OK : E_FAIL;
}

CATUnicodeString CATDlgMultiList::Cell(int column, int row) const
{
    const ListModel* model = m_model->Rows();
    if (model == nullptr || row < 1 || column < 0) {
        return {};
    }
    return model->Cells().Text(static_cast<std::size_t>(row) - 1, static_cast<std::size_t>(column));
}

void CATDlgMultiList::SetRows(const std::vector<CATListValCATUnicodeString>& rows)
{
    if (ListModel* model = m_model->Rows()) {
        model->SetRows(rows);
        m_model->box->View().ForgetSelection();
    }
}

void CATDlgMultiList::RemoveAll()
{
    if (ListModel* model = m_model->Rows()) {
        m_model->box->View().HoldSelection();
        model->RemoveRows();
    }
}

int CATDlgMultiList::RowCount() const
{
    const ListModel* model = m_model->Rows();
    return model == nullptr ? 0 : static_cast<int>(model->Cells().RowCount());
}

int CATDlgMultiList::ColumnCount() const
{
    const ListModel* model = m_model->Rows();
    return model == nullptr ? 0 : model->Titles().Size();
}

void CATDlgMultiList::SetRowEmphasis(int row, bool emphasised)
{
    if (row >= 1 && row <= RowCount()) {
        m_model->rows->SetEmphasis(static_cast<std::size_t>(row) - 1, emphasised);
    }
}

void CATDlgMultiList::SetCellTooltip(int column, int row, const CATUnicodeString& tooltip)
{
    if (row >= 1 && row <= RowCount() && column >= 0 && column < ColumnCount()) {
        m_model->rows->SetCellTooltip(static_cast<std::size_t>(row) - 1,
                                      static_cast<std::size_t>(column), ToQt(tooltip));
    }
}

void CATDlgMultiList::SetCellMark(int column, int row, bool marked)
{
    if (row >= 1 && row <= RowCount() && column >= 0 && column < ColumnCount()) {
        m_model->rows->SetMark(static_cast<std::size_t>(row) - 1, static_cast<std::size_t>(column),
                               marked);
    }
}

int CATDlgMultiList::SelectedRow() const
{
    return m_model->Rows() == nullptr ? 0 : m_model->box->View().CurrentOwnerRow() + 1;
}

void CATDlgMultiList::SelectRow(int row)
{
    if (ListModel* model = m_model->Rows()) {
        model->Settle();
        m_model->box->View().SelectOwnerRow(row >= 1 && row <= RowCount() ? row - 1 : -1);
    }
}

void CATDlgMultiList::SetEmptyText(const CATUnicodeString& text)
{
    if (m_model->Rows() != nullptr) {
        m_model->box->View().SetEmptyText(ToQt(text));
    }
}

void CATDlgMultiList::SetVisibleLines(int lines)
{
    if (m_model->Rows() != nullptr) {
        m_model->box->View().SetVisibleLines(lines);
    }
}

void CATDlgMultiList::SetVisibleTextWidth(int characters)
{
    if (m_model->Rows() != nullptr) {
        m_model->box->View().SetVisibleCharacters(characters);
    }
}
