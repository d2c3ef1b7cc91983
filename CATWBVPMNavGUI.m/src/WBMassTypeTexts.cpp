#include "WBPanelTexts.h"
#include "WBPanelUnits.h"

#include <array>
#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr const char* kMass = "MASS";
constexpr const char* kLength = "LENGTH";
constexpr const char* kInertia = "INERTIAMOMENT";

/// A column of the mass types' table. Titles and tooltips are messages "MassTypes.<key>.Title" and
/// "MassTypes.<key>.Tooltip".
struct ColumnRow
{
    const char* titleKey;
    const char* title;
    const char* tooltipKey;
    const char* tooltip;
    const char* magnitude; // null: words
    std::optional<double> (*value)(const WBPanelMassType& massType);
};

template <int row, int column>
std::optional<double> Inertia(const WBPanelMassType& massType)
{
    if (!massType.inertia) {
        return std::nullopt;
    }
    const double term = massType.inertia->GetCoef(row, column);
    return row == column ? term : -term; // the matrix holds the products negated
}

std::optional<double> Mass(const WBPanelMassType& massType)
{
    return massType.mass;
}

std::optional<double> Lower(const WBPanelMassType& massType)
{
    return massType.lowerDeviation;
}

std::optional<double> Upper(const WBPanelMassType& massType)
{
    return massType.upperDeviation;
}

template <double (CATMathPoint::*coordinate)() const>
std::optional<double> Centre(const WBPanelMassType& massType)
{
    if (!massType.centre) {
        return std::nullopt;
    }
    return ((*massType.centre).*coordinate)();
}

constexpr std::array kColumns{
    ColumnRow{"MassTypes.Mass.Title", "@Mass", "MassTypes.Mass.Tooltip",
              "@Mass as this mass type states it", kMass, Mass},
    ColumnRow{"MassTypes.Lower.Title", "@Lower dev.", "MassTypes.Lower.Tooltip",
              "@Lower deviation: so much smaller the mass may be", kMass, Lower},
    ColumnRow{"MassTypes.Upper.Title", "@Upper dev.", "MassTypes.Upper.Tooltip",
              "@Upper deviation: so much larger the mass may be", kMass, Upper},
    ColumnRow{"MassTypes.CentreX.Title", "@CoG x", "MassTypes.Centre.Tooltip",
              "@Centre of gravity in the part's axes; empty: not known, or exactly at the origin "
              "without an inertia",
              kLength, Centre<&CATMathPoint::GetX>},
    ColumnRow{"MassTypes.CentreY.Title", "@CoG y", "MassTypes.Centre.Tooltip",
              "@Centre of gravity in the part's axes; empty: not known, or exactly at the origin "
              "without an inertia",
              kLength, Centre<&CATMathPoint::GetY>},
    ColumnRow{"MassTypes.CentreZ.Title", "@CoG z", "MassTypes.Centre.Tooltip",
              "@Centre of gravity in the part's axes; empty: not known, or exactly at the origin "
              "without an inertia",
              kLength, Centre<&CATMathPoint::GetZ>},
    ColumnRow{"MassTypes.MomentX.Title", "@Ixx", "MassTypes.Moment.Tooltip",
              "@Moment of inertia about an axis through the centre of gravity", kInertia,
              Inertia<1, 1>},
    ColumnRow{"MassTypes.MomentY.Title", "@Iyy", "MassTypes.Moment.Tooltip",
              "@Moment of inertia about an axis through the centre of gravity", kInertia,
              Inertia<2, 2>},
    ColumnRow{"MassTypes.MomentZ.Title", "@Izz", "MassTypes.Moment.Tooltip",
              "@Moment of inertia about an axis through the centre of gravity", kInertia,
              Inertia<3, 3>},
    ColumnRow{"MassTypes.ProductXY.Title", "@Pxy", "MassTypes.Product.Tooltip",
              "@Product of inertia, the sum of mass times both distances; the matrix holds it with "
              "the opposite sign",
              kInertia, Inertia<1, 2>},
    ColumnRow{"MassTypes.ProductXZ.Title", "@Pxz", "MassTypes.Product.Tooltip",
              "@Product of inertia, the sum of mass times both distances; the matrix holds it with "
              "the opposite sign",
              kInertia, Inertia<1, 3>},
    ColumnRow{"MassTypes.ProductYZ.Title", "@Pyz", "MassTypes.Product.Tooltip",
              "@Product of inertia, the sum of mass times both distances; the matrix holds it with "
              "the opposite sign",
              kInertia, Inertia<2, 3>},
};

CATUnicodeString StatusText(Definitions::ValueStatus status)
{
    switch (status) {
    case Definitions::Assigned:
        return WBPanelText("Status.Assigned", "@assigned");
    case Definitions::PartiallyAssigned:
        return WBPanelText("Status.Partial", "@partly assigned");
    case Definitions::Empty:
        break;
    }
    return WBPanelText("Status.Empty", "@no value");
}

CATUnicodeString RoleText(const WBPanelRecord& record, const CATUnicodeString& massType)
{
    const bool isActive = massType == record.activeMassType;
    const bool isImposed = massType == record.lastImposedMassType;
    if (isActive && isImposed) {
        return WBPanelText("Role.ActiveAndImposed", "@active, last imposed");
    }
    if (isActive) {
        return WBPanelText("Role.Active", "@active");
    }
    return isImposed ? WBPanelText("Role.Imposed", "@last imposed") : CATUnicodeString();
}

// A precision is a size; its sign is said by the side that it stands on.
CATUnicodeString Percent(double precision)
{
    return CATUnicodeString::FromReal(std::fabs(precision)) + " %";
}

CATUnicodeString BothSides(const CATUnicodeString& lower, const CATUnicodeString& upper)
{
    return CATUnicodeString("-") + lower + " / +" + upper;
}

} // namespace

CATUnicodeString WBPrecisionText(const WBPanelMassType& massType)
{
    if (massType.hasPrecision && massType.isPrecisionAbsolute) {
        return BothSides(WBValueWithUnit(kMass, std::fabs(massType.lowerPrecision)),
                         WBValueWithUnit(kMass, std::fabs(massType.upperPrecision)));
    }
    if (massType.hasPrecision) {
        return BothSides(Percent(massType.lowerPrecision), Percent(massType.upperPrecision));
    }
    const bool hasDefault =
        massType.defaultLowerPrecision != 0.0 || massType.defaultUpperPrecision != 0.0;
    if (!massType.mass || !hasDefault) {
        return {};
    }
    return WBPanelText("Precision.Default", "@default /p1",
                       {BothSides(Percent(massType.defaultLowerPrecision),
                                  Percent(massType.defaultUpperPrecision))});
}

WBPanelTable WBMassTypeTable(const WBPanelRecord& record)
{
    WBPanelTable table;
    table.columns = {{WBPanelText("MassTypes.Name.Title", "@Mass type"), {}, false},
                     {WBPanelText("MassTypes.Role.Title", "@Role"),
                      WBPanelText("MassTypes.Role.Tooltip",
                                  "@Which mass type is active, and which was imposed last"),
                      false},
                     {WBPanelText("MassTypes.Status.Title", "@Status"), {}, false}};
    for (const ColumnRow& column : kColumns) {
        table.columns.push_back(
            {WBTitleWithUnit(WBPanelText(column.titleKey, column.title), column.magnitude),
             WBPanelText(column.tooltipKey, column.tooltip), true});
    }
    table.columns.push_back(
        {WBPanelText("MassTypes.Precision.Title", "@Precision"),
         WBPanelText(
             "MassTypes.Precision.Tooltip",
             "@How far the mass may lie below and above; the default of the mass type where "
             "none is stated"),
         false});

    for (const WBPanelMassType& massType : record.massTypes) {
        WBPanelRow row{massType.name, RoleText(record, massType.name), StatusText(massType.status)};
        for (const ColumnRow& column : kColumns) {
            const std::optional<double> value = column.value(massType);
            row.Append(value ? WBNumberInUnit(column.magnitude, *value) : CATUnicodeString());
        }
        row.Append(WBPrecisionText(massType));
        table.rows.push_back(std::move(row));
    }
    return table;
}

CATUnicodeString WBInertiaHeading(const WBPanelMassType* massType)
{
    if (massType == nullptr) {
        return WBPanelText("Inertia.NoType", "@Inertia: select a mass type");
    }
    return massType->inertia ? WBPanelText("Inertia.Heading", "@Inertia of /p1", {massType->name})
                             : WBPanelText("Inertia.Unknown", "@The inertia of /p1 is not known",
                                           {massType->name});
}

WBPanelTable WBInertiaTable(const WBPanelMassType* massType)
{
    constexpr std::array kAxes{"x", "y", "z"};
    constexpr std::array kTerms{"Ixx   -Pxy   -Pxz", "-Pxy   Iyy   -Pyz", "-Pxz   -Pyz   Izz"};
    WBPanelTable table;
    table.columns.push_back({WBPanelText("Inertia.Row.Title", "@Row"), {}, false});
    for (const char* axis : kAxes) {
        table.columns.push_back({WBTitleWithUnit(axis, kInertia), {}, true});
    }
    // The last column takes the room that is left, so it is one of words.
    table.columns.push_back({WBPanelText("Inertia.Terms.Title", "@Terms of the row"), {}, false});
    if (massType == nullptr || !massType->inertia) {
        return table;
    }
    for (int row = 1; row <= 3; ++row) {
        const auto index = static_cast<std::size_t>(row) - 1;
        WBPanelRow cells{kAxes[index]};
        for (int column = 1; column <= 3; ++column) {
            cells.Append(WBNumberInUnit(kInertia, massType->inertia->GetCoef(row, column)));
        }
        cells.Append(kTerms[index]);
        table.rows.push_back(std::move(cells));
    }
    return table;
}
