#include "BenchFolder.h"
#include "BenchTable.h"
#include "ProductFile.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBImport.h"
#include "WBNumbers.h"
#include "WBServer.h"
#include "WBStore.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr int kInstances = 100'000;
constexpr int kParts = 1'000;

/// A hundred thousand uses of a thousand parts.
wb::Store& ReportedStore()
{
    static const wb::Store::Opened opened = [] {
        const std::string table = BenchFile("reported.csv");
        WriteProductFile(table, kInstances, kParts);
        auto made = wb::Store::OpenOrCreate(BenchFile("reported.db"));
        if (!made.store || !wb::ImportFile(*made.store, table).Ok()) {
            std::fprintf(stderr, "wb_bench: the product to report was not imported\n");
            std::exit(1);
        }
        return made;
    }();
    return *opened.store;
}

std::string ReportOf(const char* kind)
{
    static wb::Server server(ReportedStore());
    return server.Call("WBMakeReport",
                       std::string(kind) + "|1|0|1|*|1|*|0||||0|1||Active|0|1|BIG|0|No Filter|0|",
                       {});
}

/// The product is in memory after the first of them.
void ReportServed(benchmark::State& state, const char* kind)
{
    std::string report = ReportOf(kind);
    for ([[maybe_unused]] auto turn : state) {
        report = ReportOf(kind);
        benchmark::DoNotOptimize(report.data());
    }
    if (report.starts_with(CATENOWBCSCommonDefinitions::errMsgHeader)) {
        state.SkipWithError(report.c_str());
    }
    state.counters["bytes"] = static_cast<double>(report.size());
}

/// All values of attributes that are numbers.
std::vector<double> NumbersIn(const std::string& report)
{
    std::vector<double> numbers;
    std::size_t begin = report.find('"');
    while (begin != std::string::npos) {
        const std::size_t end = report.find('"', begin + 1);
        if (const auto number =
                wb::ReadNumber(std::string_view(report).substr(begin + 1, end - begin - 1))) {
            numbers.push_back(*number);
        }
        begin = report.find('"', end + 1);
    }
    return numbers;
}

/// The least that such a report needs: its numbers made digits, its bytes written once. The file
/// lies in memory, and its bytes are really copied there.
void ReportWritten(benchmark::State& state, const char* kind)
{
    const std::string report = ReportOf(kind);
    const std::vector<double> numbers = NumbersIn(report);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen("/dev/shm/wb_bench_report.xml", "wb"), &std::fclose);
    for ([[maybe_unused]] auto turn : state) {
        constexpr int kDigits = 15;
        char digits[40];
        for (const double number : numbers) {
            benchmark::DoNotOptimize(std::to_chars(digits, digits + sizeof digits, number,
                                                   std::chars_format::general, kDigits));
            benchmark::ClobberMemory();
        }
        std::rewind(file.get());
        std::fwrite(report.data(), 1, report.size(), file.get());
        std::fflush(file.get());
    }
    std::remove("/dev/shm/wb_bench_report.xml");
    state.counters["numbers"] = static_cast<double>(numbers.size());
}

void ReportNested(benchmark::State& state)
{
    ReportServed(state, "0");
}
BENCHMARK(ReportNested)->Unit(benchmark::kMillisecond);

void ReportNestedWritten(benchmark::State& state)
{
    ReportWritten(state, "0");
}
BENCHMARK(ReportNestedWritten)->Unit(benchmark::kMillisecond);

void ReportFlat(benchmark::State& state)
{
    ReportServed(state, "1");
}
BENCHMARK(ReportFlat)->Unit(benchmark::kMillisecond);

void ReportFlatWritten(benchmark::State& state)
{
    ReportWritten(state, "1");
}
BENCHMARK(ReportFlatWritten)->Unit(benchmark::kMillisecond);

void ReportStatistics(benchmark::State& state)
{
    ReportServed(state, "2");
}
BENCHMARK(ReportStatistics)->Unit(benchmark::kMillisecond);

void ReportStatisticsWritten(benchmark::State& state)
{
    ReportWritten(state, "2");
}
BENCHMARK(ReportStatisticsWritten)->Unit(benchmark::kMillisecond);

const RegisterBenchLine kNested({"report of 100,000 instances / its numbers and bytes",
                                 "ReportNested", "ReportNestedWritten", 3.0});
const RegisterBenchLine kFlat({"the same, distributive", "ReportFlat", "ReportFlatWritten", 3.0});
const RegisterBenchLine kStatistics({"the same, material statistics", "ReportStatistics",
                                     "ReportStatisticsWritten", 3.0});

} // namespace
