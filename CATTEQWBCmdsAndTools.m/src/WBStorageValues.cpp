#include "WBStorageValues.h"

#include "CATCkeGlobalFunctions.h"

std::optional<double> RestoredValue(const CATUnicodeString& magnitudeName, double value)
{
    const CATICkeMagnitude_var magnitude =
        CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(magnitudeName);
    if (magnitude.IsNull()) {
        return std::nullopt;
    }
    const CATICkeUnit_var storage = magnitude->StorageUnit();
    const CATICkeUnit_var current = magnitude->CurrentUnit();
    if (storage.IsNull() || current.IsNull()) {
        return std::nullopt;
    }
    const double restored = current->ToStorage(storage->ToStorage(value));
    // Lengths alone are scaled on top, whatever their unit; the panels count on it.
    constexpr double kLengthFactor = 1e6;
    return magnitudeName.Compare("LENGTH") != 0 ? restored * kLengthFactor : restored;
}
