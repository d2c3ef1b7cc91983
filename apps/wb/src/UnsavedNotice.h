#pragma once

#include "StoredPlace.h"
#include "WBStore.h"

#include <cstddef>
#include <string>

/// What figures are of.
enum class FiguresOf
{
    Place,    ///< the part at a place, with all below it
    PartAlone ///< its own values
};

/// How many unsaved changes of a user count in the figures of a place: those of its own part and
/// its own use, and of the parts and uses below. Nothing is read where he has none.
std::size_t CountUnsavedWithin(const wb::Store& store, const std::string& user,
                               const StoredPlace& place, FiguresOf figures);

/// Tells a user on the standard error that the figures of a place hold what he has changed and not
/// saved, so that nobody hands on figures that others cannot see. Nothing where they do not.
void TellOfUnsaved(const wb::Store& store, const std::string& user, const StoredPlace& place,
                   FiguresOf figures = FiguresOf::Place);
