#include "ReportPanelSession.h"

#include "CATCommandWatch.h"
#include "CATDlgMultiList.h"

#include <chrono>

extern "C" void CATWBVPMNavGUIRegister();

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using WBReportPanelTest = ReportPanelSession;

constexpr const char* kSum = "0|-|-|-|0|0|-|Active|0|1|LA1|0|No Filter|0|";

} // namespace

TEST_F(WBReportPanelTest, IsMadeThroughTheTableHiddenAndWithoutControls)
{
    CATWBVPMNavGUIRegister();
    CATWBVPMNavReportPanel* made = CATWBVPMNavReportPanel::Create(Window());
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->ClassName(), "WBReportPanel");
    EXPECT_EQ(made->Name(), "CATWBVPMNavReportPanel");
    EXPECT_EQ(made->Parent(), Window());
    EXPECT_EQ(made->GetResourceFilename(0), "CATWBVPMNavReportPanel");
    EXPECT_EQ(made->GetResourceFilename(1), "");
    EXPECT_FALSE(made->IsVisible());
    EXPECT_EQ(made->ChildCount(), 0);
    EXPECT_FALSE(made->IsInstanceInputActive());
    made->SetWMMInstance("A.1", "A", "A", "", 0); // nowhere to put it yet
    ShowIn("LENGTH", "in");
    EXPECT_EQ(made->ChildCount(), 0);
}

TEST_F(WBReportPanelTest, OpensOnAllOfTheProductWithAllValues)
{
    Open();
    EXPECT_EQ(panel->Title(), "Report");
    EXPECT_EQ(Text("Product"), "LA1");
    EXPECT_EQ(Text("Filter"), "No filter");
    EXPECT_TRUE(panel->IsInstanceInputActive());
    EXPECT_EQ(Instances()->RowCount(), 0);
    EXPECT_TRUE(Find<CATDlgRadioButton>("Report")->IsChecked());
    EXPECT_FALSE(Find<CATDlgCheckButton>("EveryInstance")->IsChecked());
    for (const char* value :
         {"Deviations", "Centre", "Inertia", "Density", "Materials", "Volume", "Types", "Date"}) {
        EXPECT_TRUE(Find<CATDlgCheckButton>(value)->IsChecked()) << value;
    }
    EXPECT_EQ(Text("Word"), "");
    Click("GenerateButton");
    EXPECT_THAT(Requests(), ElementsAre(std::string("0|0|0|1|*|0|") + kSum));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(WBReportPanelTest, PicksAreListedOnceWithTheirPaths)
{
    Open();
    Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
    EXPECT_EQ(Text("Word"), "");
    Pick("WNG-000.1", "WNG-000");
    EXPECT_EQ(Instances()->SelectedRow(), 2);
    Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
    ASSERT_EQ(Instances()->RowCount(), 2);
    EXPECT_THAT(CellsOf(*Instances(), 1),
                ElementsAre("FUS-110.1", "FUS-110", "A", "LA1/FUS-000.1/FUS-100.1/FUS-110.1"));
    EXPECT_THAT(CellsOf(*Instances(), 2),
                ElementsAre("WNG-000.1", "WNG-000", "A", "LA1/WNG-000.1"));
    EXPECT_EQ(Text("Word"), "FUS-110.1 is in the list already.");
    EXPECT_EQ(Instances()->SelectedRow(), 1);
    Click("GenerateButton");
    EXPECT_THAT(Requests(),
                ElementsAre(StartsWith("0|0|2|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|"
                                       "WNG-000.1|WNG-000|A|0|1|*|0|")));
}

TEST_F(WBReportPanelTest, RecordWhoseCountLiesIsRefusedInWords)
{
    Open();
    Pick("WNG-000.1", "WNG-000");
    for (const int count : {1, 3, -1, 2'000'000'000}) {
        Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", count);
        EXPECT_EQ(Text("Word"),
                  "\"FUS-110.1\" was not added: what the server says of it cannot be read.")
            << count;
    }
    EXPECT_EQ(Instances()->RowCount(), 1);
}

TEST_F(WBReportPanelTest, UserSaysWhetherPicksAreAdded)
{
    Open();
    Click("AddPicked");
    EXPECT_FALSE(panel->IsInstanceInputActive());
    Click("AddPicked");
    EXPECT_TRUE(panel->IsInstanceInputActive());
}

TEST_F(WBReportPanelTest, InstancesAreRemovedOneByOneOrAllAtOnce)
{
    Open();
    EXPECT_FALSE(IsUsable("RemoveButton"));
    EXPECT_FALSE(IsUsable("ClearButton"));
    for (const char* instance : {"A.1", "B.1", "C.1", "D.1"}) {
        Pick(instance);
    }
    Pick("A.1");
    EXPECT_EQ(Text("Word"), "A.1 is in the list already.");
    Click("RemoveButton"); // the selected one: A.1
    EXPECT_EQ(Text("Word"), "");
    EXPECT_EQ(Instances()->RowCount(), 3);
    EXPECT_EQ(Instances()->SelectedRow(), 1);
    Instances()->SelectRow(3);
    Click("RemoveButton");
    EXPECT_EQ(Instances()->RowCount(), 2);
    EXPECT_EQ(Instances()->Cell(0, 1), "B.1");
    EXPECT_EQ(Instances()->SelectedRow(), 2);
    Pick("C.1");
    EXPECT_EQ(Text("Word"), "C.1 is in the list already.");
    Click("ClearButton");
    EXPECT_EQ(Text("Word"), "");
    EXPECT_EQ(Instances()->RowCount(), 0);
    EXPECT_FALSE(IsUsable("RemoveButton"));
    EXPECT_FALSE(IsUsable("ClearButton"));
}

TEST_F(WBReportPanelTest, WhatTheUserSelectedStaysWhileReportsAreGenerated)
{
    Open();
    Pick("A.1");
    Pick("B.1");
    Instances()->SelectRow(1);
    Click("GenerateButton");
    EXPECT_EQ(Instances()->SelectedRow(), 1);
}

TEST_F(WBReportPanelTest, ThousandsOfInstancesAreTakenAtOnce)
{
    Open();
    const auto begin = std::chrono::steady_clock::now();
    constexpr int kPicked = 3000;
    for (int number = 0; number < kPicked; ++number) {
        Pick(("P." + std::to_string(number)).c_str());
    }
    EXPECT_EQ(Instances()->RowCount(), kPicked);
    EXPECT_EQ(Instances()->Cell(3, kPicked), "LA1/P.2999");
    // Writing the whole list anew for each would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST_F(WBReportPanelTest, ListsAndFieldsCanBeHeard)
{
    Open();
    const auto spoken = [](const CATDialog* control) {
        return control->Widget()->accessibleName().toStdString();
    };
    EXPECT_EQ(spoken(Instances()), "Picked instances");
    EXPECT_EQ(spoken(Properties()), "Properties");
    EXPECT_EQ(spoken(Find<CATDlgEditor>("PointX")), "X of the reference point [mm]");
    EXPECT_EQ(spoken(Find<CATDlgEditor>("TurnZ")), "Turn about z");
    ShowIn("LENGTH", "in");
    EXPECT_EQ(spoken(Find<CATDlgEditor>("PointZ")), "Z of the reference point [in]");
}

TEST_F(WBReportPanelTest, EmptyListSaysWhatTheReportIsAbout)
{
    Open();
    const QImage ofOne = Instances()->Widget()->grab().toImage();
    OpenProduct("SC1");
    Click("GenerateButton");
    EXPECT_NE(Instances()->Widget()->grab().toImage(), ofOne);
}

TEST_F(WBReportPanelTest, PicksOfAnotherProductTakeThePlaceOfThoseBefore)
{
    Open();
    Pick("WNG-000.1");
    OpenProduct("SC1");
    Pick("BUS.1");
    Pick("PANEL.1"); // the second instance of the same pick
    EXPECT_EQ(Instances()->RowCount(), 2);
    EXPECT_THAT(CellsOf(*Instances(), 1), ElementsAre("BUS.1", "P", "A", "SC1/BUS.1"));
    EXPECT_EQ(Text("Product"), "SC1");
    EXPECT_EQ(Text("Word"), "The instances of LA1 were taken out of the list: another product is "
                            "open now.");
}

TEST_F(WBReportPanelTest, InstancesOfAnotherProductAreNotTakenForAllOfThisOne)
{
    Open();
    Pick("WNG-000.1");
    OpenProduct("SC1");
    Click("GenerateButton");
    EXPECT_THAT(Requests(), IsEmpty());
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Report");
    EXPECT_THAT(boxes[0].text, HasSubstr("The instances of LA1 were taken out"));
    EXPECT_EQ(boxes[0].style, kWarningStyle);
    EXPECT_EQ(Instances()->RowCount(), 0);
    Click("GenerateButton"); // now the user has seen it
    EXPECT_THAT(Requests(), ElementsAre(HasSubstr("|1|SC1|")));
    EXPECT_EQ(Previews().back().selection, "SC1");
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(WBReportPanelTest, WithoutAnOpenProductThereIsNothingToReport)
{
    CATNavigator::Close();
    Open();
    EXPECT_EQ(Text("Product"), "–");
    EXPECT_EQ(Text("Filter"), "–");
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, HasSubstr("No product is open"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(Requests(), IsEmpty());
    OpenProduct("LA1");
    Click("GenerateButton");
    EXPECT_EQ(Requests().size(), 1U);
    EXPECT_EQ(Text("Product"), "LA1");
}

TEST_F(WBReportPanelTest, FilterOfTheRootIsShownAndSent)
{
    LeaveOutTheDoor();
    Open();
    EXPECT_EQ(Text("Filter"), "Doors of LA1");
    Click("GenerateButton");
    EXPECT_THAT(Requests(), ElementsAre(HasSubstr("|1|LA1|1|Doors|X|D.1|D|A|0|0|")));
}

TEST_F(WBReportPanelTest, EveryKindOpensItsPreview)
{
    Open();
    Click("GenerateButton");
    Click("Distributive");
    Click("GenerateButton");
    Click("MaterialStatistics");
    Click("GenerateButton");
    Click("EveryInstance");
    Click("GenerateButton");
    EXPECT_THAT(Requests(), ElementsAre(StartsWith("0|0|0|1|*|0|"), StartsWith("1|0|0|1|*|0|"),
                                        StartsWith("2|0|0|0|0|"), StartsWith("2|1|0|0|0|")));
    ASSERT_EQ(Previews().size(), 4U);
    EXPECT_EQ(Previews()[0].kind, 0);
    EXPECT_EQ(Previews()[0].flag, 0);
    EXPECT_EQ(Previews()[1].kind, 1);
    EXPECT_EQ(Previews()[1].flag, 0);
    EXPECT_EQ(Previews()[2].kind, 2);
    EXPECT_EQ(Previews()[2].flag, 0);
    EXPECT_EQ(Previews()[3].flag, 1);
    for (const OpenedPreview& preview : Previews()) {
        EXPECT_TRUE(preview.window->IsVisible());
    }
    Click("Report"); // the check is of material statistics alone
    Click("GenerateButton");
    EXPECT_EQ(Previews().back().flag, 0);
    EXPECT_EQ(Text("Word"), "The report of LA1 was opened.");
}

TEST_F(WBReportPanelTest, EveryReportHasADocumentOfItsOwn)
{
    Open();
    Click("GenerateButton");
    Click("GenerateButton");
    ASSERT_EQ(Previews().size(), 2U);
    EXPECT_FALSE(Previews()[0].document == Previews()[1].document);
    EXPECT_NE(Previews()[0].window, Previews()[1].window);
}

TEST_F(WBReportPanelTest, RealPreviewsOpenAndOutliveThePanel)
{
    WBSetPreviewMakers(RealMakers());
    // Without the reference setting previews tell that they do not know about the order.
    CATSettingRepository::GetRepository("VPMNavigator")->WriteSetting("StableOrdering", 0);
    Open();
    Click("GenerateButton");
    Click("Distributive");
    Click("GenerateButton");
    Click("MaterialStatistics");
    Click("GenerateButton");
    EXPECT_THAT(boxes, IsEmpty());
    panel->RequestDelayedDestruction();
    Settle();
    for (const char* name : {"CATWBVPMNavReportPreview", "CATWBVPMNavDistributiveReportPreview",
                             "CATWBVPMNavMatStatPreview"}) {
        auto* preview = FindBelow<CATDlgDialog>(*Window(), name);
        ASSERT_NE(preview, nullptr) << name;
        EXPECT_EQ(preview->Parent(), Window()) << name;
        EXPECT_TRUE(preview->IsVisible()) << name;
    }
    EXPECT_EQ(FindBelow<CATDlgEditor>(*Window(), "SelectionEditor")->Text(), "LA1");
}

TEST_F(WBReportPanelTest, SelectionTextNamesWhatWasPicked)
{
    Open();
    Pick("WNG-000.1");
    Pick("FUS-110.1");
    Click("GenerateButton");
    EXPECT_EQ(Previews().back().selection, "LA1 WNG-000.1 +1");
}

TEST_F(WBReportPanelTest, ValuesAreNamedWhereNotAllAreTaken)
{
    Open();
    Click("Date");
    Click("Volume");
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(),
                StartsWith("0|0|0|6|Deviations|Centre|Inertia|Density|Materials|Types|0|"));
    for (const char* value : {"Deviations", "Centre", "Inertia", "Density", "Materials", "Types"}) {
        Click(value);
    }
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), StartsWith("0|0|0|0|0|"));
}

TEST_F(WBReportPanelTest, PropertiesAreTakenOneByOneOrAllAtOnce)
{
    Open();
    ASSERT_EQ(Properties()->RowCount(), 3);
    EXPECT_THAT(CellsOf(*Properties(), 1), ElementsAre("Location", ""));
    EXPECT_EQ(Properties()->SelectedRow(), 1);
    Properties()->SelectRow(3);
    Click("TakeButton");
    EXPECT_THAT(CellsOf(*Properties(), 3), ElementsAre("Vendor", "yes"));
    EXPECT_EQ(Properties()->SelectedRow(), 3);
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), StartsWith("0|0|0|1|*|1|Vendor|0|"));
    Click("AllButton");
    EXPECT_THAT(CellsOf(*Properties(), 1), ElementsAre("Location", "yes"));
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), StartsWith("0|0|0|1|*|1|*|0|"));
    Click("TakeButton"); // leaves Vendor
    Click("Distributive");
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), StartsWith("1|0|0|1|*|2|Location|Operating_time|0|"));
    Click("NoneButton");
    EXPECT_THAT(CellsOf(*Properties(), 1), ElementsAre("Location", ""));
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), StartsWith("1|0|0|1|*|0|0|"));
}

TEST_F(WBReportPanelTest, DatabaseWithoutPropertiesOffersNone)
{
    server->answers.erase("WBGetMassTypesAndAttrNames");
    Open();
    EXPECT_EQ(Properties()->RowCount(), 0);
    EXPECT_FALSE(IsUsable("TakeButton"));
    EXPECT_FALSE(IsUsable("AllButton"));
    EXPECT_FALSE(IsUsable("NoneButton"));
    Click("GenerateButton");
    EXPECT_EQ(Requests().size(), 1U);
}

TEST_F(WBReportPanelTest, WhatTheKindHasNoUseForIsGreyed)
{
    Open();
    Type("PointX", "1");
    const std::vector<const char*> ofReports{"Deviations", "Date",    "AllButton",  "PointX",
                                             "TurnX",      "Density", "KeepInertia"};
    for (const char* name : ofReports) {
        EXPECT_TRUE(IsUsable(name)) << name;
    }
    EXPECT_FALSE(IsUsable("EveryInstance"));
    Click("MaterialStatistics");
    for (const char* name : ofReports) {
        EXPECT_FALSE(IsUsable(name)) << name;
    }
    EXPECT_TRUE(IsUsable("EveryInstance"));
    EXPECT_TRUE(IsUsable("Precision"));
    Click("Distributive");
    for (const char* name : ofReports) {
        EXPECT_TRUE(IsUsable(name)) << name;
    }
    EXPECT_FALSE(IsUsable("EveryInstance"));
    EXPECT_EQ(Typed("PointX"), "1");
}

TEST_F(WBReportPanelTest, WithoutCentreAndInertiaNothingIsMovedOrTurned)
{
    Open();
    Type("PointX", "1");
    Click("Inertia");
    EXPECT_TRUE(IsUsable("PointX"));
    EXPECT_FALSE(IsUsable("KeepInertia"));
    EXPECT_TRUE(IsUsable("TurnX"));
    Click("Centre");
    EXPECT_FALSE(IsUsable("PointX"));
    EXPECT_FALSE(IsUsable("TurnX"));
    Click("Inertia");
    EXPECT_FALSE(IsUsable("PointX")); // an inertia is moved from its centre
    EXPECT_TRUE(IsUsable("TurnX"));
}

TEST_F(WBReportPanelTest, WhatIsGreyedIsNotRead)
{
    Open();
    Type("PointX", "nonsense");
    Type("TurnX", "nonsense");
    Click("MaterialStatistics");
    Click("GenerateButton");
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_EQ(Requests().size(), 1U);
}

TEST_F(WBReportPanelTest, PrecisionAndPolicyAreThoseOfComputations)
{
    Open();
    const auto* precision = Find<CATDlgCombo>("Precision");
    ASSERT_EQ(precision->LineCount(), 4);
    EXPECT_EQ(precision->Line(0), "active values");
    EXPECT_EQ(precision->Line(1), "most precise values");
    EXPECT_EQ(precision->Line(2), "Computed");
    EXPECT_EQ(precision->Line(3), "Weighed");
    Choose("Precision", 3);
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), HasSubstr("|Weighed|0|1|LA1|"));
    Choose("StoredSums", 1);
    Click("GenerateButton");
    EXPECT_THAT(Requests().back(), HasSubstr("|Weighed|1|1|LA1|"));
}

TEST_F(WBReportPanelTest, NothingIsTakenAsStoredBelowALevel)
{
    Open();
    const auto* storedSums = Find<CATDlgCombo>("StoredSums");
    ASSERT_EQ(storedSums->LineCount(), 2);
    EXPECT_EQ(storedSums->Line(0), "update what changed");
    EXPECT_EQ(storedSums->Line(1), "compute all anew");
    EXPECT_EQ(Find<CATDialog>("Level"), nullptr);
    EXPECT_EQ(Find<CATDialog>("LevelLabel"), nullptr);
}

TEST_F(WBReportPanelTest, ReportStaysAsDeliveredWithoutAPoint)
{
    Open();
    EXPECT_FALSE(IsUsable("KeepInertia"));
    Type("TurnX", "0");
    Type("TurnZ", "360");
    Click("GenerateButton");
    EXPECT_EQ(Opened("PRC", "COGx"), "100");
    EXPECT_EQ(Opened("PRC", "MOIyy"), "2");
}

TEST_F(WBReportPanelTest, PointMovesCentresAndInertias)
{
    Open();
    Type("PointX", "0");
    EXPECT_TRUE(IsUsable("KeepInertia"));
    Click("GenerateButton");
    EXPECT_EQ(Opened("PRC", "COGx"), "100");
    EXPECT_EQ(Opened("PRC", "MOIyy"), "2.02"); // 2 kg at 0.1 m
    Type("PointX", "50/2");
    Type("PointY", "-1,5");
    Type("PointZ", "2.5");
    Click("KeepInertia");
    Click("GenerateButton");
    EXPECT_EQ(Opened("PRC", "COGx"), "75");
    EXPECT_EQ(Opened("PRC", "COGy"), "1.5");
    EXPECT_EQ(Opened("PRC", "COGz"), "-2.5");
    EXPECT_EQ(Opened("PRC", "MOIyy"), "2");
    EXPECT_EQ(Opened("PartInstance", "COGx"), "(none)"); // nobody knows it
}

TEST_F(WBReportPanelTest, AnglesTurnCentresOneWayAndInertiasTheOther)
{
    Open();
    Type("TurnZ", "180/2");
    Click("GenerateButton");
    // The x axis goes to y; the inertia about x becomes the one about y.
    EXPECT_EQ(Opened("PRC", "COGx"), "0");
    EXPECT_EQ(Opened("PRC", "COGy"), "100");
    EXPECT_EQ(Opened("PRC", "MOIxx"), "2");
    EXPECT_EQ(Opened("PRC", "MOIyy"), "1");
    Type("TurnX", "90");
    Type("TurnY", "90");
    Type("TurnZ", "");
    Click("GenerateButton");
    // About x nothing moves; about y, x goes to -z.
    EXPECT_EQ(Opened("PRC", "COGx"), "0");
    EXPECT_EQ(Opened("PRC", "COGz"), "-100");
}

TEST_F(WBReportPanelTest, PointIsTypedInTheUsersUnit)
{
    ShowIn("LENGTH", "in");
    Open();
    EXPECT_EQ(Text("PointXLabel"), "X [in]");
    Type("PointX", "2");
    Click("GenerateButton");
    // 100 mm less 50.8 mm are 49.2 mm, or 1.937 in.
    EXPECT_EQ(Opened("PRC", "COGx"), "1.937");
}

TEST_F(WBReportPanelTest, PointStaysThePointWhenTheUnitChanges)
{
    Open();
    EXPECT_EQ(Text("PointXLabel"), "X [mm]");
    Type("PointX", "100.0001");
    Type("PointY", "2540/2");
    Type("PointZ", "abc");
    ShowIn("LENGTH", "in");
    EXPECT_EQ(Text("PointXLabel"), "X [in]");
    EXPECT_EQ(Text("PointYLabel"), "Y [in]");
    EXPECT_EQ(Text("PointZLabel"), "Z [in]");
    EXPECT_EQ(Typed("PointX"), "3.937");
    EXPECT_EQ(Typed("PointY"), "50");
    EXPECT_EQ(Typed("PointZ"), "abc"); // for the user to mend
    Type("PointZ", "1");
    ShowIn("LENGTH", "m");
    EXPECT_EQ(Typed("PointX"), "0.1");
    EXPECT_EQ(Typed("PointZ"), "0.0254");
    Click("GenerateButton");
    EXPECT_EQ(Opened("PRC", "COGz"), "-0.0254");
    ShowIn("LENGTH", "um");
    EXPECT_EQ(Typed("PointX"), "100000.1"); // to the last digit
    EXPECT_EQ(Typed("PointY"), "1270000");
    Type("PointX", "");
    ShowIn("LENGTH", "mm");
    EXPECT_EQ(Typed("PointX"), "");
}

TEST_F(WBReportPanelTest, UnitOfMassesLeavesThePointAsItWasTyped)
{
    Open();
    Type("PointX", "100,00010");
    ShowIn("MASS", "lb");
    EXPECT_EQ(Typed("PointX"), "100,00010");
}

TEST_F(WBReportPanelTest, CommaLocaleTakesAndShowsCommas)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    Open();
    Type("PointX", "0.5");
    Type("PointY", "0,5");
    Click("GenerateButton");
    EXPECT_EQ(Opened("PRC", "COGx"), "99,5");
    EXPECT_EQ(Opened("PRC", "COGy"), "-0,5");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(Typed("PointX"), "0,05");
}

TEST_F(WBReportPanelTest, FieldThatHoldsNoNumberIsNamed)
{
    struct Row
    {
        const char* field;
        const char* name;
        const char* unit;
    };
    ShowIn("LENGTH", "in");
    Open();
    for (const Row& row :
         {Row{"PointX", "X of the reference point", "in"},
          Row{"PointY", "Y of the reference point", "in"},
          Row{"PointZ", "Z of the reference point", "in"}, Row{"TurnX", "Turn about x", "degrees"},
          Row{"TurnY", "Turn about y", "degrees"}, Row{"TurnZ", "Turn about z", "degrees"}}) {
        boxes.clear();
        Type(row.field, "1,2,3");
        Click("GenerateButton");
        ASSERT_EQ(boxes.size(), 1U) << row.field;
        EXPECT_EQ(boxes[0].title, "This is no number");
        EXPECT_EQ(boxes[0].text,
                  std::string(row.name) + ": \"1,2,3\" is no number. Expected a number in " +
                      row.unit +
                      " from -1000000000 to 1000000000, such as 2500, 2500.5 or 2500/2, or "
                      "nothing for 0.");
        EXPECT_EQ(boxes[0].style, kErrorStyle);
        Type(row.field, "");
    }
    EXPECT_THAT(Requests(), IsEmpty());
}

TEST_F(WBReportPanelTest, ServersErrorIsToldAndNothingOpens)
{
    Open();
    Pick("A.1");
    server->answers["WBMakeReport"] = "#WB_ERROR#The field kind of the request holds \"9\".";
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "The server reports an error");
    EXPECT_EQ(boxes[0].text, "The field kind of the request holds \"9\".");
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    EXPECT_THAT(Previews(), IsEmpty());
    EXPECT_EQ(Instances()->RowCount(), 1);
    EXPECT_EQ(Text("Word"), "");
    EXPECT_THAT(server->CallsOf("WBWarningMsg"), IsEmpty());
}

TEST_F(WBReportPanelTest, ServerThatDoesNotAnswerIsTold)
{
    Open();
    server->answers.erase("WBMakeReport");
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "No answer from the server");
    EXPECT_THAT(boxes[0].text, HasSubstr("there is no report"));
    EXPECT_THAT(Previews(), IsEmpty());
}

TEST_F(WBReportPanelTest, AnswerThatIsNoReportIsToldWithItsPlace)
{
    Open();
    server->answers["WBMakeReport"] = "<WB_Report>\n<PRC>";
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "The report cannot be read");
    EXPECT_THAT(boxes[0].text, HasSubstr("line 2"));
    EXPECT_THAT(boxes[0].text, HasSubstr("column 6"));
    EXPECT_EQ(boxes[0].style, kErrorStyle);
    server->answers["WBMakeReport"] = "<WB_Report/>";
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_THAT(boxes[1].text, HasSubstr("It holds no product."));
    EXPECT_THAT(Previews(), IsEmpty());
    server->answers["WBMakeReport"] = kReport;
    Click("GenerateButton"); // the next one works
    EXPECT_EQ(Previews().size(), 1U);
    EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(WBReportPanelTest, WarningsOfTheReportAreShown)
{
    Open();
    server->answers["WBWarningMsg"] = "- Placards has no centre of gravity";
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Warnings of the report");
    EXPECT_THAT(boxes[0].text, HasSubstr("Placards"));
    EXPECT_EQ(boxes[0].style, kWarningStyle);
    server->answers["WBWarningMsg"] = "ERROR nothing has a mass";
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[1].title, "Errors in the report");
    EXPECT_EQ(boxes[1].style, kErrorStyle);
    EXPECT_EQ(Previews().size(), 2U);
}

TEST_F(WBReportPanelTest, WarningsStandAboveTheReportThatTheyBelongTo)
{
    Open();
    server->answers["WBWarningMsg"] = "- Placards has no centre of gravity";
    std::vector<const CATCommand*> owners;
    CATDlgNotify::SetAnswerer([&owners](const CATDlgNotify::Shown& box) {
        const CATDialog* preview = Previews().back().window;
        for (int position = 1; position <= preview->ChildCount(); ++position) {
            if (preview->Child(position)->Name() == box.name) {
                owners.push_back(preview);
            }
        }
        return std::optional(1);
    });
    Click("GenerateButton");
    Click("GenerateButton");
    EXPECT_THAT(owners, ElementsAre(Previews()[0].window, Previews()[1].window));
}

TEST_F(WBReportPanelTest, EnterGenerates)
{
    Open();
    QWidget* field = Find<CATDlgEditor>("PointX")->Widget();
    field->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(panel->Widget(), &enter);
    Settle();
    EXPECT_EQ(Requests().size(), 1U);
}

TEST_F(WBReportPanelTest, CloseButtonHides)
{
    Open();
    EXPECT_EQ(panel->GetCloseButton(), Find<CATDlgPushButton>("CloseButton"));
    Click("CloseButton");
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_FALSE(panel->IsDestructionRequested());
}

TEST_F(WBReportPanelTest, FaultOfAnActionLeavesThePanelOpen)
{
    Open();
    EXPECT_TRUE(panel->RecoverFromFault());
}

TEST_F(WBReportPanelTest, UnitsThatChangeAfterThePanelHasGoneReachNobody)
{
    Open();
    const CATCommandWatch<WBReportPanel> watch(panel);
    panel->RequestDelayedDestruction();
    Settle();
    ASSERT_EQ(watch.Get(), nullptr);
    ShowIn("LENGTH", "in"); // the sanitizers watch
}

TEST_F(WBReportPanelTest, EverythingSpeaksGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Open();
    EXPECT_EQ(panel->Title(), "Bericht");
    EXPECT_EQ(Find<CATDlgPushButton>("GenerateButton")->Title(), "Erzeugen");
    Type("PointX", "x");
    Click("GenerateButton");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_THAT(boxes[0].text, StartsWith("X des Bezugspunkts: „x“ ist keine Zahl."));
}

TEST_F(WBReportPanelTest, NothingIsCutInSilenceAtAnySize)
{
    for (const char* language : {"en", "de"}) {
        CATMsgCatalog::SetLanguage(language);
        Open();
        Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
        Pick("FUS-110.1", "FUS-110", "FUS-100.1|FUS-000.1", 2);
        for (const QSize& size : {QSize(800, 560), QSize(900, 680), QSize(1600, 1000)}) {
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
