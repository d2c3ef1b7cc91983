#include "CATStateCommand.h"

#include "CATApplicationFrame.h"
#include "CATCommandWatch.h"
#include "CATSession.h"
#include "Picks.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
using Log = std::vector<std::string>;

/// A command whose graph a test builds.
class TestCommand : public CATStateCommand
{
public:
    using Builder = std::function<void(TestCommand& command)>;

    TestCommand(const char* name, Builder builder, CATCommandMode mode = CATCommandMode::Exclusive)
        : CATStateCommand(name, mode), m_builder(std::move(builder))
    {}
    bool RecoverFromFault() override { return recovers; }

    using CATStateCommand::AddState;
    using CATStateCommand::AddTransition;
    bool recovers = false;

protected:
    void BuildGraph() override { m_builder(*this); }

private:
    Builder m_builder;
};

class CATStateCommandTest : public testing::Test
{
protected:
    void SetUp() override
    {
        CATSession::SetFaultReporter([this](const auto& command, const auto& what) {
            m_log.push_back(command.ToStdString() + ": " + what.ToStdString());
        });
    }
    void TearDown() override
    {
        CATSession::Close();
        CATSession::SetFaultReporter({});
    }

    /// One state that loops on itself with the action, and an agent of the command's own.
    TestCommand* MakeLoop(const char* name, std::function<bool()> action,
                          CATCommandMode mode = CATCommandMode::Exclusive)
    {
        return new TestCommand(
            name,
            [this, name, action](TestCommand& command) {
                m_agent = new CATPathElementAgent("Agent", &command);
                CATDialogState* state = command.AddState(std::string("Pick for ") + name);
                state->AddAgent(m_agent);
                command.AddTransition(state, state, m_agent, action);
            },
            mode);
    }
    std::function<bool()> Write(const char* text, bool answer = true)
    {
        return [this, text, answer] {
            m_log.emplace_back(text);
            return answer;
        };
    }

    CATPathElementAgent* m_agent = nullptr;
    Log m_log;
};
using CATStateCommandPrompt = CATStateCommandTest;
} // namespace

TEST_F(CATStateCommandTest, ModeIsWhatTheConstructorSays)
{
    const TestCommand exclusive("A", [](auto&) {});
    const TestCommand shared(
        "S", [](auto&) {}, CATCommandMode::Shared);

    EXPECT_EQ(exclusive.Mode(), CATCommandMode::Exclusive);
    EXPECT_EQ(shared.Mode(), CATCommandMode::Shared);
    EXPECT_EQ(exclusive.Name(), "A");
}

TEST_F(CATStateCommandTest, GraphIsBuiltAtTheFirstActivationAlone)
{
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        m_log.emplace_back("built");
        self.AddState("");
    });
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(command->CurrentState(), nullptr);

    CATSession::Start(command);
    CATSession::Start(command);

    EXPECT_THAT(m_log, ElementsAre("built"));
}

TEST_F(CATStateCommandTest, FirstStateIsTheInitialOne)
{
    auto* command = new TestCommand("A", [](TestCommand& self) {
        self.AddState("first");
        self.AddState("second");
    });

    EXPECT_EQ(command->Activate(nullptr, nullptr), S_OK);

    ASSERT_NE(command->CurrentState(), nullptr);
    EXPECT_EQ(command->CurrentState()->Prompt(), "first");
    EXPECT_TRUE(command->IsWaiting());
    command->Release();
}

TEST_F(CATStateCommandTest, GraphWithoutAStateWaitsForNothing)
{
    auto* command = new TestCommand("A", [](TestCommand&) {});

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_FALSE(command->IsWaiting());
    EXPECT_FALSE(command->Offer({MakePick()}));
    EXPECT_EQ(CATSession::RunningCommand(), command);
}

TEST_F(CATStateCommandTest, PickRunsTheActionOfTheTransition)
{
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);
    const auto pick = MakePick();

    EXPECT_TRUE(command->Offer({pick}));

    EXPECT_THAT(m_log, ElementsAre("ran"));
    EXPECT_EQ(m_agent->GetValue(), pick);
    EXPECT_TRUE(command->IsWaiting());
}

TEST_F(CATStateCommandTest, SetOfPicksRunsTheActionOnce)
{
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);
    m_agent->SetBehaviour(CATDialogAgent::kTakesSets);

    command->Offer({MakePick(), MakePick(), MakePick()});

    EXPECT_THAT(m_log, ElementsAre("ran"));
    EXPECT_EQ(m_agent->GetListOfValues().size(), 3U);
}

TEST_F(CATStateCommandTest, EveryPickRunsTheActionAgain)
{
    auto* command = MakeLoop("A", [this] {
        m_log.emplace_back("ran");
        m_agent->InitializeAcquisition();
        return true;
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));
    EXPECT_FALSE(m_agent->IsOutputSet());
    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre("ran", "ran"));
}

TEST_F(CATStateCommandTest, EmptyPickIsNotTaken)
{
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);

    EXPECT_FALSE(command->Offer({}));

    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATStateCommandTest, PickInsideTheActionIsNotTaken)
{
    TestCommand* command = nullptr;
    command = MakeLoop("A", [this, &command] {
        m_log.emplace_back(command->Offer({MakePick()}) ? "taken" : "refused");
        return true;
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre("refused"));
}

TEST_F(CATStateCommandTest, TransitionEntersItsState)
{
    auto* agent = new CATPathElementAgent("Agent");
    auto* command = new TestCommand("A", [&](TestCommand& self) {
        CATDialogState* first = self.AddState("first");
        CATDialogState* second = self.AddState("second");
        first->AddAgent(agent);
        second->AddAgent(agent);
        self.AddTransition(first, second, agent, Write("first to second"));
        self.AddTransition(second, first, agent, Write("second to first"));
    });
    CATSession::Start(command);

    command->Offer({MakePick()});
    EXPECT_EQ(command->CurrentState()->Prompt(), "second");
    EXPECT_THAT(m_log, ElementsAre("first to second"));
    command->Offer({MakePick()});

    EXPECT_EQ(command->CurrentState()->Prompt(), "first");
    EXPECT_THAT(m_log, ElementsAre("first to second", "second to first"));
    agent->RequestDelayedDestruction();
}

TEST_F(CATStateCommandTest, ActionThatRefusesTheInputStaysInItsState)
{
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* first = self.AddState("first");
        first->AddAgent(m_agent);
        self.AddTransition(first, self.AddState("second"), m_agent, Write("ran", false));
    });
    CATSession::Start(command);

    EXPECT_FALSE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre("ran"));
    EXPECT_EQ(command->CurrentState()->Prompt(), "first");
    EXPECT_TRUE(command->IsWaiting());
}

TEST_F(CATStateCommandTest, TransitionNeedsNoAction)
{
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* first = self.AddState("first");
        first->AddAgent(m_agent);
        self.AddTransition(first, self.AddState("second"), m_agent, {});
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_EQ(command->CurrentState()->Prompt(), "second");
}

TEST_F(CATStateCommandTest, FirstTransitionWhoseAgentIsSetIsTaken)
{
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        auto* unset = new CATPathElementAgent("Unset", &self);
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* state = self.AddState("");
        state->AddAgent(m_agent);
        self.AddTransition(state, state, unset, Write("unset"));
        self.AddTransition(state, state, m_agent, Write("first"));
        self.AddTransition(state, state, m_agent, Write("second"));
    });
    CATSession::Start(command);

    command->Offer({MakePick()});

    EXPECT_THAT(m_log, ElementsAre("first"));
}

TEST_F(CATStateCommandTest, TransitionThatLacksSomethingIsNotAdded)
{
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* state = self.AddState("");
        state->AddAgent(m_agent);
        self.AddTransition(nullptr, state, m_agent, Write("no from"));
        self.AddTransition(state, nullptr, m_agent, Write("no to"));
        self.AddTransition(state, state, nullptr, Write("no agent"));
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_TRUE(command->IsWaiting());
}

TEST_F(CATStateCommandTest, PickGoesToTheFirstAgentThatTakesIt)
{
    CATPathElementAgent* second = nullptr;
    auto* command = new TestCommand("A", [&](TestCommand& self) {
        CATDialogState* state = self.AddState("");
        state->AddAgent(new CATDialogAgent("TakesNoPicks", &self));
        m_agent = new CATPathElementAgent("First", &self);
        second = new CATPathElementAgent("Second", &self);
        state->AddAgent(m_agent);
        state->AddAgent(second);
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_TRUE(m_agent->IsOutputSet());
    EXPECT_FALSE(second->IsOutputSet());
}

TEST_F(CATStateCommandTest, AgentDestroyedBeforeTheCommandIsForgotten)
{
    auto* agent = new CATPathElementAgent("Agent");
    auto* command = new TestCommand("A", [&](TestCommand& self) {
        CATDialogState* state = self.AddState("");
        state->AddAgent(agent);
        self.AddTransition(state, state, agent, Write("dangling"));
    });
    CATSession::Start(command);
    agent->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();

    EXPECT_FALSE(command->Offer({MakePick()}));

    EXPECT_THAT(command->CurrentState()->Agents(), IsEmpty());
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATStateCommandTest, TransitionOfADestroyedAgentIsPassedOver)
{
    auto* gone = new CATPathElementAgent("Gone");
    gone->Offer({MakePick()});
    auto* command = new TestCommand("A", [&](TestCommand& self) {
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* state = self.AddState("");
        state->AddAgent(m_agent);
        self.AddTransition(state, state, gone, Write("dangling"));
        self.AddTransition(state, state, m_agent, Write("ran"));
    });
    CATSession::Start(command);
    gone->Release();

    command->Offer({MakePick()});

    EXPECT_THAT(m_log, ElementsAre("ran"));
}

TEST_F(CATStateCommandTest, DesactivatedCommandTakesNoPicksAndKeepsItsState)
{
    auto* agent = new CATPathElementAgent("Agent");
    auto* command = new TestCommand("A", [&](TestCommand& self) {
        CATDialogState* first = self.AddState("first");
        first->AddAgent(agent);
        self.AddTransition(first, self.AddState("second"), agent, {});
    });
    CATSession::Start(command);
    command->Offer({MakePick()});

    EXPECT_EQ(command->Desactivate(nullptr, nullptr), S_OK);
    EXPECT_FALSE(command->IsWaiting());
    EXPECT_FALSE(command->Offer({MakePick()}));
    command->Activate(nullptr, nullptr);

    EXPECT_TRUE(command->IsWaiting());
    EXPECT_EQ(command->CurrentState()->Prompt(), "second");
    agent->RequestDelayedDestruction();
}

TEST_F(CATStateCommandTest, CancelledCommandHasNoStateAndIsDestroyedLater)
{
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);
    const CATCommandWatch<CATCommand> watch(command);

    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);

    EXPECT_EQ(command->CurrentState(), nullptr);
    EXPECT_FALSE(command->Offer({MakePick()}));
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(watch.Get(), command);
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(CATStateCommandTest, CommandWhoseDestructionIsAskedForTakesNoPicks)
{
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);

    command->RequestDelayedDestruction();

    EXPECT_FALSE(command->IsWaiting());
    EXPECT_FALSE(command->Offer({MakePick()}));
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATStateCommandTest, ActionMayCancelItsCommand)
{
    TestCommand* command = nullptr;
    command = MakeLoop("A", [&command] {
        command->Cancel(nullptr, nullptr);
        return true;
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_EQ(command->CurrentState(), nullptr);
}

TEST_F(CATStateCommandTest, ActionMayDestroyItsCommand)
{
    TestCommand* command = nullptr;
    command = MakeLoop("A", [&command] {
        command->Release();
        return true;
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
}

TEST_F(CATStateCommandTest, ActionMayAddTransitions)
{
    TestCommand* command = nullptr;
    const std::string text(100, 'x'); // lives in the action itself
    command = MakeLoop("A", [this, &command, text] {
        CATDialogState* state = command->AddState("");
        for (int count = 0; count < 100; ++count) {
            command->AddTransition(state, state, m_agent, {});
        }
        m_log.push_back(text);
        return true;
    });
    CATSession::Start(command);

    EXPECT_TRUE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre(std::string(100, 'x')));
}

TEST_F(CATStateCommandTest, FailingActionEndsTheCommandAndIsTold)
{
    auto* command = MakeLoop("A", []() -> bool { CATRaiseNullHandle(); });
    CATSession::Start(command);

    EXPECT_FALSE(command->Offer({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre("A: a null handle was used."));
    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
}

TEST_F(CATStateCommandTest, CommandThatRecoversWaitsInItsStateForTheNextPick)
{
    bool fails = true;
    auto* command = MakeLoop("A", [&fails]() -> bool {
        if (fails) {
            CATRaiseNullHandle();
        }
        return true;
    });
    command->recovers = true;
    CATSession::Start(command);
    command->Offer({MakePick()});

    fails = false;

    EXPECT_TRUE(command->IsWaiting());
    EXPECT_TRUE(command->Offer({MakePick()}));
}

namespace
{
class FailingAgent : public CATPathElementAgent
{
public:
    using CATPathElementAgent::CATPathElementAgent;
    bool Offer(const std::vector<CATPathElement_var>&) override { CATRaiseNullHandle(); }
};
} // namespace

TEST_F(CATStateCommandTest, AgentThatFailsToTakeAPickEndsTheCommand)
{
    auto* command = new TestCommand("A", [](TestCommand& self) {
        self.AddState("")->AddAgent(new FailingAgent("Agent", &self));
    });
    CATSession::Start(command);

    EXPECT_FALSE(command->Offer({MakePick()}));

    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(CATStateCommandTest, PickIsGivenToTheRunningCommandAlone)
{
    auto* shared = MakeLoop("S", Write("shared"), CATCommandMode::Shared);
    CATSession::Start(shared);
    EXPECT_FALSE(CATOfferPick({MakePick()}));

    CATSession::Start(MakeLoop("A", Write("exclusive")));
    EXPECT_TRUE(CATOfferPick({MakePick()}));

    EXPECT_THAT(m_log, ElementsAre("exclusive"));
}

TEST_F(CATStateCommandTest, CommandThatHasNoStatesTakesNoPick)
{
    CATSession::Start(new CATCommand(nullptr, "Dialog"));

    EXPECT_FALSE(CATOfferPick({MakePick()}));
}

TEST_F(CATStateCommandPrompt, StandsInTheFrameWhileTheCommandWaits)
{
    const CATApplicationFrame frame(nullptr);
    auto* command = MakeLoop("A", Write("ran"));

    CATSession::Start(command);
    EXPECT_EQ(frame.Prompt(), "Pick for A");
    command->Desactivate(nullptr, nullptr);
    EXPECT_EQ(frame.Prompt(), "");
    command->Activate(nullptr, nullptr);
    EXPECT_EQ(frame.Prompt(), "Pick for A");
    command->Cancel(nullptr, nullptr);

    EXPECT_EQ(frame.Prompt(), "");
}

TEST_F(CATStateCommandPrompt, ChangesWithTheState)
{
    const CATApplicationFrame frame(nullptr);
    auto* command = new TestCommand("A", [this](TestCommand& self) {
        m_agent = new CATPathElementAgent("Agent", &self);
        CATDialogState* first = self.AddState("first");
        first->AddAgent(m_agent);
        self.AddTransition(first, self.AddState("second"), m_agent, {});
    });
    CATSession::Start(command);

    command->Offer({MakePick()});

    EXPECT_EQ(frame.Prompt(), "second");
}

TEST_F(CATStateCommandPrompt, StaysAwayWhenTheActionHidTheCommand)
{
    const CATApplicationFrame frame(nullptr);
    TestCommand* command = nullptr;
    command = MakeLoop("A", [&command] {
        command->Desactivate(nullptr, nullptr);
        return true;
    });
    CATSession::Start(command);

    command->Offer({MakePick()});

    EXPECT_EQ(frame.Prompt(), "");
}

TEST_F(CATStateCommandPrompt, GoesWithACommandThatIsDestroyed)
{
    const CATApplicationFrame frame(nullptr);
    auto* command = MakeLoop("A", Write("ran"));
    CATSession::Start(command);
    command->RequestDelayedDestruction();

    CATSession::RunDelayedDestructions();

    EXPECT_EQ(frame.Prompt(), "");
}

TEST_F(CATStateCommandPrompt, OfTheNextCommandStaysWhenTheFormerIsDestroyed)
{
    const CATApplicationFrame frame(nullptr);
    auto* former = MakeLoop("A", Write("ran"));
    CATSession::Start(former);
    former->RequestDelayedDestruction();
    CATSession::Start(MakeLoop("B", Write("ran")));

    CATSession::RunDelayedDestructions();

    EXPECT_EQ(frame.Prompt(), "Pick for B");
}

TEST_F(CATStateCommandPrompt, OfASharedCommandDoesNotHideTheRunningOnes)
{
    const CATApplicationFrame frame(nullptr);
    CATSession::Start(MakeLoop("A", Write("ran")));
    auto* shared = MakeLoop("S", Write("ran"), CATCommandMode::Shared);

    CATSession::Start(shared);
    EXPECT_EQ(frame.Prompt(), "Pick for A");
    shared->Cancel(nullptr, nullptr);

    EXPECT_EQ(frame.Prompt(), "Pick for A");
}

TEST_F(CATStateCommandPrompt, GoesNowhereWithoutAFrame)
{
    auto* command = MakeLoop("A", Write("ran"));

    EXPECT_TRUE(CATSession::Start(command));

    EXPECT_TRUE(command->IsWaiting());
}
