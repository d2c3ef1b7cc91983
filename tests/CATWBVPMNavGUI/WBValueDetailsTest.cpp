#include "WBValueDetails.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBValueDetailsTest : public PanelSession
{
protected:
    /// Asks and keeps what the diagnostic error stream hears.
    WBValueDetails Ask(WBDetailsOf what = WBDetailsOf::StoredValues)
    {
        errors.clear();
        const CATLineStream::Listener before = CATDiagnosticErrors().SetListener(
            [this](std::string_view line) { errors.emplace_back(line); });
        WBValueDetails details = WBAskValueDetails(what, "1|I|P|A|");
        CATDiagnosticErrors().SetListener(before);
        return details;
    }

    std::vector<std::string> errors;
};

/// Everything that an answer can hold, each figure another one.
const char* const kWhole =
    "Firewall|2|"
    "Computed|4|3|0|Calculated|__null__|0|"
    "__null__|__null__|__null__|__null__|__null__|__null__|__null__|__null__|__null__|__null__|"
    "__null__|__null__|__null__|__null__|__null__|__null__|__null__|"
    "Weighed|1|2|3|Supplier|Calculated|2|"
    "0.01|1|2|3|4|5|6|7|8|9|"
    "Report 12|2026/03/02|mueller|after painting|30.5|20.25|10|"
    "187|1|12.5|3|"
    "2|WING|95.5|__null__|1.5|"
    "1|Calculated|97|"
    "4.25|"
    "1|Estimated|1|2|3|4|5|6|7|8|9|10|11|12|"
    "21|22|23|24|25|26|27|28|29|30|31|32|"
    "-20|-20|-20|-20|-20|-20|__null__|-20|-20|-20|-20|-20|"
    "1|0.5|1|2|3|4|5|6|7|8|9|0.35|"
    "2|1 of 187 items has no mass|Placard has no inertia|";

} // namespace

TEST_F(WBValueDetailsTest, RequestSaysOfWhichValuesThenWhatIsComputed)
{
    Ask(WBDetailsOf::StoredValues);
    Ask(WBDetailsOf::Computation);
    EXPECT_THAT(server->calls,
                ElementsAre("WBGetValueDetails: 0|1|I|P|A|", "WBGetValueDetails: 1|1|I|P|A|"));
}

TEST_F(WBValueDetailsTest, AnswerTellsWhereTheFiguresOfEachSetComeFrom)
{
    server->details = kWhole;
    const WBValueDetails details = Ask();
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_EQ(details.partName, "Firewall");
    ASSERT_EQ(details.sets.size(), 2U);
    const WBSetDetails& computed = details.sets[0];
    EXPECT_EQ(computed.massType, "Computed");
    EXPECT_EQ(computed.mass, WBOrigin::SummedUp);
    EXPECT_EQ(computed.centre, WBOrigin::Lent);
    EXPECT_EQ(computed.inertia, WBOrigin::Unknown);
    EXPECT_EQ(computed.centreLender, "Calculated");
    EXPECT_EQ(computed.inertiaLender, "");
    EXPECT_EQ(computed.precision, WBPrecisionOrigin::None);
    EXPECT_FALSE(computed.sigmas[0].has_value());
    EXPECT_EQ(computed.source, "");
    EXPECT_FALSE(computed.principalMoments[0].has_value());
    const WBSetDetails& weighed = details.sets[1];
    EXPECT_EQ(weighed.mass, WBOrigin::Stated);
    EXPECT_EQ(weighed.centre, WBOrigin::SizeTimesDensity);
    EXPECT_EQ(weighed.inertia, WBOrigin::Lent);
    EXPECT_EQ(weighed.centreLender, "Supplier");
    EXPECT_EQ(weighed.inertiaLender, "Calculated");
    EXPECT_EQ(weighed.precision, WBPrecisionOrigin::Default);
    EXPECT_THAT(weighed.sigmas, ElementsAre(0.01, 1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(weighed.source, "Report 12");
    EXPECT_EQ(weighed.sourceDate, "2026/03/02");
    EXPECT_EQ(weighed.author, "mueller");
    EXPECT_EQ(weighed.note, "after painting");
    EXPECT_THAT(weighed.principalMoments, ElementsAre(30.5, 20.25, 10));
}

TEST_F(WBValueDetailsTest, AnswerTellsWhatTheSumCoversAndIsMadeOf)
{
    server->details = kWhole;
    const WBValueDetails details = Ask();
    ASSERT_TRUE(details.coverage.has_value());
    EXPECT_EQ(details.coverage->leaves, 187);
    EXPECT_EQ(details.coverage->leavesWithoutMass, 1);
    EXPECT_EQ(details.coverage->massWithoutCentre, 12.5);
    EXPECT_EQ(details.coverage->massWithoutInertia, 3);
    ASSERT_EQ(details.codes.size(), 2U);
    EXPECT_EQ(details.codes[0].name, "WING");
    EXPECT_EQ(details.codes[0].mass, 95.5);
    EXPECT_EQ(details.codes[1].name, "");
    ASSERT_EQ(details.massTypes.size(), 1U);
    EXPECT_EQ(details.massTypes[0].name, "Calculated");
    EXPECT_EQ(details.massTypes[0].mass, 97);
    EXPECT_EQ(details.growthAllowance, 4.25);
    EXPECT_THAT(details.warnings, ElementsAre(CATUnicodeString("1 of 187 items has no mass"),
                                              CATUnicodeString("Placard has no inertia")));
}

TEST_F(WBValueDetailsTest, AnswerTellsOwnBelowAndDifferenceAndTheUncertaintyOfTheSum)
{
    server->details = kWhole;
    const WBValueDetails details = Ask();
    ASSERT_TRUE(details.imposed.has_value());
    EXPECT_EQ(details.imposed->massType, "Estimated");
    EXPECT_THAT(details.imposed->own, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    EXPECT_THAT(details.imposed->below,
                ElementsAre(21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32));
    EXPECT_EQ(details.imposed->difference[5], -20);
    EXPECT_FALSE(details.imposed->difference[6].has_value());
    ASSERT_TRUE(details.uncertainty.has_value());
    EXPECT_THAT(details.uncertainty->sigmas, ElementsAre(0.5, 1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(details.uncertainty->shareUnstated, 0.35);
}

TEST_F(WBValueDetailsTest, WhatTheAnswerLeavesOutIsNotThere)
{
    server->details = DetailsSaid{"Firewall"}.Text();
    const WBValueDetails details = Ask();
    EXPECT_EQ(details.partName, "Firewall");
    EXPECT_TRUE(details.coverage.has_value());
    EXPECT_FALSE(details.imposed.has_value());
    EXPECT_FALSE(details.uncertainty.has_value());
    EXPECT_THAT(details.sets, IsEmpty());
    EXPECT_THAT(details.warnings, IsEmpty());
}

TEST_F(WBValueDetailsTest, NumbersHaveAPointWhateverTheUsersLanguage)
{
    ASSERT_TRUE(CATUseNumberLocale("de_DE.UTF-8"));
    server->details = kWhole;
    EXPECT_EQ(Ask().growthAllowance, 4.25);
}

TEST_F(WBValueDetailsTest, MassTypeIsFoundByItsExactName)
{
    WBValueDetails details;
    details.sets.resize(2);
    details.sets[1].massType = "Weighed";
    EXPECT_EQ(details.Of("Weighed"), &details.sets[1]);
    EXPECT_EQ(details.Of("weighed"), nullptr);
}

TEST_F(WBValueDetailsTest, AnswerThatDoesNotComeIsToldAndClaimsNothing)
{
    const WBValueDetails details = Ask();
    EXPECT_EQ(details.partName, "");
    EXPECT_FALSE(details.coverage.has_value());
    EXPECT_THAT(errors, ElementsAre("The server does not tell which values are known: "));
}

TEST_F(WBValueDetailsTest, WithoutAServerNothingIsClaimed)
{
    CATSetServerCaller(nullptr);
    EXPECT_FALSE(Ask().coverage.has_value());
    ASSERT_FALSE(errors.empty());
    EXPECT_EQ(errors.back(), "The server does not tell which values are known: ");
}

TEST_F(WBValueDetailsTest, ServersErrorIsToldAndClaimsNothing)
{
    server->details = "#WB_ERROR#The part FUS-110 is not known.";
    EXPECT_EQ(Ask().partName, "");
    EXPECT_THAT(errors, ElementsAre("The server does not tell which values are known: "
                                    "#WB_ERROR#The part FUS-110 is not known."));
}

TEST_F(WBValueDetailsTest, AnswerIsReadWholeOrNotAtAll)
{
    const std::string whole = kWhole;
    ASSERT_TRUE(WBReadValueDetails(whole).has_value());
    // Every answer that ends before its last field, and one that goes on behind it.
    for (std::size_t end = whole.find('|'); end + 1 < whole.size();
         end = whole.find('|', end + 1)) {
        EXPECT_FALSE(WBReadValueDetails(whole.substr(0, end + 1)).has_value()) << end;
    }
    EXPECT_FALSE(WBReadValueDetails("").has_value());
    EXPECT_FALSE(WBReadValueDetails(whole + "more|").has_value());
}

TEST_F(WBValueDetailsTest, FieldThatIsNotWhatItShouldBeMakesTheAnswerUnreadable)
{
    const DetailsSaid good{"Firewall", {{"Calculated", "1|1|1|"}}};
    ASSERT_TRUE(WBReadValueDetails(good.Text()).has_value());
    const auto isRead = [&good](const auto& change) {
        DetailsSaid changed = good;
        change(changed);
        return WBReadValueDetails(changed.Text()).has_value();
    };
    for (const char* origins : {"5|1|1|", "1|-1|1|", "1|1|x|", "1|1||", "1|1|1x|", "01x|1|1|"}) {
        EXPECT_FALSE(isRead([&](DetailsSaid& said) { said.sets[0].origins = origins; })) << origins;
    }
    for (const char* precision : {"3|", "|", "-1|"}) {
        EXPECT_FALSE(isRead([&](DetailsSaid& said) { said.sets[0].precision = precision; }));
    }
    for (const char* coverage :
         {"__null__|0|0|0|", "1|x|0|0|", "1|0|0,5|0|", "1|0|0|inf|", "1|0|0|nan|", "1|0|0|1 kg|"}) {
        EXPECT_FALSE(isRead([&](DetailsSaid& said) { said.coverage = coverage; })) << coverage;
    }
    for (const char* codes : {"-1|", "x|", "1|WING|", "1|WING|__null__|", "2000000000|WING|1|",
                              "0|WING|1|", "1|WING|1|FUEL|1|"}) {
        EXPECT_FALSE(isRead([&](DetailsSaid& said) { said.codes = codes; })) << codes;
    }
    EXPECT_FALSE(isRead([](DetailsSaid& said) { said.imposed = "2|"; }));
    EXPECT_FALSE(isRead([](DetailsSaid& said) { said.imposed = "1|Estimated|1|2|3|"; }));
    EXPECT_FALSE(isRead([](DetailsSaid& said) { said.uncertainty = "yes|"; }));
    EXPECT_FALSE(isRead([](DetailsSaid& said) { said.warnings = "2|one|"; }));
    EXPECT_TRUE(isRead([](DetailsSaid& said) { said.growth = "__null__|"; }));
}
