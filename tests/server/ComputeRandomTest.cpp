#include "PlainRules.h"
#include "RandomProduct.h"

#include <cmath>

using namespace wb;
using wbtest::MostPrecise;
using wbtest::PlainItem;
using wbtest::PlainRules;
using wbtest::PlainTotal;
using wbtest::RandomProduct;
using wbtest::Real;
using wbtest::Specified;

namespace
{
constexpr unsigned kProducts = 60;
// Of the largest figure of its kind; a negative mass may cost a few digits.
constexpr double kShare = 1e-9;
constexpr double kNothing = 1e-12;

std::vector<ComputeOptions> AllPrecisions()
{
    std::vector<ComputeOptions> all{{}, MostPrecise()};
    for (const char* type : {"Computed", "Target", "Estimated", "Calculated", "Weighed"}) {
        all.push_back(Specified(type));
        all.push_back(Specified(type));
        all.back().orActive = true;
    }
    return all;
}

double Number(Real value)
{
    return static_cast<double>(value);
}

/// Figures of one kind, each to a share of the largest of them.
template <std::size_t N>
void ExpectKind(const std::array<Real, N>& expected, const std::array<double, N>& found)
{
    Real largest = 0;
    for (const Real value : expected) {
        largest = std::max(largest, std::abs(value));
    }
    for (std::size_t i = 0; i < N; ++i) {
        EXPECT_NEAR(found[i], Number(expected[i]), kShare * Number(largest) + kNothing) << i;
    }
}

template <typename Map, typename Shares, typename Key>
void ExpectShares(const Map& expected, const Shares& shares, double mass, Key key)
{
    Real sum = 0;
    std::map<typename Map::key_type, double> found;
    for (const auto& share : shares) {
        EXPECT_TRUE(found.emplace(key(share), share.mass).second) << "listed once";
        sum += share.mass;
    }
    EXPECT_NEAR(Number(sum), mass, kShare * (1 + std::abs(mass)));
    EXPECT_EQ(found.size(), expected.size());
    for (const auto& [name, value] : expected) {
        if (!found.contains(name)) {
            ADD_FAILURE() << "not listed: " << testing::PrintToString(name) << " of "
                          << testing::PrintToString(found);
            continue;
        }
        EXPECT_NEAR(found[name], Number(value), kShare * (1 + std::abs(mass)));
    }
}

void ExpectStatistics(const std::vector<PlainItem>& items, const ComputeResult& result,
                      const Product& product)
{
    std::map<std::tuple<std::string, int, double>, Real> materials;
    std::map<std::string, Real> types;
    std::map<std::string, Real> codes;
    Real growth = 0;
    for (const PlainItem& item : items) {
        if (!item.set.mass) {
            continue;
        }
        const Real mass = item.pieces * *item.set.mass;
        if (item.material.empty()) {
            materials[{item.assembly ? "(imposed)" : "(no material)", 3, 0.0}] += mass;
        } else {
            materials[{item.material, item.set.dimension, Number(item.set.density)}] += mass;
        }
        types[item.set.type] += mass;
        codes[item.code] += mass;
        const double pct = product.parts[item.part].growthPct;
        growth += IsKnown(pct) ? mass * pct / 100 : 0;
    }
    const double mass = IsKnown(result.total.body.mass) ? result.total.body.mass : 0.0;
    const Statistics& statistics = result.statistics;
    ExpectShares(materials, statistics.materials, mass, [](const MaterialShare& share) {
        return std::tuple(share.material, static_cast<int>(share.dimension), share.density);
    });
    const auto name = [](const NamedShare& share) {
        return share.name;
    };
    ExpectShares(types, statistics.massTypes, mass, name);
    ExpectShares(codes, statistics.codes, mass, name);
    EXPECT_NEAR(statistics.growthAllowance, Number(growth), kShare * (1 + std::abs(mass)));
}

void ExpectUncertainty(const std::array<Real, 10>& expected, const Uncertainty& found)
{
    const auto from = [&](std::size_t first, auto figures) {
        std::copy_n(expected.begin() + static_cast<std::ptrdiff_t>(first), figures.size(),
                    figures.begin());
        return figures;
    };
    ExpectKind(from(0, std::array<Real, 1>{}), std::array{found.mass});
    ExpectKind(from(1, std::array<Real, 3>{}), found.centre);
    ExpectKind(from(4, std::array<Real, 6>{}), found.inertia);
}

void ExpectTotal(const PlainTotal& expected, const std::vector<PlainItem>& items, bool asksItem,
                 const Total& total)
{
    const bool some =
        std::ranges::any_of(items, [](const PlainItem& item) { return item.set.mass.has_value(); });
    EXPECT_EQ(total.HasMass(), some || items.empty());
    EXPECT_EQ(total.counts.leaves, Number(expected.items));
    EXPECT_EQ(total.counts.withoutMass, Number(expected.missing));
    EXPECT_NEAR(total.counts.massWithoutCentre, Number(expected.withoutCentre), kShare);
    EXPECT_NEAR(total.counts.massWithoutInertia, Number(expected.withoutInertia), kShare);
    ASSERT_EQ(total.HasCentre(), expected.centre.has_value());
    // Of an item itself, what nobody states stays unknown; a sum takes it as a point.
    const bool inertia =
        asksItem ? items[0].set.mass && items[0].set.inertia : expected.inertia.has_value();
    EXPECT_EQ(total.HasInertia(), inertia);
    if (some) {
        ExpectKind(std::array{expected.mass, expected.lower, expected.upper},
                   std::array{total.body.mass, total.body.lower, total.body.upper});
    }
    if (some && expected.centre) {
        ExpectKind(*expected.centre, total.body.centre);
    }
    if (some && expected.inertia && inertia) {
        ExpectKind(*expected.inertia, total.body.inertia);
    }
}

/// Asks for one node and compares everything with the plain rules.
void ExpectPlain(const RandomProduct& random, const ProductGraph& graph, ComputeOptions options,
                 const std::vector<std::uint32_t>& path)
{
    PlainRules rules(random.product, graph.Types(), options);
    const auto items = rules.Items(path);
    options.uncertainty = options.kept == nullptr; // it looks at leaves, so it would take no sums
    for (const bool apart : {false, true}) {
        options.errorsApart = apart;
        const auto asked = graph.FindPath(0, random.Names(path));
        const auto result = Compute(graph, *asked, options);
        ASSERT_EQ(result.error, "");
        ExpectTotal(PlainRules::Sum(items), items, rules.AsksItem(), result.total);
        if (options.uncertainty && result.total.HasCentre()) {
            ExpectUncertainty(rules.Sigmas(items, apart), *result.uncertainty);
        }
        const auto rss = rules.RootSumSquare(items, apart);
        const auto& found = apart ? result.statistics.rss.apart : result.statistics.rss.together;
        EXPECT_NEAR(found.lower, rss.lower, kShare * (1 + rss.lower));
        EXPECT_NEAR(found.upper, rss.upper, kShare * (1 + rss.upper));
        ExpectStatistics(items, result, random.product);
    }
}
} // namespace

TEST(ComputeRandom, AnyProductAnswersAsThePlainRulesDo)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        RandomProduct random(seed);
        const ProductGraph graph(random.product, ShippedMassTypes());
        ASSERT_EQ(graph.Error(), "");
        for (const ComputeOptions& options : AllPrecisions()) {
            SCOPED_TRACE("product " + std::to_string(seed) + ", precision " +
                         std::to_string(static_cast<int>(options.precision)) + options.massType +
                         (options.orActive ? " or active" : ""));
            ExpectPlain(random, graph, options, {});
            const auto path = random.SomePath();
            SCOPED_TRACE("below, " + std::to_string(path.size()) + " levels");
            ExpectPlain(random, graph, options, path);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

TEST(ComputeRandom, AnyFilterLeavesWhatThePlainRulesLeave)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        RandomProduct random(1000 + seed);
        const ProductGraph graph(random.product, ShippedMassTypes());
        for (ComputeOptions options : AllPrecisions()) {
            const std::size_t lines = 1 + random.Below(4);
            for (std::size_t i = 0; i < lines; ++i) {
                options.filter.lines.push_back(random.SomeLine());
            }
            SCOPED_TRACE("product " + std::to_string(seed) + ", precision " +
                         std::to_string(static_cast<int>(options.precision)) + options.massType);
            ExpectPlain(random, graph, options, {});
            ExpectPlain(random, graph, options, random.SomePath());
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

TEST(ComputeRandom, SumsThatWereKeptAnswerAsTheyDidWhenTheyWereMade)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        RandomProduct random(2000 + seed);
        const ProductGraph graph(random.product, ShippedMassTypes());
        for (ComputeOptions options : AllPrecisions()) {
            if (options.orActive) {
                continue; // looks at single leaves, so it takes no sums
            }
            SCOPED_TRACE("product " + std::to_string(seed) + ", precision " +
                         std::to_string(static_cast<int>(options.precision)) + options.massType);
            options.wantsSum = [](std::uint32_t) {
                return true;
            };
            std::unordered_map<std::uint32_t, KeptSum> kept;
            for (const auto& made : Compute(graph, {}, options).sums) {
                kept.emplace(made.part, made.sum);
            }
            options.wantsSum = nullptr;
            const auto path = random.SomePath();
            options.kept = &kept;
            ExpectPlain(random, graph, options, {});
            ExpectPlain(random, graph, options, path);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}
