#include "WBTurn.h"

#include <array>
#include <cmath>
#include <numbers>

namespace
{

struct SineAndCosine
{
    double sine;
    double cosine;
};

SineAndCosine Of(double degrees)
{
    constexpr double kQuarter = 90.0;
    constexpr double kHalf = 180.0;
    constexpr std::array kQuarters{SineAndCosine{0, 1}, SineAndCosine{1, 0}, SineAndCosine{0, -1},
                                   SineAndCosine{-1, 0}};
    const double within = std::fmod(std::fmod(degrees, 2 * kHalf) + 2 * kHalf, 2 * kHalf);
    const double quarters = within / kQuarter;
    if (quarters == std::floor(quarters)) {
        return kQuarters[static_cast<std::size_t>(quarters) % kQuarters.size()];
    }
    const double radians = within * std::numbers::pi / kHalf;
    return {std::sin(radians), std::cos(radians)};
}

} // namespace

CATMath3x3Matrix WBTurnMatrix(double aboutX, double aboutY, double aboutZ)
{
    const SineAndCosine x = Of(aboutX);
    const SineAndCosine y = Of(aboutY);
    const SineAndCosine z = Of(aboutZ);
    // clang-format off
    const CATMath3x3Matrix turnX(1, 0,        0,
                                 0, x.cosine, -x.sine,
                                 0, x.sine,   x.cosine);
    const CATMath3x3Matrix turnY(y.cosine,  0, y.sine,
                                 0,         1, 0,
                                 -y.sine,   0, y.cosine);
    const CATMath3x3Matrix turnZ(z.cosine, -z.sine,  0,
                                 z.sine,   z.cosine, 0,
                                 0,        0,        1);
    // clang-format on
    return turnZ * (turnY * turnX);
}
