#include "ReportPicks.h"

#include "PickedNode.h"
#include "Request.h"

#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <unordered_map>

namespace wb
{
namespace
{
using Uses = std::vector<std::uint32_t>;

/// Finds uses by name. Many picks ask below the same parts, so that the names there are put in
/// order at the first question.
class UseFinder
{
public:
    explicit UseFinder(const ProductGraph& graph) : m_graph(graph) {}

    std::optional<std::uint32_t> Find(std::uint32_t part, std::string_view instance)
    {
        const auto [names, isNew] = m_names.try_emplace(part);
        if (isNew) {
            const ProductGraph::PartRow& row = m_graph.Parts()[part];
            for (std::uint32_t use = row.firstUse; use < row.firstUse + row.useCount; ++use) {
                names->second.emplace(m_graph.InstanceOf(use), use);
            }
        }
        const auto found = names->second.find(instance);
        return found == names->second.end() ? std::nullopt : std::optional(found->second);
    }

private:
    const ProductGraph& m_graph;
    std::unordered_map<std::uint32_t, std::unordered_map<std::string_view, std::uint32_t>> m_names;
};

Uses FindPick(const ProductGraph& graph, UseFinder& finder, const ReportRequest::Pick& pick)
{
    std::vector<std::string_view> instances(pick.path.rbegin(), pick.path.rend());
    const bool isRoot = pick.instance.empty() && instances.empty();
    if (!isRoot) {
        instances.push_back(pick.instance);
    }
    Uses uses;
    std::uint32_t part = 0;
    for (const std::string_view instance : instances) {
        const auto use = finder.Find(part, instance);
        if (!use) {
            const char* field = uses.size() + 1 < instances.size() ? "path" : "instance";
            throw RequestError(std::string("The field ") + field + " of the request names \"" +
                               std::string(instance) +
                               "\", which the database does not hold there.");
        }
        uses.push_back(*use);
        part = graph.Nodes()[graph.UseAt(*use).node].part;
    }
    CheckName("part", pick.part, graph.Parts()[part].identifier);
    CheckName("version", pick.version, graph.Parts()[part].version);
    return uses;
}

/// True where something above the end of the uses is there.
bool IsInside(const std::set<Uses>& found, const Uses& uses)
{
    Uses above;
    for (const std::uint32_t use : uses) {
        if (found.contains(above)) {
            return true;
        }
        above.push_back(use);
    }
    return false;
}
} // namespace

std::vector<Uses> FindPicks(const ProductGraph& graph,
                            const std::vector<ReportRequest::Pick>& picks)
{
    UseFinder finder(graph);
    std::vector<Uses> inOrder;
    std::set<Uses> found;
    for (const ReportRequest::Pick& pick : picks) {
        Uses uses = FindPick(graph, finder, pick);
        if (found.insert(uses).second) {
            inOrder.push_back(std::move(uses));
        }
    }
    std::erase_if(inOrder, [&](const Uses& uses) { return IsInside(found, uses); });
    return inOrder;
}
} // namespace wb
