#include "ComputeTesting.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>
#include <map>

using namespace wb;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using wbtest::ExpectSame;
using wbtest::kClose;
using wbtest::SmallProduct;

namespace
{
using Kept = std::unordered_map<std::uint32_t, KeptSum>;

/// Everything that a sum can hold: masses without centre and inertia, negative ones, leaves without
/// a mass, codes at several levels, growth, both kinds of errors, uses that state something of
/// their own, turned and repeated ones, values imposed on assemblies.
SmallProduct Rich()
{
    SmallProduct small;
    const auto body = [](double mass, double x) {
        return std::vector<std::pair<Fact, double>>{
            {Fact::Mass, mass}, {Fact::CgX, x},    {Fact::CgY, -2 * x}, {Fact::CgZ, 7},
            {Fact::Ixx, 1},     {Fact::Iyy, 1.25}, {Fact::Izz, 1.5},    {Fact::Ixy, 0.1},
            {Fact::Ixz, -0.2},  {Fact::Iyz, 0.05}};
    };
    const auto set = [&](const std::string& part, const std::string& type, double mass, double x) {
        ValueSet made;
        made.massType = type;
        for (const auto& [fact, value] : body(mass, x)) {
            made[fact] = value;
        }
        small.Of(part).sets.push_back(made);
    };
    small.Put("R", "A", {100, 0, 0});
    small.Put("R", "B", {0, 50, 0}).quantity = 3;
    small.Put("R", "L", {1, 2, 3});
    Use& turned = small.Put("A", "B", {0, 0, 10});
    turned.placement.rotation = RotationFromAngles(20, 30, 40);
    small.Put("A", "N");
    small.Put("A", "I", {5, 5, 5});
    small.Put("B", "S", {3, 0, 0}).quantity = 2;
    small.Put("B", "C", {0, 0, -9});
    small.Put("B", "X"); // nobody knows its mass
    small.Put("C", "L", {10, 0, 0});
    Use& own = small.Put("C", "L", {-10, 0, 0});
    own.sets.push_back(SmallProduct::Made(
        "Weighed", {{Fact::Mass, 9}, {Fact::CgX, 1}, {Fact::CgY, 1}, {Fact::CgZ, 1}}));
    small.Put("C", "P");
    small.Put("I", "L");
    set("L", "Estimated", 2, 4);
    set("L", "Weighed", 2.5, 4);
    set("S", "Calculated", 1.5, -3);
    set("N", "Estimated", -0.75, 6);
    small.Of("N").type = PartType::Adjustment;
    small.Set("P", "Estimated", {{Fact::Mass, 0.5}}); // no centre, no inertia
    small.Set("I", "Weighed", {{Fact::Mass, 3}});     // completed by the sum below
    small.Of("I").activeType = "Weighed";
    small.Of("A").code = "10";
    small.Of("C").code = "20";
    small.Of("S").code = "30";
    small.Of("L").growthPct = 4;
    small.Of("S").errors = ErrorRule::Apart;
    Material steel;
    steel.name = "Steel";
    steel.density = 7850;
    small.product.materials.push_back(steel);
    small.Of("L").material = "Steel";
    return small;
}

/// The sums below all assemblies, by the number of their part.
Kept AllSums(const SmallProduct& small, ComputeOptions options = {})
{
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    Kept kept;
    for (ComputeResult::MadeSum& made : small.Compute(options).sums) {
        kept.emplace(made.part, std::move(made.sum));
    }
    return kept;
}

/// The same as of an earlier time.
Kept Stale(Kept kept)
{
    for (auto& [part, sum] : kept) {
        sum.isStale = true;
    }
    return kept;
}

ComputeResult With(const SmallProduct& small, const Kept& kept, std::int64_t level,
                   ComputeOptions options = {}, const std::vector<std::string>& path = {})
{
    options.kept = &kept;
    options.level = level;
    return small.Compute(options, path);
}

std::vector<std::string> PartsOf(const SmallProduct& small, const ComputeResult& result)
{
    std::vector<std::string> names;
    for (const ComputeResult::MadeSum& made : result.sums) {
        names.push_back(small.product.parts[made.part].identifier);
    }
    return names;
}

template <typename Share, typename Name>
std::map<std::string, double> ByName(const std::vector<Share>& shares, Name name)
{
    std::map<std::string, double> masses;
    for (const Share& share : shares) {
        masses[share.*name] += share.mass;
    }
    return masses;
}

void ExpectSameShares(const std::map<std::string, double>& left,
                      const std::map<std::string, double>& right)
{
    ASSERT_EQ(left.size(), right.size());
    for (const auto& [name, mass] : right) {
        EXPECT_NEAR(left.at(name), mass, kClose * 100) << name;
    }
}

void ExpectSameResult(const ComputeResult& left, const ComputeResult& right)
{
    ExpectSame(left.total.body, right.total.body);
    const Counts& counts = left.total.counts;
    const Counts& expected = right.total.counts;
    EXPECT_EQ(counts.leaves, expected.leaves);
    EXPECT_EQ(counts.withoutMass, expected.withoutMass);
    EXPECT_NEAR(counts.massWithoutCentre, expected.massWithoutCentre, kClose);
    EXPECT_NEAR(counts.massWithoutInertia, expected.massWithoutInertia, kClose * 100);
    const Statistics& statistics = left.statistics;
    const Statistics& wanted = right.statistics;
    ExpectSameShares(ByName(statistics.materials, &MaterialShare::material),
                     ByName(wanted.materials, &MaterialShare::material));
    ExpectSameShares(ByName(statistics.massTypes, &NamedShare::name),
                     ByName(wanted.massTypes, &NamedShare::name));
    ExpectSameShares(ByName(statistics.codes, &NamedShare::name),
                     ByName(wanted.codes, &NamedShare::name));
    EXPECT_NEAR(statistics.growthAllowance, wanted.growthAllowance, kClose);
    EXPECT_NEAR(statistics.rss.together.lower, wanted.rss.together.lower, kClose);
    EXPECT_NEAR(statistics.rss.together.upper, wanted.rss.together.upper, kClose);
    EXPECT_NEAR(statistics.rss.apart.lower, wanted.rss.apart.lower, kClose);
    EXPECT_NEAR(statistics.rss.apart.upper, wanted.rss.apart.upper, kClose);
}

/// Twelve leaves of so many kg each: one below the root, two in A, three in A's D, one in B, two in
/// B's E, three in E's F.
SmallProduct TwelveLeaves(double mass)
{
    SmallProduct small;
    int leaves = 0;
    const auto fill = [&](const std::string& assembly, int count) {
        for (int i = 0; i < count; ++i) {
            const std::string name = "L" + std::to_string(++leaves);
            small.Put(assembly, name);
            small.Set(name, "Weighed", {{Fact::Mass, mass}});
        }
    };
    small.Put("R", "A");
    small.Put("R", "B");
    small.Put("A", "D");
    small.Put("B", "E");
    small.Put("E", "F");
    fill("R", 1);
    fill("A", 2);
    fill("D", 3);
    fill("B", 1);
    fill("E", 2);
    fill("F", 3);
    return small;
}

/// A twice: below the root at once, and in an assembly B. Its one leaf weighs so much.
SmallProduct ShallowAndDeep(double mass)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "B");
    small.Put("B", "A").quantity = 10;
    small.Put("A", "L");
    small.Set("L", "Weighed", {{Fact::Mass, mass}});
    return small;
}
} // namespace

TEST(KeptResults, SumsGiveTheFiguresOfWhatTheyWereMadeFrom)
{
    const SmallProduct small = Rich();
    std::vector<ComputeOptions> ways{{},
                                     wbtest::MostPrecise(),
                                     wbtest::Specified("Computed"),
                                     wbtest::Specified("Estimated"),
                                     wbtest::Derived()};
    for (std::size_t way = 0; way < ways.size(); ++way) {
        const Kept kept = AllSums(small, ways[way]);
        const ComputeResult anew = small.Compute(ways[way]);
        for (const std::int64_t level : {0, 1, 2, 3}) {
            SCOPED_TRACE("way " + std::to_string(way) + ", level " + std::to_string(level));
            const ComputeResult result = With(small, kept, level, ways[way]);
            ExpectSameResult(result, anew);
            EXPECT_EQ(result.staleTaken, 0U);
        }
    }
}

TEST(KeptResults, SumOfThePartIsItsDerivedTotal)
{
    const SmallProduct small = Rich();
    const Kept kept = AllSums(small);
    const ProductGraph graph(small.product, ShippedMassTypes());
    const ComputeResult derived = small.Compute(wbtest::Derived(), {"B.1"});
    const KeptSum& sum = kept.at(*graph.FindPart("B", "A"));
    ComputeResult told;
    told.total = TotalOf(sum);
    told.statistics = StatisticsOf(sum, "");
    ExpectSameResult(told, derived);
    // Of B, 3 kg of leaves S have code 30 and the rest stands in C with code 20.
    EXPECT_THAT(ByName(StatisticsOf(sum, "40").codes, &NamedShare::name),
                testing::Not(testing::Contains(testing::Key("40"))));
}

TEST(KeptResults, WhatHasNoCodeGoesToTheCodeAbove)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 4}});
    small.Of("A").code = "10";
    const Kept kept = AllSums(small);
    EXPECT_THAT(ByName(With(small, kept, 1).statistics.codes, &NamedShare::name),
                ElementsAre(testing::Pair("10", 4.0)));
    EXPECT_THAT(ByName(With(small, kept, 0).statistics.codes, &NamedShare::name),
                ElementsAre(testing::Pair("10", 4.0)));
    const ProductGraph graph(small.product, ShippedMassTypes());
    const KeptSum& below = kept.at(*graph.FindPart("B", "A"));
    EXPECT_THAT(ByName(StatisticsOf(below, "").codes, &NamedShare::name),
                ElementsAre(testing::Pair("(no code)", 4.0)));
    EXPECT_THAT(ByName(StatisticsOf(below, "7").codes, &NamedShare::name),
                ElementsAre(testing::Pair("7", 4.0)));
}

TEST(KeptResults, BelowALevelSumsCountAsTheyWereKept)
{
    // Old leaves weigh 1 kg, new ones 2. Level 0: of the leaves the root's own one is new and
    // eleven are old; 1: four are new (1 + 2 + 1), 3 in D and 5 in E old; 2: three in F old; 3:
    // none.
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    const std::map<std::int64_t, std::pair<double, std::size_t>> expected{
        {0, {2 + 11, 2}}, {1, {8 + 8, 2}}, {2, {18 + 3, 1}}, {3, {24, 0}}, {1000000, {24, 0}}};
    for (const auto& [level, figures] : expected) {
        const ComputeResult result = With(now, old, level);
        EXPECT_EQ(result.total.body.mass, figures.first) << level;
        EXPECT_EQ(result.staleTaken, figures.second) << level;
        EXPECT_EQ(result.total.counts.leaves, 12) << level;
    }
}

TEST(KeptResults, LevelsCountFromTheAskedNode)
{
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    // B: its leaf is new, the five in E are old; with one level more E's two are new as well.
    EXPECT_EQ(With(now, old, 0, {}, {"B.1"}).total.body.mass, 2 + 5);
    EXPECT_EQ(With(now, old, 1, {}, {"B.1"}).total.body.mass, 6 + 3);
}

TEST(KeptResults, PartMayCountAnewAboveAndAsKeptBelow)
{
    // A at level 1 has its new 3 kg, the ten in B at level 2 the old 1 kg each.
    const Kept old = Stale(AllSums(ShallowAndDeep(1)));
    const SmallProduct now = ShallowAndDeep(3);
    const ComputeResult result = With(now, old, 1);
    EXPECT_EQ(result.total.body.mass, 3 + 10);
    EXPECT_EQ(result.staleTaken, 1U);
    EXPECT_EQ(With(now, old, 0).total.body.mass, 1 + 10);
    EXPECT_EQ(With(now, old, 2).total.body.mass, 33);
}

TEST(KeptResults, ErrorsOfAPartAddUpAcrossKeptAndNewPieces)
{
    // Weighed: 0.5 % below and above. Piece errors of L together: new 3 kg and ten of 1 kg each
    // give 0.015 + 10 x 0.005 = 0.065; apart sqrt(0.015^2 + 10 x 0.005^2).
    const Kept old = Stale(AllSums(ShallowAndDeep(1)));
    const RootSumSquare rss = With(ShallowAndDeep(3), old, 1).statistics.rss;
    EXPECT_NEAR(rss.together.lower, 0.065, kClose);
    EXPECT_NEAR(rss.apart.lower, std::sqrt(0.000225 + 0.00025), kClose);
}

TEST(KeptResults, MissingSumsAreMade)
{
    Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    const ProductGraph graph(now.product, ShippedMassTypes());
    old.erase(*graph.FindPart("A", "A"));
    old.erase(*graph.FindPart("E", "A"));
    // At level 0 A is made: two new leaves and the old three of D. B is as kept: six old ones.
    EXPECT_EQ(With(now, old, 0).total.body.mass, 2 + 4 + 3 + 6);
    // At level 1 E is made: two new leaves, the old three of F.
    EXPECT_EQ(With(now, old, 1).total.body.mass, 8 + 3 + 4 + 3);
}

TEST(KeptResults, FirstWarningCountsTheStaleOnes)
{
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    // Point masses without a place: what is not known is said before.
    EXPECT_EQ(With(now, old, 0).warnings.at(1),
              "2 sub-assemblies are not up to date and were taken as stored");
    EXPECT_EQ(With(now, old, 2).warnings.at(1),
              "1 sub-assembly is not up to date and was taken as stored");
    EXPECT_THAT(With(now, old, 3).warnings,
                testing::Not(testing::Contains(testing::HasSubstr("up to date"))));
}

TEST(KeptResults, FreshSumsAreNotCountedAsStale)
{
    const SmallProduct now = TwelveLeaves(2);
    const ComputeResult result = With(now, AllSums(now), 0);
    EXPECT_EQ(result.staleTaken, 0U);
    EXPECT_EQ(result.total.body.mass, 24);
}

TEST(KeptResults, SumsAreHandedOutNearestFirstAndOnlyWhereWanted)
{
    const SmallProduct now = TwelveLeaves(2);
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    EXPECT_THAT(PartsOf(now, now.Compute(options)), ElementsAre("R", "A", "B", "D", "E", "F"));
    EXPECT_THAT(PartsOf(now, now.Compute(options, {"B.1"})), ElementsAre("B", "E", "F"));
    const ProductGraph graph(now.product, ShippedMassTypes());
    options.wantsSum = [&](std::uint32_t part) {
        return graph.Parts()[part].identifier == "E";
    };
    EXPECT_THAT(PartsOf(now, now.Compute(options)), ElementsAre("E"));
    EXPECT_THAT(now.Compute().sums, IsEmpty());
}

TEST(KeptResults, WhatWasMadeFromAStaleSumIsNotHandedOut)
{
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    // Down to level 2 all but F are made, yet only A and D from new figures alone.
    EXPECT_THAT(PartsOf(now, With(now, old, 2, options)), ElementsAre("A", "D"));
    EXPECT_THAT(PartsOf(now, With(now, old, 0, options)), IsEmpty());
    EXPECT_THAT(PartsOf(now, With(now, old, 3, options)),
                ElementsAre("R", "A", "B", "D", "E", "F"));
    // A at level 1 was made anew, although the same part counted as kept deeper down.
    EXPECT_THAT(PartsOf(ShallowAndDeep(3),
                        With(ShallowAndDeep(3), Stale(AllSums(ShallowAndDeep(1))), 1, options)),
                ElementsAre("A"));
}

TEST(KeptResults, FilteredAssembliesAreNeitherTakenNorHandedOut)
{
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    ComputeOptions options;
    options.filter.lines.push_back({false, "F.1", "F", "A", {"E.1", "B.1"}});
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    // Without F: B and E are cut and so made anew, 1 + 2 leaves; A counts as kept; the root's leaf.
    const ComputeResult result = With(now, old, 0, options);
    EXPECT_EQ(result.total.body.mass, 6 + 5 + 2);
    EXPECT_EQ(result.staleTaken, 1U);
    EXPECT_THAT(PartsOf(now, With(now, {}, 0, options)), UnorderedElementsAre("A", "D"));
}

TEST(KeptResults, OwnValuesOfAnAssemblyCountWhateverIsKeptBelow)
{
    // A states 50 kg; its centre is lent by the sum below, which was kept at x = 1 and is at 9 now.
    const auto product = [](double x) {
        SmallProduct small;
        small.Put("R", "A");
        small.Put("A", "L", {x, 0, 0});
        small.Set("L", "Weighed",
                  {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
        small.Set("A", "Weighed", {{Fact::Mass, 50}});
        small.Of("A").activeType = "Weighed";
        return small;
    };
    const Kept old = Stale(AllSums(product(1)));
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    const SmallProduct now = product(9);
    const ComputeResult result = With(now, old, 0, options);
    EXPECT_EQ(result.total.body.mass, 50);
    EXPECT_EQ(result.total.body.centre[0], 1);
    EXPECT_EQ(result.staleTaken, 1U);
    EXPECT_THAT(PartsOf(now, result), IsEmpty());
    EXPECT_EQ(With(now, old, 1, options).total.body.centre[0], 9);
}

TEST(KeptResults, StaleSumThatIsInACentreCountsWhereverItStands)
{
    // A states 50 kg; what is below it is made anew from B's sum as it was kept at x = 1, and from
    // one more piece of B: two of one sub-assembly are one.
    const auto product = [](double x) {
        SmallProduct small;
        small.Put("R", "A");
        small.Put("A", "B");
        small.Put("A", "B");
        small.Put("B", "L", {x, 0, 0});
        small.Set("L", "Weighed",
                  {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
        small.Set("A", "Weighed", {{Fact::Mass, 50}});
        small.Of("A").activeType = "Weighed";
        return small;
    };
    const ComputeResult result = With(product(9), Stale(AllSums(product(1))), 1);
    EXPECT_EQ(result.total.body.centre[0], 1);
    EXPECT_EQ(result.staleTaken, 1U);
    EXPECT_TRUE(result.looksAtStale);
    const ComputeResult fresh = With(product(9), AllSums(product(9)), 1);
    EXPECT_EQ(fresh.staleTaken, 0U);
    EXPECT_FALSE(fresh.looksAtStale);
}

TEST(KeptResults, OwnCentreNeedsNothingOfAStaleSum)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 1}});
    const Kept old = Stale(AllSums(small));
    small.Set("A", "Weighed",
              {{Fact::Mass, 50},
               {Fact::CgX, 2},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 1},
               {Fact::Izz, 1},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    small.Of("A").activeType = "Weighed";
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    const ComputeResult result = With(small, old, 0, options);
    EXPECT_EQ(result.staleTaken, 0U);
    EXPECT_TRUE(result.looksAtStale); // since 50 kg were compared with what was kept
    EXPECT_THAT(PartsOf(small, result), ElementsAre("R"));
}

TEST(KeptResults, MostPreciseAsksTheKeptSumWhetherAMassIsMissing)
{
    // A's estimate counts while something below has no mass; that was so when the sum was kept.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Set("A", "Estimated", {{Fact::Mass, 30}});
    const Kept old = Stale(AllSums(small, wbtest::MostPrecise()));
    small.Set("L", "Weighed", {{Fact::Mass, 4}});
    EXPECT_EQ(With(small, old, 0, wbtest::MostPrecise()).total.body.mass, 30);
    EXPECT_EQ(With(small, old, 0, wbtest::MostPrecise()).staleTaken, 1U);
    EXPECT_EQ(With(small, old, 1, wbtest::MostPrecise()).total.body.mass, 4);
}

TEST(KeptResults, UsesOfOneAssemblyThatStateSomethingShareItsSum)
{
    // Two uses of A, one with a choice of its own: both hold the same below.
    const auto product = [](double mass) {
        SmallProduct small;
        small.Put("R", "A");
        small.Put("R", "A").activeType = "Computed";
        small.Put("A", "L");
        small.Set("L", "Weighed", {{Fact::Mass, mass}});
        return small;
    };
    const ComputeResult result = With(product(5), Stale(AllSums(product(1))), 0);
    EXPECT_EQ(result.total.body.mass, 2);
    EXPECT_EQ(result.staleTaken, 1U);
}

TEST(KeptResults, BelowAnImposedRootTheKeptSumsCountToo)
{
    SmallProduct now = TwelveLeaves(2);
    now.Set("R", "Weighed", {{Fact::Mass, 30}});
    now.Of("R").activeType = "Weighed";
    const ComputeResult result = With(now, Stale(AllSums(TwelveLeaves(1))), 1);
    EXPECT_EQ(result.total.body.mass, 30);
    ASSERT_TRUE(result.imposed);
    EXPECT_EQ(result.imposed->below.body.mass, 8 + 8);
}

TEST(KeptResults, WhatIsNoLongerThereStillCountsInWhatWasKept)
{
    // The kept sum knows a material, a code, a mass type and a part that the product has lost.
    SmallProduct before;
    before.Put("R", "A");
    before.Put("A", "L");
    before.Set("L", "Weighed", {{Fact::Mass, 2}});
    before.Of("L").code = "10";
    before.Of("L").material = "Lead";
    Material lead;
    lead.name = "Lead";
    before.product.materials.push_back(lead);
    Kept old = Stale(AllSums(before));
    KeptSum& sum = old.at(1);
    sum.massTypes[0].name = "Gone";
    sum.sharedErrors[0].node = 77;
    SmallProduct now;
    now.Put("R", "A");
    now.Put("A", "M");
    now.Set("M", "Weighed", {{Fact::Mass, 100}});
    const ComputeResult result = With(now, old, 0);
    EXPECT_EQ(result.total.body.mass, 2);
    const Statistics& statistics = result.statistics;
    ASSERT_EQ(statistics.materials.size(), 1U);
    EXPECT_EQ(statistics.materials[0].material, "Lead");
    ASSERT_EQ(statistics.codes.size(), 1U);
    EXPECT_EQ(statistics.codes[0].name, "10");
    ASSERT_EQ(statistics.massTypes.size(), 1U);
    EXPECT_EQ(statistics.massTypes[0].name, "Gone");
    EXPECT_NEAR(statistics.rss.together.lower, 0.01, kClose); // 0.5 % of 2 kg
}

TEST(KeptResults, WhatLooksAtLeavesTakesNoSums)
{
    const Kept old = Stale(AllSums(TwelveLeaves(1)));
    const SmallProduct now = TwelveLeaves(2);
    ComputeOptions options;
    options.uncertainty = true;
    EXPECT_EQ(With(now, old, 0, options).total.body.mass, 24);
    options = {};
    options.contributors = 1;
    EXPECT_EQ(With(now, old, 0, options).total.body.mass, 24);
    options = wbtest::Specified("Weighed");
    options.orActive = true;
    EXPECT_EQ(With(now, old, 0, options).total.body.mass, 24);
}

TEST(KeptResults, OfVeryManyAssembliesOnlyTheNearestAreMade)
{
    // A chain of 400 assemblies: what stands below all of them together is 200 times the product.
    SmallProduct chain;
    constexpr int kDeep = 400;
    for (int i = 0; i < kDeep; ++i) {
        chain.Put("A" + std::to_string(i), "A" + std::to_string(i + 1));
    }
    chain.Set("A" + std::to_string(kDeep), "Weighed", {{Fact::Mass, 1}});
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    const auto parts = PartsOf(chain, chain.Compute(options));
    ASSERT_GE(parts.size(), 3U);
    EXPECT_LE(parts.size(), 10U);
    EXPECT_EQ(parts[0], "A0");
    EXPECT_EQ(parts[1], "A1");
}

TEST(KeptResults, GraphOfACancelledComputationIsOfNoUse)
{
    const SmallProduct small = TwelveLeaves(1);
    const ProductGraph graph(small.product, ShippedMassTypes(), [] { return true; });
    EXPECT_EQ(graph.Error(), "The computation was cancelled.");
    EXPECT_EQ(Compute(graph, {}, {}).error, "The computation was cancelled.");
}

TEST(KeptResults, SumsOfACancelledComputationAreNotHandedOut)
{
    const SmallProduct small = TwelveLeaves(1);
    std::atomic<bool> cancel = false;
    ComputeOptions options;
    options.wantsSum = [&](std::uint32_t) {
        return cancel = true;
    };
    options.cancelled = [&] {
        return cancel.load();
    };
    const ComputeResult result = small.Compute(options);
    EXPECT_EQ(result.error, "The computation was cancelled.");
    EXPECT_THAT(result.sums, IsEmpty());
}

TEST(KeptResults, CodeOfWhatHasNothingLeftForItHasNoShare)
{
    // All of A's mass has the code of B; A itself has another one.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 4}});
    small.Of("A").code = "10";
    small.Of("B").code = "20";
    for (const ComputeResult& result : {With(small, AllSums(small), 0), small.Compute({})}) {
        EXPECT_THAT(ByName(result.statistics.codes, &NamedShare::name),
                    ElementsAre(testing::Pair("20", 4.0)));
    }
}

TEST(KeptResults, WhatIsBelowOwnValuesIsInNoSum)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "I");
    small.Put("I", "L");
    small.Set("I", "Weighed", {{Fact::Mass, 3}});
    small.Of("I").activeType = "Weighed";
    small.Set("L", "Estimated", {{Fact::Mass, 1}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const KeptSum sum = AllSums(small).at(*graph.FindPart("A", "A"));
    EXPECT_THAT(ByName(sum.massTypes, &NamedShare::name),
                ElementsAre(testing::Pair("Weighed", 3.0)));
    EXPECT_THAT(ByName(sum.materials, &MaterialShare::material),
                ElementsAre(testing::Pair("(imposed)", 3.0)));
}

TEST(KeptResults, EachPartsSumIsHandedOutOnce)
{
    // One use of A states something of its own, so that A has two nodes.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("R", "A").sets.push_back(SmallProduct::Made("Target", {{Fact::Mass, 9}}));
    small.Put("A", "L");
    small.Set("L", "Weighed", {{Fact::Mass, 4}});
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    EXPECT_THAT(PartsOf(small, small.Compute(options)), ElementsAre("R", "A"));
}

TEST(KeptResults, AssembliesThatStandAtVeryManyPlacesAreGoneThroughOnce)
{
    // Each assembly holds the next one twice: 2^40 places of the last one.
    SmallProduct small;
    constexpr int kDeep = 40;
    const auto name = [](int depth) {
        return "N" + std::to_string(depth);
    };
    for (int depth = 0; depth < kDeep; ++depth) {
        small.Put(name(depth), name(depth + 1));
        small.Put(name(depth), name(depth + 1));
    }
    small.Set(name(kDeep), "Weighed", {{Fact::Mass, 1}});
    ComputeOptions options;
    options.wantsSum = [](std::uint32_t) {
        return true;
    };
    EXPECT_GT(small.Compute(options).sums.size(), 2U);
    // Where all sums are there already nobody stops because of the work that was done.
    std::size_t asked = 0;
    options.wantsSum = [&](std::uint32_t) {
        ++asked;
        return false;
    };
    EXPECT_TRUE(small.Compute(options).sums.empty());
    EXPECT_EQ(asked, 40U);
}

TEST(KeptResults, TypeThatOnlyAKeptSumKnowsIsTheLastOne)
{
    const SmallProduct small = TwelveLeaves(1);
    Kept kept = Stale(AllSums(small));
    const ProductGraph graph(small.product, ShippedMassTypes());
    kept.at(*graph.FindPart("A", "A")).massTypes = {{"Guessed", 5}};
    const std::vector<NamedShare> types = With(small, kept, 0).statistics.massTypes;
    ASSERT_EQ(types.size(), 2U);
    EXPECT_EQ(types[1].name, "Guessed");
    EXPECT_EQ(types[1].mass, 5);
}

TEST(KeptResults, ListsOfASumHaveTheirOrder)
{
    SmallProduct small;
    for (const auto& [part, mass] : {std::pair("S", 2.0), {"T", 3.0}, {"U", 1.0}}) {
        small.Put("A", part);
        small.Set(part, "Weighed", {{Fact::Mass, mass}});
        small.Of(part).code = part;
    }
    const KeptSum sum = AllSums(small).at(0);
    std::string codes;
    for (const NamedShare& share : sum.codes) {
        codes += share.name;
    }
    EXPECT_EQ(codes, "TSU");
    for (const auto& [part, each] : AllSums(Rich())) {
        EXPECT_TRUE(std::ranges::is_sorted(each.sharedErrors, {}, &KeptSum::SharedErrors::node));
    }
}

TEST(KeptResults, ActiveSumLendsWhateverThePrecision)
{
    // L counts at x = 1 by its active values and at x = 5 by the others; A states a mass alone.
    // What it is lent is made from what is there now, so nothing stale is in it.
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "L");
    small.Set("L", "Estimated", {{Fact::Mass, 1}, {Fact::CgX, 1}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 5}, {Fact::CgY, 0}, {Fact::CgZ, 0}});
    small.Of("L").activeType = "Estimated";
    small.Set("A", "Weighed", {{Fact::Mass, 50}});
    const ComputeOptions weighed = wbtest::Specified("Weighed");
    const ComputeResult result = With(small, Stale(AllSums(small, weighed)), 0, weighed);
    EXPECT_EQ(result.total.body.mass, 50);
    EXPECT_EQ(result.total.body.centre[0], 1);
    EXPECT_EQ(result.staleTaken, 0U);
    EXPECT_TRUE(result.looksAtStale);
}

TEST(KeptResults, InertiaOfWhatStandsNowhereIsKnownIfThatOfEachIs)
{
    // Nothing has a centre: 3 + 4 where both state an inertia; unknown where one does not.
    SmallProduct small;
    small.Put("R", "B");
    small.Put("B", "L");
    small.Put("B", "M");
    const auto facts = [](double inertia) {
        return SmallProduct::Made("Weighed", {{Fact::Mass, 1},
                                              {Fact::Ixx, inertia},
                                              {Fact::Iyy, inertia},
                                              {Fact::Izz, inertia},
                                              {Fact::Ixy, 0},
                                              {Fact::Ixz, 0},
                                              {Fact::Iyz, 0}});
    };
    small.Of("L").sets.push_back(facts(3));
    SmallProduct lacking = small;
    small.Of("M").sets.push_back(facts(4));
    lacking.Set("M", "Weighed", {{Fact::Mass, 1}});
    const ProductGraph graph(small.product, ShippedMassTypes());
    const std::uint32_t below = *graph.FindPart("B", "A");
    EXPECT_EQ(TotalOf(AllSums(small).at(below)).body.inertia[0], 7);
    EXPECT_FALSE(IsKnown(TotalOf(AllSums(lacking).at(below)).body.inertia[0]));
}

TEST(KeptResults, PartAtTwoLevelsCountsInEachAsItsLevelSays)
{
    // A stands at level 1, and below C at level 2; its D so at 2 and at 3. A piece of D weighs 1 kg
    // as kept and 2 kg as new: at level 2 it is new in the former and as kept in the latter.
    const auto product = [](double mass) {
        SmallProduct small;
        small.Put("R", "A");
        small.Put("R", "C");
        small.Put("C", "A");
        small.Put("A", "D");
        small.Put("D", "L");
        small.Set("L", "Weighed", {{Fact::Mass, mass}});
        return small;
    };
    const Kept old = Stale(AllSums(product(1)));
    EXPECT_EQ(With(product(2), old, 1).total.body.mass, 2);
    EXPECT_EQ(With(product(2), old, 2).total.body.mass, 3);
    EXPECT_EQ(With(product(2), old, 3).total.body.mass, 4);
}

TEST(KeptResults, LevelMayBeDeeperThanAnyProduct)
{
    // Forty levels of two each: 2^40 places of the last one, as kept or new.
    const auto product = [](double mass) {
        SmallProduct small;
        for (int depth = 0; depth < 40; ++depth) {
            for (int use = 0; use < 2; ++use) {
                small.Put("N" + std::to_string(depth), "N" + std::to_string(depth + 1));
            }
        }
        small.Put("N40", "L");
        small.Set("L", "Weighed", {{Fact::Mass, mass}});
        return small;
    };
    const SmallProduct now = product(2);
    const ProductGraph graph(now.product, ShippedMassTypes());
    // A kept sum of the last one that holds nothing: where it counted the mass would be another
    // one.
    Kept kept;
    kept[*graph.FindPart("N40", "A")].isStale = true;
    EXPECT_EQ(With(now, kept, std::numeric_limits<std::int64_t>::max()).total.body.mass,
              std::ldexp(2.0, 40));
}
