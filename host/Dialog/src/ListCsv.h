#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The cells of a line, in UTF-8.
using ListLine = std::vector<std::string_view>;

/// Appends a line of comma-separated values (RFC 4180), its end included (CR LF): a text with a
/// comma, a quotation mark or a line end stands in quotation marks.
void AppendCsvLine(std::string& text, const ListLine& line);
/// Appends the same line separated by tabs, without its end, for pasting into a spreadsheet; tabs
/// and line ends within a cell become blanks.
void AppendTabbedLine(std::string& text, const ListLine& line);
