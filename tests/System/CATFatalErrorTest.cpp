#include "CATFatalError.h"
#include "FatalErrorCapture.h"

#include <gtest/gtest.h>

#include <csignal>

namespace
{

TEST(CATFatalErrorDeathTest, EndsTheProgramWithItsTextWithoutAHandler)
{
    EXPECT_EXIT(CATRaiseFatalError("what was asserted", "Some.m/src/File", 43),
                testing::KilledBySignal(SIGABRT),
                "fatal error: what was asserted \\(Some.m/src/File, line 43\\)\n");
}

TEST(CATFatalErrorDeathTest, EmptyHandlerEndsTheProgramAgain)
{
    const CATFatalErrorHandler before = CATSetFatalErrorHandler([](const CATFatalError&) {});
    EXPECT_FALSE(before);
    EXPECT_TRUE(CATSetFatalErrorHandler({}));
    EXPECT_EXIT(CATRaiseFatalError("t", "s", 1), testing::KilledBySignal(SIGABRT),
                "fatal error: t");
}

TEST(CATFatalError, HandlerThatReturnsMeansGoOn)
{
    const FatalErrorCapture fatal;
    CATRaiseFatalError("text", "source", 7);
    ASSERT_EQ(fatal.Errors().size(), 1U);
    EXPECT_EQ(fatal.Errors()[0].Text(), "text");
    EXPECT_EQ(fatal.Errors()[0].Source(), "source");
    EXPECT_EQ(fatal.Errors()[0].Line(), 7);
}

TEST(CATFatalError, HandlerMayThrow)
{
    const CATFatalErrorHandler before =
        CATSetFatalErrorHandler([](const CATFatalError& error) { throw error; });
    EXPECT_THROW(CATRaiseFatalError("text", "source", 7), CATFatalError);
    CATSetFatalErrorHandler(before);
}

TEST(CATFatalError, HandlerMayPutAnotherInItsPlace)
{
    int calls = 0;
    const CATFatalErrorHandler before =
        CATSetFatalErrorHandler([calls = &calls](const CATFatalError&) {
            CATSetFatalErrorHandler([](const CATFatalError&) {});
            ++*calls;
        });
    CATRaiseFatalError("a", "s", 1);
    CATRaiseFatalError("b", "s", 1);
    CATSetFatalErrorHandler(before);
    EXPECT_EQ(calls, 1);
}

} // namespace
