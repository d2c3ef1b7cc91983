#include "PropertyReader.h"

#include "WBNumbers.h"
#include "WBTexts.h"

#include <algorithm>
#include <cmath>

namespace wb
{
void PropertyReader::Read(Part& part, Use* use)
{
    for (const std::uint32_t index : m_row.FilledProperties()) {
        const PropertyColumn& column = m_row.PropertyAt(index);
        if (!column.ofUse) {
            State(part.properties, column, m_row.PropertyCell(index));
        } else if (use != nullptr) {
            State(use->properties, column, m_row.PropertyCell(index));
        } else {
            m_row.Errors().Column(
                m_row.Line(), column.header,
                "a property of a use, expected parent and instance in the same row");
        }
    }
}

void PropertyReader::State(std::vector<Property>& properties, const PropertyColumn& column,
                           std::string_view text)
{
    auto property = ReadCell(column, text);
    if (!property) {
        return;
    }
    const auto known = std::ranges::find(properties, column.name, &Property::name);
    if (known == properties.end()) {
        properties.push_back(std::move(*property));
    } else if (known->value != property->value || known->type != property->type ||
               known->isDate != property->isDate || known->magnitude != property->magnitude) {
        m_keeper.Refuse({Fact::Name, m_row.Line(), column.header, text}, known->line, known->value);
    }
}

std::optional<Property> PropertyReader::ReadCell(const PropertyColumn& column,
                                                 std::string_view text)
{
    Property property{column.name, column.type, column.isDate, std::string(text),
                      {},          {},          m_row.Line()};
    const std::string lower = LowerCase(text);
    switch (column.type) {
    case Property::Type::Text:
        if (column.isDate && !IsDate(text)) {
            m_row.Errors().Found(m_row.Line(), column.header, text, "a date yyyy-mm-dd");
            return std::nullopt;
        }
        return property;
    case Property::Type::YesNo:
        property.value = lower;
        if (lower != "yes" && lower != "no") {
            m_row.Errors().Found(m_row.Line(), column.header, text, "yes or no");
            return std::nullopt;
        }
        return property;
    case Property::Type::Integer:
        property.typed = text;
        if (const auto value = ReadInteger(text)) {
            property.value = std::to_string(*value);
            return property;
        }
        m_row.Errors().Found(m_row.Line(), column.header, text, "a whole number");
        return std::nullopt;
    case Property::Type::Real:
    case Property::Type::Dimensioned:
        break;
    }
    const auto typed = m_row.TypedText(text, column.header);
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
        m_row.Errors().Found(m_row.Line(), column.header, text, "a smaller number");
        return std::nullopt;
    }
    property.value = WriteNumber(value);
    return property;
}
} // namespace wb
