#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

/// The texts of a list's cells as the owner wrote them, rows and columns counted from 0. A text
/// costs its bytes, one for its length and four for its place, so that a list of millions of cells
/// is hardly larger than its texts; what is rewritten leaves a gap, and a block that is more gap
/// than text is packed anew.
class ListCells
{
public:
    /// The most bytes that the texts of one block of rows take; a test sets fewer.
    explicit ListCells(std::size_t mostBytes = std::numeric_limits<std::uint32_t>::max())
        : m_mostBytes(mostBytes)
    {}

    std::size_t RowCount() const { return m_rowCount; }
    std::size_t ColumnCount() const { return m_columns.size(); }
    /// Empty for a cell that is not there. Valid until a cell is written.
    std::string_view Text(std::size_t row, std::size_t column) const
    {
        if (row >= m_rowCount || column >= m_columns.size()) {
            return {};
        }
        const Block& block = m_blocks[row / kBlockRows];
        return block.At(block.places[row % kBlockRows * m_columns.size() + column]);
    }
    /// Whether some cells of the column hold texts, each of which begins with a number; "---"
    /// stands for no value.
    bool IsNumberColumn(std::size_t column) const
    {
        return column < m_columns.size() && m_columns[column].numbers > 0 &&
               m_columns[column].others == 0;
    }

    /// The bytes that stand ready for texts, gaps and room for more included.
    std::size_t HeldBytes() const;

    /// No rows, and so many columns. The memory is kept for the rows to come.
    void Clear(std::size_t columnCount);
    /// Gives back the memory that Clear kept and that no row has taken since.
    void ReleaseSpare();
    /// At least so many columns; the new ones are empty.
    void WidenTo(std::size_t columnCount);
    void AppendRow();
    /// The row and the column are there; the text is none of these cells'. False, and the cell as
    /// it was, when there is no room for the text.
    bool SetText(std::size_t row, std::size_t column, std::string_view text);

private:
    // Blocks of rows have their texts side by side: growing moves one block's texts, not all.
    static constexpr std::size_t kBlockRows = 1024;

    struct Block
    {
        std::unique_ptr<char[]> bytes; ///< before each text its length; a text at 0 is empty
        std::size_t size = 0;
        std::size_t capacity = 0;
        std::size_t gaps = 0; ///< bytes of texts that have been rewritten
        std::vector<std::uint32_t> places;

        std::string_view At(std::uint32_t place) const;
        void Reserve(std::size_t count);
        std::uint32_t Append(std::string_view text);
        void Pack();
    };
    struct Column
    {
        std::size_t numbers = 0; ///< cells that begin with a number
        std::size_t others = 0;  ///< cells with any other text
    };

    /// What counts a text of that kind in that column; null for an empty one.
    std::size_t* CountOf(std::size_t column, std::string_view text);

    std::size_t m_mostBytes;
    std::size_t m_rowCount = 0;
    std::vector<Block> m_blocks;
    std::vector<Column> m_columns;
};
