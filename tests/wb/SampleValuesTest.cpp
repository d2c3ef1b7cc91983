#include "CsvCells.h"
#include "TemporaryDirectory.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

// Every value that the sample files state comes back from "wb part", through the database, the
// stream and the record. The files are read here a second time, by a reader of a few lines that
// shares nothing with the program's own: the samples are in storage units and quote with plain
// double quotes.
namespace
{

using Row = std::map<std::string, std::string>;

std::vector<Row> ReadRows(const std::string& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    std::vector<std::string> names = CsvCells(line);
    std::vector<Row> rows;
    while (std::getline(file, line)) {
        const std::vector<std::string> cells = CsvCells(line);
        Row row;
        for (std::size_t index = 0; index < cells.size(); ++index) {
            row[names[index].substr(0, names[index].find(" ["))] = cells[index];
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

/// A sample product: one path to each part, and what each mass type says about it.
struct Sample
{
    std::map<std::string, std::string> pathOf;
    std::vector<Row> values; // rows that state values of a part
    std::map<std::string, double> materialDensity;
    std::map<std::string, std::string> materialOf;
    std::map<std::string, double> ownDensity; // of parts whose own goes first
};

double Number(const std::string& text)
{
    return text.empty() ? std::nan("") : std::stod(text);
}

Sample ReadSample(const std::string& path, const std::string& root)
{
    Sample sample;
    sample.pathOf[root] = root;
    std::set<std::string> turnedUses; // paths whose use has values or a material of its own
    const std::vector<Row> rows = ReadRows(path);
    for (const Row& row : rows) {
        if (row.count("values_on") != 0 && row.at("values_on") == "instance") {
            turnedUses.insert(row.at("parent") + "/" + row.at("instance"));
        }
    }
    for (const Row& row : rows) {
        const std::string& part = row.at("part");
        const std::string& parent = row.at("parent");
        const bool ofUse = turnedUses.count(parent + "/" + row.at("instance")) != 0;
        if (!parent.empty() && !ofUse && sample.pathOf.count(part) == 0) {
            sample.pathOf[part] = sample.pathOf.at(parent) + "/" + row.at("instance");
        }
        const bool onInstance =
            (row.count("values_on") != 0 && row.at("values_on") == "instance") ||
            (row.count("material_on") != 0 && row.at("material_on") == "instance");
        if (onInstance) {
            continue;
        }
        if (!row.at("mass_type").empty()) {
            sample.values.push_back(row);
        }
        if (!row.at("material").empty()) {
            sample.materialOf[part] = row.at("material");
            for (const char* column : {"material_density", "material_surface_density"}) {
                if (!row.at(column).empty()) {
                    sample.materialDensity[row.at("material")] = Number(row.at(column));
                }
            }
        }
        if (row.count("density") != 0 && !row.at("density").empty()) {
            sample.ownDensity[part] = Number(row.at("density"));
        }
    }
    return sample;
}

/// What "wb part" prints of the part, as JSON.
QJsonObject Print(const std::string& path, const std::string& database)
{
    const std::string command =
        "'" WB_PROGRAM "' part '" + path + "' --db '" + database + "' --json";
    std::FILE* pipe = popen(command.c_str(), "r");
    QByteArray text;
    char block[4096];
    while (const std::size_t count = std::fread(block, 1, sizeof block, pipe)) {
        text.append(block, static_cast<qsizetype>(count));
    }
    EXPECT_EQ(pclose(pipe), 0) << path;
    return QJsonDocument::fromJson(text).object();
}

QJsonObject MassTypeOf(const QJsonObject& record, const std::string& name)
{
    for (const QJsonValue& value : record["mass_types"].toArray()) {
        if (value["name"].toString().toStdString() == name) {
            return value.toObject();
        }
    }
    ADD_FAILURE() << "there is no mass type " << name;
    return {};
}

/// Equal to 15 digits, or both unknown.
void ExpectSame(const QJsonValue& printed, double stated, const std::string& what)
{
    if (std::isnan(stated)) {
        EXPECT_TRUE(printed.isNull()) << what;
        return;
    }
    ASSERT_TRUE(printed.isDouble()) << what;
    EXPECT_LE(std::abs(printed.toDouble() - stated), 1e-15 * std::abs(stated))
        << what << ": " << printed.toDouble();
}

double MassOf(const Row& row, const Sample& sample)
{
    const std::string& part = row.at("part");
    const double size = Number(row.at("volume").empty() ? row.at("area") : row.at("volume"));
    if (!row.at("mass").empty() || std::isnan(size)) {
        return Number(row.at("mass"));
    }
    const auto own = sample.ownDensity.find(part);
    return size * (own != sample.ownDensity.end()
                       ? own->second
                       : sample.materialDensity.at(sample.materialOf.at(part)));
}

void ExpectValues(const QJsonObject& printed, const Row& row, const Sample& sample)
{
    const std::string what = row.at("part") + " " + row.at("mass_type") + " ";
    const double mass = MassOf(row, sample);
    ASSERT_FALSE(std::isnan(mass)) << what;
    EXPECT_LE(std::abs(printed["mass"].toDouble() - mass), 1e-14 * std::abs(mass))
        << what << "mass";
    for (const char* name : {"cgx", "cgy", "cgz", "ixx", "iyy", "izz"}) {
        ExpectSame(printed[name], Number(row.at(name)), what + name);
    }
    const double sign = row.at("poi_sign") == "negative" ? -1.0 : 1.0;
    for (const char* name : {"ixy", "ixz", "iyz"}) {
        ExpectSame(printed[name], sign * Number(row.at(name)), what + name);
    }
    if (!row.at("lower").empty()) {
        ExpectSame(printed["lower_deviation"], Number(row.at("lower")), what + "lower");
        ExpectSame(printed["upper_deviation"], Number(row.at("upper")), what + "upper");
    } else if (!row.at("lower_pct").empty()) {
        ExpectSame(printed["lower_precision"], Number(row.at("lower_pct")), what + "lower_pct");
        ExpectSame(printed["upper_precision"], Number(row.at("upper_pct")), what + "upper_pct");
    }
}

/// How many sets of values were compared.
int CompareSample(const std::string& file, const std::string& root)
{
    const TemporaryDirectory folder;
    const std::string table = WB_SOURCE_DIR "/data/" + file;
    EXPECT_EQ(std::system(("'" WB_PROGRAM "' import '" + table + "' --into '" + folder.At("a.db") +
                           "' >/dev/null")
                              .c_str()),
              0);
    const Sample sample = ReadSample(table, root);
    std::map<std::string, QJsonObject> printed;
    int compared = 0;
    for (const Row& row : sample.values) {
        const auto path = sample.pathOf.find(row.at("part"));
        if (path == sample.pathOf.end() || path->second == root) {
            continue; // the root itself is no instance
        }
        if (printed.count(path->first) == 0) {
            printed[path->first] = Print(path->second, folder.At("a.db"));
        }
        // Sets without a mass travel as partially assigned, without values.
        if (!std::isnan(row.at("mass").empty() && row.at("volume").empty() && row.at("area").empty()
                            ? std::nan("")
                            : 0.0)) {
            ExpectValues(MassTypeOf(printed[path->first], row.at("mass_type")), row, sample);
            ++compared;
        }
    }
    return compared;
}

} // namespace

TEST(SampleValues, EveryValueOfTheAeroplaneComesBack)
{
    EXPECT_GT(CompareSample("light_aeroplane.csv", "LA1"), 80);
}

TEST(SampleValues, EveryValueOfTheSatelliteComesBack)
{
    EXPECT_GT(CompareSample("small_satellite.csv", "SC1"), 40);
}
