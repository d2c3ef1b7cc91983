#include "TotalReader.h"

#include "SetColumns.h"

#include <algorithm>

namespace wb
{
bool TotalReader::IsTotal() const
{
    return !m_row.Filled(Column::MassType) && m_options.massType.empty() &&
           !m_row.Filled(Column::ValuesOn) && !m_row.Filled(Column::Active) &&
           (m_row.Filled(Column::Mass) || m_row.AnyFilled(Column::CgX, Column::CgZ)) &&
           !m_row.AnyFilled(Column::Lower, Column::UpperPct) &&
           !m_row.AnyFilled(Column::Ixx, Column::Area) &&
           !m_row.AnyFilled(Column::SigmaMass, Column::SigmaIyz) &&
           !m_row.AnyFilled(Column::Source, Column::Author);
}

void TotalReader::Read(std::uint32_t part)
{
    Figure& figure = m_figures[part];
    figure.line = figure.line == 0 ? m_row.Line() : figure.line;
    const auto state = [&](const SetColumn& place) {
        if (const auto value = m_row.Stored(place.column)) {
            m_keeper.Number(figure.set[place.fact], *value, figure.set.typed, figure.set.lines,
                            m_row.Statement(place.fact, place.column));
        }
    };
    state({Column::Mass, Fact::Mass});
    const bool hasCentre = m_row.AnyFilled(Column::CgX, Column::CgZ);
    for (const SetColumn& place : kCentreColumns) {
        if (hasCentre && !m_row.Filled(place.column)) {
            m_row.Complain(place.column,
                           "the cell is blank, expected cgx, cgy and cgz or none of them");
        }
        state(place);
    }
}

std::vector<StatedTotal> TotalReader::Finish()
{
    std::vector<StatedTotal> totals;
    for (const auto& [index, figure] : m_figures) {
        const Part& part = m_product.parts[index];
        if (!IsAssembly(index)) {
            m_row.ComplainOfMassType(figure.line);
            continue;
        }
        totals.push_back({part.identifier,
                          part.version,
                          figure.line,
                          figure.set[Fact::Mass],
                          {figure.set[Fact::CgX], figure.set[Fact::CgY], figure.set[Fact::CgZ]}});
    }
    return totals;
}

bool TotalReader::IsAssembly(std::uint32_t part) const
{
    const auto isBelow = [part](const Use& use) {
        return use.parent == part;
    };
    return std::ranges::any_of(m_product.uses, isBelow) ||
           m_known.HasUses(m_product.parts[part].identifier, m_product.parts[part].version);
}
} // namespace wb
