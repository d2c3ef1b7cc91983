#pragma once

#include "FactKeeper.h"
#include "TableRow.h"
#include "WBProduct.h"

#include <optional>
#include <string_view>
#include <vector>

namespace wb
{
/// Reads the columns "p:NAME" and "i:NAME" of a row: what users say of parts and uses beyond the
/// fixed columns.
class PropertyReader
{
public:
    PropertyReader(TableRow& row, FactKeeper& keeper) : m_row(row), m_keeper(keeper) {}

    /// use: of the row; null where it only states facts.
    void Read(Part& part, Use* use);

private:
    void State(std::vector<Property>& properties, const PropertyColumn& column,
               std::string_view text);
    std::optional<Property> ReadCell(const PropertyColumn& column, std::string_view text);

    TableRow& m_row;
    FactKeeper& m_keeper;
};
} // namespace wb
