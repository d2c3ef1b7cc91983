#include "PlainRules.h"

#include <algorithm>
#include <cmath>

using namespace wb;

namespace wbtest
{
namespace
{
RealVector StandingAt(const PlainItem& item)
{
    RealVector point = Times(item.rotation, *item.set.centre);
    for (std::size_t i = 0; i < 3; ++i) {
        point[i] += item.shift[i];
    }
    return point;
}

/// From the centre of the total to the item's, in metres.
RealVector Arm(const PlainItem& item, const PlainTotal& total)
{
    RealVector arm = StandingAt(item);
    for (std::size_t i = 0; i < 3; ++i) {
        arm[i] = (arm[i] - (*total.centre)[i]) / 1000;
    }
    return arm;
}

Real CentredMass(const std::vector<PlainItem>& items)
{
    Real mass = 0;
    for (const PlainItem& item : items) {
        mass += item.set.mass && item.set.centre ? item.pieces * *item.set.mass : 0;
    }
    return mass;
}

/// What an error of 1 in the k-th figure of one piece does to the ten of the total.
std::array<Real, 10> Effect(const PlainItem& item, const PlainTotal& total, Real centred,
                            std::size_t k)
{
    std::array<Real, 10> effect{};
    effect[0] = k == 0 ? 1 : 0;
    RealMatrix inertia{};
    if (k >= 4) {
        std::array<Real, 6> one{};
        one[k - 4] = 1;
        inertia = Turned(FromSix(one), item.rotation);
    } else if (item.set.centre && total.centre) {
        const RealVector arm = Arm(item, total);
        RealVector moved{};
        if (k == 0) {
            moved = arm;
            for (std::size_t i = 0; i < 3; ++i) {
                effect[1 + i] = moved[i] * 1000 / centred;
            }
            inertia = Offset(arm, arm);
        } else {
            RealVector one{};
            one[k - 1] = 1;
            moved = Times(item.rotation, one);
            const Real mass = *item.set.mass;
            for (std::size_t i = 0; i < 3; ++i) {
                effect[1 + i] = mass * moved[i] / centred;
                moved[i] *= 2 * mass / 1000;
            }
            inertia = Offset(arm, moved);
        }
    }
    const auto six = Six(inertia);
    std::copy(six.begin(), six.end(), effect.begin() + 4);
    return effect;
}
} // namespace

PlainTotal PlainRules::Sum(const std::vector<PlainItem>& items)
{
    PlainTotal total;
    RealVector moment{};
    for (const PlainItem& item : items) {
        total.items += item.pieces;
        if (!item.set.mass) {
            total.missing += item.pieces;
            continue;
        }
        const Real mass = item.pieces * *item.set.mass;
        total.mass += mass;
        total.lower += item.pieces * item.set.lower;
        total.upper += item.pieces * item.set.upper;
        total.withoutInertia += item.set.inertia ? 0 : mass;
        total.withoutCentre += item.set.centre ? 0 : mass;
        if (item.set.centre) {
            const RealVector point = StandingAt(item);
            for (std::size_t i = 0; i < 3; ++i) {
                moment[i] += mass * point[i];
            }
        }
    }
    if (total.mass == 0) {
        return total;
    }
    if (const Real centred = CentredMass(items); centred != 0) {
        total.centre = {moment[0] / centred, moment[1] / centred, moment[2] / centred};
    } else if (total.withoutInertia != 0) {
        return total; // masses that stand nobody knows where, some of which are no known points
    }
    total.inertia.emplace();
    for (const PlainItem& item : items) {
        if (!item.set.mass) {
            continue;
        }
        const auto own = item.set.inertia ? Six(Turned(*item.set.inertia, item.rotation))
                                          : std::array<Real, 6>{};
        std::array<Real, 6> offset{};
        if (item.set.centre && total.centre) {
            const RealVector arm = Arm(item, total);
            offset = Six(Offset(arm, arm));
        }
        for (std::size_t k = 0; k < 6; ++k) {
            (*total.inertia)[k] += item.pieces * (own[k] + *item.set.mass * offset[k]);
        }
    }
    return total;
}

bool PlainRules::SharesErrors(const PlainItem& item, bool apart) const
{
    return !apart && m_product.parts[item.part].errors != ErrorRule::Apart;
}

std::array<Real, 10> PlainRules::Sigmas(const std::vector<PlainItem>& items, bool apart) const
{
    const PlainTotal total = Sum(items);
    const Real centred = CentredMass(items);
    std::array<Real, 10> squares{};
    std::map<std::pair<std::uint32_t, std::int32_t>, std::array<std::array<Real, 10>, 10>> shared;
    for (const PlainItem& item : items) {
        if (!item.set.mass) {
            continue;
        }
        for (std::size_t k = 0; k < 10; ++k) {
            const auto effect = Effect(item, total, centred, k);
            for (std::size_t i = 0; i < 10; ++i) {
                const Real error = effect[i] * item.set.sigmas[k];
                if (SharesErrors(item, apart)) {
                    shared[{item.part, item.ownUse}][k][i] += item.pieces * error;
                } else {
                    squares[i] += item.pieces * error * error;
                }
            }
        }
    }
    for (const auto& [part, errors] : shared) {
        for (const auto& error : errors) {
            for (std::size_t i = 0; i < 10; ++i) {
                squares[i] += error[i] * error[i];
            }
        }
    }
    for (Real& square : squares) {
        square = std::sqrt(square);
    }
    return squares;
}

Deviations PlainRules::RootSumSquare(const std::vector<PlainItem>& items, bool apart) const
{
    std::map<std::pair<std::uint32_t, std::int32_t>, std::array<Real, 2>> shared;
    std::array<Real, 2> squares{};
    for (const PlainItem& item : items) {
        const std::array<Real, 2> sides{item.set.lower, item.set.upper};
        for (std::size_t i = 0; i < 2; ++i) {
            if (SharesErrors(item, apart)) {
                shared[{item.part, item.ownUse}][i] += item.pieces * sides[i];
            } else {
                squares[i] += item.pieces * sides[i] * sides[i];
            }
        }
    }
    for (const auto& [part, sides] : shared) {
        squares[0] += sides[0] * sides[0];
        squares[1] += sides[1] * sides[1];
    }
    return {static_cast<double>(std::sqrt(squares[0])), static_cast<double>(std::sqrt(squares[1]))};
}
} // namespace wbtest
