#include "CATWBVPMNavReportPreview.h"

#include "../ReportDoubles.h"
#include "ReportPreviewSession.h"

#include <QAbstractSpinBox>
#include <QLabel>
#include <QTableView>
#include <QtTest/QTest>

namespace
{

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using Cells = std::vector<std::string>;

/// The report, about 10 KiB of it, with a user property in each instance.
std::string LongReport(int instances)
{
    std::string text = "<R><PRC Name=\"Root\">";
    for (int number = 0; number < instances; ++number) {
        text += R"(<PartInstance Instance_ID="I)" + std::to_string(number) + R"(" WB_Mass="1"/>)";
    }
    return text + "</PRC></R>";
}

} // namespace

// The window

TEST_F(ReportPreview, IsADialogOfItsNameAboveTheMainWindow)
{
    Make();
    EXPECT_EQ(preview->Name(), "CATWBVPMNavReportPreview");
    EXPECT_EQ(preview->Style(), 0x4201);
    EXPECT_EQ(preview->Parent(), frame->MainWindow());
    EXPECT_STREQ(preview->ClassName(), "CATWBVPMNavReportPreview");
}

TEST_F(ReportPreview, HasItsOwnResourcesAndThenThoseOfTheDialog)
{
    Make();
    EXPECT_EQ(preview->GetResourceFilename(-1), "CATWBVPMNavReportPreview");
    EXPECT_EQ(preview->GetResourceFilename(0), "CATWBVPMNavReportPreview");
    EXPECT_EQ(preview->GetResourceFilename(1), preview->CATDlgDialog::GetResourceFilename(0));
}

TEST_F(ReportPreview, HasNoControlsBeforeItIsBuilt)
{
    Make();
    EXPECT_EQ(preview->ChildCount(), 0);
    EXPECT_THAT(trace.lines, ElementsAre("CATWBVPMNavReportPreview"));
    EXPECT_THAT(trace.components, ElementsAre("CATWBRepPreview"));
}

TEST_F(ReportPreview, NullDocumentIsTracedAndNothingIsBuilt)
{
    Of({});
    EXPECT_THAT(trace.lines, ElementsAre("CATWBVPMNavReportPreview",
                                         "The DOM Doc received as argument is null!"));
    preview->Build();
    EXPECT_THAT(trace.Sentences(), ElementsAre("The DOM Doc received as argument is null!",
                                               "_hDOMDocument is null! We cannot continue"));
    EXPECT_EQ(preview->ChildCount(), 0);
}

TEST_F(ReportPreview, NullDocumentIsNeitherShownNorSaved)
{
    Of({});
    preview->Build();
    preview->UpdatePreviewPanelList();
    preview->OnUnitsDisplayNotification();
    preview->OnSaveNotification();
    EXPECT_THAT(boxes, IsEmpty());
    EXPECT_EQ(reports.FileCount(), 0U);
}

TEST_F(ReportPreview, OperationsOfAWindowThatIsNotBuiltAreHarmless)
{
    Make();
    preview->UpdatePreviewPanelList();
    preview->OnUnitsDisplayNotification();
    EXPECT_EQ(preview->ChildCount(), 0);
}

TEST_F(ReportPreview, ControlsStandInTheirCells)
{
    Built();
    ExpectPlaced(*preview, {{"SelectionFrame", "CATWBVPMNavReportPreview", {0, 0, 1, 1}},
                            {"SelectionLabel", "SelectionFrame", {0, 0, 1, 1}},
                            {"SelectionEditor", "SelectionFrame", {0, 1, 1, 1}},
                            {"ReportFrame", "CATWBVPMNavReportPreview", {1, 0, 1, 1}},
                            {"ReportMultiListPRC", "ReportFrame", {0, 0, 1, 1}},
                            {"ReportMultiListInst", "ReportFrame", {1, 0, 1, 1}},
                            {"OptionFrame", "CATWBVPMNavReportPreview", {2, 0, 1, 1}},
                            {"UnitsDisplay", "OptionFrame", {1, 0, 1, 1}},
                            {"TrailingZero", "OptionFrame", {1, 1, 1, 1}},
                            {"DigitsDisplay", "OptionFrame", {1, 2, 1, 1}},
                            {"UnitsNote", "OptionFrame", {1, 3, 1, 1}},
                            {"ButtonsFrame", "CATWBVPMNavReportPreview", {3, 0, 1, 1}},
                            {"SavePushB", "ButtonsFrame", {0, 0, 1, 1}},
                            {"SaveToPushB", "ButtonsFrame", {0, 1, 1, 1}},
                            {"ClosePushB", "ButtonsFrame", {0, 2, 1, 1}}});
}

TEST_F(ReportPreview, SelectionIsShownAndCannotBeTypedOver)
{
    Built(kReport, "Legs of LA1");
    auto& editor = Find<CATDlgEditor>(*preview, "SelectionEditor");
    EXPECT_EQ(editor.Text(), "Legs of LA1");
    EXPECT_EQ(editor.Style(), 0x4000000);
}

TEST_F(ReportPreview, ListsAskForThreeAndThirtyLinesOfAHundredCharacters)
{
    Built();
    auto* usual = new CATDlgMultiList(new CATDlgDialog(frame->MainWindow(), "Other", 0), "Usual");
    usual->SetColumnTitles({"Title"});
    const auto asksFor = [usual](const CATDlgMultiList& list, int lines, int characters) {
        usual->SetVisibleLines(lines);
        usual->SetVisibleTextWidth(characters);
        return list.Widget()->sizeHint() == usual->Widget()->sizeHint();
    };
    EXPECT_TRUE(asksFor(Roots(), 3, 100));
    EXPECT_TRUE(asksFor(Instances(), 30, 100));
    EXPECT_FALSE(asksFor(Instances(), 29, 100));
    EXPECT_FALSE(asksFor(Instances(), 30, 99));
}

TEST_F(ReportPreview, SpinnerIsHiddenAndGoesFromNoneToEightDigits)
{
    Built();
    EXPECT_FALSE(Digits().IsVisible());
    Digits().SetValue(9);
    EXPECT_EQ(Digits().Value(), 8);
    Digits().SetValue(-1);
    EXPECT_EQ(Digits().Value(), 0);
    EXPECT_EQ(Digits().Text(), "0");
    auto* box = qobject_cast<QAbstractSpinBox*>(Digits().Widget());
    box->stepUp();
    EXPECT_EQ(Digits().Value(), 1);
    const auto usual =
        std::make_unique<CATDlgSpinner>(&Find<CATDlgFrame>(*preview, "OptionFrame"), "UsualWidth");
    EXPECT_LT(box->sizeHint().width(), usual->Widget()->sizeHint().width());
}

TEST_F(ReportPreview, ChoicesStandBesideEachOther)
{
    Built().SetVisibility(true);
    preview->Widget()->resize(1024, 700);
    Process();
    EXPECT_LT(Zeros().Widget()->mapTo(preview->Widget(), QPoint()).x(), 200);
}

TEST_F(ReportPreview, UnitsStandQuietlyAtTheRight)
{
    Built(R"(<R MassUnit="lb"><PRC WB_Mass="1"><PartInstance/></PRC></R>)").SetVisibility(true);
    preview->Widget()->resize(1024, 700);
    Process();
    const QWidget* note = Find<CATDialog>(*preview, "UnitsNote").Widget();
    EXPECT_GT(note->mapTo(preview->Widget(), QPoint(note->width(), 0)).x(), 980);
    EXPECT_NE(note->palette().color(QPalette::WindowText),
              Zeros().Widget()->palette().color(QPalette::WindowText));
}

struct ShownText
{
    const char* control;
    const char* english;
    const char* german;
};
constexpr std::array kTexts{
    ShownText{"SelectionLabel", "Report of", "Bericht für"},
    ShownText{"OptionFrame", "Display", "Anzeige"},
    ShownText{"UnitsDisplay", "Show units", "Einheiten anzeigen"},
    ShownText{"TrailingZero", "Show trailing zeros", "Nullen am Ende anzeigen"},
    ShownText{"SavePushB", "Save", "Speichern"},
    ShownText{"SaveToPushB", "Save to...", "Speichern unter..."},
    ShownText{"ClosePushB", "Close", "Schließen"}};

TEST_F(ReportPreview, TextsAreEnglish)
{
    Built().SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Report preview");
    EXPECT_EQ(Roots().Widget()->accessibleName(), "Product");
    EXPECT_EQ(Instances().Widget()->accessibleName(), "Part instances");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.english);
    }
}

TEST_F(ReportPreview, TextsAreGermanForThoseWhoSpeakIt)
{
    CATMsgCatalog::SetLanguage("de");
    Built().SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Berichtsvorschau");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.german);
    }
    EXPECT_EQ(Roots().Widget()->accessibleName(), "Produkt");
    EXPECT_EQ(Instances().Widget()->accessibleName(), "Teileinstanzen");
    EXPECT_EQ(Titles(Instances()).front(), "Ebene");
    EXPECT_EQ(Titles(Roots()).front(), "Ebene");
}

TEST_F(ReportPreview, InstancesHaveTheRoomAndTheRootHasALine)
{
    Built().SetVisibility(true);
    preview->Widget()->resize(1024, 700);
    Process();
    const int rootHeight = Roots().Widget()->height();
    EXPECT_GT(Instances().Widget()->height(), 400);
    EXPECT_LT(rootHeight, 130);
    EXPECT_GT(Instances().Widget()->width(), 950);
    // The buttons stand at the bottom, the options above them.
    const auto bottom = [this](const char* control) {
        const QWidget* widget = Find<CATDialog>(*preview, control).Widget();
        return widget->mapTo(preview->Widget(), QPoint(0, widget->height())).y();
    };
    EXPECT_GT(bottom("ClosePushB"), 670);
    EXPECT_LE(bottom("ClosePushB"), 700);
    EXPECT_LT(bottom("UnitsDisplay"), bottom("ClosePushB") - 20);
    preview->Widget()->resize(1600, 1000);
    Process();
    EXPECT_EQ(Roots().Widget()->height(), rootHeight);
    EXPECT_GT(Instances().Widget()->height(), 700);
}

// The screen of the tests is 800 pixels wide and high, of which the window's frame takes some.
TEST_F(ReportPreview, OpensAsWideAsTheScreenAllows)
{
    Built().SetVisibility(true);
    EXPECT_EQ(preview->Widget()->width(), 800);
    EXPECT_EQ(preview->Widget()->height(), 760);
}

TEST_F(ReportPreview, TabKeyComesToTheButtonsLast)
{
    Built().SetVisibility(true);
    EXPECT_EQ(Find<CATDialog>(*preview, "UnitsDisplay").Widget()->nextInFocusChain(),
              Find<CATDialog>(*preview, "TrailingZero").Widget());
    EXPECT_EQ(preview->Child(preview->ChildCount())->Name(), "ButtonsFrame");
}

// Columns

TEST_F(ReportPreview, ColumnsOfInstancesBeginWithTheirIdentifiers)
{
    Built();
    EXPECT_THAT(Titles(Instances()),
                ElementsAre("Level", "Instance ID", "Part ID", "WB Mass", "Name",
                            "WBActiveMassTypeID", "WB Last calculation date", "Reach"));
}

TEST_F(ReportPreview, ColumnsOfTheRootBeginWithEverythingThatHasIdInItsName)
{
    Built();
    EXPECT_THAT(Titles(Roots()),
                ElementsAre("Level", "WBActiveMassTypeID", "PRC ID", "WB Mass", "COGx"));
}

TEST_F(ReportPreview, DateIsNoColumnWhereTheInstallationLeavesItOut)
{
    environment.Set("ODT_KR4_REPORT_NO_DATE", "");
    Built();
    EXPECT_THAT(Titles(Instances()), ElementsAre("Level", "Instance ID", "Part ID", "WB Mass",
                                                 "Name", "WBActiveMassTypeID", "Reach"));
}

TEST_F(ReportPreview, NumbersStandAtTheRight)
{
    Built();
    QAbstractItemModel* model = qobject_cast<QTableView*>(Instances().Widget())->model();
    Cells right;
    for (int column = 0; column < Instances().ColumnCount(); ++column) {
        const int alignment =
            model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        if ((alignment & Qt::AlignRight) != 0) {
            right.push_back(Titles(Instances())[static_cast<std::size_t>(column)]);
        }
    }
    EXPECT_THAT(right, ElementsAre("Level", "WB Mass", "Reach"));
}

TEST_F(ReportPreview, TitlesTellTheUnitsThatTheDocumentNames)
{
    Built(R"(<R LengthUnit="ft" MassUnit="lb" InertiaMomentUnit="kg.m2" DensityUnit="g/cm3")"
          R"( SurfacicDensityUnit="kg/m2"><PRC WB_Mass="1" COGx="2" MOIxx="3" Name="Desk">)"
          R"(<PartInstance Name="Leg" WB_Upper_deviation="1" WB_Mass_Details="1;2" POIyz="1")"
          R"( WB_Density="7" Density="7;1" Density_dimension="3;2" Cut_Volume="1"/>)"
          R"(</PRC></R>)");
    const std::vector<std::pair<const char*, const char*>> root{
        {"WB Mass", "in lb"}, {"COGx", "in ft"}, {"MOIxx", "in kg.m2"}, {"Name", ""}};
    for (const auto& [title, said] : root) {
        EXPECT_EQ(TitleTooltip(Roots(), title), said) << title;
    }
    // Nobody converts volumes here.
    const std::vector<std::pair<const char*, const char*>> instance{
        {"WB Upper deviation", "in lb"},
        {"WB Mass Details", "in lb"},
        {"POIyz", "in kg.m2"},
        {"WB Density", "in g/cm3"},
        {"Density", "in g/cm3, of surfaces in kg/m2"},
        {"Density dimension", ""},
        {"Cut Volume", "in m3"},
        {"Name", ""},
        {"Level", ""}};
    for (const auto& [title, said] : instance) {
        EXPECT_EQ(TitleTooltip(Instances(), title), said) << title;
    }
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(),
              "Units: ft, lb, kg.m2, g/cm3, kg/m2");
}

TEST_F(ReportPreview, TitlesOfPropertiesTellTheUnitThatTheirMagnitudeIsShownIn)
{
    Built(
        R"(<R><PRC><PartInstance Plain="1"/><PartInstance Reach="1" __magnitude__Reach="LENGTH"/>)"
        R"(<PartInstance Odd="1" __magnitude__Odd="LUCK" Load="2" __magnitude__Load="MASS"/>)"
        R"(</PRC></R>)");
    EXPECT_EQ(TitleTooltip(Instances(), "Reach"), "in in");
    EXPECT_EQ(TitleTooltip(Instances(), "Load"), "in lb");
    EXPECT_EQ(TitleTooltip(Instances(), "Odd"), "");
    EXPECT_EQ(TitleTooltip(Instances(), "Plain"), "");
    // The document names none.
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "");
}

TEST_F(ReportPreview, UnitsAreToldInGermanAndOfTheAssignedReport)
{
    CATMsgCatalog::SetLanguage("de");
    Built(R"(<R MassUnit="lb"><PRC WB_Mass="1"><PartInstance Density="1"/></PRC></R>)");
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "Einheiten: lb");
    EXPECT_EQ(TitleTooltip(Instances(), "Density"), "in kg/m3, von Flächen in kg/m2");
    const CATWBVPMNavReportPreview other(
        "Other", Parsed(R"(<R MassUnit="g"><PRC WB_Mass="1"><PartInstance/></PRC></R>)"), 0);
    *preview = other;
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "Einheiten: g");
    EXPECT_EQ(TitleTooltip(Roots(), "WB Mass"), "in g");
}

TEST_F(ReportPreview, ReportWithoutARootHasTwoEmptyListsAndNoOptions)
{
    Remember(1, 1, 5);
    Built(R"(<R><PartInstance Name="Leg" WB_Mass="1"/></R>)");
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Unable to retrieve the first node (of type PRC) from the list!"));
    EXPECT_THAT(Titles(Instances()), ElementsAre("Level", "WB Mass", "Name"));
    EXPECT_THAT(Rows(Instances()), IsEmpty());
    EXPECT_THAT(Titles(Roots()), IsEmpty());
    EXPECT_THAT(Rows(Roots()), IsEmpty());
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    EXPECT_THAT(preview->calls, IsEmpty());
    Click(*preview, "ClosePushB");
    EXPECT_THAT(preview->calls, ElementsAre("Close"));
}

TEST_F(ReportPreview, InstancesThatCannotBeReadEndTheBuilding)
{
    AnsweringDocument report(kReport);
    report.missing = "PartInstance";
    Of(report.Handle()).Build();
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Unable to obtain the PartInstance elements from the DOM of the "
                            "current document"));
    EXPECT_THAT(Titles(Instances()), IsEmpty());
    EXPECT_NE(Look<CATDialog>(*preview, "ButtonsFrame"), nullptr);
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    EXPECT_THAT(preview->calls, IsEmpty());
}

TEST_F(ReportPreview, EmptyDocumentIsShownAsTwoEmptyLists)
{
    Built("<R/>");
    EXPECT_THAT(Titles(Instances()), ElementsAre("Level"));
    EXPECT_THAT(Rows(Instances()), IsEmpty());
}

// Rows

TEST_F(ReportPreview, RowsAreTheRootAndTheInstancesInTheirOrder)
{
    Built();
    EXPECT_THAT(Rows(Roots()), ElementsAre(Cells{"0", "Weighed", "LA1", "200", "10"}));
    EXPECT_THAT(Rows(Instances()),
                ElementsAre(Cells{"1", "Leg.2", "P2", "1.5", "Leg", "Weighed", "2025/12/01", ""},
                            Cells{"2", "Foot.1", "P3", "", "Foot", "", "", "3"},
                            Cells{"1", "Leg.1", "", "2", "", "", "", ""}));
}

TEST_F(ReportPreview, AttributesThatAreMissingAreTraced)
{
    Built(R"(<R><PRC A="1"/><PartInstance A="1"/><PartInstance B="2"/></R>)");
    EXPECT_THAT(trace.Sentences(), ElementsAre("Could not get the value of the attribute B",
                                               "Could not get the value of the attribute A"));
}

TEST_F(ReportPreview, RowsFollowTheDocument)
{
    Built();
    const CATIDOMNode_var root = document->ElementsByTagName("PRC")->Item(0);
    root->RemoveChild(root->FirstChild());
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Column("Instance ID"), ElementsAre("Leg.1"));
    document->DocumentElement()->RemoveChild(root);
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Rows(Instances()), IsEmpty());
    EXPECT_THAT(Rows(Roots()), IsEmpty());
}

TEST_F(ReportPreview, RowsEndAtTheFirstItemThatIsNoElement)
{
    AnsweringDocument report(kReport);
    const CATIDOMNodeList_var real = report.Handle()->ElementsByTagName("PartInstance");
    const CATIDOMDocument_var other = Parsed("<R>text</R>");
    const CATIDOMNode_var leg = real->Item(0);
    const CATIDOMNode_var secondLeg = real->Item(2);
    Of(report.Handle()).Build();
    report.parts = NodesAsTold::List({leg, other->DocumentElement()->FirstChild(), secondLeg});
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Column("Instance ID"), ElementsAre("Leg.2"));
}

TEST_F(ReportPreview, InstancesThatCannotBeHadAnyMoreLeaveTheRootAlone)
{
    AnsweringDocument report(kReport);
    Of(report.Handle()).Build();
    report.missing = "PartInstance";
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Rows(Instances()), IsEmpty());
    EXPECT_EQ(Rows(Roots()).size(), 1U);
    report.hasDocumentElement = false;
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Rows(Roots()), IsEmpty());
}

TEST_F(ReportPreview, TextsAndCommentsBetweenElementsAreNoRows)
{
    Built("<R>\n <PRC A=\"1\">\n  <!-- c --> text <PartInstance A=\"2\"> t </PartInstance>\n"
          " </PRC>\n</R>");
    EXPECT_THAT(Rows(Instances()), ElementsAre(Cells{"1", "2"}));
}

TEST_F(ReportPreview, LevelCountsTheStepsUpToTheRoot)
{
    Make(R"(<R><PRC><A><B/></A></PRC><C><D/></C></R>)");
    const auto level = [this](const char* name, int start) {
        int count = start;
        preview->CountAncestors(document->ElementsByTagName(name)->Item(0), count);
        return count;
    };
    EXPECT_EQ(level("PRC", 0), 0);
    EXPECT_EQ(level("A", 0), 1);
    EXPECT_EQ(level("B", 0), 2);
    EXPECT_EQ(level("B", 5), 7);
    // Outside of a root all nodes up to the document count: D, C, R and the document.
    EXPECT_EQ(level("D", 0), 4);
    EXPECT_EQ(level("none", 3), 3);
}

TEST_F(ReportPreview, NodeIsPrintedAsTheDocumentHoldsIt)
{
    Built();
    const CATIDOMElement_var leg = document->ElementsByTagName("PartInstance")->Item(0);
    EXPECT_EQ(preview->PrintNode(leg, "WB_Mass", 2, 0, &Roots()), S_OK);
    EXPECT_EQ(Roots().Cell(2, 1), "1.5");
    EXPECT_EQ(preview->PrintNode(leg, "Part_ID", 1, 1, &Roots()), S_OK);
    EXPECT_EQ(Roots().RowCount(), 2);
    EXPECT_EQ(Roots().Cell(1, 2), "P2");
    EXPECT_EQ(preview->PrintNode(leg, "COGx", 1, 1, &Roots()), E_FAIL);
    EXPECT_EQ(Roots().Cell(1, 2), "P2");
    EXPECT_EQ(trace.lines.back(), "Could not get the value of the attribute COGx");
}

TEST_F(ReportPreview, ManyInstancesAreShown)
{
    Built(LongReport(1000));
    EXPECT_EQ(Instances().RowCount(), 1000);
    EXPECT_EQ(Instances().Cell(1, 1000), "I999");
}

// The stable order

TEST_F(ReportPreview, InstancesAreSortedWhereAStableOrderIsAskedFor)
{
    UseStableOrder(1);
    Built();
    EXPECT_THAT(Column("Instance ID"), ElementsAre("Leg.1", "Leg.2", "Foot.1"));
    EXPECT_THAT(Written(document), Not(testing::StrEq(kReport)));
    EXPECT_THAT(trace.lines, Contains("SortDOMDocument"));
    const Cells sentences = trace.Sentences();
    EXPECT_THAT(sentences, Contains("SortListOfNodes() failed for node at index 0!"));
    EXPECT_THAT(sentences,
                Contains(testing::MatchesRegex("Time elapsed for sorting the DOM: .* seconds\\.")));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(ReportPreview, OrderStaysWhereNoStableOneIsAskedFor)
{
    Built();
    EXPECT_EQ(Written(document), kReport);
    EXPECT_THAT(trace.lines, Not(Contains("SortDOMDocument")));
    EXPECT_THAT(trace.lines, Not(Contains(StartsWith("Time elapsed"))));
}

TEST_F(ReportPreview, UserIsToldWhenTheOptionCannotBeRead)
{
    CATSettingRepository::GetRepository("VPMNavigator")->RemoveSetting("StableOrdering");
    Built();
    EXPECT_THAT(boxes,
                ElementsAre(ShownBox{"The order of the report",
                                     "The navigator's option for a stable order cannot be read. It "
                                     "is taken to be off.",
                                     kErrorBox}));
    EXPECT_THAT(trace.Sentences(),
                Contains("Could not determine whether the stable order is used: The navigator's "
                         "option for a stable order cannot be read. It is taken to be off."));
    EXPECT_THAT(Column("Instance ID"), ElementsAre("Leg.2", "Foot.1", "Leg.1"));
}

TEST_F(ReportPreview, GermanUserIsToldInGerman)
{
    CATMsgCatalog::SetLanguage("de");
    CATSettingRepository::GetRepository("VPMNavigator")->RemoveSetting("StableOrdering");
    Built();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes.front().title, "Reihenfolge des Berichts");
}

// Closing

TEST_F(ReportPreview, CloseHidesTheWindowAndDestroysItLater)
{
    Built().SetVisibility(true);
    Click(*preview, "ClosePushB");
    EXPECT_THAT(preview->calls, Contains("Close"));
    EXPECT_FALSE(preview->IsVisible());
    EXPECT_TRUE(preview->IsDestructionRequested());
    Process();
    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(ReportPreview, WindowFrameClosesItToo)
{
    Built().SetVisibility(true);
    preview->Widget()->close();
    EXPECT_THAT(preview->calls, Contains("Close"));
    Process();
    EXPECT_EQ(watch.Get(), nullptr);
}

// Copies

TEST_F(ReportPreview, CopyIsAnotherWindowForTheSameReport)
{
    Built();
    auto* copy = new CATWBVPMNavReportPreview(*preview); // the command tree owns it
    EXPECT_EQ(copy->ChildCount(), 0);
    EXPECT_EQ(copy->Parent(), frame->MainWindow());
    EXPECT_EQ(copy->Style(), 0x4201);
    copy->Build();
    EXPECT_EQ(Find<CATDlgEditor>(*copy, "SelectionEditor").Text(), "Legs");
    EXPECT_EQ(Rows(Find<CATDlgMultiList>(*copy, "ReportMultiListInst")), Rows(Instances()));
}

TEST_F(ReportPreview, AssignedPreviewShowsTheOtherReport)
{
    auto* other = new CATWBVPMNavReportPreview( // the command tree owns it
        "Feet", Parsed(R"(<R><PRC X="1"/><PartInstance Y="2"/></R>)"), 1);
    Built();
    *preview = *other;
    EXPECT_EQ(Find<CATDlgEditor>(*preview, "SelectionEditor").Text(), "Feet");
    EXPECT_THAT(Titles(Roots()), ElementsAre("Level", "X"));
    EXPECT_THAT(Rows(Roots()), ElementsAre(Cells{"0", "1"}));
    EXPECT_THAT(Rows(Instances()), ElementsAre(Cells{"3", "2"}));
}

TEST_F(ReportPreview, AssignedReportIsShownWhereThereAreNoOptionsToo)
{
    auto* other = new CATWBVPMNavReportPreview("", Parsed(kReport), 0); // the command tree owns it
    Built("<R/>");
    ASSERT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    *preview = *other;
    EXPECT_EQ(Instances().RowCount(), 3);
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
}

TEST_F(ReportPreview, AssignedReportWithoutARootLeavesEmptyLists)
{
    auto* rootless = new CATWBVPMNavReportPreview("", Parsed("<R/>"), 0);
    auto* empty = new CATWBVPMNavReportPreview("", {}, 0);
    Built();
    *preview = *rootless;
    EXPECT_THAT(Rows(Instances()), IsEmpty());
    EXPECT_THAT(Rows(Roots()), IsEmpty());
    *preview = *empty;
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Rows(Roots()), IsEmpty());
}

TEST_F(ReportPreview, AssigningAPreviewToItselfChangesNothing)
{
    Built();
    preview->calls.clear();
    const CATWBVPMNavReportPreview& same = *preview;
    *preview = same;
    EXPECT_THAT(preview->calls, IsEmpty());
    EXPECT_EQ(Instances().RowCount(), 3);
}

TEST_F(ReportPreview, PreviewThatIsNotBuiltTakesOverTheReport)
{
    Make();
    auto* other = new CATWBVPMNavReportPreview("Feet", {}, 0);
    *other = *preview;
    other->Build();
    EXPECT_EQ(Find<CATDlgMultiList>(*other, "ReportMultiListInst").RowCount(), 3);
}

// The trace

TEST_F(ReportPreview, EveryOperationIsTraced)
{
    Built();
    int level = 0;
    preview->CountAncestors({}, level);
    preview->OnSaveNotification();
    preview->OnSaveToNotification();
    preview->OnDlgStdFileDiaCancelNotification();
    preview->OnSaveToNotification();
    preview->OnDlgStdFileDiaOKNotification();
    preview->OnTrailingZeroNotification();
    preview->OnTrailingDigitsNotification();
    preview->OnCloseNotification();
    auto* copy = new CATWBVPMNavReportPreview(*preview);
    *copy = *preview;
    Process();
    for (const char* operation :
         {"CATWBVPMNavReportPreview", "operator=", "Build", "UpdatePreviewPanelList", "PrintNode",
          "CountAncestors", "OnSaveNotification", "WriteReportToFile", "SetDefaultFileName",
          "SetDefaultFileDir", "OnSaveToNotification", "OnDlgStdFileDiaOKNotification",
          "OnDlgStdFileDiaCancelNotification", "OnUnitsDisplayNotification",
          "OnTrailingZeroNotification", "OnTrailingDigitsNotification", "OnCloseNotification",
          "~CATWBVPMNavReportPreview"}) {
        EXPECT_THAT(trace.lines, Contains(operation));
    }
    EXPECT_THAT(trace.components, Each("CATWBRepPreview"));
}
