#include "WBRecordTables.h"

#include "PanelSession.h"
#include "WBPanelRecord.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using testing::ElementsAre;
using testing::IsEmpty;

class WBRecordTablesTest : public PanelSession
{
protected:
    static CATWBRecordTable TableOf(const WBPanelRecord& record, const char* name)
    {
        for (const CATWBRecordTable& table : WBDescribeRecord(record)) {
            if (table.name == name) {
                return table;
            }
        }
        ADD_FAILURE() << "no table " << name;
        return {};
    }
};

/// Texts in quotes, numbers and flags bare, what is unknown as "?".
std::string Shown(const CATWBRecordCell& cell)
{
    switch (cell.kind) {
    case CATWBRecordCell::Kind::Unknown:
        return "?" + cell.text.ToStdString();
    case CATWBRecordCell::Kind::Text:
        return "'" + cell.text.ToStdString() + "'";
    case CATWBRecordCell::Kind::Number:
        return cell.text.ToStdString();
    case CATWBRecordCell::Kind::Flag:
        return "is " + cell.text.ToStdString();
    }
    return "no kind";
}

std::vector<std::string> Row(const CATWBRecordTable& table, std::size_t index = 0)
{
    std::vector<std::string> cells;
    if (index < table.rows.size()) {
        for (const CATWBRecordCell& cell : table.rows[index]) {
            cells.push_back(Shown(cell));
        }
    }
    return cells;
}

std::vector<std::string> Columns(const CATWBRecordTable& table)
{
    std::vector<std::string> names;
    for (const CATUnicodeString& column : table.columns.Items()) {
        names.push_back(column.ToStdString());
    }
    return names;
}

WBPanelMassType Calculated()
{
    WBPanelMassType type;
    type.name = "Calculated";
    type.status = Definitions::Assigned;
    type.mass = 1.92;
    type.lowerDeviation = 0.0576;
    type.upperDeviation = 0.096;
    type.centre = CATMathPoint(2, 0, -60);
    // Products of inertia xy 0.01, xz -0.02, yz 0.03, which the matrix holds negated.
    type.inertia = CATMath3x3Matrix(0.5, -0.01, 0.02, -0.01, 0.25, -0.03, 0.02, -0.03, 0.125);
    type.hasPrecision = true;
    type.lowerPrecision = 3;
    type.upperPrecision = 5;
    type.defaultLowerPrecision = 10;
    type.defaultUpperPrecision = 20;
    return type;
}

} // namespace

TEST_F(WBRecordTablesTest, TablesStandInOneOrder)
{
    std::vector<std::string> names;
    for (const CATWBRecordTable& table : WBDescribeRecord(WBPanelRecord())) {
        names.push_back(table.name.ToStdString() + (table.isList ? " (list)" : ""));
    }
    EXPECT_THAT(names,
                ElementsAre("part", "mass_types (list)", "material", "material_statistics (list)",
                            "document", "revisions (list)", "properties (list)", "position"));
}

TEST_F(WBRecordTablesTest, EveryRowIsAsLongAsTheColumns)
{
    WBPanelRecord record;
    record.massTypes = {Calculated(), WBPanelMassType()};
    record.statistics.push_back({"Steel", 3, 1.5});
    record.revisions.emplace_back();
    record.properties.emplace_back();
    for (const WBPanelRecord& each : {record, WBPanelRecord()}) {
        for (const CATWBRecordTable& table : WBDescribeRecord(each)) {
            for (const auto& row : table.rows) {
                EXPECT_EQ(row.size(), static_cast<std::size_t>(table.columns.Size()))
                    << table.name.View();
            }
        }
    }
}

TEST_F(WBRecordTablesTest, PartIsIdentifiedAndItsFlagsAreSaid)
{
    WBPanelRecord record;
    record.root = "LA1";
    record.instance = "FUS-110.1";
    record.part = "FUS-110";
    record.version = "A";
    record.path = {"LA1", "FUS-000.1", "FUS-110.1"};
    record.isLeaf = true;
    record.hasInstanceInPDM = true;
    record.activeMassType = "Calculated";
    record.lastImposedMassType = "Weighed";
    const CATWBRecordTable table = TableOf(record, "part");
    EXPECT_THAT(Columns(table),
                ElementsAre("root", "instance", "part", "version", "path", "is_leaf",
                            "standard_part", "up_to_date", "has_pdm_instance", "active_mass_type",
                            "last_imposed_mass_type"));
    EXPECT_THAT(Row(table), ElementsAre("'LA1'", "'FUS-110.1'", "'FUS-110'", "'A'",
                                        "'LA1/FUS-000.1/FUS-110.1'", "is true", "is false",
                                        "is false", "is true", "'Calculated'", "'Weighed'"));
    record.isLeaf = false;
    record.isStandardPart = true;
    record.isUpToDate = true;
    record.hasInstanceInPDM = false;
    EXPECT_THAT(Row(TableOf(record, "part")),
                ElementsAre("'LA1'", "'FUS-110.1'", "'FUS-110'", "'A'", "'LA1/FUS-000.1/FUS-110.1'",
                            "is false", "is true", "is true", "is false", "'Calculated'",
                            "'Weighed'"));
}

TEST_F(WBRecordTablesTest, EmptyRecordIsUnknownAndNeverZero)
{
    const WBPanelRecord empty;
    EXPECT_THAT(Row(TableOf(empty, "part")),
                ElementsAre("?", "?", "?", "?", "?", "is false", "is false", "is false", "is false",
                            "?", "?"));
    EXPECT_THAT(Row(TableOf(empty, "material")),
                ElementsAre("?", "?", "'empty'", "?", "'wb'", "?", "'empty'", "?"));
    EXPECT_THAT(Row(TableOf(empty, "document")),
                ElementsAre("?", "?", "?", "'latest'", "is false", "is false"));
    EXPECT_THAT(Row(TableOf(empty, "position")),
                ElementsAre("?", "?", "?", "?", "?", "?", "?", "?", "?", "?", "?", "?"));
    for (const char* list : {"mass_types", "material_statistics", "revisions", "properties"}) {
        EXPECT_THAT(TableOf(empty, list).rows, IsEmpty()) << list;
    }
}

TEST_F(WBRecordTablesTest, MassTypeTellsAllItsFiguresAndProductsWithTheirOwnSign)
{
    WBPanelRecord record;
    record.massTypes = {Calculated()};
    const CATWBRecordTable table = TableOf(record, "mass_types");
    EXPECT_THAT(Columns(table),
                ElementsAre("name", "status", "mass", "lower_deviation", "upper_deviation", "cgx",
                            "cgy", "cgz", "ixx", "iyy", "izz", "ixy", "ixz", "iyz", "precision",
                            "lower_precision", "upper_precision", "default_lower_precision",
                            "default_upper_precision"));
    EXPECT_THAT(Row(table), ElementsAre("'Calculated'", "'assigned'", "1.92", "0.0576", "0.096",
                                        "2", "0", "-60", "0.5", "0.25", "0.125", "0.01", "-0.02",
                                        "0.03", "'percentage'", "3", "5", "10", "20"));
}

TEST_F(WBRecordTablesTest, MassTypeWithoutValuesTellsItsDefaultPrecisionsAlone)
{
    WBPanelRecord record;
    record.massTypes = {Calculated(), Calculated()};
    for (WBPanelMassType& type : record.massTypes) {
        type = WBPanelMassType();
        type.name = "Weighed";
        type.defaultLowerPrecision = 0.5;
        type.defaultUpperPrecision = 0.25;
    }
    record.massTypes[1].status = Definitions::PartiallyAssigned;
    const CATWBRecordTable table = TableOf(record, "mass_types");
    EXPECT_THAT(Row(table, 0),
                ElementsAre("'Weighed'", "'empty'", "?", "?", "?", "?", "?", "?", "?", "?", "?",
                            "?", "?", "?", "?", "?", "?", "0.5", "0.25"));
    EXPECT_EQ(Row(table, 1)[1], "'partially assigned'");
}

TEST_F(WBRecordTablesTest, AbsolutePrecisionIsNamed)
{
    WBPanelRecord record;
    record.massTypes = {Calculated()};
    record.massTypes[0].isPrecisionAbsolute = true;
    EXPECT_EQ(Row(TableOf(record, "mass_types"))[14], "'absolute'");
}

TEST_F(WBRecordTablesTest, MaterialTellsBothDensitiesAndWhichGoesFirst)
{
    WBPanelRecord record;
    record.density = {Definitions::Assigned, 7900.0, "Steel"};
    record.partDensity = {Definitions::PartiallyAssigned, 2810.0, "Al 7075-T6"};
    record.appliedOn = "PartInst";
    record.isMaterialDensityFirst = true;
    const CATWBRecordTable table = TableOf(record, "material");
    EXPECT_THAT(Columns(table),
                ElementsAre("material", "applied_on", "density_status", "density", "density_first",
                            "part_material", "part_density_status", "part_density"));
    EXPECT_THAT(Row(table), ElementsAre("'Steel'", "'PartInst'", "'assigned'", "7900", "'material'",
                                        "'Al 7075-T6'", "'partially assigned'", "2810"));
}

TEST_F(WBRecordTablesTest, StatisticsTellMaterialDimensionAndMass)
{
    WBPanelRecord record;
    record.statistics = {{"Steel", 3, 1.5}, {"Paint", 2, 0.2}};
    const CATWBRecordTable table = TableOf(record, "material_statistics");
    EXPECT_THAT(Columns(table), ElementsAre("material", "dimension", "mass"));
    EXPECT_THAT(Row(table, 0), ElementsAre("'Steel'", "3", "1.5"));
    EXPECT_THAT(Row(table, 1), ElementsAre("'Paint'", "2", "0.2"));
}

TEST_F(WBRecordTablesTest, DocumentTellsWhatTheValuesAreComputedOn)
{
    WBPanelRecord record;
    record.activeDocument = "DOC-55";
    record.activeDocumentVersion = "B";
    record.attachedRevision = "DOC-55 2";
    record.isAttachedRevisionUsed = true;
    record.areOldRevisionsUsable = true;
    const CATWBRecordTable table = TableOf(record, "document");
    EXPECT_THAT(Columns(table),
                ElementsAre("active", "version", "attached", "computed_on", "old_revisions_usable",
                            "used_specific_revision_before"));
    EXPECT_THAT(Row(table),
                ElementsAre("'DOC-55'", "'B'", "'DOC-55 2'", "'attached'", "is true", "is false"));
    record.areOldRevisionsUsable = false;
    record.hasUsedSpecificRevision = true;
    EXPECT_THAT(Row(TableOf(record, "document")),
                ElementsAre("'DOC-55'", "'B'", "'DOC-55 2'", "'attached'", "is false", "is true"));
}

TEST_F(WBRecordTablesTest, RevisionsTellWhoDidWhatAndTheMassWhereThereIsOne)
{
    WBPanelRecord record;
    record.revisions = {{"A.1", "2026-03-02", "mueller", "", "Estimated", 2.1},
                        {"B.1", "2026-04-02", "smith", "jones", "", std::nullopt}};
    const CATWBRecordTable table = TableOf(record, "revisions");
    EXPECT_THAT(Columns(table), ElementsAre("version", "checkin_date", "checkin_user",
                                            "checkout_user", "active_mass_type", "mass"));
    EXPECT_THAT(Row(table, 0),
                ElementsAre("'A.1'", "'2026-03-02'", "'mueller'", "?", "'Estimated'", "2.1"));
    EXPECT_THAT(Row(table, 1),
                ElementsAre("'B.1'", "'2026-04-02'", "'smith'", "'jones'", "?", "?"));
}

TEST_F(WBRecordTablesTest, PropertiesKeepTheirStoredTexts)
{
    WBPanelRecord record;
    record.properties = {{"Operating_time", 100, false, "Part", "3600", "TIME"},
                         {"Next_inspection", 1, true, "Instance", "", ""}};
    const CATWBRecordTable table = TableOf(record, "properties");
    EXPECT_THAT(Columns(table),
                ElementsAre("name", "type", "is_date", "owner", "value", "magnitude"));
    EXPECT_THAT(Row(table, 0),
                ElementsAre("'Operating_time'", "100", "is false", "'Part'", "'3600'", "'TIME'"));
    EXPECT_THAT(Row(table, 1),
                ElementsAre("'Next_inspection'", "1", "is true", "'Instance'", "?", "?"));
}

TEST_F(WBRecordTablesTest, PositionIsTheImagesOfTheAxesThenTheShift)
{
    WBPanelRecord record;
    // The part's x axis points along the product's y, its y axis along -x.
    record.placement = CATMathTransformation(CATMath3x3Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1),
                                             CATMathVector(10, 20, -30.5));
    const CATWBRecordTable table = TableOf(record, "position");
    EXPECT_THAT(Columns(table),
                ElementsAre("xx", "xy", "xz", "yx", "yy", "yz", "zx", "zy", "zz", "x", "y", "z"));
    EXPECT_THAT(Row(table),
                ElementsAre("0", "1", "0", "-1", "0", "0", "0", "0", "1", "10", "20", "-30.5"));
}

TEST_F(WBRecordTablesTest, NumbersHaveFifteenDigitsAndAPointWhateverTheUserHas)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    ShowIn("MASS", "g");
    WBPanelRecord record;
    record.statistics = {{"a", 3, 1.0 / 3.0}, {"b", 3, 1e-7}, {"c", 3, 2e20}, {"d", 3, 0.1 + 0.2}};
    const CATWBRecordTable table = TableOf(record, "material_statistics");
    EXPECT_EQ(Row(table, 0)[2], "0.333333333333333");
    EXPECT_EQ(Row(table, 1)[2], "1e-07");
    EXPECT_EQ(Row(table, 2)[2], "2e+20");
    EXPECT_EQ(Row(table, 3)[2], "0.3");
}

TEST_F(WBRecordTablesTest, ProductOfInertiaThatIsNothingIsAPlainZero)
{
    WBPanelRecord record;
    record.massTypes = {Calculated()};
    record.massTypes[0].inertia = CATMath3x3Matrix(1, 0, 0, 0, 1, 0, 0, 0, 1);
    const std::vector<std::string> row = Row(TableOf(record, "mass_types"));
    EXPECT_EQ(row[11], "0");
    EXPECT_EQ(row[12], "0");
    EXPECT_EQ(row[13], "0");
}
