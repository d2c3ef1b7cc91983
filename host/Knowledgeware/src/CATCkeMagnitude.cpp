#include "CATCkeMagnitude.h"

#include "CATCkeUnitListeners.h"
#include "CATSettingRepository.h"
#include "CATStatus.h"

#include <algorithm>

CATCkeMagnitude::CATCkeMagnitude(CATUnicodeString name, CATUnicodeString storageSymbol)
    : m_name(std::move(name)), m_storageSymbol(std::move(storageSymbol))
{}

const char* CATCkeMagnitude::ClassName() const
{
    return "CATCkeMagnitude";
}

CATUnicodeString CATCkeMagnitude::Name() const
{
    return m_name;
}

CATICkeUnit_var CATCkeMagnitude::StorageUnit() const
{
    return m_storage;
}

CATICkeUnit_var CATCkeMagnitude::CurrentUnit() const
{
    return m_current;
}

long CATCkeMagnitude::SetCurrentUnit(const CATUnicodeString& symbol)
{
    const long made = MakeCurrent(symbol);
    if (made != S_OK) {
        return made;
    }
    // Kept before anybody hears of it: a listener that chooses another unit has the last word in
    // the settings too.
    const long kept = KeepCurrent();
    CATCkeTellUnitListeners(this);
    return kept;
}

CATICkeUnit_var CATCkeMagnitude::FindUnit(const CATUnicodeString& symbol) const
{
    return Find(symbol);
}

CATListValCATUnicodeString CATCkeMagnitude::UnitSymbols() const
{
    CATListValCATUnicodeString symbols;
    for (const Unit_var& unit : m_units) {
        symbols.Append(unit->Symbol());
    }
    return symbols;
}

CATCkeMagnitude::Added CATCkeMagnitude::AddUnit(const CATCkeUnitDefinition& definition)
{
    const auto isTaken = [this](const CATUnicodeString& text) {
        return !Find(text).IsNull();
    };
    if (const Unit_var known = Find(definition.symbol);
        !known.IsNull() && known->Definition() == definition) {
        return Added::KnownAlike;
    }
    if (isTaken(definition.symbol) || std::ranges::any_of(definition.names, isTaken)) {
        return Added::SymbolOrNameTaken;
    }
    const auto unit = Unit_var::Adopt(new CATCkeUnit(definition)); // the handle takes the reference
    if (definition.symbol == m_storageSymbol) {
        if (!unit->IsStorage()) {
            return Added::NotTheStorageUnit;
        }
        m_storage = unit;
        m_default = unit;
        m_current = unit;
    }
    m_units.push_back(unit);
    m_bySymbol.emplace(definition.symbol.ToStdString(), unit);
    return Added::Yes;
}

long CATCkeMagnitude::UseUnit(const CATUnicodeString& symbol)
{
    const long made = MakeCurrent(symbol);
    if (made == S_OK) {
        CATCkeTellUnitListeners(this);
    }
    return made;
}

CATICkeUnit_var CATCkeMagnitude::DefaultUnit() const
{
    return m_default;
}

bool CATCkeMagnitude::MakeDefault(const CATUnicodeString& symbol)
{
    if (MakeCurrent(symbol) < S_OK) {
        return false;
    }
    m_default = m_current;
    return true;
}

long CATCkeMagnitude::MakeCurrent(const CATUnicodeString& symbol)
{
    const Unit_var unit = Find(symbol);
    if (unit.IsNull()) {
        return E_INVALIDARG;
    }
    if (unit.Get() == m_current.Get()) {
        return S_FALSE;
    }
    m_current = unit;
    return S_OK;
}

long CATCkeMagnitude::KeepCurrent() const
{
    CATSettingRepository* const settings = CATSettingRepository::GetRepository(kCATCkeUnitSettings);
    if (settings == nullptr) {
        return E_FAIL;
    }
    settings->WriteSetting(m_name, m_current->Symbol());
    // A later Rollback of the settings must not bring back a unit that is no longer shown.
    settings->Commit();
    return settings->SaveRepository() == S_OK ? S_OK : E_FAIL;
}

CATCkeMagnitude::Unit_var CATCkeMagnitude::Find(const CATUnicodeString& symbol) const
{
    if (const auto found = m_bySymbol.find(symbol.View()); found != m_bySymbol.end()) {
        return found->second;
    }
    // Names come from what a user typed, seldom and a few at a time; a walk serves them.
    const auto isNamed = [&symbol](const Unit_var& unit) {
        return std::ranges::any_of(
            unit->Definition().names,
            [&symbol](const CATUnicodeString& name) { return name.Compare(symbol) != 0; });
    };
    const auto named = std::ranges::find_if(m_units, isNamed);
    return named == m_units.end() ? Unit_var() : *named;
}
