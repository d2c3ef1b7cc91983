#include "RecordPrinter.h"

#include <gtest/gtest.h>

namespace
{

using Kind = CATWBRecordCell::Kind;

std::vector<CATWBRecordTable> SmallRecord()
{
    return {
        {"part",
         false,
         {"name", "is_leaf", "note"},
         {{{Kind::Text, "Spar \"cap\"\\\n"}, {Kind::Flag, "true"}, {}}}},
        {"mass_types",
         true,
         {"name", "mass"},
         {{{Kind::Text, "Calculated"}, {Kind::Number, "3.4194"}}, {{Kind::Text, "Weighed"}, {}}}},
        {"revisions", true, {"version"}, {}}};
}

} // namespace

TEST(RecordPrinter, JsonHasAnObjectATableAndNullForTheUnknown)
{
    EXPECT_EQ(RecordAsJson(SmallRecord()), R"({
  "part": {"name": "Spar \"cap\"\\\u000a", "is_leaf": true, "note": null},
  "mass_types": [
    {"name": "Calculated", "mass": 3.4194},
    {"name": "Weighed", "mass": null}
  ],
  "revisions": []
}
)");
}

TEST(RecordPrinter, TextAlignsColumnsAndLeavesOutEmptyLists)
{
    std::vector<CATWBRecordTable> record = SmallRecord();
    record[0].rows[0][0].text = "Spar cap";
    EXPECT_EQ(RecordAsText(record), "part\n"
                                    "  name     Spar cap\n"
                                    "  is_leaf  yes\n"
                                    "  note     -\n"
                                    "\n"
                                    "mass_types\n"
                                    "  name          mass\n"
                                    "  Calculated  3.4194\n"
                                    "  Weighed          -\n");
}

TEST(RecordPrinter, WidthsCountCharactersAndNotBytes)
{
    const std::vector<CATWBRecordTable> record{{"list",
                                                true,
                                                {"a", "b"},
                                                {{{Kind::Text, "Flügel"}, {Kind::Text, "x"}},
                                                 {{Kind::Text, "abcdef"}, {Kind::Flag, "false"}}}}};
    EXPECT_EQ(RecordAsText(record), "list\n  a       b\n  Flügel  x\n  abcdef  no\n");
}
