#pragma once

#include "StoredPlace.h"
#include "WBStore.h"

#include <cstddef>
#include <string>

/// How many unsaved changes of a user count in the figures of a place: those of parts and uses
/// below it, of its own part, and of its own use. Nothing is read where he has none.
std::size_t CountUnsavedWithin(const wb::Store& store, const std::string& user,
                               const StoredPlace& place);

/// Tells a user on the standard error that the figures of a place hold what he has changed and not
/// saved, so that nobody hands on figures that others cannot see. Nothing where they do not.
void TellOfUnsaved(const wb::Store& store, const std::string& user, const StoredPlace& place);
