#pragma once

#include "WBExport.h"

#include <string_view>

/// The one place that knows how the session writes numbers. The session takes it from the user's
/// environment once, at its start.
/// Sets the process's number locale by name ("" takes the user's); false when there is no such one.
WB_EXPORT bool CATUseNumberLocale(const char* name);
/// The decimal separator of the running locale.
WB_EXPORT std::string_view CATDecimalSeparator();
/// "%d" and "%le" on bytes: 1 and the value, or 0 with the value untouched.
WB_EXPORT int CATReadInt(std::string_view text, int& value);
WB_EXPORT int CATReadReal(std::string_view text, double& value);
/// As in a session whose decimal separator is this one.
WB_EXPORT int CATReadReal(std::string_view text, std::string_view separator, double& value);
