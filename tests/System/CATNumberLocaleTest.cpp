#include "CATNumberLocale.h"
#include "CATUnicodeString.h"
#include "FatalErrorCapture.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <dlfcn.h>
#include <langinfo.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace
{

// What the system says the separator is, while a test puts its own in its place.
const char* testSeparator = nullptr;

} // namespace

// Stands before the C library's for the whole program: no installed locale has a separator of
// several bytes or none, and the readers must bear both.
extern "C" __attribute__((visibility("default"))) char* nl_langinfo(nl_item item) noexcept
{
    static const auto real = reinterpret_cast<char* (*)(nl_item)>(dlsym(RTLD_NEXT, "nl_langinfo"));
    static std::string separator;
    if (item == RADIXCHAR && testSeparator != nullptr) {
        separator = testSeparator;
        return separator.data();
    }
    return real(item);
}

namespace
{

class TestSeparator
{
public:
    explicit TestSeparator(const char* separator) { testSeparator = separator; }
    TestSeparator(const TestSeparator&) = delete;
    TestSeparator& operator=(const TestSeparator&) = delete;
    ~TestSeparator() { testSeparator = nullptr; }
};

class InLocale : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { ASSERT_TRUE(CATUseNumberLocale(GetParam())); }
    void TearDown() override { CATUseNumberLocale("C"); }
};

struct Read
{
    int count;
    double value;
};

bool AreSame(const Read& a, const Read& b)
{
    if (a.count != b.count || std::signbit(a.value) != std::signbit(b.value)) {
        return false;
    }
    return std::isnan(a.value) ? std::isnan(b.value)
                               : std::memcmp(&a.value, &b.value, sizeof(double)) == 0;
}

constexpr double kUntouched = -77.0;

Read OurReal(const std::string& text)
{
    Read read{0, kUntouched};
    read.count = CATReadReal(text, read.value);
    return read;
}

Read TheirReal(const std::string& text)
{
    Read read{0, kUntouched};
    read.count = std::max(std::sscanf(text.c_str(), "%le", &read.value), 0);
    return read;
}

void ExpectRealsAsTheLibrary(const std::vector<std::string>& texts)
{
    for (const std::string& text : texts) {
        EXPECT_TRUE(AreSame(OurReal(text), TheirReal(text)))
            << '"' << text << "\": " << OurReal(text).count << " " << OurReal(text).value
            << ", the library " << TheirReal(text).count << " " << TheirReal(text).value;
    }
}

rc::Gen<std::vector<std::string>> Texts(const std::vector<std::string>& pieces)
{
    const auto text = rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)),
        [](const std::vector<std::string>& parts) {
            std::string whole;
            for (std::size_t index = 0; index < std::min<std::size_t>(parts.size(), 9); ++index) {
                whole += parts[index];
            }
            return whole;
        });
    return rc::gen::container<std::vector<std::string>>(100, text);
}

double FromBits(std::uint64_t bits)
{
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

std::string Printed(const char* format, double value)
{
    char text[1200];
    std::snprintf(text, sizeof(text), format, value);
    return text;
}

TEST_P(InLocale, RealsAreReadAsTheLibraryReadsThem)
{
    ExpectRealsAsTheLibrary({"",
                             " ",
                             "12.3456",
                             "12,3456",
                             "  \t\n\v\f\r7",
                             "+3.5",
                             "-3,5",
                             "+-3",
                             "-+3",
                             "--3",
                             "3abc",
                             "abc",
                             ".5",
                             ",5",
                             ".",
                             ",",
                             "5.",
                             "5,",
                             "-.",
                             "1e5",
                             "1E5",
                             "1e",
                             "1e+",
                             "1e-",
                             "1e+5",
                             "1.5e3.2",
                             "1.e2",
                             ".e2",
                             "1e5e6",
                             "1e999",
                             "-1e999",
                             "1e-999",
                             "-1e-999",
                             "4e-320",
                             "5e-324",
                             "2e-324",
                             "0x10",
                             "0X1F",
                             "0x",
                             "0xg",
                             "0x.8",
                             "0x,8",
                             "0x.",
                             "0x,",
                             "0x1p4",
                             "0x1P-2",
                             "0x1p",
                             "0xp1",
                             "-0x1.8p1",
                             "-0x1,8p1",
                             "0x1e5",
                             "0x1p1f",
                             "0x1p99999",
                             "0",
                             "-0",
                             "+0",
                             "00x1",
                             "inf",
                             "INF",
                             "-inf",
                             "+Infinity",
                             "infi",
                             "infinit",
                             "infx",
                             "infinityx",
                             "in",
                             "i",
                             "nan",
                             "NaN",
                             "-nan",
                             "nan(12)",
                             "na",
                             "n",
                             "1.2.3",
                             "1,2,3",
                             "1.2,3",
                             "1,234.5",
                             "1 2",
                             "- 1",
                             "+",
                             "-",
                             "9007199254740993",
                             "0.1",
                             "179769313486231580793e289",
                             "1.7976931348623159e308",
                             "e5",
                             "x",
                             "0e0",
                             "0x0p0",
                             "1_000",
                             "1'000",
                             "\xc2\xa0"
                             "1",
                             "1d5",
                             "1f",
                             "00012",
                             "-00,5"});
}

// A number that is not written with a point is read from a copy that has room for 64 bytes.
TEST_P(InLocale, RealTextsOfAnyLengthAreReadAsTheLibraryReadsThem)
{
    std::vector<std::string> texts;
    for (const std::size_t length : {1, 15, 60, 61, 62, 63, 64, 65, 66, 1000}) {
        for (const char* separator : {",", "."}) {
            const std::string decimals = separator + std::string(length, '3');
            texts.insert(texts.end(),
                         {"1" + decimals, "-12" + decimals, decimals, "1" + decimals + "e3",
                          "1" + decimals + "e-7", std::string(length, '9') + separator + "5",
                          "4" + std::string(separator) + "5" + std::string(length, ';'),
                          "4" + std::string(separator) + "5" + std::string(length, ',')});
        }
    }
    ExpectRealsAsTheLibrary(texts);
}

TEST_P(InLocale, RealsAreReadWithTheSeparatorThatIsNamed)
{
    double value = 0.0;
    EXPECT_EQ(CATReadReal(" -12,5kg", ",", value), 1);
    EXPECT_EQ(value, -12.5);
    EXPECT_EQ(CATReadReal(" -12.5kg", ".", value), 1);
    EXPECT_EQ(value, -12.5);
    EXPECT_EQ(CATReadReal("12.5", ",", value), 1);
    EXPECT_EQ(value, 12.0);
    EXPECT_EQ(CATReadReal("12,5", ".", value), 1);
    EXPECT_EQ(value, 12.0);
    EXPECT_EQ(CATReadReal(",5e1", ",", value), 1);
    EXPECT_EQ(value, 5.0);
    EXPECT_EQ(CATReadReal("0x1,8", ",", value), 1);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(CATReadReal("kg", ",", value), 0);
    EXPECT_EQ(value, 1.5);
}

TEST_P(InLocale, RealTextsOfAnyShapeAreReadAsTheLibraryReadsThem)
{
    const std::vector<std::string> pieces{"",    " ",    "\t",
                                          "\n",  "+",    "-",
                                          "0",   "1",    "12",
                                          "9",   ".",    ",",
                                          "e",   "E",    "e-",
                                          "e+",  "0x",   "0X",
                                          "p",   "p-",   "inf",
                                          "INF", "infi", "nan",
                                          "(",   "a",    "f",
                                          "30",  "x",    "|",
                                          "400", "-320", "99999999999999999999999999",
                                          "i",   "nity", "000000000000000000000000000"};
    EXPECT_TRUE(rc::check("reads as sscanf", [&] {
        for (const std::string& text : *Texts(pieces)) {
            RC_LOG() << '"' << text << "\" ";
            RC_ASSERT(AreSame(OurReal(text), TheirReal(text)));
        }
    }));
}

TEST_P(InLocale, EveryRealIsReadBackFromItsText)
{
    EXPECT_TRUE(rc::check("there and back", [] {
        for (const std::uint64_t bits : *rc::gen::container<std::vector<std::uint64_t>>(
                 100, rc::gen::arbitrary<std::uint64_t>())) {
            for (const double value : {FromBits(bits), FromBits(bits * 0x9e3779b97f4a7c15U)}) {
                for (const char* format : {"%.17g", "%g", "%a", "%f", "%.25e"}) {
                    const std::string text = Printed(format, value);
                    RC_LOG() << text << ' ';
                    RC_ASSERT(AreSame(OurReal(text), TheirReal(text)));
                }
            }
        }
    }));
}

TEST_P(InLocale, RealsAreWrittenAsTheLibraryWritesThem)
{
    const auto expect = [](double value) {
        for (const char* format :
             {"%g", "%.3g", "%.15g", "%.17g", "%.0g", "%.g", "%.1g", "%.80g", "%.999g"}) {
            RC_LOG() << format << ' ' << Printed("%a", value) << ' ';
            RC_ASSERT(CATUnicodeString::FromReal(value, format).ToStdString() ==
                      Printed(format, value));
        }
    };
    EXPECT_TRUE(rc::check("named values", [&] {
        const double infinity = std::numeric_limits<double>::infinity();
        const double nan = std::numeric_limits<double>::quiet_NaN();
        for (const double value :
             {0.0, -0.0, 0.1, 0.12345, 1e-5, 1e-4, 123456.0, 1234567.0, 999999.5, 1e15, 1e16,
              5e-324, 1.7976931348623157e308, infinity, -infinity, nan, -nan, 2.5, 0.5}) {
            expect(value);
        }
    }));
    EXPECT_TRUE(rc::check("any bits", [&] {
        for (const std::uint64_t bits : *rc::gen::container<std::vector<std::uint64_t>>(
                 20, rc::gen::arbitrary<std::uint64_t>())) {
            expect(FromBits(bits * 0x9e3779b97f4a7c15U));
        }
    }));
    EXPECT_TRUE(rc::check("everyday numbers", [&] {
        for (const int thousandths :
             *rc::gen::container<std::vector<int>>(20, rc::gen::arbitrary<int>())) {
            expect(thousandths / 1000.0);
        }
    }));
}

TEST_P(InLocale, IntegersAreReadAsTheLibraryReadsThem)
{
    const auto expectSame = [](const std::string& text) {
        int ours = -77;
        int theirs = -77;
        const int ourCount = CATReadInt(text, ours);
        const int theirCount = std::max(std::sscanf(text.c_str(), "%d", &theirs), 0);
        return ourCount == theirCount && ours == theirs;
    };
    for (const char* text : {"",
                             " ",
                             "0",
                             "7",
                             " \t\n\v\f\r42",
                             "+5",
                             "-5",
                             "+-5",
                             "-+5",
                             "--5",
                             "++5",
                             "5x",
                             "x5",
                             "0x10",
                             "010",
                             "3.7",
                             "3,7",
                             "1e3",
                             "- 5",
                             "2147483647",
                             "2147483648",
                             "-2147483648",
                             "-2147483649",
                             "4294967296",
                             "4294967297",
                             "9223372036854775807",
                             "9223372036854775808",
                             "-9223372036854775808",
                             "-9223372036854775809",
                             "99999999999999999999999",
                             "+",
                             "-",
                             "1 2",
                             "+99999999999999999999999"}) {
        EXPECT_TRUE(expectSame(text)) << text;
    }
    const std::vector<std::string> pieces{"",         " ",  "\n", "+",       "-", "0", "1",
                                          "21474836", "47", "48", "9999999", "x", ".", ","};
    EXPECT_TRUE(rc::check("reads as sscanf", [&] {
        for (const std::string& text : *Texts(pieces)) {
            RC_LOG() << '"' << text << "\" ";
            RC_ASSERT(expectSame(text));
        }
    }));
}

INSTANTIATE_TEST_SUITE_P(CATNumberLocale, InLocale, testing::Values("C", "de_DE.UTF-8"),
                         [](const auto& each) {
                             return std::string(each.param) == "C" ? "Point" : "Comma";
                         });

TEST(CATNumberLocale, UnknownLocaleIsRefusedAndTheOldOneStays)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_FALSE(CATUseNumberLocale("xx_XX.nothing"));
    EXPECT_EQ(CATDecimalSeparator(), ",");
    ASSERT_TRUE(CATUseNumberLocale("C"));
    EXPECT_EQ(CATDecimalSeparator(), ".");
}

TEST(CATNumberLocale, SeparatorOfSeveralBytesIsReadAndWritten)
{
    const TestSeparator separator("\xd9\xab");
    EXPECT_EQ(CATDecimalSeparator(), "\xd9\xab");
    double value = 0.0;
    EXPECT_EQ(CATReadReal("-12\xd9\xab"
                          "5kg",
                          value),
              1);
    EXPECT_EQ(value, -12.5);
    EXPECT_EQ(CATReadReal("\xd9\xab"
                          "25",
                          value),
              1);
    EXPECT_EQ(value, 0.25);
    EXPECT_EQ(CATReadReal("12.5", value), 1);
    EXPECT_EQ(value, 12.0);
    EXPECT_EQ(CATReadReal("7\xd9", value), 1);
    EXPECT_EQ(value, 7.0);
    EXPECT_EQ(CATUnicodeString::FromReal(0.25), "0\xd9\xab"
                                                "25");
}

TEST(CATNumberLocale, SeparatorThatBeginsWithAPointIsTakenWhole)
{
    const TestSeparator separator(".'");
    double value = 0.0;
    EXPECT_EQ(CATReadReal("1.5", value), 1);
    EXPECT_EQ(value, 1.0);
    EXPECT_EQ(CATReadReal("1.'5", value), 1);
    EXPECT_EQ(value, 1.5);
}

TEST(CATNumberLocale, MissingSeparatorCountsAsAPoint)
{
    const TestSeparator separator("");
    EXPECT_EQ(CATDecimalSeparator(), ".");
    double value = 0.0;
    EXPECT_EQ(CATReadReal("1.5", value), 1);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(CATUnicodeString::FromReal(1.5), "1.5");
}

TEST(CATNumberLocale, TextNeedNotEndWhereTheBytesEnd)
{
    const std::string_view whole = "123456";
    int integer = 0;
    EXPECT_EQ(CATReadInt(whole.substr(0, 2), integer), 1);
    EXPECT_EQ(integer, 12);
    double real = 0.0;
    EXPECT_EQ(CATReadReal(whole.substr(1, 3), real), 1);
    EXPECT_EQ(real, 234.0);
    EXPECT_EQ(CATReadReal(std::string_view("0x1f").substr(0, 2), real), 0);
}

TEST(CATUnicodeString, ReadsAndWritesNumbersInTheSessionsLocale)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    double real = 0.0;
    int integer = 0;
    EXPECT_EQ(CATUnicodeString(" 3,5kg").ReadReal(real), 1);
    EXPECT_EQ(real, 3.5);
    EXPECT_EQ(CATUnicodeString(" 12|").ReadInt(integer), 1);
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(CATUnicodeString::FromReal(-0.1), "-0,1");
    EXPECT_EQ(CATUnicodeString::FromReal(1234567.0, "%g"), "1,23457e+06");
    CATUseNumberLocale("C");
    EXPECT_EQ(CATUnicodeString("abc").ReadReal(real), 0);
    EXPECT_EQ(real, 3.5);
    EXPECT_EQ(CATUnicodeString("").ReadInt(integer), 0);
    EXPECT_EQ(integer, 12);
}

TEST(CATUnicodeString, WritesIntegers)
{
    EXPECT_EQ(CATUnicodeString::FromInt(0), "0");
    EXPECT_EQ(CATUnicodeString::FromInt(2147483647), "2147483647");
    EXPECT_EQ(CATUnicodeString::FromInt(-2147483647 - 1), "-2147483648");
}

TEST(CATUnicodeString, AnyOtherFormatOfARealIsAFatalError)
{
    const FatalErrorCapture fatal;
    for (const char* format :
         {"", "%", "g", "%f", "%.3f", "%5g", "%g ", " %g", "%.-3g", "%.1000g", "%.3lg", "%.a"}) {
        EXPECT_EQ(CATUnicodeString::FromReal(1.0, format), "") << format;
    }
    EXPECT_EQ(CATUnicodeString::FromReal(1.0, nullptr), "");
    ASSERT_EQ(fatal.Errors().size(), 13U);
    EXPECT_EQ(fatal.Errors()[3].Text(), "not a format of a real: %f");
    EXPECT_EQ(fatal.Errors()[3].Source(), "CATUnicodeString");
}

} // namespace
