#pragma once

#include "TableColumns.h"
#include "WBFacts.h"

#include <array>

namespace wb
{
/// Which column holds which number of a value set.
struct SetColumn
{
    Column column;
    Fact fact;
};

inline constexpr std::array kMassColumns{
    SetColumn{Column::Mass, Fact::Mass},         SetColumn{Column::Lower, Fact::Lower},
    SetColumn{Column::Upper, Fact::Upper},       SetColumn{Column::LowerPct, Fact::LowerPct},
    SetColumn{Column::UpperPct, Fact::UpperPct}, SetColumn{Column::Volume, Fact::Volume},
    SetColumn{Column::Area, Fact::Area}};
inline constexpr std::array kCentreColumns{SetColumn{Column::CgX, Fact::CgX},
                                           SetColumn{Column::CgY, Fact::CgY},
                                           SetColumn{Column::CgZ, Fact::CgZ}};
inline constexpr std::array kMomentColumns{SetColumn{Column::Ixx, Fact::Ixx},
                                           SetColumn{Column::Iyy, Fact::Iyy},
                                           SetColumn{Column::Izz, Fact::Izz}};
inline constexpr std::array kProductColumns{SetColumn{Column::Ixy, Fact::Ixy},
                                            SetColumn{Column::Ixz, Fact::Ixz},
                                            SetColumn{Column::Iyz, Fact::Iyz}};
inline constexpr std::array kRadiusColumns{SetColumn{Column::Kx, Fact::Kx},
                                           SetColumn{Column::Ky, Fact::Ky},
                                           SetColumn{Column::Kz, Fact::Kz}};
inline constexpr std::array kSigmaColumns{
    SetColumn{Column::SigmaMass, Fact::SigmaMass}, SetColumn{Column::SigmaCgX, Fact::SigmaCgX},
    SetColumn{Column::SigmaCgY, Fact::SigmaCgY},   SetColumn{Column::SigmaCgZ, Fact::SigmaCgZ},
    SetColumn{Column::SigmaIxx, Fact::SigmaIxx},   SetColumn{Column::SigmaIyy, Fact::SigmaIyy},
    SetColumn{Column::SigmaIzz, Fact::SigmaIzz},   SetColumn{Column::SigmaIxy, Fact::SigmaIxy},
    SetColumn{Column::SigmaIxz, Fact::SigmaIxz},   SetColumn{Column::SigmaIyz, Fact::SigmaIyz}};
} // namespace wb
