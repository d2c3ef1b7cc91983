#pragma once

#include <optional>
#include <string_view>

/// How much of the storage unit one unit is, as a fraction. Both sides are whole numbers without a
/// common divisor wherever doubles hold them, so that converting rounds twice at most and one inch
/// is 25.4 mm to the last digit.
struct CATCkeFactor
{
    double numerator = 1.0;
    double denominator = 1.0;
    friend bool operator==(const CATCkeFactor&, const CATCkeFactor&) = default;
};

/// Reads "0.45359237 * 9.80665 / 0.3048": positive decimals joined by "*", with at most one "/"
/// before those that divide. The separator is always "."; there are no signs and no exponents. Null
/// when the text is anything else.
std::optional<CATCkeFactor> CATCkeReadFactor(std::string_view text);

/// Reads a decimal with an optional "-" before it ("273.15"), exactly as far as a double can.
std::optional<double> CATCkeReadDecimal(std::string_view text);
