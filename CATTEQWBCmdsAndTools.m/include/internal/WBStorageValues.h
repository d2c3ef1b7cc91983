#pragma once

#include "CATUnicodeString.h"

#include <optional>

/// The value converted by the magnitude's storage unit and then by its current one, lengths times
/// 1e6; nothing when the magnitude or one of the two units is missing.
std::optional<double> RestoredValue(const CATUnicodeString& magnitude, double value);
