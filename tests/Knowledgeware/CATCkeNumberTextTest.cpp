#include "CATCkeNumberText.h"
#include "CATNumberLocale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace
{

using Random = std::mt19937_64;

std::string Exactly(double value, int decimals)
{
    return CATCkeShowExactly(value, decimals, "").ToStdString();
}

std::string AtMost(double value, int decimals, CATCkeSmallValues small = CATCkeSmallValues::Plain)
{
    return CATCkeShowAtMost(value, decimals, small, "").ToStdString();
}

/// A value of which the exact digits are known.
struct Rounding
{
    double value;
    int decimals;
    const char* text;
};
constexpr std::array kRoundings{
    // Halves that doubles hold exactly go to the even digit.
    Rounding{0.5, 0, "0"},
    Rounding{1.5, 0, "2"},
    Rounding{2.5, 0, "2"},
    Rounding{-2.5, 0, "-2"},
    Rounding{0.125, 2, "0.12"},
    Rounding{0.375, 2, "0.38"},
    Rounding{4503599627370494.5, 0, "4503599627370494"},
    // What a user takes for a half lies a little above or below it in a double.
    Rounding{1.0005, 3, "1.000"}, // 1.00049999999999994...
    Rounding{0.0005, 3, "0.001"}, // 0.00050000000000000001...
    Rounding{0.0015, 3, "0.002"}, // 0.00150000000000000003...
    Rounding{2.675, 2, "2.67"},   // 2.67499999999999982...
    Rounding{8.345, 2, "8.35"},   // 8.34500000000000063...
    Rounding{0.285, 2, "0.28"},   // 0.28499999999999997...
    Rounding{1.45, 1, "1.4"},     // 1.44999999999999995...
    Rounding{5e-13, 12, "0.000000000000"},
    Rounding{1.5e-12, 12, "0.000000000002"},
    Rounding{5e-16, 15, "0.000000000000001"},
    // A digit that is carried through.
    Rounding{999.9995, 3, "1000.000"},
    Rounding{-0.9999995, 6, "-1.000000"},
    // More steps, or more decimals, than are counted: all digits of the double come.
    Rounding{4503599627370497.5, 0, "4503599627370498"},
    Rounding{450359962737049.5625, 3, "450359962737049.562"},
    Rounding{0.1, 16, "0.1000000000000000"},
    Rounding{0.1, 20, "0.10000000000000000555"},
    Rounding{1e22, 2, "10000000000000000000000.00"},
    // Zeros stand before the digits of what is less than one step.
    Rounding{0.001, 3, "0.001"},
    Rounding{0.01, 3, "0.010"},
    Rounding{0.1, 15, "0.100000000000000"},
    Rounding{0.0, 15, "0.000000000000000"},
};

TEST(CATCkeNumberText, NumbersAreRoundedByTheirExactDigits)
{
    for (const Rounding& row : kRoundings) {
        EXPECT_EQ(Exactly(row.value, row.decimals), row.text) << row.decimals;
    }
}

TEST(CATCkeNumberText, AtMostSoManyDecimalsDropsTheZerosThatEndThem)
{
    EXPECT_EQ(AtMost(12.5, 3), "12.5");
    EXPECT_EQ(AtMost(12.05, 3), "12.05");
    EXPECT_EQ(AtMost(-12.0, 3), "-12");
    EXPECT_EQ(AtMost(1200.0, 0), "1200");
    EXPECT_EQ(AtMost(1200.0, 3), "1200");
    EXPECT_EQ(AtMost(0.0, 12), "0");
    EXPECT_EQ(AtMost(1.111111111111, 12), "1.111111111111");
    EXPECT_EQ(AtMost(0.9996, 3), "1");
}

TEST(CATCkeNumberText, AtMostDropsZerosOfNumbersWithTooManyStepsToCount)
{
    EXPECT_EQ(AtMost(1e15 + 0.5, 3), "1000000000000000.5");
    EXPECT_EQ(AtMost(1e22, 3), "10000000000000000000000");
    EXPECT_EQ(AtMost(-1e22, 3), "-10000000000000000000000");
}

TEST(CATCkeNumberText, WhatRoundsToZeroHasNoSign)
{
    EXPECT_EQ(Exactly(-0.0, 2), "0.00");
    EXPECT_EQ(Exactly(-0.004, 2), "0.00");
    EXPECT_EQ(Exactly(-1e-30, 25), "0.0000000000000000000000000");
    EXPECT_EQ(Exactly(-0.5, 25), "-0.5000000000000000000000000");
    EXPECT_EQ(AtMost(-0.0004, 3), "0");
    EXPECT_EQ(AtMost(-0.0, 0), "0");
    EXPECT_EQ(AtMost(-0.0006, 3), "-0.001");
}

// Without decimals a step is 1: 99.5 shows as 100 and loses 0.503 %, 100.5 shows as 100 and loses
// 0.498 %, 0.9 shows as 1 and loses 11 %.
TEST(CATCkeNumberText, ASmallValueTurnsToTheExponentFormWhenMoreThanHalfAPercentIsLost)
{
    constexpr auto kExponent = CATCkeSmallValues::Exponent;
    EXPECT_EQ(AtMost(99.5, 0, kExponent), "9.95e+01");
    EXPECT_EQ(AtMost(-99.5, 0, kExponent), "-9.95e+01");
    EXPECT_EQ(AtMost(99.5, 0), "100");
    EXPECT_EQ(AtMost(100.5, 0, kExponent), "100");
    EXPECT_EQ(AtMost(101.5, 0, kExponent), "102");
    EXPECT_EQ(AtMost(0.9, 0, kExponent), "9e-01");
    EXPECT_EQ(AtMost(0.0, 0, kExponent), "0");
    EXPECT_EQ(AtMost(1.23456789e-9, 6, kExponent), "1.234568e-09");
    EXPECT_EQ(AtMost(5e-324, 12, kExponent), "4.940656e-324");
}

TEST(CATCkeNumberText, WhatIsNoNumberIsShownAsSuch)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Exactly(infinity, 3), "inf");
    EXPECT_EQ(Exactly(-infinity, 3), "-inf");
    EXPECT_EQ(Exactly(nan, 3), "nan");
    EXPECT_EQ(AtMost(infinity, 3, CATCkeSmallValues::Exponent), "inf");
    EXPECT_EQ(AtMost(-infinity, 3), "-inf");
    EXPECT_EQ(AtMost(nan, 3, CATCkeSmallValues::Exponent), "nan");
}

TEST(CATCkeNumberText, TheSymbolStandsDirectlyBehindTheNumber)
{
    EXPECT_EQ(CATCkeShowExactly(12.5, 1, "kg").ToStdString(), "12.5kg");
    EXPECT_EQ(CATCkeShowAtMost(12.5, 0, CATCkeSmallValues::Plain, "°C").ToStdString(), "12°C");
    EXPECT_EQ(CATCkeShowExactly(1e22, 1, "kg").ToStdString(), "10000000000000000000000.0kg");
}

// The longest text that is counted in steps: a sign, 16 digits with a separator among them, and a
// symbol of 32 bytes.
TEST(CATCkeNumberText, TheLongestNumbersAndSymbolsHaveRoom)
{
    const std::string symbol(32, 's');
    EXPECT_EQ(CATCkeShowExactly(-4.503599627370494, 15, symbol).ToStdString(),
              "-4.503599627370494" + symbol);
    EXPECT_EQ(CATCkeShowExactly(-4503599627370494.0, 0, symbol).ToStdString(),
              "-4503599627370494" + symbol);
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(CATCkeShowExactly(-largest, 1074, symbol).ToStdString().size(),
              1U + 309U + 1U + 1074U + symbol.size());
    EXPECT_EQ(CATCkeShowExactly(0.5, 2000, symbol).ToStdString(),
              "0.5" + std::string(1073, '0') + symbol);
}

TEST(CATCkeNumberText, AnotherLocaleIsSeenAtOnce)
{
    EXPECT_EQ(Exactly(12.5, 1), "12.5");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(Exactly(12.5, 1), "12,5");
    EXPECT_EQ(AtMost(12.5, 3), "12,5");
    EXPECT_EQ(Exactly(1e22, 1), "10000000000000000000000,0");
    EXPECT_EQ(AtMost(1.5e-9, 3, CATCkeSmallValues::Exponent), "1,5e-09");
    CATUseNumberLocale("C");
    EXPECT_EQ(Exactly(12.5, 1), "12.5");
}

class InLocale : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { ASSERT_TRUE(CATUseNumberLocale(GetParam())); }
    void TearDown() override { CATUseNumberLocale("C"); }
};

/// How the C library writes a value in the session's locale, but for the sign of a zero.
std::string Printed(const char* format, int decimals, double value)
{
    std::array<char, 500> text{};
    std::snprintf(text.data(), text.size(), format, decimals, value);
    const bool isSignedZero =
        text.front() == '-' && std::strcspn(text.data(), "123456789in") == std::strlen(text.data());
    return text.data() + (isSignedZero ? 1 : 0);
}

/// Drops the zeros that end the decimals, and a separator that is left without any.
std::string WithoutTrailingZeros(const std::string& text)
{
    const std::size_t separator = text.find_first_of(".,");
    if (separator == std::string::npos) {
        return text;
    }
    const std::size_t exponent = std::min(text.find('e'), text.size());
    const std::size_t last = text.find_last_not_of('0', exponent - 1);
    return text.substr(0, last == separator ? separator : last + 1) + text.substr(exponent);
}

std::string ExpectedAtMost(double value, int decimals, CATCkeSmallValues small)
{
    const std::string fixed = Printed("%.*f", decimals, value);
    const double back = std::strtod(fixed.c_str(), nullptr);
    if (small == CATCkeSmallValues::Exponent && std::isfinite(value) &&
        std::fabs(back - value) > 0.005 * std::fabs(value)) {
        return WithoutTrailingZeros(Printed("%.*e", 6, value));
    }
    return WithoutTrailingZeros(fixed);
}

/// A family of values: what a value of it is, for values shown with so many decimals.
struct Family
{
    const char* name;
    double (*make)(Random& random, int decimals);
};

double Whole(Random& random, int mostDigits)
{
    const double below = std::pow(10.0, std::uniform_int_distribution<>(0, mostDigits)(random));
    return std::floor(std::uniform_real_distribution<>(0.0, below)(random));
}

double Neighbour(Random& random, double value)
{
    const std::array neighbours{value, std::nextafter(value, 0.0), std::nextafter(value, 1e300)};
    return neighbours[random() % neighbours.size()];
}

constexpr std::array kFamilies{
    Family{"any bits",
           [](Random& random, int /*decimals*/) {
               const std::uint64_t bits = random();
               double value = 0.0;
               std::memcpy(&value, &bits, sizeof(value));
               return std::isnan(value) ? 0.0 : value;
           }},
    Family{"measured values",
           [](Random& random, int /*decimals*/) {
               return std::pow(10.0, std::uniform_real_distribution<>(-12.0, 12.0)(random));
           }},
    Family{"decimals as they are typed",
           [](Random& random, int decimals) {
               return Whole(random, 16) / std::pow(10.0, decimals);
           }},
    Family{"halves as they are typed, and their neighbours",
           [](Random& random, int decimals) {
               return Neighbour(random, (Whole(random, 15) + 0.5) / std::pow(10.0, decimals));
           }},
    // An odd number of 2^-(n+1) has a half behind its n-th decimal.
    Family{"exact halves",
           [](Random& random, int decimals) {
               return std::ldexp(2.0 * Whole(random, 9) + 1.0, -(decimals + 1));
           }},
    Family{"about the most steps that are counted",
           [](Random& random, int decimals) {
               const double steps = 0x1p52 + std::uniform_real_distribution<>(-4.0, 9.0)(random);
               return Neighbour(random, steps / std::pow(10.0, decimals));
           }},
};

TEST_P(InLocale, AnyValueIsShownDigitForDigitAsTheCLibraryWritesIt)
{
    constexpr int kValuesOfAFamily = 90'000;
    constexpr int kMostDecimals = 18;
    for (const Family& family : kFamilies) {
        Random random(20'240'229);
        for (int count = 0; count < kValuesOfAFamily; ++count) {
            const int decimals = std::uniform_int_distribution<>(0, kMostDecimals)(random);
            const double size = family.make(random, decimals);
            const double value = random() % 2 == 0 ? size : -size;
            const std::string shown = Exactly(value, decimals);
            const std::string expected = Printed("%.*f", decimals, value);
            if (shown != expected) {
                FAIL() << family.name << ": " << shown << " instead of " << expected;
            }
        }
    }
}

TEST_P(InLocale, AnyValueIsShownInAUnitsOwnWayWithTheDigitsOfTheCLibrary)
{
    constexpr int kValuesOfAFamily = 45'000;
    for (const Family& family : kFamilies) {
        Random random(19'600'101);
        for (int count = 0; count < kValuesOfAFamily; ++count) {
            const int decimals = std::uniform_int_distribution<>(0, kCATCkeMostDecimals)(random);
            const auto small =
                random() % 2 == 0 ? CATCkeSmallValues::Plain : CATCkeSmallValues::Exponent;
            const double size = family.make(random, decimals);
            const double value = random() % 2 == 0 ? size : -size;
            const std::string shown = AtMost(value, decimals, small);
            const std::string expected = ExpectedAtMost(value, decimals, small);
            if (shown != expected) {
                FAIL() << family.name << ": " << shown << " instead of " << expected << " at "
                       << decimals;
            }
        }
    }
}

// Where half a percent begins: values of up to 120 steps.
TEST_P(InLocale, SmallValuesTurnToTheExponentFormAsTheirTextReadsBack)
{
    Random random(11);
    for (int count = 0; count < 100'000; ++count) {
        const int decimals = std::uniform_int_distribution<>(0, kCATCkeMostDecimals)(random);
        const double steps = count % 2 == 0 ? std::uniform_real_distribution<>(0.0, 120.0)(random)
                                            : static_cast<double>(random() % 240) / 2.0;
        const double value = Neighbour(random, steps / std::pow(10.0, decimals));
        const std::string shown = AtMost(value, decimals, CATCkeSmallValues::Exponent);
        const std::string expected = ExpectedAtMost(value, decimals, CATCkeSmallValues::Exponent);
        if (shown != expected) {
            FAIL() << shown << " instead of " << expected << " at " << decimals;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(CATCkeNumberText, InLocale, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& each) {
                             return std::string(each.param) == "C" ? "Point" : "Comma";
                         });

} // namespace
