#pragma once

#include <span>
#include <string>

/// Appends a line of comma-separated values with its end. A text that would be taken apart stands
/// in double quotes.
void AppendCsvLine(std::string& csv, std::span<const std::string> cells);
