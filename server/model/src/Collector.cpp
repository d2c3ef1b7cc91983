#include "Collector.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

namespace wb
{
namespace
{
constexpr std::int32_t kNoMaterial = -1;
constexpr std::int32_t kImposed = -2;
constexpr const char* kNoMaterialName = "(no material)";
constexpr const char* kImposedName = "(imposed)";
} // namespace

std::size_t MaterialHash::operator()(const MaterialKey& key) const
{
    constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;
    return (std::hash<double>()(key.density) * kSpread +
            static_cast<std::size_t>(key.material + 2)) *
               kSpread +
           static_cast<std::size_t>(key.dimension);
}

MaterialKey MaterialKeyOf(const ProductGraph::PartRow& part, const Claim& claim,
                          std::int32_t material)
{
    return material < 0 ? MaterialKey{part.IsLeaf() ? kNoMaterial : kImposed}
                        : MaterialKey{material, claim.dimension, claim.density};
}

std::string MaterialNameOf(const ProductGraph& graph, std::int32_t material)
{
    if (material < 0) {
        return material == kNoMaterial ? kNoMaterialName : kImposedName;
    }
    return graph.Materials()[static_cast<std::size_t>(material)].name;
}

bool IsOfMaterial(const MaterialShare& share)
{
    return share.material != kNoMaterialName && share.material != kImposedName;
}

void SortByMass(std::vector<MaterialShare>& shares)
{
    std::ranges::sort(shares, [](const MaterialShare& left, const MaterialShare& right) {
        if (left.mass != right.mass) {
            return left.mass > right.mass;
        }
        return std::tie(left.material, left.dimension, left.density) <
               std::tie(right.material, right.dimension, right.density);
    });
}

Collector::Pair& Collector::Pair::operator+=(const Pair& other)
{
    lower += other.lower;
    upper += other.upper;
    return *this;
}

Collector::Collector(const ProductGraph& graph)
    : m_graph(graph),
      m_otherMaterials(graph.Materials().size()),
      m_otherTypes(graph.Types().size()),
      m_otherCodes(graph.Codes().size())
{}

void Collector::Missing(double pieces)
{
    m_sum.counts.leaves += pieces;
    m_sum.counts.withoutMass += pieces;
}

void Collector::Taken(const NodeResult& result, std::uint32_t node, std::int32_t material,
                      double pieces)
{
    const ProductGraph::PartRow& part = m_graph.PartOf(node);
    const Claim& claim = *result.claim;
    const Body& body = claim.body;
    const double mass = pieces * body.mass;
    Counts& counts = m_sum.counts;
    counts.leaves += pieces;
    counts.massWithoutCentre += result.noCentre ? mass : 0.0;
    counts.massWithoutInertia += result.noInertia ? mass : 0.0;
    m_materials[MaterialKeyOf(part, claim, material)] += mass;
    m_types.Add(claim.type, mass);
    if (IsKnown(part.growthPct)) {
        m_sum.growthAllowance += mass * part.growthPct / 100.0;
    }
    const Pair squares{pieces * body.lower * body.lower, pieces * body.upper * body.upper};
    m_sum.apartSquares.lower += squares.lower;
    m_sum.apartSquares.upper += squares.upper;
    if (part.errorsApart) {
        m_sum.ownSquares.lower += squares.lower;
        m_sum.ownSquares.upper += squares.upper;
    } else {
        m_shared.Add(node, {pieces * body.lower, pieces * body.upper});
    }
}

void Collector::Kept(const KeptSum& sum, double pieces)
{
    Counts& counts = m_sum.counts;
    counts.leaves += pieces * sum.counts.leaves;
    counts.withoutMass += pieces * sum.counts.withoutMass;
    counts.massWithoutCentre += pieces * sum.counts.massWithoutCentre;
    counts.massWithoutInertia += pieces * sum.counts.massWithoutInertia;
    for (const MaterialShare& share : sum.materials) {
        m_materials[{MaterialNumber(share.material), share.dimension, share.density}] +=
            pieces * share.mass;
    }
    for (const NamedShare& share : sum.massTypes) {
        m_types.Add(TypeNumber(share.name), pieces * share.mass);
    }
    for (const NamedShare& share : sum.codes) {
        m_codes.Add(CodeNumber(share.name), pieces * share.mass);
    }
    m_sum.growthAllowance += pieces * sum.growthAllowance;
    m_sum.ownSquares.lower += pieces * sum.ownSquares.lower;
    m_sum.ownSquares.upper += pieces * sum.ownSquares.upper;
    m_sum.apartSquares.lower += pieces * sum.apartSquares.lower;
    m_sum.apartSquares.upper += pieces * sum.apartSquares.upper;
    for (const KeptSum::SharedErrors& shared : sum.sharedErrors) {
        m_shared.Add(shared.node, {pieces * shared.sum.lower, pieces * shared.sum.upper});
    }
}

std::int32_t Collector::MaterialNumber(const std::string& name)
{
    if (name == kNoMaterialName || name == kImposedName) {
        return name == kNoMaterialName ? kNoMaterial : kImposed;
    }
    const std::int32_t number = m_graph.FindMaterial(name);
    return number < 0 ? static_cast<std::int32_t>(m_otherMaterials.OfAnother(name)) : number;
}

std::size_t Collector::TypeNumber(const std::string& name)
{
    const std::int32_t number = m_graph.FindType(name);
    return number < 0 ? m_otherTypes.OfAnother(name) : static_cast<std::size_t>(number);
}

std::size_t Collector::CodeNumber(const std::string& name)
{
    if (m_codeNumbers.empty()) {
        for (std::size_t code = 0; code < m_graph.Codes().size(); ++code) {
            m_codeNumbers.emplace(m_graph.Codes()[code], code);
        }
    }
    const auto found = m_codeNumbers.find(name);
    return found == m_codeNumbers.end() ? m_otherCodes.OfAnother(name) : found->second;
}

std::string Collector::MaterialName(std::int32_t material) const
{
    const std::string* other =
        material < 0 ? nullptr : m_otherMaterials.Other(static_cast<std::size_t>(material));
    return other == nullptr ? MaterialNameOf(m_graph, material) : *other;
}

void Collector::FinishTypes()
{
    struct Row
    {
        int order;
        NamedShare share;
    };
    std::vector<Row> rows;
    m_types.TakeAll([&](std::size_t type, double mass) {
        const std::string* other = m_otherTypes.Other(type);
        rows.push_back(other == nullptr
                           ? Row{m_graph.Types()[type].order, {m_graph.Types()[type].name, mass}}
                           : Row{std::numeric_limits<int>::max(), {*other, mass}});
    });
    std::ranges::sort(rows, {}, &Row::order);
    for (Row& row : rows) {
        m_sum.massTypes.push_back(std::move(row.share));
    }
}

KeptSum Collector::Finish(double withoutCode)
{
    for (const auto& [key, mass] : m_materials) {
        m_sum.materials.push_back({MaterialName(key.material), key.dimension, key.density, mass});
    }
    m_materials.clear();
    SortByMass(m_sum.materials);
    FinishTypes();
    m_codes.TakeAll([&](std::size_t code, double mass) {
        const std::string* other = m_otherCodes.Other(code);
        m_sum.codes.push_back({other == nullptr ? m_graph.Codes()[code] : *other, mass});
    });
    SortByMass(m_sum.codes);
    m_sum.withoutCode = withoutCode;
    m_shared.TakeAll([&](std::size_t node, const Pair& sum) {
        m_sum.sharedErrors.push_back({static_cast<std::uint32_t>(node), {sum.lower, sum.upper}});
    });
    std::ranges::sort(m_sum.sharedErrors, {}, &KeptSum::SharedErrors::node);
    return std::exchange(m_sum, KeptSum());
}
} // namespace wb
