#include "HostSession.h"

#include "CATDiagnostics.h"
#include "CATTrace.h"
#include "TemporaryDirectory.h"

#include <gtest/gtest.h>

namespace
{

/// What stands in the log after a session in which one line was written to each stream and traced.
std::string LogOf(bool verbose)
{
    const TemporaryDirectory folder;
    SessionOptions options;
    options.logFile = folder.At("session.log");
    options.verbose = verbose;
    {
        const HostSession session(options, folder.At("settings"));
        CATDiagnosticOutput().Line("out");
        DSTrace("SomePart").Line("node ", 3);
        CATDiagnosticErrors().Line("error");
    }
    return folder.Read("session.log");
}

} // namespace

TEST(HostSession, VerboseLogTakesTracesAmongTheOtherLines)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(LogOf(true), "out\nSomePart: node 3\nerror\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "out\nSomePart: node 3\nerror\n");
    EXPECT_FALSE(DSTrace::IsHeard()) << "the session is over";
}

TEST(HostSession, PlainLogTakesNoTraces)
{
    EXPECT_EQ(LogOf(false), "out\nerror\n");
}
