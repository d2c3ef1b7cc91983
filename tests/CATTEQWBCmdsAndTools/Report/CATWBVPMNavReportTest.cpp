#include "CATWBVPMNavReport.h"

#include "../NavigatorCommandTests.h"
#include "../PanelAtOnceTests.h"
#include "Toolkit.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

class FakeReportPanel : public PanelDouble<CATWBVPMNavReportPanel>
{
public:
    using PanelDouble::PanelDouble;

    bool IsInstanceInputActive() const override { return instancesWanted > 0; }
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override
    {
        calls.push_back(InstanceText(instance, part, version, path, count));
        --instancesWanted;
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

    static CATWBVPMNavReportPanel* Create(CATCommand* parent)
    {
        return new FakeReportPanel(parent);
    }

    int instancesWanted = 100; ///< after so many the panel takes no more

private:
    CATDlgPushButton* m_close = MakeButton("CloseButton");
};

class ReportCommand : public NavigatorSession<CATWBVPMNavReport, FakeReportPanel>
{
public:
    static constexpr const char* kName = "CATWBVPMNavReport";
    static constexpr NavigatorPrompts kPrompts{
        kName, "Select the instances that the report shall hold",
        "Wählen Sie die Instanzen für den Bericht", "Select a Part in VPM Navigator"};

protected:
    ReportCommand() : NavigatorSession(fctCreateCATWBVPMNavReport, Panels()) {}
    ~ReportCommand() override
    {
        EXPECT_THAT(boxes, testing::IsEmpty()) << "the command shows no boxes of its own";
    }

private:
    static CATWBVPMNavGUITable Panels()
    {
        CATWBVPMNavGUITable panels;
        panels.createReportPanel = FakeReportPanel::Create;
        return panels;
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Report, NavigatorCommand, ReportCommand);
INSTANTIATE_TYPED_TEST_SUITE_P(Report, PanelAtOnce, ReportCommand);

// The panel

TEST_F(ReportCommand, OpensItsPanelAsSoonAsItIsMade)
{
    Make();
    ASSERT_EQ(FakeReportPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(Panel()->Parent(), frame->MainWindow());
    CATSession::Start(command);
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_EQ(FakeReportPanel::s_made.size(), 1U);
}

TEST_F(ReportCommand, ClosingThePanelsWindowEndsTheCommandAndThePanel)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(ReportCommand, CloseButtonOfThePanelEndsTheCommandAndThePanel)
{
    Start();
    Panel()->GetCloseButton()->Send(CATDlgPushButton::Activated);
    ExpectEnds();
}

TEST_F(ReportCommand, StartedAgainReplacesTheOneBeforeAndItsPanel)
{
    Start();
    const FakeReportPanel* first = Panel();
    Start();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(FakeReportPanel::s_made.size(), 1U);
    EXPECT_NE(Panel(), first);
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, CommandThatWasNeverStartedTakesItsPanelAlong)
{
    Make();
    command->Release(); // it belongs to nobody but whoever made it
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ReportCommand, PanelThatCannotBeBuiltGoesAndLeavesNoCommand)
{
    const FatalErrors fatal(FatalErrors::Then::Throw);
    FakeReportPanel::s_cannotBeBuilt = true;
    EXPECT_THROW(fctCreateCATWBVPMNavReport(), CATFatalError);
    ASSERT_NE(Panel(), nullptr);
    EXPECT_FALSE(Panel()->IsVisible());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(CATSession::PendingDestructions(), 0);

    FakeReportPanel::s_cannotBeBuilt = false; // the next attempt is whole again
    Start();
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(FakeReportPanel::s_made.size(), 1U);
}

TEST_F(ReportCommand, PanelWithoutACloseButtonEndsTheCommandByItsWindow)
{
    FakeReportPanel::s_hasButtons = false;
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(ReportCommand, WithoutAPanelsLibraryPicksAreAskedAboutAndDropped)
{
    CATWBVPMNavGUISetTable({});
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectWaitsAgain();
    CATSession::CancelRunningCommand();
    ExpectEnds();
}

TEST_F(ReportCommand, WithoutAMainWindowThereIsNoPanel)
{
    frame.reset();
    Start();
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    ExpectWaitsAgain();
}

// Picks

TEST_F(ReportCommand, PickedInstanceGoesIntoThePanel)
{
    server->record = kFirewall;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                           "LA1|FUS-000.1|FUS-100.1|FUS-110.1: LA1|NoConfig"));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2"));
    EXPECT_THAT(output.Lines(),
                ElementsAre("Object list's size: 1", "pElem is a: CATNavigatorNode",
                            "_RootType: ENOVIA_VPMItem", "rootType2: ENOVIA_VPMItem"));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, InstancesPickedTogetherGoIntoThePanelInPickOrder)
{
    server->record = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, EveryFurtherPickSendsItsOwnRecords)
{
    Start();
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    server->record = kFirewall;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    server->record = kForward; // the same again: the panel decides what that means
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-100.1, FUS-100, A, FUS-000.1, 1",
                                     "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-100.1, FUS-100, A, FUS-000.1, 1"));
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, PanelThatTakesNoInstancesGetsNothingButTheServerIsAsked)
{
    server->record = kFirewall;
    Start();
    Panel()->instancesWanted = 0;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(Given(), IsEmpty());
    Panel()->instancesWanted = 1;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_EQ(Given().size(), 1U);
}

TEST_F(ReportCommand, PanelThatHasEnoughAmidAPickGetsNoMoreOfIt)
{
    server->record = std::string(kFuselage) + kForward + kFirewall;
    Start();
    Panel()->instancesWanted = 1;
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward(), PathToFirewall()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, MixedPickGivesItsItemInstancesAlone)
{
    server->record = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathTo(CATNavigator::CurrentRoot()), PathToFirewall(),
                              PathToStranger({{"Type", "Note"}}), PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, PickWithoutPartNamesIsReadWithoutThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|1|FUS-000.1|FUS-000|A|0|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, PartNamesThatNobodyAskedForShiftTheRecordsBehindThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = std::string(kFuselage) + kForward;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward()}));
    // "Fuselage" counts as the second record's first field, so its path count reads "A".
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0", "1, FUS-100.1, FUS-100, , 0"));
}

TEST_F(ReportCommand, RootWithoutAnIdentifierMakesEveryPickANoOp)
{
    Start();
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(), AeroplaneSource::Row("", "", true));
    EXPECT_FALSE(CATOfferPick({path}));
    EXPECT_FALSE(CATOfferPick({path}));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(Given(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, FailedServiceLeavesThePanelAsItWas)
{
    server->record.reset();
    Start();
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), IsEmpty());
    ExpectWaitsAgain();
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(Given().size(), 1U);
}

TEST_F(ReportCommand, NothingIsTakenOnceTheCommandEnds)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(server->calls, IsEmpty());
}
