#include "ReportShares.h"

#include <algorithm>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;
} // namespace

ReportShares::ReportShares(const Selection& selection, const Walk& walk,
                           const ReportOptions& wanted)
    : m_selection(selection),
      m_walk(walk),
      m_wanted(wanted),
      m_materials(wanted.materials ? selection.Count() : 0),
      m_types(wanted.massTypes ? selection.Count() : 0),
      m_volumes(wanted.volumes ? selection.Count() : 0, kUnknown)
{}

void ReportShares::Make(std::uint32_t number)
{
    const NodeResult& result = m_walk.At(number);
    if (m_wanted.volumes) {
        m_volumes[number] = MadeVolume(number);
    }
    if (result.outcome == Outcome::Taken) {
        const double mass = result.claim->body.mass;
        if (m_wanted.materials) {
            m_materials[number] = {{KeyOf(number, *result.claim), mass}};
        }
        if (m_wanted.massTypes) {
            m_types[number] = {{result.claim->type, mass}};
        }
    } else if (result.outcome == Outcome::Descended) {
        if (m_wanted.materials) {
            m_materials[number] = SumOf(number, m_materials);
        }
        if (m_wanted.massTypes) {
            m_types[number] = SumOf(number, m_types);
        }
    }
}

std::uint32_t ReportShares::KeyOf(std::uint32_t number, const Claim& claim)
{
    const ProductGraph& graph = *m_selection.graph;
    const std::uint32_t node = m_selection.GraphNode(number);
    const MaterialKey key = MaterialKeyOf(graph.PartOf(node), claim, graph.Nodes()[node].material);
    const auto [place, isNew] =
        m_keyNumbers.try_emplace(key, static_cast<std::uint32_t>(m_keys.size()));
    if (isNew) {
        m_keys.push_back(key);
    }
    return place->second;
}

ReportShares::Masses ReportShares::SumOf(std::uint32_t number, const std::vector<Masses>& below)
{
    m_selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
        for (const auto& [key, mass] : below[child]) {
            m_sum.Add(key, use.pieces * mass);
        }
    });
    Masses sum;
    m_sum.TakeAll([&](std::size_t key, double mass) {
        sum.emplace_back(static_cast<std::uint32_t>(key), mass);
    });
    return sum;
}

double ReportShares::MadeVolume(std::uint32_t number) const
{
    const ProductGraph& graph = *m_selection.graph;
    const std::uint32_t node = m_selection.GraphNode(number);
    const NodeResult& result = m_walk.At(number);
    if (result.outcome == Outcome::Taken && IsKnown(graph.VolumeOf(*result.claim))) {
        return graph.VolumeOf(*result.claim);
    }
    if (graph.PartOf(node).IsLeaf()) {
        // A part that was weighed is as large as whoever modelled it said.
        for (const Claim& claim : graph.ClaimsOf(node)) {
            const bool isClaim = graph.Types()[claim.type].kind == MassType::Kind::Claim;
            if (isClaim && IsKnown(graph.VolumeOf(claim))) {
                return graph.VolumeOf(claim);
            }
        }
        return kUnknown;
    }
    double volume = 0.0;
    bool any = false;
    m_selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
        volume += use.pieces * m_volumes[child];
        any = true;
    });
    return any ? volume : kUnknown;
}

std::vector<NamedShare> ReportShares::MassTypesOf(std::uint32_t number) const
{
    std::vector<NamedShare> shares;
    if (!m_wanted.massTypes) {
        return shares;
    }
    const std::vector<MassType>& types = m_selection.graph->Types();
    Masses masses = m_types[number];
    std::ranges::sort(masses, {}, [&](const auto& share) { return types[share.first].order; });
    for (const auto& [type, mass] : masses) {
        shares.push_back({types[type].name, mass});
    }
    return shares;
}

std::vector<MaterialShare> ReportShares::MaterialsOf(std::uint32_t number) const
{
    return m_wanted.materials ? Named(m_materials[number]) : std::vector<MaterialShare>();
}

void ReportShares::AddMaterials(std::uint32_t number, double pieces,
                                std::unordered_map<std::uint32_t, double>& sum) const
{
    if (!m_wanted.materials) {
        return;
    }
    for (const auto& [key, mass] : m_materials[number]) {
        sum[key] += pieces * mass;
    }
}
} // namespace wb
