#include "WBSetTexts.h"
#include "PanelSession.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

class WBSetTextsTest : public PanelSession
{
protected:
    static WBPanelMassType Calculated()
    {
        WBPanelMassType type;
        type.name = "Calculated";
        type.status = Definitions::Assigned;
        type.mass = 2.0;
        type.lowerDeviation = 0.06;
        type.upperDeviation = 0.1;
        type.centre = CATMathPoint(1, -2.5, 0);
        // Products of inertia xy 0.01, xz -0.02, yz 0.03, which the matrix holds negated.
        type.inertia = CATMath3x3Matrix(0.5, -0.01, 0.02, -0.01, 0.25, -0.03, 0.02, -0.03, 0.125);
        return type;
    }
    static WBPanelMassType Computed()
    {
        WBPanelMassType type = Calculated();
        type.name = "Computed";
        return type;
    }
    /// A record about which the server said that of one mass type.
    static WBPanelRecord Said(const WBSetDetails& details)
    {
        WBPanelRecord record;
        record.root = "LA1";
        record.details.sets = {details};
        return record;
    }
    static std::vector<std::string> Titles(const WBPanelTable& table)
    {
        std::vector<std::string> titles;
        for (const auto& column : table.columns) {
            titles.push_back(column.title.ToStdString());
        }
        return titles;
    }
    /// The last column of the table of figures.
    static std::vector<std::string> Origins(const WBSetDetails& details,
                                            const WBPanelMassType& massType)
    {
        std::vector<std::string> origins;
        for (const WBPanelRow& row : WBSetTable(Said(details), &massType).rows) {
            origins.push_back(row[4].ToStdString());
        }
        return origins;
    }
};

} // namespace

TEST_F(WBSetTextsTest, FactsSayWhereWhenAndByWhomTheValuesWereStated)
{
    WBSetDetails details;
    details.massType = "Calculated";
    details.source = "Report 12";
    details.sourceDate = "2026/03/02";
    details.author = "mueller";
    details.note = "after painting";
    const WBPanelMassType type = Calculated();
    WBSetFacts facts = WBReadSetFacts(Said(details), &type);
    EXPECT_EQ(facts.heading, "Values of Calculated");
    EXPECT_EQ(facts.source, "Report 12, 2026/03/02, mueller");
    EXPECT_EQ(facts.note, "after painting");
    details.sourceDate = "";
    EXPECT_EQ(WBReadSetFacts(Said(details), &type).source, "Report 12, mueller");
    details.source = "";
    EXPECT_EQ(WBReadSetFacts(Said(details), &type).source, "mueller");
}

TEST_F(WBSetTextsTest, WhatNobodySaidIsADash)
{
    const WBPanelMassType type = Calculated();
    const WBSetFacts facts = WBReadSetFacts(WBPanelRecord(), &type);
    EXPECT_EQ(facts.heading, "Values of Calculated");
    EXPECT_EQ(facts.source, "–");
    EXPECT_EQ(facts.note, "–");
    const WBSetFacts none = WBReadSetFacts(WBPanelRecord(), nullptr);
    EXPECT_EQ(none.heading, "Select a mass type to see where its values come from");
    EXPECT_EQ(none.source, "–");
    EXPECT_EQ(none.note, "–");
    EXPECT_TRUE(WBSetTable(WBPanelRecord(), nullptr).rows.empty());
}

TEST_F(WBSetTextsTest, FiguresStandWithTheirUncertaintiesInTheUsersUnits)
{
    WBSetDetails details;
    details.massType = "Calculated";
    details.mass = WBOrigin::Stated;
    details.sigmas = {0.01, 1, 2, 3, 0.4, 0.5, 0.6, 0.7, 0.8, std::nullopt};
    const WBPanelMassType type = Calculated();
    const WBPanelTable table = WBSetTable(Said(details), &type);
    EXPECT_THAT(Titles(table),
                testing::ElementsAre("Quantity", "Value", "Standard uncertainty", "Where from"));
    ASSERT_EQ(table.rows.size(), 12U);
    EXPECT_EQ(table.rows[0], WBPanelRow({"Mass", "2 kg", "0.01 kg", "stated"}));
    EXPECT_EQ(table.rows[1], WBPanelRow({"Lower dev.", "0.06 kg", "–", ""}));
    EXPECT_EQ(table.rows[2], WBPanelRow({"Upper dev.", "0.1 kg", "–", ""}));
    EXPECT_EQ(table.rows[4], WBPanelRow({"CoG y", "-2.5 mm", "2 mm", "not known"}));
    EXPECT_EQ(table.rows[6], WBPanelRow({"Ixx", "0.5 kg.m2", "0.4 kg.m2", "not known"}));
    // Products as + integral of x y dm.
    EXPECT_EQ(table.rows[9], WBPanelRow({"Ixy", "0.01 kg.m2", "0.7 kg.m2", "not known"}));
    EXPECT_EQ(table.rows[10], WBPanelRow({"Ixz", "-0.02 kg.m2", "0.8 kg.m2", "not known"}));
    EXPECT_EQ(table.rows[11], WBPanelRow({"Iyz", "0.03 kg.m2", "–", "not known"}));
    EXPECT_TRUE(table.columns[1].isNumber);
    EXPECT_TRUE(table.columns[2].isNumber);
    EXPECT_FALSE(table.columns[3].isNumber);
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    const WBPanelTable other = WBSetTable(Said(details), &type);
    EXPECT_EQ(other.rows[0], WBPanelRow({"Mass", "2000 g", "10 g", "stated"}));
    EXPECT_EQ(other.rows[4], WBPanelRow({"CoG y", "-0.25 cm", "0.2 cm", "not known"}));
}

TEST_F(WBSetTextsTest, UnknownFiguresAreDashes)
{
    WBPanelMassType type;
    type.name = "Weighed";
    for (const WBPanelRow& row : WBSetTable(WBPanelRecord(), &type).rows) {
        EXPECT_EQ(row[2], "–");
        EXPECT_EQ(row[3], "–");
    }
}

TEST_F(WBSetTextsTest, EachGroupOfFiguresSaysWhereItComesFrom)
{
    WBSetDetails details;
    details.massType = "Calculated";
    details.mass = WBOrigin::SizeTimesDensity;
    details.centre = WBOrigin::Stated;
    details.inertia = WBOrigin::Lent;
    details.inertiaLender = "Supplier";
    details.precision = WBPrecisionOrigin::Default;
    const std::string lent = "not stated; sums use Supplier";
    EXPECT_THAT(Origins(details, Calculated()),
                testing::ElementsAre("size times density", "default precision", "default precision",
                                     "stated", "stated", "stated", lent, lent, lent, lent, lent,
                                     lent));
    details.precision = WBPrecisionOrigin::Stated;
    details.centre = WBOrigin::Lent;
    details.centreLender = "Weighed";
    EXPECT_EQ(Origins(details, Calculated())[1], "stated precision");
    EXPECT_EQ(Origins(details, Calculated())[3], "not stated; sums use Weighed");
}

TEST_F(WBSetTextsTest, ComputedSaysThatItIsASumOrWhoLentIt)
{
    WBSetDetails details;
    details.massType = "Computed";
    details.mass = WBOrigin::SummedUp;
    details.centre = WBOrigin::Lent;
    details.centreLender = "Calculated";
    details.inertia = WBOrigin::SummedUp;
    const std::vector<std::string> origins = Origins(details, Computed());
    EXPECT_EQ(origins[0], "summed up");
    EXPECT_EQ(origins[1], "summed up, worst case");
    EXPECT_EQ(origins[3], "from Calculated");
    EXPECT_EQ(origins[6], "summed up");
    details.mass = WBOrigin::Stated;
    EXPECT_EQ(Origins(details, Computed())[1], "");
    details.precision = WBPrecisionOrigin::Stated;
    EXPECT_EQ(Origins(details, Computed())[1], "stated precision");
}

TEST_F(WBSetTextsTest, UncertaintyOfComputedIsThatOfTheSum)
{
    WBSetDetails details;
    details.massType = "Computed";
    details.sigmas[0] = 7.0;
    WBPanelRecord record = Said(details);
    record.details.uncertainty.emplace();
    record.details.uncertainty->sigmas[0] = 0.5;
    const WBPanelMassType computed = Computed();
    EXPECT_EQ(WBSetTable(record, &computed).rows[0][3], "0.5 kg");
    const WBPanelMassType calculated = Calculated();
    EXPECT_EQ(WBSetTable(record, &calculated).rows[0][3], "–");
    record.details.uncertainty.reset();
    EXPECT_EQ(WBSetTable(record, &computed).rows[0][3], "7 kg");
}

TEST_F(WBSetTextsTest, InertiaTableHoldsTheMatrixWithNegatedProducts)
{
    const WBPanelMassType type = Calculated();
    const WBPanelTable table = WBInertiaTable(&type);
    EXPECT_THAT(Titles(table), testing::ElementsAre("Row", "x [kg.m2]", "y [kg.m2]", "z [kg.m2]",
                                                    "Terms of the row"));
    EXPECT_THAT(table.rows, testing::ElementsAre(
                                WBPanelRow({"x", "0.5", "-0.01", "0.02", "Ixx   -Ixy   -Ixz"}),
                                WBPanelRow({"y", "-0.01", "0.25", "-0.03", "-Ixy   Iyy   -Iyz"}),
                                WBPanelRow({"z", "0.02", "-0.03", "0.125", "-Ixz   -Iyz   Izz"})));
    EXPECT_TRUE(table.columns[1].isNumber);
    EXPECT_FALSE(table.columns[0].isNumber);
    EXPECT_FALSE(table.columns[4].isNumber);
}

TEST_F(WBSetTextsTest, UnknownInertiaHasTitlesAndNoRows)
{
    WBPanelMassType type = Calculated();
    type.inertia.reset();
    EXPECT_TRUE(WBInertiaTable(&type).rows.empty());
    EXPECT_EQ(WBInertiaTable(&type).columns.size(), 5U);
    EXPECT_TRUE(WBInertiaTable(nullptr).rows.empty());
}

TEST_F(WBSetTextsTest, InertiaIsSaidInWords)
{
    WBPanelMassType type = Calculated();
    WBInertiaFacts facts = WBReadInertiaFacts(WBPanelRecord(), &type);
    EXPECT_EQ(facts.heading, "Inertia of Calculated");
    EXPECT_EQ(facts.words,
              "About the centre of gravity (x 1   y -2.5   z 0 mm), in the axes of the part.");
    ShowIn("LENGTH", "cm");
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), &type).words,
              "About the centre of gravity (x 0.1   y -0.25   z 0 cm), in the axes of the part.");
    type.centre.reset();
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), &type).words,
              "About the centre of gravity, wherever it is, in the axes of the part.");
}

TEST_F(WBSetTextsTest, InertiaOfAComputedRootStandsInTheProductsAxes)
{
    WBPanelRecord record = Said({});
    record.computed.emplace();
    record.computed->entity = Definitions::Root;
    const WBPanelMassType computed = Computed();
    EXPECT_EQ(WBReadInertiaFacts(record, &computed).words,
              "About the centre of gravity (x 1   y -2.5   z 0 mm), in the axes of the product "
              "LA1.");
    const WBPanelMassType calculated = Calculated();
    EXPECT_THAT(WBReadInertiaFacts(record, &calculated).words.ToStdString(),
                testing::EndsWith("in the axes of the part."));
    record.computed->entity = Definitions::PartAlone;
    EXPECT_THAT(WBReadInertiaFacts(record, &computed).words.ToStdString(),
                testing::EndsWith("in the axes of the part."));
}

TEST_F(WBSetTextsTest, InertiaThatIsMissingSaysWhoLendsOne)
{
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), nullptr).heading, "Inertia: select a mass type");
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), nullptr).words, "");
    WBPanelMassType type = Calculated();
    type.inertia.reset();
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), &type).heading,
              "The inertia of Calculated is not known");
    EXPECT_EQ(WBReadInertiaFacts(WBPanelRecord(), &type).words, "Nothing states it.");
    WBSetDetails details;
    details.massType = "Calculated";
    details.inertia = WBOrigin::Lent;
    details.inertiaLender = "Supplier";
    EXPECT_EQ(WBReadInertiaFacts(Said(details), &type).words,
              "Not stated: sums use the one of Supplier, scaled to this mass.");
    details.massType = "Computed";
    const WBPanelMassType computed = Computed();
    EXPECT_EQ(WBReadInertiaFacts(Said(details), &computed).words,
              "About the centre of gravity (x 1   y -2.5   z 0 mm), in the axes of the part.\n"
              "Taken from Supplier and scaled to this mass.");
}

TEST_F(WBSetTextsTest, PrincipalMomentsStandWithTheirRadiiOfGyration)
{
    WBSetDetails details;
    details.massType = "Calculated";
    details.principalMoments = {0.5, 0.32, 0.0};
    const WBPanelMassType type = Calculated();
    // k = sqrt(I / m): sqrt(0.5 / 2) m = 500 mm and sqrt(0.32 / 2) m = 400 mm.
    const WBPanelTable table = WBPrincipalTable(Said(details), &type);
    EXPECT_THAT(Titles(table), testing::ElementsAre("Principal axis", "Principal moment [kg.m2]",
                                                    "Radius of gyration [mm]"));
    EXPECT_THAT(table.rows, testing::ElementsAre(WBPanelRow({"largest", "0.5", "500"}),
                                                 WBPanelRow({"middle", "0.32", "400"}),
                                                 WBPanelRow({"smallest", "0", "0"})));
    ShowIn("LENGTH", "in");
    ShowIn("INERTIAMOMENT", "kg.mm2");
    // 500 mm / 25.4 mm = 19.685039 in.
    EXPECT_EQ(WBPrincipalTable(Said(details), &type).rows[0],
              WBPanelRow({"largest", "500000", "19.685"}));
}

TEST_F(WBSetTextsTest, RadiusNeedsAMassAndAMomentThatABodyCanHave)
{
    WBSetDetails details;
    details.massType = "Calculated";
    details.principalMoments = {0.5, std::nullopt, -0.25};
    WBPanelMassType type = Calculated();
    EXPECT_THAT(WBPrincipalTable(Said(details), &type).rows,
                testing::ElementsAre(WBPanelRow({"largest", "0.5", "500"}),
                                     WBPanelRow({"smallest", "-0.25", ""})));
    for (const std::optional<double> mass :
         {std::optional(0.0), std::optional(-2.0), std::optional<double>()}) {
        type.mass = mass;
        EXPECT_EQ(WBPrincipalTable(Said(details), &type).rows[0],
                  WBPanelRow({"largest", "0.5", ""}));
    }
    type.inertia.reset();
    EXPECT_TRUE(WBPrincipalTable(Said(details), &type).rows.empty());
    EXPECT_TRUE(WBPrincipalTable(Said(details), nullptr).rows.empty());
}
