#include "OlderTables.h"
#include "PendingTesting.h"
#include "SqlConnection.h"
#include "WBTablePieces.h"

#include <chrono>
#include <filesystem>
#include <tuple>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using wbtest::SqlConnection;

namespace
{
/// A file whose tables an earlier version of the program made.
class SchemaUpdate : public wbtest::TwoStores
{
protected:
    void SetUp() override
    {
        TwoStores::SetUp();
        m_left = Use("R", "left");
        m_part = Part("P");
        m_right = Use("R", "right");
        m_ann.reset();
        m_bob.reset();
        MakeOlder(wbtest::kToSecondVersion);
    }
    void MakeOlder(const std::string& sql) { ASSERT_EQ(SqlConnection(Path()).Run(sql), SQLITE_OK); }
    /// Gives the entry of the import the lines of what it changed.
    void Tell(const std::string& before, const std::string& after)
    {
        MakeOlder("UPDATE history SET before = '" + before + "', after = '" + after + "'");
    }
    std::unique_ptr<Store> Open()
    {
        auto opened = Store::Open(Path(), kWait);
        EXPECT_EQ(opened.error, "");
        return std::move(opened.store);
    }
    using Line = std::tuple<RowId, std::string, std::string, std::string>;
    /// Owner, what, before, after.
    static std::vector<Line> Lines(const Store& store)
    {
        std::vector<Line> lines;
        const std::vector<HistoryEntry> entries = store.History();
        for (const HistoryEntry& entry : entries) {
            for (const ChangedFact& fact : entry.changes) {
                lines.emplace_back(fact.owner, fact.What(), fact.before, fact.after);
            }
        }
        return lines;
    }

    RowId m_left = 0;
    RowId m_right = 0;
    RowId m_part = 0;
};

TEST_F(SchemaUpdate, KeepsEverythingThatWasStated)
{
    const auto store = Open();
    EXPECT_THAT(store->Roots(), SizeIs(3));
    const wb::Part part = store->ReadPart(m_part).part;
    EXPECT_EQ(QuantityText(part, m_mass), "4");
    EXPECT_EQ(part.material, "Steel");
    EXPECT_EQ(part.properties.at(0).value, "Smith");
    EXPECT_EQ(store->ReadUse(m_right).use.properties.at(0).value, "port");
    const std::vector<HistoryEntry> history = store->History();
    ASSERT_THAT(history, SizeIs(1));
    EXPECT_EQ(history[0].who + " " + history[0].what + " " + history[0].subject + " " +
                  history[0].checksum,
              "kim import t.csv c");
    EXPECT_THAT(history[0].changes, IsEmpty());
}

TEST_F(SchemaUpdate, WhatIsActiveWasImposedLast)
{
    const auto store = Open();
    EXPECT_EQ(store->ReadPart(store->FindPart("ASM", "A")->id).part.lastImposed, "Weighed");
    EXPECT_EQ(store->ReadUse(m_right).use.lastImposed, "Supplier");
    EXPECT_EQ(store->ReadPart(m_part).part.lastImposed, "");
}

TEST_F(SchemaUpdate, ChangesCanBePutAndSaved)
{
    const auto store = Open();
    store->PutPending("ann", {{OwnerKind::Part, m_part, m_mass, "4", "6", {}}});
    EXPECT_EQ(store->SavePending("ann").saved, 1U);
    EXPECT_EQ(store->FactChangesOf(OwnerKind::Part, m_part).at(0).after, "6");
    store->PutPending("ann", {{OwnerKind::Part, m_part, m_mass, "6", "7", {}}});
    EXPECT_EQ(Open()->PendingChanges("ann").at(0).after, "7") << "opened again it stays";
}

TEST_F(SchemaUpdate, FirstVersionIsBroughtUpTheWholeWay)
{
    MakeOlder(wbtest::kToFirstVersion);
    const auto store = Open();
    store->PutPending("ann", {{OwnerKind::Part, m_part, m_mass, "4", "6", {}}});
    EXPECT_EQ(store->SavePending("ann").saved, 1U);
    EXPECT_TRUE(store->Keep({{m_part, "k", 1, "x"}}, "ann"));
    const Product product = store->ReadProduct(store->FindRoot("R")->id);
    EXPECT_TRUE(wbtest::PartNamed(product, "ASM").sets.at(0).isOutdated)
        << "what stands above the change is older now";
}

TEST_F(SchemaUpdate, HistoryLinesBecomeFactsOfTheirOwners)
{
    Tell("part P A, name: Bolt\npart P A, mass type Weighed, mass: 2 lb\nuse R/left, quantity: 2",
         "part P A, name: Nut: M8\npart P A, mass type Weighed, mass: 1.50 kg\n"
         "use R/left, quantity: 3");
    const auto store = Open();
    EXPECT_THAT(Lines(*store),
                ElementsAre(Line(m_part, "part P A, name", "Bolt", "Nut: M8"),
                            Line(m_part, "part P A, mass type Weighed, mass", "2 lb", "1.50 kg"),
                            Line(m_left, "use R A / left, quantity", "2", "3")));
    const std::vector<FactChange> changes = store->FactChangesOf(OwnerKind::Part, m_part);
    ASSERT_THAT(changes, SizeIs(2));
    EXPECT_EQ(changes[1].fact, "mass type Weighed, mass");
    EXPECT_EQ(changes[1].who, "kim");
    EXPECT_EQ(changes[1].file, "t.csv");
    ASSERT_EQ(SqlConnection(Path()).Run("SELECT before FROM history"), SQLITE_ERROR)
        << "in one place alone";
}

TEST_F(SchemaUpdate, RemovedUsesAreKeptWithoutAnOwner)
{
    Tell("use R/left: T A\nuse S/q: Q A", "use R/left: \nuse S/q: ");
    const auto store = Open();
    EXPECT_THAT(Lines(*store),
                ElementsAre(Line(0, "use R/left", "T A", ""), Line(0, "use S/q", "Q A", "")));
    EXPECT_THAT(store->FactChangesOf(OwnerKind::Use, 0), IsEmpty()) << "nobody is no owner";
}

TEST_F(SchemaUpdate, NamesWithMarksAreFoundAndUnknownOnesStayAsTheyWere)
{
    SqlConnection other(Path());
    ASSERT_EQ(other.Run("UPDATE part SET identifier = 'P, one/two', version = 'A 1' WHERE "
                        "identifier = 'P'; UPDATE use SET instance = 'l/1, x' WHERE instance = "
                        "'left'; UPDATE part SET version = 'A 1' WHERE identifier = 'Q'"),
              SQLITE_OK);
    Tell("part P, one/two A 1, name: x\nuse R/l/1, x, quantity: 1\npart GONE A, code: C\n"
         "part Q A, name: Lid",
         "part P, one/two A 1, name: y\nuse R/l/1, x, quantity: 2\npart GONE A, code: D\n"
         "part Q A, name: Top");
    EXPECT_THAT(Lines(*Open()), ElementsAre(Line(m_part, "part P, one/two A 1, name", "x", "y"),
                                            Line(m_left, "use R A / l/1, x, quantity", "1", "2"),
                                            Line(0, "part GONE A, code", "C", "D"),
                                            Line(0, "part Q A, name", "Lid", "Top")));
}

TEST_F(SchemaUpdate, UseOfSeveralVersionsOfItsParentHasNoOwner)
{
    SqlConnection other(Path());
    ASSERT_EQ(other.Run("UPDATE part SET identifier = 'R', version = 'B' WHERE identifier = 'Z';"
                        "UPDATE use SET instance = 'left' WHERE instance = 'p' AND parent = "
                        "(SELECT id FROM part WHERE version = 'B')"),
              SQLITE_OK);
    Tell("use R/left, quantity: 1", "use R/left, quantity: 2");
    EXPECT_THAT(Lines(*Open()), ElementsAre(Line(0, "use R/left, quantity", "1", "2")));
}

TEST_F(SchemaUpdate, EveryPlaceIsTriedAtWhichNamesMayPart)
{
    SqlConnection other(Path());
    ASSERT_EQ(other.Run("UPDATE part SET identifier = 'R/' WHERE identifier = 'R'"), SQLITE_OK);
    Tell("use R//left, quantity: 1", "use R//left, quantity: 2");
    EXPECT_THAT(Lines(*Open()), ElementsAre(Line(m_left, "use R/ A / left, quantity", "1", "2")));
}

TEST_F(SchemaUpdate, LineWithoutAValueKeepsItsText)
{
    Tell("strange", "other");
    EXPECT_THAT(Lines(*Open()), ElementsAre(Line(0, "strange", "", "")));
}

TEST_F(SchemaUpdate, FirstImportBringsUpAnEmptyFile)
{
    const std::string path = m_directory.File("empty.db");
    Store::OpenOrCreate(path);
    SqlConnection other(path);
    ASSERT_EQ(other.Run(wbtest::kToSecondVersion), SQLITE_OK);
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    const auto store = Store::Open(path, kWait).store;
    ASSERT_EQ(other.Run("COMMIT"), SQLITE_OK);
    const std::string table = m_directory.Write(
        "t.csv",
        "parent,instance,part,mass_type,active,mass [kg]\n,,R,,,\nR,a,ASM,Weighed,yes,1\n");
    const auto pieces = TablePieces::Open(table, {}, store->MassTypes());
    ASSERT_NE(pieces, nullptr);
    const auto counts = store->ImportFirst(*pieces, [&] {
        pieces->Summary();
        return ImportOptions{"kim", "t.csv", "c"};
    });
    ASSERT_TRUE(counts.has_value());
    EXPECT_EQ(store->FindFacts("ASM", "A").value().lastImposed, "Weighed");
}

/// A file that may not be written, or at which others are at work, is read as it is.
class SchemaAsItIs : public SchemaUpdate
{
protected:
    void SetUp() override
    {
        SchemaUpdate::SetUp();
        Tell("part P A, name: Bolt\nuse R/left, quantity: 2",
             "part P A, name: Nut\nuse R/left, quantity: 3");
        m_other = std::make_unique<SqlConnection>(Path());
        ASSERT_EQ(m_other->Run("BEGIN IMMEDIATE"), SQLITE_OK);
        m_store = Open();
        ASSERT_NE(m_store, nullptr);
    }

    std::unique_ptr<SqlConnection> m_other;
    std::unique_ptr<Store> m_store;
};

TEST_F(SchemaAsItIs, EverythingCanBeRead)
{
    EXPECT_EQ(m_store->ReadPart(m_part).part.material, "Steel");
    EXPECT_EQ(m_store->ReadUse(m_right).use.lastImposed, "Supplier");
    EXPECT_THAT(m_store->ReadProduct(m_store->FindRoot("R")->id).parts, SizeIs(4));
    EXPECT_THAT(Lines(*m_store), ElementsAre(Line(m_part, "part P A, name", "Bolt", "Nut"),
                                             Line(m_left, "use R A / left, quantity", "2", "3")));
    const auto changes = m_store->FactChangesOf(OwnerKind::Use, m_left);
    ASSERT_THAT(changes, SizeIs(1));
    EXPECT_EQ(changes[0].subject + ", " + changes[0].fact, "use R A / left, quantity");
    EXPECT_EQ(changes[0].who, "kim");
    EXPECT_THAT(m_store->FactChangesOf(OwnerKind::Part, m_left), IsEmpty()) << "another number";
    EXPECT_THAT(m_store->FactChangesOf(OwnerKind::Use, m_right), IsEmpty());
}

TEST_F(SchemaAsItIs, NobodyWaitsForTheOthers)
{
    constexpr int kLong = 20000; // milliseconds; a write would wait as long
    const auto start = std::chrono::steady_clock::now();
    EXPECT_NE(Store::Open(Path(), kLong).store, nullptr);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(kLong / 2));
}

TEST_F(SchemaAsItIs, NothingIsPendingInIt)
{
    const PendingView view(*m_store, "ann");
    EXPECT_EQ(view.Number(), 0);
    EXPECT_EQ(m_store->PendingNumber("ann"), 0);
    EXPECT_THAT(m_store->PendingChanges("ann"), IsEmpty());
    EXPECT_EQ(m_store->SavePending("ann").saved, 0U);
    EXPECT_EQ(m_store->AbortPending("ann"), 0U);
}

TEST_F(SchemaAsItIs, FirstWriteBringsItUp)
{
    const PendingChange change{OwnerKind::Part, m_part, m_mass, "4", "6", {}};
    EXPECT_THROW(m_store->PutPending("ann", {change}), StoreError);
    m_other.reset();
    EXPECT_THROW(m_store->PutPending("ann", {{OwnerKind::Part, 999, m_mass, "4", "6", {}}}),
                 StoreError);
    EXPECT_EQ(m_store->ReadPart(m_part).part.material, "Steel") << "the update was undone again";
    EXPECT_THAT(Lines(*m_store), SizeIs(2));
    m_store->PutPending("ann", {change});
    EXPECT_EQ(m_store->SavePending("ann").saved, 1U);
    EXPECT_THAT(Lines(*m_store), SizeIs(3));
}

TEST_F(SchemaAsItIs, ImportBringsItUpToo)
{
    m_other.reset();
    const auto read = ReadProductTable("part,name\nP,Lid\n", "t.csv", {}, *m_store);
    EXPECT_THAT(m_store->Import(read.product, {"kim", "t.csv", "c"}).errors, IsEmpty());
    EXPECT_EQ(m_store->ReadPart(m_part).part.name, "Lid");
    EXPECT_THAT(m_store->History(), SizeIs(2));
}

TEST_F(SchemaAsItIs, ChangeOfMassTypesBringsItUpToo)
{
    m_other.reset();
    const MassType simulated{"Simulated", 22, MassType::Kind::Claim, "calculated", 1, 2, ""};
    EXPECT_THAT(m_store->PutMassTypes({simulated}, "kim", "m.csv"), IsEmpty());
    EXPECT_THAT(m_store->History(), SizeIs(2));
    EXPECT_EQ(m_store->PendingNumber("ann"), 0);
}
} // namespace
