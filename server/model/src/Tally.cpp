#include "Tally.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <unordered_map>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;

constexpr std::int32_t kNoMaterial = -1;
constexpr std::int32_t kImposed = -2;

struct MaterialKey
{
    std::int32_t material = kNoMaterial;
    Dimension dimension = Dimension::Volume;
    double density = 0.0;

    bool operator==(const MaterialKey&) const = default;
};

struct MaterialHash
{
    std::size_t operator()(const MaterialKey& key) const
    {
        constexpr std::size_t kSpread = 0x9E3779B97F4A7C15U;
        return (std::hash<double>()(key.density) * kSpread +
                static_cast<std::size_t>(key.material + 2)) *
                   kSpread +
               static_cast<std::size_t>(key.dimension);
    }
};

/// A leaf without material and an imposed assembly without one have no density that means anything.
MaterialKey KeyOf(std::int32_t material, const Claim& claim, bool isLeaf)
{
    if (material < 0) {
        return {isLeaf ? kNoMaterial : kImposed, Dimension::Volume, 0.0};
    }
    return {material, claim.dimension, claim.density};
}

std::string MaterialName(const ProductGraph& graph, std::int32_t material)
{
    if (material < 0) {
        return material == kNoMaterial ? "(no material)" : "(imposed)";
    }
    return graph.Materials()[static_cast<std::size_t>(material)].name;
}

/// Largest first, then by name: a list that is read from the top.
template <typename Share, typename Name>
void SortShares(std::vector<Share>& shares, const Name& name)
{
    std::ranges::sort(shares, [&](const Share& left, const Share& right) {
        return left.mass != right.mass ? left.mass > right.mass : left.*name < right.*name;
    });
}

/// Mass by code: what has no code of its own waits in its node until a node above has one.
std::vector<NamedShare> CodeShares(const Selection& selection, const Walk& walk,
                                   const std::vector<double>& pieces, std::int32_t codeAbove)
{
    const ProductGraph& graph = *selection.graph;
    std::vector<double> waiting(selection.Count(), 0.0);
    std::vector<double> sums(graph.Codes().size(), 0.0);
    std::vector<bool> met(graph.Codes().size(), false);
    const auto give = [&](std::int32_t code, double mass) {
        sums[static_cast<std::size_t>(code)] += mass;
        met[static_cast<std::size_t>(code)] = true;
    };
    for (const std::uint32_t number : selection.childrenFirst) {
        const NodeResult& result = walk.At(number);
        if (pieces[number] == 0.0 || result.outcome == Outcome::Missing) {
            continue;
        }
        double mass = 0.0;
        bool any = result.outcome == Outcome::Taken;
        if (any) {
            mass = result.claim->body.mass;
        } else {
            selection.ForEachChild(number,
                                   [&](std::uint32_t child, const ProductGraph::UseRow& use) {
                                       mass += use.pieces * waiting[child];
                                       any = any || waiting[child] != 0.0;
                                   });
        }
        const std::int32_t code = graph.PartOf(selection.GraphNode(number)).code;
        if (code < 0) {
            waiting[number] = mass;
        } else if (any) {
            give(code, pieces[number] * mass);
        }
    }
    std::vector<NamedShare> shares;
    const double rest = selection.asked ? waiting[*selection.asked] : 0.0;
    if (rest != 0.0 && codeAbove >= 0) {
        give(codeAbove, rest);
    } else if (rest != 0.0) {
        shares.push_back({"(no code)", rest});
    }
    for (std::size_t code = 0; code < sums.size(); ++code) {
        if (met[code]) {
            shares.push_back({graph.Codes()[code], sums[code]});
        }
    }
    SortShares(shares, &NamedShare::name);
    return shares;
}

/// Collects what every stop of the walk contributes.
class Collector
{
public:
    explicit Collector(const ProductGraph& graph)
        : m_graph(graph), m_types(graph.Types().size(), 0.0), m_typeMet(graph.Types().size(), false)
    {}

    void Missing(double pieces)
    {
        m_statistics.counts.leaves += pieces;
        m_statistics.counts.withoutMass += pieces;
    }

    void Taken(const NodeResult& result, const ProductGraph::PartRow& part, std::int32_t material,
               double pieces)
    {
        const Body& body = result.claim->body;
        const double mass = pieces * body.mass;
        Counts& counts = m_statistics.counts;
        counts.leaves += pieces;
        counts.massWithoutCentre += result.noCentre ? mass : 0.0;
        counts.massWithoutInertia += result.noInertia ? mass : 0.0;
        m_materials[KeyOf(material, *result.claim, part.IsLeaf())] += mass;
        m_types[result.claim->type] += mass;
        m_typeMet[result.claim->type] = true;
        if (IsKnown(part.growthPct)) {
            m_statistics.growthAllowance += mass * part.growthPct / 100.0;
        }
        const Deviations squares{body.lower * body.lower, body.upper * body.upper};
        const double shared = part.errorsApart ? pieces : pieces * pieces;
        m_together.lower += shared * squares.lower;
        m_together.upper += shared * squares.upper;
        m_apart.lower += pieces * squares.lower;
        m_apart.upper += pieces * squares.upper;
    }

    Statistics Finish()
    {
        for (const auto& [key, mass] : m_materials) {
            m_statistics.materials.push_back(
                {MaterialName(m_graph, key.material), key.dimension, key.density, mass});
        }
        std::ranges::sort(m_statistics.materials,
                          [](const MaterialShare& left, const MaterialShare& right) {
                              if (left.mass != right.mass) {
                                  return left.mass > right.mass;
                              }
                              return std::tie(left.material, left.dimension, left.density) <
                                     std::tie(right.material, right.dimension, right.density);
                          });
        std::vector<std::size_t> order;
        for (std::size_t type = 0; type < m_types.size(); ++type) {
            if (m_typeMet[type]) {
                order.push_back(type);
            }
        }
        std::ranges::sort(order, {}, [&](std::size_t type) { return m_graph.Types()[type].order; });
        for (const std::size_t type : order) {
            m_statistics.massTypes.push_back({m_graph.Types()[type].name, m_types[type]});
        }
        m_statistics.rss = {{std::sqrt(m_together.lower), std::sqrt(m_together.upper)},
                            {std::sqrt(m_apart.lower), std::sqrt(m_apart.upper)}};
        return std::move(m_statistics);
    }

private:
    const ProductGraph& m_graph;
    Statistics m_statistics;
    std::unordered_map<MaterialKey, double, MaterialHash> m_materials;
    std::vector<double> m_types;
    std::vector<bool> m_typeMet;
    Deviations m_together;
    Deviations m_apart;
};
} // namespace

std::vector<double> PiecesOf(const Selection& selection, const Walk& walk)
{
    std::vector<double> pieces(selection.Count(), 0.0);
    if (!selection.asked) {
        return pieces;
    }
    pieces[*selection.asked] = 1.0;
    for (std::size_t i = selection.childrenFirst.size(); i-- > 0;) {
        const std::uint32_t number = selection.childrenFirst[i];
        const double here = pieces[number];
        if (here == 0.0 || walk.At(number).outcome != Outcome::Descended) {
            continue;
        }
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            pieces[child] += here * use.pieces;
        });
    }
    return pieces;
}

Statistics Tally(const Selection& selection, const Walk& walk, const AskedRule& asked,
                 const std::vector<double>& pieces, std::int32_t codeAbove)
{
    const ProductGraph& graph = *selection.graph;
    Collector collector(graph);
    for (const std::uint32_t number : selection.childrenFirst) {
        const NodeResult& result = walk.At(number);
        if (pieces[number] == 0.0 || result.outcome == Outcome::Descended) {
            continue;
        }
        if (result.outcome == Outcome::Missing) {
            collector.Missing(pieces[number]);
            continue;
        }
        const std::uint32_t node = selection.GraphNode(number);
        const bool other = number == selection.asked && asked.ownClaims && asked.material >= 0;
        collector.Taken(result, graph.PartOf(node),
                        other ? asked.material : graph.Nodes()[node].material, pieces[number]);
    }
    Statistics statistics = collector.Finish();
    statistics.codes = CodeShares(selection, walk, pieces, codeAbove);
    return statistics;
}
} // namespace wb
