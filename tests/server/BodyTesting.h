#pragma once

#include "WBBody.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace wbtest
{
// Of hand-worked numbers against sums of a few terms.
constexpr double kClose = 1e-12;

/// Both bodies' figures alike, each to a share of the largest of its kind.
inline void ExpectSame(const wb::Body& body, const wb::Body& expected, double tolerance = kClose)
{
    EXPECT_NEAR(body.mass, expected.mass, tolerance * std::abs(expected.mass));
    EXPECT_NEAR(body.lower, expected.lower, tolerance * std::abs(expected.mass));
    EXPECT_NEAR(body.upper, expected.upper, tolerance * std::abs(expected.mass));
    double far = 1.0;
    for (const double value : expected.centre) {
        far = std::max(far, std::abs(value));
    }
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(body.centre[i], expected.centre[i], tolerance * far) << "centre " << i;
    }
    double large = 0.0;
    for (const double value : expected.inertia) {
        large = std::max(large, std::abs(value));
    }
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(body.inertia[i], expected.inertia[i], tolerance * large) << "inertia " << i;
    }
}
} // namespace wbtest
