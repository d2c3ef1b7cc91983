#include "TextRows.h"

#include "CsvText.h"
#include "JsonText.h"
#include "TextGrid.h"

#include <utility>

namespace
{
std::vector<std::string> Titles(std::span<const TextRows::Column> columns)
{
    std::vector<std::string> titles;
    for (const TextRows::Column& column : columns) {
        titles.emplace_back(column.name);
    }
    return titles;
}

void AppendJsonCell(std::string& json, TextRows::Kind kind, const std::string& text)
{
    if (text.empty()) {
        json += "null";
    } else if (kind == TextRows::Kind::Flag) {
        json += text;
    } else {
        AppendJsonText(json, text);
    }
}
} // namespace

std::string TextRows::AsTable() const
{
    TextGrid grid(std::vector<TextGrid::Side>(columns.size(), TextGrid::Side::Left));
    grid.Add(Titles(columns));
    for (std::vector<std::string> row : rows) {
        for (std::string& text : row) {
            text = text.empty() ? "-" : std::move(text);
        }
        grid.Add(std::move(row));
    }
    return grid.Text();
}

std::string TextRows::AsCsv() const
{
    std::string csv;
    AppendCsvLine(csv, Titles(columns));
    for (const std::vector<std::string>& row : rows) {
        AppendCsvLine(csv, row);
    }
    return csv;
}

std::string TextRows::AsJson() const
{
    std::string json = "[";
    const char* mark = "\n";
    for (const std::vector<std::string>& row : rows) {
        json += std::exchange(mark, ",\n");
        json += "    {";
        for (std::size_t index = 0; index < row.size(); ++index) {
            json += index == 0 ? "" : ", ";
            AppendJsonText(json, columns[index].name);
            json += ": ";
            AppendJsonCell(json, columns[index].kind, row[index]);
        }
        json += '}';
    }
    return json + (rows.empty() ? "]" : "\n  ]");
}
