#include "CATWBAllDataBuffer.h"

#include "CodecStreams.h"
#include "ModuleSession.h"

#include <rapidcheck.h>

#include <set>
#include <string>
#include <vector>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

/// A record of which any read can be made to fail.
class Record : public CATWBAllDataBuffer
{
public:
    using CATWBAllDataBuffer::m_centresX;
    using CATWBAllDataBuffer::m_inertiasXX;
    using CATWBAllDataBuffer::m_massTypeCount;
    using CATWBAllDataBuffer::m_massTypes;
    using CATWBAllDataBuffer::m_statuses;

    std::set<std::string> m_failing;
    long m_priorityStatus = S_OK;

    long GetCurrentPartID(CATUnicodeString& text) const override
    {
        return Fails("part") ? E_FAIL : CATWBAllDataBuffer::GetCurrentPartID(text);
    }
    long GetCurrentPartVersion(CATUnicodeString& text) const override
    {
        return Fails("version") ? E_FAIL : CATWBAllDataBuffer::GetCurrentPartVersion(text);
    }
    long GetDensityPriority(DensityPriority& priority) const override
    {
        const long status = CATWBAllDataBuffer::GetDensityPriority(priority);
        return Fails("priority") ? E_FAIL : status + m_priorityStatus;
    }
    long GetWBMaterialName(CATUnicodeString& text) const override
    {
        return Fails("material") ? E_FAIL : CATWBAllDataBuffer::GetWBMaterialName(text);
    }
    long GetEntityToCompute(Entity& entity) const override
    {
        return Fails("entity") ? E_FAIL : CATWBAllDataBuffer::GetEntityToCompute(entity);
    }
    long GetCurrentPRCID(CATUnicodeString& text) const override
    {
        return Fails("root") ? E_FAIL : CATWBAllDataBuffer::GetCurrentPRCID(text);
    }
    long GetCurrentPRCFilter(CATUnicodeString& text) const override
    {
        return Fails("filter") ? E_FAIL : CATWBAllDataBuffer::GetCurrentPRCFilter(text);
    }
    long GetPrecisionType(const CATUnicodeString& massType, PrecisionType& type) const override
    {
        return Fails("precision type") ? E_FAIL
                                       : CATWBAllDataBuffer::GetPrecisionType(massType, type);
    }
    long GetPrecisionValueType(const CATUnicodeString& massType,
                               PrecisionValueType& type) const override
    {
        return Fails("value type") ? E_FAIL
                                   : CATWBAllDataBuffer::GetPrecisionValueType(massType, type);
    }
    long GetLowerPrecision(const CATUnicodeString& massType, double& precision) const override
    {
        return Fails("lower") ? E_FAIL : CATWBAllDataBuffer::GetLowerPrecision(massType, precision);
    }
    long GetUpperPrecision(const CATUnicodeString& massType, double& precision) const override
    {
        return Fails("upper") ? E_FAIL : CATWBAllDataBuffer::GetUpperPrecision(massType, precision);
    }

private:
    bool Fails(const char* what) const { return m_failing.count(what) != 0; }
};

class Encoding : public testing::Test
{
protected:
    Encoding() { EXPECT_EQ(m_record.SetAllData(kWorkedExample, true), S_OK); }
    CATUnicodeString AllData()
    {
        CATUnicodeString stream("old");
        EXPECT_EQ(m_record.GetAllData(stream), S_OK);
        return stream;
    }
    CATUnicodeString FailedAllData()
    {
        CATUnicodeString stream("old");
        EXPECT_EQ(m_record.GetAllData(stream), E_FAIL);
        return stream;
    }
    CATUnicodeString ComputedInfo()
    {
        CATUnicodeString stream("old");
        EXPECT_EQ(m_record.GetComputedInfo(stream), S_OK);
        return stream;
    }
    void ValueEstimated()
    {
        m_record.SetMassTypeStatus("Estimated", Definitions::Assigned);
        m_record.SetMass("Estimated", 11.25);
        m_record.SetLowerDeviation("Estimated", 0.3);
        m_record.SetCenterOfGravity("Estimated", CATMathPoint(4, 5, 6));
        m_record.SetInertia("Estimated", CATMath3x3Matrix(7, 1, 2, 1, 8, 3, 2, 3, 9));
    }

    const SilentStreams m_silent;
    Record m_record;
};

TEST_F(Encoding, WorkedExampleMakesTheWholeRequest)
{
    EXPECT_EQ(AllData(),
              "0|PART-0001|A|DOC-55|B|"
              "2|Computed|1|5|5|12.5|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|5|0|Estimated|0|0|"
              "Estimated|Estimated|1|7850|Steel|PartRef|4|INST-0001|ROOT-1|SUB-3|PRC-07|0|"
              "<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|");
}

TEST_F(Encoding, OtherValuedMassTypesHaveNoDeviations)
{
    ValueEstimated();
    m_record.SetStandardPart(true);
    m_record.SetHasInstInENOVIA(true);
    EXPECT_EQ(AllData(), "1|PART-0001|A|DOC-55|B|"
                         "2|Computed|1|5|5|12.5|1|2|3|10|20|30|0.5|0.25|0.75|1|1|5|5|1|"
                         "Estimated|1|0|0|11.25|4|5|6|7|8|9|-2|-1|-3|0|1|"
                         "Estimated|Estimated|1|7850|Steel|0|"
                         "<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|");
}

TEST_F(Encoding, OnlyTheExactNameIsTheComputedMassType)
{
    m_record.m_massTypes = {"computed", "Estimated"};
    EXPECT_THAT(AllData().ToStdString(), testing::HasSubstr("|computed|1|0|0|12.5|"));
}

TEST_F(Encoding, ProductsOfZeroAreWrittenWithoutASign)
{
    m_record.SetInertia("Computed", CATMath3x3Matrix(1, 0, 0, 0, 2, 0, 0, 0, 3));
    EXPECT_THAT(AllData().ToStdString(), testing::HasSubstr("|1|2|3|0|0|0|1|1|5|5|"));
}

TEST_F(Encoding, RealsAreWrittenAsTheSessionWritesNumbers)
{
    const NumberLocale numbers(kCommaLocale);
    m_record.SetMass("Computed", 1234.56789012345);
    EXPECT_THAT(AllData().ToStdString(),
                testing::HasSubstr("|5|5|1234,56789012345|1|2|3|10|20|30|0,5|0,25|0,75|"));
    m_record.SetLowerPrecision("Computed", 2.5);
    EXPECT_THAT(ComputedInfo().ToStdString(), testing::HasSubstr("|1|1|2,5|5|"));
}

TEST_F(Encoding, AppliedOnSectionNeedsNoInstanceAndAMaterial)
{
    const std::string end = "0|<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|";
    m_record.SetWBMaterialName("  Steel 1  ");
    EXPECT_THAT(AllData().ToStdString(),
                testing::EndsWith("|Estimated|1|7850|Steel 1|PartRef|4|INST-0001|ROOT-1|SUB-3|"
                                  "PRC-07|" +
                                  end));
    m_record.SetHasInstInENOVIA(true);
    EXPECT_THAT(AllData().ToStdString(), testing::EndsWith("|Estimated|1|7850|Steel 1|" + end));
    m_record.SetHasInstInENOVIA(false);
    for (const char* none : {"", "   ", "~"}) {
        m_record.SetWBMaterialName(none);
        EXPECT_THAT(AllData().ToStdString(),
                    testing::EndsWith("|Estimated|1|7850|__null__|" + end));
    }
    for (const auto status : {Definitions::Empty, Definitions::PartiallyAssigned}) {
        m_record.SetWBMaterialName("Steel");
        m_record.SetWBDensityStatus(status);
        EXPECT_THAT(AllData().ToStdString(),
                    testing::EndsWith("|Estimated|" + std::to_string(status) + "|" + end));
    }
}

TEST_F(Encoding, EmptyPathStillTakesAField)
{
    m_record.SetInstancePathDepth(0);
    m_record.SetInstancePath("");
    EXPECT_THAT(AllData().ToStdString(),
                testing::HasSubstr("|PartRef|2|INST-0001||PRC-07|0|<userDefinedProps>|"));
}

TEST_F(Encoding, OnlyMaterialAndPropertyValuesAreWrittenAsNull)
{
    m_record.SetExtraPropertiesInfo({"", "b"}, {1, 3}, {0, 1}, {"", "Part"}, {"  ", " x y "},
                                    {"LENGTH", ""});
    m_record.SetCurrentPartVersion("");
    m_record.SetActiveDocId("");
    m_record.SetActiveDocVersion("");
    m_record.SetActiveMassType("");
    m_record.SetLastImposedMassType("");
    m_record.SetAppliedOnObject("");
    const std::string stream = AllData().ToStdString();
    EXPECT_THAT(stream, testing::StartsWith("0|PART-0001||||2|"));
    EXPECT_THAT(stream, testing::HasSubstr("|Estimated|0|0|||1|7850|Steel||4|"));
    EXPECT_THAT(stream, testing::EndsWith("|<userDefinedProps>|2||1|0||__null__|b|3|1|Part|x y|"
                                          "</userDefinedProps>|"));
}

TEST_F(Encoding, ActiveMassTypeStandsBeforeTheLastImposedOne)
{
    m_record.SetActiveMassType("Computed");
    m_record.SetLastImposedMassType("Weighed");
    EXPECT_THAT(AllData().ToStdString(), testing::HasSubstr("|Estimated|0|0|Computed|Weighed|1|"));
}

TEST_F(Encoding, UnknownValuesOfEnumerationsTravelAsTheyAre)
{
    ServerStream stream;
    stream.massTypes = "2|Computed|0|1|9|5|6|7|8|Target|0|4|7|8|";
    stream.priority = "1|-7|";
    m_record = Record();
    ASSERT_EQ(m_record.SetAllData(stream.Full(), true), S_OK);
    m_record.SetEntityToCompute(static_cast<ENOWBAllDataBuffer::Entity>(11));
    EXPECT_EQ(AllData(), "0|PART-0001|A|DOC-55|B|2|Computed|0|1|9|5|6|Target|0|4|"
                         "Estimated|Estimated|1|7850|Steel|PartRef|4|INST-0001|ROOT-1|SUB-3|PRC-07|"
                         "-7|<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|");
    EXPECT_EQ(ComputedInfo(), "PART-0001|A|2|ROOT-1|SUB-3|-7|Steel|Active|0|11|PRC-07||1|9|5|6|");
}

TEST_F(Encoding, CountOfMassTypesIsRefreshed)
{
    m_record.UnSetMassType("Estimated");
    EXPECT_EQ(m_record.m_massTypeCount, 2);
    EXPECT_THAT(AllData().ToStdString(), testing::StartsWith("0|PART-0001|A|DOC-55|B|1|Computed|"));
    EXPECT_EQ(m_record.m_massTypeCount, 1);
}

TEST_F(Encoding, NewRecordMakesTheShortestRequest)
{
    m_record = Record();
    EXPECT_EQ(AllData(), "0|||||0|||0|0|<userDefinedProps>|0|</userDefinedProps>|");
}

TEST_F(Encoding, PartThatCannotBeReadFailsWithNothingMoreWritten)
{
    m_record.m_failing = {"part"};
    EXPECT_EQ(FailedAllData(), "0|");
    m_record.m_failing = {"version"};
    EXPECT_EQ(FailedAllData(), "0|PART-0001|");
}

TEST_F(Encoding, ValuedMassTypeWithoutCentreOrInertiaFails)
{
    m_record.m_centresX.RemoveAll();
    EXPECT_EQ(FailedAllData(), "0|PART-0001|A|DOC-55|B|2|Computed|1|5|5|12.5|");
    m_record.SetCenterOfGravity("Computed", CATMathPoint(1, 2, 3));
    m_record.m_inertiasXX.RemoveAll();
    EXPECT_EQ(FailedAllData(), "0|PART-0001|A|DOC-55|B|2|Computed|1|5|5|12.5|1|2|3|");
}

TEST_F(Encoding, LastReadGivesTheStatus)
{
    m_record.m_priorityStatus = S_FALSE;
    CATUnicodeString stream;
    EXPECT_EQ(m_record.GetAllData(stream), S_FALSE);
    EXPECT_THAT(stream.ToStdString(), testing::EndsWith("|</userDefinedProps>|"));
}

TEST_F(Encoding, OtherFailedReadsLeaveTheRequestWhole)
{
    // Status 7 cannot be read, so the mass type goes out as one without a value.
    m_record.m_statuses = {1, 7};
    m_record.m_failing = {"material", "root", "precision type"};
    EXPECT_EQ(AllData(), "0|PART-0001|A|DOC-55|B|"
                         "2|Computed|1|5|5|12.5|1|2|3|10|20|30|0.5|0.25|0.75|0|0|Estimated|0|0|"
                         "Estimated|Estimated|1|7850|__null__|0|"
                         "<userDefinedProps>|1|Customer|1|0|Part|CUST-01|</userDefinedProps>|");
    m_record.m_failing = {"value type", "lower", "upper"};
    EXPECT_THAT(AllData().ToStdString(), testing::HasSubstr("|0.75|1|0|0|0|0|Estimated|"));
}

TEST_F(Encoding, DepthBeyondAnyPathDoesNoHarm)
{
    m_record.SetInstancePathDepth(2147483647);
    EXPECT_THAT(AllData().ToStdString(), testing::HasSubstr("|PartRef|-2147483647|INST-0001|"));
}

TEST_F(Encoding, WorkedExampleMakesTheWholeComputationRequest)
{
    m_record.SetCurrentPRCFilter("0|No Filter");
    m_record.SetEntityToCompute(Definitions::PartAlone);
    m_record.SetDensityPriority(Definitions::MaterialDensityFirst);
    EXPECT_EQ(ComputedInfo(),
              "PART-0001|A|2|ROOT-1|SUB-3|1|Steel|Active|0|2|PRC-07|0|No Filter|1|1|5|5|");
}

TEST_F(Encoding, ComputationRequestHasNoPathAtDepthZeroOrLess)
{
    for (const int depth : {0, -1}) {
        m_record.SetInstancePathDepth(depth);
        EXPECT_THAT(ComputedInfo().ToStdString(),
                    testing::StartsWith("PART-0001|A|" + std::to_string(depth) + "|0|Steel|"));
    }
}

TEST_F(Encoding, ComputationRequestKeepsTheBlanksOfTheMaterial)
{
    m_record.SetWBMaterialName("  ");
    EXPECT_THAT(ComputedInfo().ToStdString(), testing::HasSubstr("|0|  |Active|0|0|"));
    m_record.SetWBMaterialName("");
    EXPECT_THAT(ComputedInfo().ToStdString(), testing::HasSubstr("|0|__null__|Active|0|0|"));
}

TEST_F(Encoding, ComputationRequestHasNoPrecisionWhereNoneIsDefined)
{
    m_record.SetPrecisionType("Computed", Definitions::NoPrecision);
    EXPECT_THAT(ComputedInfo().ToStdString(), testing::EndsWith("|0|0|PRC-07||0|"));
    m_record = Record();
    EXPECT_EQ(ComputedInfo(), "||0|0|__null__|Active|0|0|||0|");
}

TEST_F(Encoding, ComputationRequestEndsAtTheFirstFailedRead)
{
    struct Row
    {
        const char* failing;
        const char* stream;
    };
    m_record.SetCurrentPRCFilter("F");
    for (const Row& row : {
             Row{"part", ""},
             Row{"version", "PART-0001|"},
             Row{"priority", "PART-0001|A|2|ROOT-1|SUB-3|"},
             Row{"material", "PART-0001|A|2|ROOT-1|SUB-3|0|"},
             Row{"entity", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|"},
             Row{"root", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|"},
             Row{"filter", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|PRC-07|"},
             Row{"precision type", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|PRC-07|F|"},
             Row{"value type", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|PRC-07|F|1|"},
             Row{"lower", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|PRC-07|F|1|1|"},
             Row{"upper", "PART-0001|A|2|ROOT-1|SUB-3|0|Steel|Active|0|0|PRC-07|F|1|1|5|"},
         }) {
        m_record.m_failing = {row.failing};
        CATUnicodeString stream("old");
        EXPECT_EQ(m_record.GetComputedInfo(stream), E_FAIL) << row.failing;
        EXPECT_EQ(stream, row.stream) << row.failing;
    }
}

// There and back: the request's groups that the answer has too are written into an answer.

std::string Field(const std::string& text)
{
    return text + "|";
}

rc::Gen<std::string> Name()
{
    return rc::gen::nonEmpty(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("abcXYZ.-_ü"))));
}

TEST(EncodingLaws, PropertiesComeBackAsTheyWereSent)
{
    const SilentStreams silent;
    EXPECT_TRUE(rc::check([] {
        const auto names = *rc::gen::container<std::vector<std::string>>(Name());
        std::string properties = Field(std::to_string(names.size()));
        std::string expected = Field(std::to_string(names.size()));
        for (const std::string& name : names) {
            const int type = *rc::gen::arbitrary<int>();
            const std::string isDate = *rc::gen::element<std::string>("0", "1");
            const std::string value =
                *rc::gen::oneOf(Name(), rc::gen::just<std::string>("__null__"));
            const std::string sent = Field(name) + Field(std::to_string(type)) + Field(isDate) +
                                     Field("Part") + Field(value);
            properties += sent + Field("LENGTH");
            expected += sent;
        }
        ServerStream stream;
        stream.properties = properties;
        CATWBAllDataBuffer record;
        RC_ASSERT(record.SetAllData(stream.Full(), true) == S_OK);
        CATUnicodeString request;
        RC_ASSERT(record.GetAllData(request) == S_OK);
        const std::string text = request.ToStdString();
        const std::string begin = "<userDefinedProps>|";
        const std::size_t from = text.find(begin) + begin.size();
        RC_ASSERT(text.substr(from) == expected + "</userDefinedProps>|");
    }));
}

TEST(EncodingLaws, MassTypesComeBackAsTheyWereSent)
{
    const SilentStreams silent;
    EXPECT_TRUE(rc::check([] {
        const auto names = *rc::gen::unique<std::vector<std::string>>(Name());
        const auto real = [] {
            return std::to_string(*rc::gen::inRange(-100000, 100000));
        };
        std::string answer = Field(std::to_string(names.size()));
        std::string expected = answer;
        for (const std::string& name : names) {
            const bool valued = *rc::gen::arbitrary<bool>();
            const bool precise = *rc::gen::arbitrary<bool>();
            answer += Field(name) + (valued ? "1|" : "0|");
            expected += Field(name) + (valued ? "1|0|0|" : "0|");
            if (valued) {
                const std::string mass = Field(real());
                std::string rest;
                for (int number = 0; number < 9; ++number) {
                    rest += Field(real());
                }
                answer += mass + Field(real()) + Field(real()) + rest;
                expected += mass + rest;
            }
            std::string precision = "0|";
            if (precise) {
                precision = "1|" + Field(*rc::gen::element<std::string>("0", "1")) + Field(real()) +
                            Field(real());
            }
            answer += precision + (valued ? "0|" : "") + Field(real()) + Field(real());
            expected += precision + (valued ? "0|" : "");
        }
        ServerStream stream;
        stream.massTypes = answer;
        CATWBAllDataBuffer record;
        RC_ASSERT(record.SetAllData(stream.Full(), true) == S_OK);
        CATUnicodeString request;
        RC_ASSERT(record.GetAllData(request) == S_OK);
        const std::string begin = "0|PART-0001|A|DOC-55|B|";
        RC_ASSERT(request.ToStdString().substr(0, begin.size() + expected.size()) ==
                  begin + expected);
    }));
}

TEST(EncodingLaws, ComputationWithAnyRealsComesBackAsItWasSent)
{
    const SilentStreams silent;
    EXPECT_TRUE(rc::check([] {
        std::vector<std::string> reals;
        for (int number = 0; number < 12; ++number) {
            // Added to 0, so that no -0 is among them: its sign need not come back.
            const double real = *rc::gen::arbitrary<double>() + 0.0;
            reals.push_back(CATUnicodeString::FromReal(real).ToStdString());
        }
        std::string answer;
        for (const std::string& real : reals) {
            answer += Field(real);
        }
        ServerStream stream;
        stream.massTypes = "1|Computed|0|0|0|0|";
        CATWBAllDataBuffer record;
        RC_ASSERT(record.SetAllData(stream.Full(), true) == S_OK);
        record.SetComputedData(answer + "0|0|", false);
        CATUnicodeString request;
        RC_ASSERT(record.GetAllData(request) == S_OK);
        std::string expected = "|Computed|1|" + Field(reals[1]) + Field(reals[2]) + Field(reals[0]);
        for (std::size_t number = 3; number < 12; ++number) {
            expected += Field(reals[number]);
        }
        RC_ASSERT(request.ToStdString().find(expected) != std::string::npos);
    }));
}

} // namespace
