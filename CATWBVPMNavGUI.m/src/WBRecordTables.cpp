#include "WBRecordTables.h"

#include "ENOWBAllDataBuffer.h"
#include "WBValueDetails.h"

#include <charconv>
#include <memory>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using Cell = CATWBRecordCell;
using Row = std::vector<Cell>;

Cell Text(const CATUnicodeString& text)
{
    const bool isNothing = text.IsEmpty() || text == CATUnicodeString("__null__");
    return isNothing ? Cell{} : Cell{Cell::Kind::Text, text};
}

Cell Flag(bool flag)
{
    return {Cell::Kind::Flag, flag ? "true" : "false"};
}

Cell Number(double value)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::general, 15);
    return {Cell::Kind::Number,
            std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()))};
}

Cell NumberIf(bool isKnown, double value)
{
    return isKnown ? Number(value) : Cell{};
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

/// A getter of the record that fills its output.
template <class Value, class... Arguments>
Value Get(const ENOWBAllDataBuffer& record, long (ENOWBAllDataBuffer::*getter)(Arguments...) const,
          const CATUnicodeString& massType)
{
    Value value{};
    (record.*getter)(massType, value);
    return value;
}

template <class Value>
Value Get(const ENOWBAllDataBuffer& record, long (ENOWBAllDataBuffer::*getter)(Value&) const)
{
    Value value{};
    (record.*getter)(value);
    return value;
}

CATWBRecordTable PartTable(const ENOWBAllDataBuffer& record)
{
    using Record = ENOWBAllDataBuffer;
    return {"part",
            false,
            {"root", "instance", "part", "version", "path", "is_leaf", "standard_part",
             "up_to_date", "has_pdm_instance", "active_mass_type", "last_imposed_mass_type"},
            {{Text(Get(record, &Record::GetCurrentPRCID)),
              Text(Get(record, &Record::GetCurrentInstanceID)),
              Text(Get(record, &Record::GetCurrentPartID)),
              Text(Get(record, &Record::GetCurrentPartVersion)), Text(record.GetInstancePath()),
              Flag(record.IsLeaf()), Flag(record.IsStandatadPart()),
              Flag(Get(record, &Record::GetUpToDateFlag)), Flag(record.HasInstInENOVIA()),
              Text(Get(record, &Record::GetActiveMassType)),
              Text(Get(record, &Record::GetLastImposedMassType))}}};
}

void AppendCentre(Row& row, const ENOWBAllDataBuffer& record, const CATUnicodeString& massType,
                  bool isKnown)
{
    CATMathPoint* received = nullptr;
    record.GetCenterOfGravity(massType, received);
    const std::unique_ptr<CATMathPoint> centre(received);
    const bool shown = isKnown && centre != nullptr;
    row.push_back(NumberIf(shown, shown ? centre->GetX() : 0.0));
    row.push_back(NumberIf(shown, shown ? centre->GetY() : 0.0));
    row.push_back(NumberIf(shown, shown ? centre->GetZ() : 0.0));
}

/// The moments and the products, the products with the sign of + integral of x y dm.
void AppendInertia(Row& row, const ENOWBAllDataBuffer& record, const CATUnicodeString& massType,
                   bool isKnown)
{
    CATMath3x3Matrix* received = nullptr;
    record.GetInertia(massType, received);
    const std::unique_ptr<CATMath3x3Matrix> inertia(received);
    const bool shown = isKnown && inertia != nullptr;
    struct Term
    {
        int row;
        int column;
        double sign;
    };
    constexpr std::array kTerms{Term{1, 1, 1},  Term{2, 2, 1},  Term{3, 3, 1},
                                Term{1, 2, -1}, Term{1, 3, -1}, Term{2, 3, -1}};
    for (const Term& term : kTerms) {
        row.push_back(
            NumberIf(shown, shown ? term.sign * inertia->GetCoef(term.row, term.column) : 0.0));
    }
}

Row MassTypeRow(const ENOWBAllDataBuffer& record, const CATUnicodeString& massType,
                const WBValueDetails& details)
{
    using Record = ENOWBAllDataBuffer;
    const auto status = Get<Definitions::ValueStatus>(record, &Record::GetMassTypeStatus, massType);
    const bool hasValues = status == Definitions::Assigned;
    const WBValueDetails::Known known = details.Of(massType);
    const bool hasMass = hasValues && known.mass;
    Row row{Text(massType), Text(WordOf(status)),
            NumberIf(hasMass, Get<double>(record, &Record::GetMass, massType)),
            NumberIf(hasMass, Get<double>(record, &Record::GetLowerDeviation, massType)),
            NumberIf(hasMass, Get<double>(record, &Record::GetUpperDeviation, massType))};
    AppendCentre(row, record, massType, hasValues && known.centre);
    AppendInertia(row, record, massType, hasValues && known.inertia);
    const bool isPrecise =
        Get<Definitions::PrecisionType>(record, &Record::GetPrecisionType, massType) ==
        Definitions::PrecisionDefined;
    const bool isAbsolute =
        Get<Definitions::PrecisionValueType>(record, &Record::GetPrecisionValueType, massType) ==
        Definitions::Absolute;
    row.push_back(isPrecise ? Text(isAbsolute ? "absolute" : "percentage") : Cell{});
    row.push_back(NumberIf(isPrecise, Get<double>(record, &Record::GetLowerPrecision, massType)));
    row.push_back(NumberIf(isPrecise, Get<double>(record, &Record::GetUpperPrecision, massType)));
    row.push_back(Number(Get<double>(record, &Record::GetDefaultLowerPrecision, massType)));
    row.push_back(Number(Get<double>(record, &Record::GetDefaultUpperPrecision, massType)));
    return row;
}

CATWBRecordTable MassTypesTable(const ENOWBAllDataBuffer& record, const WBValueDetails& details)
{
    CATWBRecordTable table{"mass_types",
                           true,
                           {"name", "status", "mass", "lower_deviation", "upper_deviation", "cgx",
                            "cgy", "cgz", "ixx", "iyy", "izz", "ixy", "ixz", "iyz", "precision",
                            "lower_precision", "upper_precision", "default_lower_precision",
                            "default_upper_precision"},
                           {}};
    CATListValCATUnicodeString massTypes;
    record.GetMassTypes(massTypes);
    for (const CATUnicodeString& massType : massTypes.Items()) {
        table.rows.push_back(MassTypeRow(record, massType, details));
    }
    return table;
}

CATWBRecordTable MaterialTable(const ENOWBAllDataBuffer& record)
{
    using Record = ENOWBAllDataBuffer;
    const auto status = Get(record, &Record::GetWBDensityStatus);
    const auto partStatus = record.GetPartRefWBDensityStatus();
    const auto priority = Get(record, &Record::GetDensityPriority);
    return {"material",
            false,
            {"material", "applied_on", "density_status", "density", "density_first",
             "part_material", "part_density_status", "part_density"},
            {{Text(Get(record, &Record::GetWBMaterialName)), Text(record.GetAppliedOnObject()),
              Text(WordOf(status)),
              NumberIf(status == Definitions::Assigned, Get(record, &Record::GetWBDensity)),
              Text(priority == Definitions::WBDensityFirst ? "wb" : "material"),
              Text(record.GetPartRefWBMaterialName()), Text(WordOf(partStatus)),
              NumberIf(partStatus == Definitions::Assigned, record.GetPartRefWBDensity())}}};
}

CATWBRecordTable StatisticsTable(const ENOWBAllDataBuffer& record)
{
    CATWBRecordTable table{"material_statistics", true, {"material", "dimension", "mass"}, {}};
    CATListValCATUnicodeString names;
    CATRawColldouble masses;
    CATRawCollint dimensions;
    record.GetWBMatStatInfo(names, masses, dimensions);
    for (int position = 1; position <= names.Size(); ++position) {
        table.rows.push_back(
            {Text(names[position]), Number(dimensions[position]), Number(masses[position])});
    }
    return table;
}

CATWBRecordTable DocumentTable(const ENOWBAllDataBuffer& record)
{
    const bool hasDocument = !(record.GetActiveDocId() == CATUnicodeString("0"));
    return {
        "document",
        false,
        {"active", "version", "attached", "old_revisions_usable", "used_specific_revision_before"},
        {{hasDocument ? Text(record.GetActiveDocId()) : Cell{}, Text(record.GetActiveDocVersion()),
          Text(record.GetCurrentlyAttachedVersion()), Flag(record.AreOldDocumentsUsed()),
          Flag(record.HasUsedSpecificRevBefore())}}};
}

CATWBRecordTable RevisionsTable(const ENOWBAllDataBuffer& record)
{
    using Record = ENOWBAllDataBuffer;
    CATWBRecordTable table{
        "revisions",
        true,
        {"version", "checkin_date", "checkin_user", "checkout_user", "active_mass_type", "mass"},
        {}};
    constexpr std::array kTexts{Record::Version, Record::LastCheckInDate, Record::LastCheckInUser,
                                Record::LastCheckOutUser, Record::ActiveMassType};
    for (int position = 1; position <= record.GetVersionCount(); ++position) {
        Row row;
        CATUnicodeString text;
        for (const Record::DocInfo what : kTexts) {
            record.GetDocRevsInfo(position, what, text);
            row.push_back(Text(text));
        }
        double mass = 0.0;
        record.GetDocRevsInfo(position, Record::Mass, text);
        row.push_back(NumberIf(text.ReadReal(mass) == 1, mass));
        table.rows.push_back(std::move(row));
    }
    return table;
}

CATWBRecordTable PropertiesTable(const ENOWBAllDataBuffer& record)
{
    CATWBRecordTable table{
        "properties", true, {"name", "type", "is_date", "owner", "value", "magnitude"}, {}};
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString owners;
    CATListValCATUnicodeString values;
    CATListValCATUnicodeString magnitudes;
    CATRawCollint types;
    CATRawCollint dates;
    record.GetExtraPropertiesInfo(names, types, dates, owners, values, magnitudes);
    for (int position = 1; position <= names.Size(); ++position) {
        table.rows.push_back({Text(names[position]), Number(types[position]),
                              Flag(dates[position] == 1), Text(owners[position]),
                              Text(values[position]), Text(magnitudes[position])});
    }
    return table;
}

CATWBRecordTable PositionTable(const ENOWBAllDataBuffer& record)
{
    CATWBRecordTable table{"position",
                           false,
                           {"xx", "xy", "xz", "yx", "yy", "yz", "zx", "zy", "zz", "x", "y", "z"},
                           {{}}};
    CATRawColldouble values;
    record.GetListOfTransMatrix(values);
    for (int position = 1; position <= table.columns.Size(); ++position) {
        table.rows.front().push_back(position <= values.Size() ? Number(values[position]) : Cell{});
    }
    return table;
}

} // namespace

std::vector<CATWBRecordTable> WBDescribeRecord(const ENOWBAllDataBuffer& record,
                                               const WBValueDetails& details)
{
    return {PartTable(record),       MassTypesTable(record, details),
            MaterialTable(record),   StatisticsTable(record),
            DocumentTable(record),   RevisionsTable(record),
            PropertiesTable(record), PositionTable(record)};
}
