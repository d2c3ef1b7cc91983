#include "BodyTesting.h"

#include "WBRollUpTree.h"

#include <random>
#include <vector>

using namespace wb;
using wbtest::ExpectSame;

namespace
{
/// A tree of bodies in any shape: up to seven children a node, some of them leaves.
struct Tree
{
    std::vector<Body> records;
    std::vector<std::uint32_t> sizes;
    std::vector<std::uint32_t> parents;
    std::vector<Placement> placements;
    std::mt19937 random{7};

    double Number(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random);
    }

    void Grow(std::uint32_t parent, int levels)
    {
        const auto here = static_cast<std::uint32_t>(records.size());
        records.push_back({Number(0.1, 3),
                           Number(0, 1),
                           Number(0, 1),
                           {Number(-500, 500), Number(-500, 500), Number(-500, 500)},
                           {Number(2, 3), Number(2, 3), Number(2, 3), 0.1, 0.2, 0.3}});
        Placement placement;
        placement.rotation = RotationFromAngles(Number(0, 360), Number(0, 360), Number(0, 360));
        placement.shift = {Number(-900, 900), Number(-900, 900), Number(-900, 900)};
        placements.push_back(placement);
        parents.push_back(parent);
        sizes.push_back(1);
        const int children = levels == 0 ? 0 : static_cast<int>(Number(0, 8));
        for (int i = 0; i < children; ++i) {
            Grow(here, levels - 1);
        }
        sizes[here] = static_cast<std::uint32_t>(records.size()) - here;
    }
};

Tree Grown()
{
    Tree tree;
    while (tree.records.size() < 500) {
        tree = Tree{{}, {}, {}, {}, tree.random};
        tree.Grow(0, 5);
    }
    return tree;
}

/// Each record's place in the axes of the first one.
std::vector<Placement> Standing(const Tree& tree)
{
    std::vector<Placement> standing{Placement()};
    for (std::size_t i = 1; i < tree.records.size(); ++i) {
        standing.push_back(standing[tree.parents[i]] * tree.placements[i]);
    }
    return standing;
}
} // namespace

TEST(WBRollUpTree, TreeEqualsItsFlattenedLeaves)
{
    Tree tree = Grown();
    const auto standing = Standing(tree);
    BodySum leaves;
    for (std::size_t i = 0; i < tree.records.size(); ++i) {
        if (tree.sizes[i] == 1) {
            leaves.Add(Placed(tree.records[i], standing[i]));
        }
    }
    RollUpTree(tree.records, tree.sizes, tree.placements);
    ExpectSame(tree.records[0], leaves.Total());
}

TEST(WBRollUpTree, CommonAxesGiveTheSameAsAPlacementARecord)
{
    Tree tree = Grown();
    const auto standing = Standing(tree);
    std::vector<Body> common;
    for (std::size_t i = 0; i < tree.records.size(); ++i) {
        common.push_back(Placed(tree.records[i], standing[i]));
    }
    RollUpTree(tree.records, tree.sizes, tree.placements);
    RollUpTree(common, tree.sizes);
    for (std::size_t i = 0; i < common.size(); ++i) {
        ExpectSame(common[i], Placed(tree.records[i], standing[i]));
    }
}

TEST(WBRollUpTree, ParentsHoldNothingOfTheirOwn)
{
    std::vector<Body> records{{99, 9, 9, {9, 9, 9}, {9, 9, 9, 9, 9, 9}}, {1, 0, 0, {4, 0, 0}, {}}};
    RollUpTree(records, std::vector<std::uint32_t>{2, 1});
    EXPECT_EQ(records[0], records[1]);
}

TEST(WBRollUpTree, ChangeOfALeafIsPutRightAboveIt)
{
    Tree tree = Grown();
    std::vector<Body> whole = tree.records;
    RollUpTree(tree.records, tree.sizes);
    const auto leaf = static_cast<std::uint32_t>(tree.records.size() - 1);
    tree.records[leaf].mass += 40;
    RollUpAbove(tree.records, tree.sizes, tree.parents, leaf);
    whole[leaf].mass += 40;
    RollUpTree(whole, tree.sizes);
    EXPECT_EQ(tree.records, whole);
}

TEST(WBRollUpTree, MoreChildrenThanAreTakenAtOnceAddUp)
{
    // 1,000 bodies of 1 kg at x = 0 .. 999 m: centre 499.5 m, iyy = 1000 (1000^2 - 1) / 12.
    constexpr std::uint32_t kChildren = 1000;
    std::vector<Body> records(kChildren + 1, Body{1, 0, 0, {}, {}});
    std::vector<std::uint32_t> sizes(kChildren + 1, 1);
    std::vector<Placement> placements(kChildren + 1);
    sizes[0] = kChildren + 1;
    for (std::uint32_t i = 1; i <= kChildren; ++i) {
        placements[i].shift[0] = 1000.0 * (i - 1);
    }
    RollUpTree(records, sizes, placements);
    const double across = 1000.0 * 999999.0 / 12;
    ExpectSame(records[0], {1000, 0, 0, {499500, 0, 0}, {0, across, across, 0, 0, 0}});
}

TEST(WBRollUpTree, ProductFarOffTheOriginKeepsItsInertia)
{
    // The same in long double, about the origin of the product, then all of it 1,000 m away.
    Tree tree = Grown();
    for (Body& body : tree.records) {
        for (double& coordinate : body.centre) {
            coordinate += 1e6;
        }
    }
    long double mass = 0;
    std::array<long double, 3> centre{};
    for (std::size_t i = 0; i < tree.records.size(); ++i) {
        if (tree.sizes[i] == 1) {
            const Body& body = tree.records[i];
            mass += body.mass;
            for (std::size_t k = 0; k < 3; ++k) {
                centre[k] += static_cast<long double>(body.mass) * (body.centre[k] - 1e6L);
            }
        }
    }
    std::array<long double, 6> inertia{};
    for (std::size_t i = 0; i < tree.records.size(); ++i) {
        if (tree.sizes[i] > 1) {
            continue;
        }
        const Body& body = tree.records[i];
        std::array<long double, 3> d{};
        for (std::size_t k = 0; k < 3; ++k) {
            d[k] = (body.centre[k] - 1e6L - centre[k] / mass) / 1000;
        }
        const long double kilograms = body.mass;
        inertia[0] += body.inertia[0] + kilograms * (d[1] * d[1] + d[2] * d[2]);
        inertia[1] += body.inertia[1] + kilograms * (d[0] * d[0] + d[2] * d[2]);
        inertia[2] += body.inertia[2] + kilograms * (d[0] * d[0] + d[1] * d[1]);
        inertia[3] += body.inertia[3] + kilograms * d[0] * d[1];
        inertia[4] += body.inertia[4] + kilograms * d[0] * d[2];
        inertia[5] += body.inertia[5] + kilograms * d[1] * d[2];
    }
    RollUpTree(tree.records, tree.sizes);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(tree.records[0].inertia[i], static_cast<double>(inertia[i]),
                    1e-12 * static_cast<double>(inertia[0]));
    }
}
