#pragma once

#include "ComputeArguments.h"
#include "Subcommands.h"
#include "WBProductGraph.h"

#include <optional>
#include <string>
#include <vector>

/// What the server is asked to report. The numbers of the kinds are those of requests.
struct ReportRequest
{
    enum class Kind
    {
        Report = 0,
        Distributive = 1,
        MaterialStatistics = 2
    };

    Kind kind = Kind::Report;
    bool statistics = false;              ///< those of every part instance too
    std::vector<wb::Filter::Line> picked; ///< places alone; none: all of the root
    std::vector<std::string> values;      ///< "*" alone: all
    std::vector<std::string> properties;  ///< "*" alone: all
    std::string root;                     ///< identifier
    ComputeArguments computation;         ///< of the root
};

/// What the options ask for, before anything is known of the product: no picks, and no filter that
/// paths make. Nothing, with a sentence, when an option holds what nobody can mean.
std::optional<ReportRequest> ReadReportRequest(const ReportCommandOptions& options,
                                               std::string& problem);

/// Empty, or a sentence that names a property that there is not among the known ones.
std::string PropertyProblem(const std::vector<std::string>& wanted,
                            const std::vector<std::string>& known);

/// As requests carry it: "0|No Filter", or a count, a name and so many lines.
std::string FilterText(const wb::Filter& filter);

/// The request of the method "WBMakeReport".
std::string RequestText(const ReportRequest& request);
