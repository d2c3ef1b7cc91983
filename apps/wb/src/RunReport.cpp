#include "Subcommands.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "CATFileReplacement.h"
#include "CATSettingRepository.h"
#include "CATStatus.h"
#include "ComputePlace.h"
#include "ComputeProgress.h"
#include "OptionTexts.h"
#include "PostponedEnd.h"
#include "ReportRequest.h"
#include "ReportSize.h"
#include "StandardOutput.h"
#include "UnsavedNotice.h"
#include "WBProductComputation.h"
#include "WBServer.h"
#include "WBStore.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <system_error>

namespace
{
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

constexpr const char* kStandardStream = "-";

int Refuse(int status, const std::string& problem)
{
    std::fprintf(stderr, "wb: %s\n", problem.c_str());
    return status;
}

void TellUser(const CATUnicodeString& sentence)
{
    std::fprintf(stderr, "wb: %s\n", sentence.Text());
}

/// The filter that the workbench keeps for a root; one without lines where it keeps none. Empty, or
/// a sentence when what it keeps is no filter.
std::string ReadStoredFilter(const std::string& root, wb::Filter& filter)
{
    CATUnicodeString text("0|No Filter");
    const CATSettingRepository* settings =
        CATSettingRepository::GetRepository("CATWBVPMNavFilterPanel");
    // What is no text is no filter either.
    if (settings != nullptr &&
        settings->ReadSetting(CATUnicodeString(root + ".Filter"), text) == E_FAIL) {
        text = "";
    }
    const std::string error = wb::ReadFilterText(text.ToStdString(), filter);
    return error.empty()
               ? ""
               : "--stored-filter: what is stored for " + root + " is no filter: " + error;
}

/// What a filter of paths is called in the report: the options that made it.
std::string NameOfPaths(const ComputeCommandOptions& options)
{
    std::string name;
    const auto add = [&name](const char* option, const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            name.append(name.empty() ? "" : " ").append(option).append(" ").append(path);
        }
    };
    add("--include", options.included);
    add("--exclude", options.excluded);
    return name;
}

bool AddPicks(const wb::ProductGraph& graph, const ReportCommandOptions& options,
              ReportRequest& request, std::string& problem)
{
    constexpr const char* kPick = "--pick";
    for (const std::string& path : options.picked) {
        const auto found = FindWholePath(graph, kPick, path, problem);
        if (!found) {
            return false;
        }
        if (found->uses.empty()) {
            problem = Expected(
                kPick, "a path below the product, " + request.root + "/INSTANCE/INSTANCE", path);
            return false;
        }
        request.picked.push_back(FilterLineOf(graph, found->uses, true));
    }
    return true;
}

/// Paths become places of the product, which is read only where there are some. 0, or the exit
/// status with a sentence.
int AddPaths(wb::Store& store, const wb::PartLine& root, const ReportCommandOptions& options,
             ComputeProgress& progress, ReportRequest& request, std::string& problem)
{
    const ComputeCommandOptions& computation = options.computation;
    const bool isFiltered = !computation.included.empty() || !computation.excluded.empty();
    if (!isFiltered && options.picked.empty()) {
        return kDone;
    }
    wb::ProductComputation product(store, root, UserOf(computation.session), progress.Listener());
    const wb::ProductGraph& graph = product.Graph();
    problem = graph.Error();
    if (!problem.empty()) {
        return kFailed;
    }
    if (!AddPicks(graph, options, request, problem)) {
        return kWrongUse;
    }
    if (isFiltered) {
        auto filter = FilterOfPaths(graph, computation.included, computation.excluded, problem);
        if (!filter) {
            return kWrongUse;
        }
        filter->name = NameOfPaths(computation);
        request.computation.compute.filter = *std::move(filter);
    }
    return kDone;
}

/// What only the database can say about the options. 0, or the exit status with a sentence that
/// says what they name and there is not.
int Complete(wb::Store& store, const ReportCommandOptions& options, ComputeProgress& progress,
             ReportRequest& request, std::string& problem)
{
    const std::string& typed = options.computation.path;
    const auto root = FindComputeRoot(store, typed, {}, problem);
    if (!root) {
        return kWrongUse;
    }
    if (!root->below.empty()) {
        problem = "ROOT: expected a product alone, found \"" + typed + "\"; --pick " + typed +
                  " reports that instance";
        return kWrongUse;
    }
    request.root = root->root.identifier;
    problem = MassTypeProblem(store.MassTypes(), request.computation.compute);
    if (problem.empty()) {
        problem = PropertyProblem(options.properties, store.PropertyNames());
    }
    if (problem.empty() && options.storedFilter) {
        problem = ReadStoredFilter(request.root, request.computation.compute.filter);
    }
    return problem.empty() ? AddPaths(store, root->root, options, progress, request, problem)
                           : kWrongUse;
}

/// False, with the server's sentence, when it made none.
bool MakeReport(wb::Server& server, const ReportRequest& request, const wb::CallContext& context,
                std::string& report, std::string& problem)
{
    report = server.Call("WBMakeReport", RequestText(request), context);
    const std::string_view marker = CATENOWBCSCommonDefinitions::errMsgHeader;
    if (report.starts_with(marker)) {
        problem = report.substr(marker.size());
        return false;
    }
    return true;
}

/// False, with a sentence, when the file stays as it was. Who interrupts it finds no half report.
bool WriteFile(const std::string& path, std::string_view report, ProgressBar& bar,
               std::string& problem)
{
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    const PostponedEnd end;
    CATFileReplacement file(path);
    bool isGood = file.Open();
    for (std::size_t done = 0; isGood && done < report.size(); done += kPiece) {
        bar.Show("saving", done, report.size());
        isGood = file.Write(report.substr(done, kPiece));
        end.LeaveWhenAsked();
    }
    isGood = isGood && file.Commit();
    if (!isGood) {
        problem = path + ": cannot be written: " + std::generic_category().message(file.Error());
    }
    return isGood;
}

bool Write(const std::string& path, const std::string& report, ProgressBar& bar,
           std::string& problem)
{
    if (path != kStandardStream) {
        return WriteFile(path, report, bar, problem);
    }
    bar.Clear();
    problem = kStandardOutputProblem;
    return WriteStandardOutput(report);
}

/// A "<" in a report begins a tag: in texts it is escaped.
std::size_t CountElements(std::string_view report, std::string_view name)
{
    const std::string tag = '<' + std::string(name);
    std::size_t count = 0;
    for (std::size_t at = report.find(tag); at != std::string_view::npos;
         at = report.find(tag, at + 1)) {
        ++count;
    }
    return count;
}

void SayWhatWasWritten(const std::string& path, const std::string& report)
{
    if (path != kStandardStream) {
        const ReportSize size{CountElements(report, "PRC"), CountElements(report, "PartInstance"),
                              CountElements(report, "WB_Section")};
        std::printf("%s: %s\n", path.c_str(), InWords(size).c_str());
    }
}
} // namespace

int RunReport(const ReportCommandOptions& options)
{
    std::string problem;
    std::optional<ReportRequest> request = ReadReportRequest(options, problem);
    if (!request) {
        return Refuse(kWrongUse, problem);
    }
    const SessionOptions& who = options.computation.session;
    const HostSession session(who, {});
    CATSettingRepository::ReportProblemsTo(TellUser);
    const wb::Store::Opened opened = wb::Store::Open(who.database);
    if (!opened.store) {
        return Refuse(kFailed, opened.error);
    }
    ComputeProgress progress(who.verbose);
    const int status = Complete(*opened.store, options, progress, *request, problem);
    if (status != kDone) {
        progress.Bar().Clear();
        return Refuse(status, problem);
    }
    wb::Server server(*opened.store);
    wb::CallContext context;
    context.user = UserOf(who);
    context.progress = progress.Listener();
    std::string report;
    const bool isMade = MakeReport(server, *request, context, report, problem) &&
                        Write(options.output, report, progress.Bar(), problem);
    progress.Bar().Clear();
    if (!isMade) {
        return Refuse(kFailed, problem);
    }
    const std::string warnings = server.Call("WBWarningMsg", {}, context);
    if (!warnings.empty()) {
        std::fprintf(stderr, "Warnings\n%s\n", warnings.c_str());
    }
    SayWhatWasWritten(options.output, report);
    if (const auto root = opened.store->FindRoot(request->root)) {
        TellOfUnsaved(*opened.store, context.user, {*root, {}});
    }
    return kDone;
}
