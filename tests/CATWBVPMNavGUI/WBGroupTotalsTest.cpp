#include "WBGroupTotals.h"
#include "GroupProduct.h"
#include "PanelSession.h"
#include "WBGroupTotalsFrame.h"

namespace
{

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kNone = WBGroupFigures::kNone;

WBGroupMember Member(double mass, double x, double y = 0.0, double z = 0.0)
{
    return {mass, std::array{x, y, z}, false};
}

class WBDescribeTotalsTest : public PanelSession
{};

} // namespace

TEST(WBAddUp, MassesAddAndCentresAreWeighted)
{
    // (2 * 10 + 3 * 20) / 5 = 16, (2 * 1 + 3 * 6) / 5 = 4, (2 * -5 + 3 * 0) / 5 = -2.
    const WBGroupTotals totals = WBAddUp({Member(2, 10, 1, -5), Member(3, 20, 6, 0)}, 50.0);
    EXPECT_EQ(totals.items, 2);
    EXPECT_EQ(totals.mass, 5.0);
    ASSERT_TRUE(totals.centre);
    EXPECT_THAT(*totals.centre, ElementsAre(DoubleEq(16), DoubleEq(4), DoubleEq(-2)));
    EXPECT_EQ(totals.share, 0.1);
    EXPECT_EQ(totals.withoutMass, 0);
    EXPECT_EQ(totals.withoutCentre, 0);
    EXPECT_EQ(totals.incomplete, 0);
}

TEST(WBAddUp, MassWithoutCentreStandsAtTheCentreOfTheRest)
{
    const WBGroupTotals totals = WBAddUp({Member(2, 10), {7.0, std::nullopt}}, 90.0);
    EXPECT_EQ(totals.mass, 9.0);
    EXPECT_THAT(totals.centre.value(), ElementsAre(DoubleEq(10), 0, 0));
    EXPECT_EQ(totals.withoutCentre, 1);
    EXPECT_EQ(totals.share, 0.1);
}

TEST(WBAddUp, ItemWithoutMassCountsAsAnItemAndAddsNothing)
{
    const WBGroupTotals totals =
        WBAddUp({Member(2, 10), {std::nullopt, std::array{9.0, 9.0, 9.0}}}, 4.0);
    EXPECT_EQ(totals.items, 2);
    EXPECT_EQ(totals.mass, 2.0);
    EXPECT_THAT(totals.centre.value(), ElementsAre(DoubleEq(10), 0, 0));
    EXPECT_EQ(totals.withoutMass, 1);
    EXPECT_EQ(totals.withoutCentre, 0);
}

TEST(WBAddUp, NothingIsKnownWhereNobodyHasAMass)
{
    const WBGroupTotals totals = WBAddUp({WBGroupMember()}, 4.0);
    EXPECT_EQ(totals.items, 1);
    EXPECT_EQ(totals.mass, std::nullopt);
    EXPECT_EQ(totals.centre, std::nullopt);
    EXPECT_EQ(totals.share, std::nullopt);
    EXPECT_EQ(WBAddUp({}, 4.0).mass, std::nullopt);
}

TEST(WBAddUp, MassesThatCancelHaveNoCentre)
{
    const WBGroupTotals totals = WBAddUp({Member(2, 10), Member(-2, 30)}, 4.0);
    EXPECT_EQ(totals.mass, 0.0);
    EXPECT_EQ(totals.centre, std::nullopt);
    EXPECT_EQ(totals.share, 0.0);
}

TEST(WBAddUp, ShareOfAProductWithoutMassIsUnknown)
{
    EXPECT_EQ(WBAddUp({Member(2, 10)}, std::nullopt).share, std::nullopt);
    EXPECT_EQ(WBAddUp({Member(2, 10)}, 0.0).share, std::nullopt);
}

TEST(WBAddUp, IncompleteItemsAreCountedOnceAndOnlyWhereTheyHaveFigures)
{
    const WBGroupTotals totals = WBAddUp({{2.0, std::array{1.0, 1.0, 1.0}, true},
                                          {2.0, std::nullopt, true},
                                          {std::nullopt, std::nullopt, true}},
                                         4.0);
    EXPECT_EQ(totals.incomplete, 1);
    EXPECT_EQ(totals.withoutCentre, 1);
    EXPECT_EQ(totals.withoutMass, 1);
}

TEST(WBCoveringRows, ItemIsCoveredByTheNearestOfItsAssembliesThatIsThereToo)
{
    const WBGroupFigures figures = FiguresOf(
        R"(<WB_Report><PRC><PartInstance Instance_ID="A" Part_ID="P"><PartInstance Instance_ID="B" )"
        R"(Part_ID="P"><PartInstance Instance_ID="C" Part_ID="P"/></PartInstance></PartInstance>)"
        R"(<PartInstance Instance_ID="D" Part_ID="P"/></PRC></WB_Report>)");
    EXPECT_THAT(WBCoveringRows(figures, {2, 0, 3}), ElementsAre(0, kNone, kNone));
    EXPECT_THAT(WBCoveringRows(figures, {2, 0, 1}), ElementsAre(1, kNone, 0));
    EXPECT_THAT(WBCoveringRows(figures, {2, kNone}), ElementsAre(kNone, kNone));
    EXPECT_THAT(WBCoveringRows(figures, {}), IsEmpty());
}

TEST(WBTotalsOf, ItemCountsOnceWhenItsAssemblyIsThereToo)
{
    // The wing's 40 kg at 1000 hold the spar's 10; with the tail's 20 at 5000:
    // (40 * 1000 + 20 * 5000) / 60 = 2333.33, 20 * 400 / 60 = 133.33.
    const WBGroupTotals totals = WBTotalsOf(FiguresOf(), {kSpar, kWing, kTail, kNone});
    EXPECT_EQ(totals.items, 2);
    EXPECT_EQ(totals.mass, 60.0);
    EXPECT_EQ(totals.share, 0.6);
    EXPECT_THAT(totals.centre.value(),
                ElementsAre(DoubleEq(140000.0 / 60.0), 0, DoubleEq(8000.0 / 60.0)));
    EXPECT_EQ(totals.incomplete, 1); // the wing: its skin has no centre
}

TEST(WBTotalsOf, WithoutItsAssemblyTheItemCountsByItself)
{
    const WBGroupTotals totals = WBTotalsOf(FiguresOf(), {kSpar, kSkin, kBox});
    EXPECT_EQ(totals.items, 3);
    EXPECT_EQ(totals.mass, 40.0);
    EXPECT_THAT(totals.centre.value(), ElementsAre(DoubleEq(900), 0, 0));
    EXPECT_EQ(totals.withoutCentre, 1);
    EXPECT_EQ(totals.withoutMass, 1);
}

TEST_F(WBDescribeTotalsTest, FiguresStandInTheUsersUnits)
{
    WBGroupTotals totals;
    totals.items = 2;
    totals.mass = 4.5359237;
    totals.centre = std::array{25.4, -50.8, 0.0};
    totals.share = 0.12345;
    WBGroupTotalsTexts texts = WBDescribeTotals(totals);
    EXPECT_EQ(texts.items, "2");
    EXPECT_EQ(texts.mass, "4.536 kg");
    EXPECT_EQ(texts.centre, "x 25.4, y -50.8, z 0 mm");
    EXPECT_EQ(texts.share, "12.3 %");
    EXPECT_EQ(texts.missing, "");
    ShowIn("MASS", "lb");
    ShowIn("LENGTH", "in");
    CATUseNumberLocale("de_DE.UTF-8");
    texts = WBDescribeTotals(totals);
    EXPECT_EQ(texts.mass, "10 lb");
    EXPECT_EQ(texts.centre, "x 1, y -2, z 0 in");
    EXPECT_EQ(texts.share, "12,3 %");
}

TEST_F(WBDescribeTotalsTest, UnknownFiguresAreDashes)
{
    const WBGroupTotalsTexts none = WBDescribeTotals(std::nullopt);
    EXPECT_EQ(none.items, "–");
    EXPECT_EQ(none.mass, "–");
    EXPECT_EQ(none.centre, "–");
    EXPECT_EQ(none.share, "–");
    EXPECT_EQ(none.missing, "");
    WBGroupTotals empty;
    const WBGroupTotalsTexts texts = WBDescribeTotals(empty);
    EXPECT_EQ(texts.items, "0");
    EXPECT_EQ(texts.mass, "–");
    EXPECT_EQ(texts.centre, "–");
    EXPECT_EQ(texts.share, "–");
}

TEST_F(WBDescribeTotalsTest, WhatIsMissingIsCounted)
{
    WBGroupTotals totals;
    totals.withoutMass = 1;
    totals.withoutCentre = 2;
    totals.incomplete = 3;
    EXPECT_EQ(WBDescribeTotals(totals).missing,
              "1 has no mass and counts as nothing. 2 have no centre of gravity and stand at that "
              "of the rest. Of 3 assemblies some parts have no mass or no centre of gravity.");
    totals.withoutMass = 2;
    totals.withoutCentre = 1;
    totals.incomplete = 1;
    EXPECT_EQ(WBDescribeTotals(totals).missing,
              "2 have no mass and count as nothing. 1 has no centre of gravity and stands at that "
              "of the rest. Of 1 assembly some parts have no mass or no centre of gravity.");
}
