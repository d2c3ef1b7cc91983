#include "MultiListTesting.h"

#include <QScrollBar>

namespace
{

/// Rows that are taken away and written anew at once, as when an option of their display changes.
class RefilledList : public CATDlgMultiListTest
{
protected:
    RefilledList()
    {
        WriteRows("kg");
        Show();
    }
    void WriteRows(const std::string& unit, int count = 200)
    {
        for (int row = 1; row <= count; ++row) {
            m_list.SetCell(0, row, "part " + std::to_string(row));
            m_list.SetCell(1, row, std::to_string(count - row) + unit);
        }
    }
    void Refill(const std::string& unit, int count = 200)
    {
        m_list.RemoveAll();
        WriteRows(unit, count);
        Settle();
    }
    std::string TopCell()
    {
        return View().model()->index(View().rowAt(2), 1).data().toString().toStdString();
    }
};

TEST_F(RefilledList, KeepsTheOrderThatTheUserAskedFor)
{
    ClickTitle(1);
    EXPECT_EQ(Shown().front(), "part 200");
    Refill("");
    EXPECT_EQ(Shown().front(), "part 200");
    EXPECT_EQ(Shown().back(), "part 1");
    EXPECT_EQ(TopCell(), "0");
}

TEST_F(RefilledList, KeepsTheFilter)
{
    QTest::keyClicks(&Filter(), "19");
    const Names before = Shown();
    // Twelve names, with 19, 119 and 190 to 199, and the twelve masses with the same.
    EXPECT_EQ(before.size(), 24U);
    Refill("");
    EXPECT_EQ(Shown(), before);
    EXPECT_EQ(Filter().text(), "19");
}

TEST_F(RefilledList, KeepsTheSelectionWithoutTellingAnybody)
{
    ClickTitle(1);
    ClickCell(3, 0);
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    EXPECT_EQ(m_list.SelectedRow(), 197);
    m_list.RemoveAll();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    WriteRows("lb");
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 197);
    EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(3, 0)));
    EXPECT_TRUE(rows.empty());
    Refill("g");
    EXPECT_EQ(m_list.SelectedRow(), 197);
}

TEST_F(RefilledList, ForgetsTheSelectionOfOtherRows)
{
    ClickCell(3, 0);
    Refill("kg", 199);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_FALSE(View().selectionModel()->hasSelection());
    Refill("kg");
    ClickCell(3, 0);
    m_list.RemoveAll();
    WriteRows("kg");
    m_list.SetCell(0, 4, "another part");
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_FALSE(View().selectionModel()->hasSelection());
}

TEST_F(RefilledList, TakesTheRowThatTheProgramSelectsInstead)
{
    ClickCell(3, 0);
    m_list.RemoveAll();
    WriteRows("lb");
    m_list.SelectRow(7);
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 7);
}

TEST_F(RefilledList, KeepsThePlaceAndTheWidths)
{
    View().setColumnWidth(0, 222);
    View().verticalScrollBar()->setValue(View().verticalScrollBar()->maximum() / 2);
    const int place = View().verticalScrollBar()->value();
    const std::string top = TopCell();
    ASSERT_GT(place, 0);
    Refill("kg");
    EXPECT_EQ(View().verticalScrollBar()->value(), place);
    EXPECT_EQ(View().columnWidth(0), 222);
    EXPECT_EQ(TopCell(), top);
}

TEST_F(RefilledList, LosesItsMarksAndTooltips)
{
    m_list.SetCellMark(0, 1, true);
    m_list.SetRowEmphasis(2, true);
    m_list.SetCellTooltip(0, 1, "before: wing");
    Refill("kg");
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::FontRole).isValid());
    EXPECT_FALSE(View().model()->index(1, 0).data(Qt::FontRole).isValid());
    EXPECT_FALSE(View().model()->index(0, 0).data(Qt::ToolTipRole).isValid());
}

TEST_F(RefilledList, ShowsNothingOfRowsThatAreGone)
{
    m_list.RemoveAll();
    // The view asks before it has heard of it.
    EXPECT_EQ(View().model()->index(150, 0).data().toString(), "");
    Settle();
    EXPECT_EQ(Shown(), Names{});
    EXPECT_EQ(m_list.SelectedRow(), 0);
}

} // namespace
