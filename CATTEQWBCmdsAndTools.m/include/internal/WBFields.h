#pragma once

#include "CATCollections.h"

#include <optional>
#include <string_view>

/// Field number `n` (from 0) of a "|"-separated text, where every "|" ends a field; the first field
/// for a negative number, nothing when there are not that many.
std::optional<std::string_view> RawField(std::string_view text, int n);

/// The tokens of a text before its first empty one.
CATListValCATUnicodeString LeadingTokens(const CATUnicodeString& text,
                                         const CATUnicodeString& delimiter);
