#include "CATDiagnostics.h"
#include "CATNumberLocale.h"
#include "DiagnosticCapture.h"

#include <gtest/gtest.h>

namespace
{

TEST(CATLineStream, JoinsPiecesOfEveryKind)
{
    const DiagnosticCapture capture(CATDiagnosticOutput());
    const char* null = nullptr;
    CATDiagnosticOutput().Line("a", std::string_view("b"), std::string("c"), CATUnicodeString("d"),
                               7, -8L, 0.1, null);
    CATDiagnosticOutput().Line();
    EXPECT_EQ(capture.Lines(), (std::vector<std::string>{"abcd7-80.1", ""}));
}

TEST(CATLineStream, WritesRealsWithTheSessionsSeparator)
{
    const DiagnosticCapture capture(CATDiagnosticErrors());
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    CATDiagnosticErrors().Line(1.5);
    CATUseNumberLocale("C");
    EXPECT_EQ(capture.Lines(), (std::vector<std::string>{"1,5"}));
}

TEST(CATLineStream, IsSilentWithoutAListener)
{
    CATLineStream stream({});
    EXPECT_FALSE(stream.IsHeard());
    stream.Line("nobody hears this");
    std::string heard;
    EXPECT_FALSE(stream.SetListener([&](std::string_view line) { heard = line; }));
    EXPECT_TRUE(stream.IsHeard());
    stream.Line("x");
    EXPECT_EQ(heard, "x");
}

TEST(CATLineStream, ListenerMayTakeItselfOff)
{
    int calls = 0;
    CATLineStream stream({});
    stream.SetListener([&](std::string_view) {
        stream.SetListener({});
        ++calls;
    });
    stream.Line("a");
    stream.Line("b");
    EXPECT_EQ(calls, 1);
}

TEST(CATDiagnostics, BeginsOnTheStandardStreamsWithALineEnd)
{
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    CATDiagnosticOutput().Line("to output");
    CATDiagnosticErrors().Line("to errors");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "to output\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "to errors\n");
}

} // namespace
