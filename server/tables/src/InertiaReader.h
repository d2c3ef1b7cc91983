#pragma once

#include "FactKeeper.h"
#include "MaterialReader.h"
#include "TableRow.h"
#include "WBKnown.h"
#include "WBProduct.h"
#include "WBProductTable.h"
#include "WBRules.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace wb
{
/// The part or the use that a value set belongs to.
struct SetOwner
{
    bool isUse = false;
    std::uint32_t index = 0; // in Product::parts or Product::uses
};

/// Reads the inertia of a row in each form that a table offers: terms with either sign, moments
/// alone, radii of gyration, about the centre or about the origin. What a form needs beyond its
/// numbers, a mass or a centre, may stand in another row, so the inertias are finished at the end.
class InertiaReader
{
public:
    InertiaReader(TableRow& row, FactKeeper& keeper, const TableColumns& columns,
                  const TableOptions& options, const KnownProducts& known,
                  const MaterialReader& materials, Product& product, TableSummary& summary);

    /// The row's inertia, for a set of that owner.
    void Read(ValueSet& set, SetOwner owner);
    /// Makes terms about the centre of all that was read.
    void Finish();

private:
    /// What a set needs beyond its numbers until all rows are read.
    struct Pending
    {
        SetOwner owner;
        std::string massType;
        bool atOrigin = false;
        std::array<double, 3> radii{kUnknown, kUnknown, kUnknown}; // mm
        std::uint32_t line = 0;
    };

    void ReadTerms(ValueSet& set, SetOwner owner);
    bool HasAllTerms();
    std::optional<double> ProductFactor(bool anyProduct);
    void StateProducts(ValueSet& set);
    void StatePoint(ValueSet& set, SetOwner owner, bool statedBefore);
    void RefusePoint(const FactLines& lines, Fact earlier, bool wasAtOrigin);
    void ReadRadii(ValueSet& set, SetOwner owner);
    Pending& PendingOf(SetOwner owner, const std::string& massType);

    void FillProducts(std::vector<ValueSet>& sets);
    void Finish(const Pending& pending);
    ValueSet Whole(const Pending& pending, const ValueSet& set) const;
    double MassOf(const Pending& pending, const ValueSet& whole) const;
    DensityPair DensitiesOf(const std::string& material) const;
    std::optional<Part> KnownPart(SetOwner owner) const;
    std::optional<Use> KnownUse(SetOwner owner) const;
    const Part& PartOf(SetOwner owner) const;
    void Complain(const Pending& pending, Column column, const std::string& text);

    TableRow& m_row;
    FactKeeper& m_keeper;
    const TableColumns& m_columns;
    const TableOptions& m_options;
    const KnownProducts& m_known;
    const MaterialReader& m_materials;
    Product& m_product;
    TableSummary& m_summary;
    std::map<std::tuple<bool, std::uint32_t, std::string>, Pending> m_pending;
};
} // namespace wb
