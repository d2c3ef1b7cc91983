#include "Selection.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace wb
{
namespace
{
constexpr int kNoLine = -1;

/// The lines of a filter by the nodes they lead to. Only nodes on the way to a line are here.
struct LineTree
{
    struct Node
    {
        std::map<std::uint32_t, std::size_t> below; // by use
        int line = kNoLine;                         // the last one that names this node
    };
    std::vector<Node> nodes{1};
    std::vector<std::size_t> unmatched; // lines that lead nowhere
};

bool Names(const ProductGraph& graph, std::uint32_t part, const Filter::Line& line)
{
    const ProductGraph::PartRow& row = graph.Parts()[part];
    return row.identifier == line.part && row.version == line.version;
}

LineTree TreeOf(const ProductGraph& graph, std::uint32_t root, const Filter& filter)
{
    LineTree tree;
    for (std::size_t number = 0; number < filter.lines.size(); ++number) {
        const Filter::Line& line = filter.lines[number];
        std::vector<std::uint32_t> uses;
        std::uint32_t part = root;
        bool found = true;
        for (const std::string& instance : line.FromRoot()) {
            const auto use = graph.FindUse(part, instance);
            found = use.has_value();
            if (!found) {
                break;
            }
            uses.push_back(*use);
            part = graph.Nodes()[graph.UseAt(*use).node].part;
        }
        if (!found || !Names(graph, part, line)) {
            tree.unmatched.push_back(number);
            continue;
        }
        std::size_t node = 0;
        for (const std::uint32_t use : uses) {
            const auto [place, isNew] = tree.nodes[node].below.try_emplace(use, tree.nodes.size());
            node = place->second;
            if (isNew) {
                tree.nodes.emplace_back();
            }
        }
        tree.nodes[node].line = static_cast<int>(number);
    }
    return tree;
}

/// Turns the lines into nodes: whole ones, left-out ones, and own ones for what is left in in part.
class Selector
{
public:
    Selector(Selection& selection, const Filter& filter, const LineTree& tree, std::uint32_t root)
        : m_selection(selection),
          m_filter(filter),
          m_tree(tree),
          m_lines(tree.nodes.size(), kNoLine),
          m_graphNodes(tree.nodes.size(), root),
          m_resolved(tree.nodes.size())
    {
        m_inByDefault =
            std::ranges::none_of(filter.lines, [](const Filter::Line& line) { return line.in; });
        // What is above comes first, so a line is handed down; what is below comes last, so its
        // numbers are there when they are needed.
        m_lines[0] = tree.nodes[0].line;
        for (std::size_t i = 0; i < tree.nodes.size(); ++i) {
            for (const auto& [use, below] : tree.nodes[i].below) {
                m_lines[below] = std::max(m_lines[i], tree.nodes[below].line);
                m_graphNodes[below] = selection.graph->UseAt(use).node;
            }
        }
        for (std::size_t i = tree.nodes.size(); i-- > 0;) {
            m_resolved[i] = Resolve(i);
        }
    }

    bool IsIn(std::size_t treeNode) const
    {
        const int line = m_lines[treeNode];
        return line == kNoLine ? m_inByDefault : m_filter.lines[static_cast<std::size_t>(line)].in;
    }
    /// The number of the node at a node of the tree, or nothing when it is left out.
    std::optional<std::uint32_t> At(std::size_t treeNode) const { return m_resolved[treeNode]; }

    std::uint32_t Keep(Selection::OwnNode own)
    {
        const auto number = static_cast<std::uint32_t>(m_selection.Count());
        m_selection.own.push_back(std::move(own));
        return number;
    }

private:
    std::optional<std::uint32_t> Resolve(std::size_t treeNode)
    {
        const std::uint32_t node = m_graphNodes[treeNode];
        const auto& below = m_tree.nodes[treeNode].below;
        if (below.empty()) {
            return IsIn(treeNode) ? std::optional(node) : std::nullopt;
        }
        const ProductGraph& graph = *m_selection.graph;
        const ProductGraph::PartRow& part = graph.PartOf(node);
        Selection::OwnNode own{node, true, true, {}, {}};
        bool whole = true;
        for (std::uint32_t use = part.firstUse; use < part.firstUse + part.useCount; ++use) {
            const std::uint32_t child = graph.UseAt(use).node;
            const auto named = below.find(use);
            std::optional<std::uint32_t> in;
            if (named != below.end()) {
                in = m_resolved[named->second];
            } else if (IsIn(treeNode)) {
                in = child;
            }
            whole = whole && in == child;
            if (in) {
                own.uses.push_back(use);
                own.children.push_back(*in);
            }
        }
        if (whole) {
            return node;
        }
        if (own.uses.empty() && !IsIn(treeNode)) {
            return std::nullopt;
        }
        return Keep(std::move(own));
    }

    Selection& m_selection;
    const Filter& m_filter;
    const LineTree& m_tree;
    std::vector<int> m_lines;                // that counts at each node of the tree
    std::vector<std::uint32_t> m_graphNodes; // each node of the tree in the graph
    std::vector<std::optional<std::uint32_t>> m_resolved;
    bool m_inByDefault = true;
};

/// Children first: the graph's nodes in its order, then the own ones, which were made in that
/// order.
void OrderBelow(Selection& selection)
{
    const ProductGraph& graph = *selection.graph;
    std::vector<bool> wanted(selection.Count(), false);
    if (!selection.asked) {
        return;
    }
    wanted[*selection.asked] = true;
    const auto markBelow = [&](std::uint32_t number) {
        if (wanted[number]) {
            selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow&) {
                wanted[child] = true;
            });
            selection.childrenFirst.push_back(number);
        }
    };
    for (auto number = static_cast<std::uint32_t>(selection.Count());
         number-- > graph.Nodes().size();) {
        markBelow(number);
    }
    const auto order = graph.ChildrenFirst();
    for (std::size_t i = order.size(); i-- > 0;) {
        markBelow(order[i]);
    }
    std::ranges::reverse(selection.childrenFirst);
}
} // namespace

Selection SelectAll(const ProductGraph& graph)
{
    Selection selection;
    selection.graph = &graph;
    selection.childrenFirst.assign(graph.ChildrenFirst().begin(), graph.ChildrenFirst().end());
    return selection;
}

Selection Select(const ProductGraph& graph, const AskedPath& path, const Filter& filter,
                 bool ownAsked)
{
    Selection selection;
    selection.graph = &graph;
    const LineTree tree = TreeOf(graph, path.root, filter);
    Selector selector(selection, filter, tree, path.root);

    // What stands above the asked node has its say: the lines on the path count.
    std::size_t treeNode = 0;
    std::uint32_t node = path.root;
    bool named = true;
    for (const std::uint32_t use : path.uses) {
        node = graph.UseAt(use).node;
        const auto below = tree.nodes[treeNode].below.find(use);
        named = named && below != tree.nodes[treeNode].below.end();
        if (named) {
            treeNode = below->second;
        }
    }
    if (named) {
        selection.asked = selector.At(treeNode);
    } else if (selector.IsIn(treeNode)) {
        selection.asked = node;
    }
    if (ownAsked && selection.asked == node) {
        selection.asked = selector.Keep({node, false, false, {}, {}});
    }
    OrderBelow(selection);
    return selection;
}

namespace
{
/// For each node whether it, or something below it, counts as it was kept.
std::vector<bool> OnKept(const Selection& selection, const std::vector<bool>& keptParts)
{
    const ProductGraph& graph = *selection.graph;
    std::vector<bool> onKept(selection.Count(), false);
    for (const std::uint32_t number : selection.childrenFirst) {
        bool here = !selection.IsOwn(number) && keptParts[graph.Nodes()[number].part];
        if (!here) {
            selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow&) {
                here = here || onKept[child];
            });
        }
        onKept[number] = here;
    }
    return onKept;
}

/// What stands below a node as a list, each child by the number that stands for it there.
Selection::OwnNode Copy(const Selection& selection, std::uint32_t number,
                        const std::unordered_map<std::uint32_t, std::uint32_t>& instead)
{
    const std::uint32_t node = selection.GraphNode(number);
    Selection::OwnNode copy{node, false, true, {}, {}};
    if (selection.IsOwn(number) && selection.Own(number).listed) {
        copy = selection.Own(number);
    } else {
        const ProductGraph::PartRow& part = selection.graph->PartOf(node);
        for (std::uint32_t use = part.firstUse; use < part.firstUse + part.useCount; ++use) {
            copy.uses.push_back(use);
            copy.children.push_back(selection.graph->UseAt(use).node);
        }
    }
    for (std::uint32_t& child : copy.children) {
        const auto found = instead.find(child);
        child = found == instead.end() ? child : found->second;
    }
    return copy;
}
} // namespace

void SetApart(Selection& selection, std::int64_t level, const std::vector<bool>& keptParts)
{
    const std::vector<bool> onKept = OnKept(selection, keptParts);
    if (!selection.asked || !onKept[*selection.asked]) {
        return;
    }
    // Level by level: what stands there and has something to do with a kept sum, each node once.
    std::vector<std::vector<std::uint32_t>> levels{{*selection.asked}};
    std::vector<std::size_t> lastMet(selection.Count(), 0);
    while (!levels.back().empty() && static_cast<std::int64_t>(levels.size()) <= level) {
        const std::size_t next = levels.size();
        std::vector<std::uint32_t> below;
        for (const std::uint32_t number : levels.back()) {
            selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow&) {
                if (onKept[child] && lastMet[child] != next) {
                    lastMet[child] = next;
                    below.push_back(child);
                }
            });
        }
        levels.push_back(std::move(below));
    }
    // The deepest first, so that numbers follow those of what stands below.
    std::unordered_map<std::uint32_t, std::uint32_t> below;
    for (std::size_t i = levels.size(); i-- > 0;) {
        std::unordered_map<std::uint32_t, std::uint32_t> here;
        for (const std::uint32_t number : levels[i]) {
            Selection::OwnNode copy = Copy(selection, number, below);
            here[number] = static_cast<std::uint32_t>(selection.Count());
            selection.own.push_back(std::move(copy));
        }
        below = std::move(here);
    }
    selection.asked = below.at(*selection.asked);
    selection.childrenFirst.clear();
    OrderBelow(selection);
}

std::vector<std::string> LinesWithoutNode(const ProductGraph& graph, std::uint32_t root,
                                          const Filter& filter)
{
    std::vector<std::string> names;
    for (const std::size_t number : TreeOf(graph, root, filter).unmatched) {
        const Filter::Line& line = filter.lines[number];
        std::string name;
        for (const std::string& instance : line.FromRoot()) {
            name += (name.empty() ? "" : "/") + instance;
        }
        names.push_back(name.empty() ? line.part : name);
    }
    return names;
}
} // namespace wb
