#pragma once

#include "FactKeeper.h"
#include "TableRow.h"
#include "WBKnown.h"
#include "WBProduct.h"
#include "WBProductTable.h"

#include <cstdint>
#include <map>
#include <vector>

namespace wb
{
/// Reads what a table says an assembly adds up to: a mass or a centre without a mass type. Nobody's
/// claim and never stored, it is there to be compared with the sum.
class TotalReader
{
public:
    TotalReader(TableRow& row, FactKeeper& keeper, const TableOptions& options,
                const KnownProducts& known, const Product& product)
        : m_row(row), m_keeper(keeper), m_options(options), m_known(known), m_product(product)
    {}

    /// Whether the row's values are such a figure, provided that its part is an assembly.
    bool IsTotal() const;
    void Read(std::uint32_t part);
    /// The figures by part; those of single parts, whose values need a mass type, are complained
    /// about.
    std::vector<StatedTotal> Finish();

private:
    struct Figure
    {
        ValueSet set;
        std::uint32_t line = 0;
    };

    bool IsAssembly(std::uint32_t part) const;

    TableRow& m_row;
    FactKeeper& m_keeper;
    const TableOptions& m_options;
    const KnownProducts& m_known;
    const Product& m_product;
    std::map<std::uint32_t, Figure> m_figures; // by part
};
} // namespace wb
