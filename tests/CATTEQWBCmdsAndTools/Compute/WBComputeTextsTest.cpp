#include "WBComputeTexts.h"

#include "../ReportUnitsSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/// Pounds, inches, kg.mm2, g/cm3, g/cm2.
using WBComputeTexts = ReportUnitsSession;

using Rows = std::vector<CATListValCATUnicodeString>;

} // namespace

TEST_F(WBComputeTexts, ValuesAreConvertedAndCarryTheSymbol)
{
    const std::array values{0.45359237, 4.5359237, 0.0};
    const auto texts = WBShownInUnits("MASS", values);
    ASSERT_TRUE(texts.has_value());
    EXPECT_THAT(*texts, ElementsAre("1lb", "10lb", "0lb"));
}

TEST_F(WBComputeTexts, ValuesHaveTheSeparatorOfTheSession)
{
    const NumberLocale comma(kCommaLocale);
    const std::array values{12.7};
    EXPECT_THAT(*WBShownInUnits("LENGTH", values), ElementsAre("0,5in"));
}

TEST_F(WBComputeTexts, AnUnknownMagnitudeShowsNothing)
{
    const std::array values{1.0};
    EXPECT_FALSE(WBShownInUnits("WARMTH", values).has_value());
}

TEST_F(WBComputeTexts, AMissingUnitShowsNothing)
{
    const std::array values{1.0};
    TakeStorageUnit("MASS");
    EXPECT_FALSE(WBShownInUnits("MASS", values).has_value());
    TakeCurrentUnit("LENGTH");
    EXPECT_FALSE(WBShownInUnits("LENGTH", values).has_value());
}

TEST(WBComputeTextsOfInertia, MomentsComeFirstThenProductsWithTheSignThatUsersKnow)
{
    EXPECT_THAT(WBInertiaValues({1, -0.1, -0.2, -0.1, 2, -0.3, -0.2, -0.3, 3}),
                ElementsAre(1.0, 2.0, 3.0, 0.1, 0.2, 0.3));
}

TEST_F(WBComputeTexts, KindThreeIsADensityOfVolumesAnyOtherOneOfSurfaces)
{
    const Rows table = WBStatisticsTable({{.name = "Al", .kind = 3, .density = 2780, .mass = 0},
                                          {.name = "Paint", .kind = 2, .density = 10, .mass = 0},
                                          {.name = "Foil", .kind = 0, .density = 20, .mass = 0}},
                                         1.0);
    // 1 g/cm3 is 1000 kg/m3, 1 g/cm2 is 10 kg/m2.
    EXPECT_THAT(table, ElementsAre(CATListValCATUnicodeString{"Al", "2.78g/cm3", "0lb", "0%"},
                                   CATListValCATUnicodeString{"Paint", "1g/cm2", "0lb", "0%"},
                                   CATListValCATUnicodeString{"Foil", "2g/cm2", "0lb", "0%"}));
}

TEST_F(WBComputeTexts, DensityOfZeroIsADash)
{
    const Rows table =
        WBStatisticsTable({{.name = "Cable", .kind = 3, .density = 0, .mass = 0.45359237}}, 1.0);
    EXPECT_THAT(table, ElementsAre(CATListValCATUnicodeString{"Cable", "---", "1lb", "45.4%"}));
}

TEST_F(WBComputeTexts, SharesHaveThreeDigits)
{
    const auto share = [](double mass, double total) {
        return WBMassTypeTable({{.name = "Weighed", .mass = mass}}, total)[0][3].ToStdString();
    };
    EXPECT_EQ(share(1, 3), "33.3%");
    EXPECT_EQ(share(3, 3), "100%");
    EXPECT_EQ(share(1, 8000), "0.0125%");
    EXPECT_EQ(share(1, 1e9), "1e-07%");
    EXPECT_EQ(share(50, 4), "1.25e+03%");
    const NumberLocale comma(kCommaLocale);
    EXPECT_EQ(share(1, 3), "33,3%");
}

TEST_F(WBComputeTexts, OfNoMassThereAreNoShares)
{
    EXPECT_THAT(WBMassTypeTable({{.name = "Weighed", .mass = 0}}, 0),
                ElementsAre(CATListValCATUnicodeString{"Weighed", "0lb", "---"}));
    EXPECT_THAT(WBMassTypeTable({{.name = "Weighed", .mass = 1}}, 0)[0][3], "---");
}

TEST_F(WBComputeTexts, MassTypesAreNameMassAndShare)
{
    EXPECT_THAT(WBMassTypeTable({{.name = "Weighed", .mass = 0.45359237},
                                 {.name = "Estimated", .mass = 0.90718474}},
                                1.81436948),
                ElementsAre(CATListValCATUnicodeString{"Weighed", "1lb", "25%"},
                            CATListValCATUnicodeString{"Estimated", "2lb", "50%"}));
}

TEST_F(WBComputeTexts, WithoutUnitsTheNumbersAreShownPlain)
{
    Forget("MASS");
    Forget("DENSITY");
    Forget("SURFACICMASS");
    EXPECT_THAT(WBStatisticsTable({{.name = "Al", .kind = 3, .density = 2780.5, .mass = 2},
                                   {.name = "Paint", .kind = 2, .density = 0.25, .mass = 1}},
                                  4.0),
                ElementsAre(CATListValCATUnicodeString{"Al", "2780.5", "2", "50%"},
                            CATListValCATUnicodeString{"Paint", "0.25", "1", "25%"}));
    EXPECT_THAT(WBMassTypeTable({{.name = "Weighed", .mass = 1.5}}, 3.0),
                ElementsAre(CATListValCATUnicodeString{"Weighed", "1.5", "50%"}));
}

TEST_F(WBComputeTexts, NoRowsAreNoRows)
{
    EXPECT_THAT(WBStatisticsTable({}, 1.0), IsEmpty());
    EXPECT_THAT(WBMassTypeTable({}, 1.0), IsEmpty());
}
