#pragma once

#include "Selection.h"
#include "WBCompute.h"
#include "Walk.h"

#include <string>
#include <vector>

namespace wb
{
/// Everything that a reader of the result should be told, sums first, then items by how much they
/// spoil the result.
std::vector<std::string> WarningsOf(const Selection& selection, const Walk& walk,
                                    const std::vector<double>& pieces, const ComputeResult& result);
} // namespace wb
