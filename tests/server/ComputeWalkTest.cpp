#include "ComputeTesting.h"

using namespace wb;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using wbtest::Derived;
using wbtest::MostPrecise;
using wbtest::SmallProduct;
using wbtest::Specified;

namespace
{
/// Root R with an assembly A: it claims 10 kg as estimated and 12 kg as weighed; below it stand
/// leaf L (1 kg estimated, 2 kg calculated) and leaf M (3 kg weighed): 5 kg.
SmallProduct Claims()
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Put("A", "M");
    small.Set("A", "Estimated", {{Fact::Mass, 10}}).Set("A", "Weighed", {{Fact::Mass, 12}});
    small.Set("L", "Estimated", {{Fact::Mass, 1}}).Set("L", "Calculated", {{Fact::Mass, 2}});
    small.Set("M", "Weighed", {{Fact::Mass, 3}});
    return small;
}
} // namespace

TEST(ComputeWalk, AssemblyWithoutAChoiceAddsUpWhatIsBelow)
{
    EXPECT_EQ(Claims().Mass(), 5);
}

TEST(ComputeWalk, ActiveValuesOfAnAssemblyStandForAllBelow)
{
    SmallProduct small = Claims();
    small.Of("A").activeType = "Estimated";
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 10);
    EXPECT_EQ(result.total.counts.leaves, 1);
}

TEST(ComputeWalk, ActiveValuesWithoutMassLeaveTheAssemblyToItsSumWithAWarning)
{
    SmallProduct small = Claims();
    small.Set("A", "Supplier", {{Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}});
    small.Of("A").activeType = "Supplier";
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 5);
    EXPECT_THAT(result.warnings,
                Contains("A A has active values without a mass; what is below it counts"));
}

TEST(ComputeWalk, LeafWhoseActiveValuesHaveNoMassIsMissing)
{
    SmallProduct small = Claims();
    small.Set("M", "Supplier", {{Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}});
    small.Of("M").activeType = "Supplier";
    const auto result = small.Compute();
    EXPECT_EQ(result.total.body.mass, 2);
    EXPECT_EQ(result.total.counts.leaves, 2);
    EXPECT_EQ(result.total.counts.withoutMass, 1);
    EXPECT_TRUE(result.total.IsPartial());
}

TEST(ComputeWalk, MostPreciseTakesAnAssemblysClaimAboveCalculated)
{
    EXPECT_EQ(Claims().Mass(MostPrecise()), 12);
}

TEST(ComputeWalk, MostPreciseDescendsWhereTheAssemblysClaimIsNoBetter)
{
    SmallProduct small = Claims();
    small.Of("A").sets[1].massType = "Calculated";
    // Leaves: 2 kg calculated before 1 kg estimated, and 3 kg.
    EXPECT_EQ(small.Mass(MostPrecise()), 5);
}

TEST(ComputeWalk, MostPreciseTakesALesserClaimWhereMassIsMissingBelow)
{
    SmallProduct small = Claims();
    small.Of("A").sets[1].massType = "Calculated";
    small.Of("M").sets.clear();
    const auto result = small.Compute(MostPrecise());
    EXPECT_EQ(result.total.body.mass, 12);
    EXPECT_FALSE(result.total.IsPartial());
}

TEST(ComputeWalk, MostPreciseDescendsWhereNothingElseIsThere)
{
    SmallProduct small = Claims();
    small.Of("A").sets.clear();
    small.Of("M").sets.clear();
    const auto result = small.Compute(MostPrecise());
    EXPECT_EQ(result.total.body.mass, 2);
    EXPECT_TRUE(result.total.IsPartial());
}

TEST(ComputeWalk, MostPreciseLeafSkipsAHigherClaimWithoutMass)
{
    SmallProduct small = Claims();
    small.Of("A").sets.clear();
    small.Set("L", "Weighed", {{Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}});
    EXPECT_EQ(small.Mass(MostPrecise()), 5);
}

TEST(ComputeWalk, GoalsAreNeverMostPrecise)
{
    SmallProduct small = Claims();
    small.Of("A").sets.clear();
    small.Set("A", "Target", {{Fact::Mass, 99}});
    small.Of("L").sets.clear();
    small.Set("L", "Target", {{Fact::Mass, 99}});
    EXPECT_EQ(small.Mass(MostPrecise()), 3);
}

TEST(ComputeWalk, ComputedDescendsThroughEveryAssemblyToTheActiveLeaves)
{
    SmallProduct small = Claims();
    small.Of("A").activeType = "Weighed";
    small.Of("L").activeType = "Estimated";
    EXPECT_EQ(small.Mass(Specified("Computed")), 4);
}

TEST(ComputeWalk, SpecifiedTypeFallsBackOnNothing)
{
    SmallProduct small = Claims();
    small.Of("A").sets.clear();
    const auto result = small.Compute(Specified("Estimated"));
    EXPECT_EQ(result.total.body.mass, 1);
    EXPECT_EQ(result.total.counts.withoutMass, 1);
    EXPECT_EQ(Claims().Mass(Specified("Estimated")), 10);
}

TEST(ComputeWalk, SpecifiedTypeMayBeAGoal)
{
    SmallProduct small = Claims();
    small.Set("R", "Target", {{Fact::Mass, 7}});
    EXPECT_EQ(small.Mass(Specified("Target")), 7);
}

TEST(ComputeWalk, OrActiveFillsTheGapsAndListsThem)
{
    SmallProduct small = Claims();
    small.Of("A").sets.clear();
    ComputeOptions options = Specified("Estimated");
    options.orActive = true;
    const auto result = small.Compute(options);
    EXPECT_EQ(result.total.body.mass, 4);
    EXPECT_FALSE(result.total.IsPartial());
    EXPECT_THAT(result.fellBack, ElementsAre("M"));
    EXPECT_THAT(result.warnings, Contains("1 part takes its active values"));
}

TEST(ComputeWalk, UnknownMassTypeIsAnErrorThatNamesIt)
{
    EXPECT_EQ(Claims().Compute(Specified("Guessed")).error,
              "The mass type \"Guessed\" is not known.");
}

TEST(ComputeWalk, CycleIsAnErrorThatNamesIt)
{
    SmallProduct small = Claims();
    small.Put("L", "R");
    EXPECT_EQ(small.Compute().error, "The product holds itself: R > A > L > R.");
}

TEST(ComputeWalk, OwnBelowAndDifferenceStandBesideAnImposedValue)
{
    SmallProduct small = Claims();
    small.Of("A").activeType = "Weighed";
    const auto result = small.Compute({}, {"A.1"});
    ASSERT_TRUE(result.imposed);
    EXPECT_EQ(result.takenType, "Weighed");
    EXPECT_EQ(result.total.body.mass, 12);
    EXPECT_EQ(result.imposed->below.body.mass, 5);
    EXPECT_EQ(result.imposed->below.counts.leaves, 2);
    EXPECT_EQ(result.imposed->difference.mass, 7);
    EXPECT_FALSE(small.Compute().imposed);
}

TEST(ComputeWalk, DerivedAnswerOfAnAssemblyIsTheSumWhateverIsActive)
{
    SmallProduct small = Claims();
    small.Of("A").activeType = "Weighed";
    EXPECT_EQ(small.Mass(Derived(), {"A.1"}), 5);
    EXPECT_EQ(small.Mass(Derived()), 12) << "only the asked node is treated so";
}

TEST(ComputeWalk, AloneANodeHasItsOwnValuesOnly)
{
    SmallProduct small = Claims();
    ComputeOptions alone;
    alone.asked = ComputeOptions::Asked::Alone;
    const auto nothing = small.Compute(alone, {"A.1"});
    EXPECT_FALSE(nothing.total.HasMass());
    EXPECT_EQ(nothing.total.counts.leaves, 1);
    small.Of("A").activeType = "Estimated";
    const auto own = small.Compute(alone, {"A.1"});
    EXPECT_EQ(own.total.body.mass, 10);
    EXPECT_FALSE(own.total.HasCentre()) << "what is below lends nothing";
    EXPECT_FALSE(own.imposed);
}

TEST(ComputeWalk, RootIsAskedWhereverThePathLeads)
{
    ComputeOptions root;
    root.asked = ComputeOptions::Asked::Root;
    SmallProduct small = Claims();
    small.Put("R", "M");
    EXPECT_EQ(small.Mass(root, {"A.1"}), 8);
}

TEST(ComputeWalk, UseWithValuesOfItsOwnWeighsSomethingElse)
{
    SmallProduct small = Claims();
    small.Put("R", "M");
    small.product.uses.back().sets.push_back(SmallProduct::Made("Weighed", {{Fact::Mass, 3.5}}));
    EXPECT_EQ(small.Mass(), 5 + 3.5);
    EXPECT_EQ(small.Mass({}, {"M.1"}), 3.5);
    EXPECT_EQ(small.Mass({}, {"A.1", "M.1"}), 3);
}

TEST(ComputeWalk, ActiveTypeOfAUseCountsThereAlone)
{
    SmallProduct small = Claims();
    small.Put("R", "L").activeType = "Estimated";
    EXPECT_EQ(small.Mass(), 5 + 1);
}

TEST(ComputeWalk, PiecesAndPlacesAddUpInTheAxesOfTheAskedNode)
{
    // Three pieces of 2 kg at x = 100 mm, one at x = 500: centre (600 + 1000/... ) below. Masses 6
    // and 2: x = (6 100 + 2 500) / 8 = 200; iyy = 6 0.1^2 + 2 0.3^2 = 0.24 about it. The assembly
    // stands turned by 90 degrees about z: x becomes y.
    SmallProduct small;
    Use& turned = small.Put("R", "A", {0, 0, 50});
    turned.placement.rotation = RotationFromAngles(0, 0, 90);
    small.Put("A", "L", {100, 0, 0}).quantity = 3;
    small.Put("A", "L", {500, 0, 0});
    small.Set("L", "Weighed",
              {{Fact::Mass, 2},
               {Fact::Lower, 0.1},
               {Fact::Upper, 0.2},
               {Fact::CgX, 0},
               {Fact::CgY, 0},
               {Fact::CgZ, 0}});
    const auto result = small.Compute();
    wbtest::ExpectSame(result.total.body, {8, 0.4, 0.8, {0, 200, 50}, {0.24, 0, 0.24, 0, 0, 0}});
    EXPECT_EQ(result.total.counts.leaves, 4);
}

TEST(ComputeWalk, DefinedPrecisionTakesThePlaceOfTheDeviations)
{
    ComputeOptions options;
    options.definedPrecision = {true, 2, 4};
    auto result = Claims().Compute(options);
    EXPECT_DOUBLE_EQ(result.total.body.lower, 0.1);
    EXPECT_DOUBLE_EQ(result.total.body.upper, 0.2);
    EXPECT_TRUE(result.precisionDefined);
    options.definedPrecision = {false, 2, 4};
    result = Claims().Compute(options);
    EXPECT_EQ(result.total.body.lower, 2);
    EXPECT_EQ(result.total.body.upper, 4);
    EXPECT_FALSE(Claims().Compute().precisionDefined);
}

TEST(ComputeWalk, CancelledComputationIsAnErrorAtAnyStep)
{
    // Before the work, after the walk, before the uncertainty and before the warnings.
    constexpr int kSteps = 4;
    for (int step = 1; step <= kSteps + 1; ++step) {
        int asked = 0;
        ComputeOptions options;
        options.cancelled = [&] {
            return ++asked == step;
        };
        const auto result = Claims().Compute(options);
        if (step <= kSteps) {
            EXPECT_EQ(result.error, "The computation was cancelled.") << step;
            EXPECT_EQ(result.total.body.mass, 0) << step;
        } else {
            EXPECT_EQ(result.total.body.mass, 5);
        }
    }
}
