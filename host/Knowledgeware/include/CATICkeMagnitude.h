#pragma once

#include "CATCollections.h"
#include "CATICkeUnit.h"

/// The settings repository of the user's current units: one setting a magnitude, its key the
/// magnitude's name, its value the unit's symbol.
inline constexpr const char* kCATCkeUnitSettings = "Units";

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
    /// Chooses a unit by its symbol or a name, as a user does: tells the listeners of
    /// CATCkeGlobalFunctions when it changed, and keeps the choice in the user's settings. S_OK;
    /// S_FALSE when it was chosen already; E_INVALIDARG when the magnitude has no such unit; E_FAIL
    /// when it is chosen for this session but could not be kept, since there is no place for
    /// settings or the file cannot be written.
    virtual long SetCurrentUnit(const CATUnicodeString& symbol) = 0;
    /// Null when the magnitude has no such unit. A symbol is exact ("mg" is not "Mg"); the other
    /// names that a user may type for a unit ("inch", "lbs") are taken in any letter case.
    virtual CATICkeUnit_var FindUnit(const CATUnicodeString& symbol) const = 0;
    /// In the order of the unit files.
    virtual CATListValCATUnicodeString UnitSymbols() const = 0;
    /// As SetCurrentUnit, but for this session alone: the user's settings stay as they are.
    virtual long UseUnit(const CATUnicodeString& symbol) = 0;
    /// The unit that is current as long as the user has chosen none: the one that the unit files
    /// name, else the storage unit.
    virtual CATICkeUnit_var DefaultUnit() const { return StorageUnit(); }
};
using CATICkeMagnitude_var = CATHandle<CATICkeMagnitude>;
