#include "PendingChanges.h"

#include <gmock/gmock.h>

using testing::IsEmpty;

TEST(PendingChanges, AnswerIsReadWithoutAProblem)
{
    std::string problem = "of before";
    const auto changes = ReadPendingChanges(
        "1|part WING A|mass|10|12|11|0|__null__|__null__|2026/11/21 18:00:00|", problem);
    EXPECT_EQ(problem, "");
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].subject, "part WING A");
}

TEST(PendingChanges, NothingPendingIsNoProblem)
{
    std::string problem;
    EXPECT_THAT(ReadPendingChanges("0|", problem), IsEmpty());
    EXPECT_EQ(problem, "");
}

TEST(PendingChanges, AnswerThatIsNoneSaysWhyAndGivesNoChanges)
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
