#include "CATWBVPMNavDistributiveReportPreview.h"

#include "../ReportDoubles.h"
#include "OtherPreviewSession.h"

#include <QAbstractItemView>

#include <array>

namespace
{

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using Cells = std::vector<std::string>;

constexpr const char* kRootList = "ReportMultiListPRC";
constexpr const char* kSectionList = "ReportMultiListSection";
constexpr const char* kInstanceList = "ReportMultiListInst";

// A product of two sections and three instances. The second section has most to say, the first
// instance has all attributes that there are.
constexpr const char* kReport =
    R"(<WB_Report><PRC PRC_ID="LA1" WB_Mass="6" WBActiveMassTypeID="Weighed" COGx="25.4">)"
    R"(<WB_Section Name="10" WB_Mass="5"/>)"
    R"(<WB_Section Code_ID="C" COGx="1" Name="20" WB_Mass="1" WBActiveDocumentID="D"/>)"
    R"(<PartInstance Part_ID="P1" Name="Leg" WB_Mass="2" Instance_ID="Leg.1")"
    R"( WBActiveMassTypeID="Weighed"/>)"
    R"(<PartInstance Name="Top" WB_Mass="3"/>)"
    R"(<PartInstance Name="Box" Extra="yes" Instance_ID="Box.1"/></PRC></WB_Report>)";

class DistributiveReportPreview : public OtherPreviewSession<CATWBVPMNavDistributiveReportPreview>
{
protected:
    std::vector<Cells> RowsOf(const char* list) const { return Rows(List(list)); }
    /// The titles of the list's columns for such a report.
    Cells TitlesOf(const char* list, const std::string& text)
    {
        Built(text);
        return Titles(List(list));
    }
};

/// What a preview that derives from this one can do with it.
class DerivedPreview : public CATWBVPMNavDistributiveReportPreview
{
public:
    using CATWBVPMNavDistributiveReportPreview::CATWBVPMNavDistributiveReportPreview;
    using CATWBVPMNavDistributiveReportPreview::SortDOMDocument;
    using CATWBVPMNavDistributiveReportPreview::SortListOfNodes;
};

} // namespace

// The window

TEST_F(DistributiveReportPreview, ControlsStandInTheirCells)
{
    Built(kReport);
    ExpectPlaced(*preview,
                 {{"SelectionFrame", "CATWBVPMNavDistributiveReportPreview", {0, 0, 1, 1}},
                  {"SelectionLabel", "SelectionFrame", {0, 0, 1, 1}},
                  {"SelectionEditor", "SelectionFrame", {0, 1, 1, 1}},
                  {"ReportFrame", "CATWBVPMNavDistributiveReportPreview", {1, 0, 1, 1}},
                  {kRootList, "ReportFrame", {0, 0, 1, 1}},
                  {kSectionList, "ReportFrame", {1, 0, 1, 1}},
                  {kInstanceList, "ReportFrame", {2, 0, 1, 1}},
                  {"OptionFrame", "CATWBVPMNavDistributiveReportPreview", {2, 0, 1, 1}},
                  {"UnitsDisplay", "OptionFrame", {1, 0, 1, 1}},
                  {"TrailingZero", "OptionFrame", {1, 1, 1, 1}},
                  {"DigitsDisplay", "OptionFrame", {1, 2, 1, 1}},
                  {"UnitsNote", "OptionFrame", {1, 3, 1, 1}},
                  {"ButtonsFrame", "CATWBVPMNavDistributiveReportPreview", {3, 0, 1, 1}},
                  {"SavePushB", "ButtonsFrame", {0, 0, 1, 1}},
                  {"SaveToPushB", "ButtonsFrame", {0, 1, 1, 1}},
                  {"ClosePushB", "ButtonsFrame", {0, 2, 1, 1}}});
}

TEST_F(DistributiveReportPreview, TheSelectionIsShownAndCannotBeTypedOver)
{
    Built(kReport);
    auto& editor = Find<CATDlgEditor>(*preview, "SelectionEditor");
    EXPECT_EQ(editor.Text(), "Legs");
    EXPECT_EQ(editor.Style(), 0x4000000);
    auto* other = new CATWBVPMNavDistributiveReportPreview("Feet", Parsed(kReport), 0);
    *preview = *other;
    EXPECT_EQ(editor.Text(), "Feet");
}

constexpr std::array kTexts{
    ShownText{"SelectionLabel", "Report of", "Bericht für"},
    ShownText{"OptionFrame", "Display", "Anzeige"},
    ShownText{"UnitsDisplay", "Show units", "Einheiten anzeigen"},
    ShownText{"TrailingZero", "Show trailing zeros", "Nullen am Ende anzeigen"},
    ShownText{"SavePushB", "Save", "Speichern"},
    ShownText{"SaveToPushB", "Save to...", "Speichern unter..."},
    ShownText{"ClosePushB", "Close", "Schließen"}};

TEST_F(DistributiveReportPreview, TextsAreEnglish)
{
    Built(kReport).SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Distributive report preview");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.english);
    }
    EXPECT_EQ(List(kRootList).Widget()->accessibleName(), "Product");
    EXPECT_EQ(List(kSectionList).Widget()->accessibleName(), "Sections");
    EXPECT_EQ(List(kInstanceList).Widget()->accessibleName(), "Part instances");
}

TEST_F(DistributiveReportPreview, TextsAreGermanForThoseWhoSpeakIt)
{
    CATMsgCatalog::SetLanguage("de");
    Built(kReport).SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Vorschau des Verteilungsberichts");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.german);
    }
    EXPECT_EQ(List(kSectionList).Widget()->accessibleName(), "Abschnitte");
    EXPECT_EQ(Titles(List(kInstanceList)).front(), "Sr.No.");
}

TEST_F(DistributiveReportPreview, ListsHaveTheRoomAndTheRootHasALine)
{
    Built(kReport).SetVisibility(true);
    preview->Widget()->resize(1024, 700);
    Process();
    const auto size = [this](const char* list) {
        return List(list).Widget()->size();
    };
    EXPECT_GT(size(kRootList).width(), 950);
    EXPECT_LT(size(kRootList).height(), 130);
    EXPECT_GT(size(kSectionList).height(), 140);
    EXPECT_GT(size(kInstanceList).height(), size(kSectionList).height());
    const QWidget* close = Find<CATDialog>(*preview, "ClosePushB").Widget();
    const int bottom = close->mapTo(preview->Widget(), QPoint(0, close->height())).y();
    EXPECT_GT(bottom, 670);
    EXPECT_LE(bottom, 700);
}

TEST_F(DistributiveReportPreview, ListsAskForThreeFifteenAndTwentyLinesOfAHundredCharacters)
{
    Built(kReport);
    auto* usual = new CATDlgMultiList(new CATDlgDialog(frame->MainWindow(), "Other", 0), "Usual");
    usual->SetColumnTitles({"Title"});
    usual->SetVisibleTextWidth(100);
    const auto asksFor = [this, usual](const char* name, int lines) {
        usual->SetVisibleLines(lines);
        return List(name).Widget()->sizeHint() == usual->Widget()->sizeHint();
    };
    EXPECT_TRUE(asksFor(kRootList, 3));
    EXPECT_TRUE(asksFor(kSectionList, 15));
    EXPECT_TRUE(asksFor(kInstanceList, 20));
    EXPECT_FALSE(asksFor(kInstanceList, 15));
}

TEST_F(DistributiveReportPreview, TheSelectionAsksForThirtyCharacters)
{
    Built(kReport);
    auto* usual = new CATDlgEditor(new CATDlgDialog(frame->MainWindow(), "Other", 0), "Usual");
    const QWidget* editor = Find<CATDialog>(*preview, "SelectionEditor").Widget();
    usual->SetVisibleTextWidth(30);
    EXPECT_EQ(editor->sizeHint().width(), usual->Widget()->sizeHint().width());
    usual->SetVisibleTextWidth(31);
    EXPECT_NE(editor->sizeHint().width(), usual->Widget()->sizeHint().width());
}

TEST_F(DistributiveReportPreview, EmptyListsSayWhatTheyLack)
{
    Built(R"(<R><PRC>text</PRC><PartInstance/></R>)").SetVisibility(true);
    ExpectEmptyText(List(kRootList), "No product");
    ExpectEmptyText(List(kSectionList), "No sections");
    ExpectEmptyText(List(kInstanceList), "No part instances");
}

TEST_F(DistributiveReportPreview, TheTabKeyComesToTheButtonsLast)
{
    Built(kReport);
    EXPECT_EQ(preview->Child(preview->ChildCount())->Name(), "ButtonsFrame");
}

// Columns

TEST_F(DistributiveReportPreview, ColumnsAreThoseOfTheRootTheRichestSectionAndTheFirstInstance)
{
    Built(kReport);
    EXPECT_THAT(Titles(List(kRootList)),
                ElementsAre("", "PRC ID", "WB Mass", "WBActiveMassTypeID", "COGx"));
    // One by one: Code_ID; COGx behind it; Name to the front; the mass to the second place; the
    // document's identifier at the end.
    EXPECT_THAT(Titles(List(kSectionList)),
                ElementsAre("", "Name", "WB Mass", "Code ID", "COGx", "WBActiveDocumentID"));
    // Part_ID; Name before it; the mass at the third place; the other identifiers at the second.
    EXPECT_THAT(Titles(List(kInstanceList)), ElementsAre("Sr.No.", "Name", "WBActiveMassTypeID",
                                                         "Instance ID", "Part ID", "WB Mass"));
}

TEST_F(DistributiveReportPreview, NothingIsLeftOutOfTheColumns)
{
    environment.Set("ODT_KR4_REPORT_NO_DATE", "1");
    EXPECT_THAT(
        TitlesOf(kInstanceList,
                 R"(<R><PRC/><PartInstance instAlias="A" __magnitude__A="LENGTH" A="1")"
                 R"( WB_Last_calculation_date="2025/12/01"/></R>)"),
        ElementsAre("Sr.No.", "instAlias", "  magnitude  A", "A", "WB Last calculation date"));
    EXPECT_THAT(
        TitlesOf(kInstanceList, R"(<R><PRC/><PartInstance A="1" instIdAttrAlias="A"/></R>)"),
        ElementsAre("Sr.No.", "A", "instIdAttrAlias"));
}

TEST_F(DistributiveReportPreview, TheFirstOfTheRichestSectionsGivesTheColumns)
{
    EXPECT_THAT(TitlesOf(kSectionList,
                         R"(<R><PRC>text<A X="1"/><B Y="1" Z="2"/><C P="1" Q="2"/></PRC>)"
                         R"(<PartInstance/></R>)"),
                ElementsAre("", "Y", "Z"));
}

TEST_F(DistributiveReportPreview, APartInstanceCanBeTheRichestSection)
{
    EXPECT_THAT(TitlesOf(kSectionList,
                         R"(<R><PRC><WB_Section X="1"/><PartInstance Y="1" Z="2"/></PRC></R>)"),
                ElementsAre("", "Y", "Z"));
}

TEST_F(DistributiveReportPreview, SectionsWithoutAttributesHaveTheirNumberAlone)
{
    Built(R"(<R><PRC><WB_Section/><WB_Section/></PRC><PartInstance/></R>)");
    EXPECT_THAT(Titles(List(kSectionList)), ElementsAre(""));
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1"}, Cells{"2"}));
}

TEST_F(DistributiveReportPreview, ARootWithoutElementsGivesNoSectionColumnsAndTheRestIsBuilt)
{
    Built(R"(<R><PRC A="1">text</PRC><PartInstance B="2"/></R>)");
    EXPECT_THAT(Titles(List(kSectionList)), ElementsAre(""));
    EXPECT_THAT(Titles(List(kInstanceList)), ElementsAre("Sr.No.", "B"));
    EXPECT_NE(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    EXPECT_THAT(trace.Sentences(), IsEmpty());
}

TEST_F(DistributiveReportPreview, NumbersStandAtTheRight)
{
    Built(kReport);
    const auto* model = qobject_cast<QAbstractItemView*>(List(kSectionList).Widget())->model();
    std::vector<int> right;
    for (int column = 0; column < model->columnCount(); ++column) {
        const QVariant alignment = model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
        if ((alignment.toInt() & Qt::AlignRight) != 0) {
            right.push_back(column);
        }
    }
    EXPECT_THAT(right, ElementsAre(0, 2, 4));
}

// Reports that cannot be read

TEST_F(DistributiveReportPreview, TitlesTellTheUnitsThatTheDocumentNames)
{
    const std::string values =
        R"( WB_Mass="1" COGz="1" POIxy="1" Density="1" Cut_Volume="1" Name="N")";
    Built(R"(<R LengthUnit="in" MassUnit="lb" VolumeUnit="L"><PRC)" + values + "><WB_Section" +
          values + "/><PartInstance" + values + "/></PRC></R>");
    for (const char* list : {kRootList, kSectionList, kInstanceList}) {
        EXPECT_EQ(TitleTooltip(List(list), "WB Mass"), "in lb") << list;
        EXPECT_EQ(TitleTooltip(List(list), "COGz"), "in in") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Cut Volume"), "in L") << list;
        EXPECT_EQ(TitleTooltip(List(list), "POIxy"), "in kg.m2") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Density"), "in kg/m3, of surfaces in kg/m2") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Name"), "") << list;
    }
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "Units: in, lb, L");
    const CATWBVPMNavDistributiveReportPreview other(
        "Other", Parsed(R"(<R MassUnit="g"><PRC><PartInstance/></PRC></R>)"), 0);
    *preview = other;
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "Units: g");
}

TEST_F(DistributiveReportPreview, WithoutARootTheListsAreEmptyAndThereAreNoOptions)
{
    Remember(1, 1, 5);
    Built(R"(<R><PartInstance Name="Leg"/></R>)");
    EXPECT_THAT(trace.Sentences(), ElementsAre("Unable to retrieve the node of type PRC!"));
    for (const char* list : {kRootList, kSectionList, kInstanceList}) {
        EXPECT_THAT(Titles(List(list)), IsEmpty());
        EXPECT_THAT(RowsOf(list), IsEmpty());
    }
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    EXPECT_THAT(preview->calls, IsEmpty());
    Click(*preview, "ClosePushB");
    EXPECT_THAT(preview->calls, ElementsAre("Close"));
}

TEST_F(DistributiveReportPreview, WithoutAPartInstanceThereAreColumnsAndNoOptions)
{
    Built(R"(<R><PRC A="1"><WB_Section B="2"/></PRC></R>)");
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Unable to retrieve the first node of type PartInstance!"));
    EXPECT_THAT(Titles(List(kRootList)), ElementsAre("", "A"));
    EXPECT_THAT(Titles(List(kSectionList)), ElementsAre("", "B"));
    EXPECT_THAT(Titles(List(kInstanceList)), IsEmpty());
    EXPECT_THAT(RowsOf(kRootList), IsEmpty());
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
    EXPECT_THAT(preview->calls, IsEmpty());
}

TEST_F(DistributiveReportPreview, ASearchThatFailsEndsTheBuilding)
{
    AnsweringDocument report(kReport);
    report.missing = "PartInstance";
    Of(report.Handle()).Build();
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Unable to retrieve the first node of type PartInstance!"));
    report.missing = "PRC";
    Of(report.Handle()).Build();
    EXPECT_EQ(trace.Sentences().back(), "Unable to retrieve the node of type PRC!");
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
}

TEST_F(DistributiveReportPreview, AnInstanceWhoseAttributesCannotBeReadEndsTheBuilding)
{
    AnsweringDocument report(kReport);
    report.parts = NodesAsTold::List({ElementAsTold::WithMap({})});
    Of(report.Handle()).Build();
    EXPECT_THAT(
        trace.Sentences(),
        ElementsAre("Could not retrieve the list of attributes that a PartInstance node has!"));
    EXPECT_EQ(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
}

// Rows

TEST_F(DistributiveReportPreview, RowsAreTheRootTheNumberedSectionsAndTheNumberedInstances)
{
    Built(kReport);
    EXPECT_THAT(RowsOf(kRootList), ElementsAre(Cells{"", "LA1", "6", "Weighed", "25.4"}));
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1", "10", "5", "", "", ""},
                                                  Cells{"2", "20", "1", "C", "1", "D"}));
    EXPECT_THAT(RowsOf(kInstanceList), ElementsAre(Cells{"1", "Leg", "Weighed", "Leg.1", "P1", "2"},
                                                   Cells{"2", "Top", "", "", "", "3"},
                                                   Cells{"3", "Box", "", "Box.1", "", ""}));
}

TEST_F(DistributiveReportPreview, MissingAttributesAreTraced)
{
    Built(R"(<R><PRC><A X="1"/><B/></PRC><PartInstance/></R>)");
    EXPECT_THAT(trace.Sentences(), ElementsAre("Could not get the value of the attribute X"));
}

TEST_F(DistributiveReportPreview, APartInstanceBelowTheRootIsNoSection)
{
    Built(R"(<R><PRC><A X="1"/><PartInstance X="2"/><B X="3"/><partinstance X="4"/></PRC></R>)");
    EXPECT_THAT(RowsOf(kSectionList),
                ElementsAre(Cells{"1", "1"}, Cells{"2", "3"}, Cells{"3", "4"}));
    EXPECT_THAT(RowsOf(kInstanceList), ElementsAre(Cells{"1", "2"}));
}

TEST_F(DistributiveReportPreview, InstancesAnywhereInTheDocumentAreListed)
{
    Built(R"(<R><PartInstance X="1"/><PRC><A><PartInstance X="2"><PartInstance X="3"/>)"
          R"(</PartInstance></A></PRC></R>)");
    EXPECT_THAT(RowsOf(kInstanceList),
                ElementsAre(Cells{"1", "1"}, Cells{"2", "2"}, Cells{"3", "3"}));
}

TEST_F(DistributiveReportPreview, ATextAheadOfTheSectionsLeavesSectionsAndInstancesEmpty)
{
    Built("<R><PRC A=\"1\"> <A X=\"1\"/><PartInstance X=\"2\"/></PRC></R>");
    EXPECT_THAT(RowsOf(kRootList), ElementsAre(Cells{"", "1"}));
    EXPECT_THAT(RowsOf(kSectionList), IsEmpty());
    EXPECT_THAT(RowsOf(kInstanceList), IsEmpty());
    EXPECT_THAT(Titles(List(kInstanceList)), ElementsAre("Sr.No.", "X"));
}

TEST_F(DistributiveReportPreview, ATextBehindASectionEndsTheFillThere)
{
    Built("<R><PRC><A X=\"1\"/>text<B X=\"2\"/><PartInstance X=\"3\"/></PRC></R>");
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1", "1"}));
    EXPECT_THAT(RowsOf(kInstanceList), IsEmpty());
}

TEST_F(DistributiveReportPreview, ARootWithoutChildrenLeavesTheInstancesEmpty)
{
    Built(R"(<R><PRC A="1"/><PartInstance X="1"/></R>)");
    EXPECT_THAT(RowsOf(kRootList), ElementsAre(Cells{"", "1"}));
    EXPECT_THAT(RowsOf(kSectionList), IsEmpty());
    EXPECT_THAT(RowsOf(kInstanceList), IsEmpty());
}

TEST_F(DistributiveReportPreview, TheFillOfInstancesEndsAtAnItemThatIsNoElement)
{
    AnsweringDocument report(kReport);
    const CATIDOMNodeList_var real = report.Handle()->ElementsByTagName("PartInstance");
    const CATIDOMDocument_var other = Parsed("<R>text</R>");
    report.parts = NodesAsTold::List(
        {real->Item(0), real->Item(2), other->DocumentElement()->FirstChild(), real->Item(1)});
    Of(report.Handle()).Build();
    EXPECT_THAT(RowsOf(kInstanceList), SizeIs(2));
}

TEST_F(DistributiveReportPreview, RowsFollowTheDocument)
{
    Built(kReport);
    const CATIDOMNode_var root = document->ElementsByTagName("PRC")->Item(0);
    root->RemoveChild(root->FirstChild());
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1", "20", "1", "C", "1", "D"}));
    document->DocumentElement()->RemoveChild(root);
    preview->UpdatePreviewPanelList();
    for (const char* list : {kRootList, kSectionList, kInstanceList}) {
        EXPECT_THAT(RowsOf(list), IsEmpty());
    }
}

TEST_F(DistributiveReportPreview, WhatCannotBeReadAnyMoreIsNotShown)
{
    AnsweringDocument report(kReport);
    Of(report.Handle()).Build();
    report.missing = "PartInstance";
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(RowsOf(kInstanceList), IsEmpty());
    EXPECT_THAT(RowsOf(kSectionList), SizeIs(2));
    report.hasDocumentElement = false;
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(RowsOf(kRootList), IsEmpty());
}

TEST_F(DistributiveReportPreview, ARootWhoseChildrenCannotBeReadLeavesTheInstancesEmpty)
{
    const CATIDOMDocument_var real = Parsed(kReport);
    const auto report =
        CATHandle<MockDocument>::Adopt(new testing::NiceMock<MockDocument>); // answers as `real`
    bool isReadable = true;
    ON_CALL(*report, DocumentElement).WillByDefault([&] { return real->DocumentElement(); });
    ON_CALL(*report, FindName).WillByDefault([&](std::string_view name) {
        return real->FindName(name);
    });
    ON_CALL(*report, NameText).WillByDefault([&](CATDOMName name) { return real->NameText(name); });
    ON_CALL(*report, ElementsByTagName).WillByDefault([&](const CATUnicodeString& name) {
        return name == "PRC" && !isReadable ? NodesAsTold::List({ElementAsTold::WithChildren({})})
                                            : real->ElementsByTagName(name);
    });
    Of(report).Build();
    ASSERT_THAT(RowsOf(kInstanceList), SizeIs(3));
    isReadable = false;
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(RowsOf(kSectionList), IsEmpty());
    EXPECT_THAT(RowsOf(kInstanceList), IsEmpty());
}

TEST_F(DistributiveReportPreview, ManyInstancesAreShown)
{
    constexpr int kMany = 2000;
    std::string report = "<R><PRC>";
    for (int number = 1; number <= kMany; ++number) {
        report += R"(<PartInstance Name="N)" + std::to_string(number) + R"("/>)";
    }
    Built(report + "</PRC></R>");
    EXPECT_EQ(List(kInstanceList).RowCount(), kMany);
    EXPECT_EQ(List(kInstanceList).Cell(0, kMany), "2000");
    EXPECT_EQ(List(kInstanceList).Cell(1, kMany), "N2000");
}

TEST_F(DistributiveReportPreview, ANodeIsPrintedAsTheDocumentHoldsIt)
{
    Built(kReport);
    const CATIDOMElement_var leg = document->ElementsByTagName("PartInstance")->Item(0);
    EXPECT_EQ(preview->PrintNode(leg, "Name", 1, 1, &List(kRootList)), S_OK);
    EXPECT_EQ(List(kRootList).Cell(1, 2), "Leg");
    EXPECT_EQ(preview->PrintNode(leg, "name", 1, 1, &List(kRootList)), E_FAIL);
    EXPECT_EQ(List(kRootList).Cell(1, 2), "Leg");
    EXPECT_EQ(trace.lines.back(), "Could not get the value of the attribute name");
}

TEST_F(DistributiveReportPreview, AncestorsAreCountedUpToTheRoot)
{
    Make("<R><PRC><A><B/></A></PRC></R>");
    int count = 5;
    preview->CountAncestors(document->ElementsByTagName("B")->Item(0), count);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(trace.lines.back(), "CountAncestors");
    preview->Build();
    preview->UpdatePreviewPanelList();
    EXPECT_EQ(std::count(trace.lines.begin(), trace.lines.end(), "CountAncestors"), 1);
}

// Display

TEST_F(DistributiveReportPreview, DensitiesAndVolumesOfAllElementsAreShownInUnits)
{
    Built(R"(<R><PRC Cut_Volume="1"><WB_Section Density="2;3" Density_dimension="3;2"/>)"
          R"(<PartInstance WB_Density="4" MOIxx="5"/></PRC></R>)");
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(RowsOf(kRootList), ElementsAre(Cells{"", "1L"}));
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1", "2g/cm3; 3g/cm2", "3;2"}));
    EXPECT_THAT(RowsOf(kInstanceList), ElementsAre(Cells{"1", "4g/cm3", "5kg.mm2"}));
}

TEST_F(DistributiveReportPreview, BuildingWithoutRememberedOptionsChangesNoValue)
{
    Built(kReport);
    EXPECT_EQ(Written(document), kReport);
}

// The order

TEST_F(DistributiveReportPreview, AStableOrderChangesNothing)
{
    UseStableOrder(1);
    Built(R"(<R><PRC><WB_Section Name="2"/><WB_Section Name="1"/>)"
          R"(<PartInstance Name="B"/><PartInstance Name="A"/></PRC></R>)");
    EXPECT_THAT(RowsOf(kSectionList), ElementsAre(Cells{"1", "2"}, Cells{"2", "1"}));
    EXPECT_THAT(RowsOf(kInstanceList), ElementsAre(Cells{"1", "B"}, Cells{"2", "A"}));
    EXPECT_THAT(trace.lines, Not(Contains("SortDOMDocument")));
    EXPECT_THAT(trace.lines, Not(Contains(StartsWith("Time elapsed"))));
    EXPECT_THAT(boxes, IsEmpty());
}

TEST_F(DistributiveReportPreview, TheUserIsToldWhenTheOptionCannotBeRead)
{
    CATSettingRepository::GetRepository("VPMNavigator")->RemoveSetting("StableOrdering");
    Built(kReport);
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes.front().title, "The order of the report");
    EXPECT_THAT(boxes.front().text,
                StartsWith("The navigator's option for a stable order cannot be read."));
    EXPECT_EQ(boxes.front().style, kErrorBox);
    EXPECT_THAT(RowsOf(kInstanceList), SizeIs(3));
}

constexpr const char* kUnsorted =
    R"(<R>text<B instIdAttrAlias="K" K="2"><D instIdAttrAlias="K" K="2"/>)"
    R"(<C instIdAttrAlias="K" K="1"/></B><A instIdAttrAlias="K" K="10"><F instIdAttrAlias="K" K="2"/>)"
    R"(<E instIdAttrAlias="K" K="1"/></A></R>)";

TEST_F(DistributiveReportPreview, APreviewThatDerivesCanSortAsFarAsTheFirstBranches)
{
    auto* derived = new DerivedPreview("", {}, 0); // the command tree owns it
    CATIDOMDocument_var report = Parsed(kUnsorted);
    EXPECT_EQ(derived->SortDOMDocument(report), E_FAIL);
    // A comes first, since "10" is less than "2" as a text. Its branch is sorted, and fails as
    // every list that is not empty; so that of B is not.
    EXPECT_EQ(Written(report),
              R"(<R>text<A instIdAttrAlias="K" K="10"><E instIdAttrAlias="K" K="1"/>)"
              R"(<F instIdAttrAlias="K" K="2"/></A><B instIdAttrAlias="K" K="2">)"
              R"(<D instIdAttrAlias="K" K="2"/><C instIdAttrAlias="K" K="1"/></B></R>)");
    EXPECT_THAT(trace.lines, Contains("SortDOMDocument"));
    EXPECT_THAT(trace.lines, Contains("Failed to retrieve the node at index 2!"));
    EXPECT_THAT(trace.lines, Contains("SortListOfNodes() failed for node at index 1!"));
}

TEST_F(DistributiveReportPreview, NothingToSortIsNoFailureAndNoDocumentIsRefused)
{
    auto* derived = new DerivedPreview("", {}, 0); // the command tree owns it
    CATIDOMDocument_var empty = Parsed("<R/>");
    EXPECT_EQ(derived->SortDOMDocument(empty), S_OK);
    CATIDOMDocument_var none;
    EXPECT_EQ(derived->SortDOMDocument(none), E_INVALIDARG);
    EXPECT_THAT(trace.lines, Contains("Invalid argument has been received!"));
    CATIDOMNode_var parent = empty->DocumentElement();
    CATIDOMNodeList_var children;
    EXPECT_EQ(derived->SortListOfNodes(parent, children), E_INVALIDARG);
    children = parent->ChildNodes();
    EXPECT_EQ(derived->SortListOfNodes(parent, children), S_OK);
}
