#include "WBInertia.h"

CATMath3x3Matrix InertiaMatrix(const WBMomentsAndProducts& inertia)
{
    const auto& [xx, yy, zz, xy, xz, yz] = inertia;
    // clang-format off
    return { xx, -xy, -xz,
            -xy,  yy, -yz,
            -xz, -yz,  zz};
    // clang-format on
}

WBMomentsAndProducts MomentsAndProducts(const CATMath3x3Matrix& matrix)
{
    return {.xx = matrix.GetCoef(1, 1),
            .yy = matrix.GetCoef(2, 2),
            .zz = matrix.GetCoef(3, 3),
            .xy = -matrix.GetCoef(1, 2),
            .xz = -matrix.GetCoef(1, 3),
            .yz = -matrix.GetCoef(2, 3)};
}

CATMath3x3Matrix TransferMatrix(const CATMathVector& offset)
{
    const double x = offset.GetX();
    const double y = offset.GetY();
    const double z = offset.GetZ();
    return InertiaMatrix({.xx = y * y + z * z,
                          .yy = x * x + z * z,
                          .zz = x * x + y * y,
                          .xy = x * y,
                          .xz = x * z,
                          .yz = y * z});
}

CATMath3x3Matrix MovedInertia(const CATMath3x3Matrix& inertia, double mass,
                              const CATMathVector& offset, WBInertiaMove move)
{
    const CATMath3x3Matrix term = mass * TransferMatrix(offset);
    return move == WBInertiaMove::AwayFromCentre ? inertia + term : inertia - term;
}
