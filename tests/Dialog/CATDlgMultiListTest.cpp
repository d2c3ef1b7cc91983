#include "MultiListTesting.h"

#include "CATStatus.h"

namespace
{

TEST_F(CATDlgMultiListTest, TitlesFixTheColumns)
{
    EXPECT_EQ(m_list.ColumnCount(), 2);
    EXPECT_EQ(m_list.ColumnTitles(), (CATListValCATUnicodeString{"Name", "Mass"}));
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal).toString(), "Mass");
}

TEST_F(CATDlgMultiListTest, CellsAreWrittenAndReadWithRowsFromOneAndColumnsFromZero)
{
    EXPECT_EQ(m_list.SetCell(0, 1, "wheel"), S_OK);
    EXPECT_EQ(m_list.SetCell(1, 1, "2kg"), S_OK);
    EXPECT_EQ(m_list.SetCell(0, 1, "wing"), S_OK);
    EXPECT_EQ(m_list.Cell(0, 1), "wing");
    EXPECT_EQ(m_list.Cell(1, 1), "2kg");
    EXPECT_EQ(m_list.RowCount(), 1);
    EXPECT_EQ(m_list.Cell(0, 0), "");
    EXPECT_EQ(m_list.Cell(0, 2), "");
    EXPECT_EQ(m_list.Cell(2, 1), "");
    EXPECT_EQ(m_list.Cell(-1, 1), "");
}

TEST_F(CATDlgMultiListTest, OnlyTheNextRowIsAppendedAndOnlyWithTheOption)
{
    EXPECT_EQ(m_list.SetCell(0, 1, "x", 0), S_FALSE);
    EXPECT_EQ(m_list.SetCell(0, 2, "x", 64), S_FALSE);
    EXPECT_EQ(m_list.SetCell(0, 0, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.SetCell(2, 1, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.SetCell(-1, 1, "x"), E_INVALIDARG);
    EXPECT_EQ(m_list.RowCount(), 0);
    EXPECT_EQ(m_list.SetCell(0, 1, "x", 64), S_OK);
    EXPECT_EQ(m_list.SetCell(0, 1, "y", 0), S_OK);
    EXPECT_EQ(m_list.Cell(0, 1), "y");
}

TEST_F(CATDlgMultiListTest, ViewShowsWhatTheOwnerWrote)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    EXPECT_EQ(Shown(), (Names{"wheel", "wing"}));
    m_list.SetCell(0, 2, "rudder");
    Settle();
    EXPECT_EQ(Shown(), (Names{"wheel", "rudder"}));
    m_list.RemoveAll();
    Settle();
    EXPECT_EQ(Shown(), Names{});
    EXPECT_EQ(m_list.RowCount(), 0);
}

TEST_F(CATDlgMultiListTest, WholeRowsReplaceAll)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    m_list.SetRows({{"rudder", "4kg"}});
    Settle();
    EXPECT_EQ(Shown(), Names{"rudder"});
    EXPECT_EQ(m_list.Cell(1, 1), "4kg");
}

TEST_F(CATDlgMultiListTest, ClickOnATitleSortsUpThenDownThenAsDelivered)
{
    Fill({{"b", "9kg"}, {"c", "10kg"}, {"a", "1kg"}});
    Show();
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"c", "b", "a"}));
    ClickTitle(1);
    EXPECT_EQ(Shown(), (Names{"b", "c", "a"}));
    EXPECT_EQ(m_list.Cell(0, 1), "b"); // the owner's rows never moved
}

TEST_F(CATDlgMultiListTest, RowsWrittenIntoASortedListTakeTheirPlaceInIt)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}});
    Show();
    ClickTitle(1);
    m_list.SetCell(0, 3, "a");
    m_list.SetCell(1, 3, "1kg");
    Settle();
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    EXPECT_EQ(m_list.Cell(0, 3), "a");
    m_list.SetCell(1, 1, "9kg");
    Settle();
    EXPECT_EQ(Shown(), (Names{"a", "c", "b"}));
}

TEST_F(CATDlgMultiListTest, SelectedRowIsTheOwnersAndStaysSelectedWhileSorting)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}, {"a", "1kg"}});
    Show();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    ClickTitle(1);
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    ClickCell(0, 0);
    EXPECT_EQ(m_list.SelectedRow(), 3);
    EXPECT_EQ(rows, std::vector<int>{3});
    ClickTitle(1);
    EXPECT_EQ(m_list.SelectedRow(), 3);
    EXPECT_EQ(View().currentIndex().row(), 2);
    EXPECT_EQ(rows.size(), 1U);
}

TEST_F(CATDlgMultiListTest, SelectionSurvivesOtherTitlesOfTheSameColumns)
{
    Fill({{"wheel", "2kg"}, {"wing", "30kg"}});
    Show();
    ClickCell(1, 1);
    m_list.SetColumnTitles({"Name", "Mass [lb], as the user has it"});
    Settle();
    EXPECT_EQ(m_list.SelectedRow(), 2);
    EXPECT_TRUE(View().selectionModel()->isSelected(View().model()->index(1, 1)));
    EXPECT_EQ(View().currentIndex(), View().model()->index(1, 1));
    EXPECT_EQ(View().model()->headerData(1, Qt::Horizontal).toString(),
              "Mass [lb], as the user has it");
    EXPECT_GE(View().columnWidth(1),
              View().fontMetrics().horizontalAdvance("Mass [lb], as the user has it"));
}

TEST_F(CATDlgMultiListTest, ProgramSelectsARowWithoutTellingAnybody)
{
    Fill({{"b", "2kg"}, {"c", "3kg"}});
    const auto& rows = Notes(m_list, CATDlgMultiList::RowSelected);
    m_list.SelectRow(2);
    EXPECT_EQ(m_list.SelectedRow(), 2);
    EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
    m_list.SelectRow(0);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    m_list.SelectRow(7);
    EXPECT_EQ(m_list.SelectedRow(), 0);
    m_list.SelectRow(1);
    m_list.RemoveAll();
    EXPECT_EQ(m_list.SelectedRow(), 0);
    EXPECT_TRUE(rows.empty());
}

TEST_F(CATDlgMultiListTest, RowIsSelectedBeforeTheEventLoopCameRound)
{
    m_list.SetCell(0, 1, "wheel");
    m_list.SelectRow(1);
    EXPECT_EQ(View().currentIndex().row(), 0);
}

TEST_F(CATDlgMultiListTest, FilterLineComesWithManyRowsAndWithCtrlF)
{
    Fill({{"a", "1kg"}});
    Show();
    EXPECT_FALSE(Filter().isVisible());
    m_list.SelectRow(1);
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Filter().isVisible());
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    EXPECT_FALSE(Filter().isVisible());
    EXPECT_TRUE(m_window.IsVisible()); // Esc left the filter and not the window
    // Twelve rows, as many as a mass type has figures, are looked over at a glance.
    for (int row = 1; row <= 12; ++row) {
        m_list.SetCell(0, row, "x");
    }
    Settle();
    EXPECT_FALSE(Filter().isVisible());
    m_list.SetCell(0, 13, "x");
    Settle();
    EXPECT_TRUE(Filter().isVisible());
}

TEST_F(CATDlgMultiListTest, FilterHidesRowsWithoutTakingThemAway)
{
    Fill({{"wheel", "1kg"}, {"wing", "2kg"}, {"rudder", "3kg"}});
    Show();
    QTest::keyClicks(&Filter(), "w");
    EXPECT_EQ(Shown(), (Names{"wheel", "wing"}));
    EXPECT_EQ(m_list.RowCount(), 3);
    m_list.SetCell(0, 4, "window");
    m_list.SetCell(0, 5, "seat");
    Settle();
    EXPECT_EQ(Shown(), (Names{"wheel", "wing", "window"}));
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    EXPECT_EQ(Shown(), (Names{"wheel", "wing", "rudder", "window", "seat"}));
}

TEST_F(CATDlgMultiListTest, ColumnsMoreThanBeforeKeepTheirCells)
{
    Fill({{"wheel", "2kg"}});
    m_list.SetColumnTitles({"Name", "Mass", "Material"});
    m_list.SetCell(2, 1, "steel");
    Settle();
    EXPECT_EQ(m_list.Cell(0, 1), "wheel");
    EXPECT_EQ(m_list.Cell(1, 1), "2kg");
    EXPECT_EQ(View().model()->index(0, 2).data().toString(), "steel");
}

TEST_F(CATDlgMultiListTest, RowsMayBeWrittenBeforeTheirTitles)
{
    auto* list = new CATDlgMultiList(&m_window, "Other");
    list->SetRows({{"wheel"}, {"wing", "30kg"}});
    list->SetColumnTitles({"Name", "Mass"});
    EXPECT_EQ(list->RowCount(), 2);
    EXPECT_EQ(list->Cell(0, 1), "wheel");
    EXPECT_EQ(list->Cell(1, 2), "30kg");
}

TEST_F(CATDlgMultiListTest, KeysSortByTheColumnOfTheCurrentCell)
{
    Fill({{"b", "2kg"}, {"a", "1kg"}, {"c", "3kg"}});
    Show();
    ClickCell(0, 1);
    QTest::keyClick(&View(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"a", "b", "c"}));
    QTest::keyClick(&View(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"c", "b", "a"}));
    QTest::keyClick(&View(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Shown(), (Names{"b", "a", "c"}));
}

TEST_F(CATDlgMultiListTest, EmptyListSaysWhyItIsEmpty)
{
    m_list.SetEmptyText("No document revisions");
    Show();
    const QImage with = View().viewport()->grab().toImage();
    m_list.SetEmptyText("");
    EXPECT_NE(with, View().viewport()->grab().toImage());
}

TEST_F(CATDlgMultiListTest, FilterThatNoRowPassesSaysSo)
{
    Fill({{"wheel", "1kg"}});
    m_list.SetEmptyText("No parts");
    Show();
    const auto picture = [this](const char* filter) {
        Filter().setText(filter);
        Settle();
        EXPECT_EQ(View().model()->rowCount(), 0);
        return View().viewport()->grab().toImage();
    };
    // The text that was looked for stands in it.
    EXPECT_NE(picture("rudder"), picture("seat"));
    const QImage none = picture("rudder");
    Filter().clear();
    m_list.RemoveAll();
    Settle();
    EXPECT_NE(View().viewport()->grab().toImage(), none);
}

TEST_F(CATDlgMultiListTest, HundredThousandRowsAreShownSortedAndFiltered)
{
    constexpr int kRows = 100000;
    for (int row = 1; row <= kRows; ++row) {
        m_list.SetCell(0, row, "part " + std::to_string(row));
        m_list.SetCell(1, row, std::to_string(kRows - row) + "kg");
    }
    Show();
    EXPECT_EQ(View().model()->rowCount(), kRows);
    ClickTitle(1);
    EXPECT_EQ(View().model()->index(0, 0).data().toString(), "part 100000");
    EXPECT_EQ(View().model()->index(kRows - 1, 0).data().toString(), "part 1");
    Filter().setText("77777");
    // The part of that number, and the one whose mass it is.
    EXPECT_EQ(View().model()->rowCount(), 2);
    EXPECT_EQ(View().model()->index(0, 1).data().toString(), "22223kg");
    EXPECT_EQ(View().model()->index(1, 1).data().toString(), "77777kg");
}

} // namespace
