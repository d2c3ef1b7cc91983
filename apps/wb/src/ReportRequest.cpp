#include "ReportRequest.h"

#include "ComputePlace.h"
#include "OptionTexts.h"
#include "WBNumbers.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace
{
using Common = CATENOWBCSCommonDefinitions;
using Kind = ReportRequest::Kind;

constexpr const char* kAll = "*";
constexpr const char* kOwnMaterial = "__null__";

constexpr std::array kKinds{
    OptionWord<Kind>{"report", Kind::Report},
    OptionWord<Kind>{"distributive", Kind::Distributive},
    OptionWord<Kind>{"material-statistics", Kind::MaterialStatistics},
};

/// As requests name them.
constexpr std::array kValues{"Deviations", "Centre", "Inertia", "Density",
                             "Materials",  "Volume", "Types",   "Date"};

/// Who names something twice means it once.
void AddOnce(std::vector<std::string>& names, const std::string& name)
{
    if (std::ranges::find(names, name) == names.end()) {
        names.push_back(name);
    }
}

std::string ReadValue(std::string_view typed, std::vector<std::string>& values)
{
    const auto known = std::ranges::find_if(
        kValues, [&](const char* name) { return wb::LowerCase(name) == wb::LowerCase(typed); });
    if (known == kValues.end()) {
        return Expected(
            "--values",
            "all, none or some of " + NearestNames(typed, {kValues.begin(), kValues.end()}), typed);
    }
    AddOnce(values, *known);
    return {};
}

std::string ReadValues(const std::string& typed, std::vector<std::string>& values)
{
    const std::string word = wb::LowerCase(typed);
    if (word == "all") {
        values = {kAll};
        return {};
    }
    if (word == "none") {
        return {};
    }
    for (const std::string_view item : SplitAtCommas(typed)) {
        std::string problem = ReadValue(item, values);
        if (!problem.empty()) {
            return problem;
        }
    }
    return {};
}

/// An option that a kind of report has no use for is a mistake, and nobody should take its outcome
/// for what was asked.
std::string KindProblem(const ReportCommandOptions& options, Kind kind)
{
    const bool hasMassesAlone = kind == Kind::MaterialStatistics;
    if (options.statistics && !hasMassesAlone) {
        return "--statistics: expected --kind material-statistics beside it, found " + options.kind;
    }
    for (const auto& [option, isGiven] : {std::pair{"--values", options.values.has_value()},
                                          std::pair{"--property", !options.properties.empty()},
                                          std::pair{"--no-properties", options.noProperties}}) {
        if (isGiven && hasMassesAlone) {
            return std::string(option) +
                   ": expected --kind report or distributive beside it, "
                   "found " +
                   options.kind + ", which holds masses alone";
        }
    }
    return {};
}

std::string FilterProblem(const ReportCommandOptions& options)
{
    const ComputeCommandOptions& computation = options.computation;
    const bool hasOther =
        computation.filter || !computation.included.empty() || !computation.excluded.empty();
    return options.storedFilter && hasOther
               ? "--stored-filter beside --filter, --include or --exclude: expected one way to "
                 "name a filter"
               : "";
}

/// Every node stands in a report, so none can be taken as it was kept.
std::string UpdateProblem(const std::string& typed)
{
    const std::string word = wb::LowerCase(typed);
    return word == "check" || word == "force" ? "" : Expected("--update", "check or force", typed);
}

std::string ReadAll(const ReportCommandOptions& options, ReportRequest& request)
{
    const std::optional<Kind> kind = FindWord(kKinds, options.kind);
    if (!kind) {
        return Expected("--kind", "report, distributive or material-statistics", options.kind);
    }
    request.kind = *kind;
    request.statistics = options.statistics;
    for (const std::string& name : options.properties) {
        AddOnce(request.properties, name);
    }
    if (options.properties.empty() && !options.noProperties) {
        request.properties = {kAll};
    }
    std::string problem = KindProblem(options, *kind);
    if (problem.empty()) {
        problem = FilterProblem(options);
    }
    if (problem.empty()) {
        problem = ReadValues(options.values.value_or("all"), request.values);
    }
    if (problem.empty()) {
        problem = UpdateProblem(options.computation.update);
    }
    if (problem.empty()) {
        request.computation =
            ReadComputeArguments(options.computation, problem).value_or(ComputeArguments());
    }
    return problem;
}

/// Builds a request, each field followed by "|".
class RequestFields
{
public:
    RequestFields& Add(std::string_view field)
    {
        m_text.append(field) += '|';
        return *this;
    }
    RequestFields& Add(std::size_t count) { return Add(std::to_string(count)); }
    RequestFields& AddCounted(const std::vector<std::string>& fields)
    {
        Add(fields.size());
        for (const std::string& field : fields) {
            Add(field);
        }
        return *this;
    }
    RequestFields& AddPlace(const wb::Filter::Line& place)
    {
        return Add(place.instance).Add(place.part).Add(place.version).AddCounted(place.path);
    }
    std::string Take() { return std::move(m_text); }

private:
    std::string m_text;
};

std::string PrecisionText(const wb::ComputeOptions& compute)
{
    using Precision = wb::ComputeOptions::Precision;
    return compute.precision == Precision::Active        ? "Active"
           : compute.precision == Precision::MostPrecise ? "MostPrecise"
                                                         : compute.massType;
}

void AddDeviations(const std::optional<wb::ComputeOptions::DefinedPrecision>& defined,
                   RequestFields& fields)
{
    if (!defined) {
        fields.Add(std::to_string(Common::NoPrecision));
        return;
    }
    fields.Add(std::to_string(Common::PrecisionDefined));
    fields.Add(std::to_string(defined->percentage ? Common::Percentage : Common::Absolute));
    fields.Add(wb::WriteNumber(defined->lower)).Add(wb::WriteNumber(defined->upper));
}

/// The place, the order of densities and the material count for single parts; of a root the server
/// reads past them.
void AddComputation(const ReportRequest& request, RequestFields& fields)
{
    const ComputeArguments& computation = request.computation;
    wb::Filter::Line place;
    place.part = request.root;
    fields.Add("1").AddPlace(place).Add("0").Add(kOwnMaterial);
    fields.Add(PrecisionText(computation.compute));
    fields.Add(computation.update == ComputeArguments::Update::Force ? "1" : "0");
    fields.Add(std::to_string(Common::Root)).Add(request.root);
    fields.Add(FilterText(computation.compute.filter));
    AddDeviations(computation.compute.definedPrecision, fields);
}
} // namespace

std::optional<ReportRequest> ReadReportRequest(const ReportCommandOptions& options,
                                               std::string& problem)
{
    ReportRequest request;
    problem = ReadAll(options, request);
    return problem.empty() ? std::optional(request) : std::nullopt;
}

std::string PropertyProblem(const std::vector<std::string>& wanted,
                            const std::vector<std::string>& known)
{
    for (const std::string& name : wanted) {
        if (std::ranges::find(known, name) == known.end()) {
            return "--property: \"" + name + "\" is no property of the database" +
                   (known.empty() ? ", which has none"
                                  : ", expected one of " + NearestNames(name, known));
        }
    }
    return {};
}

std::string FilterText(const wb::Filter& filter)
{
    if (filter.IsEmpty()) {
        return "0|No Filter";
    }
    RequestFields fields;
    fields.Add(filter.lines.size()).Add(filter.name);
    for (const wb::Filter::Line& line : filter.lines) {
        fields.Add(line.in ? "I" : "X").AddPlace(line);
    }
    std::string text = fields.Take();
    text.pop_back(); // the "|" that parts it from what follows is not its own
    return text;
}

std::string RequestText(const ReportRequest& request)
{
    RequestFields fields;
    fields.Add(std::to_string(static_cast<int>(request.kind))).Add(request.statistics ? "1" : "0");
    fields.Add(request.picked.size());
    for (const wb::Filter::Line& place : request.picked) {
        fields.AddPlace(place);
    }
    fields.AddCounted(request.values).AddCounted(request.properties);
    AddComputation(request, fields);
    return fields.Take();
}
