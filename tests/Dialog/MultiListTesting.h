#pragma once

#include "CATDlgMultiList.h"
#include "DialogSession.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTableView>
#include <QToolTip>

#include <string>
#include <utility>
#include <vector>

/// A list of two columns in a window of 600 x 400 pixels.
class CATDlgMultiListTest : public DialogSession
{
protected:
    using Names = std::vector<std::string>;

    CATDlgMultiListTest() : m_list(*new CATDlgMultiList(&m_window, "List"))
    {
        m_list.SetColumnTitles({"Name", "Mass"});
        m_list.SetColumnIsNumber(1, true);
        m_window.SetPreferredSize(600, 400);
    }

    void Fill(std::initializer_list<std::pair<const char*, const char*>> rows)
    {
        int row = 0;
        for (const auto& [name, mass] : rows) {
            ++row;
            m_list.SetCell(0, row, name);
            m_list.SetCell(1, row, mass);
        }
        Settle();
    }
    QTableView& View() { return *qobject_cast<QTableView*>(m_list.Widget()); }
    /// The names as they stand on the screen.
    std::vector<std::string> Shown()
    {
        std::vector<std::string> names;
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            names.push_back(View().model()->index(row, 0).data().toString().toStdString());
        }
        return names;
    }
    void ClickTitle(int column)
    {
        QHeaderView& titles = *View().horizontalHeader();
        const QPoint middle(titles.sectionViewportPosition(column) + titles.sectionSize(column) / 2,
                            titles.height() / 2);
        QTest::mouseClick(titles.viewport(), Qt::LeftButton, {}, middle);
        Settle();
    }
    /// The dark pixels of a title, one text a column of pixels from the first that has some to the
    /// last.
    Names InkOfTitle(int column)
    {
        constexpr int kDark = 110;
        QHeaderView& titles = *View().horizontalHeader();
        const QImage image = titles.viewport()->grab().toImage();
        const int begin = titles.sectionViewportPosition(column);
        Names ink;
        std::size_t inked = 0;
        for (int x = begin; x < begin + titles.sectionSize(column) - 1; ++x) {
            std::string pixels;
            for (int y = 0; y < image.height(); ++y) {
                pixels += qGray(image.pixel(x, y)) < kDark ? '#' : ' ';
            }
            const bool isInked = pixels.find('#') != std::string::npos;
            if (isInked || !ink.empty()) {
                ink.push_back(pixels);
            }
            inked = isInked ? ink.size() : inked;
        }
        ink.resize(inked);
        return ink;
    }
    void ClickCell(int row, int column)
    {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {},
                          View().visualRect(View().model()->index(row, column)).center());
    }
    QString TooltipOf(int row, int column)
    {
        const QPoint middle = View().visualRect(View().model()->index(row, column)).center();
        QHelpEvent event(QEvent::ToolTip, middle, View().viewport()->mapToGlobal(middle));
        QApplication::sendEvent(View().viewport(), &event);
        return QToolTip::text();
    }
    QLineEdit& Filter() { return *Child<QLineEdit>(m_window, "ListFilter"); }

    CATDlgMultiList& m_list;
};
