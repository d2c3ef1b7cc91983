#include "PickedPart.h"

namespace wb
{
WalkResult WalkTo(const Store& store, std::string_view root,
                  const std::vector<std::string_view>& instances)
{
    WalkResult result;
    const auto start = store.FindRoot(root);
    if (!start) {
        result.missing = root;
        return result;
    }
    result.hasRoot = true;
    PickedPart picked{*start, {}, {}};
    for (const std::string_view instance : instances) {
        auto use = store.FindUse(picked.Part().id, instance);
        if (!use) {
            result.missing = instance;
            return result;
        }
        picked.placement = picked.placement * use->placement;
        picked.uses.push_back(std::move(*use));
        ++result.found;
    }
    result.picked = std::move(picked);
    return result;
}

std::vector<std::string> LeafSidePath(const PickedPart& picked)
{
    std::vector<std::string> path;
    for (std::size_t i = picked.uses.size(); i > 1; --i) {
        path.push_back(picked.uses[i - 2].instance);
    }
    return path;
}
} // namespace wb
