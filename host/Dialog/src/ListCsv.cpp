#include "ListCsv.h"

#include <algorithm>

namespace
{

constexpr std::string_view kBreaks = "\t\r\n";

void AppendQuoted(std::string& text, std::string_view cell)
{
    text += '"';
    for (const char letter : cell) {
        text.append(letter == '"' ? 2 : 1, letter);
    }
    text += '"';
}

void AppendUnbroken(std::string& text, std::string_view cell)
{
    for (std::size_t at = cell.find_first_of(kBreaks); at != std::string_view::npos;
         at = cell.find_first_of(kBreaks)) {
        text.append(cell.substr(0, at)) += ' ';
        cell.remove_prefix(std::min(cell.size(), cell.find_first_not_of(kBreaks, at)));
    }
    text += cell;
}

} // namespace

void AppendCsvLine(std::string& text, const ListLine& line)
{
    for (std::size_t column = 0; column < line.size(); ++column) {
        text += column == 0 ? "" : ",";
        if (line[column].find_first_of(",\"\r\n") == std::string_view::npos) {
            text += line[column];
        } else {
            AppendQuoted(text, line[column]);
        }
    }
    text += "\r\n";
}

void AppendTabbedLine(std::string& text, const ListLine& line)
{
    for (std::size_t column = 0; column < line.size(); ++column) {
        text += column == 0 ? "" : "\t";
        AppendUnbroken(text, line[column]);
    }
}
