#include "CATSession.h"

#include "CATCommandWatch.h"
#include "CATDiagnostics.h"
#include "RecordingCommand.h"

#include <gmock/gmock.h>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
const CATEvent kPressed("Pressed");

class CATSessionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        CATSession::SetFaultReporter([this](const auto& command, const auto& what) {
            m_told.push_back(command.ToStdString() + ": " + what.ToStdString());
        });
    }
    void TearDown() override
    {
        CATSession::Close();
        CATSession::SetDestructionScheduler({});
        CATSession::SetFaultReporter({});
    }

    RecordingCommand* Exclusive(const char* name, CATCommand* parent = nullptr)
    {
        return new RecordingCommand(parent, name, m_log);
    }
    RecordingCommand* Shared(const char* name)
    {
        return new RecordingCommand(nullptr, name, m_log, CATCommandMode::Shared);
    }
    void WriteDownRunningCommands()
    {
        CATSession::OnRunningCommandChanged([this](const CATCommand* running) {
            m_log.push_back("runs: " +
                            (running == nullptr ? "nothing" : running->Name().ToStdString()));
        });
    }

    Log m_log;
    Log m_told;
};
using CATSessionStart = CATSessionTest;
using CATSessionDestructions = CATSessionTest;
using CATSessionFaults = CATSessionTest;
using CATSessionClose = CATSessionTest;
} // namespace

TEST_F(CATSessionStart, CommandWithoutParentBecomesTheRootsChild)
{
    auto* command = Exclusive("A");

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_EQ(command->Parent(), &CATSession::Root());
    EXPECT_EQ(CATSession::Root().Child(1), command);
    EXPECT_EQ(CATSession::RunningCommand(), command);
    EXPECT_THAT(m_log, ElementsAre("A activated"));
}

TEST_F(CATSessionStart, CommandWithAParentKeepsIt)
{
    CATCommand window(nullptr, "Window");
    auto* command = Exclusive("A", &window);

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_EQ(command->Parent(), &window);
    EXPECT_EQ(CATSession::Root().ChildCount(), 0);
}

TEST_F(CATSessionStart, NothingCannotBeStarted)
{
    EXPECT_FALSE(CATSession::Start(nullptr));
}

TEST_F(CATSessionStart, CommandThatAskedForItsEndIsNotStarted)
{
    auto* command = Exclusive("A");
    command->RequestDelayedDestruction();

    EXPECT_FALSE(CATSession::Start(command));

    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
}

TEST_F(CATSessionStart, ExclusiveCommandCancelsTheRunningOne)
{
    WriteDownRunningCommands();
    auto* first = Exclusive("A");
    CATSession::Start(first);

    CATSession::Start(Exclusive("B"));

    EXPECT_THAT(m_log, ElementsAre("runs: A", "A activated", "A cancelled for B", "runs: B",
                                   "B activated"));
    EXPECT_TRUE(first->IsDestructionRequested());
}

TEST_F(CATSessionStart, CommandStartedAgainIsNotCancelled)
{
    WriteDownRunningCommands();
    auto* command = Exclusive("A");
    CATSession::Start(command);

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_THAT(m_log, ElementsAre("runs: A", "A activated", "A activated"));
}

TEST_F(CATSessionStart, SharedCommandRunsBesideTheExclusiveOne)
{
    auto* exclusive = Exclusive("A");
    CATSession::Start(exclusive);

    EXPECT_TRUE(CATSession::Start(Shared("S")));

    EXPECT_EQ(CATSession::RunningCommand(), exclusive);
    EXPECT_THAT(m_log, ElementsAre("A activated", "S activated"));
}

TEST_F(CATSessionStart, SharedCommandsAreHiddenWhileAnExclusiveOneRuns)
{
    CATSession::Start(Shared("S"));
    CATSession::Start(Shared("T"));
    auto* exclusive = Exclusive("A");

    CATSession::Start(exclusive);
    EXPECT_THAT(m_log, ElementsAre("S activated", "T activated", "S hidden for A", "T hidden for A",
                                   "A activated"));
    m_log.clear();
    exclusive->RequestDelayedDestruction();

    EXPECT_THAT(m_log, ElementsAre("S activated", "T activated"));
}

TEST_F(CATSessionStart, SharedCommandsStayHiddenWhileOneExclusiveReplacesAnother)
{
    CATSession::Start(Shared("S"));
    CATSession::Start(Exclusive("A"));
    m_log.clear();

    CATSession::Start(Exclusive("B"));
    EXPECT_THAT(m_log, ElementsAre("A cancelled for B", "B activated"));
    CATSession::CancelRunningCommand();

    EXPECT_THAT(m_log,
                ElementsAre("A cancelled for B", "B activated", "B cancelled", "S activated"));
}

TEST_F(CATSessionStart, HiddenSharedCommandThatEndsDoesNotComeBack)
{
    auto* shared = Shared("S");
    CATSession::Start(shared);
    CATSession::Start(Exclusive("A"));
    shared->RequestDelayedDestruction();
    m_log.clear();

    CATSession::CancelRunningCommand();

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
}

TEST_F(CATSessionStart, SharedCommandThatWantsToBeExclusiveIsSoWhenItComesBack)
{
    auto* shared = Shared("S");
    CATSession::Start(shared);
    CATSession::Start(Exclusive("A"));

    shared->RequestStatusChange(CATCommandMode::Exclusive);
    EXPECT_NE(CATSession::RunningCommand(), shared);
    CATSession::CancelRunningCommand();

    EXPECT_EQ(CATSession::RunningCommand(), shared);
}

TEST_F(CATSessionStart, SharedCommandStartedAgainAsExclusiveIsNotHiddenForItself)
{
    auto* command = Shared("S");
    CATSession::Start(command);

    command->RequestStatusChange(CATCommandMode::Exclusive);
    CATSession::Start(command);

    EXPECT_EQ(CATSession::RunningCommand(), command);
    EXPECT_THAT(m_log, ElementsAre("S activated", "S activated"));
}

TEST_F(CATSessionStart, ExclusiveCommandStartedAgainAsSharedIsNoLongerTheRunningOne)
{
    CATSession::Start(Shared("S"));
    auto* command = Exclusive("A");
    CATSession::Start(command);
    WriteDownRunningCommands();
    m_log.clear();

    command->RequestStatusChange(CATCommandMode::Shared);
    CATSession::Start(command);

    EXPECT_THAT(m_log, ElementsAre("runs: nothing", "S activated", "A activated"));
    m_log.clear();
    CATSession::Start(Exclusive("B"));
    EXPECT_THAT(m_log, ElementsAre("S hidden for B", "A hidden for B", "runs: B", "B activated"));
}

TEST_F(CATSessionStart, CommandIsNoLongerRunningOnceItsDestructionIsAskedFor)
{
    WriteDownRunningCommands();
    auto* command = Exclusive("A");
    CATSession::Start(command);

    command->RequestDelayedDestruction();

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_THAT(m_log, ElementsAre("runs: A", "A activated", "runs: nothing"));
}

TEST_F(CATSessionStart, DestroyedCommandIsNoLongerRunning)
{
    auto* window = new CATCommand(nullptr, "Window");
    CATSession::Start(Exclusive("A", window));
    WriteDownRunningCommands();

    window->Release();

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_THAT(m_log, ElementsAre("A activated", "A destroyed", "runs: nothing"));
}

TEST_F(CATSessionStart, EscCancelsTheRunningCommand)
{
    auto* command = Exclusive("A");
    CATSession::Start(command);

    CATSession::CancelRunningCommand();

    EXPECT_THAT(m_log, ElementsAre("A activated", "A cancelled"));
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(CATSessionStart, EscWithoutARunningCommandDoesNothing)
{
    CATSession::CancelRunningCommand();

    EXPECT_THAT(m_log, IsEmpty());
}

namespace
{
class CommandThatKeepsItself : public CATCommand
{
public:
    using CATCommand::CATCommand;
    long Activate(CATCommand*, const CATNotification*) override { return activateStatus; }
    long Cancel(CATCommand*, const CATNotification*) override { return S_OK; }

    long activateStatus = S_OK;
};
} // namespace

TEST_F(CATSessionStart, CancelledCommandIsNotRunningEvenWhenItKeepsItself)
{
    CATSession::Start(new CommandThatKeepsItself(nullptr, "K"));

    CATSession::CancelRunningCommand();

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

TEST_F(CATSessionStart, CommandThatEndsInItsActivationWasStartedAndIsNotRunning)
{
    CATSession::Start(Shared("S"));
    auto* command = Exclusive("A");
    command->onActivate = [command] {
        command->Cancel(nullptr, nullptr);
    };

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_THAT(m_log, ElementsAre("S activated", "S hidden for A", "A activated", "A cancelled",
                                   "S activated"));
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(CATSessionStart, NegativeActivationStatusEndsTheCommandAndIsTold)
{
    auto* command = Exclusive("A");
    command->activateStatus = E_FAIL;

    EXPECT_FALSE(CATSession::Start(command));

    EXPECT_THAT(m_log, ElementsAre("A activated", "A cancelled"));
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_THAT(m_told, ElementsAre("A: It could not be activated (status 80004005)."));
}

TEST_F(CATSessionStart, CommandThatCannotBeActivatedIsDestroyedEvenWhenItKeepsItself)
{
    auto* command = new CommandThatKeepsItself(nullptr, "K");
    command->activateStatus = E_FAIL;

    EXPECT_FALSE(CATSession::Start(command));

    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(CATSessionStart, PositiveActivationStatusIsNoFailure)
{
    auto* command = Exclusive("A");
    command->activateStatus = S_FALSE;

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_EQ(CATSession::RunningCommand(), command);
}

TEST_F(CATSessionStart, FaultOfTheActivationEndsTheCommandAndIsTold)
{
    auto* command = Exclusive("A");
    command->onActivate = RaiseFatalError;

    EXPECT_FALSE(CATSession::Start(command));

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kFatalErrorSentence));
}

TEST_F(CATSessionStart, CommandThatRecoversFromItsActivationRuns)
{
    auto* command = Exclusive("A");
    command->onActivate = RaiseFatalError;
    command->recovers = true;

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_EQ(CATSession::RunningCommand(), command);
}

TEST_F(CATSessionStart, FailingReplacedCommandDoesNotStopTheNewOne)
{
    auto* first = Exclusive("A");
    first->onCancel = RaiseFatalError;
    CATSession::Start(first);
    auto* second = Exclusive("B");

    EXPECT_TRUE(CATSession::Start(second));

    EXPECT_EQ(CATSession::RunningCommand(), second);
    EXPECT_TRUE(first->IsDestructionRequested());
    EXPECT_THAT(m_log, ElementsAre("A activated", "A cancelled for B", "B activated"));
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kFatalErrorSentence));
}

TEST_F(CATSessionStart, FailingHiddenCommandDoesNotStopTheNewOne)
{
    auto* shared = Shared("S");
    shared->onDesactivate = RaiseFatalError;
    CATSession::Start(shared);
    auto* exclusive = Exclusive("A");

    EXPECT_TRUE(CATSession::Start(exclusive));

    EXPECT_EQ(CATSession::RunningCommand(), exclusive);
    EXPECT_TRUE(shared->IsDestructionRequested());
}

TEST_F(CATSessionStart, CommandThatAnotherOneReplacesWhileItStartsIsNotActivated)
{
    auto* first = Exclusive("A");
    CATSession::Start(first);
    auto* third = Exclusive("C");
    first->onCancel = [third] {
        CATSession::Start(third);
    };

    EXPECT_FALSE(CATSession::Start(Exclusive("B")));

    EXPECT_EQ(CATSession::RunningCommand(), third);
    EXPECT_THAT(
        m_log, ElementsAre("A activated", "A cancelled for B", "B cancelled for C", "C activated"));
}

TEST_F(CATSessionStart, CommandThatIsDestroyedWhileItStartsIsNotTouched)
{
    CATSession::Start(Shared("S"));
    auto* first = Exclusive("A");
    CATSession::Start(first);
    auto* second = Exclusive("B");
    first->onCancel = [second] {
        second->Release();
    };
    m_log.clear();

    EXPECT_FALSE(CATSession::Start(second));

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_THAT(m_log, ElementsAre("A cancelled for B", "B destroyed", "S activated"));
}

TEST_F(CATSessionStart, ListenerMayStartACommand)
{
    CATSession::Start(Shared("S"));
    CATSession::Start(Exclusive("A"));
    auto* next = Exclusive("B");
    CATSession::OnRunningCommandChanged([next](const CATCommand* running) {
        if (running == nullptr) {
            CATSession::Start(next);
        }
    });
    m_log.clear();

    CATSession::CancelRunningCommand();

    EXPECT_EQ(CATSession::RunningCommand(), next);
    EXPECT_THAT(m_log, ElementsAre("A cancelled", "B activated"));
}

TEST_F(CATSessionStart, EveryListenerIsTold)
{
    WriteDownRunningCommands();
    WriteDownRunningCommands();

    CATSession::Start(Exclusive("A"));

    EXPECT_THAT(m_log, ElementsAre("runs: A", "runs: A", "A activated"));
}

TEST_F(CATSessionDestructions, CommandsAreDestroyedInTheOrderOfAsking)
{
    auto* a = Exclusive("A");
    auto* b = Exclusive("B");
    b->RequestDelayedDestruction();
    a->RequestDelayedDestruction();
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(CATSession::PendingDestructions(), 2);

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("B destroyed", "A destroyed"));
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

TEST_F(CATSessionDestructions, AskingTwiceIsHarmless)
{
    auto* a = Exclusive("A");
    a->RequestDelayedDestruction();
    a->RequestDelayedDestruction();
    EXPECT_EQ(CATSession::PendingDestructions(), 1);

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("A destroyed"));
}

TEST_F(CATSessionDestructions, ChildGoesWithItsParentAndLeavesTheQueue)
{
    auto* parent = Exclusive("Parent");
    auto* child = Exclusive("Child", parent);
    parent->RequestDelayedDestruction();
    child->RequestDelayedDestruction();

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("Parent destroyed", "Child destroyed"));
}

TEST_F(CATSessionDestructions, DestroyedCommandLeavesTheQueue)
{
    auto* a = Exclusive("A");
    a->RequestDelayedDestruction();

    a->Release();

    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

TEST_F(CATSessionDestructions, WhatADestructorAsksForGoesInTheSameRun)
{
    auto* command = Exclusive("Command");
    auto* agent = Exclusive("Agent");
    command->onDestroyed = [agent] {
        agent->RequestDelayedDestruction();
    };
    command->RequestDelayedDestruction();

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("Command destroyed", "Agent destroyed"));
}

TEST_F(CATSessionDestructions, ARunInsideARunDestroysNothing)
{
    auto* a = Exclusive("A");
    auto* b = Exclusive("B");
    a->RequestDelayedDestruction();
    b->RequestDelayedDestruction();
    a->onDestroyed = [this] {
        CATSession::RunDelayedDestructions();
        m_log.push_back("pending " + std::to_string(CATSession::PendingDestructions()));
    };

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("A destroyed", "pending 1", "B destroyed"));
}

TEST_F(CATSessionDestructions, HeldCommandLeavesTheTree)
{
    auto* a = Exclusive("A", &CATSession::Root());
    const CATHandle<CATCommand> held(a);
    a->RequestDelayedDestruction();

    CATSession::RunDelayedDestructions();

    EXPECT_EQ(CATSession::Root().ChildCount(), 0);
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATSessionDestructions, NothingIsDestroyedInsideANestedLoop)
{
    Exclusive("A")->RequestDelayedDestruction();
    {
        const CATSession::NestedLoop box;
        CATSession::RunDelayedDestructions();
        EXPECT_THAT(m_log, IsEmpty());
    }

    CATSession::RunDelayedDestructions();

    EXPECT_THAT(m_log, ElementsAre("A destroyed"));
}

TEST_F(CATSessionDestructions, SchedulerIsCalledWhenSomethingBeginsToWait)
{
    int calls = 0;
    CATSession::SetDestructionScheduler([&] { ++calls; });
    EXPECT_EQ(calls, 0);
    auto* a = Exclusive("A");

    a->RequestDelayedDestruction();
    EXPECT_EQ(calls, 1);
    a->RequestDelayedDestruction();

    EXPECT_EQ(calls, 1);
}

TEST_F(CATSessionDestructions, SchedulerIsCalledAgainWhenTheLastNestedLoopEnds)
{
    int calls = 0;
    CATSession::SetDestructionScheduler([&] { ++calls; });
    {
        const CATSession::NestedLoop box;
        {
            const CATSession::NestedLoop wait;
            Exclusive("A")->RequestDelayedDestruction();
        }
        EXPECT_EQ(calls, 0);
    }

    EXPECT_EQ(calls, 1);
}

TEST_F(CATSessionDestructions, SchedulerIsNotCalledAfterALoopWhenNothingWaits)
{
    int calls = 0;
    CATSession::SetDestructionScheduler([&] { ++calls; });
    {
        const CATSession::NestedLoop box;
    }

    EXPECT_EQ(calls, 0);
}

TEST_F(CATSessionDestructions, SchedulerThatComesLateIsCalledForWhatWaits)
{
    Exclusive("A")->RequestDelayedDestruction();
    int calls = 0;

    CATSession::SetDestructionScheduler([&] { ++calls; });

    EXPECT_EQ(calls, 1);
}

TEST_F(CATSessionDestructions, SchedulerIsNotCalledInsideARun)
{
    auto* command = Exclusive("Command");
    auto* agent = Exclusive("Agent");
    command->onDestroyed = [agent] {
        agent->RequestDelayedDestruction();
    };
    command->RequestDelayedDestruction();
    int calls = 0;
    CATSession::SetDestructionScheduler([&] { ++calls; });
    EXPECT_EQ(calls, 1);

    CATSession::RunDelayedDestructions();

    EXPECT_EQ(calls, 1);
}

TEST_F(CATSessionFaults, ActionWithoutFaultIsTrue)
{
    auto* command = Exclusive("A");

    EXPECT_TRUE(CATSession::RunGuarded(command, [this] { m_log.emplace_back("ran"); }));

    EXPECT_THAT(m_log, ElementsAre("ran"));
    EXPECT_THAT(m_told, IsEmpty());
    command->Release();
}

TEST_F(CATSessionFaults, NullHandleEndsTheCommand)
{
    auto* command = Exclusive("A");

    EXPECT_FALSE(CATSession::RunGuarded(command, CATRaiseNullHandle));

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kNullHandleSentence));
}

TEST_F(CATSessionFaults, OtherExceptionsPassThrough)
{
    auto* command = Exclusive("A");

    EXPECT_THROW(
        CATSession::RunGuarded(command, [] { throw std::runtime_error("not the host's"); }),
        std::runtime_error);

    EXPECT_FALSE(command->IsDestructionRequested());
    command->Release();
}

TEST_F(CATSessionFaults, FailingCommandThatKeepsItselfIsDestroyed)
{
    auto* command = new CommandThatKeepsItself(nullptr, "K");

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(CATSessionFaults, CommandThatRecoversGoesOnAndTheUserIsToldAfterwards)
{
    auto* command = Exclusive("A");
    command->recovers = true;
    command->onRecover = [this] {
        m_told.emplace_back("recovered");
    };

    EXPECT_FALSE(CATSession::RunGuarded(command, RaiseFatalError));

    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_FALSE(command->IsDestructionRequested());
    EXPECT_THAT(m_told, ElementsAre("recovered", std::string("A: ") + kFatalErrorSentence));
    command->Release();
}

TEST_F(CATSessionFaults, CommandThatFailsToRecoverIsEnded)
{
    auto* command = Exclusive("A");
    command->recovers = true;
    command->onRecover = CATRaiseNullHandle;

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kFatalErrorSentence +
                                    " Recovering failed too: " + kNullHandleSentence));
}

TEST_F(CATSessionFaults, FaultInsideCancelEndsTheCommandOnce)
{
    auto* command = Exclusive("A");
    command->onCancel = CATRaiseNullHandle;

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kFatalErrorSentence +
                                    " Ending it failed too: " + kNullHandleSentence));
}

TEST_F(CATSessionFaults, FailingHandlerOfWhatCancelSendsDoesNotCancelAgain)
{
    auto* command = Exclusive("A");
    command->Subscribe(command, kPressed, [](const auto&) { RaiseFatalError(); });
    command->onCancel = [command] {
        command->Send(kPressed);
    };

    command->Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
    EXPECT_EQ(m_told.size(), 2U);
}

TEST_F(CATSessionFaults, CommandThatFailedOnceIsStillLookedAfter)
{
    auto* command = Exclusive("A");
    command->recovers = true;
    CATSession::RunGuarded(command, RaiseFatalError);
    command->recovers = false;

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_THAT(m_log, ElementsAre("A cancelled"));
}

TEST_F(CATSessionFaults, CommandThatEndsAlreadyIsNotCancelledAgain)
{
    auto* command = Exclusive("A");
    command->RequestDelayedDestruction();

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(m_told.size(), 1U);
}

TEST_F(CATSessionFaults, CommandDestroyedByTheActionThatFailsIsNotTouched)
{
    auto* command = Exclusive("A");

    CATSession::RunGuarded(command, [command] {
        command->Release();
        RaiseFatalError();
    });

    EXPECT_THAT(m_log, ElementsAre("A destroyed"));
    EXPECT_THAT(m_told, ElementsAre(std::string("A: ") + kFatalErrorSentence));
}

TEST_F(CATSessionFaults, CommandDestroyedByItsOwnRecoveryIsNotTouched)
{
    auto* command = Exclusive("A");
    command->onRecover = [command] {
        command->Release();
        RaiseFatalError();
    };

    CATSession::RunGuarded(command, RaiseFatalError);

    EXPECT_THAT(m_log, ElementsAre("A destroyed"));
}

TEST_F(CATSessionFaults, FaultOfNobodyIsToldWithoutAName)
{
    EXPECT_FALSE(CATSession::RunGuarded(nullptr, RaiseFatalError));

    EXPECT_THAT(m_told, ElementsAre(std::string(": ") + kFatalErrorSentence));
}

TEST_F(CATSessionFaults, FaultThatNobodyReportsGoesToTheDiagnosticErrors)
{
    CATSession::SetFaultReporter({});
    auto former = CATDiagnosticErrors().SetListener(
        [this](std::string_view line) { m_log.emplace_back(line); });

    CATSession::RunGuarded(nullptr, RaiseFatalError);
    CATDiagnosticErrors().SetListener(std::move(former));

    EXPECT_THAT(m_log, ElementsAre(std::string(": ") + kFatalErrorSentence));
}

TEST_F(CATSessionFaults, CaughtFaultIsASentenceAndIsNotTold)
{
    const auto fault = CATSession::CatchFault(RaiseFatalError);

    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(*fault, kFatalErrorSentence);
    EXPECT_THAT(m_told, IsEmpty());
    EXPECT_EQ(CATSession::CatchFault([] {}), std::nullopt);
}

TEST_F(CATSessionClose, DestroysTheTreeLastToFirstThenWhatWaits)
{
    auto* agent = Exclusive("Agent");
    auto* command = Exclusive("A", &CATSession::Root());
    command->onDestroyed = [agent] {
        agent->RequestDelayedDestruction();
    };
    Exclusive("B", &CATSession::Root());

    CATSession::Close();

    EXPECT_THAT(m_log, ElementsAre("B destroyed", "A destroyed", "Agent destroyed"));
}

TEST_F(CATSessionClose, TellsNobodyAndBringsNothingBack)
{
    CATSession::Start(Shared("S"));
    CATSession::Start(Exclusive("A"));
    WriteDownRunningCommands();
    m_log.clear();

    CATSession::Close();

    EXPECT_THAT(m_log, ElementsAre("A destroyed", "S destroyed"));
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
}

TEST_F(CATSessionClose, CommandsThatAreStillHeldRunNoMore)
{
    const CATHandle<CATCommand> exclusive(Exclusive("A"));
    CATSession::Start(exclusive.Get());
    const CATHandle<CATCommand> shared(Shared("S"));
    CATSession::Start(shared.Get());

    CATSession::Close();
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    m_log.clear();
    CATSession::Start(Exclusive("B"));

    EXPECT_THAT(m_log, ElementsAre("B activated"));
}

TEST_F(CATSessionClose, ForgetsTheListeners)
{
    WriteDownRunningCommands();
    CATSession::Close();

    CATSession::Start(Exclusive("A"));

    EXPECT_THAT(m_log, ElementsAre("A activated"));
}

TEST_F(CATSessionClose, DestroysEvenInsideANestedLoop)
{
    Exclusive("A")->RequestDelayedDestruction();
    const CATSession::NestedLoop box;

    CATSession::Close();

    EXPECT_THAT(m_log, ElementsAre("A destroyed"));
}

TEST_F(CATSessionClose, SessionClosedTwiceStaysClosed)
{
    CATSession::Root();
    CATSession::Close();
    CATSession::Close();

    EXPECT_EQ(CATSession::Root().ChildCount(), 0);
    EXPECT_EQ(CATSession::Root().Parent(), nullptr);
}
