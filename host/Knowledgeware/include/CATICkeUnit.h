#pragma once

#include "CATBaseUnknown.h"
#include "CATHandle.h"
#include "CATUnicodeString.h"

/// A unit of a magnitude; it never changes. A storage value is a value in the magnitude's storage
/// unit.
class WB_EXPORT CATICkeUnit : public CATBaseUnknown
{
public:
    /// As users know it: "mm", "kg.m2".
    virtual CATUnicodeString Symbol() const = 0;
    /// The storage value of a value in this unit: one multiplication and one division by exact
    /// integers or terminating decimals, plus an offset where the unit has one.
    virtual double ToStorage(double value) const = 0;
    /// The value in this unit of a storage value.
    virtual double FromStorage(double storageValue) const = 0;
    /// A storage value as text in this unit, the symbol directly behind the number ("12.5kg"), with
    /// the session's decimal separator. `decimals` 0: at most the unit's own number of decimals,
    /// trailing zeros dropped (and, for a unit with `small = "exponent"`, in exponent form with at
    /// most six decimals where a non-zero value would else read back more than 0.5 % off).
    /// `decimals` n > 0: exactly n, as far as doubles have digits (1074). A negative number counts
    /// as 0. What rounds to zero has no sign.
    virtual CATUnicodeString Show(double storageValue, int decimals) const = 0;
};
using CATICkeUnit_var = CATHandle<CATICkeUnit>;
