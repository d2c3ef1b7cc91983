#include "ServerTesting.h"

#include <algorithm>

using namespace wb;
using testing::ElementsAre;
using wbtest::FirstError;

namespace
{
/// A database with two materials, one of them without a density, and a part "K" of the other.
class KnownMaterials : public KnownProducts
{
public:
    double density = kUnknown; // of the part
    DensityOrder first = DensityOrder::Unstated;

    std::optional<Part> FindFacts(std::string_view identifier, std::string_view) const override
    {
        Part part;
        part.density = density;
        part.material = "Steel";
        part.densityFirst = first;
        return identifier == "K" ? std::optional(part) : std::nullopt;
    }

    std::optional<Material> FindMaterial(std::string_view name) const override
    {
        Material material;
        material.name = name;
        if (name == "Steel") {
            material.density = 7800;
        }
        return name == "Steel" || name == "Aluminium" ? std::optional(material) : std::nullopt;
    }
};

ValueSet PartSet(const std::string& columns, const std::string& cells)
{
    const auto result = wbtest::Read("part,mass_type," + columns + "\nP,Estimated," + cells + "\n");
    EXPECT_THAT(result.errors, ElementsAre());
    return result.errors.empty() ? result.product.parts[0].sets[0] : ValueSet();
}

/// Ixx of radii of gyration of 100 mm and a volume of 0.001 m3: the density times 0.00001 m5.
double MomentOfKnownMaterial(const std::string& columns, const std::string& cells)
{
    const auto result =
        ReadProductTable("part,mass_type,volume [m3],kx [mm],ky [mm],kz [mm]," + columns +
                             "\nP,Estimated,0.001,100,100,100," + cells + "\n",
                         "t.csv", {}, KnownMaterials());
    EXPECT_THAT(result.errors, ElementsAre());
    return result.errors.empty() ? result.product.parts[0].sets[0][Fact::Ixx] : 0.0;
}

/// The same of values that one use has of its own.
double MomentOfUse(const std::string& columns, const std::string& cells)
{
    const std::string blanks(static_cast<std::size_t>(std::ranges::count(columns, ',')), ',');
    const auto read = wbtest::Read("part,parent,instance,mass_type,values_on,volume [m3],kx [mm],"
                                   "ky [mm],kz [mm]," +
                                   columns + "\nA,,,,,,,,," + blanks +
                                   "\nP,A,i,Estimated,instance,0.001,100,100,100," + cells + "\n");
    EXPECT_THAT(read.errors, ElementsAre());
    return read.errors.empty() ? read.product.uses[0].sets[0][Fact::Ixx] : 0.0;
}

constexpr const char* kSix = "mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz "
                             "[kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,inertia_at";
} // namespace

TEST(ProductInertia, MatrixTermsAboutTheOriginMoveAsIntegrals)
{
    // 2 kg at (1, 2, 3) m. The cell -3 is a matrix term: + integral 3, less 2 * 1 * 2 is -1.
    const ValueSet set = PartSet(kSix, "2,1000,2000,3000,30,25,15,-3,-5,-11,negative,origin");
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 4);  // 30 - 2 (4 + 9)
    EXPECT_DOUBLE_EQ(set[Fact::Iyy], 5);  // 25 - 2 (1 + 9)
    EXPECT_DOUBLE_EQ(set[Fact::Izz], 5);  // 15 - 2 (1 + 4)
    EXPECT_DOUBLE_EQ(set[Fact::Ixy], -1); // 3 - 2 * 1 * 2
    EXPECT_DOUBLE_EQ(set[Fact::Ixz], -1); // 5 - 2 * 1 * 3
    EXPECT_DOUBLE_EQ(set[Fact::Iyz], -1); // 11 - 2 * 2 * 3
}

TEST(ProductInertia, ProductsTypedAsZeroAboutTheOriginMoveToo)
{
    const ValueSet set = PartSet(kSix, "2,1000,2000,3000,30,25,15,0,0,0,,origin");
    EXPECT_DOUBLE_EQ(set[Fact::Ixy], -4);
    EXPECT_DOUBLE_EQ(set[Fact::Ixz], -6);
    EXPECT_DOUBLE_EQ(set[Fact::Iyz], -12);
}

TEST(ProductInertia, ProductsThatNobodyTypedStayZeroAboutTheCentre)
{
    const ValueSet set = PartSet(kSix, "2,1000,2000,3000,30,25,15,,,,,origin");
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 4);
    EXPECT_EQ(set[Fact::Ixy], 0);
    EXPECT_EQ(set[Fact::Ixz], 0);
    EXPECT_EQ(set[Fact::Iyz], 0);
}

TEST(ProductInertia, PoundsAndInchesBecomeKilogramsAndMetres)
{
    // 1 lb = 0.45359237 kg, 1 in = 0.0254 m: 1 lb.in2 = 0.0002926396534292 kg.m2.
    const ValueSet moments =
        PartSet("mass [lb],ixx [lb.in2],iyy [lb.in2],izz [lb.in2]", "10,100,200,300");
    EXPECT_DOUBLE_EQ(moments[Fact::Mass], 4.5359237);
    EXPECT_DOUBLE_EQ(moments[Fact::Ixx], 0.02926396534292);
    EXPECT_DOUBLE_EQ(moments[Fact::Izz], 0.08779189602876);
    const ValueSet radii = PartSet("mass [lb],kx [in],ky [in],kz [in]", "10,1,2,3");
    EXPECT_DOUBLE_EQ(radii[Fact::Ixx], 0.002926396534292);
    EXPECT_DOUBLE_EQ(radii[Fact::Iyy], 0.011705586137168);
}

TEST(ProductInertia, RadiiOfGyrationAboutTheOriginMoveToTheCentre)
{
    // 2 kg at x = 0.1 m: 2 * 0.2 * 0.2 - 2 * 0.1 * 0.1 about y.
    const ValueSet set = PartSet("mass [kg],cgx [mm],cgy [mm],cgz [mm],kx [mm],ky [mm],kz "
                                 "[mm],inertia_at",
                                 "2,100,0,0,100,200,300,origin");
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 0.02);
    EXPECT_DOUBLE_EQ(set[Fact::Iyy], 0.06);
    EXPECT_DOUBLE_EQ(set[Fact::Izz], 0.16);
    EXPECT_EQ(TypedText(set.typed, "inertia_at"), "origin");
}

TEST(ProductInertia, RadiiAboutTheOriginNeedACentre)
{
    EXPECT_EQ(FirstError("part,mass_type,mass [kg],kx [mm],ky [mm],kz [mm],inertia_at\n"
                         "P,Weighed,2,1,2,3,origin\n"),
              "t.csv:2: column \"inertia_at\": found \"origin\" without a centre of gravity, "
              "expected both, since they move the inertia to the centre");
}

TEST(ProductInertia, RadiiStandAboutOnePointAlone)
{
    const std::string header = "part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],kx [mm],ky "
                               "[mm],kz [mm],inertia_at\n";
    EXPECT_EQ(FirstError(header + "P,Weighed,2,0,0,9,1,2,3,origin\nP,Weighed,,,,,1,2,3,\n"),
              "t.csv:3: column \"inertia_at\": found \"cg\", but line 2 states \"origin\"; "
              "expected the same fact once");
    EXPECT_EQ(FirstError(header + "P,Weighed,2,0,0,9,1,2,3,origin\nP,Weighed,,,,,1,2,3,origin\n"),
              "");
}

TEST(ProductInertia, MassOfASizeTakesTheDensityThatTheTableAddsToAKnownMaterial)
{
    EXPECT_DOUBLE_EQ(MomentOfKnownMaterial("material,material_density [kg/m3]", "Aluminium,2700"),
                     0.027);
    EXPECT_DOUBLE_EQ(MomentOfKnownMaterial("material", "Steel"), 0.078);
}

TEST(ProductInertia, MassOfASizeOfAUseTakesTheDensityOfThatUse)
{
    EXPECT_DOUBLE_EQ(MomentOfUse("density [kg/m3]", "1500"), 0.015);
    EXPECT_DOUBLE_EQ(
        MomentOfUse("material,material_density [kg/m3],material_on", "Titanium,4430,instance"),
        0.0443);
}

TEST(ProductInertia, WrongWordsAreRefusedWhereNoInertiaStands)
{
    EXPECT_EQ(FirstError("part,mass_type,mass [kg],poi_sign\nP,Weighed,1,plus\n"),
              "t.csv:2: column \"poi_sign\": found \"plus\", expected one of positive, +, "
              "negative, -");
    EXPECT_EQ(FirstError("part,mass_type,mass [kg],inertia_at\nP,Weighed,1,centre\n"),
              "t.csv:2: column \"inertia_at\": found \"centre\", expected one of cg, origin");
}

TEST(ProductInertia, MassOfASizeTakesWhatTheDatabaseHoldsOfThePart)
{
    const auto moment = [](const KnownMaterials& known, const std::string& cells) {
        const auto result = ReadProductTable(
            "part,mass_type,volume [m3],kx [mm],ky [mm],kz [mm],density [kg/m3],density_first\n"
            "K,Estimated,0.001,100,100,100," +
                cells + "\n",
            "t.csv", {}, known);
        EXPECT_THAT(result.errors, ElementsAre());
        return result.errors.empty() ? result.product.parts[0].sets[0][Fact::Ixx] : 0.0;
    };
    KnownMaterials known;
    EXPECT_DOUBLE_EQ(moment(known, ","), 0.078);
    known.density = 5000;
    EXPECT_DOUBLE_EQ(moment(known, ","), 0.05);
    EXPECT_DOUBLE_EQ(moment(known, ",material"), 0.078);
    known.first = DensityOrder::Material;
    EXPECT_DOUBLE_EQ(moment(known, ","), 0.078);
    EXPECT_DOUBLE_EQ(moment(known, ",wb"), 0.05);
    known.density = kUnknown;
    EXPECT_DOUBLE_EQ(moment(known, "6000,wb"), 0.06);
}

TEST(ProductInertia, ProductsMayStandInALaterRowThanTheMomentsAlone)
{
    const std::string header = "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy "
                               "[kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign\n";
    const auto result =
        wbtest::Read(header + "P,Weighed,1,2,3,,,,\nP,Weighed,1,2,3,0.1,0.2,0,negative\n");
    ASSERT_THAT(result.errors, ElementsAre());
    const ValueSet& set = result.product.parts[0].sets[0];
    EXPECT_EQ(set[Fact::Ixy], -0.1);
    EXPECT_EQ(set[Fact::Iyz], 0);
    EXPECT_EQ(set.typed, "ixx=1 kg.m2|iyy=2 kg.m2|izz=3 kg.m2|poi_sign=negative|ixy=0.1 kg.m2|"
                         "ixz=0.2 kg.m2|iyz=0 kg.m2");
    EXPECT_EQ(result.summary.momentsAlone, 0U);
    EXPECT_EQ(FirstError(header + "P,Weighed,1,2,3,0.1,0,0,-\nP,Weighed,1,2,3,0.2,0,0,-\n"),
              "t.csv:3: column \"ixy [kg.m2]\": found \"0.2\", but line 2 states \"0.1 kg.m2\"; "
              "expected the same fact once");
}

TEST(ProductInertia, InertiaBeyondAllNumbersIsRefused)
{
    EXPECT_EQ(FirstError("part,mass_type,mass [kg],kx [mm],ky [mm],kz [mm]\n"
                         "P,Weighed,1,1e200,1,1\n"),
              "t.csv:2: column \"kx [mm]\": the inertia about the centre is beyond all numbers, "
              "expected smaller ones");
    EXPECT_EQ(FirstError("part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy "
                         "[kg.m2],izz [kg.m2],inertia_at\nP,Weighed,1,0,1e200,0,1,1,1,origin\n"),
              "t.csv:2: column \"inertia_at\": the inertia about the centre is beyond all numbers, "
              "expected smaller ones");
}
