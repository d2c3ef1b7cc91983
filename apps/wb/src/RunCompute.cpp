#include "Subcommands.h"

#include "CATCkeGlobalFunctions.h"
#include "CATSettingRepository.h"
#include "ComputeCsv.h"
#include "ComputeJson.h"
#include "ComputePlace.h"
#include "ComputeTable.h"
#include "ReportUnits.h"
#include "WBStore.h"

#include <algorithm>
#include <cstdio>

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

std::string UnknownMassType(const wb::ProductGraph& graph, const std::string& name)
{
    std::string text = "--precision: expected active, most-precise, Computed";
    for (const wb::MassType& type : graph.Types()) {
        text += ", " + type.name;
    }
    return text + ", found \"" + name + '"';
}

bool IsUnknownType(const wb::ProductGraph& graph, const wb::ComputeOptions& options)
{
    return options.precision == wb::ComputeOptions::Precision::Specified &&
           options.massType != CATENOWBCSCommonDefinitions::Computed &&
           graph.FindType(options.massType) < 0;
}

/// The asked node; what the paths say of the filter goes into the arguments.
std::optional<wb::AskedPath> Prepare(const wb::ProductGraph& graph, const std::string& below,
                                     const ComputeCommandOptions& options,
                                     ComputeArguments& arguments, std::string& problem)
{
    problem = graph.Error();
    if (problem.empty() && IsUnknownType(graph, arguments.compute)) {
        problem = UnknownMassType(graph, arguments.compute.massType);
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

/// A product brings the materials that it is made of; another one may be tried on a part. False
/// where the database does not hold it.
bool AddAskedMaterial(const wb::Store& store, const std::string& name, wb::Product& product)
{
    const auto isThere = [&](const wb::Material& material) {
        return material.name == name;
    };
    if (name.empty() || std::ranges::any_of(product.materials, isThere)) {
        return true;
    }
    const auto material = store.FindMaterial(name);
    if (material) {
        product.materials.push_back(*material);
    }
    return material.has_value();
}

bool Print(const ComputeReport& report, const ComputeCommandOptions& options)
{
    const std::string text = options.json  ? ComputeAsJson(report)
                             : options.csv ? ComputeAsCsv(report)
                                           : ComputeAsTable(report);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0;
}
} // namespace

int RunCompute(const ComputeCommandOptions& options)
{
    std::string problem;
    std::optional<ComputeArguments> arguments = ReadComputeArguments(options, problem);
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
    const auto root = FindComputeRoot(*opened.store, arguments->path, options.rootVersion, problem);
    if (!root) {
        return Refuse(kFailed, problem);
    }
    wb::Product product = opened.store->ReadProduct(root->root.id);
    if (!AddAskedMaterial(*opened.store, arguments->compute.material, product)) {
        return Refuse(kFailed, "--material: \"" + arguments->compute.material +
                                   "\" is no material of the database");
    }
    const wb::ProductGraph graph(product, opened.store->MassTypes());
    const auto path = Prepare(graph, root->below, options, *arguments, problem);
    if (!path) {
        return Refuse(kFailed, problem);
    }
    wb::ComputeResult result = wb::Compute(graph, *path, arguments->compute);
    if (!result.error.empty()) {
        return Refuse(kFailed, result.error);
    }
    const bool isPartial = result.total.IsPartial();
    const ComputeReport report =
        MakeComputeReport(*arguments, ComputeUnits::Current(), graph, *path, std::move(result));
    if (!Print(report, options)) {
        return Refuse(kFailed, "the standard output cannot be written");
    }
    return isPartial ? kPartial : kDone;
}
