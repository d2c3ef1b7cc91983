#include "CATMath3x3Matrix.h"

#include "CATFatalError.h"

#include <algorithm>
#include <functional>

namespace
{

constexpr int kSize = 3;

// -1, after the fatal error, when there is no such term.
int IndexOf(int row, int column)
{
    if (row < 1 || row > kSize || column < 1 || column > kSize) {
        CATRaiseFatalError("term (" + CATUnicodeString::FromInt(row) + ", " +
                               CATUnicodeString::FromInt(column) +
                               ") asked of a matrix of three rows and three columns",
                           "CATMath3x3Matrix", __LINE__);
        return -1;
    }
    return (row - 1) * kSize + (column - 1);
}

} // namespace

double CATMath3x3Matrix::GetCoef(int row, int column) const
{
    const int index = IndexOf(row, column);
    return index < 0 ? 0.0 : m_terms[static_cast<std::size_t>(index)];
}

void CATMath3x3Matrix::SetCoef(int row, int column, double value)
{
    const int index = IndexOf(row, column);
    if (index >= 0) {
        m_terms[static_cast<std::size_t>(index)] = value;
    }
}

double CATMath3x3Matrix::Determinant() const
{
    const auto& [a, b, c, d, e, f, g, h, i] = m_terms;
    return a * (e * i - f * h) - b * (d * i - f * g) + c * (d * h - e * g);
}

CATMath3x3Matrix CATMath3x3Matrix::Transpose() const
{
    const auto& [a, b, c, d, e, f, g, h, i] = m_terms;
    return {a, d, g, b, e, h, c, f, i};
}

bool CATMath3x3Matrix::Inverse(CATMath3x3Matrix& inverse) const
{
    const double determinant = Determinant();
    // Written so that a determinant that is not a number is refused as well.
    if (!(determinant < 0.0 || determinant > 0.0)) {
        return false;
    }
    const auto [a, b, c, d, e, f, g, h, i] = m_terms;
    // The cofactors, transposed, each divided: multiplying by the reciprocal would round twice.
    const CATMath3x3Matrix cofactors(e * i - f * h, c * h - b * i, b * f - c * e, // row 1
                                     f * g - d * i, a * i - c * g, c * d - a * f, // row 2
                                     d * h - e * g, b * g - a * h, a * e - b * d);
    std::ranges::transform(cofactors.m_terms, inverse.m_terms.begin(),
                           [=](double cofactor) { return cofactor / determinant; });
    return true;
}

CATMath3x3Matrix operator*(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b)
{
    CATMath3x3Matrix product;
    for (std::size_t row = 0; row < kSize; ++row) {
        for (std::size_t column = 0; column < kSize; ++column) {
            double sum = 0.0;
            for (std::size_t inner = 0; inner < kSize; ++inner) {
                sum += a.m_terms[row * kSize + inner] * b.m_terms[inner * kSize + column];
            }
            product.m_terms[row * kSize + column] = sum;
        }
    }
    return product;
}

CATMathVector operator*(const CATMath3x3Matrix& a, const CATMathVector& v)
{
    const auto row = [&](std::size_t index) {
        return a.m_terms[index * kSize] * v.GetX() + a.m_terms[index * kSize + 1] * v.GetY() +
               a.m_terms[index * kSize + 2] * v.GetZ();
    };
    return {row(0), row(1), row(2)};
}

CATMath3x3Matrix operator+(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b)
{
    CATMath3x3Matrix sum;
    std::ranges::transform(a.m_terms, b.m_terms, sum.m_terms.begin(), std::plus<double>());
    return sum;
}

CATMath3x3Matrix operator-(const CATMath3x3Matrix& a, const CATMath3x3Matrix& b)
{
    CATMath3x3Matrix difference;
    std::ranges::transform(a.m_terms, b.m_terms, difference.m_terms.begin(), std::minus<double>());
    return difference;
}

CATMath3x3Matrix operator*(double factor, const CATMath3x3Matrix& a)
{
    CATMath3x3Matrix product;
    std::ranges::transform(a.m_terms, product.m_terms.begin(),
                           [=](double term) { return factor * term; });
    return product;
}
