#include "PickedNode.h"

#include <algorithm>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

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

void CheckName(const char* field, std::string_view asked, const std::string& stored)
{
    if (asked != stored) {
        throw RequestError(std::string("The field ") + field + " of the request names \"" +
                           std::string(asked) + "\", but the instance is one of \"" + stored +
                           "\".");
    }
}

PickedPart FindPicked(const Store& store, const PlaceFields& place)
{
    std::vector<std::string_view> instances(place.path.rbegin(), place.path.rend());
    const bool isRoot = place.instance.empty() || place.instance == "__null__";
    if (!isRoot || !instances.empty()) {
        instances.push_back(place.instance);
    }
    WalkResult walk = WalkTo(store, place.root, instances);
    if (!walk.picked) {
        const char* field = !walk.hasRoot                       ? "root"
                            : walk.found + 1 < instances.size() ? "path"
                                                                : "instance";
        throw RequestError(std::string("The field ") + field + " of the request names \"" +
                           walk.missing + "\", which the database does not hold there.");
    }
    const PartLine& part = walk.picked->Part();
    CheckName("part", place.part, part.identifier);
    CheckName("version", place.version, part.version);
    return std::move(*walk.picked);
}

PickedPart FindPicked(const Store& store, Request& request)
{
    PlaceFields place;
    place.root = request.Text("root");
    place.instance = request.Text("instance");
    place.part = request.Text("part");
    place.version = request.Text("version");
    const std::int64_t count = request.Choice("path count", kDeepest);
    for (std::int64_t i = 0; i < count; ++i) {
        place.path.push_back(request.Text("path"));
    }
    request.End();
    return FindPicked(store, place);
}

Node ReadNode(const Store& store, const PickedPart& picked)
{
    Node node{store,
              picked,
              store.ReadPart(picked.Part().id).part,
              picked.uses.empty() ? Use() : store.ReadUse(picked.uses.back().id).use,
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

std::unique_ptr<ProductGraph> GraphOfLeaf(const Node& leaf)
{
    Product product;
    Use use = leaf.use;
    if (!leaf.picked.uses.empty()) {
        product.parts.emplace_back(); // stands for all that is above
        use.part = 1;
        product.uses.push_back(std::move(use));
    }
    product.parts.push_back(leaf.part);
    for (const std::string& name : {leaf.use.material, leaf.part.material}) {
        if (auto material = leaf.store.FindMaterial(name)) {
            product.materials.push_back(std::move(*material));
        }
    }
    return std::make_unique<ProductGraph>(product, leaf.types);
}
} // namespace wb
