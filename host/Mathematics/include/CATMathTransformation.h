#pragma once

#include "CATMath3x3Matrix.h"
#include "CATMathPoint.h"

#include <span>

/// A turn (or mirroring) followed by a shift: a point p of the inner axes stands at R p + t in the
/// outer ones. The columns of R are the images of the x, y and z axis.
class WB_EXPORT CATMathTransformation
{
public:
    /// Nothing moves.
    CATMathTransformation() = default;
    CATMathTransformation(const CATMath3x3Matrix& rotation, const CATMathVector& shift)
        : m_rotation(rotation), m_shift(shift)
    {}

    const CATMath3x3Matrix& Rotation() const { return m_rotation; }
    const CATMathVector& Shift() const { return m_shift; }
    /// Twelve numbers: the image of the x axis (three), of the y axis, of the z axis, then the
    /// shift.
    void GetCoefficients(std::span<double, 12> coefficients) const;
    static CATMathTransformation FromCoefficients(std::span<const double, 12> coefficients);
    /// `outer * inner` moves by `inner` first.
    friend CATMathTransformation operator*(const CATMathTransformation& outer,
                                           const CATMathTransformation& inner);
    CATMathPoint Apply(const CATMathPoint& point) const;
    friend bool operator==(const CATMathTransformation&, const CATMathTransformation&) = default;

private:
    CATMath3x3Matrix m_rotation = CATMath3x3Matrix::Identity();
    CATMathVector m_shift;
};
WB_EXPORT CATMathTransformation operator*(const CATMathTransformation& outer,
                                          const CATMathTransformation& inner);
