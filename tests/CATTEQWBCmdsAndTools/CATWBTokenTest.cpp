#include "CATWBToken.h"

#include "ModuleSession.h"
#include "VirtualSlots.h"

#include <type_traits>

namespace
{

TEST(CATWBToken, FieldsComeFrontToBack)
{
    CATWBToken token("INST-0001|7|12.5|A");
    EXPECT_EQ(token.NextString(), "INST-0001");
    EXPECT_EQ(token.NextInt(), 7);
    EXPECT_EQ(token.NextDouble(), 12.5);
    EXPECT_EQ(token.NextString(), "A");
}

TEST(CATWBToken, PastTheEndFieldsAreEmpty)
{
    CATWBToken token("A|");
    EXPECT_EQ(token.NextString(), "A");
    EXPECT_EQ(token.NextString(), "");
    EXPECT_EQ(token.NextString(), "");
    EXPECT_EQ(token.NextDouble(), 0.0);
}

TEST(CATWBToken, KeepsItsOwnCopyOfTheText)
{
    CATUnicodeString text("a text that is too long to stand in place|second");
    CATWBToken token(text);
    text = "another";
    EXPECT_EQ(token.NextString(), "a text that is too long to stand in place");
    EXPECT_EQ(token.NextView(), "second");
}

TEST(CATWBToken, EndIsReachedBehindTheLastField)
{
    struct Row
    {
        const char* text;
        int fields;
    };
    for (const Row& row : {Row{"", 0}, Row{"a", 1}, Row{"a|", 1}, Row{"a|b", 2}, Row{"|", 1},
                           Row{"||b", 3}, Row{"a||", 2}}) {
        CATWBToken token(row.text);
        int fields = 0;
        for (; !token.IsAtEnd(); ++fields) {
            token.NextView();
        }
        EXPECT_EQ(fields, row.fields) << row.text;
        EXPECT_EQ(token.UnreadBytes(), 0U) << row.text;
    }
}

TEST(CATWBToken, UnreadBytesCountSeparators)
{
    CATWBToken token("ab|c|d");
    EXPECT_EQ(token.UnreadBytes(), 6U);
    token.NextView();
    EXPECT_EQ(token.UnreadBytes(), 3U);
}

TEST(CATWBToken, BlankFieldReadsAsZero)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    CATWBToken token("||   |");
    EXPECT_EQ(token.NextDouble(), 0.0);
    EXPECT_EQ(token.NextDouble(), 0.0);
    EXPECT_EQ(token.NextDouble(), 0.0);
    EXPECT_TRUE(errors.Raised().empty());
}

TEST(CATWBToken, RealsTakeEitherSeparatorInEitherLocale)
{
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale numbers(locale);
        CATWBToken token("3,5|3.5|-1e3");
        EXPECT_EQ(token.NextDouble(), 3.5) << locale;
        EXPECT_EQ(token.NextDouble(), 3.5) << locale;
        EXPECT_EQ(token.NextDouble(), -1000.0) << locale;
    }
}

TEST(CATWBToken, IntegersStopWhereTheNumberStops)
{
    CATWBToken token(" 12abc|-3|4.9");
    EXPECT_EQ(token.NextInt(), 12);
    EXPECT_EQ(token.NextInt(), -3);
    EXPECT_EQ(token.NextInt(), 4);
}

TEST(CATWBToken, FieldThatIsNoIntegerIsFatal)
{
    for (const char* text : {"abc|", "", "|5", "  "}) {
        const FatalErrors errors(FatalErrors::Then::GoOn);
        const DiagnosticCapture heard(CATDiagnosticErrors());
        EXPECT_EQ(CATWBToken(text).NextInt(), 0) << text;
        ASSERT_EQ(errors.Raised().size(), 1U) << text;
        EXPECT_EQ(errors.Raised()[0].Text(), "AssertionFailed:lStatus == 1");
        EXPECT_EQ(errors.Raised()[0].Source(), "CATTEQWBCmdsAndTools.m/src/CATWBToken");
        EXPECT_EQ(errors.Raised()[0].Line(), 43);
        EXPECT_THAT(heard.Lines(), testing::ElementsAre(
                                       "FATAL ERROR : CATTEQWBCmdsAndTools.m/src/CATWBToken [43]"));
    }
}

TEST(CATWBToken, FieldThatIsNoRealIsFatal)
{
    for (const char* text : {"abc", " x |", "\t"}) {
        const FatalErrors errors(FatalErrors::Then::GoOn);
        const DiagnosticCapture heard(CATDiagnosticErrors());
        EXPECT_EQ(CATWBToken(text).NextDouble(), 0.0) << text;
        ASSERT_EQ(errors.Raised().size(), 1U) << text;
        EXPECT_EQ(errors.Raised()[0].Text(), "AssertionFailed:lStatus == 1");
        EXPECT_EQ(errors.Raised()[0].Source(), "CATTEQWBCmdsAndTools.m/src/CATWBToken");
        EXPECT_EQ(errors.Raised()[0].Line(), 61);
        EXPECT_THAT(heard.Lines(), testing::ElementsAre(
                                       "FATAL ERROR : CATTEQWBCmdsAndTools.m/src/CATWBToken [61]"));
    }
}

TEST(CATWBToken, FaultIsWrittenBeforeItIsRaised)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    const DiagnosticCapture heard(CATDiagnosticErrors());
    EXPECT_THROW(CATWBToken("x").NextInt(), CATFatalError);
    EXPECT_EQ(heard.Lines().size(), 1U);
}

TEST(CATWBToken, FieldBehindABadOneIsStillRead)
{
    const SilentStreams silent;
    const FatalErrors errors(FatalErrors::Then::GoOn);
    CATWBToken token("x|y|8");
    EXPECT_EQ(token.NextInt(), 0);
    EXPECT_EQ(token.NextDouble(), 0.0);
    EXPECT_EQ(token.NextInt(), 8);
}

TEST(CATWBToken, OnlyTheDestructorIsVirtual)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CATWBToken>);
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBToken>::Added), SlotOf(&SlotProbe<CATToken>::Added));
}

} // namespace
