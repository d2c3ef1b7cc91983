#include "Subcommands.h"

#include "CATCkeGlobalFunctions.h"
#include "CATSettingRepository.h"
#include "ComputeCsv.h"
#include "ComputeJson.h"
#include "ComputePlace.h"
#include "ComputeProgress.h"
#include "ComputeTable.h"
#include "ReportUnits.h"
#include "StandardOutput.h"
#include "StoredPlace.h"
#include "UnsavedNotice.h"
#include "WBProductComputation.h"
#include "WBStore.h"

#include <cstdio>
#include <utility>

namespace
{
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;
constexpr int kPartial = 3;

int Refuse(int status, const std::string& problem)
{
    std::fprintf(stderr, "wb: %s\n", problem.c_str());
    return status;
}

void TellUser(const CATUnicodeString& sentence)
{
    std::fprintf(stderr, "wb: %s\n", sentence.Text());
}

/// People read their own units; programs the storage units, wherever they run. Either may ask for
/// others in this run.
bool ChooseUnits(const ComputeCommandOptions& options, std::string& problem)
{
    if (options.json || options.csv) {
        UseStorageUnits();
    }
    return !options.units || UseReportUnits(*options.units, problem);
}

/// Those of the product are named; the database may hold more.
std::string UnknownMaterial(const wb::ProductGraph& graph, const std::string& name)
{
    std::vector<std::string> names;
    names.reserve(graph.Materials().size());
    for (const wb::Material& material : graph.Materials()) {
        names.push_back(material.name);
    }
    std::string text = "--material: \"" + name + "\" is no material of the database";
    return names.empty() ? text
                         : text + "; the product has " + NearestNames(name, std::move(names));
}

/// Another material and another order of densities count for the own values of the asked part, and
/// those of an assembly that was summed up do not count.
bool IsSumInsteadOfPart(const ComputeArguments& arguments, const wb::ProductGraph& graph,
                        const wb::AskedPath& path, const wb::ComputeResult& result)
{
    const wb::ComputeOptions& compute = arguments.compute;
    return (compute.densityPriority || !compute.material.empty()) && result.takenType.empty() &&
           !graph.PartOf(graph.NodeAt(path)).IsLeaf();
}

/// The asked node; what the paths say of the filter goes into the arguments.
std::optional<wb::AskedPath> Prepare(const wb::ProductGraph& graph, const std::string& below,
                                     const ComputeCommandOptions& options,
                                     ComputeArguments& arguments, std::string& problem)
{
    problem = graph.Error();
    if (problem.empty()) {
        problem = MassTypeProblem(graph.Types(), arguments.compute);
    }
    if (!problem.empty()) {
        return std::nullopt;
    }
    std::optional<wb::AskedPath> path = FindComputeNode(graph, below, problem);
    if (path && arguments.compute.asked == wb::ComputeOptions::Asked::Root) {
        path->uses.clear();
    }
    if (path && !options.filter) {
        const auto filter = FilterOfPaths(graph, options.included, options.excluded, problem);
        arguments.compute.filter = filter.value_or(wb::Filter());
        path = filter ? path : std::nullopt;
    }
    return path;
}

bool Print(const ComputeReport& report, const ComputeCommandOptions& options)
{
    const std::string text = options.json  ? ComputeAsJson(report)
                             : options.csv ? ComputeAsCsv(report)
                                           : ComputeAsTable(report);
    return WriteStandardOutput(text);
}

/// Says whose figures were printed where they are not those that everybody gets.
void TellWhoseFigures(const wb::Store& store, const ComputeCommandOptions& options,
                      const ComputeArguments& arguments)
{
    using Asked = wb::ComputeOptions::Asked;
    std::string problem;
    auto place = FindStoredPlace(store, arguments.path, options.rootVersion, problem);
    if (!place) {
        return;
    }
    const Asked asked = arguments.compute.asked;
    if (asked == Asked::Root) {
        place->uses.clear();
    }
    TellOfUnsaved(store, UserOf(options.session), *place,
                  asked == Asked::Alone ? FiguresOf::PartAlone : FiguresOf::Place);
}

/// Computes what the arguments ask for. Nothing, with a sentence, when that cannot be.
std::optional<ComputeReport> Compute(wb::Store& store, const ComputeCommandOptions& options,
                                     ComputeArguments arguments, std::string& problem)
{
    const auto root = FindComputeRoot(store, arguments.path, options.rootVersion, problem);
    if (!root) {
        return std::nullopt;
    }
    ComputeProgress progress(options.session.verbose);
    wb::ProductComputation computation(store, root->root, UserOf(options.session),
                                       progress.Listener());
    const wb::ProductGraph& graph = computation.Graph();
    const std::string& material = arguments.compute.material;
    if (!material.empty() && !store.FindMaterial(material)) {
        problem = UnknownMaterial(graph, material);
        return std::nullopt;
    }
    const auto path = Prepare(graph, root->below, options, arguments, problem);
    if (!path) {
        return std::nullopt;
    }
    ComputeReport report = BeginComputeReport(arguments, ComputeUnits::Current(), graph, *path);
    wb::ComputeResult result =
        computation.Compute(*path, arguments.compute, arguments.update, arguments.level);
    problem = result.error;
    if (!problem.empty()) {
        return std::nullopt;
    }
    if (IsSumInsteadOfPart(arguments, graph, *path, result)) {
        result.warnings.emplace_back("--material and --density-first count for the asked part's "
                                     "own values; it was summed up, so they changed nothing");
    }
    AddComputeResult(report, std::move(result));
    return report;
}
} // namespace

int RunCompute(const ComputeCommandOptions& options)
{
    std::string problem;
    const std::optional<ComputeArguments> arguments = ReadComputeArguments(options, problem);
    if (!arguments) {
        return Refuse(kWrongUse, problem);
    }
    const HostSession session(options.session, {});
    CATCkeGlobalFunctions::ReportProblemsTo(TellUser);
    CATSettingRepository::ReportProblemsTo(TellUser);
    if (!ChooseUnits(options, problem)) {
        return Refuse(kWrongUse, problem);
    }
    const wb::Store::Opened opened = wb::Store::Open(options.session.database);
    if (!opened.store) {
        return Refuse(kFailed, opened.error);
    }
    const auto report = Compute(*opened.store, options, *arguments, problem);
    if (!report) {
        return Refuse(kFailed, problem);
    }
    if (!Print(*report, options)) {
        return Refuse(kFailed, kStandardOutputProblem);
    }
    TellWhoseFigures(*opened.store, options, *arguments);
    return report->result.total.IsPartial() ? kPartial : kDone;
}
