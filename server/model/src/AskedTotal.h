#pragma once

#include "WBCompute.h"
#include "Walk.h"

#include <cstdint>
#include <string>

namespace wb
{
/// Which values count by the request's precision. Returns an empty text, or why there is no such
/// rule.
std::string RuleOf(const ProductGraph& graph, const ComputeOptions& options, WalkRule& rule);

/// The walk's total, without rests of rounding and with what nobody knows as unknown: nothing has a
/// mass, the node's own values lack a figure that nobody lends, or all that was summed up are
/// points that stand nobody knows where.
Body KnownTotal(const Walk& walk, std::uint32_t number, const Counts& counts);
} // namespace wb
