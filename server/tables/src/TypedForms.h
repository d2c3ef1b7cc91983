#pragma once

#include "WBProduct.h"

#include <array>
#include <string_view>

namespace wb
{
/// What becomes of the forms that a table offers besides the stored one. The reader derives the
/// stored numbers by these functions; the writer tries what was typed by the same ones, so that it
/// gives the typed form back exactly where that still leads to what is stored.

/// An angle typed in degrees or radians, in degrees. What is within rounding of a quarter turn in
/// radians is meant as one.
double InDegrees(double typed, std::string_view unit);

/// xx, yy, zz, xy, xz, yz, in the order of the facts.
using InertiaTerms = std::array<double, 6>;

InertiaTerms InertiaOf(const ValueSet& set);
void SetInertia(ValueSet& set, const InertiaTerms& inertia);
/// In mm.
std::array<double, 3> CentreOf(const ValueSet& set);

/// Radii of gyration in mm; the products are 0.
InertiaTerms InertiaOfRadii(const std::array<double, 3>& radii, double mass);
/// An inertia about the origin of the axes, about the centre (mm) instead. Without its products,
/// which stay, when they were never about the origin.
InertiaTerms MovedToCentre(const InertiaTerms& atOrigin, bool withProducts, double mass,
                           const std::array<double, 3>& centre);
} // namespace wb
