#include "PickedNode.h"

#include <algorithm>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

/// A path longer than any product is deep; a larger count is a mistake and not worth a walk.
constexpr std::int64_t kDeepest = 10000;

void CheckName(const char* field, std::string_view asked, const std::string& stored)
{
    if (asked != stored) {
        throw RequestError(std::string("The field ") + field + " of the request names \"" +
                           std::string(asked) + "\", but the instance is one of \"" + stored +
                           "\".");
    }
}

DensityPair MaterialDensities(const Store& store, const std::string& name)
{
    const auto material = name.empty() ? std::nullopt : store.FindMaterial(name);
    return material ? DensityPair{material->density, material->surfaceDensity} : DensityPair{};
}

} // namespace

ValueSet Node::CompleteSet(std::string_view massType) const
{
    if (const ValueSet* ofUse = FindSet(use.sets, massType)) {
        return WithMassInUse(*ofUse, densities);
    }
    const ValueSet* ofPart = FindSet(part.sets, massType);
    return ofPart == nullptr ? ValueSet() : WithMass(*ofPart, densities);
}

PickedPart FindPicked(const Store& store, Request& request)
{
    const std::string_view root = request.Text("root");
    const std::string_view instance = request.Text("instance");
    const std::string_view identifier = request.Text("part");
    const std::string_view version = request.Text("version");
    const std::int64_t count = request.Count("path count");
    if (count > kDeepest) {
        throw RequestError("The field path count of the request holds " + std::to_string(count) +
                           ", expected at most " + std::to_string(kDeepest) + ".");
    }
    std::vector<std::string_view> instances; // leaf side first, as requests carry them
    for (std::int64_t i = 0; i < count; ++i) {
        instances.push_back(request.Text("path"));
    }
    request.End();
    std::ranges::reverse(instances);
    instances.push_back(instance);

    WalkResult walk = Walk(store, root, instances);
    if (!walk.picked) {
        throw RequestError(std::string("The field ") + (walk.missing == root ? "root" : "path") +
                           " of the request names \"" + walk.missing +
                           "\", which the database does not hold there.");
    }
    const PartLine& part = walk.picked->Part();
    CheckName("part", identifier, part.identifier);
    CheckName("version", version, part.version);
    return std::move(*walk.picked);
}

Node ReadNode(const Store& store, const PickedPart& picked)
{
    Node node{store,
              picked,
              store.ReadPart(picked.Part().id).part,
              store.ReadUse(picked.uses.back().id).use,
              store.MassTypes(),
              {},
              {}};
    DensityChoice& densities = node.densities;
    densities.use = {node.use.density, node.use.surfaceDensity};
    densities.part = {node.part.density, node.part.surfaceDensity};
    densities.useMaterial = MaterialDensities(store, node.use.material);
    densities.partMaterial = MaterialDensities(store, node.part.material);
    densities.first = node.part.densityFirst == DensityOrder::Material
                          ? Common::MaterialDensityFirst
                          : Common::WBDensityFirst;
    node.activeType = ActiveType(node.Sets(), node.use.activeType, node.part.activeType,
                                 node.IsLeaf(), node.types);
    return node;
}
} // namespace wb
