#include "CATWBVPMNavMatStatPreview.h"

#include "../ReportDoubles.h"
#include "OtherPreviewSession.h"

#include <QAbstractItemView>

#include <array>

namespace
{

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Cells = std::vector<std::string>;

constexpr unsigned char kWithParts = 1;
constexpr const char* kRootMaterials = "MatStatPRCMultiList";
constexpr const char* kRootMassTypes = "MassTypePRCMultiList";
constexpr const char* kPartMaterials = "MatStatPartMultiList";
constexpr const char* kPartMassTypes = "MassTypePartMultiList";

// A desk of three materials, one of them a coat of paint, and a leg of one. The masses are 3, 1 and
// 2 pounds.
constexpr const char* kDesk =
    R"(<WB_Report><PRC PRC_ID="D1">)"
    R"(<MaterialStat InstanceID="D1" Name="Oak" Mass="1.36077711" Density="700" Dimension="3")"
    R"( Mass_ratio="50" InstancePath="D1"/>)"
    R"(<MassTypeStat InstanceID="D1" Name="Weighed" Mass="1.81436948" Mass_ratio="66.6667")"
    R"( InstancePath="D1"/>)"
    R"(<MaterialStat InstanceID="D1" Name="Paint" Mass="0.45359237" Density="0.1" Dimension="2")"
    R"( Mass_ratio="16.6667" InstancePath="D1"/>)"
    R"(<PartInstance Instance_ID="Leg.1">)"
    R"(<MaterialStat InstanceID="Leg.1" Name="Steel" Mass="0.90718474" Density="7850")"
    R"( Dimension="3" Mass_ratio="100" InstancePath="D1/Leg.1"/>)"
    R"(<MassTypeStat InstanceID="Leg.1" Name="Supplier" Mass="0.90718474" Mass_ratio="100")"
    R"( InstancePath="D1/Leg.1"/>)"
    R"(<PartInstance Instance_ID="Foot.1"><MassTypeStat InstanceID="Foot.1" Name="Estimated")"
    R"( Mass="0" Mass_ratio="0" InstancePath="D1/Leg.1/Foot.1"/></PartInstance></PartInstance>)"
    R"(<MassTypeStat InstanceID="D1" Name="Supplier" Mass="0.90718474" Mass_ratio="33.3333")"
    R"( InstancePath="D1"/>)"
    R"(<MaterialStat InstanceID="D1" Name="Steel" Mass="0.90718474" Density="7850")"
    R"( Dimension="3" Mass_ratio="33.3333" InstancePath="D1"/></PRC></WB_Report>)";

class MatStatPreview : public OtherPreviewSession<CATWBVPMNavMatStatPreview>
{
protected:
    std::vector<Cells> RowsOf(const char* list) const { return Rows(List(list)); }
    /// The names in the list, row by row.
    Cells Names(const char* list) const
    {
        Cells names;
        for (const Cells& row : RowsOf(list)) {
            names.push_back(row[1]);
        }
        return names;
    }
};

} // namespace

// The window

TEST_F(MatStatPreview, ControlsStandInTheirCells)
{
    Built(kDesk, kWithParts);
    ExpectPlaced(*preview, {{"MultiListMatStatFrame", "CATWBVPMNavMatStatPreview", {0, 0, 1, 1}},
                            {kRootMaterials, "MultiListMatStatFrame", {0, 0, 1, 1}},
                            {kPartMaterials, "MultiListMatStatFrame", {1, 0, 1, 1}},
                            {"MultiListMassTypeFrame", "CATWBVPMNavMatStatPreview", {0, 1, 1, 1}},
                            {kRootMassTypes, "MultiListMassTypeFrame", {0, 0, 1, 1}},
                            {kPartMassTypes, "MultiListMassTypeFrame", {1, 0, 1, 1}},
                            {"OptionFrame", "CATWBVPMNavMatStatPreview", {1, 0, 1, 2}},
                            {"UnitsDisplay", "OptionFrame", {1, 0, 1, 1}},
                            {"TrailingZero", "OptionFrame", {1, 1, 1, 1}},
                            {"DigitsDisplay", "OptionFrame", {1, 2, 1, 1}},
                            {"UnitsNote", "OptionFrame", {1, 3, 1, 1}},
                            {"PushButtonFrame", "CATWBVPMNavMatStatPreview", {2, 0, 1, 2}},
                            {"SavePushButton", "PushButtonFrame", {0, 0, 1, 1}},
                            {"SaveAsPushButton", "PushButtonFrame", {0, 1, 1, 1}},
                            {"ClosePushButton", "PushButtonFrame", {0, 2, 1, 1}}});
    EXPECT_EQ(Look<CATDialog>(*preview, "SelectionFrame"), nullptr);
}

TEST_F(MatStatPreview, OnlyAFlagOfOneAsksForPartInstances)
{
    for (const unsigned char flag : std::array<unsigned char, 3>{0, 2, 255}) {
        Built(kDesk, flag);
        EXPECT_NE(Look<CATDlgMultiList>(*preview, kRootMaterials), nullptr);
        EXPECT_NE(Look<CATDlgMultiList>(*preview, kRootMassTypes), nullptr);
        EXPECT_EQ(Look<CATDlgMultiList>(*preview, kPartMaterials), nullptr);
        EXPECT_EQ(Look<CATDlgMultiList>(*preview, kPartMassTypes), nullptr);
    }
}

constexpr std::array kTexts{
    ShownText{"MultiListMatStatFrame", "Materials", "Werkstoffe"},
    ShownText{"MultiListMassTypeFrame", "Mass types", "Massentypen"},
    ShownText{"OptionFrame", "Display", "Anzeige"},
    ShownText{"UnitsDisplay", "Show units", "Einheiten anzeigen"},
    ShownText{"TrailingZero", "Show trailing zeros", "Nullen am Ende anzeigen"},
    ShownText{"SavePushButton", "Save", "Speichern"},
    ShownText{"SaveAsPushButton", "Save as...", "Speichern unter..."},
    ShownText{"ClosePushButton", "Close", "Schließen"}};

TEST_F(MatStatPreview, TextsAreEnglish)
{
    Built(kDesk, kWithParts).SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Material statistics of Legs");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.english);
    }
    EXPECT_THAT(Titles(List(kRootMaterials)),
                ElementsAre("Instance", "Material", "Mass", "Density", "Share of mass"));
    EXPECT_THAT(Titles(List(kPartMaterials)),
                ElementsAre("Instance", "Material", "Mass", "Density", "Share of mass", "Path"));
    EXPECT_THAT(Titles(List(kRootMassTypes)),
                ElementsAre("Instance", "Mass type", "Mass", "Share of mass"));
    EXPECT_THAT(Titles(List(kPartMassTypes)),
                ElementsAre("Instance", "Mass type", "Mass", "Share of mass", "Path"));
}

TEST_F(MatStatPreview, TextsAreGermanForThoseWhoSpeakIt)
{
    CATMsgCatalog::SetLanguage("de");
    Built(kDesk, kWithParts).SetVisibility(true);
    EXPECT_EQ(preview->Title(), "Werkstoffstatistik für Legs");
    for (const ShownText& text : kTexts) {
        EXPECT_EQ(Find<CATDialog>(*preview, text.control).Title(), text.german);
    }
    EXPECT_THAT(Titles(List(kRootMaterials)),
                ElementsAre("Instanz", "Werkstoff", "Masse", "Dichte", "Massenanteil"));
    EXPECT_THAT(Titles(List(kPartMaterials)),
                ElementsAre("Instanz", "Werkstoff", "Masse", "Dichte", "Massenanteil", "Pfad"));
    EXPECT_THAT(Titles(List(kRootMassTypes)),
                ElementsAre("Instanz", "Massentyp", "Masse", "Massenanteil"));
    EXPECT_THAT(Titles(List(kPartMassTypes)),
                ElementsAre("Instanz", "Massentyp", "Masse", "Massenanteil", "Pfad"));
}

TEST_F(MatStatPreview, NumbersStandAtTheRight)
{
    Built(kDesk, kWithParts);
    const auto right = [this](const char* name) {
        const CATDlgMultiList& list = List(name);
        const auto* model = qobject_cast<QAbstractItemView*>(list.Widget())->model();
        std::vector<int> columns;
        for (int column = 0; column < list.ColumnCount(); ++column) {
            const QVariant alignment =
                model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
            if ((alignment.toInt() & Qt::AlignRight) != 0) {
                columns.push_back(column);
            }
        }
        return columns;
    };
    EXPECT_THAT(right(kRootMaterials), ElementsAre(2, 3, 4));
    EXPECT_THAT(right(kPartMaterials), ElementsAre(2, 3, 4));
    EXPECT_THAT(right(kRootMassTypes), ElementsAre(2, 3));
    EXPECT_THAT(right(kPartMassTypes), ElementsAre(2, 3));
    // Whatever the cells hold, or none of them.
    Built(R"(<R><PRC><MaterialStat Name="10" Density="x"/></PRC></R>)", kWithParts);
    EXPECT_THAT(right(kRootMaterials), ElementsAre(2, 3, 4));
    EXPECT_THAT(right(kPartMassTypes), ElementsAre(2, 3));
}

TEST_F(MatStatPreview, TitlesTellTheUnitsOfTheUser)
{
    Built(kDesk, kWithParts);
    for (const char* list : {kRootMaterials, kPartMaterials}) {
        EXPECT_EQ(TitleTooltip(List(list), "Mass"), "in lb") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Density"), "in g/cm3, of surfaces in g/cm2") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Share of mass"), "in %") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Material"), "") << list;
    }
    for (const char* list : {kRootMassTypes, kPartMassTypes}) {
        EXPECT_EQ(TitleTooltip(List(list), "Mass"), "in lb") << list;
        EXPECT_EQ(TitleTooltip(List(list), "Share of mass"), "in %") << list;
    }
    EXPECT_EQ(Find<CATDlgLabel>(*preview, "UnitsNote").Title(), "Units: lb, g/cm3, g/cm2");
}

TEST_F(MatStatPreview, ListsAreSpokenOfByWhatTheyHold)
{
    Built(kDesk, kWithParts);
    EXPECT_EQ(List(kRootMaterials).Widget()->accessibleName(), "Materials of the product");
    EXPECT_EQ(List(kPartMaterials).Widget()->accessibleName(), "Materials of part instances");
    EXPECT_EQ(List(kRootMassTypes).Widget()->accessibleName(), "Mass types of the product");
    EXPECT_EQ(List(kPartMassTypes).Widget()->accessibleName(), "Mass types of part instances");
}

TEST_F(MatStatPreview, EmptyListsSayWhatTheyLack)
{
    Built("<R><PRC/></R>", kWithParts).SetVisibility(true);
    ExpectEmptyText(List(kRootMaterials), "No materials");
    ExpectEmptyText(List(kPartMaterials), "No materials");
    ExpectEmptyText(List(kRootMassTypes), "No mass types");
    ExpectEmptyText(List(kPartMassTypes), "No mass types");
}

TEST_F(MatStatPreview, ListsShareTheRoomSideBySide)
{
    Built(kDesk, kWithParts).SetVisibility(true);
    preview->Widget()->resize(1024, 700);
    Process();
    const auto size = [this](const char* list) {
        return List(list).Widget()->size();
    };
    EXPECT_GT(size(kRootMaterials).width(), 540); // six columns, and long names
    EXPECT_GT(size(kRootMassTypes).width(), 360); // five
    EXPECT_GT(size(kRootMaterials).height(), 120);
    EXPECT_GT(size(kPartMaterials).height(), size(kRootMaterials).height());
    const QWidget* close = Find<CATDialog>(*preview, "ClosePushButton").Widget();
    EXPECT_LE(close->mapTo(preview->Widget(), QPoint(close->width(), 0)).x(), 1024);
    EXPECT_LE(close->mapTo(preview->Widget(), QPoint(0, close->height())).y(), 700);
    preview->Widget()->resize(1024, 1400);
    Process();
    EXPECT_LT(Find<CATDialog>(*preview, "OptionFrame").Widget()->height(), 120);
    // Twice the lines, twice the height.
    EXPECT_GT(size(kPartMaterials).height(), size(kRootMaterials).height() * 9 / 5);
    EXPECT_GT(size(kPartMassTypes).height(), size(kRootMassTypes).height() * 9 / 5);
}

// Rows

TEST_F(MatStatPreview, StatisticsOfTheRootStandLastFirstAndWithoutTheirPath)
{
    Built(kDesk);
    EXPECT_THAT(RowsOf(kRootMaterials), ElementsAre(Cells{"D1", "Steel", "2", "7.85", "33.3"},
                                                    Cells{"D1", "Paint", "1", "0.01", "16.7"},
                                                    Cells{"D1", "Oak", "3", "0.7", "50"}));
    EXPECT_THAT(RowsOf(kRootMassTypes), ElementsAre(Cells{"D1", "Supplier", "2", "33.3"},
                                                    Cells{"D1", "Weighed", "4", "66.7"}));
}

TEST_F(MatStatPreview, StatisticsOfPartInstancesFollowTheDocumentAndShowTheirPath)
{
    Built(kDesk, kWithParts);
    EXPECT_THAT(RowsOf(kPartMaterials),
                ElementsAre(Cells{"Leg.1", "Steel", "2", "7.85", "100", "D1/Leg.1"}));
    EXPECT_THAT(RowsOf(kPartMassTypes),
                ElementsAre(Cells{"Leg.1", "Supplier", "2", "100", "D1/Leg.1"},
                            Cells{"Foot.1", "Estimated", "0", "0", "D1/Leg.1/Foot.1"}));
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("Steel", "Paint", "Oak"));
}

TEST_F(MatStatPreview, StatisticsOfEachPartInstanceStandLastFirst)
{
    Built(R"(<R><PRC/><PartInstance><MaterialStat Name="A"/><MaterialStat Name="B"/>)"
          R"(<MaterialStat Name="C"/></PartInstance>)"
          R"(<PartInstance><MaterialStat Name="D"/><MaterialStat Name="E"/></PartInstance></R>)",
          kWithParts);
    EXPECT_THAT(Names(kPartMaterials), ElementsAre("C", "B", "A", "E", "D"));
    EXPECT_THAT(Names(kRootMaterials), IsEmpty());
}

TEST_F(MatStatPreview, OnlyChildrenOfExactlyThoseNamesAreStatistics)
{
    Built(
        R"(<R><PRC>text<MaterialStat Name="A"/><materialstat Name="B"/><?MaterialStats?>)"
        R"(<!--MassTypeStat--><X><MaterialStat Name="C"/></X><MassTypeStats Name="D"/> </PRC></R>)");
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("A"));
    EXPECT_THAT(Names(kRootMassTypes), IsEmpty());
}

TEST_F(MatStatPreview, AChildOfThatNameIsAStatisticWhateverItIs)
{
    Built(R"(<R><PRC><?MaterialStat Name="A"?><MaterialStat Name="B"/><?MassTypeStat?></PRC></R>)");
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("B", ""));
    EXPECT_THAT(Names(kRootMassTypes), ElementsAre(""));
    EXPECT_THAT(trace.Sentences(), Contains("Could not get the value of the attribute Name"));
}

TEST_F(MatStatPreview, AMissingValueIsTracedAndLeavesItsCellEmpty)
{
    Built(R"(<R><PRC><MassTypeStat InstanceID="D1" Name="Weighed" Mass_ratio="100"/></PRC></R>)");
    EXPECT_THAT(RowsOf(kRootMassTypes), ElementsAre(Cells{"D1", "Weighed", "", "100"}));
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Could not get the value of the attribute Mass",
                            "Could not get the value of the attribute InstancePath"));
}

TEST_F(MatStatPreview, AStatisticThatSaysNothingHasItsRowAllTheSame)
{
    Built(R"(<R><PRC><MaterialStat Name="A"/><MaterialStat/><MaterialStat Name="C"/></PRC></R>)");
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("C", "", "A"));
}

TEST_F(MatStatPreview, WithoutARootNothingIsShown)
{
    Built(R"(<R><PartInstance><MaterialStat Name="A"/></PartInstance></R>)", kWithParts);
    EXPECT_THAT(RowsOf(kPartMaterials), IsEmpty());
    EXPECT_THAT(RowsOf(kRootMaterials), IsEmpty());
    EXPECT_NE(Look<CATDialog>(*preview, "OptionFrame"), nullptr);
}

TEST_F(MatStatPreview, OnlyTheFirstRootIsShown)
{
    Built(R"(<R><PRC><MaterialStat Name="A"/></PRC><PRC><MaterialStat Name="B"/></PRC></R>)");
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("A"));
}

TEST_F(MatStatPreview, RowsFollowTheDocument)
{
    Built(kDesk, kWithParts);
    const CATIDOMNode_var root = document->ElementsByTagName("PRC")->Item(0);
    root->RemoveChild(root->FirstChild());
    preview->UpdatePreviewPanelList();
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("Steel", "Paint"));
    document->DocumentElement()->RemoveChild(root);
    preview->UpdatePreviewPanelList();
    for (const char* list : {kRootMaterials, kRootMassTypes, kPartMaterials, kPartMassTypes}) {
        EXPECT_THAT(RowsOf(list), IsEmpty());
    }
}

TEST_F(MatStatPreview, PartInstancesThatCannotBeSearchedAreNotShown)
{
    AnsweringDocument report(kDesk);
    report.missing = "PartInstance";
    Of(report.Handle(), kWithParts).Build();
    EXPECT_THAT(RowsOf(kPartMaterials), IsEmpty());
    EXPECT_THAT(RowsOf(kRootMaterials), SizeIs(3));
}

TEST_F(MatStatPreview, PartInstancesAreNotSearchedUnlessAskedFor)
{
    AnsweringDocument report(kDesk);
    Of(report.Handle(), 0).Build();
    EXPECT_THAT(report.asked, testing::Not(Contains("PartInstance")));
}

TEST_F(MatStatPreview, AFillEndsAtAnInstanceWhoseChildrenCannotBeRead)
{
    AnsweringDocument report(kDesk);
    const CATIDOMNodeList_var real = report.Handle()->ElementsByTagName("PartInstance");
    report.parts =
        NodesAsTold::List({real->Item(0), ElementAsTold::WithChildren({}), real->Item(1)});
    Of(report.Handle(), kWithParts).Build();
    EXPECT_THAT(Names(kPartMassTypes), ElementsAre("Supplier"));
    EXPECT_THAT(trace.Sentences(),
                ElementsAre("Could not retrieve the children of the Part Instance node"));
}

TEST_F(MatStatPreview, AFillEndsAtAnItemThatIsNoElement)
{
    AnsweringDocument report(kDesk);
    const CATIDOMNodeList_var real = report.Handle()->ElementsByTagName("PartInstance");
    const CATIDOMDocument_var other = Parsed("<R>text</R>");
    report.parts =
        NodesAsTold::List({real->Item(0), other->DocumentElement()->FirstChild(), real->Item(1)});
    Of(report.Handle(), kWithParts).Build();
    EXPECT_THAT(Names(kPartMassTypes), ElementsAre("Supplier"));
    EXPECT_THAT(trace.Sentences(), IsEmpty());
}

TEST_F(MatStatPreview, ANodeIsPrintedAsTheDocumentHoldsIt)
{
    Built(kDesk);
    const CATIDOMElement_var steel = document->ElementsByTagName("MaterialStat")->Item(2);
    EXPECT_EQ(preview->PrintNode(steel, "Mass", 1, 3, &List(kRootMaterials)), S_OK);
    EXPECT_EQ(List(kRootMaterials).Cell(1, 4), "2");
    EXPECT_EQ(preview->PrintNode(steel, "mass", 1, 0, &List(kRootMaterials)), E_FAIL);
    EXPECT_EQ(List(kRootMaterials).Cell(1, 1), "Steel");
    EXPECT_EQ(trace.lines.back(), "Could not get the value of the attribute mass");
}

TEST_F(MatStatPreview, ManyPartInstancesAreShown)
{
    constexpr int kMany = 2000;
    std::string report = "<R><PRC>";
    for (int number = 1; number <= kMany; ++number) {
        report += R"(<PartInstance><MassTypeStat Name=")" + std::to_string(number) +
                  R"("/></PartInstance>)";
    }
    Built(report + "</PRC></R>", kWithParts);
    EXPECT_EQ(List(kPartMassTypes).RowCount(), kMany);
    EXPECT_EQ(List(kPartMassTypes).Cell(1, kMany), "2000");
}

TEST_F(MatStatPreview, AStableOrderIsNotAskedFor)
{
    CATSettingRepository::GetRepository("VPMNavigator")->RemoveSetting("StableOrdering");
    Built(kDesk);
    EXPECT_THAT(boxes, IsEmpty());
    UseStableOrder(1);
    Built(kDesk, kWithParts);
    EXPECT_THAT(Names(kRootMaterials), ElementsAre("Steel", "Paint", "Oak"));
}

// Units

TEST_F(MatStatPreview, DensitiesOfSurfacesHaveAUnitOfTheirOwnAndSharesAPercentSign)
{
    Built(kDesk, kWithParts);
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(RowsOf(kRootMaterials),
                ElementsAre(Cells{"D1", "Steel", "2lb", "7.85g/cm3", "33.3%"},
                            Cells{"D1", "Paint", "1lb", "0.01g/cm2", "16.7%"},
                            Cells{"D1", "Oak", "3lb", "0.7g/cm3", "50%"}));
    EXPECT_THAT(RowsOf(kPartMassTypes),
                ElementsAre(Cells{"Leg.1", "Supplier", "2lb", "100%", "D1/Leg.1"},
                            Cells{"Foot.1", "Estimated", "0lb", "0%", "D1/Leg.1/Foot.1"}));
    Click(*preview, "UnitsDisplay");
    EXPECT_THAT(RowsOf(kRootMassTypes), ElementsAre(Cells{"D1", "Supplier", "2", "33.3"},
                                                    Cells{"D1", "Weighed", "4", "66.7"}));
}

TEST_F(MatStatPreview, UnitsAreNamedOnTheDocumentElement)
{
    Built("<R><PRC/></R>");
    EXPECT_EQ(Written(document),
              R"(<R MassUnit="lb" DensityUnit="g/cm3" SurfacicDensityUnit="g/cm2"><PRC/></R>)");
}

TEST_F(MatStatPreview, ConversionAndDisplayAreOperationsOfTheirOwn)
{
    Make("<R/>");
    CATIDOMDocument_var report = Parsed(R"(<R><MassTypeStat Mass="0.45359237"/></R>)");
    const auto mass = [&report] {
        return CATIDOMElement_var(report->DocumentElement()->FirstChild())->AttributeText(0);
    };
    preview->ManageUnitsConversion(report, 1, 0);
    EXPECT_EQ(mass(), "1lb");
    preview->ManageUnitsDisplay(report, 0, -1);
    EXPECT_EQ(mass(), "1.000");
    preview->ManageUnitsDisplay(report, 2, 1);
    EXPECT_EQ(mass(), "1.0lb");
    preview->ManageUnitsConversion(report, 0, 2);
    EXPECT_EQ(mass(), "2.20"); // a pound taken for a kilogram
    CATIDOMDocument_var none;
    EXPECT_NO_THROW(preview->ManageUnitsConversion(none, 1, 0));
    EXPECT_NO_THROW(preview->ManageUnitsDisplay(none, 1, 0));
    EXPECT_THAT(trace.lines,
                testing::IsSupersetOf({"ManageUnitsConversion", "ManageUnitsDisplay"}));
}

TEST_F(MatStatPreview, AReportIsConvertedOnceForAllCopies)
{
    Make(kDesk);
    auto* copy = new CATWBVPMNavMatStatPreview(*preview); // the command tree owns both
    auto* copyOfBuilt = new CATWBVPMNavMatStatPreview("", {}, 0);
    preview->Build();
    copy->Build();
    *copyOfBuilt = *copy;
    copyOfBuilt->Build();
    for (const CATWBVPMNavMatStatPreview* each :
         {static_cast<CATWBVPMNavMatStatPreview*>(preview), copy, copyOfBuilt}) {
        EXPECT_EQ(Find<CATDlgMultiList>(*each, kRootMaterials).Cell(2, 1), "2");
    }
}

TEST_F(MatStatPreview, AnAssignedReportIsConvertedAndShownByTheOptionsOfTheWindow)
{
    auto* other =
        new CATWBVPMNavMatStatPreview("Desk", Parsed(kDesk), 1); // the command tree owns it
    Built("<R><PRC/></R>");
    Click(*preview, "UnitsDisplay");
    *preview = *other;
    EXPECT_EQ(preview->Title(), "Material statistics of Desk");
    EXPECT_EQ(List(kRootMaterials).Cell(2, 1), "2lb");
    EXPECT_EQ(Look<CATDlgMultiList>(*preview, kPartMaterials), nullptr);
    other->Build();
    EXPECT_EQ(Find<CATDlgMultiList>(*other, kPartMaterials).Cell(2, 1), "2");
}

TEST_F(MatStatPreview, APreviewThatIsBuiltAfterwardsShowsThePartInstancesOfWhatItWasAssigned)
{
    Make(kDesk, kWithParts);
    auto* other = new CATWBVPMNavMatStatPreview("", {}, 0); // the command tree owns it
    *other = *preview;
    other->Build();
    EXPECT_EQ(Find<CATDlgMultiList>(*other, kPartMaterials).RowCount(), 1);
}
