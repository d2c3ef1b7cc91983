#pragma once

#include "WBExport.h"

/// A displacement in space.
class WB_EXPORT CATMathVector
{
public:
    CATMathVector() = default;
    CATMathVector(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    double GetX() const { return m_x; }
    double GetY() const { return m_y; }
    double GetZ() const { return m_z; }
    friend bool operator==(const CATMathVector&, const CATMathVector&) = default;

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

/// A place in space.
class WB_EXPORT CATMathPoint
{
public:
    CATMathPoint() = default;
    CATMathPoint(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
    double GetX() const { return m_x; }
    double GetY() const { return m_y; }
    double GetZ() const { return m_z; }
    friend bool operator==(const CATMathPoint&, const CATMathPoint&) = default;
    /// The displacement from `b` to `a`.
    friend CATMathVector operator-(const CATMathPoint& a, const CATMathPoint& b)
    {
        return {a.m_x - b.m_x, a.m_y - b.m_y, a.m_z - b.m_z};
    }
    friend CATMathPoint operator+(const CATMathPoint& p, const CATMathVector& v)
    {
        return {p.m_x + v.GetX(), p.m_y + v.GetY(), p.m_z + v.GetZ()};
    }

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};
