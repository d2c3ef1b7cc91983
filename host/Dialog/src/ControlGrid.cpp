#include "ControlGrid.h"

#include "TextLabel.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <QVariant>
#include <QWidget>

namespace
{

constexpr const char* kNamedByProgram = "wbNamedByProgram";

/// The field that a placed widget holds: the list within its box, the editor itself, or null.
QWidget* FieldIn(QWidget* placed)
{
    if (qobject_cast<QLineEdit*>(placed) != nullptr ||
        qobject_cast<QComboBox*>(placed) != nullptr ||
        qobject_cast<QAbstractSpinBox*>(placed) != nullptr) {
        return placed;
    }
    return placed == nullptr
               ? nullptr
               : placed->findChild<QTableView*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

ControlGrid::ControlGrid(QWidget* container) : QGridLayout(container)
{}

void ControlGrid::setGeometry(const QRect& rect)
{
    setAlignment((expandingDirections() & Qt::Vertical) != 0 ? Qt::Alignment() : Qt::AlignTop);
    QGridLayout::setGeometry(rect);
}

QWidget* ControlGrid::WidgetAt(int row, int column) const
{
    const QLayoutItem* item = row < 0 || column < 0 || row >= rowCount() || column >= columnCount()
                                  ? nullptr
                                  : itemAtPosition(row, column);
    return item == nullptr ? nullptr : item->widget();
}

void NameFieldAfter(const ControlGrid& grid, QWidget* label)
{
    auto* text = dynamic_cast<TextLabel*>(label);
    const int index = text == nullptr ? -1 : grid.indexOf(label);
    if (index < 0) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid.getItemPosition(index, &row, &column, &rows, &columns);
    QWidget* field = FieldIn(grid.WidgetAt(row, column + columns));
    if (field == nullptr) {
        return;
    }
    text->Announce(field);
    if (!field->property(kNamedByProgram).toBool()) {
        field->setAccessibleName(text->SpokenText());
    }
}

void NameFieldByLabel(const ControlGrid& grid, QWidget* field)
{
    const int index = grid.indexOf(field);
    if (index < 0) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid.getItemPosition(index, &row, &column, &rows, &columns);
    if (QWidget* before = grid.WidgetAt(row, column - 1)) {
        NameFieldAfter(grid, before);
    }
}

void GiveAccessibleName(QWidget* widget, const QString& name)
{
    widget->setAccessibleName(name);
    widget->setProperty(kNamedByProgram, true);
}
