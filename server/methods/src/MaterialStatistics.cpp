#include "MaterialStatistics.h"

#include <algorithm>

namespace wb
{
namespace
{
std::vector<MaterialShare> WithoutDensities(const std::vector<MaterialShare>& shares)
{
    std::vector<MaterialShare> merged;
    for (const MaterialShare& share : shares) {
        const auto same = std::ranges::find_if(merged, [&](const MaterialShare& other) {
            return other.material == share.material && other.dimension == share.dimension;
        });
        if (same == merged.end()) {
            merged.push_back(share);
            continue;
        }
        same->mass += share.mass;
        same->density = 0.0;
    }
    std::ranges::sort(merged, [](const MaterialShare& left, const MaterialShare& right) {
        return left.mass != right.mass ? left.mass > right.mass : left.material < right.material;
    });
    return merged;
}
} // namespace

void AddMaterialStatistics(AnswerText& answer, const std::vector<MaterialShare>& shares)
{
    const std::vector<MaterialShare> entries = WithoutDensities(shares);
    answer.Add(entries.size());
    for (const MaterialShare& entry : entries) {
        answer.Add(entry.material);
    }
    for (const MaterialShare& entry : entries) {
        answer.Add(static_cast<int>(entry.dimension)).Add(entry.mass);
    }
    for (const MaterialShare& entry : entries) {
        answer.Add(entry.density);
    }
}
} // namespace wb
