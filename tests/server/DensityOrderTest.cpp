#include "ComputeTesting.h"

using namespace wb;
using Common = CATENOWBCSCommonDefinitions;
using wbtest::ExpectSame;
using wbtest::SmallProduct;

namespace
{
/// One leaf of 2 m3 or 2 m2 below R.
SmallProduct Sized(Fact size)
{
    SmallProduct small;
    small.Put("R", "L");
    small.Set("L", "Calculated", {{size, 2}});
    small.product.materials = {{"part's", kUnknown, kUnknown, {}, {}},
                               {"use's", kUnknown, kUnknown, {}, {}}};
    small.Of("L").material = "part's";
    small.product.uses[0].material = "use's";
    return small;
}

/// The four densities of one dimension, in the order of "weight and balance first".
std::array<double*, 4> Densities(SmallProduct& small, Fact size)
{
    Part& part = small.Of("L");
    Use& use = small.product.uses[0];
    auto& materials = small.product.materials;
    if (size == Fact::Area) {
        return {&use.surfaceDensity, &part.surfaceDensity, &materials[1].surfaceDensity,
                &materials[0].surfaceDensity};
    }
    return {&use.density, &part.density, &materials[1].density, &materials[0].density};
}
} // namespace

TEST(DensityOrder, FirstKnownOfFourCountsInBothOrdersOfBothDimensions)
{
    for (const Fact size : {Fact::Volume, Fact::Area}) {
        for (const bool materialFirst : {false, true}) {
            SmallProduct small = Sized(size);
            small.Of("L").densityFirst =
                materialFirst ? DensityOrder::Material : DensityOrder::WeightAndBalance;
            const auto densities = Densities(small, size);
            const std::array<std::size_t, 4> order = materialFirst
                                                         ? std::array<std::size_t, 4>{2, 3, 0, 1}
                                                         : std::array<std::size_t, 4>{0, 1, 2, 3};
            for (std::size_t i = 0; i < 4; ++i) {
                *densities[i] = static_cast<double>(10 + i);
            }
            for (const std::size_t i : order) {
                EXPECT_EQ(small.Mass(), 2 * *densities[i]) << materialFirst << i;
                *densities[i] = kUnknown;
            }
            EXPECT_TRUE(small.Compute().total.IsPartial());
        }
    }
}

TEST(DensityOrder, DensityOfTheOtherDimensionIsNoHelp)
{
    SmallProduct small = Sized(Fact::Volume);
    for (double* density : Densities(small, Fact::Area)) {
        *density = 5;
    }
    EXPECT_FALSE(small.Compute().total.HasMass());
}

TEST(DensityOrder, RequestForAnotherOrderScalesMassAndInertiaAndLeavesTheCentre)
{
    // Stated for 10 kg/m3, the part's own; by its material, 30, all is three times as much.
    SmallProduct small = Sized(Fact::Volume);
    small.product.uses[0].material = "";
    small.Of("L").density = 10;
    small.product.materials[0].density = 30;
    ValueSet& set = small.Of("L").sets[0];
    const std::array facts{Fact::CgX, Fact::CgY, Fact::CgZ, Fact::Ixx, Fact::Iyy,
                           Fact::Izz, Fact::Ixy, Fact::Ixz, Fact::Iyz};
    for (std::size_t i = 0; i < facts.size(); ++i) {
        set[facts[i]] = static_cast<double>(i + 1);
    }
    ComputeOptions options;
    ExpectSame(small.Compute(options, {"L.1"}).total.body,
               {20, 0.6, 1, {1, 2, 3}, {4, 5, 6, 7, 8, 9}});
    options.densityPriority = Common::MaterialDensityFirst;
    ExpectSame(small.Compute(options, {"L.1"}).total.body,
               {60, 1.8, 3, {1, 2, 3}, {12, 15, 18, 21, 24, 27}});
    options.densityPriority = Common::WBDensityFirst;
    small.Of("L").densityFirst = DensityOrder::Material;
    ExpectSame(small.Compute(options, {"L.1"}).total.body,
               {20, 0.6, 1, {1, 2, 3}, {4 / 3.0, 5 / 3.0, 2, 7 / 3.0, 8 / 3.0, 3}});
}

TEST(DensityOrder, StatedMassMayDifferByOnePerCentOfSizeTimesDensity)
{
    // 2 m3 of 50 kg/m3: 100 kg.
    SmallProduct small = Sized(Fact::Volume);
    small.Of("L").density = 50;
    const auto warnings = [&](double mass) {
        small.Of("L").sets[0][Fact::Mass] = mass;
        const auto result = small.Compute();
        EXPECT_EQ(result.total.body.mass, mass);
        return std::ranges::count_if(result.warnings, [](const std::string& line) {
            return line.find("its size and density give 100 kg") != std::string::npos;
        });
    };
    EXPECT_EQ(warnings(101), 0);
    EXPECT_EQ(warnings(99), 0);
    EXPECT_EQ(warnings(101.005), 1) << "less than 1 % of itself, more than 1 % of 100";
    EXPECT_EQ(warnings(98.995), 1);
}

TEST(DensityOrder, OnePerCentIsOnePerCentWhateverTheDigits)
{
    // In binary 2.02 - 2 is a little more than 1 % of 2.
    SmallProduct small = Sized(Fact::Volume);
    small.Of("L").density = 1;
    small.Of("L").sets[0][Fact::Mass] = 2.02;
    for (const std::string& line : small.Compute().warnings) {
        EXPECT_THAT(line, testing::Not(testing::HasSubstr("size and density")));
    }
}

TEST(DensityOrder, SetOfAUseWasStatedForTheDensityThatCountsThere)
{
    // The part's set is scaled along with the density of the use, the use's own is not.
    SmallProduct small = Sized(Fact::Volume);
    small.Of("L").density = 10;
    small.product.uses[0].density = 40;
    const wbtest::Facts facts{{Fact::Volume, 2}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0},
                              {Fact::Ixx, 1},    {Fact::Iyy, 1}, {Fact::Izz, 1}, {Fact::Ixy, 0},
                              {Fact::Ixz, 0},    {Fact::Iyz, 0}};
    small.Of("L").sets[0] = SmallProduct::Made("Calculated", facts);
    EXPECT_DOUBLE_EQ(small.Compute().total.body.inertia[0], 4);
    small.product.uses[0].sets = {SmallProduct::Made("Calculated", facts)};
    EXPECT_DOUBLE_EQ(small.Compute().total.body.inertia[0], 1);
    EXPECT_DOUBLE_EQ(small.Mass(), 80);
}
