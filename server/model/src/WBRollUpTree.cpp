#include "WBRollUpTree.h"

#include "BodyMerge.h"

#include <vector>

namespace wb
{
namespace
{
// Placed children are kept together until so many are there; that stays in the fastest cache.
constexpr std::size_t kAtOnce = 64;

/// Asks for a record before its turn. The sweep runs backwards over blocks that are read forwards,
/// which the processor does not foresee; without this it waits for memory half of the time.
template <typename Record>
void AskAhead(std::span<Record> records, std::size_t current)
{
    constexpr std::size_t kAhead = 48;
    constexpr std::size_t kCacheLine = 64;
    if (current < kAhead) {
        return;
    }
    const auto* bytes = reinterpret_cast<const char*>(&records[current - kAhead]);
    __builtin_prefetch(bytes);
    __builtin_prefetch(bytes + kCacheLine);
}

Body SumOfChildren(std::span<const Body> records, std::span<const std::uint32_t> sizes,
                   std::size_t parent)
{
    return SumAboutCommonCentre(records.data(), parent + 1, parent + sizes[parent],
                                [&](std::size_t child) { return child + sizes[child]; });
}
} // namespace

void RollUpTree(std::span<Body> records, std::span<const std::uint32_t> sizes)
{
    // Backwards, every record comes after all that stands below it.
    for (std::size_t i = records.size(); i-- > 0;) {
        AskAhead(records, i);
        if (sizes[i] > 1) {
            records[i] = SumOfChildren(records, sizes, i);
        }
    }
}

void RollUpTree(std::span<Body> records, std::span<const std::uint32_t> sizes,
                std::span<const Placement> placements)
{
    std::vector<Body> children(kAtOnce);
    for (std::size_t i = records.size(); i-- > 0;) {
        AskAhead(records, i);
        AskAhead(placements, i);
        if (sizes[i] == 1) {
            continue;
        }
        std::size_t count = 0;
        const std::size_t end = i + sizes[i];
        for (std::size_t child = i + 1; child < end;) {
            if (count + 2 > kAtOnce) {
                children[0] = SumAboutCommonCentre(children.data(), 0, count, NextIndex());
                count = 1;
            }
            const std::size_t next = child + sizes[child];
            if (next < end) {
                PlaceTwo(records[child], placements[child], records[next], placements[next],
                         &children[count]);
                count += 2;
                child = next + sizes[next];
            } else {
                children[count++] = PlacedBody(records[child], placements[child]);
                child = next;
            }
        }
        records[i] = SumAboutCommonCentre(children.data(), 0, count, NextIndex());
    }
}

void RollUpAbove(std::span<Body> records, std::span<const std::uint32_t> sizes,
                 std::span<const std::uint32_t> parents, std::uint32_t changed)
{
    while (parents[changed] != changed) {
        changed = parents[changed];
        records[changed] = SumOfChildren(records, sizes, changed);
    }
}
} // namespace wb
