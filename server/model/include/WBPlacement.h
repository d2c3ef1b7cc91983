#pragma once

#include <array>

namespace wb
{
/// Where a part stands in its parent's axes. Column k of the rotation is the k-th axis of the part
/// in the parent's axes; a point p of the part stands at rotation * p + shift.
struct Placement
{
    using Matrix = std::array<std::array<double, 3>, 3>; // [row][column]

    Matrix rotation{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    std::array<double, 3> shift{}; // mm

    bool operator==(const Placement&) const = default;
};

/// The placement of something placed by inner inside something placed by outer.
Placement operator*(const Placement& outer, const Placement& inner);

/// Turns about the parent's fixed axes, x first, then y, then z, in degrees: Rz Ry Rx. Multiples of
/// 90 degrees give exact zeros and ones.
Placement::Matrix RotationFromAngles(double x, double y, double z);

/// The largest deviation of (transposed rotation) * rotation from the unit matrix.
double OffOrthogonal(const Placement::Matrix& rotation);

/// Below 0 for an opposite hand.
double Determinant(const Placement::Matrix& rotation);

/// True when two shifts, or two rotations, are the same but for the rounding of what was typed: in
/// millimetres and in inches, in degrees, in radians and as a matrix.
bool AreSamePlace(const std::array<double, 3>& left, const std::array<double, 3>& right);
bool AreSameTurn(const Placement::Matrix& left, const Placement::Matrix& right);

/// The images of the x, y and z axis, then the shift in mm, as the streams carry them.
std::array<double, 12> Coefficients(const Placement& placement);
} // namespace wb
