#pragma once

#include "CATCollections.h"
#include "CATICkeUnit.h"

/// A kind of quantity: its storage unit, the units that it can be shown in, and the one that the
/// user has chosen.
class WB_EXPORT CATICkeMagnitude : public CATBaseUnknown
{
public:
    virtual CATUnicodeString Name() const = 0;
    /// The unit in which values are stored and sent; null when the magnitude has none.
    virtual CATICkeUnit_var StorageUnit() const = 0;
    /// The unit that the user has chosen; null when the magnitude has none.
    virtual CATICkeUnit_var CurrentUnit() const = 0;
    /// Chooses a unit by its symbol and keeps the choice in the user's settings. S_OK; S_FALSE when it
    /// was chosen already; E_INVALIDARG when the magnitude has no such unit.
    virtual long SetCurrentUnit(const CATUnicodeString& symbol) = 0;
    /// Null when the magnitude has no such unit. Symbols are exact; a name a user may type for it
    /// ("in", "inch") is not.
    virtual CATICkeUnit_var FindUnit(const CATUnicodeString& symbol) const = 0;
    /// In the order of the unit files.
    virtual CATListValCATUnicodeString UnitSymbols() const = 0;
};
using CATICkeMagnitude_var = CATHandle<CATICkeMagnitude>;
