#pragma once

#include "PickedPart.h"
#include "Request.h"
#include "WBRules.h"

#include <string>
#include <vector>

namespace wb
{
/// Everything that was stated about a picked part and its use, and what follows for one part.
struct Node
{
    const Store& store;
    const PickedPart& picked;
    Part part;
    Use use;
    std::vector<MassType> types;
    DensityChoice densities;
    std::string activeType;

    bool IsLeaf() const { return !picked.Part().hasUses; }
    NodeSets Sets() const { return {&use.sets, &part.sets}; }
    const std::string& MaterialName() const
    {
        return use.material.empty() ? part.material : use.material;
    }
    /// The set of that mass type with the mass that its size and density give; empty without one.
    ValueSet CompleteSet(std::string_view massType) const;
};

/// Reads the rest of a request (root, instance, part, version, count, that many instance names from
/// the parent of the instance up to just below the root) and walks there. Throws RequestError when
/// the fields lead nowhere or to another part than they name.
PickedPart FindPicked(const Store& store, Request& request);

Node ReadNode(const Store& store, const PickedPart& picked);
} // namespace wb
