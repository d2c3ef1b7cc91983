#include "WBTypedQuantity.h"

#include "WBTypedNumber.h"

#include "CATCkeGlobalFunctions.h"

#include <cmath>
#include <limits>

namespace
{

// Small units make large numbers (a moment of inertia in g.mm2), so that none is a slip by itself.
std::optional<double> Number(const CATUnicodeString& text)
{
    return WBReadTypedNumber(text, std::numeric_limits<double>::max());
}

std::optional<double> InStorage(const CATICkeUnit_var& unit, double value)
{
    const double stored = unit.IsNull() ? value : unit->ToStorage(value);
    return std::isfinite(stored) ? std::optional(stored) : std::nullopt;
}

/// Without blanks, and with "." for either separator.
CATUnicodeString Plain(CATUnicodeString text)
{
    text.ReplaceAll(" ", "");
    text.ReplaceAll(",", ".");
    return text;
}

} // namespace

std::optional<double> WBReadTypedQuantity(const CATUnicodeString& text,
                                          const CATUnicodeString& magnitude)
{
    const CATICkeMagnitude_var found =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitude);
    if (found.IsNull()) {
        return Number(text);
    }
    if (const std::optional<double> number = Number(text)) {
        return InStorage(found->CurrentUnit(), *number);
    }
    // The longest unit first: "kg.m2" ends in "m2", and units hold operators ("kg/m3").
    for (int position = 1; position < text.Length(); ++position) {
        const CATICkeUnit_var unit = found->FindUnit(text.Part(position).Stripped());
        const std::optional<double> number =
            unit.IsNull() ? std::nullopt : Number(text.Part(0, position));
        if (number) {
            return InStorage(unit, *number);
        }
    }
    return std::nullopt;
}

std::optional<double> WBReadTypedPercentage(const CATUnicodeString& text)
{
    CATUnicodeString number = text.Stripped();
    if (number.View().ends_with('%')) {
        number = number.Part(0, number.Length() - 1);
    }
    return Number(number);
}

bool WBReadsAsShown(const CATUnicodeString& text, const CATUnicodeString& shown)
{
    const CATUnicodeString typed = Plain(text);
    const int blank = shown.Find(" ");
    return typed == Plain(shown) || (blank > 0 && typed == Plain(shown.Part(0, blank)));
}
