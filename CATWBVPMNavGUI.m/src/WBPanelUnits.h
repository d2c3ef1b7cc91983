#pragma once

#include "CATICkeUnit.h"

/// Storage values as the user reads them: in the current unit of their magnitude, with the
/// session's decimal separator. A magnitude that the dictionary lacks shows the value as it is
/// stored, without a symbol.

/// The symbol of the current unit, empty where there is none.
CATUnicodeString WBUnitSymbol(const CATUnicodeString& magnitude);
/// The number alone. A value so small that the unit's decimals would show 0 is given with three
/// significant digits: what is there never shows as 0.
CATUnicodeString WBNumberInUnit(const CATUnicodeString& magnitude, double storageValue);
/// Number, blank and symbol: "12.5 kg".
CATUnicodeString WBValueWithUnit(const CATUnicodeString& magnitude, double storageValue);
/// "Mass [kg]": a title of a column whose cells hold the number alone.
CATUnicodeString WBTitleWithUnit(const CATUnicodeString& title, const CATUnicodeString& magnitude);

/// The same in a unit that need not be the current one; no unit shows the value as it is stored.
CATUnicodeString WBNumberInUnit(const CATICkeUnit_var& unit, double storageValue);
CATUnicodeString WBValueWithUnit(const CATICkeUnit_var& unit, double storageValue);
