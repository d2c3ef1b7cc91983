#include "ComputeTable.h"

#include "TextGrid.h"

#include <array>
#include <charconv>
#include <span>
#include <utility>
#include <vector>

namespace
{
using Side = TextGrid::Side;
using Cells = std::vector<std::string>;

constexpr std::size_t kNameWidth = 24;
constexpr int kShareDecimals = 2;
constexpr const char* kTotal = "total";

std::string Unit(const std::string& symbol)
{
    return " [" + symbol + ']';
}

std::string Share(double perCent)
{
    return FixedText(perCent, kShareDecimals);
}

Cells Line(const std::string& label, std::span<const double> values, int decimals)
{
    Cells cells{label};
    for (const double value : values) {
        cells.push_back(FixedText(value, decimals));
    }
    return cells;
}

/// What every section is made with.
struct Writer
{
    const ComputeReport& report;
    ComputeDecimals decimals;
    std::string text;

    void Add(const std::string& title, const TextGrid& grid)
    {
        text += '\n' + title + '\n' + grid.Text();
    }
    std::string Mass(double value) const { return FixedText(value, decimals.mass); }
    std::string MassUnit() const { return Unit(report.units.mass.symbol); }
};

/// Mass, centre and inertia as rows of one to three columns.
void AddBodyLines(const Writer& writer, const wb::Body& body, TextGrid& grid)
{
    const ComputeUnits& units = writer.report.units;
    const std::span inertia(body.inertia);
    grid.Add(Line("centre of gravity x, y, z" + Unit(units.length.symbol), body.centre,
                  writer.decimals.length));
    grid.Add(Line("moments xx, yy, zz" + Unit(units.inertia.symbol), inertia.first(3),
                  writer.decimals.inertia));
    grid.Add(Line("products xy, xz, yz" + Unit(units.inertia.symbol), inertia.last(3),
                  writer.decimals.inertia));
}

TextGrid FiguresGrid()
{
    return TextGrid({Side::Left, Side::Right, Side::Right, Side::Right});
}

void AddTotal(Writer& writer)
{
    const ComputeReport& report = writer.report;
    const wb::ComputeResult& result = report.result;
    const wb::Body& body = report.total.body;
    const std::string kind = result.precisionDefined ? ", as defined" : ", worst case";
    TextGrid grid = FiguresGrid();
    grid.Add({"mass" + writer.MassUnit(), writer.Mass(body.mass)});
    grid.Add({"lower deviation" + kind, writer.Mass(body.lower)});
    grid.Add({"upper deviation" + kind, writer.Mass(body.upper)});
    AddBodyLines(writer, body, grid);
    grid.Add(Line("principal moments" + Unit(report.units.inertia.symbol),
                  report.total.principalMoments, writer.decimals.inertia));
    grid.Add(Line("radii of gyration x, y, z" + Unit(report.units.length.symbol),
                  report.total.radiiOfGyration, writer.decimals.length));
    writer.Add(result.takenType.empty() ? "Total" : "Total: the values of " + result.takenType,
               grid);
    const auto lent = [&](const char* figure, const std::string& lender) {
        if (!lender.empty()) {
            writer.text += std::string("  The ") + figure + " is lent by " +
                           (lender == "Computed" ? "the sum of what is below" : lender) + ".\n";
        }
    };
    lent("centre of gravity", result.centreFrom);
    lent("inertia", result.inertiaFrom);
}

void AddImposed(Writer& writer)
{
    const ComputeReport& report = writer.report;
    if (!report.result.imposed) {
        return;
    }
    const wb::Body& own = report.result.total.body;
    const wb::Body& below = report.result.imposed->below.body;
    const wb::Body& difference = report.result.imposed->difference;
    TextGrid grid = FiguresGrid();
    grid.Add({"", "own", "below", "difference"});
    const auto add = [&](const std::string& label, int decimals, const auto& figure) {
        const std::array values{figure(own), figure(below), figure(difference)};
        grid.Add(Line(label, values, decimals));
    };
    const int mass = writer.decimals.mass;
    add("mass" + writer.MassUnit(), mass, [](const wb::Body& body) { return body.mass; });
    add("lower deviation", mass, [](const wb::Body& body) { return body.lower; });
    add("upper deviation", mass, [](const wb::Body& body) { return body.upper; });
    constexpr std::array kAxes{"x", "y", "z"};
    for (std::size_t axis = 0; axis < kAxes.size(); ++axis) {
        add(std::string("centre of gravity ") + kAxes[axis] + Unit(report.units.length.symbol),
            writer.decimals.length, [&](const wb::Body& body) { return body.centre[axis]; });
    }
    constexpr std::array kTerms{"ixx", "iyy", "izz", "ixy", "ixz", "iyz"};
    for (std::size_t term = 0; term < kTerms.size(); ++term) {
        add(kTerms[term] + Unit(report.units.inertia.symbol), writer.decimals.inertia,
            [&](const wb::Body& body) { return body.inertia[term]; });
    }
    writer.Add("Own values in place of what is below (each inertia about its own centre)", grid);
}

void AddCoverage(Writer& writer)
{
    const wb::Counts& counts = writer.report.result.total.counts;
    TextGrid grid({Side::Left, Side::Right});
    grid.Add({"items", FixedText(counts.leaves, 0)});
    grid.Add({"without a mass", FixedText(counts.withoutMass, 0)});
    grid.Add({"mass without a centre" + writer.MassUnit(), writer.Mass(counts.massWithoutCentre)});
    grid.Add(
        {"mass without an inertia" + writer.MassUnit(), writer.Mass(counts.massWithoutInertia)});
    writer.Add("Coverage", grid);
}

void AddRootSumSquare(Writer& writer)
{
    if (!writer.report.arguments.rss) {
        return;
    }
    const wb::RootSumSquare& rss = writer.report.result.statistics.rss;
    TextGrid grid({Side::Left, Side::Right, Side::Right});
    grid.Add({"", "lower", "upper"});
    const auto add = [&](const char* label, const wb::Deviations& deviations) {
        grid.Add({label, writer.Mass(deviations.lower), writer.Mass(deviations.upper)});
    };
    add("all uses of a part share its error", rss.together);
    add("every piece has an error of its own", rss.apart);
    writer.Add("Deviations as the root of the sum of squares" + writer.MassUnit(), grid);
}

void AddUncertainty(Writer& writer)
{
    if (!writer.report.arguments.uncertainty || !writer.report.result.uncertainty) {
        return;
    }
    constexpr double kPerCent = 100.0;
    const wb::Uncertainty& uncertainty = *writer.report.result.uncertainty;
    wb::Body sigmas;
    sigmas.mass = uncertainty.mass;
    sigmas.centre = uncertainty.centre;
    sigmas.inertia = uncertainty.inertia;
    TextGrid grid = FiguresGrid();
    grid.Add({"mass" + writer.MassUnit(), writer.Mass(sigmas.mass)});
    AddBodyLines(writer, sigmas, grid);
    grid.Add(
        {"mass whose uncertainty is a default [%]", Share(kPerCent * uncertainty.shareUnstated)});
    writer.Add(writer.report.arguments.compute.errorsApart
                   ? "Standard uncertainties (first order; every piece has errors of its own)"
                   : "Standard uncertainties (first order; all uses of a part share its errors)",
               grid);
    if (writer.report.arguments.point != ComputeArguments::Point::Centre) {
        writer.text += "  Those of the inertia are about the centre of gravity.\n";
    }
    for (const std::string& name : uncertainty.understated) {
        writer.text += Wrapped("  First order understates at " + name + ".", "    ");
    }
}

std::string DensityText(const wb::MaterialShare& share, const ComputeUnits& units)
{
    constexpr int kDigits = 6;
    if (share.density == 0.0) {
        return "-";
    }
    std::array<char, 40> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), share.density,
                                   std::chars_format::general, kDigits);
    const bool isVolume = share.dimension == wb::Dimension::Volume;
    return std::string(digits.data(), end.ptr) + ' ' +
           (isVolume ? units.density.symbol : units.surfaceDensity.symbol);
}

void AddMaterials(Writer& writer)
{
    TextGrid grid({Side::Left, Side::Right, Side::Right, Side::Right});
    grid.Add({"material", "density", "mass" + writer.MassUnit(), "share [%]"});
    for (const wb::MaterialShare& share : writer.report.result.statistics.materials) {
        grid.Add({Shortened(share.material, kNameWidth), DensityText(share, writer.report.units),
                  writer.Mass(share.mass), Share(writer.report.ShareOf(share.mass))});
    }
    grid.Add({kTotal, "", writer.Mass(writer.report.total.body.mass),
              Share(writer.report.ShareOf(writer.report.total.body.mass))});
    writer.Add("By material", grid);
}

void AddShares(Writer& writer, const std::string& title, const char* column,
               const std::vector<wb::NamedShare>& shares)
{
    TextGrid grid({Side::Left, Side::Right, Side::Right});
    grid.Add({column, "mass" + writer.MassUnit(), "share [%]"});
    for (const wb::NamedShare& share : shares) {
        grid.Add({Shortened(share.name, kNameWidth), writer.Mass(share.mass),
                  Share(writer.report.ShareOf(share.mass))});
    }
    grid.Add({kTotal, writer.Mass(writer.report.total.body.mass),
              Share(writer.report.ShareOf(writer.report.total.body.mass))});
    writer.Add(title, grid);
}

void AddGrowth(Writer& writer)
{
    TextGrid grid({Side::Left, Side::Right});
    grid.Add({"basic mass", writer.Mass(writer.report.total.body.mass)});
    grid.Add({"growth allowance", writer.Mass(writer.report.result.statistics.growthAllowance)});
    grid.Add({"predicted mass", writer.Mass(writer.report.PredictedMass())});
    writer.Add("Growth" + writer.MassUnit(), grid);
}

/// The names of a contributor, cut where a line of 80 characters needs it.
Cells NamesOf(const wb::Contributor& contributor)
{
    constexpr std::size_t kIdentifierWidth = 16;
    constexpr std::size_t kShortNameWidth = 20;
    return {Shortened(contributor.part + ' ' + contributor.version, kIdentifierWidth),
            Shortened(contributor.name, kShortNameWidth), FixedText(contributor.pieces, 0)};
}

void AddContributors(Writer& writer)
{
    const ComputeReport& report = writer.report;
    if (report.arguments.compute.contributors == 0) {
        return;
    }
    const auto add = [&](const std::string& title, const std::vector<wb::Contributor>& list,
                         const char* shareColumn, const auto& share) {
        TextGrid grid({Side::Left, Side::Left, Side::Right, Side::Right, Side::Right, Side::Right});
        grid.Add({"part", "name", "pieces", "mass", "sigma", shareColumn});
        for (const wb::Contributor& contributor : list) {
            Cells cells = NamesOf(contributor);
            cells.push_back(writer.Mass(contributor.mass));
            cells.push_back(writer.Mass(contributor.sigmaMass));
            cells.push_back(Share(share(contributor)));
            grid.Add(std::move(cells));
        }
        writer.Add(title + writer.MassUnit(), grid);
    };
    add("Largest masses", report.result.largestMasses, "% mass",
        [&](const wb::Contributor& contributor) { return report.ShareOf(contributor.mass); });
    add("Largest uncertainties of the mass", report.result.largestUncertainties, "% var.",
        [&](const wb::Contributor& contributor) {
            return report.ShareOfVariance(contributor.sigmaMass);
        });
}

void AddLines(Writer& writer, const char* title, const std::vector<std::string>& lines)
{
    if (lines.empty()) {
        return;
    }
    writer.text += std::string("\n") + title + '\n';
    for (const std::string& line : lines) {
        writer.text += Wrapped("- " + line, "  ");
    }
}
} // namespace

std::string ComputeAsTable(const ComputeReport& report)
{
    const wb::ComputeResult& result = report.result;
    Writer writer{report, ComputeDecimals(report), ComputeHeadText(report)};
    AddTotal(writer);
    AddImposed(writer);
    AddCoverage(writer);
    AddRootSumSquare(writer);
    AddUncertainty(writer);
    AddMaterials(writer);
    AddShares(writer, "By mass type", "mass type", result.statistics.massTypes);
    AddShares(writer, "By code", "code", result.statistics.codes);
    AddGrowth(writer);
    AddContributors(writer);
    AddLines(writer, "Took their active values", result.fellBack);
    AddLines(writer, "Warnings", result.warnings);
    return writer.text;
}
