#include "RunServerCode.h"

#include "CATPDMMessages.h"
#include "CATServerCall.h"
#include "FakeServer.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <set>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
struct RunServerCodeTest : ServerTest
{
    /// The status of a call; its answer's text comes in `text`.
    long Run(const char* method = "WBMethod", const char* request = "request")
    {
        CATVariant input;
        CATVariant output;
        BuildVariant(request, input);
        const long status = RunServerCode(method, input, output);
        outputIsEmpty = output.IsEmpty();
        ConvertVariant(output, text);
        return status;
    }

    CATUnicodeString text = "nothing came";
    bool outputIsEmpty = false;
};

TEST_F(RunServerCodeTest, BringsMethodAndRequestToTheServerAndItsAnswerBack)
{
    server->answer = "Größe|12.5|";
    EXPECT_EQ(Run("WBSaveManagement", "Save|Räder|"), S_OK);
    EXPECT_EQ(text, "Größe|12.5|");
    ASSERT_EQ(server->calls.size(), 1U);
    EXPECT_EQ(server->calls[0].method, "WBSaveManagement");
    EXPECT_EQ(server->calls[0].request, "Save|Räder|");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(RunServerCodeTest, AnEmptyInputIsTheEmptyText)
{
    CATVariant output;
    EXPECT_EQ(RunServerCode("WBListRoots", {}, output), S_OK);
    EXPECT_EQ(server->calls[0].request, "");
}

TEST_F(RunServerCodeTest, GoesFromTextToTextToo)
{
    server->answer = "12.5|";
    EXPECT_EQ(RunServerCode("WBListUses", "Räder|A|"), "12.5|");
    EXPECT_EQ(RunServerCode("WBListRoots"), "12.5|");
    ASSERT_EQ(server->calls.size(), 2U);
    EXPECT_EQ(server->calls[0].method, "WBListUses");
    EXPECT_EQ(server->calls[0].request, "Räder|A|");
    EXPECT_EQ(server->calls[1].method, "WBListRoots");
    EXPECT_EQ(server->calls[1].request, "");
    CATSetServerCaller(nullptr);
    EXPECT_EQ(RunServerCode("WBListRoots"), "");
}

TEST_F(RunServerCodeTest, TheServerRunsOnAThreadOfItsOwnWhichIsAlwaysTheSame)
{
    std::set<std::thread::id> threads;
    for (int call = 0; call < 20; ++call) {
        EXPECT_EQ(Run(), S_OK);
        threads.insert(server->calls.back().thread);
    }
    EXPECT_EQ(threads.size(), 1U);
    EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST_F(RunServerCodeTest, AServerErrorIsAnAnswer)
{
    server->answer = "#WB_ERROR#No such part.";
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(text, "#WB_ERROR#No such part.");
}

TEST_F(RunServerCodeTest, AnEmptyAnswerIsACallThatCouldNotBeMade)
{
    server->answer = "";
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(text, "");
    EXPECT_FALSE(outputIsEmpty); // it holds the empty text
}

TEST_F(RunServerCodeTest, WithoutAServerNoCallCanBeMade)
{
    CATSetServerCaller(nullptr);
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(text, "");
    EXPECT_FALSE(outputIsEmpty);
    EXPECT_THAT(errors, ElementsAre("A server call was not made: there is no server."));
}

TEST_F(RunServerCodeTest, InstallingACallerGivesBackTheOneThatStoodThere)
{
    EXPECT_EQ(CATSetServerCaller(nullptr), server);
    EXPECT_EQ(CATSetServerCaller(server), nullptr);
}

TEST_F(RunServerCodeTest, ACallIsOverOnlyWhenTheServerIsEvenIfTheWaitingLoopBreaks)
{
    std::atomic<bool> over = false;
    server->onCall = [&over](CATServerCallState&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        over = true;
    };
    FakeWait::WhileWaiting() = [](const FakeWait::Hooks&) {
        throw std::runtime_error("broken");
    };
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_TRUE(over);
    EXPECT_EQ(Run(), S_OK); // and the next call finds the way free
}

TEST_F(RunServerCodeTest, TheSessionKeepsNoCallerAfterItsCall)
{
    EXPECT_EQ(Run(), S_OK);
    CATSetServerCaller(nullptr);
    EXPECT_EQ(server.use_count(), 1);
}

TEST_F(RunServerCodeTest, AnErrorInTheCallerFailsTheCallAndIsTold)
{
    server->onCall = [](CATServerCallState&) {
        throw std::runtime_error("the line is cut");
    };
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_EQ(text, "");
    EXPECT_THAT(errors, ElementsAre("A server call failed: the line is cut"));
}

TEST_F(RunServerCodeTest, AnErrorWithoutAReasonFailsTheCallToo)
{
    server->onCall = [](CATServerCallState&) {
        throw std::runtime_error("");
    };
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_THAT(errors, ElementsAre("A server call failed: "));
}

TEST_F(RunServerCodeTest, AnErrorOfAnUnknownKindFailsTheCallToo)
{
    server->onCall = [](CATServerCallState&) {
        throw 1;
    };
    EXPECT_EQ(Run(), E_FAIL);
    EXPECT_THAT(errors, ElementsAre("A server call failed: an error of an unknown kind"));
}

TEST_F(RunServerCodeTest, AfterAnErrorTheNextCallIsMadeOnTheSameThread)
{
    server->onCall = [](CATServerCallState&) {
        throw std::runtime_error("once");
    };
    EXPECT_EQ(Run(), E_FAIL);
    server->onCall = nullptr;
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(server->calls[0].thread, server->calls[1].thread);
}

TEST_F(RunServerCodeTest, ACancelledCallAnswersTheErrorMarkerAndASentence)
{
    server->onCall = [](CATServerCallState& state) {
        state.cancelled = true;
    };
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(text, "#WB_ERROR#The call was cancelled.");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(RunServerCodeTest, TheUsersCancelReachesTheServer)
{
    FakeWait::WhileWaiting() = [](const FakeWait::Hooks& hooks) {
        hooks.cancel();
    };
    server->onCall = [](CATServerCallState& state) {
        while (!state.cancelled) {
            std::this_thread::yield();
        }
    };
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(text, "#WB_ERROR#The call was cancelled.");
}

TEST_F(RunServerCodeTest, ACancelledCallDoesNotCancelTheNext)
{
    server->onCall = [](CATServerCallState& state) {
        state.cancelled = true;
    };
    EXPECT_EQ(Run(), S_OK);
    server->onCall = nullptr;
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(text, "answer");
}

TEST_F(RunServerCodeTest, TheWaitingUserSeesATitleAndHowFarTheServerIs)
{
    std::atomic<bool> half = false;
    std::atomic<bool> seen = false;
    server->onCall = [&](CATServerCallState& state) {
        EXPECT_LT(state.progress.load(), 0.0); // unknown until the server says so
        state.progress = 0.5;
        half = true;
        while (!seen) {
            std::this_thread::yield();
        }
    };
    std::string title;
    double progress = 0.0;
    FakeWait::WhileWaiting() = [&](const FakeWait::Hooks& hooks) {
        while (!half) {
            std::this_thread::yield();
        }
        title = hooks.title;
        progress = hooks.progress();
        seen = true;
    };
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(title, "Waiting for the server");
    EXPECT_EQ(progress, 0.5);
}

TEST_F(RunServerCodeTest, ACallMadeWhileAnotherWaitsIsRefused)
{
    long inner = S_OK;
    CATUnicodeString innerText = "nothing came";
    FakeWait::WhileWaiting() = [&](const FakeWait::Hooks&) {
        inner = Run("WBInner");
        innerText = text;
    };
    EXPECT_EQ(Run("WBOuter"), S_OK);
    EXPECT_EQ(text, "answer");
    EXPECT_EQ(inner, E_FAIL);
    EXPECT_EQ(innerText, "");
    ASSERT_EQ(server->calls.size(), 1U);
    EXPECT_EQ(server->calls[0].method, "WBOuter");
    EXPECT_THAT(errors, ElementsAre("A server call was refused: another one is waiting."));
}

TEST_F(RunServerCodeTest, ACallFromTheServerThreadItselfIsRefused)
{
    CATServerCallEnd inner = CATServerCallEnd::Done;
    server->onCall = [&inner](CATServerCallState&) {
        inner = CATCallServer([](CATServerCaller&, CATServerCallState&) {});
    };
    EXPECT_EQ(Run(), S_OK);
    EXPECT_EQ(inner, CATServerCallEnd::NotMade);
}

TEST_F(RunServerCodeTest, ARefusedCallLeavesTheWayFreeForLaterOnes)
{
    FakeWait::WhileWaiting() = [&](const FakeWait::Hooks&) {
        EXPECT_EQ(Run(), E_FAIL);
        EXPECT_EQ(Run(), E_FAIL); // the first refusal did not open the way for the second
    };
    EXPECT_EQ(Run(), S_OK);
    FakeWait::WhileWaiting() = {};
    EXPECT_EQ(Run(), S_OK);
}

TEST(CATPDMMessages, TheCatalogHoldsTheTextsThatTheCodeFallsBackOn)
{
    for (const CATPDMMessage& message :
         {kWaitTitle, kCancelled, kProductsNoAnswer, kProductsRefused, kProductsUnreadable}) {
        EXPECT_EQ(CATMsgCatalog::BuildMessage("CATPDM", message.key, "@not in the catalog"),
                  CATUnicodeString(message.defaultText).Part(1));
    }
}
} // namespace
