#include "BenchFolder.h"
#include "BenchTable.h"
#include "OtherProcess.h"
#include "ProductFixture.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>

namespace
{

constexpr int kFewUses = 100;
constexpr int kStarts = 9;

/// Opens the root that stands in the database, comes back when its tree is painted, and quits.
const std::string& StartStory()
{
    static const std::string path = [] {
        const std::string story = BenchFile("start.story");
        std::ofstream(story) << "workshop NavigatorWorkshop\nquit\n";
        return story;
    }();
    return path;
}

/// The program from its start over the first painted tree to its end, on no screen.
void Start(benchmark::State& state, int uses)
{
    const std::string command = "QT_QPA_PLATFORM=offscreen '" + ProgramFolder() +
                                "/wb' workbench BIG --db '" + ProductDatabase(uses) + "' --play '" +
                                StartStory() + "'";
    for ([[maybe_unused]] auto turn : state) {
        if (std::system(command.c_str()) != 0) {
            state.SkipWithError("the workbench did not start");
        }
    }
}

void ProductStart(benchmark::State& state)
{
    Start(state, ProductInstances());
}
BENCHMARK(ProductStart)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseRealTime();

void ProductStartSmall(benchmark::State& state)
{
    Start(state, kFewUses);
}
BENCHMARK(ProductStartSmall)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseRealTime();

const RegisterBenchLine kStart({"start to first painted tree and quit / with 100 uses",
                                "ProductStart", "ProductStartSmall", 1.3});

} // namespace
