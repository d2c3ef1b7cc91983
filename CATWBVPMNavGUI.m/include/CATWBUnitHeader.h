#pragma once

#include <array>

/// An attribute of a converted report's document element, which holds the symbol of the unit that
/// the magnitude's values stand in.
struct CATWBUnitHeaderRow
{
    const char* attribute;
    const char* magnitude;
};

/// In the order in which they are written.
inline constexpr std::array kCATWBUnitHeader{
    CATWBUnitHeaderRow{"LengthUnit", "LENGTH"},
    CATWBUnitHeaderRow{"MassUnit", "MASS"},
    CATWBUnitHeaderRow{"InertiaMomentUnit", "INERTIAMOMENT"},
    CATWBUnitHeaderRow{"DensityUnit", "DENSITY"},
    CATWBUnitHeaderRow{"SurfacicDensityUnit", "SURFACICMASS"},
    CATWBUnitHeaderRow{"VolumeUnit", "VOLUME"},
};
