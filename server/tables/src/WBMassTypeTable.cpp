#include "WBMassTypeTable.h"

#include "CsvTable.h"
#include "TableDraft.h"
#include "WBNumbers.h"
#include "WBProductTable.h"
#include "WBTableWriter.h"
#include "WBTexts.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <map>
#include <optional>

namespace wb
{
namespace
{
enum Field : std::size_t
{
    Name,
    Order,
    Kind,
    Category,
    LowerPct,
    UpperPct,
    Meaning,
    kFields
};
constexpr std::array<const char*, kFields> kNames{"mass_type", "order",     "kind",   "category",
                                                  "lower_pct", "upper_pct", "meaning"};

/// Reads the rows one after another.
class Reader
{
public:
    Reader(const CsvTable& table, TableErrors& errors) : m_table(table), m_errors(errors) {}

    std::vector<MassType> Read()
    {
        ReadHeader();
        std::vector<MassType> types;
        const std::size_t rows = m_errors.Any() ? 0 : m_table.RowCount();
        for (std::size_t row = 0; row < rows; ++row) {
            ReadRow(row, types);
        }
        return types;
    }

private:
    void ReadHeader()
    {
        for (std::size_t position = 0; position < m_table.Header().size(); ++position) {
            const std::string& header = m_table.Header()[position];
            std::string name = LowerCase(header);
            name = name.substr(0, name.find_last_not_of(' ', name.find('[') - 1) + 1);
            const auto found = std::ranges::find(kNames, name);
            if (found == kNames.end()) {
                m_errors.Column(m_table.HeaderLine(), header,
                                "unknown column, the nearest known one is " +
                                    Quoted(NearestName(name, kNames)));
                continue;
            }
            const auto field = static_cast<std::size_t>(found - kNames.begin());
            if (m_present[field]) {
                m_errors.Column(m_table.HeaderLine(), header, "the column stands twice");
            }
            m_present[field] = true;
            m_headers[field] = header;
            m_fieldAt[position] = field;
        }
        for (const std::size_t field : {Name, Order, Kind}) {
            if (!m_present[field]) {
                m_errors.Line(m_table.HeaderLine(),
                              "there is no column " + Quoted(kNames[field]) + ", expected one");
            }
        }
    }

    void Wrong(Field field, std::string_view expected)
    {
        m_errors.Found(m_line, m_headers[field].empty() ? kNames[field] : m_headers[field],
                       m_cells[field], expected);
    }

    double Percentage(Field field)
    {
        if (m_cells[field].empty()) {
            return 0.0;
        }
        const auto value = ReadNumber(m_cells[field]);
        if (!value || *value < 0.0) {
            Wrong(field, "a percentage that is not negative");
        }
        return value.value_or(0.0);
    }

    void ReadRow(std::size_t row, std::vector<MassType>& types)
    {
        m_cells.fill({});
        m_line = m_table.LineOf(row);
        for (const CsvTable::Cell& cell : m_table.CellsOf(row)) {
            if (const auto field = m_fieldAt.find(cell.column); field != m_fieldAt.end()) {
                m_cells[field->second] = m_table.TextOf(cell);
            }
        }
        MassType type;
        type.name = m_cells[Name];
        if (IsReservedMassType(type.name)) {
            Wrong(Name, "a name other than Active, MostPrecise, Computed and blank");
        }
        const auto order = ReadInteger(m_cells[Order]);
        if (!order || *order < INT_MIN || *order > INT_MAX) {
            Wrong(Order, "a whole number");
        } else {
            type.order = static_cast<int>(*order);
        }
        ReadKind(type);
        type.lowerPct = Percentage(LowerPct);
        type.upperPct = Percentage(UpperPct);
        type.meaning = m_cells[Meaning];
        for (const MassType& other : types) {
            if (other.name == type.name) {
                Wrong(Name, "every mass type once");
            } else if (other.order == type.order) {
                Wrong(Order, "an order that no other mass type has");
            }
        }
        types.push_back(std::move(type));
    }

    void ReadKind(MassType& type)
    {
        const std::string kind = LowerCase(m_cells[Kind]);
        if (kind != "claim" && kind != "goal") {
            Wrong(Kind, "claim or goal");
        }
        type.kind = kind == "goal" ? MassType::Kind::Goal : MassType::Kind::Claim;
        type.category = LowerCase(m_cells[Category]);
        constexpr std::array kCategories{"estimated", "calculated", "actual"};
        const bool known = std::ranges::find(kCategories, type.category) != kCategories.end();
        if (type.kind == MassType::Kind::Claim && !known) {
            Wrong(Category, "estimated, calculated or actual");
        } else if (type.kind == MassType::Kind::Goal && !type.category.empty()) {
            Wrong(Category, "a blank cell, since a goal has no category");
        }
    }

    const CsvTable& m_table;
    TableErrors& m_errors;
    std::map<std::size_t, std::size_t> m_fieldAt; // by position in the header
    std::array<bool, kFields> m_present{};
    std::array<std::string, kFields> m_headers;
    std::array<std::string_view, kFields> m_cells;
    std::uint32_t m_line = 0;
};
} // namespace

MassTypeTableResult ReadMassTypeTable(std::string_view content, const std::string& name)
{
    MassTypeTableResult result;
    TableErrors errors(name);
    const CsvTable table = CsvTable::Parse(content, errors);
    if (!errors.Any() && table.Header().empty()) {
        errors.File("the file is empty, expected a header and rows");
    }
    if (!errors.Any()) {
        result.types = Reader(table, errors).Read();
    }
    result.errors = errors.Sentences();
    if (!result.errors.empty()) {
        result.types.clear();
    }
    return result;
}

MassTypeTableResult ReadMassTypeFile(const std::string& path)
{
    const FileBytes file = ReadFileBytes(path);
    if (!file.error.empty()) {
        return {{}, {file.error}};
    }
    return ReadMassTypeTable(file.bytes, path);
}

std::string WriteMassTypeTable(const std::vector<MassType>& types)
{
    std::string table = "mass_type,order,kind,category,lower_pct [%],upper_pct [%],meaning\n";
    for (const MassType& type : types) {
        AppendCell(table, type.name, ',');
        table += "," + std::to_string(type.order) +
                 (type.kind == MassType::Kind::Goal ? ",goal," : ",claim,") + type.category + "," +
                 WriteShortest(type.lowerPct) + "," + WriteShortest(type.upperPct) + ",";
        AppendCell(table, type.meaning, ',');
        table += "\n";
    }
    return table;
}
} // namespace wb
