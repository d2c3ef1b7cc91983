#include "EditingSession.h"

namespace
{

using testing::IsEmpty;
using testing::StartsWith;

using WBMainPanelQuestionsTest = EditingSession;

constexpr const char* kOneEdit = "✎ 1 edit is not applied.";

} // namespace

TEST_F(WBMainPanelQuestionsTest, MaterialOfManyPlacesIsAskedAbout)
{
    places = "12";
    SayWhatIsStated();
    Open(record);
    Choose("MaterialNameChoice", 1);
    answers = {kNo};
    Click("ApplyButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Counts in other places too");
    EXPECT_EQ(boxes[0].text, "This changes BOLT A in 12 places of CAR.\nApply it?");
    EXPECT_THAT(server->CallsOf("WBApplyValues"), IsEmpty());
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    answers = {kYes};
    server->answers["WBCompPartGetInitialValues"] = Values("12.5");
    Click("ApplyButton");
    EXPECT_EQ(server->CallsOf("WBApplyValues").size(), 1U);
    EXPECT_EQ(Text("EditWords"), "");
}

TEST_F(WBMainPanelQuestionsTest, ComputationAsksToApplyFirst)
{
    server->answers["WBCompPartCompute"] =
        "13|0.1|0.2|1|2|3|1|1|1|0|0|0|0|0|1|0|0|0|1|0|0|0|1|0|0|0|";
    Open(record);
    Type("StatedMassEditor", "13");
    answers = {kNo};
    Click("ComputeButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Edits are not applied");
    EXPECT_EQ(boxes[0].text, "Bolt: 1 edit is not applied.\n"
                             "Estimated: mass (12.5 kg → 13 kg)\n"
                             "A computation counts what is applied. Apply them and compute?");
    EXPECT_THAT(server->CallsOf("WBCompPartCompute"), IsEmpty());
    EXPECT_EQ(Text("EditWords"), kOneEdit);

    answers = {kYes};
    ServerHas("13", "12.5");
    server->calls.clear();
    Click("ComputeButton");
    EXPECT_THAT(server->calls.at(0), StartsWith("WBApplyValues"));
    EXPECT_EQ(server->CallsOf("WBCompPartCompute").size(), 1U);
    EXPECT_EQ(List("MassTypes")->Cell(3, 1), "13");
    EXPECT_EQ(Text("EditWords"), "● 1 change is not saved.");
    // Without edits nobody is asked; what a computation gave can be edited beside.
    Click("ComputeButton");
    EXPECT_EQ(boxes.size(), 2U);
    Type("StatedMassEditor", "14");
    EXPECT_EQ(Text("EditWords"), "✎ 1 edit is not applied.   ● 1 change is not saved.");
    EXPECT_EQ(List("MassTypes")->Cell(3, 1), "13");
}

TEST_F(WBMainPanelQuestionsTest, ComputationThatIsAskedForStaysOffWhereApplyingFails)
{
    Open(record);
    Type("StatedMassEditor", "13");
    answers = {kYes};
    server->answers["WBApplyValues"] = "#WB_ERROR#No.";
    Click("ComputeButton");
    EXPECT_THAT(server->CallsOf("WBCompPartCompute"), IsEmpty());
    EXPECT_EQ(Text("EditWords"), kOneEdit);
}

TEST_F(WBMainPanelQuestionsTest, AnotherPickNeverDiscardsEdits)
{
    Open(record);
    Type("StatedMassEditor", "13");
    const RecordHandle next = RecordOf(FirewallStream());
    answers = {kNo};
    panel->SetModel(next.Get());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Bolt: 1 edit is not applied.\n"
                             "Estimated: mass (12.5 kg → 13 kg)\n"
                             "Apply them and go on to what was picked, or stay here with them?");
    EXPECT_EQ(Text("Part"), "BOLT, version A");
    EXPECT_EQ(Field("StatedMassEditor"), "13 kg");
    EXPECT_EQ(next->ReferenceCount(), 1);

    answers = {kYes};
    server->answers["WBApplyValues"] = "#WB_ERROR#No.";
    panel->SetModel(next.Get());
    EXPECT_EQ(Text("Part"), "BOLT, version A");
    EXPECT_EQ(Text("EditWords"), kOneEdit);

    panel->SetModel(nullptr); // also not for nothing
    EXPECT_EQ(Text("Part"), "BOLT, version A");
}

TEST_F(WBMainPanelQuestionsTest, NextPickShowsWhatBecameOfItByTheEdits)
{
    Open(record);
    Type("StatedMassEditor", "13");
    const RecordHandle next =
        RecordOf("1|AXLE.1|AXLE|A|CAR|0|" + Values("20")); // read before the edits were applied
    answers = {kYes};
    server->answers["WBCompPartGetInitialValues"] = Values("20.5");
    panel->SetModel(next.Get());
    EXPECT_EQ(server->CallsOf("WBApplyValues").size(), 1U);
    EXPECT_EQ(server->CallsOf("WBCompPartGetInitialValues").back(), "1||CAR|AXLE.1|AXLE|A|0|");
    EXPECT_EQ(Text("Part"), "AXLE, version A");
    EXPECT_EQ(Text("Mass"), "20.5 kg");
    EXPECT_EQ(Text("EditWords"), "");
}

TEST_F(WBMainPanelQuestionsTest, WrongEntryAloneKeepsAPickAwayToo)
{
    Open(record);
    Type("StatedMassEditor", "heavy");
    answers = {kYes};
    panel->SetModel(RecordOf(FirewallStream()).Get());
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_THAT(boxes[0].text, StartsWith("Bolt: ✕ 1 entry cannot be taken.\n"));
    EXPECT_EQ(boxes[1].title, "An entry cannot be taken");
    EXPECT_EQ(Text("Part"), "BOLT, version A");
}

TEST_F(WBMainPanelQuestionsTest, ClosingAsksByButtonAndByFrame)
{
    Open(record);
    Type("StatedMassEditor", "13");
    answers = {kCancel};
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Bolt: 1 edit is not applied.\n"
                             "Estimated: mass (12.5 kg → 13 kg)\n"
                             "Apply them before this window closes?");
    answers = {kCancel};
    panel->Widget()->close();
    Settle();
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    // Apply, which may fail.
    answers = {kYes};
    server->answers["WBApplyValues"] = "#WB_ERROR#No.";
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(Text("EditWords"), kOneEdit);
    // Discard.
    answers = {kNo};
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(EstimateOf(*record), 12.5);
    EXPECT_EQ(server->CallsOf("WBApplyValues").size(), 1U);
}

TEST_F(WBMainPanelQuestionsTest, ClosingAppliesWhenTheUserSaysSo)
{
    Open(record);
    Enter("StatedMassEditor", "13"); // not even left
    answers = {kYes};
    ServerHas("13", "12.5");
    panel->Widget()->close();
    Settle();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(server->CallsOf("WBApplyValues").size(), 1U);
}

TEST_F(WBMainPanelQuestionsTest, ClosingWithoutEditsAsksNothing)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("StatedMassEditor", "12.5");
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBMainPanelQuestionsTest, QuestionNamesTheFirstFiveEdits)
{
    Open(record);
    Type("StatedMassEditor", "13");
    Type("CentreXEditor", "11");
    Type("IxxEditor", "1.5");
    Choose("PrecisionKindChoice", 1);
    Type("LowerPrecisionEditor", "1");
    Type("UpperPrecisionEditor", "2");
    Type("DensityEditor", "8000");
    Choose("MaterialNameChoice", 1);
    EXPECT_EQ(Text("EditWords"), "✎ 6 edits are not applied.");
    panel->SetModel(RecordOf(FirewallStream()).Get());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "Bolt: 6 edits are not applied.\n"
                             "Estimated: mass (12.5 kg → 13 kg)\n"
                             "Estimated: centre of gravity (10; 20; 30 mm → 11; 20; 30 mm)\n"
                             "Estimated: inertia (1; 2; 3; 0.1; 0.2; 0.3 kg.m2 → "
                             "1.5; 2; 3; 0.1; 0.2; 0.3 kg.m2)\n"
                             "Estimated: precision (– → -1 % / +2 %)\n"
                             "density (– → 8000 kg/m3)\n"
                             "and 1 more\n"
                             "Apply them and go on to what was picked, or stay here with them?");
}
