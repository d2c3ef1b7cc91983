#include "StoredPlace.h"

#include "ComputePlace.h"

#include <utility>

std::string StoredPlace::Path() const
{
    std::string path = root.identifier;
    for (const wb::UseLine& use : uses) {
        path += '/' + use.instance;
    }
    return path;
}

std::optional<StoredPlace> FindStoredPlace(const wb::Store& store, const std::string& path,
                                           const std::string& version, std::string& problem)
{
    const auto root = FindComputeRoot(store, path, version, problem);
    if (!root) {
        return std::nullopt;
    }
    StoredPlace place{root->root, {}};
    for (std::string_view below = root->below; !below.empty();) {
        const wb::RowId parent = place.Part().id;
        const std::string name = TakeName(below, [&](const std::string& candidate) {
            return store.FindUse(parent, candidate).has_value();
        });
        auto use = store.FindUse(parent, name);
        if (!use) {
            std::vector<std::string> names;
            for (const wb::UseLine& line : store.UsesOf(parent)) {
                names.push_back(line.instance);
            }
            problem = NoInstance(place.Path(), name, std::move(names));
            return std::nullopt;
        }
        place.uses.push_back(*std::move(use));
    }
    return place;
}
