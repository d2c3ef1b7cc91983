#pragma once

#include "CATWBReportConversion.h"
#include "Subcommands.h"

#include <optional>
#include <string>

/// The conversion that the options of `wb convert-report` ask for; or nothing, with a sentence that
/// names the option, what was expected and what was found. Numbers on a command line have "." for
/// the decimal mark, wherever the user lives: the comma stands between them.
std::optional<CATWBReportConversion> ReadReportConversion(const ConvertReportOptions& options,
                                                          std::string& problem);

/// What a user should know about axes that are no rotation; empty when they are one.
std::string AxesWarning(const CATMath3x3Matrix& axes);
