#include "WBSumTexts.h"
#include "PanelSession.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using testing::ElementsAre;

class WBSumTextsTest : public PanelSession
{
protected:
    /// A record with a computed mass of 100 kg, of 187 items.
    static WBPanelRecord Record()
    {
        WBPanelRecord record;
        record.massTypes.resize(1);
        record.massTypes[0].name = "Computed";
        record.massTypes[0].mass = 100.0;
        record.filter = "No filter";
        record.details.coverage = WBCoverage{187, 0, 0, 0};
        record.details.growthAllowance = 4.25;
        return record;
    }
};

} // namespace

TEST_F(WBSumTextsTest, CoverageIsSaidInWords)
{
    WBPanelRecord record = Record();
    EXPECT_EQ(WBReadSumFacts(record).items, "all 187 items have a mass");
    EXPECT_EQ(WBReadSumFacts(record).withoutCentre, "none");
    EXPECT_EQ(WBReadSumFacts(record).withoutInertia, "none");
    record.details.coverage = WBCoverage{187, 1, 12.5, 0.25};
    EXPECT_EQ(WBReadSumFacts(record).items, "186 of 187 items have a mass");
    EXPECT_EQ(WBReadSumFacts(record).withoutCentre, "12.5 kg, at the centre of the rest");
    EXPECT_EQ(WBReadSumFacts(record).withoutInertia, "0.25 kg, as points");
    ShowIn("MASS", "g");
    EXPECT_EQ(WBReadSumFacts(record).withoutCentre, "12500 g, at the centre of the rest");
    record.details.coverage = WBCoverage{1, 0, 0, 0};
    EXPECT_EQ(WBReadSumFacts(record).items, "the only item has a mass");
    record.details.coverage = WBCoverage{1, 1, 0, 0};
    EXPECT_EQ(WBReadSumFacts(record).items, "0 of 1 items have a mass");
    record.details.coverage = WBCoverage{1000000, 0, 0, 0};
    EXPECT_EQ(WBReadSumFacts(record).items, "all 1000000 items have a mass");
}

TEST_F(WBSumTextsTest, PredictedMassIsTheSumWithItsGrowthAllowance)
{
    WBPanelRecord record = Record();
    EXPECT_EQ(WBReadSumFacts(record).growth, "4.25 kg");
    EXPECT_EQ(WBReadSumFacts(record).predicted, "104.25 kg");
    record.massTypes[0].mass.reset();
    EXPECT_EQ(WBReadSumFacts(record).growth, "4.25 kg");
    EXPECT_EQ(WBReadSumFacts(record).predicted, "–");
    record = Record();
    record.details.growthAllowance.reset();
    EXPECT_EQ(WBReadSumFacts(record).growth, "–");
    EXPECT_EQ(WBReadSumFacts(record).predicted, "–");
    record = Record();
    record.massTypes[0].name = "Weighed";
    EXPECT_EQ(WBReadSumFacts(record).predicted, "–");
}

TEST_F(WBSumTextsTest, UncertaintySaysForHowMuchOfTheMassItWasStated)
{
    WBPanelRecord record = Record();
    EXPECT_EQ(WBReadSumFacts(record).uncertainty, "–");
    record.details.uncertainty.emplace();
    EXPECT_EQ(WBReadSumFacts(record).uncertainty, "–");
    record.details.uncertainty->sigmas[0] = 0.5;
    record.details.uncertainty->shareUnstated = 0.35;
    EXPECT_EQ(WBReadSumFacts(record).uncertainty, "0.5 kg, stated for 65 %");
    record.details.uncertainty->shareUnstated.reset();
    EXPECT_EQ(WBReadSumFacts(record).uncertainty, "–");
}

TEST_F(WBSumTextsTest, WhereNothingWasSummedUpAllIsADash)
{
    for (const bool isSaid : {true, false}) {
        WBPanelRecord record = Record();
        record.details.coverage = isSaid ? std::optional(WBCoverage()) : std::nullopt;
        const WBSumFacts facts = WBReadSumFacts(record);
        for (const CATUnicodeString& text : {facts.items, facts.withoutCentre, facts.withoutInertia,
                                             facts.growth, facts.predicted, facts.uncertainty}) {
            EXPECT_EQ(text, "–");
        }
    }
}

TEST_F(WBSumTextsTest, WhatIsSummedUpIsSaid)
{
    WBPanelRecord record = Record();
    EXPECT_EQ(WBWhatIsSummedUp(record), "As stored: what is below, by active values, unfiltered.");
    record.computed.emplace();
    EXPECT_EQ(WBWhatIsSummedUp(record),
              "Computed here: this instance with what is below; active values; unfiltered.");
    record.computed->entity = Definitions::Root;
    record.computed->precision = "MostPrecise";
    record.filter = "Bare wing";
    record.isFiltered = true;
    EXPECT_EQ(WBWhatIsSummedUp(record),
              "Computed here: the whole product; most precise values; filter: Bare wing.");
    record.computed->entity = Definitions::PartAlone;
    record.computed->precision = "Weighed";
    EXPECT_EQ(WBWhatIsSummedUp(record),
              "Computed here: the part alone; Weighed; filter: Bare wing.");
    record.computed.reset();
    record.massTypes[0].mass.reset();
    EXPECT_EQ(WBWhatIsSummedUp(record), "Nothing is computed yet.");
}

TEST_F(WBSumTextsTest, SumThatIsNotTheUsualOneSaysSoWhereItIsActive)
{
    WBPanelRecord record = Record();
    record.activeMassType = "Computed";
    EXPECT_EQ(WBUnusualSum(record), "");
    record.computed.emplace();
    EXPECT_EQ(WBUnusualSum(record), "");
    record.computed->storedSums = WBStoredSums::Force;
    EXPECT_EQ(WBUnusualSum(record), "");
    record.computed->precision = "MostPrecise";
    EXPECT_EQ(WBUnusualSum(record), "most precise values");
    record.computed->entity = Definitions::Root;
    record.filter = "Bare wing";
    record.isFiltered = true;
    EXPECT_EQ(WBUnusualSum(record), "the whole product\nmost precise values\nBare wing");
    record.activeMassType = "Estimated";
    EXPECT_EQ(WBUnusualSum(record), "");
}

TEST_F(WBSumTextsTest, SharesStandWithTheirPartOfTheWhole)
{
    WBPanelRecord record;
    record.details.codes = {{"WING", 30}, {"FUEL", 9.5}, {"", 0.5}};
    record.details.massTypes = {{"Estimated", 10}, {"Weighed", 30}};
    const WBPanelTable codes = WBCodeTable(record);
    EXPECT_EQ(codes.columns[0].title, "Code");
    EXPECT_EQ(codes.columns[1].title, "Mass [kg]");
    EXPECT_EQ(codes.columns[2].title, "Share [%]");
    EXPECT_TRUE(codes.columns[1].isNumber);
    EXPECT_TRUE(codes.columns[2].isNumber);
    EXPECT_THAT(codes.rows,
                ElementsAre(WBPanelRow({"WING", "30", "75"}), WBPanelRow({"FUEL", "9.5", "23.8"}),
                            WBPanelRow({"–", "0.5", "1.25"})));
    const WBPanelTable massTypes = WBMassTypeShareTable(record);
    EXPECT_EQ(massTypes.columns[0].title, "Mass type");
    EXPECT_THAT(massTypes.rows, ElementsAre(WBPanelRow({"Estimated", "10", "25"}),
                                            WBPanelRow({"Weighed", "30", "75"})));
    record.details.codes = {{"WING", 0}};
    EXPECT_EQ(WBCodeTable(record).rows[0], WBPanelRow({"WING", "0", ""}));
}

TEST_F(WBSumTextsTest, EveryWarningIsThere)
{
    WBPanelRecord record;
    record.details.warnings = {"1 of 187 items has no mass", "Placard has no inertia"};
    const WBPanelTable table = WBWarningTable(record);
    EXPECT_EQ(table.columns[0].title, "Warnings of the sum");
    EXPECT_THAT(table.rows, ElementsAre(WBPanelRow({"1 of 187 items has no mass"}),
                                        WBPanelRow({"Placard has no inertia"})));
}

TEST_F(WBSumTextsTest, ImposedAssemblyShowsOwnBelowAndDifference)
{
    WBPanelRecord record;
    EXPECT_TRUE(WBImposedTable(record).rows.empty());
    EXPECT_EQ(WBImposedWords(record), "");
    record.details.imposed =
        WBImposedDetails{"Estimated",
                         {104, 10.4, 20.8, 620, 0, 120, 1, 2, 3, 0.1, 0.2, 0.3},
                         {100, 3, 5, 600, 10, 120, 2, 2, 2, 0, 0, 0},
                         {4, 7.4, 15.8, 20, -10, 0, -1, 0, std::nullopt, 0.1, 0.2, 0.3}};
    const WBPanelTable table = WBImposedTable(record);
    ASSERT_EQ(table.rows.size(), 12U);
    EXPECT_EQ(table.columns[1].title, "Own");
    EXPECT_EQ(table.columns[2].title, "Below");
    EXPECT_EQ(table.columns[3].title, "Difference");
    for (const std::size_t column : {1U, 2U, 3U}) {
        EXPECT_TRUE(table.columns[column].isNumber);
    }
    EXPECT_EQ(table.rows[0], WBPanelRow({"Mass", "104 kg", "100 kg", "4 kg"}));
    EXPECT_EQ(table.rows[2], WBPanelRow({"Upper dev.", "20.8 kg", "5 kg", "15.8 kg"}));
    EXPECT_EQ(table.rows[4], WBPanelRow({"CoG y", "0 mm", "10 mm", "-10 mm"}));
    EXPECT_EQ(table.rows[8], WBPanelRow({"Izz", "3 kg.m2", "2 kg.m2", "–"}));
    EXPECT_EQ(table.rows[11], WBPanelRow({"Iyz", "0.3 kg.m2", "0 kg.m2", "0.3 kg.m2"}));
    EXPECT_EQ(WBImposedWords(record), "In sums the values of Estimated stand for everything below; "
                                      "they replace it and are not added.");
    WBSetDetails said;
    said.massType = "Estimated";
    said.centre = WBOrigin::Stated;
    said.inertia = WBOrigin::Lent;
    said.inertiaLender = "Computed";
    record.details.sets = {said};
    EXPECT_EQ(WBImposedWords(record),
              "In sums the values of Estimated stand for everything below; they replace it and are "
              "not added.\nThe inertia is taken from Computed and scaled to this mass.");
    record.details.sets[0].centre = WBOrigin::Lent;
    record.details.sets[0].centreLender = "Weighed";
    record.details.sets[0].inertia = WBOrigin::Unknown;
    EXPECT_EQ(WBImposedWords(record),
              "In sums the values of Estimated stand for everything below; they replace it and are "
              "not added.\nThe centre of gravity is taken from Weighed.");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(WBImposedTable(record).rows[3], WBPanelRow({"CoG x", "62 cm", "60 cm", "2 cm"}));
}

TEST_F(WBSumTextsTest, ChoicesAreSaidInTheUsersLanguage)
{
    EXPECT_EQ(WBStoredSumsText(WBStoredSums::Check), "update what changed");
    EXPECT_EQ(WBStoredSumsText(WBStoredSums::Force), "compute all anew");
    EXPECT_EQ(WBStoredSumsText(WBStoredSums::Assume), "take as stored below level");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBStoredSumsText(WBStoredSums::Force), "alles neu berechnen");
    EXPECT_EQ(WBEntityText(Definitions::Root), "das ganze Produkt");
    EXPECT_EQ(WBPrecisionChoiceText("MostPrecise"), "genaueste Werte");
    EXPECT_EQ(WBPrecisionChoiceText("Weighed"), "Weighed");
}
