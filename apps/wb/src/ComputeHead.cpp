// The head of the table: what was asked, in words.
#include "ComputeTable.h"
#include "TextGrid.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
using Point = ComputeArguments::Point;
using Precision = wb::ComputeOptions::Precision;
using Asked = wb::ComputeOptions::Asked;

std::string PartText(const ComputeReport::PartNames& part)
{
    const std::string text = part.identifier + ' ' + part.version;
    return part.name == part.identifier ? text : text + ", " + part.name;
}

std::string Joined(const std::array<double, 3>& point, int decimals)
{
    return FixedText(point[0], decimals) + ", " + FixedText(point[1], decimals) + ", " +
           FixedText(point[2], decimals);
}

std::string PrecisionText(const wb::ComputeOptions& options)
{
    switch (options.precision) {
    case Precision::Active:
        return "active values";
    case Precision::MostPrecise:
        return "most precise values";
    default:
        break;
    }
    if (options.massType == "Computed") {
        return "Computed: active values of the leaves, nothing imposed above them";
    }
    return options.massType + " alone" +
           (options.orActive ? ", else the active values of a leaf" : "");
}

std::string UpdateText(const ComputeArguments& arguments)
{
    switch (arguments.update) {
    case ComputeArguments::Update::Check:
        return "check: what is not up to date is computed";
    case ComputeArguments::Update::Force:
        return "force: everything is computed anew";
    default:
        return "assume: sums deeper than level " + std::to_string(arguments.level) +
               " as they were kept";
    }
}

std::string InertiaText(const ComputeReport& report, int decimals)
{
    std::string point = "about the centre of gravity";
    if (report.arguments.point == Point::Origin) {
        point = "about the origin of these axes";
    } else if (report.arguments.point == Point::Typed) {
        point = "about " + Joined(report.arguments.at, decimals) + ' ' + report.units.length.symbol;
    }
    return point + "; products are + integral (ixy: x y dm)";
}

void AddOnePart(const wb::ComputeOptions& options, TextGrid& grid)
{
    if (options.densityPriority) {
        grid.Add({"density", *options.densityPriority == CATENOWBCSCommonDefinitions::WBDensityFirst
                                 ? "that of the part goes before that of the material"
                                 : "that of the material goes before that of the part"});
    }
    if (!options.material.empty()) {
        grid.Add({"material", options.material + " in place of its own"});
    }
}
} // namespace

ComputeDecimals::ComputeDecimals(const ComputeReport& report)
{
    constexpr double kFinest = 0.001; // mm
    constexpr int kMostDecimals = 12;
    const wb::Body& body = report.total.body;
    const std::array masses{body.mass, body.lower, body.upper};
    mass = DecimalsFor(masses);
    inertia = DecimalsFor(body.inertia);
    const double digits = -std::log10(report.units.length.fromStorage(kFinest));
    // A hair less: the logarithm of a power of ten may come out beside the whole number.
    length = std::clamp(static_cast<int>(std::ceil(digits - 1e-9)), 0, kMostDecimals);
}

std::string ComputeInOneLine(const ComputeReport& report)
{
    const ComputeDecimals decimals(report);
    const wb::Body& body = report.total.body;
    if (!wb::IsKnown(body.mass)) {
        return "mass unknown";
    }
    const std::string mass = FixedText(body.mass, decimals.mass) + ' ' + report.units.mass.symbol;
    return wb::IsKnown(body.centre[0]) ? mass + " at " + Joined(body.centre, decimals.length) +
                                             ' ' + report.units.length.symbol
                                       : mass + ", centre of gravity unknown";
}

std::string ComputeHeadText(const ComputeReport& report)
{
    const wb::ComputeOptions& options = report.arguments.compute;
    TextGrid grid({TextGrid::Side::Left, TextGrid::Side::Left});
    if (!report.IsRoot()) {
        grid.Add({"path", report.path});
    }
    if (options.asked == Asked::Alone) {
        grid.Add({"entity", "the part alone: nothing below it"});
    }
    grid.Add({"precision", PrecisionText(options)});
    grid.Add({"update", UpdateText(report.arguments)});
    const std::size_t lines = report.filter.size();
    grid.Add({"filter", lines == 0 ? "none" : report.filter.front()});
    for (std::size_t i = 1; i < lines; ++i) {
        grid.Add({"", report.filter[i]});
    }
    AddOnePart(options, grid);
    grid.Add({"axes", "those of " + report.node.identifier + ' ' + report.node.version});
    grid.Add({"inertia", InertiaText(report, ComputeDecimals(report).length)});
    return PartText(report.node) + '\n' + ComputeInOneLine(report) + "\n\n" + grid.Text();
}
