#include "FilterSession.h"

#include "../NavigatorCommandTests.h"
#include "../PanelAtOnceTests.h"
#include "Toolkit.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(DefineFilter, NavigatorCommand, FilterCommand);
INSTANTIATE_TYPED_TEST_SUITE_P(DefineFilter, PanelAtOnce, FilterCommand);

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
    ASSERT_EQ(boxes.size(), 1U); // the session's
    EXPECT_THAT(boxes.front().text, HasSubstr("a control is missing"));
    boxes.clear();

    FakeFilterPanel::s_cannotBeBuilt = false; // the next attempt is whole again
    Start();
    EXPECT_TRUE(Panel()->IsVisible());
}

TEST_F(FilterCommand, WithoutAPanelsLibraryPicksAreAskedAboutAndDropped)
{
    CATWBVPMNavGUISetTable({});
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->record = kFuselage;
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
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    ExpectWaitsAgain();
}
