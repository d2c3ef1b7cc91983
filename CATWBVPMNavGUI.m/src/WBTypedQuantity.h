#pragma once

#include "CATUnicodeString.h"

#include <optional>

/// A value as users type it, in storage units: a number or two with an operator between them (see
/// WBReadTypedNumber), in the magnitude's current unit or with one of its units behind it ("12 lb",
/// "12lb", "2*3 inch"). Nothing for any other text. A magnitude that the dictionary lacks takes the
/// number alone, as it is stored.
std::optional<double> WBReadTypedQuantity(const CATUnicodeString& text,
                                          const CATUnicodeString& magnitude);

/// A percentage, with or without its sign.
std::optional<double> WBReadTypedPercentage(const CATUnicodeString& text);

/// Whether a text reads as the number that a field shows: with either decimal separator and any
/// blanks, with the unit or without it.
bool WBReadsAsShown(const CATUnicodeString& text, const CATUnicodeString& shown);
