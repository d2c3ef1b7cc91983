#include "WBProduct.h"

#include "WBKnown.h"

#include <algorithm>

namespace wb
{
bool ValueSet::HasSomething() const
{
    return std::ranges::any_of(numbers, IsKnown);
}

const char* PartTypeName(PartType type)
{
    constexpr std::array kNames{"", "product", "assembly", "part", "adjustment"};
    return kNames[static_cast<std::size_t>(type)];
}

std::vector<std::vector<std::uint32_t>> Product::UsesByParent() const
{
    std::vector<std::vector<std::uint32_t>> lists(parts.size());
    for (std::uint32_t use = 0; use < uses.size(); ++use) {
        lists[uses[use].parent].push_back(use);
    }
    return lists;
}

std::vector<std::uint32_t> Product::Roots() const
{
    std::vector<bool> used(parts.size(), false);
    for (const Use& use : uses) {
        used[use.part] = true;
    }
    std::vector<std::uint32_t> roots;
    for (std::uint32_t part = 0; part < parts.size(); ++part) {
        if (!used[part]) {
            roots.push_back(part);
        }
    }
    return roots;
}

std::vector<MassType> ShippedMassTypes()
{
    using enum MassType::Kind;
    return {
        {"Target", 0, Goal, "", 0, 0, "mass that shall not be passed; never counts as a status"},
        {"Estimated", 10, Claim, "estimated", 10, 20, "from similar products or first sizing"},
        {"Calculated", 20, Claim, "calculated", 3, 5, "from a model or a drawing"},
        {"Supplier", 25, Claim, "calculated", 2, 3, "stated by the maker of an existing item"},
        {"Weighed", 30, Claim, "actual", 0.5, 0.5,
         "from a scale or a mass properties measurement"}};
}

const ValueSet* FindSet(const std::vector<ValueSet>& sets, std::string_view massType)
{
    const auto found = std::ranges::find(sets, massType, &ValueSet::massType);
    return found == sets.end() ? nullptr : &*found;
}

PartType EffectiveType(PartType stated, bool isUsed, bool hasUses)
{
    if (stated != PartType::Unstated) {
        return stated;
    }
    if (!isUsed) {
        return PartType::Product;
    }
    return hasUses ? PartType::Assembly : PartType::Part;
}

std::vector<std::uint32_t> FindCycle(const std::vector<std::vector<std::uint32_t>>& edges)
{
    enum class State : std::uint8_t
    {
        Unseen,
        OnPath,
        Done
    };
    std::vector<State> states(edges.size(), State::Unseen);
    std::vector<std::uint32_t> path;
    std::vector<std::size_t> next; // per node of the path, which edge to follow now
    for (std::uint32_t start = 0; start < edges.size(); ++start) {
        if (states[start] != State::Unseen) {
            continue;
        }
        path.assign(1, start);
        next.assign(1, 0);
        states[start] = State::OnPath;
        while (!path.empty()) {
            const std::uint32_t node = path.back();
            if (next.back() == edges[node].size()) {
                states[node] = State::Done;
                path.pop_back();
                next.pop_back();
                continue;
            }
            const std::uint32_t child = edges[node][next.back()++];
            if (states[child] == State::OnPath) {
                path.erase(path.begin(), std::ranges::find(path, child));
                path.push_back(child);
                return path;
            }
            if (states[child] == State::Unseen) {
                states[child] = State::OnPath;
                path.push_back(child);
                next.push_back(0);
            }
        }
    }
    return {};
}
} // namespace wb
