#include "BenchTable.h"
#include "Listening.h"
#include "OtherProcess.h"
#include "ReportFixture.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "CATWBServices.h"

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>

namespace
{

constexpr int kPasses = 100;

struct DisplayChoice
{
    unsigned char withSymbol;
    int decimals;
};
// The longest texts, the shortest and some between them. The first and the hundredth pass use the
// same choice, so that they may be compared.
constexpr std::array kChoices{DisplayChoice{1, -1}, DisplayChoice{0, 0}, DisplayChoice{1, 0}};
static_assert((kPasses - 1) % kChoices.size() == 0);

const CATListValCATUnicodeString& MagnitudeAttributes()
{
    static const CATListValCATUnicodeString names{"__magnitude__Unit_mass",
                                                  "__magnitude__Harness_length"};
    return names;
}

void Display(CATIDOMDocument_var& document, int pass)
{
    const DisplayChoice& choice = kChoices[static_cast<std::size_t>(pass) % kChoices.size()];
    CATWBServices::ManageUnitsDisplay(document, MagnitudeAttributes(), choice.withSymbol,
                                      choice.decimals);
}

// Its time is that of all passes together and stands in no line; its counters do.
void ReportMemory(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state) {
        const std::vector<double> bytes = MeasureElsewhere("memory", BenchReportFile());
        if (bytes.size() != 3) {
            state.SkipWithError("the memory was not measured");
            return;
        }
        state.counters["text"] = static_cast<double>(BenchReport().size());
        state.counters["document"] = bytes[0];
        state.counters["afterOnePass"] = bytes[1];
        state.counters["afterManyPasses"] = bytes[2];
    }
}
BENCHMARK(ReportMemory)->Iterations(1)->Repetitions(1)->UseRealTime();

const RegisterBenchLine kDocument({"a report's document in memory / the size of its text",
                                   "ReportMemory:document", "ReportMemory:text", 2.2,
                                   BenchUnit::MebiBytes});
const RegisterBenchLine kManyPasses({"a document after 100 passes of display / after one",
                                     "ReportMemory:afterManyPasses", "ReportMemory:afterOnePass",
                                     1.1, BenchUnit::MebiBytes});

} // namespace

double HeldBytes()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

std::vector<double> MeasureMemory(const std::string& path)
{
    const Listening silence({});
    UseInchPoundUnits();
    const CATIXMLDOMDocumentBuilder_var builder = CreateCATIXMLDOMDocumentBuilder();
    const double before = HeldBytes();
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    if (builder->ParseFile(path, document, problem) != S_OK) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), problem.sentence.ToStdString().c_str());
        return {};
    }
    std::vector<double> bytes{HeldBytes() - before};
    CATWBServices::ManageUnitsConversion(document, 0, 0);
    Display(document, 0);
    bytes.push_back(HeldBytes() - before);
    for (int pass = 1; pass < kPasses; ++pass) {
        Display(document, pass);
    }
    bytes.push_back(HeldBytes() - before);
    return bytes;
}
