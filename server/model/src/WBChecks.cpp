#include "WBChecks.h"

#include "WBProduct.h"

#include <algorithm>
#include <cmath>

namespace wb
{
namespace
{
/// The largest principal moment may pass the sum of the other two by this share of itself before
/// it is more than digits that were dropped.
constexpr double kRounding = 1e-3;

enum class Fit
{
    Possible,
    Rounded,
    Impossible
};

/// True for nearly every inertia that was ever stated, without looking for principal moments: the
/// integrals of xx, xy, ... form a matrix that no real body makes negative.
bool IsPlainlyPossible(const Inertia& inertia)
{
    const double half = (inertia[0] + inertia[1] + inertia[2]) / 2.0;
    const double xx = half - inertia[0];
    const double yy = half - inertia[1];
    const double zz = half - inertia[2];
    const double xy = inertia[3];
    const double xz = inertia[4];
    const double yz = inertia[5];
    const double plane = xx * yy - xy * xy;
    const double whole =
        xx * (yy * zz - yz * yz) - xy * (xy * zz - yz * xz) + xz * (xy * yz - yy * xz);
    return xx > 0.0 && plane > 0.0 && whole > 0.0;
}

Fit FitOf(const Inertia& inertia)
{
    if (IsPlainlyPossible(inertia)) {
        return Fit::Possible;
    }
    const auto [largest, middle, smallest] = PrincipalMoments(inertia);
    const double size = std::max(std::abs(largest), std::abs(smallest));
    constexpr double kLastDigits = 1e-14; // what finding the moments itself may cost
    // A negative moment adds to the excess, so it needs no look of its own.
    const double excess = largest - middle - smallest;
    if (excess > kRounding * largest) {
        return Fit::Impossible;
    }
    return excess > kLastDigits * size || smallest < -kLastDigits * size ? Fit::Rounded
                                                                         : Fit::Possible;
}

/// What people do: products in the sign of the other convention, one of them or all, or two figures
/// in each other's column.
bool AnExchangeHeals(const Inertia& inertia)
{
    const auto fits = [](const Inertia& other) {
        return FitOf(other) != Fit::Impossible;
    };
    for (std::size_t product = 3; product < 6; ++product) {
        Inertia other = inertia;
        other[product] = -other[product];
        if (fits(other)) {
            return true;
        }
    }
    for (std::size_t first = 0; first < 6; ++first) {
        for (std::size_t second = first + 1; second < 6; ++second) {
            Inertia other = inertia;
            std::swap(other[first], other[second]);
            if (fits(other)) {
                return true;
            }
        }
    }
    return false;
}

bool FitsAtOrigin(const Body& body)
{
    return IsKnown(body.centre[0]) && IsKnown(body.mass) &&
           FitOf(InertiaAbout(body, {0, 0, 0})) == Fit::Possible;
}

void CheckInertia(const Body& body, std::vector<Finding>& findings)
{
    const Fit fit = FitOf(body.inertia);
    if (fit == Fit::Rounded) {
        findings.push_back({Finding::Kind::Rounding,
                            "has a largest principal moment that passes the sum of the other two "
                            "by rounding"});
    }
    if (fit != Fit::Impossible) {
        return;
    }
    const bool isNegative = PrincipalMoments(body.inertia)[2] < 0.0;
    std::string text = isNegative ? "has an inertia that is negative about some axis"
                                  : "has a largest principal moment above the sum of the other two";
    if (AnExchangeHeals(body.inertia)) {
        text += "; wrong sign or order?";
    }
    if (FitsAtOrigin(body)) {
        text += "; given about the origin?";
    }
    findings.push_back({Finding::Kind::Impossible, text});
}
} // namespace

std::vector<Finding> CheckBody(const Body& body, bool isAdjustment)
{
    std::vector<Finding> findings;
    const bool isNegative = IsKnown(body.mass) && body.mass < 0.0;
    if (isNegative && !isAdjustment) {
        findings.push_back({Finding::Kind::Impossible, "has a negative mass"});
    }
    if (!IsKnown(body.inertia[0])) {
        return findings;
    }
    if (body.mass == 0.0 &&
        std::ranges::any_of(body.inertia, [](double term) { return term != 0.0; })) {
        findings.push_back({Finding::Kind::Impossible, "has an inertia and no mass at all"});
    }
    Body positive = body;
    if (isNegative && isAdjustment) {
        // What is taken away had the mass and the inertia with the other sign.
        positive = Pieces(body, -1.0);
    }
    CheckInertia(positive, findings);
    return findings;
}
} // namespace wb
