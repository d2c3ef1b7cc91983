#pragma once

#include "CATUnicodeString.h"

#include <optional>

/// A number as users type it: with either decimal separator, or two such numbers with ^, *, /, + or
/// - between them ("2500/2"), which gives six digits, and a minus before two factors ("-2500/2").
/// Nothing for any other text, and for numbers beyond `most`; a coordinate beyond a thousand
/// millions is a slip.
std::optional<double> WBReadTypedNumber(const CATUnicodeString& text, double most = 1e9);
