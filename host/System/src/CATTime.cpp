#include "CATTime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <string>
#include <utility>

namespace
{

std::function<long long()>& Clock()
{
    static std::function<long long()> clock;
    return clock;
}

long long SecondsNow()
{
    return Clock() ? Clock()() : static_cast<long long>(std::time(nullptr));
}

bool IsKnown(int year, int month, int day, int hour, int minute, int second)
{
    // Years have four digits when they are written, so there are no others. The calendar's own
    // types keep a byte of month and day, hence the limits before they are asked.
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
        return false;
    }
    const std::chrono::year_month_day date(std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    return date.ok() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
           second < 60;
}

std::string Padded(int value, std::size_t width)
{
    const std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

} // namespace

CATTime::CATTime(int year, int month, int day, int hour, int minute, int second)
    : m_year(year),
      m_month(month),
      m_day(day),
      m_hour(hour),
      m_minute(minute),
      m_second(second),
      m_valid(IsKnown(year, month, day, hour, minute, second))
{}

CATTime CATTime::Now()
{
    const std::time_t seconds = static_cast<std::time_t>(SecondsNow());
    std::tm local{};
    // The reentrant call need not look at the zone by itself.
    tzset();
    localtime_r(&seconds, &local);
    // A leap second, where the system counts them, is shown as the second before it.
    const int second = local.tm_sec < 60 ? local.tm_sec : 59;
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     second};
}

void CATTime::SetClock(std::function<long long()> clock)
{
    Clock() = std::move(clock);
}

CATUnicodeString CATTime::ToText(const CATUnicodeString& format) const
{
    if (!m_valid) {
        return {};
    }
    struct Code
    {
        char letter;
        int value;
        std::size_t width;
    };
    const std::array<Code, 6> codes{{{'Y', m_year, 4},
                                     {'m', m_month, 2},
                                     {'d', m_day, 2},
                                     {'H', m_hour, 2},
                                     {'M', m_minute, 2},
                                     {'S', m_second, 2}}};
    const std::string_view pattern = format.View();
    std::string text;
    for (std::size_t index = 0; index < pattern.size(); ++index) {
        const char next = index + 1 < pattern.size() ? pattern[index + 1] : '\0';
        const auto* code = std::find_if(codes.begin(), codes.end(),
                                        [&](const Code& each) { return each.letter == next; });
        if (pattern[index] != '%' || (code == codes.end() && next != '%')) {
            text += pattern[index];
            continue;
        }
        text += next == '%' ? std::string(1, '%') : Padded(code->value, code->width);
        ++index;
    }
    return text;
}
