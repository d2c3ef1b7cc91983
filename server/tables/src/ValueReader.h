#pragma once

#include "FactKeeper.h"
#include "InertiaReader.h"
#include "RowSubject.h"
#include "SetColumns.h"
#include "TableRow.h"
#include "TotalReader.h"
#include "WBKnown.h"
#include "WBProduct.h"
#include "WBProductTable.h"

#include <optional>
#include <string>
#include <vector>

namespace wb
{
/// Reads the values of a row: one mass type's mass, precision, centre, inertia, sigmas and where
/// they come from, of the row's part or of its use.
class ValueReader
{
public:
    ValueReader(TableRow& row, FactKeeper& keeper, const TableColumns& columns,
                const TableOptions& options, const KnownProducts& known,
                const std::vector<wb::MassType>& massTypes, const MaterialReader& materials,
                Product& product, TableSummary& summary);

    void Read(const RowSubject& subject);
    /// What only all rows together tell: inertias, and whose mass may be negative.
    void Finish();

private:
    void ReadSet(const RowSubject& subject, bool ofUse);
    void ReadNote(const RowSubject& subject, bool ofUse);
    void ReadActive(const RowSubject& subject, bool ofUse, const std::string& massType);
    bool HasValues() const;
    bool HasOrigin() const;
    std::string RowMassType(bool isNeeded);
    ValueSet& SetOf(std::vector<ValueSet>& sets, const std::string& massType);
    void ReadMassAndPrecision(ValueSet& set);
    void ReadPrecision(ValueSet& set, SetColumn lower, SetColumn upper);
    void ReadCentre(ValueSet& set);
    void ReadOrigin(ValueSet& set);
    void StateNumber(ValueSet& set, const SetColumn& place, std::optional<double> value);
    void RefuseNegativeMass(const ValueSet& set, const Part& part);

    TableRow& m_row;
    FactKeeper& m_keeper;
    const TableColumns& m_columns;
    const TableOptions& m_options;
    const KnownProducts& m_known;
    const std::vector<wb::MassType>& m_massTypes;
    Product& m_product;
    TableSummary& m_summary;
    InertiaReader m_inertias;
    TotalReader m_totals;
};
} // namespace wb
