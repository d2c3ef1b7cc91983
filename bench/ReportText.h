#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// What a made report holds.
struct ReportOptions
{
    int instances = 1000;       ///< "PartInstance" elements
    int children = 8;           ///< the most that stand directly below the root or an instance
    int sections = 10;          ///< "WB_Section" elements
    int materials = 12;         ///< "MaterialStat" elements of the root
    int statisticsEvery = 1000; ///< every n-th instance has statistics of its own; 0: none has
    bool distributive = false;
    char separator = '.'; ///< the decimal separator, "." or ","
    std::uint64_t seed = 1;
};

/// The sentence that says which option is wrong; nothing when all are right.
std::optional<std::string> ReportProblem(const ReportOptions& options);

/// Takes the next piece of the text.
using ReportSink = std::function<void(std::string_view piece)>;

/// Writes a report document as the server sends one, in storage units and without a blank between
/// elements. The same options give the same text. Instances stand in one another
/// as the product's structure does, each with 25 attributes; statistics stand below the root and
/// below some instances. A distributive report has sections and instances directly below the root
/// and no statistics. Each element's values are those of a box of its own: instances are not summed
/// up in their parents.
void WriteReport(const ReportOptions& options, const ReportSink& sink);
std::string ReportText(const ReportOptions& options);
