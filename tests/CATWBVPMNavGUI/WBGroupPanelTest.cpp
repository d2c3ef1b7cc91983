#include "GroupPanelSession.h"
#include "ResourceKeys.h"

#include <chrono>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using WBGroupPanelTest = GroupPanelSession;

} // namespace

TEST_F(WBGroupPanelTest, IsMadeThroughTheTableHiddenAndWithoutControls)
{
    CATWBVPMNavGUIRegister();
    CATWBVPMNavGroupPanel* made = CATWBVPMNavGroupPanel::Create(Window(), "LA1", "P", "A");
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->ClassName(), "WBGroupPanel");
    EXPECT_EQ(made->Name(), "CATWBVPMNavGroupPanel");
    EXPECT_EQ(made->Parent(), Window());
    EXPECT_EQ(made->GetResourceFilename(0), "CATWBVPMNavGroupPanel");
    EXPECT_EQ(made->GetResourceFilename(1), "");
    EXPECT_TRUE(made->RecoverFromFault());
    EXPECT_FALSE(made->IsVisible());
    EXPECT_EQ(made->ChildCount(), 0);
    EXPECT_FALSE(made->IsInstanceInputActive());
    // Nowhere to put it yet.
    made->AddValuesInMultiList("A.1", "A", "A", "", 0, "A");
    made->SetWMMInstance("A.1", "A", "A", "", 0);
    ShowIn("MASS", "lb");
    EXPECT_EQ(made->ChildCount(), 0);
}

TEST_F(WBGroupPanelTest, ReadsAllOfTheProductUnderItsFilterOnce)
{
    LeaveOutTheDoor();
    Open();
    Pick(Wing());
    EXPECT_THAT(server->CallsOf("WBMakeReport"),
                ElementsAre("0|0|0|1|*|1|*|0|-|-|-|0|0|-|Active|0|1|LA1|1|Doors|X|D.1|D|A|0|0|"));
    EXPECT_EQ(panel->Title(), "Groups");
    EXPECT_EQ(Text("Product"), "LA1");
    EXPECT_EQ(Text("Filter"), "Doors of LA1");
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBGroupPanelTest, EmptyGroupWeighsNothingThatIsKnown)
{
    Open();
    EXPECT_EQ(Text("Items"), "0");
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_EQ(Text("Share"), "–");
    EXPECT_EQ(Text("Centre"), "–");
    EXPECT_EQ(Text("WhatCounts"), "");
    EXPECT_EQ(Text("Missing"), "");
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBGroupPanelTest, PicksComeIntoTheGroupOnceAndAddUp)
{
    Open();
    Pick(Tail(), "Tail");
    Pick(Spar(), "Main spar");
    EXPECT_EQ(List(kInstances)->SelectedRow(), 2);
    EXPECT_EQ(Text("Word"), "");
    Pick(Tail(), "Tail");
    EXPECT_EQ(Text("Word"), "TAIL.1 is in the group already.");
    EXPECT_EQ(List(kInstances)->SelectedRow(), 1);
    EXPECT_THAT(Column(*List(kInstances), 0), ElementsAre("TAIL.1", "SPAR.1"));
    EXPECT_THAT(Column(*List(kInstances), 1), ElementsAre("Tail", "Main spar"));
    EXPECT_THAT(Column(*List(kInstances), 6), ElementsAre("LA1/TAIL.1", "LA1/WING.1/SPAR.1"));
    // (20 * 5000 + 10 * 900) / 30 = 3633.333, 20 * 400 / 30 = 266.667.
    EXPECT_EQ(Text("Items"), "2");
    EXPECT_EQ(Text("Mass"), "30 kg");
    EXPECT_EQ(Text("Share"), "30 %");
    EXPECT_EQ(Text("Centre"), "x 3633.333, y 0, z 266.667 mm");
}

TEST_F(WBGroupPanelTest, WindowSaysWhenAnItemCountsWithItsAssembly)
{
    Open();
    Pick(Spar());
    Pick(Skin());
    EXPECT_EQ(Text("WhatCounts"), "");
    EXPECT_EQ(Text("Missing"), "1 has no centre of gravity and stands at that of the rest.");
    EXPECT_EQ(Text("Centre"), "x 900, y 0, z 0 mm");
    Pick(Wing());
    EXPECT_EQ(Text("Items"), "1");
    EXPECT_EQ(Text("Mass"), "40 kg");
    EXPECT_EQ(Text("WhatCounts"), "2 more count once, with the assemblies that they stand in.");
    EXPECT_EQ(Text("Missing"), "Of 1 assembly some parts have no mass or no centre of gravity.");
    EXPECT_THAT(Remarks(),
                ElementsAre("counts with WING.1", "counts with WING.1", "incomplete below"));
    List(kInstances)->SelectRow(2);
    Click(kInstances, "RemoveButton");
    EXPECT_EQ(Text("WhatCounts"), "1 more counts once, with the assembly that it stands in.");
    List(kInstances)->SelectRow(2);
    Click(kInstances, "RemoveButton");
    EXPECT_THAT(Remarks(), ElementsAre(""));
    EXPECT_EQ(Text("Mass"), "10 kg");
    EXPECT_EQ(Text("WhatCounts"), "");
}

TEST_F(WBGroupPanelTest, WhatLacksAMassIsSaid)
{
    Open();
    Pick(Box());
    EXPECT_EQ(Text("Items"), "1");
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_EQ(Text("Centre"), "–");
    EXPECT_EQ(Text("Missing"), "1 has no mass and counts as nothing.");
}

TEST_F(WBGroupPanelTest, InstancesAreRemovedOneByOneOrAllAtOnce)
{
    Open();
    for (const char* button : {"RemoveButton", "RemoveGoneButton", "ClearButton"}) {
        EXPECT_FALSE(IsUsable(kInstances, button)) << button;
    }
    Pick(Wing());
    Pick(Tail());
    Pick(Box());
    EXPECT_FALSE(IsUsable(kInstances, "RemoveGoneButton"));
    List(kInstances)->SelectRow(3);
    Click(kInstances, "RemoveButton");
    EXPECT_EQ(List(kInstances)->SelectedRow(), 2);
    EXPECT_EQ(Text("Mass"), "60 kg");
    Click(kInstances, "ClearButton");
    EXPECT_EQ(List(kInstances)->RowCount(), 0);
    EXPECT_EQ(Text("Mass"), "–");
    EXPECT_FALSE(IsUsable(kInstances, "ClearButton"));
    Pick(Wing());
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBGroupPanelTest, FiguresFollowTheUnitsWhileThePanelIsOpen)
{
    Open();
    Pick(Tail());
    AddCriterion("Mass", ">", "19 kg");
    Click(kCriteria, "FindButton");
    GoTo(kInstances);
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "m");
    EXPECT_EQ(Text("Mass"), "20000 g");
    EXPECT_EQ(Text("Centre"), "x 5, y 0, z 0.4 m");
    EXPECT_EQ(List(kInstances)->ColumnTitles()[5], "Mass [g]");
    EXPECT_EQ(List(kInstances)->Cell(4, 1), "20000");
    EXPECT_EQ(List(kInstances)->SelectedRow(), 1);
    EXPECT_EQ(Found()->ColumnTitles()[5], "Mass [g]");
    EXPECT_EQ(Found()->Cell(4, 3), "20000");
    EXPECT_EQ(List(kCriteria)->Cell(2, 1), "19 kg");
}

TEST_F(WBGroupPanelTest, RefreshReadsTheFiguresAnew)
{
    Open();
    Pick(Tail());
    Pick(Box());
    AddCriterion("Name", "is", "Tail");
    Click(kCriteria, "FindButton");
    GoTo(kInstances);
    std::string changed = kGroupReport;
    const std::string before = R"(WB_Mass="20")";
    changed.replace(changed.find(before), before.size(), R"(WB_Mass="25")");
    const std::string box = R"(Instance_ID="BOX.1")";
    changed.replace(changed.find(box), box.size(), R"(Instance_ID="BOX.2")");
    server->answers["WBMakeReport"] = changed;
    Click("RefreshButton");
    EXPECT_EQ(server->CallsOf("WBMakeReport").size(), 2U);
    EXPECT_EQ(Text("Mass"), "25 kg");
    EXPECT_EQ(Text("WhatCounts"), "1 is gone.");
    EXPECT_THAT(Remarks(), ElementsAre("", "gone"));
    EXPECT_TRUE(IsUsable(kInstances, "RemoveGoneButton"));
    EXPECT_EQ(Found()->Cell(4, 1), "25");
    Click(kInstances, "RemoveGoneButton");
    EXPECT_THAT(Column(*List(kInstances), 0), ElementsAre("TAIL.1"));
    EXPECT_EQ(Text("WhatCounts"), "");
}

TEST_F(WBGroupPanelTest, WithoutAnAnswerThereAreNoFiguresAndTheGroupStays)
{
    Open();
    Pick(Tail());
    AddCriterion("Name", "is", "Tail");
    Click(kCriteria, "FindButton");
    GoTo(kInstances);
    struct Case
    {
        const char* answer;
        const char* title;
        const char* text;
    };
    for (const Case& bad :
         {Case{"", "No answer from the server",
               "The server did not answer, so there are no figures"},
          Case{"#WB_ERROR#The field root is wrong.", "The server reports an error",
               "The field root is wrong."},
          Case{"<WB_Report><PRC>", "The figures cannot be read", "no report of the product: "},
          Case{"<WB_Report/>", "The figures cannot be read", "It holds no product."}}) {
        boxes.clear();
        server->answers["WBMakeReport"] = bad.answer;
        Click("RefreshButton");
        ASSERT_EQ(boxes.size(), 1U);
        EXPECT_EQ(boxes[0].title, bad.title);
        EXPECT_THAT(boxes[0].text, HasSubstr(bad.text));
        EXPECT_EQ(boxes[0].style, kErrorStyle);
        EXPECT_EQ(Text("Items"), "–");
        EXPECT_EQ(Text("Mass"), "–");
        EXPECT_THAT(Column(*List(kInstances), 0), ElementsAre("TAIL.1"));
        EXPECT_THAT(Remarks(), ElementsAre(""));
        EXPECT_EQ(Found()->RowCount(), 0);
        EXPECT_FALSE(IsUsable(kCriteria, "FindButton"));
        EXPECT_FALSE(IsUsable(kCriteria, "AddButton"));
        EXPECT_FALSE(IsUsable(kFound, "AddFoundButton"));
        Pick(Wing());
        List(kInstances)->SelectRow(2);
        Click(kInstances, "RemoveButton");
    }
    server->answers["WBMakeReport"] = kGroupReport;
    Click("RefreshButton");
    EXPECT_EQ(Text("Mass"), "20 kg");
    EXPECT_TRUE(IsUsable(kCriteria, "FindButton"));
    EXPECT_EQ(Found()->Cell(0, 1), "TAIL.1");
}

TEST_F(WBGroupPanelTest, PickOfAnotherProductIsNotAdded)
{
    Open();
    Pick(Tail());
    OpenProduct("SC1");
    Pick({"BUS.1", "BUS", "A", {}});
    EXPECT_EQ(List(kInstances)->RowCount(), 1);
    EXPECT_EQ(Text("Word"), "BUS.1 was not added: these are groups of LA1, and another product is "
                            "open. Close this window first.");
}

TEST_F(WBGroupPanelTest, RecordWhoseCountLiesIsRefusedInWords)
{
    Open();
    const CATUnicodeString refusal =
        "\"RIB.1\" was not taken: what the server says of it cannot be read.";
    for (const int count : {0, 2, -1, 2'000'000'000}) {
        panel->AddValuesInMultiList("RIB.1", "RIB", "A", "TAIL.1", count, "Rib");
        EXPECT_EQ(Text("Word"), refusal) << count;
    }
    EXPECT_EQ(List(kInstances)->RowCount(), 0);
    Pick(Tail());
    EXPECT_EQ(Text("Word"), "");
    GoTo(kCriteria);
    panel->SetWMMInstance("RIB.1", "RIB", "A", "TAIL.1", 2'000'000'000);
    EXPECT_EQ(Text("Word"), refusal);
}

TEST_F(WBGroupPanelTest, ThousandsOfInstancesAreTakenAtOnce)
{
    Open();
    const auto begin = std::chrono::steady_clock::now();
    constexpr int kPicked = 3000;
    for (int number = 0; number < kPicked; ++number) {
        Pick({"P." + std::to_string(number), "P", "A", {}});
    }
    EXPECT_EQ(List(kInstances)->RowCount(), kPicked);
    // Writing the whole list anew for each would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST_F(WBGroupPanelTest, CloseButtonHidesThePanel)
{
    Open();
    EXPECT_EQ(panel->GetCloseButton(), Find<CATDlgPushButton>("CloseButton"));
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBGroupPanelTest, GroupsThatAreNotSavedAreAskedAboutBeforeTheWindowCloses)
{
    Open();
    GoTo(kCriteria);
    Pick(Tail());
    answer = Answer::Cancel;
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("The group of instances is not saved"));
    EXPECT_EQ(Find<CATDlgTabContainer>("Pages")->SelectedPage(), 0);
    EXPECT_EQ(Text("Mass"), "20 kg"); // of the page that is asked about
    // Without a name it cannot be saved, so the window stays.
    answer = Answer::Yes;
    Click("CloseButton");
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(boxes.back().text, "The group has no name. Type one.");
    On<CATDlgEditor>(kInstances, "Name")->SetText("Tail");
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    OpenAgain();
    EXPECT_THAT(Lines(kInstances, "Stored"), ElementsAre("Tail"));
}

TEST_F(WBGroupPanelTest, GroupsThatNeedNotBeSavedGoWithTheWindow)
{
    Open();
    AddCriterion("Name", "is", "Tail");
    Pick(Tail());
    answer = Answer::No;
    panel->Widget()->close();
    EXPECT_FALSE(panel->IsVisible());
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_THAT(boxes[0].text, HasSubstr("The group of instances is not saved"));
    EXPECT_THAT(boxes[1].text, HasSubstr("The group of criteria is not saved"));
}

TEST_F(WBGroupPanelTest, WhatIsNotSavedIsThereAgainWhenAnotherCommandEndedThePanel)
{
    Open();
    Pick(Tail(), "Tail");
    AddCriterion("Name", "is", "Tail");
    Click(kCriteria, "Or");
    GoTo(kInstances);
    delete panel;
    Open();
    EXPECT_EQ(Text("Word"), "What you had not saved is here again.");
    EXPECT_THAT(Column(*List(kInstances), 1), ElementsAre("Tail"));
    EXPECT_EQ(Text("Mass"), "20 kg");
    EXPECT_THAT(Column(*List(kCriteria), 2), ElementsAre("Tail"));
    EXPECT_TRUE(On<CATDlgRadioButton>(kCriteria, "Or")->IsChecked());
    answer = Answer::No; // it is not saved here either, and now it is given up
    Click("CloseButton");
    EXPECT_EQ(boxes.size(), 2U);
    delete panel;
    Open();
    EXPECT_EQ(Text("Word"), "");
    EXPECT_EQ(List(kInstances)->RowCount(), 0);
    EXPECT_EQ(List(kCriteria)->RowCount(), 0);
}

TEST_F(WBGroupPanelTest, WhatWasNotSavedBelongsToItsProduct)
{
    Open();
    Pick(Tail(), "Tail");
    delete panel;
    panel = new WBGroupPanel(Window(), "SC1");
    panel->Build();
    EXPECT_EQ(List(kInstances)->RowCount(), 0);
    delete panel;
    Open();
    EXPECT_EQ(List(kInstances)->RowCount(), 1);
}

TEST_F(WBGroupPanelTest, DraftsStandOnceBelowTheMainWindow)
{
    WBGroupDrafts* drafts = WBGroupDrafts::Below(Window());
    ASSERT_NE(drafts, nullptr);
    EXPECT_EQ(drafts->Parent(), Window());
    EXPECT_STREQ(drafts->ClassName(), "WBGroupDrafts");
    EXPECT_EQ(WBGroupDrafts::Below(Window()), drafts);
    EXPECT_EQ(WBGroupDrafts::Below(nullptr), nullptr);
    drafts->Put(WBGroupKind::Criteria, "LA1", {"or", {}});
    EXPECT_EQ(drafts->Take(WBGroupKind::Instances, "LA1"), std::nullopt);
    EXPECT_EQ(drafts->Take(WBGroupKind::Criteria, "LA1"), (WBStoredGroup{"or", {}}));
    EXPECT_EQ(drafts->Take(WBGroupKind::Criteria, "LA1"), std::nullopt);
}

TEST_F(WBGroupPanelTest, EverythingCanBeReadInASmallWindowAndInGerman)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open();
        Pick(Spar(), "Main spar");
        Pick(Skin(), "Skin");
        Pick(Wing(), "Wing");
        for (const char* page : {kInstances, kCriteria, kFound}) {
            GoTo(page);
            panel->Widget()->resize(640, 480);
            Settle();
            EXPECT_LE(panel->Widget()->width(), 640) << language << " " << page;
            EXPECT_LE(panel->Widget()->height(), 480) << language << " " << page;
            ExpectNothingLeavesTheWindow(*panel->Widget());
            ExpectNoLabelIsCutInSilence(*panel->Widget());
        }
        delete panel;
    }
}

TEST_F(WBGroupPanelTest, EveryTextIsThereInBothLanguages)
{
    for (const char* file : {"catalogs/WBGroupPanel.toml", "dialogs/CATWBVPMNavGroupPanel.toml"}) {
        EXPECT_EQ(ResourceKeys(std::string("de/") + file), ResourceKeys(file));
    }
    Open();
    for (const char* page : {kInstances, kCriteria, kFound}) {
        GoTo(page);
        for (const QAbstractButton* button : panel->Widget()->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) { // a control without a text shows its name
                EXPECT_NE(button->text(), button->objectName());
            }
        }
        for (const QLabel* label : panel->Widget()->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                EXPECT_FALSE(label->text().endsWith("Label")) << label->text().toStdString();
            }
        }
    }
}

TEST_F(WBGroupPanelTest, ControlsCanBeHeard)
{
    Open();
    const auto spoken = [](const CATDialog* control) {
        return control->Widget()->accessibleName().toStdString();
    };
    EXPECT_EQ(spoken(List(kInstances)), "Instances of the group");
    EXPECT_EQ(spoken(List(kCriteria)), "Criteria");
    EXPECT_EQ(spoken(Found()), "Found instances");
    EXPECT_EQ(spoken(On<CATDialog>(kCriteria, "Attribute")), "Attribute");
    EXPECT_EQ(spoken(On<CATDialog>(kCriteria, "Comparison")), "Comparison");
    EXPECT_EQ(spoken(On<CATDialog>(kCriteria, "Value")), "Value");
}
