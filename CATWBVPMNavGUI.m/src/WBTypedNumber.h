#pragma once

#include "CATUnicodeString.h"

#include <optional>

/// A number as users type it: with either decimal separator, or two such numbers with ^, *, /, + or
/// - between them ("2500/2"), which gives six digits, and a minus before two factors ("-2500/2").
/// Nothing for any other text, and for numbers beyond a thousand millions, which are slips.
std::optional<double> WBReadTypedNumber(const CATUnicodeString& text);
