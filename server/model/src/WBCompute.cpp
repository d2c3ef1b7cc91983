#include "WBCompute.h"

#include "AskedTotal.h"
#include "Completion.h"
#include "Propagation.h"
#include "Selection.h"
#include "Tally.h"
#include "Walk.h"
#include "Warnings.h"

#include <algorithm>
#include <cmath>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;
using Common = CATENOWBCSCommonDefinitions;

/// Everything that one request works on.
struct Job
{
    const ProductGraph& graph;
    AskedPath path;
    Filter filter;
    WalkRule rule;
    AskedRule asked;
    const KeptSums* kept = nullptr;
    std::vector<bool> keptParts; // parallel to the graph's parts; empty: none
    std::int64_t level = 0;
};

std::string AskedRuleOf(const ProductGraph& graph, std::uint32_t node,
                        const ComputeOptions& options, AskedRule& asked)
{
    if (options.asked == ComputeOptions::Asked::Alone &&
        !(options.derived && graph.PartOf(node).IsLeaf())) {
        asked.kind = AskedRule::Kind::Alone;
    } else if (options.derived) {
        asked.kind = AskedRule::Kind::Derived;
    }
    if (options.asked == ComputeOptions::Asked::Root) {
        return {};
    }
    if (!options.material.empty()) {
        asked.material = graph.FindMaterial(options.material);
        if (asked.material < 0) {
            return "The material \"" + options.material + "\" is not known.";
        }
    }
    if (asked.material >= 0 || options.densityPriority) {
        asked.ownClaims = true;
        asked.claims = graph.ClaimsWith(node, options.densityPriority, asked.material);
    }
    return {};
}

/// The code of the nearest node above the asked one that has one.
std::int32_t CodeAbove(const ProductGraph& graph, const AskedPath& path)
{
    std::int32_t code = -1;
    std::uint32_t above = path.root;
    for (const std::uint32_t use : path.uses) {
        const std::int32_t own = graph.PartOf(above).code;
        code = own < 0 ? code : own;
        above = graph.UseAt(use).node;
    }
    return code;
}

/// What is asked and what stands below it; sums that were kept count where they may.
Selection SelectionOf(const Job& job, bool ownAsked)
{
    Selection selection = Select(job.graph, job.path, job.filter, ownAsked);
    if (job.kept != nullptr) {
        SetApart(selection, job.level, job.keptParts);
    }
    return selection;
}

/// What stands below an asked assembly whose own values were taken.
Imposed ImposedOn(const Job& job, const Walk& walk, const Body& own)
{
    AskedRule descend;
    descend.kind = AskedRule::Kind::Descend;
    const Selection selection = SelectionOf(job, true);
    const bool isActive = job.rule == WalkRule() && job.kept == nullptr;
    const Walk below(selection, job.rule, descend,
                     {isActive ? &job.graph.Active() : &walk, job.kept});
    const std::vector<double> pieces = PiecesOf(selection, below);
    Imposed imposed;
    imposed.below.counts = Tally(selection, below, descend, pieces, -1).counts;
    imposed.below.body = KnownTotal(below, *selection.asked, imposed.below.counts);
    imposed.difference = Difference(own, imposed.below.body);
    return imposed;
}

/// Assemblies whose sum is stale and, as it was kept, in the figures of the asked node: in its sum,
/// or in what such a sum lends to own values above it.
std::size_t StaleTaken(const Selection& selection, const Walk& walk)
{
    std::vector<bool> isIn(selection.Count(), false);
    std::vector<bool> met(selection.graph->Parts().size(), false);
    std::size_t count = 0;
    isIn[*selection.asked] = true;
    for (std::size_t i = selection.childrenFirst.size(); i-- > 0;) {
        const std::uint32_t number = selection.childrenFirst[i];
        const NodeResult& result = walk.At(number);
        if (!isIn[number] || !result.isStale) {
            continue;
        }
        if (!result.isKept) {
            selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow&) {
                isIn[child] = true;
            });
            continue;
        }
        const std::uint32_t part = selection.graph->Nodes()[selection.GraphNode(number)].part;
        count += met[part] ? 0 : 1;
        met[part] = true;
    }
    return count;
}

/// True where a stale sum was looked at, if only to compare own values with it.
bool LooksAtStale(const Selection& selection, const Walk& walk)
{
    return std::ranges::any_of(selection.childrenFirst, [&](std::uint32_t number) {
        return walk.At(number).isKept && walk.KeptBelow(selection, number).isStale;
    });
}

/// Pieces of all leaves of the asked node, whatever stands for them in its sum.
double LeavesOf(const Selection& selection)
{
    std::vector<double> leaves(selection.Count(), 0.0);
    for (const std::uint32_t number : selection.childrenFirst) {
        if (selection.graph->PartOf(selection.GraphNode(number)).IsLeaf()) {
            leaves[number] = 1.0;
        }
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            leaves[number] += use.pieces * leaves[child];
        });
    }
    return leaves[*selection.asked];
}

ComputeResult::LeftOut LeftOutOf(const Job& job, const Selection& selection)
{
    const double all = LeavesOf(Select(job.graph, job.path, {}, false));
    return {job.filter.name, all - LeavesOf(selection), all};
}

void DefinePrecision(const ComputeOptions::DefinedPrecision& precision, ComputeResult& result)
{
    Body& body = result.total.body;
    const double unit = precision.percentage ? std::abs(body.mass) / 100.0 : 1.0;
    body.lower = precision.lower * unit;
    body.upper = precision.upper * unit;
    result.precisionDefined = true;
}

std::vector<std::string> FallenBack(const Selection& selection, const Walk& walk,
                                    const std::vector<double>& pieces)
{
    std::vector<std::string> names;
    for (const std::uint32_t number : selection.childrenFirst) {
        if (pieces[number] > 0.0 && walk.At(number).fellBack) {
            names.push_back(selection.graph->PartOf(selection.GraphNode(number)).name);
        }
    }
    return names;
}

std::vector<Contributor> Contributors(const Selection& selection, const Walk& walk,
                                      const std::vector<double>& pieces, bool apart)
{
    const ProductGraph& graph = *selection.graph;
    std::vector<Contributor> all;
    for (const std::uint32_t number : selection.childrenFirst) {
        const NodeResult& result = walk.At(number);
        if (pieces[number] == 0.0 || result.outcome != Outcome::Taken) {
            continue;
        }
        const ProductGraph::PartRow& part = graph.PartOf(selection.GraphNode(number));
        const double sigma = SigmaOfMass(*result.claim, graph.SigmasOf(*result.claim));
        all.push_back({part.identifier, part.version, part.name, pieces[number],
                       pieces[number] * result.claim->body.mass,
                       SigmaOfPieces(sigma, pieces[number], apart || part.errorsApart)});
    }
    return all;
}

void KeepLargest(std::vector<Contributor>& all, std::size_t count, double Contributor::*figure)
{
    const auto larger = [&](const Contributor& left, const Contributor& right) {
        const double leftSize = std::abs(left.*figure);
        const double rightSize = std::abs(right.*figure);
        return leftSize != rightSize ? leftSize > rightSize : left.part < right.part;
    };
    const std::size_t kept = std::min(count, all.size());
    std::partial_sort(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(kept), all.end(),
                      larger);
    all.resize(kept);
}

void AddLostLines(const Job& job, std::vector<std::string>& warnings)
{
    for (const std::string& line : LinesWithoutNode(job.graph, job.path.root, job.filter)) {
        warnings.push_back("the filter names " + WithoutLineMark(line) + ", which is not there");
    }
}

/// Thrown and caught in this file: what was made up to now is of no use to anybody.
struct Cancelled
{};

void StopIfCancelled(const ComputeOptions& options)
{
    if (options.cancelled && options.cancelled()) {
        throw Cancelled();
    }
}

ComputeResult ResultOf(const Job& job, const ComputeOptions& options)
{
    ComputeResult result;
    const bool isActive = job.rule == WalkRule() && job.kept == nullptr;
    const Selection selection = SelectionOf(job, job.asked.IsSpecial());
    if (!selection.asked) {
        result.warnings.emplace_back("the filter leaves out what is asked");
        AddLostLines(job, result.warnings);
        result.total.body.centre.fill(kUnknown);
        result.total.body.inertia.fill(kUnknown);
        return result;
    }
    const Walk walk(
        selection, job.rule, job.asked,
        {isActive ? &job.graph.Active() : nullptr, job.kept, nullptr, options.cancelled});
    StopIfCancelled(options);
    const std::uint32_t asked = *selection.asked;
    const NodeResult& top = walk.At(asked);
    const std::vector<double> pieces = PiecesOf(selection, walk);
    result.statistics = Tally(selection, walk, job.asked, pieces, CodeAbove(job.graph, job.path));
    result.total.counts = result.statistics.counts;
    result.total.body = KnownTotal(walk, asked, result.total.counts);
    if (top.outcome == Outcome::Taken) {
        result.takenType = job.graph.Types()[top.claim->type].name;
        result.centreFrom = LenderName(top.centreLender, job.graph.Types());
        result.inertiaFrom = LenderName(top.inertiaLender, job.graph.Types());
        if (top.below >= 0 && job.asked.kind != AskedRule::Kind::Alone) {
            result.imposed = ImposedOn(job, walk, result.total.body);
        }
    }
    StopIfCancelled(options);
    if (options.uncertainty) {
        result.uncertainty = Propagate(selection, walk, pieces, walk.Total(asked),
                                       options.errorsApart ? Errors::Apart : Errors::AsStated);
    }
    if (options.contributors > 0) {
        result.largestMasses = Contributors(selection, walk, pieces, options.errorsApart);
        result.largestUncertainties = result.largestMasses;
        KeepLargest(result.largestMasses, options.contributors, &Contributor::mass);
        KeepLargest(result.largestUncertainties, options.contributors, &Contributor::sigmaMass);
    }
    result.fellBack = FallenBack(selection, walk, pieces);
    if (job.kept != nullptr) {
        result.staleTaken = StaleTaken(selection, walk);
        result.looksAtStale = LooksAtStale(selection, walk);
    }
    if (options.definedPrecision) {
        DefinePrecision(*options.definedPrecision, result);
    }
    StopIfCancelled(options);
    if (options.validate) {
        if (!job.filter.IsEmpty()) {
            result.leftOut = LeftOutOf(job, selection);
        }
        result.warnings = WarningsOf(selection, walk, pieces, result);
        AddLostLines(job, result.warnings);
    }
    if (options.wantsSum && job.asked.kind != AskedRule::Kind::Alone) {
        result.sums = MakeSums(selection, walk, options.wantsSum, options.cancelled);
        StopIfCancelled(options);
    }
    return result;
}

/// Which sums are taken as they were kept.
void ChooseKept(const ComputeOptions& options, Job& job)
{
    const bool leavesNeeded = options.uncertainty || options.contributors > 0 || options.orActive;
    if (options.kept == nullptr || options.kept->empty() || leavesNeeded) {
        return;
    }
    job.kept = options.kept;
    job.level = options.level;
    job.keptParts.resize(job.graph.Parts().size(), false);
    for (const auto& [part, sum] : *options.kept) {
        job.keptParts[part] = !job.graph.Parts()[part].IsLeaf();
    }
}
} // namespace

ComputeResult Compute(const ProductGraph& graph, const AskedPath& path,
                      const ComputeOptions& options)
{
    ComputeResult failed;
    Job job{graph, path, options.filter, {}, {}, nullptr, {}, 0};
    if (options.asked == ComputeOptions::Asked::Root) {
        job.path.uses.clear();
    }
    if (options.asked == ComputeOptions::Asked::Alone) {
        job.filter = {};
    }
    failed.error = graph.Error();
    if (failed.error.empty()) {
        failed.error = RuleOf(graph, options, job.rule);
    }
    if (failed.error.empty()) {
        failed.error = AskedRuleOf(graph, graph.NodeAt(job.path), options, job.asked);
    }
    if (!failed.error.empty()) {
        return failed;
    }
    ChooseKept(options, job);
    try {
        StopIfCancelled(options);
        return ResultOf(job, options);
    } catch (const Cancelled&) {
        failed.error = "The computation was cancelled.";
        return failed;
    }
}
} // namespace wb
