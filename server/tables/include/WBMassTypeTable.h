#pragma once

#include "WBProduct.h"

#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// The rows of a table of mass types: mass_type, order, kind, category, lower_pct, upper_pct,
/// meaning, in any order of columns.
struct MassTypeTableResult
{
    std::vector<MassType> types;
    std::vector<std::string> errors; // ready sentences; empty: the table was read
};

MassTypeTableResult ReadMassTypeTable(std::string_view content, const std::string& name);
MassTypeTableResult ReadMassTypeFile(const std::string& path);
} // namespace wb
