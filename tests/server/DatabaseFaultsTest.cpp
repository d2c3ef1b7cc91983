#include "EditTesting.h"

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using testing::AllOf;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;
using wb::OwnerKind;
using wbtest::EditedProduct;

namespace
{
/// While it lives, this process can write no file beyond a size, as on a disk that is full.
class LargestFile
{
public:
    explicit LargestFile(std::uintmax_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    LargestFile(const LargestFile&) = delete;
    LargestFile& operator=(const LargestFile&) = delete;
    ~LargestFile()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

const std::string kVendor = "PartRef|__null__|property Vendor";

std::string ApplyVendor(EditedProduct& product, const std::string& vendor)
{
    wbtest::RecordFields record;
    record.properties = {"Vendor|1|0|Part|" + vendor};
    return product.Apply("kim", wbtest::kSpar, {kVendor + "|1|Smith"}, record);
}

/// Nothing was saved, the user is told why, and his changes are there as before.
void ExpectSaveRefused(EditedProduct& product, const std::string& why)
{
    const std::string pending = product.Pending("kim");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"),
                AllOf(StartsWith("- " + product.Store().Path() + ": "), HasSubstr(why)));
    EXPECT_EQ(product.Pending("kim"), pending);
    EXPECT_EQ(product.Stated("anna", wbtest::kSpar, "PartRef|Weighed|mass"), "10|10|0|0");
}
} // namespace

TEST(DatabaseFaults, FileThatWasMovedAwayRefusesAndComesBackWhole)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    const std::string path = product.Store().Path();
    std::filesystem::rename(path, path + ".away");
    ExpectSaveRefused(product, "the file was moved, removed or replaced while it was open");
    EXPECT_THAT(product.WeighSpar("kim", "13"),
                AllOf(StartsWith("#WB_ERROR#"), HasSubstr("was moved, removed or replaced")));
    EXPECT_EQ(product.Abort("kim"), "Save|FALSE");
    // A copy in its place is another file, whatever it holds.
    std::filesystem::copy_file(path + ".away", path);
    ExpectSaveRefused(product, "the file was moved, removed or replaced while it was open");
    std::filesystem::rename(path + ".away", path);
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(product.Stated("anna", wbtest::kSpar, "PartRef|Weighed|mass"), "12|12|0|0");
}

TEST(DatabaseFaults, DeviceThatTakesNoByteRefuses)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    {
        const LargestFile none(0);
        ExpectSaveRefused(product, "nothing was changed");
        EXPECT_THAT(product.WeighSpar("kim", "13"), StartsWith("#WB_ERROR#"));
        EXPECT_EQ(product.Abort("kim"), "Save|FALSE");
        EXPECT_EQ(product.Mass("kim"), "112.5") << "what is computed need not be kept";
    }
    EXPECT_EQ(product.Stated("kim", wbtest::kSpar, "PartRef|Weighed|mass"), "12|10|1|0");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
}

TEST(DatabaseFaults, FileThatCannotGrowRefusesWhatNeedsRoom)
{
    EditedProduct product;
    const std::string path = product.Store().Path();
    const std::string longText(200'000, 'v');
    {
        const LargestFile full(std::filesystem::file_size(path));
        EXPECT_THAT(ApplyVendor(product, longText), StartsWith("#WB_ERROR#" + path + ": "));
        EXPECT_EQ(product.Pending("kim"), "0|");
    }
    product.WeighSpar("kim", "12");
    ASSERT_EQ(ApplyVendor(product, longText), "Apply|OK|1|");
    {
        // Pending it is there once; saved it stands with the part and in the history.
        const LargestFile full(std::filesystem::file_size(path));
        ExpectSaveRefused(product, "nothing was changed");
    }
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(product.Stated("anna", wbtest::kSpar, kVendor), longText + "|" + longText + "|0|0");
}

TEST(DatabaseFaults, FileThatCannotBeReadIsAnErrorInEveryMethod)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    const std::string path = product.Store().Path();
    // What stands in the way of the journal stands in the way of everything.
    std::filesystem::create_directory(path + "-journal");
    for (const auto& [method, request] :
         {std::pair<std::string, std::string>{"WBGetStatedValues", wbtest::kSpar},
          {"WBHistory", wbtest::kSpar},
          {"WBPendingChanges", ""},
          {"WBListRoots", ""}}) {
        EXPECT_THAT(product.As("kim", method, request), StartsWith("#WB_ERROR#" + path)) << method;
    }
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"), StartsWith("- " + path));
    EXPECT_EQ(product.Abort("kim"), "Save|FALSE");
    std::filesystem::remove(path + "-journal");
    EXPECT_EQ(product.Stated("kim", wbtest::kSpar, "PartRef|Weighed|mass"), "12|10|1|0");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
}

TEST(DatabaseFaults, ThousandsOfChangesAreSavedTogetherOrNotAtAll)
{
    EditedProduct product;
    constexpr int kParts = 2000;
    std::string table = "parent,instance,part,mass_type,mass [kg]\n,,MANY,,\n";
    for (int i = 0; i < kParts; ++i) {
        const std::string number = std::to_string(i);
        table += "MANY,n" + number + ",N" + number + ",Weighed,1\n";
    }
    product.ImportTable(table);
    wb::Store& store = product.Store();
    std::vector<wb::PendingChange> changes;
    for (int i = 0; i < kParts; ++i) {
        const wb::RowId part = store.FindPart("N" + std::to_string(i), "A")->id;
        changes.push_back({OwnerKind::Part, part, {"Weighed", "mass"}, "1", "2", {}});
    }
    store.PutPending("kim", changes);
    store.PutPending("anna",
                     {{OwnerKind::Part, changes.back().owner, {"Weighed", "mass"}, "1", "3", {}}});
    ASSERT_EQ(product.Save("anna"), "Save|OK");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"), StartsWith("- part N1999 A, mass type Weighed, mass: "));
    EXPECT_THAT(store.PendingChanges("kim"), SizeIs(kParts));
    const auto mass = [&](const char* user) {
        return wbtest::Split(product.As(user, "WBComputeVPMValues",
                                        "1|any|any|any|0|0|any|Active|0|1|MANY|0|No Filter|0|"),
                             '|')
            .front();
    };
    EXPECT_EQ(mass("anna"), "2002"); // 1999 of 1 kg and one of 3 kg
    EXPECT_EQ(mass("kim"), "4000");
    changes.back().seen = "3";
    store.PutPending("kim", {changes.back()});
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(mass("anna"), "4000");
    EXPECT_THAT(store.History().back().changes, SizeIs(kParts));
    EXPECT_EQ(product.Save("kim"), "Save|NA");
}

TEST(DatabaseFaults, ImportThatTakesAwayChangedUsesLeavesTheRestToBeSaved)
{
    EditedProduct product;
    product.WeighSpar("kim", "12");
    wb::Store& store = product.Store();
    const wb::RowId bolt = store.FindUse(store.FindPart("PLANE", "A")->id, "bolt")->id;
    store.PutPending("kim", {{OwnerKind::Use, bolt, {"Weighed", "mass"}, "0.5", "0.6", {}}});
    ASSERT_EQ(product.Mass("kim"), "112.6");
    const auto read = wb::ReadProductTable(
        "parent,instance,part\n,,PLANE\nPLANE,left,WING\nWING,spar,SPAR\n", "t.csv", {}, store);
    ASSERT_THAT(read.errors, testing::IsEmpty());
    ASSERT_THAT(
        store.Import(read.product, {"anna", "t.csv", "c", wb::KnownFacts::Update, "PLANE"}).errors,
        testing::IsEmpty());
    // One wing with its spar is left.
    EXPECT_EQ(product.Mass("kim"), "12");
    EXPECT_EQ(product.Save("kim"), "Save|FALSE");
    EXPECT_THAT(product.Warnings("kim"), HasSubstr("use PLANE A / bolt, mass type Weighed, mass: "
                                                   "you changed 0.5 kg to 0.6 kg, but it is no "
                                                   "longer there"));
    EXPECT_THAT(product.Pending("kim"), StartsWith("2|"));
    EXPECT_EQ(product.Mass("anna"), "10");
    ASSERT_EQ(product.Abort("kim"), "Abort|OK");
    EXPECT_EQ(product.WeighSpar("kim", "12"), "Apply|OK|1|");
    EXPECT_EQ(product.Save("kim"), "Save|OK");
    EXPECT_EQ(product.Mass("anna"), "12");
}
