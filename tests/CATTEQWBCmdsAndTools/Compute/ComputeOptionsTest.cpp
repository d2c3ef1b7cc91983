#include "ComputeSession.h"

namespace
{

using testing::Contains;
using testing::ElementsAre;

/// What the user chooses, and what the server is asked for then.
class ComputeOptions : public ComputeSession
{
protected:
    ComputeOptions() { Start(); }
    /// What stands between the fixed head and the root in the request of a computation.
    std::string Asked() const
    {
        Click("ComputeButton");
        const std::string request = Request();
        const std::string head = "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|";
        const std::string tail = "LA1|1|Filter of LA1|0|";
        EXPECT_TRUE(request.starts_with(head)) << request;
        EXPECT_TRUE(request.ends_with(tail)) << request;
        return request.substr(head.size(), request.size() - head.size() - tail.size());
    }
};

} // namespace

TEST_F(ComputeOptions, DefaultsAreActiveAndChecked)
{
    EXPECT_EQ(Asked(), "Active|0|1|");
}

TEST_F(ComputeOptions, MostPrecise)
{
    Click("MostPreciseButton");
    EXPECT_EQ(Asked(), "MostPrecise|0|1|");
}

TEST_F(ComputeOptions, OneMassTypeIsTheChosenLine)
{
    Click("SpecifiedButton");
    EXPECT_EQ(Asked(), "Target|0|1|");
    Find<CATDlgCombo>("SpecifiedMassTypeCombo").Select(2);
    EXPECT_EQ(Asked(), "Weighed|0|1|");
    Click("ActiveButton");
    EXPECT_EQ(Asked(), "Active|0|1|");
}

TEST_F(ComputeOptions, OneMassTypeWithoutALineIsComputed)
{
    Find<CATDlgCombo>("SpecifiedMassTypeCombo").RemoveAll();
    Click("SpecifiedButton");
    EXPECT_EQ(Asked(), "Computed|0|1|");
}

TEST_F(ComputeOptions, ForcedUpdateIsOne)
{
    Click("ForceUpdateButton");
    EXPECT_EQ(Asked(), "Active|1|1|");
    Click("CheckUpToDateButton");
    EXPECT_EQ(Asked(), "Active|0|1|");
}

TEST_F(ComputeOptions, AssumedUpdateSendsTheLevel)
{
    Click("AssumeUpToDateButton");
    EXPECT_EQ(Asked(), "Active|2|0|1|");
    Find<CATDlgEditor>("UpdateLevelEditor").SetText("3");
    EXPECT_EQ(Asked(), "Active|2|3|1|");
}

TEST_F(ComputeOptions, BothKindsOfOptionsGoTogether)
{
    Click("MostPreciseButton");
    Click("AssumeUpToDateButton");
    Find<CATDlgEditor>("UpdateLevelEditor").SetText("12");
    EXPECT_EQ(Asked(), "MostPrecise|2|12|1|");
}

TEST_F(ComputeOptions, TheReferencePointIsNotTheServersConcern)
{
    Click("ReferenceButton");
    EXPECT_EQ(Asked(), "Active|0|1|");
}

TEST_F(ComputeOptions, RequestAndAnswerStandInTheDiagnostics)
{
    Click("ComputeButton");
    EXPECT_THAT(output.Lines(),
                Contains("String to send to the server for compute : " + Request()));
    EXPECT_THAT(output.Lines(),
                Contains(std::string("SERVER ANSWER FOR VPMCOMPUTEVALUES : ") + kAnswer));
}

TEST_F(ComputeOptions, AGoodAnswerIsFollowedByTheQuestionForWarnings)
{
    Click("ComputeButton");
    EXPECT_THAT(server->calls, ElementsAre("WBGetMassTypesAndAttrNames: ",
                                           "WBComputeVPMValues: " + Request(), "WBWarningMsg: "));
}

// The handlers

TEST_F(ComputeOptions, MassTypeCanBeChosenExactlyWhileOneIsToCount)
{
    Click("SpecifiedButton");
    EXPECT_TRUE(IsOn("SpecifiedMassTypeFrame"));
    EXPECT_TRUE(IsOn("SpecifiedMassTypeCombo"));
    Click("MostPreciseButton");
    EXPECT_FALSE(IsOn("SpecifiedMassTypeFrame"));
    Click("SpecifiedButton");
    Click("ActiveButton");
    EXPECT_FALSE(IsOn("SpecifiedMassTypeFrame"));
}

TEST_F(ComputeOptions, LevelCanBeTypedExactlyWhileStoredResultsAreTaken)
{
    Click("AssumeUpToDateButton");
    EXPECT_TRUE(IsOn("UpdateLevelEditor"));
    EXPECT_TRUE(IsOn("UpdateLevelInfoLabel"));
    Click("ForceUpdateButton");
    EXPECT_FALSE(IsOn("UpdateLevelEditor"));
    EXPECT_FALSE(IsOn("UpdateLevelInfoLabel"));
    Click("AssumeUpToDateButton");
    Click("CheckUpToDateButton");
    EXPECT_FALSE(IsOn("UpdateLevelEditor"));
    EXPECT_FALSE(IsOn("UpdateLevelInfoLabel"));
}

TEST_F(ComputeOptions, ButtonsExcludeEachOtherWithinTheirFrameAndNowhereElse)
{
    const std::vector<std::vector<const char*>> frames{
        {"CGButton", "ReferenceButton"},
        {"ActiveButton", "MostPreciseButton", "SpecifiedButton"},
        {"CheckUpToDateButton", "ForceUpdateButton", "AssumeUpToDateButton"}};
    // The last of each, so that nothing is as it was at the beginning.
    for (const auto& buttons : frames) {
        Click(buttons.back());
    }
    for (const auto& clicked : frames) {
        for (const char* button : clicked) {
            Click(button);
            for (const char* other : clicked) {
                EXPECT_EQ(IsChecked(other), std::string(other) == button) << button << other;
            }
        }
        for (const auto& buttons : frames) {
            EXPECT_TRUE(IsChecked(buttons.back())) << clicked.front() << buttons.back();
        }
    }
}

TEST_F(ComputeOptions, PointOfTheInertiaCanBeChosenOnTheFirstPageAlone)
{
    GoToPage(1);
    EXPECT_FALSE(IsOn("InertiaModeFrame"));
    GoToPage(2);
    EXPECT_FALSE(IsOn("InertiaModeFrame"));
    GoToPage(0);
    EXPECT_TRUE(IsOn("InertiaModeFrame"));
}
