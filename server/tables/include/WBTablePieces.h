#pragma once

#include "WBKnown.h"
#include "WBProductPieces.h"
#include "WBProductTable.h"

#include <memory>
#include <string>

namespace wb
{
/// Reads a large table from its file piece by piece, twice: for its parts, then for its uses and
/// what it says. Only what most large tables are made of goes this way: no quotes, every use named
/// and stated in one row, nothing wrong anywhere. Whatever else is met ends it without a word, and
/// the table is read whole, which understands everything and tells what is wrong.
class TablePieces : public ProductPieces
{
public:
    /// Null when the file is not for reading in pieces. massTypes: those that are known; parts and
    /// materials are not.
    static std::unique_ptr<TablePieces> Open(const std::string& path, const TableOptions& options,
                                             std::vector<MassType> massTypes);
    ~TablePieces() override;

    std::size_t PartCount() const override;
    std::vector<Use> Next() override;
    const Product* Rest() override;

    /// After the rest.
    TableSummary& Summary();

private:
    class Reader;
    explicit TablePieces(std::unique_ptr<Reader> reader);

    std::unique_ptr<Reader> m_reader;
};
} // namespace wb
