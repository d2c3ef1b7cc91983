#include "ListCsv.h"

#include <gtest/gtest.h>

namespace
{

TEST(ListCsv, TextsWithSpecialCharactersStandInQuotationMarks)
{
    EXPECT_EQ(CsvText({{"Name", "Mass"}, {"a,b", "1,5kg"}, {"say \"x\"", "two\nlines"}}),
              "Name,Mass\r\n\"a,b\",\"1,5kg\"\r\n\"say \"\"x\"\"\",\"two\nlines\"\r\n");
}

TEST(ListCsv, LettersAreWrittenAsUtf8)
{
    EXPECT_EQ(CsvText({{QString::fromUtf8("Höhe")}}), "Höhe\r\n");
}

TEST(ListCsv, TabbedTextKeepsItsCellsApart)
{
    EXPECT_EQ(TabbedText({{"Name", "Mass"}, {"a\tb", "two\nlines"}}), "Name\tMass\na b\ttwo lines");
}

} // namespace
