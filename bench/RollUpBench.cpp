#include "BenchTable.h"
#include "ProductFixture.h"

#include "WBRollUpTree.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace
{

using wb::Body;

/// The least that a roll-up can do: to read every record and to write it.
void ProductSweep(benchmark::State& state)
{
    constexpr double kNearlyOne = 1.0000000001;
    FlatProduct& product = ManyInstances();
    for ([[maybe_unused]] auto turn : state) {
        for (Body& body : product.records) {
            body.mass *= kNearlyOne;
            body.lower *= kNearlyOne;
            body.upper *= kNearlyOne;
            for (double& coordinate : body.centre) {
                coordinate *= kNearlyOne;
            }
            for (double& term : body.inertia) {
                term *= kNearlyOne;
            }
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ProductSweep)->Unit(benchmark::kMillisecond);

void ProductRollUp(benchmark::State& state)
{
    FlatProduct& product = ManyInstances();
    for ([[maybe_unused]] auto turn : state) {
        wb::RollUpTree(product.records, product.sizes);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ProductRollUp)->Unit(benchmark::kMillisecond);

void ProductRollUpPlaced(benchmark::State& state)
{
    FlatProduct& product = ManyInstances();
    for ([[maybe_unused]] auto turn : state) {
        wb::RollUpTree(product.records, product.sizes, product.placements);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ProductRollUpPlaced)->Unit(benchmark::kMillisecond);

/// Another leaf gets another mass each time, far from the last one, and all above it is put right.
void ProductLeafEdited(benchmark::State& state)
{
    constexpr std::uint32_t kFarAway = 7'919'003;
    constexpr double kHeavier = 1.001;
    FlatProduct& product = ManyInstances();
    wb::RollUpTree(product.records, product.sizes);
    const auto count = static_cast<std::uint32_t>(product.records.size());
    std::uint32_t leaf = 0;
    for ([[maybe_unused]] auto turn : state) {
        do {
            leaf = (leaf + kFarAway) % count;
        } while (product.sizes[leaf] > 1);
        product.records[leaf].mass *= kHeavier;
        wb::RollUpAbove(product.records, product.sizes, product.parents, leaf);
        benchmark::ClobberMemory();
    }
    const Body edited = product.records[0];
    wb::RollUpTree(product.records, product.sizes);
    if (!(product.records[0] == edited)) {
        state.SkipWithError("an edited product weighs something else than one that is summed up");
    }
}
BENCHMARK(ProductLeafEdited)->Unit(benchmark::kMillisecond);

/// The inertia of leaves about their common centre, straight from them, in long double.
std::array<long double, 6> InertiaOfLeaves(const FlatProduct& product, std::size_t first,
                                           std::size_t end)
{
    const auto forEachLeaf = [&](const auto& take) {
        for (std::size_t i = first; i < end; ++i) {
            if (product.sizes[i] == 1) {
                take(product.records[i]);
            }
        }
    };
    long double mass = 0.0L;
    std::array<long double, 3> moment{};
    forEachLeaf([&](const Body& body) {
        mass += body.mass;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            moment[axis] += static_cast<long double>(body.mass) * body.centre[axis];
        }
    });
    std::array<long double, 6> inertia{};
    forEachLeaf([&](const Body& body) {
        constexpr long double kMetres = 1e-3L; // in a mm
        const auto offset = [&](std::size_t axis) {
            return (body.centre[axis] - moment[axis] / mass) * kMetres;
        };
        const long double kilograms = body.mass;
        const long double x = offset(0);
        const long double y = offset(1);
        const long double z = offset(2);
        const std::array<long double, 6> gain{y * y + z * z, x * x + z * z, x * x + y * y,
                                              x * y,         x * z,         y * z};
        for (std::size_t term = 0; term < 6; ++term) {
            inertia[term] += body.inertia[term] + kilograms * gain[term];
        }
    });
    return inertia;
}

/// The largest error of any term of any assembly's inertia, as a share of its largest moment, in a
/// product whose leaves stand 1,000 m off the origin in each axis.
double WorstInertiaError()
{
    constexpr double kFar = 1e6; // mm
    constexpr int kThreeLevels = 3;
    FlatProduct product = GrownProduct(kThreeLevels, 1);
    for (Body& body : product.records) {
        for (double& coordinate : body.centre) {
            coordinate += kFar;
        }
    }
    wb::RollUpTree(product.records, product.sizes);
    double worst = 0.0;
    for (std::size_t i = 0; i < product.records.size(); ++i) {
        if (product.sizes[i] == 1) {
            continue;
        }
        const auto expected = InertiaOfLeaves(product, i + 1, i + product.sizes[i]);
        const long double largest = *std::max_element(expected.begin(), expected.begin() + 3);
        for (std::size_t term = 0; term < 6; ++term) {
            const long double error = product.records[i].inertia[term] - expected[term];
            worst = std::max(worst, static_cast<double>(std::abs(error) / largest));
        }
    }
    return worst;
}

// Its time stands in no line; its counter does.
void ProductFarOff(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        state.counters["error"] = WorstInertiaError();
    }
}
BENCHMARK(ProductFarOff)->Iterations(1)->Repetitions(1);

const RegisterBenchLine kCommon({"roll-up in common axes / sweep of the records", "ProductRollUp",
                                 "ProductSweep", 2.5});
const RegisterBenchLine kPlaced({"roll-up, each record turned and shifted / sweep of the records",
                                 "ProductRollUpPlaced", "ProductSweep", 8.0});
const RegisterBenchLine kEdited({"one leaf edited, 32 children a node / whole roll-up",
                                 "ProductLeafEdited", "ProductRollUp", 0.001});
const RegisterBenchLine kFarOff({"worst error of the inertias, 1,000 m off / in long double",
                                 "ProductFarOff:error",
                                 {},
                                 1e-12,
                                 BenchUnit::Share});

} // namespace
