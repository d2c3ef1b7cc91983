#include "ComputeTesting.h"

#include "WBChecks.h"
#include "WBLenders.h"

using namespace wb;
using Common = CATENOWBCSCommonDefinitions;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using wbtest::Derived;
using wbtest::ExpectSame;
using wbtest::SmallProduct;

namespace
{
constexpr wbtest::Facts kRound{{Fact::Mass, 2}, {Fact::CgX, 10}, {Fact::CgY, 20}, {Fact::CgZ, 30},
                               {Fact::Ixx, 1},  {Fact::Iyy, 1},  {Fact::Izz, 1},  {Fact::Ixy, 0},
                               {Fact::Ixz, 0},  {Fact::Iyz, 0}};

/// A leaf of 2 m3 on its own, of "Wax" (10 kg/m3), with an inertia.
SmallProduct Block()
{
    SmallProduct small;
    small.Set("L", "Calculated", kRound);
    small.Of("L").sets[0][Fact::Mass] = kUnknown;
    small.Of("L").sets[0][Fact::Volume] = 2;
    small.Of("L").material = "Wax";
    small.product.materials = {{"Oil", 5, kUnknown, {}, {}}, {"Wax", 10, kUnknown, {}, {}}};
    return small;
}

ComputeOptions Trying(const std::string& material)
{
    ComputeOptions options;
    options.material = material;
    return options;
}
} // namespace

TEST(ComputeEdges, DerivedLeafPrefersTheActiveAmongItsSizedSets)
{
    SmallProduct small = Block();
    small.Set("L", "Estimated", {{Fact::Volume, 3}});
    EXPECT_EQ(small.Mass(Derived()), 20);
    small.Of("L").activeType = "Estimated";
    EXPECT_EQ(small.Mass(Derived()), 30);
}

TEST(ComputeEdges, DerivedAssemblyAloneHasItsOwnValues)
{
    SmallProduct small;
    small.Put("A", "L");
    small.Set("A", "Weighed", kRound);
    small.Set("L", "Weighed", {{Fact::Mass, 7}});
    small.Of("A").activeType = "Weighed";
    ComputeOptions options = Derived();
    options.asked = ComputeOptions::Asked::Alone;
    EXPECT_EQ(small.Mass(options), 2);
}

TEST(ComputeEdges, FirstMaterialOfAllMayBeTried)
{
    // The inertia was stated for 20 kg of wax.
    ExpectSame(Block().Compute(Trying("Oil")).total.body,
               {10, 0.3, 0.5, {10, 20, 30}, {0.5, 0.5, 0.5, 0, 0, 0}});
    EXPECT_EQ(Block().Compute(Trying("Oil")).statistics.materials.at(0).material, "Oil");
}

TEST(ComputeEdges, MaterialThatIsTriedLeavesAStatedMassAlone)
{
    SmallProduct small = Block();
    small.Of("L").sets[0][Fact::Mass] = 20;
    const auto result = small.Compute(Trying("Oil"));
    ExpectSame(result.total.body, {20, 0.6, 1, {10, 20, 30}, {1, 1, 1, 0, 0, 0}});
    EXPECT_THAT(result.warnings, Contains("L A states 20 kg, its size and density give 10 kg"));
    EXPECT_THAT(small.Compute().warnings, IsEmpty());
}

TEST(ComputeEdges, InertiaOfAPartWithoutADensityStandsForTheOneThatIsTried)
{
    SmallProduct small = Block();
    small.Of("L").material = "";
    EXPECT_FALSE(small.Compute().total.HasMass());
    ExpectSame(small.Compute(Trying("Oil")).total.body,
               {10, 0.3, 0.5, {10, 20, 30}, {1, 1, 1, 0, 0, 0}});
}

TEST(ComputeEdges, NothingIsTriedWhereTheRootIsAsked)
{
    ComputeOptions options = Trying("Oil");
    options.asked = ComputeOptions::Asked::Root;
    EXPECT_EQ(Block().Mass(options), 20);
}

TEST(ComputeEdges, DifferenceOfAnImposedValueIsOwnLessBelow)
{
    // Own: 2 kg -0.3 / +0.4 at (10, 20, 30). Below: 3 kg -0.1 / +0.15 at (1, 2, 3).
    SmallProduct small;
    small.Put("A", "L");
    small.Set("A", "Weighed", kRound);
    small.Of("A").sets[0][Fact::Lower] = 0.3;
    small.Of("A").sets[0][Fact::Upper] = 0.4;
    small.Of("A").activeType = "Weighed";
    small.Set("L", "Weighed",
              {{Fact::Mass, 3},
               {Fact::Lower, 0.1},
               {Fact::Upper, 0.15},
               {Fact::CgX, 1},
               {Fact::CgY, 2},
               {Fact::CgZ, 3},
               {Fact::Ixx, 0.5},
               {Fact::Iyy, 0.6},
               {Fact::Izz, 0.7},
               {Fact::Ixy, 0.1},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    const auto result = small.Compute();
    ASSERT_TRUE(result.imposed);
    ExpectSame(result.imposed->difference,
               {-1, 0.2, 0.25, {9, 18, 27}, {0.5, 0.4, 0.3, -0.1, 0, 0}});
}

TEST(ComputeEdges, AskedNodeThatIsOutIsSaidToBeWhateverIsNamedBelowIt)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Set("L", "Weighed", kRound);
    ComputeOptions options;
    EXPECT_EQ(ReadFilterText("2|F|X|A.1|A|A|0|X|L.1|L|A|1|A.1", options.filter), "");
    EXPECT_EQ(small.Compute(options, {"A.1"}).warnings.at(0),
              "the filter leaves out what is asked");
}

TEST(ComputeEdges, UncertaintyOfWhatIsUnknownIsUnknown)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::SigmaMass, 0.1}});
    EXPECT_FALSE(small.Compute().uncertainty) << "nobody asks for it";
    ComputeOptions options;
    options.uncertainty = true;
    for (const bool apart : {false, true}) {
        options.errorsApart = apart;
        const auto uncertainty = *small.Compute(options).uncertainty;
        for (const double sigma : uncertainty.centre) {
            EXPECT_FALSE(IsKnown(sigma));
        }
        for (const double sigma : uncertainty.inertia) {
            EXPECT_FALSE(IsKnown(sigma));
        }
    }
}

TEST(ComputeEdges, LinesOfOneKindStandByTheirEffectThenByTheirText)
{
    SmallProduct small;
    for (const char* part : {"d", "b", "e", "a", "c"}) {
        small.Put("R", part).quantity = part[0] == 'c' ? 3 : 1;
    }
    const auto warnings = small.Compute().warnings;
    ASSERT_EQ(warnings.size(), 7U);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(warnings[2 + i], std::string(1, "cabde"[i]) + " A has no mass");
    }
}

TEST(ComputeEdges, AdjustmentMayTakeMassAwayWithoutAWord)
{
    SmallProduct small;
    small.Put("R", "N");
    small.Put("R", "P");
    small.Set("P", "Weighed", kRound);
    small.Set("N", "Weighed", kRound);
    for (Fact fact : {Fact::Mass, Fact::Ixx, Fact::Iyy, Fact::Izz}) {
        small.Of("N").sets[0][fact] = fact == Fact::Mass ? -1 : -0.1;
    }
    EXPECT_THAT(small.Compute().warnings, Contains(HasSubstr("negative mass")));
    small.Of("N").type = PartType::Adjustment;
    EXPECT_THAT(small.Compute().warnings, IsEmpty());
}

TEST(ComputeEdges, AdjustmentThatAddsMassIsABodyLikeAnother)
{
    EXPECT_TRUE(CheckBody({2, 0, 0, {}, {1, 1, 1, 0, 0, 0}}, true).empty());
    EXPECT_EQ(CheckBody({2, 0, 0, {}, {1, 1, 4, 0, 0, 0}}, true).size(), 1U);
    // A part that should not be negative is so twice over.
    EXPECT_EQ(CheckBody({-2, 0, 0, {}, {-1, -1, -1, 0, 0, 0}}, false).size(), 2U);
    EXPECT_TRUE(CheckBody({0, 0, 0, {}, {kUnknown, 0, 0, 0, 0, 0}}, false).empty());
}

TEST(ComputeEdges, SharesOfTheSameMassStandByName)
{
    SmallProduct small;
    for (const char* name : {"f", "b", "e", "a", "d", "c"}) {
        small.product.materials.push_back({name, 1, kUnknown, {}, {}});
        small.Put("R", name);
        small.Of(name).material = name;
        small.Set(name, "Weighed", kRound);
    }
    const auto materials = small.Compute().statistics.materials;
    ASSERT_EQ(materials.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(materials[i].material, std::string(1, "abcdef"[i]));
    }
}

TEST(ComputeEdges, ReadingAFilterForgetsTheOneBefore)
{
    Filter filter;
    ASSERT_EQ(ReadFilterText("1|Mine|X|A.1|A|A|0", filter), "");
    ASSERT_EQ(ReadFilterText("1|Mine|X|A.1|A|A|0", filter), "");
    EXPECT_EQ(filter.lines.size(), 1U);
    EXPECT_NE(ReadFilterText("1|Mine|Y|A.1|A|A|0", filter), "");
    EXPECT_TRUE(filter.IsEmpty());
    EXPECT_EQ(filter.name, "");
    ASSERT_EQ(ReadFilterText("1|Mine|X|A.1|A|A|0", filter), "");
    EXPECT_NE(ReadFilterText("1|Mine|X|A.1|A|A", filter), "");
    EXPECT_TRUE(filter.IsEmpty());
}

TEST(ComputeEdges, LendersAreNamedForEverySetThatHasAMass)
{
    SmallProduct small;
    small.Put("A", "L");
    small.Set("L", "Weighed", kRound);
    small.Set("A", "Weighed", {{Fact::Mass, 2}});
    small.Set("A", "Estimated", {{Fact::Mass, 2}, {Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}});
    small.Set("A", "Supplier", {{Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    EXPECT_EQ(LendersOf(graph, 0, "Weighed").centre, "Supplier");
    EXPECT_EQ(LendersOf(graph, 0, "Weighed").inertia, "Computed");
    EXPECT_EQ(LendersOf(graph, 0, "Estimated").centre, "") << "its own";
    EXPECT_EQ(LendersOf(graph, 0, "Supplier").inertia, "") << "it has no mass";
    EXPECT_EQ(LendersOf(graph, 0, "Calculated").centre, "") << "it is not there";
    EXPECT_EQ(LendersOf(graph, 1, "Weighed").inertia, "");
}

TEST(ComputeEdges, KeptSumWithoutAnyMassHasNone)
{
    KeptSum sum;
    sum.counts.leaves = 2;
    sum.counts.withoutMass = 2;
    EXPECT_FALSE(TotalOf(sum).HasMass());
    sum.counts.withoutMass = 1;
    EXPECT_TRUE(TotalOf(sum).HasMass());
    EXPECT_TRUE(TotalOf(KeptSum()).HasMass()) << "the filter left nothing: that weighs nothing";
}
