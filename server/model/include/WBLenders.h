#pragma once

#include "WBProductGraph.h"

#include <string>
#include <string_view>

namespace wb
{
/// Who completes one set of values in a sum: the name of a mass type, or "Computed" for the active
/// sum of what stands below; empty: nobody, or nobody needs to.
struct Lenders
{
    std::string centre;
    std::string inertia;
};

/// A set without a mass never counts in a sum, so that nobody completes it.
Lenders LendersOf(const ProductGraph& graph, std::uint32_t node, std::string_view massType);
} // namespace wb
