#include "WBPartComputation.h"

#include "CATWBVPMNavFilterPanel.h"
#include "CATWBVPMNavGUITable.h"
#include "PanelSession.h"

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using testing::ElementsAre;

class WBPartComputationTest : public PanelSession
{
protected:
    static CATUnicodeString RequestOf(const RecordHandle& record, const WBComputationChoice& choice)
    {
        WBFillChoices(*record, choice);
        return WBComputationRequest(*record, choice);
    }
};

const char* const kBareStream = "1|I|P|A|ROOT|0|1|0|1|0|0|0|1|0|0|1|Calculated||0|0|1|0|0|"
                                "1|0|0|0|1|0|0|0|1|7|8|9|0|";

/// An answer with those counts of materials and of mass types.
std::string Answer(int materials, int massTypes)
{
    std::string answer = "2|0.06|0.1|1|2|3|0.5|0.25|0.125|0.02|0.01|0.03|";
    answer += std::to_string(materials) + "|";
    for (int field = 0; field < 4 * materials; ++field) {
        answer += "3|";
    }
    answer += std::to_string(massTypes) + "|";
    for (int field = 0; field < 2 * massTypes; ++field) {
        answer += "3|";
    }
    return answer + "1|0|0|0|1|0|0|0|1|7|8|9|";
}

} // namespace

TEST_F(WBPartComputationTest, RequestIsHasInstanceInstanceAndTheRecordsOwn)
{
    EXPECT_EQ(RequestOf(RecordOf(FirewallStream()), {}),
              "1|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|1|Stainless steel 321|Active|0|0|LA1|"
              "0|No Filter|0|");
    const RecordHandle product = RecordOf(WideStream());
    EXPECT_TRUE(RequestOf(product, {}).View().starts_with("0|Instance-MMM"));
}

TEST_F(WBPartComputationTest, RequestOfAnInstanceJustBelowTheRootHasNoPath)
{
    EXPECT_EQ(RequestOf(RecordOf(kBareStream), {}),
              "1|I|P|A|0|0|__null__|Active|0|0|ROOT|0|No Filter|0|");
}

TEST_F(WBPartComputationTest, ChoicesTakeTheirPlacesInTheRequest)
{
    const RecordHandle record = RecordOf(kBareStream);
    WBComputationChoice choice;
    choice.entity = Definitions::Root;
    choice.precision = "MostPrecise";
    choice.storedSums = WBStoredSums::Force;
    choice.level = "3";
    EXPECT_EQ(RequestOf(record, choice),
              "1|I|P|A|0|0|__null__|MostPrecise|1|1|ROOT|0|No Filter|0|");
    choice.entity = Definitions::PartAlone;
    choice.precision = "Estimated";
    choice.storedSums = WBStoredSums::Assume;
    EXPECT_EQ(RequestOf(record, choice),
              "1|I|P|A|0|0|__null__|Estimated|2|3|2|ROOT|0|No Filter|0|");
}

TEST_F(WBPartComputationTest, MaterialCalledActiveIsNotTakenForThePrecision)
{
    const RecordHandle record = RecordOf(kBareStream);
    record->SetWBMaterialName("Active");
    WBComputationChoice choice;
    choice.precision = "Weighed";
    EXPECT_EQ(RequestOf(record, choice), "1|I|P|A|0|0|Active|Weighed|0|0|ROOT|0|No Filter|0|");
}

TEST_F(WBPartComputationTest, RecordHoldsEntityAndFilterOfItsRoot)
{
    CATWBVPMNavGUITable table;
    table.getFilter = [](const CATUnicodeString& root) {
        return "1|Of " + root + "|X|D.1|D|A|0";
    };
    const CATWBVPMNavGUITable before = CATWBVPMNavGUISetTable(table);
    const RecordHandle record = RecordOf(kBareStream);
    WBComputationChoice choice;
    choice.entity = Definitions::PartAlone;
    EXPECT_EQ(RequestOf(record, choice),
              "1|I|P|A|0|0|__null__|Active|0|2|ROOT|1|Of ROOT|X|D.1|D|A|0|0|");
    CATWBVPMNavGUISetTable(before);
    Definitions::Entity entity = Definitions::Root;
    record->GetEntityToCompute(entity);
    EXPECT_EQ(entity, Definitions::PartAlone);
    CATUnicodeString filter;
    record->GetCurrentPRCFilter(filter);
    EXPECT_EQ(filter, "1|Of ROOT|X|D.1|D|A|0");
}

TEST_F(WBPartComputationTest, StoredValuesAreAskedForWithoutTouchingTheRecord)
{
    const RecordHandle record = RecordOf(kBareStream);
    record->SetEntityToCompute(Definitions::Root);
    EXPECT_EQ(WBStoredValuesRequest(*record),
              "1|I|P|A|0|0|__null__|Active|0|0|ROOT|0|No Filter|0|");
    CATUnicodeString filter;
    record->GetCurrentPRCFilter(filter);
    EXPECT_EQ(filter, "");
}

TEST_F(WBPartComputationTest, LevelIsAWholeNumberFromNothing)
{
    for (const char* good : {"0", "3", "12", "007"}) {
        EXPECT_TRUE(WBIsLevel(good)) << good;
    }
    for (const char* bad : {"", " ", "-1", "1.5", "1,5", "two", "1|0", "3 ", "+1", "1234567890"}) {
        EXPECT_FALSE(WBIsLevel(bad)) << bad;
    }
}

TEST_F(WBPartComputationTest, AnswerHasAsManyFieldsAsItAnnounces)
{
    for (const auto& [materials, massTypes] : {std::pair(0, 0), {1, 0}, {0, 1}, {3, 2}}) {
        const std::string answer = Answer(materials, massTypes);
        EXPECT_TRUE(WBIsComputedAnswer(answer));
        EXPECT_FALSE(WBIsComputedAnswer(answer + "1|"));
        for (std::size_t end = answer.find('|'); end + 1 < answer.size();
             end = answer.find('|', end + 1)) {
            EXPECT_FALSE(WBIsComputedAnswer(answer.substr(0, end + 1))) << end;
        }
    }
    const std::string figures = "0|0|0|0|0|0|0|0|0|0|0|0|";
    for (const std::string rest : {"x|0|", "-1|0|", "0|x|", "0|-1|", "2000000000|0|"}) {
        EXPECT_FALSE(WBIsComputedAnswer(Join({figures, rest, figures}))) << rest;
    }
}

TEST_F(WBPartComputationTest, OnlyThePlainSumIsTheOneThatTheRecordsFlagIsAbout)
{
    const RecordHandle record = RecordOf(FirewallStream());
    WBComputationChoice choice;
    WBFillChoices(*record, choice);
    EXPECT_TRUE(WBIsKeptAsTheSum(*record, choice));
    choice.storedSums = WBStoredSums::Force;
    EXPECT_TRUE(WBIsKeptAsTheSum(*record, choice));
    choice.storedSums = WBStoredSums::Assume;
    EXPECT_FALSE(WBIsKeptAsTheSum(*record, choice));
    choice = {};
    choice.precision = "MostPrecise";
    EXPECT_FALSE(WBIsKeptAsTheSum(*record, choice));
    for (const Definitions::Entity entity : {Definitions::Root, Definitions::PartAlone}) {
        choice = {};
        choice.entity = entity;
        EXPECT_FALSE(WBIsKeptAsTheSum(*record, choice));
    }
    choice = {};
    record->SetCurrentPRCFilter("1|Panels|I|P.1|P|B|0");
    EXPECT_FALSE(WBIsKeptAsTheSum(*record, choice));
    record->SetCurrentPRCFilter("0|No Filter");
    record->SetPrecisionType("Computed", Definitions::PrecisionDefined);
    EXPECT_FALSE(WBIsKeptAsTheSum(*record, choice));
}
