#include "PositionReader.h"

#include "TypedForms.h"
#include "WBNumbers.h"

#include <climits>
#include <cmath>

namespace wb
{
std::string PositionReader::NameOf(const Use& use) const
{
    return m_product.parts[use.parent].identifier + "/" +
           (use.instance.empty() ? m_product.parts[use.part].identifier : use.instance);
}

void PositionReader::Read(Use& use)
{
    ReadQuantity(use);
    ReadRotation(use);
    ReadShift(use);
}

void PositionReader::ReadQuantity(Use& use)
{
    if (!m_row.Filled(Column::Quantity)) {
        return;
    }
    const auto quantity = ReadInteger(m_row.Cell(Column::Quantity));
    if (!quantity || *quantity < 1 || *quantity > INT_MAX) {
        m_row.Wrong(Column::Quantity, "a whole number from 1");
        return;
    }
    m_keeper.Choose(use.quantity, static_cast<int>(*quantity), use.lines,
                    m_row.Statement(Fact::Quantity, Column::Quantity));
}

void PositionReader::ReadShift(Use& use)
{
    constexpr std::array kShift{Column::X, Column::Y, Column::Z};
    if (!m_row.AnyFilled(Column::X, Column::Z)) {
        return;
    }
    std::array<double, 3> shift{};
    bool complete = true;
    for (std::size_t i = 0; i < kShift.size(); ++i) {
        if (!m_row.Filled(kShift[i])) {
            m_row.Complain(kShift[i], "the cell is blank, expected x, y and z or none of them");
        }
        const auto value = m_row.Stored(kShift[i]);
        complete = complete && value;
        shift[i] = value.value_or(0.0);
    }
    if (!complete) {
        return;
    }
    if (use.positionStated && !AreSamePlace(use.placement.shift, shift)) {
        m_row.Complain(Column::Instance, Quoted(use.instance) + " has another position in line " +
                                             std::to_string(use.lines.LineOf(Fact::Position)) +
                                             "; expected an instance name once in its parent");
        return;
    }
    if (!use.positionStated) {
        use.positionStated = true;
        use.placement.shift = shift;
        use.lines.State(Fact::Position, m_row.Line());
        for (const Column column : kShift) {
            KeepTyped(use.typed, ColumnName(column), m_row.Cell(column), m_row.UnitOf(column));
        }
    }
}

void PositionReader::ReadRotation(Use& use)
{
    const bool angles = m_row.AnyFilled(Column::Rx, Column::Rz);
    const bool matrix = m_row.AnyFilled(Column::R11, Column::R33);
    if (angles && matrix) {
        m_row.Complain(Column::Rx, "angles beside r11 to r33, expected one of the two");
        return;
    }
    if (!angles && !matrix) {
        return;
    }
    const auto rotation = angles ? ReadAngles() : ReadMatrix(use);
    if (!rotation) {
        return;
    }
    if (use.rotationStated && !AreSameTurn(use.placement.rotation, *rotation)) {
        m_row.Complain(Column::Instance, Quoted(use.instance) + " is turned another way in line " +
                                             std::to_string(use.lines.LineOf(Fact::Rotation)) +
                                             "; expected an instance name once in its parent");
    } else if (!use.rotationStated) {
        use.rotationStated = true;
        use.placement.rotation = *rotation;
        use.lines.State(Fact::Rotation, m_row.Line());
        for (auto column = Column::Rx; column <= Column::R33; column = Next(column)) {
            if (m_row.Filled(column)) {
                KeepTyped(use.typed, ColumnName(column), m_row.Cell(column), m_row.UnitOf(column));
            }
        }
        if (Determinant(*rotation) < 0.0) {
            m_summary.oppositeHands.push_back(NameOf(use) + " (line " +
                                              std::to_string(m_row.Line()) + ")");
        }
    }
}

std::optional<Placement::Matrix> PositionReader::ReadAngles()
{
    // Beyond this a turn of whole degrees is lost in the rounding, and then in infinity.
    constexpr double kMostDegrees = 1e9;
    constexpr std::array kAngles{Column::Rx, Column::Ry, Column::Rz};
    std::array<double, 3> degrees{};
    for (std::size_t i = 0; i < kAngles.size(); ++i) {
        const auto typed = m_row.Typed(kAngles[i]);
        if (m_row.Filled(kAngles[i]) && !typed) {
            return std::nullopt;
        }
        degrees[i] = InDegrees(typed.value_or(0.0), m_row.UnitOf(kAngles[i]));
        if (!(std::abs(degrees[i]) <= kMostDegrees)) {
            m_row.Wrong(kAngles[i], "a smaller angle");
            return std::nullopt;
        }
    }
    return RotationFromAngles(degrees[0], degrees[1], degrees[2]);
}

std::optional<Placement::Matrix> PositionReader::ReadMatrix(const Use& use)
{
    constexpr double kLargestOff = 1e-5;
    Placement::Matrix matrix{};
    for (std::size_t i = 0; i < 9; ++i) {
        const Column column = Next(Column::R11, i);
        if (!m_row.Filled(column)) {
            m_row.Complain(column, "the cell is blank, expected all of r11 to r33 or none of them");
            return std::nullopt;
        }
        const auto value = m_row.Typed(column);
        if (!value) {
            return std::nullopt;
        }
        matrix[i / 3][i % 3] = *value;
    }
    const double off = OffOrthogonal(matrix);
    if (!(off <= kLargestOff)) {
        m_row.Complain(Column::R11,
                       "r11 to r33 of " + NameOf(use) + " are off a rotation by " +
                           WriteNumber(off) +
                           ", expected columns of length 1 at right angles within 1e-5");
        return std::nullopt;
    }
    return matrix;
}
} // namespace wb
