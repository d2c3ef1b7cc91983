#include "ServerTesting.h"

#include <algorithm>
#include <map>

using namespace wb;
using wbtest::PartNamed;

namespace
{
struct Counts
{
    std::size_t designs = 0;    // parts without uses
    std::size_t assemblies = 0; // parts with uses
    std::size_t uses = 0;
    std::size_t lines = 0;  // of the tree below the root
    std::size_t pieces = 0; // the same, quantities opened out
    std::size_t levels = 0; // the root is the first
};

void CountBelow(const Product& product, const std::vector<std::vector<std::uint32_t>>& uses,
                std::uint32_t part, std::size_t pieces, std::size_t level, Counts& counts)
{
    counts.levels = std::max(counts.levels, level);
    for (const std::uint32_t use : uses[part]) {
        const auto opened = pieces * static_cast<std::size_t>(product.uses[use].Pieces());
        ++counts.lines;
        counts.pieces += opened;
        CountBelow(product, uses, product.uses[use].part, opened, level + 1, counts);
    }
}

Counts CountsOf(const Product& product)
{
    Counts counts;
    const auto uses = product.UsesByParent();
    for (const auto& list : uses) {
        ++(list.empty() ? counts.designs : counts.assemblies);
    }
    counts.uses = product.uses.size();
    CountBelow(product, uses, product.Roots().at(0), 1, 1, counts);
    return counts;
}

TableResult Sample(const char* name)
{
    auto result = ReadLocalProduct(wbtest::DataFile(name));
    EXPECT_THAT(result.errors, testing::ElementsAre());
    return result;
}
} // namespace

TEST(WBSampleProducts, AeroplaneHasTheCountsOfItsDescription)
{
    const auto result = Sample("light_aeroplane.csv");
    const Counts counts = CountsOf(result.product);
    EXPECT_EQ(counts.designs, 81U);
    EXPECT_EQ(counts.assemblies, 29U);
    EXPECT_EQ(counts.uses, 196U);
    EXPECT_EQ(counts.lines, 294U);
    EXPECT_EQ(counts.pieces, 300U);
    EXPECT_EQ(counts.levels, 5U);
    EXPECT_EQ(result.product.Roots().size(), 1U);
}

TEST(WBSampleProducts, SatelliteHasTheCountsOfItsDescription)
{
    const auto result = Sample("small_satellite.csv");
    const Counts counts = CountsOf(result.product);
    EXPECT_EQ(counts.designs, 39U);
    EXPECT_EQ(counts.assemblies, 12U);
    EXPECT_EQ(counts.uses, 81U);
    EXPECT_EQ(counts.lines, 102U);
    EXPECT_EQ(counts.pieces, 209U);
    EXPECT_EQ(counts.levels, 4U);
}

TEST(WBSampleProducts, PlacesAndValuesAreThoseOfTheRows)
{
    const auto result = Sample("light_aeroplane.csv");
    const Part& cap = PartNamed(result.product, "WNG-211");
    EXPECT_EQ(cap.version, "B");
    EXPECT_EQ(cap.material, "Al 2024-T3");
    ASSERT_EQ(cap.sets.size(), 2U);
    EXPECT_EQ(cap.sets[0][Fact::Volume], 0.00123);
    EXPECT_EQ(cap.sets[0][Fact::CgX], 1620);
    EXPECT_EQ(cap.sets[0][Fact::Iyy], 4.00737);
    EXPECT_EQ(cap.sets[0][Fact::UpperPct], 2);
    EXPECT_EQ(cap.sets[1].massType, "Estimated");
    EXPECT_EQ(cap.sets[1][Fact::Mass], 3.9);
    EXPECT_EQ(cap.documents.size(), 3U);

    const auto tuned = std::ranges::find_if(
        result.product.uses, [](const Use& use) { return use.instance == "SYS-130.2"; });
    ASSERT_NE(tuned, result.product.uses.end());
    // ry = -8 degrees: the rod's x axis rises, (cos 8, 0, sin 8).
    EXPECT_NEAR(tuned->placement.rotation[0][0], 0.9902680687415704, 1e-15);
    EXPECT_NEAR(tuned->placement.rotation[2][0], 0.13917310096006544, 1e-15);
}

TEST(WBSampleProducts, SatelliteNamesItsAdjustmentAndItsOwnMaterial)
{
    const auto result = Sample("small_satellite.csv");
    const Part& adjustment = PartNamed(result.product, "ADJ-001");
    EXPECT_EQ(adjustment.type, PartType::Adjustment);
    EXPECT_LT(adjustment.sets.at(0)[Fact::Mass], 0.0);
    const auto titanium = std::ranges::find_if(
        result.product.uses, [](const Use& use) { return use.instance == "STR-150.2"; });
    ASSERT_NE(titanium, result.product.uses.end());
    EXPECT_EQ(titanium->material, "Ti-6Al-4V");
}
