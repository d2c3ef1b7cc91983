#pragma once

#include <QGridLayout>

/// The grid of a container. Controls stay together at the top when nothing in the grid can use more
/// height; a list or a row with stretch takes all of it.
class ControlGrid : public QGridLayout
{
public:
    explicit ControlGrid(QWidget* container);
    void setGeometry(const QRect& rect) override;
    /// The control at that cell, or null.
    QWidget* WidgetAt(int row, int column) const;
};

/// Names the field that stands directly after `label` in its row after the label, and makes it the
/// label's buddy; null where no field stands there.
void NameFieldAfter(const ControlGrid& grid, QWidget* label);
/// The same, seen from a field that was just placed.
void NameFieldByLabel(const ControlGrid& grid, QWidget* field);
/// A name given by program is not replaced by the label's.
void GiveAccessibleName(QWidget* widget, const QString& name);
