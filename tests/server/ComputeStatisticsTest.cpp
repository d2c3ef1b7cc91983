#include "ComputeTesting.h"

#include <cmath>

using namespace wb;
using wbtest::ExpectSame;
using wbtest::SmallProduct;

namespace
{
/// The name and mass of each share, "Wax 2; (no material) 1".
template <typename Shares, typename Name>
std::string Listed(const Shares& shares, Name name)
{
    std::string text;
    for (const auto& share : shares) {
        text += (text.empty() ? "" : "; ") + share.*name + " " +
                std::to_string(std::lround(share.mass));
    }
    return text;
}

ComputeOptions WithUncertainty(bool apart = false)
{
    ComputeOptions options;
    options.uncertainty = true;
    options.errorsApart = apart;
    return options;
}

/// R: two uses of assembly A (turned by 90 degrees in one) with leaf L at x = 300 and twice at
/// x = -100, and one leaf M.
SmallProduct Uncertain()
{
    SmallProduct small;
    small.Put("R", "A");
    Use& turned = small.Put("R", "A", {0, 500, 0});
    turned.placement.rotation = RotationFromAngles(0, 0, 90);
    small.Put("R", "M", {50, 60, 70});
    small.Put("A", "L", {300, 0, 0});
    small.Put("A", "L", {-100, 0, 0}).quantity = 2;
    small.Set("L", "Weighed",
              {{Fact::Mass, 2},         {Fact::CgX, 10},        {Fact::CgY, 20},
               {Fact::CgZ, 30},         {Fact::Ixx, 1},         {Fact::Iyy, 1},
               {Fact::Izz, 1},          {Fact::Ixy, 0},         {Fact::Ixz, 0},
               {Fact::Iyz, 0},          {Fact::SigmaMass, 0.1}, {Fact::SigmaCgX, 4},
               {Fact::SigmaCgY, 2},     {Fact::SigmaCgZ, 1},    {Fact::SigmaIxx, 0.01},
               {Fact::SigmaIyy, 0.02},  {Fact::SigmaIzz, 0.03}, {Fact::SigmaIxy, 0.004},
               {Fact::SigmaIxz, 0.005}, {Fact::SigmaIyz, 0.006}});
    small.Set("M", "Weighed",
              {{Fact::Mass, 5},
               {Fact::Lower, 0.3},
               {Fact::Upper, 0.3},
               {Fact::CgX, 0},
               {Fact::CgY, 0},
               {Fact::CgZ, 0}});
    return small;
}

void ExpectNear(const Uncertainty& left, const Uncertainty& right, double tolerance)
{
    EXPECT_NEAR(left.mass, right.mass, tolerance * right.mass);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(left.centre[i], right.centre[i], tolerance * right.centre[i]);
    }
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(left.inertia[i], right.inertia[i], tolerance * right.inertia[i]);
    }
}
} // namespace

TEST(ComputeStatistics, DeviationsOfASumAreThoseOfTheWorstCase)
{
    // 3 pieces of -0.1/+0.2 and one of -0.4/+0.3: -0.7/+0.9.
    SmallProduct small;
    small.Put("R", "L").quantity = 3;
    small.Put("R", "M");
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.1}, {Fact::Upper, 0.2}});
    small.Set("M", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.4}, {Fact::Upper, 0.3}});
    const auto result = small.Compute();
    EXPECT_DOUBLE_EQ(result.total.body.lower, 0.7);
    EXPECT_DOUBLE_EQ(result.total.body.upper, 0.9);
    // Together: lower sqrt(0.3^2 + 0.4^2) = 0.5, upper sqrt(0.6^2 + 0.3^2) = sqrt 0.45.
    EXPECT_DOUBLE_EQ(result.statistics.rss.together.lower, 0.5);
    EXPECT_DOUBLE_EQ(result.statistics.rss.together.upper, std::sqrt(0.45));
    // Apart: lower sqrt(3 0.01 + 0.16) = sqrt 0.19, upper sqrt(3 0.04 + 0.09) = sqrt 0.21.
    EXPECT_DOUBLE_EQ(result.statistics.rss.apart.lower, std::sqrt(0.19));
    EXPECT_DOUBLE_EQ(result.statistics.rss.apart.upper, std::sqrt(0.21));
}

TEST(ComputeStatistics, PartWhoseErrorsAreApartIsNoGroup)
{
    SmallProduct small;
    small.Put("R", "L").quantity = 4;
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.1}, {Fact::Upper, 0.1}});
    EXPECT_DOUBLE_EQ(small.Compute().statistics.rss.together.lower, 0.4);
    small.Of("L").errors = ErrorRule::Apart;
    EXPECT_DOUBLE_EQ(small.Compute().statistics.rss.together.lower, 0.2);
}

TEST(ComputeStatistics, UseWithAMaterialOfItsOwnHasErrorsOfItsOwn)
{
    // 3 and 4 times 0.01 kg, not 7 times.
    SmallProduct small;
    small.product.materials = {{"Wax", 1000, kUnknown, {}, {}}, {"Oil", 1000, kUnknown, {}, {}}};
    small.Put("R", "L").quantity = 3;
    small.Put("R", "L").quantity = 4;
    small.product.uses.back().material = "Oil";
    small.Of("L").material = "Wax";
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::Lower, 0.01}, {Fact::Upper, 0.01}});
    EXPECT_DOUBLE_EQ(small.Compute().statistics.rss.together.lower, 0.05);
}

TEST(ComputeStatistics, SharesByMaterialTypeAndCodeEachAddUpToTheTotal)
{
    SmallProduct small;
    small.product.materials = {{"Wax", 1000, kUnknown, {}, {}}, {"Foil", kUnknown, 2, {}, {}}};
    small.Put("R", "A").quantity = 2;
    small.Put("R", "I");
    small.Put("R", "N");
    small.Put("A", "L");
    small.Put("A", "F");
    small.Put("I", "L");
    small.Of("L").material = "Wax";
    small.Of("F").material = "Foil";
    small.Of("A").code = "WING";
    small.Of("F").code = "SKIN";
    small.Of("I").activeType = "Weighed";
    small.Set("L", "Calculated", {{Fact::Volume, 0.003}}); // 3 kg each of 2
    small.Set("F", "Estimated", {{Fact::Area, 2}});        // 4 kg each of 2
    small.Set("I", "Weighed", {{Fact::Mass, 40}});         // imposed
    small.Set("N", "Supplier", {{Fact::Mass, 5}});         // no material
    small.Of("L").growthPct = 10;
    small.Of("I").growthPct = 1;
    const auto result = small.Compute();
    const Statistics& statistics = result.statistics;
    EXPECT_EQ(result.total.body.mass, 59);
    EXPECT_EQ(Listed(statistics.materials, &MaterialShare::material),
              "(imposed) 40; Foil 8; Wax 6; (no material) 5");
    EXPECT_EQ(statistics.materials[1].dimension, Dimension::Surface);
    EXPECT_EQ(statistics.materials[1].density, 2);
    EXPECT_EQ(statistics.materials[2].density, 1000);
    EXPECT_EQ(statistics.materials[0].density, 0);
    EXPECT_EQ(Listed(statistics.massTypes, &NamedShare::name),
              "Estimated 8; Calculated 6; Supplier 5; Weighed 40");
    EXPECT_EQ(Listed(statistics.codes, &NamedShare::name), "(no code) 45; SKIN 8; WING 6");
    EXPECT_DOUBLE_EQ(statistics.growthAllowance, 0.6 + 0.4);
}

TEST(ComputeStatistics, CodeOfTheNearestNodeAboveCountsForAPartOfTheProductToo)
{
    SmallProduct small;
    small.Put("R", "A");
    small.Put("A", "B");
    small.Put("B", "L");
    small.Of("R").code = "ALL";
    small.Of("A").code = "WING";
    small.Set("L", "Weighed", {{Fact::Mass, 5}});
    EXPECT_EQ(Listed(small.Compute({}, {"A.1", "B.1"}).statistics.codes, &NamedShare::name),
              "WING 5");
}

TEST(ComputeStatistics, UncertaintyOfTwoMassesOnALine)
{
    // 1 kg at x = 0 and 3 kg at x = 400 mm: centre 300, d = -0.3 and 0.1 m. sigma of mass 0.1 and
    // 0.2 kg: mass sqrt 0.05; centre x (d sigma / 4): sqrt(0.03^2 + 0.02^2) / 4 m;
    // iyy (d^2 sigma): sqrt(0.009^2 + 0.002^2). sigma of x of the first 8 mm: centre 1 8 / 4 = 2
    // mm, iyy 2 1 0.3 0.008 = 0.0048; of y 4 mm: centre 1 mm, ixy 1 0.3 0.004 = 0.0012.
    SmallProduct small;
    small.Put("R", "L");
    small.Put("R", "M", {400, 0, 0});
    small.Set("L", "Weighed",
              {{Fact::Mass, 1},
               {Fact::CgX, 0},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::SigmaMass, 0.1},
               {Fact::SigmaCgX, 8},
               {Fact::SigmaCgY, 4}});
    small.Set(
        "M", "Weighed",
        {{Fact::Mass, 3}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}, {Fact::SigmaMass, 0.2}});
    for (const bool apart : {false, true}) {
        const Uncertainty u = *small.Compute(WithUncertainty(apart)).uncertainty;
        EXPECT_NEAR(u.mass, std::sqrt(0.05), 1e-14);
        EXPECT_NEAR(u.centre[0], std::sqrt(1e6 * (0.0009 + 0.0004) / 16 + 4), 1e-12);
        EXPECT_NEAR(u.centre[1], 1, 1e-12);
        EXPECT_NEAR(u.centre[2], 0, 1e-12);
        EXPECT_NEAR(u.inertia[0], 0, 1e-14);
        const double across = std::sqrt(0.009 * 0.009 + 0.002 * 0.002 + 0.0048 * 0.0048);
        EXPECT_NEAR(u.inertia[1], across, 1e-14);
        EXPECT_NEAR(u.inertia[2], across, 1e-14);
        EXPECT_NEAR(u.inertia[3], 0.0012, 1e-14);
        EXPECT_EQ(u.shareUnstated, 0);
    }
}

TEST(ComputeStatistics, UnstatedUncertaintyIsAnEvenSpreadOfTheDeviations)
{
    // Estimated -10 % / +20 % of 10 kg: 3 kg wide, 3 / sqrt 12. 30 kg with a stated precision.
    SmallProduct small;
    small.Put("R", "L");
    small.Set("L", "Estimated", {{Fact::Mass, 10}});
    EXPECT_NEAR(small.Compute(WithUncertainty()).uncertainty->mass, 3 / std::sqrt(12), 1e-14);
    EXPECT_EQ(small.Compute(WithUncertainty()).uncertainty->shareUnstated, 1);
    small.Put("R", "M");
    small.Set("M", "Estimated", {{Fact::Mass, 30}, {Fact::LowerPct, 0}, {Fact::UpperPct, 0}});
    EXPECT_EQ(small.Compute(WithUncertainty()).uncertainty->shareUnstated, 0.25);
}

TEST(ComputeStatistics, ErrorsThatPiecesShareAddUpAndOthersDoNot)
{
    SmallProduct small;
    small.Put("R", "L").quantity = 4;
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::SigmaMass, 0.1}});
    EXPECT_NEAR(small.Compute(WithUncertainty()).uncertainty->mass, 0.4, 1e-15);
    EXPECT_NEAR(small.Compute(WithUncertainty(true)).uncertainty->mass, 0.2, 1e-15);
    small.Of("L").errors = ErrorRule::Apart;
    EXPECT_NEAR(small.Compute(WithUncertainty()).uncertainty->mass, 0.2, 1e-15);
}

TEST(ComputeStatistics, WhatIsLentHasNoUncertaintyOfItsOwn)
{
    SmallProduct small;
    small.Set("L", "Weighed",
              {{Fact::Mass, 1}, {Fact::SigmaMass, 0.1}, {Fact::SigmaCgX, 9}, {Fact::SigmaIxx, 9}});
    small.Set("L", "Estimated",
              {{Fact::Mass, 1},
               {Fact::CgX, 0},
               {Fact::CgY, 0},
               {Fact::CgZ, 0},
               {Fact::Ixx, 1},
               {Fact::Iyy, 1},
               {Fact::Izz, 1},
               {Fact::Ixy, 0},
               {Fact::Ixz, 0},
               {Fact::Iyz, 0},
               {Fact::SigmaCgX, 7},
               {Fact::SigmaIxx, 7}});
    const auto result = small.Compute(WithUncertainty());
    EXPECT_EQ(result.uncertainty->centre[0], 0);
    EXPECT_EQ(result.uncertainty->inertia[0], 0);
}

TEST(ComputeStatistics, AnyCutOfTheTreeGivesTheSameUncertainties)
{
    SmallProduct nested = Uncertain();
    // The same six pieces right below the root.
    SmallProduct flat;
    flat.product.parts.resize(1);
    flat.product.parts[0].identifier = "R";
    flat.Of("L") = nested.Of("L");
    flat.Of("M") = nested.Of("M");
    for (const std::size_t assembly : {0U, 1U}) {
        for (const std::size_t leaf : {3U, 4U}) {
            const Use& inner = nested.product.uses[leaf];
            Use& use = flat.Put("R", "L");
            use.placement = nested.product.uses[assembly].placement * inner.placement;
            use.quantity = inner.quantity;
        }
    }
    flat.Put("R", "M", {50, 60, 70});
    for (const bool apart : {false, true}) {
        const auto one = nested.Compute(WithUncertainty(apart));
        const auto other = flat.Compute(WithUncertainty(apart));
        ExpectSame(one.total.body, other.total.body);
        ExpectNear(*one.uncertainty, *other.uncertainty, 1e-9);
    }
}

TEST(ComputeStatistics, UncertaintyIsWhatSmallStepsOfEachFigureDo)
{
    // Each of the ten figures of L moved by a millionth of its uncertainty: the change of the
    // total, a million times, is what that error does to it. Six pieces of L share their errors.
    const SmallProduct small = Uncertain();
    const Body base = small.Compute().total.body;
    constexpr double kStep = 1e-6;
    Uncertainty squares;
    for (auto fact = static_cast<std::size_t>(Fact::SigmaMass);
         fact <= static_cast<std::size_t>(Fact::SigmaIyz); ++fact) {
        SmallProduct moved = small;
        ValueSet& set = moved.Of("L").sets[0];
        const std::size_t offset = fact - static_cast<std::size_t>(Fact::SigmaMass);
        constexpr std::array kMoved{Fact::Mass, Fact::CgX, Fact::CgY, Fact::CgZ, Fact::Ixx,
                                    Fact::Iyy,  Fact::Izz, Fact::Ixy, Fact::Ixz, Fact::Iyz};
        const double sigma = set.numbers[fact];
        set[kMoved[offset]] += kStep * sigma;
        const Body body = moved.Compute().total.body;
        const auto add = [&](double& sum, double now, double then) {
            sum += std::pow((now - then) / kStep, 2);
        };
        add(squares.mass, body.mass, base.mass);
        for (std::size_t i = 0; i < 3; ++i) {
            add(squares.centre[i], body.centre[i], base.centre[i]);
        }
        for (std::size_t i = 0; i < 6; ++i) {
            add(squares.inertia[i], body.inertia[i], base.inertia[i]);
        }
    }
    SmallProduct certain = small;
    certain.Of("M").sets[0][Fact::SigmaMass] = 0;
    const Uncertainty u = *certain.Compute(WithUncertainty()).uncertainty;
    constexpr double kFirstOrder = 1e-5; // what the step and the digits allow
    EXPECT_NEAR(u.mass, std::sqrt(squares.mass), kFirstOrder * u.mass);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(u.centre[i], std::sqrt(squares.centre[i]), kFirstOrder * u.centre[0]);
    }
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(u.inertia[i], std::sqrt(squares.inertia[i]), kFirstOrder * u.inertia[i] + 1e-8);
    }
}

TEST(ComputeStatistics, CentreLessCertainThanFarMakesTheFirstOrderUnderstate)
{
    SmallProduct small;
    small.Put("R", "L", {100, 0, 0});
    small.Put("R", "L", {-100, 0, 0});
    small.Set(
        "L", "Weighed",
        {{Fact::Mass, 1}, {Fact::CgX, 0}, {Fact::CgY, 0}, {Fact::CgZ, 0}, {Fact::SigmaCgX, 99}});
    EXPECT_TRUE(small.Compute(WithUncertainty()).uncertainty->understated.empty());
    small.Of("L").sets[0][Fact::SigmaCgX] = 101;
    const auto result = small.Compute(WithUncertainty());
    EXPECT_THAT(result.uncertainty->understated, testing::ElementsAre("L"));
    EXPECT_THAT(result.warnings,
                testing::Contains("first order understates: the centre of L is less certain than "
                                  "it is far from the centre of gravity"));
}

TEST(ComputeStatistics, LargestContributorsAreListed)
{
    SmallProduct small;
    small.Put("R", "L").quantity = 4;
    small.Put("R", "M");
    small.Set("L", "Weighed", {{Fact::Mass, 1}, {Fact::SigmaMass, 0.1}});
    small.Set("M", "Weighed", {{Fact::Mass, 3}, {Fact::SigmaMass, 0.5}});
    ComputeOptions options;
    options.contributors = 1;
    const auto result = small.Compute(options);
    ASSERT_EQ(result.largestMasses.size(), 1U);
    EXPECT_EQ(result.largestMasses[0].part, "L");
    EXPECT_EQ(result.largestMasses[0].mass, 4);
    EXPECT_EQ(result.largestMasses[0].pieces, 4);
    ASSERT_EQ(result.largestUncertainties.size(), 1U);
    EXPECT_EQ(result.largestUncertainties[0].part, "M");
    EXPECT_DOUBLE_EQ(result.largestUncertainties[0].sigmaMass, 0.5);
    options.contributors = 2;
    EXPECT_DOUBLE_EQ(small.Compute(options).largestUncertainties[1].sigmaMass, 0.4);
    options.errorsApart = true;
    EXPECT_DOUBLE_EQ(small.Compute(options).largestUncertainties[1].sigmaMass, 0.2);
}
