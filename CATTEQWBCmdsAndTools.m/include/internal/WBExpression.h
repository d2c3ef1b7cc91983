#pragma once

#include "CATUnicodeString.h"

#include <optional>

/// The value of a text that holds one kind of operator, nothing for any other text. The operators
/// are ^ * / + and -; the text is cut at the first one, and a side that is no number counts as 0.
std::optional<double> ExpressionValue(const CATUnicodeString& text);
