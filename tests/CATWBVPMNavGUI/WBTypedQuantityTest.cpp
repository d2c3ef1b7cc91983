#include "WBTypedQuantity.h"

#include "PanelSession.h"

namespace
{

struct TypedRow
{
    const char* typed;
    const char* magnitude;
    double storage;
};

class WBTypedQuantityTest : public PanelSession, public testing::WithParamInterface<const char*>
{
protected:
    WBTypedQuantityTest() { EXPECT_TRUE(CATUseNumberLocale(GetParam())); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSeparators, WBTypedQuantityTest, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& locale) { return locale.index == 0 ? "Point" : "Comma"; });

TEST_P(WBTypedQuantityTest, NumberAloneIsInTheCurrentUnit)
{
    ShowIn("MASS", "lb");
    ShowIn("LENGTH", "in");
    const std::vector<TypedRow> rows{{"12", "MASS", 12 * 0.45359237},
                                     {"0,5", "MASS", 0.226796185},
                                     {" -2.5 ", "LENGTH", -63.5},
                                     {"2*3,5", "LENGTH", 7 * 25.4},
                                     {"7", "DENSITY", 7}};
    for (const TypedRow& row : rows) {
        const std::optional<double> value = WBReadTypedQuantity(row.typed, row.magnitude);
        ASSERT_TRUE(value) << row.typed;
        EXPECT_DOUBLE_EQ(*value, row.storage) << row.typed;
    }
}

TEST_P(WBTypedQuantityTest, UnitOfTheMagnitudeMayStandBehindANumberOrAnExpression)
{
    const std::vector<TypedRow> rows{
        {"12 lb", "MASS", 5.44310844},
        {"12lb", "MASS", 5.44310844},
        {"12,5 kg", "MASS", 12.5},
        {"500 g", "MASS", 0.5},
        {"2*3 lb", "MASS", 2.72155422},
        {"1/2 inch", "LENGTH", 12.7},
        {"1e3 mm", "LENGTH", 1000},
        {"5 µm", "LENGTH", 0.005},
        {"2 kg*m2", "INERTIAMOMENT", 2},
        {"2*3 kg.mm2", "INERTIAMOMENT", 6e-6},
        {"7.9 g/cm3", "DENSITY", 7900},
        {"6/2 kg/m3", "DENSITY", 3},
        {"1e12 g.mm2", "INERTIAMOMENT", 1000},
        {"5m", "LENGTH", 5000},
    };
    for (const TypedRow& row : rows) {
        const std::optional<double> value = WBReadTypedQuantity(row.typed, row.magnitude);
        ASSERT_TRUE(value) << row.typed;
        EXPECT_DOUBLE_EQ(*value, row.storage) << row.typed;
    }
}

TEST_P(WBTypedQuantityTest, UnitOfAnotherMagnitudeAndAnythingElseIsRefused)
{
    for (const char* typed : {"", "abc", "12 mm", "kg", "12 kgs", "1 lb + 2 kg", "1,2,3 kg",
                              "1.234,5", "12 kg kg", "inf kg", "1e400", "1e308 t", "1/0", "5 %"}) {
        EXPECT_EQ(WBReadTypedQuantity(typed, "MASS"), std::nullopt) << typed;
    }
}

TEST_P(WBTypedQuantityTest, MagnitudeThatNobodyKnowsTakesNumbersAlone)
{
    EXPECT_EQ(WBReadTypedQuantity("2,5", "NO_SUCH_MAGNITUDE"), std::optional(2.5));
    EXPECT_EQ(WBReadTypedQuantity("2.5 kg", "NO_SUCH_MAGNITUDE"), std::nullopt);
    EXPECT_EQ(WBReadTypedQuantity("3", ""), std::optional(3.0));
}

TEST_P(WBTypedQuantityTest, PercentageMayHaveItsSign)
{
    EXPECT_EQ(WBReadTypedPercentage("5"), std::optional(5.0));
    EXPECT_EQ(WBReadTypedPercentage(" 2,5 % "), std::optional(2.5));
    EXPECT_EQ(WBReadTypedPercentage("1/2%"), std::optional(0.5));
    for (const char* typed : {"", "%", "5 kg", "5 %%", "abc"}) {
        EXPECT_EQ(WBReadTypedPercentage(typed), std::nullopt) << typed;
    }
}

TEST_P(WBTypedQuantityTest, TextReadsAsShownWithOrWithoutUnitAndBlanksInEitherSeparator)
{
    for (const char* typed : {"12.346 kg", "12,346 kg", "12.346kg", "12.346", " 12,346 "}) {
        EXPECT_TRUE(WBReadsAsShown(typed, "12.346 kg")) << typed;
        EXPECT_TRUE(WBReadsAsShown(typed, "12,346 kg")) << typed;
    }
    for (const char* typed : {"12.3460", "12.346 g", "12.34", "", "kg"}) {
        EXPECT_FALSE(WBReadsAsShown(typed, "12.346 kg")) << typed;
    }
    EXPECT_TRUE(WBReadsAsShown("", ""));
    EXPECT_TRUE(WBReadsAsShown("3", "3"));
    EXPECT_FALSE(WBReadsAsShown("3", ""));
    EXPECT_FALSE(WBReadsAsShown("", "3"));
    EXPECT_TRUE(WBReadsAsShown("5", "5 kg"));
}
