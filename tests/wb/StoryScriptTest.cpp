#include "StoryScript.h"

#include "TemporaryDirectory.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

std::vector<std::string> Split(std::string_view line)
{
    std::vector<std::string> words;
    EXPECT_TRUE(SplitStoryLine(line, words)) << line;
    return words;
}

/// What is wrong with a story of that text.
std::string ProblemOf(const std::string& text)
{
    const TemporaryDirectory folder;
    std::vector<StoryStep> steps;
    std::string problem;
    EXPECT_FALSE(ReadStory(folder.Write("a.story", text), steps, problem));
    return problem;
}

} // namespace

TEST(StoryScript, WordsStandBetweenBlanksAndTabs)
{
    EXPECT_THAT(Split("  pick A/B\tC "), ElementsAre("pick", "A/B", "C"));
    EXPECT_THAT(Split(""), IsEmpty());
    EXPECT_THAT(Split("quit\r"), ElementsAre("quit"));
}

TEST(StoryScript, QuotedWordsHoldBlanksAndEscapes)
{
    EXPECT_THAT(Split(R"(expect Part "Spar cap" "")"),
                ElementsAre("expect", "Part", "Spar cap", ""));
    EXPECT_THAT(Split(R"("a \"b\" \\ c\nd\te")"), ElementsAre("a \"b\" \\ c\nd\te"));
}

TEST(StoryScript, AnOpenQuoteIsRefusedWithItsLine)
{
    std::vector<std::string> words;
    EXPECT_FALSE(SplitStoryLine("expect A \"text", words));
    EXPECT_THAT(ProblemOf("quit\nexpect A \"text\n"),
                HasSubstr("a.story:2: a double quote is not closed"));
}

TEST(StoryScript, EmptyLinesAndNotesAreNoSteps)
{
    const TemporaryDirectory folder;
    std::vector<StoryStep> steps;
    std::string problem;
    ASSERT_TRUE(ReadStory(folder.Write("a.story", "# a note\n\n  # another\nopen LA1\nquit\n"),
                          steps, problem));
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].line, 4);
    EXPECT_THAT(steps[0].words, ElementsAre("open", "LA1"));
    EXPECT_EQ(steps[1].line, 5);
}

TEST(StoryScript, AnUnknownStepIsRefusedBeforeAnythingIsPlayed)
{
    EXPECT_THAT(ProblemOf("open LA1\njump HIGH\n"),
                HasSubstr("a.story:2: there is no step \"jump\""));
}

TEST(StoryScript, EveryVerbSaysItsFormWhenWordsAreMissing)
{
    for (const char* verb :
         {"open",        "workshop",       "start",      "menu",   "pick",   "click", "check",
          "type",        "select",         "key",        "sort",   "resize", "units", "expect",
          "expect-cell", "expect-tooltip", "expect-box", "answer", "file",   "close", "shot",
          "dump",        "expect-copied",  "expect-file"}) {
        EXPECT_THAT(ProblemOf(verb), HasSubstr(std::string("a.story:1: expected: ") + verb + " "))
            << verb;
    }
}

TEST(StoryScript, TooManyWordsAreRefused)
{
    EXPECT_THAT(ProblemOf("quit now"), HasSubstr("expected: quit"));
    EXPECT_THAT(ProblemOf("shot a.png Panel more"), HasSubstr("expected: shot FILE.png [DIALOG]"));
}

TEST(StoryScript, AMissingFileIsNamed)
{
    std::vector<StoryStep> steps;
    std::string problem;
    EXPECT_FALSE(ReadStory("/nowhere/a.story", steps, problem));
    EXPECT_EQ(problem, "/nowhere/a.story: the story cannot be read");
}
