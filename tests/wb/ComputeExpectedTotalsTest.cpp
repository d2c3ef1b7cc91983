#include "CsvCells.h"
#include "ProgramRun.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

// Every row of the table of expected totals comes out of "wb compute --csv", through the database.
// The table was made from the sample files by a program that shares nothing with this one.
namespace
{
/// Of the largest figure of the same kind in a row; the table has twelve digits.
constexpr double kTolerance = 1e-9;

using Cells = std::map<std::string, std::string>; // by column

std::vector<Cells> ReadTable(std::istream& text)
{
    std::vector<Cells> rows;
    std::vector<std::string> columns;
    for (std::string line; std::getline(text, line);) {
        const std::vector<std::string> cells = CsvCells(line);
        if (columns.empty()) {
            columns = cells;
            continue;
        }
        Cells& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i) {
            row[columns[i]] = i < cells.size() ? cells[i] : "";
        }
    }
    return rows;
}

/// Where the nodes of the table stand below their product's root.
const std::map<std::string, std::string> kPlaces{
    {"LA1", ""},
    {"SC1", ""},
    {"FUR-100", "/FUS-000.1/FUS-200.1/FUR-100.1"},
    {"PWR-100", "/PWR-000.1/PWR-100.1"},
    {"WNG-200R", "/WNG-000.1/WNG-200R.1"},
    {"WNG-200L", "/WNG-000.1/WNG-200L.1"},
    {"WNG-210", "/WNG-000.1/WNG-200R.1/WNG-210.1"},
    {"RWA-100", "/AOC-000.1/RWA-100.1"},
    {"SAW-100", "/EPS-000.1/SAW-100.1"},
};

std::string PathOf(const Cells& row)
{
    const std::string& node = row.at("node");
    const auto place = kPlaces.find(node);
    return row.at("product") + (place == kPlaces.end() ? "/" + node + ".1" : place->second);
}

/// What the table's row asks for. Errors of all pieces apart and inertias about the origin are
/// answers of their own.
std::string ArgumentsOf(const Cells& row)
{
    const std::string& mode = row.at("mode");
    std::string arguments = "compute " + PathOf(row) + " --db a.db --csv --precision " +
                            (mode == "MostPrecise" ? "most-precise" : mode);
    arguments += row.at("row") == "at_origin" ? " --at origin" : "";
    arguments += row.at("row") == "rss" ? " --rss" : "";
    arguments += row.at("row") == "sigma" ? " --uncertainty" : "";
    arguments += row.at("row") == "sigma" && row.at("key") == "apart" ? " --apart" : "";
    return arguments;
}

const std::vector<std::vector<std::string>> kKinds{
    {"mass [kg]", "lower [kg]", "upper [kg]"},
    {"cgx [mm]", "cgy [mm]", "cgz [mm]"},
    {"ixx [kg.m2]", "iyy [kg.m2]", "izz [kg.m2]", "ixy [kg.m2]", "ixz [kg.m2]", "iyz [kg.m2]"},
    {"density [kg/m3]"},
    {"share [%]"},
    {"mass_without_cg [kg]", "mass_without_inertia [kg]"},
};

double Number(const std::string& cell)
{
    return cell.empty() ? NAN : std::stod(cell);
}

void ExpectFigures(const Cells& expected, const Cells& actual)
{
    for (const auto& kind : kKinds) {
        double largest = 0.0;
        for (const std::string& column : kind) {
            const std::string& cell = expected.at(column);
            largest = cell.empty() ? largest : std::max(largest, std::abs(Number(cell)));
        }
        for (const std::string& column : kind) {
            if (!expected.at(column).empty()) {
                EXPECT_NEAR(Number(actual.at(column)), Number(expected.at(column)),
                            kTolerance * largest)
                    << column;
            }
        }
    }
    for (const char* column : {"leaves", "without_mass", "dimension"}) {
        if (!expected.at(column).empty()) {
            EXPECT_EQ(actual.at(column), expected.at(column)) << column;
        }
    }
}

/// The table has one column for densities of both dimensions, and writes 0 for none.
void UseOneDensity(Cells& row)
{
    std::string& density = row["density [kg/m3]"];
    density += row["surface_density [kg/m2]"];
    if (row["row"] == "material" && density.empty()) {
        density = "0";
    }
}

class ComputeExpectedTotals : public ProgramRun
{
protected:
    const std::vector<Cells>& AnswerTo(const std::string& arguments)
    {
        const auto [answer, isNew] = m_answers.try_emplace(arguments);
        if (isNew) {
            std::istringstream text(Run(arguments).out);
            answer->second = ReadTable(text);
            std::ranges::for_each(answer->second, UseOneDensity);
        }
        return answer->second;
    }

private:
    std::map<std::string, std::vector<Cells>> m_answers;
};
} // namespace

TEST_F(ComputeExpectedTotals, EveryRowComesOut)
{
    for (const char* file : {"light_aeroplane", "small_satellite"}) {
        ASSERT_EQ(
            Run("import '" WB_SOURCE_DIR "/data/" + std::string(file) + ".csv' --into a.db").status,
            0);
    }
    std::ifstream file(WB_SOURCE_DIR "/data/expected_totals.csv");
    std::vector<Cells> rows = ReadTable(file);
    EXPECT_EQ(rows.size(), 184U);
    std::map<std::string, std::size_t> positions; // of the next row of each kind in each answer
    for (Cells& expected : rows) {
        expected["density [kg/m3]"] = expected["density"];
        const std::string arguments = ArgumentsOf(expected);
        SCOPED_TRACE(arguments + ": " + expected["row"] + ", " + expected["key"]);
        const bool isAtOrigin = expected["row"] == "at_origin";
        const std::string kind = isAtOrigin ? "total" : expected["row"];
        std::vector<Cells> found;
        std::ranges::copy_if(AnswerTo(arguments), std::back_inserter(found),
                             [&](const Cells& row) { return row.at("row") == kind; });
        // The answer's rows of a kind stand in the table's order.
        const std::size_t position = positions[arguments + kind]++;
        ASSERT_LT(position, found.size());
        if (!isAtOrigin && kind != "below") {
            EXPECT_EQ(found[position].at("key"), expected["key"]);
        }
        ExpectFigures(expected, found[position]);
    }
}
