#pragma once

#include "PickedPart.h"

#include <string>
#include <vector>

namespace wb
{
class Request;

/// A place whose values somebody looks at or changes.
struct EditedPlace
{
    /// A density or a material that is set here belongs to the part, wherever it is used.
    bool hasInstance = false;
    PickedPart picked;

    bool HasUse() const { return !picked.uses.empty(); }
    RowId PartRow() const { return picked.Part().id; }
    RowId UseRow() const { return picked.uses.back().id; } // where there is one
    /// What a user has pending of the part and of its use.
    std::vector<PendingState> PendingOf(const Store& store, const std::string& user) const;
};

/// Reads has-instance, instance, part, version, a count and so many instance names from the parent
/// up, root; and walks there. Throws RequestError.
EditedPlace ReadEditedPlace(const Store& store, Request& request);
} // namespace wb
