#include "TableDraft.h"

#include "WBNumbers.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <tuple>

namespace wb
{
namespace
{
std::string HeaderWith(const std::string& name, const Unit* unit)
{
    return unit == nullptr ? name : name + " [" + unit->symbol + "]";
}

/// The number of a property, as typed where that still reads back as what is stored.
NumberText NumberOf(const Property& property)
{
    const Magnitude* magnitude =
        property.type == Property::Type::Dimensioned ? FindMagnitude(property.magnitude) : nullptr;
    std::string_view typed = property.typed;
    const Unit* unit = nullptr;
    if (magnitude != nullptr) {
        const std::size_t blank = std::min(typed.rfind(' '), typed.size());
        unit = FindUnit(*magnitude, typed.substr(std::min(blank + 1, typed.size())));
        typed = typed.substr(0, blank);
    }
    const auto number = ReadNumber(typed);
    if (number && (magnitude == nullptr || unit != nullptr) &&
        WriteNumber(unit == nullptr ? *number : ToStorage(*unit, *number)) == property.value) {
        return {std::string(typed), unit};
    }
    return {property.value, magnitude == nullptr ? nullptr : magnitude->units.data()};
}

/// The header of a property's column tells its kind, so that it reads back as what it is.
std::string HeaderOf(bool ofUse, const Property& property, const Unit* unit)
{
    std::string header = (ofUse ? "i:" : "p:") + property.name;
    switch (property.type) {
    case Property::Type::Text:
        return header + (property.isDate ? ":date" : "");
    case Property::Type::Integer:
        return header + ":int";
    case Property::Type::Real:
        return header + ":real";
    case Property::Type::YesNo:
        return header + ":bool";
    case Property::Type::Dimensioned:
        break;
    }
    // A symbol of several magnitudes, as N.m, does not say which one is meant.
    const bool shared = unit != nullptr && MagnitudesOfUnit(unit->symbol).size() > 1;
    return HeaderWith(header + (shared ? ":" + property.magnitude : ""), unit);
}
} // namespace

std::uint32_t TableDraft::AddSlot(std::size_t column, std::size_t unit, std::string header)
{
    const auto slot = static_cast<std::uint32_t>(m_slots.size());
    m_slots.push_back({column, unit, slot, std::move(header)});
    return slot;
}

std::uint32_t TableDraft::SlotOf(Column column, const Unit* unit)
{
    auto& known = m_fixed[static_cast<std::size_t>(column)];
    const auto found =
        std::ranges::find(known, unit, &std::pair<const Unit*, std::uint32_t>::first);
    if (found != known.end()) {
        return found->second;
    }
    const Magnitude* magnitude = ColumnMagnitude(column);
    const std::size_t place =
        unit == nullptr ? 0 : static_cast<std::size_t>(unit - magnitude->units.data());
    const std::uint32_t slot =
        AddSlot(static_cast<std::size_t>(column), place, HeaderWith(ColumnName(column), unit));
    known.emplace_back(unit, slot);
    return slot;
}

void TableDraft::Put(std::uint32_t slot, std::string_view text, bool isNumber)
{
    m_cells.push_back({m_text.size(), static_cast<std::uint32_t>(text.size()), slot, isNumber});
    m_text += text;
    if (isNumber) {
        m_points += text.find('.') == std::string_view::npos ? 0U : 1U;
        m_commas += text.find(',') == std::string_view::npos ? 0U : 1U;
    }
}

void TableDraft::PutText(Column column, std::string_view text)
{
    if (!text.empty()) {
        Put(SlotOf(column, nullptr), text, false);
    }
}

void TableDraft::PutNumber(Column column, const NumberText& number)
{
    Put(SlotOf(column, number.unit), number.text, true);
}

bool TableDraft::PutProperty(bool ofUse, const Property& property)
{
    const bool isText =
        property.type == Property::Type::Text || property.type == Property::Type::YesNo;
    const NumberText number = isText ? NumberText{property.value, nullptr} : NumberOf(property);
    const std::string header = HeaderOf(ofUse, property, number.unit);
    const auto found = m_properties.find(header);
    const std::uint32_t slot = found != m_properties.end()
                                   ? found->second
                                   : AddSlot(kColumns + (ofUse ? 1U : 0U), 0, header);
    m_properties.emplace(header, slot);
    std::int64_t& last = m_lastProperty[ofUse ? 1 : 0];
    if (slot < last) {
        return false;
    }
    last = slot;
    Put(slot, number.text, !isText);
    return true;
}

void TableDraft::EndRow()
{
    m_rowEnds.push_back(m_cells.size());
    m_lastProperty.fill(-1);
}

std::string TableDraft::Write() const
{
    const char mark = m_commas > m_points ? ',' : '.';
    const char separator = mark == ',' ? ';' : ',';
    std::vector<std::uint32_t> order(m_slots.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::sort(order, {}, [this](std::uint32_t slot) {
        return std::tuple(m_slots[slot].column, m_slots[slot].unit, m_slots[slot].first);
    });
    std::string table;
    for (const std::uint32_t slot : order) {
        table += table.empty() ? "" : std::string(1, separator);
        AppendCell(table, m_slots[slot].header, separator);
    }
    table += '\n';
    std::vector<const Cell*> row(m_slots.size());
    std::size_t next = 0;
    for (const std::size_t end : m_rowEnds) {
        std::ranges::fill(row, nullptr);
        for (; next < end; ++next) {
            row[m_cells[next].slot] = &m_cells[next];
        }
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i > 0) {
                table += separator;
            }
            const Cell* cell = row[order[i]];
            if (cell == nullptr) {
                continue;
            }
            const std::string_view text =
                std::string_view(m_text).substr(cell->offset, cell->length);
            if (cell->isNumber) {
                std::ranges::replace_copy_if(
                    text, std::back_inserter(table),
                    [](char character) { return character == '.' || character == ','; }, mark);
            } else {
                AppendCell(table, text, separator);
            }
        }
        table += '\n';
    }
    return table;
}

void AppendCell(std::string& table, std::string_view text, char separator)
{
    const bool bare = text.find(separator) == std::string_view::npos &&
                      text.find('"') == std::string_view::npos && !text.starts_with(' ') &&
                      !text.ends_with(' ');
    if (bare) {
        table += text;
        return;
    }
    table += '"';
    for (const char character : text) {
        table.append(character == '"' ? 2 : 1, character);
    }
    table += '"';
}
} // namespace wb
