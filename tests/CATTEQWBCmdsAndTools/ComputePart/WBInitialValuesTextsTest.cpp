#include "WBInitialValuesTexts.h"

#include "../ModuleSession.h"

#include <gtest/gtest.h>

namespace
{

WBInstanceIdentity Read(const char* answer, bool expected = true)
{
    const SilentStreams silent;
    WBInstanceIdentity identity;
    identity.rootIdentifier = "LA1";
    EXPECT_EQ(WBReadObjectRecord(answer, identity), expected);
    return identity;
}

} // namespace

TEST(WBInitialValuesTexts, ObjectServiceInputEndsEveryFieldWithASeparator)
{
    EXPECT_EQ(WBObjectServiceInput("LA1", "NoConfig", "FUS-110", "---"),
              "LA1|NoConfig|FUS-110|---|");
}

TEST(WBInitialValuesTexts, RecordTellsLeafInstancePartVersionAndPath)
{
    const WBInstanceIdentity identity =
        Read("0|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|Firewall");
    EXPECT_TRUE(identity.isLeaf);
    EXPECT_EQ(identity.instance, "FUS-110.1");
    EXPECT_EQ(identity.part, "FUS-110");
    EXPECT_EQ(identity.version, "A");
    EXPECT_EQ(identity.countText, "2");
    EXPECT_TRUE(identity.hasPath);
    EXPECT_EQ(identity.path, "FUS-100.1|FUS-000.1");
}

TEST(WBInitialValuesTexts, RecordThatBeginsWithOneIsNoLeaf)
{
    EXPECT_FALSE(Read("1|I|P|A|0").isLeaf);
}

TEST(WBInitialValuesTexts, RecordThatTellsNoLeafFlagIsRefusedWithALine)
{
    for (const char* answer : {"", "2|I|P|A|0", "yes|I|P|A|0", "01|I|P|A|0", " 1|I|P|A|0"}) {
        const DiagnosticCapture errors(CATDiagnosticErrors());
        WBInstanceIdentity identity;
        EXPECT_FALSE(WBReadObjectRecord(answer, identity)) << answer;
        EXPECT_THAT(errors.Lines(), testing::ElementsAre(
                                        "Unable to tell if the current instance is a leaf or not!"))
            << answer;
    }
}

TEST(WBInitialValuesTexts, CountOfZeroOrLessOrNoNumberMeansNoPathAndTravelsAsItCame)
{
    for (const char* count : {"0", "-1", "abc", ""}) {
        const WBInstanceIdentity identity =
            Read((std::string("0|I|P|A|") + count + "|SUB").c_str());
        EXPECT_FALSE(identity.hasPath) << count;
        EXPECT_EQ(identity.path, "") << count;
        EXPECT_EQ(identity.countText, count);
    }
}

TEST(WBInitialValuesTexts, NamesThatTheRecordLacksAreEmpty)
{
    // Past the end of a record every field is empty; five separators could end as many fields.
    EXPECT_EQ(Read("0|I|P|A|5|SUB").path, "SUB||||");
    Read("0|I|P|A|6|SUB", false);
}

TEST(WBInitialValuesTexts, LaterRecordLeavesNothingOfTheOneBefore)
{
    WBInstanceIdentity identity = Read("0|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|Firewall");
    EXPECT_TRUE(WBReadObjectRecord("1|I|P|B|1|SUB|Name", identity));
    EXPECT_FALSE(identity.isLeaf);
    EXPECT_EQ(identity.path, "SUB");
    EXPECT_TRUE(WBReadObjectRecord("0|I|P|B|0|Name", identity));
    EXPECT_FALSE(identity.hasPath);
    EXPECT_EQ(identity.path, "");
}

TEST(WBInitialValuesTexts, CountBeyondTheRecordIsRefusedWithALine)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    WBInstanceIdentity identity;
    EXPECT_FALSE(WBReadObjectRecord("0|I|P|A|2000000000|SUB", identity));
    EXPECT_THAT(
        errors.Lines(),
        testing::ElementsAre("The instance path is announced longer than it is: 2000000000"));
}

TEST(WBInitialValuesTexts, NavigatorRequestCarriesPathBehindItsCount)
{
    EXPECT_EQ(WBInitialValuesRequest(Read("0|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|Firewall")),
              "1||LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1");
}

TEST(WBInitialValuesTexts, NavigatorRequestWithoutPathEndsWithTheCount)
{
    EXPECT_EQ(WBInitialValuesRequest(Read("1|FUS-000.1|FUS-000|A|0|Fuselage")),
              "1||LA1|FUS-000.1|FUS-000|A|0");
}

TEST(WBInitialValuesTexts, ProductPathReplacesInstanceAndPathOfTheRecord)
{
    WBInstanceIdentity identity = Read("0|other|FUS-110|A|1|elsewhere");
    identity.hasInstance = false;
    WBTakeProductPath(4, "FUS-110.1", "FUS-100.1|FUS-000.1", identity);
    EXPECT_EQ(WBInitialValuesRequest(identity), "0||LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1");
    EXPECT_EQ(WBInitialValuesStream(identity, "ANSWER"),
              "0|FUS-110.1|FUS-110|A|LA1|2|FUS-100.1|FUS-000.1|ANSWER");
}

TEST(WBInitialValuesTexts, ProductBelowTheRootSendsAnEmptyPathAndDecodesNone)
{
    WBInstanceIdentity identity = Read("1|other|FUS-000|A|1|elsewhere");
    identity.hasInstance = false;
    WBTakeProductPath(2, "FUS-000.1", "", identity);
    EXPECT_EQ(WBInitialValuesRequest(identity), "0||LA1|FUS-000.1|FUS-000|A|0|");
    EXPECT_EQ(WBInitialValuesStream(identity, "ANSWER"), "0|FUS-000.1|FUS-000|A|LA1|0|ANSWER");
}

TEST(WBInitialValuesTexts, NavigatorStreamCarriesThePathOnlyWhenItsCountIsAboveZero)
{
    EXPECT_EQ(WBInitialValuesStream(Read("0|I|P|A|1|SUB"), "ANSWER"), "1|I|P|A|LA1|1|SUB|ANSWER");
    EXPECT_EQ(WBInitialValuesStream(Read("0|I|P|A|0"), "ANSWER"), "1|I|P|A|LA1|0|ANSWER");
}
