#include "CATMathTransformation.h"

#include <gtest/gtest.h>

#include <array>

namespace
{

// A quarter turn about z: x becomes y, y becomes -x.
const CATMath3x3Matrix kQuarterTurn(0, -1, 0, 1, 0, 0, 0, 0, 1);

TEST(CATMathTransformation, MovesNothingByDefault)
{
    const CATMathTransformation none;
    EXPECT_EQ(none.Apply({1, 2, 3}), CATMathPoint(1, 2, 3));
    EXPECT_EQ(none.Rotation(), CATMath3x3Matrix::Identity());
    EXPECT_EQ(none.Shift(), CATMathVector());
}

TEST(CATMathTransformation, TurnsAndThenShifts)
{
    const CATMathTransformation moved(kQuarterTurn, {10, 20, 30});
    EXPECT_EQ(moved.Apply({1, 2, 3}), CATMathPoint(8, 21, 33));
    EXPECT_EQ(moved.Rotation(), kQuarterTurn);
    EXPECT_EQ(moved.Shift(), CATMathVector(10, 20, 30));
}

TEST(CATMathTransformation, CoefficientsAreTheImagesOfTheAxesAndTheShift)
{
    const CATMathTransformation moved(CATMath3x3Matrix(1, 2, 3, 4, 5, 6, 7, 8, 9), {10, 11, 12});
    std::array<double, 12> coefficients{};
    moved.GetCoefficients(coefficients);
    EXPECT_EQ(coefficients, (std::array<double, 12>{1, 4, 7, 2, 5, 8, 3, 6, 9, 10, 11, 12}));
    EXPECT_EQ(CATMathTransformation::FromCoefficients(coefficients), moved);
}

TEST(CATMathTransformation, ProductMovesByTheInnerOneFirst)
{
    const CATMathTransformation turn(kQuarterTurn, {0, 0, 5});
    const CATMathTransformation shift(CATMath3x3Matrix::Identity(), {100, 0, 0});
    EXPECT_EQ((turn * shift).Apply({1, 0, 0}), CATMathPoint(0, 101, 5));
    EXPECT_EQ((shift * turn).Apply({1, 0, 0}), CATMathPoint(100, 1, 5));
    EXPECT_EQ((turn * shift).Rotation(), kQuarterTurn);
}

} // namespace
