#include "MethodsTesting.h"

#include "SqlConnection.h"
#include "WBChecksum.h"
#include "WBTablePieces.h"

#include <sstream>

using namespace wb;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{
constexpr const char* kHeader = "parent,instance,part,version,type,x [mm],y [mm],z [mm],rz "
                                "[deg],mass_type,mass [kg],material,p:Vendor,i:Bay\n";

/// More rows than a piece holds, each part met by its name alone, stated in a late row.
std::string LargeTable()
{
    constexpr int kUses = 12'000;
    constexpr int kParts = 300;
    std::ostringstream table;
    table << kHeader << ",,R,B,product,,,,,,,,,\n\n , ,,,,,,,,,,,,\n";
    for (int use = 0; use < kUses; ++use) {
        table << "R,u" << use << ", P" << use % kParts << " ,,," << use << "," << -use << ",0.5,"
              << use % 4 * 90 << ",,,,," << (use % 7 == 0 ? "b" : "") << "\r\n";
    }
    for (int part = 0; part < kParts; ++part) {
        table << ",,P" << part << ",A,part,,,,,Weighed," << part + 0.25 << ",Steel,v" << part
              << ",\n";
    }
    return table.str();
}

/// Every row of every table of the database but the history.
std::string Dump(const std::string& path)
{
    wbtest::SqlConnection database(path);
    std::string dump;
    for (const char* table : {"meta", "material", "part", "use", "part_value", "part_property",
                              "use_value", "use_property", "document_revision"}) {
        const char* order = std::string(table) == "meta" ? " ORDER BY 1, 2" : " ORDER BY 1, 2, 3";
        dump += database.Text(std::string("SELECT * FROM ") + table + order) + "\n";
    }
    dump += database.Text("SELECT name, sql FROM sqlite_master WHERE type = 'index' ORDER BY 1");
    return dump;
}

std::unique_ptr<TablePieces> Opened(const std::string& table, const TableOptions& options = {})
{
    static const wbtest::Directory directory;
    return TablePieces::Open(directory.Write("t.csv", table), options, ShippedMassTypes());
}

/// All uses of a table, and whether they made a product.
std::pair<std::size_t, bool> UsesOf(TablePieces& pieces)
{
    std::size_t count = 0;
    for (auto uses = pieces.Next(); !uses.empty(); uses = pieces.Next()) {
        count += uses.size();
    }
    return {count, pieces.Rest() != nullptr};
}

/// Whether a table becomes a product in pieces.
bool GoesInPieces(const std::string& table)
{
    const auto pieces = Opened(table);
    return pieces != nullptr && UsesOf(*pieces).second;
}

/// What a first import of a file says is wrong, and the same of its bytes, which are read whole.
void ExpectSameErrors(const std::string& table, const std::string& sentence)
{
    wbtest::ServedProduct served;
    const std::string path = served.Folder().Write("t.csv", table);
    const auto errors = ImportFile(served.Store(), path).errors;
    EXPECT_EQ(errors, ImportBytes(served.Store(), table, path).errors);
    ASSERT_THAT(errors, Not(IsEmpty()));
    EXPECT_THAT(errors.front(), HasSubstr(sentence));
    EXPECT_TRUE(served.Store().IsEmpty());
}
} // namespace

TEST(TablePieces, GiveTheDatabaseThatTheWholeTableGives)
{
    const std::string table = LargeTable();
    wbtest::ServedProduct inPieces;
    wbtest::ServedProduct whole;
    const std::string path = inPieces.Folder().Write("t.csv", table);
    const auto first = ImportFile(inPieces.Store(), path);
    const auto second = ImportBytes(whole.Store(), table, path);
    EXPECT_TRUE(GoesInPieces(table));
    EXPECT_EQ(first.Sentences(), second.Sentences());
    EXPECT_THAT(first.Sentences(), testing::Contains("uses: 12000 new, 0 changed, 0 unchanged"));
    EXPECT_EQ(Dump(inPieces.Folder().File("x.db")), Dump(whole.Folder().File("x.db")));
    const auto history = inPieces.Store().History();
    ASSERT_EQ(history.size(), 1U);
    EXPECT_EQ(history[0].checksum, Checksum(table));
    EXPECT_EQ(history[0].subject, path);
}

TEST(TablePieces, NumberPartsInTheOrderOfTheWholeTable)
{
    // Those with a version first, then the others, each as it is met.
    const auto pieces = Opened("parent,instance,part,version\n,,Z,\nZ,a,Y,\nY,b,X,B\nX,c,W,\n");
    ASSERT_NE(pieces, nullptr);
    EXPECT_EQ(pieces->PartCount(), 4U);
    EXPECT_EQ(UsesOf(*pieces).first, 3U);
    const Product* rest = pieces->Rest();
    ASSERT_NE(rest, nullptr);
    std::string names;
    for (const Part& part : rest->parts) {
        names += part.identifier + part.version + std::to_string(part.firstLine) + " ";
    }
    EXPECT_EQ(names, "XB4 ZA2 YA3 WA5 ");
}

TEST(TablePieces, LeaveWhatNeedsTheWholeTableToItsReader)
{
    EXPECT_TRUE(GoesInPieces("parent,instance,part\n,,R\nR,a,P\n"));
    EXPECT_TRUE(GoesInPieces("\xEF\xBB\xBFparent;instance;part\r\n;;R\r\nR;a;P"));
    // A text in quotes, a use without a name, values and a material of one use.
    EXPECT_FALSE(GoesInPieces("parent,instance,part\n,,R\nR,\"a\",P\n"));
    EXPECT_FALSE(GoesInPieces("parent,\"instance\",part\n,,R\nR,a,P\n"));
    EXPECT_FALSE(GoesInPieces("parent,instance,part\n,,R\nR,,P\n"));
    EXPECT_FALSE(GoesInPieces("parent,instance,part,values_on,mass_type,mass [kg]\n,,R,,,\n"
                              "R,a,P,instance,Weighed,1\n"));
    EXPECT_FALSE(GoesInPieces("parent,instance,part,material_on,material\n,,R,,\n"
                              "R,a,P,instance,Steel\n"));
    // A line end of another kind, a header in the second line, nothing at all, no file.
    EXPECT_FALSE(GoesInPieces("parent,instance,part\n,,R\rR,a,P\n"));
    EXPECT_FALSE(GoesInPieces("\nparent,instance,part\n,,R\n"));
    EXPECT_FALSE(GoesInPieces(""));
    EXPECT_EQ(TablePieces::Open("/nowhere.csv", {}, {}), nullptr);
    EXPECT_EQ(TablePieces::Open("/", {}, {}), nullptr);
    TableOptions options;
    options.massType = "Guessed";
    EXPECT_EQ(Opened("part\nP\n", options), nullptr);
}

TEST(TablePieces, LeaveWhatIsWrongToItsReader)
{
    // Behind many rows, so that much is stored before it is met.
    const std::string good = LargeTable();
    ExpectSameErrors(good + "R,w,Q,,,1,,,,,,,,\n", "the cell is blank, expected x, y and z");
    ExpectSameErrors(good + "R,w,R,B,,,,,,,,,,\n", "is a cycle");
    ExpectSameErrors(good + "P1,w,P2,,,,,,,,,,,\n", "P1 is of type part");
    ExpectSameErrors(good + "R,w,Q\n", "the row has 3 cells");
    ExpectSameErrors(good + "R,w,Q|,,,,,,,,,,,\n", "column \"part\"");
    ExpectSameErrors(good + "R,w\xFF,Q,,,,,,,,,,,\n", "UTF-8");
    ExpectSameErrors(good + "Nobody,w,Q,,,,,,,,,,,\n", "column \"parent\"");
    ExpectSameErrors(good + "R,w,P2,C,,,,,,,,,,\nR,v,P2,,,,,,,,,,,\n", "2 versions");
    ExpectSameErrors(good + "R,w,,,,,,,,,,,,\n", "the cell is blank, expected the part");
    ExpectSameErrors(good + "R,u1,P2,,,,,,,,,,,\n", "stands in R already");
}

TEST(TablePieces, AUseThatIsStatedTwiceIsStillOneUse)
{
    const std::string table = LargeTable() + "R,u1,P1,,,,,,,,,,,late\n";
    wbtest::ServedProduct inPieces;
    wbtest::ServedProduct whole;
    const std::string path = inPieces.Folder().Write("t.csv", table);
    EXPECT_THAT(ImportFile(inPieces.Store(), path).errors, IsEmpty());
    EXPECT_THAT(ImportBytes(whole.Store(), table, path).errors, IsEmpty());
    EXPECT_EQ(Dump(inPieces.Folder().File("x.db")), Dump(whole.Folder().File("x.db")));
}

TEST(TablePieces, GoIntoAnEmptyDatabaseAlone)
{
    wbtest::ServedProduct served;
    const std::string path = served.Folder().Write("t.csv", "parent,instance,part\n,,R\nR,a,P\n");
    EXPECT_THAT(ImportFile(served.Store(), path).errors, IsEmpty());
    EXPECT_FALSE(served.Store().IsEmpty());
    const auto pieces = TablePieces::Open(path, {}, ShippedMassTypes());
    EXPECT_EQ(served.Store().ImportFirst(*pieces, [] { return ImportOptions(); }), std::nullopt);
    EXPECT_THAT(ImportFile(served.Store(), path).Sentences(),
                testing::Contains("uses: 0 new, 0 changed, 1 unchanged"));
}

TEST(TablePieces, RootsAreThoseOfTheDatabaseAsItIs)
{
    wbtest::ServedProduct served;
    const auto roots = [&] {
        std::string names;
        for (const PartLine& root : served.Store().Roots()) {
            names += root.identifier + " ";
        }
        return names;
    };
    served.ImportTable("parent,instance,part\n,,S\n,,R\nR,a,P\n");
    EXPECT_EQ(roots(), "R S ");
    served.ImportTable("parent,instance,part\nR,b,S\n,,T\n");
    EXPECT_EQ(roots(), "R T ");
    // Other writers tell of a change by the change number alone.
    wbtest::RunSql(served.Store().Path(),
                   "DELETE FROM use WHERE instance = 'b';"
                   "UPDATE meta SET value = value + 1 WHERE key = 'change_number'");
    EXPECT_EQ(roots(), "R S T ");
}

TEST(WBChecksum, PiecesGiveTheChecksumOfTheWhole)
{
    const std::string bytes(1000, 'w');
    for (const std::size_t size : {1U, 55U, 56U, 63U, 64U, 65U, 999U}) {
        ChecksumMaker maker;
        maker.Add(std::string_view(bytes).substr(0, size));
        maker.Add(std::string_view(bytes).substr(size));
        EXPECT_EQ(maker.Finish(), Checksum(bytes)) << size;
    }
    EXPECT_EQ(Checksum("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}
