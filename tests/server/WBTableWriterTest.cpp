#include "WBTableWriter.h"
#include "ServerTesting.h"
#include "WBMassTypeTable.h"

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{
/// The table of the first part that a table states, and of everything below it.
std::string Written(const std::string& table)
{
    const TableResult read = wbtest::Read(table);
    EXPECT_THAT(read.errors, ElementsAre());
    return read.Ok() ? WriteProductTable(read.product, 0) : std::string();
}

struct Form
{
    const char* name;
    const char* typed;
    const char* written;
};
void PrintTo(const Form& form, std::ostream* out)
{
    *out << form.name;
}
class WBTableWriterForms : public testing::TestWithParam<Form>
{};
} // namespace

TEST_P(WBTableWriterForms, IsWrittenAsTyped)
{
    const std::string written = Written(GetParam().typed);
    EXPECT_EQ(written, GetParam().written);
    EXPECT_EQ(Written(written), written);
}

INSTANTIATE_TEST_SUITE_P(
    All, WBTableWriterForms,
    testing::Values(
        Form{"NumbersKeepTheirDigitsAndUnit", "part,mass_type,mass [lb]\nP,Weighed,3.90\n",
             "part,version,mass_type,mass [lb]\nP,A,Weighed,3.90\n"},
        Form{"TwoUnitsAreTwoColumns",
             "part,mass_type,mass [lb],mass [kg],p:N [h],p:N "
             "[min]\nP,Weighed,1,,,3\nP,Estimated,,2,,\n",
             "part,version,mass_type,mass [kg],mass [lb],p:N [min]\nP,A,Weighed,,1,3\n"
             "P,A,Estimated,2,,\n"},
        Form{"DecimalCommasComeWithSemicolons",
             "part;mass_type;mass [kg];note\nP;Weighed;1,50;\"a, b; c\"\n",
             "part;version;mass_type;mass [kg];note\nP;A;Weighed;1,50;\"a, b; c\"\n"},
        Form{"QuotedTexts", "part,name,note\nP,\" a;\"\"b\"\", c\",Höhe\n",
             "part,version,name,note\nP,A,\" a;\"\"b\"\", c\",Höhe\n"},
        Form{"RadiiOfGyration",
             "part,mass_type,mass [kg],kx [m],ky [m],kz [m]\nP,Weighed,2,1,2,3\n",
             "part,version,mass_type,mass [kg],kx [m],ky [m],kz [m]\nP,A,Weighed,2,1,2,3\n"},
        Form{"InertiaAboutTheOriginWithMatrixTerms",
             "part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz "
             "[kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,inertia_at\n"
             "P,Weighed,2,100,200,300,1.1,1.2,1.3,0.01,0.02,0.03,-,origin\n",
             "part,version,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy "
             "[kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,inertia_at\n"
             "P,A,Weighed,2,100,200,300,1.1,1.2,1.3,0.01,0.02,0.03,negative,origin\n"},
        Form{"MomentsAlone",
             "part,mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\nP,Weighed,2,1,1,1\n",
             "part,version,mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n"
             "P,A,Weighed,2,1,1,1\n"},
        Form{
            "TurnsInBothUnitsAndAsAMatrix",
            "parent,instance,part,quantity,x [mm],y [mm],z [mm],rx [deg],rz [rad],r11,r12,r13,r21,"
            "r22,r23,r31,r32,r33\n"
            ",,A,,,,,,,,,,,,,,,\nA,1,P,4,1,2,3,30,,,,,,,,,,\nA,2,P,,,,,,0.5,,,,,,,,,\n"
            "A,3,P,,,,,,,0,-1,0,1,0,0,0,0,1\n",
            "parent,parent_version,instance,part,version,quantity,x [mm],y [mm],z [mm],rx [deg],rz "
            "[rad],r11,r12,r13,r21,r22,r23,r31,r32,r33\n"
            ",,,A,A,,,,,,,,,,,,,,,\nA,A,1,P,A,4,1,2,3,30,,,,,,,,,,\nA,A,2,P,A,,,,,,0.5,,,,,,,,,\n"
            "A,A,3,P,A,,,,,,,0,-1,0,1,0,0,0,0,1\n"},
        Form{
            "FactsAtTheFirstUseDepthFirst",
            "parent,part,mass_type,mass [kg],doc,doc_version,name\n"
            ",R,,,,,\nR,S,,,,,Sub\nR,P,,,,,\nS,P,Estimated,1,D,1,Bolt\n,P,Weighed,2,D,2,\n",
            "parent,parent_version,instance,part,version,name,mass_type,mass [kg],doc,doc_version\n"
            ",,,R,A,,,,,\nR,A,S.1,S,A,Sub,,,,\nS,A,P.1,P,A,Bolt,Estimated,1,D,1\n"
            ",,,P,A,,Weighed,2,,\n,,,P,A,,,,D,2\nR,A,P.1,P,A,,,,,\n"},
        Form{"PropertiesOfEveryKind",
             "part,p:T,p:D:date,p:I:int,p:R:real,p:B:bool,p:Q [W],p:M:TORQUE [N.m]\n"
             "P,x,2026-01-02,+5,1.50,YES,1.20,3\n",
             "part,version,p:T,p:D:date,p:I:int,p:R:real,p:B:bool,p:Q [W],p:M:TORQUE [N.m]\n"
             "P,A,x,2026-01-02,+5,1.50,yes,1.20,3\n"},
        Form{"OneUseOfItsOwn",
             "parent,instance,part,values_on,material_on,mass_type,mass [kg],active,material,"
             "material_density [kg/m3],density [kg/m3],note\n,,A,,,,,,,,,\nA,1,P,,,,,,,,,\n"
             "A,1,P,instance,instance,,,,Ti,4430,7,own\nA,1,P,instance,,Weighed,3,yes,,,,\n",
             "parent,parent_version,instance,part,version,mass_type,values_on,active,mass "
             "[kg],material,material_density [kg/m3],material_on,density [kg/m3],note\n"
             ",,,A,A,,,,,,,,,\nA,A,1,P,A,,,,,,,,,\nA,A,1,P,A,,instance,,,Ti,4430,instance,7,own\n"
             "A,A,1,P,A,Weighed,instance,yes,3,,,,,\n"},
        Form{"NoteOfAPartBesideValues",
             "part,mass_type,mass [kg],note\nP,Weighed,1,of the scale\nP,,,of the part\n",
             "part,version,mass_type,mass [kg],note\nP,A,Weighed,1,of the scale\n"
             "P,A,,,of the part\n"}),
    [](const auto& tested) { return tested.param.name; });

TEST(WBTableWriter, PropertyOrderOfEachPartIsKeptByFurtherRows)
{
    const std::string written = Written("parent,part,p:B,p:A\n,R,,\nR,P,,x\n,P,y,\nR,Q,z,t\n");
    // P says A, then B; Q says B, then A, so that its A needs a row of its own.
    EXPECT_EQ(written, "parent,parent_version,instance,part,version,p:A,p:B\n"
                       ",,,R,A,,\nR,A,P.1,P,A,x,y\nR,A,Q.1,Q,A,,z\n,,,Q,A,t,\n");
    EXPECT_EQ(Written(written), written);
}

TEST(WBTableWriter, ChangedNumberIsWrittenInTheShortestForm)
{
    TableResult read = wbtest::Read("part,mass_type,mass [lb],cgx [in],cgy [in],cgz [in]\n"
                                    "P,Weighed,3.90,1,2,3\n");
    read.product.parts[0].sets[0][Fact::Mass] = 0.1 + 0.2;
    EXPECT_EQ(WriteProductTable(read.product, 0),
              "part,version,mass_type,mass [kg],cgx [in],cgy [in],cgz [in]\n"
              "P,A,Weighed,0.30000000000000004,1,2,3\n");
}

TEST(WBTableWriter, InertiaThatItsTypedFormNoLongerGivesIsWrittenAboutTheCentre)
{
    TableResult read = wbtest::Read("part,mass_type,mass [kg],kx [m],ky [m],kz [m]\n"
                                    "P,Weighed,2,1,1,1\n");
    read.product.parts[0].sets[0][Fact::Mass] = 3;
    EXPECT_EQ(WriteProductTable(read.product, 0),
              "part,version,mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n"
              "P,A,Weighed,3,2,2,2\n");
    read.product.parts[0].sets[0][Fact::Ixz] = -0.5;
    EXPECT_THAT(WriteProductTable(read.product, 0),
                HasSubstr("P,A,Weighed,3,2,2,2,0,-0.5,0,positive"));
}

TEST(WBTableWriter, RowOfTwoUnitsIsRefused)
{
    EXPECT_EQ(wbtest::FirstError("part,mass_type,mass [kg],mass [lb]\nP,Weighed,1,2\n"),
              "t.csv:2: column \"mass [lb]\": found \"2\", expected a cell of one unit in the "
              "row, since \"mass [kg]\" is filled too");
}

TEST(WBTableWriter, PartOfTwoKindsOfOnePropertyIsRefused)
{
    EXPECT_THAT(wbtest::FirstError("part,p:N:int,p:N:real\nP,1,1\n"),
                HasSubstr("t.csv:2: column \"p:N:real\": found \"1\", but line 2 states \"1\""));
    EXPECT_EQ(wbtest::FirstError("part,p:N:int,p:N:real\nP,1,\nQ,,1\n"), "");
}

TEST(WBTableWriter, MassTypesReadBackAlike)
{
    auto types = ShippedMassTypes();
    types.push_back({"Drawn, \"new\"", 15, MassType::Kind::Claim, "calculated", 0.1, 7, "a;b"});
    const std::string table = WriteMassTypeTable(types);
    EXPECT_THAT(table, StartsWith("mass_type,order,kind,category,lower_pct [%],upper_pct "
                                  "[%],meaning\nTarget,0,goal,,0,0,"));
    const auto read = ReadMassTypeTable(table, "m.csv");
    EXPECT_THAT(read.errors, ElementsAre());
    EXPECT_EQ(read.types, types);
}

TEST(WBTableWriter, SampleProductsComeBackByteForByte)
{
    for (const char* name : {"light_aeroplane.csv", "small_satellite.csv"}) {
        const TableResult first = ReadLocalProduct(wbtest::DataFile(name));
        ASSERT_TRUE(first.Ok());
        const std::string written = WriteProductTable(first.product, first.product.Roots().at(0));
        const TableResult second = wbtest::Read(written);
        EXPECT_THAT(second.errors, ElementsAre());
        EXPECT_EQ(WriteProductTable(second.product, second.product.Roots().at(0)), written);
        EXPECT_EQ(second.product.uses.size(), first.product.uses.size());
        EXPECT_EQ(second.summary.valueSets, first.summary.valueSets);
    }
}
