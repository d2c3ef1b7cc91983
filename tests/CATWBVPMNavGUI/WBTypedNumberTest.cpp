#include "WBTypedNumber.h"

#include "CATNumberLocale.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace
{

struct TypedRow
{
    const char* typed;
    double value;
};

class WBTypedNumberTest : public testing::TestWithParam<const char*>
{
protected:
    WBTypedNumberTest() { EXPECT_TRUE(CATUseNumberLocale(GetParam())); }
    ~WBTypedNumberTest() override { CATUseNumberLocale("C"); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSeparators, WBTypedNumberTest, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& locale) { return locale.index == 0 ? "Point" : "Comma"; });

TEST_P(WBTypedNumberTest, NumbersAreReadWithEitherSeparator)
{
    const std::vector<TypedRow> rows{
        {"2500", 2500},
        {"2500.5", 2500.5},
        {"2500,5", 2500.5},
        {"-0,25", -0.25},
        {"+3", 3},
        {"  7 ", 7},
        {"1e3", 1000},
        {"2.5E-2", 0.025},
        {"12345.678901", 12345.678901},
        {"1000000000", 1e9},
        {"-1000000000", -1e9},
        {".5", 0.5},
        {"0", 0},
    };
    for (const TypedRow& row : rows) {
        EXPECT_EQ(WBReadTypedNumber(row.typed), std::optional(row.value)) << row.typed;
    }
}

TEST_P(WBTypedNumberTest, TwoNumbersWithAnOperatorAreReckoned)
{
    const std::vector<TypedRow> rows{
        {"2500/2", 1250}, {"2500,5 * 2", 5001}, {"2500.5*2", 5001}, {"2+3", 5},
        {"10-4", 6},      {"2^10", 1024},       {"-2500/2", -1250}, {"-2^2", -4},
        {"-2,5*2", -5},   {"10--4", 14},        {"1/3", 0.333333},
    };
    for (const TypedRow& row : rows) {
        const std::optional<double> value = WBReadTypedNumber(row.typed);
        ASSERT_TRUE(value) << row.typed;
        EXPECT_DOUBLE_EQ(*value, row.value) << row.typed;
    }
}

TEST_P(WBTypedNumberTest, EverythingElseIsRefused)
{
    for (const char* typed : {"",     "  ",   "abc",   "12 mm", "1.234,5", "1,2,3",      "inf",
                              "nan",  "0x10", "1e10",  "+-3",   "++3",     "-",          "+",
                              "/2",   "2/",   "abc-5", "5-abc", "1+2+3",   "2*3+4",      "2*-3",
                              "-5-3", "-5+3", "1/0",   "10^20", "5mm/2",   "1000000001", "1e999"}) {
        EXPECT_EQ(WBReadTypedNumber(typed), std::nullopt) << typed;
    }
}
