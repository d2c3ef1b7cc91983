#include "EditedPlace.h"

#include "PickedNode.h"
#include "Request.h"

#include <algorithm>
#include <iterator>

namespace wb
{
std::vector<PendingState> EditedPlace::PendingOf(const Store& store, const std::string& user) const
{
    std::vector<PendingState> pending = store.PendingChangesOf(user, OwnerKind::Part, PartRow());
    if (HasUse()) {
        std::ranges::move(store.PendingChangesOf(user, OwnerKind::Use, UseRow()),
                          std::back_inserter(pending));
    }
    return pending;
}

EditedPlace ReadEditedPlace(const Store& store, Request& request)
{
    EditedPlace edited;
    edited.hasInstance = request.Flag("has-instance");
    PlaceFields place;
    place.instance = request.Any("instance");
    place.part = request.Text("part");
    place.version = request.Text("version");
    const std::int64_t count = request.Choice("path count", kDeepest);
    for (std::int64_t i = 0; i < count; ++i) {
        place.path.push_back(request.Text("path"));
    }
    place.root = request.Text("root");
    edited.picked = FindPicked(store, place);
    return edited;
}
} // namespace wb
