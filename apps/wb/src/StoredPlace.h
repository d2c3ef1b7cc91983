#pragma once

#include "WBStore.h"

#include <optional>
#include <string>
#include <vector>

/// A place in a product as the database holds it: where a path leads, without the product being
/// read.
struct StoredPlace
{
    wb::PartLine root;
    std::vector<wb::UseLine> uses; ///< from the root down; none: the root itself

    const wb::PartLine& Part() const { return uses.empty() ? root : uses.back().part; }
    /// "LA1/WNG-000.1/WNG-200R.1".
    std::string Path() const;
};

/// Walks "ROOT/INSTANCE/INSTANCE". Of several versions of the root the one that was stored last, or
/// the given one. Nothing, with a sentence that names what there is instead.
std::optional<StoredPlace> FindStoredPlace(const wb::Store& store, const std::string& path,
                                           const std::string& version, std::string& problem);
