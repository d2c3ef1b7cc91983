#include "CATServerCallWatch.h"

#include "CATFatalError.h"
#include "CATPDMServices.h"
#include "CATSession.h"
#include "FakeServer.h"
#include "RunServerCode.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
struct CATServerCallWatchTest : ServerTest
{
    CATServerCallWatch::Listener Note()
    {
        return [this](const CATUnicodeString& method) {
            told.push_back(method.ToStdString());
        };
    }

    std::vector<std::string> told;
};

TEST_F(CATServerCallWatchTest, IsToldOfEachCallWhileItLives)
{
    RunServerCode("WBBefore");
    {
        const CATServerCallWatch watch(Note());
        RunServerCode("WBApplyValues", "request");
        CATVariant input;
        CATVariant output;
        BuildVariant("Save", input);
        RunServerCode("WBSaveManagement", input, output);
    }
    RunServerCode("WBAfter");
    EXPECT_THAT(told, ElementsAre("WBApplyValues", "WBSaveManagement"));
}

TEST_F(CATServerCallWatchTest, IsToldOnTheThreadOfTheInterfaceWhenTheServerHasAnswered)
{
    std::thread::id thread;
    std::size_t calls = 0;
    const CATServerCallWatch watch([&](const CATUnicodeString&) {
        thread = std::this_thread::get_id();
        calls = server->calls.size();
    });
    RunServerCode("WBMethod");
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(calls, 1U);
}

TEST_F(CATServerCallWatchTest, AllWatchesAreTold)
{
    const CATServerCallWatch first(Note());
    const CATServerCallWatch second(Note());
    RunServerCode("WBMethod");
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(CATServerCallWatchTest, IsToldOfCallsThatFailedOrWereCancelled)
{
    const CATServerCallWatch watch(Note());
    server->onCall = [](CATServerCallState&) {
        throw std::runtime_error("the line is cut");
    };
    EXPECT_EQ(RunServerCode("WBCut"), "");
    server->onCall = [](CATServerCallState& state) {
        state.cancelled = true;
    };
    RunServerCode("WBCancelled");
    server->onCall = nullptr;
    server->answer = "";
    RunServerCode("WBSilent");
    EXPECT_THAT(told, ElementsAre("WBCut", "WBCancelled", "WBSilent"));
}

TEST_F(CATServerCallWatchTest, CallsThatNeverWentToAServerAreNotTold)
{
    const CATServerCallWatch watch(Note());
    FakeWait::WhileWaiting() = [](const FakeWait::Hooks&) {
        RunServerCode("WBInner");
    };
    RunServerCode("WBOuter");
    CATSetServerCaller(nullptr);
    RunServerCode("WBNobody");
    EXPECT_THAT(told, ElementsAre("WBOuter"));
}

TEST_F(CATServerCallWatchTest, ObjectServicesAreNoMethods)
{
    const CATServerCallWatch watch(Note());
    CATListIdentificators asked;
    CATListIdentificators found;
    char* answer = nullptr;
    CATPDMCSServices::RunObjectService("Service", asked, "", found, answer);
    delete[] answer;
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(CATServerCallWatchTest, ListenerMayCallTheServer)
{
    CATUnicodeString answer;
    const CATServerCallWatch watch([&](const CATUnicodeString& method) {
        told.push_back(method.ToStdString());
        if (method == "WBApplyValues") {
            answer = RunServerCode("WBPendingChanges");
        }
    });
    server->answer = "3|";
    EXPECT_EQ(RunServerCode("WBApplyValues"), "3|");
    EXPECT_EQ(answer, "3|");
    EXPECT_THAT(told, ElementsAre("WBApplyValues", "WBPendingChanges"));
}

TEST_F(CATServerCallWatchTest, WatchThatEndedMeanwhileIsNotToldAndOneThatBeganHearsTheNextCall)
{
    std::unique_ptr<CATServerCallWatch> itself;
    std::unique_ptr<CATServerCallWatch> other;
    std::unique_ptr<CATServerCallWatch> begun;
    itself = std::make_unique<CATServerCallWatch>([&](const CATUnicodeString& method) {
        told.push_back("itself " + method.ToStdString());
        begun = std::make_unique<CATServerCallWatch>(Note());
        other.reset();
        itself.reset();
    });
    other = std::make_unique<CATServerCallWatch>(Note());
    RunServerCode("WBFirst");
    EXPECT_THAT(told, ElementsAre("itself WBFirst"));
    RunServerCode("WBSecond");
    EXPECT_THAT(told, ElementsAre("itself WBFirst", "WBSecond"));
}

TEST_F(CATServerCallWatchTest, AFaultInAListenerIsReportedAndTheOthersAreTold)
{
    const CATServerCallWatch failing(
        [](const CATUnicodeString&) { throw CATFatalError("AssertionFailed:x", "File.cpp", 43); });
    const CATServerCallWatch watch(Note());
    EXPECT_EQ(RunServerCode("WBMethod"), "answer");
    EXPECT_THAT(told, ElementsAre("WBMethod"));
    EXPECT_THAT(errors, ElementsAre(testing::HasSubstr("AssertionFailed:x")));
}
} // namespace
