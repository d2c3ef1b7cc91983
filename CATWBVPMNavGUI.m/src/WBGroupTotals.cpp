#include "WBGroupTotals.h"

namespace
{

using Vector = std::array<double, 3>;

void AddMoment(Vector& moment, double mass, const Vector& centre)
{
    for (std::size_t axis = 0; axis < moment.size(); ++axis) {
        moment[axis] += mass * centre[axis];
    }
}

void CountWhatIsMissing(WBGroupTotals& totals, const WBGroupMember& member)
{
    ++totals.items;
    if (!member.mass) {
        ++totals.withoutMass;
    } else if (!member.centre) {
        ++totals.withoutCentre;
    } else if (member.isIncomplete) {
        ++totals.incomplete;
    }
}

} // namespace

WBGroupTotals WBAddUp(const std::vector<WBGroupMember>& members, std::optional<double> rootMass)
{
    WBGroupTotals totals;
    Vector moment{};
    double massWithCentre = 0.0;
    for (const WBGroupMember& member : members) {
        CountWhatIsMissing(totals, member);
        if (!member.mass) {
            continue;
        }
        totals.mass = totals.mass.value_or(0.0) + *member.mass;
        if (member.centre) {
            massWithCentre += *member.mass;
            AddMoment(moment, *member.mass, *member.centre);
        }
    }
    if (massWithCentre != 0.0) {
        totals.centre = Vector{moment[0] / massWithCentre, moment[1] / massWithCentre,
                               moment[2] / massWithCentre};
    }
    if (totals.mass && rootMass && *rootMass != 0.0) {
        totals.share = *totals.mass / *rootMass;
    }
    return totals;
}

std::vector<int> WBCoveringRows(const WBGroupFigures& figures, const std::vector<int>& rows)
{
    constexpr int kNone = WBGroupFigures::kNone;
    std::vector<bool> isInGroup(static_cast<std::size_t>(figures.Count()));
    for (const int row : rows) {
        if (row != kNone) {
            isInGroup[static_cast<std::size_t>(row)] = true;
        }
    }
    std::vector<int> covering;
    covering.reserve(rows.size());
    for (const int row : rows) {
        int above = row == kNone ? kNone : figures.Parent(row);
        while (above != kNone && !isInGroup[static_cast<std::size_t>(above)]) {
            above = figures.Parent(above);
        }
        covering.push_back(above);
    }
    return covering;
}

WBGroupTotals WBTotalsOf(const WBGroupFigures& figures, const std::vector<int>& rows)
{
    const std::vector<int> covering = WBCoveringRows(figures, rows);
    std::vector<WBGroupMember> members;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const int row = rows[index];
        if (row != WBGroupFigures::kNone && covering[index] == WBGroupFigures::kNone) {
            members.push_back({figures.Mass(row), figures.Centre(row), figures.IsIncomplete(row)});
        }
    }
    return WBAddUp(members, figures.RootMass());
}
