#include "ServerTesting.h"

#include "WBCompute.h"
#include "WBNumbers.h"

#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

using namespace wb;

namespace
{
/// Of the largest figure of the same kind in a row; the table has twelve digits.
constexpr double kTolerance = 1e-9;

/// The table's columns behind product, node, mode, row and key.
enum Column
{
    Mass = 5,
    Lower,
    Upper,
    Cgx,
    Ixx = 11,
    DimensionColumn = 17,
    Density,
    Share,
    Leaves,
    WithoutMass,
    MassWithoutCentre,
    MassWithoutInertia,
    ColumnCount
};

using Row = std::vector<std::string>;

std::vector<Row> Rows()
{
    std::ifstream file(wbtest::DataFile("expected_totals.csv"));
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        Row row;
        std::istringstream cells(line);
        for (std::string cell; std::getline(cells, cell, ',');) {
            row.push_back(cell);
        }
        row.resize(ColumnCount);
        rows.push_back(std::move(row));
    }
    return rows;
}

const ProductGraph& GraphOf(const std::string& product)
{
    static std::map<std::string, std::unique_ptr<ProductGraph>> graphs;
    auto& graph = graphs[product];
    if (!graph) {
        const auto read = ReadLocalProduct(
            wbtest::DataFile(product == "LA1" ? "light_aeroplane.csv" : "small_satellite.csv"));
        EXPECT_TRUE(read.Ok());
        graph = std::make_unique<ProductGraph>(read.product, ShippedMassTypes());
    }
    return *graph;
}

AskedPath PathOf(const ProductGraph& graph, const std::string& part)
{
    for (std::uint32_t i = 0; i < graph.Parts().size(); ++i) {
        if (graph.Parts()[i].identifier == part) {
            return {i, {}};
        }
    }
    throw std::out_of_range(part);
}

ComputeOptions OptionsOf(const std::string& mode, bool apart)
{
    ComputeOptions options;
    options.uncertainty = true;
    options.errorsApart = apart;
    if (mode == "MostPrecise") {
        options.precision = ComputeOptions::Precision::MostPrecise;
    } else if (mode != "Active") {
        options.precision = ComputeOptions::Precision::Specified;
        options.massType = mode;
    }
    return options;
}

/// Compares the cells of one kind that are filled.
void ExpectCells(const Row& row, std::size_t first, const std::vector<double>& values)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        largest = std::max(largest, std::abs(ReadNumber(row[first + i]).value_or(0.0)));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!row[first + i].empty()) {
            EXPECT_NEAR(values[i], *ReadNumber(row[first + i]), kTolerance * largest)
                << "column " << first + i;
        }
    }
}

void ExpectBody(const Row& row, const Body& body)
{
    ExpectCells(row, Mass, {body.mass, body.lower, body.upper});
    ExpectCells(row, Cgx, {body.centre.begin(), body.centre.end()});
    ExpectCells(row, Ixx, {body.inertia.begin(), body.inertia.end()});
}

void ExpectTotal(const Row& row, const Total& total)
{
    ExpectBody(row, total.body);
    EXPECT_EQ(WriteNumber(total.counts.leaves), row[Leaves]);
    EXPECT_EQ(WriteNumber(total.counts.withoutMass), row[WithoutMass]);
    const double size = kTolerance * total.body.mass;
    EXPECT_NEAR(total.counts.massWithoutCentre, *ReadNumber(row[MassWithoutCentre]), size);
    EXPECT_NEAR(total.counts.massWithoutInertia, *ReadNumber(row[MassWithoutInertia]), size);
}

void ExpectShare(const Row& row, double mass, double total)
{
    ExpectCells(row, Mass, {mass});
    ExpectCells(row, Share, {mass / total * 100.0});
}

/// Checks the next row of a list, and that the list stands in the table's order.
template <typename Shares>
void ExpectNamed(const Row& row, const Shares& shares, std::size_t position, double total)
{
    ASSERT_LT(position, shares.size());
    EXPECT_EQ(shares[position].name, row[4]);
    ExpectShare(row, shares[position].mass, total);
}

void ExpectMaterial(const Row& row, const Statistics& statistics, std::size_t position,
                    double total)
{
    ASSERT_LT(position, statistics.materials.size());
    const MaterialShare& share = statistics.materials[position];
    EXPECT_EQ(share.material, row[4]);
    EXPECT_EQ(std::to_string(static_cast<int>(share.dimension)), row[DimensionColumn]);
    ExpectCells(row, Density, {share.density});
    ExpectShare(row, share.mass, total);
}

void ExpectGrowth(const Row& row, const ComputeResult& result)
{
    const double basic = result.total.body.mass;
    const double growth = result.statistics.growthAllowance;
    ExpectCells(row, Mass,
                {row[4] == "basic"    ? basic
                 : row[4] == "growth" ? growth
                                      : basic + growth});
}

/// Checks one row; position is its place among the rows of the same list.
void ExpectRow(const Row& row, const ComputeResult& result, std::size_t position)
{
    const Body& body = result.total.body;
    const Statistics& statistics = result.statistics;
    const std::string& kind = row[3];
    if (kind == "total") {
        ExpectTotal(row, result.total);
    } else if (kind == "at_origin") {
        Body atOrigin = body;
        atOrigin.inertia = InertiaAbout(body, {0, 0, 0});
        ExpectBody(row, atOrigin);
    } else if (kind == "below") {
        ASSERT_TRUE(result.imposed);
        ExpectTotal(row, result.imposed->below);
    } else if (kind == "rss") {
        const Deviations& rss = row[4] == "apart" ? statistics.rss.apart : statistics.rss.together;
        ExpectCells(row, Lower, {rss.lower, rss.upper});
    } else if (kind == "sigma") {
        ExpectCells(row, Mass, {result.uncertainty->mass});
        ExpectCells(row, Cgx,
                    {result.uncertainty->centre.begin(), result.uncertainty->centre.end()});
        ExpectCells(row, Ixx,
                    {result.uncertainty->inertia.begin(), result.uncertainty->inertia.end()});
    } else if (kind == "material") {
        ExpectMaterial(row, statistics, position, body.mass);
    } else if (kind == "mass_type") {
        ExpectNamed(row, statistics.massTypes, position, body.mass);
    } else if (kind == "code") {
        ExpectNamed(row, statistics.codes, position, body.mass);
    } else if (kind == "growth") {
        ExpectGrowth(row, result);
    } else {
        ADD_FAILURE() << "nothing checks rows of " << kind;
    }
}
} // namespace

TEST(ExpectedTotals, EveryRowOfTheTableComesOut)
{
    const auto rows = Rows();
    EXPECT_EQ(rows.size(), 184U);
    std::map<std::string, std::size_t> positions;
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row));
        const ProductGraph& graph = GraphOf(row[0]);
        const ComputeResult result =
            Compute(graph, PathOf(graph, row[1]), OptionsOf(row[2], row[4] == "apart"));
        ASSERT_EQ(result.error, "");
        ExpectRow(row, result, positions[row[0] + row[1] + row[2] + row[3]]++);
    }
}

TEST(ExpectedTotals, SharesAddUpToTheTotal)
{
    for (const char* product : {"LA1", "SC1"}) {
        for (const char* mode : {"Active", "MostPrecise", "Computed", "Estimated"}) {
            const ProductGraph& graph = GraphOf(product);
            const auto result = Compute(graph, PathOf(graph, product), OptionsOf(mode, false));
            double materials = 0.0;
            double types = 0.0;
            double codes = 0.0;
            for (const auto& share : result.statistics.materials) {
                materials += share.mass;
            }
            for (const auto& share : result.statistics.massTypes) {
                types += share.mass;
            }
            for (const auto& share : result.statistics.codes) {
                codes += share.mass;
            }
            const double total = result.total.body.mass;
            EXPECT_NEAR(materials, total, 1e-12 * total) << product << mode;
            EXPECT_NEAR(types, total, 1e-12 * total) << product << mode;
            EXPECT_NEAR(codes, total, 1e-12 * total) << product << mode;
        }
    }
}
