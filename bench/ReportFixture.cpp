#include "ReportFixture.h"

#include "BenchFolder.h"
#include "ReportText.h"

#include "CATCkeGlobalFunctions.h"
#include "CATIXMLDOMDocumentBuilder.h"

#include <malloc.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace
{

constexpr int kInstances = 100'000;
constexpr int kManyInstances = 1'000'000;
constexpr int kShare = 10; // the small reports are that much smaller

int g_instances = kInstances;

struct UnitChoice
{
    const char* magnitude;
    const char* symbol;
};
constexpr std::array kInchPound{
    UnitChoice{"LENGTH", "in"},
    UnitChoice{"MASS", "lb"},
    UnitChoice{"INERTIAMOMENT", "lb.ft2"},
    UnitChoice{"DENSITY", "lb/ft3"},
    UnitChoice{"SURFACICMASS", "lb/ft2"},
    UnitChoice{"VOLUME", "ft3"},
};

std::string MakeText(int instances, bool distributive)
{
    ReportOptions options;
    options.instances = instances;
    options.distributive = distributive;
    return ReportText(options);
}

std::string MakeFile(const char* name, const std::string& text)
{
    const std::string path = BenchFile(name);
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

[[noreturn]] void End(const std::string& sentence)
{
    std::fprintf(stderr, "wb_bench: %s\n", sentence.c_str());
    std::exit(1);
}

} // namespace

void UseLargeReports()
{
    g_instances = kManyInstances;
}

int ReportInstances()
{
    return g_instances;
}

const std::string& BenchReport()
{
    static const std::string text = MakeText(g_instances, false);
    return text;
}

const std::string& SmallBenchReport()
{
    static const std::string text = MakeText(g_instances / kShare, false);
    return text;
}

const std::string& DistributiveBenchReport()
{
    static const std::string text = MakeText(g_instances, true);
    return text;
}

const std::string& SmallDistributiveBenchReport()
{
    static const std::string text = MakeText(g_instances / kShare, true);
    return text;
}

const std::string& BenchReportFile()
{
    static const std::string path = MakeFile("made.xml", BenchReport());
    return path;
}

const std::string& DistributiveBenchReportFile()
{
    static const std::string path = MakeFile("distributive.xml", DistributiveBenchReport());
    return path;
}

CATIDOMDocument_var ParseReport(std::string_view text)
{
    CATIDOMDocument_var document;
    CATXMLProblem problem;
    if (CreateCATIXMLDOMDocumentBuilder()->ParseText(text, document, problem) != S_OK) {
        End("the report was refused: " + problem.sentence.ToStdString());
    }
    return document;
}

void BeginWithFreshMemory()
{
    malloc_trim(0);
}

void UseInchPoundUnits()
{
    const CATICkeParmDictionary_var dictionary = CATCkeGlobalFunctions::GetParmDictionary();
    for (const UnitChoice& choice : kInchPound) {
        const CATICkeMagnitude_var magnitude = dictionary->FindMagnitude(choice.magnitude);
        if (magnitude.IsNull() || magnitude->FindUnit(choice.symbol).IsNull()) {
            End(std::string("there is no unit \"") + choice.symbol + "\" of " + choice.magnitude);
        }
        magnitude->UseUnit(choice.symbol);
    }
}
