#include "CATPendingChanges.h"

#include <gmock/gmock.h>

TEST(CATPendingChanges, AreReadFieldByField)
{
    CATWireFields fields(
        "2|part WING A|mass type Weighed, mass|10|12|11|1|ben|2026/11/21 19:00:00|"
        "2026/11/21 18:00:00|use WING A / left|density|__null__|2700|__null__|0|__null__|__null__|"
        "2026/11/21 18:30:00|");
    const std::vector<CATPendingChange> changes = CATReadPendingChanges(fields);
    EXPECT_TRUE(fields.IsSound());
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].subject, "part WING A");
    EXPECT_EQ(changes[0].fact, "mass type Weighed, mass");
    EXPECT_EQ(changes[0].seen, "10");
    EXPECT_EQ(changes[0].after, "12");
    EXPECT_EQ(changes[0].stored, "11");
    EXPECT_TRUE(changes[0].isInConflict);
    EXPECT_EQ(changes[0].by, "ben");
    EXPECT_EQ(changes[0].at, "2026/11/21 19:00:00");
    EXPECT_EQ(changes[0].when, "2026/11/21 18:00:00");
    EXPECT_EQ(changes[1].subject, "use WING A / left");
    EXPECT_EQ(changes[1].seen, "");
    EXPECT_FALSE(changes[1].isInConflict);
    EXPECT_EQ(changes[1].by, "");
}

TEST(CATPendingChanges, NothingMayFollowThem)
{
    CATWireFields nothing("0|");
    EXPECT_TRUE(CATReadPendingChanges(nothing).empty());
    EXPECT_TRUE(nothing.IsSound());
    CATWireFields more("0|more|");
    CATReadPendingChanges(more);
    EXPECT_EQ(more.Expected(), "the end");
}
