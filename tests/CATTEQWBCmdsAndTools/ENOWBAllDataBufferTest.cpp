#include "ENOWBAllDataBuffer.h"

#include "ModuleSession.h"

#include <memory>
#include <string>
#include <vector>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

/// A record as the codec makes it: names and announced count are fields of it.
class Record : public ENOWBAllDataBuffer
{
public:
    Record() = default;
    explicit Record(const CATListValCATUnicodeString& massTypes)
        : Record(massTypes, massTypes.Size())
    {}
    Record(const CATListValCATUnicodeString& massTypes, int announced)
    {
        m_massTypes = massTypes;
        m_massTypeCount = announced;
    }

    using ENOWBAllDataBuffer::m_configurationFilters;
    using ENOWBAllDataBuffer::m_currentlyAttachedVersion;
    using ENOWBAllDataBuffer::m_defaultLowerPrecisions;
    using ENOWBAllDataBuffer::m_documentAutoMode;
    using ENOWBAllDataBuffer::m_documentName;
    using ENOWBAllDataBuffer::m_masses;
    using ENOWBAllDataBuffer::m_massTypeCount;
    using ENOWBAllDataBuffer::m_oldDocumentsUsable;
    using ENOWBAllDataBuffer::m_persistencyFlag;
    using ENOWBAllDataBuffer::m_productsXY;
    using ENOWBAllDataBuffer::m_productsXZ;
    using ENOWBAllDataBuffer::m_productsYZ;
    using ENOWBAllDataBuffer::m_reservedIntegers;
    using ENOWBAllDataBuffer::m_revisionActiveMassTypes;
    using ENOWBAllDataBuffer::m_revisionCheckInDates;
    using ENOWBAllDataBuffer::m_revisionCheckInUsers;
    using ENOWBAllDataBuffer::m_revisionCheckOutUsers;
    using ENOWBAllDataBuffer::m_revisionCount;
    using ENOWBAllDataBuffer::m_revisionMasses;
    using ENOWBAllDataBuffer::m_revisionVersions;
    using ENOWBAllDataBuffer::m_statuses;
    using ENOWBAllDataBuffer::m_usedSpecificRevisionBefore;
};

// New records

TEST(ENOWBAllDataBuffer, NewRecordIsEmptyAndUsesTheDMC)
{
    Record record;
    EXPECT_TRUE(record.IsWBDMCUsed());
    EXPECT_EQ(record.m_documentName, "");
    CATUnicodeString text("old");
    EXPECT_EQ(record.GetActiveMassType(text), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetLastImposedMassType(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetWBMaterialName(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetCurrentPRCID(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetCurrentPRCFilter(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetCurrentPartID(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetCurrentInstanceID(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    EXPECT_EQ(record.GetCurrentPartVersion(text = "old"), S_OK);
    EXPECT_EQ(text, "");
    auto status = Definitions::PartiallyAssigned;
    EXPECT_EQ(record.GetWBDensityStatus(status), S_OK);
    EXPECT_EQ(status, 0);
    double density = 1.0;
    EXPECT_EQ(record.GetWBDensity(density), S_OK);
    EXPECT_EQ(density, 0.0);
    bool flag = true;
    EXPECT_EQ(record.GetUpToDateFlag(flag), S_OK);
    EXPECT_FALSE(flag);
    EXPECT_EQ(record.GetPersistencyFlag(flag = true), S_OK);
    EXPECT_FALSE(flag);
    auto priority = Definitions::MaterialDensityFirst;
    EXPECT_EQ(record.GetDensityPriority(priority), S_OK);
    EXPECT_EQ(priority, 0);
    auto entity = Definitions::PartAlone;
    EXPECT_EQ(record.GetEntityToCompute(entity), S_OK);
    EXPECT_EQ(entity, 0);
    int number = 7;
    EXPECT_EQ(record.GetInertiaReferencePoint(number), S_OK);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(record.GetInertiaReferenceAxis(number = 7), S_OK);
    EXPECT_EQ(number, 0);
    CATListValCATUnicodeString texts{"old"};
    EXPECT_EQ(record.GetMassTypes(texts), S_OK);
    EXPECT_TRUE(texts.IsEmpty());
    EXPECT_EQ(record.GetConfigFiltersPRC(texts = {"old"}), S_OK);
    EXPECT_TRUE(texts.IsEmpty());
    CATRawColldouble reals{1.0};
    EXPECT_EQ(record.GetListOfTransMatrix(reals), S_OK);
    EXPECT_TRUE(reals.IsEmpty());
    EXPECT_EQ(record.m_massTypeCount, 0);
    EXPECT_TRUE(record.m_reservedIntegers.IsEmpty());
    EXPECT_FALSE(record.AreOldDocumentsUsed());
    EXPECT_EQ(record.GetDocAutoMode(), 0);
    EXPECT_FALSE(record.HasUsedSpecificRevBefore());
    EXPECT_EQ(record.GetVersionCount(), 0);
    EXPECT_EQ(record.GetActiveDocId(), "");
    EXPECT_EQ(record.GetActiveDocVersion(), "");
    EXPECT_EQ(record.GetCurrentlyAttachedVersion(), "");
    EXPECT_FALSE(record.IsStandatadPart());
    EXPECT_EQ(record.GetInstancePath(), "");
    EXPECT_EQ(record.GetInstancePathDepth(), 0);
    EXPECT_EQ(record.GetExtraPropsCount(), 0);
    EXPECT_FALSE(record.AreDateTypePropertiesPresent());
    EXPECT_FALSE(record.HasInstInENOVIA());
    EXPECT_EQ(record.GetAppliedOnObject(), "");
    EXPECT_EQ(record.GetPartRefWBDensityStatus(), 0);
    EXPECT_EQ(record.GetPartRefWBDensity(), 0.0);
    EXPECT_EQ(record.GetPartRefWBMaterialName(), "");
    EXPECT_FALSE(record.IsLeaf());
    EXPECT_FALSE(record.AdditionalInfoRequested());
}

TEST(ENOWBAllDataBuffer, NewRecordHasNoExtraPropertiesAndNoStatistics)
{
    const ENOWBAllDataBuffer record;
    CATListValCATUnicodeString names{"old"};
    CATRawCollint types{1};
    CATRawCollint isDateFlags{1};
    CATListValCATUnicodeString owners{"old"};
    CATListValCATUnicodeString values{"old"};
    CATListValCATUnicodeString magnitudes{"old"};
    EXPECT_EQ(record.GetExtraPropertiesInfo(names, types, isDateFlags, owners, values, magnitudes),
              S_OK);
    EXPECT_TRUE(names.IsEmpty() && types.IsEmpty() && isDateFlags.IsEmpty());
    EXPECT_TRUE(owners.IsEmpty() && values.IsEmpty() && magnitudes.IsEmpty());
    CATRawColldouble reals{1.0};
    EXPECT_EQ(record.GetWBMatStatInfo(names = {"old"}, reals, types = {1}), S_OK);
    EXPECT_TRUE(names.IsEmpty() && reals.IsEmpty() && types.IsEmpty());
}

TEST(ENOWBAllDataBuffer, DatesOfPropertiesAreYearMonthDay)
{
    EXPECT_EQ(ENOWBAllDataBuffer().GetDateFormatForExtraProperties(), "%Y/%m/%d");
}

// Plain values

TEST(ENOWBAllDataBuffer, TextsComeBackAsTheyWereSet)
{
    using Set = long (ENOWBAllDataBuffer::*)(const CATUnicodeString&);
    using Get = long (ENOWBAllDataBuffer::*)(CATUnicodeString&) const;
    struct Row
    {
        Set set;
        Get get;
        const char* text;
    };
    using R = ENOWBAllDataBuffer;
    const std::vector<Row> rows{
        {&R::SetActiveMassType, &R::GetActiveMassType, "Estimated"},
        {&R::SetLastImposedMassType, &R::GetLastImposedMassType, "Weighed"},
        {&R::SetCurrentPRCID, &R::GetCurrentPRCID, "PRC-07"},
        {&R::SetCurrentPRCFilter, &R::GetCurrentPRCFilter, "0|No Filter"},
        {&R::SetCurrentPartID, &R::GetCurrentPartID, "PART-0001"},
        {&R::SetCurrentInstanceID, &R::GetCurrentInstanceID, "INST-0001"},
        {&R::SetCurrentPartVersion, &R::GetCurrentPartVersion, "A"},
    };
    ENOWBAllDataBuffer record;
    for (const Row& row : rows) {
        EXPECT_EQ((record.*row.set)(row.text), S_OK) << row.text;
    }
    for (const Row& row : rows) {
        CATUnicodeString text;
        EXPECT_EQ((record.*row.get)(text), S_OK) << row.text;
        EXPECT_EQ(text, row.text);
    }
    Record named;
    EXPECT_EQ(named.SetDocName("DOC"), S_OK);
    EXPECT_EQ(named.m_documentName, "DOC");
}

TEST(ENOWBAllDataBuffer, NumbersAndFlagsComeBackAsTheyWereSet)
{
    ENOWBAllDataBuffer record;
    EXPECT_EQ(record.SetWBDensityStatus(Definitions::Assigned), S_OK);
    EXPECT_EQ(record.SetWBDensity(7850.0), S_OK);
    EXPECT_EQ(record.SetUpToDateFlag(true), S_OK);
    EXPECT_EQ(record.SetDensityPriority(Definitions::MaterialDensityFirst), S_OK);
    EXPECT_EQ(record.SetEntityToCompute(Definitions::PartAlone), S_OK);
    EXPECT_EQ(record.SetInertiaReferencePoint(3), S_OK);
    EXPECT_EQ(record.SetInertiaReferenceAxis(4), S_OK);

    auto status = Definitions::Empty;
    EXPECT_EQ(record.GetWBDensityStatus(status), S_OK);
    EXPECT_EQ(status, Definitions::Assigned);
    double density = 0.0;
    EXPECT_EQ(record.GetWBDensity(density), S_OK);
    EXPECT_EQ(density, 7850.0);
    bool upToDate = false;
    EXPECT_EQ(record.GetUpToDateFlag(upToDate), S_OK);
    EXPECT_TRUE(upToDate);
    auto priority = Definitions::WBDensityFirst;
    EXPECT_EQ(record.GetDensityPriority(priority), S_OK);
    EXPECT_EQ(priority, Definitions::MaterialDensityFirst);
    auto entity = Definitions::Root;
    EXPECT_EQ(record.GetEntityToCompute(entity), S_OK);
    EXPECT_EQ(entity, Definitions::PartAlone);
    int number = 0;
    EXPECT_EQ(record.GetInertiaReferencePoint(number), S_OK);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(record.GetInertiaReferenceAxis(number), S_OK);
    EXPECT_EQ(number, 4);
}

TEST(ENOWBAllDataBuffer, PlainAccessorsComeBackAsTheyWereSet)
{
    Record record;
    record.SetUseWBDMC(false);
    EXPECT_FALSE(record.IsWBDMCUsed());
    record.SetIsLeaf(true);
    EXPECT_TRUE(record.IsLeaf());
    record.SetActiveDocId("DOC-55");
    EXPECT_EQ(record.GetActiveDocId(), "DOC-55");
    record.SetActiveDocVersion("B");
    EXPECT_EQ(record.GetActiveDocVersion(), "B");
    record.SetStandardPart(true);
    EXPECT_TRUE(record.IsStandatadPart());
    bool standard = false;
    record.IsStandatadPart(standard);
    EXPECT_TRUE(standard);
    record.SetStandardPart(false);
    record.IsStandatadPart(standard);
    EXPECT_FALSE(standard);
    record.SetInstancePath("A|B");
    EXPECT_EQ(record.GetInstancePath(), "A|B");
    record.SetInstancePathDepth(2);
    EXPECT_EQ(record.GetInstancePathDepth(), 2);
    record.SetAppliedOnObject("PartInst");
    EXPECT_EQ(record.GetAppliedOnObject(), "PartInst");
    record.SetHasInstInENOVIA(true);
    EXPECT_TRUE(record.HasInstInENOVIA());
    record.SetPartRefWBDensityStatus(Definitions::PartiallyAssigned);
    EXPECT_EQ(record.GetPartRefWBDensityStatus(), Definitions::PartiallyAssigned);
    record.SetPartRefWBDensity(2700.0);
    EXPECT_EQ(record.GetPartRefWBDensity(), 2700.0);
    record.SetPartRefWBMaterialName("Aluminium");
    EXPECT_EQ(record.GetPartRefWBMaterialName(), "Aluminium");
    record.m_documentAutoMode = 1;
    EXPECT_EQ(record.GetDocAutoMode(), 1);
    record.m_currentlyAttachedVersion = "DOC-55 2";
    EXPECT_EQ(record.GetCurrentlyAttachedVersion(), "DOC-55 2");
}

TEST(ENOWBAllDataBuffer, OnlyOneMeansYesForTheDocumentFlags)
{
    Record record;
    for (const int value : {-1, 0, 1, 2}) {
        record.m_oldDocumentsUsable = value;
        record.m_usedSpecificRevisionBefore = value;
        EXPECT_EQ(record.AreOldDocumentsUsed(), value == 1) << value;
        EXPECT_EQ(record.HasUsedSpecificRevBefore(), value == 1) << value;
    }
}

TEST(ENOWBAllDataBuffer, MaterialNamesThatStandForNoneAreStoredEmpty)
{
    ENOWBAllDataBuffer record;
    for (const char* none : {"~", "__null__", "__NULL__", "__Null__"}) {
        record.SetWBMaterialName("Steel");
        EXPECT_EQ(record.SetWBMaterialName(none), S_OK);
        CATUnicodeString material("old");
        record.GetWBMaterialName(material);
        EXPECT_EQ(material, "") << none;
    }
    for (const char* name : {"Steel", "~~", "null", " ~"}) {
        EXPECT_EQ(record.SetWBMaterialName(name), S_OK);
        CATUnicodeString material;
        record.GetWBMaterialName(material);
        EXPECT_EQ(material, name);
    }
}

TEST(ENOWBAllDataBuffer, NegativePersistencyFlagIsRefusedAndTheOldOneKept)
{
    const SilentStreams silent;
    Record record;
    record.SetPersistencyFlag(1);
    const DiagnosticCapture heard;
    EXPECT_EQ(record.SetPersistencyFlag(-1), E_INVALIDARG);
    EXPECT_EQ(record.m_persistencyFlag, 1);
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("Invalid argument received: iFlag = -1"));
}

TEST(ENOWBAllDataBuffer, PersistencyFlagIsStoredAndToldAsYesForOneOnly)
{
    struct Row
    {
        int flag;
        const char* line;
        bool persistent;
    };
    for (const Row& row : {Row{0, "Persisting data possible? NO", false},
                           Row{1, "Persisting data possible? YES", true},
                           Row{2, "Persisting data possible? NO", true}}) {
        Record record;
        const DiagnosticCapture heard;
        EXPECT_EQ(record.SetPersistencyFlag(row.flag), S_OK);
        EXPECT_EQ(record.m_persistencyFlag, row.flag);
        EXPECT_THAT(heard.Lines(), testing::ElementsAre(row.line));
        bool persistent = !row.persistent;
        EXPECT_EQ(record.GetPersistencyFlag(persistent), S_OK);
        EXPECT_EQ(persistent, row.persistent);
    }
}

TEST(ENOWBAllDataBuffer, ConfigurationFiltersAreReplacedButNotByNone)
{
    ENOWBAllDataBuffer record;
    EXPECT_EQ(record.SetConfigFiltersPRC({"F1", "F2"}), S_OK);
    EXPECT_EQ(record.SetConfigFiltersPRC({}), E_FAIL);
    CATListValCATUnicodeString filters;
    EXPECT_EQ(record.GetConfigFiltersPRC(filters), S_OK);
    EXPECT_EQ(filters, (CATListValCATUnicodeString{"F1", "F2"}));
    EXPECT_EQ(record.SetConfigFiltersPRC({"F3"}), S_OK);
    record.GetConfigFiltersPRC(filters);
    EXPECT_EQ(filters, CATListValCATUnicodeString{"F3"});
}

TEST(ENOWBAllDataBuffer, TransformationIsReplaced)
{
    ENOWBAllDataBuffer record;
    record.SetListOfTransMatrix({1.0, 2.0});
    EXPECT_EQ(record.SetListOfTransMatrix({3.0, 4.0, 5.0}), S_OK);
    CATRawColldouble values{9.0};
    EXPECT_EQ(record.GetListOfTransMatrix(values), S_OK);
    EXPECT_EQ(values, (CATRawColldouble{3.0, 4.0, 5.0}));
}

// Values of a mass type

using SetReal = long (ENOWBAllDataBuffer::*)(const CATUnicodeString&, double);
using GetReal = long (ENOWBAllDataBuffer::*)(const CATUnicodeString&, double&) const;
struct RealRow
{
    SetReal set;
    GetReal get;
};
const std::vector<RealRow> kReals{
    {&ENOWBAllDataBuffer::SetMass, &ENOWBAllDataBuffer::GetMass},
    {&ENOWBAllDataBuffer::SetLowerDeviation, &ENOWBAllDataBuffer::GetLowerDeviation},
    {&ENOWBAllDataBuffer::SetUpperDeviation, &ENOWBAllDataBuffer::GetUpperDeviation},
    {&ENOWBAllDataBuffer::SetDefaultLowerPrecision, &ENOWBAllDataBuffer::GetDefaultLowerPrecision},
    {&ENOWBAllDataBuffer::SetDefaultUpperPrecision, &ENOWBAllDataBuffer::GetDefaultUpperPrecision},
    {&ENOWBAllDataBuffer::SetLowerPrecision, &ENOWBAllDataBuffer::GetLowerPrecision},
    {&ENOWBAllDataBuffer::SetUpperPrecision, &ENOWBAllDataBuffer::GetUpperPrecision},
};

TEST(ENOWBAllDataBufferPerType, RealsAreKeptByMassTypeAndKind)
{
    Record record({"Computed", "Estimated", "Weighed"});
    double value = 0.5;
    for (const RealRow& row : kReals) {
        EXPECT_EQ((record.*row.set)("Estimated", value += 1.0), S_OK);
        EXPECT_EQ((record.*row.set)("Weighed", -value), S_OK);
    }
    double expected = 0.5;
    for (const RealRow& row : kReals) {
        expected += 1.0;
        double read = 99.0;
        EXPECT_EQ((record.*row.get)("Estimated", read), S_OK);
        EXPECT_EQ(read, expected);
        EXPECT_EQ((record.*row.get)("Weighed", read), S_OK);
        EXPECT_EQ(read, -expected);
        EXPECT_EQ((record.*row.get)("Computed", read), S_OK);
        EXPECT_EQ(read, 0.0);
    }
}

TEST(ENOWBAllDataBufferPerType, EnumerationsAreKeptByMassTypeAndKind)
{
    Record record({"Computed", "Estimated"});
    EXPECT_EQ(record.SetMassTypeStatus("Estimated", Definitions::PartiallyAssigned), S_OK);
    EXPECT_EQ(record.SetPrecisionStatus("Estimated", Definitions::Assigned), S_OK);
    EXPECT_EQ(record.SetPrecisionType("Computed", Definitions::PrecisionDefined), S_OK);
    EXPECT_EQ(record.SetPrecisionValueType("Estimated", Definitions::Absolute), S_OK);

    struct Row
    {
        const char* massType;
        int status;
        int precisionStatus;
        int precisionType;
        int precisionValueType;
    };
    for (const Row& row : {Row{"Computed", 0, 0, 1, 0}, Row{"Estimated", 2, 1, 0, 1}}) {
        auto status = Definitions::Assigned;
        EXPECT_EQ(record.GetMassTypeStatus(row.massType, status), S_OK);
        EXPECT_EQ(status, row.status) << row.massType;
        EXPECT_EQ(record.GetPrecisionStatus(row.massType, status), S_OK);
        EXPECT_EQ(status, row.precisionStatus) << row.massType;
        auto type = Definitions::NoPrecision;
        EXPECT_EQ(record.GetPrecisionType(row.massType, type), S_OK);
        EXPECT_EQ(type, row.precisionType) << row.massType;
        auto valueType = Definitions::Percentage;
        EXPECT_EQ(record.GetPrecisionValueType(row.massType, valueType), S_OK);
        EXPECT_EQ(valueType, row.precisionValueType) << row.massType;
    }
}

TEST(ENOWBAllDataBufferPerType, FirstSetterMakesAListOfZerosAsLongAsTheAnnouncedCount)
{
    Record record({"Computed", "Estimated"}, 3);
    EXPECT_TRUE(record.m_masses.IsEmpty());
    record.SetMass("Estimated", 12.5);
    EXPECT_EQ(record.m_masses, (CATRawColldouble{0.0, 12.5, 0.0}));
    record.SetMassTypeStatus("Computed", Definitions::Assigned);
    EXPECT_EQ(record.m_statuses, (CATRawCollint{1, 0, 0}));
    EXPECT_TRUE(record.m_defaultLowerPrecisions.IsEmpty());
}

TEST(ENOWBAllDataBufferPerType, SetterOfAnUnknownMassTypeMakesTheListAndWritesNothing)
{
    Record record({"Computed"});
    EXPECT_EQ(record.SetMass("computed", 5.0), S_OK);
    EXPECT_EQ(record.m_masses, CATRawColldouble{0.0});
}

TEST(ENOWBAllDataBufferPerType, GetterOfAnUnknownMassTypeWritesNothing)
{
    Record record({"Computed"});
    for (const RealRow& row : kReals) {
        (record.*row.set)("Computed", 5.0);
        double value = 7.0;
        EXPECT_EQ((record.*row.get)("Unknown", value), S_OK);
        EXPECT_EQ(value, 7.0);
    }
}

TEST(ENOWBAllDataBufferPerType, KindThatWasNeverSetReadsAsZero)
{
    const Record record({"Computed"});
    for (const RealRow& row : kReals) {
        double value = 7.0;
        EXPECT_EQ((record.*row.get)("Computed", value), S_OK);
        EXPECT_EQ(value, 0.0);
    }
    auto type = Definitions::PrecisionDefined;
    EXPECT_EQ(record.GetPrecisionType("Computed", type), S_OK);
    EXPECT_EQ(type, 0);
}

TEST(ENOWBAllDataBufferPerType, NameBeyondTheAnnouncedCountHasNoValue)
{
    Record record({"Computed", "Estimated"}, 1);
    EXPECT_EQ(record.SetMass("Estimated", 5.0), S_OK);
    EXPECT_EQ(record.m_masses, CATRawColldouble{0.0});
    double value = 7.0;
    EXPECT_EQ(record.GetMass("Estimated", value), S_OK);
    EXPECT_EQ(value, 0.0);
    record.SetMassTypeStatus("Computed", Definitions::Assigned);
    auto status = Definitions::Assigned;
    EXPECT_EQ(record.GetMassTypeStatus("Estimated", status), E_FAIL);
}

TEST(ENOWBAllDataBufferPerType, FirstOfTwoEqualNamesCounts)
{
    Record record({"A", "B", "A"});
    record.SetMass("A", 5.0);
    EXPECT_EQ(record.m_masses, (CATRawColldouble{5.0, 0.0, 0.0}));
}

TEST(ENOWBAllDataBufferPerType, StatusOutsideItsThreeValuesCannotBeRead)
{
    for (const int stored : {-1, 3, 7}) {
        Record record({"Computed"});
        record.m_statuses = {stored};
        auto status = Definitions::PartiallyAssigned;
        EXPECT_EQ(record.GetMassTypeStatus("Computed", status), E_FAIL) << stored;
        EXPECT_EQ(status, Definitions::PartiallyAssigned) << stored;
    }
}

TEST(ENOWBAllDataBufferPerType, StatusThatWasNeverSetCannotBeRead)
{
    const Record record({"Computed"});
    auto status = Definitions::PartiallyAssigned;
    EXPECT_EQ(record.GetMassTypeStatus("Computed", status), E_FAIL);
    EXPECT_EQ(status, Definitions::PartiallyAssigned);
}

TEST(ENOWBAllDataBufferPerType, StatusOfAnUnknownMassTypeCannotBeRead)
{
    Record record({"Computed"});
    record.SetMassTypeStatus("Computed", Definitions::Assigned);
    auto status = Definitions::PartiallyAssigned;
    EXPECT_EQ(record.GetMassTypeStatus("Unknown", status), E_FAIL);
    EXPECT_EQ(status, Definitions::PartiallyAssigned);
}

std::unique_ptr<CATMathPoint> Centre(const ENOWBAllDataBuffer& record, const char* massType)
{
    CATMathPoint* centre = nullptr;
    EXPECT_EQ(record.GetCenterOfGravity(massType, centre), S_OK);
    return std::unique_ptr<CATMathPoint>(centre);
}

std::unique_ptr<CATMath3x3Matrix> Inertia(const ENOWBAllDataBuffer& record, const char* massType)
{
    CATMath3x3Matrix* inertia = nullptr;
    EXPECT_EQ(record.GetInertia(massType, inertia), S_OK);
    return std::unique_ptr<CATMath3x3Matrix>(inertia);
}

TEST(ENOWBAllDataBufferPerType, CentreComesBackAsANewPoint)
{
    Record record({"Computed", "Estimated"});
    EXPECT_EQ(record.SetCenterOfGravity("Estimated", CATMathPoint(1, 2, 3)), S_OK);
    const auto first = Centre(record, "Estimated");
    const auto second = Centre(record, "Estimated");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(*first, CATMathPoint(1, 2, 3));
    EXPECT_NE(first, second);
    EXPECT_EQ(*Centre(record, "Computed"), CATMathPoint());
}

TEST(ENOWBAllDataBufferPerType, MissingCentreOrInertiaLeavesThePointer)
{
    Record record({"Computed"});
    CATMathPoint point;
    CATMathPoint* centre = &point;
    EXPECT_EQ(record.GetCenterOfGravity("Computed", centre), S_OK);
    EXPECT_EQ(centre, &point);
    CATMath3x3Matrix matrix;
    CATMath3x3Matrix* inertia = &matrix;
    EXPECT_EQ(record.GetInertia("Computed", inertia), S_OK);
    EXPECT_EQ(inertia, &matrix);

    record.SetCenterOfGravity("Computed", CATMathPoint(1, 2, 3));
    record.SetInertia("Computed", CATMath3x3Matrix::Identity());
    EXPECT_EQ(record.GetCenterOfGravity("Unknown", centre), S_OK);
    EXPECT_EQ(centre, &point);
    EXPECT_EQ(record.GetInertia("Unknown", inertia), S_OK);
    EXPECT_EQ(inertia, &matrix);
}

TEST(ENOWBAllDataBufferPerType, SymmetricInertiaComesBackUnchanged)
{
    Record record({"Computed", "Estimated"});
    const CATMath3x3Matrix matrix(10, -0.25, -0.5, -0.25, 20, -0.75, -0.5, -0.75, 30);
    EXPECT_EQ(record.SetInertia("Estimated", matrix), S_OK);
    ASSERT_NE(Inertia(record, "Estimated"), nullptr);
    EXPECT_EQ(*Inertia(record, "Estimated"), matrix);
    EXPECT_EQ(record.m_productsXY, (CATRawColldouble{0.0, 0.25}));
    EXPECT_EQ(record.m_productsXZ, (CATRawColldouble{0.0, 0.5}));
    EXPECT_EQ(record.m_productsYZ, (CATRawColldouble{0.0, 0.75}));
    EXPECT_EQ(*Inertia(record, "Computed"), CATMath3x3Matrix());
}

TEST(ENOWBAllDataBufferPerType, UnsymmetricInertiaIsTakenFromItsLowerTriangle)
{
    Record record({"Computed"});
    record.SetInertia("Computed", CATMath3x3Matrix(1, 91, 92, 4, 2, 93, 5, 6, 3));
    EXPECT_EQ(*Inertia(record, "Computed"), CATMath3x3Matrix(1, 4, 5, 4, 2, 6, 5, 6, 3));
}

TEST(ENOWBAllDataBufferPerType, UnsetValuesAreZero)
{
    Record record({"Computed", "Estimated"});
    for (const char* massType : {"Computed", "Estimated"}) {
        record.SetMass(massType, 5.0);
        record.SetCenterOfGravity(massType, CATMathPoint(1, 2, 3));
        record.SetInertia(massType, CATMath3x3Matrix(1, 4, 5, 4, 2, 6, 5, 6, 3));
    }
    EXPECT_EQ(record.UnSetMass("Computed"), S_OK);
    EXPECT_EQ(record.UnSetCenterOfGravity("Computed"), S_OK);
    EXPECT_EQ(record.UnSetInertia("Computed"), S_OK);
    double mass = 7.0;
    record.GetMass("Computed", mass);
    EXPECT_EQ(mass, 0.0);
    EXPECT_EQ(*Centre(record, "Computed"), CATMathPoint());
    EXPECT_EQ(*Inertia(record, "Computed"), CATMath3x3Matrix());
    record.GetMass("Estimated", mass);
    EXPECT_EQ(mass, 5.0);
    EXPECT_EQ(*Centre(record, "Estimated"), CATMathPoint(1, 2, 3));
    EXPECT_EQ(*Inertia(record, "Estimated"), CATMath3x3Matrix(1, 4, 5, 4, 2, 6, 5, 6, 3));
}

TEST(ENOWBAllDataBufferPerType, UnsettingWhatWasNeverSetSucceeds)
{
    Record record({"Computed", "Estimated"});
    EXPECT_EQ(record.UnSetMass("Estimated"), S_OK);
    EXPECT_EQ(record.UnSetCenterOfGravity("Estimated"), S_OK);
    EXPECT_EQ(record.UnSetInertia("Estimated"), S_OK);
    double mass = 7.0;
    EXPECT_EQ(record.GetMass("Estimated", mass), S_OK);
    EXPECT_EQ(mass, 0.0);
}

TEST(ENOWBAllDataBufferPerType, UnsettingAnUnknownMassTypeSaysSo)
{
    Record record({"Computed"});
    record.SetMass("Computed", 5.0);
    EXPECT_EQ(record.UnSetMass("Unknown"), S_FALSE);
    EXPECT_EQ(record.UnSetCenterOfGravity("Unknown"), S_FALSE);
    EXPECT_EQ(record.UnSetInertia("Unknown"), S_FALSE);
    EXPECT_EQ(record.UnSetMassType("Unknown"), S_FALSE);
    EXPECT_EQ(record.m_masses, CATRawColldouble{5.0});
}

TEST(ENOWBAllDataBufferPerType, RemovedMassTypeLeavesItsValuesInPlace)
{
    // So the mass types behind it are read with the values of their neighbours.
    Record record({"Computed", "Estimated", "Weighed"});
    record.SetMass("Computed", 1.0);
    record.SetMass("Estimated", 2.0);
    record.SetMass("Weighed", 3.0);
    EXPECT_EQ(record.UnSetMassType("Estimated"), S_OK);
    CATListValCATUnicodeString names;
    record.GetMassTypes(names);
    EXPECT_EQ(names, (CATListValCATUnicodeString{"Computed", "Weighed"}));
    EXPECT_EQ(record.m_masses, (CATRawColldouble{1.0, 2.0, 3.0}));
    double mass = 0.0;
    record.GetMass("Weighed", mass);
    EXPECT_EQ(mass, 2.0);
    EXPECT_EQ(record.m_massTypeCount, 3);
}

// Material statistics

TEST(ENOWBAllDataBufferStatistics, EntriesAreAppended)
{
    ENOWBAllDataBuffer record;
    EXPECT_EQ(record.SetWBMatStatInfo({"Steel"}, {12.5}, {3}), S_OK);
    EXPECT_EQ(record.SetWBMatStatInfo({"Paint", "Steel"}, {0.5, 1.5}, {2, 3}), S_OK);
    EXPECT_EQ(record.SetWBMatStatInfo({}, {}, {}), S_OK);
    CATListValCATUnicodeString names{"old"};
    CATRawColldouble reals{9.0};
    CATRawCollint integers{9};
    EXPECT_EQ(record.GetWBMatStatInfo(names, reals, integers), S_OK);
    EXPECT_EQ(names, (CATListValCATUnicodeString{"Steel", "Paint", "Steel"}));
    EXPECT_EQ(reals, (CATRawColldouble{12.5, 0.5, 1.5}));
    EXPECT_EQ(integers, (CATRawCollint{3, 2, 3}));
    EXPECT_EQ(record.UnSetWBMatStatInfo(), S_OK);
    record.GetWBMatStatInfo(names, reals, integers);
    EXPECT_TRUE(names.IsEmpty() && reals.IsEmpty() && integers.IsEmpty());
}

TEST(ENOWBAllDataBufferStatistics, AsManyEntriesAsThereAreNames)
{
    ENOWBAllDataBuffer record;
    EXPECT_EQ(record.SetWBMatStatInfo({"Steel"}, {12.5, 1.0}, {3, 2, 1}), S_OK);
    EXPECT_EQ(record.SetWBMatStatInfo({"Steel", "Paint"}, {12.5}, {3, 2}), E_INVALIDARG);
    EXPECT_EQ(record.SetWBMatStatInfo({"Steel", "Paint"}, {12.5, 1.0}, {3}), E_INVALIDARG);
    CATListValCATUnicodeString names;
    CATRawColldouble reals;
    CATRawCollint integers;
    record.GetWBMatStatInfo(names, reals, integers);
    EXPECT_EQ(names, CATListValCATUnicodeString{"Steel"});
    EXPECT_EQ(reals, CATRawColldouble{12.5});
    EXPECT_EQ(integers, CATRawCollint{3});
}

// Document revisions

Record WithTwoRevisions()
{
    Record record;
    record.m_revisionVersions = {"A.1", "B.1"};
    record.m_revisionCheckInDates = {"2009/01/02", "2010/07/01"};
    record.m_revisionCheckInUsers = {"user1", "user2"};
    record.m_revisionCheckOutUsers = {"user3", "__null__"};
    record.m_revisionActiveMassTypes = {"Estimated", "Weighed"};
    record.m_revisionMasses = {11.0, 12.5};
    record.m_revisionCount = 2;
    return record;
}

TEST(ENOWBAllDataBufferRevisions, EachFactIsTold)
{
    const Record record = WithTwoRevisions();
    using R = ENOWBAllDataBuffer;
    struct Row
    {
        int position;
        R::DocInfo what;
        int number;
        const char* text;
    };
    for (const Row& row :
         {Row{1, R::Version, 0, "A.1"}, Row{2, R::Version, 0, "B.1"},
          Row{2, R::LastCheckInDate, 1, "2010/07/01"}, Row{2, R::LastCheckInUser, 2, "user2"},
          Row{1, R::LastCheckOutUser, 3, "user3"}, Row{2, R::LastCheckOutUser, 3, "__null__"},
          Row{2, R::ActiveMassType, 4, "Weighed"}, Row{2, R::Mass, 5, "12.5"}}) {
        CATUnicodeString text;
        EXPECT_EQ(record.GetDocRevsInfo(row.position, row.what, text), S_OK);
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(row.what, row.number);
    }
}

TEST(ENOWBAllDataBufferRevisions, MassIsWrittenAsTheSessionWritesNumbers)
{
    const NumberLocale numbers(kCommaLocale);
    CATUnicodeString text;
    EXPECT_EQ(WithTwoRevisions().GetDocRevsInfo(2, ENOWBAllDataBuffer::Mass, text), S_OK);
    EXPECT_EQ(text, "12,5");
}

TEST(ENOWBAllDataBufferRevisions, PositionBehindTheLastIsRefused)
{
    const DiagnosticCapture heard;
    CATUnicodeString text("old");
    EXPECT_EQ(WithTwoRevisions().GetDocRevsInfo(3, ENOWBAllDataBuffer::Version, text), E_FAIL);
    EXPECT_EQ(text, "");
    EXPECT_THAT(heard.Lines(),
                testing::ElementsAre(
                    "The buffer does not contain that many doc revisions (invalid index =3)"));
}

TEST(ENOWBAllDataBufferRevisions, PositionBelowOneGivesTheEmptyText)
{
    const DiagnosticCapture heard;
    for (const int position : {0, -1}) {
        CATUnicodeString text("old");
        EXPECT_EQ(WithTwoRevisions().GetDocRevsInfo(position, ENOWBAllDataBuffer::Mass, text),
                  S_OK);
        EXPECT_EQ(text, "");
    }
    EXPECT_TRUE(heard.Lines().empty());
}

TEST(ENOWBAllDataBufferRevisions, UnknownFactIsRefused)
{
    CATUnicodeString text("old");
    EXPECT_EQ(
        WithTwoRevisions().GetDocRevsInfo(1, static_cast<ENOWBAllDataBuffer::DocInfo>(6), text),
        E_INVALIDARG);
    EXPECT_EQ(text, "");
}

// Extra properties

ENOWBAllDataBuffer WithThreeProperties()
{
    ENOWBAllDataBuffer record;
    EXPECT_EQ(record.SetExtraPropertiesInfo({"Customer", "Delivered", "Length"}, {1, 1, 100},
                                            {0, 1, 0}, {"Part", "Instance", "Part"},
                                            {"CUST-01", "2010/07/01", "12.5"}, {"", "", "LENGTH"}),
              S_OK);
    return record;
}

TEST(ENOWBAllDataBufferProperties, ListsComeBackInTheirOrder)
{
    const ENOWBAllDataBuffer record = WithThreeProperties();
    CATListValCATUnicodeString names;
    CATRawCollint types;
    CATRawCollint isDateFlags;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    EXPECT_EQ(record.GetExtraPropertiesInfo(names, types, isDateFlags, owners, values, magnitudes),
              S_OK);
    EXPECT_EQ(names, (CATListValCATUnicodeString{"Customer", "Delivered", "Length"}));
    EXPECT_EQ(types, (CATRawCollint{1, 1, 100}));
    EXPECT_EQ(isDateFlags, (CATRawCollint{0, 1, 0}));
    EXPECT_EQ(owners, (CATListValCATUnicodeString{"Part", "Instance", "Part"}));
    EXPECT_EQ(values, (CATListValCATUnicodeString{"CUST-01", "2010/07/01", "12.5"}));
    EXPECT_EQ(magnitudes, (CATListValCATUnicodeString{"", "", "LENGTH"}));
    EXPECT_EQ(record.GetExtraPropsCount(), 3);
}

TEST(ENOWBAllDataBufferProperties, ListsAreReplaced)
{
    ENOWBAllDataBuffer record = WithThreeProperties();
    EXPECT_EQ(record.SetExtraPropertiesInfo({"Only"}, {2}, {0}, {"Part"}, {"7"}, {""}), S_OK);
    EXPECT_EQ(record.GetExtraPropsCount(), 1);
    CATUnicodeString name;
    record.GetPropertyName(1, name);
    EXPECT_EQ(name, "Only");
}

TEST(ENOWBAllDataBufferProperties, ListsOfDifferentLengthsAreRefused)
{
    ENOWBAllDataBuffer record = WithThreeProperties();
    EXPECT_EQ(record.SetExtraPropertiesInfo({"a"}, {}, {0}, {"b"}, {"c"}, {"d"}), E_INVALIDARG);
    EXPECT_EQ(record.SetExtraPropertiesInfo({"a"}, {1}, {}, {"b"}, {"c"}, {"d"}), E_INVALIDARG);
    EXPECT_EQ(record.SetExtraPropertiesInfo({"a"}, {1}, {0}, {}, {"c"}, {"d"}), E_INVALIDARG);
    EXPECT_EQ(record.SetExtraPropertiesInfo({"a"}, {1}, {0}, {"b"}, {}, {"d"}), E_INVALIDARG);
    EXPECT_EQ(record.SetExtraPropertiesInfo({"a"}, {1}, {0}, {"b"}, {"c"}, {}), E_INVALIDARG);
    EXPECT_EQ(record.GetExtraPropsCount(), 3);
}

TEST(ENOWBAllDataBufferProperties, EachFactOfAPropertyIsTold)
{
    const ENOWBAllDataBuffer record = WithThreeProperties();
    struct Row
    {
        const char* name;
        int type;
        const char* value;
        const char* owner;
        bool isDate;
        const char* magnitude;
        bool isMagnitude;
    };
    int position = 0;
    for (const Row& row : {Row{"Customer", 1, "CUST-01", "Part", false, "", false},
                           Row{"Delivered", 1, "2010/07/01", "Instance", true, "", false},
                           Row{"Length", 100, "12.5", "Part", false, "LENGTH", true}}) {
        ++position;
        CATUnicodeString text;
        record.GetPropertyName(position, text);
        EXPECT_EQ(text, row.name);
        int type = 0;
        record.GetPropertyType(position, type);
        EXPECT_EQ(type, row.type);
        record.GetPropertyValue(position, text);
        EXPECT_EQ(text, row.value);
        record.GetPropertyOwnerType(position, text);
        EXPECT_EQ(text, row.owner);
        bool flag = !row.isDate;
        record.GetIsDate(position, flag);
        EXPECT_EQ(flag, row.isDate);
        record.GetPropMagnitudeType(position, text);
        EXPECT_EQ(text, row.magnitude);
        record.GetIsMagnitude(position, flag = !row.isMagnitude);
        EXPECT_EQ(flag, row.isMagnitude);
    }
}

TEST(ENOWBAllDataBufferProperties, ValueCanBeChanged)
{
    ENOWBAllDataBuffer record = WithThreeProperties();
    record.SetPropertyValue(3, "13");
    CATUnicodeString value;
    record.GetPropertyValue(3, value);
    EXPECT_EQ(value, "13");
    record.GetPropertyValue(1, value);
    EXPECT_EQ(value, "CUST-01");
}

TEST(ENOWBAllDataBufferProperties, PositionOutOfBoundsIsToldAndLeavesTheOutputEmpty)
{
    ENOWBAllDataBuffer record = WithThreeProperties();
    for (const int position : {0, -1, 4}) {
        const DiagnosticCapture heard;
        CATUnicodeString name("old");
        CATUnicodeString value("old");
        CATUnicodeString owner("old");
        CATUnicodeString magnitude("old");
        int type = 7;
        bool isDate = true;
        bool isMagnitude = true;
        record.GetPropertyName(position, name);
        record.GetPropertyType(position, type);
        record.GetPropertyValue(position, value);
        record.GetPropertyOwnerType(position, owner);
        record.GetIsDate(position, isDate);
        record.GetPropMagnitudeType(position, magnitude);
        record.GetIsMagnitude(position, isMagnitude);
        record.SetPropertyValue(position, "new");
        EXPECT_TRUE(name.IsEmpty() && value.IsEmpty() && owner.IsEmpty() && magnitude.IsEmpty());
        EXPECT_EQ(type, 0);
        EXPECT_FALSE(isDate);
        EXPECT_FALSE(isMagnitude);
        EXPECT_EQ(heard.Lines(), std::vector<std::string>(8, "Error! Index is out of boundaries!"));
    }
    CATUnicodeString value;
    record.GetPropertyValue(3, value);
    EXPECT_EQ(value, "12.5");
}

TEST(ENOWBAllDataBufferProperties, NewRecordHasNoFirstProperty)
{
    const DiagnosticCapture heard;
    CATUnicodeString name("old");
    ENOWBAllDataBuffer().GetPropertyName(1, name);
    EXPECT_EQ(name, "");
    EXPECT_THAT(heard.Lines(), testing::ElementsAre("Error! Index is out of boundaries!"));
}

TEST(ENOWBAllDataBufferProperties, DatesAreNoticed)
{
    EXPECT_TRUE(WithThreeProperties().AreDateTypePropertiesPresent());
    ENOWBAllDataBuffer record;
    record.SetExtraPropertiesInfo({"a", "b"}, {1, 1}, {0, 2}, {"", ""}, {"", ""}, {"", ""});
    EXPECT_FALSE(record.AreDateTypePropertiesPresent());
}

// Copies

TEST(ENOWBAllDataBufferCopies, CopyHasTheFieldsAndAReferenceOfItsOwn)
{
    Record original({"Computed", "Estimated"});
    original.SetMass("Estimated", 12.5);
    original.SetWBMaterialName("Steel");
    original.SetWBMatStatInfo({"Steel"}, {12.5}, {3});
    original.SetIsLeaf(true);
    original.AddRef();

    const Record copy(original);
    Record assigned;
    assigned = original;
    original.SetMass("Estimated", 1.0);
    original.SetWBMaterialName("Paint");
    for (const Record* each : {&copy, static_cast<const Record*>(&assigned)}) {
        double mass = 0.0;
        each->GetMass("Estimated", mass);
        EXPECT_EQ(mass, 12.5);
        CATUnicodeString material;
        each->GetWBMaterialName(material);
        EXPECT_EQ(material, "Steel");
        CATListValCATUnicodeString names;
        CATRawColldouble reals;
        CATRawCollint integers;
        each->GetWBMatStatInfo(names, reals, integers);
        EXPECT_EQ(names, CATListValCATUnicodeString{"Steel"});
        EXPECT_TRUE(each->IsLeaf());
        EXPECT_EQ(each->ReferenceCount(), 1);
    }
}

} // namespace
