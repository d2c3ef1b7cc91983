#include "CATWBServices.h"

#include "CATCkeGlobalFunctions.h"
#include "ModuleSession.h"
#include "PlainDisplay.h"
#include "ReportDocuments.h"

#include <rapidcheck.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace
{

constexpr unsigned char kWithSymbol = 1;
constexpr unsigned char kWithoutSymbol = 0;
constexpr unsigned char kOneValue = 0;
constexpr unsigned char kList = 1;

CATICkeUnit_var SessionUnit(const char* magnitude, const char* symbol)
{
    const CATICkeMagnitude_var found =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    return found.IsNull() ? CATICkeUnit_var() : found->FindUnit(symbol);
}

std::string Displayed(const CATICkeUnit_var& target, const CATICkeUnit_var& source, double value,
                      unsigned char withSymbol, int decimals)
{
    return CATWBServices::DisplayValue(target, source, value, withSymbol, decimals).ToStdString();
}

std::string Shown(const CATICkeUnit_var& unit, double value, unsigned char withSymbol, int decimals)
{
    return Displayed(unit, unit, value, withSymbol, decimals);
}

// Display of one value

TEST(DisplayOfAValue, GoesFromTheSourceUnitThroughStorageToTheTargetUnit)
{
    const CATICkeUnit_var source = Unit("s", 10, 3);
    const CATICkeUnit_var target = Unit("t", 2, 1);
    EXPECT_EQ(Displayed(target, source, 4, kWithSymbol, 0), "21t"); // 10*4 + 3 = 43; (43 - 1)/2
    EXPECT_EQ(Displayed(source, target, 21, kWithSymbol, 0), "4s");
    EXPECT_EQ(Shown(source, 4.25, kWithSymbol, 0), "4.25s");
}

TEST(DisplayOfAValue, DecimalsAboveZeroAreThatMany)
{
    const CATICkeUnit_var unit = Unit("kg");
    EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, 0), "2.5kg");
    EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, 1), "2.5kg");
    EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, 5), "2.50000kg");
}

TEST(DisplayOfAValue, NegativeDecimalsAreTheUnitsOwnHeldFixed)
{
    for (const int negative : {-1, -2, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(Shown(Unit("kg"), 2.5, kWithSymbol, negative), "2.500kg");
        EXPECT_EQ(Shown(Unit("kg", 1, 0, {5}), 2, kWithSymbol, negative), "2.00000kg");
        EXPECT_EQ(Shown(Unit("in", 25.4, 0, {4}), 2, kWithSymbol, negative), "2.0000in");
    }
}

TEST(DisplayOfAValue, UnitWithoutDecimalsIsHeldAtOne)
{
    // "1" has no separator behind its 1, so the 1 itself is counted.
    EXPECT_EQ(Shown(Unit("mm3", 1, 0, {0}), 5, kWithSymbol, -1), "5.0mm3");
    EXPECT_EQ(Shown(SessionUnit("VOLUME", "mm3"), 5, kWithSymbol, -1), "5.0mm3");
    EXPECT_EQ(Shown(SessionUnit("VOLUME", "mm3"), 5, kWithSymbol, 0), "5mm3");
}

TEST(DisplayOfAValue, CharactersLeftBesideTheSymbolCountAsDecimals)
{
    EXPECT_EQ(Shown(Unit("kg", 1, 0, {3, " "}), 2.5, kWithSymbol, -1), "2.5000 kg");
    EXPECT_EQ(Shown(Unit("kg", 1, 0, {3, " ", true}), 2.5, kWithSymbol, -1), "kg 2.5000");
    // A no-break space is two bytes and one character.
    EXPECT_EQ(Shown(Unit("kg", 1, 0, {3, "\u00a0"}), 2.5, kWithSymbol, -1), "2.5000\u00a0kg");
    EXPECT_EQ(Shown(Unit("kg", 1, 0, {3, " "}), 2.5, kWithoutSymbol, -1), "2.5000 ");
}

TEST(DisplayOfAValue, DefaultDecimalsAreCountedInTheUsersLocale)
{
    const NumberLocale locale(kCommaLocale);
    EXPECT_EQ(Shown(Unit("kg"), 2.5, kWithSymbol, -1), "2,500kg");
    EXPECT_EQ(Shown(Unit("mm3", 1, 0, {0}), 5, kWithSymbol, -1), "5,0mm3");
    EXPECT_EQ(Shown(SessionUnit("MASS", "kg"), 2.5, kWithSymbol, -1), "2,500kg");
}

TEST(DisplayOfAValue, FollowsTheLocaleFromOneCallToTheNext)
{
    const CATICkeUnit_var unit = Unit("kg");
    EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, -1), "2.500kg");
    {
        const NumberLocale locale(kCommaLocale);
        EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, -1), "2,500kg");
    }
    EXPECT_EQ(Shown(unit, 2.5, kWithSymbol, -1), "2.500kg");
}

TEST(DisplayOfAValue, HasTheDecimalsOfItsOwnUnitWhicheverWasShownBefore)
{
    const CATICkeUnit_var coarse = Unit("kg");
    const CATICkeUnit_var fine = Unit("kg", 1, 0, {5});
    EXPECT_EQ(Shown(coarse, 2.5, kWithSymbol, -1), "2.500kg");
    EXPECT_EQ(Shown(fine, 2.5, kWithSymbol, -1), "2.50000kg");
    EXPECT_EQ(Displayed(coarse, fine, 2.5, kWithSymbol, -1), "2.500kg");
}

TEST(DisplayOfAValue, AnyFlagButZeroKeepsTheSymbol)
{
    EXPECT_EQ(Shown(Unit("kg"), 2.5, 0x80, 0), "2.5kg");
    EXPECT_EQ(Shown(Unit("kg"), 2.5, kWithoutSymbol, 0), "2.5");
}

TEST(DisplayOfAValue, SymbolIsTakenOutInsideTheNumberToo)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Shown(Unit("in"), infinity, kWithSymbol, 0), "infin");
    EXPECT_EQ(Shown(Unit("in"), infinity, kWithoutSymbol, 0), "f");
    EXPECT_EQ(Shown(SessionUnit("LENGTH", "in"), infinity, kWithoutSymbol, 0), "f");
    EXPECT_EQ(Shown(Unit("n"), std::nan(""), kWithoutSymbol, 0), "a");
}

TEST(DisplayOfAValue, UnitWithoutASymbolLosesNothing)
{
    EXPECT_EQ(Shown(Unit(""), 2.5, kWithoutSymbol, -1), "2.500");
    EXPECT_EQ(Shown(Unit(""), 2.5, kWithSymbol, 0), "2.5");
}

struct Conversion
{
    const char* magnitude;
    const char* source;
    const char* target;
    double value;
    const char* shown;
    const char* shownFixed;
};

// Each from the unit's definition: 1 in = 25.4 mm, 1 ft = 12 in, 1 lb = 0.45359237 kg.
constexpr Conversion kConversions[] = {
    {"LENGTH", "mm", "in", 25.4, "1in", "1.0000in"},
    {"LENGTH", "mm", "mm", 1.23456, "1.235mm", "1.235mm"},
    {"LENGTH", "in", "mm", 1, "25.4mm", "25.400mm"},
    {"LENGTH", "mm", "ft", 152.4, "0.5ft", "0.50000ft"},
    {"LENGTH", "mm", "m", -1500, "-1.5m", "-1.500000m"},
    {"MASS", "kg", "lb", 0.90718474, "2lb", "2.000lb"},
    {"MASS", "lb", "kg", 2, "0.907kg", "0.907kg"}, // 0.90718474
    {"MASS", "kg", "g", 0.0125, "12.5g", "12.5g"},
    {"MASS", "kg", "t", 2500, "2.5t", "2.500000t"},
    {"INERTIAMOMENT", "kg.m2", "kg.m2", 2.5, "2.5kg.m2", "2.500000kg.m2"},
    {"DENSITY", "kg/m3", "g/cm3", 7850, "7.85g/cm3", "7.85000g/cm3"},
    {"DENSITY", "kg/m3", "kg/m3", 7850.125, "7850.12kg/m3", "7850.12kg/m3"}, // half to even
    {"SURFACICMASS", "kg/m2", "kg/m2", 1.5, "1.5kg/m2", "1.500000kg/m2"},
    {"VOLUME", "m3", "m3", 0.5, "0.5m3", "0.500000000m3"},
};

TEST(DisplayOfAValue, SessionUnitsConvertAndHaveTheirDecimals)
{
    for (const auto& [magnitude, source, target, value, shown, shownFixed] : kConversions) {
        const CATICkeUnit_var from = SessionUnit(magnitude, source);
        const CATICkeUnit_var to = SessionUnit(magnitude, target);
        ASSERT_FALSE(from.IsNull()) << source;
        ASSERT_FALSE(to.IsNull()) << target;
        EXPECT_EQ(Displayed(to, from, value, kWithSymbol, 0), shown);
        EXPECT_EQ(Displayed(to, from, value, kWithSymbol, -1), shownFixed);
    }
}

// Laws of the display

/// Two units of one magnitude of the session.
std::pair<CATICkeUnit_var, CATICkeUnit_var> AnySessionUnits()
{
    const CATICkeParmDictionary_var dictionary = CATCkeGlobalFunctions::GetParmDictionary();
    const CATListValCATUnicodeString names = dictionary->MagnitudeNames();
    const CATICkeMagnitude_var magnitude =
        dictionary->FindMagnitude(names[*rc::gen::inRange(1, names.Size() + 1)]);
    const CATListValCATUnicodeString symbols = magnitude->UnitSymbols();
    const auto any = [&] {
        return magnitude->FindUnit(symbols[*rc::gen::inRange(1, symbols.Size() + 1)]);
    };
    CATICkeUnit_var first = any();
    return {std::move(first), any()};
}

TEST(DisplayLaws, IsItsPlainForm)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const CATICkeUnit_var target = AnyLookUnit();
        const CATICkeUnit_var source = AnyLookUnit();
        const double value = AnyValue();
        const int decimals = AnyDecimals();
        for (const unsigned char withSymbol : {kWithoutSymbol, kWithSymbol}) {
            RC_ASSERT(Displayed(target, source, value, withSymbol, decimals) ==
                      PlainDisplay(target, source, value, withSymbol, decimals));
        }
    }));
}

TEST(DisplayLaws, IsItsPlainFormForTheUnitsOfTheSession)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const auto [target, source] = AnySessionUnits();
        const double value = AnyValue();
        const int decimals = AnyDecimals();
        for (const unsigned char withSymbol : {kWithoutSymbol, kWithSymbol}) {
            RC_ASSERT(Displayed(target, source, value, withSymbol, decimals) ==
                      PlainDisplay(target, source, value, withSymbol, decimals));
        }
    }));
}

TEST(DisplayLaws, WithoutTheSymbolItDoesNotOccurAndTheRestStays)
{
    EXPECT_TRUE(rc::check([] {
        const auto [target, source] = AnySessionUnits();
        const double value =
            *rc::gen::element(AnyValue(), std::numeric_limits<double>::infinity(), std::nan(""));
        const int decimals = AnyDecimals();
        const std::string with = Displayed(target, source, value, kWithSymbol, decimals);
        const std::string without = Displayed(target, source, value, kWithoutSymbol, decimals);
        const std::string symbol = target->Symbol().ToStdString();
        RC_ASSERT(without.find(symbol) == std::string::npos);
        RC_ASSERT(Without(with, symbol) == without);
    }));
}

double ReadBack(const std::string& text)
{
    double value = std::nan("");
    CATWBServices::ConvertToDouble(text, value);
    return value;
}

// Beyond the digits of a double, the way through storage may change the last one.
bool SameNumber(double a, double b)
{
    return std::abs(a - b) <= 1e-14 * std::abs(a);
}

TEST(DisplayLaws, ShownAnewWithTheSameDecimalsTheNumberStays)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const CATICkeUnit_var unit = AnySessionUnits().first;
        const int decimals = AnyDecimals();
        const std::string first = Shown(unit, AnyValue(), kWithSymbol, decimals);
        const std::string again = Shown(unit, ReadBack(first), kWithSymbol, decimals);
        RC_ASSERT(SameNumber(ReadBack(again), ReadBack(first)));
    }));
}

TEST(DisplayLaws, ThereAndBackIsTheSameNumber)
{
    EXPECT_TRUE(rc::check([] {
        const auto [first, second] = AnySessionUnits();
        const double value = *rc::gen::inRange(1, 1000);
        // Enough decimals for the coarsest unit of the finest value.
        constexpr int kMany = 30;
        const double there = ReadBack(Displayed(second, first, value, kWithSymbol, kMany));
        const double back = ReadBack(Displayed(first, second, there, kWithSymbol, kMany));
        RC_ASSERT(std::abs(back - value) <= 1e-12 * (value + 1e3));
    }));
}

// One attribute in one unit

/// One attribute of one element, rewritten from grams to kilograms with three decimals at most.
class OneUnitAttribute : public testing::Test
{
protected:
    static std::string Rewritten(const std::string& value, unsigned char multiValued,
                                 unsigned char withSymbol = kWithSymbol, int decimals = 0)
    {
        const CATIDOMDocument_var document = Parsed("<A N=\"" + value + "\"/>");
        CATIDOMNode_var node = document->DocumentElement();
        EXPECT_NE(CATWBServices::SetAttributeValue(node, "N", Unit("kg"), Unit("g", 0.001),
                                                   withSymbol, decimals, multiValued),
                  0);
        CATUnicodeString text;
        EXPECT_EQ(document->DocumentElement()->GetAttribute("N", text), S_OK);
        return text.ToStdString();
    }
    static bool Changes(CATIDOMNode_var node, const char* attribute, unsigned char multiValued)
    {
        return CATWBServices::SetAttributeValue(node, attribute, Unit("kg"), Unit("g", 0.001),
                                                kWithSymbol, 0, multiValued) != 0;
    }
};

TEST_F(OneUnitAttribute, IsReadConvertedAndWritten)
{
    EXPECT_EQ(Rewritten("2500", kOneValue), "2.5kg");
    EXPECT_EQ(Rewritten("2500", kOneValue, kWithoutSymbol), "2.5");
    EXPECT_EQ(Rewritten("2500", kOneValue, kWithoutSymbol, -1), "2.500");
    EXPECT_EQ(Rewritten("2500", kOneValue, kWithSymbol, 1), "2.5kg");
}

struct Reading
{
    const char* text;
    const char* shown;
};

TEST_F(OneUnitAttribute, TakesEitherSeparator)
{
    for (const auto& [text, shown] :
         {Reading{"1500.5", "1.5005"}, Reading{"1500,5", "1.5005"}, Reading{"1.5e3", "1.5000"},
          Reading{"1,5e3", "1.5000"}, Reading{" +1500g", "1.5000"}, Reading{"1,500.5", "0.0010"},
          Reading{"1500,5,5", "1.5005"}}) {
        EXPECT_EQ(Rewritten(text, kOneValue, kWithoutSymbol, 4), shown) << text;
    }
    const NumberLocale locale(kCommaLocale);
    for (const auto& [text, shown] :
         {Reading{"1500.5", "1,5005"}, Reading{"1500,5", "1,5005"}, Reading{"1.5e3", "1,5000"},
          Reading{"1,5e3", "1,5000"}, Reading{"1500.5.5", "1,5005"}}) {
        EXPECT_EQ(Rewritten(text, kOneValue, kWithoutSymbol, 4), shown) << text;
    }
}

TEST_F(OneUnitAttribute, WhatIsNoNumberIsWrittenAsZero)
{
    for (const char* text : {"", "abc", "kg5", "-", ";5"}) {
        EXPECT_EQ(Rewritten(text, kOneValue), "0kg") << text;
    }
}

TEST_F(OneUnitAttribute, OneValueIsNotCutAtSemicolons)
{
    EXPECT_EQ(Rewritten("1000;2000", kOneValue), "1kg");
}

TEST_F(OneUnitAttribute, ListEndsAtItsFirstEmptyItem)
{
    EXPECT_EQ(Rewritten("1000;2000;3500", kList), "1kg; 2kg; 3.5kg");
    EXPECT_EQ(Rewritten("1000", kList), "1kg");
    EXPECT_EQ(Rewritten("1000;;3500", kList), "1kg");
    EXPECT_EQ(Rewritten("1000;2000;", kList), "1kg; 2kg");
    EXPECT_EQ(Rewritten(";1000", kList), "");
    EXPECT_EQ(Rewritten("", kList), "");
    EXPECT_EQ(Rewritten(";", kList), "");
    // Blanks and words are items, and no numbers.
    EXPECT_EQ(Rewritten("1000; ;x;2000", kList), "1kg; 0kg; 0kg; 2kg");
    EXPECT_EQ(Rewritten("1000; 2000", 0x80), "1kg; 2kg");
}

TEST_F(OneUnitAttribute, ItemsOfAListTakeEitherSeparatorEachForItself)
{
    EXPECT_EQ(Rewritten("1500,5;2500.5", kList, kWithoutSymbol, 4), "1.5005; 2.5005");
    const NumberLocale locale(kCommaLocale);
    EXPECT_EQ(Rewritten("1500,5;2500.5", kList, kWithoutSymbol, 4), "1,5005; 2,5005");
}

TEST_F(OneUnitAttribute, NodeWithoutTheAttributeStaysAsItIs)
{
    const std::string text = R"(<A n="1" N_="2">N<!--N--></A>)";
    for (const unsigned char multiValued : {kOneValue, kList}) {
        const CATIDOMDocument_var document = Parsed(text);
        const CATIDOMNode_var element = document->DocumentElement();
        EXPECT_FALSE(Changes(element, "N", multiValued));
        EXPECT_FALSE(Changes(element->FirstChild(), "N", multiValued));
        EXPECT_FALSE(Changes(element->LastChild(), "N", multiValued));
        EXPECT_FALSE(Changes(element->Attributes()->Item(0), "n", multiValued));
        EXPECT_FALSE(Changes(document, "n", multiValued));
        EXPECT_FALSE(Changes({}, "n", multiValued));
        EXPECT_EQ(Written(document), text);
    }
}

TEST_F(OneUnitAttribute, RewrittenKeepsItsPlaceAndTheOthersTheirTexts)
{
    const CATIDOMDocument_var document = Parsed(R"(<A a="1" N="2000" b="3"><A N="4"/></A>)");
    EXPECT_TRUE(Changes(document->DocumentElement(), "N", kOneValue));
    EXPECT_EQ(Written(document), R"(<A a="1" N="2kg" b="3"><A N="4"/></A>)");
}

// One attribute whose items have the unit that their dimension asks for

class DensityAttribute : public testing::Test
{
protected:
    /// Volumic values are divided by 10 and shown in "v", surfacic ones by 100 in "s".
    static unsigned char Rewrite(CATIDOMNode_var node, const char* values, const char* dimensions)
    {
        return CATWBServices::SetAttributeValue(node, values, dimensions, Unit("v"), Unit("V", 0.1),
                                                Unit("s"), Unit("S", 0.01), kWithSymbol, 0);
    }
    static std::string Rewritten(const std::string& values, const std::string& dimensions)
    {
        const CATIDOMDocument_var document =
            Parsed("<A D=\"" + values + "\" Dim=\"" + dimensions + "\"/>");
        EXPECT_NE(Rewrite(document->DocumentElement(), "D", "Dim"), 0);
        CATUnicodeString text;
        EXPECT_EQ(document->DocumentElement()->GetAttribute("Dim", text), S_OK);
        EXPECT_EQ(text, CATUnicodeString(dimensions));
        EXPECT_EQ(document->DocumentElement()->GetAttribute("D", text), S_OK);
        return text.ToStdString();
    }
};

TEST_F(DensityAttribute, DimensionTwoIsSurfacicAndAnyOtherVolumic)
{
    EXPECT_EQ(Rewritten("100;100;100;100;100", "3;2;0;-2;22"), "10v; 1s; 10v; 10v; 10v");
    EXPECT_EQ(Rewritten("100", "2"), "1s");
    // As "%d" reads them.
    EXPECT_EQ(Rewritten("100;100;100;100", " 2;2.9;+2;2x"), "1s; 1s; 1s; 1s");
}

TEST_F(DensityAttribute, MissingOrUnreadableDimensionKeepsTheOneBefore)
{
    EXPECT_EQ(Rewritten("100;100;100", "2"), "1s; 1s; 1s");
    EXPECT_EQ(Rewritten("100;100;100;100", "2;x;3;"), "1s; 1s; 10v; 10v");
    EXPECT_EQ(Rewritten("100;100;100", "2;;3"), "1s; 1s; 10v");
    EXPECT_EQ(Rewritten("100;100", ""), "10v; 10v");
    EXPECT_EQ(Rewritten("100;100", "x;2"), "10v; 1s");
}

TEST_F(DensityAttribute, ValuesEndAtTheFirstEmptyItemWhateverTheDimensionsAre)
{
    EXPECT_EQ(Rewritten("100;;100", "3;2;2"), "10v");
    EXPECT_EQ(Rewritten("100", "3;2;2"), "10v");
    EXPECT_EQ(Rewritten("100;100;", "2;3"), "1s; 10v");
    EXPECT_EQ(Rewritten("", "2"), "");
    EXPECT_EQ(Rewritten(";100", "2;2"), "");
    EXPECT_EQ(Rewritten("x;100", "2;2"), "0s; 1s");
}

TEST_F(DensityAttribute, ValuesTakeEitherSeparator)
{
    EXPECT_EQ(Rewritten("12,5;12.5", "3;3"), "1.25v; 1.25v");
    const NumberLocale locale(kCommaLocale);
    EXPECT_EQ(Rewritten("12,5;12.5", "3;3"), "1,25v; 1,25v");
}

TEST_F(DensityAttribute, NodeWithoutBothAttributesStaysAsItIs)
{
    for (const char* text : {R"(<A D="100"/>)", R"(<A Dim="2"/>)", R"(<A d="1" dim="2"/>)"}) {
        const CATIDOMDocument_var document = Parsed(text);
        EXPECT_EQ(Rewrite(document->DocumentElement(), "D", "Dim"), 0);
        EXPECT_EQ(Written(document), text);
    }
    const CATIDOMDocument_var document = Parsed(R"(<A D="100" Dim="2">x</A>)");
    EXPECT_EQ(Rewrite(document->DocumentElement()->FirstChild(), "D", "Dim"), 0);
    EXPECT_EQ(Rewrite(document, "D", "Dim"), 0);
    EXPECT_EQ(Rewrite({}, "D", "Dim"), 0);
    EXPECT_EQ(Written(document), R"(<A D="100" Dim="2">x</A>)");
}

// Laws of the attributes

template <class Items>
std::string Joined(const Items& items, const char* between)
{
    std::string text;
    for (const std::string& item : items) {
        text += (text.empty() ? "" : between) + item;
    }
    return text;
}

std::string TextOf(const CATIDOMDocument_var& document, const char* attribute)
{
    CATUnicodeString text;
    EXPECT_EQ(document->DocumentElement()->GetAttribute(attribute, text), S_OK);
    return text.ToStdString();
}

TEST(AttributeLaws, ListIsItsItemsShownOneByOne)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const CATICkeUnit_var target = AnyLookUnit();
        const CATICkeUnit_var source = AnyLookUnit();
        const int decimals = AnyDecimals();
        std::vector<std::string> given;
        std::vector<std::string> expected;
        const int count = *rc::gen::inRange(1, 6);
        for (int position = 0; position < count; ++position) {
            const double value = AnyValue();
            given.push_back(Number(value));
            expected.push_back(PlainDisplay(target, source, value, kWithSymbol, decimals));
        }
        const CATIDOMDocument_var document = Parsed("<A N=\"" + Joined(given, ";") + "\"/>");
        CATIDOMNode_var node = document->DocumentElement();
        RC_ASSERT(CATWBServices::SetAttributeValue(node, "N", target, source, kWithSymbol, decimals,
                                                   kList) != 0);
        RC_ASSERT(TextOf(document, "N") == Joined(expected, "; "));
    }));
}

TEST(AttributeLaws, DensitiesAreTheirItemsShownOneByOneInTheUnitsOfTheirDimension)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const CATICkeUnit_var volumicTarget = AnyLookUnit();
        const CATICkeUnit_var volumicSource = AnyLookUnit();
        const CATICkeUnit_var surfacicTarget = AnyLookUnit();
        const CATICkeUnit_var surfacicSource = AnyLookUnit();
        const int decimals = AnyDecimals();
        std::vector<std::string> given;
        std::vector<std::string> dimensions;
        std::vector<std::string> expected;
        bool isSurfacic = false;
        const int count = *rc::gen::inRange(1, 6);
        for (int position = 0; position < count; ++position) {
            const double value = AnyValue();
            const std::string dimension = *rc::gen::element("2", "3", "x", " ", "-1");
            if (dimension != "x" && dimension != " ") {
                isSurfacic = dimension == "2";
            }
            given.push_back(Number(value));
            dimensions.push_back(dimension);
            expected.push_back(
                isSurfacic
                    ? PlainDisplay(surfacicTarget, surfacicSource, value, kWithoutSymbol, decimals)
                    : PlainDisplay(volumicTarget, volumicSource, value, kWithoutSymbol, decimals));
        }
        const CATIDOMDocument_var document =
            Parsed("<A D=\"" + Joined(given, ";") + "\" Dim=\"" + Joined(dimensions, ";") + "\"/>");
        CATIDOMNode_var node = document->DocumentElement();
        RC_ASSERT(CATWBServices::SetAttributeValue(node, "D", "Dim", volumicTarget, volumicSource,
                                                   surfacicTarget, surfacicSource, kWithoutSymbol,
                                                   decimals) != 0);
        RC_ASSERT(TextOf(document, "D") == Joined(expected, "; "));
    }));
}

TEST(AttributeLaws, ShownAnewTheNumberStays)
{
    EXPECT_TRUE(rc::check([] {
        const NumberLocale locale(AnyLocale());
        const auto [target, source] = AnySessionUnits();
        const int decimals = AnyDecimals();
        const CATIDOMDocument_var document = Parsed("<A N=\"" + Number(AnyValue()) + "\"/>");
        CATIDOMNode_var node = document->DocumentElement();
        const auto rewrite = [&](const CATICkeUnit_var& from, unsigned char withSymbol) {
            CATWBServices::SetAttributeValue(node, "N", target, from, withSymbol, decimals,
                                             kOneValue);
            return TextOf(document, "N");
        };
        const double converted = ReadBack(rewrite(source, kWithSymbol));
        RC_ASSERT(SameNumber(ReadBack(rewrite(target, kWithoutSymbol)), converted));
        RC_ASSERT(SameNumber(ReadBack(rewrite(target, kWithSymbol)), converted));
    }));
}

} // namespace
