#include "ProductFile.h"

#include <algorithm>
#include <cstdio>
#include <memory>

namespace
{

constexpr int kSections = 100;
constexpr int kAssemblies = 1000;

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

void WriteAssembly(std::FILE* file, const char* parent, const char* part, double x)
{
    std::fprintf(file, "%s,%s.1,%s,A,Assembly %s,assembly,%.3f,0,0,,,,,,,,,,,,,,\n", parent, part,
                 part, part, x);
}

void WriteLeaf(std::FILE* file, const char* assembly, int use, int part, bool isFirst)
{
    const double x = 1.25 * (use % 997);
    const double turn = 90.0 * (use % 4);
    if (!isFirst) {
        std::fprintf(file, "%s,P%06d.%d,P%06d,,,,%.3f,%.3f,-7.5,%.1f,,,,,,,,,,,,,\n", assembly,
                     part, use, part, x, 2.0 * x, turn);
        return;
    }
    const double mass = 0.25 + 0.001 * part;
    std::fprintf(file,
                 "%s,P%06d.%d,P%06d,A,Part number "
                 "%d,part,%.3f,%.3f,-7.5,%.1f,Calculated,%.4f,3,5,%.3f,%.3f,%.3f,%.6g,%.6g,"
                 "%.6g,Al 2024-T3,CODE %d,model %d\n",
                 assembly, part, use, part, part, x, 2.0 * x, turn, mass, 0.1 * part, -0.2 * part,
                 12.5, mass * 0.01, mass * 0.02, mass * 0.025, part % 12, part);
}

} // namespace

void WriteProductFile(const std::string& path, int rows, int parts)
{
    const File file(std::fopen(path.c_str(), "w"), &std::fclose);
    std::fputs("parent,instance,part,version,name,type,x [mm],y [mm],z [mm],rz "
               "[deg],mass_type,mass [kg],lower_pct [%],"
               "upper_pct [%],cgx [mm],cgy [mm],cgz [mm],ixx [kg.m2],iyy [kg.m2],izz "
               "[kg.m2],material,code,source\n",
               file.get());
    std::fputs(",,BIG,A,Large product,product,,,,,,,,,,,,,,,,,\n", file.get());
    char section[16];
    char assembly[16];
    for (int index = 0; index < kSections; ++index) {
        std::snprintf(section, sizeof section, "S%03d", index);
        WriteAssembly(file.get(), "BIG", section, 100.0 * index);
    }
    const int assemblies = std::clamp(rows - kSections, 0, kAssemblies);
    for (int index = 0; index < assemblies; ++index) {
        std::snprintf(section, sizeof section, "S%03d", index % kSections);
        std::snprintf(assembly, sizeof assembly, "A%04d", index);
        WriteAssembly(file.get(), section, assembly, 10.0 * index);
    }
    const int leaves = rows - kSections - assemblies;
    for (int use = 0; use < leaves; ++use) {
        std::snprintf(assembly, sizeof assembly, "A%04d", use % kAssemblies);
        WriteLeaf(file.get(), assembly, use, use % parts, use < parts);
    }
}
