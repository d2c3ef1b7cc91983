#pragma once

#include "WBStore.h"

#include <map>
#include <string>
#include <vector>

namespace wb
{
/// "381.35925 kg at 930.082, -3.070, -195.479 mm" by "LA1 A": the active mass and centre of gravity
/// of every product root, in the root's axes. It computes them from what is stored and stores
/// nothing. Throws StoreError.
std::map<std::string, std::string> WeighRoots(const Store& store);

/// A sentence a root, from what WeighRoots told before and after a change. A root that is not there
/// is "not there".
std::vector<std::string> CompareWeights(const std::map<std::string, std::string>& before,
                                        const std::map<std::string, std::string>& after);
} // namespace wb
