#include "RandomProduct.h"

#include <cmath>

using namespace wb;
using wbtest::ExpectSame;
using wbtest::RandomProduct;

namespace
{
constexpr unsigned kProducts = 60;
constexpr double kBodyShare = 1e-12;
constexpr double kSigmaShare = 1e-9;
constexpr double kNothing = 1e-12; // an error of one part alone cancels in the centre

/// A random product in which no use says anything of its own and every leaf stands somewhere.
RandomProduct Shared(unsigned seed)
{
    RandomProduct random(seed);
    for (Use& use : random.product.uses) {
        use.sets.clear();
        use.material.clear();
        use.activeType.clear();
        use.density = kUnknown;
    }
    for (Part& part : random.product.parts) {
        part.activeType.clear();
        std::erase_if(part.sets, [](const ValueSet& set) { return set[Fact::Mass] < 0; });
    }
    return random;
}

Placement Inverse(const Placement& placement)
{
    Placement inverse;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            inverse.rotation[i][k] = placement.rotation[k][i];
        }
    }
    inverse.shift = Placed(placement.shift, inverse);
    for (double& shift : inverse.shift) {
        shift = -shift;
    }
    return inverse;
}

/// Every leaf right below the root, as often as it is there.
Product Flattened(const Product& product)
{
    Product flat = product;
    flat.uses.clear();
    const auto below = product.UsesByParent();
    const auto open = [&](const auto& self, std::uint32_t part, const Placement& placement,
                          int pieces) -> void {
        for (const std::uint32_t number : below[part]) {
            Use use = product.uses[number];
            use.placement = placement * use.placement;
            use.quantity = pieces * use.Pieces();
            if (!below[use.part].empty()) {
                self(self, use.part, use.placement, use.quantity);
                continue;
            }
            use.parent = 0;
            use.instance = std::to_string(flat.uses.size());
            flat.uses.push_back(use);
        }
    };
    open(open, 0, {}, 1);
    return flat;
}

/// Some uses of some assemblies stand in a new assembly between, turned and shifted at random.
Product Regrouped(RandomProduct& random, std::size_t times)
{
    Product product = random.product;
    for (std::size_t i = 0; i < times; ++i) {
        const std::uint32_t parent = product.uses[random.Below(product.uses.size())].parent;
        Part between;
        between.identifier = "between " + std::to_string(i);
        between.version = "A";
        const auto number = static_cast<std::uint32_t>(product.parts.size());
        product.parts.push_back(between);
        Use use;
        use.parent = parent;
        use.part = number;
        use.instance = between.identifier;
        use.placement.shift = {random.Between(-900, 900), random.Between(-900, 900), 7};
        use.placement.rotation =
            RotationFromAngles(random.Between(0, 360), random.Between(0, 360), 9);
        bool moved = false;
        for (Use& other : product.uses) {
            if (other.parent == parent && (!moved || random.Chance(0.5))) {
                other.parent = number;
                other.placement = Inverse(use.placement) * other.placement;
                moved = true;
            }
        }
        product.uses.push_back(use);
    }
    return product;
}

/// Nothing is used twice: every use has a copy of its part, and of all below it.
Product Copied(const Product& product)
{
    Product copies = product;
    copies.parts.resize(1);
    copies.uses.clear();
    const auto below = product.UsesByParent();
    const auto copy = [&](const auto& self, std::uint32_t from, std::uint32_t to) -> void {
        for (const std::uint32_t number : below[from]) {
            Use use = product.uses[number];
            const std::uint32_t part = use.part;
            use.parent = to;
            use.part = static_cast<std::uint32_t>(copies.parts.size());
            copies.parts.push_back(product.parts[part]);
            copies.parts.back().version = std::to_string(use.part);
            copies.uses.push_back(use);
            self(self, part, use.part);
        }
    };
    copy(copy, 0, 0);
    return copies;
}

/// By the leaves alone, so that nothing imposed hides a cut.
ComputeResult OfLeaves(const Product& product, bool apart)
{
    ComputeOptions options = wbtest::Specified("Computed");
    options.uncertainty = true;
    options.errorsApart = apart;
    return Compute(ProductGraph(product, ShippedMassTypes()), {}, options);
}

template <typename Figures>
void ExpectFigures(const Figures& one, const Figures& other)
{
    double largest = 0;
    for (const double value : other) {
        largest = std::max(largest, std::abs(value));
    }
    for (std::size_t i = 0; i < one.size(); ++i) {
        EXPECT_NEAR(one[i], other[i], kSigmaShare * largest + kNothing) << i;
    }
}

enum class Errors
{
    TheSame,
    Others // parts that were one are two now, and err each for itself
};

void ExpectSameAnswer(const Product& one, const Product& other, Errors errors)
{
    for (const bool apart : {false, true}) {
        const auto left = OfLeaves(one, apart);
        const auto right = OfLeaves(other, apart);
        ASSERT_EQ(left.total.HasCentre(), right.total.HasCentre());
        EXPECT_EQ(left.total.counts.leaves, right.total.counts.leaves);
        EXPECT_EQ(left.total.counts.withoutMass, right.total.counts.withoutMass);
        if (!left.total.HasCentre()) {
            continue;
        }
        const Inertia& inertia = left.total.body.inertia;
        if (inertia[0] + inertia[1] + inertia[2] < kNothing) {
            continue; // a point: what rounding leaves of nothing
        }
        ExpectSame(left.total.body, right.total.body, kBodyShare);
        const Statistics& shares = left.statistics;
        ASSERT_EQ(shares.materials.size(), right.statistics.materials.size());
        for (std::size_t i = 0; i < shares.materials.size(); ++i) {
            EXPECT_EQ(shares.materials[i].material, right.statistics.materials[i].material);
            EXPECT_NEAR(shares.materials[i].mass, right.statistics.materials[i].mass, 1e-10);
        }
        if (apart || errors == Errors::TheSame) {
            ExpectFigures(std::array{left.uncertainty->mass}, std::array{right.uncertainty->mass});
            ExpectFigures(left.uncertainty->centre, right.uncertainty->centre);
            ExpectFigures(left.uncertainty->inertia, right.uncertainty->inertia);
            const auto& mine = left.statistics.rss;
            const auto& its = right.statistics.rss;
            ExpectFigures(std::array{mine.together.lower, mine.apart.upper},
                          errors == Errors::TheSame
                              ? std::array{its.together.lower, its.apart.upper}
                              : std::array{mine.together.lower, its.apart.upper});
        }
    }
}
} // namespace

TEST(ComputeCut, TreeAnswersAsItsFlattenedLeaves)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        SCOPED_TRACE(seed);
        const auto random = Shared(seed);
        ExpectSameAnswer(random.product, Flattened(random.product), Errors::TheSame);
    }
}

TEST(ComputeCut, AnyCutOfTheTreeAnswersTheSame)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        SCOPED_TRACE(seed);
        auto random = Shared(seed);
        ExpectSameAnswer(random.product, Regrouped(random, 1 + random.Below(8)), Errors::TheSame);
    }
}

TEST(ComputeCut, CopiesOfASharedPartAnswerAsThePart)
{
    for (unsigned seed = 0; seed < kProducts; ++seed) {
        SCOPED_TRACE(seed);
        const auto random = Shared(seed);
        ExpectSameAnswer(random.product, Copied(random.product), Errors::Others);
    }
}
