#include "GroupProduct.h"

#include "CATIXMLDOMDocumentBuilder.h"

namespace
{

WBGroupFigures DeepProduct(int levels)
{
    std::string report = "<WB_Report><PRC>";
    for (int level = 0; level < levels; ++level) {
        report += R"(<PartInstance Instance_ID="I" Part_ID="P">)";
    }
    for (int level = 0; level < levels; ++level) {
        report += "</PartInstance>";
    }
    return FiguresOf(report + "</PRC></WB_Report>");
}

} // namespace

TEST(WBGroupFigures, InstancesComeInTheOrderOfTheReportWithWhatTheyStandIn)
{
    const WBGroupFigures figures = FiguresOf();
    ASSERT_EQ(figures.Count(), 6);
    EXPECT_EQ(figures.Text(kWing, "Name"), "Wing");
    EXPECT_EQ(figures.Text(kTank, "Name"), "Tank");
    EXPECT_EQ(figures.Parent(kWing), WBGroupFigures::kNone);
    EXPECT_EQ(figures.Parent(kSpar), kWing);
    EXPECT_EQ(figures.Parent(kSkin), kWing);
    EXPECT_EQ(figures.Parent(kTail), WBGroupFigures::kNone);
}

TEST(WBGroupFigures, FiguresThatTheReportLacksAreUnknown)
{
    const WBGroupFigures figures = FiguresOf();
    EXPECT_EQ(figures.Mass(kSkin), 30.0);
    EXPECT_EQ(figures.Mass(kBox), std::nullopt);
    EXPECT_EQ(figures.Centre(kTail), (std::array{5000.0, 0.0, 400.0}));
    EXPECT_EQ(figures.Centre(kSkin), std::nullopt);
    EXPECT_EQ(figures.RootMass(), 100.0);
    EXPECT_EQ(figures.Text(kBox, "Vendor"), "");
    EXPECT_EQ(figures.Text(kBox, figures.Name("Vendor")), std::nullopt);
    EXPECT_EQ(figures.Text(kBox, figures.Name("Never_heard_of")), std::nullopt);
}

TEST(WBGroupFigures, WhatLacksMassOrCentreBelowIsIncompleteAndInertiaDoesNotMatter)
{
    const WBGroupFigures figures = FiguresOf();
    EXPECT_TRUE(figures.IsIncomplete(kTank));
    EXPECT_TRUE(figures.IsIncomplete(kBox));
    EXPECT_FALSE(figures.IsIncomplete(kSpar));
    EXPECT_FALSE(figures.IsIncomplete(kTail));
}

TEST(WBGroupFigures, PickedInstanceIsFoundByItsPlaceAndPart)
{
    const WBGroupFigures figures = FiguresOf();
    EXPECT_EQ(figures.Find(Wing()), kWing);
    EXPECT_EQ(figures.Find(Spar()), kSpar);
    EXPECT_EQ(figures.Find({"SPAR.1", "SPAR", "B", {}}), WBGroupFigures::kNone);
    EXPECT_EQ(figures.Find({"SPAR.1", "SPAR", "B", {"TAIL.1"}}), WBGroupFigures::kNone);
    EXPECT_EQ(figures.Find({"SPAR.1", "SPAR", "B", {"WING.9"}}), WBGroupFigures::kNone);
    EXPECT_EQ(figures.Find({"SPAR.1", "OTHER", "B", {"WING.1"}}), WBGroupFigures::kNone);
}

TEST(WBGroupFigures, NewVersionOfThePartIsTheSameInstance)
{
    EXPECT_EQ(FiguresOf().Find({"SPAR.1", "SPAR", "Z", {"WING.1"}}), kSpar);
}

TEST(WBGroupFigures, RowsTellTheirInstanceAsItIsPicked)
{
    const WBGroupFigures figures = FiguresOf();
    EXPECT_EQ(figures.Instance(kSpar), Spar());
    EXPECT_EQ(figures.Instance(kTail), Tail());
}

TEST(WBGroupFigures, PathsOfManyLevelsAreFollowedFromTheLeafUp)
{
    const WBGroupFigures figures = FiguresOf(
        R"(<WB_Report><PRC><PartInstance Instance_ID="A" Part_ID="PA"><PartInstance Instance_ID="B" )"
        R"(Part_ID="PB"><PartInstance Instance_ID="C" Part_ID="PC" Version="1"/></PartInstance>)"
        R"(</PartInstance></PRC></WB_Report>)");
    EXPECT_EQ(figures.Find({"C", "PC", "1", {"B", "A"}}), 2);
    EXPECT_EQ(figures.Find({"C", "PC", "1", {"A", "B"}}), WBGroupFigures::kNone);
    EXPECT_EQ(figures.Instance(2), (WBPickedInstance{"C", "PC", "1", {"B", "A"}}));
    EXPECT_EQ(figures.RootMass(), std::nullopt);
}

TEST(WBGroupFigures, DeepProductsAreRead)
{
    EXPECT_EQ(DeepProduct(900).Count(), 900);
}

TEST(WBGroupFigures, ReportWithoutProductHasNoInstances)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    CreateCATIXMLDOMDocumentBuilder()->ParseText("<WB_Report/>", document, problem);
    EXPECT_EQ(WBGroupFigures(document).Count(), 0);
}

TEST(WBServerNumber, TakesTheWholeTextOrNothing)
{
    EXPECT_EQ(WBServerNumber("-1.5e3"), -1500.0);
    for (const char* text : {"", "1,5", "1.5 ", "1.5kg", "inf", "nan", "text"}) {
        EXPECT_EQ(WBServerNumber(text), std::nullopt) << text;
    }
}
