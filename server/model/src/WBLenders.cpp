#include "WBLenders.h"

#include "Completion.h"

#include <algorithm>

namespace wb
{
Lenders LendersOf(const ProductGraph& graph, std::uint32_t node, std::string_view massType)
{
    const std::int32_t type = graph.FindType(massType);
    const auto claims = graph.ClaimsOf(node);
    const auto claim = std::ranges::find_if(claims, [&](const Claim& candidate) {
        return static_cast<std::int32_t>(candidate.type) == type && candidate.HasMass();
    });
    if (claim == claims.end()) {
        return {};
    }
    const Body* below =
        graph.PartOf(node).IsLeaf() ? nullptr : &graph.ActiveBelow(graph.Nodes()[node].part);
    const Completed completed = Complete(*claim, claims, below, graph.Types());
    return {LenderName(completed.centreLender, graph.Types()),
            LenderName(completed.inertiaLender, graph.Types())};
}
} // namespace wb
