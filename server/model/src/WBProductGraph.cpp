#include "WBProductGraph.h"

#include "Walk.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

/// The position of a name in a list that grows by the names it meets; -1 for an empty one.
class Names
{
public:
    explicit Names(std::vector<std::string>& names) : m_names(names) {}

    std::int32_t Number(const std::string& name)
    {
        if (name.empty()) {
            return -1;
        }
        const auto [found, isNew] =
            m_numbers.try_emplace(name, static_cast<std::int32_t>(m_names.size()));
        if (isNew) {
            m_names.push_back(name);
        }
        return found->second;
    }

private:
    std::vector<std::string>& m_names;
    std::unordered_map<std::string, std::int32_t> m_numbers;
};

bool StatesSomething(const Use& use)
{
    return !use.sets.empty() || !use.material.empty() || !use.activeType.empty() ||
           IsKnown(use.density) || IsKnown(use.surfaceDensity);
}

bool IsTurned(const Placement& placement)
{
    return placement.rotation != Placement().rotation;
}

std::string CycleSentence(const Product& product, const std::vector<std::uint32_t>& cycle)
{
    std::string sentence = "The product holds itself: ";
    for (std::size_t i = 0; i < cycle.size(); ++i) {
        sentence += (i == 0 ? "" : " > ") + product.parts[cycle[i]].identifier;
    }
    return sentence + ".";
}

std::vector<std::vector<std::uint32_t>> PartsBelow(const Product& product)
{
    std::vector<std::vector<std::uint32_t>> edges(product.parts.size());
    for (const Use& use : product.uses) {
        edges[use.parent].push_back(use.part);
    }
    return edges;
}

/// Thrown and caught in this file.
struct Cancelled
{};

void StopIfCancelled(const std::function<bool()>& cancelled)
{
    if (cancelled && cancelled()) {
        throw Cancelled();
    }
}

/// The same at every so many steps of a loop.
void StopNowAndThen(const std::function<bool()>& cancelled, std::size_t step)
{
    constexpr std::size_t kSteps = 4096;
    if (step % kSteps == 0) {
        StopIfCancelled(cancelled);
    }
}

/// Whether somebody stated how precise the mass is; else the mass type's default stands.
bool StatesPrecision(const ValueSet& set)
{
    return set.Has(Fact::Lower) || set.Has(Fact::LowerPct);
}

std::optional<Sigmas> SigmasIn(const ValueSet& set)
{
    Sigmas sigmas;
    const auto at = [&](Fact first, std::size_t offset) {
        return set.numbers[static_cast<std::size_t>(first) + offset];
    };
    sigmas.mass = set[Fact::SigmaMass];
    bool stated = IsKnown(sigmas.mass);
    for (std::size_t i = 0; i < 3; ++i) {
        sigmas.centre[i] = at(Fact::SigmaCgX, i);
        stated |= IsKnown(sigmas.centre[i]);
    }
    for (std::size_t i = 0; i < 6; ++i) {
        sigmas.inertia[i] = at(Fact::SigmaIxx, i);
        stated |= IsKnown(sigmas.inertia[i]);
    }
    return stated ? std::optional(sigmas) : std::nullopt;
}

/// The dimension of the density that is shown: that of the size; without one the volume's, unless a
/// surface density is all there is.
Dimension ShownDimension(const ValueSet& set, const DensityChoice& densities)
{
    if (set.Has(Fact::Volume) || set.Has(Fact::Area)) {
        return set.Has(Fact::Volume) ? Dimension::Volume : Dimension::Surface;
    }
    const bool surfaceAlone = !IsKnown(DensityInUse(densities, Dimension::Volume)) &&
                              IsKnown(DensityInUse(densities, Dimension::Surface));
    return surfaceAlone ? Dimension::Surface : Dimension::Volume;
}
} // namespace

ProductGraph::ProductGraph(const Product& product, std::vector<MassType> types,
                           const std::function<bool()>& cancelled)
    : m_types(std::move(types)), m_materials(product.materials)
{
    try {
        Build(product, cancelled);
    } catch (const Cancelled&) {
        m_error = "The computation was cancelled.";
    }
}

void ProductGraph::Build(const Product& product, const std::function<bool()>& cancelled)
{
    const auto below = PartsBelow(product);
    StopIfCancelled(cancelled);
    const auto cycle = FindCycle(below);
    if (!cycle.empty()) {
        m_error = CycleSentence(product, cycle);
        return;
    }
    StopIfCancelled(cancelled);
    for (const Material& material : m_materials) {
        m_materialNumbers.try_emplace(material.name,
                                      static_cast<std::int32_t>(&material - m_materials.data()));
    }
    AddParts(product);
    AddUses(product, product.UsesByParent(), cancelled);
    OrderNodes(below, cancelled);
    m_activeBelow.resize(m_parts.size());
    m_active = std::make_unique<Walk>(SelectAll(*this), WalkRule(), AskedRule(),
                                      Walk::Sources{nullptr, nullptr, &m_activeBelow, cancelled});
    StopIfCancelled(cancelled);
}

ProductGraph::~ProductGraph() = default;

void ProductGraph::AddParts(const Product& product)
{
    Names codes(m_codes);
    for (const Part& part : product.parts) {
        PartRow row;
        row.identifier = part.identifier;
        row.version = part.version;
        row.name = part.ShownName();
        row.growthPct = part.growthPct;
        row.code = codes.Number(part.code);
        row.type = part.type;
        row.standard = part.standard == Answer::Yes;
        row.errorsApart = part.errors == ErrorRule::Apart;
        m_parts.push_back(std::move(row));
    }
}

void ProductGraph::AddUses(const Product& product,
                           const std::vector<std::vector<std::uint32_t>>& below,
                           const std::function<bool()>& cancelled)
{
    for (std::uint32_t part = 0; part < m_parts.size(); ++part) {
        m_parts[part].firstUse = static_cast<std::uint32_t>(m_uses.size());
        m_parts[part].useCount = static_cast<std::uint32_t>(below[part].size());
        for (const std::uint32_t number : below[part]) {
            StopNowAndThen(cancelled, m_uses.size());
            const Use& use = product.uses[number];
            m_uses.push_back({use.placement, use.part, use.Pieces(), IsTurned(use.placement)});
            m_instances.push_back(use.instance);
        }
    }
    for (std::uint32_t part = 0; part < m_parts.size(); ++part) {
        StopNowAndThen(cancelled, part);
        AddNode(product.parts[part], part, nullptr);
    }
    for (std::uint32_t parent = 0; parent < m_parts.size(); ++parent) {
        for (std::uint32_t i = 0; i < m_parts[parent].useCount; ++i) {
            const Use& use = product.uses[below[parent][i]];
            if (StatesSomething(use)) {
                StopNowAndThen(cancelled, m_nodes.size());
                m_uses[m_parts[parent].firstUse + i].node =
                    static_cast<std::uint32_t>(m_nodes.size());
                AddNode(product.parts[use.part], use.part, &use);
            }
        }
    }
}

DensityPair ProductGraph::DensitiesOf(std::int32_t material) const
{
    if (material < 0) {
        return {};
    }
    const Material& row = m_materials[static_cast<std::size_t>(material)];
    return {row.density, row.surfaceDensity};
}

void ProductGraph::AddNode(const Part& part, std::uint32_t number, const Use* use)
{
    NodeRow node;
    node.part = number;
    node.ofUse = use != nullptr;
    node.firstClaim = static_cast<std::uint32_t>(m_claims.size());
    const std::int32_t partMaterial = FindMaterial(part.material);
    const std::int32_t useMaterial = use == nullptr ? -1 : FindMaterial(use->material);
    node.material = useMaterial < 0 ? partMaterial : useMaterial;

    DensityChoice densities;
    if (use != nullptr) {
        densities.use = {use->density, use->surfaceDensity};
    }
    densities.part = {part.density, part.surfaceDensity};
    node.density = IsKnown(densities.use.volumic) ? densities.use.volumic : densities.part.volumic;
    densities.useMaterial = DensitiesOf(useMaterial);
    densities.partMaterial = DensitiesOf(partMaterial);
    densities.first = part.densityFirst == DensityOrder::Material ? Common::MaterialDensityFirst
                                                                  : Common::WBDensityFirst;

    const NodeSets sets{use == nullptr ? nullptr : &use->sets, &part.sets};
    for (std::uint32_t type = 0; type < m_types.size(); ++type) {
        const ValueSet* set = sets.Find(m_types[type].name);
        if (StatusOf(set) == Common::Empty) {
            continue;
        }
        const bool ofUse = use != nullptr && FindSet(use->sets, m_types[type].name) != nullptr;
        Claim claim = MakeClaim(*set, densities, type, ofUse);
        if (const auto sigmas = SigmasIn(*set)) {
            claim.sigmas = static_cast<std::int32_t>(m_sigmas.size());
            m_sigmas.push_back(*sigmas);
        }
        if (set->Has(Fact::Volume) || set->Has(Fact::Area)) {
            claim.sized = static_cast<std::int32_t>(m_sized.size());
            m_sized.push_back({*set, densities, ofUse});
        }
        m_claims.push_back(claim);
    }
    node.claimCount = static_cast<std::uint32_t>(m_claims.size()) - node.firstClaim;
    std::sort(m_claims.begin() + node.firstClaim, m_claims.end(),
              [&](const Claim& left, const Claim& right) {
                  return m_types[left.type].order > m_types[right.type].order;
              });
    node.imposed = FindType(LastImposed(use, part));
    node.active = FindType(ActiveType(sets, use == nullptr ? std::string() : use->activeType,
                                      part.activeType, m_parts[number].IsLeaf(), m_types));
    if (node.active >= 0 &&
        m_types[static_cast<std::size_t>(node.active)].kind == MassType::Kind::Goal) {
        node.active = -1;
    }
    m_nodes.push_back(node);
}

Claim ProductGraph::MakeClaim(const ValueSet& set, const DensityChoice& densities,
                              std::uint32_t type, bool ofUse) const
{
    const auto complete = [&](const ValueSet& stated) {
        return ofUse ? WithMassInUse(stated, densities) : WithMass(stated, densities);
    };
    const ValueSet full = complete(set);
    Claim claim;
    claim.type = type;
    claim.dimension = ShownDimension(set, densities);
    const double density = DensityInUse(densities, claim.dimension);
    claim.density = IsKnown(density) ? density : 0.0;
    claim.followsSize = SizedBy(set).has_value();
    claim.precisionStated = StatesPrecision(set);
    claim.isOutdated = set.isOutdated;
    if (set.Has(Fact::Mass)) {
        ValueSet sizeAlone = set;
        sizeAlone[Fact::Mass] = kUnknown;
        claim.massOfSize = complete(sizeAlone)[Fact::Mass];
    }
    const Deviations deviations = DeviationsOf(full, m_types[type]);
    claim.body = {full[Fact::Mass],
                  deviations.lower,
                  deviations.upper,
                  {full[Fact::CgX], full[Fact::CgY], full[Fact::CgZ]},
                  {full[Fact::Ixx], full[Fact::Iyy], full[Fact::Izz], full[Fact::Ixy],
                   full[Fact::Ixz], full[Fact::Iyz]}};
    return claim;
}

void ProductGraph::OrderNodes(const std::vector<std::vector<std::uint32_t>>& below,
                              const std::function<bool()>& cancelled)
{
    // Nodes of uses come right after their part: they stand above the same parts.
    std::vector<std::vector<std::uint32_t>> ofPart(m_parts.size());
    for (auto node = static_cast<std::uint32_t>(m_parts.size()); node < m_nodes.size(); ++node) {
        ofPart[m_nodes[node].part].push_back(node);
    }
    std::vector<bool> seen(m_parts.size(), false);
    std::vector<std::pair<std::uint32_t, std::size_t>> path; // a part and its next part below
    for (std::uint32_t start = 0; start < m_parts.size(); ++start) {
        StopNowAndThen(cancelled, start);
        if (!seen[start]) {
            seen[start] = true;
            path.emplace_back(start, 0);
        }
        while (!path.empty()) {
            auto& [part, next] = path.back();
            if (next < below[part].size()) {
                const std::uint32_t child = below[part][next++];
                if (!seen[child]) {
                    seen[child] = true;
                    path.emplace_back(child, 0);
                }
                continue;
            }
            m_childrenFirst.push_back(part);
            m_childrenFirst.insert(m_childrenFirst.end(), ofPart[part].begin(), ofPart[part].end());
            path.pop_back();
        }
    }
}

std::optional<std::uint32_t> ProductGraph::FindPart(std::string_view identifier,
                                                    std::string_view version) const
{
    const auto found = std::ranges::find_if(m_parts, [&](const PartRow& part) {
        return part.identifier == identifier && part.version == version;
    });
    return found == m_parts.end()
               ? std::nullopt
               : std::optional(static_cast<std::uint32_t>(found - m_parts.begin()));
}

std::optional<std::uint32_t> ProductGraph::FindUse(std::uint32_t part,
                                                   std::string_view instance) const
{
    const std::uint32_t first = m_parts[part].firstUse;
    for (std::uint32_t use = first; use < first + m_parts[part].useCount; ++use) {
        if (m_instances[use] == instance) {
            return use;
        }
    }
    return std::nullopt;
}

std::optional<AskedPath> ProductGraph::FindPath(std::uint32_t root,
                                                const std::vector<std::string>& instances) const
{
    AskedPath path{root, {}};
    std::uint32_t part = root;
    for (const std::string& instance : instances) {
        const auto use = FindUse(part, instance);
        if (!use) {
            return std::nullopt;
        }
        path.uses.push_back(*use);
        part = m_nodes[m_uses[*use].node].part;
    }
    return path;
}

std::int32_t ProductGraph::FindMaterial(std::string_view name) const
{
    const auto found = m_materialNumbers.find(std::string(name));
    return found == m_materialNumbers.end() ? -1 : found->second;
}

void ProductGraph::AddMaterial(const Material& material)
{
    const auto number = static_cast<std::int32_t>(m_materials.size());
    const auto [place, isNew] = m_materialNumbers.try_emplace(material.name, number);
    if (isNew) {
        m_materials.push_back(material);
    } else {
        // No change of the product tells that a material which was only tried has another density.
        m_materials[static_cast<std::size_t>(place->second)] = material;
    }
}

std::int32_t ProductGraph::FindType(std::string_view name) const
{
    const auto found = std::ranges::find(m_types, name, &MassType::name);
    return found == m_types.end() ? -1 : static_cast<std::int32_t>(found - m_types.begin());
}

std::vector<Claim> ProductGraph::ClaimsWith(std::uint32_t node,
                                            std::optional<DensityPriority> first,
                                            std::int32_t material) const
{
    const auto stated = ClaimsOf(node);
    std::vector<Claim> claims(stated.begin(), stated.end());
    for (Claim& claim : claims) {
        if (claim.sized < 0) {
            continue;
        }
        const SizedSet& sized = m_sized[static_cast<std::size_t>(claim.sized)];
        DensityChoice densities = sized.densities;
        densities.first = first.value_or(densities.first);
        if (material >= 0) {
            densities.useMaterial = DensitiesOf(material);
        }
        const Claim other = MakeClaim(sized.set, densities, claim.type, sized.ofUse);
        const double ratio = other.density / claim.density;
        const Inertia inertia = claim.body.inertia;
        claim.body = other.body;
        if (claim.followsSize && claim.density != 0.0 && other.density != 0.0) {
            // Stated for the density that counts without the request.
            std::ranges::transform(inertia, claim.body.inertia.begin(),
                                   [&](double term) { return term * ratio; });
        }
        claim.density = other.density;
        claim.dimension = other.dimension;
        claim.massOfSize = other.massOfSize;
    }
    return claims;
}
} // namespace wb
