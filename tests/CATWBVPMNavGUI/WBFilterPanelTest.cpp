#include "OpenFilterPanel.h"
#include "WBRootFilter.h"

#include <chrono>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using WBFilterPanelTest = OpenFilterPanel;

} // namespace

TEST_F(WBFilterPanelTest, IsMadeThroughTheTableHiddenAndWithoutControls)
{
    Store("LA1.Filter", kWing);
    CATWBVPMNavGUIRegister();
    CATWBVPMNavFilterPanel* made = CATWBVPMNavFilterPanel::Create(Window());
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->ClassName(), "WBFilterPanel");
    EXPECT_EQ(made->Name(), "CATWBVPMNavFilterPanel");
    EXPECT_EQ(made->Parent(), Window());
    EXPECT_EQ(made->GetResourceFilename(0), "CATWBVPMNavFilterPanel");
    EXPECT_EQ(made->GetResourceFilename(1), "");
    EXPECT_FALSE(made->IsVisible());
    EXPECT_EQ(made->ChildCount(), 0);
    made->SetPRCId("LA1");
    made->AddValuesInMultiList("A.1", "A", "A", "", 0); // nowhere to put it yet
    EXPECT_EQ(made->ChildCount(), 0);
    EXPECT_EQ(made->GetOkButton(), nullptr);
    EXPECT_EQ(made->GetCancelButton(), nullptr);
    EXPECT_FALSE(CATWBVPMNavFilterPanel::IsValid("LA1", "WNG-000.1", "WNG-000", "A", 0, ""));
    EXPECT_TRUE(CATWBVPMNavFilterPanel::IsValid("LA1", "FUS-000.1", "FUS-000", "A", 0, ""));
}

TEST_F(WBFilterPanelTest, OpensEmptyWhereThereAreNoFilters)
{
    Open();
    EXPECT_EQ(panel->Title(), "Filters");
    EXPECT_EQ(panel->Widget()->height(), 520);
    EXPECT_EQ(Text("Product"), "LA1");
    EXPECT_EQ(Text("Counting"), "No filter");
    EXPECT_THAT(Filters(), IsEmpty());
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_EQ(Text("Rest"), "");
    EXPECT_EQ(Text("Word"), "");
    for (const char* name : {"Filter", "DeleteButton", "Name", "On", "ToggleButton", "UpButton",
                             "DownButton", "RemoveButton"}) {
        EXPECT_FALSE(IsUsable(name)) << name;
    }
    EXPECT_TRUE(IsUsable("NewButton"));
    EXPECT_EQ(Handler(), "NoConfig");
}

TEST_F(WBFilterPanelTest, WithoutARootThereIsNothingToFilter)
{
    panel = new WBFilterPanel(Window());
    panel->Build();
    panel->SetVisibility(true);
    EXPECT_EQ(Text("Product"), "–");
    EXPECT_FALSE(IsUsable("NewButton"));
    Pick("A.1");
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_EQ(Text("Word"), "A.1 was not added: it is no part of –.");
    Click("OkButton");
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBFilterPanelTest, FirstPickBeginsAFilterThatIsOn)
{
    Open();
    PickFront();
    EXPECT_THAT(Filters(), ElementsAre("Filter 1"));
    EXPECT_EQ(Name(), "Filter 1");
    EXPECT_TRUE(IsOn());
    EXPECT_EQ(Text("Counting"), "Filter 1");
    ASSERT_EQ(List()->RowCount(), 1);
    EXPECT_THAT(Row(1), ElementsAre("out", "FUS-100.1", "FUS-100", "A", "Front fuselage",
                                    "LA1/FUS-000.1/FUS-100.1"));
    EXPECT_EQ(List()->SelectedRow(), 1);
    // Nothing of it counts before OK.
    EXPECT_EQ(WBFilterOfRoot("LA1"), "0|No Filter");
    EXPECT_EQ(Handler(), "NoConfig");
}

TEST_F(WBFilterPanelTest, OkKeepsWhatWasDefinedToDisk)
{
    Open();
    PickWing();
    TypeName(" No wing ");
    EXPECT_THAT(Filters(), ElementsAre("No wing"));
    EXPECT_EQ(Text("Counting"), "No wing");
    Click("OkButton");
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(Handler(), "No wing");
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), kWing);
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kWing));
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "No wing");
    Settings().Rollback(); // kept for good
    EXPECT_EQ(Stored("LA1.Filter"), kWing);
}

TEST_F(WBFilterPanelTest, CommittedFiltersOutliveARollback)
{
    Open();
    PickWing();
    Click("OkButton");
    Settings().Rollback();
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Filter 1");
}

TEST_F(WBFilterPanelTest, OpensOnTheFilterThatCounts)
{
    Store("LA1.Filter", kFront);
    StoreAll("LA1.Filters", {kWing, kFront});
    Open();
    EXPECT_THAT(Filters(), ElementsAre("No wing", "Front alone"));
    EXPECT_EQ(Chosen(), "Front alone");
    EXPECT_EQ(Text("Counting"), "Front alone");
    EXPECT_TRUE(IsOn());
    EXPECT_THAT(Lines(), ElementsAre("FUS-100.1 in"));
    EXPECT_EQ(List()->SelectedRow(), 1);
    EXPECT_TRUE(IsUsable("ToggleButton"));
    EXPECT_EQ(ViewOf(*List())->accessibleName(), "Lines of the filter");
    EXPECT_EQ(Handler(), "Front alone");
    Choose("Filter", 0);
    EXPECT_EQ(Name(), "No wing");
    EXPECT_FALSE(IsOn());
    EXPECT_EQ(Text("Counting"), "Front alone");
    EXPECT_THAT(Lines(), ElementsAre("WNG-000.1 out"));
}

TEST_F(WBFilterPanelTest, OpensOnTheFirstWhereNoneCounts)
{
    StoreAll("LA1.Filters", {kWing, kFront});
    Open();
    EXPECT_EQ(Chosen(), "No wing");
    EXPECT_FALSE(IsOn());
    EXPECT_EQ(Text("Counting"), "No filter");
    EXPECT_EQ(Handler(), "NoConfig");
}

TEST_F(WBFilterPanelTest, SwitchedOffFilterIsNotLost)
{
    Store("LA1.Filter", kWing);
    Open();
    Click("On");
    EXPECT_EQ(Text("Counting"), "No filter");
    Click("OkButton");
    EXPECT_EQ(Handler(), "NoConfig");
    BeginNewSession();
    EXPECT_EQ(Stored("LA1.Filter"), "0|No Filter");
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kWing));
    panel->SetCurrentFilters();
    EXPECT_EQ(Name(), "No wing");
    EXPECT_FALSE(IsOn());
    Click("On");
    panel->SetVisibility(true);
    Click("OkButton");
    EXPECT_EQ(Stored("LA1.Filter"), kWing);
}

TEST_F(WBFilterPanelTest, OneFilterAtMostIsOn)
{
    Store("LA1.Filter", kFront);
    StoreAll("LA1.Filters", {kWing, kFront});
    Open();
    Choose("Filter", 0);
    Click("On");
    EXPECT_EQ(Text("Counting"), "No wing");
    Choose("Filter", 1);
    EXPECT_FALSE(IsOn());
    Click("OkButton");
    EXPECT_EQ(Stored("LA1.Filter"), kWing);
    EXPECT_THAT(AllStored("LA1.Filters"), ElementsAre(kWing, kFront));
}

TEST_F(WBFilterPanelTest, FiltersAreAddedAndDeleted)
{
    Store("LA1.Filter", kFront);
    Open();
    Click("NewButton");
    EXPECT_THAT(Filters(), ElementsAre("Front alone", "Filter 1"));
    EXPECT_EQ(Name(), "Filter 1");
    EXPECT_FALSE(IsOn()); // another one is
    PickWing();
    EXPECT_THAT(Lines(), ElementsAre("WNG-000.1 out"));
    Choose("Filter", 0);
    EXPECT_THAT(Lines(), ElementsAre("FUS-100.1 in"));
    Click("DeleteButton");
    EXPECT_THAT(Filters(), ElementsAre("Filter 1"));
    EXPECT_EQ(Chosen(), "Filter 1");
    EXPECT_EQ(Text("Counting"), "No filter");
    Click("DeleteButton");
    EXPECT_THAT(Filters(), IsEmpty());
    EXPECT_EQ(Name(), "");
    Click("OkButton");
    EXPECT_EQ(Stored("LA1.Filter"), "0|No Filter");
    EXPECT_THAT(AllStored("LA1.Filters"), IsEmpty());
}

TEST_F(WBFilterPanelTest, NewLinesAreLeftOutOrInAsTheUserChose)
{
    Open();
    ASSERT_EQ(Find<CATDlgCombo>("NewLines")->LineCount(), 2);
    EXPECT_EQ(Find<CATDlgCombo>("NewLines")->Line(0), "left out");
    EXPECT_EQ(Find<CATDlgCombo>("NewLines")->Line(1), "left in");
    PickFuselage();
    Choose("NewLines", 1);
    PickFront();
    EXPECT_THAT(Lines(), ElementsAre("FUS-000.1 out", "FUS-100.1 in"));
    Choose("NewLines", 0);
    PickWing();
    EXPECT_EQ(Lines().back(), "WNG-000.1 out");
}

TEST_F(WBFilterPanelTest, LinesAreTurnedMovedAndRemoved)
{
    Open();
    PickFuselage();
    PickFront();
    PickWing();
    EXPECT_EQ(List()->SelectedRow(), 3);
    EXPECT_TRUE(IsUsable("UpButton"));
    EXPECT_FALSE(IsUsable("DownButton"));
    Click("ToggleButton");
    EXPECT_THAT(Lines(), ElementsAre("FUS-000.1 out", "FUS-100.1 out", "WNG-000.1 in"));
    Click("UpButton");
    EXPECT_THAT(Lines(), ElementsAre("FUS-000.1 out", "WNG-000.1 in", "FUS-100.1 out"));
    EXPECT_EQ(List()->SelectedRow(), 2);
    EXPECT_TRUE(IsUsable("DownButton"));
    Click("UpButton");
    EXPECT_FALSE(IsUsable("UpButton"));
    EXPECT_THAT(Lines(), ElementsAre("WNG-000.1 in", "FUS-000.1 out", "FUS-100.1 out"));
    Click("DownButton");
    EXPECT_THAT(Lines(), ElementsAre("FUS-000.1 out", "WNG-000.1 in", "FUS-100.1 out"));
    Click("ToggleButton");
    Click("RemoveButton");
    EXPECT_THAT(Lines(), ElementsAre("FUS-000.1 out", "FUS-100.1 out"));
    EXPECT_EQ(List()->SelectedRow(), 2);
    Click("RemoveButton");
    EXPECT_EQ(List()->SelectedRow(), 1);
    TypeName("Rest");
    Click("OkButton");
    EXPECT_EQ(Stored("LA1.Filter"), "1|Rest|X|FUS-000.1|FUS-000|A|0");
}

TEST_F(WBFilterPanelTest, OrderOfLinesIsKept)
{
    Open();
    PickFuselage();
    PickWing();
    TypeName("Order");
    Click("UpButton");
    Click("OkButton");
    EXPECT_EQ(Stored("LA1.Filter"), "2|Order|X|WNG-000.1|WNG-000|A|0|X|FUS-000.1|FUS-000|A|0");
}

TEST_F(WBFilterPanelTest, ButtonsFollowTheRowThatTheUserSelects)
{
    Open();
    PickFuselage();
    PickFront();
    ViewOf(*List())->selectRow(0);
    Settle();
    EXPECT_FALSE(IsUsable("UpButton"));
    EXPECT_TRUE(IsUsable("DownButton"));
    Click("RemoveButton");
    Click("RemoveButton");
    for (const char* name : {"ToggleButton", "UpButton", "DownButton", "RemoveButton"}) {
        EXPECT_FALSE(IsUsable(name)) << name;
    }
}

TEST_F(WBFilterPanelTest, WindowSaysWhichLineWinsAndWhatTheRestIs)
{
    Open();
    EXPECT_THAT(Text("Rule"), HasSubstr("everything below it"));
    EXPECT_THAT(Text("Rule"), HasSubstr("the last one wins"));
    PickWing();
    EXPECT_EQ(Text("Rest"), "Everything else is left in.");
    PickFront();
    Click("ToggleButton");
    EXPECT_EQ(Text("Rest"), "Everything else is left out.");
    Click("RemoveButton");
    EXPECT_EQ(Text("Rest"), "Everything else is left in.");
    Click("RemoveButton");
    EXPECT_EQ(Text("Rest"), "");
}

TEST_F(WBFilterPanelTest, InstanceIsInTheListOnce)
{
    Open();
    PickFront();
    PickWing();
    PickFront();
    EXPECT_EQ(List()->RowCount(), 2);
    EXPECT_EQ(List()->SelectedRow(), 1);
    EXPECT_FALSE(IsUsable("UpButton"));
    EXPECT_EQ(Text("Word"), "FUS-100.1 is in the list already.");
    Click("ToggleButton");
    EXPECT_EQ(Text("Word"), "");
    PickFront();
    EXPECT_EQ(Text("Word"), "FUS-100.1 is in the list already.");
    Click("On");
    EXPECT_EQ(Text("Word"), "");
    PickFront();
    EXPECT_EQ(Text("Word"), "FUS-100.1 is in the list already.");
    Pick("FUS-100.1", "FUS-100", "OTH-000.1", 1); // the same part elsewhere
    EXPECT_EQ(List()->RowCount(), 3);
    EXPECT_EQ(Text("Word"), "");
}

TEST_F(WBFilterPanelTest, PicksOfAnotherProductAreNotAdded)
{
    Open();
    PickWing();
    OpenSmallProduct("SC1");
    Pick("A.1");
    EXPECT_EQ(List()->RowCount(), 1);
    EXPECT_EQ(Text("Word"), "A.1 was not added: it is no part of LA1.");
}

TEST_F(WBFilterPanelTest, PicksThatCannotBeReadAreNotAdded)
{
    Open();
    Pick("A.1", "P", "B.1", 2);     // the count lies
    Pick("A.1", "P", "B.1|C.1", 1); // so does this one
    Pick("A.1", "P", "B.1", 0);
    Pick("A.1", "P", "B.1", -1);
    Pick("A.1", "P", "B.1||C.1", 3); // a name is missing
    Pick("A.1", "P", "~|C.1", 2);
    Pick("", "P");
    Pick("~", "P");
    Pick("A.1", "P\n");
    panel->AddValuesInMultiList("A.1", "P", "__null__", "", 0);
    Pick("A.1", "P", "", 2000000000);
    EXPECT_THAT(Filters(), IsEmpty());
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_THAT(Text("Word"), HasSubstr("\"A.1\" was not added"));
}

TEST_F(WBFilterPanelTest, LinesWhoseInstanceIsGoneOrReplacedSaySo)
{
    Store("LA1.Filter", "4|Old|X|GON-000.1|GON-000|A|0|X|WNG-000.1|WNG-001|A|0|"
                        "X|SYS-100.1|SYS-100|A|1|SYS-000.1|X||LA1|A|0");
    Open();
    EXPECT_EQ(Row(1)[4], "(not in the product any more)");
    EXPECT_EQ(Row(2)[4], "(is now WNG-000 A)");
    EXPECT_EQ(Row(3)[4], ""); // nobody knows
    EXPECT_EQ(Row(4)[4], "");
    EXPECT_EQ(Row(4)[5], "LA1");
}

TEST_F(WBFilterPanelTest, EnterIsOk)
{
    Open();
    PickWing();
    QWidget* field = Find<CATDlgEditor>("Name")->Widget();
    field->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(panel->Widget(), &enter);
    Settle();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(WBShownFilterOfRoot("LA1"), "Filter 1");
}

TEST_F(WBFilterPanelTest, ThousandsOfInstancesAreTakenAtOnce)
{
    Open();
    const auto begin = std::chrono::steady_clock::now();
    for (int number = 0; number < 5000; ++number) {
        Pick(("A." + std::to_string(number)).c_str());
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(List()->RowCount(), 5000);
    EXPECT_LT(took.count(), 20.0);
    Click("OkButton");
    EXPECT_TRUE(WBIsFilter(Stored("LA1.Filter")));
}

TEST_F(WBFilterPanelTest, FaultOfAnActionLeavesThePanelOpen)
{
    Open();
    EXPECT_TRUE(panel->RecoverFromFault());
}

TEST_F(WBFilterPanelTest, EverythingSpeaksGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Open();
    EXPECT_EQ(panel->Title(), "Filter");
    EXPECT_EQ(Find<CATDlgPushButton>("CancelButton")->Title(), "Abbrechen");
    PickWing();
    EXPECT_EQ(Row(1)[0], "nein");
    EXPECT_EQ(List()->ColumnTitles()[1], "Dabei");
    TypeName("A|B");
    Click("OkButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, testing::StartsWith("„A|B“ kann kein Filter heißen"));
}

TEST_F(WBFilterPanelTest, ControlsStandInRowsFromTheProductDownToTheButtons)
{
    Open();
    PickWing();
    panel->Widget()->resize(1000, 700);
    Settle();
    const QWidget& window = *panel->Widget();
    const auto place = [&window](const char* name) {
        return PlaceIn(window, name);
    };
    const std::vector<std::vector<const char*>> rows{
        {"ProductLabel", "Product", "CountingLabel", "Counting"},
        {"FilterLabel", "Filter", "NewButton", "DeleteButton"},
        {"NameLabel", "Name", "On"},
        {"List"},
        {"NewLinesLabel", "NewLines", "ToggleButton", "UpButton", "DownButton", "RemoveButton"},
        {"Rule"},
        {"Rest"},
        {"Word", "OkButton", "CancelButton"}};
    int bottom = 0;
    for (const std::vector<const char*>& row : rows) {
        int right = 0;
        int lowest = 0;
        for (const char* name : row) {
            EXPECT_GE(place(name).top(), bottom) << name;
            EXPECT_GE(place(name).left(), right) << name;
            right = place(name).right();
            lowest = std::max(lowest, place(name).bottom());
        }
        bottom = lowest;
    }
    // What needs room has it: names and lines; buttons keep to the right.
    EXPECT_GT(place("Filter").width(), 500);
    EXPECT_EQ(place("Name").width(), place("Filter").width());
    EXPECT_EQ(place("On").left(), place("NewButton").left());
    EXPECT_GT(place("Counting").width(), place("Product").width());
    EXPECT_GT(place("Product").width(), 200);
    EXPECT_GT(place("List").height(), 400);
    EXPECT_GT(place("RemoveButton").right(), 950);
    EXPECT_LT(place("NewLines").width(), 250);
    EXPECT_LT(place("RemoveButton").width(), 150);
    EXPECT_GT(place("ToggleButton").left(), 400);
    EXPECT_GT(place("OkButton").left(), 700);
}

TEST_F(WBFilterPanelTest, NothingIsCutInSilenceAtAnySize)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open();
        Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
        Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
        TypeName("A filter of a name that is as long as names of filters can be where one wants "
                 "to say what it leaves out");
        for (const QSize& size : {QSize(640, 480), QSize(820, 520), QSize(1600, 1000)}) {
            SCOPED_TRACE(std::string(language) + " " + std::to_string(size.width()));
            panel->Widget()->resize(size);
            Settle();
            EXPECT_EQ(panel->Widget()->size(), size);
            ExpectNoLabelIsCutInSilence(*panel->Widget());
            ExpectNothingLeavesTheWindow(*panel->Widget());
        }
        CATRequestDelayedDestruction(panel);
        Settle();
    }
}
