#include "GroupSession.h"

#include "../NavigatorCommandTests.h"
#include "Toolkit.h"

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

INSTANTIATE_TYPED_TEST_SUITE_P(Group, NavigatorCommand, GroupCommand);

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
    server->record = kFirewall;
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
    FakeGroupPanel::s_hasButtons = false;
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
    server->record = kFuselage;
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
    server->record = kForward;
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
    server->record = kFuselage;
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
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, WithoutAMainWindowTheWarningIsADiagnosticLine)
{
    frame.reset();
    FakeFilter::s_leavesOut = {"FUS-000"};
    Start();
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_EQ(output.Lines().back(), "The pointer to the parent window is null!");
}
