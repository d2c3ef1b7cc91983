#pragma once

#include "CsvTable.h"
#include "DocumentReader.h"
#include "FactKeeper.h"
#include "MaterialReader.h"
#include "PropertyReader.h"
#include "StructureReader.h"
#include "TableColumns.h"
#include "TableErrors.h"
#include "TableRow.h"
#include "ValueReader.h"
#include "WBProductTable.h"

#include <vector>

namespace wb
{
/// Makes a product of a table: first which parts there are and who uses whom, then, row by row,
/// what is said of them. Everything wrong goes to the errors; the walk goes on, so that a user
/// learns of it all.
class ProductReader
{
public:
    ProductReader(const CsvTable& table, const TableOptions& options, const KnownProducts& known,
                  TableErrors& errors);

    /// Reads the whole table; call it once.
    void Read();

    // The same of a table whose rows come in pieces, all of them twice: first for the parts, then
    // for the uses, which take the place of those of the piece before, and the facts.
    void ReadPartsOfPiece() { m_structure.FindPartsOfPiece(); }
    void NumberParts() { m_structure.NumberPartsWithoutVersion(); }
    void ReadPiece();
    bool HasUnnamedUses() const { return m_structure.HasUnnamedUses(); }
    void FinishPieces();

    Product& TakeProduct() { return m_product; }
    TableSummary& TakeSummary() { return m_summary; }

private:
    void ReadFacts();
    void ReadPartFacts(Part& part);
    void ReadPartSwitches(Part& part);

    const CsvTable& m_table;
    TableColumns m_columns;
    TableRow m_row;
    FactKeeper m_keeper;
    std::vector<wb::MassType> m_massTypes;
    Product m_product;
    TableSummary m_summary;
    StructureReader m_structure;
    MaterialReader m_materials;
    ValueReader m_values;
    DocumentReader m_documents;
    PropertyReader m_properties;
};
} // namespace wb
