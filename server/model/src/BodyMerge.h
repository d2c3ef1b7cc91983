#pragma once

#include "WBBody.h"

#include <utility>

namespace wb
{
constexpr double kSquareMetres = 1e-6; // in a mm2

inline void AddOffset(Inertia& inertia, double mass, double x, double y, double z)
{
    const double kilograms = mass * kSquareMetres;
    const double xx = kilograms * x * x;
    const double yy = kilograms * y * y;
    const double zz = kilograms * z * z;
    inertia[0] += yy + zz;
    inertia[1] += xx + zz;
    inertia[2] += xx + yy;
    inertia[3] += kilograms * x * y;
    inertia[4] += kilograms * x * z;
    inertia[5] += kilograms * y * z;
}

/// The sum of the bodies at first, next(first), ... before end. They are read twice: once for mass
/// and centre, once for the inertia about that centre. Distances are measured from the first body,
/// so the place of the whole costs no digits.
template <typename Next>
[[gnu::always_inline]] inline Body SumAboutCommonCentre(const Body* bodies, std::size_t first,
                                                        std::size_t end, const Next& next)
{
    const double fromX = bodies[first].centre[0];
    const double fromY = bodies[first].centre[1];
    const double fromZ = bodies[first].centre[2];
    double mass = 0.0;
    double lower = 0.0;
    double upper = 0.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    for (std::size_t i = first; i < end; i = next(i)) {
        const Body& body = bodies[i];
        mass += body.mass;
        lower += body.lower;
        upper += body.upper;
        x += body.mass * (body.centre[0] - fromX);
        y += body.mass * (body.centre[1] - fromY);
        z += body.mass * (body.centre[2] - fromZ);
    }
    const double share = mass == 0.0 ? 0.0 : 1.0 / mass;
    const double centreX = fromX + x * share;
    const double centreY = fromY + y * share;
    const double centreZ = fromZ + z * share;
    double ixx = 0.0;
    double iyy = 0.0;
    double izz = 0.0;
    double ixy = 0.0;
    double ixz = 0.0;
    double iyz = 0.0;
    for (std::size_t i = first; i < end; i = next(i)) {
        const Body& body = bodies[i];
        const double dx = body.centre[0] - centreX;
        const double dy = body.centre[1] - centreY;
        const double dz = body.centre[2] - centreZ;
        const double kilograms = body.mass * kSquareMetres;
        const double mx = kilograms * dx;
        const double my = kilograms * dy;
        const double mz = kilograms * dz;
        ixx += body.inertia[0] + (my * dy + mz * dz);
        iyy += body.inertia[1] + (mx * dx + mz * dz);
        izz += body.inertia[2] + (mx * dx + my * dy);
        ixy += body.inertia[3] + mx * dy;
        ixz += body.inertia[4] + mx * dz;
        iyz += body.inertia[5] + my * dz;
    }
    return {mass, lower, upper, {centreX, centreY, centreZ}, {ixx, iyy, izz, ixy, ixz, iyz}};
}

inline std::array<double, 3> PlacedPoint(const std::array<double, 3>& point,
                                         const Placement& placement)
{
    const auto& r = placement.rotation;
    const auto row = [&](std::size_t i) {
        return r[i][0] * point[0] + r[i][1] * point[1] + r[i][2] * point[2] + placement.shift[i];
    };
    return {row(0), row(1), row(2)};
}

/// R I Rt, term by term: written out, the compiler keeps all of it in registers. Number is a double
/// or several of them at once.
template <typename Number>
[[gnu::always_inline]] inline std::array<Number, 6>
TurnedInertia(const std::array<Number, 6>& inertia, const std::array<std::array<Number, 3>, 3>& r)
{
    const auto& [xx, yy, zz, xy, xz, yz] = inertia; // products with the sign of the integral
    const auto& [a, b, c] = r;
    const Number ax = a[0] * xx - a[1] * xy - a[2] * xz;
    const Number ay = a[1] * yy - a[0] * xy - a[2] * yz;
    const Number az = a[2] * zz - a[0] * xz - a[1] * yz;
    const Number bx = b[0] * xx - b[1] * xy - b[2] * xz;
    const Number by = b[1] * yy - b[0] * xy - b[2] * yz;
    const Number bz = b[2] * zz - b[0] * xz - b[1] * yz;
    const Number cx = c[0] * xx - c[1] * xy - c[2] * xz;
    const Number cy = c[1] * yy - c[0] * xy - c[2] * yz;
    const Number cz = c[2] * zz - c[0] * xz - c[1] * yz;
    const Number none{};
    return {ax * a[0] + ay * a[1] + az * a[2],        bx * b[0] + by * b[1] + bz * b[2],
            cx * c[0] + cy * c[1] + cz * c[2],        none - ax * b[0] - ay * b[1] - az * b[2],
            none - ax * c[0] - ay * c[1] - az * c[2], none - bx * c[0] - by * c[1] - bz * c[2]};
}

/// Two numbers that go through the same sums at the same time, one for each of two bodies.
struct Pair
{
    using Lanes __attribute__((vector_size(2 * sizeof(double)))) = double;

    Lanes lanes{};

    friend Pair operator+(Pair left, Pair right) { return {left.lanes + right.lanes}; }
    friend Pair operator-(Pair left, Pair right) { return {left.lanes - right.lanes}; }
    friend Pair operator*(Pair left, Pair right) { return {left.lanes * right.lanes}; }
};

/// Written out for each place: a loop would first fill the pairs with zeros.
template <std::size_t... Places>
[[gnu::always_inline]] inline std::array<Pair, sizeof...(Places)>
PairsAt(const double* first, const double* second, std::index_sequence<Places...>)
{
    return {Pair{Pair::Lanes{first[Places], second[Places]}}...};
}

template <std::size_t Count>
[[gnu::always_inline]] inline std::array<Pair, Count> Pairs(const std::array<double, Count>& first,
                                                            const std::array<double, Count>& second)
{
    return PairsAt(first.data(), second.data(), std::make_index_sequence<Count>());
}

/// Two bodies in the axes of their parent: half the work of one after the other.
[[gnu::always_inline]] inline void PlaceTwo(const Body& first, const Placement& firstPlace,
                                            const Body& second, const Placement& secondPlace,
                                            Body* placed)
{
    const std::array turn{Pairs(firstPlace.rotation[0], secondPlace.rotation[0]),
                          Pairs(firstPlace.rotation[1], secondPlace.rotation[1]),
                          Pairs(firstPlace.rotation[2], secondPlace.rotation[2])};
    const auto turned = TurnedInertia(Pairs(first.inertia, second.inertia), turn);
    const auto centre = Pairs(first.centre, second.centre);
    const auto shift = Pairs(firstPlace.shift, secondPlace.shift);
    const auto point = [&](std::size_t row) {
        return turn[row][0] * centre[0] + turn[row][1] * centre[1] + turn[row][2] * centre[2] +
               shift[row];
    };
    const std::array points{point(0), point(1), point(2)};
    const auto put = [&](const Body& body, std::size_t lane) {
        const auto at = [lane](const Pair& pair) {
            return pair.lanes[lane];
        };
        placed[lane] = {body.mass,
                        body.lower,
                        body.upper,
                        {at(points[0]), at(points[1]), at(points[2])},
                        {at(turned[0]), at(turned[1]), at(turned[2]), at(turned[3]), at(turned[4]),
                         at(turned[5])}};
    };
    put(first, 0);
    put(second, 1);
}

inline Body PlacedBody(const Body& body, const Placement& placement)
{
    return {body.mass, body.lower, body.upper, PlacedPoint(body.centre, placement),
            TurnedInertia(body.inertia, placement.rotation)};
}

/// Of bodies that stand one behind the other. A type of its own, so that the loops need no call.
struct NextIndex
{
    std::size_t operator()(std::size_t index) const { return index + 1; }
};
} // namespace wb
