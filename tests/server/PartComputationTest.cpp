#include "PartRequestTesting.h"
#include "SqlConnection.h"

#include <atomic>
#include <utility>

using namespace wb;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using wbtest::PartRequest;
using wbtest::ServedProduct;

namespace
{
const PartRequest kAssembly{.place = "S.1|S|A|0"};
const PartRequest kLeafP{.place = "P.1|P|A|0"};

/// 0.5 m3 of a density of its own and of a material; a weighed mass counts.
constexpr const char* kSized =
    "parent,instance,part,mass_type,mass [kg],volume [m3],density [kg/m3],material,"
    "material_density [kg/m3],active\n"
    ",,A,,,,,,,\n"
    "A,P.1,P,Calculated,,0.5,4,Al,6,\n"
    ",,P,Weighed,9,,,,,yes\n"
    "A,Q.1,Q,Calculated,1,,,Ti,10,\n"
    ",,Z,,,,,Lead,20,\n";

std::string MassOf(ServedProduct& served, const PartRequest& request)
{
    const auto fields = wbtest::Split(wbtest::ComputePart(served, request), '|');
    return fields.at(0);
}

void ExpectTotal(const std::string& answer, const std::vector<std::string>& row)
{
    wbtest::AnswerFields fields(answer);
    fields.ExpectNumbers({wbtest::Cell(row, 5), wbtest::Cell(row, 6), wbtest::Cell(row, 7)});
    fields.ExpectNumbers({wbtest::Cell(row, 8), wbtest::Cell(row, 9), wbtest::Cell(row, 10)});
    // The products travel as xz, xy, yz; the file has xy, xz, yz.
    fields.ExpectNumbers({wbtest::Cell(row, 11), wbtest::Cell(row, 12), wbtest::Cell(row, 13),
                          wbtest::Cell(row, 15), wbtest::Cell(row, 14), wbtest::Cell(row, 16)});
}
} // namespace

TEST(PartComputation, AssemblyIsSummedUpWhateverItSaysOfItself)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    // 2 kg at x = 0 and 3 x 2 kg at x = 4: 8 kg at 3 mm. Inertia about that: 2 x 0.003^2 + 6 x
    // 0.001^2 = 0.000024 kg.m2, and the stated inertia of each of the three pieces of Q. Worst
    // case: 0.5 + 3 x 0.2 below, 0.2 + 3 x 0.4 above. In the assembly's own axes; its place stands
    // behind the shares.
    EXPECT_EQ(wbtest::ComputePart(served, kAssembly),
              "8|1.1|1.4|3|0|0|3|3.000024|3.000024|0.9|0.6|1.2|"
              "1|(no material)|3|8|0|1|Weighed|8|0|1|0|-1|0|0|0|0|1|10|20|30|");
    PartRequest request = kAssembly;
    for (const char* precision : {"MostPrecise", "Computed", "Weighed"}) {
        request.precision = precision;
        EXPECT_EQ(MassOf(served, request), "8") << precision;
    }
}

TEST(PartComputation, SampleAssembliesWeighWhatIsExpected)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    served.ImportSample("small_satellite.csv");
    PartRequest request;
    request.place = "PWR-100.1|PWR-100|A|1|PWR-000.1";
    request.root = "LA1";
    ExpectTotal(wbtest::ComputePart(served, request),
                wbtest::ExpectedRows("LA1", "PWR-100", "Active", "below").at(0));
    request.place = "PAY-000.1|PAY-000|A|0";
    request.root = "SC1";
    ExpectTotal(wbtest::ComputePart(served, request),
                wbtest::ExpectedRows("SC1", "PAY-000", "Active", "below").at(0));
    request.entity = "1";
    for (const char* mode : {"Active", "MostPrecise", "Computed", "Calculated"}) {
        request.precision = mode;
        ExpectTotal(wbtest::ComputePart(served, request),
                    wbtest::ExpectedRows("SC1", "SC1", mode, "total").at(0));
    }
}

TEST(PartComputation, LeafIsSizeTimesTheDensityThatTheRequestPutsFirst)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    // 0.5 m3 of 4 kg/m3; 3 % and 5 % are the default precision of calculated values.
    EXPECT_EQ(wbtest::ComputePart(served, request),
              std::string("2|0.06|0.1|0|0|0|0|0|0|0|0|0|1|Al|3|2|4|1|Calculated|2|") +
                  wbtest::kUnitPlace);
    request.priority = "1";
    EXPECT_EQ(wbtest::ComputePart(served, request),
              std::string("3|0.09|0.15|0|0|0|0|0|0|0|0|0|1|Al|3|3|6|1|Calculated|3|") +
                  wbtest::kUnitPlace);
}

TEST(PartComputation, LeafCanBeTriedInAnotherMaterial)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    request.priority = "1";
    request.material = "Ti";
    EXPECT_THAT(wbtest::ComputePart(served, request), HasSubstr("|1|Ti|3|5|10|"));
    request.material = ""; // as good as none
    EXPECT_THAT(wbtest::ComputePart(served, request), HasSubstr("|1|Al|3|3|6|"));
}

TEST(PartComputation, MaterialThatNothingOfTheProductIsMadeOfCanBeTried)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    request.priority = "1";
    request.material = "Lead";
    for (int time = 0; time < 2; ++time) {
        EXPECT_THAT(wbtest::ComputePart(served, request), HasSubstr("|1|Lead|3|10|20|"));
    }
}

TEST(PartComputation, TriedMaterialHasTheDensityThatItHasNow)
{
    // The product does not hold it, so that its change leaves the product in memory.
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    request.priority = "1";
    request.material = "Lead";
    EXPECT_THAT(wbtest::ComputePart(served, request), HasSubstr("|1|Lead|3|10|20|"));
    wbtest::RunSql(served.Store().Path(), "UPDATE material SET density = 30 WHERE name = 'Lead'");
    EXPECT_THAT(wbtest::ComputePart(served, request), HasSubstr("|1|Lead|3|15|30|"));
}

TEST(PartComputation, LeafIsAskedForOneTypesValues)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    const std::vector<std::pair<const char*, const char*>> masses{
        {"Active", "2"},     {"Computed", "2"}, {"MostPrecise", "9"},
        {"Calculated", "2"}, {"Weighed", "9"},  {"Supplier", "0"}};
    for (const auto& [precision, mass] : masses) {
        request.precision = precision;
        EXPECT_EQ(MassOf(served, request), mass) << precision;
    }
    EXPECT_THAT(wbtest::Warnings(served), HasSubstr("\nERROR"));
}

TEST(PartComputation, LeafWithoutSizeHasItsActiveValues)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request;
    request.place = "Q.1|Q|A|0";
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("1|0.03|0.05|"));
}

TEST(PartComputation, RootIsAskedWhateverThePlaceSays)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request = kLeafP;
    request.entity = "1";
    EXPECT_EQ(MassOf(served, request), "10");
    request.place = "DummyInstance|DummyPart|DummyVersion|0";
    request.priority = "x";
    request.material = "WBMaterial";
    EXPECT_EQ(MassOf(served, request), "10");
}

TEST(PartComputation, PlaceOfARootNeedsNoInstance)
{
    ServedProduct served;
    served.ImportTable(kSized);
    PartRequest request;
    for (const char* place : {"|A|A|0", "__null__|A|A|0"}) {
        request.place = place;
        EXPECT_EQ(MassOf(served, request), "10") << place;
    }
}

TEST(PartComputation, PartAloneIsWhatItSaysOfItself)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.entity = "2";
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("9|0.045|0.045|0|0|0|"));
    request.precision = "Estimated";
    EXPECT_EQ(MassOf(served, request), "0");
    // A filter says what of the product counts, and nothing of the product does here.
    request.precision = "Active";
    request.filter = "1|No Q|X|2|Q|A|1|S.1";
    EXPECT_EQ(MassOf(served, request), "9");
}

TEST(PartComputation, FilterLeavesPartsOutBelowTheAskedOne)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.filter = "1|No Q|X|2|Q|A|1|S.1";
    EXPECT_EQ(MassOf(served, request), "2");
    request.filter = "1|No S|X|S.1|S|A|0";
    EXPECT_EQ(MassOf(served, request), "0");
    EXPECT_THAT(wbtest::Warnings(served), HasSubstr("- the filter leaves out what is asked"));
}

TEST(PartComputation, DefinedPrecisionTakesThePlaceOfTheDeviations)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.defined = "1|0|10|25";
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("8|0.8|2|"));
    request.defined = "1|1|10|0,25";
    EXPECT_THAT(wbtest::ComputePart(served, request), StartsWith("8|10|0.25|"));
}

TEST(PartComputation, StatisticsHaveOneEntryForEachMaterialAndDimension)
{
    ServedProduct served;
    // Foil: 2 kg of 0.5 kg/m2 and 4 kg of 1 kg/m2, and 7 kg that nobody sized. Steel: 5 kg.
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],area [m2],volume [m3],surface_density [kg/m2],"
        "density_first,material,material_surface_density [kg/m2],material_density [kg/m3]\n"
        ",,A,,,,,,,,,\nA,S.1,S,,,,,,,,,\n"
        "S,1,P,Weighed,,4,,,,Foil,0.5,\nS,2,Q,Weighed,,4,,1,wb,Foil,,\n"
        "S,3,R,Weighed,,,0.5,,,Steel,,10\nS,4,T,Estimated,7,,,,,,,\n");
    EXPECT_THAT(wbtest::ComputePart(served, kAssembly),
                HasSubstr("|3|(no material)|Foil|Steel|3|7|2|6|3|5|0|0|10|"
                          "2|Estimated|7|Weighed|11|"));
}

TEST(PartComputation, VolumesAndSurfacesOfOneMaterialStayApart)
{
    ServedProduct served;
    // A sheet of 3 kg/m2, and a block that is made of it: 0.5 m3 of 8 kg/m3.
    served.ImportTable(
        "parent,instance,part,mass_type,area [m2],volume [m3],density [kg/m3],material,"
        "material_surface_density [kg/m2]\n,,A,,,,,,\nA,S.1,S,,,,,,\n"
        "S,1,P,Weighed,1,,,Foil,3\nS,2,Q,Weighed,,0.5,8,Foil,\n");
    EXPECT_THAT(wbtest::ComputePart(served, kAssembly),
                HasSubstr("|2|Foil|Foil|3|4|2|3|8|3|1|Weighed|7|"));
}

TEST(PartComputation, WarningsWaitForTheUserWhoAsked)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,S.1,S,,\nS,1,P,Weighed,2\n"
        "S,2,Q,,\n");
    EXPECT_THAT(wbtest::ComputePart(served, kAssembly), StartsWith("2|0.01|0.01|0|0|0|0|0|0|"));
    EXPECT_THAT(wbtest::Warnings(served),
                StartsWith("- unknown, and sent as 0: centre of gravity and inertia\n"
                           "- 1 of 2 items has no mass; the total leaves it out\n"));
    EXPECT_EQ(wbtest::Warnings(served), "");
    wbtest::ComputePart(served, kAssembly);
    EXPECT_THAT(served.Call("WBCompPartCompute", "nonsense"), StartsWith("#WB_ERROR#"));
    EXPECT_EQ(wbtest::Warnings(served), "");
}

TEST(PartComputation, PartWithoutValuesIsAnErrorAmongTheWarnings)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,P.1,P\n");
    EXPECT_EQ(wbtest::ComputePart(served, kLeafP),
              std::string("0|0|0|0|0|0|0|0|0|0|0|0|0|0|") + wbtest::kUnitPlace);
    const std::string warnings = wbtest::Warnings(served);
    EXPECT_THAT(warnings,
                StartsWith("- unknown, and sent as 0: mass, centre of gravity and inertia\n"));
    EXPECT_THAT(warnings,
                HasSubstr("\nERROR: nothing that was asked for has a mass of this kind."));
}

TEST(PartComputation, PlaceIsThatInTheRootsAxes)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,x [mm],y [mm],z [mm],rz [deg]\n,,A,,,,\n"
                       "A,S.1,S,100,0,0,90\nS,P.1,P,10,5,1,90\n");
    PartRequest request;
    request.place = "P.1|P|A|1|S.1";
    // 90 and 90 degrees turn by half; (10, 5) of the assembly stands at (-5, 10) beside it.
    EXPECT_THAT(wbtest::ComputePart(served, request),
                testing::EndsWith("|-1|0|0|0|-1|0|0|0|1|95|10|1|"));
    request.entity = "1";
    EXPECT_THAT(wbtest::ComputePart(served, request),
                testing::EndsWith(std::string("|") + wbtest::kUnitPlace));
}

TEST(PartComputation, UsesOwnValuesGoBeforeThoseOfThePart)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    PartRequest request;
    request.root = "LA1";
    request.precision = "MostPrecise";
    request.place = "LDG-400.1|LDG-400|A|1|LDG-000.1";
    EXPECT_EQ(MassOf(served, request), "1.02");
    request.place = "LDG-400.2|LDG-400|A|1|LDG-000.1";
    EXPECT_EQ(MassOf(served, request), "0.925");
}

TEST(PartComputation, CancelledComputationSaysSoAndTheNextOneWorks)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    std::atomic<bool> cancel = false;
    CallContext context;
    context.cancel = &cancel;
    context.progress = [&](double, std::string_view) {
        cancel = true; // as a user does while the server works
    };
    EXPECT_EQ(served.Server().Call("WBCompPartCompute", kAssembly.Text(), context),
              "#WB_ERROR#The computation was cancelled.");
    EXPECT_EQ(MassOf(served, kAssembly), "8");
}

TEST(PartComputation, RequestCutAnywhereIsAnErrorAndTheNextOneWorks)
{
    ServedProduct served;
    served.ImportTable(wbtest::kImposed);
    PartRequest request = kAssembly;
    request.filter = "1|No Q|X|2|Q|A|1|S.1";
    std::string text = request.Text();
    text.pop_back(); // a field that ends the text needs no separator
    for (std::size_t length = 0; length < text.size(); ++length) {
        EXPECT_THAT(served.Call("WBCompPartCompute", text.substr(0, length)),
                    StartsWith("#WB_ERROR#The field "))
            << length;
    }
    EXPECT_THAT(served.Call("WBCompPartCompute", text), StartsWith("2|"));
}

TEST(PartComputation, WrongFieldsAreNamedAndTheNextComputationWorks)
{
    struct Row
    {
        const char* wrong;
        PartRequest request;
        const char* sentence;
    };
    const auto with = [](std::string PartRequest::*field, const char* value) {
        PartRequest request{.place = "P.1|P|A|0"};
        request.*field = value;
        return request;
    };
    const std::vector<Row> rows{
        {"instance", with(&PartRequest::place, "P.2|P|A|0"),
         "The field instance of the request names \"P.2\", which the database does not hold "
         "there."},
        {"part", with(&PartRequest::place, "P.1|Q|A|0"),
         "The field part of the request names \"Q\", but the instance is one of \"P\"."},
        {"version", with(&PartRequest::place, "P.1|P|B|0"),
         "The field version of the request names \"B\", but the instance is one of \"A\"."},
        {"path count no number", with(&PartRequest::place, "P.1|P|A|x"),
         "The field path count of the request holds \"x\", expected a whole number from 0."},
        {"path count too large", with(&PartRequest::place, "P.1|P|A|10001"),
         "The field path count of the request holds \"10001\", expected a whole number from 0 to "
         "10000."},
        {"path count beyond any number", with(&PartRequest::place, "P.1|P|A|99999999999999999999"),
         "The field path count of the request holds \"99999999999999999999\", expected a whole "
         "number from 0."},
        {"path", with(&PartRequest::place, "P.1|P|A|1|X"),
         "The field path of the request names \"X\", which the database does not hold there."},
        {"path without instance", with(&PartRequest::place, "|P|A|1|Q.1"),
         "The field instance of the request names \"\", which the database does not hold there."},
        {"path count that lies", with(&PartRequest::place, "P.1|P|A|1"),
         "The field entity of the request holds \"A\", expected a whole number from 0."},
        {"density priority", with(&PartRequest::priority, "2"),
         "The field density priority of the request holds \"2\", expected 0 or 1."},
        {"material", with(&PartRequest::material, "Cheese"),
         "The field material of the request names \"Cheese\", which the database does not hold."},
        {"precision", with(&PartRequest::precision, "Guessed"),
         "The field precision of the request names \"Guessed\", which is no mass type of the "
         "database."},
        {"precision empty", with(&PartRequest::precision, ""),
         "The field precision of the request is empty, expected a text."},
        {"policy", with(&PartRequest::policy, "3"),
         "The field update policy of the request holds \"3\", expected a whole number from 0 to "
         "2."},
        {"level", with(&PartRequest::policy, "2|1.5"),
         "The field level of the request holds \"1.5\", expected a whole number from 0."},
        {"level missing", with(&PartRequest::policy, "2|"),
         "The field level of the request holds \"\", expected a whole number from 0."},
        {"entity", with(&PartRequest::entity, "3"),
         "The field entity of the request holds \"3\", expected a whole number from 0 to 2."},
        {"root", with(&PartRequest::root, "P"),
         "The field root of the request names \"P\", which the database does not hold there."},
        {"root empty", with(&PartRequest::root, ""),
         "The field root of the request is empty, expected a text."},
        {"filter count", with(&PartRequest::filter, "z|F"),
         "The field filter line count of the filter holds \"z\", expected a count."},
        {"filter count that lies", with(&PartRequest::filter, "2|F|X|P.1|P|A|0"),
         "The field filter line holds \"0\", expected I or X."},
        {"filter line", with(&PartRequest::filter, "1|F|Y|P.1|P|A|0"),
         "The field filter line holds \"Y\", expected I or X."},
        {"precision type", with(&PartRequest::defined, "2"),
         "The field precision type of the request holds \"2\", expected a whole number from 0 to "
         "1."},
        {"value type", with(&PartRequest::defined, "1|2|1|1"),
         "The field precision value type of the request holds \"2\", expected a whole number from "
         "0 to 1."},
        {"lower", with(&PartRequest::defined, "1|1|-1|1"),
         "The field lower precision of the request holds \"-1\", expected a number from 0."},
        {"upper", with(&PartRequest::defined, "1|1|1|nan"),
         "The field upper precision of the request holds \"nan\", expected a number from 0."},
        {"more", with(&PartRequest::defined, "0|more"),
         "The request holds \"more|\" behind its last field, expected nothing."}};
    ServedProduct served;
    served.ImportTable(kSized);
    for (const Row& row : rows) {
        EXPECT_EQ(wbtest::ComputePart(served, row.request),
                  std::string("#WB_ERROR#") + row.sentence)
            << row.wrong;
        EXPECT_EQ(MassOf(served, kLeafP), "2") << row.wrong;
    }
    EXPECT_EQ(served.Call("WBCompPartCompute", "2" + kLeafP.Text().substr(1)),
              "#WB_ERROR#The field has-instance of the request holds \"2\", expected 0 or 1.");
    PartRequest root = kLeafP;
    root.entity = "1";
    root.root = "P";
    EXPECT_EQ(wbtest::ComputePart(served, root),
              "#WB_ERROR#The field root of the request names "
              "\"P\", which is no product root of the database.");
}

TEST(PartComputation, CycleIsNamedAndAnotherProductStillComputed)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,S.1,S,,\nS,t,T,,\nT,u,U,,\n"
        ",,B,,\nB,P.1,P,Weighed,3\n");
    wbtest::RunSql(served.Store().Path(),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'S') "
                   "WHERE instance = 'u'");
    for (const char* entity : {"0", "1", "2"}) {
        PartRequest request = kAssembly;
        request.entity = entity;
        const std::string answer = wbtest::ComputePart(served, request);
        EXPECT_THAT(answer, StartsWith("#WB_ERROR#"));
        EXPECT_THAT(answer, HasSubstr("The product holds itself: S > T > S."));
    }
    PartRequest other = kLeafP;
    other.root = "B";
    EXPECT_EQ(MassOf(served, other), "3");
}
