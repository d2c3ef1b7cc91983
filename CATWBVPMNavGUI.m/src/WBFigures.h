#pragma once

#include "WBPanelRecord.h"

#include <array>
#include <cstddef>

/// The figures of a mass type, in the order in which tables list them: mass, lower and upper
/// deviation, centre x, y, z, Ixx, Iyy, Izz, Ixy, Ixz, Iyz.
struct WBFigure
{
    const char* titleKey; ///< of the panel's texts
    const char* title;
    const char* magnitude;
};
inline constexpr std::array<WBFigure, 12> kWBFigures{{
    {"MassTypes.Mass.Title", "@Mass", "MASS"},
    {"MassTypes.Lower.Title", "@Lower dev.", "MASS"},
    {"MassTypes.Upper.Title", "@Upper dev.", "MASS"},
    {"MassTypes.CentreX.Title", "@CoG x", "LENGTH"},
    {"MassTypes.CentreY.Title", "@CoG y", "LENGTH"},
    {"MassTypes.CentreZ.Title", "@CoG z", "LENGTH"},
    {"MassTypes.MomentX.Title", "@Ixx", "INERTIAMOMENT"},
    {"MassTypes.MomentY.Title", "@Iyy", "INERTIAMOMENT"},
    {"MassTypes.MomentZ.Title", "@Izz", "INERTIAMOMENT"},
    {"MassTypes.ProductXY.Title", "@Ixy", "INERTIAMOMENT"},
    {"MassTypes.ProductXZ.Title", "@Ixz", "INERTIAMOMENT"},
    {"MassTypes.ProductYZ.Title", "@Iyz", "INERTIAMOMENT"},
}};

/// Places of the figures after which a group of others begins.
inline constexpr std::size_t kWBLower = 1;
inline constexpr std::size_t kWBUpper = 2;
inline constexpr std::size_t kWBCentre = 3;
inline constexpr std::size_t kWBInertia = 6;

/// The figures of the record's mass type; products with the sign of + integral of x y dm.
WBTwelveFigures WBFiguresOf(const WBPanelMassType& massType);
