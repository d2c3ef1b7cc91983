#include "BodyTesting.h"

#include "WBProduct.h"
#include "WBRollUpTree.h"

#include <array>
#include <numbers>
#include <vector>

using namespace wb;
using wbtest::ExpectSame;

namespace
{
/// A turn about the oblique axis n = (1, 2, 2) / 3: cos E + sin [n]x + (1 - cos) n nt. For 30
/// degrees
///      0.8809114700306121  -0.3035612008409864   0.3631054658256803
///      0.3631054658256803   0.9255696687691326  -0.1071224016819727
///     -0.3035612008409864   0.2262109316513606   0.9255696687691326
Placement Oblique(double degrees)
{
    const double c = std::cos(degrees * std::numbers::pi / 180.0);
    const double s = std::sin(degrees * std::numbers::pi / 180.0);
    const std::array n{1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0};
    Placement turn;
    turn.rotation = {{{c + (1 - c) * n[0] * n[0], (1 - c) * n[0] * n[1] - s * n[2],
                       (1 - c) * n[0] * n[2] + s * n[1]},
                      {(1 - c) * n[1] * n[0] + s * n[2], c + (1 - c) * n[1] * n[1],
                       (1 - c) * n[1] * n[2] - s * n[0]},
                      {(1 - c) * n[2] * n[0] - s * n[1], (1 - c) * n[2] * n[1] + s * n[0],
                       c + (1 - c) * n[2] * n[2]}}};
    return turn;
}

Placement ShiftBy(double x, double y, double z)
{
    Placement placement;
    placement.shift = {x, y, z};
    return placement;
}

/// The sum of bodies that stand in one assembly.
Body Assembled(std::vector<Body> bodies, std::vector<Placement> placements)
{
    std::vector<std::uint32_t> sizes(bodies.size() + 1, 1);
    sizes[0] = static_cast<std::uint32_t>(sizes.size());
    bodies.insert(bodies.begin(), Body());
    placements.insert(placements.begin(), Placement());
    RollUpTree(bodies, sizes, placements);
    return bodies[0];
}

/// A body below an assembly below an assembly, each turned by half of the 30 degrees.
Body TurnedInTwoLevels(const Body& body)
{
    return Assembled({Assembled({body}, {Oblique(15)})}, {Oblique(15)});
}

void ExpectTurned(const Body& body, const Body& expected)
{
    ExpectSame(Placed(body, Oblique(30)), expected);
    ExpectSame(TurnedInTwoLevels(body), expected);
}

// 12 kg, 100 x 200 x 300 mm: ixx = 12/12 (0.2^2 + 0.3^2) = 0.13, iyy = 0.1^2 + 0.3^2 = 0.10,
// izz = 0.1^2 + 0.2^2 = 0.05.
const Body kBox{12, 0, 0, {0, 0, 0}, {0.13, 0.10, 0.05, 0, 0, 0}};
// 8 kg, radius 50 mm, 300 mm along z: izz = 8/2 0.05^2 = 0.01,
// ixx = iyy = 8/12 (3 0.05^2 + 0.3^2) = 8/12 0.0975 = 0.065.
const Body kCylinder{8, 0, 0, {0, 0, 0}, {0.065, 0.065, 0.01, 0, 0, 0}};
// 5 kg, radius 100 mm: 2/5 5 0.1^2 = 0.02 about every axis.
const Body kSphere{5, 0, 0, {0, 0, 0}, {0.02, 0.02, 0.02, 0, 0, 0}};
// 2 kg, 1 m along x, thin: iyy = izz = 2/12 1^2.
const Body kRod{2, 0, 0, {0, 0, 0}, {0, 1.0 / 6.0, 1.0 / 6.0, 0, 0, 0}};
} // namespace

TEST(WithoutRests, ClearsWhatDoublesCannotTellOfTheFiguresBeside)
{
    // 1e-14 of 1,000 mm is 1e-11 mm, of 300 kg.m2 it is 3e-12 kg.m2.
    const Body body{
        4, 1, 2, {1000, -0.9e-11, 1.1e-11}, {100, 200, 300, 2.9e-12, -2.9e-12, 3.1e-12}};
    const Body expected{4, 1, 2, {1000, 0, 1.1e-11}, {100, 200, 300, 0, 0, 3.1e-12}};
    EXPECT_EQ(WithoutRests(body), expected);
}

TEST(WithoutRests, JudgesWhatIsTakenOffByItsSize)
{
    const Body body{-4, 0, 0, {-1e-12, 2, -1000}, {-100, -200, -300, 1e-13, 5, 0}};
    const Body expected{-4, 0, 0, {0, 2, -1000}, {-100, -200, -300, 0, 5, 0}};
    EXPECT_EQ(WithoutRests(body), expected);
}

TEST(WithoutRests, LeavesSmallMomentsAndTheUnknown)
{
    Body body{4, 0, 0, {0, 0, 0}, {100, 1e-15, 100, 0, 0, 0}};
    EXPECT_EQ(WithoutRests(body), body); // a thin rod
    body.centre.fill(kUnknown);
    body.inertia.fill(kUnknown);
    const Body clean = WithoutRests(body);
    for (const double figure :
         {clean.centre[0], clean.centre[2], clean.inertia[0], clean.inertia[5]}) {
        EXPECT_FALSE(IsKnown(figure));
    }
    EXPECT_EQ(clean.mass, 4);
}

TEST(WBBody, BoxTurnedObliquelyHasTheTensorWorkedOut)
{
    // sum over the three axes u_k (columns of the turn) of I_k u_k u_kt; products with the sign of
    // the integral.
    ExpectTurned(kBox, {12,
                        0,
                        0,
                        {0, 0, 0},
                        {0.1166878715753206, 0.1033816069322688, 0.05993052149241056,
                         -0.01154074956845442, 0.02482628659693956, -0.001650720354987796}});
}

TEST(WBBody, CylinderTurnedObliquelyHasTheTensorWorkedOut)
{
    // 0.065 E - 0.055 u ut with u = (0.36310546582568, -0.10712240168197, 0.92556966876913).
    ExpectTurned(kCylinder, {8,
                             0,
                             0,
                             {0, 0, 0},
                             {0.05774849313781336, 0.06436886350818373, 0.0178826433540029,
                              -0.002139320125970409, 0.01848436731528951, -0.005453208521339561}});
}

TEST(WBBody, SphereKeepsItsInertiaHoweverItIsTurned)
{
    ExpectTurned(kSphere, kSphere);
}

TEST(WBBody, TwoSpheresOnARodAreARodWithTwoOffsets)
{
    // iyy = izz = 1/6 + 2 (0.02 + 5 0.5^2) = 2.7066666666666667, ixx = 2 0.02 = 0.04.
    const double across = 2.54 + 1.0 / 6.0;
    const Body dumbbell =
        Assembled({kRod, kSphere, kSphere}, {Placement(), ShiftBy(500, 0, 0), ShiftBy(-500, 0, 0)});
    ExpectSame(dumbbell, {12, 0, 0, {0, 0, 0}, {0.04, across, across, 0, 0, 0}});
    // 2.706... E - 2.666... u ut with u = (0.88091147003061, 0.36310546582568, -0.30356120084099).
    ExpectTurned(dumbbell, {12,
                            0,
                            0,
                            {0, 0, 0},
                            {0.6373199519160159, 2.355078455166709, 2.460934926250609,
                             0.8529700524710673, -0.7130947831389098, -0.2939326166345846}});
}

TEST(WBBody, TwoBoxesThatFormAnLStandAboutTheirCommonCentre)
{
    // A: 4 kg, 400 x 100 x 100 mm, centre (200, 50, 50): I = 4/12 (0.02, 0.17, 0.17).
    // B: 3 kg, 100 x 300 x 100 mm, centre (50, 250, 50): I = 3/12 (0.10, 0.02, 0.10).
    // Centre: x = (4 200 + 3 50) / 7 = 950/7, y = (4 50 + 3 250) / 7 = 950/7.
    // Reduced mass 4 3 / 7 = 12/7 at the distance (0.15, -0.2, 0) m:
    // ixx = 0.02/3 + 0.025 + 12/7 0.04 = 0.10023809523809524 = iyy
    // izz = 0.17/3 + 0.025 + 12/7 0.0625 = 0.18880952380952381
    // ixy = 12/7 (0.15) (-0.2) = -0.05142857142857143
    const Body a{4, 0.4, 0.8, {200, 50, 50}, {0.02 / 3, 0.17 / 3, 0.17 / 3, 0, 0, 0}};
    const Body b{3, 0.3, 0.6, {50, 250, 50}, {0.025, 0.005, 0.025, 0, 0, 0}};
    const double across = 0.10023809523809524;
    const Body expected{7,
                        0.7,
                        1.4,
                        {950.0 / 7, 950.0 / 7, 50},
                        {across, across, 0.18880952380952381, -0.05142857142857143, 0, 0}};
    ExpectSame(Merged(a, b), expected);
    // Centre: the turn times (950/7, 950/7, 50).
    ExpectTurned(expected, {7,
                            0.7,
                            1.4,
                            {96.50995268130465, 169.5355053251974, 35.78094690557884},
                            {0.08441076205612875, 0.1358226383340291, 0.1690523138955564,
                             -0.03281818599091842, -0.04475440943885977, 0.01900726194384081}});
}

TEST(WBBody, OppositeHandChangesTheSignOfTwoProducts)
{
    Placement mirror;
    mirror.rotation[1][1] = -1;
    ExpectSame(Placed(Body{1, 0, 0, {1, 2, 3}, {4, 5, 6, 0.1, 0.2, 0.3}}, mirror),
               {1, 0, 0, {1, -2, 3}, {4, 5, 6, -0.1, 0.2, -0.3}});
}

TEST(WBBody, PiecesAtOnePlaceMultiplyAllButTheCentre)
{
    EXPECT_EQ(Pieces({2, 0.1, 0.2, {1, 2, 3}, {4, 5, 6, 7, 8, 9}}, 3),
              (Body{6, 0.1 * 3, 0.2 * 3, {1, 2, 3}, {12, 15, 18, 21, 24, 27}}));
}

TEST(WBBody, InertiaAboutAnotherPointGainsTheOffset)
{
    // 2 kg at (1000, 2000, 3000) mm seen from (0, 0, 1000): d = (1, 2, 2) m; 2 (4 + 4) = 16,
    // 2 (1 + 4) = 10, 2 (1 + 4) = 10, 2 1 2 = 4, 2 1 2 = 4, 2 2 2 = 8.
    const Inertia about =
        InertiaAbout({2, 0, 0, {1000, 2000, 3000}, {1, 1, 1, 1, 1, 1}}, {0, 0, 1000});
    const Inertia expected{16, 10, 10, 4, 4, 8};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(about[i], expected[i] + 1, 1e-12);
    }
}

TEST(WBBody, DifferenceIsTakenFigureByFigureAndUnknownWhereOneOfTheTwoIs)
{
    const Body own{10.0, 1.0, 2.0, {100.0, 20.0, 3.0}, {9.0, 8.0, 7.0, 6.0, 5.0, 4.0}};
    Body below{8.0, 0.25, 0.5, {90.0, 25.0, 3.0}, {1.0, 2.0, 3.0, 4.0, 5.0, 6.0}};
    EXPECT_EQ(Difference(own, below),
              (Body{2.0, 0.75, 1.5, {10.0, -5.0, 0.0}, {8.0, 6.0, 4.0, 2.0, 0.0, -2.0}}));
    below.centre[1] = kUnknown;
    EXPECT_FALSE(IsKnown(Difference(own, below).centre[1]));
    EXPECT_EQ(Difference(own, below).centre[0], 10.0);
}

TEST(WBBody, MassesThatCancelKeepTheFirstCentre)
{
    const Body nothing = Merged({1, 0, 0, {5, 6, 7}, {}}, {-1, 0, 0, {9, 9, 9}, {}});
    EXPECT_EQ(nothing.mass, 0.0);
    EXPECT_EQ(nothing.centre, (std::array{5.0, 6.0, 7.0}));
}

TEST(WBBody, SumOfManyIsThatOfAllAtOnce)
{
    // 101 masses of 1 kg at x = 0, 10, ... 1000 mm: centre 500, iyy = 1e-4 101 (101^2 - 1) / 12.
    BodySum sum;
    for (int i = 0; i <= 100; ++i) {
        sum.Add({1, 0.5, 0.25, {10.0 * i, 0, 0}, {}});
    }
    const double across = 1e-4 * 101 * 10200 / 12;
    ExpectSame(sum.Total(), {101, 50.5, 25.25, {500, 0, 0}, {0, across, across, 0, 0, 0}});
    EXPECT_EQ(BodySum().Total(), Body());
}

TEST(WBBody, PrincipalMomentsAreThoseOfTheBodyHoweverItStands)
{
    const auto moments = PrincipalMoments(Placed(kBox, Oblique(30)).inertia);
    EXPECT_NEAR(moments[0], 0.13, 1e-15);
    EXPECT_NEAR(moments[1], 0.10, 1e-15);
    EXPECT_NEAR(moments[2], 0.05, 1e-15);
    // (2, 1, 0; 1, 2, 0; 0, 0, 5): 5, 3, 1.
    const auto plane = PrincipalMoments({2, 2, 5, -1, 0, 0});
    EXPECT_NEAR(plane[0], 5, 1e-15);
    EXPECT_NEAR(plane[1], 3, 1e-15);
    EXPECT_NEAR(plane[2], 1, 1e-15);
}
