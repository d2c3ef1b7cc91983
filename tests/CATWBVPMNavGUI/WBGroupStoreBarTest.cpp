#include "GroupPanelSession.h"

#include "CATEnvironment.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class WBGroupStoreBarTest : public GroupPanelSession
{
protected:
    WBGroupStoreBarTest() { Open(); }
    static CATSettingRepository& Settings()
    {
        return *CATSettingRepository::GetRepository("KR4WBClientSettings");
    }
    std::vector<std::string> Names() const { return Column(*List(kInstances), 0); }
};

} // namespace

TEST_F(WBGroupStoreBarTest, GroupOfInstancesIsFoundAgainInAnotherSession)
{
    EXPECT_FALSE(IsUsable(kInstances, "RetrieveButton"));
    EXPECT_FALSE(IsUsable(kInstances, "DeleteButton"));
    EXPECT_FALSE(IsUsable(kInstances, "Stored"));
    Pick(Spar(), "Main spar");
    Pick(Tail(), "Tail");
    SaveAs(kInstances, " Heavy ");
    EXPECT_EQ(Text("Word"), "Saved as Heavy.");
    EXPECT_TRUE(IsUsable(kInstances, "RetrieveButton"));
    OpenAgain();
    EXPECT_THAT(Names(), IsEmpty());
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("SPAR.1", "TAIL.1"));
    EXPECT_THAT(Column(*List(kInstances), 1), ElementsAre("Main spar", "Tail"));
    EXPECT_EQ(Text("Mass"), "30 kg");
    EXPECT_EQ(Text("Word"), "Heavy was retrieved.");
    EXPECT_EQ(On<CATDlgEditor>(kInstances, "Name")->Text(), "Heavy");
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBGroupStoreBarTest, CriteriaAreFoundAgainInAnotherSession)
{
    AddCriterion("Mass", ">", "12,5 lb");
    AddCriterion("Name", "contains", "tail");
    Click(kCriteria, "Or");
    SaveAs(kCriteria, "Heavy");
    OpenAgain();
    GoTo(kCriteria);
    Retrieve(kCriteria, "Heavy");
    EXPECT_THAT(Column(*List(kCriteria), 0), ElementsAre("Mass", "Name"));
    EXPECT_THAT(Column(*List(kCriteria), 1), ElementsAre(">", "contains"));
    EXPECT_THAT(Column(*List(kCriteria), 2), ElementsAre("12.5 lb", "tail"));
    EXPECT_TRUE(On<CATDlgRadioButton>(kCriteria, "Or")->IsChecked());
    EXPECT_FALSE(On<CATDlgRadioButton>(kCriteria, "And")->IsChecked());
    Click(kCriteria, "FindButton");
    EXPECT_THAT(Column(*Found(), 1), ElementsAre("Wing", "Main spar", "Skin", "Tail", "Tank"));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBGroupStoreBarTest, WhatIsGoneIsNamedAndStaysUntilItIsRemoved)
{
    Pick({"OLD.1", "OLD", "A", {"WING.1"}}, "Old rib");
    Pick(Tail());
    Pick({"OLD.2", "OLD", "A", {}}, "Old door");
    SaveAs(kInstances, "Heavy");
    OpenAgain();
    Retrieve(kInstances, "Heavy");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Instances are gone");
    EXPECT_EQ(boxes[0].style, kWarningStyle);
    EXPECT_EQ(
        boxes[0].text,
        "LA1 does not hold these instances of the group any more. They stay in the group, "
        "without a mass, until you remove them:\nOLD.1 (LA1/WING.1/OLD.1)\nOLD.2 (LA1/OLD.2)");
    EXPECT_THAT(Remarks(), ElementsAre("gone", "", "gone"));
    EXPECT_EQ(Text("WhatCounts"), "2 are gone.");
    EXPECT_EQ(Text("Items"), "1");
    Click(kInstances, "SaveButton");
    OpenAgain();
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("OLD.1", "TAIL.1", "OLD.2"));
    Click(kInstances, "RemoveGoneButton");
    Click(kInstances, "SaveButton");
    OpenAgain();
    boxes.clear();
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1"));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBGroupStoreBarTest, LongListOfWhatIsGoneIsCut)
{
    for (int number = 1; number <= 12; ++number) {
        Pick({"OLD." + std::to_string(number), "OLD", "A", {}});
    }
    SaveAs(kInstances, "Old");
    OpenAgain();
    Retrieve(kInstances, "Old");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("\nOLD.10 (LA1/OLD.10)\nand 2 more"));
    EXPECT_EQ(boxes[0].text.find("OLD.11"), std::string::npos);
}

TEST_F(WBGroupStoreBarTest, AnotherGroupIsNotOverwrittenUnasked)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    Pick(Wing());
    Click(kInstances, "SaveButton"); // its own
    EXPECT_THAT(boxes, IsEmpty());
    SaveAs(kInstances, "Light");
    answer = Answer::No;
    SaveAs(kInstances, "Heavy");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "There is a stored group Heavy. Shall this group take its place?");
    EXPECT_EQ(boxes[0].style, CATDlgNotify::kQuestion);
    Click(kInstances, "ClearButton");
    answer = Answer::Yes;
    SaveAs(kInstances, "Light"); // still its own
    EXPECT_EQ(boxes.size(), 1U);
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
    SaveAs(kInstances, "Light");
    EXPECT_EQ(boxes.size(), 2U);
    OpenAgain();
    Retrieve(kInstances, "Light");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Heavy", "Light"));
}

TEST_F(WBGroupStoreBarTest, GroupThatIsNotSavedIsNotReplacedUnasked)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(boxes, IsEmpty());
    Pick(Wing());
    answer = Answer::No;
    Retrieve(kInstances, "Heavy");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              "This group is not saved. Shall the stored group Heavy take its place?");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
    answer = Answer::Yes;
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1"));
}

TEST_F(WBGroupStoreBarTest, NameThatCannotBeOneIsRefused)
{
    Pick(Tail());
    SaveAs(kInstances, "");
    SaveAs(kInstances, "B.X");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text, "The group has no name. Type one.");
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(boxes[1].text, HasSubstr("\"B.X\" cannot be the name of a group"));
    EXPECT_THAT(Lines(kInstances, "Stored"), IsEmpty());
}

TEST_F(WBGroupStoreBarTest, FailedSavingIsToldAndLosesNothing)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    Pick(Wing());
    const std::filesystem::path file =
        std::filesystem::path(CATGetEnv("CATUserSettingPath")) / "KR4WBClientSettings.CATSettings";
    std::filesystem::remove(file);
    std::filesystem::create_directories(file / "in the way");
    Click(kInstances, "SaveButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("The group Heavy could not be saved"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
    Click(kInstances, "DeleteButton");
    EXPECT_THAT(boxes.back().text, HasSubstr("The group Heavy could not be deleted"));
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Heavy"));
    // It is still not saved, so closing asks; saving fails again, and the window stays.
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    std::filesystem::remove_all(file);
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    OpenAgain();
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
}

TEST_F(WBGroupStoreBarTest, DamagedGroupIsToldAndStaysAsItIs)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    Settings().WriteSetting("LA1.HeavyInstancesCount", 4);
    Pick(Wing());
    Retrieve(kInstances, "Heavy"); // asks, since the wing is not saved
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_THAT(boxes[1].text, HasSubstr("The stored group Heavy is damaged"));
    EXPECT_EQ(boxes[1].style, kErrorStyle);
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
    answer = Answer::No;
    Click(kInstances, "SaveButton");
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_THAT(boxes[2].text, HasSubstr("There is a stored group Heavy that is damaged."));
    int count = 0;
    Settings().ReadSetting("LA1.HeavyInstancesCount", count);
    EXPECT_EQ(count, 4);
    answer = Answer::Yes;
    Click(kInstances, "SaveButton");
    OpenAgain();
    Retrieve(kInstances, "Heavy");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1", "WING.1"));
}

TEST_F(WBGroupStoreBarTest, CriteriaThatCannotBeReadAreToldAndLeaveThePresentOnes)
{
    AddCriterion("Mass", ">", "1 kg");
    SaveAs(kCriteria, "Heavy");
    Settings().WriteSetting("LA1.HeavyCriteria",
                            CATListValCATUnicodeString{"and", "WB_Mass", "=>", "1 kg", "MASS"});
    Retrieve(kCriteria, "Heavy");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("The stored group Heavy is damaged"));
    EXPECT_THAT(Column(*List(kCriteria), 1), ElementsAre(">"));
}

TEST_F(WBGroupStoreBarTest, DamagedListOfNamesIsToldAndMended)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    Settings().WriteSetting("LA1.InstancesCount", 7);
    Settings().SaveRepository();
    OpenAgain();
    EXPECT_THAT(Text("Word"), HasSubstr("The list of the stored groups is damaged."));
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Heavy"));
    Pick(Wing());
    SaveAs(kInstances, "Wing");
    OpenAgain();
    EXPECT_EQ(Text("Word"), "");
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Heavy", "Wing"));
}

TEST_F(WBGroupStoreBarTest, DeletedGroupIsGoneAndWhatIsShownStays)
{
    Pick(Tail());
    SaveAs(kInstances, "Heavy");
    answer = Answer::No;
    Click(kInstances, "DeleteButton");
    EXPECT_EQ(boxes.back().text, "Shall the stored group Heavy be deleted?");
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Heavy"));
    answer = Answer::Yes;
    Click(kInstances, "DeleteButton");
    EXPECT_THAT(Lines(kInstances, "Stored"), IsEmpty());
    EXPECT_FALSE(IsUsable(kInstances, "DeleteButton"));
    EXPECT_EQ(Text("Word"), "The stored group Heavy was deleted.");
    EXPECT_THAT(Names(), ElementsAre("TAIL.1"));
    // It is stored nowhere now: closing asks.
    answer = Answer::Cancel;
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    Click(kInstances, "ClearButton");
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
}

TEST_F(WBGroupStoreBarTest, DeletingAnotherGroupLeavesThisOneSaved)
{
    Pick(Tail());
    SaveAs(kInstances, "A");
    SaveAs(kInstances, "B");
    auto* box = qobject_cast<QComboBox*>(On<CATDlgCombo>(kInstances, "Stored")->Widget());
    EXPECT_EQ(box->currentText().toStdString(), "B"); // what was saved last
    box->setCurrentIndex(0);
    Click(kInstances, "DeleteButton");
    boxes.clear();
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(boxes, IsEmpty());
}
