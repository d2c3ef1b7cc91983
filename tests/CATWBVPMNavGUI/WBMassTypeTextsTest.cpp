#include "PanelSession.h"
#include "WBPanelTexts.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

class WBMassTypeTextsTest : public PanelSession
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
        type.defaultLowerPrecision = 3.0;
        type.defaultUpperPrecision = 5.0;
        return type;
    }
    static WBPanelRecord Record()
    {
        WBPanelRecord record;
        WBPanelMassType computed;
        computed.name = "Computed";
        WBPanelMassType supplier;
        supplier.name = "Supplier";
        supplier.status = Definitions::PartiallyAssigned;
        record.massTypes = {computed, Calculated(), supplier};
        record.activeMassType = "Calculated";
        record.lastImposedMassType = "Supplier";
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
};

} // namespace

TEST_F(WBMassTypeTextsTest, TitlesCarryTheUnits)
{
    EXPECT_THAT(Titles(WBMassTypeTable(WBPanelRecord())),
                testing::ElementsAre("Mass type", "Role", "Status", "Mass [kg]", "Lower dev. [kg]",
                                     "Upper dev. [kg]", "CoG x [mm]", "CoG y [mm]", "CoG z [mm]",
                                     "Ixx [kg.m2]", "Iyy [kg.m2]", "Izz [kg.m2]", "Ixy [kg.m2]",
                                     "Ixz [kg.m2]", "Iyz [kg.m2]", "Precision"));
    ShowIn("MASS", "lb");
    ShowIn("LENGTH", "in");
    ShowIn("INERTIAMOMENT", "lb.in2");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_THAT(Titles(WBMassTypeTable(WBPanelRecord())),
                testing::ElementsAre("Massentyp", "Rolle", "Stand", "Masse [lb]",
                                     "Untere Abw. [lb]", "Obere Abw. [lb]", "SP x [in]",
                                     "SP y [in]", "SP z [in]", "Ixx [lb.in2]", "Iyy [lb.in2]",
                                     "Izz [lb.in2]", "Ixy [lb.in2]", "Ixz [lb.in2]", "Iyz [lb.in2]",
                                     "Genauigkeit"));
}

TEST_F(WBMassTypeTextsTest, NumbersAreMarkedAsNumbersAndWordsAreNot)
{
    const WBPanelTable table = WBMassTypeTable(WBPanelRecord());
    for (std::size_t index = 0; index < table.columns.size(); ++index) {
        EXPECT_EQ(table.columns[index].isNumber, index >= 3 && index <= 14) << index;
    }
}

TEST_F(WBMassTypeTextsTest, EveryColumnOfNumbersExplainsItself)
{
    for (const auto& column : WBMassTypeTable(WBPanelRecord()).columns) {
        EXPECT_TRUE(!column.isNumber || column.tooltip.Length() > 10) << column.title.View();
    }
}

TEST_F(WBMassTypeTextsTest, AssignedTypeFillsItsRow)
{
    EXPECT_EQ(WBMassTypeTable(Record()).rows[1],
              WBPanelRow({"Calculated", "active", "assigned", "2", "0.06", "0.1", "1", "-2.5", "0",
                          "0.5", "0.25", "0.125", "0.01", "-0.02", "0.03", "default -3 % / +5 %"}));
}

TEST_F(WBMassTypeTextsTest, RowStandsInTheUsersUnitsAndSeparator)
{
    ShowIn("MASS", "g");
    ShowIn("LENGTH", "cm");
    ShowIn("INERTIAMOMENT", "kg.mm2");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(WBMassTypeTable(Record()).rows[1],
              WBPanelRow({"Calculated", "active", "assigned", "2000", "60", "100", "0,1", "-0,25",
                          "0", "500000", "250000", "125000", "10000", "-20000", "30000",
                          "default -3 % / +5 %"}));
}

TEST_F(WBMassTypeTextsTest, TypeWithoutValuesHasEmptyCellsAndNoZero)
{
    const WBPanelTable table = WBMassTypeTable(Record());
    WBPanelRow expected{"Computed", "", "no value"};
    WBPanelRow partly{"Supplier", "last imposed", "partly assigned"};
    for (int column = 4; column <= 16; ++column) {
        expected.Append("");
        partly.Append("");
    }
    EXPECT_EQ(table.rows[0], expected);
    EXPECT_EQ(table.rows[2], partly);
}

TEST_F(WBMassTypeTextsTest, UnknownCentreOrInertiaLeavesOnlyItsOwnCellsEmpty)
{
    WBPanelRecord record = Record();
    record.massTypes[1].centre.reset();
    EXPECT_EQ(WBMassTypeTable(record).rows[1],
              WBPanelRow({"Calculated", "active", "assigned", "2", "0.06", "0.1", "", "", "", "0.5",
                          "0.25", "0.125", "0.01", "-0.02", "0.03", "default -3 % / +5 %"}));
    record = Record();
    record.massTypes[1].inertia.reset();
    EXPECT_EQ(WBMassTypeTable(record).rows[1],
              WBPanelRow({"Calculated", "active", "assigned", "2", "0.06", "0.1", "1", "-2.5", "0",
                          "", "", "", "", "", "", "default -3 % / +5 %"}));
}

TEST_F(WBMassTypeTextsTest, TypeThatIsActiveAndImposedSaysBoth)
{
    WBPanelRecord record = Record();
    record.lastImposedMassType = "Calculated";
    EXPECT_EQ(WBMassTypeTable(record).rows[1][2], "active, last imposed");
    EXPECT_EQ(WBMassTypeTable(record).rows[2][2], "");
}

TEST_F(WBMassTypeTextsTest, DefinedPrecisionIsSaidInPercent)
{
    WBPanelMassType type = Calculated();
    type.hasPrecision = true;
    type.lowerPrecision = 0.5;
    type.upperPrecision = 2.0;
    EXPECT_EQ(WBPrecisionText(type), "-0.5 % / +2 %");
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(WBPrecisionText(type), "-0,5 % / +2 %");
}

TEST_F(WBMassTypeTextsTest, AbsolutePrecisionIsSaidInTheUnitOfMass)
{
    WBPanelMassType type = Calculated();
    type.hasPrecision = true;
    type.isPrecisionAbsolute = true;
    type.lowerPrecision = 0.2;
    type.upperPrecision = 0.1;
    EXPECT_EQ(WBPrecisionText(type), "-0.2 kg / +0.1 kg");
    ShowIn("MASS", "g");
    EXPECT_EQ(WBPrecisionText(type), "-200 g / +100 g");
}

TEST_F(WBMassTypeTextsTest, PrecisionSentWithASignIsStillASize)
{
    WBPanelMassType type = Calculated();
    type.hasPrecision = true;
    type.lowerPrecision = -3.0;
    type.upperPrecision = 5.0;
    EXPECT_EQ(WBPrecisionText(type), "-3 % / +5 %");
    type.isPrecisionAbsolute = true;
    EXPECT_EQ(WBPrecisionText(type), "-3 kg / +5 kg");
}

TEST_F(WBMassTypeTextsTest, DefaultPrecisionIsSaidOnlyWhereThereIsAMass)
{
    WBPanelMassType type = Calculated();
    EXPECT_EQ(WBPrecisionText(type), "default -3 % / +5 %");
    CATMsgCatalog::SetLanguage("de");
    EXPECT_EQ(WBPrecisionText(type), "Vorgabe -3 % / +5 %");
    type.mass.reset();
    EXPECT_EQ(WBPrecisionText(type), "");
}

TEST_F(WBMassTypeTextsTest, DefaultOfNothingIsNotSaid)
{
    WBPanelMassType type = Calculated();
    type.defaultLowerPrecision = 0.0;
    type.defaultUpperPrecision = 0.0;
    EXPECT_EQ(WBPrecisionText(type), "");
    type.defaultUpperPrecision = 5.0;
    EXPECT_EQ(WBPrecisionText(type), "default -0 % / +5 %");
    type.defaultLowerPrecision = 3.0;
    type.defaultUpperPrecision = 0.0;
    EXPECT_EQ(WBPrecisionText(type), "default -3 % / +0 %");
}

TEST_F(WBMassTypeTextsTest, DefinedPrecisionOfATypeWithoutMassIsStillSaid)
{
    WBPanelMassType type = Calculated();
    type.mass.reset();
    type.hasPrecision = true;
    type.lowerPrecision = 1.0;
    type.upperPrecision = 1.0;
    EXPECT_EQ(WBPrecisionText(type), "-1 % / +1 %");
}
