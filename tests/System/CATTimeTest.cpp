#include "CATTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace
{

TEST(CATTime, UnsetTimeIsBadAndGivesNoText)
{
    const CATTime time;
    EXPECT_FALSE(time.IsValid());
    EXPECT_EQ(time.ToText("%Y"), "");
}

TEST(CATTime, KeepsItsFields)
{
    const CATTime time(2010, 7, 1, 10, 20, 30);
    EXPECT_TRUE(time.IsValid());
    EXPECT_EQ(time.Year(), 2010);
    EXPECT_EQ(time.Month(), 7);
    EXPECT_EQ(time.Day(), 1);
    EXPECT_EQ(time.Hour(), 10);
    EXPECT_EQ(time.Minute(), 20);
    EXPECT_EQ(time.Second(), 30);
    EXPECT_EQ(time, CATTime(2010, 7, 1, 10, 20, 30));
    EXPECT_FALSE(time == CATTime(2010, 7, 1));
}

TEST(CATTime, KnowsTheCalendar)
{
    EXPECT_TRUE(CATTime(2024, 2, 29).IsValid());
    EXPECT_TRUE(CATTime(2000, 2, 29).IsValid());
    EXPECT_TRUE(CATTime(9999, 12, 31, 23, 59, 59).IsValid());
    EXPECT_TRUE(CATTime(1, 1, 1).IsValid());
    const CATTime bad[] = {{2023, 2, 29}, {1900, 2, 29},  {2010, 6, 31},  {2010, 13, 1},
                           {2010, 0, 1},  {2010, 1, 0},   {2010, 1, 32},  {0, 1, 1},
                           {10000, 1, 1}, {-1, 1, 1},     {2010, 257, 1}, {2010, 1, 257},
                           {2010, -1, 1}, {2010, 1, -255}};
    for (const CATTime& time : bad) {
        EXPECT_FALSE(time.IsValid()) << time.Year() << "/" << time.Month() << "/" << time.Day();
    }
}

TEST(CATTime, KnowsTheDay)
{
    EXPECT_TRUE(CATTime(2010, 1, 1, 0, 0, 0).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, 24, 0, 0).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, -1, 0, 0).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, 0, 60, 0).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, 0, -1, 0).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, 0, 0, 60).IsValid());
    EXPECT_FALSE(CATTime(2010, 1, 1, 0, 0, -1).IsValid());
}

TEST(CATTime, WritesEveryCodeAndKeepsTheRest)
{
    const CATTime time(2010, 7, 1, 3, 4, 5);
    EXPECT_EQ(time.ToText("%Y/%m/%d %H:%M:%S"), "2010/07/01 03:04:05");
    EXPECT_EQ(time.ToText("100%% %Y%"), "100% 2010%");
    EXPECT_EQ(time.ToText("%q %%Y \xc3\xa9"), "%q %Y \xc3\xa9");
    EXPECT_EQ(time.ToText(""), "");
    EXPECT_EQ(CATTime(2010, 12, 31, 23, 59, 58).ToText("%m%d%H%M%S"), "1231235958");
    EXPECT_EQ(CATTime(33, 1, 1).ToText("%Y"), "0033");
}

TEST(CATTime, NowFollowsTheClockAndTheUsersZone)
{
    const char* old = std::getenv("TZ");
    const std::string before = old == nullptr ? "" : old;
    // 2023-11-14 22:13:20 UTC
    CATTime::SetClock([] { return 1700000000LL; });
    setenv("TZ", "UTC0", 1);
    EXPECT_EQ(CATTime::Now(), CATTime(2023, 11, 14, 22, 13, 20));
    setenv("TZ", "EST-2:30", 1);
    EXPECT_EQ(CATTime::Now(), CATTime(2023, 11, 15, 0, 43, 20));
    CATTime::SetClock({});
    setenv("TZ", "UTC0", 1);
    const CATTime now = CATTime::Now();
    EXPECT_TRUE(now.IsValid());
    EXPECT_GE(now.Year(), 2024);
    if (old == nullptr) {
        unsetenv("TZ");
    } else {
        setenv("TZ", before.c_str(), 1);
    }
    tzset();
}

} // namespace
