#pragma once

#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"

// Inertia as numbers: matrices about a point, in kilogram square metres where the lengths are
// metres.

/// Moments and products of inertia as reports name them. A product is the positive integral of the
/// two coordinates over the mass, the matrix holds it negated.
struct WBMomentsAndProducts
{
    double xx = 0.0;
    double yy = 0.0;
    double zz = 0.0;
    double xy = 0.0;
    double xz = 0.0;
    double yz = 0.0;

    friend bool operator==(const WBMomentsAndProducts&, const WBMomentsAndProducts&) = default;
};

/// The symmetric matrix with the moments on its diagonal and the negated products beside it.
CATMath3x3Matrix InertiaMatrix(const WBMomentsAndProducts& inertia);

/// Takes the diagonal and what stands above it: of a matrix that axes without right angles have
/// made asymmetric, the terms below the diagonal are not seen.
WBMomentsAndProducts MomentsAndProducts(const CATMath3x3Matrix& matrix);

/// Parallel-axis term of an offset in metres: symmetric, in square metres. Times a mass in
/// kilograms it is what an inertia gains when it leaves the centre of gravity by that offset. An
/// offset and its opposite give the same.
CATMath3x3Matrix TransferMatrix(const CATMathVector& offset);

/// What a move by parallel axes does to an inertia.
enum class WBInertiaMove
{
    AwayFromCentre, ///< gains the mass times the transfer matrix
    ToCentre        ///< loses it
};

CATMath3x3Matrix MovedInertia(const CATMath3x3Matrix& inertia, double mass,
                              const CATMathVector& offset, WBInertiaMove move);
