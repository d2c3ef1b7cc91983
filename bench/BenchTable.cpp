#include "BenchTable.h"

#include "ReportFixture.h"
#include "ReportProcess.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

std::vector<BenchLine>& BenchLines()
{
    static std::vector<BenchLine> lines;
    return lines;
}

namespace
{

constexpr const char* kHelp =
    "Prints one table: ours, peer, ratio, and the ratio that must not be passed.\n"
    "\n"
    "  --large                    the report lines alone, with 1,000,000 part instances in place "
    "of\n"
    "                             100,000 and one turn in place of five; takes about ten minutes\n"
    "                             and 10 GiB of memory\n"
    "  --benchmark_filter=REGEX   a part of the lines, by the names of their benchmarks\n"
    "  --benchmark_list_tests     these names\n"
    "  --help                     this text\n"
    "\n"
    "The exit status is 1 when a goal was missed. Other options are those of the benchmark "
    "library\n"
    "(--benchmark_repetitions=N, ...).\n";
constexpr int kUsageError = 2;
constexpr double kNanosecondsPerSecond = 1e9;
constexpr double kNanosecondsPerMillisecond = 1e6;
constexpr double kBytesPerMebiByte = 1024.0 * 1024.0;

/// Keeps what each repetition of a benchmark measured: times in nanoseconds, counters as they are.
/// A time is what the program had of the processor, which other programs disturb little. Benchmarks
/// with disks ask for the clock's time in its place, others measure themselves.
class FigureReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                m_failed = true;
            } else if (run.run_type == Run::RT_Iteration) {
                Keep(run);
            }
        }
    }
    /// The median of a figure; none when its benchmark did not run.
    std::optional<double> Median(const std::string& name) const
    {
        const auto found = m_figures.find(name);
        if (found == m_figures.end()) {
            return std::nullopt;
        }
        std::vector<double> figures = found->second;
        std::sort(figures.begin(), figures.end());
        return figures[figures.size() / 2];
    }
    bool Failed() const { return m_failed; }

private:
    void Keep(const Run& run)
    {
        const std::string& name = run.run_name.function_name;
        const bool isItsOwn = !run.run_name.time_type.empty();
        m_figures[name].push_back(
            (isItsOwn ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime()) /
            benchmark::GetTimeUnitMultiplier(run.time_unit) * kNanosecondsPerSecond);
        for (const auto& [counter, value] : run.counters) {
            m_figures[name + ':' + counter].push_back(value.value);
        }
    }

    std::map<std::string, std::vector<double>> m_figures;
    bool m_failed = false;
};

std::string Shown(double figure, BenchUnit unit)
{
    char text[32];
    if (unit == BenchUnit::MebiBytes) {
        std::snprintf(text, sizeof text, "%.1f MiB", figure / kBytesPerMebiByte);
    } else {
        std::snprintf(text, sizeof text, "%.3f ms", figure / kNanosecondsPerMillisecond);
    }
    return text;
}

/// Prints the table; false when a goal was missed or a line has no figures.
bool PrintTable(const FigureReporter& reporter)
{
    std::printf("%-72s %13s %13s %8s %8s\n", "what", "ours", "peer", "ratio", "at most");
    bool good = !reporter.Failed();
    for (const BenchLine& line : BenchLines()) {
        const std::optional<double> ours = reporter.Median(line.ours);
        const std::optional<double> peer = reporter.Median(line.peer);
        if (!ours || !peer) {
            continue; // left out by a filter
        }
        const double ratio = *ours / *peer;
        const bool missed = line.goal > 0.0 && ratio > line.goal;
        std::printf("%-72s %13s %13s %8.2f ", line.what.c_str(), Shown(*ours, line.unit).c_str(),
                    Shown(*peer, line.unit).c_str(), ratio);
        if (line.goal > 0.0) {
            std::printf("%8.2f%s\n", line.goal, missed ? "  MISSED" : "");
        } else {
            std::printf("%8s\n", "-");
        }
        good = good && !missed;
    }
    return good;
}

/// Takes an argument of ours out of the list; false when it is not there.
bool TakeArgument(std::vector<std::string>& arguments, const std::string& name)
{
    const auto found = std::find(arguments.begin(), arguments.end(), name);
    if (found == arguments.end()) {
        return false;
    }
    arguments.erase(found);
    return true;
}

/// Hands the arguments to the benchmark library; false, with a message, when it knows one not.
bool InitializeBenchmarks(std::vector<std::string>& arguments)
{
    std::vector<char*> pointers;
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(pointers),
                   [](std::string& argument) { return argument.data(); });
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

} // namespace

// Medians of five repetitions, the benchmarks taken in random turns, so that a machine that slows
// down slows both sides. The exit status is 1 when a goal was missed.
int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() == 4 && arguments[1] == kMeasureReportOption) {
        return MeasureReport(arguments[2], arguments[3]);
    }
    if (TakeArgument(arguments, "--help") || TakeArgument(arguments, "-h")) {
        std::fputs(kHelp, stdout);
        return 0;
    }
    const bool large = TakeArgument(arguments, "--large");
    // What the user gives comes later and counts.
    std::vector<std::string> defaults{"--benchmark_enable_random_interleaving=true",
                                      large ? "--benchmark_repetitions=1"
                                            : "--benchmark_repetitions=5"};
    if (large) {
        defaults.emplace_back("--benchmark_filter=^Report");
        UseLargeReports();
        std::printf("Reports of 1,000,000 part instances, one turn each\n");
    }
    arguments.insert(arguments.begin() + 1, defaults.begin(), defaults.end());
    if (!InitializeBenchmarks(arguments)) {
        return kUsageError;
    }
    FigureReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return PrintTable(reporter) ? 0 : 1;
}
