#pragma once

#include "TableDraft.h"
#include "WBProduct.h"
#include "WBRules.h"

#include <string>
#include <unordered_map>

namespace wb
{
/// Writes the numbers of value sets into a row: as typed, the inertia in its typed form, as long as
/// that still leads to what is stored.
class SetWriter
{
public:
    SetWriter(TableDraft& draft, const Product& product);

    /// The numbers of a set of that part; of one use of it where use is not null.
    void Write(const ValueSet& set, const Part& part, const Use* use);

private:
    double MassOf(const ValueSet& set, const Part& part, const Use* use) const;
    DensityPair DensitiesOf(const std::string& material) const;
    void PutOrigin(const ValueSet& set);
    bool InertiaByRadii(const ValueSet& set, double mass);
    bool InertiaByTerms(const ValueSet& set, double mass);
    void InertiaAsStored(const ValueSet& set);

    TableDraft& m_draft;
    std::unordered_map<std::string, DensityPair> m_densities; // by material
};
} // namespace wb
