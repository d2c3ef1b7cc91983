#include "TextGrid.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

using Side = TextGrid::Side;

namespace
{
int Decimals(double value)
{
    return DecimalsFor(std::array{value});
}
} // namespace

TEST(TextGrid, ColumnsAreAsWideAsTheirWidestCell)
{
    TextGrid grid({Side::Left, Side::Right});
    grid.Add({"name", "kg"});
    grid.Add({"a", "12.5"});
    grid.Add({"longer"});
    EXPECT_EQ(grid.Text(), "  name      kg\n"
                           "  a       12.5\n"
                           "  longer\n");
    EXPECT_EQ(TextGrid({Side::Left}).Text(), "");
}

TEST(TextGrid, WidthsCountCharacters)
{
    TextGrid grid({Side::Left, Side::Left});
    grid.Add({"Flügel", "x"});
    grid.Add({"Wings", "y"});
    EXPECT_EQ(grid.Text(), "  Flügel  x\n"
                           "  Wings   y\n");
}

TEST(TextGrid, ShortenedTextEndsWithADot)
{
    EXPECT_EQ(Shortened("Flügel", 6), "Flügel");
    EXPECT_EQ(Shortened("Flügel", 4), "Flü…");
}

TEST(TextGrid, WrappedLinesAreBrokenAtBlanks)
{
    const std::string ten = "123456789 ";
    EXPECT_EQ(Wrapped("short", "  "), "short\n");
    EXPECT_EQ(Wrapped("  short", "    "), "  short\n");
    // Eight words of nine letters and seven blanks are 79; a ninth does not fit.
    EXPECT_EQ(Wrapped("123456789 123456789 123456789 123456789 123456789 123456789 123456789 "
                      "123456789 123456789",
                      "  "),
              "123456789 123456789 123456789 123456789 123456789 123456789 123456789 123456789\n"
              "  123456789\n");
    const std::string eighty(80, 'x');
    EXPECT_EQ(Wrapped(eighty, "  "), eighty + "\n");
    EXPECT_EQ(Wrapped(eighty + "x " + ten + "y", "  "), eighty + "x\n  123456789 y\n");
}

TEST(TextGrid, DecimalsShowEightDigitsOfTheLargest)
{
    EXPECT_EQ(Decimals(381.35925), 5);
    EXPECT_EQ(Decimals(-1442.488), 4);
    EXPECT_EQ(Decimals(1.0), 7);
    EXPECT_EQ(Decimals(0.5), 8);
    EXPECT_EQ(Decimals(1e-9), 12);
    EXPECT_EQ(Decimals(1e9), 0);
    EXPECT_EQ(Decimals(0.0), 0);
    EXPECT_EQ(Decimals(NAN), 0);
    EXPECT_EQ(
        DecimalsFor(std::array{1.0, double{NAN}, -20.0, std::numeric_limits<double>::infinity()}),
        6);
}

TEST(TextGrid, FixedTextHasAPointAndNoSignAtZero)
{
    EXPECT_EQ(FixedText(381.35925, 5), "381.35925");
    EXPECT_EQ(FixedText(-3.07039, 3), "-3.070");
    EXPECT_EQ(FixedText(-0.0004, 3), "0.000");
    EXPECT_EQ(FixedText(-0.0, 0), "0");
    EXPECT_EQ(FixedText(1e15, 0), "1000000000000000");
    EXPECT_EQ(FixedText(NAN, 3), "-");
    EXPECT_EQ(FixedText(-std::numeric_limits<double>::infinity(), 3), "-");
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 12).size(), 309U + 1U + 12U);
}
