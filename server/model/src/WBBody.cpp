#include "WBBody.h"

#include "BodyMerge.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace wb
{
Inertia InertiaAbout(const Body& body, const std::array<double, 3>& point)
{
    Inertia inertia = body.inertia;
    AddOffset(inertia, body.mass, body.centre[0] - point[0], body.centre[1] - point[1],
              body.centre[2] - point[2]);
    return inertia;
}

Inertia Turned(const Inertia& inertia, const Placement::Matrix& rotation)
{
    return TurnedInertia(inertia, rotation);
}

std::array<double, 3> Placed(const std::array<double, 3>& point, const Placement& placement)
{
    return PlacedPoint(point, placement);
}

Body Placed(const Body& body, const Placement& placement)
{
    return PlacedBody(body, placement);
}

Body Pieces(const Body& body, double pieces)
{
    Body all = body;
    all.mass *= pieces;
    all.lower *= pieces;
    all.upper *= pieces;
    for (double& term : all.inertia) {
        term *= pieces;
    }
    return all;
}

Body Merged(const Body& first, const Body& second)
{
    const std::array both{first, second};
    return SumAboutCommonCentre(both.data(), 0, both.size(), NextIndex());
}

Body Difference(const Body& body, const Body& other)
{
    Body difference;
    difference.mass = body.mass - other.mass;
    difference.lower = body.lower - other.lower;
    difference.upper = body.upper - other.upper;
    std::ranges::transform(body.centre, other.centre, difference.centre.begin(), std::minus());
    std::ranges::transform(body.inertia, other.inertia, difference.inertia.begin(), std::minus());
    return difference;
}

Body WithoutRests(const Body& body)
{
    // A double keeps 1e-16 of a figure; a sum of many loses some of that.
    constexpr double kRest = 1e-14;
    Body clean = body;
    const auto clear = [](double& figure, double beside) {
        if (std::abs(figure) < kRest * beside) {
            figure = 0.0;
        }
    };
    const auto largest = [](double first, double second, double third) {
        return std::max({std::abs(first), std::abs(second), std::abs(third)});
    };
    const double moment = largest(body.inertia[0], body.inertia[1], body.inertia[2]);
    for (std::size_t product = 3; product < clean.inertia.size(); ++product) {
        clear(clean.inertia[product], moment);
    }
    const double distance = largest(body.centre[0], body.centre[1], body.centre[2]);
    for (double& coordinate : clean.centre) {
        clear(coordinate, distance);
    }
    return clean;
}

void BodySum::Add(const Body& body)
{
    if (m_count == kBlock) {
        m_block[0] = Total();
    }
    m_block[m_count++] = body;
}

Body BodySum::Total()
{
    if (m_count == 0) {
        return {};
    }
    if (m_count > 1) {
        m_block[0] = SumAboutCommonCentre(m_block.data(), 0, m_count, NextIndex());
        m_count = 1;
    }
    return m_block[0];
}

std::array<double, 3> PrincipalMoments(const Inertia& inertia)
{
    // Cyclic Jacobi: three rotations a sweep, each of which clears one term off the diagonal. It
    // converges quadratically; eight sweeps are twice what any matrix of three rows needs.
    constexpr int kSweeps = 8;
    std::array<std::array<double, 3>, 3> a{{{inertia[0], -inertia[3], -inertia[4]},
                                            {-inertia[3], inertia[1], -inertia[5]},
                                            {-inertia[4], -inertia[5], inertia[2]}}};
    for (int turn = 0; turn < 3 * kSweeps; ++turn) {
        const auto p = static_cast<std::size_t>(turn % 3 == 2 ? 1 : 0);
        const auto q = static_cast<std::size_t>(turn % 3 == 0 ? 1 : 2);
        if (a[p][q] == 0.0) {
            continue;
        }
        const double theta = (a[q][q] - a[p][p]) / (2.0 * a[p][q]);
        const double tangent =
            std::copysign(1.0, theta) / (std::abs(theta) + std::hypot(theta, 1.0));
        const double cosine = 1.0 / std::hypot(tangent, 1.0);
        const double sine = tangent * cosine;
        const std::size_t other = 3 - p - q;
        a[p][p] -= tangent * a[p][q];
        a[q][q] += tangent * a[p][q];
        a[p][q] = a[q][p] = 0.0;
        const double left = a[other][p];
        const double right = a[other][q];
        a[other][p] = a[p][other] = cosine * left - sine * right;
        a[other][q] = a[q][other] = sine * left + cosine * right;
    }
    std::array moments{a[0][0], a[1][1], a[2][2]};
    std::ranges::sort(moments, std::greater());
    return moments;
}
} // namespace wb
