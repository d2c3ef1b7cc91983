#include "CATMath3x3Matrix.h"
#include "CATFatalError.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace
{

const CATMath3x3Matrix kCounting(1, 2, 3, 4, 5, 6, 7, 8, 9);
// Determinant 2 (3 * 4 - 0 * 1) - 0 + 1 (0 - 3 * 0) = 24.
const CATMath3x3Matrix kRegular(2, 0, 1, 0, 3, 0, 0, 1, 4);

TEST(CATMath3x3Matrix, CountsRowsAndColumnsFromOne)
{
    double expected = 1;
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 3; ++column) {
            EXPECT_EQ(kCounting.GetCoef(row, column), expected++);
        }
    }
    CATMath3x3Matrix matrix;
    EXPECT_EQ(matrix, CATMath3x3Matrix(0, 0, 0, 0, 0, 0, 0, 0, 0));
    matrix.SetCoef(2, 3, 7);
    EXPECT_EQ(matrix, CATMath3x3Matrix(0, 0, 0, 0, 0, 7, 0, 0, 0));
}

TEST(CATMath3x3Matrix, TermOutsideRaisesTheFatalErrorAndReadsAsZero)
{
    std::vector<std::string> texts;
    const CATFatalErrorHandler before =
        CATSetFatalErrorHandler([&](const CATFatalError& error) { texts.push_back(error.Text()); });
    CATMath3x3Matrix matrix = kCounting;
    EXPECT_EQ(matrix.GetCoef(4, 1), 0.0);
    EXPECT_EQ(matrix.GetCoef(1, 4), 0.0);
    EXPECT_EQ(matrix.GetCoef(1, 0), 0.0);
    matrix.SetCoef(0, 2, 5);
    CATSetFatalErrorHandler(before);
    EXPECT_EQ(matrix, kCounting);
    const std::string rest = ") asked of a matrix of three rows and three columns";
    EXPECT_EQ(texts, (std::vector<std::string>{"term (4, 1" + rest, "term (1, 4" + rest,
                                               "term (1, 0" + rest, "term (0, 2" + rest}));
}

TEST(CATMath3x3Matrix, Determinant)
{
    EXPECT_EQ(CATMath3x3Matrix::Identity().Determinant(), 1.0);
    EXPECT_EQ(kCounting.Determinant(), 0.0);
    EXPECT_EQ(kRegular.Determinant(), 24.0);
    // 1 (1*0 - 4*6) - 2 (0*0 - 4*5) + 3 (0*6 - 1*5) = -24 + 40 - 15
    EXPECT_EQ(CATMath3x3Matrix(1, 2, 3, 0, 1, 4, 5, 6, 0).Determinant(), 1.0);
    EXPECT_EQ(CATMath3x3Matrix(0, 1, 0, 1, 0, 0, 0, 0, 1).Determinant(), -1.0);
}

TEST(CATMath3x3Matrix, Transpose)
{
    EXPECT_EQ(kCounting.Transpose(), CATMath3x3Matrix(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(CATMath3x3Matrix, InverseByHand)
{
    CATMath3x3Matrix inverse;
    ASSERT_TRUE(CATMath3x3Matrix(1, 2, 3, 0, 1, 4, 5, 6, 0).Inverse(inverse));
    EXPECT_EQ(inverse, CATMath3x3Matrix(-24, 18, 5, 20, -15, -4, -5, 4, 1));
    ASSERT_TRUE(kRegular.Inverse(inverse));
    EXPECT_EQ(inverse, CATMath3x3Matrix(12.0 / 24, 1.0 / 24, -3.0 / 24, 0, 8.0 / 24, 0, 0,
                                        -2.0 / 24, 6.0 / 24));
}

TEST(CATMath3x3Matrix, InverseMayReplaceTheMatrixItself)
{
    CATMath3x3Matrix matrix(1, 2, 3, 0, 1, 4, 5, 6, 0);
    ASSERT_TRUE(matrix.Inverse(matrix));
    EXPECT_EQ(matrix, CATMath3x3Matrix(-24, 18, 5, 20, -15, -4, -5, 4, 1));
}

TEST(CATMath3x3Matrix, SingularMatrixHasNoInverseAndLeavesTheOutput)
{
    CATMath3x3Matrix inverse = kRegular;
    EXPECT_FALSE(kCounting.Inverse(inverse));
    EXPECT_FALSE(CATMath3x3Matrix().Inverse(inverse));
    CATMath3x3Matrix broken = CATMath3x3Matrix::Identity();
    broken.SetCoef(1, 1, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(broken.Inverse(inverse));
    EXPECT_EQ(inverse, kRegular);
}

TEST(CATMath3x3Matrix, InverseTimesMatrixIsTheIdentity)
{
    constexpr double kTolerance = 1e-9;
    EXPECT_TRUE(rc::check("inverse", [=] {
        CATMath3x3Matrix matrix;
        for (int row = 1; row <= 3; ++row) {
            for (int column = 1; column <= 3; ++column) {
                matrix.SetCoef(row, column, *rc::gen::inRange(-20, 21));
            }
        }
        CATMath3x3Matrix inverse;
        const bool isRegular = matrix.Inverse(inverse);
        RC_ASSERT(isRegular == (matrix.Determinant() != 0.0));
        const CATMath3x3Matrix product =
            isRegular ? inverse * matrix : CATMath3x3Matrix::Identity();
        for (int row = 1; row <= 3; ++row) {
            for (int column = 1; column <= 3; ++column) {
                RC_ASSERT(std::abs(product.GetCoef(row, column) - (row == column ? 1.0 : 0.0)) <
                          kTolerance);
            }
        }
    }));
}

TEST(CATMath3x3Matrix, ProductSumDifferenceAndMultiple)
{
    const CATMath3x3Matrix other(1, 0, 2, 0, 1, 0, 3, 0, 1);
    EXPECT_EQ(kCounting * other, CATMath3x3Matrix(10, 2, 5, 22, 5, 14, 34, 8, 23));
    EXPECT_EQ(other * kCounting, CATMath3x3Matrix(15, 18, 21, 4, 5, 6, 10, 14, 18));
    EXPECT_EQ(kCounting + other, CATMath3x3Matrix(2, 2, 5, 4, 6, 6, 10, 8, 10));
    EXPECT_EQ(kCounting - other, CATMath3x3Matrix(0, 2, 1, 4, 4, 6, 4, 8, 8));
    EXPECT_EQ(2.0 * kCounting, CATMath3x3Matrix(2, 4, 6, 8, 10, 12, 14, 16, 18));
    EXPECT_EQ(CATMath3x3Matrix::Identity() * kCounting, kCounting);
}

TEST(CATMath3x3Matrix, MatrixTimesVector)
{
    EXPECT_EQ(kCounting * CATMathVector(1, 10, 100), CATMathVector(321, 654, 987));
}

} // namespace
