#pragma once

#include "WBBody.h"

#include <array>

namespace wb
{
/// The ten additive moments of a body about a fixed point: mass (kg), mass times place (kg.m), and
/// the integrals of xx, yy, zz, xy, xz, yz (kg.m2). Unlike a centre and an inertia about it they
/// simply add up, and a move of the body changes them linearly; so do their errors.
using Moments = std::array<double, 10>;

/// Inertia and integrals are linear in each other.
std::array<double, 6> IntegralsOf(const Inertia& inertia);
Inertia InertiaOf(const std::array<double, 6>& integrals);

/// What a move does to moments: turn, then shift in m. Blocks of a lower triangular matrix; the
/// mass stays as it is.
struct MomentsMove
{
    std::array<double, 3> shift{};                    // place from mass
    std::array<std::array<double, 3>, 3> turn{};      // place from place
    std::array<double, 6> shiftTwice{};               // integrals from mass
    std::array<std::array<double, 3>, 6> shiftTurn{}; // integrals from place
    std::array<std::array<double, 6>, 6> turnTwice{}; // integrals from integrals

    MomentsMove() = default;
    MomentsMove(const Placement::Matrix& rotation, const std::array<double, 3>& metres);

    Moments operator()(const Moments& moments) const;
};

/// The sum of such moves over all pieces of a node, with how many there are.
struct MomentsSum
{
    double pieces = 0.0;
    MomentsMove move;

    /// Adds the pieces of a node that stand so many times at one place of each of the parent's.
    void Add(const MomentsSum& parent, const MomentsMove& use, double count);
    Moments operator()(const Moments& moments) const;
};
} // namespace wb
