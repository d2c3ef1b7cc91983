#pragma once

#include "WBProduct.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wb
{
/// The table form of a product: root and everything below it, depth first. The facts of a part
/// stand at its first use, its further mass types and revisions under it. A number stands as it was
/// typed, in its unit; one that nobody typed, or that was changed since, in the shortest form that
/// reads back alike. Reading the table gives the same product, and writing that one the same bytes.
///
/// The decimal mark is the one that most numbers were typed with; with a comma semicolons separate
/// the cells.
std::string WriteProductTable(const Product& product, std::uint32_t root);

/// The table form of mass types.
std::string WriteMassTypeTable(const std::vector<MassType>& types);
} // namespace wb
