#include "Moments.h"

#include <cstddef>

namespace wb
{
namespace
{
constexpr std::size_t kRows[6] = {0, 1, 2, 0, 0, 1};
constexpr std::size_t kColumns[6] = {0, 1, 2, 1, 2, 2};
} // namespace

std::array<double, 6> IntegralsOf(const Inertia& inertia)
{
    const double half = (inertia[0] + inertia[1] + inertia[2]) / 2.0;
    return {half - inertia[0], half - inertia[1], half - inertia[2],
            inertia[3],        inertia[4],        inertia[5]};
}

Inertia InertiaOf(const std::array<double, 6>& integrals)
{
    return {integrals[1] + integrals[2],
            integrals[0] + integrals[2],
            integrals[0] + integrals[1],
            integrals[3],
            integrals[4],
            integrals[5]};
}

MomentsMove::MomentsMove(const Placement::Matrix& rotation, const std::array<double, 3>& metres)
    : shift(metres), turn(rotation)
{
    const auto& r = rotation;
    for (std::size_t term = 0; term < 6; ++term) {
        const std::size_t i = kRows[term];
        const std::size_t j = kColumns[term];
        shiftTwice[term] = shift[i] * shift[j];
        for (std::size_t k = 0; k < 3; ++k) {
            shiftTurn[term][k] = shift[i] * r[j][k] + shift[j] * r[i][k];
        }
        for (std::size_t from = 0; from < 6; ++from) {
            const std::size_t a = kRows[from];
            const std::size_t b = kColumns[from];
            turnTwice[term][from] =
                a == b ? r[i][a] * r[j][a] : r[i][a] * r[j][b] + r[i][b] * r[j][a];
        }
    }
}

Moments MomentsMove::operator()(const Moments& moments) const
{
    return MomentsSum{1.0, *this}(moments);
}

Moments MomentsSum::operator()(const Moments& moments) const
{
    Moments moved{};
    moved[0] = pieces * moments[0];
    for (std::size_t i = 0; i < 3; ++i) {
        double& place = moved[1 + i];
        place = move.shift[i] * moments[0];
        for (std::size_t k = 0; k < 3; ++k) {
            place += move.turn[i][k] * moments[1 + k];
        }
    }
    for (std::size_t term = 0; term < 6; ++term) {
        double& integral = moved[4 + term];
        integral = move.shiftTwice[term] * moments[0];
        for (std::size_t k = 0; k < 3; ++k) {
            integral += move.shiftTurn[term][k] * moments[1 + k];
        }
        for (std::size_t k = 0; k < 6; ++k) {
            integral += move.turnTwice[term][k] * moments[4 + k];
        }
    }
    return moved;
}

void MomentsSum::Add(const MomentsSum& parent, const MomentsMove& use, double count)
{
    // The product of two lower triangular matrices of blocks.
    const MomentsMove& above = parent.move;
    pieces += count * parent.pieces;
    for (std::size_t i = 0; i < 3; ++i) {
        double place = above.shift[i];
        for (std::size_t k = 0; k < 3; ++k) {
            place += above.turn[i][k] * use.shift[k];
        }
        move.shift[i] += count * place;
        for (std::size_t j = 0; j < 3; ++j) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 3; ++k) {
                sum += above.turn[i][k] * use.turn[k][j];
            }
            move.turn[i][j] += count * sum;
        }
    }
    for (std::size_t term = 0; term < 6; ++term) {
        double fromMass = above.shiftTwice[term];
        for (std::size_t k = 0; k < 3; ++k) {
            fromMass += above.shiftTurn[term][k] * use.shift[k];
        }
        for (std::size_t k = 0; k < 6; ++k) {
            fromMass += above.turnTwice[term][k] * use.shiftTwice[k];
        }
        move.shiftTwice[term] += count * fromMass;
        for (std::size_t j = 0; j < 3; ++j) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 3; ++k) {
                sum += above.shiftTurn[term][k] * use.turn[k][j];
            }
            for (std::size_t k = 0; k < 6; ++k) {
                sum += above.turnTwice[term][k] * use.shiftTurn[k][j];
            }
            move.shiftTurn[term][j] += count * sum;
        }
        for (std::size_t j = 0; j < 6; ++j) {
            double sum = 0.0;
            for (std::size_t k = 0; k < 6; ++k) {
                sum += above.turnTwice[term][k] * use.turnTwice[k][j];
            }
            move.turnTwice[term][j] += count * sum;
        }
    }
}
} // namespace wb
