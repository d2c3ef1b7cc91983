#include "CsvText.h"

namespace
{
std::string Quoted(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char character : text) {
        quoted += character == '"' ? "\"\"" : std::string(1, character);
    }
    return quoted + '"';
}
} // namespace

void AppendCsvLine(std::string& csv, std::span<const std::string> cells)
{
    for (std::size_t index = 0; index < cells.size(); ++index) {
        csv += (index == 0 ? "" : ",") + Quoted(cells[index]);
    }
    csv += '\n';
}
