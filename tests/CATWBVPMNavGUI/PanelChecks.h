#pragma once

#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgMultiList.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>
#include <QToolTip>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

/// What tests of panels look at, whichever panel it is.

/// The first control of that name below the parent; null when there is none.
template <class T>
T* FindBelow(const CATCommand& parent, const char* name)
{
    for (int position = 1; position <= parent.ChildCount(); ++position) {
        CATCommand* child = parent.Child(position);
        auto* wanted = dynamic_cast<T*>(child);
        if (wanted != nullptr && child->Name() == name) {
            return wanted;
        }
        if (T* found = FindBelow<T>(*child, name)) {
            return found;
        }
    }
    return nullptr;
}

inline QTableView* ViewOf(const CATDlgMultiList& list)
{
    QWidget* widget = list.Widget();
    if (widget == nullptr) {
        throw std::logic_error("the list has no widget: its window was never built");
    }
    auto* view = qobject_cast<QTableView*>(widget);
    return view != nullptr ? view : widget->findChild<QTableView*>();
}

/// The row's cells; rows count from 1.
inline std::vector<std::string> CellsOf(const CATDlgMultiList& list, int row)
{
    std::vector<std::string> cells;
    for (int column = 0; column < list.ColumnCount(); ++column) {
        cells.push_back(list.Cell(column, row).ToStdString());
    }
    return cells;
}

inline std::vector<std::string> LinesOf(const CATDlgCombo& combo)
{
    std::vector<std::string> lines;
    for (int line = 0; line < combo.LineCount(); ++line) {
        lines.push_back(combo.Line(line).ToStdString());
    }
    return lines;
}

/// Until the windows show what the program wrote.
inline void Settle()
{
    for (int round = 0; round < 3; ++round) {
        CATDlgApplication::ProcessEvents();
    }
}

/// Where the control of that name stands in the area.
inline QRect PlaceIn(const QWidget& area, const char* name)
{
    const auto* widget = area.findChild<QWidget*>(name);
    if (widget == nullptr || !widget->isVisible()) {
        ADD_FAILURE() << "no visible " << name;
        return {};
    }
    return {widget->mapTo(&area, QPoint(0, 0)), widget->size()};
}

/// What the tooltip at that place of the widget says.
inline std::string TooltipAt(QWidget& widget, const QPoint& place)
{
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::text().toStdString();
}

inline bool Says(const std::string& tooltip, const QString& whole)
{
    // Tooltips are made of plain text, in which blanks may be kept as unbreakable ones.
    const QString plain =
        QString::fromStdString(tooltip).remove(QChar(0xa0)).remove(QLatin1Char(' '));
    QString wanted = whole.split(QLatin1Char('\n')).first();
    wanted.remove(QLatin1Char(' '));
    return plain.contains(wanted) ||
           QString::fromStdString(tooltip).toHtmlEscaped().contains(whole.toHtmlEscaped());
}

/// Every label shows its text whole, or the whole text stands in its tooltip.
inline void ExpectNoLabelIsCutInSilence(QWidget& window)
{
    for (QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->isVisible()) {
            continue;
        }
        EXPECT_GE(label->contentsRect().height(), label->fontMetrics().height())
            << label->objectName().toStdString();
        int widest = 0;
        for (const QString& line : label->text().split(QLatin1Char('\n'))) {
            widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
        }
        if (widest > label->contentsRect().width()) {
            EXPECT_TRUE(Says(TooltipAt(*label, label->rect().center()), label->text()))
                << label->objectName().toStdString();
        }
    }
}

/// No visible control reaches beyond the window or stands over another one.
inline void ExpectNothingLeavesTheWindow(QWidget& window)
{
    const QRect room = window.rect();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->isWindow() || widget->objectName().isEmpty() ||
            widget->objectName().startsWith(QLatin1String("qt_"))) {
            continue;
        }
        const QRect place(widget->mapTo(&window, QPoint(0, 0)), widget->size());
        EXPECT_TRUE(room.contains(place)) << widget->objectName().toStdString();
        for (QObject* other : widget->parentWidget()->children()) {
            const auto* sibling = qobject_cast<QWidget*>(other);
            if (sibling != nullptr && sibling != widget && sibling->isVisible() &&
                !sibling->objectName().isEmpty() &&
                !sibling->objectName().startsWith(QLatin1String("qt_"))) {
                EXPECT_FALSE(widget->geometry().intersects(sibling->geometry()))
                    << widget->objectName().toStdString() << " and "
                    << sibling->objectName().toStdString();
            }
        }
    }
}

/// A list's titles are whole, numbers stand right, and what is cut in a cell stands in its tooltip.
inline void ExpectListIsReadable(QTableView& view)
{
    const QAbstractItemModel& model = *view.model();
    const QFontMetrics metrics = view.fontMetrics();
    for (int column = 0; column < model.columnCount(); ++column) {
        const QString title = model.headerData(column, Qt::Horizontal).toString();
        EXPECT_LE(metrics.horizontalAdvance(title), view.columnWidth(column))
            << title.toStdString();
        for (int row = 0; row < std::min(model.rowCount(), 3); ++row) {
            const QModelIndex cell = model.index(row, column);
            view.scrollTo(cell);
            const QString text = cell.data().toString();
            const QVariant font = cell.data(Qt::FontRole);
            const int width = (font.isValid() ? QFontMetrics(font.value<QFont>()) : metrics)
                                  .horizontalAdvance(text);
            const QRect rect = view.visualRect(cell).intersected(view.viewport()->rect());
            // Cells have room of 6 pixels at either side.
            if (width > view.columnWidth(column) - 12 && !rect.isEmpty()) {
                EXPECT_TRUE(Says(TooltipAt(*view.viewport(), rect.center()), text))
                    << title.toStdString() << ": " << text.toStdString();
            }
        }
    }
    view.scrollToTop();
}

inline void ExpectEveryColumnIsReachedByKeys(QTableView& view)
{
    view.setFocus();
    view.setCurrentIndex(view.model()->index(0, 0));
    view.scrollTo(view.currentIndex());
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        EXPECT_EQ(view.currentIndex().column(), column);
        const QRect cell = view.visualRect(view.currentIndex());
        EXPECT_TRUE(view.viewport()->rect().intersects(cell)) << column;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QApplication::sendEvent(&view, &press);
    }
}
