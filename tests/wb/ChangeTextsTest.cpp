#include "ChangeTexts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace
{
ComputeUnits Pounds()
{
    ComputeUnits units = ComputeUnits::Storage();
    units.mass = {"lb", [](double value) { return value / 0.45359237; }, {}};
    return units;
}

/// The program's time zone until the end of the scope.
class InTimeZone
{
public:
    explicit InTimeZone(const char* zone)
    {
        setenv("TZ", zone, 1);
        tzset();
    }
    InTimeZone(const InTimeZone&) = delete;
    InTimeZone& operator=(const InTimeZone&) = delete;
    ~InTimeZone()
    {
        unsetenv("TZ");
        tzset();
    }
};

struct Case
{
    const char* fact;
    const char* text;
    const char* shown;
};
} // namespace

TEST(ChangeTexts, ValuesStandInTheUnitOfTheirFact)
{
    for (const Case& each : {
             Case{"mass type Weighed, mass", "12", "12 kg"},
             Case{"mass type Weighed, centre", "1;-2.5;3", "1; -2.5; 3 mm"},
             Case{"mass type Weighed, inertia", "1;2;3;0;0;0", "1; 2; 3; 0; 0; 0 kg.m2"},
             Case{"mass type Weighed, cgy", "7", "7 mm"},
             Case{"mass type Weighed, ixx", "0.25", "0.25 kg.m2"},
             Case{"mass type Weighed, sigma_mass", "0.1", "0.1 kg"},
             Case{"mass type Weighed, lower_pct", "2", "2 %"},
             Case{"density", "2700", "2700 kg/m3"},
             Case{"surface_density", "3.5", "3.5 kg/m2"},
             Case{"growth_pct", "5", "5 %"},
             // A mass type may be called anything.
             Case{"mass type Old, mass, cgx", "7", "7 mm"},
         }) {
        EXPECT_EQ(ShownChangeValue(each.fact, each.text, ComputeUnits::Storage()), each.shown);
    }
}

TEST(ChangeTexts, PrecisionsSayWhichBoundIsWhich)
{
    EXPECT_EQ(ShownChangeValue("mass type Weighed, precision", "percent;1;2.5", Pounds()),
              "lower 1 %, upper 2.5 %");
    EXPECT_EQ(
        ShownChangeValue("mass type Weighed, precision", "absolute;1;2", ComputeUnits::Storage()),
        "lower 1 kg, upper 2 kg");
}

TEST(ChangeTexts, ValuesStandInOtherUnitsWithNineDigits)
{
    // 10 / 0.45359237 = 22.046226218...
    EXPECT_EQ(ShownChangeValue("mass type Weighed, mass", "10", Pounds()), "22.0462262 lb");
    EXPECT_EQ(ShownChangeValue("mass type Weighed, precision", "absolute;10;0", Pounds()),
              "lower 22.0462262 lb, upper 0 lb");
    EXPECT_EQ(ShownChangeValue("mass type Weighed, centre", "10;0;0", Pounds()), "10; 0; 0 mm");
}

TEST(ChangeTexts, WhatIsNoNumberOfItsFactStaysAsItIs)
{
    for (const Case& each : {
             Case{"mass type Weighed, mass", "24.25 lb", "24.25 lb"}, // as it was typed
             Case{"mass type Weighed, centre", "1;;3", "1;;3"},
             Case{"mass type Weighed, precision", "about;1;2", "about;1;2"},
             Case{"mass type Weighed, precision", "percent;1", "percent;1"},
             Case{"mass type Weighed, precision", "percent;1;x", "percent;1;x"},
             Case{"material", "Steel", "Steel"},
             Case{"active", "Weighed", "Weighed"},
             Case{"density order", "wb", "wb"},
             Case{"property Vendor, mass", "12", "12"}, // its name says nothing of its unit
             Case{"", "position", "position"},
         }) {
        EXPECT_EQ(ShownChangeValue(each.fact, each.text, ComputeUnits::Storage()), each.shown);
    }
}

TEST(ChangeTexts, NothingStatedIsADash)
{
    EXPECT_EQ(ShownChangeValue("mass type Weighed, mass", "", ComputeUnits::Storage()), "-");
    EXPECT_EQ(ShownChangeValue("property Vendor", "", ComputeUnits::Storage()), "-");
}

TEST(ChangeTexts, MomentsStandInTheTimeOfThePlace)
{
    const InTimeZone ahead("XYZ-2"); // two hours ahead of UTC
    EXPECT_EQ(ShownMoment("2026-11-21 23:30:05"), "2026/11/22 01:30:05");
    {
        const InTimeZone utc("UTC");
        EXPECT_EQ(ShownMoment("2026-11-21 23:30:05"), "2026/11/21 23:30:05");
    }
    EXPECT_EQ(ShownMoment(""), "");
    EXPECT_EQ(ShownMoment("some day"), "some day");
    EXPECT_EQ(ShownMoment("2026-11-21 23:30:05.5"), "2026-11-21 23:30:05.5");
}

TEST(ChangeTexts, MomentsForProgramsAreUtc)
{
    EXPECT_EQ(MomentForPrograms("2026-11-21 23:30:05"), "2026-11-21T23:30:05Z");
    EXPECT_EQ(MomentForPrograms(""), "");
}
