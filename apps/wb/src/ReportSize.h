#pragma once

#include <cstddef>
#include <string>

/// What a report holds of what a reader may miss.
struct ReportSize
{
    std::size_t roots = 0;
    std::size_t instances = 0;
    std::size_t sections = 0;
};

/// "1 root, 2 part instances, 0 sections".
std::string InWords(const ReportSize& size);

/// "1 value", "2 values".
std::string Counted(std::size_t count, const std::string& thing);
