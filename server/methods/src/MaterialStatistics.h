#pragma once

#include "Request.h"
#include "WBStatistics.h"

#include <vector>

namespace wb
{
/// What a product is made of as records carry it, one entry for each material and dimension: a
/// count, the names, then dimension (3 volume, 2 surface) and mass in kg of each, then the
/// densities. Shares of one material that differ in density alone become one, whose density is
/// said to be 0. Largest first, then by name.
void AddMaterialStatistics(AnswerText& answer, const std::vector<MaterialShare>& shares);
} // namespace wb
