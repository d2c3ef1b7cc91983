#include "TextRows.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
constexpr std::array kColumns{TextRows::Column{"name"}, TextRows::Column{"value"},
                              TextRows::Column{"done", TextRows::Kind::Flag}};

TextRows Rows()
{
    return {kColumns, {{"a \"quoted\", one", "", "true"}, {"Größe", "2", "false"}}};
}
} // namespace

TEST(TextRows, TableLinesUpBelowItsTitles)
{
    EXPECT_EQ(Rows().AsTable(), "  name             value  done\n"
                                "  a \"quoted\", one  -      true\n"
                                "  Größe            2      false\n");
}

TEST(TextRows, CsvQuotesWhatWouldBeTakenApart)
{
    EXPECT_EQ(Rows().AsCsv(), "name,value,done\n"
                              "\"a \"\"quoted\"\", one\",,true\n"
                              "Größe,2,false\n");
}

TEST(TextRows, JsonHasNullForNoneAndFlagsWithoutQuotes)
{
    EXPECT_EQ(Rows().AsJson(),
              "[\n"
              "    {\"name\": \"a \\\"quoted\\\", one\", \"value\": null, \"done\": true},\n"
              "    {\"name\": \"Größe\", \"value\": \"2\", \"done\": false}\n"
              "  ]");
}

TEST(TextRows, NoRowsAreAnEmptyListAndTitlesAlone)
{
    const TextRows none{kColumns, {}};
    EXPECT_EQ(none.AsJson(), "[]");
    EXPECT_EQ(none.AsCsv(), "name,value,done\n");
    EXPECT_EQ(none.AsTable(), "  name  value  done\n");
}
