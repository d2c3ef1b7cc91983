#include "WBInertia.h"

#include "CATWBServices.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace
{

const WBMomentsAndProducts kCounted{.xx = 1, .yy = 2, .zz = 3, .xy = 4, .xz = 5, .yz = 6};

TEST(WBInertia, MatrixHoldsTheProductsNegatedOnBothSides)
{
    EXPECT_EQ(InertiaMatrix(kCounted), CATMath3x3Matrix(1, -4, -5, -4, 2, -6, -5, -6, 3));
    EXPECT_EQ(MomentsAndProducts(InertiaMatrix(kCounted)), kCounted);
}

TEST(WBInertia, MomentsAndProductsAreTakenFromTheDiagonalAndAbove)
{
    EXPECT_EQ(MomentsAndProducts({1, -4, -5, 70, 2, -6, 80, 90, 3}), kCounted);
}

TEST(WBInertia, TransferMatrixIsTheParallelAxisTerm)
{
    // 3^2 + 5^2 = 34, 2^2 + 5^2 = 29, 2^2 + 3^2 = 13; -2*3, -2*5, -3*5.
    EXPECT_EQ(TransferMatrix({2, 3, 5}), CATMath3x3Matrix(34, -6, -10, -6, 29, -15, -10, -15, 13));
    EXPECT_EQ(TransferMatrix({2, -3, 5}), CATMath3x3Matrix(34, 6, -10, 6, 29, 15, -10, 15, 13));
    EXPECT_EQ(TransferMatrix({}), CATMath3x3Matrix());
}

TEST(WBInertia, MoveAddsTheMassTimesTheTermOrTakesItAway)
{
    const CATMath3x3Matrix inertia(100, 1, 2, 1, 200, 3, 2, 3, 300);
    // Twice the term of (2, 3, 5), as above: 68, -12, -20, 58, -30, 26.
    EXPECT_EQ(MovedInertia(inertia, 2, {2, 3, 5}, WBInertiaMove::AwayFromCentre),
              CATMath3x3Matrix(168, -11, -18, -11, 258, -27, -18, -27, 326));
    EXPECT_EQ(MovedInertia(inertia, 2, {2, 3, 5}, WBInertiaMove::ToCentre),
              CATMath3x3Matrix(32, 13, 22, 13, 142, 33, 22, 33, 274));
}

// Solid bodies of known inertia about their own centre, and about points where a closed form of its
// own gives the value. Lengths in metres, masses in kilograms.

CATMath3x3Matrix Diagonal(double xx, double yy, double zz)
{
    return {xx, 0, 0, 0, yy, 0, 0, 0, zz};
}

CATMath3x3Matrix About(const CATMathPoint& point, CATMath3x3Matrix inertiaAboutCentre, double mass,
                       const CATMathPoint& centre)
{
    EXPECT_EQ(CATWBServices::ConvertInertiaMatrix(inertiaAboutCentre, mass, centre, point, 1),
              S_OK);
    return inertiaAboutCentre;
}

constexpr double kTolerance = 1e-12;

void ExpectNear(const CATMath3x3Matrix& actual, const CATMath3x3Matrix& expected)
{
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column) {
            EXPECT_NEAR(actual.GetCoef(row, column), expected.GetCoef(row, column), kTolerance)
                << "row " << row << ", column " << column;
        }
    }
}

TEST(ConvertInertiaMatrix, BoxAboutItsCorner)
{
    // 12 kg, 1 by 2 by 3: m (b^2 + c^2) / 12 = 13, 10, 5 about the centre (0.5, 1, 1.5).
    // About the corner m (b^2 + c^2) / 3 = 52, 40, 20; products m a b / 4 = 6, m a c / 4 = 9,
    // m b c / 4 = 18.
    EXPECT_EQ(About({0, 0, 0}, Diagonal(13, 10, 5), 12, {0.5, 1, 1.5}),
              CATMath3x3Matrix(52, -6, -9, -6, 40, -18, -9, -18, 20));
    // The corner on the other side in x: the products with x change their sign.
    EXPECT_EQ(About({1, 0, 0}, Diagonal(13, 10, 5), 12, {0.5, 1, 1.5}),
              CATMath3x3Matrix(52, 6, 9, 6, 40, -18, 9, -18, 20));
}

TEST(ConvertInertiaMatrix, CylinderAboutItsBaseAndItsSide)
{
    // 12 kg, radius 2, height 6 along z: m r^2 / 2 = 24 about the axis, m (3 r^2 + h^2) / 12 = 48.
    const CATMath3x3Matrix aboutCentre = Diagonal(48, 48, 24);
    // About a diameter of the base m (r^2 / 4 + h^2 / 3) = 12 (1 + 12) = 156.
    EXPECT_EQ(About({7, 8, -3}, aboutCentre, 12, {7, 8, 0}), Diagonal(156, 156, 24));
    // About a line along the side 3/2 m r^2 = 72; across it, at half height, the y axis gains m r^2
    // = 48.
    EXPECT_EQ(About({2, 0, 0}, aboutCentre, 12, {0, 0, 0}), Diagonal(48, 96, 72));
}

TEST(ConvertInertiaMatrix, SphereAboutATangentPoint)
{
    // 10 kg, radius 1: 2/5 m r^2 = 4 about the centre, 7/5 m r^2 = 14 about a tangent.
    EXPECT_EQ(About({1, 0, 0}, Diagonal(4, 4, 4), 10, {0, 0, 0}), Diagonal(4, 14, 14));
    EXPECT_EQ(About({0, 0, -1}, Diagonal(4, 4, 4), 10, {0, 0, 0}), Diagonal(14, 14, 4));
}

TEST(ConvertInertiaMatrix, TwoSpheresOnARod)
{
    // Spheres of 5 kg, radius 0.1 (2/5 m r^2 = 0.02) at x = -0.5 and 0.5; a thin rod of 12 kg
    // between them (m l^2 / 12 = 1 across it).
    const CATMath3x3Matrix sphere = Diagonal(0.02, 0.02, 0.02);
    const CATMath3x3Matrix rod = Diagonal(0, 1, 1);
    const auto total = [&](const CATMathPoint& point) {
        return About(point, sphere, 5, {-0.5, 0, 0}) + About(point, rod, 12, {0, 0, 0}) +
               About(point, sphere, 5, {0.5, 0, 0});
    };
    // About the middle: along 2 * 0.02; across 1 + 2 (0.02 + 5 * 0.25) = 3.54.
    const CATMath3x3Matrix aboutMiddle = total({0, 0, 0});
    ExpectNear(aboutMiddle, Diagonal(0.04, 3.54, 3.54));
    // About one sphere: 0.02 + m l^2 / 3 of the rod = 4 + (0.02 + 5 * 1) of the other = 9.04; the
    // whole body of 22 kg moved there must give the same.
    ExpectNear(total({-0.5, 0, 0}), Diagonal(0.04, 9.04, 9.04));
    ExpectNear(About({-0.5, 0, 0}, aboutMiddle, 22, {0, 0, 0}), Diagonal(0.04, 9.04, 9.04));
    // About a point beside the first sphere, one metre up in y: 22 kg, offset (-0.5, 1, 0): x gains
    // 22, y 22 * 0.25 = 5.5, z 22 * 1.25 = 27.5; minus the product, -22 * -0.5 * 1 = 11.
    ExpectNear(total({-0.5, 1, 0}), CATMath3x3Matrix(22.04, 11, 0, 11, 9.04, 0, 0, 0, 31.04));
}

TEST(ConvertInertiaMatrix, AnyFlagButZeroAdds)
{
    CATMath3x3Matrix matrix = Diagonal(100, 200, 300);
    EXPECT_EQ(CATWBServices::ConvertInertiaMatrix(matrix, 2, {1, 1, 1}, {3, 4, 6}, 0xff), S_OK);
    // The offset is (2, 3, 5) as above.
    EXPECT_EQ(matrix, CATMath3x3Matrix(168, -12, -20, -12, 258, -30, -20, -30, 326));
    EXPECT_EQ(CATWBServices::ConvertInertiaMatrix(matrix, 1, {1, 1, 1}, {3, 4, 6}, 0), S_OK);
    EXPECT_EQ(matrix, CATMath3x3Matrix(134, -6, -10, -6, 229, -15, -10, -15, 313));
}

// The laws hold to the last bit for whole numbers of this size.
double Whole()
{
    return *rc::gen::inRange(-1000, 1001);
}

CATMathPoint AnyPoint()
{
    const double x = Whole();
    const double y = Whole();
    return {x, y, Whole()};
}

CATMath3x3Matrix AnyInertia()
{
    WBMomentsAndProducts inertia;
    for (double* value :
         {&inertia.xx, &inertia.yy, &inertia.zz, &inertia.xy, &inertia.xz, &inertia.yz}) {
        *value = Whole();
    }
    return InertiaMatrix(inertia);
}

CATMath3x3Matrix Converted(CATMath3x3Matrix matrix, double mass, const CATMathPoint& first,
                           const CATMathPoint& second, unsigned char add)
{
    CATWBServices::ConvertInertiaMatrix(matrix, mass, first, second, add);
    return matrix;
}

TEST(ConvertInertiaMatrix, ThereAndBackIsTheSameMatrix)
{
    EXPECT_TRUE(rc::check([] {
        const CATMath3x3Matrix inertia = AnyInertia();
        const double mass = Whole();
        const CATMathPoint first = AnyPoint();
        const CATMathPoint second = AnyPoint();
        RC_ASSERT(Converted(Converted(inertia, mass, first, second, 1), mass, first, second, 0) ==
                  inertia);
    }));
}

TEST(ConvertInertiaMatrix, PointsThatAreOneChangeNothing)
{
    EXPECT_TRUE(rc::check([] {
        const CATMath3x3Matrix inertia = AnyInertia();
        const CATMathPoint point = AnyPoint();
        const double mass = Whole();
        RC_ASSERT(Converted(inertia, mass, point, point, 1) == inertia);
        RC_ASSERT(Converted(inertia, mass, point, point, 0) == inertia);
    }));
}

TEST(ConvertInertiaMatrix, PointsMayBeSwapped)
{
    EXPECT_TRUE(rc::check([] {
        const CATMath3x3Matrix inertia = AnyInertia();
        const CATMathPoint first = AnyPoint();
        const CATMathPoint second = AnyPoint();
        const double mass = Whole();
        RC_ASSERT(Converted(inertia, mass, first, second, 1) ==
                  Converted(inertia, mass, second, first, 1));
    }));
}

TEST(ConvertInertiaMatrix, TraceGainsTwiceTheMassTimesTheDistanceSquared)
{
    EXPECT_TRUE(rc::check([] {
        const CATMath3x3Matrix inertia = AnyInertia();
        const CATMathPoint first = AnyPoint();
        const CATMathPoint second = AnyPoint();
        const double mass = Whole();
        const auto trace = [](const CATMath3x3Matrix& matrix) {
            return matrix.GetCoef(1, 1) + matrix.GetCoef(2, 2) + matrix.GetCoef(3, 3);
        };
        const CATMathVector d = second - first;
        RC_ASSERT(trace(Converted(inertia, mass, first, second, 1)) ==
                  trace(inertia) +
                      2 * mass * (d.GetX() * d.GetX() + d.GetY() * d.GetY() + d.GetZ() * d.GetZ()));
    }));
}

} // namespace
