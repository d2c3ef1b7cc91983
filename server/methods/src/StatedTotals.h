#pragma once

#include "WBProductTable.h"
#include "WBStore.h"

#include <string>
#include <vector>

namespace wb
{
/// A sentence for each figure that a table gives for an assembly: what the table says, what the sum
/// of the active values below is, and the difference. Throws StoreError.
std::vector<std::string> CompareTotals(const Store& store, const std::vector<StatedTotal>& totals);
} // namespace wb
