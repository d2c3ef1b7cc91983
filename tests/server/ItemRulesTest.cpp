#include "ComputeTesting.h"

#include <cmath>

using namespace wb;
using Common = CATENOWBCSCommonDefinitions;
using testing::ElementsAre;
using wbtest::ExpectSame;
using wbtest::MostPrecise;
using wbtest::SmallProduct;
using wbtest::Specified;

namespace
{
constexpr wbtest::Facts kAtOrigin{{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}};

ComputeOptions WithUncertainty()
{
    ComputeOptions options;
    options.uncertainty = true;
    return options;
}
} // namespace

TEST(ItemRules, MaturityIsTheOrderOfTheTableAndNotOfNamesOrRows)
{
    SmallProduct small;
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    small.Set("L", "Estimated", {{Fact::Mass, 2}});
    auto types = ShippedMassTypes();
    for (MassType& type : types) {
        type.order = type.name == "Weighed" ? 5 : type.order;
    }
    const ProductGraph graph(small.product, types);
    EXPECT_EQ(Compute(graph, {}, {}).total.body.mass, 2);
    EXPECT_EQ(Compute(graph, {}, MostPrecise()).total.body.mass, 2);
}

TEST(ItemRules, GoalThatSomebodyChoseDoesNotCount)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Set("R", "Target", {{Fact::Mass, 50}});
    small.Set("L", "Target", {{Fact::Mass, 40}});
    small.Set("L", "Estimated", {{Fact::Mass, 2}});
    small.Of("R").activeType = "Target";
    EXPECT_EQ(small.Mass(), 2);
    small.Of("L").activeType = "Target";
    EXPECT_NE(small.Mass(), 40);
}

TEST(ItemRules, MostPreciseLooksForMissingMassAtEveryLevelBelow)
{
    // R claims 9 kg estimated above A above B above L.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "L");
    small.Put("B", "M");
    small.Set("R", "Estimated", {{Fact::Mass, 9}});
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    EXPECT_EQ(small.Mass(MostPrecise()), 9) << "M has no mass";
    small.Set("B", "Supplier", {{Fact::Mass, 5}});
    EXPECT_EQ(small.Mass(MostPrecise()), 5) << "B stands for M";
    small.Of("B").sets[0].massType = "Estimated";
    EXPECT_EQ(small.Mass(MostPrecise()), 5) << "B's claim is used since mass is missing below it";
    small.Set("M", "Estimated", {{Fact::Mass, 1}});
    EXPECT_EQ(small.Mass(MostPrecise()), 2);
}

TEST(ItemRules, ClaimJustAtCalculatedDoesNotStandAboveIt)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Set("L", "Estimated", {{Fact::Mass, 1}});
    small.Set("R", "Calculated", {{Fact::Mass, 9}});
    EXPECT_EQ(small.Mass(MostPrecise()), 1);
    small.Of("R").sets[0].massType = "Supplier";
    EXPECT_EQ(small.Mass(MostPrecise()), 9);
}

TEST(ItemRules, SpecifiedTypeOfAnAssemblyStandsForAllBelow)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Set("A", "Estimated", {{Fact::Mass, 9}});
    small.Set("A", "Weighed", {{Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    EXPECT_EQ(small.Mass(Specified("Estimated")), 9);
    EXPECT_EQ(small.Mass(Specified("Weighed")), 1) << "A's set has no mass";
    EXPECT_FALSE(small.Compute(Specified("Supplier")).total.HasMass());
}

TEST(ItemRules, DerivedAnswerFollowsTheAskedPrecisionBelow)
{
    SmallProduct small;
    small.Put("A", "L");
    small.Set("A", "Weighed", {{Fact::Mass, 9}});
    small.Set("L", "Estimated", {{Fact::Mass, 1}});
    small.Set("L", "Weighed", {{Fact::Mass, 2}});
    small.Of("A").activeType = "Weighed";
    small.Of("L").activeType = "Estimated";
    EXPECT_EQ(small.Mass(wbtest::Derived()), 1);
}

TEST(ItemRules, ValueBelowCalculatedLendsAfterTheSumBelow)
{
    // Below A one point at x = 3; A's own claims stand at x = 5 (calculated) and 7 (estimated).
    SmallProduct small;
    small.Put("A", "L", {3, 0, 0});
    small.Set("L", "Weighed", kAtOrigin);
    small.Set("A", "Weighed", {{Fact::Mass, 2}});
    small.Set("A", "Estimated", {{Fact::CgX, 7}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Of("A").activeType = "Weighed";
    EXPECT_EQ(small.Compute().centreFrom, Common::Computed);
    small.Of("L").sets.clear();
    EXPECT_EQ(small.Compute().centreFrom, "Estimated") << "the sum below knows none";
    small.Set("A", "Calculated", {{Fact::CgX, 5}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    EXPECT_EQ(small.Compute().total.body.centre[0], 5);
}

TEST(ItemRules, InertiaIsLentByTheRatioOfTheMasses)
{
    // 3 kg of a lender's 4 kg; the lender with a mass of 0 is passed over.
    SmallProduct small;
    small.Set("L", "Weighed", kAtOrigin);
    small.Of("L").sets[0][Fact::Mass] = 3;
    for (const char* type : {"Supplier", "Estimated"}) {
        small.Set("L", type,
                  {{Fact::Mass, type[0] == 'S' ? 0 : 4},
                   {Fact::Ixx, 4},
                   {Fact::Iyy, 8},
                   {Fact::Izz, 8},
                   {Fact::Ixy, 1},
                   {Fact::Ixz, 2},
                   {Fact::Iyz, 3}});
    }
    const auto result = small.Compute();
    ExpectSame(result.total.body, {3, 0.015, 0.015, {}, {3, 6, 6, 0.75, 1.5, 2.25}});
    EXPECT_EQ(result.inertiaFrom, "Estimated");
    EXPECT_EQ(result.centreFrom, "") << "its own";
}

TEST(ItemRules, SumOfMassesThatStandNowhereHasNoInertiaUnlessAllHaveOne)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "M");
    const wbtest::Facts round{{Fact::Mass, 1}, {Fact::Ixx, 2}, {Fact::Iyy, 2}, {Fact::Izz, 2},
                              {Fact::Ixy, 0},  {Fact::Ixz, 0}, {Fact::Iyz, 0}};
    small.Set("L", "Weighed", round);
    small.Set("M", "Weighed", {{Fact::Mass, 1}});
    auto total = small.Compute().total;
    EXPECT_FALSE(total.HasCentre());
    EXPECT_FALSE(total.HasInertia());
    small.Of("M").sets[0] = SmallProduct::Made("Weighed", round);
    total = small.Compute().total;
    EXPECT_FALSE(total.HasCentre());
    ASSERT_TRUE(total.HasInertia());
    EXPECT_DOUBLE_EQ(total.body.inertia[0], 4) << "they stand at one point, wherever it is";
}

TEST(ItemRules, PlacedMassesThatCancelLeaveTheRestNowhere)
{
    // 1 kg and -1 kg have a centre each, the two have none; 2 kg stand nobody knows where.
    SmallProduct small;
    small.Put("R", "P");
    small.Put("R", "N", {100, 0, 0});
    small.Put("R", "loose");
    small.Set("P", "Weighed", kAtOrigin);
    small.Set("N", "Weighed", kAtOrigin);
    small.Of("N").sets[0][Fact::Mass] = -1;
    small.Set("loose", "Weighed",
              {{Fact::Mass, 2},
               {Fact::Ixx, 2},
               {Fact::Iyy, 2},
               {Fact::Izz, 2},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    const auto total = small.Compute().total;
    EXPECT_EQ(total.body.mass, 2);
    EXPECT_FALSE(total.HasCentre());
    EXPECT_FALSE(total.HasInertia());
}

TEST(ItemRules, LooseMassMovesToTheCentreOfTheRestOfEachNodeThatIsAsked)
{
    // 1 kg at x = 0 in R, 1 kg at x = 100 in A, 2 kg at x = 400 in B, 4 kg loose in B in A in R.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "P");
    small.Put("A", "B");
    small.Put("A", "P", {100, 0, 0});
    small.Put("B", "P", {400, 0, 0}).quantity = 2;
    small.Put("B", "loose", {5000, 0, 0});
    small.Set("P", "Weighed", kAtOrigin);
    small.Set("loose", "Weighed", {{Fact::Mass, 4}});
    // B: 2 kg at 400, no extent. A: (100 + 800)/3 = 300, iyy = 0.2^2 + 2 0.1^2 = 0.06.
    // R: (100 + 800)/4 = 225, iyy = 0.225^2 + 0.125^2 + 2 0.175^2 = 0.1275.
    ExpectSame(small.Compute({}, {"A.1", "B.1"}).total.body,
               {6, 0.03, 0.03, {400, 0, 0}, {0, 0, 0, 0, 0, 0}});
    ExpectSame(small.Compute({}, {"A.1"}).total.body,
               {7, 0.035, 0.035, {300, 0, 0}, {0, 0.06, 0.06, 0, 0, 0}});
    const auto root = small.Compute();
    ExpectSame(root.total.body, {8, 0.04, 0.04, {225, 0, 0}, {0, 0.1275, 0.1275, 0, 0, 0}});
    EXPECT_EQ(root.total.counts.massWithoutCentre, 4);
    EXPECT_EQ(root.total.counts.massWithoutInertia, 8);
    EXPECT_EQ(root.total.counts.leaves, 5);
    EXPECT_EQ(root.total.counts.withoutMass, 0);
}

TEST(ItemRules, MassesThatCancelToNothingHaveNoCentre)
{
    SmallProduct small;
    small.Put("R", "P");
    small.Put("R", "N", {100, 0, 0});
    small.Set("P", "Weighed", kAtOrigin);
    small.Set("N", "Weighed", kAtOrigin);
    small.Of("N").sets[0][Fact::Mass] = -1;
    small.Of("N").type = PartType::Adjustment;
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 0);
    EXPECT_TRUE(result.total.HasMass());
    EXPECT_FALSE(result.total.HasCentre());
    EXPECT_FALSE(result.total.HasInertia());
    EXPECT_EQ(result.warnings.at(0), "unknown, and sent as 0: centre of gravity and inertia");
}

TEST(ItemRules, DeviationsOfANegativeMassAreSizes)
{
    SmallProduct small;
    small.Set("N", "Estimated", {{Fact::Mass, -10}});
    small.Of("N").type = PartType::Adjustment;
    auto body = small.Compute().total.body;
    EXPECT_DOUBLE_EQ(body.lower, 1);
    EXPECT_DOUBLE_EQ(body.upper, 2);
    ComputeOptions options;
    options.definedPrecision = {true, 5, 6};
    body = small.Compute(options).total.body;
    EXPECT_DOUBLE_EQ(body.lower, 0.5);
    EXPECT_DOUBLE_EQ(body.upper, 0.6);
}

TEST(ItemRules, UseThatStatesSomethingHasErrorsOfItsOwn)
{
    // 3 pieces of one set, 4 of the use's own, 0.01 kg each: 0.05, not 0.07. So it is with whatever
    // a use says of its own weight: its density, or which values are active there.
    SmallProduct small;
    small.Put("R", "L").quantity = 3;
    small.Put("R", "L").quantity = 4;
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.01}, {Fact::Upper, 0.01}});
    const auto expect = [&](double kilograms) {
        EXPECT_NEAR(small.Compute().statistics.rss.together.lower, kilograms, 1e-15);
        EXPECT_NEAR(small.Compute(WithUncertainty()).uncertainty->mass,
                    2 * kilograms / std::sqrt(12), 1e-15);
    };
    expect(0.07);
    const Use plain = small.product.uses[1];
    Use& use = small.product.uses[1];
    use.sets = small.Of("L").sets;
    expect(0.05);
    use = plain;
    use.density = 100;
    expect(0.05);
    use = plain;
    use.activeType = "Weighed";
    expect(0.05);
}

TEST(ItemRules, OneUseInManyPlacesIsOnePart)
{
    // The use with a set of its own stands in A, and A twice in R: 2 pieces that err together.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "A");
    small.Put("A", "L").sets = {
        SmallProduct::Made("Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.03}, {Fact::Upper, 0.03}})};
    small.Put("A", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.04}, {Fact::Upper, 0.04}});
    EXPECT_DOUBLE_EQ(small.Compute().statistics.rss.together.lower, 0.1);
}

TEST(ItemRules, PartWhoseErrorsAreApartStandsBesideOnesWhoseErrorsAreNot)
{
    // 4 times 0.02 apart: 0.04; 3 times 0.01 together: 0.03.
    SmallProduct small;
    small.Put("R", "L").quantity = 4;
    small.Put("R", "M").quantity = 3;
    small.Of("L").errors = ErrorRule::Apart;
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.02}, {Fact::Upper, 0}});
    small.Set("M", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.01}, {Fact::Upper, 0}});
    EXPECT_NEAR(small.Compute().statistics.rss.together.lower, 0.05, 1e-15);
}

TEST(ItemRules, CentreIsLessCertainThanFarByItsWholeLength)
{
    // sigma (60, 80, 0) mm: 100 mm; the two points stand 2 d apart.
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "L");
    small.Set("L", "Weighed", kAtOrigin);
    small.Of("L").sets[0][Fact::SigmaCgX] = 60;
    small.Of("L").sets[0][Fact::SigmaCgY] = 80;
    const auto understated = [&](double d) {
        small.product.uses[0].placement.shift = {0, 0, d};
        small.product.uses[1].placement.shift = {0, 0, -d};
        return small.Compute(WithUncertainty()).uncertainty->understated;
    };
    EXPECT_THAT(understated(100.1), ElementsAre());
    EXPECT_THAT(understated(99.9), ElementsAre("L"));
}

TEST(ItemRules, SharesAreOrderedByMassThenByName)
{
    SmallProduct small;
    small.product.materials = {
        {"b", 1, kUnknown, {}, {}}, {"a", 1, kUnknown, {}, {}}, {"c", 1, kUnknown, {}, {}}};
    const std::array<const char*, 3> names{"b", "a", "c"};
    for (const char* name : names) {
        const std::string part = std::string("P") + name;
        small.Put("R", part);
        small.Of(part).material = name;
        small.Of(part).code = name;
        small.Set(part, "Weighed", {{Fact::Mass, name[0] == 'c' ? 5 : 2}});
    }
    const auto statistics = small.Compute().statistics;
    ASSERT_EQ(statistics.materials.size(), 3U);
    ASSERT_EQ(statistics.codes.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string expected(1, "cab"[i]);
        EXPECT_EQ(statistics.materials[i].material, expected);
        EXPECT_EQ(statistics.codes[i].name, expected);
    }
}

TEST(ItemRules, OneMaterialAtTwoDensitiesOrDimensionsIsTwoShares)
{
    SmallProduct small;
    small.product.materials = {{"Mix", 10, 3, {}, {}}};
    for (const char* part : {"L", "M", "N"}) {
        small.Put("R", part);
        small.Of(part).material = "Mix";
    }
    small.Of("M").density = 20;
    small.Set("L", "Calculated", {{Fact::Volume, 1}});
    small.Set("M", "Calculated", {{Fact::Volume, 1}});
    small.Set("N", "Calculated", {{Fact::Area, 1}});
    const auto materials = small.Compute().statistics.materials;
    ASSERT_EQ(materials.size(), 3U);
    EXPECT_EQ(materials[0].density, 20);
    EXPECT_EQ(materials[1].density, 10);
    EXPECT_EQ(materials[2].density, 3);
    EXPECT_EQ(materials[2].dimension, Dimension::Surface);
}

TEST(ItemRules, GrowthIsThatOfTheItemsAndNotOfWhatStandsAroundThem)
{
    // 2 kg 10 %, three times; 5 kg not stated; the assembly's own 50 % concern its own values.
    SmallProduct small;
    small.Put("R", "A").quantity = 3;
    small.Put("R", "M");
    small.Put("A", "L");
    small.Of("A").growthPct = 50;
    small.Of("L").growthPct = 10;
    small.Set("L", "Weighed", {{Fact::Mass, 2}});
    small.Set("M", "Weighed", {{Fact::Mass, 5}});
    EXPECT_DOUBLE_EQ(small.Compute().statistics.growthAllowance, 0.6);
    small.Set("A", "Weighed", {{Fact::Mass, 4}});
    small.Of("A").activeType = "Weighed";
    EXPECT_DOUBLE_EQ(small.Compute().statistics.growthAllowance, 6);
}
