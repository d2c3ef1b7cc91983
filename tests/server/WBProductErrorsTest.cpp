#include "ServerTesting.h"

using namespace wb;
using testing::HasSubstr;
using wbtest::FirstError;

namespace
{
struct BadTable
{
    const char* name;
    const char* table;
    const char* error;
};

std::string NameOf(const testing::TestParamInfo<BadTable>& info)
{
    return info.param.name;
}

class WBProductErrors : public testing::TestWithParam<BadTable>
{};
} // namespace

TEST_P(WBProductErrors, NamesPlaceAndExpectation)
{
    const auto result = wbtest::Read(GetParam().table);
    ASSERT_FALSE(result.errors.empty());
    EXPECT_THAT(result.errors.front(), HasSubstr(GetParam().error));
    EXPECT_TRUE(result.product.parts.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Headers, WBProductErrors,
    testing::Values(
        BadTable{"Empty", "", "t.csv: the file is empty, expected a header and rows"},
        BadTable{"UnknownColumn", "part,mas [kg]\n",
                 "t.csv:1: column \"mas [kg]\": unknown column, the nearest known one is \"mass\""},
        BadTable{"MissingUnit", "part,mass\n", "the unit is missing, expected one of kg, mg"},
        BadTable{"UnknownUnit", "part,mass [stone]\n",
                 "unknown unit \"stone\", expected one of kg"},
        BadTable{"UnitTooMany", "part [kg]\n", "the column has no unit, expected \"part\""},
        BadTable{"WrongPercentage", "part,lower_pct [kg]\n",
                 "unknown unit \"kg\", expected one of %"},
        BadTable{"Twice", "part,mass [kg],MASS [kg]\n", "the column stands twice"},
        BadTable{"NoPart", "name\nx\n", "there is no column \"part\""},
        BadTable{"PropertyName", "part,p:2nd\n", "found the name \"2nd\", expected a letter"},
        BadTable{"PropertyOfReport", "part,p:COGx\n", "\"COGx\" is a name of the report"},
        BadTable{"PropertyOfInstances", "part,p:Code\n", "\"Code\" is a name of the report"},
        BadTable{"PropertySuffix", "part,p:N:text\n", "found the suffix \"text\""},
        BadTable{"PropertyTwice", "part,p:N:int,p:N:int\n", "the property stands twice"},
        BadTable{"PropertyUnit", "part,p:N [parsec]\n", "unknown unit \"parsec\""},
        BadTable{"PropertyUnitTwoMeanings", "part,p:N [N.m]\n",
                 "expected the magnitude before it, as in p:N:TORQUE [N.m]"},
        BadTable{"PropertyMagnitude", "part,p:N:WEIGHT [kg]\n", "unknown magnitude \"WEIGHT\""},
        BadTable{"PropertyUnitOfMagnitude", "part,p:N:MASS [mm]\n",
                 "unknown unit \"mm\", expected one of kg"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Structure, WBProductErrors,
    testing::Values(
        BadTable{"NoPartInRow", "part,name\n,x\n", "t.csv:2: column \"part\": the cell is blank"},
        BadTable{"MissingParent", "parent,instance,part\nX,i,P\n",
                 "t.csv:2: column \"parent\": found \"X\", expected a part that the table or the "
                 "database holds"},
        BadTable{"MissingParentVersion", "parent,parent_version,part,version\n,,A,B\nA,C,P,\n",
                 "column \"parent_version\": found \"C\", expected a version of A"},
        BadTable{"AmbiguousVersion", "part,version\nP,A\nP,B\nP,\n",
                 "t.csv:4: column \"version\": the cell is blank and P has 2 versions"},
        BadTable{"AmbiguousParent", "parent,part,version\n,P,A\n,P,B\nP,Q,A\n",
                 "column \"parent_version\": the cell is blank and P has 2 versions"},
        BadTable{"InstanceAlone", "parent,instance,part\n,i,P\n", "blank beside an instance"},
        BadTable{"PositionAlone", "parent,part,x [mm],y [mm],z [mm]\n,P,1,2,3\n",
                 "blank beside a position or quantity"},
        BadTable{"InstanceOfTwoParts", "parent,instance,part\n,,A\nA,i,P\nA,i,Q\n",
                 "t.csv:4: column \"instance\": \"i\" stands in A already, as part P in line 3"},
        BadTable{"InstanceAtTwoPlaces",
                 "parent,instance,part,x [mm],y [mm],z [mm]\n,,A,,,\nA,i,P,1,2,3\nA,i,P,1,2,4\n",
                 "t.csv:4: column \"instance\": \"i\" has another position in line 3"},
        BadTable{"InstanceTurnedTwice", "parent,instance,part,rz [deg]\n,,A,\nA,i,P,1\nA,i,P,2\n",
                 "\"i\" is turned another way in line 3"},
        BadTable{"NearPlace",
                 "parent,instance,part,x [mm],y [mm],z [mm]\n,,A,,,\nA,i,P,1,2,3\n"
                 "A,i,P,1,2,3.00000000000001\n",
                 "\"i\" has another position in line 3"},
        BadTable{"NearTurn",
                 "parent,instance,part,rz [deg]\n,,A,\nA,i,P,30\nA,i,P,30.00000000001\n",
                 "\"i\" is turned another way in line 3"},
        BadTable{"EndlessTurn", "parent,instance,part,rx [rad]\n,,A,\nA,i,P,1e308\n",
                 "t.csv:3: column \"rx [rad]\": found \"1e308\", expected a smaller angle"},
        BadTable{"LostTurn", "parent,instance,part,rz [deg]\n,,A,\nA,i,P,-1.1e9\n",
                 "found \"-1.1e9\", expected a smaller angle"},
        BadTable{"QuantityTwice", "parent,instance,part,quantity\n,,A,\nA,i,P,1\nA,i,P,2\n",
                 "column \"quantity\": found \"2\", but line 3 states \"1\""},
        BadTable{"QuantityBeyondAll", "parent,instance,part,quantity\n,,A,\nA,i,P,2147483648\n",
                 "found \"2147483648\", expected a whole number from 1"},
        BadTable{"Quantity", "parent,instance,part,quantity\n,,A,\nA,i,P,0\n",
                 "found \"0\", expected a whole number from 1"},
        BadTable{"QuantityFraction", "parent,instance,part,quantity\n,,A,\nA,i,P,1.5\n",
                 "found \"1.5\", expected a whole number from 1"},
        BadTable{"HalfPosition", "parent,instance,part,x [mm],y [mm],z [mm]\n,,A,,,\nA,i,P,1,2,\n",
                 "column \"z [mm]\": the cell is blank, expected x, y and z or none"},
        BadTable{"AnglesAndMatrix",
                 "parent,instance,part,rx [deg],r11,r12,r13,r21,r22,r23,r31,r32,r33\n"
                 ",,A,,,,,,,,,,\nA,i,P,1,1,0,0,0,1,0,0,0,1\n",
                 "angles beside r11 to r33"},
        BadTable{"HalfMatrix",
                 "parent,instance,part,r11,r12,r13,r21,r22,r23,r31,r32,r33\n"
                 ",,A,,,,,,,,,\nA,i,P,1,0,0,0,1,0,0,0,\n",
                 "column \"r33\": the cell is blank"},
        BadTable{"NoRotation",
                 "parent,instance,part,r11,r12,r13,r21,r22,r23,r31,r32,r33\n"
                 ",,A,,,,,,,,,\nA,i,P,1,0,0,0,1.00001,0,0,0,1\n",
                 "r11 to r33 of A/i are off a rotation by"},
        BadTable{"Cycle", "parent,instance,part\nA,i,B\nB,i,C\nC,i,A\n",
                 "t.csv:2: column \"part\": B > C > A > B is a cycle"},
        BadTable{"InsideItself", "parent,instance,part\n,,A\nA,i,A\n", "A > A is a cycle"},
        BadTable{"TypeOfAParent", "parent,instance,part,type\n,,A,part\nA,i,P,\n",
                 "A is of type part in line 2, expected a parent of type assembly or product"},
        BadTable{"Type", "part,type\nP,thing\n",
                 "found \"thing\", expected one of product, assembly, part, adjustment"},
        BadTable{"Standard", "part,standard\nP,maybe\n", "expected one of no, yes"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Values, WBProductErrors,
    testing::Values(
        BadTable{"Number", "part,mass_type,mass [kg]\nP,Weighed,abc\n",
                 "t.csv:2: column \"mass [kg]\": found \"abc\", expected a number"},
        BadTable{"TooLarge", "part,mass_type,mass [t]\nP,Weighed,1e308\n",
                 "expected a smaller number"},
        BadTable{"CommaBesideComma", "part,mass_type,mass [kg]\nP,Weighed,\"1,5\"\n",
                 "expected a number with a decimal point, since \",\" separates"},
        BadTable{
            "TwoDecimalMarks", "part;mass_type;mass [kg]\nP;Weighed;1,5\nQ;Weighed;1.234\n",
            "t.csv:3: column \"mass [kg]\": found \"1.234\", expected a number with the decimal "
            "mark \",\" as in line 2"},
        BadTable{"NoMassType", "part,mass_type,mass [kg]\nP,,1\n",
                 "column \"mass_type\": the cell is blank beside values"},
        BadTable{"SourceWithoutMassType", "part,source\nP,scale\n",
                 "column \"mass_type\": the cell is blank beside values"},
        BadTable{"Computed", "part,mass_type,mass [kg]\nP,Computed,1\n",
                 "Computed is derived and never stated"},
        BadTable{"UnknownMassType", "part,mass_type,mass [kg]\nP,Weight,1\n",
                 "(nearest: Weighed); --mass-types FILE.csv adds others"},
        BadTable{"NegativeMass", "part,mass_type,mass [kg]\nP,Weighed,-1\n",
                 "column \"mass [kg]\": found \"-1 kg\", expected a mass that is not negative"},
        BadTable{"NegativeMassOfAUse",
                 "parent,instance,part,mass_type,values_on,mass "
                 "[kg]\n,,A,,,\nA,i,P,Weighed,instance,-1\n",
                 "t.csv:3: column \"mass [kg]\": found \"-1 kg\""},
        BadTable{"MassTwice", "part,mass_type,mass [kg]\nP,Weighed,1\nP,Weighed,2\n",
                 "t.csv:3: column \"mass [kg]\": found \"2\", but line 2 states \"1 kg\""},
        BadTable{"NameTwice", "part,name\nP,x\nP,y\n",
                 "t.csv:3: column \"name\": found \"y\", but line 2 states \"x\""},
        BadTable{"TypeTwice", "part,type\nP,part\nP,assembly\n", "found \"assembly\", but line 2"},
        BadTable{"ActiveTwice",
                 "part,mass_type,active,mass [kg]\nP,Weighed,yes,1\nP,Estimated,yes,2\n",
                 "column \"active\": found \"Estimated\", but line 2 states \"Weighed\""},
        BadTable{"ActiveGoal", "part,mass_type,active,mass [kg]\nP,Target,yes,1\n",
                 "Target is a goal and a goal never counts"},
        BadTable{"OneSide", "part,mass_type,mass [kg],lower [kg],upper [kg]\nP,Weighed,1,0.1,\n",
                 "column \"upper [kg]\": the cell is blank, expected both sides"},
        BadTable{"NegativeSide", "part,mass_type,lower_pct,upper_pct\nP,Weighed,-1,1\n",
                 "found \"-1\", expected a number that is not negative"},
        BadTable{"BothPrecisions",
                 "part,mass_type,lower [kg],upper [kg],lower_pct,upper_pct\nP,Weighed,1,1,1,1\n",
                 "the precision stands in mass and in %"},
        BadTable{"HalfCentre", "part,mass_type,cgx [mm],cgy [mm],cgz [mm]\nP,Weighed,1,,3\n",
                 "column \"cgy [mm]\": the cell is blank, expected cgx, cgy and cgz"},
        BadTable{
            "FourInertias",
            "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2]\nP,Weighed,1,2,3,4\n",
            "column \"ixz\": the cell is blank, expected all six"},
        BadTable{"NoSign",
                 "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
                 "[kg.m2]\nP,Weighed,1,2,3,0.1,0,0\n",
                 "column \"poi_sign\": the cell is blank beside a product of inertia"},
        BadTable{"Sign",
                 "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
                 "[kg.m2],poi_sign\nP,Weighed,1,2,3,0,0,0,up\n",
                 "expected one of positive, +, negative, -"},
        BadTable{"OriginWithoutMass",
                 "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz "
                 "[kg.m2],inertia_at\nP,Weighed,1,2,3,origin\n",
                 "found \"origin\" without a mass"},
        BadTable{"OriginWithoutCentre",
                 "part,mass_type,mass [kg],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],inertia_at\n"
                 "P,Weighed,1,1,2,3,origin\n",
                 "found \"origin\" without a centre of gravity"},
        BadTable{"OriginAndCentre",
                 "part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz "
                 "[kg.m2],inertia_at\nP,Weighed,1,1,1,1,1,2,3,origin\nP,Weighed,,,,,1,2,3,cg\n",
                 "column \"inertia_at\": found \"cg\", but line 2 states \"origin\""},
        BadTable{"RadiiWithoutMass", "part,mass_type,kx [mm],ky [mm],kz [mm]\nP,Weighed,1,2,3\n",
                 "radii of gyration without a mass"},
        BadTable{"HalfRadii",
                 "part,mass_type,mass [kg],kx [mm],ky [mm],kz [mm]\nP,Weighed,1,1,,3\n",
                 "expected kx, ky and kz or none"},
        BadTable{"RadiiAndMoments",
                 "part,mass_type,mass [kg],kx [mm],ky [mm],kz [mm],ixx [kg.m2],iyy [kg.m2],izz "
                 "[kg.m2]\nP,Weighed,1,1,2,3,1,2,3\n",
                 "radii of gyration beside moments"},
        BadTable{"InstanceWithoutUse", "part,mass_type,values_on,mass [kg]\nP,Weighed,instance,1\n",
                 "column \"values_on\": the row says instance"},
        BadTable{"Date", "part,mass_type,mass [kg],source_date\nP,Weighed,1,2026-02-30\n",
                 "expected a date yyyy-mm-dd"},
        BadTable{"Negative", "part,mass_type,volume [m3]\nP,Weighed,-1\n", "that is not negative"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Beside, WBProductErrors,
    testing::Values(
        BadTable{"MaterialOnWithoutUse", "part,material,material_on\nP,Al,instance\n",
                 "column \"material_on\": the row says instance"},
        BadTable{"MaterialTwice", "part,material\nP,Al\nP,Ti\n",
                 "found \"Ti\", but line 2 states \"Al\""},
        BadTable{"DensityTwice", "part,material,material_density [kg/m3]\nP,Al,1\nQ,Al,2\n",
                 "found \"2\", but line 2 states \"1 kg/m3\""},
        BadTable{"TwoDensities",
                 "part,material,material_density [kg/m3],material_surface_density [kg/m2]\n"
                 "P,Al,1,\nQ,Al,,2\n",
                 "\"Al\" has a density in line 2, expected one density"},
        BadTable{"DensityWithoutMaterial", "part,material,material_density [kg/m3]\nP,,1\n",
                 "a density without a material"},
        BadTable{"RevisionWithoutDocument", "part,doc,doc_version\nP,,A\n",
                 "a revision without a document"},
        BadTable{"DocumentWithoutRevision", "part,doc,doc_version\nP,D,\n",
                 "column \"doc_version\": the cell is blank"},
        BadTable{"DocumentUse", "part,doc,doc_version,doc_use\nP,D,A,used\n",
                 "expected one of attached, active, both"},
        BadTable{"TwoAttached", "part,doc,doc_version,doc_use\nP,D,A,attached\nP,D,B,both\n",
                 "attached is revision A in line 2"},
        BadTable{"TwoActive", "part,doc,doc_version,doc_use\nP,D,A,active\nP,D,B,active\n",
                 "active is revision A in line 2"},
        BadTable{"DocumentDate", "part,doc,doc_version,doc_checkin_date\nP,D,A,today\n",
                 "expected a date yyyy-mm-dd"},
        BadTable{"DocumentMassType", "part,doc,doc_version,doc_mass_type\nP,D,A,Guess\n",
                 "expected Computed or a mass type"},
        BadTable{"PropertyNumber", "part,p:N:int\nP,1.5\n",
                 "found \"1.5\", expected a whole number"},
        BadTable{"PropertyReal", "part,p:N:real\nP,x\n", "found \"x\", expected a number"},
        BadTable{"PropertyTooLarge", "part,p:N [km]\nP,1e308\n", "expected a smaller number"},
        BadTable{"PropertyBool", "part,p:N:bool\nP,1\n", "found \"1\", expected yes or no"},
        BadTable{"PropertyDate", "part,p:N:date\nP,1.9.2026\n", "expected a date yyyy-mm-dd"},
        BadTable{"PropertyTwice", "part,p:N\nP,x\nP,y\n", "found \"y\", but line 2 states \"x\""},
        BadTable{"PropertyTextAndDate", "part,p:N,p:N:date\nP,2026-01-02,2026-01-02\n",
                 "column \"p:N:date\": found \"2026-01-02\", but line 2 states"},
        BadTable{"PropertyOfUse", "part,i:N\nP,x\n",
                 "a property of a use, expected parent and instance"}),
    NameOf);

TEST(WBProductErrorList, AllErrorsOfATableAreToldByLine)
{
    const auto result = wbtest::Read("part,mass_type,mass [kg]\nP,Weighed,x\nQ,Nope,1\nR,,2\n");
    ASSERT_EQ(result.errors.size(), 3U);
    EXPECT_THAT(result.errors[0], HasSubstr("t.csv:2:"));
    EXPECT_THAT(result.errors[1], HasSubstr("t.csv:3:"));
    EXPECT_THAT(result.errors[2], HasSubstr("t.csv:4:"));
}

TEST(WBProductErrorList, UnknownMassTypeOfTheOptionIsRefused)
{
    TableOptions options;
    options.massType = "Guess";
    EXPECT_THAT(FirstError("part\nP\n", options), HasSubstr("\"Guess\" of --mass-type"));
}

TEST(WBProductErrorList, UnreadableFilesAreNamed)
{
    EXPECT_EQ(ReadLocalProduct("/nowhere/x.csv").errors.at(0), "/nowhere/x.csv: does not exist");
    EXPECT_EQ(ReadLocalProduct("/tmp").errors.at(0), "/tmp: is a directory, expected a file");
}
