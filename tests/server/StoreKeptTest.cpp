#include "OlderTables.h"
#include "ServerTesting.h"
#include "SqlConnection.h"
#include "WBStore.h"

#include <chrono>
#include <set>

using namespace wb;
using testing::ElementsAre;
using testing::IsEmpty;
using wbtest::SqlConnection;

namespace
{
/// P stands in A, and so in R, and in the product Z; Q stands beside A.
constexpr const char* kProducts =
    "parent,instance,part,name,mass_type,active,mass [kg],lower_pct [%],upper_pct [%],cgx [mm],cgy "
    "[mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],volume [m3],material,material_on,density "
    "[kg/m3],note,source,p:Colour,i:Place,x [mm],y [mm],z [mm]\n"
    ",,R,,,,,,,,,,,,,,,,,,,,,,,\n"
    "R,a,A,,,,,,,,,,,,,,,,,,,,,,,\n"
    "R,q,Q,,,,,,,,,,,,,,,,,,,,,,,\n"
    "A,p,P,Bolt,Estimated,,1,1,2,0,0,0,1,1,1,1,Wax,,5,old,desk,red,left,0,0,0\n"
    ",,P,,Weighed,,2,,,,,,,,,,,,,,,,,,,\n"
    ",,Z,,,,,,,,,,,,,,,,,,,,,,,\n"
    "Z,zp,P,,,,,,,,,,,,,,,,,,,,,,,\n";

class StoreKept : public testing::Test
{
protected:
    void SetUp() override
    {
        m_store = Store::OpenOrCreate(Path(), 5000).store;
        Import(kProducts);
    }

    std::string Path() const { return m_directory.File("x.db"); }
    void MakeFirstVersion()
    {
        SqlConnection other(Path());
        ASSERT_EQ(other.Run(wbtest::kToSecondVersion), SQLITE_OK);
        ASSERT_EQ(other.Run(wbtest::kToFirstVersion), SQLITE_OK);
    }
    void Import(const std::string& table, const std::string& replace = {})
    {
        const auto read = ReadProductTable(table, "t.csv", {}, *m_store);
        ASSERT_THAT(read.errors, IsEmpty());
        EXPECT_THAT(
            m_store->Import(read.product, {"kim", "t.csv", "c", KnownFacts::Update, replace})
                .errors,
            IsEmpty());
    }
    RowId Row(const char* identifier) { return m_store->FindPart(identifier, "A")->id; }
    std::int64_t Change(const char* identifier) { return m_store->ChangeNumber(Row(identifier)); }

    /// The parts whose change numbers rise, "A P R".
    std::string Raised(const std::function<void()>& change)
    {
        constexpr std::array kParts{"A", "P", "Q", "R", "Z"};
        std::map<std::string, std::int64_t> before;
        for (const char* part : kParts) {
            before[part] = Change(part);
        }
        change();
        std::string raised;
        for (const char* part : kParts) {
            if (Change(part) != before[part]) {
                EXPECT_GT(Change(part), before[part]);
                raised += std::string(raised.empty() ? "" : " ") + part;
            }
        }
        return raised;
    }
    std::string RaisedBy(const std::string& table, const std::string& replace = {})
    {
        return Raised([&] { Import(table, replace); });
    }

    wbtest::Directory m_directory;
    std::unique_ptr<Store> m_store;
};
} // namespace

TEST_F(StoreKept, WhatIsSaidOfAPartRaisesItAndAllAboveIt)
{
    const std::vector<std::pair<const char*, const char*>> changes{
        {"mass", "part,mass_type,mass [kg]\nP,Estimated,9\n"},
        {"precision", "part,mass_type,lower_pct [%],upper_pct [%]\nP,Estimated,7,7\n"},
        {"precision in mass", "part,mass_type,lower [kg],upper [kg]\nP,Weighed,1,1\n"},
        {"centre", "part,mass_type,cgx [mm],cgy [mm],cgz [mm]\nP,Estimated,1,2,3\n"},
        {"inertia", "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\nP,Estimated,2,2,2\n"},
        {"size", "part,mass_type,volume [m3]\nP,Estimated,3\n"},
        {"uncertainty", "part,mass_type,sigma_mass [kg]\nP,Estimated,0.1\n"},
        {"another set", "part,mass_type,mass [kg]\nP,Supplier,1\n"},
        {"active type", "part,mass_type,active\nP,Estimated,yes\n"},
        {"density", "part,density [kg/m3]\nP,6\n"},
        {"surface density", "part,surface_density [kg/m2]\nP,6\n"},
        {"material", "part,material\nP,Clay\n"},
        {"density of its material", "part,material,material_density [kg/m3]\nP,Clay,900\n"},
    };
    for (const auto& [name, table] : changes) {
        EXPECT_EQ(RaisedBy(table), "A P R Z") << name;
    }
}

TEST_F(StoreKept, WhatIsSaidOfAUseRaisesItsParentAndAllAboveIt)
{
    const std::vector<std::pair<const char*, const char*>> changes{
        {"position", "parent,instance,part,x [mm],y [mm],z [mm]\nA,p,P,1,0,0\n"},
        {"rotation", "parent,instance,part,rz [deg]\nA,p,P,90\n"},
        {"quantity", "parent,instance,part,quantity\nA,p,P,4\n"},
        {"own mass",
         "parent,instance,part,values_on,mass_type,mass [kg]\nA,p,P,instance,Weighed,3\n"},
        {"own active type",
         "parent,instance,part,values_on,mass_type,active\nA,p,P,instance,Weighed,yes\n"},
        {"own density", "parent,instance,part,values_on,density [kg/m3]\nA,p,P,instance,4\n"},
        {"own material", "parent,instance,part,material,material_on\nA,p,P,Tin,instance\n"},
        {"another use", "parent,instance,part\nA,second,P\n"},
    };
    for (const auto& [name, table] : changes) {
        EXPECT_EQ(RaisedBy(table), "A R") << name;
    }
    EXPECT_EQ(RaisedBy("parent,instance,part\nR,a,A\nR,q,Q\nA,p,P\n", "R"), "A R") << "a use less";
}

TEST_F(StoreKept, WhatSumsDoNotDependOnRaisesNothing)
{
    const std::vector<std::pair<const char*, const char*>> changes{
        {"name", "part,name\nP,Nut\n"},
        {"note", "part,note\nP,new\n"},
        {"origin of a set",
         "part,mass_type,source,source_date,author\nP,Estimated,book,2026-01-02,ann\n"},
        {"property of the part", "part,p:Colour\nP,blue\n"},
        {"property of a use", "parent,instance,part,i:Place\nA,p,P,right\n"},
        {"new property", "part,p:Finish\nP,matt\n"},
        {"document", "part,doc,doc_version,doc_use,doc_mass [kg]\nP,D,1,active,4\n"},
        {"the same again", "part,mass_type,mass [g]\nP,Estimated,1000\n"},
    };
    for (const auto& [name, table] : changes) {
        EXPECT_EQ(RaisedBy(table), "") << name;
    }
}

TEST_F(StoreKept, MassTypeTableRaisesAll)
{
    std::vector<MassType> types = m_store->MassTypes();
    EXPECT_EQ(Raised([&] { m_store->PutMassTypes(types, "kim", "m.csv"); }), "");
    types.back().lowerPct += 1;
    EXPECT_EQ(Raised([&] { m_store->PutMassTypes(types, "kim", "m.csv"); }), "A P Q R Z");
}

TEST_F(StoreKept, ResultIsFoundByPartAndKey)
{
    const std::string bytes("one\0two", 7);
    EXPECT_FALSE(m_store->FindKept(Row("R"), "k"));
    EXPECT_TRUE(m_store->Keep({{Row("R"), "k", 7, bytes}, {Row("A"), "k", 8, ""}}, "ann"));
    const auto kept = m_store->FindKept(Row("R"), "k");
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->part, Row("R"));
    EXPECT_EQ(kept->key, "k");
    EXPECT_EQ(kept->changeNumber, 7);
    EXPECT_EQ(kept->result, bytes);
    EXPECT_EQ(m_store->FindKept(Row("A"), "k")->result, "");
    EXPECT_FALSE(m_store->FindKept(Row("R"), "K"));
    EXPECT_FALSE(m_store->FindKept(Row("P"), "k"));
    // Who made it, and when, is there for whoever looks into the file.
    EXPECT_EQ(SqlConnection(Path()).Run("CREATE TABLE seen AS SELECT 1 / (count(*) = 2) FROM "
                                        "kept_result WHERE who = 'ann' AND at LIKE '20__-%'"),
              SQLITE_OK);
}

TEST_F(StoreKept, NewResultTakesThePlaceOfTheOldOne)
{
    m_store->Keep({{Row("R"), "k", 1, "old"}}, "ann");
    m_store->Keep({{Row("R"), "k", 2, "new"}}, "ann");
    EXPECT_EQ(m_store->FindKept(Row("R"), "k")->result, "new");
    EXPECT_EQ(m_store->KeptLines("k").size(), 1U);
}

TEST_F(StoreKept, LinesTellWhatHasChangedSince)
{
    for (const char* part : {"R", "A", "Z"}) {
        m_store->Keep({{Row(part), "k", Change(part), "x"}}, "ann");
    }
    m_store->Keep({{Row("R"), "other", Change("R"), "x"}}, "ann");
    Import("parent,instance,part,quantity\nA,p,P,4\n");
    std::map<RowId, bool> lines;
    for (const KeptLine& line : m_store->KeptLines("k")) {
        lines[line.part] = line.upToDate;
        EXPECT_EQ(line.bytes, 1);
    }
    EXPECT_EQ(lines,
              (std::map<RowId, bool>{{Row("R"), false}, {Row("A"), false}, {Row("Z"), true}}));
    // What is stale stays until it is replaced.
    EXPECT_EQ(m_store->FindKept(Row("A"), "k")->result, "x");
}

TEST_F(StoreKept, OfOnePartTheNewestHundredStay)
{
    m_store->Keep({{Row("A"), "a", 1, "x"}, {Row("R"), "first", 1, "x"}}, "ann");
    for (int i = 0; i < 100; ++i) {
        m_store->Keep({{Row("R"), "k" + std::to_string(i), 1, "x"}}, "ann");
    }
    EXPECT_FALSE(m_store->FindKept(Row("R"), "first"));
    EXPECT_TRUE(m_store->FindKept(Row("R"), "k0"));
    EXPECT_TRUE(m_store->FindKept(Row("R"), "k99"));
    EXPECT_TRUE(m_store->FindKept(Row("A"), "a"));
}

TEST_F(StoreKept, ResultsOfOtherPartsTakeNobodysPlace)
{
    m_store->Keep({{Row("R"), "first", 1, "x"}}, "ann");
    for (int i = 0; i < 100; ++i) {
        m_store->Keep({{Row("A"), "k" + std::to_string(i), 1, "x"}}, "ann");
    }
    m_store->Keep({{Row("R"), "second", 1, "x"}}, "ann");
    EXPECT_TRUE(m_store->FindKept(Row("R"), "first"));
}

TEST_F(StoreKept, LockedDatabaseKeepsNothingAndDoesNotWait)
{
    SqlConnection other(Path());
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(m_store->Keep({{Row("R"), "k", 1, "x"}}, "ann"));
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(1));
    ASSERT_EQ(other.Run("COMMIT"), SQLITE_OK);
    EXPECT_FALSE(m_store->FindKept(Row("R"), "k"));
    EXPECT_TRUE(m_store->Keep({{Row("R"), "k", 1, "x"}}, "ann"));
}

TEST_F(StoreKept, AllResultsAreKeptOrNone)
{
    // There is no part 999.
    EXPECT_FALSE(m_store->Keep({{Row("R"), "k", 1, "x"}, {999, "k", 1, "x"}}, "ann"));
    EXPECT_FALSE(m_store->FindKept(Row("R"), "k"));
}

TEST_F(StoreKept, FileOfTheFirstVersionIsBroughtUp)
{
    m_store.reset();
    MakeFirstVersion();
    m_store = Store::Open(Path()).store;
    ASSERT_NE(m_store, nullptr);
    EXPECT_EQ(m_store->Roots().size(), 2U);
    EXPECT_TRUE(m_store->Keep({{Row("R"), "k", 1, "x"}}, "ann"));
    m_store = Store::Open(Path()).store;
    EXPECT_TRUE(m_store->FindKept(Row("R"), "k"));
}

TEST_F(StoreKept, FileOfTheFirstVersionThatIsLockedWorksWithoutKeeping)
{
    m_store.reset();
    MakeFirstVersion();
    {
        SqlConnection other(Path());
        ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
        m_store = Store::Open(Path()).store;
        ASSERT_NE(m_store, nullptr);
    }
    EXPECT_FALSE(m_store->Keep({{Row("R"), "k", 1, "x"}}, "ann"));
    EXPECT_FALSE(m_store->FindKept(Row("R"), "k"));
    EXPECT_THAT(m_store->KeptLines("k"), IsEmpty());
}

TEST_F(StoreKept, CopyBringsUpItselfAndLeavesTheFile)
{
    m_store.reset();
    MakeFirstVersion();
    const auto copy = Store::OpenCopy(Path());
    ASSERT_NE(copy.store, nullptr);
    EXPECT_TRUE(copy.store->Keep({{1, "k", 1, "x"}}, "ann"));
    EXPECT_EQ(SqlConnection(Path()).Run("CREATE TABLE kept_result (id INTEGER)"), SQLITE_OK);
}

TEST_F(StoreKept, RowsAndChangeNumbersComeWithTheProduct)
{
    Import("parent,instance,part,quantity\nA,p,P,4\n");
    const ReadProductRows rows = m_store->ReadRows(Row("R"), {});
    ASSERT_EQ(rows.product.parts.size(), 4U);
    ASSERT_EQ(rows.parts.size(), 4U);
    ASSERT_EQ(rows.changeNumbers.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        const char* identifier = rows.product.parts[i].identifier.c_str();
        EXPECT_EQ(rows.parts[i], Row(identifier));
        EXPECT_EQ(rows.changeNumbers[i], Change(identifier));
    }
    ASSERT_EQ(rows.uses.size(), rows.product.uses.size());
    for (std::size_t i = 0; i < rows.uses.size(); ++i) {
        EXPECT_EQ(m_store->ReadUse(rows.uses[i]).use.instance, rows.product.uses[i].instance);
    }
}

TEST_F(StoreKept, LongReadingTellsHowFarItIsAndCanBeStopped)
{
    std::string table = "parent,instance,part\n";
    for (int i = 0; i < 2000; ++i) {
        table += "Q,u" + std::to_string(i) + ",P\n";
    }
    Import(table);
    std::vector<double> shares;
    m_store->ReadRows(Row("R"), [&](double share) {
        shares.push_back(share);
        return true;
    });
    // 4 parts and 2004 uses, looked at every 256: eight looks.
    EXPECT_EQ(shares.size(), 8U);
    EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end()));
    EXPECT_EQ(shares.front(), 0.0);
    EXPECT_LE(shares.back(), 1.0);
    EXPECT_GT(shares.back(), 0.8);
    EXPECT_THROW(m_store->ReadRows(Row("R"), [](double share) { return share < 0.3; }),
                 ReadingStopped);
    EXPECT_EQ(m_store->ReadProduct(Row("R")).uses.size(), 2003U);
}
