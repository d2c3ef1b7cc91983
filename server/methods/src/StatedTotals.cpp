#include "StatedTotals.h"

#include "ShownWeight.h"
#include "WBCompute.h"
#include "WBProductGraph.h"

namespace wb
{
namespace
{
/// What the values below an assembly add up to, whatever is active at the assembly itself.
Total SumBelow(const Store& store, const StatedTotal& stated)
{
    const RowId part = store.FindPart(stated.identifier, stated.version)->id;
    const ProductGraph graph(store.ReadProduct(part), store.MassTypes());
    ComputeOptions options;
    options.derived = true;
    options.validate = false;
    return Compute(graph, AskedPath{}, options).total;
}

std::string Compared(const std::string& byTable, const std::string& bySum,
                     const std::string& difference)
{
    return byTable + " by the table, " + bySum + " by the sum, difference " + difference;
}
} // namespace

std::vector<std::string> CompareTotals(const Store& store, const std::vector<StatedTotal>& totals)
{
    std::vector<std::string> sentences;
    for (const StatedTotal& stated : totals) {
        const Total sum = SumBelow(store, stated);
        const std::string subject = "total of " + stated.identifier + " " + stated.version +
                                    " (line " + std::to_string(stated.line) + "): ";
        if (IsKnown(stated.mass)) {
            sentences.push_back(
                subject +
                Compared(ShownMass(stated.mass),
                         sum.HasMass() ? ShownMass(sum.body.mass) : "unknown",
                         sum.HasMass() ? ShownMass(sum.body.mass - stated.mass) : "unknown"));
        }
        if (IsKnown(stated.centre[0])) {
            std::array<double, 3> off{};
            for (std::size_t i = 0; i < off.size(); ++i) {
                off[i] = sum.body.centre[i] - stated.centre[i];
            }
            sentences.push_back(subject + "centre " +
                                Compared(ShownPlace(stated.centre),
                                         sum.HasCentre() ? ShownPlace(sum.body.centre) : "unknown",
                                         sum.HasCentre() ? ShownPlace(off) : "unknown"));
        }
    }
    return sentences;
}
} // namespace wb
