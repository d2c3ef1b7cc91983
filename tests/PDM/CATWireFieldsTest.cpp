#include "CATWireFields.h"

#include "CATNumberLocale.h"

#include <gmock/gmock.h>

#include <array>
#include <optional>
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
    for (const char* text :
         {"-1|", "|", "1.0|", " 1|", "1 |", "+1|", "0x1|", "9999999999999999999|"}) {
        CATWireFields fields(text);
        EXPECT_EQ(fields.Count(), 0) << text;
        ExpectFault(fields, 1, "a count");
    }
}

TEST(CATWireFields, CountsGoBeyondWhatAnIntHolds)
{
    CATWireFields fields("9999999999|");
    EXPECT_EQ(fields.Count(), 9999999999);
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

TEST(CATWireFields, ARealThatTravelsAsNothingIsNone)
{
    CATWireFields fields("__null__|2.5|-1|__null__|__null__s|");
    EXPECT_EQ(fields.OptionalReal(), std::nullopt);
    EXPECT_EQ(fields.OptionalReal(), 2.5);
    std::array<std::optional<double>, 2> two{7.0, 7.0};
    fields.OptionalReals(two);
    EXPECT_EQ(two[0], -1.0);
    EXPECT_EQ(two[1], std::nullopt);
    EXPECT_TRUE(fields.IsSound());
    fields.OptionalReal();
    ExpectFault(fields, 5, "a number");
}

TEST(CATWireFields, RealsThatMustBeThereAreNotNothing)
{
    CATWireFields fields("__null__|");
    EXPECT_EQ(fields.Real(), 0.0);
    ExpectFault(fields, 1, "a number");
}

TEST(CATWireFields, OptionalRealsAreFiniteToo)
{
    for (const char* text : {"inf|", "nan|", "|", "1mm|"}) {
        CATWireFields fields(text);
        EXPECT_EQ(fields.OptionalReal(), 0.0) << text;
        ExpectFault(fields, 1, "a number");
    }
}

TEST(CATWireFields, WordsAreNumbersFromZeroToTheLast)
{
    enum class Colour
    {
        Red,
        Green,
        Blue
    };
    CATWireFields fields("0|2|");
    EXPECT_EQ(fields.Word(Colour::Blue), Colour::Red);
    EXPECT_EQ(fields.Word(Colour::Blue), Colour::Blue);
    EXPECT_TRUE(fields.IsSound());
    for (const char* text : {"3|", "-1|", "|", "1.5|", "green|"}) {
        CATWireFields wrong(text);
        EXPECT_EQ(wrong.Word(Colour::Blue), Colour::Red) << text;
        ExpectFault(wrong, 1, "a known choice");
    }
}

TEST(CATWireFields, AListIsACountAndThatManyEntries)
{
    CATWireFields fields("2|one|two|0|left|");
    const auto text = [&fields] {
        return std::string(fields.Text());
    };
    EXPECT_THAT(fields.List<std::string>(text), testing::ElementsAre("one", "two"));
    EXPECT_THAT(fields.List<std::string>(text), testing::IsEmpty());
    EXPECT_EQ(fields.Text(), "left");
    EXPECT_TRUE(fields.IsSound());
}

TEST(CATWireFields, AListThatPromisesTooMuchEndsWithTheFirstMissingField)
{
    CATWireFields fields("9000000000000000000|one|");
    fields.List<std::string>([&fields] { return std::string(fields.Text()); });
    ExpectFault(fields, 3, "there");
}

TEST(CATWireFields, ItsReaderRefusesWhatOnlyHeCanJudge)
{
    CATWireFields fields("one|two|");
    fields.Text();
    fields.Text();
    fields.Refuse("three");
    ExpectFault(fields, 2, "three");
}
