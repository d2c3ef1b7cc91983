#include "ReportSize.h"

std::string InWords(const ReportSize& size)
{
    return Counted(size.roots, "root") + ", " + Counted(size.instances, "part instance") + ", " +
           Counted(size.sections, "section");
}

std::string Counted(std::size_t count, const std::string& thing)
{
    return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}
