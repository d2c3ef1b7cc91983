#include "WBRecordTables.h"

#include "WBPanelRecord.h"

#include <array>
#include <charconv>
#include <optional>
#include <string_view>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using Cell = CATWBRecordCell;
using Row = std::vector<Cell>;

Cell Text(const CATUnicodeString& text)
{
    return text.IsEmpty() ? Cell{} : Cell{Cell::Kind::Text, text};
}

Cell Flag(bool flag)
{
    return {Cell::Kind::Flag, flag ? "true" : "false"};
}

Cell Number(double value)
{
    std::array<char, 32> digits{};
    // Added to 0, so that nothing is written as "-0".
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), 0.0 + value,
                                   std::chars_format::general, 15);
    return {Cell::Kind::Number,
            std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()))};
}

const char* WordOf(Definitions::ValueStatus status)
{
    switch (status) {
    case Definitions::Empty:
        return "empty";
    case Definitions::Assigned:
        return "assigned";
    case Definitions::PartiallyAssigned:
        return "partially assigned";
    }
    return "";
}

Cell Number(const std::optional<double>& value)
{
    return value ? Number(*value) : Cell{};
}

CATUnicodeString JoinedPath(const std::vector<CATUnicodeString>& path)
{
    CATUnicodeString joined;
    for (const CATUnicodeString& name : path) {
        joined += joined.IsEmpty() ? name : "/" + name;
    }
    return joined;
}

CATWBRecordTable PartTable(const WBPanelRecord& record)
{
    return {"part",
            false,
            {"root", "instance", "part", "version", "path", "is_leaf", "standard_part",
             "up_to_date", "has_pdm_instance", "active_mass_type", "last_imposed_mass_type"},
            {{Text(record.root), Text(record.instance), Text(record.part), Text(record.version),
              Text(JoinedPath(record.path)), Flag(record.isLeaf), Flag(record.isStandardPart),
              Flag(record.isUpToDate), Flag(record.hasInstanceInPDM), Text(record.activeMassType),
              Text(record.lastImposedMassType)}}};
}

void AppendCentre(Row& row, const std::optional<CATMathPoint>& centre)
{
    for (const auto coordinate : {&CATMathPoint::GetX, &CATMathPoint::GetY, &CATMathPoint::GetZ}) {
        row.push_back(centre ? Number(((*centre).*coordinate)()) : Cell{});
    }
}

/// The moments, then the products with the sign of + integral of x y dm.
void AppendInertia(Row& row, const std::optional<CATMath3x3Matrix>& inertia)
{
    struct Term
    {
        int row;
        int column;
        double sign;
    };
    constexpr std::array kTerms{Term{1, 1, 1},  Term{2, 2, 1},  Term{3, 3, 1},
                                Term{1, 2, -1}, Term{1, 3, -1}, Term{2, 3, -1}};
    for (const Term& term : kTerms) {
        row.push_back(inertia ? Number(term.sign * inertia->GetCoef(term.row, term.column))
                              : Cell{});
    }
}

CATWBRecordTable MassTypesTable(const WBPanelRecord& record)
{
    CATWBRecordTable table{"mass_types",
                           true,
                           {"name", "status", "mass", "lower_deviation", "upper_deviation", "cgx",
                            "cgy", "cgz", "ixx", "iyy", "izz", "ixy", "ixz", "iyz", "precision",
                            "lower_precision", "upper_precision", "default_lower_precision",
                            "default_upper_precision"},
                           {}};
    for (const WBPanelMassType& type : record.massTypes) {
        Row row{Text(type.name), Text(WordOf(type.status)), Number(type.mass),
                Number(type.lowerDeviation), Number(type.upperDeviation)};
        AppendCentre(row, type.centre);
        AppendInertia(row, type.inertia);
        row.push_back(type.hasPrecision ? Text(type.isPrecisionAbsolute ? "absolute" : "percentage")
                                        : Cell{});
        row.push_back(type.hasPrecision ? Number(type.lowerPrecision) : Cell{});
        row.push_back(type.hasPrecision ? Number(type.upperPrecision) : Cell{});
        row.push_back(Number(type.defaultLowerPrecision));
        row.push_back(Number(type.defaultUpperPrecision));
        table.rows.push_back(std::move(row));
    }
    return table;
}

CATWBRecordTable MaterialTable(const WBPanelRecord& record)
{
    return {"material",
            false,
            {"material", "applied_on", "density_status", "density", "density_first",
             "part_material", "part_density_status", "part_density"},
            {{Text(record.density.material), Text(record.appliedOn),
              Text(WordOf(record.density.status)), Number(record.density.density),
              Text(record.isMaterialDensityFirst ? "material" : "wb"),
              Text(record.partDensity.material), Text(WordOf(record.partDensity.status)),
              Number(record.partDensity.density)}}};
}

CATWBRecordTable StatisticsTable(const WBPanelRecord& record)
{
    CATWBRecordTable table{"material_statistics", true, {"material", "dimension", "mass"}, {}};
    for (const WBPanelStatistic& statistic : record.statistics) {
        table.rows.push_back(
            {Text(statistic.material), Number(statistic.dimension), Number(statistic.mass)});
    }
    return table;
}

CATWBRecordTable DocumentTable(const WBPanelRecord& record)
{
    return {"document",
            false,
            {"active", "version", "attached", "computed_on", "old_revisions_usable",
             "used_specific_revision_before"},
            {{Text(record.activeDocument), Text(record.activeDocumentVersion),
              Text(record.attachedRevision),
              Text(record.isAttachedRevisionUsed ? "attached" : "latest"),
              Flag(record.areOldRevisionsUsable), Flag(record.hasUsedSpecificRevision)}}};
}

CATWBRecordTable RevisionsTable(const WBPanelRecord& record)
{
    CATWBRecordTable table{
        "revisions",
        true,
        {"version", "checkin_date", "checkin_user", "checkout_user", "active_mass_type", "mass"},
        {}};
    for (const WBPanelRevision& revision : record.revisions) {
        table.rows.push_back({Text(revision.version), Text(revision.checkInDate),
                              Text(revision.checkInUser), Text(revision.checkOutUser),
                              Text(revision.activeMassType), Number(revision.mass)});
    }
    return table;
}

CATWBRecordTable PropertiesTable(const WBPanelRecord& record)
{
    CATWBRecordTable table{
        "properties", true, {"name", "type", "is_date", "owner", "value", "magnitude"}, {}};
    for (const WBPanelProperty& property : record.properties) {
        table.rows.push_back({Text(property.name), Number(property.type), Flag(property.isDate),
                              Text(property.owner), Text(property.value),
                              Text(property.magnitude)});
    }
    return table;
}

CATWBRecordTable PositionTable(const WBPanelRecord& record)
{
    CATWBRecordTable table{"position",
                           false,
                           {"xx", "xy", "xz", "yx", "yy", "yz", "zx", "zy", "zz", "x", "y", "z"},
                           {{}}};
    std::array<double, 12> coefficients{};
    if (record.placement) {
        record.placement->GetCoefficients(coefficients);
    }
    for (const double coefficient : coefficients) {
        table.rows.front().push_back(record.placement ? Number(coefficient) : Cell{});
    }
    return table;
}

} // namespace

std::vector<CATWBRecordTable> WBDescribeRecord(const WBPanelRecord& record)
{
    return {PartTable(record),       MassTypesTable(record), MaterialTable(record),
            StatisticsTable(record), DocumentTable(record),  RevisionsTable(record),
            PropertiesTable(record), PositionTable(record)};
}
