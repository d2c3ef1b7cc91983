#include "BenchTable.h"
#include "Listening.h"
#include "ReportFixture.h"

#include "CATWBServices.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

namespace
{

// Whole documents. Each conversion starts from a document just read; each pass of display starts
// from what another choice has left, as when a user turns an option on.

struct DisplayChoice
{
    unsigned char withSymbol;
    int decimals;
    DisplayChoice Other() const
    {
        return {static_cast<unsigned char>(withSymbol == 0 ? 1 : 0), decimals == 0 ? -1 : 0};
    }
};

const CATListValCATUnicodeString& MagnitudeAttributes()
{
    static const CATListValCATUnicodeString names{"__magnitude__Unit_mass",
                                                  "__magnitude__Harness_length"};
    return names;
}

void Convert(benchmark::State& state, const DisplayChoice& choice)
{
    UseInchPoundUnits();
    MeasureEach(
        state, [] { return ParseReport(BenchReport()); },
        [&choice](CATIDOMDocument_var& document) {
            CATWBServices::ManageUnitsConversion(document, choice.withSymbol, choice.decimals);
        });
}
void ReportConversion(benchmark::State& state)
{
    const Listening silence({});
    Convert(state, {0, 0});
}
BENCHMARK(ReportConversion)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportConversionFixed(benchmark::State& state)
{
    const Listening silence({});
    Convert(state, {1, -1});
}
BENCHMARK(ReportConversionFixed)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportConversionWithDiagnostics(benchmark::State& state)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    const Listening toFile([&file](std::string_view line) {
        std::fwrite(line.data(), 1, line.size(), file.get());
        std::fputc('\n', file.get());
    });
    Convert(state, {0, 0});
}
BENCHMARK(ReportConversionWithDiagnostics)->Unit(benchmark::kMillisecond)->Iterations(1);

void Display(benchmark::State& state, const DisplayChoice& choice)
{
    const Listening silence({});
    UseInchPoundUnits();
    CATIDOMDocument_var document = ParseReport(BenchReport());
    const DisplayChoice other = choice.Other();
    CATWBServices::ManageUnitsConversion(document, other.withSymbol, other.decimals);
    for ([[maybe_unused]] auto turn : state) {
        CATWBServices::ManageUnitsDisplay(document, MagnitudeAttributes(), choice.withSymbol,
                                          choice.decimals);
    }
}
void ReportDisplay(benchmark::State& state)
{
    Display(state, {0, 0});
}
BENCHMARK(ReportDisplay)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportDisplaySymbols(benchmark::State& state)
{
    Display(state, {1, 0});
}
BENCHMARK(ReportDisplaySymbols)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportDisplayFixed(benchmark::State& state)
{
    Display(state, {0, -1});
}
BENCHMARK(ReportDisplayFixed)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportDisplaySymbolsFixed(benchmark::State& state)
{
    Display(state, {1, -1});
}
BENCHMARK(ReportDisplaySymbolsFixed)->Unit(benchmark::kMillisecond)->Iterations(1);

void ReportConversionDistributive(benchmark::State& state)
{
    const Listening silence({});
    UseInchPoundUnits();
    MeasureEach(
        state, [] { return ParseReport(DistributiveBenchReport()); },
        [](CATIDOMDocument_var& document) {
            CATWBServices::ManageUnitsConversionDistributive(document, 0, 0);
        });
}
BENCHMARK(ReportConversionDistributive)->Unit(benchmark::kMillisecond)->Iterations(1);

// Inertia

/// A turn of 30 degrees about the z axis.
CATMath3x3Matrix TurnedAxes()
{
    const double sine = 0.5;
    const double cosine = std::sqrt(0.75);
    return {cosine, -sine, 0.0, sine, cosine, 0.0, 0.0, 0.0, 1.0};
}

void ReportReferencePoint(benchmark::State& state)
{
    const Listening silence({});
    CATMathPoint point(1250.5, -300.0, 42.25);
    CATMath3x3Matrix axes = TurnedAxes();
    MeasureEach(
        state, [] { return ParseReport(BenchReport()); },
        [&](CATIDOMDocument_var& document) {
            CATWBServices::InertiaReferencePointConversion(document, &point, &axes, 0);
        });
}
BENCHMARK(ReportReferencePoint)->Unit(benchmark::kMillisecond)->Iterations(1);

void ReportDirection(benchmark::State& state)
{
    const Listening silence({});
    CATMath3x3Matrix axes = TurnedAxes();
    MeasureEach(
        state, [] { return ParseReport(BenchReport()); },
        [&](CATIDOMDocument_var& document) {
            CATWBServices::InertiaDirectionConversion(document, &axes);
        });
}
BENCHMARK(ReportDirection)->Unit(benchmark::kMillisecond)->Iterations(1);

// One value at a time

constexpr int kValues = 1000;
constexpr const char* kAttribute = "COGx";
constexpr double kMillimetresPerInch = 25.4;

/// The nodes of some part instances and the texts that they were read with.
struct Values
{
    CATIDOMDocument_var document;
    std::vector<CATIDOMNode_var> nodes;
    std::vector<CATUnicodeString> texts;

    Values() : document(ParseReport(SmallBenchReport()))
    {
        const CATIDOMNodeList_var list = document->ElementsByTagName("PartInstance");
        for (int index = 0; index < kValues; ++index) {
            nodes.push_back(list->Item(index));
            CATUnicodeString text;
            nodes.back()->AsElement()->GetAttribute(kAttribute, text);
            texts.push_back(text);
        }
    }
    void Restore() const
    {
        for (std::size_t index = 0; index < nodes.size(); ++index) {
            nodes[index]->AsElement()->SetAttribute(kAttribute, texts[index]);
        }
    }
};

void SetValues(benchmark::State& state, int decimals)
{
    UseInchPoundUnits();
    Values values;
    const CATICkeMagnitude_var length = CATWBServices::GetMagnitude("LENGTH");
    const CATICkeUnit_var target = length->CurrentUnit();
    const CATICkeUnit_var source = length->StorageUnit();
    const CATUnicodeString attribute(kAttribute);
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        values.Restore();
        state.ResumeTiming();
        for (CATIDOMNode_var& node : values.nodes) {
            CATWBServices::SetAttributeValue(node, attribute, target, source, 0, decimals, 0);
        }
    }
}
void ReportSetValues(benchmark::State& state)
{
    SetValues(state, 0);
}
BENCHMARK(ReportSetValues)->Unit(benchmark::kMillisecond)->MinTime(0.1);
void ReportSetValuesFixed(benchmark::State& state)
{
    SetValues(state, -1);
}
BENCHMARK(ReportSetValuesFixed)->Unit(benchmark::kMillisecond)->MinTime(0.1);

/// The same numbers read, converted and written with as many decimals as the unit shows.
void ReportScanAndPrint(benchmark::State& state)
{
    const Values values;
    std::vector<std::string> texts;
    for (const CATUnicodeString& text : values.texts) {
        texts.push_back(text.ToStdString());
    }
    constexpr int kInchDecimals = 4;
    for ([[maybe_unused]] auto turn : state) {
        for (const std::string& text : texts) {
            double value = 0.0;
            std::sscanf(text.c_str(), "%le", &value);
            char shown[64];
            std::snprintf(shown, sizeof shown, "%.*f", kInchDecimals, value / kMillimetresPerInch);
            benchmark::DoNotOptimize(shown);
        }
    }
}
BENCHMARK(ReportScanAndPrint)->Unit(benchmark::kMillisecond)->MinTime(0.1);

const RegisterBenchLine kConversion({"ManageUnitsConversion / pugixml parsing the text",
                                     "ReportConversion", "ReportPugiParse", 3.0});
const RegisterBenchLine kConversionFixed({"the same with symbols and fixed decimals",
                                          "ReportConversionFixed", "ReportPugiParse", 3.0});
const RegisterBenchLine kConversionDiagnostics({"ManageUnitsConversion with diagnostics to a file",
                                                "ReportConversionWithDiagnostics",
                                                "ReportPugiParse", 0.0});
const RegisterBenchLine kDisplay({"ManageUnitsDisplay / pugixml parsing the text", "ReportDisplay",
                                  "ReportPugiParse", 3.0});
const RegisterBenchLine kDisplaySymbols({"the same with symbols", "ReportDisplaySymbols",
                                         "ReportPugiParse", 3.0});
const RegisterBenchLine kDisplayFixed({"the same with fixed decimals", "ReportDisplayFixed",
                                       "ReportPugiParse", 3.0});
const RegisterBenchLine kDisplaySymbolsFixed({"the same with symbols and fixed decimals",
                                              "ReportDisplaySymbolsFixed", "ReportPugiParse", 3.0});
const RegisterBenchLine
    kDistributive({"ManageUnitsConversionDistributive / pugixml parsing the text",
                   "ReportConversionDistributive", "ReportDistributivePugiParse", 0.0});
const RegisterBenchLine
    kReferencePoint({"InertiaReferencePointConversion / pugixml parsing the text",
                     "ReportReferencePoint", "ReportPugiParse", 2.0});
const RegisterBenchLine kDirection({"InertiaDirectionConversion / pugixml parsing the text",
                                    "ReportDirection", "ReportPugiParse", 2.0});
const RegisterBenchLine kSetValues({"SetAttributeValue of 1,000 values / sscanf and snprintf",
                                    "ReportSetValues", "ReportScanAndPrint", 0.5});
const RegisterBenchLine kSetValuesFixed({"the same with fixed decimals", "ReportSetValuesFixed",
                                         "ReportScanAndPrint", 0.5});

} // namespace
