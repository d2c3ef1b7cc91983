#include "ComputeTesting.h"

#include <gmock/gmock.h>

#include <sstream>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
using Compute = ComputeProgram;

/// A product with an assembly that was weighed: 5 kg stated, 4 kg below it, no inertia of its own.
constexpr const char* kWeighedBox =
    "parent,instance,part,name,mass_type,active,mass [kg],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],"
    "iyy [kg.m2],izz [kg.m2],ixy [kg.m2],ixz [kg.m2],iyz [kg.m2]\n"
    ",,R,,,,,,,,,,,,,\n"
    "R,box,B,Box,Weighed,yes,5,1,0,0,,,,,,\n"
    "B,lid,L,,Calculated,,4,0,0,0,0.4,0.4,0.4,0,0,0\n";

/// One sheet that is sized, of a material of 10 kg/m3, with a measured density of 12 kg/m3.
constexpr const char* kSized =
    "parent,instance,part,mass_type,volume [m3],material,material_density [kg/m3],density [kg/m3]\n"
    ",,R,,,,,\n"
    "R,s,S,Calculated,1,Foam,10,12\n"
    ",,O,,,Oak,700,\n";
} // namespace

TEST_F(Compute, AeroplaneWeighsWhatItsPageSays)
{
    ImportAeroplane();
    const std::string text = Computed("LA1");
    EXPECT_THAT(text, StartsWith("LA1 A, Light aeroplane, two seats, basic empty\n"
                                 "381.35925 kg at 930.082, -3.070, -195.479 mm\n"));
    EXPECT_THAT(text, AllOf(HasSubstr("\n  lower deviation, worst case      11.52276\n"
                                      "  upper deviation, worst case      19.71757\n"),
                            HasSubstr("\n  moments xx, yy, zz [kg.m2]       735.3581  809.8641  "
                                      "1442.4889\n")));
}

TEST_F(Compute, TableSaysAllOfASmallProduct)
{
    Import(kBeam);
    // Radii: sqrt(0.003 / 3) = 0.0316228 m, sqrt(0.063 / 3) = 0.1449138 m. Growth: 10 % of 2 kg.
    EXPECT_EQ(Computed("R"),
              "R A, Beam\n"
              "3.0000000 kg at 200.000, 0.000, 0.000 mm\n"
              "\n"
              "  precision  active values\n"
              "  update     check: what is not up to date is computed\n"
              "  filter     none\n"
              "  axes       those of R A\n"
              "  inertia    about the centre of gravity; products are + integral (ixy: x y dm)\n"
              "\n"
              "Total\n"
              "  mass [kg]                         3.0000000\n"
              "  lower deviation, worst case       0.2050000\n"
              "  upper deviation, worst case       0.4050000\n"
              "  centre of gravity x, y, z [mm]      200.000        0.000        0.000\n"
              "  moments xx, yy, zz [kg.m2]      0.003000000  0.063000000  0.063000000\n"
              "  products xy, xz, yz [kg.m2]     0.000000000  0.000000000  0.000000000\n"
              "  principal moments [kg.m2]       0.063000000  0.063000000  0.003000000\n"
              "  radii of gyration x, y, z [mm]       31.623      144.914      144.914\n"
              "\n"
              "Coverage\n"
              "  items                                 2\n"
              "  without a mass                        0\n"
              "  mass without a centre [kg]    0.0000000\n"
              "  mass without an inertia [kg]  0.0000000\n"
              "\n"
              "By material\n"
              "  material       density  mass [kg]  share [%]\n"
              "  (no material)        -  3.0000000     100.00\n"
              "  total                   3.0000000     100.00\n"
              "\n"
              "By mass type\n"
              "  mass type  mass [kg]  share [%]\n"
              "  Estimated  2.0000000      66.67\n"
              "  Weighed    1.0000000      33.33\n"
              "  total      3.0000000     100.00\n"
              "\n"
              "By code\n"
              "  code       mass [kg]  share [%]\n"
              "  STRUCTURE  3.0000000     100.00\n"
              "  total      3.0000000     100.00\n"
              "\n"
              "Growth [kg]\n"
              "  basic mass        3.0000000\n"
              "  growth allowance  0.2000000\n"
              "  predicted mass    3.2000000\n");
}

TEST_F(Compute, LinesFitATerminalOf80Columns)
{
    ImportAeroplane();
    ImportSatellite();
    for (const char* product : {"LA1", "SC1", "LA1/PWR-000.1/PWR-100.1", "LA1/WNG-000.1"}) {
        std::istringstream text(
            Answer(product + std::string(" --uncertainty --rss --explain 30 --at 1,2,3")).out);
        for (std::string line; std::getline(text, line);) {
            // A shortened name ends with a character of three bytes.
            EXPECT_LE(line.size(), line.find("…") == std::string::npos ? 80U : 84U) << line;
        }
    }
}

TEST_F(Compute, NodeIsNamedWithItsPathAndItsOwnAxes)
{
    ImportAeroplane();
    // Twice a cap of 3.4194 kg, a web of 3.2804 kg and twice a fitting of 0.634 kg.
    const std::string text = Computed("LA1/WNG-000.1/WNG-200R.1/WNG-210.1");
    EXPECT_THAT(text, StartsWith("WNG-210 A, Main spar assembly\n11.387200 kg at "));
    EXPECT_THAT(text, HasSubstr("\n  path       LA1/WNG-000.1/WNG-200R.1/WNG-210.1\n"));
    EXPECT_THAT(text, HasSubstr("\n  axes       those of WNG-210 A\n"));
}

TEST_F(Compute, PrecisionChoosesWhoseValuesCount)
{
    ImportAeroplane();
    std::string text = Computed("LA1 --precision most-precise");
    EXPECT_THAT(text, AllOf(HasSubstr("\n382.05345 kg at "),
                            HasSubstr("\n  precision  most precise values\n")));
    text = Computed("LA1 --precision Computed");
    EXPECT_THAT(text,
                AllOf(HasSubstr("\n379.75925 kg at "),
                      HasSubstr("\n  precision  Computed: active values of the leaves, nothing "
                                "imposed above them\n")));
}

TEST_F(Compute, MassTypeAloneLeavesOutWhatHasNone)
{
    Import(kBeam);
    const Outcome alone = Answer("R --precision Weighed");
    EXPECT_EQ(alone.status, 3);
    EXPECT_THAT(alone.out,
                AllOf(HasSubstr("\n1.0000000 kg at 0.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  precision  Weighed alone\n"),
                      HasSubstr("\n  items                                 2\n"
                                "  without a mass                        1\n"),
                      HasSubstr("\nWarnings\n- 1 of 2 items has no mass; the total leaves it "
                                "out\n- Ballast (Q A) has no mass\n"),
                      Not(HasSubstr("Took their active values"))));
}

TEST_F(Compute, OrActiveFillsTheGapsAndListsThem)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --precision Weighed --or active"),
                AllOf(HasSubstr("\n3.0000000 kg at 200.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  precision  Weighed alone, else the active values of a leaf\n"),
                      HasSubstr("\nTook their active values\n- Ballast\n")));
}

TEST_F(Compute, ForcedAnswerIsThatOfACheck)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --update force"),
                AllOf(HasSubstr("\n3.0000000 kg at 200.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  update     force: everything is computed anew\n")));
}

TEST_F(Compute, AssumedAnswerTakesStaleSumsBelowTheLevel)
{
    Import("parent,instance,part,mass_type,mass [kg]\n,,R,,\nR,box,B,,\nB,lid,L,Weighed,4\n");
    EXPECT_THAT(Computed("R"), HasSubstr("\n4.0000000 kg"));
    Import("part,mass_type,mass [kg]\nL,Weighed,6\n");
    const std::string stale = Computed("R --update assume:0");
    EXPECT_THAT(stale,
                AllOf(HasSubstr("\n4.0000000 kg"),
                      HasSubstr("\n  update     assume: sums deeper than level 0 as they were "
                                "kept\n"),
                      HasSubstr("\n- 1 sub-assembly is not up to date and was taken as stored\n")));
    EXPECT_THAT(Computed("R --update assume:0 --csv"), HasSubstr(",stale_sums,1,"));
    EXPECT_THAT(Computed("R --update assume:0 --json"),
                AllOf(HasSubstr("\"stale_sums\": 1,"), HasSubstr("\"update\": \"assume:0\"")));
    // The box stands on level 1, which is computed; and nothing of it is taken for single leaves.
    EXPECT_THAT(Computed("R --update assume:1"), HasSubstr("\n6.0000000 kg"));
    EXPECT_THAT(Computed("R --update assume:0 --explain"), HasSubstr("\n6.0000000 kg"));
    EXPECT_THAT(Computed("R --json"), HasSubstr("\"stale_sums\": 0,"));
    EXPECT_THAT(Computed("R --csv"), Not(HasSubstr("stale_sums")));
    // What a check has computed is kept in place of the stale sum.
    EXPECT_THAT(Computed("R --update assume:0"), HasSubstr("\n6.0000000 kg"));
}

TEST_F(Compute, EntityRootAsksForTheWholeProduct)
{
    Import(kBeam);
    const std::string text = Computed("R/q --entity root");
    EXPECT_THAT(text, StartsWith("R A, Beam\n3.0000000 kg at "));
    EXPECT_THAT(text, Not(HasSubstr("  path ")));
}

TEST_F(Compute, EntityPartAsksForTheNodesOwnValuesAlone)
{
    Import(kWeighedBox);
    const std::string text = Computed("R/box --entity part --exclude R/box/lid");
    EXPECT_THAT(text,
                AllOf(StartsWith("B A, Box\n5.0000000 kg at 1.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  entity     the part alone: nothing below it\n"),
                      HasSubstr("\n  filter     none\n"), Not(HasSubstr("Own values in place"))));
}

TEST_F(Compute, PartAloneWithoutValuesIsUnknownAndNotZero)
{
    Import(kBeam);
    const Outcome outcome = Answer("R --entity part");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out, AllOf(StartsWith("R A, Beam\nmass unknown\n"),
                                   HasSubstr("\n  mass [kg]                       -\n"
                                             "  lower deviation, worst case     -\n"
                                             "  upper deviation, worst case     -\n"
                                             "  centre of gravity x, y, z [mm]  -  -  -\n"
                                             "  moments xx, yy, zz [kg.m2]      -  -  -\n"
                                             "  products xy, xz, yz [kg.m2]     -  -  -\n"
                                             "  principal moments [kg.m2]       -  -  -\n"
                                             "  radii of gyration x, y, z [mm]  -  -  -\n"),
                                   HasSubstr("- unknown: mass, centre of gravity and inertia\n"),
                                   Not(HasSubstr("sent as 0"))));
}

TEST_F(Compute, ImposedAssemblyShowsOwnBelowAndDifference)
{
    Import(kWeighedBox);
    // The inertia is that of what is below, times 5 kg / 4 kg; weighed within 0.5 %, calculated
    // within -3/+5 %.
    EXPECT_THAT(
        Computed("R/box"),
        AllOf(HasSubstr("\nTotal: the values of Weighed\n"),
              HasSubstr("\n  The inertia is lent by the sum of what is below.\n"),
              HasSubstr("\nOwn values in place of what is below (each inertia about its own "
                        "centre)\n"
                        "                                   own       below  difference\n"
                        "  mass [kg]                  5.0000000   4.0000000   1.0000000\n"
                        "  lower deviation            0.0250000   0.1200000  -0.0950000\n"
                        "  upper deviation            0.0250000   0.2000000  -0.1750000\n"
                        "  centre of gravity x [mm]       1.000       0.000       1.000\n"
                        "  centre of gravity y [mm]       0.000       0.000       0.000\n"
                        "  centre of gravity z [mm]       0.000       0.000       0.000\n"
                        "  ixx [kg.m2]               0.50000000  0.40000000  0.10000000\n")));
}

TEST_F(Compute, LenderOfACentreIsNamed)
{
    Import("parent,instance,part,mass_type,mass [kg],cgx [mm],cgy [mm],cgz [mm]\n,,R,,,,,\n"
           "R,p,P,Weighed,1,,,\nR,p,P,Estimated,2,5,0,0\n");
    EXPECT_THAT(Computed("R/p"), HasSubstr("\n  The centre of gravity is lent by Estimated.\n"));
}

TEST_F(Compute, ExcludedNodeDoesNotCount)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --exclude R/q"),
                AllOf(HasSubstr("\n1.0000000 kg at 0.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  filter     without R/q\n")));
    EXPECT_THAT(Computed("R --include R/q"),
                AllOf(HasSubstr("\n2.0000000 kg at 300.000, 0.000, 0.000 mm\n"),
                      HasSubstr("\n  filter     with R/q\n")));
}

TEST_F(Compute, EachLineOfAFilterStandsOnALineOfItsOwn)
{
    ImportAeroplane();
    // Everything but the power plant, with its engine of 61.4 kg: 381.35925 - 98.2113 + 61.4.
    EXPECT_THAT(Computed("LA1 --exclude LA1/PWR-000.1 --include LA1/PWR-000.1/PWR-100.1"),
                AllOf(HasSubstr("\n344.54795 kg at "),
                      HasSubstr("\n  filter     with LA1\n"
                                "             without LA1/PWR-000.1\n"
                                "             with LA1/PWR-000.1/PWR-100.1\n")));
}

TEST_F(Compute, ExcludeMayBeRepeated)
{
    ImportAeroplane();
    // 381.35925 - 98.2113 - 45.16.
    EXPECT_THAT(Computed("--exclude LA1/PWR-000.1 LA1 --exclude LA1/SYS-000.1"),
                HasSubstr("\n237.98795 kg at "));
}

TEST_F(Compute, FilterOfTheRequestsIsNamed)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --filter '1|No ballast|X|q|Q|A|0'"),
                AllOf(HasSubstr("\n1.0000000 kg at "),
                      HasSubstr("\n  filter     No ballast:\n             without R/q\n")));
    EXPECT_THAT(Computed("R --filter '0|No Filter'"), HasSubstr("\n  filter     none\n"));
}

TEST_F(Compute, OtherDensityOrMaterialMayBeTriedOnOnePart)
{
    Import(kSized);
    EXPECT_THAT(Computed("R/s"), HasSubstr("\n12.000000 kg"));
    EXPECT_THAT(Computed("R/s --density-first material"),
                AllOf(HasSubstr("\n10.000000 kg"),
                      HasSubstr("\n  density    that of the material goes before that of the "
                                "part\n")));
    EXPECT_THAT(Computed("R/s --density-first wb"),
                AllOf(HasSubstr("\n12.000000 kg"),
                      HasSubstr("\n  density    that of the part goes before that of the "
                                "material\n")));
    // Oak is in the database, and no part of this product is made of it.
    EXPECT_THAT(
        Computed("R/s --material Oak --density-first material"),
        AllOf(HasSubstr("\n700.00000 kg"), HasSubstr("\n  material   Oak in place of its own\n")));
    EXPECT_THAT(Computed("R/s --material Foam --density-first material"),
                HasSubstr("\n10.000000 kg"));
}

TEST_F(Compute, DefinedDeviationsTakeThePlaceOfTheComputedOnes)
{
    Import(kBeam);
    EXPECT_THAT(Computed("R --deviations 1,2%"),
                HasSubstr("\n  lower deviation, as defined       0.0300000\n"
                          "  upper deviation, as defined       0.0600000\n"));
    EXPECT_THAT(Computed("R --deviations 1,2kg"),
                HasSubstr("\n  lower deviation, as defined       1.0000000\n"
                          "  upper deviation, as defined       2.0000000\n"));
}

TEST_F(Compute, InertiaMayStandAboutAnyPoint)
{
    Import(kBeam);
    // The origin is 0.2 m off the centre: 0.063 + 3 x 0.04 = 0.183.
    std::string text = Computed("R --at origin");
    EXPECT_THAT(text, AllOf(HasSubstr("about the origin of these axes; products"),
                            HasSubstr("\n  moments xx, yy, zz [kg.m2]      0.00300000  0.18300000  "
                                      "0.18300000\n")));
    // From (200, 100, 0), 0.1 m off in y: ixx 0.003 + 0.03, izz 0.063 + 0.03.
    text = Computed("R --at 200,100,0");
    EXPECT_THAT(text,
                AllOf(HasSubstr("about 200.000, 100.000, 0.000 mm; products"),
                      HasSubstr("\n  moments xx, yy, zz [kg.m2]      0.033000000  0.063000000  "
                                "0.093000000\n")));
    // From (100, 100, 0) the centre is off by (0.1, -0.1) m: ixy = 3 x 0.1 x -0.1.
    text = Computed("R --at 100,100,0");
    EXPECT_THAT(text, HasSubstr("\n  products xy, xz, yz [kg.m2]     -0.03000000  0.00000000  "
                                "0.00000000\n"));
    EXPECT_THAT(Computed("R --at -3937.0078740157483,0,0 --units LENGTH=in"),
                HasSubstr("about -3937.00787, 0.00000, 0.00000 in; products"));
}

TEST_F(Compute, VersionOfTheRootMayBeChosen)
{
    Import("part,version,mass_type,mass [kg]\nR,A,Weighed,1\nR,B,Weighed,2\n");
    EXPECT_THAT(Computed("R"), StartsWith("R B\n2.0000000 kg"));
    EXPECT_THAT(Computed("R --root-version A"), StartsWith("R A\n1.0000000 kg"));
}

TEST_F(Compute, LongWarningsAreBrokenBetweenWords)
{
    ImportAeroplane();
    EXPECT_THAT(Computed("LA1/PWR-000.1/PWR-100.1 --uncertainty"),
                HasSubstr("- first order understates: the centre of Engine is less certain than it "
                          "is far\n  from the centre of gravity\n"));
}
