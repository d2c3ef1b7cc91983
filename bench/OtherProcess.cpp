#include "OtherProcess.h"

#include <cstdio>
#include <filesystem>
#include <memory>

namespace
{

constexpr int kUsageError = 2;

struct MeasureRow
{
    const char* what;
    std::vector<double> (*take)(const std::string& path);
};
constexpr MeasureRow kMeasures[] = {
    {"memory", &MeasureMemory},       {"parse", &MeasureParse},   {"pugixml", &MeasurePugiParse},
    {"libxml2", &MeasureLibxmlParse}, {"import", &MeasureImport}, {"list", &MeasureList}};

std::filesystem::path ThisProgram()
{
    return std::filesystem::read_symlink("/proc/self/exe");
}

} // namespace

int Measure(const std::string& what, const std::string& path)
{
    for (const MeasureRow& measure : kMeasures) {
        if (what == measure.what) {
            const std::vector<double> figures = measure.take(path);
            for (const double figure : figures) {
                std::printf("%.9g\n", figure);
            }
            return figures.empty() ? 1 : 0;
        }
    }
    std::fprintf(stderr, "wb_bench: \"%s\" cannot be measured\n", what.c_str());
    return kUsageError;
}

std::vector<double> MeasureElsewhere(const std::string& what, const std::string& path)
{
    const std::string command =
        "'" + ThisProgram().string() + "' " + kMeasureOption + ' ' + what + " '" + path + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 &pclose);
    std::vector<double> figures;
    for (double figure = 0.0; output && std::fscanf(output.get(), "%lf", &figure) == 1;) {
        figures.push_back(figure);
    }
    return figures;
}

std::string ProgramFolder()
{
    return ThisProgram().parent_path().string();
}
