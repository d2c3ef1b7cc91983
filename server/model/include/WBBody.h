#pragma once

#include "WBPlacement.h"

#include <array>
#include <cstddef>
#include <vector>

namespace wb
{
/// Moments and products of inertia in kg.m2: xx, yy, zz, xy, xz, yz. A product is + integral of
/// x y dm; the matrix of inertia holds it with the other sign.
using Inertia = std::array<double, 6>;

/// What a part or a whole assembly weighs, in the axes of whoever holds it. Plain numbers, twelve
/// of them, so that a product of a million instances is one block of memory.
struct Body
{
    double mass = 0.0;              // kg
    double lower = 0.0;             // kg; how far the true mass may lie below, without sign
    double upper = 0.0;             // kg; how far above
    std::array<double, 3> centre{}; // mm
    Inertia inertia{};              // about the centre

    bool operator==(const Body&) const = default;
};

static_assert(sizeof(Body) == 12 * sizeof(double));

/// The body's inertia about any point of its axes, in mm.
Inertia InertiaAbout(const Body& body, const std::array<double, 3>& point);

/// The inertia of something that stands turned: R I Rt. Right for an opposite hand as well.
Inertia Turned(const Inertia& inertia, const Placement::Matrix& rotation);

/// The point of a part in the axes of the parent.
std::array<double, 3> Placed(const std::array<double, 3>& point, const Placement& placement);

/// The body of a part in the axes of the parent.
Body Placed(const Body& body, const Placement& placement);

/// So many pieces of a body at one place.
Body Pieces(const Body& body, double pieces);

/// The body without the rests of rounding: a centre or a product of inertia that is smaller than
/// what doubles can tell of the figures beside it is 0, as it is of anything symmetric. A body
/// about which something is unknown keeps that.
Body WithoutRests(const Body& body);

/// Two bodies as one, about the centre of both. Their deviations add up. Nothing is ever summed
/// about a far origin, so an aeroplane that stands 1,000 m off it keeps all the digits of its
/// inertia. Where the masses cancel, there is no centre of gravity and that of the first one stays.
Body Merged(const Body& first, const Body& second);

/// Figure by figure the one less the other, the inertias as they stand, each about its own centre;
/// unknown where one of the two is.
Body Difference(const Body& body, const Body& other);

/// The sum of any number of bodies in the same axes.
class BodySum
{
public:
    /// Masses of both signs may come in any order as long as they do not cancel on the way; a
    /// caller that cannot promise that keeps two sums.
    void Add(const Body& body);
    /// What was added up to now; an empty body before the first.
    Body Total();
    /// Begins anew.
    void Clear() { m_count = 0; }

private:
    // So many are taken about their common centre at once: a division a block instead of one a
    // body, and a block stays in the fastest cache.
    static constexpr std::size_t kBlock = 32;

    std::array<Body, kBlock> m_block;
    std::size_t m_count = 0;
};

/// The largest, middle and smallest principal moment of an inertia.
std::array<double, 3> PrincipalMoments(const Inertia& inertia);
} // namespace wb
