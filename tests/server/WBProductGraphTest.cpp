#include "WBProductGraph.h"

#include "ComputeTesting.h"

using namespace wb;
using wbtest::ExpectSame;
using wbtest::SmallProduct;

namespace
{
std::unique_ptr<ProductGraph> GraphOf(const SmallProduct& small)
{
    return std::make_unique<ProductGraph>(small.product, ShippedMassTypes());
}

/// A chain of assemblies, each in the next, with 1 kg at its end.
SmallProduct Chain(std::uint32_t length)
{
    SmallProduct small;
    for (std::uint32_t i = 0; i < length; ++i) {
        Part part;
        part.identifier = "P" + std::to_string(i);
        part.version = "A";
        small.product.parts.push_back(part);
        if (i > 0) {
            Use use;
            use.parent = i - 1;
            use.part = i;
            use.instance = "i";
            use.placement.shift = {1, 0, 0};
            small.product.uses.push_back(use);
        }
    }
    small.product.parts.back().sets.push_back(SmallProduct::Made(
        "Weighed", {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}}));
    return small;
}
} // namespace

TEST(WBProductGraph, PartIsFoundByIdentifierAndVersion)
{
    SmallProduct small;
    small.Put("R", "L");
    const auto graph = GraphOf(small);
    EXPECT_EQ(graph->FindPart("L", "A"), 1U);
    EXPECT_FALSE(graph->FindPart("L", "B"));
    EXPECT_FALSE(graph->FindPart("Q", "A"));
}

TEST(WBProductGraph, PathLeadsToTheNodeOfItsLastUse)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Put("A", "L").activeType = "Estimated";
    const auto graph = GraphOf(small);
    EXPECT_EQ(graph->NodeAt(*graph->FindPath(0, {})), 0U);
    EXPECT_EQ(graph->NodeAt(*graph->FindPath(0, {"A.1", "L.1"})), 2U);
    const std::uint32_t own = graph->NodeAt(*graph->FindPath(0, {"A.1", "L.2"}));
    EXPECT_EQ(own, 3U) << "a use that states something is a node behind the parts";
    EXPECT_EQ(graph->Nodes()[own].part, 2U);
    EXPECT_FALSE(graph->FindPath(0, {"L.1"}));
}

TEST(WBProductGraph, UsesStandTogetherBelowTheirParentInTheirOrder)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "L");
    small.Put("R", "L").quantity = 3;
    const auto graph = GraphOf(small);
    const auto& root = graph->Parts()[0];
    ASSERT_EQ(root.useCount, 2U);
    EXPECT_EQ(graph->InstanceOf(root.firstUse), "A.1");
    EXPECT_EQ(graph->InstanceOf(root.firstUse + 1), "L.1");
    EXPECT_EQ(graph->UsesOf(root)[1].pieces, 3);
}

TEST(WBProductGraph, ProductMayBeAsDeepAsMemoryAllows)
{
    constexpr std::uint32_t kLevels = 100000;
    ComputeOptions options;
    options.uncertainty = true;
    options.errorsApart = true;
    options.filter.lines.push_back({true, "i", "P" + std::to_string(kLevels - 1), "A",
                                    std::vector<std::string>(kLevels - 2, "i")});
    const auto result = Chain(kLevels).Compute(options);
    EXPECT_EQ(result.total.body.mass, 1);
    EXPECT_EQ(result.total.body.centre[0], kLevels - 1);
    EXPECT_NEAR(result.uncertainty->mass, 0.01 / std::sqrt(12), 1e-12);
}

TEST(WBProductGraph, MorePiecesThanAnIntegerHoldsAreCounted)
{
    // 70 levels, each of which holds the next one twice: 2^70 leaves.
    SmallProduct small = Chain(71);
    for (Use& use : small.product.uses) {
        use.quantity = 2;
    }
    EXPECT_EQ(small.Compute().total.counts.leaves, std::pow(2.0, 70));
}

TEST(WBProductGraph, ProductFarOffTheOriginKeepsItsFiguresAndUncertainties)
{
    // Two assemblies of two leaves; then all of it 1,000 m away.
    SmallProduct small;
    small.Put("R", "S");
    small.Put("S", "A", {100, 200, 300});
    Use& turned = small.Put("S", "A", {-400, 0, 70});
    turned.placement.rotation = RotationFromAngles(10, 20, 30);
    small.Put("A", "L", {50, 0, 0});
    small.Put("A", "L", {0, -300, 80});
    small.Set("L", "Weighed",
              {{Fact::Mass, 2},
               {Fact::SigmaMass, 0.1},
               {Fact::CgX, 1},
               {Fact::CgY, 2},
               {Fact::CgZ, 3},
               {Fact::SigmaCgX, 4},
               {Fact::SigmaCgY, 5},
               {Fact::SigmaCgZ, 6},
               {Fact::Ixx, 0.01},
               {Fact::Iyy, 0.01},
               {Fact::Izz, 0.01},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0}});
    for (const bool apart : {false, true}) {
        ComputeOptions options;
        options.uncertainty = true;
        options.errorsApart = apart;
        small.product.uses[0].placement.shift = {};
        const auto near = small.Compute(options);
        small.product.uses[0].placement.shift = {1e6, -1e6, 1e6};
        const auto far = small.Compute(options);
        Body back = far.total.body;
        back.centre = {back.centre[0] - 1e6, back.centre[1] + 1e6, back.centre[2] - 1e6};
        EXPECT_NEAR(back.centre[0], near.total.body.centre[0], 1e-9);
        back.centre = near.total.body.centre;
        ExpectSame(back, near.total.body);
        constexpr double kLost = 1e-11;
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(far.uncertainty->centre[i], near.uncertainty->centre[i],
                        kLost * near.uncertainty->centre[i]);
        }
        for (std::size_t i = 0; i < 6; ++i) {
            EXPECT_NEAR(far.uncertainty->inertia[i], near.uncertainty->inertia[i],
                        kLost * near.uncertainty->inertia[i]);
        }
    }
}
