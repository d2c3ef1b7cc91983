#pragma once

#include "Selection.h"
#include "WBCompute.h"
#include "Walk.h"

#include <string>
#include <vector>

namespace wb
{
/// A name as it may stand in a warning: "- " begins a line there, and clients count on it.
std::string WithoutLineMark(std::string name);

/// Everything that a reader of the result should be told, sums first, then items by how much they
/// spoil the result.
std::vector<std::string> WarningsOf(const Selection& selection, const Walk& walk,
                                    const std::vector<double>& pieces, const ComputeResult& result);
} // namespace wb
