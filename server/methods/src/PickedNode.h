#pragma once

#include "PickedPart.h"
#include "Request.h"
#include "WBProductGraph.h"
#include "WBRules.h"

#include <memory>
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

/// A place in a product as a client names it.
struct PlaceFields
{
    std::string_view root;
    std::string_view instance; // empty or "__null__", with an empty path: the root itself
    std::string_view part;
    std::string_view version;
    std::vector<std::string_view> path; // instances above, leaf side first
};

/// Throws RequestError where a field names another part or version than the one that is there.
void CheckName(const char* field, std::string_view asked, const std::string& stored);

/// Walks there. Throws RequestError when the fields lead nowhere or to another part than they name.
PickedPart FindPicked(const Store& store, const PlaceFields& place);

/// Reads the rest of a request (root, instance, part, version, count, that many instance names from
/// the parent of the instance up to just below the root) and walks there.
PickedPart FindPicked(const Store& store, Request& request);

/// A root has no use, so that nothing is stated about one.
Node ReadNode(const Store& store, const PickedPart& picked);

/// A leaf and its use in the form in which products are summed up; the leaf's node is the last one.
/// It tells what a leaf's sets weigh without the product around it being read.
std::unique_ptr<ProductGraph> GraphOfLeaf(const Node& leaf);
} // namespace wb
