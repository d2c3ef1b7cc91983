#include "WBPlacement.h"

#include "WBNumbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace wb
{
namespace
{
struct Turn
{
    double cosine;
    double sine;
};

/// The rest of the angle beyond whole quarter turns lies within 45 degrees: quarter turns become
/// exact, and an angle and its mirror image get the same digits.
Turn TurnOf(double degrees)
{
    if (degrees == 0.0) {
        return {1.0, 0.0}; // most parts are turned about one axis or none
    }
    const double quarters = std::round(degrees / 90.0);
    const double rest = (degrees - 90.0 * quarters) * std::numbers::pi / 180.0;
    const double cosine = std::cos(rest);
    const double sine = std::sin(rest);
    switch (static_cast<int>(std::fmod(quarters, 4.0) + 4.0) % 4) {
    case 1:
        return {-sine, cosine};
    case 2:
        return {-cosine, -sine};
    case 3:
        return {sine, -cosine};
    default:
        return {cosine, sine};
    }
}

Placement::Matrix Product(const Placement::Matrix& left, const Placement::Matrix& right)
{
    Placement::Matrix product{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t k = 0; k < 3; ++k) {
                product[row][column] += left[row][k] * right[k][column];
            }
        }
    }
    return product;
}
} // namespace

Placement operator*(const Placement& outer, const Placement& inner)
{
    Placement product{Product(outer.rotation, inner.rotation), outer.shift};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t k = 0; k < 3; ++k) {
            product.shift[row] += outer.rotation[row][k] * inner.shift[k];
        }
    }
    return product;
}

Placement::Matrix RotationFromAngles(double x, double y, double z)
{
    const Turn aboutX = TurnOf(x);
    const Turn aboutY = TurnOf(y);
    const Turn aboutZ = TurnOf(z);
    const Placement::Matrix rx{
        {{1, 0, 0}, {0, aboutX.cosine, -aboutX.sine}, {0, aboutX.sine, aboutX.cosine}}};
    const Placement::Matrix ry{
        {{aboutY.cosine, 0, aboutY.sine}, {0, 1, 0}, {-aboutY.sine, 0, aboutY.cosine}}};
    const Placement::Matrix rz{
        {{aboutZ.cosine, -aboutZ.sine, 0}, {aboutZ.sine, aboutZ.cosine, 0}, {0, 0, 1}}};
    return Product(rz, Product(ry, rx));
}

double OffOrthogonal(const Placement::Matrix& rotation)
{
    double largest = 0.0;
    for (std::size_t left = 0; left < 3; ++left) {
        for (std::size_t right = 0; right < 3; ++right) {
            double sum = left == right ? -1.0 : 0.0;
            for (std::size_t row = 0; row < 3; ++row) {
                sum += rotation[row][left] * rotation[row][right];
            }
            largest = std::max(largest, std::abs(sum));
        }
    }
    return largest;
}

double Determinant(const Placement::Matrix& rotation)
{
    const auto& [a, b, c] = rotation;
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

bool AreSamePlace(const std::array<double, 3>& left, const std::array<double, 3>& right)
{
    return std::ranges::equal(left, right, AreAlike);
}

bool AreSameTurn(const Placement::Matrix& left, const Placement::Matrix& right)
{
    // Next to the ones of a rotation a rounding that would be a digit of a small number is none.
    constexpr double kRounding = 1e-14;
    return std::ranges::equal(left, right, [](const auto& leftRow, const auto& rightRow) {
        return std::ranges::equal(leftRow, rightRow, [](double leftTerm, double rightTerm) {
            return std::abs(leftTerm - rightTerm) <= kRounding;
        });
    });
}

std::array<double, 12> Coefficients(const Placement& placement)
{
    const auto& r = placement.rotation;
    const auto& t = placement.shift;
    return {r[0][0], r[1][0], r[2][0], r[0][1], r[1][1], r[2][1],
            r[0][2], r[1][2], r[2][2], t[0],    t[1],    t[2]};
}
} // namespace wb
