#include "CATDialogAgent.h"

#include "CATStateCommand.h"
#include "Picks.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CATDialogAgent, JoinsTheParentThatItIsGiven)
{
    CATCommand parent(nullptr, "Parent");
    const auto* child = new CATDialogAgent("Child", &parent);
    const CATPathElementAgent alone("Alone");

    EXPECT_EQ(child->Parent(), &parent);
    EXPECT_EQ(child->Name(), "Child");
    EXPECT_EQ(alone.Parent(), nullptr);
}

TEST(CATDialogAgent, HasNoCatalogAtAnyLevel)
{
    const CATDialogAgent agent("Agent");

    EXPECT_EQ(agent.GetResourceFilename(-1), "");
    EXPECT_EQ(agent.GetResourceFilename(0), "");
    EXPECT_EQ(agent.GetResourceFilename(1), "");
}

TEST(CATDialogAgent, KeepsItsBehaviourWordAsGiven)
{
    CATDialogAgent agent("Agent");
    EXPECT_EQ(agent.Behaviour(), 0);

    agent.SetBehaviour(0x40a00010);

    EXPECT_EQ(agent.Behaviour(), 0x40a00010);
}

TEST(CATPathElementAgent, BeginsWithoutAnOutput)
{
    const CATPathElementAgent agent("Agent");

    EXPECT_FALSE(agent.IsOutputSet());
    EXPECT_TRUE(agent.GetValue().IsNull());
    EXPECT_THAT(agent.GetListOfValues(), IsEmpty());
}

TEST(CATPathElementAgent, WithoutTheSetBitTakesTheLastObjectAlone)
{
    CATPathElementAgent agent("Agent");
    agent.SetBehaviour(0x40a00000);
    const auto first = MakePick();
    const auto last = MakePick();

    EXPECT_TRUE(agent.Offer({first, last}));

    EXPECT_TRUE(agent.IsOutputSet());
    EXPECT_EQ(agent.GetValue(), last);
    EXPECT_THAT(agent.GetListOfValues(), ElementsAre(last));
}

TEST(CATPathElementAgent, WithTheSetBitTakesAllInPickOrder)
{
    CATPathElementAgent agent("Agent");
    agent.SetBehaviour(0x40a40010);
    const auto first = MakePick();
    const auto last = MakePick();

    EXPECT_TRUE(agent.Offer({first, last}));

    EXPECT_EQ(agent.GetValue(), first);
    EXPECT_THAT(agent.GetListOfValues(), ElementsAre(first, last));
}

TEST(CATPathElementAgent, EmptyPickIsNotTakenAndChangesNothing)
{
    CATPathElementAgent agent("Agent");
    EXPECT_FALSE(agent.Offer({}));
    EXPECT_FALSE(agent.IsOutputSet());
    const auto pick = MakePick();
    agent.Offer({pick});

    EXPECT_FALSE(agent.Offer({}));

    EXPECT_TRUE(agent.IsOutputSet());
    EXPECT_EQ(agent.GetValue(), pick);
}

TEST(CATPathElementAgent, NextPickReplacesTheFormer)
{
    CATPathElementAgent agent("Agent");
    agent.SetBehaviour(CATDialogAgent::kTakesSets);
    const auto second = MakePick();
    agent.Offer({MakePick()});

    agent.Offer({second});

    EXPECT_THAT(agent.GetListOfValues(), ElementsAre(second));
}

TEST(CATPathElementAgent, InitializingForgetsTheOutput)
{
    CATPathElementAgent agent("Agent");
    agent.Offer({MakePick()});

    agent.InitializeAcquisition();

    EXPECT_FALSE(agent.IsOutputSet());
    EXPECT_TRUE(agent.GetValue().IsNull());
    EXPECT_THAT(agent.GetListOfValues(), IsEmpty());
}

TEST(CATDialogState, KeepsItsPromptAndItsAgentsInOrder)
{
    CATDialogAgent first("First");
    CATDialogAgent second("Second");
    CATDialogState state("Pick a part");

    state.AddAgent(&first);
    state.AddAgent(&second);

    EXPECT_EQ(state.Prompt(), "Pick a part");
    EXPECT_THAT(state.Agents(), ElementsAre(&first, &second));
}

TEST(CATDialogState, TakesAnAgentOnceAndNullNever)
{
    CATDialogAgent agent("Agent");
    CATDialogState state("");

    state.AddAgent(&agent);
    state.AddAgent(&agent);
    state.AddAgent(nullptr);

    EXPECT_THAT(state.Agents(), ElementsAre(&agent));
}

TEST(CATDialogState, RemovedAgentIsGoneFromThatStateAlone)
{
    CATDialogAgent agent("Agent");
    CATDialogState state("");
    CATDialogState other("");
    state.AddAgent(&agent);
    other.AddAgent(&agent);

    state.RemoveAgent(&agent);
    state.RemoveAgent(&agent);
    state.RemoveAgent(nullptr);

    EXPECT_THAT(state.Agents(), IsEmpty());
    EXPECT_THAT(other.Agents(), ElementsAre(&agent));
}

TEST(CATDialogState, DestroyedAgentLeavesEveryState)
{
    CATDialogState state("");
    CATDialogState other("");
    {
        CATDialogAgent agent("Agent");
        state.AddAgent(&agent);
        other.AddAgent(&agent);
    }

    EXPECT_THAT(state.Agents(), IsEmpty());
    EXPECT_THAT(other.Agents(), IsEmpty());
}

TEST(CATDialogState, AgentOutlivesItsState)
{
    CATDialogState other("");
    {
        CATDialogAgent agent("Agent");
        {
            CATDialogState state("");
            state.AddAgent(&agent);
        }
        other.AddAgent(&agent);
        EXPECT_THAT(other.Agents(), ElementsAre(&agent));
    } // the agent must not look for the state that is gone
    EXPECT_THAT(other.Agents(), IsEmpty());
}
