#include "WBTurn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{

void ExpectPoint(const CATMathVector& point, double x, double y, double z)
{
    EXPECT_EQ(point, CATMathVector(x, y, z))
        << point.GetX() << " " << point.GetY() << " " << point.GetZ();
}

} // namespace

TEST(WBTurnMatrix, NoAnglesTurnNothing)
{
    EXPECT_EQ(WBTurnMatrix(0, 0, 0), CATMath3x3Matrix::Identity());
    EXPECT_EQ(WBTurnMatrix(360, -360, 720), CATMath3x3Matrix::Identity());
}

TEST(WBTurnMatrix, QuarterTurnsAreExact)
{
    ExpectPoint(WBTurnMatrix(90, 0, 0) * CATMathVector(1, 2, 3), 1, -3, 2);
    ExpectPoint(WBTurnMatrix(0, 90, 0) * CATMathVector(1, 2, 3), 3, 2, -1);
    ExpectPoint(WBTurnMatrix(0, 0, 90) * CATMathVector(1, 2, 3), -2, 1, 3);
    ExpectPoint(WBTurnMatrix(0, 0, 180) * CATMathVector(1, 2, 3), -1, -2, 3);
    ExpectPoint(WBTurnMatrix(0, 0, -90) * CATMathVector(1, 2, 3), 2, -1, 3);
    ExpectPoint(WBTurnMatrix(0, 0, 270) * CATMathVector(1, 2, 3), 2, -1, 3);
}

TEST(WBTurnMatrix, AxesAreFixedAndComeInOrder)
{
    // About x: (0, 1, 0) goes to (0, 0, 1); about y that goes to (1, 0, 0); about z to (0, 1, 0).
    ExpectPoint(WBTurnMatrix(90, 90, 0) * CATMathVector(0, 1, 0), 1, 0, 0);
    ExpectPoint(WBTurnMatrix(90, 90, 90) * CATMathVector(0, 1, 0), 0, 1, 0);
    // About x: (1, 0, 0) stays, so z turns it first: (0, 1, 0).
    ExpectPoint(WBTurnMatrix(90, 0, 90) * CATMathVector(1, 0, 0), 0, 1, 0);
}

TEST(WBTurnMatrix, OtherAnglesAreInDegrees)
{
    const CATMathVector turned = WBTurnMatrix(0, 0, 30) * CATMathVector(2, 0, 0);
    EXPECT_NEAR(turned.GetX(), std::numbers::sqrt3, 1e-14);
    EXPECT_NEAR(turned.GetY(), 1.0, 1e-14);
    const CATMathVector back = WBTurnMatrix(0, 0, -30) * turned;
    EXPECT_NEAR(back.GetX(), 2.0, 1e-14);
    EXPECT_NEAR(back.GetY(), 0.0, 1e-14);
}
