#include "WBFacts.h"
#include "WBKnown.h"
#include "WBNumbers.h"
#include "WBPlacement.h"
#include "WBProduct.h"
#include "WBTexts.h"
#include "WBUnits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace wb;
using testing::ElementsAre;

TEST(WBNumbers, ReadsPointAndCommaWhateverTheLocale)
{
    EXPECT_EQ(ReadNumber("3.5"), 3.5);
    EXPECT_EQ(ReadNumber("3,5"), 3.5);
    EXPECT_EQ(ReadNumber("+2"), 2.0);
    EXPECT_EQ(ReadNumber("-1e-3"), -0.001);
}

TEST(WBNumbers, RefusesWhatIsNoFiniteNumber)
{
    for (const char* text :
         {"", "abc", "1.2.3", " 1", "1 ", "inf", "nan", "1e999", "0x10", "+-1", "1.234,5", "+"}) {
        EXPECT_FALSE(ReadNumber(text)) << text;
    }
    EXPECT_FALSE(ReadNumber(std::string(500, '1')));
}

TEST(WBNumbers, ReadsWholeNumbersOnly)
{
    EXPECT_EQ(ReadInteger("+12"), 12);
    EXPECT_EQ(ReadInteger("-3"), -3);
    for (const char* text : {"", "1.0", "x", "99999999999999999999"}) {
        EXPECT_FALSE(ReadInteger(text)) << text;
    }
}

TEST(WBNumbers, WritesFifteenDigitsWithoutNegativeZero)
{
    EXPECT_EQ(WriteNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(WriteNumber(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(WriteNumber(1e20), "1e+20");
    EXPECT_EQ(WriteNumber(-0.0), "0");
    EXPECT_EQ(WriteNumber(12.5), "12.5");
}

TEST(WBNumbers, UnknownTravelsAsZero)
{
    std::string text;
    AppendNumber(text, kUnknown);
    EXPECT_EQ(text, "0");
}

TEST(WBTexts, WhatTheStreamsCannotCarryIsForbidden)
{
    for (const char* text : {"a|b", "a\nb", "\x7F", "__null__", "~", "x#WB_ERROR#y"}) {
        EXPECT_TRUE(ForbiddenText(text)) << text;
    }
    for (const char* text : {"", "a, b", "~3 kg",
                             "Motorenwerk S\xC3\xBC"
                             "d",
                             "#"}) {
        EXPECT_FALSE(ForbiddenText(text)) << text;
    }
}

TEST(WBTexts, WordsOfTheRequestsAreNoMassTypes)
{
    for (const char* name : {"", "Active", "MostPrecise", "Computed"}) {
        EXPECT_TRUE(IsReservedMassType(name)) << name;
    }
    EXPECT_FALSE(IsReservedMassType("Weighed"));
}

TEST(WBTexts, FindsTheFirstByteThatIsNotUtf8)
{
    EXPECT_EQ(FirstNonUtf8("\xC3\xBC \xE2\x82\xAC \xF0\x9F\x9A\x80"), std::nullopt);
    EXPECT_EQ(FirstNonUtf8("ab\xFC"), 2U);
    EXPECT_EQ(FirstNonUtf8("\xC3"), 0U);
    EXPECT_EQ(FirstNonUtf8("\xC0\x80"), 0U);
    EXPECT_EQ(FirstNonUtf8("\xE0\x80\x80"), 0U);
    EXPECT_EQ(FirstNonUtf8("\xED\xA0\x80"), 0U);
    EXPECT_EQ(FirstNonUtf8("\xF4\x90\x80\x80"), 0U);
    EXPECT_EQ(FirstNonUtf8("\xF0\x80\x80\x80"), 0U);
}

TEST(WBTexts, DatesAreThoseOfTheCalendar)
{
    EXPECT_TRUE(IsDate("2026-02-28"));
    EXPECT_TRUE(IsDate("2024-02-29"));
    EXPECT_TRUE(IsDate("2000-02-29"));
    for (const char* text : {"2026-02-29", "1900-02-29", "2026-06-31", "2026-13-01", "2026-00-01",
                             "2026-01-00", "2026/01/01", "26-01-01", "2026-1-1", "2026-01-0x"}) {
        EXPECT_FALSE(IsDate(text)) << text;
    }
}

TEST(WBTexts, NearestNameDiffersInTheFewestLetters)
{
    EXPECT_EQ(NearestName("Mas", std::vector<std::string>{"name", "mass", "code"}), "mass");
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3U);
    EXPECT_EQ(EditDistance("", "abc"), 3U);
}

namespace
{
double Stored(const char* magnitude, const char* unit, double typed)
{
    const Magnitude* found = FindMagnitude(magnitude);
    const Unit* symbol = found == nullptr ? nullptr : FindUnit(*found, unit);
    return symbol == nullptr ? -1.0 : ToStorage(*symbol, typed);
}
} // namespace

TEST(WBUnits, LegalDefinitionsHoldToTheLastDigit)
{
    EXPECT_EQ(Stored("LENGTH", "in", 1), 25.4);
    EXPECT_EQ(Stored("LENGTH", "ft", 1), 304.8);
    EXPECT_EQ(Stored("LENGTH", "km", 2), 2e6);
    EXPECT_EQ(Stored("MASS", "lb", 1), 0.45359237);
    EXPECT_EQ(Stored("MASS", "oz", 16), 0.45359237);
    EXPECT_EQ(Stored("MASS", "slug", 0.3048), 0.45359237 * 9.80665);
    EXPECT_EQ(Stored("MASS", "mg", 1), 1e-6);
    EXPECT_DOUBLE_EQ(Stored("INERTIAMOMENT", "lb.in2", 1), 0.0002926396534292);
    EXPECT_DOUBLE_EQ(Stored("INERTIAMOMENT", "lb.ft2", 1), 0.0421401100938048);
    EXPECT_DOUBLE_EQ(Stored("INERTIAMOMENT", "slug.ft2", 1), 1.3558179483314004);
    EXPECT_EQ(Stored("INERTIAMOMENT", "g.mm2", 1), 1e-9);
    EXPECT_EQ(Stored("INERTIAMOMENT", "kg.mm2", 1), 1e-6);
    EXPECT_EQ(Stored("DENSITY", "g/cm3", 2.78), 2780.0);
    EXPECT_DOUBLE_EQ(Stored("DENSITY", "lb/in3", 1), 27679.904710203122);
    EXPECT_DOUBLE_EQ(Stored("DENSITY", "lb/ft3", 1), 16.018463373960142);
    EXPECT_EQ(Stored("SURFACICMASS", "g/cm2", 1), 10.0);
    EXPECT_DOUBLE_EQ(Stored("SURFACICMASS", "lb/ft2", 1), 4.88242763638305);
    EXPECT_EQ(Stored("VOLUME", "mm3", 1), 1e-9);
    EXPECT_EQ(Stored("VOLUME", "L", 1), 0.001);
    EXPECT_DOUBLE_EQ(Stored("VOLUME", "in3", 1), 1.6387064e-5);
    EXPECT_DOUBLE_EQ(Stored("VOLUME", "ft3", 1), 0.028316846592);
    EXPECT_DOUBLE_EQ(Stored("AREA", "in2", 1), 0.00064516);
    EXPECT_DOUBLE_EQ(Stored("AREA", "ft2", 1), 0.09290304);
    EXPECT_DOUBLE_EQ(Stored("ANGLE", "deg", 180), 3.14159265358979323846);
    EXPECT_EQ(Stored("TIME", "h", 3.5), 12600.0);
    EXPECT_EQ(Stored("POWER", "kW", 2), 2000.0);
    EXPECT_DOUBLE_EQ(Stored("FORCE", "lbf", 1), 4.4482216152605);
    EXPECT_EQ(Stored("TEMPERATURE", "degC", 20), 293.15);
    EXPECT_EQ(Stored("PRESSURE", "bar", 1), 1e5);
    EXPECT_EQ(Stored("ELECTRIC_CHARGE", "A.h", 2), 7200.0);
    EXPECT_EQ(Stored("RATIO", "%", 5), 5.0);
}

TEST(WBUnits, EveryMagnitudeStoresItsFirstUnitUnchanged)
{
    for (const Magnitude& magnitude : Magnitudes()) {
        EXPECT_EQ(ToStorage(magnitude.units[0], 1.25), 1.25) << magnitude.name;
    }
}

TEST(WBUnits, MagnitudesAreFoundInAnyCaseAndUnitsLetterForLetter)
{
    ASSERT_NE(FindMagnitude("torque"), nullptr);
    EXPECT_EQ(FindMagnitude("WEIGHT"), nullptr);
    EXPECT_EQ(FindUnit(*FindMagnitude("MASS"), "Mg"), nullptr);
    EXPECT_EQ(MagnitudesOfUnit("N.m").size(), 2U);
    EXPECT_EQ(MagnitudesOfUnit("W").size(), 1U);
    EXPECT_TRUE(MagnitudesOfUnit("parsec").empty());
    EXPECT_EQ(UnitList(*FindMagnitude("FORCE")), "N, kN, lbf");
}

TEST(WBPlacement, QuarterTurnsAreExact)
{
    const Placement::Matrix expected{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}};
    EXPECT_EQ(RotationFromAngles(0, 0, 90), expected);
    EXPECT_EQ(RotationFromAngles(0, 0, -270), expected);
    EXPECT_EQ(RotationFromAngles(0, 0, 450), expected);
    EXPECT_EQ(RotationFromAngles(180, 0, 0),
              (Placement::Matrix{{{1, 0, 0}, {0, -1, 0}, {0, 0, -1}}}));
}

TEST(WBPlacement, ThirtyDegreesAboutZKeepRowsAndColumnsApart)
{
    const auto rotation = RotationFromAngles(0, 0, 30);
    EXPECT_NEAR(rotation[0][0], 0.8660254037844387, 1e-15);
    EXPECT_NEAR(rotation[0][1], -0.5, 1e-15);
    EXPECT_NEAR(rotation[1][0], 0.5, 1e-15);
    EXPECT_NEAR(rotation[1][1], 0.8660254037844387, 1e-15);
}

TEST(WBPlacement, TurnsGoAboutTheParentsFixedAxesXThenYThenZ)
{
    // The part's x axis: about x nothing, about y by 90 to -z, about z nothing more.
    const auto rotation = RotationFromAngles(90, 90, 0);
    EXPECT_EQ(rotation, (Placement::Matrix{{{0, 1, 0}, {0, 0, -1}, {-1, 0, 0}}}));
}

TEST(WBPlacement, InnerPlacementIsTurnedAndShiftedByTheOuter)
{
    const Placement outer{RotationFromAngles(0, 0, 90), {100, 0, 0}};
    const Placement inner{RotationFromAngles(0, 0, 90), {10, 5, 1}};
    const Placement both = outer * inner;
    EXPECT_THAT(both.shift, ElementsAre(95, 10, 1));
    EXPECT_EQ(both.rotation, RotationFromAngles(0, 0, 180));
}

TEST(WBPlacement, CoefficientsAreTheImagesOfTheAxesThenTheShift)
{
    const Placement placement{RotationFromAngles(0, 0, 90), {1, 2, 3}};
    EXPECT_THAT(Coefficients(placement), ElementsAre(0, 1, 0, -1, 0, 0, 0, 0, 1, 1, 2, 3));
}

TEST(WBPlacement, TellsRotationsFromOtherMatrices)
{
    EXPECT_LT(OffOrthogonal(RotationFromAngles(10, 20, 30)), 1e-15);
    EXPECT_NEAR(OffOrthogonal({{{1.1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}), 0.21, 1e-12);
    EXPECT_NEAR(OffOrthogonal({{{1, 0.1, 0}, {0, 1, 0}, {0, 0, 1}}}), 0.1, 1e-12);
    EXPECT_EQ(Determinant({{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}), -1.0);
    EXPECT_EQ(Determinant({{{2, 3, 5}, {7, 11, 13}, {17, 19, 23}}}), -78.0);
}

TEST(WBFacts, LineOfAFactIsItsOwnOrTheFirst)
{
    FactLines lines;
    lines.State(Fact::Mass, 4);
    lines.State(Fact::Upper, 4);
    lines.State(Fact::CgX, 9);
    EXPECT_EQ(lines.LineOf(Fact::Mass), 4U);
    EXPECT_EQ(lines.LineOf(Fact::CgX), 9U);
    EXPECT_EQ(lines.First(), 4U);
}

TEST(WBFacts, NumbersKeepTheirTextAndUnitAsTyped)
{
    std::string typed;
    KeepTyped(typed, "mass", "3.90", "lb");
    KeepTyped(typed, "lower", "1", "");
    EXPECT_EQ(typed, "mass=3.90 lb|lower=1");
    EXPECT_EQ(TypedText(typed, "mass"), "3.90 lb");
    EXPECT_EQ(TypedText(typed, "lower"), "1");
    EXPECT_EQ(TypedText(typed, "low"), "");
    EXPECT_EQ(TypedText("", "mass"), "");
}

TEST(WBFacts, EveryFactHasItsColumnsName)
{
    EXPECT_STREQ(FactName(Fact::SigmaIyz), "sigma_iyz");
    EXPECT_STREQ(FactName(Fact::Quantity), "quantity");
    EXPECT_STREQ(FactName(Fact::DocumentMass), "doc_mass");
    EXPECT_EQ(kSetNumbers, 26U);
}

TEST(WBProduct, CycleIsNamedFromAndToItsFirstNode)
{
    EXPECT_THAT(FindCycle({{1}, {2}, {3, 1}, {}}), ElementsAre(1, 2, 1));
    EXPECT_THAT(FindCycle({{0}}), ElementsAre(0, 0));
    EXPECT_TRUE(FindCycle({{1, 2}, {3}, {3}, {}}).empty());
}

TEST(WBProduct, TypeFollowsFromUseWhereItIsNotStated)
{
    EXPECT_EQ(EffectiveType(PartType::Unstated, false, true), PartType::Product);
    EXPECT_EQ(EffectiveType(PartType::Unstated, true, true), PartType::Assembly);
    EXPECT_EQ(EffectiveType(PartType::Unstated, true, false), PartType::Part);
    EXPECT_EQ(EffectiveType(PartType::Adjustment, false, false), PartType::Adjustment);
    EXPECT_STREQ(PartTypeName(PartType::Adjustment), "adjustment");
}

TEST(WBProduct, RootsAreThePartsThatNobodyUses)
{
    Product product;
    product.parts.resize(3);
    product.uses.resize(2);
    product.uses[0].parent = 2;
    product.uses[0].part = 0;
    product.uses[1].parent = 2;
    product.uses[1].part = 1;
    EXPECT_THAT(product.Roots(), ElementsAre(2));
    EXPECT_THAT(product.UsesByParent()[2], ElementsAre(0, 1));
}

TEST(WBFacts, ForgottenTypedTextLeavesItsNeighbours)
{
    for (const auto& [name, rest] :
         {std::pair{"mass", "cgx=2 in|x=3"}, std::pair{"cgx", "mass=1 kg|x=3"},
          std::pair{"x", "mass=1 kg|cgx=2 in"}, std::pair{"cgy", "mass=1 kg|cgx=2 in|x=3"}}) {
        std::string typed = "mass=1 kg|cgx=2 in|x=3";
        ForgetTyped(typed, name);
        EXPECT_EQ(typed, rest);
    }
    std::string alone = "mass=1 kg";
    ForgetTyped(alone, "mass");
    EXPECT_EQ(alone, "");
}

TEST(WBNumbers, ShortestFormReadsBackAsTheSameNumber)
{
    EXPECT_EQ(WriteShortest(0.1), "0.1");
    EXPECT_EQ(WriteShortest(0.1 + 0.2), "0.30000000000000004"); // 15 digits would say 0.3
    EXPECT_EQ(WriteShortest(-2.0), "-2");
    EXPECT_EQ(WriteShortest(-0.0), "0");
    EXPECT_EQ(ReadNumber(WriteShortest(1.0 / 3.0)), 1.0 / 3.0);
}
