#include "WBStatedValues.h"

#include "PanelSession.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class WBStatedValuesTest : public PanelSession
{
protected:
    WBStatedValues Ask()
    {
        errors.clear();
        const CATLineStream::Listener before = CATDiagnosticErrors().SetListener(
            [this](std::string_view line) { errors.emplace_back(line); });
        WBStatedValues values = WBAskStatedValues(*RecordOf(FirewallStream()));
        CATDiagnosticErrors().SetListener(before);
        return values;
    }

    std::vector<std::string> errors;
};

const char* const kWhole = "Wing|1|0|12|2|2|Aluminium|Steel|1|7|3|"
                           "PartRef|Weighed|centre|1;-2.5;3|1;-2;3|1|1|ANNA|2026/11/21 19:00:00|"
                           "PartInst|__null__|density|__null__|7850|1|0|__null__|__null__|"
                           "PartRef|__null__|property Note|3; 4|3; 4|0|0|__null__|__null__|";

} // namespace

TEST_F(WBStatedValuesTest, AnswerIsReadFieldByField)
{
    const std::optional<WBStatedValues> values = WBReadStatedValues(kWhole);
    ASSERT_TRUE(values.has_value());
    EXPECT_EQ(values->partName, "Wing");
    EXPECT_TRUE(values->isLeaf);
    EXPECT_FALSE(values->isStandardPart);
    EXPECT_EQ(values->places, 12);
    EXPECT_EQ(values->otherRoots, 2);
    EXPECT_THAT(values->materials, ElementsAre("Aluminium", "Steel"));
    EXPECT_TRUE(values->hasOwnSets);
    EXPECT_EQ(values->pendingNumber, 7);
    ASSERT_EQ(values->quantities.size(), 3U);
    const WBStatedQuantity& centre = values->quantities[0];
    EXPECT_EQ(centre.owner, "PartRef");
    EXPECT_EQ(centre.massType, "Weighed");
    EXPECT_EQ(centre.name, "centre");
    EXPECT_EQ(centre.text, "1;-2.5;3");
    EXPECT_EQ(centre.stored, "1;-2;3");
    EXPECT_TRUE(centre.isPending);
    EXPECT_TRUE(centre.isInConflict);
    EXPECT_EQ(centre.by, "ANNA");
    EXPECT_EQ(centre.at, "2026/11/21 19:00:00");
    const WBStatedQuantity& density = values->quantities[1];
    EXPECT_EQ(density.massType, "");
    EXPECT_EQ(density.text, "");
    EXPECT_EQ(density.stored, "7850");
    EXPECT_TRUE(density.isPending);
    EXPECT_FALSE(density.isInConflict);
    EXPECT_EQ(density.by, "");
    EXPECT_EQ(density.at, "");
    EXPECT_EQ(values->quantities[2].text, "3; 4");
}

TEST_F(WBStatedValuesTest, QuantityOfAUseGoesBeforeThatOfItsPart)
{
    const std::optional<WBStatedValues> values =
        WBReadStatedValues("Wing|1|1|1|0|0|0|0|4|"
                           "PartRef|__null__|density|1|1|0|0|__null__|__null__|"
                           "PartInst|__null__|density|2|2|0|0|__null__|__null__|"
                           "PartRef|Weighed|mass|3|3|0|0|__null__|__null__|"
                           "PartRef|__null__|material|Steel|Steel|0|0|__null__|__null__|");
    ASSERT_TRUE(values.has_value());
    EXPECT_TRUE(values->isStandardPart);
    EXPECT_EQ(values->Find("", "density")->text, "2");
    EXPECT_EQ(values->Find("PartRef", "", "density")->text, "1");
    EXPECT_EQ(values->Find("PartInst", "", "density")->text, "2");
    EXPECT_EQ(values->Find("Weighed", "mass")->text, "3");
    EXPECT_EQ(values->Find("PartInst", "", "material"), nullptr);
    EXPECT_EQ(values->Find("", "mass"), nullptr);
    EXPECT_EQ(values->Find("Weighed", "centre"), nullptr);
}

TEST_F(WBStatedValuesTest, AnswerThatIsCutAnywhereIsNone)
{
    const std::string whole = kWhole;
    for (std::size_t end = 0; end < whole.size(); ++end) {
        if (whole[end] == '|' && end + 1 < whole.size()) {
            EXPECT_FALSE(WBReadStatedValues(whole.substr(0, end + 1))) << whole.substr(0, end + 1);
        }
    }
    EXPECT_FALSE(WBReadStatedValues(""));
    EXPECT_FALSE(WBReadStatedValues(whole + "more|"));
    EXPECT_FALSE(WBReadStatedValues("#WB_ERROR#The field part of the request names nothing."));
}

TEST_F(WBStatedValuesTest, AnswerWithAFieldThatCannotBeIsNone)
{
    const std::string before = "Wing|1|0|12|2|0|0|0|";
    const std::string line = "PartRef|Weighed|mass|3|3|0|0|__null__|__null__|";
    EXPECT_TRUE(WBReadStatedValues(before + "1|" + line));
    for (const std::string& damaged : {
             "Wing|2|0|12|2|0|0|0|1|" + line,   // leaf
             "Wing|1|x|12|2|0|0|0|1|" + line,   // standard part
             "Wing|1|0|-1|2|0|0|0|1|" + line,   // places
             "Wing|1|0|12|two|0|0|0|1|" + line, // other roots
             "Wing|1|0|12|2|-1|0|0|1|" + line,  // materials
             "Wing|1|0|12|2|9999999|0|0|1|" + line,
             "Wing|1|0|12|2|0|7|0|1|" + line,   // own sets
             "Wing|1|0|12|2|0|0|1.5|1|" + line, // pending number
             before + "2|" + line,
             before + "0|" + line,
             before + "1|Part|Weighed|mass|3|3|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|abc|3|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|3|3,5|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|3;4|3|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|inf|3|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|centre|1;2|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|centre|1;;2|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|inertia|1;2;3|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|precision|much;2;3|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|precision|percent;2|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|precision|percent;a;2|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|__null__|density|x|__null__|0|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|3|3|2|0|__null__|__null__|",
             before + "1|PartRef|Weighed|mass|3|3|0||__null__|__null__|",
         }) {
        EXPECT_FALSE(WBReadStatedValues(damaged)) << damaged;
    }
}

TEST_F(WBStatedValuesTest, PlaceNamesInstancePartPathAndRoot)
{
    EXPECT_EQ(WBPlaceOf(*RecordOf(FirewallStream())),
              "1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|LA1|");
    const RecordHandle root = RecordHandle::Adopt(new CATWBAllDataBuffer);
    root->SetCurrentPartID("LA1");
    root->SetCurrentPartVersion("B");
    root->SetCurrentPRCID("LA1");
    root->SetInstancePathDepth(-1);
    EXPECT_EQ(WBPlaceOf(*root), "0||LA1|B|0|LA1|");
}

TEST_F(WBStatedValuesTest, ServerIsAskedForThePlaceAndForItsGoals)
{
    server->answers["WBGetStatedValues"] = kWhole;
    server->answers["WBListMassTypes"] =
        "2|Target|0|goal|__null__|0|0|aim|Weighed|30|claim|actual|-0.5|0.5|__null__|";
    const WBStatedValues values = Ask();
    EXPECT_THAT(errors, IsEmpty());
    EXPECT_THAT(server->calls,
                ElementsAre("WBGetStatedValues: 1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|LA1|",
                            "WBListMassTypes: "));
    EXPECT_EQ(values.quantities.size(), 3U);
    EXPECT_THAT(values.goals, ElementsAre("Target"));
    server->answers["WBListMassTypes"] = "2|Target|0|goal|__null__|0|0|aim|";
    EXPECT_THAT(Ask().goals, IsEmpty());
}

TEST_F(WBStatedValuesTest, AnswerThatCannotBeReadIsToldAndStatesNothing)
{
    server->answers["WBGetStatedValues"] = "Wing|1|";
    EXPECT_THAT(Ask().quantities, IsEmpty());
    EXPECT_THAT(errors, ElementsAre("The server does not tell which values are stated: Wing|1|"));
    EXPECT_EQ(server->calls.size(), 1U); // nobody asks for goals of nothing
}
