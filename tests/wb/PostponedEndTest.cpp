#include "PostponedEnd.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace
{

/// Work that is told to end in its middle and says whether it came to its end and cleared away.
void WorkThatIsTold(int signal)
{
    const PostponedEnd end;
    try {
        end.LeaveWhenAsked();
        std::raise(signal);
        std::fputs("still there; ", stderr);
        end.LeaveWhenAsked();
        std::fputs("came to its end", stderr);
    } catch (const PostponedEnd::Interrupted&) {
        std::fputs("cleared away", stderr);
    }
}

void GoOn()
{
    std::fputs("went on", stderr);
    std::_Exit(0);
}

/// After the work nothing is postponed any more.
void AfterWork(int signal)
{
    {
        const PostponedEnd end;
    }
    std::raise(signal);
    GoOn();
}

void WorkThatIgnores(int signal)
{
    std::signal(signal, SIG_IGN);
    WorkThatIsTold(signal);
    std::raise(signal);
    GoOn();
}

TEST(PostponedEndDeathTest, WorkClearsAwayBeforeTheProgramEndsAsItWasTold)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(WorkThatIsTold(signal), testing::KilledBySignal(signal),
                    "^still there; cleared away$");
    }
}

TEST(PostponedEndDeathTest, SignalsDoWhatTheyDidBeforeTheWork)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        EXPECT_EXIT(AfterWork(signal), testing::KilledBySignal(signal), "^$");
    }
}

TEST(PostponedEndDeathTest, WorkThatHangsIsEndedByASecondSignal)
{
    const auto hangs = [] {
        const PostponedEnd end;
        std::raise(SIGINT);
        std::fputs("hangs", stderr);
        std::raise(SIGINT);
        GoOn();
    };
    EXPECT_EXIT(hangs(), testing::KilledBySignal(SIGINT), "^hangs$");
}

TEST(PostponedEndDeathTest, WhatIsIgnoredStaysIgnored)
{
    EXPECT_EXIT(WorkThatIgnores(SIGHUP), testing::ExitedWithCode(0),
                "^still there; came to its endwent on$");
}

TEST(PostponedEndDeathTest, LaterWorkDoesNotHearOfASignalThatCameToEarlierWork)
{
    const auto twice = [] {
        // A handler of the program's own lives on where the usual one would end it.
        std::signal(SIGTERM, [](int) {});
        WorkThatIsTold(SIGTERM);
        {
            const PostponedEnd end;
            end.LeaveWhenAsked();
        }
        GoOn();
    };
    EXPECT_EXIT(twice(), testing::ExitedWithCode(0), "^still there; cleared awaywent on$");
}

} // namespace
