#include "CATMathTransformation.h"

void CATMathTransformation::GetCoefficients(std::span<double, 12> coefficients) const
{
    std::size_t index = 0;
    for (int axis = 1; axis <= 3; ++axis) {
        for (int row = 1; row <= 3; ++row) {
            coefficients[index++] = m_rotation.GetCoef(row, axis);
        }
    }
    coefficients[index++] = m_shift.GetX();
    coefficients[index++] = m_shift.GetY();
    coefficients[index] = m_shift.GetZ();
}

CATMathTransformation
CATMathTransformation::FromCoefficients(std::span<const double, 12> coefficients)
{
    // The images of the axes come one after the other: they are the columns of the rotation.
    const CATMath3x3Matrix axesAsRows(coefficients[0], coefficients[1], coefficients[2],
                                      coefficients[3], coefficients[4], coefficients[5],
                                      coefficients[6], coefficients[7], coefficients[8]);
    return {axesAsRows.Transpose(), {coefficients[9], coefficients[10], coefficients[11]}};
}

CATMathTransformation operator*(const CATMathTransformation& outer,
                                const CATMathTransformation& inner)
{
    const CATMathPoint origin = outer.Apply(inner.Apply({}));
    return {outer.m_rotation * inner.m_rotation, origin - CATMathPoint()};
}

CATMathPoint CATMathTransformation::Apply(const CATMathPoint& point) const
{
    return CATMathPoint() + (m_rotation * (point - CATMathPoint())) + m_shift;
}
