#include "ProductFixture.h"

#include "BenchFolder.h"
#include "ProductFile.h"

#include "WBImport.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

namespace
{

constexpr int kInstances = 1'000'000;
constexpr int kManyInstances = 10'000'000;
constexpr int kLevels = 4; // 32 children each: 1,048,576 leaves

int g_instances = kInstances;

void Grow(FlatProduct& product, Figures& figures, std::uint32_t parent, int levels)
{
    constexpr int kChildren = 32;
    const double mass = figures.Between(0.1, 3);
    const wb::Body body{mass,
                        mass / 10,
                        mass / 5,
                        {figures.Between(-900, 900), figures.Between(-900, 900), 5},
                        {mass, mass, mass, 0.01, 0.02, 0.03}};
    const std::uint32_t here = product.Begin(parent, body, figures.Place());
    for (int child = 0; levels > 0 && child < kChildren; ++child) {
        Grow(product, figures, here, levels - 1);
    }
    product.End(here);
}

void Flatten(FlatProduct& product, const wb::ProductGraph& graph, std::uint32_t parent,
             std::uint32_t node, const wb::Placement& placement)
{
    const auto& part = graph.PartOf(node);
    const std::uint32_t here = product.Begin(
        parent, part.IsLeaf() ? graph.ClaimsOf(node).front().body : wb::Body(), placement);
    for (const wb::ProductGraph::UseRow& use : graph.UsesOf(part)) {
        Flatten(product, graph, here, use.node, use.placement);
    }
    product.End(here);
}

} // namespace

void UseLargeProducts()
{
    g_instances = kManyInstances;
}

int ProductInstances()
{
    return g_instances;
}

wb::Placement Figures::Place()
{
    wb::Placement placement;
    placement.rotation = wb::RotationFromAngles(Between(0, 360), Between(0, 360), Between(0, 360));
    placement.shift = {Between(-900, 900), Between(-900, 900), Between(-900, 900)};
    return placement;
}

std::uint32_t FlatProduct::Begin(std::uint32_t parent, const wb::Body& body,
                                 const wb::Placement& placement)
{
    records.push_back(body);
    sizes.push_back(1);
    parents.push_back(parent);
    placements.push_back(placement);
    return static_cast<std::uint32_t>(records.size() - 1);
}

void FlatProduct::End(std::uint32_t record)
{
    sizes[record] = static_cast<std::uint32_t>(records.size()) - record;
}

FlatProduct GrownProduct(int levels, int trees)
{
    FlatProduct product;
    Figures figures;
    if (trees == 1) {
        Grow(product, figures, 0, levels);
        return product;
    }
    const std::uint32_t root = product.Begin(0, {}, {});
    for (int tree = 0; tree < trees; ++tree) {
        Grow(product, figures, root, levels);
    }
    product.End(root);
    return product;
}

FlatProduct& ManyInstances()
{
    static FlatProduct product = GrownProduct(kLevels, g_instances / kInstances);
    return product;
}

FlatProduct Flattened(const wb::ProductGraph& graph)
{
    FlatProduct product;
    Flatten(product, graph, 0, 0, {});
    return product;
}

bool IsSameBody(const wb::Body& one, const wb::Body& other)
{
    constexpr double kRounding = 1e-9;
    const auto isNear = [](double left, double right, double size) {
        return std::abs(left - right) <= kRounding * size;
    };
    double distance = 1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        distance = std::max(distance, std::abs(one.centre[axis]));
    }
    const double moment = std::max({one.inertia[0], one.inertia[1], one.inertia[2]});
    bool same = isNear(one.mass, other.mass, one.mass);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        same = same && isNear(one.centre[axis], other.centre[axis], distance);
    }
    for (std::size_t term = 0; term < 6; ++term) {
        same = same && isNear(one.inertia[term], other.inertia[term], moment);
    }
    return same;
}

const std::string& ProductTable(int rows)
{
    static std::map<int, std::string> paths;
    const auto [place, isNew] = paths.try_emplace(rows);
    if (isNew) {
        place->second = BenchFile("product_" + std::to_string(rows) + ".csv");
        WriteProductFile(place->second, rows, kProductParts);
    }
    return place->second;
}

const std::string& ProductDatabase(int rows)
{
    static std::map<int, std::string> paths;
    const auto [place, isNew] = paths.try_emplace(rows);
    if (isNew) {
        place->second = BenchFile("product_" + std::to_string(rows) + ".db");
        const auto opened = wb::Store::OpenOrCreate(place->second);
        const auto result = opened.store ? wb::ImportFile(*opened.store, ProductTable(rows))
                                         : wb::ImportFileResult();
        if (!opened.store || !result.Ok()) {
            std::fprintf(stderr, "wb_bench: the product was not imported\n");
            std::exit(1);
        }
    }
    return place->second;
}
