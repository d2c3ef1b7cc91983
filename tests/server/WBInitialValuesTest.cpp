#include "MethodsTesting.h"
#include "SqlConnection.h"

using testing::HasSubstr;
using testing::StartsWith;
using wbtest::ServedProduct;

namespace
{
// What every record begins with: old revisions usable, latest revision, may be persisted.
const std::string kSwitches = "1|0|1|";
const std::string kNoDocuments = "0|__null__|__null__|0|0|";
// Six mass types, the derived one first and empty.
const std::string kComputed = "6|Computed|0|0|0|0|";
const std::string kTarget = "Target|0|0|0|0|";
const std::string kEstimated = "Estimated|0|0|10|20|";
const std::string kCalculated = "Calculated|0|0|3|5|";
const std::string kSupplier = "Supplier|0|0|2|3|";
const std::string kWeighed = "Weighed|0|0|0.5|0.5|";
const std::string kUnitPlace = "1|0|0|0|1|0|0|0|1|";

/// An assembly with a weight of its own above 2 kg at x = 0 and three pieces of 2 kg at x = 4 mm.
constexpr const char* kImposed =
    "parent,instance,part,quantity,x [mm],y [mm],z [mm],mass_type,mass [kg],lower [kg],upper [kg],"
    "cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
    "[kg.m2],poi_sign,active\n"
    ",,A,,,,,,,,,,,,,,,,,,,\n"
    "A,S.1,S,,,,,Weighed,9,,,,,,,,,,,,,yes\n"
    "S,1,P,,,,,Weighed,2,0.5,0.2,0,0,0,,,,,,,,\n"
    "S,2,Q,3,4,0,0,Weighed,2,0.2,0.4,0,0,0,1,1,1,0.2,0.3,0.4,positive,\n";

/// The answer for the part P of one row below a root A, picked in the navigator or not.
std::string OnePart(const std::string& columns, const std::string& cells, bool hasInstance = true)
{
    const auto commas =
        static_cast<std::size_t>(std::count(columns.begin(), columns.end(), ',')) + 1;
    ServedProduct served;
    served.ImportTable("parent,instance,part," + columns + "\n,,A" + std::string(commas, ',') +
                       "\nA,P.1,P," + cells + "\n");
    return served.Initial(std::string(hasInstance ? "1" : "0") + "||A|P.1|P|A|0|");
}
} // namespace

TEST(WBInitialValues, NothingStatedIsAnEmptyRecord)
{
    EXPECT_EQ(OnePart("name", "x"), kSwitches + kNoDocuments + kComputed + kTarget + kEstimated +
                                        kCalculated + kSupplier + kWeighed +
                                        "1|Computed|__null__|0|0|1|0|0|" + kUnitPlace + "0|0|0|0|");
}

TEST(WBInitialValues, SizedSparCapOfTheAeroplaneWithItsRevisions)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    // 0.00123 m3 of 2780 kg/m3 are 3.4194 kg; 1 % and 2 % of it; 10 % and 20 % of 3.9 kg. The
    // places: wing root, 5 degrees of dihedral, spar turned by 90, cap 70 above.
    const std::string answer =
        served.Initial("1||LA1|WNG-211.1|WNG-211|B|3|WNG-210.1|WNG-200R.1|WNG-000.1");
    EXPECT_THAT(answer, StartsWith(kSwitches +
                                   "D-WNG-211|B.2|B.1|1|3|"
                                   "A.1|2026/02/03|keller|__null__|Estimated|3.9|"
                                   "B.1|2026/04/13|keller|__null__|Calculated|3.4194|"
                                   "B.2|2026/05/04|moreau|keller|Calculated|3.38|" +
                                   kComputed + kTarget +
                                   "Estimated|1|3.9|0.39|0.78|0|0|0|0|0|0|0|0|0|0|0|10|20|"
                                   "Calculated|1|3.4194|0.034194|0.068388|1620|0|4|"
                                   "0.000833479|4.00737|4.00769|0|0|0|1|0|1|2|0|3|5|" +
                                   kSupplier + kWeighed +
                                   "1|Calculated|__null__|1|2780|Al 2024-T3|1|0|"
                                   "1|Al 2024-T3|3|3.4194|2780|"));
    EXPECT_THAT(answer, HasSubstr("|1|Location|1|0|Instance|upper|__null__|"));
}

TEST(WBInitialValues, BracketOfTheSatelliteInAMaterialOfItsOwn)
{
    ServedProduct served;
    served.ImportSample("small_satellite.csv");
    // 0.000118 m3 of titanium: 0.52274 kg; inertia 4430/2810 of that in aluminium, so 0.000447633
    // becomes 0.000705699. Turned by 180 degrees.
    const std::string answer = served.Initial("0||SC1|STR-150.2|STR-150|A|1|STR-000.1|");
    EXPECT_THAT(answer, StartsWith(kSwitches + kNoDocuments + kComputed + kTarget + kEstimated +
                                   "Calculated|1|0.52274|0.0156822|0.026137|0|12|40|0.000705699|"
                                   "0.00087994619217081"));
    EXPECT_THAT(answer, testing::EndsWith("|1|Calculated|__null__|1|4430|Ti-6Al-4V|PartInst|1|2810|"
                                          "Al 7075-T6|1|0|1|Ti-6Al-4V|3|0.52274|4430|"
                                          "-1|0|0|0|-1|0|0|0|1|-150|240|800|0|"));
}

TEST(WBInitialValues, LastImposedIsWhatSomebodyMadeActive)
{
    EXPECT_THAT(OnePart("mass_type,mass [kg],active", "Weighed,1,yes"),
                HasSubstr("|1|Weighed|Weighed|"));
    EXPECT_THAT(OnePart("mass_type,mass [kg],active", "Weighed,1,"),
                HasSubstr("|1|Weighed|__null__|"));
    EXPECT_THAT(OnePart("mass_type,mass [kg],active,values_on", "Weighed,1,yes,instance"),
                HasSubstr("|1|Weighed|Weighed|"));
}

TEST(WBInitialValues, FairingWithAWeightOfItsOwn)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    EXPECT_EQ(served.Initial("0||LA1|LDG-400.1|LDG-400|A|1|LDG-000.1"),
              kSwitches + kNoDocuments + kComputed + kTarget + kEstimated +
                  "Calculated|1|0.925|0.02775|0.04625|0|0|0|0.00827104|0.0356742|0.0318585|0|0|0|"
                  "0|0|3|5|" +
                  kSupplier +
                  "Weighed|1|1.02|0.005|0.005|6|0|2|0|0|0|0|0|0|1|1|0.005|0.005|0|0.5|0.5|"
                  "1|Weighed|Weighed|1|1850|GFRP|PartRef|1|1850|GFRP|1|0|1|GFRP|3|1.02|1850|" +
                  kUnitPlace + "1230|960|-1030|1|Location|1|0|Instance|right|__null__|");
    EXPECT_THAT(served.Initial("1||LA1|LDG-400.2|LDG-400|A|1|LDG-000.1"),
                HasSubstr("|1|Calculated|__null__|1|1850|GFRP|1|0|1|GFRP|3|0.925|1850|"));
}

TEST(WBInitialValues, ImposedEngineAndItsProperties)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    const std::string answer = served.Initial("1||LA1|PWR-100.1|PWR-100|A|1|PWR-000.1|");
    EXPECT_THAT(answer,
                HasSubstr("|Supplier|1|60.6|1.212|1.818|-15|0|5|0|0|0|0|0|0|0|0|2|3|"
                          "Weighed|1|61.4|0.05|0.05|-14|2|6|0|0|0|0|0|0|1|1|0.05|0.05|0|0.5|0.5|"
                          "1|Weighed|Weighed|"));
    EXPECT_THAT(answer, HasSubstr("|-520|0|20|3|Operating_time|100|0|Part|12600|TIME|"
                                  "Next_inspection|1|1|Part|2026/09/01|__null__|"
                                  "Vendor|1|0|Part|Motorenwerk Süd|__null__|"));
}

TEST(WBInitialValues, PlaceIsThatInTheRootsAxes)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,x [mm],y [mm],z [mm],rz [deg]\n,,A,,,,\n"
                       "A,S.1,S,100,0,0,90\nS,P.1,P,10,5,1,30\n");
    // 90 and 30 degrees are 120: x axis (-0.5, 0.866), shift 100 - 5, 10, 1.
    EXPECT_THAT(served.Initial("1||A|P.1|P|A|1|S.1"),
                HasSubstr("|-0.5|0.866025403784439|0|-0.866025403784439|-0.5|0|0|0|1|95|10|1|0|"));
}

TEST(WBInitialValues, SetWithoutMassIsPartiallyAssigned)
{
    EXPECT_THAT(OnePart("mass_type,cgx [mm],cgy [mm],cgz [mm]", "Estimated,1,2,3"),
                HasSubstr("|Estimated|2|0|10|20|"));
    EXPECT_THAT(
        OnePart("mass_type,cgx [mm],cgy [mm],cgz [mm],lower_pct,upper_pct", "Estimated,1,2,3,4,5"),
        HasSubstr("|Estimated|2|1|0|4|5|10|20|"));
}

TEST(WBInitialValues, ProductsTravelXzThenXyThenYz)
{
    EXPECT_THAT(OnePart("mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz "
                        "[kg.m2],iyz [kg.m2],poi_sign",
                        "Weighed,1,1,2,3,0.1,0.2,0.3,positive"),
                HasSubstr("|Weighed|1|1|0.005|0.005|0|0|0|1|2|3|0.2|0.1|0.3|0|0|0.5|0.5|"));
}

TEST(WBInitialValues, StandardPartIsSaidBehindValues)
{
    EXPECT_THAT(OnePart("mass_type,mass [kg],standard", "Weighed,1,yes"),
                HasSubstr("|0|0|0|0|0|0|0|1|0.5|0.5|"));
}

TEST(WBInitialValues, AreaMakesASurfaceDensityAndAStatisticOfDimensionTwo)
{
    EXPECT_THAT(OnePart("mass_type,area [m2],material,material_surface_density [kg/m2]",
                        "Weighed,2,Foil,1.5"),
                HasSubstr("|1|Weighed|__null__|1|1.5|Foil|1|0|1|Foil|2|3|1.5|"));
}

TEST(WBInitialValues, MaterialWithoutDensityIsPartiallyAssigned)
{
    EXPECT_THAT(OnePart("mass_type,mass [kg],material", "Weighed,2,Cast"),
                HasSubstr("|1|Weighed|__null__|2|0|1|0|1|Cast|3|2|0|"));
    EXPECT_THAT(OnePart("mass_type,mass [kg],material", "Weighed,2,Cast", false),
                HasSubstr("|1|Weighed|__null__|2|0|2|0|1|0|1|Cast|3|2|0|"));
}

TEST(WBInitialValues, DensityWithoutMaterialHasNoMaterialName)
{
    EXPECT_THAT(OnePart("mass_type,volume [m3],density [kg/m3]", "Weighed,0.5,4", false),
                HasSubstr("|1|4|__null__|PartRef|1|4|__null__|1|0|1|(no material)|3|2|0|"));
}

TEST(WBInitialValues, DensityOrderOfThePartIsSent)
{
    EXPECT_THAT(OnePart("mass_type,volume [m3],density [kg/m3],material,material_density "
                        "[kg/m3],density_first",
                        "Weighed,0.5,4,Al,6,material"),
                HasSubstr("|1|6|Al|1|1|1|Al|3|3|6|"));
    EXPECT_THAT(OnePart("mass_type,volume [m3],density [kg/m3],material,material_density "
                        "[kg/m3],density_first",
                        "Weighed,0.5,4,Al,6,wb"),
                HasSubstr("|1|4|Al|1|0|1|Al|3|2|4|"));
}

TEST(WBInitialValues, DensityStatusOfAnAssemblyIsThatOfItsLeaves)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,density [kg/m3]\n,,A,\nA,S.1,S,\nS,1,P,10\nS,2,Q,\n"
                       "A,T.1,T,\nT,1,P,\nA,U.1,U,\nU,1,Q,\n");
    EXPECT_THAT(served.Initial("1||A|S.1|S|A|0|"), HasSubstr("|Computed|__null__|2|0|1|0|0|"));
    EXPECT_THAT(served.Initial("1||A|T.1|T|A|0|"),
                HasSubstr("|Computed|__null__|1|0|__null__|1|0|0|"));
    EXPECT_THAT(served.Initial("1||A|U.1|U|A|0|"), HasSubstr("|Computed|__null__|0|0|1|0|0|"));
}

TEST(WBInitialValues, ComputedOfAnAssemblyIsTheSumBelowItWhateverItSaysItself)
{
    ServedProduct served;
    served.ImportTable(kImposed);
    // 2 kg at x = 0 and 3 x 2 kg at x = 4: 8 kg at 3 mm. Inertia about that: 2 x 0.003^2 + 6 x
    // 0.001^2 = 0.000024 kg.m2, and the stated inertia of each of the three pieces of Q. The
    // products travel as xz, xy, yz.
    const std::string answer = served.Initial("1||A|S.1|S|A|0|");
    EXPECT_THAT(answer, HasSubstr("|6|Computed|1|8|1.1|1.4|3|0|0|3|3.000024|3.000024|0.9|0.6|1.2|"
                                  "0|0|0|0|Target|"));
    EXPECT_THAT(answer, HasSubstr("|Weighed|1|9|0.045|0.045|0|0|0|0|0|0|0|0|0|0|0|0.5|0.5|"
                                  "1|Weighed|Weighed|0|0|1|0|"));
}

TEST(WBInitialValues, ComputedStaysAsItWasMadeUntilItIsMadeAgain)
{
    ServedProduct served;
    served.ImportTable(kImposed);
    const std::string before = served.Initial("1||A|S.1|S|A|0|");
    EXPECT_THAT(before, HasSubstr("|Computed|1|8|"));
    EXPECT_THAT(before, HasSubstr("|1|Weighed|Weighed|0|0|1|0|1|(no material)|3|8|0|"));
    served.ImportTable("part,mass_type,mass [kg]\nP,Weighed,3\n");
    const std::string stale = served.Initial("1||A|S.1|S|A|0|");
    EXPECT_THAT(stale, HasSubstr("|Computed|1|8|"));
    EXPECT_THAT(stale, HasSubstr("|1|Weighed|Weighed|0|0|0|0|1|(no material)|3|8|0|"));
    EXPECT_THAT(
        served.Call("WBCompPartCompute", "1|S.1|S|A|0|0|__null__|Active|0|0|A|0|No Filter|0|"),
        StartsWith("9|"));
    const std::string after = served.Initial("1||A|S.1|S|A|0|");
    EXPECT_THAT(after, HasSubstr("|Computed|1|9|"));
    EXPECT_THAT(after, HasSubstr("|1|Weighed|Weighed|0|0|1|0|1|(no material)|3|9|0|"));
}

TEST(WBInitialValues, ProductThatHoldsItselfIsNamed)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg]\n,,A,,\nA,P.1,P,Weighed,2\n"
                       "A,S.1,S,,\nS,t,T,,\nT,u,U,,\n");
    wbtest::RunSql(served.Store().Path(),
                   "UPDATE use SET part = (SELECT id FROM part WHERE identifier = 'S') "
                   "WHERE instance = 'u'");
    EXPECT_EQ(served.Initial("1||A|S.1|S|A|0|"), "#WB_ERROR#The product holds itself: S > T > S.");
    EXPECT_THAT(served.Initial("1||A|P.1|P|A|0|"), HasSubstr("|Weighed|1|2|"));
}

TEST(WBInitialValues, StatisticsOfAnAssemblyHaveOneEntryForEachMaterialAndDimension)
{
    ServedProduct served;
    // Foil: 2 kg of 0.5 kg/m2 and 4 kg of 1 kg/m2. Steel: 5 kg of 10 kg/m3.
    served.ImportTable(
        "parent,instance,part,mass_type,area [m2],volume [m3],surface_density [kg/m2],"
        "density_first,material,material_surface_density [kg/m2],material_density [kg/m3]\n"
        ",,A,,,,,,,,\nA,S.1,S,,,,,,,,\n"
        "S,1,P,Weighed,4,,,,Foil,0.5,\nS,2,Q,Weighed,4,,1,wb,Foil,,\n"
        "S,3,R,Weighed,,0.5,,,Steel,,10\nS,4,T,,,,,,,,\n");
    EXPECT_THAT(served.Initial("1||A|S.1|S|A|0|"),
                HasSubstr("|1|0|2|Foil|Steel|2|6|3|5|0|10|" + kUnitPlace));
}

TEST(WBInitialValues, AssemblyWithoutAnyMassBelowHasAnEmptyComputed)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,standard\n,,A,\nA,S.1,S,yes\nS,1,P,\n");
    EXPECT_THAT(served.Initial("1||A|S.1|S|A|0|"), HasSubstr("|" + kComputed + kTarget));
}

TEST(WBInitialValues, ComputedOfAStandardAssemblyTellsThatItIsOne)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,standard,mass_type,mass [kg]\n,,A,,,\nA,S.1,S,yes,,\n"
                       "S,1,P,,Weighed,2\n");
    EXPECT_THAT(served.Initial("1||A|S.1|S|A|0|"),
                HasSubstr("|Computed|1|2|0.01|0.01|0|0|0|0|0|0|0|0|0|0|1|0|0|Target|"));
}

TEST(WBInitialValues, PropertiesOfEveryType)
{
    EXPECT_THAT(
        OnePart("p:T,p:I:int,p:R:real,p:B:bool,p:M [lb],i:U:date", "x,7,0.25,yes,2,2026-09-01"),
        HasSubstr("|6|T|1|0|Part|x|__null__|I|2|0|Part|7|__null__|R|3|0|Part|0.25|__null__|"
                  "B|4|0|Part|yes|__null__|M|100|0|Part|0.90718474|MASS|"
                  "U|1|1|Instance|2026/09/01|__null__|"));
}

TEST(WBInitialValues, WrongFieldsAreNamed)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,S.1,S\nS,P.1,P\n");
    const auto error = [&](const std::string& request) {
        return served.Initial(request);
    };
    EXPECT_THAT(error("1||A|S.1|S|A|0||"), StartsWith("1|0|1|")); // an empty path may follow 0
    EXPECT_THAT(error("1||A|S.1|S|A|0|||"), HasSubstr("behind its last field"));
    EXPECT_EQ(error(""), "#WB_ERROR#The field has-instance of the request is missing.");
    EXPECT_EQ(error("2||A|P.1|P|A|1|S.1"),
              "#WB_ERROR#The field has-instance of the request holds \"2\", expected 0 or 1.");
    EXPECT_EQ(error("1|A|P.1|P|A|1|S.1"),
              "#WB_ERROR#The field 2 of the request holds \"A\", expected an empty field.");
    EXPECT_THAT(error("1||B|P.1|P|A|1|S.1"),
                HasSubstr("The field root of the request names \"B\""));
    EXPECT_THAT(error("1||A|P.2|P|A|1|S.1"),
                HasSubstr("The field instance of the request names \"P.2\""));
    EXPECT_THAT(error("1||A|P.1|P|A|1|S.2"),
                HasSubstr("names \"S.2\", which the database does not"));
    EXPECT_THAT(error("1||A|P.1|Q|A|1|S.1"),
                HasSubstr("The field part of the request names \"Q\""));
    EXPECT_THAT(error("1||A|P.1|P|B|1|S.1"), HasSubstr("The field version of the request names"));
    EXPECT_THAT(error("1||A|P.1|P|A|x|S.1"),
                HasSubstr("The field path count of the request holds"));
    EXPECT_THAT(error("1||A|P.1|P|A|-1|S.1"), HasSubstr("expected a whole number from 0"));
    EXPECT_THAT(error("1||A|P.1|P|A|99999|S.1"),
                HasSubstr("expected a whole number from 0 to 10000"));
    EXPECT_THAT(error("1||A|P.1|P|A|2|S.1"), HasSubstr("The field path of the request is missing"));
    EXPECT_THAT(error("1||A|P.1|P|A|1|S.1|x"), HasSubstr("behind its last field"));
}

TEST(WBInitialValues, RequestCutAnywhereIsAnErrorAndChangesNothing)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,S.1,S\nS,P.1,P\n");
    const std::string request = "1||A|P.1|P|A|1|S.1";
    const std::string whole = served.Initial(request);
    EXPECT_THAT(whole, StartsWith("1|0|1|"));
    for (std::size_t length = 0; length < request.size(); ++length) {
        EXPECT_THAT(served.Initial(request.substr(0, length)), StartsWith("#WB_ERROR#")) << length;
    }
    EXPECT_EQ(served.Initial(request), whole);
    EXPECT_EQ(served.Store().History().size(), 1U);
}

TEST(WBInitialValues, HostileTextsAreOnlyTexts)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,P.1,P\n");
    for (const char* text : {"' OR 1=1 --", "\"; DROP TABLE part; --", "%s%n", "\xFF\xFE"}) {
        EXPECT_THAT(served.Initial("1||A|" + std::string(text) + "|P|A|0|"),
                    StartsWith("#WB_ERROR#"));
    }
    EXPECT_THAT(served.Initial("1||A|P.1|P|A|0|"), StartsWith("1|0|1|"));
}
