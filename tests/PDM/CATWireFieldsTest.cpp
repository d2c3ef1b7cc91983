#include "CATWireFields.h"

#include "CATNumberLocale.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
void ExpectFault(const CATWireFields& fields, int field, const char* expected)
{
    EXPECT_FALSE(fields.IsSound());
    EXPECT_EQ(fields.WrongField(), field);
    EXPECT_EQ(fields.Expected(), expected);
}

TEST(CATWireFields, ReadsFieldsFrontToBack)
{
    CATWireFields fields("Räder||3|1|0|-1.5e2|0|12|");
    EXPECT_EQ(fields.Text(), "Räder");
    EXPECT_EQ(fields.Text(), "");
    EXPECT_EQ(fields.Count(), 3);
    EXPECT_TRUE(fields.Flag());
    EXPECT_FALSE(fields.Flag());
    EXPECT_EQ(fields.Real(), -150.0);
    EXPECT_EQ(fields.Count(), 0);
    EXPECT_EQ(fields.Quantity(), 12);
    fields.End();
    EXPECT_TRUE(fields.IsSound());
    EXPECT_EQ(fields.WrongField(), 0);
    EXPECT_EQ(fields.Expected(), "");
}

TEST(CATWireFields, ReadsPointsWhereTheSessionWritesCommas)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    CATWireFields fields("0.5|0,5|");
    EXPECT_EQ(fields.Real(), 0.5);
    EXPECT_EQ(fields.Real(), 0.0);
    ExpectFault(fields, 2, "a number");
    ASSERT_TRUE(CATUseNumberLocale("C.UTF-8"));
}

TEST(CATWireFields, ATextThatTravelsAsNothingIsEmpty)
{
    CATWireFields fields("__null__|__null__s|");
    EXPECT_EQ(fields.Text(), "");
    EXPECT_EQ(fields.Text(), "__null__s");
    EXPECT_TRUE(fields.IsSound());
}

TEST(CATWireFields, AMissingFieldIsAFault)
{
    CATWireFields fields("one|");
    fields.Text();
    EXPECT_EQ(fields.Text(), "");
    ExpectFault(fields, 2, "there");
}

TEST(CATWireFields, AFieldThatIsNotEndedIsAFault)
{
    CATWireFields fields("one|tw");
    fields.Text();
    EXPECT_EQ(fields.Text(), "");
    ExpectFault(fields, 2, "there");
}

TEST(CATWireFields, AMissingNumberIsMissingAndNotMisspelled)
{
    CATWireFields fields("");
    EXPECT_EQ(fields.Real(), 0.0);
    ExpectFault(fields, 1, "there");
}

TEST(CATWireFields, WhatFollowsTheEndIsAFault)
{
    CATWireFields fields("one|two");
    fields.Text();
    fields.End();
    ExpectFault(fields, 2, "the end");
}

TEST(CATWireFields, TheFirstFaultStaysAndStopsTheReading)
{
    CATWireFields fields("x|1|1|left");
    EXPECT_EQ(fields.Count(), 0);
    EXPECT_FALSE(fields.Flag());
    EXPECT_EQ(fields.Quantity(), 0);
    fields.End();
    ExpectFault(fields, 1, "a count");
}

TEST(CATWireFields, CountsAreNotNegativeWholeNumbersThatFillTheirField)
{
    for (const char* text : {"-1|", "|", "1.0|", " 1|", "1 |", "+1|", "0x1|", "9999999999|"}) {
        CATWireFields fields(text);
        EXPECT_EQ(fields.Count(), 0) << text;
        ExpectFault(fields, 1, "a count");
    }
}

TEST(CATWireFields, QuantitiesAreOneOrMore)
{
    for (const char* text : {"0|", "-2|", "|", "1.5|"}) {
        CATWireFields fields(text);
        EXPECT_EQ(fields.Quantity(), 0) << text;
        ExpectFault(fields, 1, "a number of pieces");
    }
    CATWireFields one("1|");
    EXPECT_EQ(one.Quantity(), 1);
}

TEST(CATWireFields, FlagsAreZeroOrOne)
{
    for (const char* text : {"2|", "|", "01|", "true|"}) {
        CATWireFields fields(text);
        EXPECT_FALSE(fields.Flag()) << text;
        ExpectFault(fields, 1, "0 or 1");
    }
}

TEST(CATWireFields, RealsAreFiniteNumbersThatFillTheirField)
{
    for (const char* text : {"inf|", "nan|", "-inf|", "1e999|", "|", "1mm|", "1.5.2|"}) {
        CATWireFields fields(text);
        EXPECT_EQ(fields.Real(), 0.0) << text;
        ExpectFault(fields, 1, "a number");
    }
}
} // namespace
