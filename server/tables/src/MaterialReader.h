#pragma once

#include "FactKeeper.h"
#include "TableRow.h"
#include "WBProduct.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace wb
{
/// Why a row that speaks of one use is refused when it names none.
inline constexpr const char* kNeedsUse =
    "the row says instance, expected parent and instance in the same row";

/// Reads what a row says a part, or one use of it, is made of.
class MaterialReader
{
public:
    MaterialReader(TableRow& row, FactKeeper& keeper, Product& product)
        : m_row(row), m_keeper(keeper), m_product(product)
    {}

    /// use: of the row; null where it only states facts.
    void Read(Part& part, Use* use);
    /// The material of that name as the table states it so far, or null.
    const Material* Find(const std::string& name) const;

private:
    void ReadDensities(Part& part, Use* use);
    void StateDensity(Material& material);

    TableRow& m_row;
    FactKeeper& m_keeper;
    Product& m_product;
    std::unordered_map<std::string, std::uint32_t> m_positions; // in Product::materials, by name
};
} // namespace wb
