#include "ServerTesting.h"
#include "WBPlacement.h"

#include <cmath>

using namespace wb;
using testing::ElementsAre;
using testing::HasSubstr;
using wbtest::PartNamed;

namespace
{
/// Reads a table that must be good.
Product Good(const std::string& table, const TableOptions& options = {})
{
    auto result = wbtest::Read(table, options);
    EXPECT_THAT(result.errors, ElementsAre());
    return std::move(result.product);
}

/// The only set of a table with one part and one row of values.
ValueSet OneSet(const std::string& columns, const std::string& cells)
{
    const Product product = Good("part,mass_type," + columns + "\nP,Estimated," + cells + "\n");
    return product.parts.empty() || product.parts[0].sets.empty() ? ValueSet()
                                                                  : product.parts[0].sets[0];
}

Use OneUse(const std::string& columns, const std::string& cells)
{
    const Product product = Good(
        "parent,instance,part," + columns + "\n,,A" +
        std::string(static_cast<std::size_t>(std::count(columns.begin(), columns.end(), ',') + 1),
                    ',') +
        "\nA,i,P," + cells + "\n");
    return product.uses.empty() ? Use() : product.uses[0];
}
} // namespace

TEST(WBProductTable, ColumnNamesAreCaseBlindAndInAnyOrder)
{
    const Product product = Good("MASS [kg],Name,Mass_Type,PART\n2.5,Bolt,Weighed,P\n");
    EXPECT_EQ(product.parts[0].identifier, "P");
    EXPECT_EQ(product.parts[0].name, "Bolt");
    EXPECT_EQ(product.parts[0].sets[0][Fact::Mass], 2.5);
}

TEST(WBProductTable, DecimalCommaIsReadBehindSemicolonAndTab)
{
    EXPECT_EQ(Good("part;mass_type;mass [kg]\nP;Weighed;2,5\n").parts[0].sets[0][Fact::Mass], 2.5);
    EXPECT_EQ(Good("part\tmass_type\tmass [kg]\nP\tWeighed\t2,5\n").parts[0].sets[0][Fact::Mass],
              2.5);
    EXPECT_EQ(Good("part;mass_type;mass [kg]\nP;Weighed;2.5\n").parts[0].sets[0][Fact::Mass], 2.5);
}

TEST(WBProductTable, UnitsOfTheHeaderAreConvertedAndTheTextIsKept)
{
    const ValueSet set = OneSet("mass [lb],cgx [in],cgy [in],cgz [in]", "2.0,1,0,-2");
    EXPECT_EQ(set[Fact::Mass], 0.90718474);
    EXPECT_EQ(set[Fact::CgX], 25.4);
    EXPECT_EQ(set[Fact::CgZ], -50.8);
    EXPECT_EQ(TypedText(set.typed, "mass"), "2.0 lb");
    EXPECT_EQ(TypedText(set.typed, "cgz"), "-2 in");
}

TEST(WBProductTable, BlankIsUnknownAndNotZero)
{
    const ValueSet set = OneSet("mass [kg],volume [m3]", "1,");
    EXPECT_FALSE(set.Has(Fact::Volume));
    EXPECT_FALSE(set.HasCentre());
    EXPECT_FALSE(set.HasInertia());
    EXPECT_TRUE(OneSet("mass [kg]", "0").Has(Fact::Mass));
}

TEST(WBProductTable, RowWithAParentIsAUseAndItsFactsAreThePartsFacts)
{
    const Product product = Good("parent,instance,part,name,quantity,x [mm],y [mm],z [mm]\n"
                                 ",,A,Top,,,,\nA,P.1,P,Bolt,4,1,2,3\nA,P.2,P,,,,,\n");
    ASSERT_EQ(product.uses.size(), 2U);
    EXPECT_EQ(product.uses[0].instance, "P.1");
    EXPECT_EQ(product.uses[0].Pieces(), 4);
    EXPECT_THAT(product.uses[0].placement.shift, ElementsAre(1, 2, 3));
    EXPECT_EQ(product.uses[1].Pieces(), 1);
    EXPECT_EQ(product.uses[1].placement, Placement());
    EXPECT_EQ(PartNamed(product, "P").name, "Bolt");
    EXPECT_EQ(product.Roots().size(), 1U);
}

TEST(WBProductTable, BlankVersionIsANewA)
{
    EXPECT_EQ(Good("part\nP\n").parts[0].version, "A");
}

TEST(WBProductTable, BlankVersionIsTheOnlyOneInWhateverRowItStands)
{
    const Product product = Good("part,version,name,code\nP,,Bolt,\nP,C,,WING\n");
    ASSERT_EQ(product.parts.size(), 1U);
    EXPECT_EQ(product.parts[0].version, "C");
    EXPECT_EQ(product.parts[0].name, "Bolt");
    EXPECT_EQ(product.parts[0].code, "WING");
}

TEST(WBProductTable, EveryVersionOfAPartIsAPartOfItsOwn)
{
    const Product product = Good(
        "parent,parent_version,part,version\n,,P,A\n,,P,B\n,,P,C\n,,P,B\nP,A,Q,\nP,B,Q,\nP,C,Q,\n");
    ASSERT_EQ(product.parts.size(), 4U);
    ASSERT_EQ(product.uses.size(), 3U);
    for (std::size_t use = 0; use < 3; ++use) {
        EXPECT_EQ(product.parts[product.uses[use].parent].version, std::string(1, "ABC"[use]));
    }
}

TEST(WBProductTable, TwoVersionsAreTwoParts)
{
    const Product product = Good("parent,parent_version,part,version\n,,P,A\n,,P,B\nP,B,Q,\n");
    ASSERT_EQ(product.parts.size(), 3U);
    EXPECT_EQ(product.parts[product.uses[0].parent].version, "B");
}

TEST(WBProductTable, BlankInstanceTakesTheNextFreeNumber)
{
    const Product product = Good("parent,instance,part\n,,A\nA,,P\nA,P.2,P\nA,,P\nA,,Q\n");
    std::vector<std::string> names;
    for (const Use& use : product.uses) {
        names.push_back(use.instance);
    }
    EXPECT_THAT(names, ElementsAre("P.1", "P.2", "P.3", "Q.1"));
}

TEST(WBProductTable, ThirtyDegreesDoNotExchangeRowsAndColumns)
{
    const Use use = OneUse("rz [deg]", "30");
    // The part's x axis points to (cos 30, sin 30) in the parent.
    EXPECT_NEAR(Coefficients(use.placement)[0], 0.8660254037844387, 1e-15);
    EXPECT_NEAR(Coefficients(use.placement)[1], 0.5, 1e-15);
    EXPECT_NEAR(Coefficients(use.placement)[3], -0.5, 1e-15);
}

TEST(WBProductTable, ColumnKOfTheMatrixIsTheAxisK)
{
    const Use use = OneUse("r11,r12,r13,r21,r22,r23,r31,r32,r33", "0,-1,0,1,0,0,0,0,1");
    EXPECT_EQ(use.placement.rotation, RotationFromAngles(0, 0, 90));
    EXPECT_EQ(TypedText(use.typed, "r12"), "-1");
}

TEST(WBProductTable, QuarterTurnsInRadiansAreExact)
{
    EXPECT_EQ(OneUse("rz [rad]", "1.5707963267948966").placement.rotation,
              RotationFromAngles(0, 0, 90));
    EXPECT_NEAR(OneUse("rx [rad]", "0.5").placement.rotation[2][1], std::sin(0.5), 1e-15);
}

TEST(WBProductTable, OppositeHandIsAcceptedAndSaid)
{
    const auto result = wbtest::Read("parent,instance,part,r11,r12,r13,r21,r22,r23,r31,r32,r33\n"
                                     ",,A,,,,,,,,,\nA,left,P,1,0,0,0,-1,0,0,0,1\n");
    EXPECT_THAT(result.errors, ElementsAre());
    EXPECT_THAT(result.summary.oppositeHands, ElementsAre("A/left (line 3)"));
    EXPECT_THAT(result.summary.Remarks(),
                ElementsAre("uses of the opposite hand: 1, A/left (line 3)"));
}

TEST(WBProductTable, ProductsOfInertiaFollowTheirSign)
{
    const std::string columns = "ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz "
                                "[kg.m2],poi_sign";
    for (const char* sign : {"positive", "+", "POSITIVE"}) {
        EXPECT_EQ(OneSet(columns, std::string("1,2,3,0.1,-0.2,0.3,") + sign)[Fact::Ixz], -0.2);
    }
    for (const char* sign : {"negative", "-"}) {
        const ValueSet set = OneSet(columns, std::string("1,2,3,0.1,-0.2,0,") + sign);
        EXPECT_EQ(set[Fact::Ixy], -0.1);
        EXPECT_EQ(set[Fact::Ixz], 0.2);
        EXPECT_FALSE(std::signbit(set[Fact::Iyz]));
        EXPECT_EQ(TypedText(set.typed, "poi_sign"), "negative");
    }
}

TEST(WBProductTable, SignOfTheWholeTableMayBeAnOption)
{
    const std::string table = "part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz "
                              "[kg.m2],iyz [kg.m2]\nP,Estimated,1,2,3,0.1,0,0\n";
    TableOptions options;
    options.productSign = ProductSign::MatrixTerm;
    EXPECT_EQ(Good(table, options).parts[0].sets[0][Fact::Ixy], -0.1);
    options.productSign = ProductSign::Integral;
    EXPECT_EQ(Good(table, options).parts[0].sets[0][Fact::Ixy], 0.1);
}

TEST(WBProductTable, ThreeMomentsAloneHaveProductsOfZeroAndAreCounted)
{
    const auto result = wbtest::Read("part,mass_type,ixx [kg.m2],iyy [kg.m2],izz [kg.m2]\n"
                                     "P,Estimated,1,2,3\n");
    EXPECT_EQ(result.product.parts[0].sets[0][Fact::Iyz], 0.0);
    EXPECT_EQ(result.summary.momentsAlone, 1U);
    EXPECT_THAT(
        result.summary.Remarks(),
        ElementsAre("inertias given as three moments alone, with products counted as 0: 1"));
}

TEST(WBProductTable, InertiaAboutTheOriginMovesToTheCentre)
{
    // 10 kg at (100, 200, 300) mm: Ixx falls by 10 (0.04 + 0.09), Pxy by 10 * 0.1 * 0.2, ...
    const ValueSet set = OneSet("mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz "
                                "[kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2],poi_sign,inertia_at",
                                "10,100,200,300,5,6,7,1,1,1,positive,origin");
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 3.7);
    EXPECT_DOUBLE_EQ(set[Fact::Iyy], 5.0);
    EXPECT_DOUBLE_EQ(set[Fact::Izz], 6.5);
    EXPECT_DOUBLE_EQ(set[Fact::Ixy], 0.8);
    EXPECT_DOUBLE_EQ(set[Fact::Ixz], 0.7);
    EXPECT_DOUBLE_EQ(set[Fact::Iyz], 0.4);
    EXPECT_EQ(TypedText(set.typed, "inertia_at"), "origin");
}

TEST(WBProductTable, InertiaAboutTheOriginTakesTheMassOfASize)
{
    const Product product =
        Good("part,mass_type,volume [m3],material,material_density [kg/m3],cgx [mm],cgy [mm],cgz "
             "[mm],ixx [kg.m2],iyy [kg.m2],izz [kg.m2],inertia_at\n"
             "P,Estimated,0.001,Water,1000,1000,0,0,1,2,3,origin\n");
    EXPECT_DOUBLE_EQ(product.parts[0].sets[0][Fact::Iyy], 1.0);
    EXPECT_DOUBLE_EQ(product.parts[0].sets[0][Fact::Ixx], 1.0);
}

TEST(WBProductTable, RadiiOfGyrationBecomeMoments)
{
    const ValueSet set = OneSet("mass [kg],kx [mm],ky [mm],kz [cm]", "2,100,200,30");
    EXPECT_DOUBLE_EQ(set[Fact::Ixx], 0.02);
    EXPECT_DOUBLE_EQ(set[Fact::Iyy], 0.08);
    EXPECT_DOUBLE_EQ(set[Fact::Izz], 0.18);
    EXPECT_EQ(set[Fact::Ixy], 0.0);
    EXPECT_EQ(TypedText(set.typed, "kz"), "30 cm");
}

TEST(WBProductTable, PrecisionsAreReadAsMassesOrPercentages)
{
    const ValueSet absolute = OneSet("mass [kg],lower [g],upper [g]", "1,5,10");
    EXPECT_DOUBLE_EQ(absolute[Fact::Lower], 0.005);
    EXPECT_DOUBLE_EQ(absolute[Fact::Upper], 0.01);
    EXPECT_EQ(OneSet("mass [kg],lower_pct [%],upper_pct", "1,5,10")[Fact::UpperPct], 10);
}

TEST(WBProductTable, SigmasAreReadInTheirUnits)
{
    const ValueSet set =
        OneSet("mass [kg],sigma_mass [g],sigma_cgy [cm],sigma_iyz [kg.m2]", "1,5,0.1,0.003");
    EXPECT_DOUBLE_EQ(set[Fact::SigmaMass], 0.005);
    EXPECT_DOUBLE_EQ(set[Fact::SigmaCgY], 1.0);
    EXPECT_EQ(set[Fact::SigmaIyz], 0.003);
    EXPECT_FALSE(set.Has(Fact::SigmaCgX));
}

TEST(WBProductTable, ValuesOnAnInstanceBelongToThatUseAlone)
{
    const Product product =
        Good("parent,instance,part,mass_type,values_on,active,mass [kg]\n"
             ",,A,,,,\nA,P.1,P,Calculated,,,1\nA,P.1,P,Weighed,instance,yes,2\n");
    ASSERT_EQ(product.uses.size(), 1U);
    EXPECT_EQ(product.uses[0].sets[0][Fact::Mass], 2);
    EXPECT_EQ(product.uses[0].activeType, "Weighed");
    EXPECT_EQ(PartNamed(product, "P").activeType, "");
    EXPECT_EQ(PartNamed(product, "P").sets.size(), 1U);
}

TEST(WBProductTable, MaterialOnAnInstanceIsThatUsesAlone)
{
    const Product product =
        Good("parent,instance,part,material,material_on,material_density [g/cm3],"
             "density [kg/m3],note\n,,A,,,,,\nA,P.1,P,Al,,2.78,,\n"
             "A,P.2,P,Ti,instance,4.43,4500,titanium here\n");
    EXPECT_EQ(PartNamed(product, "P").material, "Al");
    EXPECT_FALSE(IsKnown(PartNamed(product, "P").density));
    EXPECT_EQ(product.uses[1].material, "Ti");
    EXPECT_EQ(product.uses[1].density, 4500);
    EXPECT_EQ(product.uses[1].note, "titanium here");
    EXPECT_EQ(product.materials[0].density, 2780);
    EXPECT_EQ(TypedText(product.materials[0].typed, "material_density"), "2.78 g/cm3");
}

TEST(WBProductTable, DensitiesOfThePart)
{
    const Product product = Good("part,density [kg/m3],surface_density [kg/m2],density_first\n"
                                 "P,10,20,material\n");
    EXPECT_EQ(product.parts[0].density, 10);
    EXPECT_EQ(product.parts[0].surfaceDensity, 20);
    EXPECT_EQ(product.parts[0].densityFirst, DensityOrder::Material);
}

TEST(WBProductTable, FactsOfAPart)
{
    const Product product = Good("part,name,type,standard,code,growth_pct [%],errors,note\n"
                                 "P,Bolt,adjustment,yes,WING,5,apart,hello\n");
    const Part& part = product.parts[0];
    EXPECT_EQ(part.type, PartType::Adjustment);
    EXPECT_EQ(part.standard, Answer::Yes);
    EXPECT_EQ(part.code, "WING");
    EXPECT_EQ(part.growthPct, 5);
    EXPECT_EQ(part.errors, ErrorRule::Apart);
    EXPECT_EQ(part.note, "hello");
    EXPECT_EQ(part.ShownName(), "Bolt");
    EXPECT_EQ(Good("part\nQ\n").parts[0].ShownName(), "Q");
}

TEST(WBProductTable, OriginOfASetIsKept)
{
    const ValueSet set =
        OneSet("mass [kg],source,source_date,author,note", "1,scale,2026-05-01,kim,dry");
    EXPECT_EQ(set.source, "scale");
    EXPECT_EQ(set.sourceDate, "2026-05-01");
    EXPECT_EQ(set.author, "kim");
    EXPECT_EQ(set.note, "dry");
}

TEST(WBProductTable, NegativeMassIsForAdjustments)
{
    EXPECT_EQ(Good("part,type,mass_type,mass [kg]\nP,adjustment,Estimated,-0.5\n")
                  .parts[0]
                  .sets[0][Fact::Mass],
              -0.5);
}

TEST(WBProductTable, RevisionsKeepTheirOrder)
{
    const Product product =
        Good("part,doc,doc_version,doc_use,doc_checkin_date,doc_checkin_user,doc_checkout_user,"
             "doc_mass_type,doc_mass [g]\n"
             "P,D,A.1,attached,2026-01-02,kim,,Estimated,1500\nP,D,B.1,active,,,lee,Computed,\n");
    const auto& documents = product.parts[0].documents;
    ASSERT_EQ(documents.size(), 2U);
    EXPECT_EQ(documents[0].version, "A.1");
    EXPECT_TRUE(documents[0].IsAttached());
    EXPECT_FALSE(documents[0].IsActive());
    EXPECT_EQ(documents[0].mass, 1.5);
    EXPECT_EQ(documents[0].checkinDate, "2026-01-02");
    EXPECT_TRUE(documents[1].IsActive());
    EXPECT_EQ(documents[1].checkoutUser, "lee");
    EXPECT_FALSE(IsKnown(documents[1].mass));
}

TEST(WBProductTable, PropertiesOfPartsAndUsesHaveTheTypeOfTheirHeader)
{
    const Product product =
        Good("parent,instance,part,p:Vendor,p:Life:int,p:Ratio:real,p:Flies:bool,p:Due day:date,"
             "p:Time [h],p:Torque:TORQUE [N.m],i:Place\n"
             ",,A,,,,,,,,\nA,P.1,P,Acme,7,0.5,Yes,2026-09-01,2,3,left\n");
    const auto& properties = PartNamed(product, "P").properties;
    ASSERT_EQ(properties.size(), 7U);
    const auto expect = [&](std::size_t i, const char* name, Property::Type type,
                            const char* value) {
        EXPECT_EQ(properties[i].name, name);
        EXPECT_EQ(properties[i].type, type);
        EXPECT_EQ(properties[i].value, value);
    };
    expect(0, "Vendor", Property::Type::Text, "Acme");
    expect(1, "Life", Property::Type::Integer, "7");
    expect(2, "Ratio", Property::Type::Real, "0.5");
    expect(3, "Flies", Property::Type::YesNo, "yes");
    expect(4, "Due_day", Property::Type::Text, "2026-09-01");
    EXPECT_TRUE(properties[4].isDate);
    expect(5, "Time", Property::Type::Dimensioned, "7200");
    EXPECT_EQ(properties[5].magnitude, "TIME");
    EXPECT_EQ(properties[5].typed, "2 h");
    EXPECT_EQ(properties[6].magnitude, "TORQUE");
    ASSERT_EQ(product.uses[0].properties.size(), 1U);
    EXPECT_EQ(product.uses[0].properties[0].name, "Place");
}

TEST(WBProductTable, AFactStatedTwiceAlikeIsAccepted)
{
    const Product product =
        Good("parent,instance,part,name,mass_type,mass [kg],quantity,x [mm],y [mm],z [mm],p:V\n"
             ",,A,,,,,,,,\nA,i,P,Bolt,Estimated,1,2,1,2,3,v\nA,i,P,Bolt,Estimated,1.0,2,1,2,3,v\n");
    EXPECT_EQ(product.uses.size(), 1U);
    EXPECT_EQ(PartNamed(product, "P").sets.size(), 1U);
}

TEST(WBProductTable, MassTypeOfTheWholeTableMayBeAnOption)
{
    TableOptions options;
    options.massType = "Weighed";
    const Product product =
        Good("part,mass_type,mass [kg],code\nP,,1,\nQ,Estimated,2,\nR,,,X\n", options);
    EXPECT_EQ(PartNamed(product, "P").sets[0].massType, "Weighed");
    EXPECT_EQ(PartNamed(product, "Q").sets[0].massType, "Estimated");
    EXPECT_TRUE(PartNamed(product, "R").sets.empty());
}

TEST(WBProductTable, FileIsReadWithoutAnyDatabase)
{
    const auto result = ReadLocalProduct(wbtest::DataFile("light_aeroplane.csv"));
    EXPECT_TRUE(result.Ok());
    EXPECT_EQ(result.product.parts.size(), 110U);
}

TEST(WBProductTable, OneFactInTwoUnitsIsStatedAlike)
{
    // 0.7 in are 17.78 mm, 0.1 lb 0.045359237 kg and 30 degrees 0.5235987755982988 rad, but for the
    // rounding of the last digit.
    const Product product =
        Good("parent,instance,part,x [in],y [in],z [in],x [mm],y [mm],z [mm],rz [deg],rz [rad],"
             "mass_type,mass [lb],mass [kg]\n,,A,,,,,,,,,,,\n"
             "A,i,P,0.7,1,2,,,,30,,Weighed,0.1,\n"
             "A,i,P,,,,17.78,25.4,50.8,,0.5235987755982988,Weighed,,0.045359237\n");
    EXPECT_EQ(product.uses.at(0).typed, "rz=30 deg|x=0.7 in|y=1 in|z=2 in");
    EXPECT_EQ(PartNamed(product, "P").sets.at(0).typed, "mass=0.1 lb");
    EXPECT_EQ(wbtest::FirstError("part,mass_type,mass [kg]\nP,Weighed,1\nP,Weighed,"
                                 "1.00000000000001\n"),
              "t.csv:3: column \"mass [kg]\": found \"1.00000000000001\", but line 2 states \"1 "
              "kg\"; expected the same fact once");
}
