#include "GroupSession.h"

// What the user picks, and what the product's filter says to it.

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const ShownBox kWarning{"Left out by the filter",
                        "The filter of the product leaves this instance out, so it cannot be in a "
                        "group. It and what you picked after it were not added.",
                        0x8000000};

} // namespace

TEST_F(GroupCommand, PickedInstanceIsCheckedAgainstTheFilterOfTheRoot)
{
    server->record = kFirewall;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                           "LA1|FUS-000.1|FUS-100.1|FUS-110.1: LA1|NoConfig"));
    EXPECT_THAT(FakeFilter::s_asked,
                ElementsAre("LA1: FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2"));
    EXPECT_THAT(output.Lines(),
                ElementsAre("Object list's size: 1", "pElem is a: CATNavigatorNode",
                            "_RootType: ENOVIA_VPMItem", "rootType2: ENOVIA_VPMItem"));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, InstancesPickedTogetherGoIntoOnePanelInPickOrder)
{
    server->record = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_EQ(FakeGroupPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls,
                ElementsAre("made for LA1, FUS-110, B", "built",
                            "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2, Firewall",
                            "FUS-000.1, FUS-000, A, , 0, Fuselage"));
}

TEST_F(GroupCommand, EveryFurtherPickGoesIntoTheSamePanel)
{
    StartWithPanel();
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    EXPECT_TRUE(CATOfferPick({PathToForward()})); // the panel decides what twice means
    EXPECT_EQ(FakeGroupPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls,
                ElementsAre("FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section",
                            "FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section"));
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, HiddenPanelIsShownAgainBeforeItGetsTheInstance)
{
    StartWithPanel();
    Panel()->SetVisibility(false);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_THAT(Panel()->calls, ElementsAre("FUS-000.1, FUS-000, A, , 0, Fuselage"));
}

TEST_F(GroupCommand, MixedPickGivesItsItemInstancesAlone)
{
    StartWithPanel();
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathTo(CATNavigator::CurrentRoot()), PathToForward(),
                              PathToStranger({{"Type", "Note"}})}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                           "LA1|FUS-000.1|FUS-100.1: LA1|NoConfig"));
    EXPECT_THAT(Panel()->calls,
                ElementsAre("FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section"));
}

TEST_F(GroupCommand, PickWithoutItemInstancesIsAskedAboutAndOpensNoPanel)
{
    Start();
    server->record = "";
    EXPECT_TRUE(CATOfferPick({PathTo(CATNavigator::CurrentRoot())}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of: LA1|NoConfig"));
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_THAT(FakeFilter::s_asked, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, RootIsLookedUpAtEveryPick)
{
    StartWithPanel();
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LB2", "LB2", false));
    EXPECT_TRUE(CATOfferPick({path}));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: LB2|NoConfig"));
    EXPECT_THAT(FakeFilter::s_asked, ElementsAre("LB2: FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(GroupCommand, RootWithoutAnIdentifierMakesEveryPickANoOp)
{
    Start();
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(), AeroplaneSource::Row("", "", true));
    EXPECT_FALSE(CATOfferPick({path}));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, FailedServiceLeavesThePanelAsItWas)
{
    StartWithPanel();
    server->record.reset();
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Panel()->calls, IsEmpty());
    EXPECT_THAT(boxes, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, NothingIsTakenOnceTheCommandEnds)
{
    StartWithPanel();
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(server->calls, IsEmpty());
}

// What the filter leaves out

TEST_F(GroupCommand, FirstPickThatTheFilterLeavesOutWarnsAndOpensNoPanel)
{
    FakeFilter::s_leavesOut = {"FUS-000"};
    server->record = kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(boxes, ElementsAre(kWarning));
    EXPECT_EQ(Panel(), nullptr);
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, SecondInstanceThatIsLeftOutTakesTheRestOfThePickAlong)
{
    FakeFilter::s_leavesOut = {"FUS-100"};
    server->record = std::string(kFuselage) + kForward + kFirewall;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward(), PathToFirewall()}));
    EXPECT_THAT(Panel()->calls, ElementsAre("made for LA1, FUS-000, A", "built",
                                            "FUS-000.1, FUS-000, A, , 0, Fuselage"));
    EXPECT_THAT(FakeFilter::s_asked, ElementsAre("LA1: FUS-000.1, FUS-000, A, , 0",
                                                 "LA1: FUS-100.1, FUS-100, A, FUS-000.1, 1"));
    EXPECT_THAT(boxes, ElementsAre(kWarning)); // one, however many are dropped
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, InstancesOfEarlierPicksStayWhenALaterOneIsLeftOut)
{
    StartWithPanel();
    Panel()->SetVisibility(false);
    FakeFilter::s_leavesOut = {"FUS-100"};
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    EXPECT_THAT(Panel()->calls, IsEmpty());
    EXPECT_FALSE(Panel()->IsVisible());
    EXPECT_THAT(boxes, ElementsAre(kWarning));
}

TEST_F(GroupCommand, PanelOfAPickThatWasCutShortClosesWithoutEndingTheCommand)
{
    FakeFilter::s_leavesOut = {"FUS-100"};
    server->record = std::string(kFuselage) + kForward;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward()}));
    Panel()->Send(CATDlgDialog::WindowClosed);
    Panel()->GetCloseButton()->Send(CATDlgPushButton::Activated);
    ExpectWaitsAgain();

    // The next pick that is taken whole ties the command to the panel.
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, PickThatIsCutShortLeavesThePanelTiedAsItWas)
{
    StartWithPanel();
    FakeFilter::s_leavesOut = {"FUS-100"};
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(GroupCommand, WarningIsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    FakeFilter::s_leavesOut = {"FUS-000"};
    server->record = kFuselage;
    Start();
    CATOfferPick({PathToFuselage()});
    EXPECT_THAT(boxes, ElementsAre(ShownBox{
                           "Vom Filter ausgelassen",
                           "Der Filter des Produkts lässt diese Instanz aus, sie kann deshalb in "
                           "keiner Gruppe sein. Sie und was Sie nach ihr gewählt haben wurden "
                           "nicht aufgenommen.",
                           0x8000000}));
}

TEST_F(GroupCommand, WarningHasADefaultWhereTheCatalogLacksIt)
{
    LoseTextsOf("CATWBVPMNavGroup");
    FakeFilter::s_leavesOut = {"FUS-000"};
    server->record = kFuselage;
    Start();
    CATOfferPick({PathToFuselage()});
    EXPECT_THAT(boxes, ElementsAre(ShownBox{"Filter",
                                            "The filter of the product leaves the instance out, so "
                                            "it cannot be in a group.",
                                            0x8000000}));
}

// While the panel waits for an instance

TEST_F(GroupCommand, InstanceThatThePanelWaitsForIsNotCheckedAgainstTheFilter)
{
    StartWithPanel();
    FakeFilter::s_leavesOut = {"FUS-110"};
    Panel()->instancesWanted = 1;
    server->record = kFirewall;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(Panel()->calls,
                ElementsAre("wanted: FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2"));
    EXPECT_THAT(FakeFilter::s_asked, IsEmpty());
    EXPECT_THAT(boxes, IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(GroupCommand, PanelThatHasItsInstanceTakesTheRestOfThePickIntoTheGroup)
{
    StartWithPanel();
    Panel()->instancesWanted = 1;
    server->record = std::string(kFirewall) + kForward;
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToForward()}));
    EXPECT_THAT(Panel()->calls,
                ElementsAre("wanted: FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                            "FUS-100.1, FUS-100, A, FUS-000.1, 1, Forward section"));
    EXPECT_THAT(FakeFilter::s_asked, ElementsAre("LA1: FUS-100.1, FUS-100, A, FUS-000.1, 1"));
}

TEST_F(GroupCommand, HiddenPanelThatWaitsForAnInstanceStaysHidden)
{
    StartWithPanel();
    Panel()->instancesWanted = 1;
    Panel()->SetVisibility(false);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_FALSE(Panel()->IsVisible());
    EXPECT_THAT(Panel()->calls, ElementsAre("wanted: FUS-000.1, FUS-000, A, , 0"));
}

// Answers

TEST_F(GroupCommand, PickWithoutPartNamesIsReadWithoutThem)
{
    StartWithPanel();
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|1|FUS-000.1|FUS-000|A|0|";
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Panel()->calls, ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2, ",
                                            "FUS-000.1, FUS-000, A, , 0, "));
}

TEST_F(GroupCommand, PartNamesThatNobodyAskedForShiftTheRecordsBehindThem)
{
    StartWithPanel();
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = std::string(kFuselage) + kForward;
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward()}));
    // "Fuselage" counts as the second record's first field, so its path count reads "A".
    EXPECT_THAT(Panel()->calls,
                ElementsAre("FUS-000.1, FUS-000, A, , 0, ", "1, FUS-100.1, FUS-100, , 0, "));
}

TEST_F(GroupCommand, CountThatIsTooSmallLeavesNamesToTheNextRecord)
{
    StartWithPanel();
    server->record = "0|FUS-110.1|FUS-110|B|1|FUS-100.1|FUS-000.1|Firewall|1|FUS-000.1|FUS-000|A|";
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    // "FUS-000.1" is taken for the first part's name, "Firewall" for the second record's beginning.
    EXPECT_THAT(Panel()->calls, ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1, 1, FUS-000.1",
                                            "1, FUS-000.1, FUS-000, , 0, "));
}

TEST_F(GroupCommand, CountThatIsTooLargeTakesNamesFromTheNextRecord)
{
    StartWithPanel();
    server->record = "0|FUS-100.1|FUS-100|A|3|FUS-000.1|Forward section|1|FUS-000.1|FUS-000|A|0|";
    EXPECT_TRUE(CATOfferPick({PathToForward(), PathToFuselage()}));
    // The path takes the part's name and the next record's "1", the part's name the next instance.
    EXPECT_THAT(Panel()->calls,
                ElementsAre("FUS-100.1, FUS-100, A, FUS-000.1|Forward section|1, 3, FUS-000.1",
                            "A, 0, , , 0, "));
}

TEST_F(GroupCommand, AnswerThatIsShorterThanItsCountGivesEmptyFields)
{
    StartWithPanel();
    server->record = "0|FUS-110.1|FUS-110|B|2|FUS-100.1";
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Panel()->calls,
                ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|, 2, ", ", , , , 0, "));
}

TEST_F(GroupCommand, UnreadableCountIsZero)
{
    StartWithPanel();
    server->record = "0|FUS-110.1|FUS-110|B|two|Firewall|";
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(Panel()->calls, ElementsAre("FUS-110.1, FUS-110, B, , 0, Firewall"));
}
