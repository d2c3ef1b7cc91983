#include "MethodsTesting.h"
#include "SqlConnection.h"
#include "WBProductComputation.h"

#include <atomic>
#include <chrono>
#include <cmath>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
constexpr const char* kCancelled = "#WB_ERROR#The computation was cancelled.";

std::string RequestOf(const std::string& precision, const std::string& policy = "0",
                      const std::string& filter = "0|No Filter", const std::string& defined = "0")
{
    return "1|i|p|v|0|1|m|" + precision + "|" + policy + "|1|R|" + filter + "|" + defined + "|";
}

/// 2 kg at x = 0 and 6 kg at x = 4 mm.
constexpr const char* kTwoPoints =
    "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n"
    ",,R,,,,,\n"
    "R,p,P,Weighed,2,0,0,0\n"
    "R,q,Q,Estimated,6,4,0,0\n";

/// Twelve leaves of 1 kg: one below the root, two in A, three in A's D, one in B, two in B's E,
/// three in E's F.
constexpr const char* kTwelve =
    "parent,instance,part,mass_type,mass [kg],standard\n,,R,,,\n"
    "R,a,A,,,\nR,b,B,,,\nA,d,D,,,\nB,e,E,,,\nE,f,F,,,\n"
    "R,l1,L1,Weighed,1,\n"
    "A,l2,L2,Weighed,1,\nA,l3,L3,Weighed,1,\n"
    "D,l4,L4,Weighed,1,\nD,l5,L5,Weighed,1,\nD,l6,L6,Weighed,1,\n"
    "B,l7,L7,Weighed,1,\n"
    "E,l8,L8,Weighed,1,\nE,l9,L9,Weighed,1,\n"
    "F,l10,L10,Weighed,1,\nF,l11,L11,Weighed,1,\nF,l12,L12,Weighed,1,\n";

class KeptAnswers : public testing::Test
{
protected:
    /// Asks a server that was started just now, so that nothing is in its memory.
    std::string Ask(const std::string& request, const CallContext& context = {})
    {
        m_server = std::make_unique<Server>(m_served.Store());
        return m_server->Call("WBComputeVPMValues", request, context);
    }
    std::string Mass(const std::string& request)
    {
        const std::string answer = Ask(request);
        return answer.substr(0, answer.find('|'));
    }
    std::string Warnings() { return m_server->Call("WBWarningMsg", "", {}); }

    /// All twelve leaves weigh so much from now on.
    void EditLeaves(const std::string& mass)
    {
        std::string table = "part,mass_type,mass [kg]\n";
        for (int i = 1; i <= 12; ++i) {
            table += "L" + std::to_string(i) + ",Weighed," + mass + "\n";
        }
        m_served.ImportTable(table);
    }

    /// Writes to the database behind the store's back, so that no change number rises.
    void RunSql(const std::string& sql) { wbtest::RunSql(m_served.Store().Path(), sql); }
    /// All masses become 100 kg; only who reads the product sees it.
    void EditInSecret() { RunSql("UPDATE part_value SET mass = 100"); }
    std::int64_t Number(const std::string& sql)
    {
        return std::stoll(wbtest::SqlConnection(m_served.Store().Path()).Text(sql));
    }
    void ExpectNothingKept() { EXPECT_EQ(Number("SELECT count(*) FROM kept_result"), 0); }

    wbtest::ServedProduct m_served;
    std::unique_ptr<Server> m_server;
};
} // namespace

TEST_F(KeptAnswers, CheckAnswersWhatIsKeptWithoutReadingTheProduct)
{
    m_served.ImportTable(kTwoPoints);
    const std::string answer = Ask(RequestOf("Active"));
    const std::string warnings = Warnings();
    EXPECT_THAT(answer, StartsWith("8|"));
    EXPECT_EQ(warnings, "- 8 kg without inertia count as points\n- Q A has no inertia\n"
                        "- P A has no inertia");
    EditInSecret();
    EXPECT_EQ(Ask(RequestOf("Active")), answer);
    EXPECT_EQ(Warnings(), warnings);
    EXPECT_EQ(Warnings(), "");
}

TEST_F(KeptAnswers, ForceReadsAndKeepsAnew)
{
    m_served.ImportTable(kTwoPoints);
    EXPECT_EQ(Mass(RequestOf("Active")), "8");
    EditInSecret();
    EXPECT_EQ(Mass(RequestOf("Active", "1")), "200");
    EXPECT_EQ(Mass(RequestOf("Active")), "200");
}

TEST_F(KeptAnswers, ForceReadsAnewWhatIsInMemory)
{
    m_served.ImportTable(kTwoPoints);
    EXPECT_THAT(m_served.Call("WBComputeVPMValues", RequestOf("Active", "1")), StartsWith("8|"));
    EditInSecret();
    EXPECT_THAT(m_served.Call("WBComputeVPMValues", RequestOf("Active", "1")), StartsWith("200|"));
}

TEST_F(KeptAnswers, ChangedProductIsComputedAgain)
{
    m_served.ImportTable(kTwoPoints);
    EXPECT_EQ(Mass(RequestOf("Active")), "8");
    m_served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,3\n");
    EXPECT_EQ(Mass(RequestOf("Active")), "9");
    EXPECT_EQ(Mass(RequestOf("Active")), "9");
}

TEST_F(KeptAnswers, EachPrecisionHasAnAnswerOfItsOwn)
{
    m_served.ImportTable(kTwoPoints);
    Ask(RequestOf("Active"));
    Ask(RequestOf("Weighed"));
    EditInSecret();
    EXPECT_EQ(Mass(RequestOf("Active")), "8");
    EXPECT_EQ(Mass(RequestOf("Weighed")), "2");
    EXPECT_EQ(Mass(RequestOf("MostPrecise")), "200");
    EXPECT_EQ(Mass(RequestOf("Estimated")), "100");
    EXPECT_EQ(Mass(RequestOf("Computed")), "200");
}

TEST_F(KeptAnswers, LinesAndNameOfAFilterMakeAnotherAnswer)
{
    m_served.ImportTable(kTwoPoints);
    Ask(RequestOf("Active", "0", "1|Without P|X|p|P|A|0"));
    EditInSecret();
    EXPECT_EQ(Mass(RequestOf("Active", "0", "1|Without P|X|p|P|A|0")), "6");
    EXPECT_THAT(Warnings(), testing::StartsWith("- the filter \"Without P\" leaves out 1 of 2 "));
    EXPECT_EQ(Mass(RequestOf("Active", "0", "1|Another name|X|p|P|A|0")), "100");
    EXPECT_THAT(Warnings(),
                testing::StartsWith("- the filter \"Another name\" leaves out 1 of 2 "));
    EXPECT_EQ(Mass(RequestOf("Active", "0", "1|Without P|X|q|Q|A|0")), "100");
    EXPECT_EQ(Mass(RequestOf("Active", "0", "1|Without P|I|p|P|A|0")), "100");
    EXPECT_EQ(Mass(RequestOf("Active")), "200");
}

TEST_F(KeptAnswers, DefinedPrecisionIsNeitherKeptNorAnsweredFromWhatIs)
{
    m_served.ImportTable(kTwoPoints);
    EXPECT_THAT(Ask(RequestOf("Active", "0", "0|No Filter", "1|1|3|4")), StartsWith("8|3|4|"));
    EditInSecret();
    EXPECT_THAT(Ask(RequestOf("Active", "0", "0|No Filter", "1|1|3|4")), StartsWith("200|3|4|"));
    ExpectNothingKept();
}

TEST_F(KeptAnswers, AssumeTakesWhatIsDeeperThanTheLevelAsStored)
{
    // Level 0: of the leaves the root's own is new, eleven are old; 1: four are new; 2: three in F
    // are old; 3: none.
    m_served.ImportTable(kTwelve);
    EXPECT_EQ(Mass(RequestOf("Active")), "12");
    EditLeaves("2");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "13");
    EXPECT_THAT(Warnings(), HasSubstr("- 2 sub-assemblies are not up to date and were taken as "
                                      "stored\n"));
    EXPECT_EQ(Mass(RequestOf("Active", "2|1")), "16");
    EXPECT_THAT(Warnings(), HasSubstr("- 2 sub-assemblies are not up to date"));
}

TEST_F(KeptAnswers, WhatAssumeMadeAnewIsKeptUnlessItIsMadeFromStaleSums)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    EditLeaves("2");
    // A and D are new throughout; B and E hold the three old leaves of F.
    EXPECT_EQ(Mass(RequestOf("Active", "2|2")), "21");
    EXPECT_THAT(Warnings(),
                HasSubstr("- 1 sub-assembly is not up to date and was taken as stored\n"));
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "18"); // B's six are old
    EXPECT_EQ(Mass(RequestOf("Active", "2|3")), "24");
    EXPECT_THAT(Warnings(), Not(HasSubstr("up to date")));
    EditInSecret();
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "24"); // kept, as nothing stale was used
    EXPECT_EQ(Mass(RequestOf("Active")), "24");
}

TEST_F(KeptAnswers, AnswerFromStaleSumsIsNotKept)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    EditLeaves("2");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "13");
    EXPECT_EQ(Mass(RequestOf("Active")), "24");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "24");
}

TEST_F(KeptAnswers, AssumeComputesWhatWasNeverKept)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Weighed"));
    EditLeaves("2");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "24");
    EXPECT_EQ(Mass(RequestOf("MostPrecise", "2|0")), "24");
    EXPECT_EQ(Mass(RequestOf("Weighed", "2|0")), "13");
}

TEST_F(KeptAnswers, StatisticsComeFromStoredSumsToo)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    m_served.ImportTable(
        "part,mass_type,mass [kg],active\nL1,Supplier,5,yes\nL12,Supplier,7,yes\n");
    // L1 is new below the root; L12 in F counts as it was.
    EXPECT_THAT(Ask(RequestOf("Active", "2|0")),
                HasSubstr("|1|(no material)|3|0|16|2|Supplier|5|Weighed|11|"));
    EXPECT_THAT(Ask(RequestOf("Active", "0")),
                HasSubstr("|1|(no material)|3|0|22|2|Supplier|12|Weighed|10|"));
}

TEST_F(KeptAnswers, FilteredAssembliesAreMadeAnew)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    EditLeaves("2");
    // Without F, B is cut: three new leaves; the root's is new, the five of A are old.
    EXPECT_EQ(Mass(RequestOf("Active", "2|0", "1|No F|X|f|F|A|2|e|b")), "13");
}

TEST_F(KeptAnswers, StandardPartIsNeverStale)
{
    m_served.ImportTable(kTwelve);
    m_served.ImportTable("part,standard\nB,yes\n");
    Ask(RequestOf("Active"));
    EditLeaves("2");
    // B is made anew, and what is deeper in it is as stored: its leaf, then five old ones of E.
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "14");
}

TEST_F(KeptAnswers, UsesWithValuesOfTheirOwnAreInStoredSums)
{
    // A holds P and a use of P with 4 kg of its own; its sum is taken as stored after P's change.
    m_served.ImportTable(
        "parent,instance,part,values_on,mass_type,mass [kg]\n,,R,,,\n"
        "R,a,A,,,\nA,p,P,,Weighed,1\nA,own,P,instance,Weighed,4\nR,q,Q,,Weighed,1\n");
    EXPECT_EQ(Mass(RequestOf("Active")), "6");
    m_served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,3\nQ,Weighed,5\n");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "10");
    EXPECT_EQ(Mass(RequestOf("Active", "2|1")), "12");
}

TEST_F(KeptAnswers, LockedDatabaseDoesNotKeepAComputationWaiting)
{
    m_served.ImportTable(kTwoPoints);
    wbtest::SqlConnection other(m_served.Store().Path());
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(Mass(RequestOf("Active")), "8");
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1));
    other.Run("ROLLBACK");
    ExpectNothingKept();
}

TEST_F(KeptAnswers, CancelledComputationLeavesNothingKept)
{
    m_served.ImportTable(kTwoPoints);
    std::atomic<bool> cancel = false;
    CallContext context;
    context.cancel = &cancel;
    context.progress = [&](double, std::string_view what) {
        cancel = what == "summing up";
    };
    EXPECT_EQ(Ask(RequestOf("Active"), context), kCancelled);
    EXPECT_EQ(Warnings(), "");
    ExpectNothingKept();
    EXPECT_EQ(Mass(RequestOf("Active")), "8");
}

TEST_F(KeptAnswers, ReadingAndPreparingCanBeCancelled)
{
    std::string table = "parent,instance,part\n,,R\n";
    for (int i = 0; i < 3000; ++i) {
        table += "R,u" + std::to_string(i) + ",P\n";
    }
    m_served.ImportTable(table);
    std::atomic<bool> cancel = false;
    std::vector<std::string> told;
    CallContext context;
    context.cancel = &cancel;
    context.progress = [&](double done, std::string_view what) {
        told.emplace_back(what);
        cancel = done > 0.1;
    };
    EXPECT_EQ(Ask(RequestOf("Active"), context), kCancelled);
    EXPECT_THAT(told, testing::Each("reading the product"));
    EXPECT_LT(told.size(), 6U); // looked at every 256 rows: 600 of 3000 rows are enough
    cancel = false;
    context.progress = [&](double, std::string_view what) {
        cancel = what == "preparing the sum";
    };
    EXPECT_EQ(Ask(RequestOf("Active"), context), kCancelled);
    cancel = false;
    EXPECT_THAT(Ask(RequestOf("Active"), {}), StartsWith("0|0|0|"));
}

TEST_F(KeptAnswers, WhatCannotBeReadIsMadeAgain)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    EditLeaves("2");
    // One of them is text with a line's end; the last two lack one byte and have one too many.
    for (const char* bytes :
         {"x''", "x'00'", "x'0100000000000000ff'", "zeroblob(5000)", "x'39397c0a'",
          "substr(result, 1, length(result) - 1)", "CAST(result || x'00' AS BLOB)"}) {
        RunSql(std::string("UPDATE kept_result SET result = ") + bytes);
        EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "24") << bytes;
        RunSql(std::string("UPDATE kept_result SET result = ") + bytes);
        EXPECT_EQ(Mass(RequestOf("Active")), "24") << bytes;
        RunSql("UPDATE kept_result SET change_number = 0");
    }
    RunSql("DROP TABLE kept_result");
    EXPECT_EQ(Mass(RequestOf("Active")), "24");
}

TEST_F(KeptAnswers, RecordShowsTheSumAsStoredAndAComputationRenewsIt)
{
    m_served.ImportTable(kTwelve);
    const std::string place = "0||R|b|B|A|0|";
    const auto initial = [&] {
        m_server = std::make_unique<Server>(m_served.Store());
        return m_server->Call("WBCompPartGetInitialValues", place, {});
    };
    EXPECT_THAT(initial(), HasSubstr("Computed|1|6|"));
    EditLeaves("2");
    EXPECT_THAT(initial(), HasSubstr("Computed|1|6|"));
    Ask(RequestOf("Active"));
    EXPECT_THAT(initial(), HasSubstr("Computed|1|12|"));
}

TEST_F(KeptAnswers, StoredSumTakesTheCodeOfWhatIsAboveIt)
{
    m_served.ImportTable("parent,instance,part,code,mass_type,mass [kg]\n,,R,9,,\nR,a,A,8,,\nR,"
                         "o,A,,,\nA,b,B,,,\nB,l,L,,Weighed,4\nR,c,B,,,\n");
    const auto details = [&](const std::string& place) {
        return m_served.Call("WBGetValueDetails",
                             "0|0|" + place + "|0|__null__|Active|0|0|R|0|F|0|");
    };
    // Made at first, taken as stored then, in either place.
    for (int i = 0; i < 2; ++i) {
        EXPECT_THAT(details("b|B|A|1|a"), HasSubstr("|1|8|4|1|Weighed|4|"));
        EXPECT_THAT(details("c|B|A|0"), HasSubstr("|1|9|4|1|Weighed|4|"));
    }
}

TEST_F(KeptAnswers, OfManyProductsTheLeastUsedOneLeavesTheMemory)
{
    std::string table = "parent,instance,part,mass_type,mass [kg]\n";
    const auto name = [](int i) {
        return "R" + std::to_string(i);
    };
    for (int i = 1; i <= 9; ++i) {
        table += name(i) + ",p,P,,\n,," + name(i) + ",,\n";
    }
    m_served.ImportTable(table + ",,P,Weighed,1\n");
    // A precision of its own makes the server compute each time.
    const auto mass = [&](int i) {
        const std::string answer = m_served.Call(
            "WBComputeVPMValues", "1|i|p|v|0|1|m|Active|0|1|" + name(i) + "|0|F|1|1|0|0|");
        return answer.substr(0, answer.find('|'));
    };
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(mass(i), "1");
    }
    EXPECT_EQ(mass(1), "1"); // the second one is now the least used
    EditInSecret();
    EXPECT_EQ(mass(9), "100");
    EXPECT_EQ(mass(1), "1");
    EXPECT_EQ(mass(3), "1");
    EXPECT_EQ(mass(2), "100");
}

TEST_F(KeptAnswers, SumsThatAreThereAreNotMadeAgain)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    const std::int64_t newest = Number("SELECT max(id) FROM kept_result");
    // Its answer is kept, and none of the sums once more.
    Ask(RequestOf("Active", "0", "1|Without L1|X|l1|L1|A|0"));
    EXPECT_EQ(Number("SELECT max(id) FROM kept_result"), newest + 1);
    Ask(RequestOf("Active", "1"));
    EXPECT_EQ(Number("SELECT max(id) FROM kept_result"), newest + 8); // six sums and the answer
    // Of F's three old leaves only what stands above is made again.
    m_served.ImportTable("part,mass_type,mass [kg]\nL10,Weighed,2\n");
    Ask(RequestOf("Active"));
    EXPECT_EQ(Number("SELECT max(id) FROM kept_result"), newest + 13); // R, B, E, F, the answer
}

TEST_F(KeptAnswers, ProductKeepsSoMuchAndNoMore)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    // As if A's sum were a large one; what is deeper is not made when it is missing.
    RunSql("UPDATE kept_result SET result = zeroblob(20000000) WHERE key = 'sum|Active' AND part = "
           "(SELECT id FROM part WHERE identifier = 'A')");
    RunSql("DELETE FROM kept_result WHERE part <> (SELECT id FROM part WHERE identifier = 'A')");
    Ask(RequestOf("Active", "0", "1|Without L1|X|l1|L1|A|0"));
    EXPECT_EQ(Number("SELECT count(*) FROM kept_result WHERE key LIKE 'sum%'"), 1);
}

TEST_F(KeptAnswers, RecordOfAStandardAssemblyIsMadeAnewWhereItHasChanged)
{
    m_served.ImportTable(kTwelve);
    m_served.ImportTable("part,standard\nB,yes\n");
    const std::string place = "0||R|b|B|A|0|";
    EXPECT_THAT(m_served.Initial(place), HasSubstr("Computed|1|6|"));
    EditLeaves("2");
    EXPECT_THAT(m_served.Initial(place), HasSubstr("Computed|1|12|"));
}

TEST_F(KeptAnswers, DamagedSumsNeverStopAComputation)
{
    // Everything that lists are made of is in B's sum.
    m_served.ImportTable("parent,instance,part,mass_type,mass [kg],code,material\n,,R,,,,\n"
                         "R,b,B,,,,\nB,l,L,Weighed,1.625,7,Wax\nB,m,M,Estimated,2,,Tin\n");
    const std::string row = " WHERE part = (SELECT id FROM part WHERE identifier = 'B')";
    Ask(RequestOf("Active"));
    RunSql("CREATE TABLE whole AS SELECT result FROM kept_result" + row);
    m_served.ImportTable("part,mass_type,mass [kg]\nL,Weighed,2\n");
    const std::int64_t size = Number("SELECT length(result) FROM whole");
    ASSERT_GT(size, 400);
    const auto askWith = [&](const std::string& bytes) {
        RunSql("PRAGMA synchronous = OFF; DELETE FROM kept_result WHERE key LIKE 'answer%'; UPDATE "
               "kept_result SET change_number = 0, result = (SELECT CAST(" +
               bytes + " AS BLOB) FROM whole)" + row);
        return Mass(RequestOf("Active", "2|0"));
    };
    EXPECT_EQ(askWith("result"), "3.625");
    for (std::int64_t i = 0; i < size; i += 3) {
        EXPECT_EQ(askWith("substr(result, 1, " + std::to_string(i) + ")"), "4") << i;
    }
    for (const char* byte : {"ff", "7f"}) {
        for (std::int64_t i = 0; i < size; i += 5) {
            const std::string before = std::to_string(i);
            const std::string behind = std::to_string(i + 2);
            EXPECT_THAT(askWith("substr(result, 1, " + before + ") || x'" + byte +
                                "' || substr(result, " + behind + ")"),
                        Not(StartsWith("#")))
                << i;
        }
    }
    // An endless mass in a share, which has no place in an order: the first 1.625 behind the bodies
    // is that of a material.
    const std::string place = "instr(substr(result, 345), x'000000000000fa3f')";
    ASSERT_GT(Number("SELECT " + place + " FROM whole"), 0);
    EXPECT_EQ(askWith("substr(result, 1, 343 + " + place +
                      ") || x'000000000000f07f' || substr(result, 352 + " + place + ")"),
              "4");
}

TEST_F(KeptAnswers, OnlyStaleSumsAreTakenAsStored)
{
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    // B and E have changed since; A and its D hold.
    m_served.ImportTable("part,mass_type,mass [kg]\nL8,Weighed,2\n");
    EXPECT_EQ(Mass(RequestOf("Active", "2|0")), "12");
    EXPECT_THAT(Warnings(),
                HasSubstr("- 1 sub-assembly is not up to date and was taken as stored\n"));
}

TEST_F(KeptAnswers, SumsAreAsNewAsTheirOwnPart)
{
    m_served.ImportTable(kTwelve);
    // The root is newer than all below it, and what is kept was made after that.
    m_served.ImportTable("part,mass_type,mass [kg]\nL1,Weighed,2\n");
    Ask(RequestOf("Active"));
    EXPECT_EQ(Number("SELECT count(*) FROM kept_result k JOIN part p ON p.id = k.part WHERE "
                     "k.change_number = p.change_number"),
              7);
    EditInSecret();
    EXPECT_EQ(Mass(RequestOf("Active")), "13");
}

TEST_F(KeptAnswers, ChangeDuringAComputationMakesItsAnswerAnOldOne)
{
    m_served.ImportTable(kTwoPoints);
    CallContext context;
    context.progress = [&](double, std::string_view what) {
        if (what == "summing up") {
            m_served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,3\n");
        }
    };
    EXPECT_THAT(Ask(RequestOf("Active"), context), StartsWith("8|"));
    EXPECT_EQ(Mass(RequestOf("Active")), "9");
}

TEST_F(KeptAnswers, PartsAndWhatIsGoneStayApartInStoredErrors)
{
    // Weighed masses are exact to 0.5 %. The root's own leaf weighs 2 kg, the other eleven are as
    // stored: 0.01^2 + 11 x 0.005^2 = 0.000375. Two of them are no longer in the product.
    m_served.ImportTable(kTwelve);
    Ask(RequestOf("Active"));
    EditLeaves("2");
    std::string table = "parent,instance,part\nR,a,A\nR,b,B\nA,d,D\nB,e,E\nE,f,F\n";
    for (const char* use : {"R,l1,L1", "A,l2,L2", "A,l3,L3", "D,l6,L6", "B,l7,L7", "E,l8,L8",
                            "E,l9,L9", "F,l10,L10", "F,l11,L11", "F,l12,L12"}) {
        table += std::string(use) + "\n";
    }
    const auto read = ReadProductTable(table, "t.csv", {}, m_served.Store());
    EXPECT_THAT(m_served.Store()
                    .Import(read.product, {"kim", "t.csv", "c", KnownFacts::Update, "R"})
                    .errors,
                testing::IsEmpty());
    ProductComputation computation(m_served.Store(), *m_served.Store().FindRoot("R"), "kim", {});
    const ComputeResult result = computation.Compute({}, {}, ProductComputation::Policy::Assume, 0);
    EXPECT_EQ(result.total.body.mass, 13);
    EXPECT_NEAR(result.statistics.rss.together.lower, std::sqrt(0.000375), 1e-12);
    EXPECT_NEAR(result.statistics.rss.together.upper, std::sqrt(0.000375), 1e-12);
}

TEST_F(KeptAnswers, SumsOfActiveValuesInPlaceOfMissingOnesAreNotKept)
{
    m_served.ImportTable(kTwoPoints);
    ProductComputation computation(m_served.Store(), *m_served.Store().FindRoot("R"), "kim", {});
    ComputeOptions options;
    options.precision = ComputeOptions::Precision::Specified;
    options.massType = "Weighed";
    options.orActive = true;
    using Policy = ProductComputation::Policy;
    EXPECT_EQ(computation.Compute({}, options, Policy::Check, 0).total.body.mass, 8);
    ExpectNothingKept();
    options.orActive = false;
    EXPECT_EQ(computation.Compute({}, options, Policy::Check, 0).total.body.mass, 2);
}

TEST_F(KeptAnswers, WhatWasComparedWithAStaleSumIsNotKept)
{
    // A states 50 kg and all its figures; B's one leaf is compared with them as it was stored.
    m_served.ImportTable("parent,instance,part,mass_type,mass [kg],active,cgx [mm],cgy [mm],cgz "
                         "[mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n,,R,,,,,,,,,\n"
                         "R,a,A,Weighed,50,yes,0,0,0,1,1,1\nA,b,B,,,,,,,,,\n"
                         "B,l,L,Weighed,40,,0,0,0,1,1,1\n");
    Ask(RequestOf("Active"));
    EXPECT_THAT(Warnings(), HasSubstr("40"));
    m_served.ImportTable("part,mass_type,mass [kg]\nL,Weighed,50\n");
    EXPECT_EQ(Mass(RequestOf("Active", "2|1")), "50");
    EXPECT_THAT(Warnings(), HasSubstr("40"));
    EXPECT_EQ(Mass(RequestOf("Active")), "50");
    EXPECT_EQ(Warnings(), "- A A has values that are older than a change below it");
}

TEST_F(KeptAnswers, CodeOfTheNearestPartAboveIsTaken)
{
    m_served.ImportTable("parent,instance,part,code,mass_type,mass [kg]\n,,R,9,,\nR,a,A,8,,\n"
                         "A,b,B,7,,\nB,c,C,,,\nC,l,L,,Weighed,4\n");
    const std::string request = "0|0|c|C|A|2|b|a|0|__null__|Active|0|0|R|0|F|0|";
    EXPECT_THAT(m_served.Call("WBGetValueDetails", request), HasSubstr("|1|7|4|1|Weighed|4|"));
    m_served.ImportTable("part,mass_type,mass [kg]\nL,Weighed,5\n");
    // As stored.
    EXPECT_THAT(m_served.Call("WBGetValueDetails", request), HasSubstr("|1|7|4|1|Weighed|4|"));
}

TEST_F(KeptAnswers, UsesAndPartsStayApartInStoredErrors)
{
    // To 0.5 %: P as stored 1 kg, its use as stored 4 kg, Q as it is now 5 kg; each has errors of
    // its own: 0.005^2 + 0.02^2 + 0.025^2 = 0.00105.
    m_served.ImportTable(
        "parent,instance,part,values_on,mass_type,mass [kg]\n,,R,,,\n"
        "R,a,A,,,\nA,p,P,,Weighed,1\nA,own,P,instance,Weighed,4\nR,q,Q,,Weighed,1\n");
    Ask(RequestOf("Active"));
    m_served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,3\nQ,Weighed,5\n");
    ProductComputation computation(m_served.Store(), *m_served.Store().FindRoot("R"), "kim", {});
    const ComputeResult result = computation.Compute({}, {}, ProductComputation::Policy::Assume, 0);
    EXPECT_EQ(result.total.body.mass, 10);
    EXPECT_NEAR(result.statistics.rss.together.lower, std::sqrt(0.00105), 1e-12);
}

TEST_F(KeptAnswers, ForcedProductComputationReadsAnew)
{
    m_served.ImportTable(kTwoPoints);
    using Policy = ProductComputation::Policy;
    ProductComputation computation(m_served.Store(), *m_served.Store().FindRoot("R"), "kim", {});
    EXPECT_EQ(computation.Compute({}, {}, Policy::Check, 0).total.body.mass, 8);
    EditInSecret();
    EXPECT_EQ(computation.Compute({}, {}, Policy::Check, 0).total.body.mass, 8);
    EXPECT_EQ(computation.Compute({}, {}, Policy::Force, 0).total.body.mass, 200);
}
