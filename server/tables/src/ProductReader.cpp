#include "ProductReader.h"

namespace wb
{
ProductReader::ProductReader(const CsvTable& table, const TableOptions& options,
                             const KnownProducts& known, TableErrors& errors)
    : m_table(table),
      m_columns(TableColumns::Read(table, errors)),
      m_row(table, m_columns, errors),
      m_keeper(errors),
      m_massTypes(known.MassTypes()),
      m_structure(table, m_row, m_keeper, m_columns, known, m_product, m_summary),
      m_materials(m_row, m_keeper, m_product),
      m_values(m_row, m_keeper, m_columns, options, known, m_massTypes, m_materials, m_product,
               m_summary),
      m_documents(m_row, m_keeper, m_massTypes),
      m_properties(m_row, m_keeper)
{}

void ProductReader::Read()
{
    m_summary.rows = m_table.RowCount();
    m_structure.Read();
    ReadFacts();
    m_values.Finish();
    m_structure.RefuseImpossible();
}

void ProductReader::ReadPiece()
{
    m_summary.rows += m_table.RowCount();
    m_structure.FindUsesOfPiece();
    ReadFacts();
}

void ProductReader::FinishPieces()
{
    m_product.uses.clear();
    m_values.Finish();
}

void ProductReader::ReadFacts()
{
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        const RowSubject& subject = m_structure.SubjectOf(row);
        if (!subject.HasPart()) {
            continue;
        }
        m_row.Load(row);
        m_row.RefuseTwoUnits();
        if (m_row.OnlyPlacesAPart()) {
            continue;
        }
        Part& part = m_product.parts[subject.part];
        Use* use = subject.HasUse() ? &m_product.uses[subject.use] : nullptr;
        ReadPartFacts(part);
        m_materials.Read(part, use);
        m_values.Read(subject);
        m_documents.Read(part);
        m_properties.Read(part, use);
    }
}

void ProductReader::ReadPartFacts(Part& part)
{
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (m_row.Filled(column)) {
            m_keeper.Text(stored, m_row.Cell(column), part.lines, m_row.Statement(fact, column));
        }
    };
    text(part.name, Fact::Name, Column::Name);
    text(part.code, Fact::Code, Column::Code);
    if (const auto growth = m_row.StoredNotNegative(Column::GrowthPct)) {
        m_keeper.Number(part.growthPct, *growth, part.typed, part.lines,
                        m_row.Statement(Fact::GrowthPct, Column::GrowthPct));
    }
    ReadPartSwitches(part);
}

void ProductReader::ReadPartSwitches(Part& part)
{
    const auto choose = [&](auto& stored, Fact fact, Column column,
                            std::initializer_list<std::string_view> choices) {
        if (const auto choice = m_row.Choice(column, choices)) {
            using Kind = std::remove_reference_t<decltype(stored)>;
            m_keeper.Choose(stored, static_cast<Kind>(*choice + 1), part.lines,
                            m_row.Statement(fact, column));
        }
    };
    // The choices stand in the order of the enumerations, whose first value is "not stated".
    choose(part.type, Fact::Type, Column::Type, {"product", "assembly", "part", "adjustment"});
    choose(part.standard, Fact::Standard, Column::Standard, {"no", "yes"});
    choose(part.densityFirst, Fact::DensityFirst, Column::DensityFirst, {"wb", "material"});
    choose(part.errors, Fact::Errors, Column::Errors, {"together", "apart"});
}
} // namespace wb
