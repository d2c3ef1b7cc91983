#include "ComputeSession.h"

namespace
{

using testing::Each;
using testing::ElementsAre;

/// What the window shows of an answer.
class ComputeAnswers : public ComputeSession
{
protected:
    ComputeAnswers() { Start(); }
    void ForgetUnits()
    {
        for (const char* magnitude : {"MASS", "LENGTH", "INERTIAMOMENT"}) {
            Forget(magnitude);
        }
    }
};

// 10 kg at 1, 2, 3 m from the origin. About the origin an inertia gains, in kg.m2,
// 10 (4 + 9) = 130, 10 (1 + 9) = 100, 10 (1 + 4) = 50, and the products
// 10 * 1 * 2 = 20 (xy), 10 * 1 * 3 = 30 (xz), 10 * 2 * 3 = 60 (yz).
constexpr const char* kTenKilograms = "10|1|2|1000|2000|3000|2|3|4|0.5|0.25|0.125|0|0|";

// With the session's units.
constexpr std::array kAboutCentre{"2000000kg.mm2", "3000000kg.mm2", "4000000kg.mm2",
                                  "125000kg.mm2",  "250000kg.mm2",  "500000kg.mm2"};
constexpr std::array kAboutOrigin{"132000000kg.mm2", "103000000kg.mm2", "54000000kg.mm2",
                                  "20125000kg.mm2",  "30250000kg.mm2",  "60500000kg.mm2"};

} // namespace

TEST_F(ComputeAnswers, EveryValueIsShownInTheUsersUnit)
{
    Compute(kAnswer);
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("100lb", "10lb", "20lb"));
    EXPECT_THAT(Texts(kCentreEditors), ElementsAre("10in", "-20in", "1in"));
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutCentre));
}

TEST_F(ComputeAnswers, StatisticsAreShownRowByRow)
{
    Compute(kAnswer);
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").RowCount(), 3);
    EXPECT_THAT(Row("StatisticsMultiList", 1),
                ElementsAre("Al 2024-T3", "2.78g/cm3", "50lb", "50%"));
    EXPECT_THAT(Row("StatisticsMultiList", 2), ElementsAre("Paint", "1g/cm2", "25lb", "25%"));
    EXPECT_THAT(Row("StatisticsMultiList", 3), ElementsAre("Placards", "---", "1lb", "1%"));
}

TEST_F(ComputeAnswers, MassTypesAreShownRowByRow)
{
    Compute(kAnswer);
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 2);
    EXPECT_THAT(Row("MassTypeStatMultiList", 1), ElementsAre("Estimated", "33.333lb", "33.3%"));
    EXPECT_THAT(Row("MassTypeStatMultiList", 2), ElementsAre("Weighed", "0lb", "0%"));
}

TEST_F(ComputeAnswers, NumbersHaveTheSeparatorOfTheSession)
{
    CATUseNumberLocale(kCommaLocale);
    Compute("1.133980925|0.2267961850|0.45359237|12.7|0|0|0.0000005|0|0|0|0|0|"
            "1|Al|3|2785|0.37799364166666667|1|Weighed|0.5669904625|");
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("2,5lb", "0,5lb", "1lb"));
    EXPECT_EQ(Text("CGxEditor"), "0,5in");
    EXPECT_EQ(Text("IxxEditor"), "0,5kg.mm2");
    EXPECT_THAT(Row("StatisticsMultiList", 1), ElementsAre("Al", "2,785g/cm3", "0,833lb", "33,3%"));
    EXPECT_THAT(Row("MassTypeStatMultiList", 1), ElementsAre("Weighed", "1,25lb", "50%"));
}

TEST_F(ComputeAnswers, NumbersWithACommaAreReadWhereThePointIsUsual)
{
    Compute("1,133980925|0,226796185|0,45359237|12,7|0|0|0|0|0|0|0|0|0|0|");
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("2.5lb", "0.5lb", "1lb"));
    EXPECT_EQ(Text("CGxEditor"), "0.5in");
}

TEST_F(ComputeAnswers, WithoutUnitsValuesAreShownAsTheSessionWritesThemButTheLowerDeviation)
{
    CATUseNumberLocale(kCommaLocale);
    ForgetUnits();
    Compute("10.5|1.5|2.5|100.5|200.5|300.5|2|3|4|0.5|0.25|0.125|0|0|");
    // The lower deviation is shown as it came.
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("10,5", "1.5", "2,5"));
    EXPECT_THAT(Texts(kCentreEditors), ElementsAre("100,5", "200,5", "300,5"));
    // Plain inertia is shown where the point is chosen, not where an answer comes.
    EXPECT_THAT(Texts(kInertiaEditors), Each(""));
}

TEST_F(ComputeAnswers, TheLowerDeviationIsConvertedLikeTheOthers)
{
    CATUseNumberLocale(kCommaLocale);
    Compute("0|1.133980925|0|0|0|0|0|0|0|0|0|0|0|0|");
    EXPECT_EQ(Text("LowerDeviationEditor"), "2,5lb");
}

TEST_F(ComputeAnswers, WithoutOneUnitItsValuesAloneStayPlain)
{
    TakeStorageUnit("MASS");
    TakeCurrentUnit("LENGTH");
    Compute(kAnswer);
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("45.359237", "4.5359237", "9.0718474"));
    EXPECT_THAT(Texts(kCentreEditors), ElementsAre("254", "-508", "25.4"));
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutCentre));
}

TEST_F(ComputeAnswers, InertiaWithoutUnitsKeepsWhatStoodThere)
{
    Compute(kAnswer);
    Forget("INERTIAMOMENT");
    Compute(kTenKilograms);
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutCentre));
}

TEST_F(ComputeAnswers, AnswerIsShownAboutTheChosenPoint)
{
    Click("ReferenceButton");
    Compute(kTenKilograms);
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutOrigin));
}

TEST_F(ComputeAnswers, TheOtherPointIsShownWithoutAskingTheServer)
{
    Compute(kTenKilograms);
    const std::size_t calls = server->calls.size();
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutOrigin));
    Click("CGButton");
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutCentre));
    EXPECT_EQ(server->calls.size(), calls);
}

TEST_F(ComputeAnswers, TheOriginIsReachedFromTheSessionsNumbersToo)
{
    CATUseNumberLocale(kCommaLocale);
    // 0.5 kg at 500 mm along x: 0.5 * 0.25 = 0.125 kg.m2 more about y and z.
    Compute("0.5|0|0|500.0|0|0|0.5|0.5|0.5|0|0|0|0|0|");
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kInertiaEditors), ElementsAre("500000kg.mm2", "625000kg.mm2", "625000kg.mm2",
                                                    "0kg.mm2", "0kg.mm2", "0kg.mm2"));
}

TEST_F(ComputeAnswers, ChoosingThePointWithoutUnitsShowsPlainNumbers)
{
    Forget("INERTIAMOMENT");
    Compute(kTenKilograms);
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kInertiaEditors), ElementsAre("132", "103", "54", "20.125", "30.25", "60.5"));
    Click("CGButton");
    EXPECT_THAT(Texts(kInertiaEditors), ElementsAre("2", "3", "4", "0.125", "0.25", "0.5"));
}

TEST_F(ComputeAnswers, PlainInertiaHasSixDigits)
{
    Forget("INERTIAMOMENT");
    Compute("10|0|0|0|0|0|1234567.8|0.000012345678|3|0|0|0|0|0|");
    Click("ReferenceButton");
    Click("CGButton");
    EXPECT_EQ(Text("IxxEditor"), "1.23457e+06");
    EXPECT_EQ(Text("IyyEditor"), "1.23457e-05");
}

TEST_F(ComputeAnswers, ChoosingThePointBeforeAnyAnswerShowsNothing)
{
    Click("ReferenceButton");
    Click("CGButton");
    EXPECT_THAT(Texts(kInertiaEditors), Each(""));
}

TEST_F(ComputeAnswers, ChoosingThePointAfterAFailedAnswerShowsNothing)
{
    Compute("#WB_ERROR#No such root.");
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kInertiaEditors), Each(""));
}

TEST_F(ComputeAnswers, AnAnswerWithoutAMassCountsAsNoneWhereThePointIsChosen)
{
    Compute("|0|0|1000|0|0|2|3|4|0|0|0|0|0|");
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kMassEditors), Each("0lb"));
    EXPECT_EQ(Text("IxxEditor"), "2000000kg.mm2");
    Forget("INERTIAMOMENT");
    Click("CGButton");
    EXPECT_EQ(Text("IxxEditor"), "2000000kg.mm2"); // no plain number: nothing was written
}

TEST_F(ComputeAnswers, ListsWithoutRowsKeepWhatTheyShow)
{
    Compute(kAnswer);
    Compute(kTenKilograms);
    EXPECT_EQ(Text("MassEditor"), "22.046lb"); // 10 / 0.45359237 = 22.0462
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").RowCount(), 3);
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 2);
}

TEST_F(ComputeAnswers, ListsWithRowsReplaceWhatTheyShow)
{
    Compute(kAnswer);
    Compute("0.90718474|0|0|0|0|0|0|0|0|0|0|0|1|Steel|3|7850|0.90718474|1|Weighed|0.45359237|");
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").RowCount(), 1);
    EXPECT_THAT(Row("StatisticsMultiList", 1), ElementsAre("Steel", "7.85g/cm3", "2lb", "100%"));
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 1);
    EXPECT_THAT(Row("MassTypeStatMultiList", 1), ElementsAre("Weighed", "1lb", "50%"));
}

TEST_F(ComputeAnswers, OneListMayHaveRowsWhereTheOtherHasNone)
{
    Compute(kAnswer);
    Compute("0.90718474|0|0|0|0|0|0|0|0|0|0|0|0|1|Weighed|0.45359237|");
    EXPECT_EQ(Find<CATDlgMultiList>("StatisticsMultiList").RowCount(), 3);
    EXPECT_EQ(Find<CATDlgMultiList>("MassTypeStatMultiList").RowCount(), 1);
}

TEST_F(ComputeAnswers, AMalformedAnswerCountsAsZeroAndTheNextOneWorks)
{
    Compute("heavy|x");
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("0lb", "0lb", "0lb"));
    EXPECT_THAT(Texts(kCentreEditors), Each("0in"));
    EXPECT_THAT(Texts(kInertiaEditors), Each("0kg.mm2"));
    EXPECT_TRUE(command->IsVisible());
    Compute(kAnswer);
    EXPECT_THAT(Texts(kMassEditors), ElementsAre("100lb", "10lb", "20lb"));
}

TEST_F(ComputeAnswers, AFailedComputationKeepsTheLastAnswer)
{
    Compute(kTenKilograms);
    Compute("#WB_ERROR#No such root.");
    Compute("");
    EXPECT_EQ(Text("MassEditor"), "22.046lb");
    Click("ReferenceButton");
    EXPECT_THAT(Texts(kInertiaEditors), testing::ElementsAreArray(kAboutOrigin));
}
