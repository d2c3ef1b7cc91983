#pragma once

#include "WBFilter.h"
#include "WBProductGraph.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wb
{
/// What of a product is summed up: the asked node and all that the filter leaves in below it.
///
/// A node that the filter leaves in whole is the graph's own. One that it leaves in in part becomes
/// a node of its own, and so does an asked node that is treated in another way than elsewhere, and
/// one that is summed up where the same part deeper down counts as it was kept; their numbers
/// follow those of the graph's nodes.
struct Selection
{
    struct OwnNode
    {
        std::uint32_t node = 0;              // of the graph
        bool filtered = false;               // some of what stands below is left out
        bool listed = false;                 // what stands below is listed here
        std::vector<std::uint32_t> uses;     // that are left in; only where listed
        std::vector<std::uint32_t> children; // parallel: the numbers of the nodes there
    };

    const ProductGraph* graph = nullptr;
    std::optional<std::uint32_t> asked; // nothing: the filter leaves it out
    std::vector<OwnNode> own;
    std::vector<std::uint32_t> childrenFirst;

    bool IsOwn(std::uint32_t number) const { return number >= graph->Nodes().size(); }
    const OwnNode& Own(std::uint32_t number) const { return own[number - graph->Nodes().size()]; }
    std::uint32_t GraphNode(std::uint32_t number) const
    {
        return IsOwn(number) ? Own(number).node : number;
    }
    std::size_t Count() const { return graph->Nodes().size() + own.size(); }

    struct Child
    {
        std::uint32_t number = 0;
        std::uint32_t use = 0; // of the graph
    };
    std::size_t ChildCount(std::uint32_t number) const
    {
        return IsOwn(number) && Own(number).listed ? Own(number).uses.size()
                                                   : graph->PartOf(GraphNode(number)).useCount;
    }
    Child ChildAt(std::uint32_t number, std::size_t position) const
    {
        if (IsOwn(number) && Own(number).listed) {
            return {Own(number).children[position], Own(number).uses[position]};
        }
        const std::uint32_t use =
            graph->PartOf(GraphNode(number)).firstUse + static_cast<std::uint32_t>(position);
        return {graph->UseAt(use).node, use};
    }

    /// Calls take(child's number, use) for everything that stands right below a node.
    template <typename Take>
    void ForEachChild(std::uint32_t number, const Take& take) const
    {
        if (IsOwn(number) && Own(number).listed) {
            const OwnNode& node = Own(number);
            for (std::size_t i = 0; i < node.uses.size(); ++i) {
                take(node.children[i], graph->UseAt(node.uses[i]));
            }
            return;
        }
        for (const ProductGraph::UseRow& use : graph->UsesOf(graph->PartOf(GraphNode(number)))) {
            take(use.node, use);
        }
    }
};

/// Everything below a node of the graph, or all of the graph's nodes.
Selection SelectAll(const ProductGraph& graph);

/// What the filter of the root leaves in below the node that the path of uses leads to. The asked
/// node is a node of its own when ownAsked says so.
Selection Select(const ProductGraph& graph, const AskedPath& path, const Filter& filter,
                 bool ownAsked);

/// Sets the asked node and what stands down to a level below it (the asked node is level 0) apart
/// from the same parts deeper down, where one of them, or something below it, counts as it was
/// kept. Afterwards the graph's own nodes stand deeper than the level there. Without such nodes
/// nothing changes.
void SetApart(Selection& selection, std::int64_t level, const std::vector<bool>& keptParts);

/// The filter's lines that lead to no node of the product.
std::vector<std::string> LinesWithoutNode(const ProductGraph& graph, std::uint32_t root,
                                          const Filter& filter);
} // namespace wb
