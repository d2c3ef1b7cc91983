#include "ListCsv.h"

#include <gtest/gtest.h>

namespace
{

std::string Csv(const ListLine& line)
{
    std::string text;
    AppendCsvLine(text, line);
    return text;
}

std::string Tabbed(const ListLine& line)
{
    std::string text;
    AppendTabbedLine(text, line);
    return text;
}

TEST(ListCsv, TextsWithSpecialCharactersStandInQuotationMarks)
{
    EXPECT_EQ(Csv({"Name", "Mass"}), "Name,Mass\r\n");
    EXPECT_EQ(Csv({"a,b", "1,5kg"}), "\"a,b\",\"1,5kg\"\r\n");
    EXPECT_EQ(Csv({"say \"x\"", "two\nlines", "a\rb"}),
              "\"say \"\"x\"\"\",\"two\nlines\",\"a\rb\"\r\n");
    EXPECT_EQ(Csv({"", ""}), ",\r\n");
}

TEST(ListCsv, LettersAreWrittenAsUtf8)
{
    EXPECT_EQ(Csv({"Höhe"}), "Höhe\r\n");
}

TEST(ListCsv, TabbedTextKeepsItsCellsApart)
{
    EXPECT_EQ(Tabbed({"a\tb", "two\r\nlines", "", "end\n"}), "a b\ttwo lines\t\tend ");
}

} // namespace
