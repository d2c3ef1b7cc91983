#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wb
{
/// Reads a whole text as a finite number, whatever the locale: "." or "," as decimal mark, a sign
/// "+" or "-", an exponent. Blanks around it, hexadecimal, "inf" and "nan" are no numbers.
std::optional<double> ReadNumber(std::string_view text);

/// Reads a whole text as an integer with an optional sign.
std::optional<long long> ReadInteger(std::string_view text);

/// Writes a number as "%.15g" does under a point locale; a negative zero is written "0".
std::string WriteNumber(double value);

/// The shortest text that reads back as exactly this number; a negative zero is written "0".
std::string WriteShortest(double value);

/// True when both are written alike by WriteNumber: the same mass in kg and in lb is one fact,
/// though the conversion leaves a rounding in the last digit.
bool AreAlike(double left, double right);

/// Appends what WriteNumber writes; what is unknown (not a number) or beyond all numbers is written
/// "0", as the streams want it: their readers know no other word.
void AppendNumber(std::string& text, double value);
} // namespace wb
