#include "ListCells.h"

#include "CATNumberLocale.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace
{

/// Rows of two columns.
ListCells Cells(std::size_t rows, std::size_t mostBytes = 1000000)
{
    ListCells cells(mostBytes);
    cells.Clear(2);
    for (std::size_t row = 0; row < rows; ++row) {
        cells.AppendRow();
    }
    return cells;
}

class ListCellsTest : public testing::Test
{
protected:
    ~ListCellsTest() override { CATUseNumberLocale("C.UTF-8"); }
};

TEST_F(ListCellsTest, CellsThatNobodyWroteAreEmpty)
{
    const ListCells cells = Cells(2);
    EXPECT_EQ(cells.RowCount(), 2U);
    EXPECT_EQ(cells.ColumnCount(), 2U);
    EXPECT_EQ(cells.Text(0, 0), "");
    EXPECT_EQ(cells.Text(0, 2), "");
    EXPECT_EQ(cells.Text(2, 0), "");
    EXPECT_EQ(cells.Text(static_cast<std::size_t>(-1), 0), "");
}

TEST_F(ListCellsTest, TextsOfEveryLengthAreKept)
{
    ListCells cells = Cells(1);
    for (const std::size_t length : {0U, 1U, 254U, 255U, 256U, 70000U}) {
        const std::string text(length, 'x');
        EXPECT_TRUE(cells.SetText(0, 1, text));
        EXPECT_EQ(cells.Text(0, 1), text);
        EXPECT_EQ(cells.Text(0, 0), "");
    }
}

TEST_F(ListCellsTest, RowsOfManyBlocksKeepTheirTexts)
{
    constexpr std::size_t kRows = 5000;
    ListCells cells = Cells(0);
    for (std::size_t row = 0; row < kRows; ++row) {
        cells.AppendRow();
        cells.SetText(row, 0, "a" + std::to_string(row));
        cells.SetText(row, 1, std::to_string(row * row));
    }
    EXPECT_EQ(cells.RowCount(), kRows);
    for (std::size_t row = 0; row < kRows; ++row) {
        ASSERT_EQ(cells.Text(row, 0), "a" + std::to_string(row));
        ASSERT_EQ(cells.Text(row, 1), std::to_string(row * row));
    }
}

TEST_F(ListCellsTest, RewrittenCellsAreReadAsAPlainTableWouldKeepThem)
{
    constexpr std::size_t kRows = 1500;
    ListCells cells = Cells(kRows);
    std::map<std::pair<std::size_t, std::size_t>, std::string> plain;
    std::mt19937 random(7);
    for (int write = 0; write < 50000; ++write) {
        const std::size_t row = random() % kRows;
        const std::size_t column = random() % 2;
        const std::string text(random() % 40, static_cast<char>('a' + random() % 26));
        ASSERT_TRUE(cells.SetText(row, column, text));
        plain[{row, column}] = text;
    }
    for (const auto& [cell, text] : plain) {
        ASSERT_EQ(cells.Text(cell.first, cell.second), text);
    }
}

TEST_F(ListCellsTest, GapsAreGivenBackWhenTheyAreMoreThanHalf)
{
    ListCells cells = Cells(10);
    std::size_t most = 0;
    for (int write = 0; write < 10000; ++write) {
        for (std::size_t row = 0; row < 10; ++row) {
            cells.SetText(row, 0, std::to_string(write) + std::string(90, 'x'));
        }
        most = std::max(most, cells.HeldBytes());
    }
    // Ten texts of about a hundred bytes.
    EXPECT_LT(most, 8000U);
    EXPECT_EQ(cells.Text(9, 0), "9999" + std::string(90, 'x'));
}

TEST_F(ListCellsTest, SameTextAgainLeavesNoGap)
{
    ListCells cells = Cells(1);
    cells.SetText(0, 0, std::string(1000, 'x'));
    const std::size_t held = cells.HeldBytes();
    for (int write = 0; write < 100; ++write) {
        cells.SetText(0, 0, std::string(1000, 'x'));
    }
    EXPECT_EQ(cells.HeldBytes(), held);
}

TEST_F(ListCellsTest, ClearedCellsKeepTheirMemoryForTheRowsToCome)
{
    ListCells cells = Cells(0);
    const auto fill = [&cells](std::size_t rows) {
        for (std::size_t row = 0; row < rows; ++row) {
            cells.AppendRow();
            cells.SetText(row, 0, "1234567890");
        }
    };
    fill(5000);
    const std::size_t held = cells.HeldBytes();
    cells.Clear(2);
    EXPECT_EQ(cells.RowCount(), 0U);
    EXPECT_EQ(cells.Text(0, 0), "");
    EXPECT_EQ(cells.HeldBytes(), held);
    fill(5000);
    EXPECT_EQ(cells.HeldBytes(), held);
    EXPECT_EQ(cells.Text(4999, 0), "1234567890");
    EXPECT_EQ(cells.Text(4999, 1), "");
    cells.Clear(2);
    fill(1);
    cells.ReleaseSpare();
    EXPECT_LT(cells.HeldBytes(), held / 4);
    EXPECT_EQ(cells.Text(0, 0), "1234567890");
    cells.Clear(2);
    cells.ReleaseSpare();
    EXPECT_EQ(cells.HeldBytes(), 0U);
}

TEST_F(ListCellsTest, MemoryIsHardlyMoreThanTheTexts)
{
    ListCells cells = Cells(0);
    for (std::size_t row = 0; row < 100000; ++row) {
        cells.AppendRow();
        cells.SetText(row, 0, "1234567890");
        cells.SetText(row, 1, "12345678");
    }
    // 18 bytes a row and one for each length.
    EXPECT_LT(static_cast<double>(cells.HeldBytes()), 1.15 * 20 * 100000);
}

TEST_F(ListCellsTest, MoreColumnsLeaveTheTextsWhereTheyAre)
{
    ListCells cells = Cells(2000);
    cells.SetText(0, 1, "first");
    cells.SetText(1999, 1, "last");
    cells.WidenTo(5);
    EXPECT_EQ(cells.ColumnCount(), 5U);
    EXPECT_EQ(cells.Text(0, 1), "first");
    EXPECT_EQ(cells.Text(1999, 1), "last");
    EXPECT_EQ(cells.Text(1999, 4), "");
    cells.SetText(1999, 4, "new");
    EXPECT_EQ(cells.Text(1999, 4), "new");
    EXPECT_EQ(cells.Text(1999, 1), "last");
    cells.WidenTo(3);
    EXPECT_EQ(cells.ColumnCount(), 5U);
}

TEST_F(ListCellsTest, TextThatThereIsNoRoomForLeavesTheCellAsItWas)
{
    ListCells cells = Cells(2, 100);
    EXPECT_TRUE(cells.SetText(0, 0, std::string(60, 'x')));
    EXPECT_FALSE(cells.SetText(1, 0, std::string(60, 'y')));
    EXPECT_FALSE(cells.SetText(0, 0, std::string(60, 'y')));
    EXPECT_EQ(cells.Text(0, 0), std::string(60, 'x'));
    EXPECT_EQ(cells.Text(1, 0), "");
    EXPECT_TRUE(cells.SetText(1, 0, "short"));
    EXPECT_FALSE(cells.IsNumberColumn(0));
}

TEST_F(ListCellsTest, ColumnOfNumbersIsOneWhoseFilledCellsAllBeginWithANumber)
{
    ListCells cells = Cells(4);
    EXPECT_FALSE(cells.IsNumberColumn(0)); // nothing stands there yet
    EXPECT_FALSE(cells.IsNumberColumn(2));
    cells.SetText(0, 0, "---");
    EXPECT_FALSE(cells.IsNumberColumn(0));
    for (const char* number : {"12.5kg", "-3 mm", "+1", ".5", "0", "1e3", "0x10"}) {
        cells.SetText(1, 0, number);
        EXPECT_TRUE(cells.IsNumberColumn(0)) << number;
    }
    for (const char* text : {"kg", "-", "Nancy", "inf", "0x", "0xylophone", " 1x"}) {
        cells.SetText(2, 0, text);
        EXPECT_FALSE(cells.IsNumberColumn(0)) << text;
    }
    cells.SetText(2, 0, "");
    EXPECT_TRUE(cells.IsNumberColumn(0));
    cells.SetText(2, 0, "text");
    cells.Clear(2);
    EXPECT_FALSE(cells.IsNumberColumn(0));
}

TEST_F(ListCellsTest, NumbersBeginWithTheLocalesSeparator)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    ListCells cells = Cells(1);
    cells.SetText(0, 0, ",5kg");
    EXPECT_TRUE(cells.IsNumberColumn(0));
    cells.SetText(0, 1, ".5kg");
    EXPECT_FALSE(cells.IsNumberColumn(1));
}

} // namespace
