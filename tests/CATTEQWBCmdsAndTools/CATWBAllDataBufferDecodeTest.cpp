#include "CATWBAllDataBuffer.h"

#include "CodecStreams.h"
#include "ModuleSession.h"

#include <memory>
#include <string>
#include <vector>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using Base = ENOWBAllDataBuffer;

/// The codec's record, its fields in sight.
class Record : public CATWBAllDataBuffer
{
public:
    using CATWBAllDataBuffer::m_defaultLowerPrecisions;
    using CATWBAllDataBuffer::m_massTypeCount;
    using CATWBAllDataBuffer::m_persistencyFlag;
    using CATWBAllDataBuffer::m_precisionTypes;
    using CATWBAllDataBuffer::m_precisionValueTypes;
    using CATWBAllDataBuffer::m_reservedIntegers;
    using CATWBAllDataBuffer::m_statuses;
};

class Decoding : public testing::Test
{
protected:
    void DecodeFull(const ServerStream& stream)
    {
        EXPECT_EQ(m_record.SetAllData(stream.Full(), true), S_OK);
    }
    void DecodeShort(const ServerStream& stream)
    {
        EXPECT_EQ(m_record.SetAllData(stream.Short(), false), S_OK);
    }
    template <class Value>
    Value Get(long (Base::*get)(Value&) const) const
    {
        return Got<Base>(m_record, get);
    }
    template <class Value>
    Value Get(long (Base::*get)(const CATUnicodeString&, Value&) const, const char* massType) const
    {
        Value value{};
        (m_record.*get)(massType, value);
        return value;
    }
    std::vector<std::string> StatisticNames() const
    {
        CATListValCATUnicodeString names;
        CATRawColldouble reals;
        CATRawCollint integers;
        m_record.GetWBMatStatInfo(names, reals, integers);
        std::vector<std::string> texts;
        for (int position = 1; position <= names.Size(); ++position) {
            texts.push_back(names[position].ToStdString() + " " +
                            std::to_string(integers[position]) + " " +
                            CATUnicodeString::FromReal(reals[position]).ToStdString());
        }
        return texts;
    }

    const SilentStreams m_silent;
    const FatalErrors m_errors{FatalErrors::Then::Throw};
    Record m_record;
};

TEST_F(Decoding, GroupsMakeTheWorkedExample)
{
    EXPECT_EQ(ServerStream().Full(), kWorkedExample);
}

TEST_F(Decoding, WorkedExampleFillsTheWholeRecord)
{
    ASSERT_EQ(m_record.SetAllData(kWorkedExample, true), S_OK);
    EXPECT_FALSE(m_record.HasInstInENOVIA());
    EXPECT_EQ(Get(&Base::GetCurrentInstanceID), "INST-0001");
    EXPECT_EQ(Get(&Base::GetCurrentPartID), "PART-0001");
    EXPECT_EQ(Get(&Base::GetCurrentPartVersion), "A");
    EXPECT_EQ(Get(&Base::GetCurrentPRCID), "PRC-07");
    EXPECT_EQ(m_record.GetInstancePathDepth(), 2);
    EXPECT_EQ(m_record.GetInstancePath(), "ROOT-1|SUB-3");
    EXPECT_TRUE(m_record.AreOldDocumentsUsed());
    EXPECT_EQ(m_record.GetDocAutoMode(), 0);
    EXPECT_TRUE(Get(&Base::GetPersistencyFlag));
    EXPECT_EQ(m_record.GetActiveDocId(), "DOC-55");
    EXPECT_EQ(m_record.GetActiveDocVersion(), "B");
    EXPECT_EQ(m_record.GetCurrentlyAttachedVersion(), "DOC-55 2");
    EXPECT_TRUE(m_record.HasUsedSpecificRevBefore());

    ASSERT_EQ(m_record.GetVersionCount(), 1);
    const std::vector<const char*> revision{"B.1",      "2010/07/01", "user1",
                                            "__null__", "Estimated",  "12.5"};
    for (int what = 0; what < 6; ++what) {
        CATUnicodeString text;
        EXPECT_EQ(m_record.GetDocRevsInfo(1, static_cast<Base::DocInfo>(what), text), S_OK);
        EXPECT_EQ(text, revision[static_cast<std::size_t>(what)]);
    }

    EXPECT_EQ(Get(&Base::GetMassTypes), (CATListValCATUnicodeString{"Computed", "Estimated"}));
    EXPECT_EQ(m_record.m_reservedIntegers, (CATRawCollint{0, 0}));
    EXPECT_EQ(Get(&Base::GetMassTypeStatus, "Computed"), Definitions::Assigned);
    EXPECT_EQ(Get(&Base::GetMass, "Computed"), 12.5);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Computed"), 5.0);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Computed"), 5.0);
    CATMathPoint* centre = nullptr;
    m_record.GetCenterOfGravity("Computed", centre);
    ASSERT_NE(centre, nullptr);
    EXPECT_EQ(*std::unique_ptr<CATMathPoint>(centre), CATMathPoint(1, 2, 3));
    CATMath3x3Matrix* inertia = nullptr;
    m_record.GetInertia("Computed", inertia);
    ASSERT_NE(inertia, nullptr);
    EXPECT_EQ(*std::unique_ptr<CATMath3x3Matrix>(inertia),
              CATMath3x3Matrix(10, -0.25, -0.5, -0.25, 20, -0.75, -0.5, -0.75, 30));
    EXPECT_EQ(Get(&Base::GetPrecisionType, "Computed"), Definitions::PrecisionDefined);
    EXPECT_EQ(Get(&Base::GetPrecisionValueType, "Computed"), Definitions::Absolute);
    EXPECT_EQ(Get(&Base::GetLowerPrecision, "Computed"), 5.0);
    EXPECT_EQ(Get(&Base::GetUpperPrecision, "Computed"), 5.0);
    EXPECT_FALSE(m_record.IsStandatadPart());
    EXPECT_EQ(Get(&Base::GetDefaultLowerPrecision, "Computed"), 0.0);
    EXPECT_EQ(Get(&Base::GetDefaultUpperPrecision, "Computed"), 0.0);
    EXPECT_EQ(Get(&Base::GetMassTypeStatus, "Estimated"), Definitions::Empty);
    EXPECT_EQ(Get(&Base::GetMass, "Estimated"), 0.0);
    EXPECT_EQ(Get(&Base::GetPrecisionType, "Estimated"), Definitions::NoPrecision);

    EXPECT_TRUE(m_record.IsWBDMCUsed());
    EXPECT_EQ(Get(&Base::GetActiveMassType), "Estimated");
    EXPECT_EQ(Get(&Base::GetLastImposedMassType), "Estimated");
    EXPECT_EQ(Get(&Base::GetWBDensityStatus), Definitions::Assigned);
    EXPECT_EQ(Get(&Base::GetWBDensity), 7850.0);
    EXPECT_EQ(Get(&Base::GetWBMaterialName), "Steel");
    EXPECT_EQ(m_record.GetAppliedOnObject(), "PartRef");
    EXPECT_EQ(m_record.GetPartRefWBDensityStatus(), Definitions::Assigned);
    EXPECT_EQ(m_record.GetPartRefWBDensity(), 7850.0);
    EXPECT_EQ(m_record.GetPartRefWBMaterialName(), "Steel");
    EXPECT_TRUE(Get(&Base::GetUpToDateFlag));
    EXPECT_EQ(Get(&Base::GetDensityPriority), Definitions::WBDensityFirst);
    EXPECT_EQ(StatisticNames(), std::vector<std::string>{"Steel 3 12.5"});
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix),
              (CATRawColldouble{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}));

    CATListValCATUnicodeString names;
    CATRawCollint types;
    CATRawCollint isDateFlags;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    m_record.GetExtraPropertiesInfo(names, types, isDateFlags, owners, values, magnitudes);
    EXPECT_EQ(names, CATListValCATUnicodeString{"Customer"});
    EXPECT_EQ(types, CATRawCollint{1});
    EXPECT_EQ(isDateFlags, CATRawCollint{0});
    EXPECT_EQ(owners, CATListValCATUnicodeString{"Part"});
    EXPECT_EQ(values, CATListValCATUnicodeString{"CUST-01"});
    EXPECT_EQ(magnitudes, CATListValCATUnicodeString{""});
    EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
}

TEST_F(Decoding, CommasAndPointsReadAlikeInEitherLocale)
{
    std::string withCommas = kWorkedExample;
    for (const char* real : {"12.5", "0.1", "0.2", "0.5", "0.25", "0.75"}) {
        for (std::size_t at = withCommas.find(std::string("|") + real + "|");
             at != std::string::npos; at = withCommas.find(std::string("|") + real + "|")) {
            withCommas[withCommas.find('.', at)] = ',';
        }
    }
    for (const char* locale : {kPointLocale, kCommaLocale}) {
        for (const std::string& stream : {std::string(kWorkedExample), withCommas}) {
            const NumberLocale numbers(locale);
            m_record = Record();
            EXPECT_EQ(m_record.SetAllData(stream, true), S_OK);
            EXPECT_EQ(Get(&Base::GetMass, "Computed"), 12.5) << locale << ' ' << stream;
            EXPECT_EQ(StatisticNames().size(), 1U);
            CATListValCATUnicodeString names;
            CATRawColldouble reals;
            CATRawCollint integers;
            m_record.GetWBMatStatInfo(names, reals, integers);
            EXPECT_EQ(reals, CATRawColldouble{12.5});
        }
    }
}

TEST_F(Decoding, ShortLayoutBeginsAtTheMassTypesAndLeavesTheRest)
{
    m_record.SetCurrentPartID("KEPT");
    DecodeShort({});
    EXPECT_EQ(Get(&Base::GetCurrentPartID), "KEPT");
    EXPECT_EQ(m_record.GetVersionCount(), 0);
    EXPECT_EQ(Get(&Base::GetMass, "Computed"), 12.5);
    EXPECT_EQ(m_record.GetPartRefWBMaterialName(), "Steel");
    EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
}

TEST_F(Decoding, ShortLayoutTakesTheDensitySectionOfTheFlagThatTheRecordHolds)
{
    ServerStream stream;
    stream.density = "1|7850|Steel|";
    m_record.SetHasInstInENOVIA(true);
    DecodeShort(stream);
    EXPECT_TRUE(m_record.HasInstInENOVIA());
    EXPECT_EQ(Get(&Base::GetWBMaterialName), "Steel");
    EXPECT_EQ(m_record.GetAppliedOnObject(), "");
    EXPECT_EQ(m_record.GetPartRefWBDensityStatus(), Definitions::Empty);
    EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
}

TEST_F(Decoding, OnlyOneMeansAnInstanceInThePDM)
{
    struct Row
    {
        const char* flag;
        const char* density;
        bool hasInstance;
    };
    for (const Row& row : {Row{"1", "0|0|", true}, Row{"0", "0|0|0|0|", false},
                           Row{"2", "0|0|0|0|", false}, Row{"-1", "0|0|0|0|", false}}) {
        m_record = Record();
        ServerStream stream;
        stream.identification = row.flag + std::string("|I|P|A|R|0|0|0|0|0|B|2|0|");
        stream.density = row.density;
        DecodeFull(stream);
        EXPECT_EQ(m_record.HasInstInENOVIA(), row.hasInstance) << row.flag;
        EXPECT_EQ(m_record.GetExtraPropsCount(), 1) << row.flag;
    }
}

TEST_F(Decoding, PathOfDepthZeroOrLessIsEmpty)
{
    for (const char* depth : {"0", "-3"}) {
        m_record = Record();
        ServerStream stream;
        stream.identification = std::string("0|I|P|A|R|") + depth + "|1|1|1|D|B|2|0|";
        DecodeFull(stream);
        EXPECT_EQ(m_record.GetInstancePath(), "");
        EXPECT_EQ(m_record.GetInstancePathDepth(), std::stoi(depth));
        EXPECT_EQ(m_record.GetActiveDocId(), "D");
    }
}

TEST_F(Decoding, PathIsReplacedAndNotAppendedTo)
{
    m_record.SetInstancePath("OLD");
    ServerStream stream;
    stream.identification = "0|I|P|A|R|1|ONLY|1|1|1|D|B|2|0|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.GetInstancePath(), "ONLY");
}

TEST_F(Decoding, ZeroMeansNoActiveDocument)
{
    ServerStream stream;
    stream.identification = "0|I|P|A|R|0|0|1|0|0|B|2|0|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.GetActiveDocId(), "0");
    EXPECT_EQ(m_record.GetCurrentlyAttachedVersion(), "2");
    EXPECT_FALSE(m_record.AreOldDocumentsUsed());
    EXPECT_EQ(m_record.GetDocAutoMode(), 1);
    EXPECT_FALSE(m_record.HasUsedSpecificRevBefore());
}

TEST_F(Decoding, AutoModeIsStoredAsReceived)
{
    ServerStream stream;
    stream.identification = "0|I|P|A|R|0|0|7|0|0|B|2|0|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.GetDocAutoMode(), 7);
}

TEST_F(Decoding, NegativePersistencyFlagStopsTheReadingAndKeepsWhatCameBefore)
{
    ServerStream stream;
    stream.identification = "1|I|P|A|R|1|ONLY|1|1|-1|D|B|2|1|";
    EXPECT_EQ(m_record.SetAllData(stream.Full(), true), E_FAIL);
    EXPECT_TRUE(m_record.HasInstInENOVIA());
    EXPECT_EQ(m_record.GetInstancePath(), "ONLY");
    EXPECT_EQ(m_record.GetDocAutoMode(), 1);
    EXPECT_EQ(m_record.GetActiveDocId(), "");
    EXPECT_EQ(m_record.GetVersionCount(), 0);
    EXPECT_EQ(m_record.m_massTypeCount, 0);
}

TEST_F(Decoding, RevisionsKeepTheirOrder)
{
    ServerStream stream;
    stream.revisions = "2|A.1|d1|u1|v1|Weighed|11|B.1|d2|u2|__null__|Estimated|12|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.GetVersionCount(), 2);
    std::string all;
    for (int position = 1; position <= 2; ++position) {
        for (int what = 0; what < 6; ++what) {
            CATUnicodeString text;
            m_record.GetDocRevsInfo(position, static_cast<Base::DocInfo>(what), text);
            all += text.ToStdString() + ";";
        }
    }
    EXPECT_EQ(all, "A.1;d1;u1;v1;Weighed;11;B.1;d2;u2;__null__;Estimated;12;");
}

TEST_F(Decoding, PrecisionThatIsAPercentageLeavesTheDeviations)
{
    ServerStream stream;
    stream.massTypes = "1|Weighed|1|12.5|0.1|0.2|1|2|3|10|20|30|0.5|0.25|0.75|1|0|5|6|1|7|8|";
    DecodeFull(stream);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Weighed"), 0.1);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Weighed"), 0.2);
    EXPECT_EQ(Get(&Base::GetLowerPrecision, "Weighed"), 5.0);
    EXPECT_EQ(Get(&Base::GetUpperPrecision, "Weighed"), 6.0);
    EXPECT_EQ(Get(&Base::GetDefaultLowerPrecision, "Weighed"), 7.0);
    EXPECT_EQ(Get(&Base::GetDefaultUpperPrecision, "Weighed"), 8.0);
    EXPECT_TRUE(m_record.IsStandatadPart());
}

TEST_F(Decoding, PrecisionThatIsAMassOverwritesTheDeviationsOfThatMassType)
{
    ServerStream stream;
    stream.massTypes = "2|Weighed|1|12.5|0.1|0.2|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|6|1|7|8|"
                       "Target|1|12.5|0.3|0.4|1|2|3|10|20|30|0.5|0.25|0.75|0|1|7|8|";
    DecodeFull(stream);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Weighed"), 5.0);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Weighed"), 6.0);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Target"), 0.3);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Target"), 0.4);
}

TEST_F(Decoding, MassTypeWithoutValueMayHaveAPrecision)
{
    ServerStream stream;
    stream.massTypes = "2|Target|0|1|1|5|6|7|8|Weighed|2|0|3|4|";
    DecodeFull(stream);
    EXPECT_EQ(Get(&Base::GetLowerPrecision, "Target"), 5.0);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Target"), 5.0);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Target"), 6.0);
    EXPECT_EQ(Get(&Base::GetDefaultUpperPrecision, "Target"), 8.0);
    EXPECT_EQ(Get(&Base::GetMassTypeStatus, "Weighed"), Definitions::PartiallyAssigned);
    EXPECT_EQ(Get(&Base::GetDefaultLowerPrecision, "Weighed"), 3.0);
    EXPECT_EQ(Get(&Base::GetActiveMassType), "Estimated");
}

TEST_F(Decoding, PrecisionTypeOtherThanOneHasNoFields)
{
    ServerStream stream;
    stream.massTypes = "1|Target|0|2|7|8|";
    m_record.SetPrecisionValueType("Target", Definitions::Absolute);
    DecodeFull(stream);
    EXPECT_EQ(m_record.m_precisionTypes, CATRawCollint{2});
    EXPECT_EQ(m_record.m_precisionValueTypes, CATRawCollint{0});
    EXPECT_EQ(m_record.m_defaultLowerPrecisions, CATRawColldouble{7.0});
}

TEST_F(Decoding, PrecisionValueTypeIsCleared)
{
    // The second time the same mass type comes, its precision is no longer defined.
    ServerStream stream;
    stream.massTypes = "2|Target|0|1|1|5|6|7|8|Target|0|0|7|8|";
    DecodeFull(stream);
    EXPECT_EQ(Get(&Base::GetPrecisionValueType, "Target"), Definitions::Percentage);
}

TEST_F(Decoding, StatusesOfMassTypesAreStoredAsReceived)
{
    ServerStream stream;
    stream.massTypes = "3|A|0|0|0|0|B|7|0|0|0|C|-2|0|0|0|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.m_statuses, (CATRawCollint{0, 7, -2}));
}

TEST_F(Decoding, LastValuedMassTypeDecidesWhetherThePartIsStandard)
{
    const std::string values = "1|2|3|4|5|6|7|8|9|10|11|12|0|";
    ServerStream stream;
    stream.massTypes = "3|A|1|" + values + "0|0|0|B|1|" + values + "1|0|0|C|0|0|0|0|";
    DecodeFull(stream);
    EXPECT_TRUE(m_record.IsStandatadPart());
    m_record = Record();
    stream.massTypes = "2|A|1|" + values + "1|0|0|B|1|" + values + "2|0|0|";
    DecodeFull(stream);
    EXPECT_FALSE(m_record.IsStandatadPart());
}

TEST_F(Decoding, CountOfMassTypesStandsBeforeTheFirstValue)
{
    ServerStream stream;
    stream.massTypes = "3|A|1|1|2|3|4|5|6|7|8|9|10|11|12|0|0|0|0|B|0|0|0|0|C|0|0|0|0|";
    DecodeFull(stream);
    EXPECT_EQ(m_record.m_massTypeCount, 3);
    EXPECT_EQ(m_record.m_statuses, (CATRawCollint{1, 0, 0}));
}

TEST_F(Decoding, UnknownUseOfTheDMCIsToldAndCountsAsYes)
{
    for (const char* flag : {"7", "-1"}) {
        m_record = Record();
        ServerStream stream;
        stream.activeTypes = std::string(flag) + "|Estimated|Weighed|";
        const DiagnosticCapture heard;
        DecodeFull(stream);
        EXPECT_TRUE(m_record.IsWBDMCUsed());
        EXPECT_EQ(Get(&Base::GetLastImposedMassType), "Weighed");
        EXPECT_THAT(heard.Lines(),
                    testing::Contains(std::string("Error! Bad value (") + flag +
                                      ") has been received from the server for the \"use DMC\" "
                                      "flag. It'll be interpreted as 1"));
    }
}

TEST_F(Decoding, UseOfTheDMCMayBeOffWithoutAWord)
{
    for (const char* flag : {"0", "1"}) {
        m_record = Record();
        ServerStream stream;
        stream.activeTypes = std::string(flag) + "|Estimated|Weighed|";
        const DiagnosticCapture heard;
        DecodeFull(stream);
        EXPECT_EQ(m_record.IsWBDMCUsed(), flag[0] == '1');
        EXPECT_THAT(heard.Lines(), testing::Not(testing::Contains(testing::HasSubstr("Error!"))));
    }
}

TEST_F(Decoding, DensityThatIsNotAssignedTravelsButIsNotKept)
{
    struct Row
    {
        const char* received;
        int stored;
    };
    for (const Row& row : {Row{"0", 0}, Row{"2", 2}, Row{"5", 2}, Row{"-1", 2}}) {
        m_record = Record();
        ServerStream stream;
        stream.density = std::string(row.received) + "|7850|1|2700|Aluminium|";
        DecodeFull(stream);
        EXPECT_EQ(Get(&Base::GetWBDensityStatus), row.stored) << row.received;
        EXPECT_EQ(Get(&Base::GetWBDensity), 0.0);
        EXPECT_EQ(Get(&Base::GetWBMaterialName), "");
        EXPECT_EQ(m_record.GetAppliedOnObject(), "");
        EXPECT_EQ(m_record.GetPartRefWBDensity(), 2700.0);
        EXPECT_EQ(m_record.GetPartRefWBMaterialName(), "Aluminium");
        EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
    }
}

TEST_F(Decoding, DensityOfThePartThatIsNotAssignedTravelsButIsNotKept)
{
    struct Row
    {
        const char* received;
        int stored;
    };
    for (const Row& row : {Row{"0", 0}, Row{"2", 2}, Row{"9", 2}}) {
        m_record = Record();
        ServerStream stream;
        stream.density = std::string("1|7850|Steel|PartInst|") + row.received + "|2700|";
        DecodeFull(stream);
        EXPECT_EQ(m_record.GetAppliedOnObject(), "PartInst");
        EXPECT_EQ(m_record.GetPartRefWBDensityStatus(), row.stored);
        EXPECT_EQ(m_record.GetPartRefWBDensity(), 0.0);
        EXPECT_EQ(m_record.GetPartRefWBMaterialName(), "");
        EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
    }
}

TEST_F(Decoding, PartWithAnInstanceHasNoAppliedOnAndNoPartDensity)
{
    for (const char* density : {"1|7850|Steel|", "0|7850|"}) {
        m_record = Record();
        ServerStream stream;
        stream.identification = "1|I|P|A|R|0|0|0|0|0|B|2|0|";
        stream.density = density;
        DecodeFull(stream);
        EXPECT_EQ(m_record.GetAppliedOnObject(), "");
        EXPECT_EQ(m_record.GetPartRefWBDensityStatus(), Definitions::Empty);
        EXPECT_EQ(Get(&Base::GetWBDensity), density[0] == '1' ? 7850.0 : 0.0);
        EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
    }
}

TEST_F(Decoding, UnknownAppliedOnIsToldAndBecomesThePartReference)
{
    for (const char* appliedOn : {"partref", "Somewhere", ""}) {
        m_record = Record();
        ServerStream stream;
        stream.density = std::string("1|7850|Steel|") + appliedOn + "|0|0|";
        const DiagnosticCapture heard;
        DecodeFull(stream);
        EXPECT_EQ(m_record.GetAppliedOnObject(), "PartRef");
        EXPECT_THAT(heard.Lines(),
                    testing::Contains("Error! Bad value for the \"material applied to\" flag! "
                                      "It'll be defaulted to PartRef"));
    }
}

TEST_F(Decoding, NullMaterialIsEmptyButThatOfThePartStaysAsReceived)
{
    ServerStream stream;
    stream.density = "1|7850|__null__|PartRef|1|7850|__null__|";
    DecodeFull(stream);
    EXPECT_EQ(Get(&Base::GetWBMaterialName), "");
    EXPECT_EQ(m_record.GetPartRefWBMaterialName(), "__null__");
}

TEST_F(Decoding, UpToDateIsAnyNonZeroValue)
{
    for (const char* flag : {"0", "1", "2", "-1"}) {
        m_record = Record();
        ServerStream stream;
        stream.priority = std::string(flag) + "|1|";
        DecodeFull(stream);
        EXPECT_EQ(Get(&Base::GetUpToDateFlag), flag[0] != '0');
        EXPECT_EQ(Get(&Base::GetDensityPriority), Definitions::MaterialDensityFirst);
    }
}

TEST_F(Decoding, EqualStatisticsCollapseToTheFirst)
{
    ServerStream stream;
    stream.statistics = "6|Steel|Paint|Steel|Steel|Steel|steel|"
                        "3|12.5|2|0.5|3|12.5|2|12.5|3|12.25|3|12.5|d|d|d|d|d|d|";
    DecodeFull(stream);
    EXPECT_EQ(StatisticNames(),
              (std::vector<std::string>{"Steel 3 12.5", "Paint 2 0.5", "Steel 2 12.5",
                                        "Steel 3 12.25", "steel 3 12.5"}));
    EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
}

TEST_F(Decoding, StatisticsAndTransformationNeverFail)
{
    ServerStream stream;
    stream.statistics = "2|A|B|x|y||z|d|d|";
    stream.transformation = "1|x||-2,5|3.5|5|6|7|8|9|__null__|11|";
    DecodeFull(stream);
    EXPECT_EQ(StatisticNames(), (std::vector<std::string>{"A 0 0", "B 0 0"}));
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix),
              (CATRawColldouble{1, 0, 0, -2.5, 3.5, 5, 6, 7, 8, 9, 0, 11}));
    EXPECT_TRUE(m_errors.Raised().empty());
}

TEST_F(Decoding, CountOfStatisticsThatIsNoNumberIsZero)
{
    for (const char* count : {"x|", "__null__|", "-4|", "0|"}) {
        m_record = Record();
        ServerStream stream;
        stream.statistics = count;
        DecodeFull(stream);
        EXPECT_TRUE(StatisticNames().empty());
        EXPECT_EQ(m_record.GetExtraPropsCount(), 1);
    }
}

TEST_F(Decoding, TransformationIsReplacedAndStatisticsAreAppended)
{
    m_record.SetListOfTransMatrix({9.0});
    m_record.SetWBMatStatInfo({"Steel"}, {12.5}, {3});
    DecodeFull({});
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix).Size(), 12);
    EXPECT_EQ(StatisticNames(), (std::vector<std::string>{"Steel 3 12.5", "Steel 3 12.5"}));
}

TEST_F(Decoding, PropertiesTakeNullForEmptyAndAnyNonZeroForADate)
{
    ServerStream stream;
    stream.properties = "3|Customer|1|0|Part|__null__|__null__|Delivered|1|5|Instance|2010/07/01|"
                        "__null__|Length|100|-1|Part|12.5|LENGTH|";
    DecodeFull(stream);
    CATListValCATUnicodeString names;
    CATRawCollint types;
    CATRawCollint isDateFlags;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    m_record.GetExtraPropertiesInfo(names, types, isDateFlags, owners, values, magnitudes);
    EXPECT_EQ(names, (CATListValCATUnicodeString{"Customer", "Delivered", "Length"}));
    EXPECT_EQ(types, (CATRawCollint{1, 1, 100}));
    EXPECT_EQ(isDateFlags, (CATRawCollint{0, 1, 1}));
    EXPECT_EQ(owners, (CATListValCATUnicodeString{"Part", "Instance", "Part"}));
    EXPECT_EQ(values, (CATListValCATUnicodeString{"", "2010/07/01", "12.5"}));
    EXPECT_EQ(magnitudes, (CATListValCATUnicodeString{"", "", "LENGTH"}));
}

TEST_F(Decoding, NoPropertiesIsNone)
{
    for (const char* count : {"0|", "-1|"}) {
        ServerStream stream;
        stream.properties = count;
        DecodeFull(stream);
        EXPECT_EQ(m_record.GetExtraPropsCount(), 0);
    }
}

TEST_F(Decoding, SecondStreamIsAppended)
{
    DecodeFull({});
    ServerStream second;
    second.massTypes = "1|Weighed|0|0|0|0|";
    DecodeShort(second);
    EXPECT_EQ(Get(&Base::GetMassTypes),
              (CATListValCATUnicodeString{"Computed", "Estimated", "Weighed"}));
}

// Diagnostics

TEST_F(Decoding, EveryValueIsEchoedWithItsLabel)
{
    const DiagnosticCapture heard;
    ASSERT_EQ(m_record.SetAllData(kWorkedExample, true), S_OK);
    for (const char* line : {"Instance ID: INST-0001",
                             "Part ID: PART-0001",
                             "Part version: A",
                             "PRC ID: PRC-07",
                             "Path Depth: 2",
                             "Path element: ROOT-1",
                             "Path element: SUB-3",
                             "Persisting data possible? YES",
                             "Active document ID: DOC-55",
                             "Attached document revision: 2",
                             "Number of document revisions: 1",
                             "Version: B.1",
                             "Last check-in date: 2010/07/01",
                             "Last check-in user: user1",
                             "Last check-out user: __null__",
                             "Number of mass types: 2",
                             "Mass type: Computed",
                             "Status: 1",
                             "Mass: 12.5",
                             "Ixx: 10",
                             "Pxz: 0.5",
                             "Pxy: 0.25",
                             "Pyz: 0.75",
                             "Precision value type: 1",
                             "Lower precision: 5",
                             "Standard part: 0",
                             "Default lower precision: 0",
                             "Use DMC: 1",
                             "Active mass type: Estimated",
                             "\nDensity status: 1",
                             "Density: 7850",
                             "Material: Steel",
                             "Material set on: PartRef",
                             "Part reference density status: 1",
                             "Up to date: 1",
                             "Density priority: 0",
                             "Number of material statistics: 1",
                             "Name: Steel",
                             "Integer: 3",
                             "Real: 12.5",
                             "Ignored: ignored",
                             "Transformation value: 1",
                             "<1> extra properties requested to be reported on",
                             "Name: Customer",
                             "Owner: Part",
                             "Value: CUST-01",
                             "Magnitude: __null__"}) {
        EXPECT_THAT(heard.Lines(), testing::Contains(line));
    }
    EXPECT_EQ(heard.Lines().front(), std::string("Here's the data received: ") + kWorkedExample);
    // The 85 fields, the stream as a whole, whether it may be persisted, the number of properties.
    EXPECT_EQ(heard.Lines().size(), 85U + 3U);
}

TEST_F(Decoding, ComputationEchoesItsNames)
{
    const DiagnosticCapture heard;
    const std::string stream =
        std::string("1|2|3|4|5|6|7|8|9|10|11|12|") + kStatistics + "0|" + kTransformation;
    m_record.SetComputedData(stream, true);
    EXPECT_EQ(heard.Lines().front(), "Here's the data received: " + stream);
    EXPECT_THAT(heard.Lines(), testing::Contains("Name: Steel"));
}

// The answer of a computation

constexpr const char* kComputedValues = "12.5|0.1|0.2|1|2|3|10|20|30|0.5|0.25|0.75|";

/// Keeps the order in which the values arrive.
class Arrivals : public CATWBAllDataBuffer
{
public:
    long SetMass(const CATUnicodeString& massType, double mass) override
    {
        m_arrived.push_back("mass of " + massType.ToStdString());
        return CATWBAllDataBuffer::SetMass(massType, mass);
    }
    long SetLowerDeviation(const CATUnicodeString& massType, double deviation) override
    {
        m_arrived.emplace_back("lower");
        return CATWBAllDataBuffer::SetLowerDeviation(massType, deviation);
    }
    long SetUpperDeviation(const CATUnicodeString& massType, double deviation) override
    {
        m_arrived.emplace_back("upper");
        return CATWBAllDataBuffer::SetUpperDeviation(massType, deviation);
    }
    long SetCenterOfGravity(const CATUnicodeString& massType, const CATMathPoint& centre) override
    {
        m_arrived.emplace_back("centre");
        return CATWBAllDataBuffer::SetCenterOfGravity(massType, centre);
    }
    long SetInertia(const CATUnicodeString& massType, const CATMath3x3Matrix& inertia) override
    {
        m_arrived.emplace_back("inertia");
        return CATWBAllDataBuffer::SetInertia(massType, inertia);
    }
    long SetMassTypeStatus(const CATUnicodeString& massType, ValueStatus status) override
    {
        m_arrived.emplace_back("status");
        return CATWBAllDataBuffer::SetMassTypeStatus(massType, status);
    }
    long UnSetWBMatStatInfo() override
    {
        m_arrived.emplace_back("statistics cleared");
        return CATWBAllDataBuffer::UnSetWBMatStatInfo();
    }
    long SetWBMatStatInfo(const CATListValCATUnicodeString& names, const CATRawColldouble& reals,
                          const CATRawCollint& integers) override
    {
        m_arrived.emplace_back("statistics");
        return CATWBAllDataBuffer::SetWBMatStatInfo(names, reals, integers);
    }
    long SetListOfTransMatrix(const CATRawColldouble& values) override
    {
        m_arrived.emplace_back("transformation");
        return CATWBAllDataBuffer::SetListOfTransMatrix(values);
    }

    std::vector<std::string> m_arrived;
};

TEST_F(Decoding, ComputedValuesArriveThroughTheSettersDeviationsFirst)
{
    Arrivals record;
    const std::string stream =
        std::string(kComputedValues) + "1|Steel|3|12.5|d|0|" + kTransformation;
    EXPECT_EQ(record.SetComputedData(stream, true), S_OK);
    EXPECT_THAT(record.m_arrived,
                testing::ElementsAre("lower", "upper", "mass of Computed", "centre", "inertia",
                                     "status", "transformation", "statistics cleared",
                                     "statistics"));
}

TEST_F(Decoding, ReceivedValuesArriveThroughTheSettersMassFirst)
{
    Arrivals record;
    EXPECT_EQ(record.SetAllData(kWorkedExample, true), S_OK);
    EXPECT_THAT(record.m_arrived,
                testing::ElementsAre("status", "mass of Computed", "lower", "upper", "centre",
                                     "inertia", "lower", "upper", "status", "statistics",
                                     "transformation"));
}

TEST_F(Decoding, ComputationFillsTheComputedMassTypeAndReplacesTheStatistics)
{
    ServerStream before;
    before.massTypes = "2|Estimated|0|0|0|0|Computed|0|0|0|0|";
    DecodeFull(before);
    const std::string stream =
        std::string(kComputedValues) +
        "3|Paint|Steel|Paint|2|0.5|3|12.5|2|0.5|d|d|d|2|Steel|7850|Paint|1200|"
        "2|0|0|0|2|0|0|0|2|0|0|0|";
    EXPECT_EQ(m_record.SetComputedData(stream, true), S_OK);
    EXPECT_EQ(Get(&Base::GetMassTypeStatus, "Computed"), Definitions::Assigned);
    EXPECT_EQ(Get(&Base::GetMass, "Computed"), 12.5);
    EXPECT_EQ(Get(&Base::GetLowerDeviation, "Computed"), 0.1);
    EXPECT_EQ(Get(&Base::GetUpperDeviation, "Computed"), 0.2);
    CATMathPoint* centre = nullptr;
    m_record.GetCenterOfGravity("Computed", centre);
    EXPECT_EQ(*std::unique_ptr<CATMathPoint>(centre), CATMathPoint(1, 2, 3));
    CATMath3x3Matrix* inertia = nullptr;
    m_record.GetInertia("Computed", inertia);
    EXPECT_EQ(*std::unique_ptr<CATMath3x3Matrix>(inertia),
              CATMath3x3Matrix(10, -0.25, -0.5, -0.25, 20, -0.75, -0.5, -0.75, 30));
    EXPECT_EQ(Get(&Base::GetMassTypeStatus, "Estimated"), Definitions::Empty);
    EXPECT_EQ(Get(&Base::GetMass, "Estimated"), 0.0);
    EXPECT_EQ(StatisticNames(), (std::vector<std::string>{"Paint 2 0.5", "Steel 3 12.5"}));
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix),
              (CATRawColldouble{2, 0, 0, 0, 2, 0, 0, 0, 2, 0, 0, 0}));
}

TEST_F(Decoding, ComputationKeepsTheTransformationOnlyWhenAskedFor)
{
    DecodeFull({});
    const std::string stream = std::string(kComputedValues) + "0|0|2|0|0|0|2|0|0|0|2|0|0|0|";
    EXPECT_EQ(m_record.SetComputedData(stream, false), S_OK);
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix),
              (CATRawColldouble{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}));
    EXPECT_TRUE(StatisticNames().empty());
}

TEST_F(Decoding, ComputationTakesBadCountsForZero)
{
    DecodeFull({});
    const std::string stream = std::string(kComputedValues) + "x|y|" + kTransformation;
    EXPECT_EQ(m_record.SetComputedData(stream, true), S_OK);
    EXPECT_EQ(Get(&Base::GetListOfTransMatrix),
              (CATRawColldouble{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}));
}

TEST_F(Decoding, DiscardedPairOfAComputationMustHoldAReal)
{
    const std::string stream = std::string(kComputedValues) + "0|1|Steel|x|" + kTransformation;
    EXPECT_THROW(m_record.SetComputedData(stream, true), CATFatalError);
}

} // namespace
