#include "WBFigures.h"
#include "WBPanelTexts.h"
#include "WBPanelUnits.h"

#include <array>
#include <cmath>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;

constexpr const char* kMass = "MASS";

struct Tooltip
{
    const char* key;
    const char* text;
};
constexpr Tooltip kCentreTooltip{"MassTypes.Centre.Tooltip",
                                 "@Centre of gravity in the part's axes, of the whole product in "
                                 "the product's; empty: not known, or exactly at the origin "
                                 "without an inertia"};
constexpr Tooltip kMomentTooltip{"MassTypes.Moment.Tooltip",
                                 "@Moment of inertia about an axis through the centre of gravity"};
constexpr Tooltip kProductTooltip{"MassTypes.Product.Tooltip",
                                  "@Product of inertia, the sum of mass times both distances; the "
                                  "matrix holds it with the opposite sign"};
/// In the order of the figures.
constexpr std::array<Tooltip, kWBFigures.size()> kTooltips{
    {{"MassTypes.Mass.Tooltip", "@Mass as this mass type states it"},
     {"MassTypes.Lower.Tooltip", "@Lower deviation: so much smaller the mass may be"},
     {"MassTypes.Upper.Tooltip", "@Upper deviation: so much larger the mass may be"},
     kCentreTooltip,
     kCentreTooltip,
     kCentreTooltip,
     kMomentTooltip,
     kMomentTooltip,
     kMomentTooltip,
     kProductTooltip,
     kProductTooltip,
     kProductTooltip}};

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
    for (std::size_t index = 0; index < kWBFigures.size(); ++index) {
        const WBFigure& figure = kWBFigures[index];
        table.columns.push_back(
            {WBTitleWithUnit(WBPanelText(figure.titleKey, figure.title), figure.magnitude),
             WBPanelText(kTooltips[index].key, kTooltips[index].text), true});
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
        const WBTwelveFigures figures = WBFiguresOf(massType);
        for (std::size_t index = 0; index < kWBFigures.size(); ++index) {
            const std::optional<double>& value = figures[index];
            row.Append(value ? WBNumberInUnit(kWBFigures[index].magnitude, *value)
                             : CATUnicodeString());
        }
        row.Append(WBPrecisionText(massType));
        table.rows.push_back(std::move(row));
    }
    return table;
}
