#include "EditedPlace.h"

#include "PickedNode.h"
#include "Request.h"

namespace wb
{
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
