#pragma once

#include "ComputeReport.h"

#include <string>

/// A computation as one CSV table, with units in its headings: each row says in the columns "row"
/// and "key" what it tells. Unknown figures are empty cells, all others read back exactly.
std::string ComputeAsCsv(const ComputeReport& report);
