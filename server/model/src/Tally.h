#pragma once

#include "Selection.h"
#include "WBCompute.h"
#include "WBStatistics.h"
#include "Walk.h"

#include <functional>
#include <vector>

namespace wb
{
/// How many pieces of each node stand below the asked node, where the walk came: counted from the
/// top down, so that a node that is used a million times costs no more than one that is used once.
std::vector<double> PiecesOf(const Selection& selection, const Walk& walk);

/// codeAbove: the code of the nearest node above the asked one; -1: none.
Statistics Tally(const Selection& selection, const Walk& walk, const AskedRule& asked,
                 const std::vector<double>& pieces, std::int32_t codeAbove);

/// The sums below the assemblies that are wanted, from the asked node down, the nearest first; see
/// ComputeResult::sums.
std::vector<ComputeResult::MadeSum> MakeSums(const Selection& selection, const Walk& walk,
                                             const std::function<bool(std::uint32_t)>& wantsSum,
                                             const std::function<bool()>& cancelled);
} // namespace wb
