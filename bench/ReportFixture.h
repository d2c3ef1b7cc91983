#pragma once

#include "CATIDOMDocument.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

/// What the benchmarks of report documents share: the texts that they read, and the user's units.

/// 1,000,000 part instances in place of 100,000, from now on.
void UseLargeReports();
/// How many part instances the reports of this run hold.
int ReportInstances();
/// A report of that many instances, a distributive one of as many, and both with a tenth of them,
/// each made at the first call.
const std::string& BenchReport();
const std::string& DistributiveBenchReport();
const std::string& SmallBenchReport();
const std::string& SmallDistributiveBenchReport();
/// The first two in files, each written at the first call.
const std::string& BenchReportFile();
const std::string& DistributiveBenchReportFile();

/// The document of a text; a text that is refused ends the program.
CATIDOMDocument_var ParseReport(std::string_view text);

/// Chooses inch and pound for this process alone: units that every value is converted to. A unit
/// that the dictionary lacks ends the program.
void UseInchPoundUnits();

/// Gives what is free back to the system. Else a benchmark would find the memory that another has
/// left warm, and measure its turn.
void BeginWithFreshMemory();

/// Runs the work with the time that the turn measures and everything else outside of it, each time
/// with fresh memory.
template <class Prepare, class Work>
void MeasureEach(benchmark::State& state, Prepare prepare, Work work)
{
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        auto object = prepare();
        BeginWithFreshMemory();
        state.ResumeTiming();
        work(object);
        state.PauseTiming();
        object = {};
        state.ResumeTiming();
    }
}
