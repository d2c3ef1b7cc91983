#include "OpenFilterPanel.h"
#include "WBRootFilter.h"

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using WBFilterPanelKeepingTest = OpenFilterPanel;

} // namespace

TEST_F(WBFilterPanelKeepingTest, CancelGivesUpWhatWasChanged)
{
    Store("LA1.Filter", kFront);
    Open();
    PickWing();
    TypeName("Changed");
    Click("NewButton");
    EXPECT_EQ(panel->GetCancelButton(), Find<CATDlgPushButton>("CancelButton"));
    Click("CancelButton");
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_FALSE(panel->IsDestructionRequested());
    EXPECT_EQ(Stored("LA1.Filter"), kFront);
    EXPECT_THAT(Filters(), ElementsAre("Front alone"));
    EXPECT_THAT(Lines(), ElementsAre("FUS-100.1 in"));
    EXPECT_EQ(Handler(), "Front alone");
}

TEST_F(WBFilterPanelKeepingTest, OkWithoutChangesWritesNothing)
{
    Store("LA1.Filter", kFront);
    Open();
    LockSettings();
    EXPECT_EQ(panel->GetOkButton(), Find<CATDlgPushButton>("OkButton"));
    Click("OkButton");
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(AllStored("LA1.Filters"), IsEmpty());
}

TEST_F(WBFilterPanelKeepingTest, SaveThatFailsIsToldAndLeavesThePanelOpen)
{
    Store("LA1.Filter", kFront);
    Open();
    PickWing();
    LockSettings();
    int heard = 0;
    Window()->Subscribe(panel->GetOkButton(), CATDlgPushButton::Activated,
                        [&heard](const CATNotification&) { ++heard; });
    Click("OkButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Filters");
    EXPECT_THAT(boxes[0].text, HasSubstr("could not be written"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(List()->RowCount(), 2);
    EXPECT_EQ(WBFilterOfRoot("LA1"), kFront);
    UnlockSettings();
    Click("OkButton");
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(heard, 1);
    BeginNewSession();
    EXPECT_THAT(Stored("LA1.Filter"), testing::StartsWith("2|Front alone|"));
}

TEST_F(WBFilterPanelKeepingTest, NamesAreRefusedWithASentence)
{
    Open();
    PickWing();
    for (const char* name : {"", "  ", "A|B", "~", "__null__", "two\nlines", "No filter"}) {
        boxes.clear();
        TypeName(name);
        const std::string sentence = Text("Word");
        EXPECT_NE(sentence, "") << name;
        Click("OkButton");
        ASSERT_EQ(boxes.size(), 1U) << name;
        EXPECT_EQ(boxes[0].text, sentence);
        EXPECT_EQ(boxes[0].style, kErrorStyle);
        EXPECT_TRUE(panel->IsVisible());
    }
    EXPECT_EQ(Stored("LA1.Filter"), "(none)");
    TypeName("A/B");
    EXPECT_EQ(Text("Word"), "");
    Click("OkButton");
    EXPECT_EQ(Handler(), "A/B");
}

TEST_F(WBFilterPanelKeepingTest, OkShowsTheFilterThatIsInTheWay)
{
    Open();
    PickWing();
    TypeName("Twice");
    Click("NewButton");
    TypeName("Twice");
    Click("NewButton");
    Click("OkButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("\"Twice\""));
    EXPECT_EQ(Find<CATDlgCombo>("Filter")->SelectedIndex(), 1);
    TypeName("Once");
    Click("On"); // and that one has no lines
    Click("OkButton");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_THAT(boxes[1].text, HasSubstr("\"Once\" is on and has no lines"));
    PickFront();
    Click("OkButton");
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_THAT(AllStored("LA1.Filters"),
                ElementsAre("1|Twice|X|WNG-000.1|WNG-000|A|0",
                            "1|Once|X|FUS-100.1|FUS-100|A|1|FUS-000.1", "0|Filter 1"));
}

TEST_F(WBFilterPanelKeepingTest, ClosingWithChangesAsks)
{
    Store("LA1.Filter", kFront);
    Open();
    panel->Widget()->close();
    EXPECT_FALSE(panel->IsVisible()); // nothing was changed
    EXPECT_THAT(boxes, IsEmpty());

    panel->SetVisibility(true);
    PickWing();
    answer = Answer::Cancel;
    panel->Widget()->close();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Filters");
    EXPECT_EQ(boxes[0].text, "Shall the changes of the filters of LA1 be kept?");
    EXPECT_EQ(boxes[0].style, CATDlgNotify::kQuestionWithCancel);
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(List()->RowCount(), 2);
    Settle();
    EXPECT_EQ(Find<CATDlgNotify>("ChangedFilters"), nullptr);

    answer = Answer::No;
    panel->Widget()->close();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(List()->RowCount(), 1);
    EXPECT_EQ(Stored("LA1.Filter"), kFront);

    panel->SetVisibility(true);
    PickWing();
    answer = Answer::Yes;
    panel->Widget()->close();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(Stored("LA1.Filter"), testing::StartsWith("2|Front alone|"));
}

TEST_F(WBFilterPanelKeepingTest, ClosingStaysOpenWhereChangesCannotBeKept)
{
    Open();
    PickWing();
    TypeName("");
    panel->Widget()->close();
    EXPECT_EQ(boxes.size(), 2U); // the question, then why not
    EXPECT_TRUE(panel->IsVisible());
}

TEST_F(WBFilterPanelKeepingTest, CurrentFiltersAreReadAnew)
{
    Open();
    PickWing();
    Store("LA1.Filter", kFront);
    panel->SetCurrentFilters();
    EXPECT_THAT(Filters(), ElementsAre("Front alone"));
    EXPECT_THAT(Lines(), ElementsAre("FUS-100.1 in"));
    EXPECT_EQ(Handler(), "Front alone");
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBFilterPanelKeepingTest, SameRootAgainChangesNothingButTheHandler)
{
    Store("LA1.Filter", kFront);
    Open();
    PickWing();
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "Other";
    panel->SetPRCId("LA1");
    EXPECT_EQ(List()->RowCount(), 2);
    EXPECT_EQ(Text("Word"), "");
    EXPECT_EQ(Handler(), "Front alone");
}

TEST_F(WBFilterPanelKeepingTest, AnotherRootHasItsOwnFilters)
{
    Store("LA1.Filter", kFront);
    Store("SC1.Filter", kWing);
    Open();
    panel->SetPRCId("SC1");
    EXPECT_EQ(Text("Product"), "SC1");
    EXPECT_EQ(Name(), "No wing");
    EXPECT_EQ(Handler(), "No wing");
}

TEST_F(WBFilterPanelKeepingTest, AnotherRootWaitsForTheChangesOfThisOne)
{
    Open();
    PickWing();
    panel->SetPRCId("SC1");
    EXPECT_EQ(Text("Product"), "LA1");
    EXPECT_EQ(List()->RowCount(), 1);
    EXPECT_EQ(Text("Word"), "SC1 is open now. Press OK or Cancel for the filters of LA1 first.");
    Click("CancelButton");
    panel->SetPRCId("SC1");
    EXPECT_EQ(Text("Product"), "SC1");
    EXPECT_EQ(List()->RowCount(), 0);
}

TEST_F(WBFilterPanelKeepingTest, ChangesOutliveACommandThatEndsWithoutAWord)
{
    Open();
    PickWing();
    CATRequestDelayedDestruction(panel); // another command was started
    Settle();
    EXPECT_EQ(WBFilterOfRoot("LA1"), "0|No Filter");
    Open("SC1");
    EXPECT_EQ(List()->RowCount(), 0); // they are those of LA1
    EXPECT_EQ(Text("Word"), "");
    Open();
    EXPECT_EQ(Name(), "Filter 1");
    EXPECT_THAT(Lines(), ElementsAre("WNG-000.1 out"));
    EXPECT_EQ(Text("Word"), "What you changed last time was not kept yet: press OK or Cancel.");
    EXPECT_EQ(Handler(), "NoConfig");
    PickFront();
    EXPECT_EQ(Text("Word"), "");
    CATRequestDelayedDestruction(panel);
    Settle();
    Open();
    EXPECT_EQ(List()->RowCount(), 2);
    Click("CancelButton");
    EXPECT_EQ(Text("Word"), "");
    CATRequestDelayedDestruction(panel);
    Settle();
    Open(); // given up
    EXPECT_THAT(Filters(), IsEmpty());
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBFilterPanelKeepingTest, ChangesOfAnEarlierPanelAreKeptByOk)
{
    Open();
    PickWing();
    CATRequestDelayedDestruction(panel);
    Settle();
    Open();
    Click("OkButton");
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Filter 1");
    panel->SetVisibility(true);
    Click("NewButton");
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBFilterPanelKeepingTest, NeedsNoParent)
{
    const auto alone = std::make_unique<WBFilterPanel>(nullptr);
    alone->SetPRCId("LA1");
    alone->Build();
    alone->AddValuesInMultiList("WNG-000.1", "WNG-000", "A", "", 0);
    EXPECT_EQ(FindBelow<CATDlgLabel>(*alone, "Counting")->Title(), "Filter 1");
}

TEST_F(WBFilterPanelKeepingTest, ChangesGoWithTheWindowThatThePanelBelongsTo)
{
    Open();
    PickWing();
    CATSession::Close(); // the sanitizers watch
    EXPECT_EQ(WBFilterOfRoot("LA1"), "0|No Filter");
}

TEST_F(WBFilterPanelKeepingTest, DamagedFilterIsToldAndStaysUntilItIsDeleted)
{
    Store("LA1.Filter", kDamaged);
    StoreAll("LA1.Filters", {kFront});
    Open();
    EXPECT_EQ(Text("Counting"), "No filter: the stored one cannot be read");
    EXPECT_EQ(Text("Word"),
              "A stored filter of LA1 cannot be read. It stays stored until you delete it.");
    EXPECT_THAT(Filters(),
                ElementsAre("Front alone", "(cannot be read) 2|No wing|X|WNG-000.1|WNG-000|A|0"));
    EXPECT_FALSE(IsUsable("Name"));
    EXPECT_FALSE(IsUsable("On"));
    EXPECT_FALSE(IsUsable("RemoveButton"));
    EXPECT_EQ(Handler(), "NoConfig");
    // Another filter takes its place; it is still there.
    Choose("Filter", 0);
    PickWing();
    Click("On");
    EXPECT_EQ(Text("Counting"), "Front alone");
    Click("OkButton");
    EXPECT_THAT(AllStored("LA1.Filters"),
                ElementsAre("2|Front alone|I|FUS-100.1|FUS-100|A|1|FUS-000.1|"
                            "X|WNG-000.1|WNG-000|A|0",
                            kDamaged));
    EXPECT_EQ(Handler(), "Front alone");
    panel->SetVisibility(true);
    Choose("Filter", 1);
    Click("DeleteButton");
    EXPECT_EQ(Text("Word"), "");
    Click("OkButton");
    EXPECT_EQ(AllStored("LA1.Filters").size(), 1U);
}

TEST_F(WBFilterPanelKeepingTest, DamagedFilterStaysWhereItIsWhileOthersChange)
{
    Store("LA1.Filter", kDamaged);
    Open();
    PickWing(); // into a filter of its own
    EXPECT_THAT(Filters(), testing::SizeIs(2));
    EXPECT_FALSE(IsOn());
    TypeName("Begun");
    Click("OkButton");
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), kDamaged);
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kDamaged, "1|Begun|X|WNG-000.1|WNG-000|A|0"));
}

TEST_F(WBFilterPanelKeepingTest, LongDamagedTextsAreNamedByTheirBeginning)
{
    StoreAll("LA1.Filters", {CATUnicodeString(std::string(500, 'x'))});
    Open();
    EXPECT_THAT(Filters(), ElementsAre("(cannot be read) " + std::string(40, 'x')));
}
