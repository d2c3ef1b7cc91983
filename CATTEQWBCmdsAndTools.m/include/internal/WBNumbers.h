#pragma once

#include "CATUnicodeString.h"

#include <string_view>

/// Reals in texts, whichever of "." and "," the writer took for the decimal separator.

/// Puts the running locale's decimal separator where the text has the other one. A text that has a
/// "." is left alone where the locale writes ".", commas included.
void SynchronizeSeparator(CATUnicodeString& text);

/// Reads a real as "%le" does after the separator has been matched to the locale's: 1 and the
/// value, or 0 and the value 0.
int ReadAnyReal(std::string_view text, double& value);
