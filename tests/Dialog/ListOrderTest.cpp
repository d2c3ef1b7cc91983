#include "ListOrder.h"

#include "CATNumberLocale.h"

#include <gtest/gtest.h>

namespace
{

ListCells Table(std::initializer_list<std::initializer_list<const char*>> rows)
{
    ListCells cells;
    for (const auto& texts : rows) {
        const std::size_t row = cells.RowCount();
        cells.WidenTo(texts.size());
        cells.AppendRow();
        std::size_t column = 0;
        for (const char* text : texts) {
            cells.SetText(row, column, text);
            ++column;
        }
    }
    return cells;
}

ListCells Column(std::initializer_list<const char*> texts)
{
    ListCells cells;
    cells.Clear(1);
    for (const char* text : texts) {
        cells.AppendRow();
        cells.SetText(cells.RowCount() - 1, 0, text);
    }
    return cells;
}

std::vector<int> Sorted(const ListCells& cells, ListSort sort)
{
    return ShownRows(cells, {}, sort, 0);
}

using Order = std::vector<int>;

class ListOrderTest : public testing::Test
{
protected:
    ListOrderTest() { CATUseNumberLocale("C.UTF-8"); }
    ~ListOrderTest() override { CATUseNumberLocale("C.UTF-8"); }
};

TEST_F(ListOrderTest, RowsStandAsDeliveredUntilTheUserAsks)
{
    EXPECT_EQ(Sorted(Column({"b", "a"}), ListSort::AsDelivered), (Order{0, 1}));
}

TEST_F(ListOrderTest, NumbersAreSortedAsNumbersWhateverUnitFollows)
{
    const ListCells rows = Column({"10kg", "9.5kg", "-3kg", "1e3kg", "+2 lb"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{2, 4, 1, 0, 3}));
    EXPECT_EQ(Sorted(rows, ListSort::Down), (Order{3, 0, 1, 4, 2}));
}

TEST_F(ListOrderTest, NumbersAreReadWithTheLocalesSeparator)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    const ListCells rows = Column({"1,75kg", "1,5kg", ",25kg", "1,625kg"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{2, 1, 3, 0}));
}

TEST_F(ListOrderTest, CellsWithoutAValueComeLastInBothDirections)
{
    const ListCells rows = Column({"", "2", "---", "1"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{3, 1, 0, 2}));
    EXPECT_EQ(Sorted(rows, ListSort::Down), (Order{1, 3, 0, 2}));
}

TEST_F(ListOrderTest, EqualRowsKeepTheOwnersOrderInBothDirections)
{
    const ListCells rows = Column({"2", "1", "2", "1"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{1, 3, 0, 2}));
    EXPECT_EQ(Sorted(rows, ListSort::Down), (Order{0, 2, 1, 3}));
}

TEST_F(ListOrderTest, ColumnWithOneTextIsSortedAsText)
{
    const ListCells rows = Column({"10", "9", "Weighed"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{1, 0, 2}));
    EXPECT_EQ(Sorted(rows, ListSort::Down), (Order{2, 0, 1}));
}

TEST_F(ListOrderTest, InfinityIsANumberAndWhatIsNoneIsAText)
{
    EXPECT_EQ(Sorted(Column({"+inf", "2", "-inf"}), ListSort::Up), (Order{2, 1, 0}));
    // Signs come before digits.
    EXPECT_EQ(Sorted(Column({"10", "-nan", "9"}), ListSort::Up), (Order{1, 2, 0}));
}

TEST_F(ListOrderTest, NamesThatTheComputerTakesForNumbersAreTexts)
{
    EXPECT_EQ(Sorted(Column({"Nancy", "Infinity Ltd", "Anna"}), ListSort::Up), (Order{2, 1, 0}));
}

TEST_F(ListOrderTest, TextsAreSortedWithoutRegardToLetterCaseAndByTheirNumbers)
{
    const ListCells rows = Column({"WING.10", "wing.9", "Antenna", "bolt"});
    EXPECT_EQ(Sorted(rows, ListSort::Up), (Order{2, 3, 1, 0}));
}

TEST_F(ListOrderTest, RowThatIsTooShortCountsAsEmpty)
{
    const ListCells rows = Table({{"a"}, {"b", "1"}});
    EXPECT_EQ(ShownRows(rows, {}, ListSort::Up, 1), (Order{1, 0}));
}

TEST_F(ListOrderTest, FilterKeepsRowsThatHoldEveryWordInAnyColumn)
{
    const ListCells rows = Table(
        {{"Left wheel", "Weighed"}, {"Right wheel", "Estimated"}, {"Left wing", "Estimated"}});
    const auto shown = [&](const char* filter) {
        return ShownRows(rows, FilterWords(filter), ListSort::AsDelivered, 0);
    };
    EXPECT_EQ(shown(""), (Order{0, 1, 2}));
    EXPECT_EQ(shown("WHEEL"), (Order{0, 1}));
    EXPECT_EQ(shown("  left   estimated "), (Order{2}));
    EXPECT_EQ(shown("rudder"), Order{});
}

TEST_F(ListOrderTest, FilterKnowsLettersBeyondAscii)
{
    const ListCells rows = Column({"HÖHENRUDER", "Rumpf"});
    EXPECT_EQ(ShownRows(rows, FilterWords("höhe"), ListSort::AsDelivered, 0), (Order{0}));
}

TEST_F(ListOrderTest, FilteredRowsAreSorted)
{
    const ListCells rows = Column({"3kg", "1lb", "2kg"});
    EXPECT_EQ(ShownRows(rows, FilterWords("kg"), ListSort::Up, 0), (Order{2, 0}));
}

} // namespace
