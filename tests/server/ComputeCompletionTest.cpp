#include "ComputeTesting.h"

using namespace wb;
using Common = CATENOWBCSCommonDefinitions;
using testing::Contains;
using testing::ElementsAre;
using wbtest::Derived;
using wbtest::ExpectSame;
using wbtest::SmallProduct;
using wbtest::Specified;

namespace
{
constexpr double kDensity = 1000;

/// Root R with leaf L of 0.002 m3: 2 kg of wax (1,000 kg/m3), 16 kg of its other material.
SmallProduct Sized()
{
    SmallProduct small;
    small.Put("R", "L");
    small.Of("L").material = "Wax";
    small.Set("L", "Calculated",
              {{Fact::Volume, 0.002},
               {Fact::CgX, 7},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 2},
               {Fact::Izz, 2},
               {Fact::Ixy, 0.5},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    small.product.materials = {{"Wax", kDensity, kUnknown, {}, {}},
                               {"Steel", 8 * kDensity, kUnknown, {}, {}}};
    return small;
}
} // namespace

TEST(ComputeCompletion, CentreAndInertiaComeFromTheMostMatureClaimThatHasThem)
{
    SmallProduct small;
    small.Set("L", "Weighed", {{Fact::Mass, 3}});
    small.Set("L", "Supplier", {{Fact::Mass, 4}, {Fact::CgX, 1}, {Fact::CgY, 2}, {Fact::CgZ, 3}});
    small.Set("L", "Calculated",
              {{Fact::Mass, 2},
               {Fact::CgX, 9},
               {Fact::CgY, 9},
               {Fact::CgZ, 9},
               {Fact::Ixx, 2},
               {Fact::Iyy, 2},
               {Fact::Izz, 2},
               {Fact::Ixy, 0},
               {Fact::Ixz, 1},
               {Fact::Iyz, 0}});
    const auto result = small.Compute();
    // 3 kg of what is 2 kg: the inertia times 3/2, about the centre lent by another.
    ExpectSame(result.total.body, {3, 0.015, 0.015, {1, 2, 3}, {3, 3, 3, 0, 1.5, 0}});
    EXPECT_EQ(result.centreFrom, "Supplier");
    EXPECT_EQ(result.inertiaFrom, "Calculated");
}

TEST(ComputeCompletion, GoalsLendNothing)
{
    SmallProduct small;
    small.Set("L", "Weighed", {{Fact::Mass, 3}});
    small.Set("L", "Target", {{Fact::Mass, 4}, {Fact::CgX, 1}, {Fact::CgY, 2}, {Fact::CgZ, 3}});
    const auto result = small.Compute();
    EXPECT_FALSE(result.total.HasCentre());
    EXPECT_EQ(result.centreFrom, "");
}

TEST(ComputeCompletion, SumBelowLendsBetweenSupplierAndCalculated)
{
    // Below A: two masses of 1 kg at x = 0 and 200: centre 100, iyy = izz = 2 0.1^2 = 0.02.
    SmallProduct small;
    small.Put("A", "L");
    small.Put("A", "L", {200, 0, 0});
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("A", "Weighed", {{Fact::Mass, 4}});
    small.Set("A", "Calculated", {{Fact::Mass, 4}, {Fact::CgX, 5}, {Fact::CgY, 5}, {Fact::CgZ, 5}});
    small.Of("A").activeType = "Weighed";
    auto result = small.Compute();
    ExpectSame(result.total.body, {4, 0.02, 0.02, {100, 0, 0}, {0, 0.04, 0.04, 0, 0, 0}});
    EXPECT_EQ(result.centreFrom, Common::Computed);
    EXPECT_EQ(result.inertiaFrom, Common::Computed);

    small.Set("A", "Supplier", {{Fact::Mass, 4}, {Fact::CgX, 6}, {Fact::CgY, 6}, {Fact::CgZ, 6}});
    result = small.Compute();
    EXPECT_EQ(result.total.body.centre[0], 6);
    EXPECT_EQ(result.centreFrom, "Supplier");
}

TEST(ComputeCompletion, SumThatLendsIsTheActiveOneWhateverIsAsked)
{
    SmallProduct small;
    small.Put("A", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 3}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("L", "Target", {{Fact::Mass, 1}, {Fact::CgX, 9}, {Fact::CgY, 9}, {Fact::CgZ, 9}});
    small.Set("A", "Target", {{Fact::Mass, 4}});
    EXPECT_EQ(small.Compute(Specified("Target")).total.body.centre[0], 3);
}

TEST(ComputeCompletion, LenderWithoutMassLendsItsCentreAlone)
{
    SmallProduct small;
    small.Set("L", "Weighed", {{Fact::Mass, 3}});
    small.Set("L", "Estimated",
              {{Fact::CgX, 1},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 1},
               {Fact::Izz, 1},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.centre[0], 1);
    EXPECT_FALSE(result.total.HasInertia());
}

TEST(ComputeCompletion, MassIsSizeTimesDensity)
{
    const auto result = Sized().Compute();
    ExpectSame(result.total.body, {2, 0.06, 0.1, {7, 0, 0}, {1, 2, 2, 0.5, 0, 0}});
}

TEST(ComputeCompletion, MaterialOfAUseChangesMassAndInertiaAndLeavesTheCentre)
{
    SmallProduct small = Sized();
    small.product.uses[0].material = "Steel";
    ExpectSame(small.Compute().total.body, {16, 0.48, 0.8, {7, 0, 0}, {8, 16, 16, 4, 0, 0}});
}

TEST(ComputeCompletion, PartSaysWhichDensityGoesFirst)
{
    SmallProduct small = Sized();
    small.Of("L").density = 500;
    EXPECT_DOUBLE_EQ(small.Mass(), 1);
    small.Of("L").densityFirst = DensityOrder::Material;
    EXPECT_DOUBLE_EQ(small.Mass(), 2);
}

TEST(ComputeCompletion, RequestAboutOnePartMayLetAnotherDensityGoFirst)
{
    SmallProduct small = Sized();
    small.Of("L").density = 500;
    ComputeOptions options;
    options.densityPriority = Common::MaterialDensityFirst;
    EXPECT_DOUBLE_EQ(small.Mass(options, {"L.1"}), 2);
    EXPECT_DOUBLE_EQ(small.Mass(options), 1) << "parts below what is asked keep their own order";
    options.asked = ComputeOptions::Asked::Root;
    EXPECT_DOUBLE_EQ(small.Mass(options, {"L.1"}), 1);
}

TEST(ComputeCompletion, RequestAboutOnePartMayTryAnotherMaterial)
{
    ComputeOptions options;
    options.material = "Steel";
    const auto result = Sized().Compute(options, {"L.1"});
    EXPECT_DOUBLE_EQ(result.total.body.mass, 16);
    ASSERT_EQ(result.statistics.materials.size(), 1U);
    EXPECT_EQ(result.statistics.materials[0].material, "Steel");
    EXPECT_EQ(result.statistics.materials[0].density, 8 * kDensity);
    options.material = "Butter";
    EXPECT_EQ(Sized().Compute(options, {"L.1"}).error, "The material \"Butter\" is not known.");
}

TEST(ComputeCompletion, DerivedLeafIsItsSizedSetEvenWhereAnotherIsActive)
{
    SmallProduct small = Sized();
    small.Set("L", "Weighed", {{Fact::Mass, 2.1}});
    EXPECT_DOUBLE_EQ(small.Mass({}, {"L.1"}), 2.1);
    EXPECT_DOUBLE_EQ(small.Mass(Derived(), {"L.1"}), 2);
    small.Of("L").sets[0][Fact::Volume] = kUnknown;
    EXPECT_DOUBLE_EQ(small.Mass(Derived(), {"L.1"}), 2.1);
}

TEST(ComputeCompletion, StatedMassFarFromItsSizeIsUsedAndWarnedAbout)
{
    SmallProduct small = Sized();
    small.Of("L").sets[0][Fact::Mass] = 2.01;
    EXPECT_THAT(small.Compute().warnings, ElementsAre());
    small.Of("L").sets[0][Fact::Mass] = 2.05;
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 2.05);
    EXPECT_THAT(result.warnings, Contains("L A states 2.05 kg, its size and density give 2 kg"));
}

TEST(ComputeCompletion, MassWithoutCentreStandsAtTheCentreOfTheRestOfWhatIsAsked)
{
    // 1 kg at x = 0, 3 kg at x = 400: centre 300, iyy = 1 0.3^2 + 3 0.1^2 = 0.12. 4 kg without a
    // centre but with an inertia of 0.5 about x, turned to y: they add their inertia there.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "P");
    small.Put("A", "P", {400, 0, 0}).quantity = 3;
    Use& loose = small.Put("A", "N", {9999, 0, 0});
    loose.placement.rotation = RotationFromAngles(0, 0, 90);
    small.Set("P", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("N", "Weighed",
              {{Fact::Mass, 4},
               {Fact::Ixx, 0.5},
               {Fact::Iyy, 0.25},
               {Fact::Izz, 0.25},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    const auto result = small.Compute();
    ExpectSame(result.total.body,
               {8, 0.04, 0.04, {300, 0, 0}, {0.25, 0.5 + 0.12, 0.25 + 0.12, 0, 0, 0}});
    EXPECT_EQ(result.total.counts.massWithoutCentre, 4);
    EXPECT_EQ(result.total.counts.massWithoutInertia, 4);
    EXPECT_EQ(small.Compute({}, {"A.1"}).total.body.centre[0], 400) << "the rest of A is at 400";
    EXPECT_FALSE(small.Compute({}, {"A.1", "N.1"}).total.HasCentre());
}

TEST(ComputeCompletion, WithoutAnyMassCentreAndInertiaAreUnknown)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "M");
    small.Set("L", "Estimated", {{Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    auto result = small.Compute();
    EXPECT_FALSE(result.total.HasMass());
    EXPECT_FALSE(result.total.HasCentre());
    EXPECT_FALSE(result.total.HasInertia());
    EXPECT_EQ(result.warnings.at(0), "unknown, and sent as 0: mass, centre of gravity and inertia");
    EXPECT_EQ(result.warnings.at(1), "2 of 2 items have no mass; the total leaves them out");

    small.Of("L").sets[0][Fact::Mass] = 0;
    result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 0);
    EXPECT_FALSE(result.total.HasCentre());
}

TEST(ComputeCompletion, MassesOfBothSignsMayCancelOnTheWay)
{
    // A: +1 kg at x = 0 and -1 kg at x = 100 weigh nothing together, but they still move what else
    // is there: with 2 kg at x = 0, 2 kg stand at x = -50; iyy = -0.15^2 + 3 0.05^2 = -0.015.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "P");
    small.Put("R", "P");
    small.Put("A", "P");
    small.Put("A", "N", {100, 0, 0});
    small.Of("N").type = PartType::Adjustment;
    small.Set("P", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("N", "Weighed", {{Fact::Mass, -1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    ExpectSame(small.Compute().total.body,
               {2, 0.02, 0.02, {-50, 0, 0}, {0, -0.015, -0.015, 0, 0, 0}});
    EXPECT_FALSE(small.Compute({}, {"A.1"}).total.HasCentre());
}
