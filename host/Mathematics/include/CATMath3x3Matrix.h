#pragma once

#include "CATMathPoint.h"

#include <array>

/// A matrix of three rows and three columns; rows and columns count from 1.
class WB_EXPORT CATMath3x3Matrix
{
public:
    /// All zero.
    CATMath3x3Matrix() = default;
    /// Row by row.
    CATMath3x3Matrix(double a11, double a12, double a13, double a21, double a22, double a23,
                     double a31, double a32, double a33)
        : m_terms{a11, a12, a13, a21, a22, a23, a31, a32, a33}
    {}
    static CATMath3x3Matrix Identity() { return {1, 0, 0, 0, 1, 0, 0, 0, 1}; }

    /// The term of that row and column. Outside 1..3 the host's fatal error is raised.
    double GetCoef(int row, int column) const;
    void SetCoef(int row, int column, double value);
    double Determinant() const;
    CATMath3x3Matrix Transpose() const;
    /// False, with the output untouched, when the matrix is singular (its determinant is 0 or not a
    /// number).
    bool Inverse(CATMath3x3Matrix& inverse) const;
    friend CATMath3x3Matrix operator*(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
    friend CATMathVector operator*(const CATMath3x3Matrix& a, const CATMathVector& v);
    friend CATMath3x3Matrix operator+(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
    friend CATMath3x3Matrix operator-(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
    friend CATMath3x3Matrix operator*(double factor, const CATMath3x3Matrix& a);
    friend bool operator==(const CATMath3x3Matrix&, const CATMath3x3Matrix&) = default;

private:
    std::array<double, 9> m_terms{};
};
WB_EXPORT CATMath3x3Matrix operator*(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
WB_EXPORT CATMathVector operator*(const CATMath3x3Matrix& a, const CATMathVector& v);
WB_EXPORT CATMath3x3Matrix operator+(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
WB_EXPORT CATMath3x3Matrix operator-(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b);
WB_EXPORT CATMath3x3Matrix operator*(double factor, const CATMath3x3Matrix& a);
