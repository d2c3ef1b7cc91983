#include "GroupSession.h"

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

CATBaseUnknown_var ObjectWith(const char* attribute, const char* value)
{
    const std::map<std::string, std::string> attributes{{attribute, value}};
    return CATBaseUnknown_var::Adopt(new FakeTreeObject(attributes));
}

} // namespace

// The command itself

TEST_F(GroupCommand, IsMadeByItsFactoryUnderItsName)
{
    Make();
    EXPECT_EQ(command->Name(), "CATWBVPMNavGroup");
    EXPECT_STREQ(command->ClassName(), "CATWBVPMNavGroup");
    EXPECT_EQ(command->Mode(), CATCommandMode::Exclusive);
    CATSession::Start(command);
}

TEST_F(GroupCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheAgentsAbove)
{
    Start();
    const CATCommand* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATWBVPMNavGroup");
    EXPECT_EQ(base->GetResourceFilename(-1), "CATWBVPMNavGroup");
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(2), "");
}

TEST_F(GroupCommand, PromptsAsTheComputePartCommandDoes)
{
    Start();
    EXPECT_EQ(frame->Prompt(), "Select a part or an assembly");
}

TEST_F(GroupCommand, PromptsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    EXPECT_EQ(frame->Prompt(), "Wählen Sie ein Teil oder eine Baugruppe");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(GroupCommand, PromptsWithItsOwnTextWhereTheCatalogLacksIt)
{
    const TemporaryDirectory resources;
    resources.Write("catalogs/CATTEQWBComputePartCmd.toml", "Other = \"another text\"\n");
    environment.Set("WB_RESOURCE_PATH", resources.Path());
    CATMsgCatalog::SetLanguage("en"); // reads the catalogs anew
    Start();
    EXPECT_EQ(frame->Prompt(), "Select a Part in VPM Navigator");
    environment.Unset("WB_RESOURCE_PATH");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(GroupCommand, EveryEnglishTextHasAGermanOne)
{
    EXPECT_EQ(ResourceKeys("catalogs/CATWBVPMNavGroup.toml"),
              ResourceKeys("de/catalogs/CATWBVPMNavGroup.toml"));
}

TEST_F(GroupCommand, WaitsWithOneAgentOfTheNavigatorThatTakesSets)
{
    Start();
    ASSERT_EQ(command->CurrentState()->Agents().size(), 1U);
    EXPECT_STREQ(agent.Get()->ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(agent.Get()->Behaviour(), 0x40a40010);
}

TEST_F(GroupCommand, AddsNoVirtualOperationToTheStateCommand)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBVPMNavGroup>::Added),
              SlotOf(&SlotProbe<CATStateCommand>::Added));
    EXPECT_EQ(SlotOf(&CATWBVPMNavGroup::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATWBVPMNavGroup::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATWBVPMNavGroup::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATWBVPMNavGroup::GetResourceFilename), SlotOf(&CATCommand::Activate) + 3);
}

TEST_F(GroupCommand, CancelAsksForDestructionAndSaysDone)
{
    Start();
    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);
    ExpectEnds();
}

TEST_F(GroupCommand, CloseActionEndsTheCommand)
{
    Start();
    command->OnCloseAction();
    ExpectEnds();
}

TEST_F(GroupCommand, CommandThatWasNeverStartedLeavesNothing)
{
    Make();
    command->Release(); // it belongs to nobody but whoever made it
    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

// What can be in a group

TEST_F(GroupCommand, AnItemInstanceIsAValidSelection)
{
    Start();
    EXPECT_TRUE(command->ValidSelection(CATNavigator::Find({"FUS-000.1"})));
    EXPECT_FALSE(command->ValidSelection(CATNavigator::CurrentRoot()));
    EXPECT_TRUE(command->ValidSelection(ObjectWith("Type", "ENOVIA_VPMItemInstance")));
    for (const char* type : {"Item/ENOVIA_VPMItemInstance", "enovia_vpmiteminstance", "Note", ""}) {
        EXPECT_FALSE(command->ValidSelection(ObjectWith("Type", type))) << type;
    }
    EXPECT_FALSE(command->ValidSelection(ObjectWith("V_ID", "X")));
    EXPECT_FALSE(command->ValidSelection(CATBaseUnknown_var::Adopt(new CATBaseUnknown)));
}

TEST_F(GroupCommand, WithoutAnObjectThePickedOneIsLookedAt)
{
    Start();
    EXPECT_FALSE(command->ValidSelection());
    auto* picks = dynamic_cast<CATPathElementAgent*>(agent.Get());
    ASSERT_NE(picks, nullptr);
    picks->Offer({PathToFuselage()});
    EXPECT_TRUE(command->ValidSelection());
    picks->Offer({PathTo(CATNavigator::CurrentRoot())});
    EXPECT_FALSE(command->ValidSelection());
    picks->InitializeAcquisition();
    EXPECT_FALSE(command->ValidSelection());
}

TEST_F(GroupCommand, ObjectThatIsGivenCountsMoreThanThePickedOne)
{
    Start();
    auto* picks = dynamic_cast<CATPathElementAgent*>(agent.Get());
    picks->Offer({PathToFuselage()});
    EXPECT_FALSE(command->ValidSelection(CATNavigator::CurrentRoot()));
}

TEST_F(GroupCommand, NothingIsAValidSelectionBeforeTheStart)
{
    Make();
    EXPECT_FALSE(command->ValidSelection());
    EXPECT_TRUE(command->ValidSelection(CATNavigator::Find({"FUS-000.1"})));
    CATSession::Start(command);
}

// The panel

TEST_F(GroupCommand, PanelOpensWithTheFirstAcceptedPick)
{
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->answer = kFirewall;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    ASSERT_EQ(FakeGroupPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls,
                ElementsAre("made for LA1, FUS-110, B", "built",
                            "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2, Firewall"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(Panel()->Parent(), frame->MainWindow());
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(GroupCommand, ClosingThePanelsWindowEndsTheCommandAndThePanel)
{
    StartWithPanel();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, CloseButtonOfThePanelEndsTheCommandAndThePanel)
{
    StartWithPanel();
    Panel()->GetCloseButton()->Send(CATDlgPushButton::Activated);
    ExpectEnds();
}

TEST_F(GroupCommand, PanelIsClosedOnceHoweverManyPicksThereWere)
{
    StartWithPanel();
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, PanelWithoutACloseButtonEndsTheCommandByItsWindow)
{
    FakeGroupPanel::s_hasCloseButton = false;
    StartWithPanel();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, CancelledCommandTakesItsPanelAndItsAgentAlong)
{
    StartWithPanel();
    CATSession::CancelRunningCommand();
    ExpectEnds();
}

TEST_F(GroupCommand, StartedAgainReplacesTheOneBeforeAndItsPanel)
{
    StartWithPanel();
    const FakeGroupPanel* first = Panel();
    Start();
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_NE(Panel(), first);
}

TEST_F(GroupCommand, HidingAndShowingTheCommandLeavesThePanelAlone)
{
    StartWithPanel();
    EXPECT_EQ(command->Desactivate(nullptr, nullptr), S_OK);
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(command->Activate(nullptr, nullptr), S_OK);
    EXPECT_THAT(Panel()->calls, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, PanelThatCannotBeBuiltGoesWithTheCommand)
{
    const FatalErrors fatal(FatalErrors::Then::Throw);
    FakeGroupPanel::s_cannotBeBuilt = true;
    Start();
    server->answer = kFuselage;
    CATOfferPick({PathToFuselage()});
    ASSERT_NE(Panel(), nullptr);
    EXPECT_FALSE(Panel()->IsVisible());
    ASSERT_EQ(boxes.size(), 1U); // the session's
    EXPECT_THAT(boxes.front().text, HasSubstr("a control is missing"));
    ExpectEnds();
}

TEST_F(GroupCommand, PanelThatIsGoneIsMadeAnewAtTheNextPick)
{
    StartWithPanel();
    Panel()->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(Panel(), nullptr);
    server->answer = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    ASSERT_NE(Panel(), nullptr);
    EXPECT_THAT(Panel()->calls,
                ElementsAre("made for LA1, FUS-100, A", "built",
                            "FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section"));
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, SessionThatEndsFirstTakesThePanelFromUnderTheCommand)
{
    StartWithPanel();
    CATSession::Close();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(GroupCommand, WithoutAPanelsLibraryPicksAreAskedAboutAndDropped)
{
    CATWBVPMNavGUISetTable({});
    Start();
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_THAT(boxes, IsEmpty()); // nothing is left out where nobody knows filters
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, WithoutAMainWindowThereIsNoPanel)
{
    frame.reset();
    Start();
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, WithoutAMainWindowTheWarningIsADiagnosticLine)
{
    frame.reset();
    FakeFilter::s_leavesOut = {"FUS-000"};
    Start();
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_EQ(output.Lines().back(), "The pointer to the parent window is null!");
}
