#include "WBValueDetails.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBValueDetailsTest : public PanelSession
{
protected:
    /// Asks about the record and keeps what the diagnostic error stream hears.
    WBValueDetails Ask(const ENOWBAllDataBuffer& record)
    {
        errors.clear();
        const CATLineStream::Listener before = CATDiagnosticErrors().SetListener(
            [this](std::string_view line) { errors.emplace_back(line); });
        const WBValueDetails details = WBValueDetails::Ask(record);
        CATDiagnosticErrors().SetListener(before);
        return details;
    }

    std::vector<std::string> errors;
};

/// "101": mass and inertia are known, the centre is not.
std::string KnownOf(const WBValueDetails& details, const char* massType)
{
    const WBValueDetails::Known known = details.Of(massType);
    return std::string(known.mass ? "1" : "0") + (known.centre ? "1" : "0") +
           (known.inertia ? "1" : "0");
}

} // namespace

TEST_F(WBValueDetailsTest, RequestNamesRootInstancePartVersionAndPath)
{
    Ask(*RecordOf(FirewallStream()));
    EXPECT_THAT(server->calls,
                ElementsAre("WBGetValueDetails: LA1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|"));
}

TEST_F(WBValueDetailsTest, RequestOfAnInstanceJustBelowTheRootEndsWithTheCount)
{
    Ask(*RecordOf("1|I|P|A|ROOT|0|1|0|1|0|0|0|1|0|0|1|Calculated||0|0|1|0|0|"
                  "1|0|0|0|1|0|0|0|1|7|8|9|0|"));
    EXPECT_THAT(server->calls, ElementsAre("WBGetValueDetails: ROOT|I|P|A|0|"));
}

TEST_F(WBValueDetailsTest, GoodAnswerTellsNameAndKnownFigures)
{
    server->details = "Firewall|3|Estimated|1|0|0|Calculated|1|1|0|Weighed|0|0|1|";
    const WBValueDetails details = Ask(*RecordOf(FirewallStream()));
    EXPECT_EQ(details.PartName(), "Firewall");
    EXPECT_TRUE(details.Says("Estimated"));
    EXPECT_EQ(KnownOf(details, "Estimated"), "100");
    EXPECT_EQ(KnownOf(details, "Calculated"), "110");
    EXPECT_EQ(KnownOf(details, "Weighed"), "001");
    EXPECT_THAT(errors, IsEmpty());
}

TEST_F(WBValueDetailsTest, WhatTheServerDoesNotNameCountsAsKnown)
{
    server->details = "Firewall|1|Estimated|0|0|0|";
    const WBValueDetails details = Ask(*RecordOf(FirewallStream()));
    EXPECT_FALSE(details.Says("Calculated"));
    EXPECT_FALSE(details.Says("estimated"));
    EXPECT_EQ(KnownOf(details, "Calculated"), "111");
    EXPECT_EQ(KnownOf(details, "Estimated"), "000");
}

TEST_F(WBValueDetailsTest, AnswerThatDoesNotComeIsToldAndLeavesAllKnown)
{
    const WBValueDetails details = Ask(*RecordOf(FirewallStream()));
    EXPECT_EQ(details.PartName(), "");
    EXPECT_FALSE(details.Says("Calculated"));
    EXPECT_EQ(KnownOf(details, "Calculated"), "111");
    EXPECT_THAT(errors, ElementsAre("The server does not tell which values are known: "));
}

TEST_F(WBValueDetailsTest, WithoutAServerAllCountsAsKnown)
{
    CATSetServerCaller(nullptr);
    const WBValueDetails details = Ask(*RecordOf(FirewallStream()));
    EXPECT_EQ(KnownOf(details, "Calculated"), "111");
    ASSERT_FALSE(errors.empty());
    EXPECT_EQ(errors.back(), "The server does not tell which values are known: ");
}

TEST_F(WBValueDetailsTest, ServersErrorIsToldAndLeavesAllKnown)
{
    server->details = "#WB_ERROR#The part FUS-110 is not known.";
    const WBValueDetails details = Ask(*RecordOf(FirewallStream()));
    EXPECT_EQ(details.PartName(), "");
    EXPECT_THAT(errors, ElementsAre("The server does not tell which values are known: "
                                    "#WB_ERROR#The part FUS-110 is not known."));
}

TEST_F(WBValueDetailsTest, AnswerThatIsNotReadKeepsNothing)
{
    for (const char* answer : {
             "",
             "Firewall",
             "Firewall|",
             "Firewall|many|Calculated|0|0|0|",
             "Firewall||Calculated|0|0|0|",
             "Firewall|1|",                  // short
             "Firewall|1|Calculated|0|0|",   // short by a flag
             "Firewall|1|Calculated|2|0|0|", // wrong flags, one at a time
             "Firewall|1|Calculated|0|yes|0|",
             "Firewall|1|Calculated|0|0|-1|",
             "Firewall|1|Calculated|0|0|01|",
             "Firewall|2|Calculated|0|0|0|", // counts that lie
             "Firewall|2000000000|Calculated|0|0|0|",
             "Firewall|0|Calculated|0|0|0|",
             "Firewall|1|Calculated|0|0|0|Weighed|0|0|0|",
             "Firewall|-1|",
         }) {
        WBValueDetails details;
        EXPECT_FALSE(details.Read(answer)) << answer;
        EXPECT_EQ(details.PartName(), "") << answer;
        EXPECT_FALSE(details.Says("Calculated")) << answer;
    }
}

TEST_F(WBValueDetailsTest, AnswerThatIsNotReadLeavesTheOneBefore)
{
    WBValueDetails details;
    ASSERT_TRUE(details.Read("Firewall|1|Calculated|1|0|1|"));
    EXPECT_FALSE(details.Read("Seat|1|Weighed|0|0|"));
    EXPECT_EQ(details.PartName(), "Firewall");
    EXPECT_EQ(KnownOf(details, "Calculated"), "101");
    EXPECT_FALSE(details.Says("Weighed"));
}

TEST_F(WBValueDetailsTest, LaterAnswerReplacesTheOneBefore)
{
    WBValueDetails details;
    ASSERT_TRUE(details.Read("Firewall|1|Calculated|1|0|1|"));
    ASSERT_TRUE(details.Read("Seat|1|Weighed|0|0|0|"));
    EXPECT_EQ(details.PartName(), "Seat");
    EXPECT_FALSE(details.Says("Calculated"));
}

TEST_F(WBValueDetailsTest, AnswerWithoutMassTypesTellsTheName)
{
    WBValueDetails details;
    EXPECT_TRUE(details.Read("Firewall|0|"));
    EXPECT_EQ(details.PartName(), "Firewall");
    EXPECT_TRUE(details.Read("|1|Calculated|1|1|1"));
    EXPECT_EQ(details.PartName(), "");
    EXPECT_TRUE(details.Says("Calculated"));
}
