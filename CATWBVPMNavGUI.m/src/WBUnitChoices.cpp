#include "WBUnitChoices.h"

#include "CATWBVPMNavUnitsConversion.h"
#include "WBPanelUnits.h"

#include "CATMsgCatalog.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace
{

constexpr const char* kDash = "–";

/// What the panel knows about a magnitude that the dictionary does not say.
struct MagnitudeRow
{
    std::string_view name;
    int unitsType;
    double example; ///< in storage units: a value as one meets it, plain in the usual units
};

// In the order in which they are shown.
constexpr std::array kMagnitudes{
    MagnitudeRow{"MASS", 2, 12.5},
    MagnitudeRow{"LENGTH", 3, 1270.0},        // 50 in
    MagnitudeRow{"INERTIAMOMENT", 4, 2.5},    //
    MagnitudeRow{"VOLUME", 5, 0.0045},        // 4.5 L
    MagnitudeRow{"DENSITY", 1, 2780.0},       // aluminium alloy
    MagnitudeRow{"SURFACICMASS", 1, 1.6},     // sheet
    MagnitudeRow{"AREA", 0, 0.75},            //
    MagnitudeRow{"ANGLE", 0, 0.785398163397}, // 45 degrees
    MagnitudeRow{"TIME", 0, 5400.0},          // an hour and a half
    MagnitudeRow{"FREQUENCY", 0, 45.0},       // 2700 turns a minute
    MagnitudeRow{"VELOCITY", 0, 60.0},        //
    MagnitudeRow{"ACCELERATION", 0, 1.5},     //
    MagnitudeRow{"FORCE", 0, 1200.0},         //
    MagnitudeRow{"TORQUE", 0, 250.0},         //
    MagnitudeRow{"PRESSURE", 0, 101325.0},    // standard atmosphere
    MagnitudeRow{"ENERGY", 0, 5400000.0},     // 1.5 kW.h
    MagnitudeRow{"POWER", 0, 73500.0},        //
    MagnitudeRow{"TEMPERATURE", 0, 288.15},   // 15 degrees Celsius
    MagnitudeRow{"ELECTRIC_CURRENT", 0, 2.5}, //
    MagnitudeRow{"VOLTAGE", 0, 28.0},         //
    MagnitudeRow{"ELECTRIC_CHARGE", 0, 9000}, // 2.5 A.h
    MagnitudeRow{"RATIO", 0, 12.5},
};

const MagnitudeRow* FindRow(const CATUnicodeString& magnitude)
{
    const auto* const row = std::ranges::find(kMagnitudes, magnitude.View(), &MagnitudeRow::name);
    return row == kMagnitudes.end() ? nullptr : row;
}

using Unit = WBUnitPreset::Unit;

constexpr std::array kSi{
    Unit{"MASS", "kg"},   Unit{"LENGTH", "m"},      Unit{"INERTIAMOMENT", "kg.m2"},
    Unit{"VOLUME", "m3"}, Unit{"DENSITY", "kg/m3"}, Unit{"SURFACICMASS", "kg/m2"}};
// Densities stay in kg/m3: nobody writes 2.78e-06 kg/mm3 for aluminium.
constexpr std::array kMillimetre{
    Unit{"MASS", "kg"},    Unit{"LENGTH", "mm"},     Unit{"INERTIAMOMENT", "kg.mm2"},
    Unit{"VOLUME", "mm3"}, Unit{"DENSITY", "kg/m3"}, Unit{"SURFACICMASS", "kg/m2"}};
// Coatings and sheets are stated in pounds a square foot, also where all else is in inches or
// slugs.
constexpr std::array kInchPound{
    Unit{"MASS", "lb"},    Unit{"LENGTH", "in"},      Unit{"INERTIAMOMENT", "lb.in2"},
    Unit{"VOLUME", "in3"}, Unit{"DENSITY", "lb/in3"}, Unit{"SURFACICMASS", "lb/ft2"}};
constexpr std::array kFootSlug{
    Unit{"MASS", "slug"},  Unit{"LENGTH", "ft"},        Unit{"INERTIAMOMENT", "slug.ft2"},
    Unit{"VOLUME", "ft3"}, Unit{"DENSITY", "slug/ft3"}, Unit{"SURFACICMASS", "lb/ft2"}};

constexpr std::array kPresets{
    WBUnitPreset{"Preset.SI", "@SI", kSi, false},
    WBUnitPreset{"Preset.Millimetre", "@mm-kg", kMillimetre, false},
    WBUnitPreset{"Preset.InchPound", "@Inch-pound", kInchPound, false},
    WBUnitPreset{"Preset.FootSlug", "@Foot-slug", kFootSlug, false},
    WBUnitPreset{"Preset.Shipped", "@As shipped", {}, true},
};

/// The symbol that the preset gives the magnitude; nothing where it leaves it out.
std::optional<CATUnicodeString> SymbolIn(const WBUnitPreset& preset,
                                         const CATICkeMagnitude& magnitude)
{
    const CATUnicodeString name = magnitude.Name();
    for (const Unit& unit : preset.units) {
        if (name == unit.magnitude && !magnitude.FindUnit(unit.symbol).IsNull()) {
            return unit.symbol;
        }
    }
    const CATICkeUnit_var unit = magnitude.DefaultUnit();
    return preset.defaultElsewhere && !unit.IsNull() ? std::optional(unit->Symbol()) : std::nullopt;
}

CATUnicodeString SymbolOrDash(const CATICkeUnit_var& unit)
{
    return unit.IsNull() ? CATUnicodeString(kDash) : unit->Symbol();
}

WBPanelRow RowOf(const CATICkeMagnitude& magnitude, const WBUnitChoices& choices)
{
    const CATUnicodeString name = magnitude.Name();
    const auto choice = choices.find(name.View());
    const MagnitudeRow* known = FindRow(name);
    const double example = known == nullptr ? 1.0 : known->example;
    return {WBMagnitudeTitle(name), SymbolOrDash(magnitude.CurrentUnit()),
            choice == choices.end() ? CATUnicodeString() : choice->second,
            WBValueWithUnit(magnitude.StorageUnit(), example),
            WBValueWithUnit(WBChosenUnit(choices, magnitude), example)};
}

} // namespace

CATUnicodeString WBUnitsText(const char* key, const CATUnicodeString& defaultText,
                             const CATListValCATUnicodeString& parameters)
{
    return CATMsgCatalog::BuildMessage(CATWBVPMNavUnitsConversion::kName, key, defaultText,
                                       parameters);
}

int WBUnitsType(const CATUnicodeString& magnitude)
{
    const MagnitudeRow* row = FindRow(magnitude);
    return row == nullptr ? 0 : row->unitsType;
}

WBMagnitudes WBMagnitudesInOrder(const CATICkeParmDictionary& dictionary)
{
    WBMagnitudes magnitudes;
    for (const MagnitudeRow& row : kMagnitudes) {
        const CATICkeMagnitude_var magnitude = dictionary.FindMagnitude(row.name);
        if (!magnitude.IsNull()) {
            magnitudes.push_back(magnitude);
        }
    }
    const CATListValCATUnicodeString names = dictionary.MagnitudeNames();
    for (const CATUnicodeString& name : names.Items()) {
        if (FindRow(name) == nullptr) {
            magnitudes.push_back(dictionary.FindMagnitude(name));
        }
    }
    return magnitudes;
}

CATUnicodeString WBMagnitudeTitle(const CATUnicodeString& magnitude)
{
    return WBUnitsText(("Magnitude." + magnitude.ToStdString()).c_str(), "@" + magnitude);
}

void WBChooseUnit(WBUnitChoices& choices, const CATICkeMagnitude& magnitude,
                  const CATUnicodeString& symbol)
{
    const CATICkeUnit_var unit = magnitude.FindUnit(symbol);
    if (unit.IsNull()) {
        return;
    }
    const std::string name = magnitude.Name().ToStdString();
    if (unit->Symbol() == magnitude.CurrentUnit()->Symbol()) {
        choices.erase(name);
    } else {
        choices[name] = unit->Symbol();
    }
}

CATICkeUnit_var WBChosenUnit(const WBUnitChoices& choices, const CATICkeMagnitude& magnitude)
{
    const CATUnicodeString name = magnitude.Name();
    const auto choice = choices.find(name.View());
    return choice == choices.end() ? magnitude.CurrentUnit() : magnitude.FindUnit(choice->second);
}

WBPanelTable WBUnitTable(const WBMagnitudes& magnitudes, const WBUnitChoices& choices)
{
    WBPanelTable table;
    table.columns = {
        {WBUnitsText("Quantity.Title", "@Quantity"), {}, false},
        {WBUnitsText("Unit.Title", "@Unit"),
         WBUnitsText("Unit.Tooltip", "@In which values of the quantity are shown now"), false},
        {WBUnitsText("NewUnit.Title", "@New unit"),
         WBUnitsText("NewUnit.Tooltip", "@Chosen and not applied yet"), false},
        {WBUnitsText("Stored.Title", "@Example, stored"),
         WBUnitsText("Stored.Tooltip", "@One value in the unit in which it is stored"), true},
        {WBUnitsText("Shown.Title", "@Example, shown"),
         WBUnitsText("Shown.Tooltip", "@The same value in the new unit where one is chosen, else "
                                      "in the present one"),
         true}};
    for (const CATICkeMagnitude_var& magnitude : magnitudes) {
        table.rows.push_back(RowOf(*magnitude, choices));
    }
    return table;
}

std::span<const WBUnitPreset> WBUnitPresets()
{
    return kPresets;
}

void WBChoosePreset(WBUnitChoices& choices, const WBMagnitudes& magnitudes,
                    const WBUnitPreset& preset)
{
    for (const CATICkeMagnitude_var& magnitude : magnitudes) {
        if (const std::optional<CATUnicodeString> symbol = SymbolIn(preset, *magnitude)) {
            WBChooseUnit(choices, *magnitude, *symbol);
        }
    }
}

int WBPresetOf(const WBUnitChoices& choices, const WBMagnitudes& magnitudes)
{
    // A preset that would change nothing is the one that is shown.
    const auto agrees = [&](const WBUnitPreset& preset) {
        WBUnitChoices with = choices;
        WBChoosePreset(with, magnitudes, preset);
        return with == choices;
    };
    const auto* const preset =
        magnitudes.empty() ? kPresets.end() : std::ranges::find_if(kPresets, agrees);
    return preset == kPresets.end() ? -1 : static_cast<int>(preset - kPresets.begin());
}
