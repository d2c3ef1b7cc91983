#include "TableColumns.h"

#include "WBTexts.h"

#include <algorithm>

namespace wb
{
namespace
{
struct ColumnRow
{
    const char* name;
    const char* magnitude; // null: no unit
};

// In the order of the enumeration.
constexpr std::array<ColumnRow, kColumns> kRows{{
    {"parent", nullptr},
    {"parent_version", nullptr},
    {"instance", nullptr},
    {"part", nullptr},
    {"version", nullptr},
    {"name", nullptr},
    {"type", nullptr},
    {"standard", nullptr},
    {"quantity", nullptr},
    {"x", "LENGTH"},
    {"y", "LENGTH"},
    {"z", "LENGTH"},
    {"rx", "ANGLE"},
    {"ry", "ANGLE"},
    {"rz", "ANGLE"},
    {"r11", nullptr},
    {"r12", nullptr},
    {"r13", nullptr},
    {"r21", nullptr},
    {"r22", nullptr},
    {"r23", nullptr},
    {"r31", nullptr},
    {"r32", nullptr},
    {"r33", nullptr},
    {"mass_type", nullptr},
    {"values_on", nullptr},
    {"active", nullptr},
    {"mass", "MASS"},
    {"lower", "MASS"},
    {"upper", "MASS"},
    {"lower_pct", "RATIO"},
    {"upper_pct", "RATIO"},
    {"cgx", "LENGTH"},
    {"cgy", "LENGTH"},
    {"cgz", "LENGTH"},
    {"ixx", "INERTIAMOMENT"},
    {"iyy", "INERTIAMOMENT"},
    {"izz", "INERTIAMOMENT"},
    {"ixy", "INERTIAMOMENT"},
    {"ixz", "INERTIAMOMENT"},
    {"iyz", "INERTIAMOMENT"},
    {"poi_sign", nullptr},
    {"inertia_at", nullptr},
    {"kx", "LENGTH"},
    {"ky", "LENGTH"},
    {"kz", "LENGTH"},
    {"volume", "VOLUME"},
    {"area", "AREA"},
    {"material", nullptr},
    {"material_density", "DENSITY"},
    {"material_surface_density", "SURFACICMASS"},
    {"material_on", nullptr},
    {"density", "DENSITY"},
    {"surface_density", "SURFACICMASS"},
    {"density_first", nullptr},
    {"sigma_mass", "MASS"},
    {"sigma_cgx", "LENGTH"},
    {"sigma_cgy", "LENGTH"},
    {"sigma_cgz", "LENGTH"},
    {"sigma_ixx", "INERTIAMOMENT"},
    {"sigma_iyy", "INERTIAMOMENT"},
    {"sigma_izz", "INERTIAMOMENT"},
    {"sigma_ixy", "INERTIAMOMENT"},
    {"sigma_ixz", "INERTIAMOMENT"},
    {"sigma_iyz", "INERTIAMOMENT"},
    {"errors", nullptr},
    {"growth_pct", "RATIO"},
    {"code", nullptr},
    {"source", nullptr},
    {"source_date", nullptr},
    {"author", nullptr},
    {"note", nullptr},
    {"doc", nullptr},
    {"doc_version", nullptr},
    {"doc_use", nullptr},
    {"doc_checkin_date", nullptr},
    {"doc_checkin_user", nullptr},
    {"doc_checkout_user", nullptr},
    {"doc_mass_type", nullptr},
    {"doc_mass", "MASS"},
}};

std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// A header cut into what stands before the brackets and the unit inside them.
struct HeaderText
{
    std::string_view name;
    std::string_view unit;
    bool hasUnit = false;
};

HeaderText Split(std::string_view header)
{
    const std::string_view whole = Trimmed(header);
    const std::size_t open = whole.find('[');
    if (open == std::string_view::npos || !whole.ends_with(']')) {
        return {whole, {}, false};
    }
    return {Trimmed(whole.substr(0, open)),
            Trimmed(whole.substr(open + 1, whole.size() - open - 2)), true};
}

bool IsPropertyName(std::string_view name)
{
    const auto letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    };
    const auto inner = [&](char c) {
        return letter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.';
    };
    return !name.empty() && letter(name[0]) && std::ranges::all_of(name, inner);
}

/// The unit of a property's header; several magnitudes may share a symbol, then the header names
/// the one it means.
void ReadPropertyUnit(PropertyColumn& property, std::string_view qualifier, std::string_view unit,
                      TableErrors& errors, std::uint32_t line)
{
    property.type = Property::Type::Dimensioned;
    if (!qualifier.empty()) {
        property.magnitude = FindMagnitude(qualifier);
        if (property.magnitude == nullptr) {
            errors.Column(line, property.header,
                          "unknown magnitude " + Quoted(qualifier) +
                              ", expected a magnitude or "
                              "one of date, int, real, bool");
            return;
        }
        property.unit = FindUnit(*property.magnitude, unit);
        if (property.unit == nullptr) {
            errors.Column(line, property.header,
                          "unknown unit " + Quoted(unit) + ", expected one of " +
                              UnitList(*property.magnitude));
        }
        return;
    }
    const auto magnitudes = MagnitudesOfUnit(unit);
    if (magnitudes.empty()) {
        errors.Column(line, property.header,
                      "unknown unit " + Quoted(unit) + ", expected the symbol of a known unit");
        return;
    }
    if (magnitudes.size() > 1) {
        errors.Column(line, property.header,
                      "the unit " + Quoted(unit) + " is one of " + magnitudes[0]->name +
                          " and of " + magnitudes[1]->name +
                          ", expected the magnitude before it, as in p:" + property.name + ":" +
                          magnitudes[0]->name + " [" + std::string(unit) + "]");
        return;
    }
    property.magnitude = magnitudes[0];
    property.unit = FindUnit(*property.magnitude, unit);
}

/// The unit that a header states; null, with an error, where it states none that is known.
const Unit* ReadUnit(const Magnitude& magnitude, const HeaderText& text, TableErrors& errors,
                     std::uint32_t line, const std::string& header)
{
    // The name of a percentage column says its unit already.
    const bool percentage = FindUnit(magnitude, "%") != nullptr;
    const std::string_view symbol = percentage && !text.hasUnit ? "%" : text.unit;
    const Unit* unit = FindUnit(magnitude, symbol);
    if (unit == nullptr && symbol.empty()) {
        errors.Column(line, header,
                      "the unit is missing, expected one of " + UnitList(magnitude) + " as in " +
                          Quoted(LowerCase(text.name) + " [" + magnitude.units[0].symbol + "]"));
    } else if (unit == nullptr) {
        errors.Column(line, header,
                      "unknown unit " + Quoted(symbol) + ", expected one of " +
                          UnitList(magnitude));
    }
    return unit;
}
} // namespace

const char* ColumnName(Column column)
{
    return kRows[static_cast<std::size_t>(column)].name;
}

const Magnitude* ColumnMagnitude(Column column)
{
    const char* magnitude = kRows[static_cast<std::size_t>(column)].magnitude;
    return magnitude == nullptr ? nullptr : FindMagnitude(magnitude);
}

TableColumns::TableColumns()
{
    for (std::size_t i = 0; i < kColumns; ++i) {
        m_headers[i] = kRows[i].name;
    }
}

const std::string& TableColumns::HeaderOf(Column column) const
{
    return m_headers[static_cast<std::size_t>(column)];
}

TableColumns TableColumns::Read(const CsvTable& table, TableErrors& errors)
{
    TableColumns columns;
    const auto& header = table.Header();
    const std::uint32_t line = table.HeaderLine();
    columns.m_places.resize(header.size());
    for (std::size_t position = 0; position < header.size(); ++position) {
        const std::string lower = LowerCase(header[position]);
        if (lower.starts_with("p:") || lower.starts_with("i:")) {
            columns.ReadProperty(position, header[position], errors, line);
        } else {
            columns.ReadFixed(position, header[position], errors, line);
        }
    }
    if (!header.empty() && !columns.Has(Column::Part)) {
        errors.Line(line, "there is no column \"part\", expected one that names the parts");
    }
    return columns;
}

void TableColumns::ReadFixed(std::size_t position, const std::string& header, TableErrors& errors,
                             std::uint32_t line)
{
    const HeaderText text = Split(header);
    const std::string name = LowerCase(text.name);
    if (header.empty()) {
        // A separator at the end of the header makes one; many table programs write it.
        errors.Line(line, "the header of column " + std::to_string(position + 1) +
                              " is blank, expected the name of a column, or no separator there");
        return;
    }
    const auto found =
        std::ranges::find_if(kRows, [&](const ColumnRow& row) { return row.name == name; });
    if (found == kRows.end()) {
        std::vector<std::string> known;
        known.reserve(kRows.size());
        for (const ColumnRow& row : kRows) {
            known.emplace_back(row.name);
        }
        errors.Column(line, header,
                      "unknown column, the nearest known one is " +
                          Quoted(NearestName(name, known)));
        return;
    }
    const auto index = static_cast<std::size_t>(found - kRows.begin());
    const Unit* unit = nullptr;
    if (found->magnitude == nullptr) {
        if (text.hasUnit) {
            errors.Column(line, header, "the column has no unit, expected " + Quoted(found->name));
        }
    } else {
        unit = ReadUnit(*FindMagnitude(found->magnitude), text, errors, line, header);
    }
    const bool twice = std::ranges::any_of(m_places, [&](const Place& place) {
        return place.column == static_cast<Column>(index) && place.unit == unit;
    });
    if (twice) {
        errors.Column(line, header, "the column stands twice, expected it once");
        return;
    }
    if (!m_present[index]) {
        m_headers[index] = header;
    }
    m_present[index] = true;
    m_places[position] = {static_cast<Column>(index), -1, unit};
}

void TableColumns::ReadProperty(std::size_t position, const std::string& header,
                                TableErrors& errors, std::uint32_t line)
{
    const HeaderText text = Split(header);
    std::string_view name = text.name.substr(2);
    const std::size_t colon = name.find(':');
    const std::string_view suffix =
        colon == std::string_view::npos ? std::string_view() : Trimmed(name.substr(colon + 1));
    name = Trimmed(name.substr(0, colon));

    PropertyColumn property;
    property.ofUse = text.name[0] == 'i' || text.name[0] == 'I';
    property.name = name;
    property.header = header;
    std::ranges::replace(property.name, ' ', '_');
    if (!IsPropertyName(property.name)) {
        errors.Column(line, header,
                      "found the name " + Quoted(property.name) +
                          ", expected a letter, then letters, digits, \"_\" and "
                          "\".\"");
        return;
    }
    if (IsReportName(property.name)) {
        errors.Column(line, header,
                      Quoted(property.name) + " is a name of the report, expected another name");
        return;
    }
    const std::string kind = LowerCase(suffix);
    if (text.hasUnit) {
        ReadPropertyUnit(property, suffix, text.unit, errors, line);
    } else if (kind == "date") {
        property.isDate = true;
    } else if (kind == "int") {
        property.type = Property::Type::Integer;
    } else if (kind == "real") {
        property.type = Property::Type::Real;
    } else if (kind == "bool") {
        property.type = Property::Type::YesNo;
    } else if (colon != std::string_view::npos) {
        errors.Column(line, header,
                      "found the suffix " + Quoted(suffix) +
                          ", expected one of date, int, real, bool, or a magnitude "
                          "and a unit");
        return;
    }
    const bool twice = std::ranges::any_of(m_properties, [&](const PropertyColumn& other) {
        return other.ofUse == property.ofUse && other.name == property.name &&
               other.type == property.type && other.isDate == property.isDate &&
               other.magnitude == property.magnitude && other.unit == property.unit;
    });
    if (twice) {
        errors.Column(line, header, "the property stands twice, expected it once");
        return;
    }
    m_places[position].property = static_cast<std::int32_t>(m_properties.size());
    m_properties.push_back(std::move(property));
}
} // namespace wb
