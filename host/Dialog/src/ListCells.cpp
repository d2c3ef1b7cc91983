#include "ListCells.h"

#include "ListNumber.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace
{

constexpr std::size_t kLongMark = 0xff; // the length stands in the four bytes that follow
constexpr std::size_t kLongLength = 1 + sizeof(std::uint32_t);
constexpr std::size_t kFirstPlace = 1; // place 0 means no text
constexpr std::size_t kLeastBytes = 256;
// Smaller blocks are not worth packing.
constexpr std::size_t kLeastGaps = 1024;

std::size_t BytesOf(std::string_view text)
{
    return text.size() + (text.size() < kLongMark ? 1 : kLongLength);
}

} // namespace

std::string_view ListCells::Block::At(std::uint32_t place) const
{
    if (place == 0) {
        return {};
    }
    const char* at = bytes.get() + place;
    const auto shortLength = static_cast<unsigned char>(*at);
    if (shortLength < kLongMark) {
        return {at + 1, shortLength};
    }
    std::uint32_t length = 0;
    std::memcpy(&length, at + 1, sizeof length);
    return {at + kLongLength, length};
}

void ListCells::Block::Reserve(std::size_t count)
{
    if (count <= capacity) {
        return;
    }
    // Untouched memory costs nothing, so it is not cleared.
    std::unique_ptr<char[]> larger(new char[count]);
    if (size > 0) {
        std::memcpy(larger.get(), bytes.get(), size);
    }
    bytes = std::move(larger);
    capacity = count;
}

std::uint32_t ListCells::Block::Append(std::string_view text)
{
    if (text.empty()) {
        return 0;
    }
    const std::size_t place = std::max(size, kFirstPlace);
    const std::size_t end = place + BytesOf(text);
    if (end > capacity) {
        Reserve(std::max({end, capacity + capacity / 2, kLeastBytes}));
    }
    char* at = bytes.get() + place;
    if (text.size() < kLongMark) {
        *at = static_cast<char>(text.size());
        at += 1;
    } else {
        *at = static_cast<char>(kLongMark);
        const auto length = static_cast<std::uint32_t>(text.size());
        std::memcpy(at + 1, &length, sizeof length);
        at += kLongLength;
    }
    std::memcpy(at, text.data(), text.size());
    size = end;
    return static_cast<std::uint32_t>(place);
}

void ListCells::Block::Pack()
{
    Block packed;
    packed.Reserve(size - gaps);
    for (std::uint32_t& place : places) {
        place = packed.Append(At(place));
    }
    bytes = std::move(packed.bytes);
    size = packed.size;
    capacity = packed.capacity;
    gaps = 0;
}

std::size_t ListCells::HeldBytes() const
{
    std::size_t held = 0;
    for (const Block& block : m_blocks) {
        held += block.capacity;
    }
    return held;
}

void ListCells::Clear(std::size_t columnCount)
{
    m_rowCount = 0;
    m_columns.assign(columnCount, {});
    for (Block& block : m_blocks) {
        block.size = 0;
        block.gaps = 0;
        block.places.clear();
    }
}

void ListCells::ReleaseSpare()
{
    m_blocks.resize((m_rowCount + kBlockRows - 1) / kBlockRows);
}

void ListCells::WidenTo(std::size_t columnCount)
{
    const std::size_t before = m_columns.size();
    if (columnCount <= before) {
        return;
    }
    for (Block& block : m_blocks) {
        const std::size_t rows = before == 0 ? 0 : block.places.size() / before;
        std::vector<std::uint32_t> wider(rows * columnCount);
        for (std::size_t row = 0; row < rows; ++row) {
            std::copy_n(block.places.data() + row * before, before,
                        wider.data() + row * columnCount);
        }
        block.places = std::move(wider);
    }
    m_columns.resize(columnCount);
}

void ListCells::AppendRow()
{
    const std::size_t index = m_rowCount / kBlockRows;
    if (index == m_blocks.size()) {
        // A list's rows are much alike: the next block will take about as much as the last.
        const std::size_t guess =
            m_blocks.empty() ? 0 : m_blocks.back().size + m_blocks.back().size / 16;
        m_blocks.emplace_back().Reserve(guess);
    }
    std::vector<std::uint32_t>& places = m_blocks[index].places;
    places.resize(places.size() + m_columns.size());
    ++m_rowCount;
}

std::size_t* ListCells::CountOf(std::size_t column, std::string_view text)
{
    if (IsEmptyCell(text)) {
        return nullptr;
    }
    Column& counts = m_columns[column];
    return BeginsWithNumber(text) ? &counts.numbers : &counts.others;
}

bool ListCells::SetText(std::size_t row, std::size_t column, std::string_view text)
{
    Block& block = m_blocks[row / kBlockRows];
    std::uint32_t& place = block.places[row % kBlockRows * m_columns.size() + column];
    const std::string_view old = block.At(place);
    if (old == text) {
        return true;
    }
    if (block.size + BytesOf(text) > m_mostBytes) {
        return false;
    }
    if (!old.empty()) {
        block.gaps += BytesOf(old);
        if (std::size_t* count = CountOf(column, old)) {
            --*count;
        }
    }
    if (std::size_t* count = CountOf(column, text)) {
        ++*count;
    }
    place = block.Append(text);
    if (block.gaps > kLeastGaps && block.gaps > block.size / 2) {
        block.Pack();
    }
    return true;
}
