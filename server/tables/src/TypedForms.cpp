#include "TypedForms.h"

#include <cmath>
#include <numbers>

namespace wb
{
namespace
{
constexpr double kMetre = 1000.0; // mm
constexpr auto kFirstTerm = static_cast<std::size_t>(Fact::Ixx);
} // namespace

double InDegrees(double typed, std::string_view unit)
{
    if (unit != "rad") {
        return typed;
    }
    const double degrees = typed * (180.0 / std::numbers::pi);
    // No text of radians is a quarter turn to the last digit; what is within rounding of one means
    // it.
    const double quarter = 90.0 * std::round(degrees / 90.0);
    return std::abs(degrees - quarter) < 1e-12 * std::abs(quarter) ? quarter : degrees;
}

InertiaTerms InertiaOf(const ValueSet& set)
{
    InertiaTerms inertia{};
    for (std::size_t i = 0; i < inertia.size(); ++i) {
        inertia[i] = set.numbers[kFirstTerm + i];
    }
    return inertia;
}

void SetInertia(ValueSet& set, const InertiaTerms& inertia)
{
    for (std::size_t i = 0; i < inertia.size(); ++i) {
        set.numbers[kFirstTerm + i] = inertia[i];
    }
}

std::array<double, 3> CentreOf(const ValueSet& set)
{
    return {set[Fact::CgX], set[Fact::CgY], set[Fact::CgZ]};
}

InertiaTerms InertiaOfRadii(const std::array<double, 3>& radii, double mass)
{
    InertiaTerms inertia{};
    for (std::size_t i = 0; i < radii.size(); ++i) {
        const double metres = radii[i] / kMetre;
        inertia[i] = mass * metres * metres;
    }
    return inertia;
}

InertiaTerms MovedToCentre(const InertiaTerms& atOrigin, bool withProducts, double mass,
                           const std::array<double, 3>& centre)
{
    const double x = centre[0] / kMetre;
    const double y = centre[1] / kMetre;
    const double z = centre[2] / kMetre;
    InertiaTerms inertia = atOrigin;
    inertia[0] -= mass * (y * y + z * z);
    inertia[1] -= mass * (x * x + z * z);
    inertia[2] -= mass * (x * x + y * y);
    if (withProducts) {
        inertia[3] -= mass * x * y;
        inertia[4] -= mass * x * z;
        inertia[5] -= mass * y * z;
    }
    return inertia;
}
} // namespace wb
