#include "GroupPanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class WBGroupCriteriaPageTest : public GroupPanelSession
{
protected:
    WBGroupCriteriaPageTest()
    {
        Open();
        GoTo(kCriteria);
    }
    std::string Value() const { return On<CATDlgEditor>(kCriteria, "Value")->Text().ToStdString(); }
    std::vector<std::string> FoundNames() const { return Column(*Found(), 1); }
    std::vector<std::string> Row(int row) const
    {
        std::vector<std::string> cells;
        for (int column = 0; column < 3; ++column) {
            cells.push_back(List(kCriteria)->Cell(column, row).ToStdString());
        }
        return cells;
    }
};

} // namespace

TEST_F(WBGroupCriteriaPageTest, CriteriaAreAddedAndTheInstancesThatMatchAreFound)
{
    EXPECT_FALSE(IsUsable(kCriteria, "FindButton"));
    AddCriterion("Mass", ">=", "20");
    EXPECT_THAT(Row(1), ElementsAre("Mass", ">=", "20 kg"));
    EXPECT_EQ(List(kCriteria)->SelectedRow(), 1);
    EXPECT_THAT(FoundNames(), IsEmpty());
    EXPECT_EQ(Text("Items"), "–");
    Click(kCriteria, "FindButton");
    EXPECT_EQ(Find<CATDlgTabContainer>("Pages")->SelectedPage(), 2); // where they stand
    EXPECT_THAT(FoundNames(), ElementsAre("Wing", "Skin", "Tail"));
    EXPECT_EQ(Text("Word"), "3 instances were found.");
    // The skin counts with its wing: (40 * 1000 + 20 * 5000) / 60 = 2333.333.
    EXPECT_EQ(Text("Items"), "2");
    EXPECT_EQ(Text("Mass"), "60 kg");
    EXPECT_EQ(Text("Share"), "60 %");
    EXPECT_EQ(Text("Centre"), "x 2333.333, y 0, z 133.333 mm");
    EXPECT_EQ(Text("WhatCounts"), "1 more counts once, with the assembly that it stands in.");
    AddCriterion("Name", "contains", "tai");
    EXPECT_THAT(FoundNames(), IsEmpty()); // it answers other criteria
    EXPECT_EQ(Text("Items"), "–");
    EXPECT_EQ(Text("WhatCounts"), "");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), ElementsAre("Tail"));
    EXPECT_EQ(Text("Word"), "1 instance was found.");
}

TEST_F(WBGroupCriteriaPageTest, CriteriaAreJoinedByTheUsersChoice)
{
    AddCriterion("Name", "is", "tail");
    AddCriterion("Name", "is", "box");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), IsEmpty());
    EXPECT_EQ(Text("Word"), "0 instances were found.");
    EXPECT_EQ(Text("Items"), "0");
    Click(kCriteria, "Or");
    EXPECT_EQ(Text("Items"), "–");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), ElementsAre("Tail", "Box"));
    Click(kCriteria, "And");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), IsEmpty());
}

TEST_F(WBGroupCriteriaPageTest, ComparisonsFollowTheAttribute)
{
    EXPECT_THAT(Lines(kCriteria, "Comparison"),
                ElementsAre("is", "is not", "contains", "begins with"));
    Choose("Attribute", "Mass");
    EXPECT_THAT(Lines(kCriteria, "Comparison"), ElementsAre("=", "!=", "<", "<=", ">", ">="));
    Choose("Comparison", "<");
    Choose("Attribute", "Next_inspection");
    EXPECT_EQ(On<CATDlgCombo>(kCriteria, "Comparison")->SelectedIndex(), 2); // kept
    Choose("Attribute", "Flammable");
    EXPECT_THAT(Lines(kCriteria, "Comparison"), ElementsAre("is", "is not"));
}

TEST_F(WBGroupCriteriaPageTest, ValueThatCannotBeReadIsRefusedWithWhatIsExpected)
{
    AddCriterion("Mass", ">", "heavy");
    AddCriterion("Next_inspection", "<", "soon");
    AddCriterion("Flammable", "is", "perhaps");
    AddCriterion("Name", "is", " ");
    EXPECT_EQ(List(kCriteria)->RowCount(), 0);
    ASSERT_EQ(boxes.size(), 4U);
    EXPECT_EQ(boxes[0].title, "The value cannot be read");
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(boxes[0].text, HasSubstr("Mass: \"heavy\" cannot be read. Expected a number"));
    EXPECT_THAT(boxes[1].text, HasSubstr("Next_inspection: \"soon\" is no date"));
    EXPECT_THAT(boxes[2].text, HasSubstr("Flammable: \"perhaps\" cannot be read"));
    EXPECT_EQ(boxes[3].text, "Name: There is no value. Type one.");
    EXPECT_EQ(Value(), " "); // what was typed stays
}

TEST_F(WBGroupCriteriaPageTest, CriterionStandsThereOnce)
{
    AddCriterion("Mass", ">", "1 kg");
    AddCriterion("Mass", ">", "1,0");
    EXPECT_EQ(List(kCriteria)->RowCount(), 1);
    EXPECT_EQ(Text("Word"), "This criterion is there already.");
    AddCriterion("Mass", "<", "1 kg");
    EXPECT_EQ(List(kCriteria)->RowCount(), 2);
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBGroupCriteriaPageTest, CriteriaAreRemovedOneByOneOrAllAtOnce)
{
    EXPECT_FALSE(IsUsable(kCriteria, "RemoveButton"));
    EXPECT_FALSE(IsUsable(kCriteria, "ClearButton"));
    AddCriterion("Name", "is", "a");
    AddCriterion("Name", "is", "b");
    AddCriterion("Name", "is", "tail");
    List(kCriteria)->SelectRow(2);
    Click(kCriteria, "RemoveButton");
    EXPECT_THAT(Column(*List(kCriteria), 2), ElementsAre("a", "tail"));
    EXPECT_EQ(List(kCriteria)->SelectedRow(), 2);
    List(kCriteria)->SelectRow(1);
    Click(kCriteria, "RemoveButton");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), ElementsAre("Tail"));
    List(kCriteria)->SelectRow(0);
    Click(kCriteria, "RemoveButton"); // none is selected
    EXPECT_EQ(List(kCriteria)->RowCount(), 1);
    EXPECT_THAT(FoundNames(), ElementsAre("Tail"));
    Click(kCriteria, "ClearButton");
    EXPECT_EQ(List(kCriteria)->RowCount(), 0);
    EXPECT_THAT(FoundNames(), IsEmpty());
    EXPECT_FALSE(IsUsable(kCriteria, "FindButton"));
}

TEST_F(WBGroupCriteriaPageTest, FoundInstancesComeIntoTheGroup)
{
    Pick(Tail());
    EXPECT_EQ(Text("Word"), "TAIL.1 is in the group of instances.");
    EXPECT_FALSE(IsUsable(kFound, "AddFoundButton"));
    AddCriterion("Mass", ">=", "20 kg");
    Click(kCriteria, "FindButton");
    Click(kFound, "AddFoundButton");
    EXPECT_EQ(Text("Word"), "2 instances were added to the group.");
    EXPECT_THAT(Column(*List(kInstances), 0), ElementsAre("TAIL.1", "WING.1", "SKIN.1"));
    EXPECT_THAT(Column(*List(kInstances), 1), ElementsAre("", "Wing", "Skin"));
    EXPECT_THAT(Remarks(), ElementsAre("", "incomplete below", "counts with WING.1"));
    GoTo(kInstances);
    EXPECT_EQ(Text("Mass"), "60 kg");
    Pick(Skin());
    EXPECT_EQ(Text("Word"), "SKIN.1 is in the group already.");
}

TEST_F(WBGroupCriteriaPageTest, ValueIsTakenFromTheNextPickAndFromThatAlone)
{
    Choose("Attribute", "Mass");
    EXPECT_FALSE(panel->IsInstanceInputActive());
    Click(kCriteria, "TakeFromPick");
    EXPECT_TRUE(panel->IsInstanceInputActive());
    PickValue(Spar());
    EXPECT_EQ(Value(), "10 kg");
    EXPECT_FALSE(panel->IsInstanceInputActive());
    EXPECT_EQ(Text("Word"), "The value of SPAR.1 was taken.");
    EXPECT_EQ(List(kInstances)->RowCount(), 0);
    Choose("Attribute", "Operating_time");
    Click(kCriteria, "TakeFromPick");
    PickValue(Spar());
    ShowIn("TIME", "h");
    Click(kCriteria, "TakeFromPick");
    PickValue(Spar());
    EXPECT_EQ(Value(), "3.5 h"); // 12600 s
    Choose("Comparison", "=");
    Click(kCriteria, "AddButton");
    Click(kCriteria, "FindButton");
    EXPECT_THAT(FoundNames(), ElementsAre("Main spar"));
    Choose("Attribute", "Material");
    Click(kCriteria, "TakeFromPick");
    PickValue(Spar());
    EXPECT_EQ(Value(), "Steel 4130"); // its heaviest
}

TEST_F(WBGroupCriteriaPageTest, PickWithoutAValueLeavesTheFieldAndEndsTheWaiting)
{
    On<CATDlgEditor>(kCriteria, "Value")->SetText("5");
    Choose("Attribute", "Mass");
    Click(kCriteria, "TakeFromPick");
    PickValue(Box());
    EXPECT_EQ(Value(), "5");
    EXPECT_EQ(Text("Word"), "BOX.1 has no value: Mass.");
    EXPECT_FALSE(panel->IsInstanceInputActive());
    Click(kCriteria, "TakeFromPick");
    PickValue({"LOST.1", "LOST", "A", {}});
    EXPECT_EQ(Value(), "5");
    EXPECT_THAT(Text("Word"), HasSubstr("LOST.1 is not in the figures"));
    EXPECT_FALSE(panel->IsInstanceInputActive());
}

TEST_F(WBGroupCriteriaPageTest, WaitingForAPickEndsWithThePageAndTheCriterion)
{
    Click(kCriteria, "TakeFromPick");
    GoTo(kInstances);
    EXPECT_FALSE(panel->IsInstanceInputActive());
    GoTo(kCriteria);
    EXPECT_FALSE(panel->IsInstanceInputActive());
    Click(kCriteria, "TakeFromPick");
    AddCriterion("Name", "is", "Tail");
    EXPECT_FALSE(panel->IsInstanceInputActive());
}

TEST_F(WBGroupCriteriaPageTest, ClosedWindowWaitsForNoPick)
{
    Click(kCriteria, "TakeFromPick");
    EXPECT_TRUE(panel->IsInstanceInputActive());
    panel->SetVisibility(false);
    EXPECT_FALSE(panel->IsInstanceInputActive());
}

TEST_F(WBGroupCriteriaPageTest, PagesHaveTheirOwnWordAndTotals)
{
    Pick(Box());
    AddCriterion("Name", "is", "Tail");
    Click(kCriteria, "FindButton");
    EXPECT_EQ(Text("Mass"), "20 kg");
    GoTo(kInstances);
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_EQ(Text("Word"), "");
    GoTo(kCriteria); // criteria add up to what matches them
    EXPECT_EQ(Text("Mass"), "20 kg");
    EXPECT_EQ(Text("Word"), "");
    GoTo(kFound);
    EXPECT_EQ(Text("Mass"), "20 kg");
    EXPECT_EQ(Text("Word"), "1 instance was found.");
}

TEST_F(WBGroupCriteriaPageTest, RefreshKeepsTheChosenAttribute)
{
    Choose("Attribute", "Vendor");
    Choose("Comparison", "contains");
    Click("RefreshButton");
    const auto* attributes = On<CATDlgCombo>(kCriteria, "Attribute");
    EXPECT_EQ(attributes->Line(attributes->SelectedIndex()), "Vendor");
    EXPECT_EQ(On<CATDlgCombo>(kCriteria, "Comparison")->SelectedIndex(), 2);
}
