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
} // namespace wb
