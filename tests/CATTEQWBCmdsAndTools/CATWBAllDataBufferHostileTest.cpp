#include "CATWBAllDataBuffer.h"

#include "CodecStreams.h"
#include "ModuleSession.h"
#include "WBFieldReader.h"

#include <rapidcheck.h>

#include <string>
#include <vector>

// Whatever a server sends, the session survives it: what is wrong ends in the fatal error's handler
// or in a record.

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

/// Reads a stream by both operations and both layouts, and writes what was read.
void ReadAndWrite(const std::string& stream)
{
    for (const bool flag : {true, false}) {
        CATWBAllDataBuffer record;
        CATWBAllDataBuffer computed;
        try {
            record.SetAllData(stream, flag);
        } catch (const CATFatalError&) {
            // The record keeps what was read before; it is written all the same.
            SUCCEED();
        }
        try {
            computed.SetComputedData(stream, flag);
        } catch (const CATFatalError&) {
            SUCCEED();
        }
        CATUnicodeString written;
        record.GetAllData(written);
        record.GetComputedInfo(written);
        computed.GetAllData(written);
    }
}

class Hostile : public testing::Test
{
protected:
    const SilentStreams m_silent;
};

TEST_F(Hostile, StreamCutAnywhereIsSurvived)
{
    const std::string whole = kWorkedExample;
    for (const auto then : {FatalErrors::Then::Throw, FatalErrors::Then::GoOn}) {
        const FatalErrors errors(then);
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            ReadAndWrite(whole.substr(0, length));
        }
    }
}

TEST_F(Hostile, AnyBytesAreSurvived)
{
    for (const auto then : {FatalErrors::Then::Throw, FatalErrors::Then::GoOn}) {
        const FatalErrors errors(then);
        EXPECT_TRUE(rc::check([](const std::string& bytes) { ReadAndWrite(bytes); }));
    }
}

TEST_F(Hostile, AnyFieldsAreSurvived)
{
    for (const auto then : {FatalErrors::Then::Throw, FatalErrors::Then::GoOn}) {
        const FatalErrors errors(then);
        EXPECT_TRUE(rc::check([] {
            const auto fields =
                *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
                    "0", "1", "2", "-1", "2147483647", "-2147483648", "", "x", "0.5", "nan", "inf",
                    "__null__", "Computed", "99999999999999999999", "1e999"));
            std::string stream;
            for (const std::string& field : fields) {
                stream += field + "|";
            }
            ReadAndWrite(stream);
        }));
    }
}

TEST_F(Hostile, AnyFieldOfAGoodStreamMayBeReplaced)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    std::vector<std::string> fields;
    for (CATWBToken token{kWorkedExample}; !token.IsAtEnd();) {
        fields.emplace_back(token.NextView());
    }
    for (std::size_t replaced = 0; replaced < fields.size(); ++replaced) {
        for (const char* by : {"2000000000", "-2000000000", "x", ""}) {
            std::string stream;
            for (std::size_t index = 0; index < fields.size(); ++index) {
                stream += (index == replaced ? std::string(by) : fields[index]) + "|";
            }
            ReadAndWrite(stream);
        }
    }
}

TEST_F(Hostile, MissingTextsAreEmptyAndMissingRealsZero)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    CATWBAllDataBuffer record;
    record.SetAllData(std::string(kIdentification) + "3|A.1|d|u", true);
    EXPECT_EQ(record.GetVersionCount(), 3);
    const std::vector<std::vector<const char*>> expected{
        {"A.1", "d", "u", "", "", "0"}, {"", "", "", "", "", "0"}, {"", "", "", "", "", "0"}};
    for (int position = 1; position <= 3; ++position) {
        for (int what = 0; what < 6; ++what) {
            CATUnicodeString text;
            record.GetDocRevsInfo(position, static_cast<ENOWBAllDataBuffer::DocInfo>(what), text);
            EXPECT_EQ(
                text,
                expected[static_cast<std::size_t>(position) - 1][static_cast<std::size_t>(what)]);
        }
    }
    // The number of mass types is the first integer that is missing.
    ASSERT_FALSE(errors.Raised().empty());
    EXPECT_EQ(errors.Raised()[0].Line(), 43);
}

TEST_F(Hostile, MissingIntegerIsFatal)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    CATWBAllDataBuffer record;
    EXPECT_THROW(record.SetAllData("", true), CATFatalError);
    EXPECT_THROW(record.SetAllData("", false), CATFatalError);
    EXPECT_THROW(record.SetAllData("0|I|P|A|R|x|", true), CATFatalError);
    CATUnicodeString part;
    record.GetCurrentPartID(part);
    EXPECT_EQ(part, "P");
}

TEST_F(Hostile, EmptyComputationReadsAsZeroValues)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetComputedData("", true), S_OK);
    CATRawColldouble transformation;
    record.GetListOfTransMatrix(transformation);
    EXPECT_EQ(transformation.Items(), std::vector<double>(12, 0.0));
}

TEST_F(Hostile, RealThatIsNoneIsFatal)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    CATWBAllDataBuffer record;
    EXPECT_THROW(record.SetComputedData("1|2|x|", true), CATFatalError);
    EXPECT_EQ(errors.Raised()[0].Line(), 61);
}

TEST_F(Hostile, HandlerThatReturnsMeansGoOnWithZero)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    CATWBAllDataBuffer record;
    ServerStream stream;
    stream.priority = "x|y|";
    EXPECT_EQ(record.SetAllData(stream.Full(), true), S_OK);
    EXPECT_EQ(errors.Raised().size(), 2U);
    bool upToDate = true;
    record.GetUpToDateFlag(upToDate);
    EXPECT_FALSE(upToDate);
    EXPECT_EQ(record.GetExtraPropsCount(), 1);
}

// Announced lengths that the stream cannot hold

constexpr int kKept = WBFieldReader::kCompletedEntries;

TEST_F(Hostile, GiantNumberOfRevisionsIsBoundedAndTold)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    const DiagnosticCapture heard;
    CATWBAllDataBuffer record;
    record.SetAllData(std::string(kIdentification) + "2000000000|A.1|d|u|v|M|5|", true);
    EXPECT_EQ(record.GetVersionCount(), kKept);
    EXPECT_THAT(heard.Lines(),
                testing::Contains("Error! The stream announces 2000000000 document revisions but "
                                  "holds fewer: 1000 are kept"));
}

TEST_F(Hostile, GiantNumberOfMassTypesIsBoundedAndTold)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    const DiagnosticCapture heard;
    CATWBAllDataBuffer record;
    record.SetAllData("2000000000|A|0|0|0|0|", false);
    CATListValCATUnicodeString massTypes;
    record.GetMassTypes(massTypes);
    EXPECT_EQ(massTypes.Size(), kKept);
    EXPECT_THAT(heard.Lines(),
                testing::Contains("Error! The stream announces 2000000000 mass types but holds "
                                  "fewer: 1000 are kept"));
}

TEST_F(Hostile, GiantDepthIsBoundedAndTold)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    const DiagnosticCapture heard;
    CATWBAllDataBuffer record;
    record.SetAllData("0|I|P|A|R|2000000000|E1|E2|", true);
    EXPECT_EQ(record.GetInstancePathDepth(), kKept);
    EXPECT_EQ(record.GetInstancePath(), "E1|E2" + std::string(kKept - 2, '|'));
    EXPECT_THAT(heard.Lines(),
                testing::Contains("Error! The stream announces 2000000000 path elements but holds "
                                  "fewer: 1000 are kept"));
}

TEST_F(Hostile, GiantNumberOfStatisticsIsBoundedAndTold)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    const DiagnosticCapture heard;
    CATWBAllDataBuffer record;
    ServerStream stream;
    stream.statistics = "2000000000|Steel";
    stream.transformation.clear();
    stream.properties.clear();
    record.SetAllData(stream.Full(), true);
    CATListValCATUnicodeString names;
    CATRawColldouble reals;
    CATRawCollint integers;
    record.GetWBMatStatInfo(names, reals, integers);
    // What is missing is one entry of nothing, as often as it may be announced.
    EXPECT_EQ(names, (CATListValCATUnicodeString{"Steel", ""}));
    EXPECT_THAT(heard.Lines(),
                testing::Contains("Error! The stream announces 2000000000 material statistics but "
                                  "holds fewer: 1000 are kept"));
}

TEST_F(Hostile, GiantNumberOfDiscardedPairsIsReadPast)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetComputedData("1|2|3|4|5|6|7|8|9|10|11|12|0|2000000000|Steel|5|", true),
              S_OK);
}

TEST_F(Hostile, GiantNumberOfPropertiesIsBoundedAndTold)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    const DiagnosticCapture heard;
    CATWBAllDataBuffer record;
    ServerStream stream;
    stream.properties = "2000000000|Customer|1|0|Part|CUST-01|__null__|";
    record.SetAllData(stream.Full(), true);
    EXPECT_EQ(record.GetExtraPropsCount(), kKept);
    EXPECT_THAT(heard.Lines(),
                testing::Contains("Error! The stream announces 2000000000 extra properties but "
                                  "holds fewer: 1000 are kept"));
}

TEST_F(Hostile, LongListOfPropertiesThatEndsBetweenTwoIsFatalToo)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    ServerStream stream;
    stream.properties = std::to_string(kKept + 2) + "|";
    for (int number = 0; number < kKept + 1; ++number) {
        stream.properties += "n|1|0|Part|v|m|";
    }
    CATWBAllDataBuffer record;
    EXPECT_THROW(record.SetAllData(stream.Full(), true), CATFatalError);
    ASSERT_EQ(errors.Raised().size(), 1U);
    EXPECT_EQ(errors.Raised()[0].Line(), 43);
}

TEST_F(Hostile, LongListOfStatisticsThatIsCutEndsWithOneEntryOfNothing)
{
    const FatalErrors errors(FatalErrors::Then::GoOn);
    std::string answer = "1|2|3|4|5|6|7|8|9|10|11|12|" + std::to_string(2 * kKept) + "|";
    for (int number = 0; number < kKept + 1; ++number) {
        answer += "n" + std::to_string(number) + "|";
    }
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetComputedData(answer, true), S_OK);
    CATListValCATUnicodeString names;
    CATRawColldouble reals;
    CATRawCollint integers;
    record.GetWBMatStatInfo(names, reals, integers);
    ASSERT_EQ(names.Size(), kKept + 2);
    EXPECT_EQ(names[kKept + 1], "n1000");
    EXPECT_EQ(names[kKept + 2], "");
    EXPECT_EQ(reals[kKept + 2], 0.0);
    EXPECT_EQ(integers[kKept + 2], 0);
    EXPECT_TRUE(errors.Raised().empty());
}

TEST_F(Hostile, LongListOfTheShortestMassTypesIsReadWhole)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    constexpr int kMany = 3 * kKept;
    ServerStream stream;
    stream.massTypes = std::to_string(kMany) + "|";
    for (int number = 0; number < kMany; ++number) {
        stream.massTypes += "|0|0|||";
    }
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetAllData(stream.Full(), true), S_OK);
    CATListValCATUnicodeString names;
    record.GetMassTypes(names);
    EXPECT_EQ(names.Size(), kMany);
    EXPECT_EQ(record.GetExtraPropsCount(), 1);
}

TEST_F(Hostile, LongListThatTheStreamHoldsIsReadWhole)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    const DiagnosticCapture heard;
    constexpr int kMany = 3 * kKept;
    ServerStream stream;
    stream.revisions = std::to_string(kMany) + "|";
    stream.massTypes = std::to_string(kMany) + "|";
    stream.statistics = std::to_string(kMany) + "|";
    stream.properties = std::to_string(kMany) + "|";
    std::string pairs;
    for (int number = 0; number < kMany; ++number) {
        const std::string name = "n" + std::to_string(number);
        stream.revisions += name + "|d|u|v|M|1|";
        stream.massTypes += name + "|0|0|||";
        stream.statistics += name + "|";
        pairs += "3|1|";
        stream.properties += name + "|1|0|Part|v|m|";
    }
    stream.statistics += pairs + std::string(kMany, '|');
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetAllData(stream.Full(), true), S_OK);
    EXPECT_EQ(record.GetVersionCount(), kMany);
    EXPECT_EQ(record.GetExtraPropsCount(), kMany);
    CATListValCATUnicodeString names;
    record.GetMassTypes(names);
    EXPECT_EQ(names.Size(), kMany);
    CATRawColldouble reals;
    CATRawCollint integers;
    record.GetWBMatStatInfo(names, reals, integers);
    EXPECT_EQ(names.Size(), kMany);
    CATUnicodeString text;
    record.GetDocRevsInfo(kMany, ENOWBAllDataBuffer::Version, text);
    EXPECT_EQ(text, "n2999");
    EXPECT_THAT(heard.Lines(), testing::Not(testing::Contains(testing::HasSubstr("Error!"))));
}

TEST_F(Hostile, NegativeNumbersOfEntriesMeanNone)
{
    const FatalErrors errors(FatalErrors::Then::Throw);
    ServerStream stream;
    stream.revisions = "-2|";
    stream.massTypes = "-2|";
    stream.statistics = "-2|";
    stream.properties = "-2|";
    CATWBAllDataBuffer record;
    EXPECT_EQ(record.SetAllData(stream.Full(), true), S_OK);
    EXPECT_EQ(record.GetVersionCount(), -2);
    record.SetMass("Computed", 1.0);
    CATUnicodeString written;
    EXPECT_EQ(record.GetAllData(written), S_OK);
}

} // namespace
