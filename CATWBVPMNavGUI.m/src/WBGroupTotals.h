#pragma once

#include "WBGroupFigures.h"

#include <array>
#include <optional>
#include <vector>

/// What the instances of a group add up to.

/// An instance as its totals see it.
struct WBGroupMember
{
    std::optional<double> mass;
    std::optional<std::array<double, 3>> centre;
    bool isIncomplete = false; ///< something below it has no mass or no centre of gravity
};

struct WBGroupTotals
{
    int items = 0;         ///< that count
    int withoutMass = 0;   ///< of them; the mass leaves them out
    int withoutCentre = 0; ///< that have a mass; they stand at the centre of the rest
    int incomplete = 0;    ///< that have both, while something below them lacks one
    std::optional<double> mass;
    std::optional<std::array<double, 3>> centre;
    std::optional<double> share; ///< of the root's mass, 0 to 1
};

/// The sum of the masses, and sum m c / sum m over those with a centre. Unknown: the mass where
/// nobody has one, the centre where nobody has one or the masses cancel, the share where the root
/// has no mass.
WBGroupTotals WBAddUp(const std::vector<WBGroupMember>& members, std::optional<double> rootMass);

/// For each of the rows the row of the group that it stands in, kNone where there is none: such an
/// instance counts by itself. Rows that are kNone stand in nothing. Of several the nearest.
std::vector<int> WBCoveringRows(const WBGroupFigures& figures, const std::vector<int>& rows);

/// The totals of the instances in these rows, each counted once: those that stand in another one
/// count with it. Rows that are kNone count nothing.
WBGroupTotals WBTotalsOf(const WBGroupFigures& figures, const std::vector<int>& rows);
