#include "MethodsTesting.h"
#include "SqlConnection.h"

#include <atomic>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
constexpr const char* kTree =
    "parent,instance,part,version,name,type,quantity,x [mm],y [mm],z [mm]\n"
    ",,A,B,Top,,,,,\nA,S.1,S,,Sub,,,,,\nA,P.9,P,,,adjustment,4,1,2,3\n"
    "S,P.1,P,,,,,,,\n";
} // namespace

TEST(WBServer, RootsAreListedWithNameAndType)
{
    wbtest::ServedProduct served;
    EXPECT_EQ(served.Call("WBListRoots", ""), "0|");
    served.ImportTable(kTree);
    EXPECT_EQ(served.Call("WBListRoots", ""), "1|A|B|Top|product|");
}

TEST(WBServer, UsesAreListedInStoredOrder)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTree);
    EXPECT_EQ(served.Call("WBListUses", "A|B|"),
              "2|S.1|S|A|Sub|assembly|1|1|1|0|0|0|1|0|0|0|1|0|0|0|"
              "P.9|P|A|P|adjustment|4|0|1|0|0|0|1|0|0|0|1|1|2|3|");
    EXPECT_EQ(served.Call("WBListUses", "P|A"), "0|");
}

TEST(WBServer, MassTypesAreListedByOrder)
{
    wbtest::ServedProduct served;
    EXPECT_THAT(
        served.Call("WBListMassTypes", ""),
        StartsWith("5|Target|0|goal|__null__|0|0|mass that shall not be passed; never counts "
                   "as a status|Estimated|10|claim|estimated|10|20|"));
}

TEST(WBServer, UnknownMethodIsNamed)
{
    wbtest::ServedProduct served;
    EXPECT_EQ(served.Call("WBNothing", "x"), "#WB_ERROR#The server has no method \"WBNothing\".");
}

TEST(WBServer, CancelledCallSaysSo)
{
    wbtest::ServedProduct served;
    std::atomic<bool> cancel = true;
    CallContext context;
    context.cancel = &cancel;
    EXPECT_EQ(served.Server().Call("WBListRoots", "", context),
              "#WB_ERROR#The call was cancelled.");
    cancel = false;
    EXPECT_EQ(served.Server().Call("WBListRoots", "", context), "0|");
}

TEST(WBServer, WarningsAreNeverAnsweredByAnError)
{
    wbtest::ServedProduct served;
    std::atomic<bool> cancel = true;
    CallContext context;
    context.cancel = &cancel;
    for (const char* request : {"", "nonsense", "|||", "1|2|3"}) {
        EXPECT_EQ(served.Server().Call("WBWarningMsg", request, context), "") << request;
    }
}

TEST(WBServer, WrongFieldsOfAListAreNamed)
{
    wbtest::ServedProduct served;
    EXPECT_EQ(served.Call("WBListUses", ""), "#WB_ERROR#The field part of the request is missing.");
    EXPECT_EQ(served.Call("WBListUses", "A"),
              "#WB_ERROR#The field version of the request is missing.");
    EXPECT_EQ(served.Call("WBListUses", "|A|"),
              "#WB_ERROR#The field part of the request is empty, expected a text.");
    EXPECT_EQ(served.Call("WBListUses", "A|B|"),
              "#WB_ERROR#The field part of the request names \"A\" in version \"B\", which the "
              "database does not hold.");
    EXPECT_EQ(served.Call("WBListUses", "A|B|C"),
              "#WB_ERROR#The request holds \"C\" behind its last field, expected nothing.");
}

TEST(WBServer, FailingDatabaseIsAnswered)
{
    wbtest::ServedProduct served;
    wbtest::RunSql(served.Store().Path(),
                   "DROP TABLE use_property; DROP TABLE use_value; DROP TABLE use");
    EXPECT_THAT(served.Call("WBListRoots", ""), HasSubstr("x.db: the database failed"));
    EXPECT_THAT(served.Call("WBListRoots", ""), StartsWith("#WB_ERROR#"));
    std::vector<std::string> identificators{"A|P.1"};
    EXPECT_EQ(served.Server().RunObjectService("ENOVIA5_GetObjectIdentifier", identificators,
                                               "A|NoConfig|", true),
              std::nullopt);
}

TEST(WBImport, SummaryIsReadyForTheUser)
{
    wbtest::ServedProduct served;
    const std::string path = served.Folder().Write("t.csv", kTree);
    const auto first = ImportFile(served.Store(), path, {{}, "kim"});
    EXPECT_THAT(first.Sentences(),
                ElementsAre("rows: 4", "parts: 3 new, 0 changed, 0 unchanged",
                            "uses: 3 new, 0 changed, 0 unchanged", "parts that nobody uses: A B"));
    EXPECT_THAT(ImportFile(served.Store(), path).Sentences(),
                ElementsAre("rows: 4", "parts: 0 new, 0 changed, 3 unchanged",
                            "uses: 0 new, 0 changed, 3 unchanged", "parts that nobody uses: A B"));
    EXPECT_EQ(served.Store().History().size(), 1U);
    EXPECT_EQ(served.Store().History()[0].subject, path);
    EXPECT_EQ(served.Store().History()[0].checksum.size(), 64U);
}

TEST(WBImport, ErrorsLeaveTheDatabaseAsItWas)
{
    wbtest::ServedProduct served;
    const std::string path =
        served.Folder().Write("t.csv", "part,mass_type,mass [kg]\nP,Weighed,1\nQ,Weighed,x\n");
    const auto result = ImportFile(served.Store(), path);
    EXPECT_THAT(result.errors,
                ElementsAre(path + ":3: column \"mass [kg]\": found \"x\", expected a number"));
    EXPECT_TRUE(result.Sentences().empty());
    EXPECT_EQ(served.Call("WBListRoots", ""), "0|");
}

TEST(WBImport, BothSamplesStandSideBySide)
{
    wbtest::ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    served.ImportSample("small_satellite.csv");
    EXPECT_EQ(served.Call("WBListRoots", ""),
              "2|LA1|A|Light aeroplane, two seats, basic empty|product|"
              "SC1|A|Small satellite, wings deployed, tank full|product|");
}

TEST(WBImport, MassTypesComeFromAFile)
{
    wbtest::ServedProduct served;
    const std::string path = served.Folder().Write(
        "m.csv", "mass_type,order,kind,category\nDesigned,15,claim,calculated\n");
    EXPECT_THAT(ImportMassTypes(served.Store(), path, "kim"), ElementsAre());
    EXPECT_EQ(served.Store().MassTypes().size(), 6U);
    EXPECT_THAT(ImportMassTypes(served.Store(), "/nowhere/m.csv", "kim"),
                ElementsAre("/nowhere/m.csv: does not exist"));
}
