#include "ReportMemory.h"

#include "BenchFolder.h"
#include "BenchTable.h"
#include "Listening.h"
#include "ReportFixture.h"

#include "CATIXMLDOMDocumentBuilder.h"
#include "CATWBServices.h"

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

namespace
{

constexpr int kPasses = 100;

/// The bytes of this process that stand in real memory. What is free goes back to the system
/// first, so that only what is held counts.
double HeldBytes()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    double total = 0.0;
    double resident = 0.0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

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

struct ReportMemory
{
    double document = 0.0;
    double afterOnePass = 0.0;
    double afterManyPasses = 0.0;
};

/// Has another process of this program measure the file.
bool MeasureElsewhere(const std::string& path, ReportMemory& memory)
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "'" + program + "' " + kMeasureReportOption + " '" + path + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 &pclose);
    return output && std::fscanf(output.get(), "%lf %lf %lf", &memory.document,
                                 &memory.afterOnePass, &memory.afterManyPasses) == 3;
}

// Its time is that of all passes together and stands in no line; its counters do.
void ReportMemoryOfDocument(benchmark::State& state)
{
    const std::string path = BenchFile("memory.xml");
    std::ofstream(path, std::ios::binary) << BenchReport();
    ReportMemory memory;
    for (auto turn : state) {
        if (!MeasureElsewhere(path, memory)) {
            state.SkipWithError("the memory was not measured");
        }
    }
    std::filesystem::remove(path);
    state.counters["text"] = static_cast<double>(BenchReport().size());
    state.counters["document"] = memory.document;
    state.counters["afterOnePass"] = memory.afterOnePass;
    state.counters["afterManyPasses"] = memory.afterManyPasses;
}
BENCHMARK(ReportMemoryOfDocument)->Iterations(1)->Repetitions(1)->UseRealTime();

const RegisterBenchLine kDocument({"a report's document in memory / the size of its text",
                                   "ReportMemoryOfDocument:document", "ReportMemoryOfDocument:text",
                                   2.2, BenchUnit::MebiBytes});
const RegisterBenchLine kManyPasses({"a document after 100 passes of display / after one",
                                     "ReportMemoryOfDocument:afterManyPasses",
                                     "ReportMemoryOfDocument:afterOnePass", 1.1,
                                     BenchUnit::MebiBytes});

} // namespace

int PrintReportMemory(const std::string& path)
{
    const Listening silence({});
    UseInchPoundUnits();
    const CATIXMLDOMDocumentBuilder_var builder = CreateCATIXMLDOMDocumentBuilder();
    const double before = HeldBytes();
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    if (builder->ParseFile(path, document, problem) != S_OK) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), problem.sentence.ToStdString().c_str());
        return 1;
    }
    ReportMemory memory;
    memory.document = HeldBytes() - before;
    CATWBServices::ManageUnitsConversion(document, 0, 0);
    Display(document, 0);
    memory.afterOnePass = HeldBytes() - before;
    for (int pass = 1; pass < kPasses; ++pass) {
        Display(document, pass);
    }
    memory.afterManyPasses = HeldBytes() - before;
    std::printf("%.0f %.0f %.0f\n", memory.document, memory.afterOnePass, memory.afterManyPasses);
    return 0;
}
