#pragma once

#include "CATCkeGlobalFunctions.h"
#include "WBPanelTexts.h"

#include <map>
#include <span>
#include <string>
#include <vector>

/// What the units panel knows beside its controls: which magnitudes there are, which units the user
/// has chosen and not applied yet, and what both look like.

/// The panel's message `key`, `defaultText` where no catalog has it; "/p1", ... are replaced.
CATUnicodeString WBUnitsText(const char* key, const CATUnicodeString& defaultText,
                             const CATListValCATUnicodeString& parameters = {});

/// The units type that is told when a unit of the magnitude changes: 1 DENSITY and SURFACICMASS, 2
/// MASS, 3 LENGTH, 4 INERTIAMOMENT, 5 VOLUME, 0 any other.
int WBUnitsType(const CATUnicodeString& magnitude);

/// The dictionary's magnitudes, those of mass properties first and the others in its own order.
using WBMagnitudes = std::vector<CATICkeMagnitude_var>;
WBMagnitudes WBMagnitudesInOrder(const CATICkeParmDictionary& dictionary);
/// A magnitude in the user's words; its own name where the catalog has none (a user's magnitude).
CATUnicodeString WBMagnitudeTitle(const CATUnicodeString& magnitude);

/// Units that are chosen and not applied yet: symbols by magnitude.
using WBUnitChoices = std::map<std::string, CATUnicodeString, std::less<>>;
/// Chooses a unit; the current one is no choice but takes an earlier one back. A unit that the
/// magnitude lacks changes nothing.
void WBChooseUnit(WBUnitChoices& choices, const CATICkeMagnitude& magnitude,
                  const CATUnicodeString& symbol);
/// The unit that is chosen, else the current one; null for a magnitude without units.
CATICkeUnit_var WBChosenUnit(const WBUnitChoices& choices, const CATICkeMagnitude& magnitude);

/// A row a magnitude: its title, its current unit, the one that is chosen in its place, and one
/// value as it is stored and as the chosen unit shows it.
WBPanelTable WBUnitTable(const WBMagnitudes& magnitudes, const WBUnitChoices& choices);

/// Units that belong together.
struct WBUnitPreset
{
    struct Unit
    {
        const char* magnitude;
        const char* symbol;
    };
    const char* key; ///< of its title in the catalog
    const char* defaultTitle;
    std::span<const Unit> units;
    bool defaultElsewhere; ///< every magnitude that `units` leaves out takes its default unit
};
std::span<const WBUnitPreset> WBUnitPresets();
/// Chooses the preset's units. What the dictionary lacks is left out, what the preset leaves out
/// stays as it is chosen.
void WBChoosePreset(WBUnitChoices& choices, const WBMagnitudes& magnitudes,
                    const WBUnitPreset& preset);
/// The index of the preset that the chosen units agree with, -1 for none.
int WBPresetOf(const WBUnitChoices& choices, const WBMagnitudes& magnitudes);
