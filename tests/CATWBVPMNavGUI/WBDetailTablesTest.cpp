#include "PanelSession.h"
#include "WBPanelTexts.h"

#include <cmath>
#include <numbers>

namespace
{

using testing::ElementsAre;

class WBDetailTablesTest : public PanelSession
{
protected:
    static CATUnicodeString Words(const CATMath3x3Matrix& rotation, const CATMathVector& shift = {})
    {
        return WBPlacementWords(CATMathTransformation(rotation, shift));
    }
};

std::vector<std::string> Titles(const WBPanelTable& table)
{
    std::vector<std::string> titles;
    for (const auto& column : table.columns) {
        titles.push_back(column.title.ToStdString());
    }
    return titles;
}

} // namespace

TEST_F(WBDetailTablesTest, MaterialsShowMassAndShareOfTheWhole)
{
    WBPanelRecord record;
    record.statistics = {
        {"Steel", 3, 1.5}, {"Sealant", 3, 0.3}, {"Paint", 2, 0.2}, {"Other", 0, 0}};
    const WBPanelTable table = WBMaterialTable(record);
    EXPECT_THAT(Titles(table), ElementsAre("Material", "Mass [kg]", "Share [%]", "Counted"));
    EXPECT_THAT(table.rows, ElementsAre(WBPanelRow({"Steel", "1.5", "75", "by volume"}),
                                        WBPanelRow({"Sealant", "0.3", "15", "by volume"}),
                                        WBPanelRow({"Paint", "0.2", "10", "by area"}),
                                        WBPanelRow({"Other", "0", "0", ""})));
    EXPECT_FALSE(table.columns[0].isNumber);
    EXPECT_TRUE(table.columns[1].isNumber);
    EXPECT_TRUE(table.columns[2].isNumber);
    EXPECT_FALSE(table.columns[3].isNumber);
}

TEST_F(WBDetailTablesTest, MaterialsStandInTheUsersUnitsAndSeparator)
{
    ShowIn("MASS", "lb");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    WBPanelRecord record;
    // An eighth and seven eighths: 12.5 % and 87.5 %.
    record.statistics = {{"A", 3, 0.45359237}, {"B", 3, 7 * 0.45359237}};
    EXPECT_THAT(WBMaterialTable(record).rows,
                ElementsAre(WBPanelRow({"A", "1", "12,5", "by volume"}),
                            WBPanelRow({"B", "7", "87,5", "by volume"})));
    EXPECT_EQ(WBMaterialTable(record).columns[1].title, "Mass [lb]");
}

TEST_F(WBDetailTablesTest, MassThatNoMaterialGivesComesFromNoVolume)
{
    WBPanelRecord record;
    record.statistics = {{"(no material)", 3, 1}, {"(imposed)", 3, 2}, {"Wood", 3, 1}};
    EXPECT_THAT(WBMaterialTable(record).rows,
                ElementsAre(WBPanelRow({"(no material)", "1", "25", ""}),
                            WBPanelRow({"(imposed)", "2", "50", ""}),
                            WBPanelRow({"Wood", "1", "25", "by volume"})));
    EXPECT_EQ(WBMaterialTable(record).columns[0].tooltip,
              "(imposed): the own mass of an assembly, which stands for what is below it. "
              "(no material): parts without one.");
    EXPECT_EQ(WBMaterialTable(record).columns[3].tooltip,
              "Whether the mass comes from a volume or from an area; empty where no material "
              "gives it");
}

TEST_F(WBDetailTablesTest, MaterialsWithoutMassHaveNoShare)
{
    WBPanelRecord record;
    record.statistics = {{"A", 3, 0.0}};
    EXPECT_EQ(WBMaterialTable(record).rows[0], WBPanelRow({"A", "0", "", "by volume"}));
}

TEST_F(WBDetailTablesTest, RevisionsShowWhatTheServerSent)
{
    WBPanelRecord record;
    record.revisions = {{"A.1", "2026-03-02", "mueller", "", "Estimated", 2.1},
                        {"B.1", "03/04/2026", "smith", "jones", "", std::nullopt}};
    const WBPanelTable table = WBRevisionTable(record);
    EXPECT_THAT(Titles(table), ElementsAre("Version", "Mass [kg]", "Active mass type", "Checked in",
                                           "Checked in by", "Checked out by"));
    EXPECT_THAT(table.rows,
                ElementsAre(WBPanelRow({"A.1", "2.1", "Estimated", "2026-03-02", "mueller", ""}),
                            WBPanelRow({"B.1", "", "", "03/04/2026", "smith", "jones"})));
    EXPECT_TRUE(table.columns[1].isNumber);
    EXPECT_FALSE(table.columns[2].isNumber);
}

TEST_F(WBDetailTablesTest, PlacementHasARowForEachAxisOfTheProduct)
{
    // Turned by 30 degrees about z: the part's x axis points along (cos 30, sin 30, 0).
    const double cosine = std::sqrt(3.0) / 2.0;
    WBPanelRecord record;
    record.placement = CATMathTransformation(
        CATMath3x3Matrix(cosine, -0.5, 0, 0.5, cosine, 0, 0, 0, 1), CATMathVector(1000, -20.5, 0));
    const WBPanelTable table = WBPlacementTable(record);
    EXPECT_THAT(Titles(table),
                ElementsAre("In the product", "x axis of the part", "y axis of the part",
                            "z axis of the part", "Shift [mm]"));
    EXPECT_THAT(table.rows, ElementsAre(WBPanelRow({"x", "0.866025", "-0.5", "0", "1000"}),
                                        WBPanelRow({"y", "0.5", "0.866025", "0", "-20.5"}),
                                        WBPanelRow({"z", "0", "0", "1", "0"})));
    EXPECT_FALSE(table.columns[0].isNumber);
    EXPECT_TRUE(table.columns[4].isNumber);
    EXPECT_EQ(WBPlacementWords(record.placement), "Turned by 30 deg about the axis (0; 0; 1).\n"
                                                  "Shifted by x 1000 mm, y -20.5 mm, z 0 mm.");
    ShowIn("LENGTH", "m");
    ShowIn("ANGLE", "rad");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBPlacementTable(record).rows[1],
              WBPanelRow({"y", "0,5", "0,866025", "0", "-0,0205"}));
    EXPECT_EQ(WBPlacementWords(record.placement),
              "Um 0,523599 rad gedreht um die Achse (0; 0; 1).\n"
              "Verschoben um x 1 m, y -0,0205 m, z 0 m.");
}

TEST_F(WBDetailTablesTest, UnknownPlacementHasTitlesAndNoRows)
{
    EXPECT_TRUE(WBPlacementTable(WBPanelRecord()).rows.empty());
    EXPECT_EQ(WBPlacementTable(WBPanelRecord()).columns.size(), 5U);
    EXPECT_EQ(WBPlacementWords(std::nullopt), "The position in the product is not known.");
}

TEST_F(WBDetailTablesTest, RoundingLeftOfATurnShowsAsZero)
{
    WBPanelRecord record;
    record.placement = CATMathTransformation(CATMath3x3Matrix(1, 6e-17, 0, -6e-17, 1, 0, 0, 0, 1),
                                             CATMathVector());
    EXPECT_EQ(WBPlacementTable(record).rows[0], WBPanelRow({"x", "1", "0", "0", "0"}));
}

TEST_F(WBDetailTablesTest, PartThatStandsInTheProductsAxesSaysSo)
{
    EXPECT_EQ(Words(CATMath3x3Matrix::Identity()), "Not turned.\nNot shifted.");
}

TEST_F(WBDetailTablesTest, QuarterTurnsAreSaidWithTheirAxis)
{
    EXPECT_EQ(Words(CATMath3x3Matrix(1, 0, 0, 0, 0, -1, 0, 1, 0)),
              "Turned by 90 deg about the axis (1; 0; 0).\nNot shifted.");
    EXPECT_EQ(Words(CATMath3x3Matrix(0, 0, 1, 0, 1, 0, -1, 0, 0)),
              "Turned by 90 deg about the axis (0; 1; 0).\nNot shifted.");
    // The other way round is the opposite axis.
    EXPECT_EQ(Words(CATMath3x3Matrix(0, 1, 0, -1, 0, 0, 0, 0, 1)),
              "Turned by 90 deg about the axis (0; 0; -1).\nNot shifted.");
    // The axes exchanged in a circle: a third of a turn about the space diagonal.
    EXPECT_EQ(Words(CATMath3x3Matrix(0, 0, 1, 1, 0, 0, 0, 1, 0)),
              "Turned by 120 deg about the axis (0.57735; 0.57735; 0.57735).\nNot shifted.");
}

TEST_F(WBDetailTablesTest, HalfTurnsAreSaidWithTheirAxis)
{
    EXPECT_EQ(Words(CATMath3x3Matrix(1, 0, 0, 0, -1, 0, 0, 0, -1)),
              "Turned by 180 deg about the axis (1; 0; 0).\nNot shifted.");
    EXPECT_EQ(Words(CATMath3x3Matrix(-1, 0, 0, 0, 1, 0, 0, 0, -1)),
              "Turned by 180 deg about the axis (0; 1; 0).\nNot shifted.");
    EXPECT_EQ(Words(CATMath3x3Matrix(-1, 0, 0, 0, -1, 0, 0, 0, 1)),
              "Turned by 180 deg about the axis (0; 0; 1).\nNot shifted.");
    // x and y exchanged, z turned over: half a turn about the diagonal between x and y.
    EXPECT_EQ(Words(CATMath3x3Matrix(0, 1, 0, 1, 0, 0, 0, 0, -1)),
              "Turned by 180 deg about the axis (0.707107; 0.707107; 0).\nNot shifted.");
}

TEST_F(WBDetailTablesTest, OppositeHandIsSaid)
{
    EXPECT_EQ(Words(CATMath3x3Matrix(1, 0, 0, 0, -1, 0, 0, 0, 1), CATMathVector(0, 5, 0)),
              "Mirrored: an opposite-hand use of the part.\nShifted by x 0 mm, y 5 mm, z 0 mm.");
}
