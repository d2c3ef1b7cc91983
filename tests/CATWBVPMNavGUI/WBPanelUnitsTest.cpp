#include "WBPanelUnits.h"

#include "PanelSession.h"

namespace
{
using WBPanelUnits = PanelSession;
}

TEST_F(WBPanelUnits, NumberStandsInTheCurrentUnitWithoutItsSymbol)
{
    EXPECT_EQ(WBNumberInUnit("MASS", 12.5), "12.5");
    ShowIn("MASS", "g");
    EXPECT_EQ(WBNumberInUnit("MASS", 12.5), "12500");
    ShowIn("LENGTH", "in");
    EXPECT_EQ(WBNumberInUnit("LENGTH", 25.4), "1");
    EXPECT_EQ(WBNumberInUnit("LENGTH", -63.5), "-2.5");
    ShowIn("INERTIAMOMENT", "kg.mm2");
    EXPECT_EQ(WBNumberInUnit("INERTIAMOMENT", 0.25), "250000");
}

TEST_F(WBPanelUnits, NumberHasTheSessionsDecimalSeparator)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(WBNumberInUnit("MASS", 12.5), "12,5");
    EXPECT_EQ(WBValueWithUnit("MASS", 12.5), "12,5 kg");
}

TEST_F(WBPanelUnits, ValueWithUnitHasABlankBeforeTheSymbol)
{
    EXPECT_EQ(WBValueWithUnit("LENGTH", -60.0), "-60 mm");
    ShowIn("DENSITY", "g/cm3");
    EXPECT_EQ(WBValueWithUnit("DENSITY", 7900.0), "7.9 g/cm3");
}

TEST_F(WBPanelUnits, TitleNamesTheCurrentUnit)
{
    EXPECT_EQ(WBTitleWithUnit("Mass", "MASS"), "Mass [kg]");
    ShowIn("MASS", "lb");
    EXPECT_EQ(WBTitleWithUnit("Mass", "MASS"), "Mass [lb]");
    EXPECT_EQ(WBUnitSymbol("MASS"), "lb");
}

TEST_F(WBPanelUnits, SmallValueNeverShowsAsZero)
{
    // Kilograms have three decimals: 0.0001234 kg would round to nothing.
    EXPECT_EQ(WBNumberInUnit("MASS", 0.0001234), "0.000123");
    EXPECT_EQ(WBNumberInUnit("MASS", -0.0001234), "-0.000123");
    EXPECT_EQ(WBNumberInUnit("MASS", 0.0), "0");
    EXPECT_EQ(WBNumberInUnit("MASS", -0.0), "0");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(WBNumberInUnit("MASS", 0.0001234), "0,000123");
}

TEST_F(WBPanelUnits, TemperatureNearItsMovedZeroIsZero)
{
    ShowIn("TEMPERATURE", "degC");
    EXPECT_EQ(WBNumberInUnit("TEMPERATURE", 273.15 + 1e-12), "0");
}

TEST_F(WBPanelUnits, UnknownMagnitudeShowsTheStoredValueWithoutASymbol)
{
    EXPECT_EQ(WBNumberInUnit("NO_SUCH_MAGNITUDE", 1.25), "1.25");
    EXPECT_EQ(WBValueWithUnit("NO_SUCH_MAGNITUDE", 1.25), "1.25");
    EXPECT_EQ(WBTitleWithUnit("Value", "NO_SUCH_MAGNITUDE"), "Value");
    EXPECT_EQ(WBUnitSymbol("NO_SUCH_MAGNITUDE"), "");
}

TEST_F(WBPanelUnits, ValueStandsInAnyUnitThatIsGiven)
{
    const CATICkeMagnitude_var length =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude("LENGTH");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(WBValueWithUnit(length->FindUnit("in"), 63.5), "2.5 in");
    EXPECT_EQ(WBNumberInUnit(length->FindUnit("in"), 63.5), "2.5");
    EXPECT_EQ(WBValueWithUnit(length->CurrentUnit(), 63.5), "6.35 cm");
    EXPECT_EQ(WBValueWithUnit(CATICkeUnit_var(), 63.5), "63.5");
}
