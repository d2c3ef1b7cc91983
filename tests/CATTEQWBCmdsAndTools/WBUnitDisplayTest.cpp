#include "WBUnitDisplay.h"

#include "CATWBServices.h"
#include "ReportUnitsSession.h"

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace
{

// The unit's own number of decimals

class DefaultDecimalsOf : public ReportUnitsSession
{};

TEST_F(DefaultDecimalsOf, ShippedUnitsAreThoseOfTheirFiles)
{
    struct Row
    {
        const char* magnitude;
        const char* symbol;
        int decimals;
    };
    constexpr Row kRows[] = {{"LENGTH", "mm", 3},
                             {"LENGTH", "in", 4},
                             {"LENGTH", "m", 6},
                             {"MASS", "kg", 3},
                             {"MASS", "lb", 3},
                             {"MASS", "t", 6},
                             {"DENSITY", "kg/m3", 2},
                             {"DENSITY", "g/cm3", 5},
                             {"SURFACICMASS", "kg/m2", 6},
                             {"VOLUME", "m3", 9},
                             {"INERTIAMOMENT", "kg.m2", 6},
                             {"INERTIAMOMENT", "kg.mm2", 3},
                             {"TEMPERATURE", "degF", 2}};
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale numbers(locale);
        for (const Row& row : kRows) {
            EXPECT_EQ(DefaultDecimals(*Unit(row.magnitude, row.symbol)), row.decimals)
                << row.symbol << " " << locale;
        }
    }
}

// "1" has nothing to be taken out, and its one character is counted.
TEST_F(DefaultDecimalsOf, UnitsWithoutAnyCountsOne)
{
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        const NumberLocale numbers(locale);
        EXPECT_EQ(DefaultDecimals(*Unit("VOLUME", "mm3")), 1);
        EXPECT_EQ(DefaultDecimals(*Unit("MASS", "mg")), 1);
    }
}

TEST_F(DefaultDecimalsOf, UnitsCountsEveryCharacterThatIsLeft)
{
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.111u")), 3);
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1,111u")), 3);
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.111 u")), 4);          // the blank
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.11\xe2\x82\xac")), 3); // a character, three bytes
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("u1.1u1u")), 2);          // every symbol goes
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.11.1u")), 2);          // every "1." goes
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1,11,1u")), 2);          // or every "1,"
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.1,1u")), 3);           // but not both
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("2.1,5u")), 3);           // "1," where no "1." is
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("2.5u")), 3);
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.u")), 0);
    EXPECT_EQ(DefaultDecimals(*UnitThatShows("1.5", "")), 1);
}

TEST_F(DefaultDecimalsOf, UnitsAreProbedInTheUnitItselfAsItShowsValues)
{
    std::vector<std::pair<double, int>> asked;
    const ScriptedUnit unit("u", 4.0, [&asked](double value, int decimals) {
        asked.emplace_back(value, decimals);
        return "1.5u";
    });
    EXPECT_EQ(DefaultDecimals(unit), 1);
    EXPECT_THAT(asked, testing::ElementsAre(std::pair(4.444444444444, 0)));
}

// One value

class ValueInUnits : public ReportUnitsSession
{};

TEST_F(ValueInUnits, GoesFromTheSourceUnitToTheTargetUnit)
{
    const CATICkeUnit_var mm = Unit("LENGTH", "mm");
    const CATICkeUnit_var in = Unit("LENGTH", "in");
    EXPECT_EQ(CATWBServices::DisplayValue(in, mm, 25.4, kWithSymbol, kOwnDecimals), "1in");
    EXPECT_EQ(CATWBServices::DisplayValue(mm, in, 1.0, kWithSymbol, kOwnDecimals), "25.4mm");
    EXPECT_EQ(CATWBServices::DisplayValue(in, in, 1.5, kWithSymbol, kOwnDecimals), "1.5in");
    // 1000 / 25.4 = 39.370078...
    EXPECT_EQ(CATWBServices::DisplayValue(in, mm, 1000.0, kWithSymbol, kOwnDecimals), "39.3701in");
}

TEST_F(ValueInUnits, UnitIsGivenTheStorageValueAndTheDecimals)
{
    std::vector<std::pair<double, int>> asked;
    const CATICkeUnit_var target =
        CATICkeUnit_var::Adopt(new ScriptedUnit("u", 4.0, [&asked](double value, int decimals) {
            asked.emplace_back(value, decimals);
            return "text";
        }));
    const CATICkeUnit_var source =
        CATICkeUnit_var::Adopt(new ScriptedUnit("s", 3.0, [](double, int) { return "wrong"; }));
    EXPECT_EQ(CATWBServices::DisplayValue(target, source, 2.0, kWithSymbol, 5), "text");
    EXPECT_THAT(asked, testing::ElementsAre(std::pair(6.0, 5)));
}

TEST_F(ValueInUnits, NegativeDecimalsAreTheTargetUnitsOwnHeldFixed)
{
    const CATICkeUnit_var kg = Unit("MASS", "kg");
    const CATICkeUnit_var lb = Unit("MASS", "lb");
    const CATICkeUnit_var mm3 = Unit("VOLUME", "mm3");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithSymbol, 0), "12.5kg");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithSymbol, -1), "12.500kg");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithSymbol, -7), "12.500kg");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithSymbol, 2), "12.50kg");
    EXPECT_EQ(CATWBServices::DisplayValue(lb, kg, 0.45359237, kWithSymbol, -1), "1.000lb");
    EXPECT_EQ(CATWBServices::DisplayValue(mm3, mm3, 5.0, kWithSymbol, -1), "5.0mm3");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithoutSymbol, -1), "12.500");
}

TEST_F(ValueInUnits, DecimalSeparatorIsTheSessions)
{
    const CATICkeUnit_var kg = Unit("MASS", "kg");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithSymbol, 0), "12,5kg");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 12.5, kWithoutSymbol, -1), "12,500");
}

TEST_F(ValueInUnits, OwnDecimalsAreThoseOfTheUnitAskedForWhoeverWasAskedBefore)
{
    const CATICkeUnit_var kg = Unit("MASS", "kg");
    const CATICkeUnit_var in = Unit("LENGTH", "in");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 1.0, kWithSymbol, -1), "1.000kg");
        EXPECT_EQ(CATWBServices::DisplayValue(in, in, 1.0, kWithSymbol, -1), "1.0000in");
    }
}

TEST_F(ValueInUnits, OwnDecimalsAreAskedAnewWhenTheSessionsSeparatorChanges)
{
    const CATICkeUnit_var unit =
        CATICkeUnit_var::Adopt(new ScriptedUnit("u", 1.0, [](double, int decimals) -> std::string {
            if (decimals != 0) {
                return std::to_string(decimals);
            }
            return CATDecimalSeparator() == "." ? "1.11u" : "1,1111u";
        }));
    EXPECT_EQ(CATWBServices::DisplayValue(unit, unit, 1.0, kWithSymbol, -1), "2");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(CATWBServices::DisplayValue(unit, unit, 1.0, kWithSymbol, -1), "4");
}

TEST_F(ValueInUnits, OwnDecimalsAreNotThoseOfAUnitThatStoodInTheSamePlace)
{
    for (const char* shown : {"1.1u", "1.11u", "1.111u"}) {
        const CATICkeUnit_var unit = CATICkeUnit_var::Adopt(
            new ScriptedUnit("u", 1.0, [shown](double, int decimals) -> std::string {
                return decimals == 0 ? shown : std::to_string(decimals);
            }));
        EXPECT_EQ(CATWBServices::DisplayValue(unit, unit, 1.0, kWithSymbol, -1),
                  std::to_string(std::string(shown).size() - 3));
    }
}

TEST_F(ValueInUnits, OwnDecimalsAreAskedForOnceWhileTheUnitStaysTheSame)
{
    int probes = 0;
    const CATICkeUnit_var unit =
        CATICkeUnit_var::Adopt(new ScriptedUnit("u", 1.0, [&probes](double, int decimals) {
            probes += decimals == 0 ? 1 : 0;
            return "1.11u";
        }));
    for (int value = 0; value < 3; ++value) {
        CATWBServices::DisplayValue(unit, unit, value, kWithSymbol, -1);
    }
    EXPECT_EQ(probes, 1);
}

TEST_F(ValueInUnits, WithoutTheSymbolNoOccurrenceOfItsTextIsLeft)
{
    const CATICkeUnit_var in = Unit("LENGTH", "in");
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(CATWBServices::DisplayValue(in, in, 1.5, kWithoutSymbol, 0), "1.5");
    EXPECT_EQ(CATWBServices::DisplayValue(in, in, infinity, kWithSymbol, 0), "infin");
    EXPECT_EQ(CATWBServices::DisplayValue(in, in, infinity, kWithoutSymbol, 0), "f");
    const auto shown = [](const char* text, const char* symbol) {
        const CATICkeUnit_var unit = UnitThatShows(text, symbol);
        return CATWBServices::DisplayValue(unit, unit, 1.0, kWithoutSymbol, 0);
    };
    EXPECT_EQ(shown("u1u.u5 u", "u"), "1.5 ");
    EXPECT_EQ(shown("1.5 u", "u"), "1.5 ");
    EXPECT_EQ(shown("kg1.5", "kg"), "1.5");
    EXPECT_EQ(shown("1kkgg", "kg"), "1");
    EXPECT_EQ(shown("1.5", "kg"), "1.5");
    EXPECT_EQ(shown("1.5", ""), "1.5");
    EXPECT_EQ(shown("u", "u"), "");
}

TEST_F(ValueInUnits, AnyFlagThatIsNotZeroKeepsTheSymbol)
{
    const CATICkeUnit_var kg = Unit("MASS", "kg");
    EXPECT_EQ(CATWBServices::DisplayValue(kg, kg, 1.0, 255, 0), "1kg");
}

TEST_F(ValueInUnits, MissingUnitIsTheCallersError)
{
    const CATICkeUnit_var kg = Unit("MASS", "kg");
    EXPECT_THROW(CATWBServices::DisplayValue({}, kg, 1.0, kWithSymbol, 0), CATNullHandle);
    EXPECT_THROW(CATWBServices::DisplayValue({}, kg, 1.0, kWithSymbol, -1), CATNullHandle);
    EXPECT_THROW(CATWBServices::DisplayValue(kg, {}, 1.0, kWithSymbol, 0), CATNullHandle);
}

// Texts

class ShownText : public ReportUnitsSession
{
protected:
    WBUnitDisplay Kilograms() const
    {
        const CATICkeUnit_var kg = Unit("MASS", "kg");
        return WBUnitDisplay({kg, kg}, {true, 0});
    }
    std::string Number(std::string_view text) const
    {
        WBUnitDisplay display = Kilograms();
        return std::string(display.ShowNumber(text).View());
    }
    std::string SessionNumber(std::string_view text) const
    {
        WBUnitDisplay display = Kilograms();
        return std::string(display.ShowSessionNumber(text).View());
    }
    std::string List(std::string_view text) const
    {
        WBUnitDisplay display = Kilograms();
        return ShownList(text, display);
    }
    std::string Breakdown(std::string_view text) const
    {
        WBUnitDisplay display = Kilograms();
        return ShownBreakdown(text, display);
    }
};

TEST_F(ShownText, NumberIsReadWithEitherSeparatorUpToWhatIsNone)
{
    EXPECT_EQ(Number("3,5"), "3.5kg");
    EXPECT_EQ(Number("3.5"), "3.5kg");
    EXPECT_EQ(Number(" 3.5kg"), "3.5kg");
    EXPECT_EQ(Number("1.5.2"), "1.5kg");
    EXPECT_EQ(Number("1,5,2"), "1.5kg");
    EXPECT_EQ(Number("1.5,2"), "1.5kg");
    EXPECT_EQ(Number("1,5.2"), "1kg"); // where "." is there, "," is none
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Number("3,5"), "3,5kg");
    EXPECT_EQ(Number("3.5"), "3,5kg");
    EXPECT_EQ(Number("1.5.2"), "1,5kg");
    EXPECT_EQ(Number("1.5,2"), "1,5kg");
    EXPECT_EQ(Number("1,5.2"), "1,5kg");
}

TEST_F(ShownText, WhatIsNoNumberIsZero)
{
    WBUnitDisplay display = Kilograms();
    EXPECT_EQ(display.ShowNumber("7").View(), "7kg");
    for (const char* text : {"", "abc", ";", "kg1", "--1"}) {
        EXPECT_EQ(display.ShowNumber(text).View(), "0kg") << text;
        EXPECT_EQ(display.ShowSessionNumber(text).View(), "0kg") << text;
    }
}

TEST_F(ShownText, SymbolIsAskedForOnceAndOnlyWhereItIsNotWanted)
{
    const auto unit = CATHandle<ScriptedUnit>::Adopt(
        new ScriptedUnit("u", 1.0, [](double, int) { return "1u"; }));
    WBUnitDisplay wanted({unit, unit}, {true, 0});
    WBUnitDisplay notWanted({unit, unit}, {false, 0});
    EXPECT_EQ(ShownList("1;1;1", wanted), "1u; 1u; 1u");
    EXPECT_EQ(unit->symbolsAsked, 0);
    EXPECT_EQ(ShownList("1;1;1", notWanted), "1; 1; 1");
    EXPECT_EQ(unit->symbolsAsked, 1);
}

TEST_F(ShownText, SessionNumberStopsAtTheOtherSeparator)
{
    EXPECT_EQ(SessionNumber("3,5"), "3kg");
    EXPECT_EQ(SessionNumber("3.5"), "3.5kg");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(SessionNumber("3.5"), "3kg");
    EXPECT_EQ(SessionNumber("3,5"), "3,5kg");
}

TEST_F(ShownText, ListIsJoinedWithABlankAndEndsAtItsFirstEmptyItem)
{
    EXPECT_EQ(List("1;2.5;x"), "1kg; 2.5kg; 0kg");
    EXPECT_EQ(List("1;3,5"), "1kg; 3.5kg");
    EXPECT_EQ(List("1"), "1kg");
    EXPECT_EQ(List("1;"), "1kg");
    EXPECT_EQ(List("1;;2"), "1kg");
    EXPECT_EQ(List("1; 2"), "1kg; 2kg");
    EXPECT_EQ(List("1; ;2"), "1kg; 0kg; 2kg"); // a blank is an item
    EXPECT_EQ(List(";1"), "");
    EXPECT_EQ(List(""), "");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(List("1.5;3,5"), "1,5kg; 3,5kg");
}

TEST_F(ShownText, ListItemWithoutAnyTextLeftIsStillSeparated)
{
    const CATICkeUnit_var unit = UnitThatShows("u");
    WBUnitDisplay display({unit, unit}, {false, 0});
    EXPECT_EQ(ShownList("1;2", display), "; ");
}

TEST_F(ShownText, BreakdownKeepsEveryItem)
{
    EXPECT_EQ(Breakdown("1;2.5"), "1kg;2.5kg");
    EXPECT_EQ(Breakdown("1;2;"), "1kg;2kg;0kg");
    EXPECT_EQ(Breakdown("1;;2"), "1kg;0kg;2kg");
    EXPECT_EQ(Breakdown(";1"), "0kg;1kg");
    EXPECT_EQ(Breakdown(";"), "0kg;0kg");
    EXPECT_EQ(Breakdown(""), "0kg");
    EXPECT_EQ(Breakdown("3"), "3kg");
}

TEST_F(ShownText, BreakdownReadsNumbersAsTheSessionWritesThem)
{
    EXPECT_EQ(Breakdown("3,5;1.5"), "3kg;1.5kg");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(Breakdown("3,5;1.5"), "3,5kg;1kg");
}

class ShownDensityList : public ReportUnitsSession
{
protected:
    static std::string Shown(std::string_view list, std::string_view dimensions,
                             WBMissingDimension missing)
    {
        const CATICkeUnit_var volume = Unit("DENSITY", "kg/m3");
        const CATICkeUnit_var surface = Unit("SURFACICMASS", "kg/m2");
        WBUnitDisplay volumic({volume, volume}, {true, 0});
        WBUnitDisplay surfacic({surface, surface}, {true, 0});
        return ShownDensities(list, dimensions, volumic, surfacic, missing);
    }
};

TEST_F(ShownDensityList, TwoIsSurfacicAndAnythingElseIsVolumic)
{
    for (const auto missing : {WBMissingDimension::Volumic, WBMissingDimension::AsBefore}) {
        EXPECT_EQ(Shown("1;2,5;3", "2;3;2", missing), "1kg/m2; 2.5kg/m3; 3kg/m2");
        EXPECT_EQ(Shown("1;2;3;4", "1;0;-2;22", missing), "1kg/m3; 2kg/m3; 3kg/m3; 4kg/m3");
        EXPECT_EQ(Shown("1;2", " 2;2.9", missing), "1kg/m2; 2kg/m2"); // as integers are read
        EXPECT_EQ(Shown("1", "2;2;2", missing), "1kg/m2");
    }
}

TEST_F(ShownDensityList, EndsAtTheFirstEmptyValue)
{
    for (const auto missing : {WBMissingDimension::Volumic, WBMissingDimension::AsBefore}) {
        EXPECT_EQ(Shown("1;;3", "2;2;2", missing), "1kg/m2");
        EXPECT_EQ(Shown("1;", "2;2", missing), "1kg/m2");
        EXPECT_EQ(Shown("", "2", missing), "");
    }
}

TEST_F(ShownDensityList, MissingDimensionIsVolumicOrTheOneBefore)
{
    struct Row
    {
        const char* dimensions;
        const char* volumic;
        const char* asBefore;
    };
    constexpr Row kRows[] = {{"2", "1kg/m2; 2kg/m3; 3kg/m3", "1kg/m2; 2kg/m2; 3kg/m2"},
                             {"2;", "1kg/m2; 2kg/m3; 3kg/m3", "1kg/m2; 2kg/m2; 3kg/m2"},
                             {"2;;3", "1kg/m2; 2kg/m3; 3kg/m3", "1kg/m2; 2kg/m2; 3kg/m3"},
                             {"x;2;y", "1kg/m3; 2kg/m2; 3kg/m3", "1kg/m3; 2kg/m2; 3kg/m2"},
                             {"", "1kg/m3; 2kg/m3; 3kg/m3", "1kg/m3; 2kg/m3; 3kg/m3"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(Shown("1;2;3", row.dimensions, WBMissingDimension::Volumic), row.volumic)
            << row.dimensions;
        EXPECT_EQ(Shown("1;2;3", row.dimensions, WBMissingDimension::AsBefore), row.asBefore)
            << row.dimensions;
    }
}

} // namespace
