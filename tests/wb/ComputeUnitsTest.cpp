#include "ComputeUnits.h"

#include "ReportUnits.h"
#include "ShippedUnits.h"
#include "WBProduct.h"

#include <gtest/gtest.h>

namespace
{
class ComputeUnitsOfASession : public testing::Test
{
protected:
    static void Use(const std::string& choices)
    {
        std::string problem;
        EXPECT_TRUE(UseReportUnits(choices, problem)) << problem;
    }

    ShippedUnits shipped;
};

constexpr const char* kOthers =
    "MASS=lb,LENGTH=in,INERTIAMOMENT=lb.ft2,DENSITY=g/cm3,SURFACICMASS=lb/ft2";

wb::Body ABody()
{
    return {45.359237, 0.45359237, 0.90718474, {25.4, -50.8, 0.0}, {1, 2, 3, 4, 5, 6}};
}
} // namespace

TEST(ComputeUnits, StorageUnitsChangeNothing)
{
    const ComputeUnits units = ComputeUnits::Storage();
    EXPECT_EQ(units.mass.symbol, "kg");
    EXPECT_EQ(units.length.symbol, "mm");
    EXPECT_EQ(units.inertia.symbol, "kg.m2");
    EXPECT_EQ(units.density.symbol, "kg/m3");
    EXPECT_EQ(units.surfaceDensity.symbol, "kg/m2");
    EXPECT_EQ(InUnits(ABody(), units), ABody());
    EXPECT_EQ(units.length.toStorage(7.0), 7.0);
}

TEST_F(ComputeUnitsOfASession, CurrentUnitsAreTheChosenOnes)
{
    Use(kOthers);
    const ComputeUnits units = ComputeUnits::Current();
    EXPECT_EQ(units.mass.symbol, "lb");
    EXPECT_EQ(units.length.symbol, "in");
    EXPECT_EQ(units.inertia.symbol, "lb.ft2");
    EXPECT_EQ(units.density.symbol, "g/cm3");
    EXPECT_EQ(units.surfaceDensity.symbol, "lb/ft2");
    EXPECT_DOUBLE_EQ(units.length.toStorage(2.0), 50.8);
    EXPECT_DOUBLE_EQ(units.density.fromStorage(2780.0), 2.78);
    // 1 lb is 0.45359237 kg and 1 ft 0.3048 m.
    constexpr double kPoundSquareFoot = 0.45359237 * 0.3048 * 0.3048;
    const wb::Body body = InUnits(ABody(), units);
    EXPECT_DOUBLE_EQ(body.mass, 100.0);
    EXPECT_DOUBLE_EQ(body.lower, 1.0);
    EXPECT_DOUBLE_EQ(body.upper, 2.0);
    EXPECT_DOUBLE_EQ(body.centre[0], 1.0);
    EXPECT_DOUBLE_EQ(body.centre[1], -2.0);
    for (std::size_t i = 0; i < body.inertia.size(); ++i) {
        EXPECT_DOUBLE_EQ(body.inertia[i], static_cast<double>(i + 1) / kPoundSquareFoot);
    }
}

TEST_F(ComputeUnitsOfASession, UnknownFiguresStayUnknown)
{
    Use(kOthers);
    wb::Body body = ABody();
    body.mass = wb::kUnknown;
    EXPECT_FALSE(wb::IsKnown(InUnits(body, ComputeUnits::Current()).mass));
}

TEST_F(ComputeUnitsOfASession, StorageUnitsCanBeMadeCurrent)
{
    Use(kOthers);
    UseStorageUnits();
    const ComputeUnits units = ComputeUnits::Current();
    EXPECT_EQ(units.mass.symbol, "kg");
    EXPECT_EQ(units.length.symbol, "mm");
    EXPECT_EQ(units.inertia.symbol, "kg.m2");
    EXPECT_EQ(units.density.symbol, "kg/m3");
    EXPECT_EQ(units.surfaceDensity.symbol, "kg/m2");
}
