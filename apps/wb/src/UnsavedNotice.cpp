#include "UnsavedNotice.h"

#include <algorithm>
#include <cstdio>
#include <unordered_set>
#include <vector>

namespace
{
using Rows = std::unordered_set<wb::RowId>;

/// Adds the parts below a part, and the uses between them.
void AddBelow(const wb::Store& store, wb::RowId top, Rows& parts, Rows& uses)
{
    const wb::StoreMoment moment(store);
    std::vector<wb::RowId> left{top};
    while (!left.empty()) {
        const wb::RowId part = left.back();
        left.pop_back();
        for (const wb::UseLine& use : store.UsesOf(part)) {
            uses.insert(use.id);
            if (parts.insert(use.part.id).second && use.part.hasUses) {
                left.push_back(use.part.id);
            }
        }
    }
}
} // namespace

std::size_t CountUnsavedWithin(const wb::Store& store, const std::string& user,
                               const StoredPlace& place, FiguresOf figures)
{
    const std::vector<wb::PendingState> changes = store.PendingChanges(user);
    if (changes.empty()) {
        return 0;
    }
    Rows parts{place.Part().id};
    Rows uses;
    if (figures == FiguresOf::Place) {
        AddBelow(store, place.Part().id, parts, uses);
    }
    if (!place.uses.empty()) {
        uses.insert(place.uses.back().id);
    }
    const auto count = std::ranges::count_if(changes, [&](const wb::PendingState& change) {
        return (change.kind == wb::OwnerKind::Part ? parts : uses).contains(change.owner);
    });
    return static_cast<std::size_t>(count);
}

void TellOfUnsaved(const wb::Store& store, const std::string& user, const StoredPlace& place,
                   FiguresOf figures)
{
    const std::size_t count = CountUnsavedWithin(store, user, place, figures);
    if (count > 0) {
        std::fprintf(stderr,
                     "wb: The figures include %zu unsaved change%s of %s; wb pending lists %s.\n",
                     count, count == 1 ? "" : "s", user.c_str(), count == 1 ? "it" : "them");
    }
}
