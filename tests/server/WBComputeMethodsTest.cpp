#include "MethodsTesting.h"

#include "SqlConnection.h"
#include "WBNumbers.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

using namespace wb;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
constexpr const char* kPlace = "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|";
/// Of the largest figure of the same kind; the expected totals have twelve digits.
constexpr double kTolerance = 1e-9;

std::string RequestOf(const std::string& precision, const std::string& root,
                      const std::string& policy = "0", const std::string& filter = "0|No Filter",
                      const std::string& defined = "0")
{
    return kPlace + precision + "|" + policy + "|1|" + root + "|" + filter + "|" + defined + "|";
}

std::string ComputeIn(wbtest::ServedProduct& served, const std::string& request)
{
    return served.Call("WBComputeVPMValues", request);
}

std::string WarningsIn(wbtest::ServedProduct& served)
{
    return served.Call("WBWarningMsg", "");
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> fields;
    std::istringstream stream(text);
    for (std::string field; std::getline(stream, field, separator);) {
        fields.push_back(field);
    }
    return fields;
}

void ExpectNear(const std::vector<std::string>& answer, std::size_t first,
                const std::vector<std::string>& expected)
{
    double largest = 0.0;
    for (const std::string& text : expected) {
        largest = std::max(largest, std::abs(ReadNumber(text).value_or(0.0)));
    }
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(ReadNumber(answer.at(first + i)).value(), ReadNumber(expected[i]).value_or(0.0),
                    kTolerance * largest)
            << "field " << first + i;
    }
}

/// Two parts in a root, as points: 2 kg at x = 0 and 6 kg at x = 4 mm.
constexpr const char* kTwoPoints =
    "parent,instance,part,mass_type,mass [kg],lower [kg],upper [kg],cgx [mm],cgy [mm],cgz [mm],"
    "material,material_density [kg/m3],material_surface_density [kg/m2]\n"
    ",,R,,,,,,,,,,\n"
    "R,p,P,Weighed,2,0.5,1,0,0,0,Skin,,5\n"
    "R,q,Q,Estimated,6,1,2,4,0,0,Steel,7850,\n"
    ",,P,Estimated,3,0,0,0,0,0,,,\n";
} // namespace

TEST(WBComputeMethods, MassTypesAndPropertyNamesComeAsXml)
{
    wbtest::ServedProduct served;
    const std::string shipped =
        "<massTypesAndAttrNames><massType name=\"Computed\"/><massType name=\"Estimated\"/>"
        "<massType name=\"Calculated\"/><massType name=\"Supplier\"/><massType name=\"Weighed\"/>"
        "<massType name=\"Target\"/>";
    EXPECT_EQ(served.Call("WBGetMassTypesAndAttrNames", ""), shipped + "</massTypesAndAttrNames>");
    served.ImportTable("parent,instance,part,p:Vendor,i:Location\n,,R,,\nR,p,P,x,y\nR,q,P,,y\n");
    EXPECT_EQ(served.Call("WBGetMassTypesAndAttrNames", ""),
              shipped + "<attrName name=\"Location\"/><attrName name=\"Vendor\"/>"
                        "</massTypesAndAttrNames>");
}

TEST(WBComputeMethods, NamesStayWholeInXml)
{
    wbtest::ServedProduct served;
    const std::string path = served.Folder().Write(
        "m.csv", "mass_type,order,kind,category\n\"A & \"\"B\"\" < C\",15,claim,calculated\n");
    EXPECT_THAT(ImportMassTypes(served.Store(), path, "kim"), testing::ElementsAre());
    EXPECT_THAT(served.Call("WBGetMassTypesAndAttrNames", ""),
                HasSubstr("<massType name=\"A &amp; &quot;B&quot; &lt; C\"/>"));
}

TEST(WBComputeMethods, OneBodyComesBackFieldByField)
{
    wbtest::ServedProduct served;
    served.ImportTable("part,mass_type,mass [kg],lower [kg],upper [kg],cgx [mm],cgy [mm],cgz [mm],"
                       "ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],"
                       "poi_sign\nR,Weighed,2,0.5,1,1,2,3,4,5,6,0.1,0.2,0.3,positive\n");
    // The products come as yz, xz, xy.
    EXPECT_EQ(ComputeIn(served, RequestOf("Active", "R")),
              "2|0.5|1|1|2|3|4|5|6|0.3|0.2|0.1|1|(no material)|3|0|2|1|Weighed|2|");
    EXPECT_EQ(WarningsIn(served), "");
}

TEST(WBComputeMethods, MaterialsAndMassTypesFollowTheBody)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    // Centre (2 x 0 + 6 x 4) / 8 = 3 mm; inertia 2 x 0.003^2 + 6 x 0.001^2 = 0.000024 kg.m2.
    const auto answer = Split(ComputeIn(served, RequestOf("Active", "R")), '|');
    ASSERT_EQ(answer.size(), 26U);
    ExpectNear(answer, 0, {"8", "1.5", "3"});
    ExpectNear(answer, 3, {"3", "0", "0"});
    ExpectNear(answer, 6, {"0", "0.000024", "0.000024", "0", "0", "0"});
    const std::vector<std::string> lists{"2", "Steel", "Skin", "3",         "7850", "2",       "5",
                                         "6", "2",     "2",    "Estimated", "6",    "Weighed", "2"};
    EXPECT_EQ(std::vector(answer.begin() + 12, answer.end()), lists);
}

TEST(WBComputeMethods, PrecisionChoosesTheValues)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R")), StartsWith("8|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("MostPrecise", "R")), StartsWith("8|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Computed", "R")), StartsWith("8|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Estimated", "R")), StartsWith("9|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Weighed", "R")), StartsWith("2|"));
}

TEST(WBComputeMethods, SampleProductsWeighWhatIsExpected)
{
    wbtest::ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    served.ImportSample("small_satellite.csv");
    std::ifstream file(wbtest::DataFile("expected_totals.csv"));
    int checked = 0;
    for (std::string line; std::getline(file, line);) {
        const auto row = Split(line, ',');
        if (row[0] != row[1] || row[3] != "total") {
            continue;
        }
        SCOPED_TRACE(row[0] + " " + row[2]);
        const auto answer = Split(ComputeIn(served, RequestOf(row[2], row[0])), '|');
        ExpectNear(answer, 0, {row[5], row[6], row[7]});
        ExpectNear(answer, 3, {row[8], row[9], row[10]});
        ExpectNear(answer, 6, {row[11], row[12], row[13], row[16], row[15], row[14]});
        ++checked;
    }
    EXPECT_EQ(checked, 16); // two products in eight precisions
}

TEST(WBComputeMethods, UnknownFiguresAreZeroAndTheFirstWarningNamesThem)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,R,,\nR,p,P,Weighed,2\n"
                       "R,q,Q,,\n");
    EXPECT_EQ(ComputeIn(served, RequestOf("Active", "R")),
              "2|0.01|0.01|0|0|0|0|0|0|0|0|0|1|(no material)|3|0|2|1|Weighed|2|");
    EXPECT_THAT(WarningsIn(served),
                StartsWith("- unknown, and sent as 0: centre of gravity and inertia\n"
                           "- 1 of 2 items has no mass; the total leaves it out\n"));
}

TEST(WBComputeMethods, NothingWithAMassIsAnError)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(ComputeIn(served, RequestOf("Supplier", "R")), StartsWith("0|0|0|0|"));
    EXPECT_THAT(WarningsIn(served),
                HasSubstr("\nERROR: nothing that was asked for has a mass of this kind."));
    ComputeIn(served, RequestOf("Weighed", "R"));
    EXPECT_THAT(WarningsIn(served), testing::Not(HasSubstr("ERROR")));
}

TEST(WBComputeMethods, WarningsAreTheUsersOwnAndToldOnce)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    CallContext kim;
    kim.user = "kim";
    CallContext lee;
    lee.user = "lee";
    std::atomic<bool> cancel = true;
    kim.cancel = &cancel;
    Server& server = served.Server();
    EXPECT_EQ(server.Call("WBWarningMsg", "", kim), "");
    cancel = false;
    server.Call("WBComputeVPMValues", RequestOf("Weighed", "R"), kim);
    EXPECT_EQ(server.Call("WBWarningMsg", "", lee), "");
    cancel = true; // a warning is never answered by an error
    EXPECT_THAT(server.Call("WBWarningMsg", "", kim), HasSubstr("1 of 2 items has no mass"));
    EXPECT_EQ(server.Call("WBWarningMsg", "", kim), "");
}

TEST(WBComputeMethods, WarningsOfTheComputationBeforeAreForgotten)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    ComputeIn(served, RequestOf("Weighed", "R"));
    EXPECT_THAT(ComputeIn(served, "nonsense"), StartsWith("#WB_ERROR#"));
    EXPECT_EQ(WarningsIn(served), "");
}

TEST(WBComputeMethods, FilterLeavesPartsOut)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "0", "1|No P|X|p|P|A|0")),
                StartsWith("6|1|2|4|"));
    // What follows the filter is found behind its last line.
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "0", "1|No P|X|p|P|A|0", "1|1|0.1|0,2")),
                StartsWith("6|0.1|0.2|4|"));
}

TEST(WBComputeMethods, DefinedPrecisionTakesThePlaceOfTheDeviations)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    const std::string filter = "0|No Filter";
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "0", filter, "1|0|10|25")),
                StartsWith("8|0.8|2|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "0", filter, "1|1|10|25")),
                StartsWith("8|10|25|"));
}

TEST(WBComputeMethods, PlaceOfAWholeProductIsReadPast)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(ComputeIn(served, "||||2|a||x||Active|0|1|R|0|F|0|"), StartsWith("8|"));
}

TEST(WBComputeMethods, ProductStaysInMemoryUntilItChanges)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R")), StartsWith("8|"));
    wbtest::RunSql(served.Store().Path(), "UPDATE part_value SET mass = 7 WHERE mass = 6");
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "0")), StartsWith("8|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "2|1")), StartsWith("8|"));
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R", "1")), StartsWith("9|"));
    served.ImportTable("part,mass_type,mass [kg]\nQ,Estimated,10\n");
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R")), StartsWith("12|"));
}

TEST(WBComputeMethods, CancelledComputationSaysSoAndTheNextOneWorks)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    std::atomic<bool> cancel = false;
    CallContext context;
    context.cancel = &cancel;
    std::vector<double> shares;
    context.progress = [&](double done, std::string_view) {
        shares.push_back(done);
        cancel = true; // as a user does while the server works
    };
    EXPECT_EQ(served.Server().Call("WBComputeVPMValues", RequestOf("Active", "R"), context),
              "#WB_ERROR#The computation was cancelled.");
    EXPECT_THAT(shares, testing::ElementsAre(0.0));
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R")), StartsWith("8|"));
}

TEST(WBComputeMethods, WrongFieldsAreNamed)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    const std::string place = kPlace;
    const std::string field = "The field ";
    const std::map<std::string, std::string> answers{
        {"", field + "has-instance of the request is missing."},
        {"1|i|p|v|x|", field + "path count of the request holds \"x\", expected a whole number "
                               "from 0."},
        {"1|i|p|v|9|a", field + "path of the request is missing."},
        {"1|i|p|v|0|1", field + "material of the request is missing."},
        {place, field + "precision of the request is missing."},
        {place + "|0|1|R|0|F|0|", field + "precision of the request is empty, expected a text."},
        {place + "Active|3|1|R|0|F|0|", field + "update policy of the request holds \"3\", "
                                                "expected a whole number from 0 to 2."},
        {place + "Active|2|-1|1|R|0|F|0|",
         field + "level of the request holds \"-1\", expected a whole number from 0."},
        {place + "Active|2|1.5|1|R|0|F|0|",
         field + "level of the request holds \"1.5\", expected a whole number from 0."},
        {place + "Active|2||1|R|0|F|0|",
         field + "level of the request holds \"\", expected a whole number from 0."},
        {place + "Active|0|0|R|0|F|0|",
         field + "entity of the request holds \"0\", expected 1, the root."},
        {RequestOf("Active", "P"),
         field + "root of the request names \"P\", which is no product root of the database."},
        {RequestOf("Guessed", "R"), field + "precision of the request names \"Guessed\", which is "
                                            "no mass type of the database."},
        {RequestOf("Active", "R", "0", "z|F"),
         field + "filter line count of the filter holds \"z\", expected a count."},
        {place + "Active|0|1|R|1|F|X|p", field + "filter part of the request is missing."},
        {place + "Active|0|1|R|0|F|", field + "precision type of the request is missing."},
        {place + "Active|0|1|R|0|F||", field + "precision type of the request holds \"\", expected "
                                               "a whole number from 0."},
        {RequestOf("Active", "R", "0", "0|F", "2"),
         field + "precision type of the request holds \"2\", expected a whole number from 0 to 1."},
        {RequestOf("Active", "R", "0", "0|F", "1|2|1|1"),
         field + "precision value type of the request holds \"2\", expected a whole number from 0 "
                 "to 1."},
        {RequestOf("Active", "R", "0", "0|F", "1|1|-1|1"),
         field + "lower precision of the request holds \"-1\", expected a number from 0."},
        {RequestOf("Active", "R", "0", "0|F", "1|1|1|x"),
         field + "upper precision of the request holds \"x\", expected a number from 0."},
        {RequestOf("Active", "R") + "more",
         "The request holds \"more\" behind its last field, expected nothing."}};
    for (const auto& [request, sentence] : answers) {
        EXPECT_EQ(ComputeIn(served, request), "#WB_ERROR#" + sentence) << request;
    }
    EXPECT_THAT(ComputeIn(served, RequestOf("Active", "R")), StartsWith("8|"));
}

TEST(WBComputeMethods, RequestCutAnywhereIsAnErrorAndTheNextOneWorks)
{
    wbtest::ServedProduct served;
    served.ImportTable(kTwoPoints);
    const std::string text =
        std::string(kPlace) + "Active|2|3|1|R|1|No P|X|p|P|A|0|1|0|10|20"; // no field is empty
    const std::string whole = ComputeIn(served, text);
    EXPECT_THAT(whole, StartsWith("6|0.6|1.2|"));
    const std::size_t lastField = text.rfind('|') + 1;
    for (std::size_t length = 0; length <= lastField; ++length) {
        EXPECT_THAT(ComputeIn(served, text.substr(0, length)), StartsWith("#WB_ERROR#The field "))
            << length;
    }
    EXPECT_EQ(ComputeIn(served, text), whole);
}

TEST(WBComputeMethods, CycleIsNamed)
{
    wbtest::ServedProduct served;
    served.ImportTable("parent,instance,part\n,,R\nR,a,A\nA,b,B\nB,c,C\n");
    wbtest::RunSql(served.Store().Path(),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'A') "
                   "WHERE instance = 'c'");
    EXPECT_EQ(ComputeIn(served, RequestOf("Active", "R")),
              "#WB_ERROR#The product holds itself: A > B > A.");
}
