#include "CsvTable.h"

#include "CATENOWBCSCommonDefinitions.h"
#include "WBTexts.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <limits>

namespace wb
{
namespace
{
/// The separator that occurs in the header outside quotes; a tab goes before ";", that before ",",
/// since the rarer mark is the surer sign.
char FindSeparator(std::string_view content)
{
    bool quoted = false;
    bool semicolon = false;
    bool tab = false;
    for (const char character : content) {
        if (character == '"') {
            quoted = !quoted;
        } else if (!quoted && (character == '\n' || character == '\r')) {
            break;
        }
        semicolon = semicolon || (!quoted && character == ';');
        tab = tab || (!quoted && character == '\t');
    }
    if (tab) {
        return '\t';
    }
    return semicolon ? ';' : ',';
}

/// True when no cell can hold a text that is refused, so that nobody needs to look at each.
bool IsPlain(std::string_view content, char separator)
{
    // One look into a table for each byte of a large file, instead of six comparisons.
    std::array<bool, 256> refused{};
    std::fill_n(refused.begin(), 0x20, true);
    for (const char character : {'\x7F', '|', '~'}) {
        refused[static_cast<unsigned char>(character)] = true;
    }
    for (const char layout : {'\n', '\r', separator}) {
        refused[static_cast<unsigned char>(layout)] = false;
    }
    const bool anyRefused = std::ranges::any_of(content, [&refused](char character) {
        return refused[static_cast<unsigned char>(character)];
    });
    return !anyRefused && content.find("__null__") == std::string_view::npos &&
           content.find(CATENOWBCSCommonDefinitions::errMsgHeader) == std::string_view::npos;
}

std::uint32_t LineAt(std::string_view content, std::size_t position)
{
    std::uint32_t line = 1;
    char last = 0;
    for (const char character : content.substr(0, position)) {
        const bool isEnd = character == '\r' || (character == '\n' && last != '\r');
        line += isEnd ? 1U : 0U;
        last = character;
    }
    return line;
}
} // namespace

/// Receives the parser's fields and row ends.
struct CsvTable::Collector
{
    CsvTable& table;
    TableErrors& errors;
    bool plain;
    bool inHeader = true;
    std::size_t rowStart = 0;  // the first cell of the current row
    std::uint32_t line = 1;    // of what comes next
    std::uint32_t rowLine = 1; // where the current row began
    std::uint32_t column = 0;  // of the next field
    int lastEnd = 0;           // the byte that ended the row before

    void Field(std::string_view text)
    {
        if (column == 0) {
            rowLine = line;
        }
        if (inHeader) {
            table.m_header.emplace_back(text);
        }
        if (!text.empty()) {
            const auto lineEnds = static_cast<std::uint32_t>(std::ranges::count(text, '\n'));
            line += lineEnds;
            if (!inHeader) {
                Keep(text, lineEnds > 0);
            }
        }
        ++column;
    }

    void Keep(std::string_view text, bool hasLineEnds)
    {
        if (!plain || hasLineEnds) {
            if (const auto wrong = ForbiddenText(text)) {
                errors.Found(rowLine, HeaderOf(column), text, "a text " + std::string(*wrong));
            }
        }
        table.m_cells.push_back({column, static_cast<std::uint32_t>(table.m_text.size()),
                                 static_cast<std::uint32_t>(text.size())});
        table.m_text += text;
    }

    std::string_view HeaderOf(std::uint32_t position) const
    {
        return position < table.m_header.size() ? table.m_header[position] : std::string_view();
    }

    void RowEnd(int terminator)
    {
        if (column > 0 && inHeader) {
            inHeader = false;
            table.m_headerLine = rowLine;
        } else if (column > 0) {
            CloseRow();
        }
        // "\r\n" is one line end, and each of the two alone is one.
        const bool isSecondHalf = terminator == '\n' && column == 0 && lastEnd == '\r';
        line += isSecondHalf ? 0U : 1U;
        lastEnd = terminator;
        column = 0;
    }

    void CloseRow()
    {
        if (table.m_cells.size() == rowStart) {
            return; // a row of blanks says nothing
        }
        if (column != table.m_header.size()) {
            errors.Line(rowLine, "the row has " + std::to_string(column) + " cells, expected " +
                                     std::to_string(table.m_header.size()) + " as in the header");
        }
        table.m_rows.push_back({rowLine, static_cast<std::uint32_t>(rowStart)});
        rowStart = table.m_cells.size();
    }
};

CsvTable CsvTable::Parse(std::string_view content, TableErrors& errors)
{
    CsvTable table;
    if (content.starts_with("\xEF\xBB\xBF")) {
        content.remove_prefix(3);
    }
    if (content.size() >= std::numeric_limits<std::uint32_t>::max()) {
        errors.File("the file is larger than 4 GB, expected less");
        return table;
    }
    if (const auto position = FirstNonUtf8(content)) {
        errors.Line(LineAt(content, *position),
                    "a character is not UTF-8, expected a file saved as UTF-8");
        return table;
    }
    table.m_separator = FindSeparator(content);
    table.m_text.reserve(content.size());
    constexpr std::size_t kUsualCell =
        8; // bytes of a filled cell with its separator, a little less
    table.m_cells.reserve(content.size() / kUsualCell);

    Collector collector{table, errors, IsPlain(content, table.m_separator)};
    csv_parser parser{};
    // Every line end is told, so that lines are counted; a quote inside a bare field, or one that
    // never ends, is an error and not a guess.
    if (csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) {
        errors.File("the table cannot be read, not enough memory");
        return table;
    }
    csv_set_delim(&parser, static_cast<unsigned char>(table.m_separator));
    const auto onField = [](void* text, std::size_t size, void* data) {
        static_cast<Collector*>(data)->Field({static_cast<const char*>(text), size});
    };
    const auto onRow = [](int terminator, void* data) {
        static_cast<Collector*>(data)->RowEnd(terminator);
    };
    const std::size_t read =
        csv_parse(&parser, content.data(), content.size(), onField, onRow, &collector);
    if (read != content.size() || csv_fini(&parser, onField, onRow, &collector) != 0) {
        errors.Line(collector.column == 0 ? collector.line : collector.rowLine,
                    "a quoted text does not end, or a quote stands inside a text; expected the "
                    "whole text in double quotes, and a double quote inside it doubled");
    }
    csv_free(&parser);
    return table;
}

bool CsvTable::TakePlainRows(std::string_view lines, std::uint32_t firstLine)
{
    m_cells.clear();
    m_rows.clear();
    m_text = lines;
    if (lines.find('"') != std::string_view::npos || !IsPlain(lines, m_separator) ||
        FirstNonUtf8(lines)) {
        return false;
    }
    std::uint32_t line = firstLine;
    for (std::size_t begin = 0; begin < m_text.size(); ++line) {
        const std::size_t end = std::min(m_text.find('\n', begin), m_text.size());
        const bool hasReturn = end > begin && m_text[end - 1] == '\r';
        if (!TakePlainRow(begin, hasReturn ? end - 1 : end, line)) {
            return false;
        }
        begin = end + 1;
    }
    return true;
}

bool CsvTable::TakePlainRow(std::size_t begin, std::size_t end, std::uint32_t line)
{
    const std::size_t firstCell = m_cells.size();
    std::uint32_t column = 0;
    std::size_t start = begin;
    for (std::size_t at = begin; at <= end; ++at) {
        if (at < end && m_text[at] != m_separator) {
            if (m_text[at] == '\r') {
                return false; // a line end of another kind
            }
            continue;
        }
        // Blanks around a text do not count, as everywhere in a table.
        std::size_t stop = at;
        while (start < stop && m_text[start] == ' ') {
            ++start;
        }
        while (start < stop && m_text[stop - 1] == ' ') {
            --stop;
        }
        if (start < stop) {
            m_cells.push_back({column, static_cast<std::uint32_t>(start),
                               static_cast<std::uint32_t>(stop - start)});
        }
        ++column;
        start = at + 1;
    }
    if (m_cells.size() == firstCell) {
        return true; // a row of blanks says nothing
    }
    m_rows.push_back({line, static_cast<std::uint32_t>(firstCell)});
    return column == m_header.size();
}

std::span<const CsvTable::Cell> CsvTable::CellsOf(std::size_t row) const
{
    const std::size_t first = m_rows[row].firstCell;
    const std::size_t end = row + 1 < m_rows.size() ? m_rows[row + 1].firstCell : m_cells.size();
    return std::span(m_cells).subspan(first, end - first);
}
} // namespace wb
