#include "BenchTable.h"

#include "WBCompute.h"
#include "WBKnown.h"
#include "WBRollUpTree.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>

namespace
{

using wb::Body;
using wb::Fact;
using wb::Placement;

/// Figures of any size that no sum makes round; the same ones in every run.
class Figures
{
public:
    double Between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    std::size_t Below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    Placement Place()
    {
        Placement placement;
        placement.rotation =
            wb::RotationFromAngles(Between(0, 360), Between(0, 360), Between(0, 360));
        placement.shift = {Between(-900, 900), Between(-900, 900), Between(-900, 900)};
        return placement;
    }

private:
    std::mt19937 m_random{11};
};

/// A million leaves, 32 children a node, each record with figures and a place of its own.
struct Tree
{
    std::vector<Body> records;
    std::vector<std::uint32_t> sizes;
    std::vector<std::uint32_t> parents;
    std::vector<Placement> placements;
    Figures figures;

    Tree() { Grow(0, 4); }

    void Grow(std::uint32_t parent, int levels)
    {
        constexpr int kChildren = 32;
        const auto here = static_cast<std::uint32_t>(records.size());
        const double mass = figures.Between(0.1, 3);
        records.push_back({mass,
                           mass / 10,
                           mass / 5,
                           {figures.Between(-900, 900), figures.Between(-900, 900), 5},
                           {mass, mass, mass, 0.01, 0.02, 0.03}});
        placements.push_back(figures.Place());
        parents.push_back(parent);
        sizes.push_back(1);
        for (int child = 0; levels > 0 && child < kChildren; ++child) {
            Grow(here, levels - 1);
        }
        sizes[here] = static_cast<std::uint32_t>(records.size()) - here;
    }
};

Tree& MillionLeaves()
{
    static Tree tree;
    return tree;
}

void RecordSweep(benchmark::State& state)
{
    constexpr double kNearlyOne = 1.0000000001;
    Tree& tree = MillionLeaves();
    for (auto turn : state) {
        for (Body& body : tree.records) {
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
BENCHMARK(RecordSweep)->Unit(benchmark::kMillisecond);

void RollUpCommonAxes(benchmark::State& state)
{
    Tree& tree = MillionLeaves();
    for (auto turn : state) {
        wb::RollUpTree(tree.records, tree.sizes);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(RollUpCommonAxes)->Unit(benchmark::kMillisecond);

void RollUpPlaced(benchmark::State& state)
{
    Tree& tree = MillionLeaves();
    for (auto turn : state) {
        wb::RollUpTree(tree.records, tree.sizes, tree.placements);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(RollUpPlaced)->Unit(benchmark::kMillisecond);

void RollUpOneLeafEdited(benchmark::State& state)
{
    Tree& tree = MillionLeaves();
    std::uint32_t leaf = 0;
    for (auto turn : state) {
        constexpr std::uint32_t kFarAway = 7919;
        leaf = (leaf + kFarAway) % static_cast<std::uint32_t>(tree.records.size());
        wb::RollUpAbove(tree.records, tree.sizes, tree.parents, leaf);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(RollUpOneLeafEdited)->Unit(benchmark::kMillisecond);

wb::Part LeafPart(const std::string& identifier, Figures& figures)
{
    wb::Part part;
    part.identifier = identifier;
    part.version = "A";
    part.material = "Material " + std::to_string(figures.Below(10));
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
    for (int number = 0; number < 10; ++number) {
        product.materials.push_back(
            {"Material " + std::to_string(number), 1000.0 + number, wb::kUnknown, {}, {}});
    }
    return product;
}

/// A thousand parts in four levels, 100 uses below each assembly: a million leaves.
const wb::ProductGraph& ThousandParts()
{
    static const wb::ProductGraph graph = [] {
        constexpr int kUses = 100;
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
                for (int use = 0; use < kUses; ++use) {
                    AddUse(product, parent, level[figures.Below(level.size())], figures);
                }
            }
            above = level;
        }
        return wb::ProductGraph(product, wb::ShippedMassTypes());
    }();
    return graph;
}

void RollUpThousandParts(benchmark::State& state)
{
    const wb::ProductGraph& graph = ThousandParts();
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::MostPrecise; // nothing is there beforehand
    const auto& first = graph.Parts()[graph.Nodes()[graph.UseAt(0).node].part];
    options.filter.lines.push_back(
        {false, graph.InstanceOf(0), first.identifier, first.version, {}});
    for (auto turn : state) {
        benchmark::DoNotOptimize(wb::Compute(graph, {0, {}}, options).total.body.mass);
    }
}
BENCHMARK(RollUpThousandParts)->Unit(benchmark::kMillisecond);

/// So many different parts, 20 below each assembly.
std::unique_ptr<wb::ProductGraph> DifferentParts(std::uint32_t count)
{
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
    return std::make_unique<wb::ProductGraph>(product, wb::ShippedMassTypes());
}

void ComputeParts(benchmark::State& state, std::uint32_t count, bool everything)
{
    static std::map<std::uint32_t, std::unique_ptr<wb::ProductGraph>> graphs;
    auto& graph = graphs[count];
    if (!graph) {
        graph = DifferentParts(count);
    }
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::MostPrecise;
    options.validate = everything;
    options.uncertainty = everything;
    for (auto turn : state) {
        benchmark::DoNotOptimize(wb::Compute(*graph, {0, {}}, options).total.body.mass);
    }
}

void Parts2000(benchmark::State& state)
{
    ComputeParts(state, 2000, false);
}
BENCHMARK(Parts2000)->Unit(benchmark::kMillisecond);

void Parts2000Uncertain(benchmark::State& state)
{
    ComputeParts(state, 2000, true);
}
BENCHMARK(Parts2000Uncertain)->Unit(benchmark::kMillisecond);

void Parts200000(benchmark::State& state)
{
    ComputeParts(state, 200000, false);
}
BENCHMARK(Parts200000)->Unit(benchmark::kMillisecond);

void Parts200000Uncertain(benchmark::State& state)
{
    ComputeParts(state, 200000, true);
}
BENCHMARK(Parts200000Uncertain)->Unit(benchmark::kMillisecond);

const RegisterBenchLine kCommon({"roll-up in common axes, 1,000,000 leaves / sweep of the records",
                                 "RollUpCommonAxes", "RecordSweep", 2.5});
const RegisterBenchLine kPlaced({"roll-up with a place a record, 1,000,000 leaves / sweep",
                                 "RollUpPlaced", "RecordSweep", 8.0});
const RegisterBenchLine kEdited({"one leaf edited, 32 children a node / whole roll-up",
                                 "RollUpOneLeafEdited", "RollUpCommonAxes", 0.001});
const RegisterBenchLine kThousand({"1,000,000 leaves of 1,000 parts, shares, filter / flattened",
                                   "RollUpThousandParts", "RollUpPlaced", 0.05});
const RegisterBenchLine kSmall({"2,000 parts with uncertainties and checks / without",
                                "Parts2000Uncertain", "Parts2000", 10.0});
const RegisterBenchLine kLarge({"200,000 parts with uncertainties and checks / without",
                                "Parts200000Uncertain", "Parts200000", 10.0});
// A hundred times the parts; beyond the caches each costs more, but no more with every further one.
const RegisterBenchLine kLinear({"the same, 200,000 parts / 2,000 parts", "Parts200000Uncertain",
                                 "Parts2000Uncertain", 300.0});

} // namespace
