#include "CATWBServices.h"

#include "ModuleSession.h"

namespace
{

struct Row
{
    const char* text;
    const char* expected;
};

void ExpectEvaluated(std::initializer_list<Row> rows)
{
    for (const Row& row : rows) {
        CATUnicodeString text(row.text);
        CATWBServices::EvaluateSimpleExpression(text);
        EXPECT_EQ(text, row.expected) << row.text;
    }
}

TEST(EvaluateSimpleExpression, TwoNumbersAndAnOperatorGiveTheResult)
{
    ExpectEvaluated({{"2^10", "1024"},
                     {"2.5*4", "10"},
                     {"12.5/4", "3.125"},
                     {"1+2", "3"},
                     {"7-9", "-2"},
                     {" 3 * 4 ", "12"}});
}

TEST(EvaluateSimpleExpression, ResultHasSixDigits)
{
    ExpectEvaluated({{"1/3", "0.333333"}, {"1000000*10", "1e+07"}});
}

TEST(EvaluateSimpleExpression, DivisionByZeroIsInfinite)
{
    ExpectEvaluated({{"6/0", "inf"}});
}

TEST(EvaluateSimpleExpression, MissingSideCountsAsZero)
{
    ExpectEvaluated({{"-4", "-4"}, {"4-", "4"}, {"+5", "5"}, {"*5", "0"}, {"abc*2", "0"}});
}

TEST(EvaluateSimpleExpression, TextWithoutOperatorStaysUnchanged)
{
    ExpectEvaluated({{"abc", "abc"}, {"", ""}, {"12.5", "12.5"}, {"1 2", "1 2"}});
}

TEST(EvaluateSimpleExpression, TextWithTwoOperatorsStaysUnchanged)
{
    ExpectEvaluated({{"2*-3", "2*-3"},
                     {"1e-5+1", "1e-5+1"},
                     {"2^3*4", "2^3*4"},
                     {"1/2-3", "1/2-3"},
                     {"1+2^3", "1+2^3"}});
}

TEST(EvaluateSimpleExpression, OnlyTheFirstOfSeveralEqualOperatorsSplits)
{
    ExpectEvaluated(
        {{"1+2+3", "3"}, {"10-2-3", "8"}, {"2*3*4", "6"}, {"2^3^2", "8"}, {"8/2/2", "4"}});
}

TEST(EvaluateSimpleExpression, SignOfAnExponentIsAnOperator)
{
    ExpectEvaluated({{"1e-5", "-4"}, {"1e+5", "6"}, {"1e5*2", "200000"}});
}

TEST(EvaluateSimpleExpression, EachSideIsReadWithEitherSeparator)
{
    {
        const NumberLocale numbers(kPointLocale);
        ExpectEvaluated({{"1,5*2.5", "3.75"}, {"1.5+2,25", "3.75"}});
    }
    const NumberLocale numbers(kCommaLocale);
    ExpectEvaluated({{"1,5*2.5", "3,75"}, {"1.5+2,25", "3,75"}});
}

} // namespace
