#pragma once

#include "CATCkeUnit.h"
#include "CATICkeMagnitude.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

/// Finds by the bytes of a text without making a copy of them.
struct CATCkeTextHash
{
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const
    {
        return std::hash<std::string_view>()(text);
    }
};
template <class T>
using CATCkeTextMap = std::unordered_map<std::string, T, CATCkeTextHash, std::equal_to<>>;

class CATCkeMagnitude final : public CATICkeMagnitude
{
public:
    /// A magnitude without units; its storage unit is the one that AddUnit brings under that
    /// symbol.
    CATCkeMagnitude(CATUnicodeString name, CATUnicodeString storageSymbol);

    const char* ClassName() const override;
    CATUnicodeString Name() const override;
    CATICkeUnit_var StorageUnit() const override;
    CATICkeUnit_var CurrentUnit() const override;
    long SetCurrentUnit(const CATUnicodeString& symbol) override;
    CATICkeUnit_var FindUnit(const CATUnicodeString& symbol) const override;
    CATListValCATUnicodeString UnitSymbols() const override;
    long UseUnit(const CATUnicodeString& symbol) override;
    CATICkeUnit_var DefaultUnit() const override;

    enum class Added
    {
        Yes,
        KnownAlike,
        SymbolOrNameTaken,
        NotTheStorageUnit
    };
    /// Adds a unit unless its symbol or one of its names means another unit of this magnitude, or
    /// it has the storage unit's symbol and is not equal to it. One that is known alike changes
    /// nothing.
    Added AddUnit(const CATCkeUnitDefinition& definition);
    /// Makes a unit current and tells nobody, as files and settings do when they are read: S_OK,
    /// S_FALSE when it was current already, E_INVALIDARG when there is no such unit.
    long MakeCurrent(const CATUnicodeString& symbol);
    /// Makes a unit the default and the current one, as files do; false when there is no such unit.
    bool MakeDefault(const CATUnicodeString& symbol);
    const CATUnicodeString& StorageSymbol() const { return m_storageSymbol; }

private:
    using Unit_var = CATHandle<CATCkeUnit>;
    Unit_var Find(const CATUnicodeString& symbol) const;
    /// S_OK, or E_FAIL when the user's settings cannot keep the current unit.
    long KeepCurrent() const;

    CATUnicodeString m_name;
    CATUnicodeString m_storageSymbol;
    std::vector<Unit_var> m_units;
    CATCkeTextMap<Unit_var> m_bySymbol;
    CATICkeUnit_var m_storage;
    CATICkeUnit_var m_default;
    CATICkeUnit_var m_current;
};
