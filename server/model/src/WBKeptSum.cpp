#include "WBKeptSum.h"

#include "Walk.h"

#include <algorithm>
#include <cmath>

namespace wb
{
void SortByMass(std::vector<NamedShare>& shares)
{
    std::ranges::sort(shares, [](const NamedShare& left, const NamedShare& right) {
        return left.mass != right.mass ? left.mass > right.mass : left.name < right.name;
    });
}

Total TotalOf(const KeptSum& sum)
{
    Total total;
    total.counts = sum.counts;
    total.body = Finished(sum.firm, ApartIn(sum));
    if (sum.counts.IsWithoutAnyMass()) {
        total.body.mass = kUnknown;
    }
    return total;
}

Statistics StatisticsOf(const KeptSum& sum, const std::string& codeAbove)
{
    Statistics statistics;
    statistics.counts = sum.counts;
    statistics.materials = sum.materials;
    statistics.massTypes = sum.massTypes;
    statistics.codes = sum.codes;
    if (sum.withoutCode != 0.0) {
        const std::string name = codeAbove.empty() ? "(no code)" : codeAbove;
        const auto found = std::ranges::find(statistics.codes, name, &NamedShare::name);
        if (found == statistics.codes.end()) {
            statistics.codes.push_back({name, sum.withoutCode});
        } else {
            found->mass += sum.withoutCode;
        }
    }
    SortByMass(statistics.codes);
    statistics.growthAllowance = sum.growthAllowance;
    Deviations together = sum.ownSquares;
    for (const KeptSum::SharedErrors& shared : sum.sharedErrors) {
        together.lower += shared.sum.lower * shared.sum.lower;
        together.upper += shared.sum.upper * shared.sum.upper;
    }
    statistics.rss = {{std::sqrt(together.lower), std::sqrt(together.upper)},
                      {std::sqrt(sum.apartSquares.lower), std::sqrt(sum.apartSquares.upper)}};
    return statistics;
}
} // namespace wb
