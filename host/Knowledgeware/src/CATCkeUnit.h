#pragma once

#include "CATCkeFactor.h"
#include "CATCkeNumberText.h"
#include "CATICkeUnit.h"

#include <vector>

/// What a unit file says of a unit.
struct CATCkeUnitDefinition
{
    CATUnicodeString symbol;
    std::vector<CATUnicodeString> names; ///< what users may type instead, whatever its letter case
    CATCkeFactor factor;
    double offset = 0.0; ///< how far the unit's zero lies above the storage unit's, in this unit
    int decimals = 0;
    CATCkeSmallValues small = CATCkeSmallValues::Plain;
    friend bool operator==(const CATCkeUnitDefinition&, const CATCkeUnitDefinition&) = default;
};

/// False for a symbol that could not be told from the number before it ("e3", ".m", "x"), that a
/// list of values or a server stream would cut, or that a column header could not hold.
bool CATCkeIsUsableSymbol(std::string_view symbol);

class CATCkeUnit final : public CATICkeUnit
{
public:
    explicit CATCkeUnit(CATCkeUnitDefinition definition);

    const char* ClassName() const override;
    CATUnicodeString Symbol() const override;
    double ToStorage(double value) const override;
    double FromStorage(double storageValue) const override;
    CATUnicodeString Show(double storageValue, int decimals) const override;

    const CATCkeUnitDefinition& Definition() const { return m_definition; }
    /// Whether a value in this unit is the same number in the storage unit.
    bool IsStorage() const;

private:
    CATCkeUnitDefinition m_definition;
};
