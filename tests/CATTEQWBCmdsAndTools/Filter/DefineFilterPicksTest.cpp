#include "FilterSession.h"

// What the user picks while the filter panel is open.

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST_F(FilterCommand, PickedInstanceBecomesALineOfThePanel)
{
    server->record = kFirewall;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                           "LA1|FUS-000.1|FUS-100.1|FUS-110.1: LA1|NoConfig"));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2"));
    EXPECT_THAT(output.Lines(),
                ElementsAre("The root type: ENOVIA_VPMItem",
                            "Size of the list of selected objects: 1", "pathDepth originally: 4",
                            "pathDepth after InitToTopElement: 1",
                            "pathDepth after InitToLeafElement: 4", "inputString: LA1|NoConfig",
                            std::string("Filter:  usReturnString:") + kFirewall));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(FilterCommand, InstancesPickedTogetherBecomeLinesInPickOrder)
{
    server->record = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, EveryFurtherPickAddsItsOwnLines)
{
    Start();
    server->record = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-100.1, FUS-100, A, FUS-000.1, 1", "root LA1",
                                     "FUS-000.1, FUS-000, A, , 0"));
    ExpectWaitsAgain();
}

TEST_F(FilterCommand, HiddenPanelShowsTheCurrentFiltersAgain)
{
    server->record = kFuselage;
    Start();
    Panel()->SetVisibility(false);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "current filters", "FUS-000.1, FUS-000, A, , 0"));
    EXPECT_TRUE(Panel()->IsVisible());
}

TEST_F(FilterCommand, HiddenPanelComesBackAlsoWhenThePdmKnowsNoneOfThePickedInstances)
{
    server->record = "";
    server->unknown = "LA1|FUS-000.1";
    Start();
    Panel()->SetVisibility(false);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "current filters"));
    EXPECT_TRUE(Panel()->IsVisible());
}

TEST_F(FilterCommand, FirstRootIsKeptWhateverIsOpenedLater)
{
    server->record = kFuselage;
    Start();
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                       AeroplaneSource::Row("LB2", "LB2", false));
    EXPECT_TRUE(CATOfferPick({path}));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: LA1|NoConfig"));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, WithoutAKeptRootThePickIsAskedAboutAllTheSame)
{
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Close();
    server->record = kFuselage;
    Start();
    OpenAeroplane(); // too late for the command
    EXPECT_TRUE(CATOfferPick({path}));
    EXPECT_THAT(server->calls,
                ElementsAre("ENOVIA5_GetObjectIdentifier of LA1|FUS-000.1: |NoConfig"));
    EXPECT_THAT(Given(), ElementsAre("root ", "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, PickWithoutItemInstancesAsksNobodyAndLeavesThePanelAsItWas)
{
    Start();
    Panel()->SetVisibility(false);
    EXPECT_FALSE(
        CATOfferPick({PathTo(CATNavigator::CurrentRoot()), PathToStranger({{"Type", "Note"}})}));
    EXPECT_EQ(output.Lines().back(), "No ids in the list - returning here");
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(Given(), IsEmpty());
    EXPECT_FALSE(Panel()->IsVisible());
    ExpectWaitsAgain();
}

TEST_F(FilterCommand, InstanceThatThePdmCannotIdentifyIsSkipped)
{
    server->record = kFuselage;
    Start();
    EXPECT_TRUE(
        CATOfferPick({PathToStranger({{"Type", "ENOVIA_VPMItemInstance"}}), PathToFuselage()}));
    EXPECT_THAT(output.Lines(), testing::Contains("skipping this: CATBaseUnknown"));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, FailedServiceLeavesThePanelAsItWas)
{
    server->record.reset();
    Start();
    Panel()->SetVisibility(false);
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), IsEmpty());
    EXPECT_FALSE(Panel()->IsVisible());
    ExpectWaitsAgain();
    server->record = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "current filters", "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, NothingIsTakenOnceTheCommandEnds)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(server->calls, IsEmpty());
}

// Answers

TEST_F(FilterCommand, PickWithoutPartNamesIsReadWithoutThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|1|FUS-000.1|FUS-000|A|0|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(FilterCommand, PartNamesThatNobodyAskedForShiftTheRecordsBehindThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->record = std::string(kFuselage) + kForward;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward()}));
    // "Fuselage" counts as the second record's first field, so its path count reads "A".
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-000.1, FUS-000, A, , 0",
                                     "1, FUS-100.1, FUS-100, , 0"));
}

TEST_F(FilterCommand, CountThatIsTooSmallLeavesNamesToTheNextRecord)
{
    server->record = "0|FUS-110.1|FUS-110|B|1|FUS-100.1|FUS-000.1|Firewall|1|FUS-000.1|FUS-000|A|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    // "FUS-000.1" is taken for the first part's name, "Firewall" for the second record's beginning.
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-110.1, FUS-110, B, FUS-100.1, 1",
                                     "1, FUS-000.1, FUS-000, , 0"));
}

TEST_F(FilterCommand, CountThatIsTooLargeTakesNamesFromTheNextRecord)
{
    server->record = "0|FUS-100.1|FUS-100|A|3|FUS-000.1|Forward section|1|FUS-000.1|FUS-000|A|0|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToForward(), PathToFuselage()}));
    // The path takes the part's name and the next record's "1", the part's name the next instance.
    EXPECT_THAT(Given(),
                ElementsAre("root LA1", "FUS-100.1, FUS-100, A, FUS-000.1|Forward section|1, 3",
                            "A, 0, , , 0"));
}

TEST_F(FilterCommand, AnswerThatIsShorterThanItsCountGivesEmptyFields)
{
    server->record = "0|FUS-110.1|FUS-110|B|2|FUS-100.1";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Given(),
                ElementsAre("root LA1", "FUS-110.1, FUS-110, B, FUS-100.1|, 2", ", , , , 0"));
}

TEST_F(FilterCommand, UnreadableCountIsZero)
{
    server->record = "0|FUS-110.1|FUS-110|B|two|Firewall|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(Given(), ElementsAre("root LA1", "FUS-110.1, FUS-110, B, , 0"));
}
