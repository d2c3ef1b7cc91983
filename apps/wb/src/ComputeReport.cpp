#include "ComputeReport.h"

#include "ComputePlace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
ComputeReport::PartNames NamesOf(const wb::ProductGraph::PartRow& part)
{
    return {part.identifier, part.version, part.name};
}

/// The body with its inertia about the asked point, which stands in the axes of the node.
wb::Body AboutPoint(wb::Body body, const ComputeArguments& arguments, const ComputeUnits& units)
{
    // An inertia about a centre that nobody knows is still one about the centre.
    if (arguments.point != ComputeArguments::Point::Centre) {
        std::array<double, 3> point{};
        std::ranges::transform(arguments.at, point.begin(), units.length.toStorage);
        body.inertia = wb::InertiaAbout(body, point);
    }
    return body;
}

ComputeReport::Figures FiguresOf(const wb::Body& body, const ComputeUnits& units)
{
    ComputeReport::Figures figures;
    figures.body = InUnits(body, units);
    if (!wb::IsKnown(body.mass)) {
        // Nobody knows either how far off an unknown mass is.
        figures.body.lower = wb::kUnknown;
        figures.body.upper = wb::kUnknown;
    }
    const bool hasInertia = wb::IsKnown(body.inertia[0]);
    figures.principalMoments.fill(wb::kUnknown);
    if (hasInertia) {
        std::ranges::transform(wb::PrincipalMoments(body.inertia), figures.principalMoments.begin(),
                               units.inertia.fromStorage);
    }
    for (std::size_t axis = 0; axis < figures.radiiOfGyration.size(); ++axis) {
        constexpr double kMillimetres = 1000.0; // kg.m2 by kg gives m2
        const double square = body.inertia[axis] / body.mass;
        figures.radiiOfGyration[axis] =
            hasInertia && std::isfinite(square) && square >= 0.0
                ? units.length.fromStorage(kMillimetres * std::sqrt(square))
                : wb::kUnknown;
    }
    return figures;
}

/// Brings everything in a result into other units; all of them are multiples of the storage ones.
void Convert(wb::ComputeResult& result, const ComputeUnits& units)
{
    const auto mass = [&](double& value) {
        value = units.mass.fromStorage(value);
    };
    const auto counts = [&](wb::Counts& all) {
        mass(all.massWithoutCentre);
        mass(all.massWithoutInertia);
    };
    result.total.body = InUnits(result.total.body, units);
    counts(result.total.counts);
    if (result.imposed) {
        result.imposed->below.body = InUnits(result.imposed->below.body, units);
        result.imposed->difference = InUnits(result.imposed->difference, units);
        counts(result.imposed->below.counts);
    }
    wb::Statistics& statistics = result.statistics;
    counts(statistics.counts);
    for (wb::MaterialShare& share : statistics.materials) {
        mass(share.mass);
        const ComputeUnits::Unit& unit =
            share.dimension == wb::Dimension::Volume ? units.density : units.surfaceDensity;
        share.density = unit.fromStorage(share.density);
    }
    for (auto* shares : {&statistics.massTypes, &statistics.codes}) {
        for (wb::NamedShare& share : *shares) {
            mass(share.mass);
        }
    }
    mass(statistics.growthAllowance);
    for (wb::Deviations* deviations : {&statistics.rss.together, &statistics.rss.apart}) {
        mass(deviations->lower);
        mass(deviations->upper);
    }
    if (result.uncertainty) {
        wb::Uncertainty& uncertainty = *result.uncertainty;
        mass(uncertainty.mass);
        std::ranges::transform(uncertainty.centre, uncertainty.centre.begin(),
                               units.length.fromStorage);
        std::ranges::transform(uncertainty.inertia, uncertainty.inertia.begin(),
                               units.inertia.fromStorage);
    }
    for (auto* contributors : {&result.largestMasses, &result.largestUncertainties}) {
        for (wb::Contributor& contributor : *contributors) {
            mass(contributor.mass);
            mass(contributor.sigmaMass);
        }
    }
}

std::vector<std::string> FilterInWords(const wb::ComputeOptions& options, const std::string& root)
{
    std::vector<std::string> words;
    // A part alone has nothing that a filter could leave out.
    if (options.filter.IsEmpty() || options.asked == wb::ComputeOptions::Asked::Alone) {
        return words;
    }
    if (!options.filter.name.empty()) {
        words.push_back(options.filter.name + ":");
    }
    for (const wb::Filter::Line& line : options.filter.lines) {
        std::string& text = words.emplace_back((line.in ? "with " : "without ") + root);
        for (const std::string& instance : line.FromRoot()) {
            text += '/' + instance;
        }
    }
    return words;
}

/// On streams an unknown figure travels as 0; here it is shown as unknown.
void SayUnknownAsShown(std::vector<std::string>& warnings)
{
    const std::string onStreams = "unknown, and sent as 0: ";
    for (std::string& warning : warnings) {
        if (warning.starts_with(onStreams)) {
            warning.replace(0, onStreams.size(), "unknown: ");
        }
    }
}
} // namespace

double ComputeReport::ShareOf(double mass) const
{
    constexpr double kPerCent = 100.0;
    const double share = kPerCent * mass / total.body.mass;
    return std::isfinite(share) ? share : wb::kUnknown;
}

double ComputeReport::ShareOfVariance(double sigma) const
{
    constexpr double kPerCent = 100.0;
    const double ratio = result.uncertainty ? sigma / result.uncertainty->mass : wb::kUnknown;
    return std::isfinite(ratio) ? kPerCent * ratio * ratio : wb::kUnknown;
}

std::array<double, 3> ComputeReport::InertiaPoint() const
{
    return arguments.point == ComputeArguments::Point::Centre ? total.body.centre : arguments.at;
}

std::string PrecisionWord(const wb::ComputeOptions& options)
{
    switch (options.precision) {
    case wb::ComputeOptions::Precision::Active:
        return "active";
    case wb::ComputeOptions::Precision::MostPrecise:
        return "most-precise";
    default:
        return options.massType;
    }
}

std::string UpdateWord(const ComputeArguments& arguments)
{
    switch (arguments.update) {
    case ComputeArguments::Update::Check:
        return "check";
    case ComputeArguments::Update::Force:
        return "force";
    default:
        return "assume:" + std::to_string(arguments.level);
    }
}

const char* PointWord(const ComputeArguments& arguments)
{
    switch (arguments.point) {
    case ComputeArguments::Point::Centre:
        return "cg";
    case ComputeArguments::Point::Origin:
        return "origin";
    default:
        return "point";
    }
}

const char* DensityFirstWord(const wb::ComputeOptions& options)
{
    if (!options.densityPriority) {
        return "";
    }
    return *options.densityPriority == CATENOWBCSCommonDefinitions::WBDensityFirst ? "wb"
                                                                                   : "material";
}

const char* EntityWord(wb::ComputeOptions::Asked asked)
{
    switch (asked) {
    case wb::ComputeOptions::Asked::Root:
        return "root";
    case wb::ComputeOptions::Asked::Alone:
        return "part";
    default:
        return "instance";
    }
}

ComputeReport BeginComputeReport(const ComputeArguments& arguments, const ComputeUnits& units,
                                 const wb::ProductGraph& graph, const wb::AskedPath& path)
{
    ComputeReport report;
    report.arguments = arguments;
    report.units = units;
    report.product = NamesOf(graph.Parts()[path.root]);
    report.node = NamesOf(graph.PartOf(graph.NodeAt(path)));
    report.path = PathText(graph, path);
    report.filter = FilterInWords(arguments.compute, report.product.identifier);
    return report;
}

void AddComputeResult(ComputeReport& report, wb::ComputeResult result)
{
    const ComputeUnits& units = report.units;
    report.total = FiguresOf(AboutPoint(result.total.body, report.arguments, units), units);
    Convert(result, units);
    SayUnknownAsShown(result.warnings);
    report.result = std::move(result);
}
