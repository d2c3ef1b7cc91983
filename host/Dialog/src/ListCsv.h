#pragma once

#include <QStringList>

#include <string>
#include <vector>

/// A table of texts as comma-separated values (RFC 4180): the header first, lines end in CR LF, a
/// text with a comma, a quotation mark or a line end stands in quotation marks.
std::string CsvText(const std::vector<QStringList>& lines);
/// The same table separated by tabs, for pasting into a spreadsheet; tabs and line ends within a
/// text become blanks.
QString TabbedText(const std::vector<QStringList>& lines);
