#include "Computations.h"
#include "Methods.h"
#include "ReportPicks.h"
#include "ReportRequest.h"
#include "ReportTime.h"
#include "ReportWriter.h"
#include "Request.h"

#include "WBNumbers.h"

#include <utility>

namespace wb
{
namespace
{
using Kind = ReportRequest::Kind;
using Policy = ComputationRequest::Policy;

/// What is looked at of every node.
ReportOptions OptionsOf(const ReportRequest& request)
{
    ReportOptions options;
    const bool isStatistics = request.kind == Kind::MaterialStatistics;
    options.materials = isStatistics || request.values.materials;
    options.massTypes = isStatistics;
    options.volumes = !isStatistics && request.values.volume;
    return options;
}

/// Where a report begins: a place and the uses that lead to it.
struct Start
{
    ReportWalk::Place place;
    std::vector<std::uint32_t> uses;
};

/// What the filter leaves in of the picks; the root where nothing is picked.
std::vector<Start> StartsOf(const ReportWalk& walk,
                            const std::vector<std::vector<std::uint32_t>>& picks)
{
    std::vector<Start> starts;
    for (const std::vector<std::uint32_t>& uses : picks) {
        if (const auto place = walk.Find(uses)) {
            starts.push_back({*place, uses});
        }
    }
    return starts;
}

double PlacesIn(const ReportWalk& walk, const std::vector<Start>& starts)
{
    double places = 0.0;
    for (const Start& start : starts) {
        places += walk.PlacesBelow(start.place.number) + (start.uses.empty() ? 0.0 : 1.0);
    }
    return places;
}

/// A few parts used in each other can open out to more instances than any memory holds.
void CheckLength(double places)
{
    constexpr double kMost = 1e7;
    if (places > kMost) {
        throw RequestError("The report would hold " + WriteNumber(places) +
                           " instances, more than the " + WriteNumber(kMost) +
                           " that a reader can take: pick some of them.");
    }
}

/// The product and what is told of it.
struct Reported
{
    const ResidentProduct& product;
    ReportFacts facts;
};

/// As of one moment: the texts are those of the figures.
Reported ReadReported(const MethodCall& call, RowId root, const ReportRequest& request)
{
    const StoreMoment moment(call.store);
    const ResidentProduct& product = call.computations.ProductOf(root, Policy::Check, call.context);
    return {product, ReportFacts(call.store, product, request.properties, request.values.types,
                                 call.context)};
}

std::string WriteReport(const ReportSource& source, const CallContext& context, const Body& root,
                        const std::vector<std::vector<std::uint32_t>>& picks)
{
    ReportWriter writer(source, context);
    const ReportRequest& request = source.request;
    const bool hasInstances = request.kind != Kind::MaterialStatistics || request.ofInstances;
    std::vector<Start> starts;
    if (hasInstances) {
        starts = StartsOf(source.walk, picks);
        CheckLength(PlacesIn(source.walk, starts));
    }
    writer.BeginDocument(root);
    if (request.kind != Kind::MaterialStatistics) {
        writer.WriteSections();
    }
    writer.BeginInstances(PlacesIn(source.walk, starts));
    for (const Start& start : starts) {
        writer.WriteFrom(start.place, start.uses);
    }
    writer.EndInstances();
    return writer.EndDocument();
}
} // namespace

std::string MakeReport(const MethodCall& call, std::string_view text)
{
    Computations& computations = call.computations;
    computations.ForgetWarnings(call.context.user);
    ReportRequest request = ReadReportRequest(call.store, text);
    const PartLine root = AskedRoot(call.store, request.computation);
    // A report looks at every node, so that there is nothing that it could assume.
    if (request.computation.policy == Policy::Assume) {
        request.computation.policy = Policy::Check;
    }
    const ComputeResult result =
        computations.ComputeAt({root, {}, {}}, request.computation, call.context);

    const Reported reported = ReadReported(call, root.id, request);
    const ProductGraph& graph = *reported.product.graph;
    std::vector<std::vector<std::uint32_t>> picks = FindPicks(graph, request.picks);
    if (request.picks.empty()) {
        picks.emplace_back(); // the root
    }
    ComputeOptions options = request.computation.options;
    options.cancelled = [&] {
        return IsCancelled(call.context);
    };
    const ReportWalk walk(graph, options, OptionsOf(request));
    if (!walk.Error().empty()) {
        throw RequestError(walk.Error());
    }
    const auto now = call.context.now ? call.context.now() : std::chrono::system_clock::now();
    Body weight = walk.TotalOf(walk.Root().number).body;
    if (result.precisionDefined) {
        weight.lower = result.total.body.lower;
        weight.upper = result.total.body.upper;
    }
    std::string report = WriteReport({request, graph, walk, reported.facts, ReportTime(now)},
                                     call.context, weight, picks);
    computations.KeepWarnings(call.context.user, result);
    return report;
}
} // namespace wb
