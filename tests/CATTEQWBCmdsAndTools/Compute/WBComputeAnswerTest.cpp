#include "WBComputeAnswer.h"

#include "../ModuleSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> AsTexts(const WBComputeValues& v)
{
    std::vector<std::string> texts;
    for (const CATUnicodeString& text : {v.mass, v.lowerDeviation, v.upperDeviation, v.cgX, v.cgY,
                                         v.cgZ, v.ixx, v.iyy, v.izz, v.ixy, v.ixz, v.iyz}) {
        texts.push_back(text.ToStdString());
    }
    return texts;
}

} // namespace

TEST(WBComputeAnswer, ValuesComeInTheirOrderWithTheProductsBackwards)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("1|2|3|4|5|6|7|8|9|10|11|12|0|0|");
    // The tenth field is yz, the eleventh xz, the twelfth xy.
    EXPECT_THAT(AsTexts(answer.values),
                ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "9", "12", "11", "10"));
    EXPECT_EQ(answer.statistics.count, 0);
    EXPECT_EQ(answer.massTypes.count, 0);
}

TEST(WBComputeAnswer, ValuesGetTheSeparatorOfTheSessionButForTheLowerDeviation)
{
    const NumberLocale comma(kCommaLocale);
    const WBComputeAnswer answer =
        WBReadComputeAnswer("1.5|2.5|3.5|4.5|5.5|6.5|7.5|8.5|9.5|10.5|11.5|12.5|0|0|");
    EXPECT_THAT(AsTexts(answer.values), ElementsAre("1,5", "2.5", "3,5", "4,5", "5,5", "6,5", "7,5",
                                                    "8,5", "9,5", "12,5", "11,5", "10,5"));
}

TEST(WBComputeAnswer, ValuesWithACommaAreReadWhereAPointIsWritten)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("1,5|2,5|3,5|0|0|0|0|0|0|0|0|0|0|0|");
    EXPECT_EQ(answer.values.mass, "1.5");
    EXPECT_EQ(answer.values.lowerDeviation, "2,5");
    EXPECT_EQ(answer.values.upperDeviation, "3.5");
}

TEST(WBComputeAnswer, StatisticsComeAsNamesThenKindsAndDensitiesThenMasses)
{
    const WBComputeAnswer answer =
        WBReadComputeAnswer("0|0|0|0|0|0|0|0|0|0|0|0|2|Al|Paint|3|2780|2|0,5|7|8.25|0|");
    EXPECT_EQ(answer.statistics.count, 2);
    ASSERT_THAT(answer.statistics.rows, SizeIs(2));
    const WBStatisticsRow& first = answer.statistics.rows[0];
    EXPECT_EQ(first.name, "Al");
    EXPECT_EQ(first.kind, 3);
    EXPECT_EQ(first.density, 2780.0);
    EXPECT_EQ(first.mass, 7.0);
    const WBStatisticsRow& second = answer.statistics.rows[1];
    EXPECT_EQ(second.name, "Paint");
    EXPECT_EQ(second.kind, 2);
    EXPECT_EQ(second.density, 0.5);
    EXPECT_EQ(second.mass, 8.25);
}

TEST(WBComputeAnswer, MassTypesComeAsNameAndMassByRow)
{
    const WBComputeAnswer answer =
        WBReadComputeAnswer("0|0|0|0|0|0|0|0|0|0|0|0|0|2|Estimated|1.5|Weighed|2,5|");
    EXPECT_EQ(answer.massTypes.count, 2);
    ASSERT_THAT(answer.massTypes.rows, SizeIs(2));
    EXPECT_EQ(answer.massTypes.rows[0].name, "Estimated");
    EXPECT_EQ(answer.massTypes.rows[0].mass, 1.5);
    EXPECT_EQ(answer.massTypes.rows[1].name, "Weighed");
    EXPECT_EQ(answer.massTypes.rows[1].mass, 2.5);
}

TEST(WBComputeAnswer, AnEmptyFieldIsAField)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("1||3|0|0|0|0|0|0|0|0|0|1||3||4|0|");
    EXPECT_EQ(answer.values.lowerDeviation, "");
    EXPECT_EQ(answer.values.upperDeviation, "3");
    ASSERT_THAT(answer.statistics.rows, SizeIs(1));
    EXPECT_EQ(answer.statistics.rows[0].name, "");
    EXPECT_EQ(answer.statistics.rows[0].density, 0.0);
    EXPECT_EQ(answer.statistics.rows[0].mass, 4.0);
}

TEST(WBComputeAnswer, AShortAnswerLacksWhatItLacks)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("5");
    EXPECT_EQ(answer.values.mass, "5");
    EXPECT_EQ(answer.values.iyz, "");
    EXPECT_EQ(answer.statistics.count, 0);
    EXPECT_THAT(answer.statistics.rows, IsEmpty());
}

TEST(WBComputeAnswer, CountThatIsNoNumberIsZero)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("0|0|0|0|0|0|0|0|0|0|0|0|many|few|");
    EXPECT_EQ(answer.statistics.count, 0);
    EXPECT_EQ(answer.massTypes.count, 0);
}

TEST(WBComputeAnswer, NegativeCountHasNoRows)
{
    const WBComputeAnswer answer = WBReadComputeAnswer("0|0|0|0|0|0|0|0|0|0|0|0|-3|1|Weighed|2|");
    EXPECT_EQ(answer.statistics.count, -3);
    EXPECT_THAT(answer.statistics.rows, IsEmpty());
    EXPECT_EQ(answer.massTypes.count, 1);
}

TEST(WBComputeAnswer, MoreRowsThanTheAnswerCanHoldAreNotMade)
{
    // Behind the count there are five bytes, and a row takes at least one.
    const WBComputeAnswer answer = WBReadComputeAnswer("0|0|0|0|0|0|0|0|0|0|0|0|2000000000|Al|3|");
    EXPECT_EQ(answer.statistics.count, 2000000000);
    ASSERT_THAT(answer.statistics.rows, SizeIs(5));
    EXPECT_EQ(answer.statistics.rows[0].name, "Al");
    EXPECT_EQ(answer.statistics.rows[1].name, "3");
}

namespace
{

struct Malformed
{
    const char* answer;
    const char* line; // of the diagnostics; none for an answer that is as it should be
};

} // namespace

TEST(WBComputeAnswer, TheFirstFieldThatIsNotAsItShouldBeIsTold)
{
    for (const Malformed& expected : {
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|0|", ""},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|0", ""},
             Malformed{"1,5|2.5|3|4|5|6|7|8|9|10|11|12|1||3|0|1|1||2|", ""},
             Malformed{"", "Field 1 of the answer holds no number: "},
             Malformed{"1|two|3|4|5|6|7|8|9|10|11|12|0|0|",
                       "Field 2 of the answer holds no number: two"},
             Malformed{"1|nan|3|4|5|6|7|8|9|10|11|12|0|0|",
                       "Field 2 of the answer holds no number: nan"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|1|Weighed|inf|",
                       "Field 16 of the answer holds no number: inf"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|xy|many|0|",
                       "Field 12 of the answer holds no number: xy"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|many|0|",
                       "Field 13 of the answer holds no number: many"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|-3|0|",
                       "Field 13 of the answer announces rows that are not there: -3"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|7|Al|3|",
                       "Field 14 of the answer announces rows that are not there: 7"},
             // Five bytes could hold as many rows, but the second field of them is no number.
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|5|Al|3|",
                       "Field 18 of the answer holds no number: "},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|1|Al|3.0|kind|7|0|",
                       "Field 16 of the answer holds no number: kind"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|1|Al|three|2780|7|0|",
                       "Field 15 of the answer holds no number: three"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|1|Al|3|2780|much|0|",
                       "Field 17 of the answer holds no number: much"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|1|Weighed|much|",
                       "Field 16 of the answer holds no number: much"},
             Malformed{"1|2|3|4|5|6|7|8|9|10|11|12|0|1|Weighed|2|Estimated|3|",
                       "Field 16 of the answer should be the last; bytes behind it: 12"},
         }) {
        DiagnosticCapture output{CATDiagnosticOutput()};
        const WBComputeAnswer answer = WBReadComputeAnswer(expected.answer);
        const bool isWhole = *expected.line == '\0';
        EXPECT_EQ(answer.isWhole, isWhole) << expected.answer;
        EXPECT_THAT(output.Lines(), isWhole ? testing::Matcher<std::vector<std::string>>(IsEmpty())
                                            : ElementsAre(expected.line))
            << expected.answer;
    }
}

TEST(WBComputeAnswer, ValueOfATextThatIsNoNumberIsZero)
{
    EXPECT_EQ(WBValueOf("12.5"), 12.5);
    EXPECT_EQ(WBValueOf("heavy"), 0.0);
    EXPECT_EQ(WBValueOf(""), 0.0);
}

TEST(WBComputeAnswer, InertiaHoldsTheProductsNegated)
{
    WBComputeValues values;
    values.ixx = "1";
    values.iyy = "2";
    values.izz = "3";
    values.ixy = "0.1";
    values.ixz = "0.2";
    values.iyz = "0.3";
    EXPECT_EQ(WBCentreInertia(values),
              CATMath3x3Matrix(1, -0.1, -0.2, -0.1, 2, -0.3, -0.2, -0.3, 3));
}
