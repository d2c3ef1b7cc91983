#include "WBPickReading.h"

#include "PanelSession.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(WBPickReading, IsReadWithAsManyNamesAsItsCountSays)
{
    const auto picked = WBReadPickedInstance("A.1", "P", "B", "C.1|D.1", 2);
    ASSERT_TRUE(picked.has_value());
    EXPECT_EQ(picked->instance, "A.1");
    EXPECT_EQ(picked->part, "P");
    EXPECT_EQ(picked->version, "B");
    EXPECT_THAT(picked->path, ElementsAre("C.1", "D.1"));
    const auto top = WBReadPickedInstance("A.1", "P", "", "", 0);
    ASSERT_TRUE(top.has_value());
    EXPECT_THAT(top->path, IsEmpty());
}

TEST(WBPickReading, CountsThatLieAreRefused)
{
    for (const int count : {-1, 0, 1, 3, 2000000000}) {
        EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", "C.1|D.1", count).has_value()) << count;
    }
    for (const int count : {-1, 1, 2000000000}) {
        EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", "", count).has_value()) << count;
    }
}

TEST(WBPickReading, NamesMustBeThere)
{
    EXPECT_FALSE(WBReadPickedInstance("", "P", "B", "", 0).has_value());
    EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", "C.1||D.1", 3).has_value());
    EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", "|", 2).has_value());
    EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", "C.1|", 2).has_value());
}

TEST(WBPickReading, TextsThatRequestsCannotHoldAreRefused)
{
    for (const char* text :
         {"A|B", "two\nlines", "tab\there", "~", "__null__", "a #WB_ERROR# b", "\x7f", "\x1f"}) {
        EXPECT_FALSE(WBMayEnterRequests(text)) << text;
        EXPECT_FALSE(WBReadPickedInstance(text, "P", "B", "", 0).has_value()) << text;
        EXPECT_FALSE(WBReadPickedInstance("A.1", text, "B", "", 0).has_value()) << text;
        EXPECT_FALSE(WBReadPickedInstance("A.1", "P", text, "", 0).has_value()) << text;
        EXPECT_FALSE(WBReadPickedInstance("A.1", "P", "B", text, 1).has_value()) << text;
    }
    for (const char* text : {"Ohne Türen", "A~B", "__null__ 2", "0", " ", ""}) {
        EXPECT_TRUE(WBMayEnterRequests(text)) << text;
    }
}
