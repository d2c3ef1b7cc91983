#include "BenchTable.h"
#include "ProductFixture.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBCompute.h"
#include "WBNumbers.h"
#include "WBRollUpTree.h"
#include "WBServer.h"
#include "WBStore.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

constexpr const char* kRoot = "BIG";

wb::Store& ServedStore()
{
    static const wb::Store::Opened opened = wb::Store::Open(ProductDatabase(ProductInstances()));
    return *opened.store;
}

/// The product's most precise weight with a lower deviation of so many kg. The server keeps no
/// answer to a request that defines the precision, so that each is computed.
std::string RequestWith(int kilograms)
{
    return "0||||0|1||MostPrecise|0|1|" + std::string(kRoot) + "|0|No Filter|1|1|" +
           std::to_string(kilograms) + "|1|";
}

void ProductServed(benchmark::State& state)
{
    static wb::Server server(ServedStore());
    int kilograms = 0;
    std::string answer = server.Call("WBComputeVPMValues", RequestWith(0), {});
    for ([[maybe_unused]] auto turn : state) {
        answer = server.Call("WBComputeVPMValues", RequestWith(++kilograms), {});
    }
    if (answer.starts_with(CATENOWBCSCommonDefinitions::errMsgHeader)) {
        state.SkipWithError(answer.c_str());
    }
}
BENCHMARK(ProductServed)->Unit(benchmark::kMillisecond);

const wb::ProductGraph& ServedGraph()
{
    static const wb::ProductGraph graph(
        ServedStore().ReadProduct(ServedStore().FindRoot(kRoot)->id), ServedStore().MassTypes());
    return graph;
}

/// The sum of the same product, with a record for each instance.
void ProductServedRollUp(benchmark::State& state)
{
    static FlatProduct product = Flattened(ServedGraph());
    for ([[maybe_unused]] auto turn : state) {
        wb::RollUpTree(product.records, product.sizes, product.placements);
        benchmark::ClobberMemory();
    }
    wb::ComputeOptions options;
    options.precision = wb::ComputeOptions::Precision::MostPrecise;
    const auto result = wb::Compute(ServedGraph(), {0, {}}, options);
    if (!IsSameBody(product.records[0], result.total.body)) {
        state.SkipWithError("the served product weighs something else than its instances");
    }
}
BENCHMARK(ProductServedRollUp)->Unit(benchmark::kMillisecond);

const RegisterBenchLine kServed({"WBComputeVPMValues / roll-up of the same instances",
                                 "ProductServed", "ProductServedRollUp", 2.5});

} // namespace
