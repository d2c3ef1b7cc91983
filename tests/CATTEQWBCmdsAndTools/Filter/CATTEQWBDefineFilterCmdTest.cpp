#include "FilterSession.h"

#include "ResourceKeys.h"
#include "TemporaryDirectory.h"
#include "Toolkit.h"
#include "VirtualSlots.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

} // namespace

// The command itself

TEST_F(FilterCommand, IsMadeByItsFactoryUnderItsName)
{
    Make();
    EXPECT_EQ(command->Name(), "CATTEQWBDefineFilterCmd");
    EXPECT_STREQ(command->ClassName(), "CATTEQWBDefineFilterCmd");
    EXPECT_EQ(command->Mode(), CATCommandMode::Exclusive);
    CATSession::Start(command);
}

TEST_F(FilterCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheAgentsAbove)
{
    Start();
    const CATCommand* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATTEQWBDefineFilterCmd");
    EXPECT_EQ(base->GetResourceFilename(-1), "CATTEQWBDefineFilterCmd");
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(2), "");
}

TEST_F(FilterCommand, PromptsForInstances)
{
    Start();
    EXPECT_EQ(frame->Prompt(), "Select the instances that the filter shall take in or leave out");
}

TEST_F(FilterCommand, PromptsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    EXPECT_EQ(frame->Prompt(),
              "Wählen Sie die Instanzen, die der Filter aufnehmen oder auslassen soll");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(FilterCommand, PromptsWithItsOwnTextWhereTheCatalogLacksIt)
{
    const TemporaryDirectory resources;
    resources.Write("catalogs/CATTEQWBDefineFilterCmd.toml", "Other = \"another text\"\n");
    environment.Set("WB_RESOURCE_PATH", resources.Path());
    CATMsgCatalog::SetLanguage("en"); // reads the catalogs anew
    Start();
    EXPECT_EQ(frame->Prompt(), "Select one or several Part Instances in the product structure");
    environment.Unset("WB_RESOURCE_PATH");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(FilterCommand, EveryEnglishTextHasAGermanOne)
{
    EXPECT_EQ(ResourceKeys("catalogs/CATTEQWBDefineFilterCmd.toml"),
              ResourceKeys("de/catalogs/CATTEQWBDefineFilterCmd.toml"));
}

TEST_F(FilterCommand, WaitsWithOneAgentOfTheNavigatorThatTakesSets)
{
    Start();
    ASSERT_EQ(command->CurrentState()->Agents().size(), 1U);
    EXPECT_STREQ(agent.Get()->ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(agent.Get()->Behaviour(), 0x40a40010);
}

TEST_F(FilterCommand, AddsNoVirtualOperationToTheStateCommand)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATTEQWBDefineFilterCmd>::Added),
              SlotOf(&SlotProbe<CATStateCommand>::Added));
    EXPECT_EQ(SlotOf(&CATTEQWBDefineFilterCmd::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATTEQWBDefineFilterCmd::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATTEQWBDefineFilterCmd::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATTEQWBDefineFilterCmd::GetResourceFilename),
              SlotOf(&CATCommand::Activate) + 3);
}

// The panel

TEST_F(FilterCommand, OpensItsPanelForTheRootWhenItIsStarted)
{
    Make();
    EXPECT_EQ(Panel(), nullptr);
    CATSession::Start(command);
    ASSERT_EQ(FakeFilterPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls, ElementsAre("root LA1", "built"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(Panel()->Parent(), frame->MainWindow());
    EXPECT_THAT(output.Lines(), ElementsAre("The root type: ENOVIA_VPMItem"));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    EXPECT_THAT(server->calls, IsEmpty());
}

TEST_F(FilterCommand, WithoutARootThePanelIsBuiltWithoutAnIdentifier)
{
    CATNavigator::Close();
    Start();
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_THAT(output.Lines(), IsEmpty());
}

TEST_F(FilterCommand, RootWithoutAnIdentifierIsNotToldToThePanel)
{
    CATNavigator::Open(std::make_shared<AeroplaneSource>(), AeroplaneSource::Row("", "", true));
    Start();
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_THAT(output.Lines(), ElementsAre("The root type: ENOVIA_VPMItem"));
}

TEST_F(FilterCommand, OkButtonOfThePanelEndsTheCommandAndThePanel)
{
    Start();
    Panel()->GetOkButton()->Send(CATDlgPushButton::Activated);
    ExpectEnds();
}

TEST_F(FilterCommand, CancelButtonOfThePanelEndsTheCommandAndThePanel)
{
    Start();
    Panel()->GetCancelButton()->Send(CATDlgPushButton::Activated);
    ExpectEnds();
}

TEST_F(FilterCommand, ClosingThePanelsWindowEndsTheCommandAndThePanel)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(FilterCommand, PanelWithoutButtonsEndsTheCommandByItsWindow)
{
    FakeFilterPanel::s_hasButtons = false;
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(FilterCommand, CancelledCommandTakesItsPanelAndItsAgentAlong)
{
    Start();
    CATSession::CancelRunningCommand();
    ExpectEnds();
}

TEST_F(FilterCommand, CancelAsksForDestructionAndSaysDone)
{
    Start();
    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);
    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(FilterCommand, StartedAgainReplacesTheOneBeforeAndItsPanel)
{
    Start();
    const FakeFilterPanel* first = Panel();
    Start();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(FakeFilterPanel::s_made.size(), 1U);
    EXPECT_NE(Panel(), first);
}

TEST_F(FilterCommand, ActivatedAgainItKeepsThePanelThatItHas)
{
    Start();
    command->Desactivate(nullptr, nullptr);
    command->Activate(nullptr, nullptr);
    EXPECT_EQ(FakeFilterPanel::s_made.size(), 1U);
    EXPECT_THAT(Given(), IsEmpty());
}

TEST_F(FilterCommand, CommandThatWasNeverStartedLeavesNothing)
{
    Make();
    command->Release(); // it belongs to nobody but whoever made it
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(FilterCommand, PanelThatCannotBeBuiltGoesWithTheCommand)
{
    const FatalErrors fatal(FatalErrors::Then::Throw);
    FakeFilterPanel::s_cannotBeBuilt = true;
    Make();
    const CATCommandWatch<CATTEQWBDefineFilterCmd> ending(command);
    EXPECT_FALSE(CATSession::Start(command));
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(ending.Get(), nullptr);
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
    EXPECT_THAT(boxes, ElementsAre(HasSubstr("a control is missing"))); // the session's
    boxes.clear();

    FakeFilterPanel::s_cannotBeBuilt = false; // the next attempt is whole again
    Start();
    EXPECT_TRUE(Panel()->IsVisible());
}

TEST_F(FilterCommand, SessionThatEndsFirstTakesThePanelFromUnderTheCommand)
{
    Start();
    CATSession::Close();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(FilterCommand, PanelThatIsGoneGetsNothingMore)
{
    Start();
    Panel()->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(Panel(), nullptr);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectWaitsAgain();
}

TEST_F(FilterCommand, WithoutAPanelsLibraryPicksAreAskedAboutAndDropped)
{
    CATWBVPMNavGUISetTable({});
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: LA1|NoConfig"));
    ExpectWaitsAgain();
    CATSession::CancelRunningCommand();
    ExpectEnds();
}

TEST_F(FilterCommand, WithoutAMainWindowThereIsNoPanel)
{
    frame.reset();
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    ExpectWaitsAgain();
}
