#include "PendingChanges.h"

#include <gmock/gmock.h>

using testing::IsEmpty;

TEST(PendingChanges, AnswerIsReadFieldByField)
{
    std::string problem = "of before";
    const auto lines = ReadPendingChanges(
        "2|part WING A|mass type Weighed, mass|10|12|11|1|ben|2026/11/21 19:00:00|"
        "2026/11/21 18:00:00|use WING A / left|density|__null__|2700|__null__|0|__null__|__null__|"
        "2026/11/21 18:30:00|",
        problem);
    EXPECT_EQ(problem, "");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].subject, "part WING A");
    EXPECT_EQ(lines[0].fact, "mass type Weighed, mass");
    EXPECT_EQ(lines[0].was, "10");
    EXPECT_EQ(lines[0].now, "12");
    EXPECT_EQ(lines[0].stored, "11");
    EXPECT_TRUE(lines[0].conflicts);
    EXPECT_EQ(lines[0].by, "ben");
    EXPECT_EQ(lines[0].at, "2026/11/21 19:00:00");
    EXPECT_EQ(lines[0].when, "2026/11/21 18:00:00");
    EXPECT_EQ(lines[1].subject, "use WING A / left");
    EXPECT_EQ(lines[1].was, "");
    EXPECT_FALSE(lines[1].conflicts);
    EXPECT_EQ(lines[1].by, "");
}

TEST(PendingChanges, NothingPendingIsNoProblem)
{
    std::string problem;
    EXPECT_THAT(ReadPendingChanges("0|", problem), IsEmpty());
    EXPECT_EQ(problem, "");
}

TEST(PendingChanges, AnswerThatIsNoneSaysWhyAndGivesNoLines)
{
    const struct
    {
        const char* answer;
        const char* problem;
    } cases[] = {
        {"", "The server did not answer."},
        {"#WB_ERROR#a.db: the database is damaged.", "a.db: the database is damaged."},
        {"many|", "Field 1 of the server's answer should be a count."},
        {"2|part A|mass|1|2|1|0|__null__|__null__|now|",
         "Field 11 of the server's answer should be there."},
        {"1|part A|mass|1|2|1|yes|__null__|__null__|now|",
         "Field 7 of the server's answer should be 0 or 1."},
        {"1|part A|mass|1|2|1|0|__null__|__null__|now|and more|",
         "Field 11 of the server's answer should be the end."},
    };
    for (const auto& each : cases) {
        std::string problem;
        EXPECT_THAT(ReadPendingChanges(each.answer, problem), IsEmpty()) << each.answer;
        EXPECT_EQ(problem, each.problem) << each.answer;
    }
}
