#include "WBPanelUnits.h"

#include "CATCkeGlobalFunctions.h"

#include <string_view>

namespace
{

CATICkeUnit_var CurrentUnit(const CATUnicodeString& magnitude)
{
    const CATICkeMagnitude_var found =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    return found.IsNull() ? CATICkeUnit_var() : found->CurrentUnit();
}

CATUnicodeString SymbolOf(const CATICkeUnit_var& unit)
{
    return unit.IsNull() ? CATUnicodeString() : unit->Symbol();
}

} // namespace

CATUnicodeString WBUnitSymbol(const CATUnicodeString& magnitude)
{
    return SymbolOf(CurrentUnit(magnitude));
}

CATUnicodeString WBNumberInUnit(const CATUnicodeString& magnitude, double storageValue)
{
    return WBNumberInUnit(CurrentUnit(magnitude), storageValue);
}

CATUnicodeString WBNumberInUnit(const CATICkeUnit_var& unit, double storageValue)
{
    const double value = storageValue == 0.0 ? 0.0 : storageValue; // never "-0"
    if (unit.IsNull()) {
        return CATUnicodeString::FromReal(value);
    }
    const CATUnicodeString shown = unit->Show(value, 0);
    std::string_view number = shown.View();
    const CATUnicodeString symbol = unit->Symbol();
    if (number.ends_with(symbol.View())) {
        number.remove_suffix(symbol.ByteLength());
    }
    // Where zero itself moves (degrees Celsius), what is left near 0 is the rounding of the offset.
    const bool keepsZero = unit->FromStorage(0.0) == 0.0;
    if (number == "0" && keepsZero && value != 0.0) {
        return CATUnicodeString::FromReal(unit->FromStorage(value), "%.3g");
    }
    return number;
}

CATUnicodeString WBValueWithUnit(const CATUnicodeString& magnitude, double storageValue)
{
    return WBValueWithUnit(CurrentUnit(magnitude), storageValue);
}

CATUnicodeString WBValueWithUnit(const CATICkeUnit_var& unit, double storageValue)
{
    const CATUnicodeString number = WBNumberInUnit(unit, storageValue);
    const CATUnicodeString symbol = SymbolOf(unit);
    return symbol.IsEmpty() ? number : number + " " + symbol;
}

CATUnicodeString WBTitleWithUnit(const CATUnicodeString& title, const CATUnicodeString& magnitude)
{
    const CATUnicodeString symbol = WBUnitSymbol(magnitude);
    return symbol.IsEmpty() ? title : title + " [" + symbol + "]";
}
