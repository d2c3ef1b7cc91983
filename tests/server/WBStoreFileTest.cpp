#include "ServerTesting.h"
#include "SqlConnection.h"
#include "WBStore.h"

#include <filesystem>
#include <fstream>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using wbtest::SqlConnection;

namespace
{
Product SmallProduct()
{
    return wbtest::Read("parent,instance,part\n,,A\nA,P.1,P\n").product;
}
} // namespace

TEST(WBStoreFile, NewDatabaseHoldsTheShippedMassTypes)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    ASSERT_NE(opened.store, nullptr) << opened.error;
    EXPECT_EQ(opened.store->MassTypes(), ShippedMassTypes());
    EXPECT_TRUE(opened.store->Roots().empty());
    EXPECT_EQ(opened.store->Path(), directory.File("x.db"));
}

TEST(WBStoreFile, DatabaseAtRestIsOneFile)
{
    const wbtest::Directory directory;
    {
        const auto opened = Store::OpenOrCreate(directory.File("x.db"));
        EXPECT_THAT(opened.store->Import(SmallProduct(), {"kim", "t.csv", "c"}).errors,
                    ElementsAre());
    }
    const auto count = std::distance(
        std::filesystem::directory_iterator(std::filesystem::path(directory.File(""))),
        std::filesystem::directory_iterator());
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Store::Open(directory.File("x.db")).store->Roots().size(), 1U);
}

TEST(WBStoreFile, MissingFileIsNamedWithWhatToDo)
{
    const auto opened = Store::Open("/nowhere/x.db");
    EXPECT_EQ(opened.store, nullptr);
    EXPECT_EQ(opened.error, "/nowhere/x.db: the database does not exist; make one with \"wb import "
                            "FILE.csv --into /nowhere/x.db\"");
}

TEST(WBStoreFile, PlaceThatCannotBeWrittenIsNamed)
{
    EXPECT_THAT(Store::OpenOrCreate("/nowhere/x.db").error,
                StartsWith("/nowhere/x.db: the database cannot be opened"));
    EXPECT_THAT(Store::Open("/tmp").error, HasSubstr("is a directory"));
}

TEST(WBStoreFile, DamagedFileIsRefused)
{
    const wbtest::Directory directory;
    const auto path = directory.Write("x.db", std::string(4096, 'x'));
    EXPECT_EQ(Store::Open(path).error,
              path +
                  ": the file is damaged or is not a database; restore it from a copy, or import "
                  "the products into a new one");
}

TEST(WBStoreFile, DatabaseOfAnotherProgramIsRefused)
{
    const wbtest::Directory directory;
    const auto path = directory.File("x.db");
    SqlConnection(path).Run("CREATE TABLE t (a)");
    EXPECT_THAT(Store::Open(path).error, HasSubstr("is no weight-and-balance database"));
    EXPECT_THAT(Store::Open(directory.Write("empty.db", "")).error,
                HasSubstr("is no weight-and-balance database"));
}

TEST(WBStoreFile, NewerVersionIsRefused)
{
    const wbtest::Directory directory;
    const auto path = directory.File("x.db");
    Store::OpenOrCreate(path);
    SqlConnection(path).Run("PRAGMA user_version = 9");
    EXPECT_EQ(Store::Open(path).error,
              path + ": the database was written by a newer version of wb (its tables are version "
                     "9, this program knows version 3); open it with that version");
}

TEST(WBStoreFile, LockedDatabaseIsSaidAndLeftAsItWas)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"), 10);
    SqlConnection other(directory.File("x.db"));
    ASSERT_EQ(other.Run("BEGIN EXCLUSIVE"), SQLITE_OK);
    const std::string locked = directory.File("x.db") + ": another program is writing to this "
                                                        "database; wait until it has ended and "
                                                        "try again";
    EXPECT_THAT(opened.store->Import(SmallProduct(), {"kim", "t.csv", "c"}).errors,
                ElementsAre(locked));
    EXPECT_THAT(opened.store->PutMassTypes(ShippedMassTypes(), "kim", "m.csv"),
                ElementsAre(locked));
    EXPECT_THROW(opened.store->Roots(), StoreError);
    EXPECT_EQ(Store::Open(directory.File("x.db"), 10).error, locked);
    other.Run("COMMIT");
    EXPECT_TRUE(opened.store->Roots().empty());
}

TEST(WBStoreFile, TablesRefuseWhatNoImportWouldWrite)
{
    const wbtest::Directory directory;
    const auto path = directory.File("x.db");
    Store::OpenOrCreate(path);
    SqlConnection other(path);
    other.Run("PRAGMA foreign_keys = ON");
    const auto run = [&](const std::string& sql) {
        return other.Run(sql);
    };
    const std::string part =
        "INSERT INTO part (identifier, version, type, standard, density_first, "
        "errors, change_number) VALUES ";
    EXPECT_EQ(run(part + "('P', 'A', 0, 0, 0, 0, 1)"), SQLITE_OK);
    EXPECT_EQ(run(part + "('P', 'A', 0, 0, 0, 0, 1)"), SQLITE_CONSTRAINT);
    EXPECT_EQ(run(part + "('', 'A', 0, 0, 0, 0, 1)"), SQLITE_CONSTRAINT);
    EXPECT_EQ(run(part + "('Q', 'A', 9, 0, 0, 0, 1)"), SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO part_value (owner, mass_type, mass) VALUES (1, 2, 3)"), SQLITE_OK);
    EXPECT_EQ(run("INSERT INTO part_value (owner, mass_type) VALUES (7, 2)"), SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO part_value (owner, mass_type, lower) VALUES (1, 3, 3)"),
              SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO part_value (owner, mass_type, cgx) VALUES (1, 3, 3)"),
              SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO part_property VALUES (1, 1, 'N', 5, 0, 'x', NULL, NULL)"),
              SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO mass_type VALUES (9, 'Computed', 99, 'goal', NULL, 0, 0, '')"),
              SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO mass_type VALUES (9, 'X', 99, 'goal', 'actual', 0, 0, '')"),
              SQLITE_CONSTRAINT);
    EXPECT_EQ(run("INSERT INTO material VALUES (1, 'Al', 1, 1, '')"), SQLITE_CONSTRAINT);
}

TEST(WBStoreFile, PagesAreLarge)
{
    const wbtest::Directory directory;
    Store::OpenOrCreate(directory.File("x.db"));
    const auto count = std::filesystem::file_size(directory.File("x.db"));
    // A file is whole pages; the bytes 16 and 17 of its head say how large they are.
    std::ifstream file(directory.File("x.db"), std::ios::binary);
    std::string head(18, ' ');
    file.read(head.data(), 18);
    EXPECT_EQ(head.substr(16), std::string("\x40\x00", 2)) << "16384 bytes";
    EXPECT_EQ(count % 16384, 0U);
}

TEST(WBStoreFile, CopyTakesChangesThatTheDatabaseNeverSees)
{
    const wbtest::Directory directory;
    const auto original = Store::OpenOrCreate(directory.File("x.db"));
    {
        const auto copy = Store::OpenCopy(directory.File("x.db"));
        ASSERT_NE(copy.store, nullptr) << copy.error;
        EXPECT_EQ(copy.store->Path(), directory.File("x.db"));
        EXPECT_THAT(copy.store->Import(SmallProduct(), {"kim", "t.csv", "c"}).errors,
                    ElementsAre());
        EXPECT_EQ(copy.store->Roots().size(), 1U);
    }
    EXPECT_TRUE(original.store->Roots().empty());
    EXPECT_TRUE(original.store->History().empty());
}

TEST(WBStoreFile, CopyHoldsWhatTheDatabaseHolds)
{
    const wbtest::Directory directory;
    const auto original = Store::OpenOrCreate(directory.File("x.db"));
    original.store->Import(SmallProduct(), {"kim", "t.csv", "c"});
    const auto copy = Store::OpenCopy(directory.File("x.db"));
    ASSERT_EQ(copy.store->Roots().size(), 1U);
    EXPECT_EQ(copy.store->UsesOf(copy.store->FindRoot("A")->id).front().instance, "P.1");
    EXPECT_EQ(copy.store->History().size(), 1U);
}

TEST(WBStoreFile, CopyIsOfWhatWasCommittedWhileAnotherProgramWrites)
{
    const wbtest::Directory directory;
    Store::OpenOrCreate(directory.File("x.db"));
    SqlConnection other(directory.File("x.db"));
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE; DELETE FROM mass_type"), SQLITE_OK);
    const auto copy = Store::OpenCopy(directory.File("x.db"), 10);
    ASSERT_NE(copy.store, nullptr) << copy.error;
    EXPECT_EQ(copy.store->MassTypes(), ShippedMassTypes());
    EXPECT_EQ(other.Run("COMMIT"), SQLITE_OK);
}

TEST(WBStoreFile, CopyOfAMissingDatabaseIsNewAndLeavesNone)
{
    const wbtest::Directory directory;
    {
        const auto copy = Store::OpenCopy(directory.File("x.db"));
        ASSERT_NE(copy.store, nullptr) << copy.error;
        EXPECT_EQ(copy.store->MassTypes(), ShippedMassTypes());
        EXPECT_THAT(copy.store->Import(SmallProduct(), {"kim", "t.csv", "c"}).errors,
                    ElementsAre());
    }
    EXPECT_TRUE(std::filesystem::is_empty(directory.File("")));
}

TEST(WBStoreFile, CopyRefusesWhatOpenRefuses)
{
    const wbtest::Directory directory;
    const auto path = directory.File("x.db");
    Store::OpenOrCreate(path);
    {
        SqlConnection other(path);
        ASSERT_EQ(other.Run("BEGIN EXCLUSIVE"), SQLITE_OK);
        EXPECT_THAT(Store::OpenCopy(path, 10).error, StartsWith(path + ": another program"));
    }
    SqlConnection(path).Run("PRAGMA user_version = 9");
    EXPECT_EQ(Store::OpenCopy(path).error, Store::Open(path).error);
}

TEST(WBStoreFile, BatchIsAllOrNothing)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    Store& store = *opened.store;
    const MassType simulated{"Simulated", 22, MassType::Kind::Claim, "calculated", 1, 2, ""};
    {
        StoreBatch batch(store);
        EXPECT_THAT(store.PutMassTypes({simulated}, "kim", "m.csv"), ElementsAre());
        EXPECT_THAT(store.Import(SmallProduct(), {"kim", "t.csv", "c"}).errors, ElementsAre());
        EXPECT_EQ(store.Roots().size(), 1U);
    }
    EXPECT_EQ(store.MassTypes(), ShippedMassTypes());
    EXPECT_TRUE(store.Roots().empty());
    {
        StoreBatch batch(store);
        store.PutMassTypes({simulated}, "kim", "m.csv");
        store.Import(SmallProduct(), {"kim", "t.csv", "c"});
        batch.Commit();
    }
    EXPECT_EQ(store.MassTypes().size(), ShippedMassTypes().size() + 1);
    EXPECT_EQ(store.Roots().size(), 1U);
    EXPECT_EQ(store.History().size(), 2U);
}

TEST(WBStoreFile, RefusedWriteOfABatchLeavesTheOthers)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    Store& store = *opened.store;
    StoreBatch batch(store);
    store.Import(SmallProduct(), {"kim", "t.csv", "c"});
    // N comes before the use that is refused: an instance name stands for one part alone.
    const auto wrong = wbtest::Read("parent,instance,part\n,,N\n,,A\nA,P.1,Q\n").product;
    EXPECT_EQ(store.Import(wrong, {"kim", "u.csv", "c"}).errors.size(), 1U);
    batch.Commit();
    EXPECT_TRUE(store.FindPart("P", "A"));
    EXPECT_FALSE(store.FindPart("N", "A"));
}

TEST(WBStoreFile, BatchSaysThatAnotherProgramWrites)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"), 10);
    SqlConnection other(directory.File("x.db"));
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), SQLITE_OK);
    EXPECT_THROW(StoreBatch batch(*opened.store), StoreError);
    other.Run("COMMIT");
    EXPECT_NO_THROW(StoreBatch(*opened.store).Commit());
}

TEST(WBStoreFile, ReadsOfOneMomentSeeNothingOfWhatOthersWriteMeanwhile)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    SqlConnection other(directory.File("x.db"));
    {
        const StoreMoment moment(*opened.store);
        EXPECT_EQ(opened.store->MassTypes(), ShippedMassTypes());
        EXPECT_EQ(other.Run("DELETE FROM mass_type"), SQLITE_BUSY) << "it waits for the moment";
        EXPECT_EQ(opened.store->MassTypes(), ShippedMassTypes());
    }
    EXPECT_EQ(other.Run("DELETE FROM mass_type"), SQLITE_OK);
    EXPECT_TRUE(opened.store->MassTypes().empty());
}

TEST(WBStoreFile, MomentInsideABatchLeavesItOpen)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    StoreBatch batch(*opened.store);
    EXPECT_TRUE(opened.store->Import(SmallProduct(), {"kim", "t.csv", "c"}).errors.empty());
    {
        const StoreMoment moment(*opened.store);
        EXPECT_EQ(opened.store->Roots().size(), 1U);
    }
    batch.Commit();
    EXPECT_EQ(opened.store->Roots().size(), 1U);
}

TEST(WBStoreFile, PropertiesOfAllUsesComeUseByUseInStoredOrder)
{
    const wbtest::Directory directory;
    const auto opened = Store::OpenOrCreate(directory.File("x.db"));
    const auto read = wbtest::Read("parent,instance,part,i:Where,i:Gap [mm],p:Vendor\n,,A,,,\n"
                                   "A,1,P,left,2,Smith\nA,2,P,,,\nA,3,P,right,,\n");
    opened.store->Import(read.product, {"kim", "t.csv", "c"});
    const RowId root = opened.store->FindRoot("A")->id;
    std::vector<std::string> found;
    opened.store->UseProperties([&](RowId use, const Property& property) {
        std::string instance;
        for (const UseLine& line : opened.store->UsesOf(root)) {
            instance = line.id == use ? line.instance : instance;
        }
        found.push_back(instance + " " + property.name + "=" + property.value + property.magnitude);
    });
    EXPECT_THAT(found, ElementsAre("1 Where=left", "1 Gap=2LENGTH", "3 Where=right"));
}
