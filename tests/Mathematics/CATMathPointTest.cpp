#include "CATMathPoint.h"

#include <gtest/gtest.h>

namespace
{

TEST(CATMathPoint, KeepsItsCoordinates)
{
    const CATMathPoint point(1, 2, 3);
    EXPECT_EQ(point.GetX(), 1);
    EXPECT_EQ(point.GetY(), 2);
    EXPECT_EQ(point.GetZ(), 3);
    EXPECT_EQ(CATMathPoint(), CATMathPoint(0, 0, 0));
    EXPECT_FALSE(point == CATMathPoint(1, 2, 4));
}

TEST(CATMathVector, KeepsItsCoordinates)
{
    const CATMathVector vector(1, 2, 3);
    EXPECT_EQ(vector.GetX(), 1);
    EXPECT_EQ(vector.GetY(), 2);
    EXPECT_EQ(vector.GetZ(), 3);
    EXPECT_EQ(CATMathVector(), CATMathVector(0, 0, 0));
}

TEST(CATMathPoint, DifferenceLeadsFromTheSecondToTheFirst)
{
    const CATMathPoint a(5, 7, 9);
    const CATMathPoint b(1, 2, 3);
    EXPECT_EQ(a - b, CATMathVector(4, 5, 6));
    EXPECT_EQ(b + (a - b), a);
}

} // namespace
