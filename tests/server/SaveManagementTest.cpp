#include "EditTesting.h"
#include "SqlConnection.h"

#include <chrono>

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;
using wbtest::EditedProduct;
using wbtest::kHook;
using wbtest::kSpar;
using wbtest::RecordFields;
using wbtest::SparOf;

namespace
{
/// Another program's server on the same file, which waits for nobody.
class OtherServer
{
public:
    explicit OtherServer(const std::string& path)
        : m_store(wb::Store::Open(path, 1).store), m_server(*m_store)
    {}

    std::string As(const std::string& user, const std::string& method, const std::string& request)
    {
        wb::CallContext context;
        context.user = user;
        return m_server.Call(method, request, context);
    }
    std::string WeighSpar(const std::string& user, const std::string& mass)
    {
        return As(user, "WBApplyValues",
                  std::string(kSpar) + "1|PartRef|Weighed|mass|1|10|" + SparOf(mass).Text());
    }

private:
    std::unique_ptr<wb::Store> m_store;
    wb::Server m_server;
};

std::string SparMass(EditedProduct& product, const std::string& user)
{
    return product.Stated(user, kSpar, "PartRef|Weighed|mass");
}
} // namespace

TEST(SaveManagement, NothingPendingIsNotAvailable)
{
    EditedProduct product;
    EXPECT_EQ(product.Save("kim"), "Save|NA");
    EXPECT_EQ(product.Abort("kim"), "Abort|OK");
    EXPECT_EQ(product.Warnings("kim"), "");
}

TEST(SaveManagement, SavedChangesAreEverybodys)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(SparMass(product, "anna"), "10|10|0|0");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(SparMass(product, "anna"), "12|12|0|0");
    EXPECT_EQ(SparMass(product, "kim"), "12|12|0|0");
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(product.Save("kim"), "Save|NA");
}

TEST(SaveManagement, AbortedChangesAreGone)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    EXPECT_EQ(product.Abort("kim"), "Abort|OK");
    EXPECT_EQ(SparMass(product, "kim"), "10|10|0|0");
    EXPECT_EQ(product.Pending("kim"), "0|");
    EXPECT_EQ(product.Save("kim"), "Save|NA");
}

TEST(SaveManagement, EverybodySavesAndAbortsHisOwn)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("anna", "13");
    EXPECT_EQ(product.Abort("anna"), "Abort|OK");
    EXPECT_EQ(SparMass(product, "kim"), "12|10|1|0");
    EXPECT_EQ(product.Save("anna"), "Save|NA");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
}

TEST(SaveManagement, OtherWordsAreRefusedAndChangeNothing)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    for (const char* word : {"", "save", "Save|", "Abort|", "Commit", "Save Abort"}) {
        EXPECT_EQ(product.As("kim", "WBSaveManagement", word), "Save|FALSE") << word;
        EXPECT_THAT(product.Warnings("kim"), EndsWith("expected Save or Abort."));
    }
    // Clients cut warnings into lines at the mark that begins them.
    EXPECT_EQ(product.As("kim", "WBSaveManagement", "Save - all"), "Save|FALSE");
    EXPECT_EQ(product.Warnings("kim"),
              "- The request holds \"Save -all\", expected Save or Abort.");
    EXPECT_EQ(SparMass(product, "kim"), "12|10|1|0");
}

TEST(SaveManagement, WhoeverSavesSecondIsToldWhoWasFirst)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    RecordFields record = SparOf("12", "1|1|0.1|0.2");
    product.Apply("kim", kSpar, {"PartRef|Weighed|precision|1|percent;1;2"}, record);
    product.WeighSpar("anna", "11");
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"),
                MatchesRegex("- part SPAR A, mass type Weighed, mass: you changed 10 kg to 12 kg, "
                             "but anna saved 11 kg on [0-9]{4}/[0-9]{2}/[0-9]{2} "
                             "[0-9]{2}:[0-9]{2}:[0-9]{2}"));
    // Everything is still pending, also what conflicts with nothing.
    EXPECT_THAT(product.Pending("kim"), StartsWith("2|"));
    EXPECT_EQ(SparMass(product, "kim"), "12|11|1|1");
    EXPECT_EQ(product.Stated("anna", kSpar, "PartRef|Weighed|precision"),
              "percent;1;2|percent;1;2|0|0");
}

TEST(SaveManagement, EveryConflictHasALine)
{
    EditedProduct product;
    const RecordFields record = [] {
        RecordFields fields;
        for (const char* name : {"Estimated", "Calculated", "Supplier", "Weighed"}) {
            fields.massTypes.push_back(std::string(name) + "|1|0|0|7|7|7|7|7|7|7|0|0|0|1|0|7|7|0");
        }
        return fields;
    }();
    const auto changes = [](const std::string& seenMass) {
        std::vector<std::string> all;
        for (const char* name : {"Estimated", "Calculated", "Supplier"}) {
            for (const char* quantity : {"mass", "centre", "inertia", "precision"}) {
                all.push_back(std::string("PartRef|") + name + "|" + quantity + "|1|__null__");
            }
        }
        all.push_back("PartRef|Weighed|mass|1|" + seenMass);
        return all;
    };
    EXPECT_EQ(product.Apply("kim", kSpar, changes("10"), record), "Apply|OK|13|");
    std::string other = record.Text();
    for (std::size_t at = other.find("|7|"); at != std::string::npos; at = other.find("|7|")) {
        other.replace(at, 3, "|8|");
    }
    EXPECT_EQ(product.Apply("anna", kSpar, changes("10"), other), "Apply|OK|13|");
    EXPECT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    const std::string warnings = product.Warnings("kim");
    EXPECT_EQ(std::count(warnings.begin(), warnings.end(), '\n'), 12);
}

TEST(SaveManagement, SavingForgetsWhatAnEarlierOneHadToSay)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    product.WeighSpar("anna", "11");
    product.Save("anna");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_EQ(product.Abort("kim"), "Abort|OK");
    EXPECT_EQ(product.Warnings("kim"), "");
}

TEST(SaveManagement, OwnerThatIsGoneIsAConflict)
{
    EditedProduct product;
    RecordFields record;
    record.head = "0|HOOK|A|0||";
    record.density = "1|900|Brass|PartInst|2|hook||PLANE|";
    EXPECT_EQ(product.Apply("kim", kHook, {"PartInst|__null__|density|1|2000"}, record),
              "Apply|OK|1|");
    const std::string file =
        product.Folder().Write("less.csv", "parent,instance,part\n,,PLANE\nPLANE,left,WING\n");
    wb::ImportFileOptions options{{}, "anna"};
    options.replace = "PLANE";
    ASSERT_TRUE(wb::ImportFile(product.Store(), file, options).Ok());
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_EQ(product.Warnings("kim"), "- use PLANE A / hook, density: you changed 2000 "
                                       "kg/m3 to 900 kg/m3, but it is no longer there");
}

TEST(SaveManagement, TwoServersOnOneFileSeeTheirUsersAlone)
{
    EditedProduct product;
    OtherServer other(product.Store().Path());
    product.WeighSpar("kim", "12");
    EXPECT_THAT(other.As("anna", "WBGetStatedValues", kSpar),
                HasSubstr("|PartRef|Weighed|mass|10|10|0|0|"));
    // Kim is the same person wherever she works.
    EXPECT_THAT(other.As("kim", "WBGetStatedValues", kSpar),
                HasSubstr("|PartRef|Weighed|mass|12|10|1|0|"));
    EXPECT_EQ(other.WeighSpar("anna", "11"), "Apply|OK|1|");
    EXPECT_EQ(SparMass(product, "kim"), "12|10|1|0");
    EXPECT_EQ(other.As("anna", "WBSaveManagement", "Save"), "Save|OK");
    EXPECT_EQ(SparMass(product, "kim"), "12|11|1|1");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"), HasSubstr("but anna saved 11 kg on "));
}

TEST(SaveManagement, DatabaseThatAnotherProgramHoldsRefuses)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    OtherServer impatient(product.Store().Path());
    wbtest::SqlConnection holder(product.Store().Path());
    ASSERT_EQ(holder.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    for (const char* word : {"Save", "Abort"}) {
        EXPECT_EQ(impatient.As("kim", "WBSaveManagement", word), "Save|FALSE");
        EXPECT_THAT(impatient.As("kim", "WBWarningMsg", ""), HasSubstr(product.Store().Path()));
    }
    EXPECT_THAT(impatient.WeighSpar("kim", "13"), StartsWith("#WB_ERROR#"));
    ASSERT_EQ(holder.Run("ROLLBACK"), SQLITE_OK);
    EXPECT_EQ(SparMass(product, "kim"), "12|10|1|0");
    EXPECT_EQ(impatient.As("kim", "WBSaveManagement", "Save"), "Save|OK");
    EXPECT_EQ(SparMass(product, "kim"), "12|12|0|0");
}

TEST(SaveManagement, SaveThatFailsHalfwayHasHappenedNotAtAll)
{
    EditedProduct product;
    product.Apply("kim", kSpar, {"PartRef|__null__|property Vendor|1|Smith"}, [] {
        RecordFields record;
        record.properties = {"Vendor|1|0|Part|Miller"};
        return record;
    }());
    product.WeighSpar("kim", "12");
    wbtest::SqlConnection other(product.Store().Path());
    ASSERT_EQ(other.Run("CREATE TRIGGER refuse BEFORE INSERT ON history BEGIN "
                        "SELECT RAISE(ABORT, 'the disk is full'); END"),
              SQLITE_OK);
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"), HasSubstr("the disk is full"));
    EXPECT_THAT(product.Pending("kim"), StartsWith("2|"));
    EXPECT_EQ(SparMass(product, "anna"), "10|10|0|0");
    ASSERT_EQ(other.Run("DROP TRIGGER refuse"), SQLITE_OK);
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(SparMass(product, "anna"), "12|12|0|0");
}

TEST(SaveManagement, CancelledCallSavesNothingAndSaysSo)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    const std::atomic<bool> cancel = true;
    wb::CallContext context;
    context.user = "kim";
    context.cancel = &cancel;
    EXPECT_EQ(product.Server().Call("WBSaveManagement", "Save", context), "Save|FALSE");
    EXPECT_EQ(product.Warnings("kim"), "- The call was cancelled.");
    EXPECT_EQ(SparMass(product, "kim"), "12|10|1|0");
}

TEST(SaveManagement, ListOfPendingChangesIsInTheirOrder)
{
    EditedProduct product;
    EXPECT_EQ(product.Pending("kim"), "0|");
    RecordFields record = SparOf("12");
    record.properties = {"Built|1|1|Part|2026/02/28"};
    product.Apply("kim", kSpar,
                  {"PartRef|Weighed|mass|1|10", "PartRef|__null__|property Built|1|2026/01/31"},
                  record);
    product.WeighSpar("anna", "11");
    product.Save("anna");
    const std::string time = "[0-9]{4}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\|";
    EXPECT_THAT(
        product.Pending("kim"),
        MatchesRegex("2\\|part SPAR A\\|mass type Weighed, mass\\|10\\|12\\|11\\|1\\|anna\\|" +
                     time + time +
                     "part SPAR A\\|property Built\\|2026/01/31\\|2026/02/28\\|2026/01/31\\|0\\|"
                     "__null__\\|__null__\\|" +
                     time));
    EXPECT_EQ(product.Pending("anna"), "0|");
}
