#include "EditTesting.h"
#include "SqlConnection.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using wbtest::AnswerFields;
using wbtest::EditedProduct;
using wbtest::kLeft;
using wbtest::kSpar;
using wbtest::RecordFields;
using wbtest::SparOf;
using wbtest::Split;

namespace
{
// Three wings of 10 + 3 x 8 kg, a bolt of 0.5 kg and a hook of 0.002 m3 at 2000 kg/m3.
constexpr const char* kStored = "106.5";
// With a spar of 12 kg.
constexpr const char* kChanged = "112.5";

std::string RootRequest(const std::string& policy, const std::string& filter = "0|No Filter")
{
    return "1|any|any|any|0|0|any|Active|" + policy + "|1|PLANE|" + filter + "|0|";
}

std::string RootMass(EditedProduct& product, const std::string& user, const std::string& policy,
                     const std::string& filter = "0|No Filter")
{
    return Split(product.As(user, "WBComputeVPMValues", RootRequest(policy, filter)), '|').front();
}

constexpr const char* kSparInitial = "1||PLANE|spar|SPAR|A|1|left|";
constexpr const char* kLeftInitial = "1||PLANE|left|WING|A|0|";
/// What the left wing weighs, and what the spar does.
constexpr const char* kLeftComputed = "1|left|WING|A|0|0|__null__|Active|0|0|PLANE|0|No Filter|0|";

/// So many results are kept in the database.
int KeptResults(EditedProduct& product)
{
    return std::stoi(
        wbtest::SqlConnection(product.Store().Path()).Text("SELECT count(*) FROM kept_result"));
}
} // namespace

TEST(PendingComputation, SumsAreMadeOfOnesOwnChanges)
{
    EditedProduct product;
    EXPECT_EQ(product.Mass("kim"), kStored);
    product.WeighSpar("kim", "12");
    EXPECT_EQ(product.Mass("kim"), kChanged);
    EXPECT_EQ(product.Mass("anna"), kStored);
    EXPECT_EQ(product.Mass("kim"), kChanged);
    product.WeighSpar("anna", "13");
    EXPECT_EQ(product.Mass("anna"), "115.5");
    EXPECT_EQ(product.Mass("kim"), kChanged);
    product.WeighSpar("kim", "11");
    EXPECT_EQ(product.Mass("kim"), "109.5");
    product.Abort("kim");
    EXPECT_EQ(product.Mass("kim"), kStored);
    EXPECT_EQ(product.Mass("anna"), "115.5");
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(product.Mass("kim"), "115.5");
    EXPECT_EQ(product.Mass("anna"), "115.5");
}

TEST(PendingComputation, EveryUpdatePolicySeesThem)
{
    for (const char* policy : {"0", "1", "2|0", "2|1"}) {
        EditedProduct product;
        EXPECT_EQ(product.Mass("kim"), kStored);
        product.As("kim", "WBCompPartCompute", kLeftComputed);
        product.WeighSpar("kim", "12");
        EXPECT_EQ(RootMass(product, "kim", policy), kChanged) << policy;
        EXPECT_THAT(product.Warnings("kim"), Not(HasSubstr("taken as stored"))) << policy;
        EXPECT_EQ(RootMass(product, "anna", policy), kStored) << policy;
    }
}

TEST(PendingComputation, NothingOfThemIsKept)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(product.Mass("kim"), kChanged);
    product.As("kim", "WBCompPartCompute", kLeftComputed);
    product.As("kim", "WBCompPartGetInitialValues", kLeftInitial);
    EXPECT_EQ(KeptResults(product), 0);
    EXPECT_EQ(product.Mass("anna"), kStored);
    EXPECT_GT(KeptResults(product), 0);
}

TEST(PendingComputation, NothingThatIsKeptIsTakenForThem)
{
    EditedProduct product;
    EXPECT_EQ(product.Mass("anna"), kStored);
    product.As("anna", "WBCompPartGetInitialValues", kLeftInitial);
    product.WeighSpar("kim", "12");
    // A server that was started just now has nothing but what is kept.
    wb::Server server(product.Store());
    wb::CallContext context;
    context.user = "kim";
    EXPECT_THAT(server.Call("WBComputeVPMValues", RootRequest("0"), context),
                StartsWith(std::string(kChanged) + "|"));
    EXPECT_THAT(server.Call("WBCompPartGetInitialValues", kLeftInitial, context),
                HasSubstr("|Computed|1|36|"));
}

TEST(PendingComputation, StaleSumsAreNotAssumedForThem)
{
    EditedProduct product;
    product.Mass("anna"); // keeps what the wing weighs
    product.WeighSpar("anna", "11");
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(RootMass(product, "anna", "2|0"), kStored) << "the wings are taken as they were";
    RecordFields record;
    record.head = "1|BOLT|A|0||";
    record.massTypes = {"Weighed|1|0|0|1.5|0|0|0|0|0|0|0|0|0|0|1"};
    product.Apply("kim", wbtest::kBolt, {"PartInst|Weighed|mass|1|0.5"}, record);
    // 1 kg more on each of three spars and on the bolt.
    EXPECT_EQ(RootMass(product, "kim", "2|0"), "110.5");
}

TEST(PendingComputation, WhatSomebodyElseSavesReachesOnesOwnSums)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(product.Mass("kim"), kChanged);
    RecordFields record;
    record.head = "1|BOLT|A|0||";
    record.massTypes = {"Weighed|1|0|0|1.5|0|0|0|0|0|0|0|0|0|0|1"};
    product.Apply("anna", wbtest::kBolt, {"PartInst|Weighed|mass|1|0.5"}, record);
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(product.Mass("kim"), "113.5");
}

TEST(PendingComputation, ProductsOfSeveralUsersStayInMemory)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("anna", "13");
    const auto mass = [&](const std::string& user) {
        return Split(product.As(user, "WBCompPartCompute", kLeftComputed), '|').front();
    };
    EXPECT_EQ(mass("kim"), "36");
    EXPECT_EQ(mass("anna"), "37");
    EXPECT_EQ(mass("eve"), "34");
    // Only who reads the product again sees this.
    wbtest::SqlConnection secret(product.Store().Path());
    ASSERT_EQ(secret.Run("UPDATE part_value SET volume = 1 WHERE volume IS NOT NULL"), SQLITE_OK);
    EXPECT_EQ(mass("kim"), "36");
    EXPECT_EQ(mass("anna"), "37");
    EXPECT_EQ(mass("eve"), "34");
}

TEST(PendingComputation, RecordShowsThemAndItsSumIsUpToDate)
{
    EditedProduct product;
    product.As("anna", "WBCompPartGetInitialValues", kLeftInitial);
    product.WeighSpar("kim", "12");
    EXPECT_THAT(product.As("kim", "WBCompPartGetInitialValues", kSparInitial),
                HasSubstr("|Weighed|1|12|0.12|0.24|"));
    EXPECT_THAT(product.As("anna", "WBCompPartGetInitialValues", kSparInitial),
                HasSubstr("|Weighed|1|10|0.1|0.2|"));
    const std::string wing = product.As("kim", "WBCompPartGetInitialValues", kLeftInitial);
    // Spar and three ribs: 12 + 24 kg. The flag stands before the density priority.
    EXPECT_THAT(wing, HasSubstr("|Computed|1|36|"));
    EXPECT_THAT(wing, HasSubstr("|1|0|2|Steel|(no material)|"));
    EXPECT_THAT(product.As("anna", "WBCompPartGetInitialValues", kLeftInitial),
                HasSubstr("|Computed|1|34|"));
}

TEST(PendingComputation, SavedChangeMakesTheKeptSumOfOthersAnOldOne)
{
    EditedProduct product;
    product.As("anna", "WBCompPartGetInitialValues", kLeftInitial);
    product.WeighSpar("kim", "12");
    product.Save("kim");
    // As it was stored: 34 kg, and no longer up to date.
    const std::string wing = product.As("anna", "WBCompPartGetInitialValues", kLeftInitial);
    EXPECT_THAT(wing, HasSubstr("|Computed|1|34|"));
    EXPECT_THAT(wing, HasSubstr("|0|0|2|Steel|(no material)|"));
}

TEST(PendingComputation, DetailsPartSumsAndReportsShowThem)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_THAT(product.As("kim", "WBCompPartCompute", kLeftComputed), StartsWith("36|"));
    EXPECT_THAT(product.As("anna", "WBCompPartCompute", kLeftComputed), StartsWith("34|"));
    const std::string details = std::string("0|") + kLeftComputed;
    EXPECT_THAT(product.As("kim", "WBGetValueDetails", details),
                HasSubstr("|2|Calculated|24|Weighed|12|"));
    EXPECT_THAT(product.As("anna", "WBGetValueDetails", details),
                HasSubstr("|2|Calculated|24|Weighed|10|"));
    const std::string report = "0|0|0|0|1|Vendor|" + RootRequest("0");
    RecordFields record;
    record.properties = {"Vendor|1|0|Part|Miller"};
    product.Apply("kim", kSpar, {"PartRef|__null__|property Vendor|1|Smith"}, record);
    EXPECT_THAT(product.As("kim", "WBMakeReport", report), HasSubstr("WB_Mass=\"112.5\""));
    EXPECT_THAT(product.As("kim", "WBMakeReport", report), HasSubstr("Vendor=\"Miller\""));
    EXPECT_THAT(product.As("anna", "WBMakeReport", report), HasSubstr("WB_Mass=\"106.5\""));
    EXPECT_THAT(product.As("anna", "WBMakeReport", report), Not(HasSubstr("Miller")));
}

TEST(PendingComputation, ImposedValuesAboveAPendingChangeAreOlderThanIt)
{
    EditedProduct product;
    RecordFields wing;
    wing.head = "1|WING|A|0||";
    wing.massTypes = {"Weighed|1|0|0|34|0|0|0|0|0|0|0|0|0|0|0"};
    wing.active = "Weighed|__null__|";
    product.Apply("kim", kLeft,
                  {"PartRef|Weighed|mass|1|__null__", "PartRef|__null__|active|1|__null__"}, wing);
    product.Save("kim");
    product.Mass("kim");
    EXPECT_THAT(product.Warnings("kim"), Not(HasSubstr("older than a change below it")));
    product.WeighSpar("kim", "10.1");
    product.Mass("kim");
    EXPECT_THAT(product.Warnings("kim"),
                HasSubstr("WING A has values that are older than a change below it"));
    product.Mass("anna");
    EXPECT_THAT(product.Warnings("anna"), Not(HasSubstr("older than a change below it")));
}

TEST(PendingComputation, LastImposedTypeStaysWhenComputedIsActiveAgain)
{
    EditedProduct product;
    RecordFields wing;
    wing.head = "1|WING|A|0||";
    wing.massTypes = {"Weighed|1|0|0|34|0|0|0|0|0|0|0|0|0|0|0"};
    wing.active = "Weighed|__null__|";
    const std::vector<std::string> choice{"PartRef|__null__|active|1|__null__"};
    const auto initial = [&](const std::string& user) {
        return product.As(user, "WBCompPartGetInitialValues", kLeftInitial);
    };
    EXPECT_THAT(initial("kim"), HasSubstr("|1|Computed|__null__|"));
    product.Apply("kim", kLeft, choice, wing);
    EXPECT_THAT(initial("kim"), HasSubstr("|1|Weighed|Weighed|"));
    product.Save("kim");
    wing.active = "Computed|Weighed|";
    product.Apply("kim", kLeft, {"PartRef|__null__|active|1|Weighed"}, wing);
    EXPECT_THAT(initial("kim"), HasSubstr("|1|Computed|Weighed|"));
    EXPECT_THAT(initial("anna"), HasSubstr("|1|Weighed|Weighed|"));
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_THAT(initial("anna"), HasSubstr("|1|Computed|Weighed|"));
}

TEST(PendingComputation, UseWithSetsOfItsOwnHasALastImposedTypeOfItsOwn)
{
    EditedProduct product;
    RecordFields bolt;
    bolt.head = "1|BOLT|A|0||";
    bolt.massTypes = {"Weighed|1|0|0|0.6|0|0|0|0|0|0|0|0|0|0|1"};
    bolt.active = "Weighed|__null__|";
    // The part's choice says nothing of a use that has values of its own.
    product.Apply("kim", wbtest::kBolt,
                  {"PartRef|Weighed|mass|1|__null__", "PartRef|__null__|active|1|__null__"}, bolt);
    const auto initial = [&] {
        return product.As("kim", "WBCompPartGetInitialValues", "1||PLANE|bolt|BOLT|A|0|");
    };
    EXPECT_THAT(initial(), HasSubstr("|1|Weighed|__null__|"));
    product.Apply("kim", wbtest::kBolt, {"PartInst|__null__|active|1|__null__"}, bolt);
    EXPECT_THAT(initial(), HasSubstr("|1|Weighed|Weighed|"));
    // Without values of its own the part's choice is that of the use.
    product.Apply("kim", wbtest::kBolt,
                  {"PartInst|__null__|active|0|__null__", "PartInst|Weighed|mass|0|0.5"}, bolt);
    EXPECT_THAT(initial(), HasSubstr("|1|Weighed|Weighed|"));
}

TEST(PendingComputation, StandardPartIsChangedLikeAnyOther)
{
    EditedProduct product;
    RecordFields record;
    record.head = "1|BOLT|A|0||";
    record.massTypes = {"Weighed|1|0|0|1.5|0|0|0|0|0|0|0|0|0|0|1"};
    product.Apply("kim", wbtest::kBolt, {"PartInst|Weighed|mass|1|0.5"}, record);
    EXPECT_EQ(product.Mass("kim"), "107.5");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(product.Mass("anna"), "107.5");
}

TEST(PendingComputation, MaterialAndDensityChangeSizedMasses)
{
    EditedProduct product;
    RecordFields rib;
    rib.head = "1|RIB|A|0||";
    rib.density = "1|8500|Brass|";
    EXPECT_EQ(product.Apply("kim", wbtest::kRib, {"PartRef|__null__|material|1|Steel"}, rib),
              "Apply|OK|1|");
    // Nine ribs of 8.5 kg in place of 8 kg.
    EXPECT_EQ(product.Mass("kim"), "111");
    EXPECT_EQ(product.Mass("anna"), kStored);
    rib.density = "1|9000|Brass|";
    product.Apply("kim", wbtest::kRib, {"PartRef|__null__|density|1|__null__"}, rib);
    EXPECT_EQ(product.Mass("kim"), "115.5");
}

TEST(PendingComputation, FilteredAnswerSaysSoOfOnesOwnSumsToo)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    const std::string filter = "1|No spar|X|spar|SPAR|A|1|left";
    // The left spar is out: 12 kg less. Three wings of four items, the bolt and the hook: 14.
    EXPECT_EQ(RootMass(product, "kim", "0", filter), "100.5");
    EXPECT_THAT(product.Warnings("kim"),
                StartsWith("- the filter \"No spar\" leaves out 1 of 14 items"));
    EXPECT_EQ(RootMass(product, "anna", "0", filter), "96.5");
    EXPECT_THAT(product.Warnings("anna"),
                StartsWith("- the filter \"No spar\" leaves out 1 of 14 items"));
}
