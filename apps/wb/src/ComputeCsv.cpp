#include "ComputeCsv.h"

#include "CsvText.h"
#include "WBNumbers.h"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace
{
/// The unit in a column's heading.
enum class Measure
{
    None,
    Mass,
    Length,
    Inertia,
    Density,
    SurfaceDensity,
    PerCent
};

struct Column
{
    const char* name;
    Measure measure = Measure::None;
};

constexpr std::array kColumns{
    Column{"product"},
    Column{"path"},
    Column{"mode"},
    Column{"row"},
    Column{"key"},
    Column{"mass", Measure::Mass},
    Column{"lower", Measure::Mass},
    Column{"upper", Measure::Mass},
    Column{"cgx", Measure::Length},
    Column{"cgy", Measure::Length},
    Column{"cgz", Measure::Length},
    Column{"ixx", Measure::Inertia},
    Column{"iyy", Measure::Inertia},
    Column{"izz", Measure::Inertia},
    Column{"ixy", Measure::Inertia},
    Column{"ixz", Measure::Inertia},
    Column{"iyz", Measure::Inertia},
    Column{"dimension"},
    Column{"density", Measure::Density},
    Column{"surface_density", Measure::SurfaceDensity},
    Column{"share", Measure::PerCent},
    Column{"leaves"},
    Column{"without_mass"},
    Column{"mass_without_cg", Measure::Mass},
    Column{"mass_without_inertia", Measure::Mass},
    Column{"version"},
    Column{"name"},
    Column{"pieces"},
    Column{"sigma_mass", Measure::Mass},
    Column{"share_of_variance", Measure::PerCent},
};

/// The place of a column; asked at compile time alone, so a wrong name does not build.
consteval std::size_t At(std::string_view name)
{
    for (std::size_t column = 0; column < kColumns.size(); ++column) {
        if (kColumns[column].name == name) {
            return column;
        }
    }
    throw "no such column"; // NOLINT(hicpp-exception-baseclass): never thrown
}

std::string Symbol(Measure measure, const ComputeUnits& units)
{
    switch (measure) {
    case Measure::Mass:
        return units.mass.symbol;
    case Measure::Length:
        return units.length.symbol;
    case Measure::Inertia:
        return units.inertia.symbol;
    case Measure::Density:
        return units.density.symbol;
    case Measure::SurfaceDensity:
        return units.surfaceDensity.symbol;
    case Measure::PerCent:
        return "%";
    default:
        return {};
    }
}

class Row
{
public:
    Row(const ComputeReport& report, const std::string& row, const std::string& key)
    {
        Set(At("product"), report.product.identifier).Set(At("path"), report.path);
        Set(At("mode"), PrecisionWord(report.arguments.compute));
        Set(At("row"), row).Set(At("key"), key);
    }

    Row& Set(std::size_t column, const std::string& text)
    {
        m_cells[column] = text;
        return *this;
    }
    Row& Set(std::size_t column, double value)
    {
        m_cells[column] = std::isfinite(value) ? wb::WriteShortest(value) : "";
        return *this;
    }
    template <std::size_t Count>
    Row& Set(std::size_t first, const std::array<double, Count>& values)
    {
        for (std::size_t i = 0; i < Count; ++i) {
            Set(first + i, values[i]);
        }
        return *this;
    }
    Row& Set(const wb::Deviations& deviations)
    {
        return Set(At("lower"), deviations.lower).Set(At("upper"), deviations.upper);
    }
    Row& Set(const wb::Body& body)
    {
        Set(At("mass"), body.mass).Set(wb::Deviations{body.lower, body.upper});
        return Set(At("cgx"), body.centre).Set(At("ixx"), body.inertia);
    }
    Row& Set(const wb::Counts& counts)
    {
        Set(At("leaves"), counts.leaves).Set(At("without_mass"), counts.withoutMass);
        Set(At("mass_without_cg"), counts.massWithoutCentre);
        return Set(At("mass_without_inertia"), counts.massWithoutInertia);
    }

    std::string Line() const
    {
        std::string line;
        AppendCsvLine(line, m_cells);
        return line;
    }

private:
    std::array<std::string, kColumns.size()> m_cells;
};

std::string Heading(const ComputeUnits& units)
{
    std::string line;
    for (const Column& column : kColumns) {
        const std::string symbol = Symbol(column.measure, units);
        line += line.empty() ? "" : ",";
        line += column.name + (symbol.empty() ? "" : " [" + symbol + ']');
    }
    return line + '\n';
}

class Table
{
public:
    explicit Table(const ComputeReport& report) : m_report(report), m_text(Heading(report.units)) {}

    /// Adds a row that `fill` completes.
    template <class Fill>
    void Add(const std::string& row, const std::string& key, const Fill& fill)
    {
        Row cells(m_report, row, key);
        fill(cells);
        m_text += cells.Line();
    }
    /// A row that says all in its key; none for an empty one.
    void AddSaying(const std::string& row, const std::string& key)
    {
        if (!key.empty()) {
            Add(row, key, [](Row&) {});
        }
    }
    std::string Take() { return std::move(m_text); }

private:
    const ComputeReport& m_report;
    std::string m_text;
};

void AddHead(Table& table, const ComputeReport& report)
{
    const wb::ComputeOptions& options = report.arguments.compute;
    table.AddSaying("node", report.node.identifier + ' ' + report.node.version);
    table.AddSaying("entity", EntityWord(options.asked));
    table.AddSaying("or", options.orActive ? "active" : "");
    table.AddSaying("update", UpdateWord(report.arguments));
    for (const std::string& line : report.filter) {
        table.AddSaying("filter", line);
    }
    table.AddSaying("density_first", DensityFirstWord(options));
    table.AddSaying("material_of_part", options.material);
    table.AddSaying("product_sign", "+ integral");
    table.Add("inertia_about", PointWord(report.arguments),
              [&](Row& row) { row.Set(At("cgx"), report.InertiaPoint()); });
}

void AddTotals(Table& table, const ComputeReport& report)
{
    const wb::ComputeResult& result = report.result;
    table.Add("total", result.precisionDefined ? "defined" : "worst case",
              [&](Row& row) { row.Set(report.total.body).Set(result.total.counts); });
    table.Add("principal_moments", "",
              [&](Row& row) { row.Set(At("ixx"), report.total.principalMoments); });
    table.Add("radii_of_gyration", "",
              [&](Row& row) { row.Set(At("cgx"), report.total.radiiOfGyration); });
    if (result.staleTaken > 0) {
        table.AddSaying("stale_sums", std::to_string(result.staleTaken));
    }
    table.AddSaying("taken_mass_type", result.takenType);
    table.AddSaying("centre_from", result.centreFrom);
    table.AddSaying("inertia_from", result.inertiaFrom);
    if (result.imposed) {
        table.Add("own", result.takenType, [&](Row& row) { row.Set(result.total.body); });
        table.Add("below", "", [&](Row& row) {
            row.Set(result.imposed->below.body).Set(result.imposed->below.counts);
        });
        table.Add("difference", "", [&](Row& row) { row.Set(result.imposed->difference); });
    }
}

void AddUncertainty(Table& table, const ComputeReport& report)
{
    const wb::RootSumSquare& rss = report.result.statistics.rss;
    if (report.arguments.rss) {
        table.Add("rss", "together", [&](Row& row) { row.Set(rss.together); });
        table.Add("rss", "apart", [&](Row& row) { row.Set(rss.apart); });
    }
    const auto& uncertainty = report.result.uncertainty;
    if (!report.arguments.uncertainty || !uncertainty) {
        return;
    }
    constexpr double kPerCent = 100.0;
    table.Add("sigma", report.arguments.compute.errorsApart ? "apart" : "together", [&](Row& row) {
        row.Set(At("mass"), uncertainty->mass).Set(At("cgx"), uncertainty->centre);
        row.Set(At("ixx"), uncertainty->inertia);
    });
    table.Add("sigma_unstated", "",
              [&](Row& row) { row.Set(At("share"), kPerCent * uncertainty->shareUnstated); });
    for (const std::string& name : uncertainty->understated) {
        table.AddSaying("first_order_understates", name);
    }
}

void AddShares(Table& table, const ComputeReport& report)
{
    const wb::Statistics& statistics = report.result.statistics;
    const auto setMass = [&](Row& row, double mass) {
        row.Set(At("mass"), mass).Set(At("share"), report.ShareOf(mass));
    };
    for (const wb::MaterialShare& share : statistics.materials) {
        table.Add("material", share.material, [&](Row& row) {
            const bool isVolume = share.dimension == wb::Dimension::Volume;
            row.Set(At("dimension"), isVolume ? "3" : "2");
            row.Set(isVolume ? At("density") : At("surface_density"),
                    share.density == 0.0 ? wb::kUnknown : share.density);
            setMass(row, share.mass);
        });
    }
    for (const wb::NamedShare& share : statistics.massTypes) {
        table.Add("mass_type", share.name, [&](Row& row) { setMass(row, share.mass); });
    }
    for (const wb::NamedShare& share : statistics.codes) {
        table.Add("code", share.name, [&](Row& row) { setMass(row, share.mass); });
    }
    const auto addGrowth = [&](const char* key, double mass) {
        table.Add("growth", key, [&](Row& row) { row.Set(At("mass"), mass); });
    };
    addGrowth("basic", report.total.body.mass);
    addGrowth("growth", statistics.growthAllowance);
    addGrowth("predicted", report.PredictedMass());
}

void AddContributors(Table& table, const ComputeReport& report, const char* name,
                     const std::vector<wb::Contributor>& list)
{
    for (const wb::Contributor& contributor : list) {
        table.Add(name, contributor.part, [&](Row& row) {
            row.Set(At("version"), contributor.version).Set(At("name"), contributor.name);
            row.Set(At("pieces"), contributor.pieces).Set(At("mass"), contributor.mass);
            row.Set(At("share"), report.ShareOf(contributor.mass));
            row.Set(At("sigma_mass"), contributor.sigmaMass);
            row.Set(At("share_of_variance"), report.ShareOfVariance(contributor.sigmaMass));
        });
    }
}
} // namespace

std::string ComputeAsCsv(const ComputeReport& report)
{
    Table table(report);
    AddHead(table, report);
    AddTotals(table, report);
    AddUncertainty(table, report);
    AddShares(table, report);
    AddContributors(table, report, "largest_mass", report.result.largestMasses);
    AddContributors(table, report, "largest_uncertainty", report.result.largestUncertainties);
    for (const std::string& name : report.result.fellBack) {
        table.AddSaying("took_active_values", name);
    }
    for (const std::string& warning : report.result.warnings) {
        table.AddSaying("warning", warning);
    }
    return table.Take();
}
