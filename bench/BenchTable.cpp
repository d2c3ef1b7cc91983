#include "BenchTable.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

std::vector<BenchLine>& BenchLines()
{
    static std::vector<BenchLine> lines;
    return lines;
}

namespace
{

/// Keeps the median time of each benchmark, in nanoseconds.
class MedianReporter : public benchmark::BenchmarkReporter
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
            } else if (run.aggregate_name == "median") {
                m_medians[run.run_name.function_name] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) *
                    1e9;
            }
        }
    }
    /// The median of a benchmark, negative when it did not run.
    double Median(const std::string& name) const
    {
        const auto found = m_medians.find(name);
        return found == m_medians.end() ? -1.0 : found->second;
    }
    bool Failed() const { return m_failed; }

private:
    std::map<std::string, double> m_medians;
    bool m_failed = false;
};

std::string Time(double nanoseconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f ms", nanoseconds / 1e6);
    return text;
}

/// Prints the table; false when a goal was missed or a line has no figures.
bool PrintTable(const MedianReporter& reporter)
{
    std::printf("%-58s %13s %13s %8s %8s\n", "what", "ours", "peer", "ratio", "at most");
    bool good = !reporter.Failed();
    for (const BenchLine& line : BenchLines()) {
        const double ours = reporter.Median(line.ours);
        const double peer = reporter.Median(line.peer);
        if (ours < 0.0 || peer <= 0.0) {
            continue; // left out by a filter
        }
        const double ratio = ours / peer;
        const bool missed = line.goal > 0.0 && ratio > line.goal;
        std::printf("%-58s %13s %13s %8.2f ", line.what.c_str(), Time(ours).c_str(),
                    Time(peer).c_str(), ratio);
        if (line.goal > 0.0) {
            std::printf("%8.2f%s\n", line.goal, missed ? "  MISSED" : "");
        } else {
            std::printf("%8s\n", "-");
        }
        good = good && !missed;
    }
    return good;
}

} // namespace

// Medians of five repetitions, the benchmarks taken in random turns, so that a machine that slows
// down slows both sides. The exit status is 1 when a goal was missed.
int main(int argc, char** argv)
{
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data()});
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return PrintTable(reporter) ? 0 : 1;
}
