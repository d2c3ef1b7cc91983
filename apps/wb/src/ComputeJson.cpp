#include "ComputeJson.h"

#include "JsonText.h"

#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace
{
/// Writes one value behind the other; the caller opens and closes objects and lists.
class Json
{
public:
    Json& Key(std::string_view name)
    {
        Separate();
        AppendJsonText(m_text, name);
        m_text += ": ";
        m_isFirst = true;
        return *this;
    }
    Json& Open(char bracket)
    {
        Separate();
        m_text += bracket;
        m_isFirst = true;
        return *this;
    }
    Json& Close(char bracket)
    {
        m_text += bracket;
        m_isFirst = false;
        return *this;
    }
    /// The next key or value begins a line.
    Json& NewLine(int depth)
    {
        m_newLine = "\n" + std::string(static_cast<std::size_t>(depth) * 2, ' ');
        return *this;
    }
    Json& EndLine(int depth)
    {
        m_text += "\n" + std::string(static_cast<std::size_t>(depth) * 2, ' ');
        return *this;
    }
    Json& Text(std::string_view text)
    {
        Separate();
        AppendJsonText(m_text, text);
        return *this;
    }
    /// Empty: null.
    Json& TextOrNull(std::string_view text) { return text.empty() ? Raw("null") : Text(text); }
    Json& Number(double value)
    {
        Separate();
        AppendJsonNumber(m_text, value);
        return *this;
    }
    Json& Raw(std::string_view text)
    {
        Separate();
        m_text += text;
        return *this;
    }
    Json& Flag(bool flag) { return Raw(flag ? "true" : "false"); }
    template <class Values>
    Json& Numbers(const Values& values)
    {
        Open('[');
        for (const double value : values) {
            Number(value);
        }
        return Close(']');
    }
    Json& Texts(const std::vector<std::string>& texts)
    {
        Open('[');
        for (const std::string& text : texts) {
            Text(text);
        }
        return Close(']');
    }

    std::string Take() { return std::move(m_text); }

private:
    void Separate()
    {
        m_text += m_isFirst ? "" : m_newLine.empty() ? ", " : ",";
        m_text += m_newLine;
        m_newLine.clear();
        m_isFirst = false;
    }

    std::string m_text;
    std::string m_newLine;
    bool m_isFirst = true;
};

constexpr std::array kCentre{"cgx", "cgy", "cgz"};
constexpr std::array kInertia{"ixx", "iyy", "izz", "ixy", "ixz", "iyz"};

/// A key of the outermost object, on a line of its own.
Json& Section(Json& json, std::string_view name)
{
    return json.NewLine(1).Key(name);
}

void AddCentreAndInertia(Json& json, const std::array<double, 3>& centre,
                         const wb::Inertia& inertia)
{
    for (std::size_t i = 0; i < kCentre.size(); ++i) {
        json.Key(kCentre[i]).Number(centre[i]);
    }
    for (std::size_t i = 0; i < kInertia.size(); ++i) {
        json.Key(kInertia[i]).Number(inertia[i]);
    }
}

void AddBody(Json& json, const wb::Body& body)
{
    json.Key("mass").Number(body.mass);
    json.Key("lower_deviation").Number(body.lower);
    json.Key("upper_deviation").Number(body.upper);
    AddCentreAndInertia(json, body.centre, body.inertia);
}

void AddPart(Json& json, const ComputeReport::PartNames& part)
{
    json.Key("part").Text(part.identifier);
    json.Key("version").Text(part.version);
    json.Key("name").Text(part.name);
}

void AddAsked(Json& json, const ComputeReport& report)
{
    const wb::ComputeOptions& options = report.arguments.compute;
    Section(json, "product").Open('{');
    AddPart(json, report.product);
    json.Close('}');
    Section(json, "node").Open('{').Key("path").Text(report.path);
    AddPart(json, report.node);
    json.Close('}');
    Section(json, "asked").Open('{');
    json.Key("entity").Text(EntityWord(options.asked));
    json.Key("precision").Text(PrecisionWord(options));
    json.Key("or_active").Flag(options.orActive);
    json.Key("update").Text(UpdateWord(report.arguments));
    json.Key("filter").Texts(report.filter);
    json.Key("density_first").TextOrNull(DensityFirstWord(options));
    json.Key("material").TextOrNull(options.material);
    json.Close('}');
}

void AddUnits(Json& json, const ComputeReport& report)
{
    const ComputeUnits& units = report.units;
    Section(json, "units").Open('{');
    json.Key("mass").Text(units.mass.symbol);
    json.Key("length").Text(units.length.symbol);
    json.Key("inertia").Text(units.inertia.symbol);
    json.Key("density").Text(units.density.symbol);
    json.Key("surface_density").Text(units.surfaceDensity.symbol);
    json.Key("share").Text("%").Close('}');
    Section(json, "axes").Text(report.node.identifier + ' ' + report.node.version);
    Section(json, "inertia_about").Open('{').Key("point").Text(PointWord(report.arguments));
    json.Key("position").Numbers(report.InertiaPoint()).Close('}');
    Section(json, "product_sign").Text("+ integral");
}

void AddTotal(Json& json, const ComputeReport& report)
{
    const wb::ComputeResult& result = report.result;
    Section(json, "partial").Flag(result.total.IsPartial());
    Section(json, "total").Open('{');
    AddBody(json, report.total.body);
    json.Key("principal_moments").Numbers(report.total.principalMoments);
    json.Key("radii_of_gyration").Numbers(report.total.radiiOfGyration).Close('}');
    Section(json, "deviations").Text(result.precisionDefined ? "defined" : "worst case");
    Section(json, "stale_sums").Number(static_cast<double>(result.staleTaken));
    Section(json, "taken_mass_type").TextOrNull(result.takenType);
    Section(json, "centre_from").TextOrNull(result.centreFrom);
    Section(json, "inertia_from").TextOrNull(result.inertiaFrom);
}

void AddImposed(Json& json, const ComputeReport& report)
{
    Section(json, "imposed");
    if (!report.result.imposed) {
        json.Raw("null");
        return;
    }
    json.Open('{');
    const auto add = [&json](const char* name, const wb::Body& body) {
        json.NewLine(2).Key(name).Open('{');
        AddBody(json, body);
        json.Close('}');
    };
    add("own", report.result.total.body);
    add("below", report.result.imposed->below.body);
    add("difference", report.result.imposed->difference);
    json.EndLine(1).Close('}');
}

void AddCoverage(Json& json, const wb::Counts& counts)
{
    Section(json, "coverage").Open('{');
    json.Key("items").Number(counts.leaves);
    json.Key("without_mass").Number(counts.withoutMass);
    json.Key("mass_without_centre").Number(counts.massWithoutCentre);
    json.Key("mass_without_inertia").Number(counts.massWithoutInertia).Close('}');
}

void AddRootSumSquare(Json& json, const ComputeReport& report)
{
    Section(json, "rss");
    if (!report.arguments.rss) {
        json.Raw("null");
        return;
    }
    const auto add = [&json](const char* name, const wb::Deviations& deviations) {
        json.Key(name).Open('{').Key("lower_deviation").Number(deviations.lower);
        json.Key("upper_deviation").Number(deviations.upper).Close('}');
    };
    json.Open('{');
    add("together", report.result.statistics.rss.together);
    add("apart", report.result.statistics.rss.apart);
    json.Close('}');
}

void AddUncertainty(Json& json, const ComputeReport& report)
{
    Section(json, "standard_uncertainty");
    const auto& uncertainty = report.result.uncertainty;
    if (!report.arguments.uncertainty || !uncertainty) {
        json.Raw("null");
        return;
    }
    constexpr double kPerCent = 100.0;
    json.Open('{').Key("errors").Text(report.arguments.compute.errorsApart ? "apart" : "together");
    json.Key("inertia_about").Text("cg");
    json.Key("mass").Number(uncertainty->mass);
    AddCentreAndInertia(json, uncertainty->centre, uncertainty->inertia);
    json.Key("share_unstated").Number(kPerCent * uncertainty->shareUnstated);
    json.Key("first_order_understates").Texts(uncertainty->understated).Close('}');
}

/// A list with an object a line.
template <class Items, class AddItem>
void AddList(Json& json, const char* name, const Items& items, const AddItem& addItem)
{
    Section(json, name).Open('[');
    for (const auto& item : items) {
        json.NewLine(2).Open('{');
        addItem(item);
        json.Close('}');
    }
    if (!items.empty()) {
        json.EndLine(1);
    }
    json.Close(']');
}

void AddShares(Json& json, const ComputeReport& report)
{
    const wb::Statistics& statistics = report.result.statistics;
    const auto addMass = [&](double mass) {
        json.Key("mass").Number(mass);
        json.Key("share").Number(report.ShareOf(mass));
    };
    AddList(json, "materials", statistics.materials, [&](const wb::MaterialShare& share) {
        json.Key("material").Text(share.material);
        json.Key("dimension").Raw(share.dimension == wb::Dimension::Volume ? "3" : "2");
        json.Key("density").Number(share.density == 0.0 ? wb::kUnknown : share.density);
        addMass(share.mass);
    });
    const auto addNamed = [&](const wb::NamedShare& share) {
        json.Key("name").Text(share.name);
        addMass(share.mass);
    };
    AddList(json, "mass_types", statistics.massTypes, addNamed);
    AddList(json, "codes", statistics.codes, addNamed);
    Section(json, "growth").Open('{');
    json.Key("basic_mass").Number(report.total.body.mass);
    json.Key("growth_allowance").Number(statistics.growthAllowance);
    json.Key("predicted_mass").Number(report.PredictedMass()).Close('}');
}

void AddContributors(Json& json, const ComputeReport& report)
{
    const auto add = [&](const wb::Contributor& contributor) {
        json.Key("part").Text(contributor.part);
        json.Key("version").Text(contributor.version);
        json.Key("name").Text(contributor.name);
        json.Key("pieces").Number(contributor.pieces);
        json.Key("mass").Number(contributor.mass);
        json.Key("share").Number(report.ShareOf(contributor.mass));
        json.Key("sigma").Number(contributor.sigmaMass);
        json.Key("share_of_variance").Number(report.ShareOfVariance(contributor.sigmaMass));
    };
    AddList(json, "largest_masses", report.result.largestMasses, add);
    AddList(json, "largest_uncertainties", report.result.largestUncertainties, add);
}
} // namespace

std::string ComputeAsJson(const ComputeReport& report)
{
    Json json;
    json.Open('{');
    AddAsked(json, report);
    AddUnits(json, report);
    AddTotal(json, report);
    AddImposed(json, report);
    AddCoverage(json, report.result.total.counts);
    AddRootSumSquare(json, report);
    AddUncertainty(json, report);
    AddShares(json, report);
    AddContributors(json, report);
    Section(json, "took_active_values").Texts(report.result.fellBack);
    Section(json, "warnings").Texts(report.result.warnings);
    json.EndLine(0).Close('}');
    return json.Take() + '\n';
}
