#include "BenchTable.h"
#include "OtherProcess.h"
#include "ReportFixture.h"

#include "CATIXMLDOMDocumentBuilder.h"

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <pugixml.hpp>

#include <ctime>
#include <fstream>
#include <iterator>
#include <memory>

namespace
{

// Each reads in a process that has just started: memory that is used again, or is full of holes,
// would change the times of the three by a third and more, each in its own way. Taking the document
// down again is not measured.

std::string ReadText(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What this thread has had of the processor, in seconds.
double ProcessorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// The seconds that `parse` takes to make its document of the file's text; none when it refuses.
template <class Parse>
std::vector<double> SecondsOf(const std::string& path, Parse parse)
{
    const std::string text = ReadText(path);
    const double begin = ProcessorTime();
    const auto document = parse(text);
    const double end = ProcessorTime();
    if (!document) {
        std::fprintf(stderr, "%s: the report was refused\n", path.c_str());
        return {};
    }
    return {end - begin};
}

void ParseElsewhere(benchmark::State& state, const char* what, const std::string& path)
{
    for ([[maybe_unused]] auto turn : state) {
        const std::vector<double> seconds = MeasureElsewhere(what, path);
        if (seconds.size() == 1) {
            state.SetIterationTime(seconds.front());
        } else {
            state.SkipWithError("the report was refused");
        }
    }
}

void ReportParse(benchmark::State& state)
{
    ParseElsewhere(state, "parse", BenchReportFile());
}
BENCHMARK(ReportParse)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void ReportPugiParse(benchmark::State& state)
{
    ParseElsewhere(state, "pugixml", BenchReportFile());
}
BENCHMARK(ReportPugiParse)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void ReportDistributivePugiParse(benchmark::State& state)
{
    ParseElsewhere(state, "pugixml", DistributiveBenchReportFile());
}
BENCHMARK(ReportDistributivePugiParse)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseManualTime();

void ReportLibxmlParse(benchmark::State& state)
{
    ParseElsewhere(state, "libxml2", BenchReportFile());
}
BENCHMARK(ReportLibxmlParse)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

const RegisterBenchLine kParse({"parse a report / pugixml parsing it", "ReportParse",
                                "ReportPugiParse", 5.0});
const RegisterBenchLine kParseLibxml({"parse a report / libxml2's tree parse", "ReportParse",
                                      "ReportLibxmlParse", 0.6});

} // namespace

std::vector<double> MeasureParse(const std::string& path)
{
    return SecondsOf(path, [](const std::string& text) {
        CATIDOMDocument_var document;
        CATXMLProblem problem;
        CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem);
        return document;
    });
}

std::vector<double> MeasurePugiParse(const std::string& path)
{
    return SecondsOf(path, [](const std::string& text) {
        auto document = std::make_unique<pugi::xml_document>();
        const bool isGood = static_cast<bool>(document->load_buffer(
            text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8));
        return isGood ? std::move(document) : nullptr;
    });
}

// Without compact texts: they would make a tree that may not be changed.
std::vector<double> MeasureLibxmlParse(const std::string& path)
{
    return SecondsOf(path, [](const std::string& text) {
        return std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                          XML_PARSE_HUGE | XML_PARSE_NONET),
            &xmlFreeDoc);
    });
}
