#pragma once

#include "CATICkeMagnitude.h"
#include "CATUnicodeString.h"

#include <optional>
#include <string>
#include <string_view>

/// Values in units, as texts for users.

/// What is done with values: brought from storage units to the user's current ones, or shown anew
/// where they already stand in the current ones.
enum class WBUnitsTask
{
    Convert,
    Display
};

/// The unit that values are shown in and the one they stand in.
struct WBUnitPair
{
    CATICkeUnit_var target;
    CATICkeUnit_var source;
    bool IsComplete() const { return !target.IsNull() && !source.IsNull(); }
};

/// The units of a magnitude for a task; incomplete when the magnitude lacks one that it takes.
WBUnitPair UnitsFor(const CATICkeMagnitude& magnitude, WBUnitsTask task);

/// How a value is written: with the unit's symbol or without, and with how many decimals. 0 is the
/// unit's own way, a negative number the unit's own number of decimals held fixed.
struct WBShowOptions
{
    bool withSymbol;
    int decimals;
};

/// The number of decimals that a unit shows of a number with many. One that shows none counts as
/// showing one, since the digit before the separator is then all there is to count.
int DefaultDecimals(const CATICkeUnit& unit);

/// A value as text. It stays where the unit wrote it: a symbol behind it that is not wanted is not
/// looked at, rather than taken out.
struct WBShownValue
{
    CATUnicodeString whole;
    std::size_t end; ///< where in its bytes the wanted text ends, or beyond them
    std::string_view View() const { return whole.View().substr(0, end); }
};

/// Writes many values of one unit in another. What is the same for all of them, the symbol and the
/// unit's own number of decimals, is asked at the first value.
class WBUnitDisplay
{
public:
    WBUnitDisplay(WBUnitPair units, WBShowOptions options);

    /// A missing unit raises the null-handle error.
    WBShownValue Show(double value);
    /// The same of a number's text, with either decimal separator; what is no number counts as 0.
    WBShownValue ShowNumber(std::string_view text);
    /// The same of a text that is read as the session writes numbers: "3,5" is 3 where it writes
    /// ".".
    WBShownValue ShowSessionNumber(std::string_view text);

private:
    void Prepare();

    WBUnitPair m_units;
    WBShowOptions m_options;
    bool m_isPrepared = false;
    CATUnicodeString m_symbol; // where it is not wanted
};

/// How values of the magnitude are written in that task; nothing when it is null or lacks a unit.
std::optional<WBUnitDisplay> DisplayOf(const CATICkeMagnitude_var& magnitude, WBUnitsTask task,
                                       WBShowOptions options);

/// A list of numbers between ";", up to its first empty item, written with "; ".
std::string ShownList(std::string_view list, WBUnitDisplay& display);

/// A breakdown: numbers between ";" as the session writes them, written with ";". Every item
/// counts, an empty one as 0: a text that ends in ";" ends in a 0, and an empty text is one 0.
std::string ShownBreakdown(std::string_view list, WBUnitDisplay& display);

/// What an item without a readable dimension is taken for.
enum class WBMissingDimension
{
    Volumic,
    AsBefore ///< the dimension of the item before it; of the first item, volumic
};

/// A list of densities as ShownList writes it, each in the units that its item of `dimensions` asks
/// for: 2 the surfacic ones, anything else the volumic ones.
std::string ShownDensities(std::string_view list, std::string_view dimensions,
                           WBUnitDisplay& volumic, WBUnitDisplay& surfacic,
                           WBMissingDimension missing);
