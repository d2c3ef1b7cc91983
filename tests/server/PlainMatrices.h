#pragma once

#include <array>
#include <cstddef>

namespace wbtest
{
using Real = long double;
using RealVector = std::array<Real, 3>;
using RealMatrix = std::array<RealVector, 3>;

inline constexpr RealMatrix kUnit{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
// Where xx, yy, zz, xy, xz, yz stand in a matrix.
inline constexpr std::array<std::array<std::size_t, 2>, 6> kCells{
    {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}}};

inline RealVector Times(const RealMatrix& m, const RealVector& v)
{
    RealVector product{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            product[i] += m[i][k] * v[k];
        }
    }
    return product;
}

inline RealMatrix Times(const RealMatrix& a, const RealMatrix& b)
{
    RealMatrix product{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) {
                product[i][j] += a[i][k] * b[k][j];
            }
        }
    }
    return product;
}

inline RealMatrix Transposed(const RealMatrix& m)
{
    RealMatrix turned{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            turned[k][i] = m[i][k];
        }
    }
    return turned;
}

inline RealMatrix Turned(const RealMatrix& inertia, const RealMatrix& rotation)
{
    return Times(Times(rotation, inertia), Transposed(rotation));
}

/// a.b E - (a bt + b at) / 2, so that with a = b it is the matrix of a point of 1 kg at a.
inline RealMatrix Offset(const RealVector& a, const RealVector& b)
{
    const Real dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    RealMatrix offset{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            offset[i][k] = (i == k ? dot : 0) - (a[i] * b[k] + a[k] * b[i]) / 2;
        }
    }
    return offset;
}

/// Six figures with products as + integral.
inline std::array<Real, 6> Six(const RealMatrix& m)
{
    std::array<Real, 6> six{};
    for (std::size_t k = 0; k < 6; ++k) {
        six[k] = (k < 3 ? 1 : -1) * m[kCells[k][0]][kCells[k][1]];
    }
    return six;
}

inline RealMatrix FromSix(const std::array<Real, 6>& six)
{
    RealMatrix m{};
    for (std::size_t k = 0; k < 6; ++k) {
        const Real value = (k < 3 ? 1 : -1) * six[k];
        m[kCells[k][0]][kCells[k][1]] = value;
        m[kCells[k][1]][kCells[k][0]] = value;
    }
    return m;
}
} // namespace wbtest
