#pragma once

#include "CATUnicodeString.h"

/// How a unit shows non-zero values that its decimals are too coarse for.
enum class CATCkeSmallValues
{
    Plain,
    Exponent
};

/// Decimals that a unit may have. With more, a value shown in the unit's own way would not end
/// where the probe 1.111111111111 ends, by which callers count a unit's decimals.
constexpr int kCATCkeMostDecimals = 12;

/// Numbers as texts with the session's decimal separator and what is to stand behind them. They are
/// rounded as exact arithmetic rounds, a half to the even digit; what rounds to zero has no sign.

/// Exactly so many decimals, as far as doubles have digits (1074).
CATUnicodeString CATCkeShowExactly(double value, int decimals, std::string_view symbol);

/// At most so many decimals (kCATCkeMostDecimals or fewer), trailing zeros dropped. Where small
/// values turn to the exponent form, one does that would read back more than 0.5 % off; it then has
/// at most six decimals.
CATUnicodeString CATCkeShowAtMost(double value, int decimals, CATCkeSmallValues small,
                                  std::string_view symbol);
