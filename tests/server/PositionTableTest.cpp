#include "PositionTable.h"

#include <gtest/gtest.h>

#include <string>

using wb::PositionTable;

TEST(PositionTable, EmptyTableFindsNothing)
{
    EXPECT_EQ(PositionTable().Find(5, [](std::uint32_t) { return true; }), PositionTable::kNone);
}

TEST(PositionTable, EveryPositionIsFoundAfterTheTableGrew)
{
    std::vector<std::string> names;
    PositionTable table;
    for (std::uint32_t position = 0; position < 1000; ++position) {
        names.push_back("P" + std::to_string(position));
        table.Add(std::hash<std::string>()(names.back()), position);
    }
    const auto find = [&](const std::string& name) {
        return table.Find(std::hash<std::string>()(name),
                          [&](std::uint32_t position) { return names[position] == name; });
    };
    for (std::uint32_t position = 0; position < 1000; ++position) {
        ASSERT_EQ(find(names[position]), position);
    }
    EXPECT_EQ(find("P1000"), PositionTable::kNone);
}

TEST(PositionTable, EqualHashesAreToldApartByTheList)
{
    const std::vector<std::string> names{"left", "right"};
    PositionTable table;
    table.Add(7, 0);
    table.Add(7, 1);
    const auto find = [&](const std::string& name) {
        return table.Find(7, [&](std::uint32_t position) { return names[position] == name; });
    };
    EXPECT_EQ(find("left"), 0U);
    EXPECT_EQ(find("right"), 1U);
    EXPECT_EQ(find("middle"), PositionTable::kNone);
}

TEST(PositionTable, PositionsOfAnotherHashAreNotLookedAt)
{
    PositionTable table;
    // 64 slots at first: the hashes 7 and 71 begin their search at the same one.
    table.Add(7, 0);
    EXPECT_EQ(table.Find(71, [](std::uint32_t) { return true; }), PositionTable::kNone);
    table.Add(71, 1);
    EXPECT_EQ(table.Find(71, [](std::uint32_t) { return true; }), 1U);
}
