#include "StoryControls.h"

#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATSession.h"
#include "QtTexts.h"

#include <QAbstractItemModel>
#include <QJsonArray>
#include <QLineEdit>
#include <QTableView>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace
{

/// Every dialog of the tree below `command`, older ones first.
void CollectWindows(const CATCommand& command, std::vector<CATDialog*>& windows)
{
    for (int position = 1; position <= command.ChildCount(); ++position) {
        if (auto* window = dynamic_cast<CATDlgDialog*>(command.Child(position))) {
            windows.push_back(window);
        }
        CollectWindows(*command.Child(position), windows);
    }
}

std::vector<CATDialog*> Windows()
{
    std::vector<CATDialog*> windows;
    CollectWindows(CATSession::Root(), windows);
    return windows;
}

/// The first control of that name below `parent`, its own windows left out.
CATDialog* FindBelow(const CATCommand& parent, std::string_view name)
{
    for (int position = 1; position <= parent.ChildCount(); ++position) {
        auto* child = dynamic_cast<CATDialog*>(parent.Child(position));
        if (child == nullptr || dynamic_cast<CATDlgDialog*>(child) != nullptr) {
            continue;
        }
        if (child->Name().View() == name) {
            return child;
        }
        if (CATDialog* found = FindBelow(*child, name)) {
            return found;
        }
    }
    return nullptr;
}

/// The newest window of a name, a visible one before a hidden one.
CATDialog* NewestWindow(std::string_view name)
{
    CATDialog* newest = nullptr;
    for (CATDialog* window : Windows()) {
        if (window->Name().View() == name &&
            (newest == nullptr || window->IsVisible() || !newest->IsVisible())) {
            newest = window;
        }
    }
    return newest;
}

/// The control at a path of names below a window: "Control", or "Page/Control" where pages share
/// names.
CATDialog* FindInWindow(std::string_view windowName, std::string_view path, std::string& problem)
{
    CATDialog* control = NewestWindow(windowName);
    if (control == nullptr) {
        problem = "there is no window \"" + std::string(windowName) + "\"";
        return nullptr;
    }
    while (!path.empty()) {
        const std::string_view name = path.substr(0, path.find('/'));
        path.remove_prefix(std::min(path.size(), name.size() + 1));
        CATDialog* found = FindBelow(*control, name);
        if (found == nullptr) {
            problem = "\"" + control->Name().ToStdString() + "\" has no control \"" +
                      std::string(name) + "\"";
            return nullptr;
        }
        control = found;
    }
    return control;
}

/// The filter of a list, by the list's name with "Filter" behind; null when there is none.
QLineEdit* FilterOf(const std::string& name)
{
    constexpr std::string_view kEnd = "Filter";
    const std::size_t length = name.size() - std::min(name.size(), kEnd.size());
    std::string problem;
    const CATDialog* list =
        name.substr(length) == kEnd ? FindControl(name.substr(0, length), problem) : nullptr;
    // It stands in one box with the table.
    return dynamic_cast<const CATDlgMultiList*>(list) == nullptr
               ? nullptr
               : list->Widget()->parentWidget()->findChild<QLineEdit*>(
                     ToQString(list->Name() + kEnd));
}

QString HeaderText(const QAbstractItemModel& model, int column)
{
    return model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

QJsonObject DumpControl(const CATDialog& control);

QJsonArray DumpChildren(const CATDialog& parent)
{
    QJsonArray children;
    for (int position = 1; position <= parent.ChildCount(); ++position) {
        const auto* child = dynamic_cast<const CATDialog*>(parent.Child(position));
        if (child != nullptr && dynamic_cast<const CATDlgDialog*>(child) == nullptr) {
            children.append(DumpControl(*child));
        }
    }
    return children;
}

QJsonArray DumpRows(const QTableView& table)
{
    const QAbstractItemModel& model = *table.model();
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells.append(model.index(row, column).data().toString());
        }
        rows.append(cells);
    }
    return rows;
}

QJsonObject DumpControl(const CATDialog& control)
{
    QJsonObject object;
    object["name"] = ToQString(control.Name());
    if (const QWidget* widget = control.Widget()) {
        object["kind"] = QString::fromLatin1(widget->metaObject()->className());
        object["focus"] = widget->window()->focusWidget() == widget;
    }
    object["text"] = VisibleText(control);
    object["tooltip"] = ToQString(control.Tooltip());
    object["visible"] = control.IsVisible();
    object["enabled"] = control.IsSensitive();
    object["style"] = QString("0x%1").arg(static_cast<unsigned>(control.Style()), 0, 16);
    object["justification"] = control.Justification();
    if (const auto* check = dynamic_cast<const CATDlgCheckButton*>(&control)) {
        object["checked"] = check->IsChecked();
    }
    if (const auto* radio = dynamic_cast<const CATDlgRadioButton*>(&control)) {
        object["checked"] = radio->IsChecked();
    }
    if (const auto* spinner = dynamic_cast<const CATDlgSpinner*>(&control)) {
        object["value"] = spinner->Value();
    }
    if (const auto* combo = dynamic_cast<const CATDlgCombo*>(&control)) {
        QJsonArray lines;
        for (int index = 0; index < combo->LineCount(); ++index) {
            lines.append(ToQString(combo->Line(index)));
        }
        object["lines"] = lines;
    }
    if (dynamic_cast<const CATDlgMultiList*>(&control) != nullptr) {
        if (const QTableView* table = SeenTable(control)) {
            QJsonArray titles;
            for (int column = 0; column < table->model()->columnCount(); ++column) {
                titles.append(HeaderText(*table->model(), column));
            }
            object["columns"] = titles;
            object["rows"] = DumpRows(*table);
        }
    }
    const QJsonArray children = DumpChildren(control);
    if (!children.isEmpty()) {
        object["controls"] = children;
    }
    return object;
}

} // namespace

CATDialog* FindControl(std::string_view name, std::string& problem)
{
    const std::size_t slash = name.find('/');
    if (slash != std::string_view::npos) {
        return FindInWindow(name.substr(0, slash), name.substr(slash + 1), problem);
    }
    if (CATDialog* window = NewestWindow(name)) {
        return window;
    }
    CATDialog* found = nullptr;
    for (CATDialog* window : Windows()) {
        CATDialog* control = window->IsVisible() ? FindBelow(*window, name) : nullptr;
        if (control != nullptr && found != nullptr) {
            problem = "more than one window has a control \"" + std::string(name) +
                      "\": say Window/Control";
            return nullptr;
        }
        found = control != nullptr ? control : found;
    }
    if (found == nullptr) {
        problem = "no open window has a control \"" + std::string(name) + "\"";
    }
    return found;
}

QLineEdit* FindLine(const std::string& name, std::string& problem)
{
    CATDialog* control = FindControl(name, problem);
    if (control == nullptr) {
        return FilterOf(name);
    }
    problem = "this control takes no text";
    QWidget* widget = control->Widget();
    return dynamic_cast<CATDlgSpinner*>(control) != nullptr ? widget->findChild<QLineEdit*>()
                                                            : qobject_cast<QLineEdit*>(widget);
}

const QTableView* SeenTable(const CATDialog& list)
{
    const QWidget* widget = list.Widget();
    if (widget == nullptr) {
        return nullptr;
    }
    const auto* table = qobject_cast<const QTableView*>(widget);
    return table != nullptr ? table : widget->findChild<QTableView*>();
}

QString VisibleText(const CATDialog& control)
{
    if (const auto* editor = dynamic_cast<const CATDlgEditor*>(&control)) {
        return ToQString(editor->Text());
    }
    if (const auto* spinner = dynamic_cast<const CATDlgSpinner*>(&control)) {
        return ToQString(spinner->Text());
    }
    if (const auto* combo = dynamic_cast<const CATDlgCombo*>(&control)) {
        return combo->SelectedIndex() < 0 ? QString()
                                          : ToQString(combo->Line(combo->SelectedIndex()));
    }
    if (const auto* check = dynamic_cast<const CATDlgCheckButton*>(&control)) {
        return check->IsChecked() ? "on" : "off";
    }
    if (const auto* radio = dynamic_cast<const CATDlgRadioButton*>(&control)) {
        return radio->IsChecked() ? "on" : "off";
    }
    if (const auto* list = dynamic_cast<const CATDlgMultiList*>(&control)) {
        return QString::number(list->RowCount());
    }
    return ToQString(control.Title());
}

int SeenColumn(const CATDialog& list, const std::string& column)
{
    const QTableView* table = SeenTable(list);
    if (table == nullptr) {
        return -1;
    }
    const QString wanted = QString::fromStdString(column);
    const QAbstractItemModel& model = *table->model();
    for (int index = 0; index < model.columnCount(); ++index) {
        const QString title = HeaderText(model, index);
        if (title == wanted || title.startsWith(wanted + " [")) {
            return index;
        }
    }
    bool isNumber = false;
    const int index = wanted.toInt(&isNumber);
    return isNumber && index >= 0 && index < model.columnCount() ? index : -1;
}

bool SeenCell(const CATDialog& list, const std::string& row, const std::string& column,
              QString& text, std::string& problem)
{
    const QTableView* table = SeenTable(list);
    if (table == nullptr) {
        problem = "this control is no list";
        return false;
    }
    const int columnIndex = SeenColumn(list, column);
    const int rowIndex = QString::fromStdString(row).toInt() - 1;
    const QAbstractItemModel& model = *table->model();
    if (columnIndex < 0) {
        QStringList titles;
        for (int index = 0; index < model.columnCount(); ++index) {
            titles << HeaderText(model, index);
        }
        problem =
            "the list has no column \"" + column + "\"; it has " + titles.join(", ").toStdString();
        return false;
    }
    if (rowIndex < 0 || rowIndex >= model.rowCount()) {
        problem = "the list has " + std::to_string(model.rowCount()) + " rows";
        return false;
    }
    text = model.index(rowIndex, columnIndex).data().toString();
    return true;
}

void CloseBoxes()
{
    for (CATDialog* window : Windows()) {
        if (dynamic_cast<CATDlgNotify*>(window) != nullptr && window->IsVisible()) {
            window->Widget()->close();
        }
    }
}

QJsonObject DumpWindows()
{
    QJsonArray windows;
    for (const CATDialog* window : Windows()) {
        if (window->IsVisible()) {
            windows.append(DumpControl(*window));
        }
    }
    return {{"windows", windows}};
}
