#include "RecordPrinter.h"

#include "JsonText.h"

#include <algorithm>

namespace
{

void AppendCell(std::string& json, const CATWBRecordCell& cell)
{
    using Kind = CATWBRecordCell::Kind;
    if (cell.kind == Kind::Unknown) {
        json += "null";
    } else if (cell.kind == Kind::Text) {
        AppendJsonText(json, cell.text.View());
    } else {
        json += cell.text.View();
    }
}

void AppendRow(std::string& json, const CATWBRecordTable& table,
               const std::vector<CATWBRecordCell>& row)
{
    json += '{';
    for (std::size_t index = 0; index < row.size(); ++index) {
        json += index == 0 ? "" : ", ";
        AppendJsonText(json, table.columns[static_cast<int>(index) + 1].View());
        json += ": ";
        AppendCell(json, row[index]);
    }
    json += '}';
}

std::string Shown(const CATWBRecordCell& cell)
{
    switch (cell.kind) {
    case CATWBRecordCell::Kind::Unknown:
        return "-";
    case CATWBRecordCell::Kind::Flag:
        return cell.text == CATUnicodeString("true") ? "yes" : "no";
    default:
        return cell.text.ToStdString();
    }
}

/// `text` in a field of `width` characters; numbers stand at the right.
std::string Padded(const std::string& text, std::size_t width, bool isNumber)
{
    const auto length = static_cast<std::size_t>(CATUnicodeString(text).Length());
    const std::string blanks(width > length ? width - length : 0, ' ');
    return isNumber ? blanks + text : text + blanks;
}

void AppendFields(std::string& text, const CATWBRecordTable& table)
{
    std::size_t width = 0;
    for (const CATUnicodeString& column : table.columns.Items()) {
        width = std::max(width, static_cast<std::size_t>(column.Length()));
    }
    for (std::size_t index = 0; index < table.rows.front().size(); ++index) {
        const std::string name = table.columns[static_cast<int>(index) + 1].ToStdString();
        text += "  " + Padded(name, width, false) + "  " + Shown(table.rows.front()[index]) + "\n";
    }
}

void AppendList(std::string& text, const CATWBRecordTable& table)
{
    const auto columnCount = static_cast<std::size_t>(table.columns.Size());
    std::vector<std::size_t> widths(columnCount, 0);
    std::vector<bool> isNumber(columnCount, false);
    for (std::size_t column = 0; column < columnCount; ++column) {
        widths[column] =
            static_cast<std::size_t>(table.columns[static_cast<int>(column) + 1].Length());
        for (const auto& row : table.rows) {
            widths[column] =
                std::max(widths[column],
                         static_cast<std::size_t>(CATUnicodeString(Shown(row[column])).Length()));
            isNumber[column] =
                isNumber[column] || row[column].kind == CATWBRecordCell::Kind::Number;
        }
    }
    const auto appendLine = [&](const auto& cellText) {
        std::string line;
        for (std::size_t column = 0; column < columnCount; ++column) {
            line += "  " + Padded(cellText(column), widths[column], isNumber[column]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    };
    appendLine([&](std::size_t column) {
        return table.columns[static_cast<int>(column) + 1].ToStdString();
    });
    for (const auto& row : table.rows) {
        appendLine([&](std::size_t column) { return Shown(row[column]); });
    }
}

} // namespace

std::string RecordAsJson(const std::vector<CATWBRecordTable>& tables)
{
    std::string json = "{\n";
    for (const CATWBRecordTable& table : tables) {
        json += &table == &tables.front() ? "  " : ",\n  ";
        AppendJsonText(json, table.name.View());
        json += table.isList ? ": [" : ": ";
        for (const auto& row : table.rows) {
            if (table.isList) {
                json += &row == &table.rows.front() ? "\n    " : ",\n    ";
            }
            AppendRow(json, table, row);
        }
        json += table.isList && !table.rows.empty() ? "\n  ]" : table.isList ? "]" : "";
    }
    return json + "\n}\n";
}

std::string RecordAsText(const std::vector<CATWBRecordTable>& tables)
{
    std::string text;
    for (const CATWBRecordTable& table : tables) {
        if (table.isList && table.rows.empty()) {
            continue; // nothing to say about something that is not there
        }
        text += (text.empty() ? "" : "\n") + table.name.ToStdString() + "\n";
        if (table.isList) {
            AppendList(text, table);
        } else {
            AppendFields(text, table);
        }
    }
    return text;
}
