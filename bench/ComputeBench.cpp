#include "BenchTable.h"
#include "ProductFixture.h"

#include "WBCompute.h"
#include "WBKnown.h"
#include "WBRollUpTree.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace
{

using wb::Fact;

constexpr int kMaterials = 10;

wb::Part LeafPart(const std::string& identifier, Figures& figures)
{
    wb::Part part;
    part.identifier = identifier;
    part.version = "A";
    part.material = "Material " + std::to_string(figures.Below(kMaterials));
    wb::ValueSet set;
    set.massType = "Calculated";
    set[Fact::Mass] = figures.Between(0.1, 3);
    for (const Fact fact : {Fact::CgX, Fact::CgY, Fact::CgZ}) {
        set[fact] = figures.Between(-9, 9);
    }
    for (const Fact fact : {Fact::Ixx, Fact::Iyy, Fact::Izz}) {
        set[fact] = set[Fact::Mass];
    }
    for (const Fact fact : {Fact::Ixy, Fact::Ixz, Fact::Iyz}) {
        set[fact] = 0.01;
    }
    part.sets.push_back(set);
    return part;
}

wb::Part AssemblyPart(const std::string& identifier)
{
    wb::Part part;
    part.identifier = identifier;
    part.version = "A";
    return part;
}

void AddUse(wb::Product& product, std::uint32_t parent, std::uint32_t part, Figures& figures)
{
    wb::Use use;
    use.parent = parent;
    use.part = part;
    use.instance = "i" + std::to_string(product.uses.size());
    use.placement = figures.Place();
    product.uses.push_back(use);
}

wb::Product WithMaterials()
{
    wb::Product product;
    for (int number = 0; number < kMaterials; ++number) {
        product.materials.push_back(
            {"Material " + std::to_string(number), 1000.0 + number, wb::kUnknown, {}, {}});
    }
    return product;
}

/// How many uses below each assembly of three levels make that many leaves.
int UsesOfThreeLevels(int leaves)
{
    int uses = 1;
    while (uses * uses * uses < leaves) {
        ++uses;
    }
    return uses;
}

/// A thousand parts in four levels: as many leaves as this run's products have instances.
const wb::ProductGraph& ThousandParts()
{
    static const wb::ProductGraph graph = [] {
        const int uses = UsesOfThreeLevels(ProductInstances());
        Figures figures;
        wb::Product product = WithMaterials();
        std::vector<std::uint32_t> above;
        for (const std::size_t count : {1U, 9U, 90U, 900U}) {
            std::vector<std::uint32_t> level;
            for (std::size_t i = 0; i < count; ++i) {
                const std::string name = "P" + std::to_string(product.parts.size());
                level.push_back(static_cast<std::uint32_t>(product.parts.size()));
                product.parts.push_back(count == 900U ? LeafPart(name, figures)
                                                      : AssemblyPart(name));
            }
            for (const std::uint32_t parent : above) {
                for (int use = 0; use < uses; ++use) {
                    AddUse(product, parent, level[figures.Below(level.size())], figures);
                }
            }
            above = level;
        }
        return wb::ProductGraph(product, wb::ShippedMassTypes());
    }();
    return graph;
}

/// Nothing of it is there beforehand, as the sums of active values are.
wb::ComputeOptions MostPrecise()
{
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::MostPrecise;
    return options;
}

void ProductShared(benchmark::State& state)
{
    const wb::ProductGraph& graph = ThousandParts();
    wb::ComputeOptions options = MostPrecise();
    const auto& first = graph.PartOf(graph.UseAt(0).node);
    options.filter.lines.push_back(
        {false, graph.InstanceOf(0), first.identifier, first.version, {}});
    for ([[maybe_unused]] auto turn : state) {
        benchmark::DoNotOptimize(wb::Compute(graph, {0, {}}, options).total.body.mass);
    }
}
BENCHMARK(ProductShared)->Unit(benchmark::kMillisecond);

/// The same product with a record for each instance, statistics and filter left out.
void ProductSharedFlattened(benchmark::State& state)
{
    static FlatProduct product = Flattened(ThousandParts());
    for ([[maybe_unused]] auto turn : state) {
        wb::RollUpTree(product.records, product.sizes, product.placements);
        benchmark::ClobberMemory();
    }
    const auto result = wb::Compute(ThousandParts(), {0, {}}, MostPrecise());
    if (!IsSameBody(product.records[0], result.total.body)) {
        state.SkipWithError("a product weighs something else when it is flattened");
    }
}
BENCHMARK(ProductSharedFlattened)->Unit(benchmark::kMillisecond);

constexpr std::uint32_t kFewParts = 2'000;
constexpr std::uint32_t kManyParts = 200'000;

/// So many different parts, 20 below each assembly.
const wb::ProductGraph& DifferentParts(std::uint32_t count)
{
    static std::map<std::uint32_t, std::unique_ptr<wb::ProductGraph>> graphs;
    auto& graph = graphs[count];
    if (graph) {
        return *graph;
    }
    constexpr std::uint32_t kChildren = 20;
    Figures figures;
    wb::Product product = WithMaterials();
    for (std::uint32_t number = 0; number < count; ++number) {
        const std::string name = "P" + std::to_string(number);
        const bool isLeaf = number > (count - 2) / kChildren;
        product.parts.push_back(isLeaf ? LeafPart(name, figures) : AssemblyPart(name));
        if (number > 0) {
            AddUse(product, (number - 1) / kChildren, number, figures);
        }
    }
    graph = std::make_unique<wb::ProductGraph>(product, wb::ShippedMassTypes());
    return *graph;
}

void ComputeParts(benchmark::State& state, std::uint32_t count, bool everything)
{
    const wb::ProductGraph& graph = DifferentParts(count);
    wb::ComputeOptions options = MostPrecise();
    options.validate = everything;
    options.uncertainty = everything;
    for ([[maybe_unused]] auto turn : state) {
        benchmark::DoNotOptimize(wb::Compute(graph, {0, {}}, options).total.body.mass);
    }
}

void ProductFewParts(benchmark::State& state)
{
    ComputeParts(state, kFewParts, false);
}
BENCHMARK(ProductFewParts)->Unit(benchmark::kMillisecond);

void ProductFewPartsUncertain(benchmark::State& state)
{
    ComputeParts(state, kFewParts, true);
}
BENCHMARK(ProductFewPartsUncertain)->Unit(benchmark::kMillisecond);

void ProductManyParts(benchmark::State& state)
{
    ComputeParts(state, kManyParts, false);
}
BENCHMARK(ProductManyParts)->Unit(benchmark::kMillisecond);

void ProductManyPartsUncertain(benchmark::State& state)
{
    ComputeParts(state, kManyParts, true);
}
BENCHMARK(ProductManyPartsUncertain)->Unit(benchmark::kMillisecond);

const RegisterBenchLine kShared({"1,000 parts, shares by material and a filter / flattened",
                                 "ProductShared", "ProductSharedFlattened", 0.05});
const RegisterBenchLine kFew({"2,000 parts with uncertainties and checks / without",
                              "ProductFewPartsUncertain", "ProductFewParts", 10.0});
const RegisterBenchLine kMany({"200,000 parts with uncertainties and checks / without",
                               "ProductManyPartsUncertain", "ProductManyParts", 10.0});
// What a part costs more where the product no longer stands in the caches; it would be 100 times
// as much if the work grew with the square.
const RegisterBenchLine kGrowth({"each of 200,000 parts, with both / each of 2,000",
                                 "ProductManyPartsUncertain", "ProductFewPartsUncertain", 3.0,
                                 BenchUnit::Milliseconds, kManyParts, kFewParts});
const RegisterBenchLine kPlainGrowth({"the same without uncertainties and checks",
                                      "ProductManyParts", "ProductFewParts", 0.0,
                                      BenchUnit::Milliseconds, kManyParts, kFewParts});

} // namespace
