#pragma once

#include "FactKeeper.h"
#include "TableRow.h"
#include "WBProduct.h"
#include "WBProductTable.h"

#include <optional>
#include <string>

namespace wb
{
/// Reads where a row places its part in the parent's axes, and in how many pieces.
class PositionReader
{
public:
    /// product: names the parts of a use in messages.
    PositionReader(TableRow& row, FactKeeper& keeper, const Product& product, TableSummary& summary)
        : m_row(row), m_keeper(keeper), m_product(product), m_summary(summary)
    {}

    void Read(Use& use);

private:
    void ReadQuantity(Use& use);
    void ReadShift(Use& use);
    void ReadRotation(Use& use);
    std::optional<Placement::Matrix> ReadAngles();
    std::optional<Placement::Matrix> ReadMatrix(const Use& use);
    std::string NameOf(const Use& use) const;

    TableRow& m_row;
    FactKeeper& m_keeper;
    const Product& m_product;
    TableSummary& m_summary;
};
} // namespace wb
