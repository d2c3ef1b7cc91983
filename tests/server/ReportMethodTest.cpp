#include "PartRequestTesting.h"
#include "ReportTesting.h"
#include "SqlConnection.h"
#include "WBTexts.h"

#include <algorithm>
#include <functional>
#include <set>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using wbtest::AllPaths;
using wbtest::Asked;
using wbtest::AttributeNames;
using wbtest::Below;
using wbtest::Cell;
using wbtest::ContextOf;
using wbtest::ExpectedRows;
using wbtest::kRich;
using wbtest::kTwice;
using wbtest::Number;
using wbtest::ReadReport;
using wbtest::Report;
using wbtest::ServedProduct;
using wbtest::TimeZone;
using wbtest::Value;

namespace
{
constexpr const char* kRichLeaf =
    "<PartInstance instIdAttrAlias=\"Instance_ID\" Part_ID=\"P\" Instance_ID=\"P.1\" Name=\"Leaf\" "
    "Version=\"A\" Quantity=\"4\" WB_Mass=\"16\" Unit_mass=\"4\" __magnitude__Unit_mass=\"MASS\" "
    "WB_Lower_deviation=\"2\" WB_Upper_deviation=\"1\" COGx=\"8\" COGy=\"26\" COGz=\"33\" "
    "MOIxx=\"8\" MOIyy=\"4\" MOIzz=\"10\" POIxy=\"-0.4\" POIxz=\"-1.2\" POIyz=\"0.8\" "
    "WB_Density=\"2000\" Material=\"Steel\" Density=\"2000\" Density_dimension=\"3\" "
    "WB_Mass_Details=\"16\" Cut_Volume=\"0.008\" Code=\"FUEL\" WB_Status=\"complete\" "
    "Source=\"scale 7\" WBActiveMassTypeID=\"Weighed\" WBLastImposedMassTypeID=\"Weighed\" "
    "WBActiveDocumentID=\"DOC\" WB_Last_calculation_date=\"2026/11/21 15:04:05\" "
    "InstancePath=\"A/S.1/P.1\" Built=\"2026/05/31\" Power=\"12.5\" __magnitude__Power=\"POWER\" "
    "Vendor=\"Smith\"/>";

constexpr const char* kRichSub =
    "<PartInstance instIdAttrAlias=\"Instance_ID\" Part_ID=\"S\" Instance_ID=\"S.1\" Name=\"Sub\" "
    "Version=\"A\" Quantity=\"2\" WB_Mass=\"16\" Unit_mass=\"8\" __magnitude__Unit_mass=\"MASS\" "
    "WB_Lower_deviation=\"2\" WB_Upper_deviation=\"1\" COGx=\"8\" COGy=\"26\" COGz=\"33\" "
    "MOIxx=\"8\" MOIyy=\"4\" MOIzz=\"10\" POIxy=\"-0.4\" POIxz=\"-1.2\" POIyz=\"0.8\" "
    "Material=\"Steel\" Density=\"2000\" Density_dimension=\"3\" "
    "WB_Mass_Details=\"16\" Cut_Volume=\"0.008\" Code=\"TOP\" WB_Status=\"complete\" "
    "WBActiveMassTypeID=\"Computed\" WB_Last_calculation_date=\"2026/11/21 15:04:05\" "
    "InstancePath=\"A/S.1\" Where=\"left\">";

constexpr const char* kRichFigures =
    "WB_Mass=\"16\" WB_Lower_deviation=\"2\" WB_Upper_deviation=\"1\" COGx=\"8\" COGy=\"26\" "
    "COGz=\"33\" MOIxx=\"8\" MOIyy=\"4\" MOIzz=\"10\" POIxy=\"-0.4\" POIxz=\"-1.2\" POIyz=\"0.8\"";
} // namespace

TEST(ReportMethod, ReportHasEveryAttributeInItsPlace)
{
    const TimeZone zone("UTC0");
    ServedProduct served;
    served.ImportTable(kRich);
    const std::string figures = kRichFigures;
    EXPECT_EQ(Report(served, {}),
              "<WB_Report Kind=\"report\" Root=\"A\" Version=\"A\" Precision=\"Active\" "
              "User=\"kim\" Created=\"2026/11/21 15:04:05\">"
              "<PRC PRC_ID=\"A\" Name=\"Whole\" Version=\"A\" " +
                  figures +
                  " WB_Status=\"complete\" WBActiveMassTypeID=\"Computed\" "
                  "WB_Last_calculation_date=\"2026/11/21 15:04:05\">"
                  "<WB_Section Name=\"FUEL\" " +
                  figures + "/>" + kRichSub + kRichLeaf + "</PartInstance></PRC></WB_Report>");
}

TEST(ReportMethod, DistributiveReportIsFlatWithTheInstanceOfMostAttributesFirst)
{
    const TimeZone zone("UTC0");
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.kind = "1";
    const ReadReport report(served, asked);
    const std::string figures = kRichFigures;
    EXPECT_THAT(report.text, HasSubstr("<WB_Section Name=\"FUEL\" " + figures +
                                       " Quantity=\"4\" Density=\"2000\" Density_dimension=\"3\" "
                                       "Cut_Volume=\"0.008\"/><PartInstance Part_ID="));
    EXPECT_THAT(report.text,
                HasSubstr("Version=\"A\" " + figures +
                          " Material=\"Steel\" Density=\"2000\" Density_dimension=\"3\" "
                          "Cut_Volume=\"0.008\" WB_Status=\"complete\""));
    EXPECT_THAT(report.text,
                testing::EndsWith("InstancePath=\"A/S.1\" Where=\"left\"/></PRC></WB_Report>"));
    EXPECT_EQ(std::string(report.Root().attribute("Kind").value()), "distributive");
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "InstancePath"),
                ElementsAre("A/S.1/P.1", "A/S.1"));
    EXPECT_THAT(AttributeNames(report.At("A/S.1/P.1")),
                ElementsAre("Part_ID", "Instance_ID", "Name", "Version", "Quantity", "WB_Mass",
                            "WB_Lower_deviation", "WB_Upper_deviation", "COGx", "COGy", "COGz",
                            "MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz", "WB_Density",
                            "Material", "Density", "Density_dimension", "Cut_Volume", "Code",
                            "WB_Status", "Source", "WBActiveMassTypeID", "WBLastImposedMassTypeID",
                            "WBActiveDocumentID", "WB_Last_calculation_date", "InstancePath",
                            "Built", "Power", "Vendor"));
}

TEST(ReportMethod, FirstOfTheInstancesWithMostAttributesGoesFirst)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n"
                       ",,A,,,,,\nA,1,P,Weighed,1,,,\nA,2,Q,Weighed,2,1,1,1\n"
                       "A,3,R,Weighed,3,,,\nA,4,Q,,,,,\n");
    Asked asked;
    asked.kind = "1";
    const ReadReport report(served, asked);
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "Instance_ID"),
                ElementsAre("2", "1", "3", "4"));
}

TEST(ReportMethod, MaterialStatisticsOfTheRootAlone)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.kind = "2";
    const ReadReport report(served, asked);
    EXPECT_THAT(
        report.text,
        HasSubstr("<PRC PRC_ID=\"A\" Name=\"Whole\" Version=\"A\">"
                  "<MaterialStat InstanceID=\"A\" Name=\"Steel\" Mass=\"16\" Density=\"2000\" "
                  "Dimension=\"3\" Mass_ratio=\"100\" InstancePath=\"A\"/>"
                  "<MassTypeStat InstanceID=\"A\" Name=\"Weighed\" Mass=\"16\" "
                  "Mass_ratio=\"100\" InstancePath=\"A\"/></PRC></WB_Report>"));
    EXPECT_THAT(report.text, HasSubstr("Kind=\"material_statistics\""));
    asked.values = "0";
    EXPECT_THAT(ReadReport(served, asked).text, HasSubstr("Name=\"Steel\" Mass=\"16\""))
        << "whatever values are asked for";
}

TEST(ReportMethod, MaterialStatisticsOfInstancesNestAsTheStructureDoes)
{
    ServedProduct served;
    served.ImportTable(kRich);
    Asked asked;
    asked.kind = "2";
    asked.ofInstances = "1";
    EXPECT_THAT(
        Report(served, asked),
        HasSubstr("<PartInstance Part_ID=\"S\" Instance_ID=\"S.1\" Name=\"Sub\" Quantity=\"2\">"
                  "<MaterialStat InstanceID=\"S.1\" Name=\"Steel\" Mass=\"16\" "
                  "Density=\"2000\" Dimension=\"3\" Mass_ratio=\"100\" InstancePath=\"A/S.1\"/>"
                  "<MassTypeStat InstanceID=\"S.1\" Name=\"Weighed\" Mass=\"16\" "
                  "Mass_ratio=\"100\" InstancePath=\"A/S.1\"/>"
                  "<PartInstance Part_ID=\"P\" Instance_ID=\"P.1\" Name=\"Leaf\" Quantity=\"4\">"
                  "<MaterialStat InstanceID=\"P.1\" Name=\"Steel\" Mass=\"16\" "
                  "Density=\"2000\" Dimension=\"3\" Mass_ratio=\"100\" "
                  "InstancePath=\"A/S.1/P.1\"/>"
                  "<MassTypeStat InstanceID=\"P.1\" Name=\"Weighed\" Mass=\"16\" "
                  "Mass_ratio=\"100\" InstancePath=\"A/S.1/P.1\"/>"
                  "</PartInstance></PartInstance></PRC></WB_Report>"));
}

TEST(ReportMethod, StatisticsWithoutDensityAndOfSurfacesAndOfNothing)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],area [m2],material,"
                       "material_surface_density [kg/m2]\n"
                       ",,A,,,,,\nA,1,P,Weighed,1,,,\nA,2,Q,Weighed,,0.5,Foil,6\nA,3,N,,,,,\n");
    Asked asked;
    asked.kind = "2";
    asked.ofInstances = "1";
    const std::string text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("<MaterialStat InstanceID=\"A\" Name=\"(no material)\" Mass=\"1\" "
                                "Dimension=\"3\" Mass_ratio=\"25\" InstancePath=\"A\"/>"
                                "<MaterialStat InstanceID=\"A\" Name=\"Foil\" Mass=\"3\" "
                                "Density=\"6\" Dimension=\"2\" Mass_ratio=\"75\" "
                                "InstancePath=\"A\"/>"));
    EXPECT_THAT(text, HasSubstr("<PartInstance Part_ID=\"N\" Instance_ID=\"3\" Name=\"N\" "
                                "Quantity=\"1\"></PartInstance>"));
}

// A preview lists them from the last to the first.
TEST(ReportMethod, StatisticsEndWithTheLargestMaterialAndTheLeastMatureMassType)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],material\n"
                       ",,A,,,\nA,1,P,Weighed,1,Steel\nA,2,Q,Estimated,4,Foil\n"
                       "A,3,R,Calculated,2,Brass\n");
    Asked asked;
    asked.kind = "2";
    const ReadReport report(served, asked);
    EXPECT_THAT(Below(report.Prc(), "MaterialStat", "Name"), ElementsAre("Steel", "Brass", "Foil"));
    EXPECT_THAT(Below(report.Prc(), "MassTypeStat", "Name"),
                ElementsAre("Weighed", "Calculated", "Estimated"));
}

TEST(ReportMethod, SharesOfNothingAreLeftOut)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,type,mass_type,mass [kg]\n"
                       ",,A,,,\nA,1,P,,Weighed,1\nA,2,Q,adjustment,Weighed,-1\n");
    Asked asked;
    asked.kind = "2";
    const std::string text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("Version=\"A\"><MaterialStat InstanceID=\"A\" "
                                "Name=\"(no material)\" Mass=\"0\" Dimension=\"3\" "
                                "InstancePath=\"A\"/>"));
}

TEST(ReportMethod, UnknownIsAbsentAndTheStatusSaysWhatIsMissing)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],"
        "iyy [kg.m2],izz [kg.m2]\n"
        ",,A,,,,,,,,\nA,1,N,,,,,,,,\nA,2,C,Weighed,1,,,,,,\nA,3,I,Weighed,1,0,0,0,,,\n"
        "A,4,W,Weighed,1,0,0,0,1,1,1\nA,5,S,,,,,,,,\nS,1,W,,,,,,,,\nS,2,I,,,,,,,,\n");
    Asked asked;
    asked.values = "3|Deviations|Centre|Inertia";
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.At("A/1"), "WB_Status"), "no mass");
    for (const char* name : {"WB_Mass", "Unit_mass", "__magnitude__Unit_mass", "WB_Lower_deviation",
                             "COGx", "MOIxx"}) {
        EXPECT_EQ(Value(report.At("A/1"), name), "(absent)") << name;
    }
    EXPECT_EQ(Value(report.At("A/2"), "WB_Status"), "no centre");
    EXPECT_EQ(Value(report.At("A/2"), "COGx"), "(absent)");
    EXPECT_EQ(Value(report.At("A/3"), "WB_Status"), "no inertia");
    EXPECT_EQ(Value(report.At("A/3"), "MOIxx"), "(absent)");
    EXPECT_EQ(Value(report.At("A/4"), "WB_Status"), "complete");
    // A sum takes I for a point, so its own inertia is known; what is missing is told all the same.
    EXPECT_EQ(Value(report.At("A/5"), "WB_Status"), "no inertia");
    EXPECT_EQ(Value(report.At("A/5"), "MOIxx"), "1");
    EXPECT_EQ(Value(report.Prc(), "WB_Status"), "no mass");
    EXPECT_EQ(Value(report.Prc(), "WB_Mass"), "5");
}

TEST(ReportMethod, StatusOfASumTellsOfAMassWithoutCentreInIt)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],"
                       "ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n"
                       ",,A,,,,,,,,\nA,1,C,Weighed,1,,,,,,\nA,2,W,Weighed,1,5,0,0,1,1,1\n");
    Asked asked;
    asked.values = "1|Centre";
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.Prc(), "WB_Status"), "no centre");
    EXPECT_EQ(Value(report.Prc(), "COGx"), "5");
}

TEST(ReportMethod, AdjustmentTakesMassOffAndMayLeaveNothing)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,type,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n"
                       ",,A,,,,,,\nA,1,P,,Weighed,3,10,0,0\nA,2,Q,adjustment,Weighed,-1,40,0,0\n"
                       "A,3,S,,,,,,\nS,1,P,,,,,,\nS,2,X,adjustment,Weighed,-3,0,0,0\n");
    Asked asked;
    asked.values = "1|Centre";
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.At("A/2"), "WB_Mass"), "-1");
    EXPECT_EQ(Value(report.At("A/3"), "WB_Mass"), "0");
    EXPECT_EQ(Value(report.At("A/3"), "COGx"), "(absent)");
    EXPECT_EQ(Value(report.At("A/3"), "WB_Status"), "no centre");
    // 3 * 10 - 40 + 3 * 10 kg.mm of 2 kg
    EXPECT_EQ(Value(report.Prc(), "WB_Mass"), "2");
    EXPECT_EQ(Value(report.Prc(), "COGx"), "10");
}

TEST(ReportMethod, RootThatIsALeafHasNoInstances)
{
    ServedProduct served;
    served.ImportTable("part,mass_type,mass [kg],code\nA,Weighed,2,ONE\n");
    Asked asked;
    asked.values = "1|Types";
    const std::string end = "<PRC PRC_ID=\"A\" Name=\"A\" Version=\"A\" WB_Mass=\"2\" "
                            "WB_Status=\"no centre\" WBActiveMassTypeID=\"Weighed\">"
                            "<WB_Section Name=\"ONE\" WB_Mass=\"2\"/></PRC></WB_Report>";
    EXPECT_THAT(Report(served, asked), testing::EndsWith(end));
    asked.kind = "1";
    asked.values = "0";
    EXPECT_THAT(Report(served, asked),
                testing::EndsWith("<WB_Section Name=\"ONE\" WB_Mass=\"2\" Quantity=\"1\"/></PRC>"
                                  "</WB_Report>"));
}

TEST(ReportMethod, ProductWithoutAnyMassHasItsStructure)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part\n,,A\nA,1,P\n");
    const ReadReport report(served, {});
    EXPECT_EQ(Value(report.Prc(), "WB_Mass"), "(absent)");
    EXPECT_EQ(Value(report.Prc(), "WB_Status"), "no mass");
    EXPECT_THAT(Below(report.Prc(), "WB_Section", "Name"), ElementsAre("(no code)"));
    EXPECT_THAT(AllPaths(report), ElementsAre("A/1"));
    EXPECT_THAT(served.Server().Call("WBWarningMsg", "", ContextOf("kim")), HasSubstr("\nERROR: "));
}

TEST(ReportMethod, SectionsOfWhatDoesNotHaveAnyAreTheCodesAndTheRest)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,code,mass_type,mass [kg]\n"
                       ",,A,,,\nA,1,P,WING,Weighed,2\nA,2,Q,,Weighed,5\n");
    const ReadReport report(served, {});
    EXPECT_THAT(Below(report.Prc(), "WB_Section", "Name"), ElementsAre("(no code)", "WING"));
    EXPECT_THAT(Below(report.Prc(), "WB_Section", "WB_Mass"), ElementsAre("5", "2"));
    EXPECT_EQ(Value(report.At("A/1"), "Code"), "WING");
    EXPECT_EQ(Value(report.At("A/2"), "Code"), "(absent)");
}

TEST(ReportMethod, InstancesNestAsTheStructureDoesBehindTheSections)
{
    ServedProduct served;
    served.ImportTable(kTwice);
    const ReadReport report(served, {});
    EXPECT_THAT(AllPaths(report),
                ElementsAre("A/S.1", "A/S.1/B.1", "A/S.1/B.2", "A/S.2", "A/S.2/B.1", "A/S.2/B.2"));
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "Instance_ID"), ElementsAre("S.1", "S.2"));
    EXPECT_EQ(std::string(report.Prc().first_child().name()), "WB_Section");
    EXPECT_THAT(Below(report.At("A/S.2"), "PartInstance", "Instance_ID"),
                ElementsAre("B.1", "B.2"));
}

TEST(ReportMethod, OwnValuesOfAUseCountAtThatUseAlone)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,values_on,mass_type,mass [kg],active,source\n"
                       ",,A,,,,,\nA,1,P,,Weighed,1,yes,scale\nA,2,P,instance,Supplier,5,yes,offer\n"
                       "A,3,P,instance,Supplier,7,,\n");
    Asked asked;
    asked.values = "1|Types";
    const ReadReport report(served, asked);
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "WB_Mass"), ElementsAre("1", "5", "1"));
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "Source"),
                ElementsAre("scale", "offer", "scale"));
    EXPECT_THAT(Below(report.Prc(), "PartInstance", "WBLastImposedMassTypeID"),
                ElementsAre("Weighed", "Supplier", ""))
        << "a use with values of its own has a choice of its own";
}

TEST(ReportMethod, ImposedTypeStaysWhenTheChoiceIsTakenBack)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,mass_type,mass [kg],active\n"
                       ",,A,,,\nA,1,P,Estimated,1,yes\nA,1,P,Weighed,2,\n");
    wb::Store& store = served.Store();
    const wb::RowId part = store.FindPart("P", "A")->id;
    store.PutPending("kim", {{wb::OwnerKind::Part, part, {"", "active"}, "Estimated", "", {}}});
    EXPECT_EQ(store.SavePending("kim").saved, 1U);
    Asked asked;
    asked.values = "1|Types";
    EXPECT_THAT(Report(served, asked),
                HasSubstr("WBActiveMassTypeID=\"Weighed\" WBLastImposedMassTypeID=\"Estimated\""));
}

TEST(ReportMethod, PropertyThatSomebodyClearedIsAbsent)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,p:Vendor,i:Where\n,,A,,\nA,1,P,Smith,left\n");
    wb::Store& store = served.Store();
    const wb::RowId use = store.FindUse(store.FindPart("A", "A")->id, "1")->id;
    const wb::RowId part = store.FindPart("P", "A")->id;
    store.PutPending("kim", {{wb::OwnerKind::Part, part, {"", "property Vendor"}, "Smith", "", {}},
                             {wb::OwnerKind::Use, use, {"", "property Where"}, "left", "", {}}});
    EXPECT_EQ(store.SavePending("kim").saved, 2U);
    Asked asked;
    asked.values = "0";
    EXPECT_THAT(Report(served, asked), HasSubstr("InstancePath=\"A/1\"/>"));
}

TEST(ReportMethod, DensityOfAUseGoesBeforeThatOfThePart)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,material_on,values_on,density [kg/m3]\n,,A,,,\n"
                       "A,1,P,,,2000\nA,2,P,instance,instance,3000\nA,3,Q,,,\n");
    Asked asked;
    asked.values = "1|Density";
    const ReadReport report(served, asked);
    EXPECT_EQ(Value(report.At("A/1"), "WB_Density"), "2000");
    EXPECT_EQ(Value(report.At("A/2"), "WB_Density"), "3000");
    EXPECT_EQ(Value(report.At("A/3"), "WB_Density"), "(absent)");
}

TEST(ReportMethod, MaterialsAreParallelListsTheHeaviestFirst)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,quantity,mass_type,mass [kg],volume [m3],area [m2],material,"
        "material_density [kg/m3],material_surface_density [kg/m2]\n"
        ",,A,,,,,,,,\nA,S.1,S,2,,,,,,,\nS,1,P,,Weighed,,0.001,,Steel,8000,\n"
        "S,2,Q,,Weighed,,,0.5,Foil,,4\nS,3,N,,Weighed,3,,,,,\nS,4,M,,Weighed,1,,,Glue,,\n"
        "A,T.1,T,,,,,,,,\nT,1,N,,,,,,,,\nA,U.1,M,,,,,,,,\n");
    Asked asked;
    asked.values = "1|Materials";
    const ReadReport report(served, asked);
    const auto sub = report.At("A/S.1");
    EXPECT_EQ(Value(sub, "Material"), "Steel;(no material);Foil;Glue");
    EXPECT_EQ(Value(sub, "Density"), "8000;0;4;0");
    EXPECT_EQ(Value(sub, "Density_dimension"), "3;3;2;3");
    EXPECT_EQ(Value(sub, "WB_Mass_Details"), "16;6;4;2");
    const auto none = report.At("A/T.1");
    for (const char* name : {"Material", "Density", "Density_dimension", "WB_Mass_Details"}) {
        EXPECT_EQ(Value(none, name), "(absent)") << name;
    }
    const auto glue = report.At("A/U.1");
    EXPECT_EQ(Value(glue, "Material"), "Glue");
    EXPECT_EQ(Value(glue, "Density"), "(absent)");
    EXPECT_EQ(Value(glue, "Density_dimension"), "(absent)");
    EXPECT_EQ(Value(glue, "WB_Mass_Details"), "1");
}

TEST(ReportMethod, PropertiesComeInTheOrderAskedForThoseOfTheUseFirst)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,p:Alpha,p:Beta,i:Alpha,i:Gamma,i:Delta\n,,A,,,,,\n"
                       "A,1,P,pa,pb,,,\nA,2,P,,,ia,ig,id\n");
    Asked asked;
    asked.values = "0";
    asked.properties = "4|Gamma|Gamma|Alpha|Beta"; // twice counts once
    std::string text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("InstancePath=\"A/1\" Alpha=\"pa\" Beta=\"pb\"/>"));
    EXPECT_THAT(text, HasSubstr("InstancePath=\"A/2\" Gamma=\"ig\" Alpha=\"ia\" Beta=\"pb\"/>"));
    asked.properties = "1|*";
    text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("InstancePath=\"A/2\" Alpha=\"ia\" Beta=\"pb\" Delta=\"id\" "
                                "Gamma=\"ig\"/>"));
}

TEST(ReportMethod, PropertiesOfUsesOfOtherProductsAreNotThere)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,i:Where\n,,A,\nA,1,P,left\n"
                       ",,B,\nB,1,P,right\nB,2,P,right\n");
    Asked asked;
    asked.values = "0";
    const std::string text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("InstancePath=\"A/1\" Where=\"left\"/></PRC>"));
    EXPECT_THAT(text, testing::Not(HasSubstr("right")));
}

TEST(ReportMethod, TextThatLooksLikeADateStaysAsItIs)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,p:Batch,p:Built:date\n,,A,,\n"
                       "A,1,P,2026-05-31,2026-05-31\n");
    EXPECT_THAT(Report(served, {}), HasSubstr("Batch=\"2026-05-31\" Built=\"2026/05/31\""));
}

// Nobody brings a distributive report's properties into the user's units.
TEST(ReportMethod, DimensionedPropertyHasItsMagnitudeBehindItInAReportElseItsUnit)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,p:Power [W],i:Gap [mm],p:Count:int\n,,A,,,\n"
                       "A,1,P,1500,2.5,7\n");
    Asked asked;
    asked.values = "0";
    EXPECT_THAT(Report(served, asked),
                HasSubstr("InstancePath=\"A/1\" Count=\"7\" Gap=\"2.5\" __magnitude__Gap="
                          "\"LENGTH\" Power=\"1500\" __magnitude__Power=\"POWER\"/>"));
    asked.kind = "1";
    EXPECT_THAT(Report(served, asked),
                HasSubstr("InstancePath=\"A/1\" Count=\"7\" Gap=\"2.5mm\" Power=\"1500W\"/>"));
}

TEST(ReportMethod, NoPropertyMayBearANameOfTheReport)
{
    ServedProduct served;
    served.ImportTable(kRich);
    for (const char* kind : {"0", "1", "2"}) {
        Asked asked;
        asked.kind = kind;
        asked.ofInstances = "1";
        asked.properties = "0";
        const ReadReport report(served, asked);
        struct Walker : pugi::xml_tree_walker
        {
            std::set<std::string> names;
            bool for_each(pugi::xml_node& node) override
            {
                for (const std::string& name : AttributeNames(node)) {
                    names.insert(name);
                }
                return true;
            }
        };
        Walker walker;
        report.Prc().traverse(walker);
        EXPECT_GT(walker.names.size(), 5U);
        for (const std::string& name : walker.names) {
            EXPECT_TRUE(IsReportName(name) || name.starts_with("__magnitude__")) << name;
        }
    }
}

TEST(ReportMethod, PropertyOlderThanANameOfTheReportIsLeftOut)
{
    ServedProduct served;
    served.ImportTable("parent,instance,part,p:Other,i:Elsewhere\n,,A,,\nA,1,P,one,two\n");
    wbtest::SqlConnection connection(served.Folder().File("x.db"));
    EXPECT_EQ(connection.Run("UPDATE part_property SET name = 'Code'"), SQLITE_OK);
    Asked asked;
    asked.values = "0";
    EXPECT_THAT(Report(served, asked), HasSubstr("InstancePath=\"A/1\" Elsewhere=\"two\"/>"));
    asked.properties = "1|Code";
    EXPECT_THAT(Report(served, asked),
                HasSubstr("The field property of the request names \"Code\""));
}

TEST(ReportMethod, ChangedTextsAreReadAnew)
{
    ServedProduct served;
    served.ImportTable(
        "parent,instance,part,name,p:Vendor,i:Where\n,,A,,,\nA,1,P,Old,Smith,left\n");
    Asked asked;
    asked.values = "0";
    EXPECT_THAT(Report(served, asked), HasSubstr("Name=\"Old\""));
    served.ImportTable("parent,instance,part,name,p:Vendor,i:Where\nA,1,P,New,Jones,right\n");
    const std::string text = Report(served, asked);
    EXPECT_THAT(text, HasSubstr("Name=\"New\""));
    EXPECT_THAT(text, HasSubstr("Vendor=\"Jones\" Where=\"right\""));
}

TEST(ReportMethod, TextsComeBackFromAReaderAsTheyWere)
{
    const std::string name = "a <b> & \"c\" 'd' \xC3\xA9";
    ServedProduct served;
    served.ImportTable("parent,instance,part,name,p:Note\n,,A,,\n"
                       "A,<1>&2,P,\"a <b> & \"\"c\"\" 'd' \xC3\xA9\",\"x\"\"<&>\"\n");
    Asked asked;
    asked.filter = "1|F\t\n<|I||A|A|0";
    const ReadReport report(served, asked);
    const auto leaf = report.At("A/<1>&2");
    EXPECT_EQ(Value(leaf, "Name"), name);
    EXPECT_EQ(Value(leaf, "Instance_ID"), "<1>&2");
    EXPECT_EQ(Value(leaf, "Note"), "x\"<&>");
    EXPECT_EQ(Value(report.Root(), "Filter"), "F\t\n<");
    EXPECT_THAT(report.text, HasSubstr("Filter=\"F&#9;&#10;&lt;\""));
}

TEST(ReportMethod, TotalsOfTheSamplesAreTheExpectedOnes)
{
    struct Sample
    {
        const char* file;
        const char* root;
    };
    for (const Sample& sample :
         {Sample{"light_aeroplane.csv", "LA1"}, Sample{"small_satellite.csv", "SC1"}}) {
        ServedProduct served;
        served.ImportSample(sample.file);
        for (const char* precision : {"Active", "MostPrecise", "Computed", "Estimated"}) {
            SCOPED_TRACE(std::string(sample.root) + " " + precision);
            Asked asked;
            asked.root = sample.root;
            asked.precision = precision;
            const ReadReport report(served, asked);
            EXPECT_EQ(Value(report.Root(), "Precision"), precision);
            const auto totals = ExpectedRows(sample.root, sample.root, precision, "total");
            ASSERT_EQ(totals.size(), 1U);
            constexpr std::array kNames{"WB_Mass",
                                        "WB_Lower_deviation",
                                        "WB_Upper_deviation",
                                        "COGx",
                                        "COGy",
                                        "COGz",
                                        "MOIxx",
                                        "MOIyy",
                                        "MOIzz",
                                        "POIxy",
                                        "POIxz",
                                        "POIyz"};
            for (std::size_t i = 0; i < kNames.size(); ++i) {
                const double expected = Cell(totals[0], 5 + i);
                EXPECT_NEAR(Number(report.Prc(), kNames[i]), expected,
                            1e-9 * (1 + std::abs(expected)) * 1e3)
                    << kNames[i];
            }
            const auto codes = ExpectedRows(sample.root, sample.root, precision, "code");
            const auto names = Below(report.Prc(), "WB_Section", "Name");
            ASSERT_GE(names.size(), codes.size());
            for (std::size_t i = 0; i < codes.size(); ++i) {
                EXPECT_EQ(names[i], codes[i][4]);
            }
            double mass = 0.0;
            for (const auto& section : report.Prc().children("WB_Section")) {
                mass += section.attribute("WB_Mass").as_double(0.0);
            }
            EXPECT_NEAR(mass, Cell(totals[0], 5), 1e-9 * mass);
        }
    }
}

TEST(ReportMethod, MassesOfWhatIsRightBelowAddUp)
{
    ServedProduct served;
    served.ImportSample("light_aeroplane.csv");
    Asked asked;
    asked.root = "LA1";
    asked.precision = "Computed"; // nothing is imposed
    const ReadReport report(served, asked);
    std::size_t checked = 0;
    const std::function<void(const pugi::xml_node&)> check = [&](const pugi::xml_node& element) {
        double mass = 0.0;
        bool any = false;
        for (const auto& child : element.children("PartInstance")) {
            mass += child.attribute("WB_Mass").as_double(0.0);
            any = true;
            check(child);
            const double unit = Number(child, "Unit_mass");
            const double all = Number(child, "WB_Mass");
            EXPECT_NEAR(unit * Number(child, "Quantity"), all, 1e-12 * std::abs(all));
        }
        if (any) {
            ++checked;
            EXPECT_NEAR(Number(element, "WB_Mass"), mass, 1e-9 * mass)
                << Value(element, "InstancePath");
        }
    };
    check(report.Prc());
    EXPECT_GT(checked, 20U);
}
