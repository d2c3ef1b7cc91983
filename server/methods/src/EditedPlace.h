#pragma once

#include "PickedPart.h"

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
};

/// Reads has-instance, instance, part, version, a count and so many instance names from the parent
/// up, root; and walks there. Throws RequestError.
EditedPlace ReadEditedPlace(const Store& store, Request& request);
} // namespace wb
