#include "ReportTime.h"

#include <array>
#include <ctime>

namespace wb
{
std::string ReportTime(std::chrono::system_clock::time_point moment)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    // Figures alone, so that no locale has a say.
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y/%m/%d %H:%M:%S", &parts);
    return {text.data(), length};
}

std::string WireTime(const std::string& stored)
{
    std::tm parts{};
    const char* end = strptime(stored.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    if (end == nullptr || *end != '\0') {
        return stored;
    }
    return ReportTime(std::chrono::system_clock::from_time_t(timegm(&parts)));
}
} // namespace wb
