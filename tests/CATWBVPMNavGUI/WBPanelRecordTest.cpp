#include "WBPanelRecord.h"

#include "PanelSession.h"
#include "WBValueDetails.h"

namespace
{

using testing::ElementsAre;

class WBPanelRecordTest : public PanelSession
{
protected:
    static WBPanelRecord Read(const std::string& stream, const DetailsSaid& said = {})
    {
        return WBReadPanelRecord(*RecordOf(stream), Details(said));
    }
    static WBValueDetails Details(const DetailsSaid& said)
    {
        const std::optional<WBValueDetails> details = WBReadValueDetails(said.Text());
        EXPECT_TRUE(details.has_value());
        return details.value_or(WBValueDetails());
    }
};

// Everything but one mass type, which the test writes down.
std::string StreamWithMassType(const std::string& massType)
{
    return Join({"1|I|P|A|ROOT|0|1|0|1|0|0|0|1|0|1|", massType,
                 "1|Calculated||0|0|1|0|0|1|0|0|0|1|0|0|0|1|7|8|9|0|"});
}

} // namespace

TEST_F(WBPanelRecordTest, IdentifiesPartInstanceAndRoot)
{
    const WBPanelRecord record = Read(FirewallStream());
    EXPECT_EQ(record.part, "FUS-110");
    EXPECT_EQ(record.version, "A");
    EXPECT_EQ(record.instance, "FUS-110.1");
    EXPECT_EQ(record.root, "LA1");
    EXPECT_TRUE(record.hasInstanceInPDM);
    EXPECT_EQ(record.partName, "");
}

TEST_F(WBPanelRecordTest, PathGoesFromTheRootToTheInstance)
{
    EXPECT_THAT(Read(FirewallStream()).path,
                ElementsAre("LA1", "FUS-000.1", "FUS-100.1", "FUS-110.1"));
}

TEST_F(WBPanelRecordTest, PathWithoutNamesBetweenHoldsRootAndInstance)
{
    EXPECT_THAT(Read(StreamWithMassType("Calculated|0|0|0|0|")).path, ElementsAre("ROOT", "I"));
}

TEST_F(WBPanelRecordTest, EmptyRecordHasNothing)
{
    const RecordHandle empty = RecordHandle::Adopt(new CATWBAllDataBuffer);
    const WBPanelRecord record = WBReadPanelRecord(*empty, WBValueDetails());
    EXPECT_TRUE(record.path.empty());
    EXPECT_TRUE(record.massTypes.empty());
    EXPECT_EQ(record.Active(), nullptr);
    EXPECT_TRUE(record.revisions.empty());
    EXPECT_TRUE(record.properties.empty());
    EXPECT_TRUE(record.statistics.empty());
    EXPECT_FALSE(record.placement.has_value());
    EXPECT_FALSE(record.density.density.has_value());
    EXPECT_FALSE(record.isUpToDate);
    EXPECT_FALSE(record.isLeaf);
}

TEST_F(WBPanelRecordTest, FlagsAreThoseOfTheRecord)
{
    const RecordHandle record = RecordOf(FirewallStream());
    WBPanelRecord panel = WBReadPanelRecord(*record, WBValueDetails());
    EXPECT_TRUE(panel.isUpToDate);
    EXPECT_TRUE(panel.isPersistent);
    EXPECT_FALSE(panel.isLeaf);
    EXPECT_FALSE(panel.isStandardPart);
    record->SetIsLeaf(true);
    record->SetStandardPart(true);
    record->SetUpToDateFlag(false);
    record->SetPersistencyFlag(0);
    panel = WBReadPanelRecord(*record, WBValueDetails());
    EXPECT_FALSE(panel.isUpToDate);
    EXPECT_FALSE(panel.isPersistent);
    EXPECT_TRUE(panel.isLeaf);
    EXPECT_TRUE(panel.isStandardPart);
}

TEST_F(WBPanelRecordTest, AssignedMassTypeHasItsValues)
{
    const WBPanelRecord record = Read(FirewallStream());
    ASSERT_EQ(record.massTypes.size(), 5U);
    const WBPanelMassType& calculated = record.massTypes[2];
    EXPECT_EQ(calculated.name, "Calculated");
    EXPECT_EQ(calculated.status, CATENOWBCSCommonDefinitions::Assigned);
    EXPECT_EQ(calculated.mass, 1.92);
    EXPECT_EQ(calculated.lowerDeviation, 0.0576);
    EXPECT_EQ(calculated.upperDeviation, 0.096);
    EXPECT_EQ(calculated.centre, CATMathPoint(2, 0, -60));
    // On the stream: the moments, then the products xz, xy, yz.
    EXPECT_EQ(calculated.inertia, CATMath3x3Matrix(0.275557, 0.02, -0.03, 0.02, 0.115605, -0.01,
                                                   -0.03, -0.01, 0.159998));
    EXPECT_TRUE(calculated.hasPrecision);
    EXPECT_FALSE(calculated.isPrecisionAbsolute);
    EXPECT_EQ(calculated.lowerPrecision, 3.0);
    EXPECT_EQ(calculated.upperPrecision, 5.0);
}

TEST_F(WBPanelRecordTest, MassTypeThatIsNotAssignedHasNoValuesButItsPrecisions)
{
    const WBPanelRecord record = Read(FirewallStream());
    for (const std::size_t index : {0U, 3U, 4U}) {
        EXPECT_FALSE(record.massTypes[index].mass.has_value()) << index;
        EXPECT_FALSE(record.massTypes[index].lowerDeviation.has_value()) << index;
        EXPECT_FALSE(record.massTypes[index].upperDeviation.has_value()) << index;
        EXPECT_FALSE(record.massTypes[index].centre.has_value()) << index;
        EXPECT_FALSE(record.massTypes[index].inertia.has_value()) << index;
    }
    EXPECT_EQ(record.massTypes[3].defaultLowerPrecision, 0.5);
    EXPECT_EQ(record.massTypes[3].defaultUpperPrecision, 0.5);
    EXPECT_EQ(record.massTypes[4].status, CATENOWBCSCommonDefinitions::PartiallyAssigned);
    EXPECT_TRUE(record.massTypes[4].isPrecisionAbsolute);
}

TEST_F(WBPanelRecordTest, ActiveMassTypeIsTheOneOfThatName)
{
    const WBPanelRecord record = Read(FirewallStream());
    EXPECT_EQ(record.Active(), &record.massTypes[2]);
    EXPECT_EQ(record.lastImposedMassType, "Estimated");
    WBPanelRecord other = record;
    other.activeMassType = "calculated";
    EXPECT_EQ(other.Active(), nullptr);
}

TEST_F(WBPanelRecordTest, MassTypeNamesThatTravelAsNothingAreEmpty)
{
    const WBPanelRecord record =
        Read("1|I|P|A|ROOT|0|1|0|1|0|0|0|1|0|0|1|__null__|__null__|0|0|1|0|0|"
             "1|0|0|0|1|0|0|0|1|7|8|9|0|");
    EXPECT_EQ(record.activeMassType, "");
    EXPECT_EQ(record.lastImposedMassType, "");
}

TEST_F(WBPanelRecordTest, ZerosThatTheServerDoesNotExplainCountAsUnknown)
{
    const WBPanelRecord record =
        Read(StreamWithMassType("Calculated|1|5|0|0|0|0|0|0|0|0|0|0|0|0|0|3|5|"));
    EXPECT_EQ(record.massTypes[0].mass, 5.0);
    EXPECT_FALSE(record.massTypes[0].centre.has_value());
    EXPECT_FALSE(record.massTypes[0].inertia.has_value());
}

TEST_F(WBPanelRecordTest, CentreAtTheOriginIsKnownTogetherWithAnInertia)
{
    const WBPanelRecord record =
        Read(StreamWithMassType("Calculated|1|5|0|0|0|0|0|1|2|2|0|0|0|0|0|3|5|"));
    EXPECT_EQ(record.massTypes[0].centre, CATMathPoint(0, 0, 0));
    EXPECT_TRUE(record.massTypes[0].inertia.has_value());
}

TEST_F(WBPanelRecordTest, CentreWithoutInertiaIsKnownAwayFromTheOrigin)
{
    const WBPanelRecord record =
        Read(StreamWithMassType("Calculated|1|5|0|0|0|0|7|0|0|0|0|0|0|0|0|3|5|"));
    EXPECT_EQ(record.massTypes[0].centre, CATMathPoint(0, 0, 7));
    EXPECT_FALSE(record.massTypes[0].inertia.has_value());
}

TEST_F(WBPanelRecordTest, RecordThatHoldsOnlyOneOfCentreAndInertiaKeepsThatOne)
{
    const std::string stream = StreamWithMassType("Calculated|0|0|0|0|");
    const RecordHandle record = RecordOf(stream);
    const RecordHandle other = RecordOf(stream);
    const RecordHandle neither = RecordOf(stream);
    for (const RecordHandle& each : {record, other, neither}) {
        each->SetMassTypeStatus("Calculated", CATENOWBCSCommonDefinitions::Assigned);
    }
    const CATMath3x3Matrix inertia(1, 0, 0, 0, 2, 0, 0, 0, 3);
    record->SetInertia("Calculated", inertia);
    other->SetCenterOfGravity("Calculated", CATMathPoint(1, 2, 3));
    const WBPanelRecord turning = WBReadPanelRecord(*record, WBValueDetails());
    EXPECT_EQ(turning.massTypes[0].inertia, inertia);
    EXPECT_FALSE(turning.massTypes[0].centre.has_value());
    const WBPanelRecord standing = WBReadPanelRecord(*other, WBValueDetails());
    EXPECT_EQ(standing.massTypes[0].centre, CATMathPoint(1, 2, 3));
    EXPECT_FALSE(standing.massTypes[0].inertia.has_value());
    // The server's word that they are known does not make them.
    const WBValueDetails said = Details({"Firewall", {{"Calculated", "1|1|1|"}}});
    const WBPanelRecord bare = WBReadPanelRecord(*neither, said);
    EXPECT_FALSE(bare.massTypes[0].centre.has_value());
    EXPECT_FALSE(bare.massTypes[0].inertia.has_value());
}

TEST_F(WBPanelRecordTest, ServersWordOnKnownFiguresGoesBeforeTheirValues)
{
    const std::string stream = StreamWithMassType("Calculated|1|5|0|0|0|0|0|0|0|0|0|0|0|0|0|3|5|");
    const WBPanelRecord known = Read(stream, {"Firewall", {{"Calculated", "1|1|1|"}}});
    EXPECT_EQ(known.partName, "Firewall");
    EXPECT_EQ(known.massTypes[0].centre, CATMathPoint(0, 0, 0));
    EXPECT_EQ(known.massTypes[0].inertia, CATMath3x3Matrix());

    const WBPanelRecord unknown = Read(FirewallStream(), {"Firewall", {{"Calculated", "1|0|0|"}}});
    EXPECT_EQ(unknown.massTypes[2].mass, 1.92);
    EXPECT_FALSE(unknown.massTypes[2].centre.has_value());
    EXPECT_FALSE(unknown.massTypes[2].inertia.has_value());

    const WBPanelRecord massless = Read(FirewallStream(), {"Firewall", {{"Calculated", "0|0|0|"}}});
    EXPECT_FALSE(massless.massTypes[2].mass.has_value());
    EXPECT_FALSE(massless.massTypes[2].lowerDeviation.has_value());
}

TEST_F(WBPanelRecordTest, FigureThatAnotherTypeLendsIsNoneOfTheTypesOwn)
{
    for (const char* origins : {"1|3|3|", "2|3|3|"}) {
        const WBPanelRecord record =
            Read(FirewallStream(), {"Firewall", {{"Calculated", origins}}});
        EXPECT_EQ(record.massTypes[2].mass, 1.92);
        EXPECT_FALSE(record.massTypes[2].centre.has_value());
        EXPECT_FALSE(record.massTypes[2].inertia.has_value());
    }
}

TEST_F(WBPanelRecordTest, ComputedCarriesWhatItWasMadeOf)
{
    const std::string stream = StreamWithMassType("Computed|1|5|0|0|1|2|3|4|5|6|0|0|0|0|0|3|5|");
    for (const char* origins : {"1|3|3|", "4|4|4|"}) {
        const WBPanelRecord record = Read(stream, {"Firewall", {{"Computed", origins}}});
        EXPECT_EQ(record.massTypes[0].mass, 5.0);
        EXPECT_EQ(record.massTypes[0].centre, CATMathPoint(1, 2, 3));
        EXPECT_EQ(record.massTypes[0].inertia, CATMath3x3Matrix(4, 0, 0, 0, 5, 0, 0, 0, 6));
    }
    const WBPanelRecord none = Read(stream, {"Firewall", {{"Computed", "4|0|0|"}}});
    EXPECT_FALSE(none.massTypes[0].centre.has_value());
    EXPECT_FALSE(none.massTypes[0].inertia.has_value());
}

TEST_F(WBPanelRecordTest, DetailsStandBesideTheRecord)
{
    const WBPanelRecord record = Read(FirewallStream(), {"Firewall", {{"Calculated"}}});
    ASSERT_NE(record.details.Of("Calculated"), nullptr);
    EXPECT_FALSE(record.computed.has_value());
}

TEST_F(WBPanelRecordTest, DensityIsThereOnlyWhenItIsAssigned)
{
    const WBPanelRecord record = Read(FirewallStream());
    EXPECT_EQ(record.density.density, 7900.0);
    EXPECT_EQ(record.density.material, "Stainless steel 321");
    EXPECT_TRUE(record.isMaterialDensityFirst);
    EXPECT_FALSE(record.partDensity.density.has_value());
    const WBPanelRecord wide = Read(WideStream());
    EXPECT_EQ(wide.appliedOn, "PartInst");
    EXPECT_EQ(wide.partDensity.density, 7850.75);
    const WBPanelRecord none = Read(StreamWithMassType("Calculated|0|0|0|0|"));
    EXPECT_FALSE(none.density.density.has_value());
    EXPECT_FALSE(none.isMaterialDensityFirst);
}

TEST_F(WBPanelRecordTest, DensityOfPartsBelowIsNotThePartsOwn)
{
    const RecordHandle record = RecordOf(FirewallStream());
    record->SetWBDensityStatus(CATENOWBCSCommonDefinitions::PartiallyAssigned);
    const WBPanelRecord panel = WBReadPanelRecord(*record, WBValueDetails());
    EXPECT_EQ(panel.density.status, CATENOWBCSCommonDefinitions::PartiallyAssigned);
    EXPECT_FALSE(panel.density.density.has_value());
}

TEST_F(WBPanelRecordTest, MaterialOfThePartItselfIsToldWhereThereIsOne)
{
    const RecordHandle record = RecordOf(WideStream());
    EXPECT_EQ(WBReadPanelRecord(*record, WBValueDetails()).partDensity.material,
              "Other-" + std::string(74, 'M'));
    record->SetPartRefWBMaterialName("__null__");
    EXPECT_EQ(WBReadPanelRecord(*record, WBValueDetails()).partDensity.material, "");
}

TEST_F(WBPanelRecordTest, StatisticsKeepMaterialDimensionAndMass)
{
    const WBPanelRecord record = Read(FirewallStream());
    ASSERT_EQ(record.statistics.size(), 3U);
    EXPECT_EQ(record.statistics[2].material, "Paint");
    EXPECT_EQ(record.statistics[2].dimension, 2);
    EXPECT_EQ(record.statistics[2].mass, 0.2);
}

TEST_F(WBPanelRecordTest, DocumentsAndRevisionsComeAsTheyAre)
{
    const WBPanelRecord record = Read(FirewallStream());
    EXPECT_EQ(record.activeDocument, "DOC-55");
    EXPECT_EQ(record.activeDocumentVersion, "B");
    EXPECT_EQ(record.attachedRevision, "DOC-55 2");
    EXPECT_TRUE(record.areOldRevisionsUsable);
    EXPECT_FALSE(record.isAttachedRevisionUsed);
    EXPECT_TRUE(record.hasUsedSpecificRevision);
    ASSERT_EQ(record.revisions.size(), 2U);
    EXPECT_EQ(record.revisions[0].version, "A.1");
    EXPECT_EQ(record.revisions[0].checkInDate, "2026-03-02");
    EXPECT_EQ(record.revisions[0].checkInUser, "mueller");
    EXPECT_EQ(record.revisions[0].checkOutUser, "");
    EXPECT_EQ(record.revisions[0].activeMassType, "Estimated");
    EXPECT_EQ(record.revisions[0].mass, 2.1);
    EXPECT_EQ(record.revisions[1].checkOutUser, "jones");
    EXPECT_FALSE(record.revisions[1].mass.has_value());
}

TEST_F(WBPanelRecordTest, MassOfARevisionIsReadUnderACommaToo)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    EXPECT_EQ(Read(FirewallStream()).revisions[0].mass, 2.1);
}

TEST_F(WBPanelRecordTest, OnlyAutoModeOneKeepsToTheAttachedRevision)
{
    const std::string before = "1|0|1|DOC-55|"; // may be saved, auto mode, old revisions
    for (const int mode : {0, 1, 2}) {
        std::string stream = FirewallStream();
        stream.replace(stream.find(before), before.size(),
                       "1|" + std::to_string(mode) + "|1|DOC-55|");
        EXPECT_EQ(Read(stream).isAttachedRevisionUsed, mode == 1) << mode;
    }
}

TEST_F(WBPanelRecordTest, DocumentZeroIsNone)
{
    const WBPanelRecord record = Read(StreamWithMassType("Calculated|0|0|0|0|"));
    EXPECT_EQ(record.activeDocument, "");
    EXPECT_EQ(record.activeDocumentVersion, "");
}

TEST_F(WBPanelRecordTest, PropertiesKeepTheirFields)
{
    const WBPanelRecord record = Read(FirewallStream());
    ASSERT_EQ(record.properties.size(), 6U);
    EXPECT_EQ(record.properties[0].name, "Operating_time");
    EXPECT_EQ(record.properties[0].type, 100);
    EXPECT_EQ(record.properties[0].magnitude, "TIME");
    EXPECT_FALSE(record.properties[0].isDate);
    EXPECT_TRUE(record.properties[1].isDate);
    EXPECT_EQ(record.properties[2].value, "");
    EXPECT_EQ(record.properties[3].owner, "Instance");
    EXPECT_EQ(record.dateFormat, "%Y/%m/%d");
}

TEST_F(WBPanelRecordTest, PlacementIsTheImagesOfTheAxesThenTheShift)
{
    const std::optional<CATMathTransformation> placement = Read(WideStream()).placement;
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->Rotation(), CATMath3x3Matrix(0, -1, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(placement->Shift(), CATMathVector(123456.789, -23456.789, 34567.891));
}

TEST_F(WBPanelRecordTest, PlacementWithoutAxesIsUnknown)
{
    const RecordHandle record = RecordOf(FirewallStream());
    record->SetListOfTransMatrix(CATRawColldouble({0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3}));
    EXPECT_FALSE(WBReadPanelRecord(*record, WBValueDetails()).placement.has_value());
    record->SetListOfTransMatrix(CATRawColldouble({1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 2}));
    EXPECT_FALSE(WBReadPanelRecord(*record, WBValueDetails()).placement.has_value());
}
