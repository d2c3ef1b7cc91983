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

} // namespace

CATUnicodeString WBUnitSymbol(const CATUnicodeString& magnitude)
{
    const CATICkeUnit_var unit = CurrentUnit(magnitude);
    return unit.IsNull() ? CATUnicodeString() : unit->Symbol();
}

CATUnicodeString WBNumberInUnit(const CATUnicodeString& magnitude, double storageValue)
{
    const double value = storageValue == 0.0 ? 0.0 : storageValue; // never "-0"
    const CATICkeUnit_var unit = CurrentUnit(magnitude);
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
    const CATUnicodeString number = WBNumberInUnit(magnitude, storageValue);
    const CATUnicodeString symbol = WBUnitSymbol(magnitude);
    return symbol.IsEmpty() ? number : number + " " + symbol;
}

CATUnicodeString WBTitleWithUnit(const CATUnicodeString& title, const CATUnicodeString& magnitude)
{
    const CATUnicodeString symbol = WBUnitSymbol(magnitude);
    return symbol.IsEmpty() ? title : title + " [" + symbol + "]";
}
