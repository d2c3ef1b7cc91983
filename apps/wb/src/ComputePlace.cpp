#include "ComputePlace.h"

#include "WBTexts.h"

#include <algorithm>
#include <map>
#include <utility>

namespace
{
constexpr std::size_t kMostNames = 8;

std::string Quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

std::string NoRoot(const wb::Store& store, const std::string& name)
{
    const std::vector<wb::PartLine> roots = store.Roots();
    if (roots.empty()) {
        return store.Path() + ": the database holds no product";
    }
    const bool isUsed = store.PartVersions().contains(name);
    std::vector<std::string> names;
    names.reserve(roots.size());
    for (const wb::PartLine& root : roots) {
        names.push_back(root.identifier + " " + root.version);
    }
    return store.Path() + ": " + Quoted(name) + " is no product root" +
           (isUsed ? " but a part of one: expected ROOT/INSTANCE/INSTANCE, where ROOT is one of "
                   : ", expected one of ") +
           NearestNames(name, names);
}

std::string NoUse(const wb::ProductGraph& graph, const wb::AskedPath& path, std::string_view name)
{
    const wb::ProductGraph::PartRow& part = graph.PartOf(graph.NodeAt(path));
    std::vector<std::string> names;
    for (std::uint32_t use = part.firstUse; use < part.firstUse + part.useCount; ++use) {
        names.push_back(graph.InstanceOf(use));
    }
    return NoInstance(PathText(graph, path), name, std::move(names));
}

using Sides = std::map<std::vector<std::uint32_t>, bool>; // by uses; true: let in

/// True when nothing above the path has a say.
bool IsTopmost(const Sides& sides, std::vector<std::uint32_t> uses)
{
    while (!uses.empty()) {
        uses.pop_back();
        if (sides.contains(uses)) {
            return false;
        }
    }
    return true;
}
} // namespace

std::string NearestNames(std::string_view wanted, std::vector<std::string> names)
{
    const auto distance = [lower = wb::LowerCase(wanted)](const std::string& name) {
        return wb::EditDistance(lower, wb::LowerCase(name));
    };
    std::ranges::stable_sort(names, {}, distance);
    const std::size_t shown = std::min(names.size(), kMostNames);
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        text += (i == 0 ? "" : ", ") + names[i];
    }
    return names.size() == shown ? text
                                 : text + " and " + std::to_string(names.size() - shown) + " more";
}

std::string TakeName(std::string_view& path,
                     const std::function<bool(const std::string& name)>& isKnownName)
{
    std::size_t first = std::string_view::npos;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = path.find('/', end);
        first = std::min(first, end);
        std::string name(path.substr(0, end));
        if (isKnownName(name)) {
            path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
            return name;
        }
        end += end == std::string_view::npos ? 0 : 1;
    }
    return std::string(path.substr(0, first));
}

std::string NoInstance(const std::string& path, std::string_view name,
                       std::vector<std::string> names)
{
    return Quoted(path) + " has no instance " + Quoted(name) +
           (names.empty() ? ": there is nothing below it"
                          : ", expected one of " + NearestNames(name, std::move(names)));
}

std::string PathText(const wb::ProductGraph& graph, const wb::AskedPath& path)
{
    std::string text = graph.Parts()[path.root].identifier;
    for (const std::uint32_t use : path.uses) {
        text += '/' + graph.InstanceOf(use);
    }
    return text;
}

std::optional<ComputeRoot> FindComputeRoot(const wb::Store& store, const std::string& path,
                                           const std::string& version, std::string& problem)
{
    std::string_view below = path;
    const std::string name = TakeName(
        below, [&](const std::string& candidate) { return store.FindRoot(candidate).has_value(); });
    const std::optional<wb::PartLine> found = store.FindRoot(name, version);
    if (!found) {
        problem = NoRoot(store, version.empty() ? name : name + ' ' + version);
        return std::nullopt;
    }
    return ComputeRoot{*found, std::string(below)};
}

std::optional<wb::AskedPath> FindComputeNode(const wb::ProductGraph& graph, std::string_view below,
                                             std::string& problem)
{
    wb::AskedPath path;
    while (!below.empty()) {
        const std::uint32_t part = graph.Nodes()[graph.NodeAt(path)].part;
        const std::string name = TakeName(below, [&](const std::string& candidate) {
            return graph.FindUse(part, candidate).has_value();
        });
        const auto use = graph.FindUse(part, name);
        if (!use) {
            problem = NoUse(graph, path, name);
            return std::nullopt;
        }
        path.uses.push_back(*use);
    }
    return path;
}

std::optional<wb::AskedPath> FindWholePath(const wb::ProductGraph& graph, const char* option,
                                           std::string_view path, std::string& problem)
{
    const std::string& root = graph.Parts().front().identifier;
    std::string_view below = path;
    if (TakeName(below, [&](const std::string& name) { return name == root; }) != root) {
        problem.assign(option).append(": expected a path in the product, ").append(root);
        problem.append("/INSTANCE/INSTANCE, found ").append(Quoted(path));
        return std::nullopt;
    }
    auto found = FindComputeNode(graph, below, problem);
    if (!found) {
        problem = std::string(option) + ": " + problem;
    }
    return found;
}

wb::Filter::Line FilterLineOf(const wb::ProductGraph& graph, const std::vector<std::uint32_t>& uses,
                              bool in)
{
    const wb::ProductGraph::PartRow& part = graph.PartOf(graph.NodeAt({0, uses}));
    wb::Filter::Line line{in, {}, part.identifier, part.version, {}};
    if (!uses.empty()) {
        line.instance = graph.InstanceOf(uses.back());
    }
    for (std::size_t i = uses.size(); i-- > 1;) {
        line.path.push_back(graph.InstanceOf(uses[i - 1]));
    }
    return line;
}

std::optional<wb::Filter> FilterOfPaths(const wb::ProductGraph& graph,
                                        const std::vector<std::string>& included,
                                        const std::vector<std::string>& excluded,
                                        std::string& problem)
{
    Sides sides;
    for (const bool in : {true, false}) {
        for (const std::string& text : in ? included : excluded) {
            const auto path = FindWholePath(graph, in ? "--include" : "--exclude", text, problem);
            if (!path) {
                return std::nullopt;
            }
            if (sides.try_emplace(path->uses, in).first->second != in) {
                problem = "--include and --exclude both name " + Quoted(text);
                return std::nullopt;
            }
        }
    }
    // The last line that matches counts, and the map has each path before those below it.
    wb::Filter filter;
    bool isLimited = false;
    for (const auto& [uses, in] : sides) {
        filter.lines.push_back(FilterLineOf(graph, uses, in));
        isLimited = isLimited || (in && IsTopmost(sides, uses));
    }
    // A filter with a line that lets something in leaves out all the rest, unless told otherwise.
    if (!included.empty() && !isLimited) {
        filter.lines.insert(filter.lines.begin(), FilterLineOf(graph, {}, true));
    }
    return filter;
}
