#include "BenchTable.h"

#include "OtherProcess.h"
#include "ProductFixture.h"
#include "ReportFixture.h"

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
    "  --large                    the lines of products, reports and lists alone, with ten times\n"
    "                             the instances and one turn in place of five; takes many\n"
    "                             minutes and gigabytes of memory\n"
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
constexpr double kNanosecondsPerMicrosecond = 1e3;
constexpr double kShortTime = 1e4; // in nanoseconds: shown in microseconds
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

std::string Formatted(const char* format, double number)
{
    char text[32];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string Shown(double figure, BenchUnit unit)
{
    switch (unit) {
    case BenchUnit::MebiBytes:
        return Formatted("%.1f MiB", figure / kBytesPerMebiByte);
    case BenchUnit::Share:
        return Formatted("%.2g", figure);
    case BenchUnit::Milliseconds:
        break;
    }
    return figure < kShortTime ? Formatted("%.3f us", figure / kNanosecondsPerMicrosecond)
                               : Formatted("%.3f ms", figure / kNanosecondsPerMillisecond);
}

/// Two decimals, or two digits of a number that they would not show.
std::string ShownRatio(double ratio)
{
    constexpr double kSmall = 0.1;
    return Formatted(ratio < kSmall ? "%.2g" : "%.2f", ratio);
}

/// Prints a line; true when its goal was not missed.
bool PrintLine(const BenchLine& line, double ours, std::optional<double> peer)
{
    const double ratio = peer ? ours / *peer : ours;
    const bool missed = line.goal > 0.0 && !(ratio <= line.goal);
    std::printf("%-72s %13s %13s %8s %8s%s\n", line.what.c_str(), Shown(ours, line.unit).c_str(),
                peer ? Shown(*peer, line.unit).c_str() : "-", ShownRatio(ratio).c_str(),
                line.goal > 0.0 ? ShownRatio(line.goal).c_str() : "-", missed ? "  MISSED" : "");
    return !missed;
}

/// Prints the table; false when a goal was missed or a benchmark failed.
bool PrintTable(const FigureReporter& reporter)
{
    std::printf("%-72s %13s %13s %8s %8s\n", "what", "ours", "peer", "ratio", "at most");
    bool good = !reporter.Failed();
    for (const BenchLine& line : BenchLines()) {
        std::optional<double> ours = reporter.Median(line.ours);
        std::optional<double> peer = reporter.Median(line.peer);
        if (!ours || (!peer && !line.peer.empty())) {
            continue; // left out by a filter
        }
        *ours /= line.ourCount;
        if (peer) {
            *peer /= line.peerCount;
        }
        good = PrintLine(line, *ours, peer) && good;
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
    if (arguments.size() == 4 && arguments[1] == kMeasureOption) {
        return Measure(arguments[2], arguments[3]);
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
        defaults.emplace_back("--benchmark_filter=^(Product|Report|List)");
        UseLargeProducts();
        UseLargeReports();
    }
    std::printf("Products of %d instances, reports of %d%s\n", ProductInstances(),
                ReportInstances(), large ? ", one turn each" : "");
    arguments.insert(arguments.begin() + 1, defaults.begin(), defaults.end());
    if (!InitializeBenchmarks(arguments)) {
        return kUsageError;
    }
    FigureReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return PrintTable(reporter) ? 0 : 1;
}
