#include "BenchFolder.h"
#include "BenchTable.h"
#include "ReportFixture.h"

#include "CATIXMLDOMDocumentBuilder.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <array>
#include <cstring>
#include <filesystem>
#include <memory>

namespace
{

using Pugi = std::unique_ptr<pugi::xml_document>;

Pugi ParseByPugi(const std::string& text)
{
    auto document = std::make_unique<pugi::xml_document>();
    document->load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    return document;
}

// Walking: each counts the part instances.

void ReportWalk(benchmark::State& state)
{
    const CATIDOMDocument_var document = ParseReport(BenchReport());
    for ([[maybe_unused]] auto turn : state) {
        const CATIDOMNodeList_var nodes = document->ElementsByTagName("PartInstance");
        const int length = nodes->Length();
        int count = 0;
        for (int index = 0; index < length; ++index) {
            count += nodes->Item(index).IsNull() ? 0 : 1;
        }
        if (count != ReportInstances()) {
            state.SkipWithError("the list has not every instance");
        }
    }
}
BENCHMARK(ReportWalk)->Unit(benchmark::kMillisecond)->Iterations(3);

int CountInstances(const pugi::xml_node& node)
{
    int count = std::strcmp(node.name(), "PartInstance") == 0 ? 1 : 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        count += CountInstances(child);
    }
    return count;
}

void ReportPugiWalk(benchmark::State& state)
{
    const Pugi document = ParseByPugi(BenchReport());
    for ([[maybe_unused]] auto turn : state) {
        if (CountInstances(*document) != ReportInstances()) {
            state.SkipWithError("the tree has not every instance");
        }
    }
}
BENCHMARK(ReportPugiWalk)->Unit(benchmark::kMillisecond)->Iterations(3);

// Growth with the number of instances

constexpr std::array kRewritten{"COGx",
                                "COGy",
                                "COGz",
                                "WB_Mass",
                                "WB_Lower_deviation",
                                "WB_Upper_deviation",
                                "MOIxx",
                                "MOIyy",
                                "MOIzz",
                                "POIxy",
                                "POIxz",
                                "POIyz",
                                "WB_Density",
                                "Unit_mass",
                                "Harness_length"};

void RewriteAlongList(benchmark::State& state, const std::string& text)
{
    const std::vector<CATUnicodeString> names(kRewritten.begin(), kRewritten.end());
    const CATUnicodeString value("1234.567890");
    MeasureEach(
        state, [&text] { return ParseReport(text); },
        [&](CATIDOMDocument_var& document) {
            const CATIDOMNodeList_var nodes = document->ElementsByTagName("PartInstance");
            for (int index = 0; index < nodes->Length(); ++index) {
                const CATIDOMNode_var node = nodes->Item(index);
                for (const CATUnicodeString& name : names) {
                    node->AsElement()->SetAttribute(name, value);
                }
            }
        });
}
void ReportRewrite(benchmark::State& state)
{
    RewriteAlongList(state, BenchReport());
}
BENCHMARK(ReportRewrite)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportRewriteTenth(benchmark::State& state)
{
    RewriteAlongList(state, SmallBenchReport());
}
BENCHMARK(ReportRewriteTenth)->Unit(benchmark::kMillisecond)->Iterations(3);

/// Takes out every second instance on the way forward, and what is left from the end.
void RemoveInstances(const CATIDOMDocument_var& document)
{
    const CATIDOMNodeList_var roots = document->ElementsByTagName("PRC");
    const CATIDOMNode_var root = roots->Item(0);
    const CATIDOMNodeList_var nodes = document->ElementsByTagName("PartInstance");
    for (int index = 0; index < nodes->Length(); ++index) {
        root->RemoveChild(nodes->Item(index));
    }
    while (nodes->Length() > 0) {
        root->RemoveChild(nodes->Item(nodes->Length() - 1));
    }
}

void RemoveThroughList(benchmark::State& state, const std::string& text)
{
    MeasureEach(
        state, [&text] { return ParseReport(text); },
        [&](CATIDOMDocument_var& document) { RemoveInstances(document); });
}
void ReportRemove(benchmark::State& state)
{
    RemoveThroughList(state, DistributiveBenchReport());
}
BENCHMARK(ReportRemove)->Unit(benchmark::kMillisecond)->Iterations(1);
void ReportRemoveTenth(benchmark::State& state)
{
    RemoveThroughList(state, SmallDistributiveBenchReport());
}
BENCHMARK(ReportRemoveTenth)->Unit(benchmark::kMillisecond)->Iterations(3);

// Writing to a new file

void WriteReportFile(benchmark::State& state, const char* flush)
{
    const CATIDOMDocument_var document = ParseReport(BenchReport());
    const std::string path = BenchFile("report.xml");
    const CATIXMLDOMDocumentBuilder_var builder = CreateCATIXMLDOMDocumentBuilder();
    for ([[maybe_unused]] auto turn : state) {
        CATXMLProblem problem;
        if (builder->WriteToFile(document, path, {"Flush"}, {flush}, problem) != S_OK) {
            state.SkipWithError("the report was not written");
        }
        state.PauseTiming();
        std::filesystem::remove(path);
        state.ResumeTiming();
    }
}
void ReportWrite(benchmark::State& state)
{
    WriteReportFile(state, "no");
}
BENCHMARK(ReportWrite)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
void ReportWriteAndFlush(benchmark::State& state)
{
    WriteReportFile(state, "yes");
}
BENCHMARK(ReportWriteAndFlush)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

void ReportPugiWrite(benchmark::State& state)
{
    const Pugi document = ParseByPugi(BenchReport());
    const std::string path = BenchFile("report.xml");
    for ([[maybe_unused]] auto turn : state) {
        if (!document->save_file(path.c_str(), "", pugi::format_raw, pugi::encoding_utf8)) {
            state.SkipWithError("the peer did not write the report");
        }
        state.PauseTiming();
        std::filesystem::remove(path);
        state.ResumeTiming();
    }
}
BENCHMARK(ReportPugiWrite)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

const RegisterBenchLine kWalk({"walk a live list by tag name / a plain walk over pugixml's tree",
                               "ReportWalk", "ReportPugiWalk", 1.5});
const RegisterBenchLine kRewrite({"rewrite 15 attributes each along a live list / a tenth of it",
                                  "ReportRewrite", "ReportRewriteTenth", 30.0});
const RegisterBenchLine kRemove({"remove all instances through a live list / a tenth of them",
                                 "ReportRemove", "ReportRemoveTenth", 30.0});
const RegisterBenchLine kWrite({"write a report to a file, without flushing / pugixml saving it",
                                "ReportWrite", "ReportPugiWrite", 1.2});
const RegisterBenchLine kWriteAndFlush({"the same with flushing to the disk", "ReportWriteAndFlush",
                                        "ReportPugiWrite", 0.0});

} // namespace
