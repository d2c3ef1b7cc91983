#include "ReportArguments.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{

CATWBReportConversion Read(const ConvertReportOptions& options)
{
    std::string problem;
    const std::optional<CATWBReportConversion> conversion = ReadReportConversion(options, problem);
    EXPECT_TRUE(conversion) << problem;
    EXPECT_THAT(problem, IsEmpty());
    return conversion.value_or(CATWBReportConversion());
}

std::string Refusal(const ConvertReportOptions& options)
{
    std::string problem;
    EXPECT_FALSE(ReadReportConversion(options, problem));
    return problem;
}

template <class Member>
ConvertReportOptions With(Member ConvertReportOptions::*member, const char* text)
{
    ConvertReportOptions options;
    options.*member = text;
    return options;
}

std::string AxesRefusal(const char* text)
{
    return Refusal(With(&ConvertReportOptions::axes, text));
}

std::string ReferenceRefusal(const char* text)
{
    return Refusal(With(&ConvertReportOptions::reference, text));
}

} // namespace

TEST(ReportArguments, WithoutOptionsAStoredReportIsShownInItsUnitsOwnWay)
{
    const CATWBReportConversion conversion = Read({});
    EXPECT_EQ(conversion.kind, CATWBReportConversion::Kind::Report);
    EXPECT_EQ(conversion.values, CATWBReportConversion::Values::Stored);
    EXPECT_FALSE(conversion.withSymbols);
    EXPECT_EQ(conversion.decimals, 0);
    EXPECT_FALSE(conversion.axes);
    EXPECT_FALSE(conversion.reference);
    EXPECT_FALSE(conversion.keepInertiaAtCentre);
}

TEST(ReportArguments, EachFlagSetsItsOwnPart)
{
    ConvertReportOptions options;
    options.distributive = true;
    EXPECT_EQ(Read(options).kind, CATWBReportConversion::Kind::Distributive);
    options = {};
    options.display = true;
    EXPECT_EQ(Read(options).values, CATWBReportConversion::Values::Current);
    options = {};
    options.symbols = true;
    EXPECT_TRUE(Read(options).withSymbols);
    options = With(&ConvertReportOptions::reference, "0,0,0");
    options.keepAtCentre = true;
    EXPECT_TRUE(Read(options).keepInertiaAtCentre);
}

TEST(ReportArguments, DecimalsAreWholeNumbersFromMinusOneToFifteen)
{
    for (const auto& [text, decimals] :
         {std::pair("-1", -1), {"0", 0}, {" 3 ", 3}, {"+4", 4}, {"15", 15}}) {
        EXPECT_EQ(Read(With(&ConvertReportOptions::decimals, text)).decimals, decimals);
    }
    for (const char* text : {"", "-2", "16", "1.5", "two", "3x", "99999999999", "+-1"}) {
        EXPECT_EQ(Refusal(With(&ConvertReportOptions::decimals, text)),
                  std::string("--decimals: expected a whole number from -1 to 15, found \"") +
                      text + "\"");
    }
}

TEST(ReportArguments, ReferenceIsThreeNumbers)
{
    EXPECT_EQ(Read(With(&ConvertReportOptions::reference, "-1.5, +2e3,0")).reference,
              CATMathPoint(-1.5, 2000, 0));
}

TEST(ReportArguments, AxesAreNineNumbersRowByRow)
{
    EXPECT_EQ(Read(With(&ConvertReportOptions::axes, "1,2,3,0,4,5,0,0,6")).axes,
              CATMath3x3Matrix(1, 2, 3, 0, 4, 5, 0, 0, 6));
}

TEST(ReportArguments, TooFewOrTooManyNumbersAreCounted)
{
    EXPECT_EQ(ReferenceRefusal("1,2"), "--reference: expected X,Y,Z, three numbers in mm with "
                                       "\".\" for the decimal mark, found 2 in \"1,2\"");
    // A decimal comma makes two of each number.
    EXPECT_THAT(ReferenceRefusal("1,5,2,5,3,5"), HasSubstr("found 6 in"));
    EXPECT_THAT(ReferenceRefusal("1,2,3,"), HasSubstr("found 4 in"));
    EXPECT_EQ(AxesRefusal("1"), "--axes: expected a11,a12,a13,a21,...,a33, nine numbers row by "
                                "row with \".\" for the decimal mark, found 1 in \"1\"");
    EXPECT_THAT(AxesRefusal("1,0,0,0,1,0,0,0,1,0"), HasSubstr("found 10 in"));
}

TEST(ReportArguments, WhatIsNoNumberIsNamed)
{
    EXPECT_EQ(ReferenceRefusal("1,b,3"), "--reference: expected X,Y,Z, three numbers in mm with "
                                         "\".\" for the decimal mark, found \"b\" in \"1,b,3\"");
    for (const char* bad :
         {"", "1 2", "1e", "0x1", "nan", "inf", "-inf", "1e999", "1mm", "--1", "+-1", "+", "1;2"}) {
        const std::string quoted = std::string("found \"") + bad + "\" in ";
        EXPECT_THAT(ReferenceRefusal((std::string("1,2,") + bad).c_str()), HasSubstr(quoted));
        EXPECT_THAT(AxesRefusal((std::string("1,0,0,0,1,0,0,0,") + bad).c_str()),
                    AllOf(StartsWith("--axes: "), HasSubstr(quoted)));
    }
}

TEST(ReportArguments, SingularAxesAreRefused)
{
    EXPECT_EQ(AxesRefusal("1,0,0,0,1,0,0,0,0"), "--axes: expected a matrix that has an inverse, "
                                                "found the singular \"1,0,0,0,1,0,0,0,0\"");
    // The third row is the sum of the others, which rounding hides from the determinant.
    for (const char* axes :
         {"0,0,0,0,0,0,0,0,0", "1,2,3,4,5,6,7,8,9", "0.1,0.2,0.3,0.4,0.5,0.7,0.5,0.7,1.0",
          "1e300,0,0,0,1e300,0,0,0,1e300"}) {
        EXPECT_THAT(AxesRefusal(axes), HasSubstr("singular"));
    }
}

TEST(ReportArguments, SmallAxesAreNotSingular)
{
    EXPECT_TRUE(Read(With(&ConvertReportOptions::axes, "1e-6,0,0,0,1e-6,0,0,0,1e-6")).axes);
}

TEST(ReportArguments, KeepingTheCentreNeedsAReferencePoint)
{
    ConvertReportOptions options;
    options.keepAtCentre = true;
    EXPECT_EQ(Refusal(options), "--keep-cog: expected --reference beside it, found none");
}

TEST(ReportArguments, RotationsGiveNoWarning)
{
    EXPECT_THAT(AxesWarning(CATMath3x3Matrix::Identity()), IsEmpty());
    EXPECT_THAT(AxesWarning({0, -1, 0, 1, 0, 0, 0, 0, 1}), IsEmpty());
    // 30 degrees with six decimals.
    EXPECT_THAT(AxesWarning({0.866025, -0.5, 0, 0.5, 0.866025, 0, 0, 0, 1}), IsEmpty());
}

TEST(ReportArguments, OtherMatricesSayHowFarTheyAreFromARotation)
{
    // The square of 2 is 4, 3 away from 1.
    EXPECT_THAT(AxesWarning({2, 0, 0, 0, 1, 0, 0, 0, 1}),
                StartsWith("--axes is not a rotation (its rows are off by 3): "));
    // 2 x 0.707 x 0.707 is 0.999698.
    EXPECT_THAT(AxesWarning({0.707, -0.707, 0, 0.707, 0.707, 0, 0, 0, 1}),
                HasSubstr("off by 0.0003"));
    EXPECT_THAT(AxesWarning({1, 0.5, 0, 0, 1, 0, 0, 0, 1}), HasSubstr("off by 0.5"));
}

TEST(ReportArguments, MirroringIsSaid)
{
    EXPECT_EQ(AxesWarning({-1, 0, 0, 0, 1, 0, 0, 0, 1}),
              "--axes is not a rotation: it turns a right hand into a left one");
}
