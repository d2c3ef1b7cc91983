#pragma once

#include "WBFilter.h"
#include "WBProductGraph.h"
#include "WBStore.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Up to eight names, those most like the wanted one first, and how many more there are.
std::string NearestNames(std::string_view wanted, std::vector<std::string> names);

/// Takes the first name off a path "NAME/NAME": what stands before the first "/" that ends a known
/// name, since a name may hold "/"; where none is known, what stands before the first one.
std::string TakeName(std::string_view& path,
                     const std::function<bool(const std::string& name)>& isKnownName);

/// "LA1/WNG-000.1" has no instance "X", expected one of ...
std::string NoInstance(const std::string& path, std::string_view name,
                       std::vector<std::string> names);

/// A product root that a path begins with, and what follows behind it.
struct ComputeRoot
{
    wb::PartLine root;
    std::string below; ///< "INSTANCE/INSTANCE"; empty: the root itself
};

/// The product that the path begins with; of several versions the one that was stored last, or the
/// given one. Nothing, with a sentence that names what there is instead.
std::optional<ComputeRoot> FindComputeRoot(const wb::Store& store, const std::string& path,
                                           const std::string& version, std::string& problem);

/// The node that instance names lead to from the product's root, its first part. Nothing, with a
/// sentence that names the step that leads nowhere and those that there are. A name may hold "/".
std::optional<wb::AskedPath> FindComputeNode(const wb::ProductGraph& graph, std::string_view below,
                                             std::string& problem);

/// The node that a whole path leads to, "ROOT/INSTANCE/...". Nothing, with a sentence that names
/// the option that holds it.
std::optional<wb::AskedPath> FindWholePath(const wb::ProductGraph& graph, const char* option,
                                           std::string_view path, std::string& problem);

/// A filter of whole paths, "ROOT/INSTANCE/...". The longest path that leads to a node or to
/// something above it decides about it. What no path names is left out where a path that stands
/// below no other lets something in, and counts otherwise. Nothing, with a sentence, when a path
/// leads nowhere or stands on both sides.
std::optional<wb::Filter> FilterOfPaths(const wb::ProductGraph& graph,
                                        const std::vector<std::string>& included,
                                        const std::vector<std::string>& excluded,
                                        std::string& problem);

/// The node as a line of a filter that has a say about it and everything below.
wb::Filter::Line FilterLineOf(const wb::ProductGraph& graph, const std::vector<std::uint32_t>& uses,
                              bool in);

/// "LA1/WNG-000.1/WNG-200R.1".
std::string PathText(const wb::ProductGraph& graph, const wb::AskedPath& path);
