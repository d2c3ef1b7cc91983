#pragma once

#include "WBStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// A place in a product, found by walking from its root down.
struct PickedPart
{
    PartLine root;
    /// From the root down; empty when the root itself was picked.
    std::vector<UseLine> uses;
    /// Of the picked part in the root's axes.
    Placement placement;

    const PartLine& Part() const { return uses.empty() ? root : uses.back().part; }
};

/// Where a walk stopped.
struct WalkResult
{
    std::optional<PickedPart> picked;
    std::string missing;   // the name that was not found
    bool hasRoot = false;  // the root was found
    std::size_t found = 0; // so many instance names were found
};

/// Walks from the root of that identifier along the instance names, root side first.
WalkResult WalkTo(const Store& store, std::string_view root,
                  const std::vector<std::string_view>& instances);

/// Instance names from the parent of the picked part up to just below the root.
std::vector<std::string> LeafSidePath(const PickedPart& picked);
} // namespace wb
