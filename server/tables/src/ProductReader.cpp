#include "ProductReader.h"

#include "WBNumbers.h"
#include "WBTexts.h"

#include <algorithm>
#include <cmath>

namespace wb
{
ProductReader::ProductReader(const CsvTable& table, const TableOptions& options,
                             const KnownProducts& known, TableErrors& errors)
    : m_table(table),
      m_options(options),
      m_known(known),
      m_errors(errors),
      m_columns(TableColumns::Read(table, errors)),
      m_keeper(errors),
      m_massTypes(known.MassTypes()),
      m_knownVersions(known.PartVersions()),
      m_propertyCells(m_columns.Properties().size())
{}

void ProductReader::Read()
{
    m_summary.rows = m_table.RowCount();
    FindParts();
    ResolveVersions();
    FindUses();
    NameUses();
    for (std::size_t row = 0; row < m_table.RowCount(); ++row) {
        const RowSubject& subject = m_subjects[row];
        if (subject.part == kNone) {
            continue;
        }
        Load(row);
        RefuseTwoUnits();
        if (OnlyPlacesAPart()) {
            continue;
        }
        Part& part = m_product.parts[subject.part];
        Use* use = subject.use == kNone ? nullptr : &m_product.uses[subject.use];
        ReadPartFacts(part);
        ReadMaterial(subject, use);
        ReadValues(subject);
        ReadDocument(part);
        ReadProperties(part, use);
    }
    FinishInertias();
    RefuseNegativeMasses();
    RefuseImpossibleTypes();
    RefuseCycles();
}

void ProductReader::Load(std::size_t row)
{
    m_filled.reset();
    m_secondCell.reset();
    for (const std::uint32_t property : m_filledProperties) {
        m_propertyCells[property] = {};
    }
    m_filledProperties.clear();
    m_line = m_table.LineOf(row);
    for (const CsvTable::Cell& cell : m_table.CellsOf(row)) {
        if (cell.column >= m_table.Header().size()) {
            continue; // complained about when the table was cut
        }
        const TableColumns::Place& place = m_columns.At(cell.column);
        if (place.property >= 0) {
            const auto property = static_cast<std::uint32_t>(place.property);
            m_propertyCells[property] = m_table.TextOf(cell);
            m_filledProperties.push_back(property);
        } else if (place.column != Column::Count) {
            const auto column = static_cast<std::size_t>(place.column);
            if (m_filled[column]) {
                m_secondCell = cell.column;
            }
            m_filled.set(column);
            m_cells[column] = m_table.TextOf(cell);
            m_positions[column] = cell.column;
        }
    }
}

bool ProductReader::AnyFilled(Column first, Column last) const
{
    const auto before = static_cast<std::size_t>(first);
    const std::size_t behind = kColumns - 1 - static_cast<std::size_t>(last);
    return (m_filled >> before << (before + behind)).any();
}

bool ProductReader::OnlyPlacesAPart() const
{
    return m_filledProperties.empty() && !AnyFilled(Column::Name, Column::Standard) &&
           !AnyFilled(Column::MassType, Column::DocMass);
}

void ProductReader::Wrong(Column column, std::string_view expected)
{
    m_errors.Found(m_line, HeaderOf(column), Cell(column), expected);
}

void ProductReader::Complain(Column column, std::string_view text)
{
    m_errors.Column(m_line, HeaderOf(column), text);
}

std::optional<double> ProductReader::TypedText(std::string_view text, const std::string& header)
{
    const auto* const mark = std::ranges::find_if(
        text, [](char character) { return character == '.' || character == ','; });
    const bool marked = mark != text.end();
    if (marked && *mark == ',' && m_table.Separator() == ',') {
        m_errors.Found(m_line, header, text,
                       "a number with a decimal point, since \",\" separates the cells");
        return std::nullopt;
    }
    // 1.234 and 1,234 in one table: one of them would be read a thousand times too small.
    if (marked && m_decimalMark == 0) {
        m_decimalMark = *mark;
        m_decimalMarkLine = m_line;
    } else if (marked && m_decimalMark != *mark) {
        m_errors.Found(m_line, header, text,
                       std::string("a number with the decimal mark \"") + m_decimalMark +
                           "\" as in line " + std::to_string(m_decimalMarkLine));
        return std::nullopt;
    }
    const auto value = ReadNumber(text);
    if (!value) {
        m_errors.Found(m_line, header, text, "a number");
    }
    return value;
}

std::optional<double> ProductReader::Typed(Column column)
{
    return Filled(column) ? TypedText(Cell(column), HeaderOf(column)) : std::nullopt;
}

std::optional<double> ProductReader::Stored(Column column)
{
    const auto typed = Typed(column);
    if (!typed) {
        return std::nullopt;
    }
    const Unit* unit = m_columns.At(m_positions[static_cast<std::size_t>(column)]).unit;
    if (unit == nullptr) {
        return std::nullopt; // complained about when the header was read
    }
    const double value = ToStorage(*unit, *typed);
    if (!std::isfinite(value)) {
        Wrong(column, "a smaller number");
        return std::nullopt;
    }
    return value;
}

std::optional<double> ProductReader::StoredNotNegative(Column column)
{
    const auto value = Stored(column);
    if (value && *value < 0.0) {
        Wrong(column, "a number that is not negative");
        return std::nullopt;
    }
    return value;
}

std::optional<std::size_t> ProductReader::Choice(Column column,
                                                 std::initializer_list<std::string_view> choices)
{
    if (!Filled(column)) {
        return std::nullopt;
    }
    const auto found = std::ranges::find(choices, LowerCase(Cell(column)));
    if (found != choices.end()) {
        return static_cast<std::size_t>(found - choices.begin());
    }
    std::string expected = "one of ";
    for (const std::string_view choice : choices) {
        expected += (choice == *choices.begin() ? "" : ", ") + std::string(choice);
    }
    Wrong(column, expected);
    return std::nullopt;
}

std::optional<bool> ProductReader::YesNo(Column column)
{
    const auto choice = Choice(column, {"no", "yes"});
    return choice ? std::optional(*choice == 1) : std::nullopt;
}

std::string_view ProductReader::UnitOf(Column column) const
{
    const Unit* unit =
        Filled(column) ? m_columns.At(m_positions[static_cast<std::size_t>(column)]).unit : nullptr;
    return unit == nullptr ? std::string_view() : unit->symbol;
}

const std::string& ProductReader::HeaderOf(Column column) const
{
    return Filled(column) ? m_table.Header()[m_positions[static_cast<std::size_t>(column)]]
                          : m_columns.HeaderOf(column);
}

void ProductReader::RefuseTwoUnits()
{
    if (m_secondCell) {
        const Column column = m_columns.At(*m_secondCell).column;
        m_errors.Found(m_line, m_table.Header()[*m_secondCell], Cell(column),
                       "a cell of one unit in the row, since " +
                           Quoted(m_columns.HeaderOf(column)) + " is filled too");
    }
}

void ProductReader::ReadPartFacts(Part& part)
{
    const auto text = [&](std::string& stored, Fact fact, Column column) {
        if (Filled(column)) {
            m_keeper.Text(stored, Cell(column), part.lines,
                          {fact, m_line, HeaderOf(column), Cell(column)});
        }
    };
    text(part.name, Fact::Name, Column::Name);
    text(part.code, Fact::Code, Column::Code);
    if (const auto growth = StoredNotNegative(Column::GrowthPct)) {
        m_keeper.Number(part.growthPct, *growth, part.typed, part.lines,
                        {Fact::GrowthPct, m_line, HeaderOf(Column::GrowthPct),
                         Cell(Column::GrowthPct), UnitOf(Column::GrowthPct)});
    }
    ReadPartSwitches(part);
}

void ProductReader::ReadPartSwitches(Part& part)
{
    const auto choose = [&](auto& stored, Fact fact, Column column,
                            std::initializer_list<std::string_view> choices) {
        if (const auto choice = Choice(column, choices)) {
            using Kind = std::remove_reference_t<decltype(stored)>;
            m_keeper.Choose(stored, static_cast<Kind>(*choice + 1), part.lines,
                            {fact, m_line, HeaderOf(column), Cell(column)});
        }
    };
    // The choices stand in the order of the enumerations, whose first value is "not stated".
    choose(part.type, Fact::Type, Column::Type, {"product", "assembly", "part", "adjustment"});
    choose(part.standard, Fact::Standard, Column::Standard, {"no", "yes"});
    choose(part.densityFirst, Fact::DensityFirst, Column::DensityFirst, {"wb", "material"});
    choose(part.errors, Fact::Errors, Column::Errors, {"together", "apart"});
}

void ProductReader::ReadProperties(Part& part, Use* use)
{
    for (const std::uint32_t index : m_filledProperties) {
        const PropertyColumn& column = m_columns.Properties()[index];
        if (!column.ofUse) {
            StateProperty(part.properties, column, m_propertyCells[index]);
        } else if (use != nullptr) {
            StateProperty(use->properties, column, m_propertyCells[index]);
        } else {
            m_errors.Column(m_line, column.header,
                            "a property of a use, expected parent and instance in the same row");
        }
    }
}

void ProductReader::StateProperty(std::vector<Property>& properties, const PropertyColumn& column,
                                  std::string_view text)
{
    auto property = ReadProperty(column, text);
    if (!property) {
        return;
    }
    const auto known = std::ranges::find(properties, column.name, &Property::name);
    if (known == properties.end()) {
        properties.push_back(std::move(*property));
    } else if (known->value != property->value || known->type != property->type ||
               known->magnitude != property->magnitude) {
        m_keeper.Refuse({Fact::Name, m_line, column.header, text}, known->line, known->value);
    }
}

std::optional<Property> ProductReader::ReadProperty(const PropertyColumn& column,
                                                    std::string_view text)
{
    Property property{column.name, column.type, column.isDate, std::string(text), {}, {}, m_line};
    const std::string lower = LowerCase(text);
    switch (column.type) {
    case Property::Type::Text:
        if (column.isDate && !IsDate(text)) {
            m_errors.Found(m_line, column.header, text, "a date yyyy-mm-dd");
            return std::nullopt;
        }
        return property;
    case Property::Type::YesNo:
        property.value = lower;
        if (lower != "yes" && lower != "no") {
            m_errors.Found(m_line, column.header, text, "yes or no");
            return std::nullopt;
        }
        return property;
    case Property::Type::Integer:
        property.typed = text;
        if (const auto value = ReadInteger(text)) {
            property.value = std::to_string(*value);
            return property;
        }
        m_errors.Found(m_line, column.header, text, "a whole number");
        return std::nullopt;
    case Property::Type::Real:
    case Property::Type::Dimensioned:
        break;
    }
    const auto typed = TypedText(text, column.header);
    if (!typed || (column.type == Property::Type::Dimensioned && column.unit == nullptr)) {
        return std::nullopt;
    }
    property.typed = text;
    double value = *typed;
    if (column.unit != nullptr) {
        value = ToStorage(*column.unit, *typed);
        property.magnitude = column.magnitude->name;
        property.typed += std::string(" ") + column.unit->symbol;
    }
    if (!std::isfinite(value)) {
        m_errors.Found(m_line, column.header, text, "a smaller number");
        return std::nullopt;
    }
    property.value = WriteNumber(value);
    return property;
}
} // namespace wb
