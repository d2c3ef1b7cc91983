#pragma once

#include <string>
#include <vector>

/// The cells of a line of CSV without the quotes around them. A reader of tests: it shares nothing
/// with the program's own, and knows no quote inside a cell.
inline std::vector<std::string> CsvCells(const std::string& line)
{
    std::vector<std::string> cells(1);
    bool isQuoted = false;
    for (const char character : line) {
        if (character == '"') {
            isQuoted = !isQuoted;
        } else if (character == ',' && !isQuoted) {
            cells.emplace_back();
        } else if (character != '\r') {
            cells.back() += character;
        }
    }
    return cells;
}
