#pragma once

#include "Walk.h"

#include <span>
#include <string>

namespace wb
{
/// A claim's body with what the part's other claims lend it.
struct Completed
{
    Body body;
    std::int16_t centreLender = kNobody;
    std::int16_t inertiaLender = kNobody;
};

/// A missing centre, then a missing inertia, comes from the other claims of the node, the most
/// mature first; below, where it is not null, is the active sum of what stands below and lends just
/// before Calculated. Goals never lend. An inertia is scaled with the masses: the radii of gyration
/// stay.
Completed Complete(const Claim& claim, std::span<const Claim> claims, const Body* below,
                   const std::vector<MassType>& types);

/// A mass type, "Computed" for the sum of what is below, or nothing.
std::string LenderName(std::int16_t lender, const std::vector<MassType>& types);

/// The order above which an assembly's own claim goes before the sum of what is below.
int CalculatedOrder(const std::vector<MassType>& types);
} // namespace wb
