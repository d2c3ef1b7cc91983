#include "ComputeArguments.h"

#include "OptionTexts.h"
#include "WBNumbers.h"
#include "WBTexts.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace
{
using Common = CATENOWBCSCommonDefinitions;
using wb::LowerCase;

constexpr std::size_t kUsualContributors = 10;

constexpr std::array kEntities{
    OptionWord<wb::ComputeOptions::Asked>{"instance", wb::ComputeOptions::Asked::Node},
    OptionWord<wb::ComputeOptions::Asked>{"root", wb::ComputeOptions::Asked::Root},
    OptionWord<wb::ComputeOptions::Asked>{"part", wb::ComputeOptions::Asked::Alone},
};
constexpr std::array kDensityOrders{
    OptionWord<wb::DensityPriority>{"wb", Common::WBDensityFirst},
    OptionWord<wb::DensityPriority>{"material", Common::MaterialDensityFirst},
};
constexpr std::array kPoints{
    OptionWord<ComputeArguments::Point>{"cg", ComputeArguments::Point::Centre},
    OptionWord<ComputeArguments::Point>{"origin", ComputeArguments::Point::Origin},
};
constexpr std::array kPolicies{
    OptionWord<ComputeArguments::Update>{"check", ComputeArguments::Update::Check},
    OptionWord<ComputeArguments::Update>{"force", ComputeArguments::Update::Force},
};

template <class Words, class Value>
bool ReadWord(const Words& words, const std::string& typed, Value& value)
{
    const auto found = FindWord(words, typed);
    if (found) {
        value = *found;
    }
    return found.has_value();
}

std::string ReadPrecision(const std::string& typed, wb::ComputeOptions& compute)
{
    const std::string word = LowerCase(typed);
    if (word == "active") {
        return {};
    }
    if (word == "most-precise" || word == "mostprecise") {
        compute.precision = wb::ComputeOptions::Precision::MostPrecise;
        return {};
    }
    compute.precision = wb::ComputeOptions::Precision::Specified;
    compute.massType = word == LowerCase(Common::Computed) ? Common::Computed : typed;
    return typed.empty() ? Expected("--precision", "active, most-precise or a mass type", typed)
                         : "";
}

std::string ReadOrElse(const std::string& typed, wb::ComputeOptions& compute)
{
    if (typed.empty()) {
        return {};
    }
    if (LowerCase(typed) != "active") {
        return Expected("--or", "active", typed);
    }
    const bool namesType = compute.precision == wb::ComputeOptions::Precision::Specified &&
                           compute.massType != Common::Computed;
    compute.orActive = namesType;
    return namesType ? "" : "--or active: expected --precision with a mass type beside it";
}

std::string ReadUpdate(const std::string& typed, ComputeArguments& arguments)
{
    if (ReadWord(kPolicies, typed, arguments.update)) {
        return {};
    }
    constexpr std::string_view kAssume = "assume:";
    if (LowerCase(typed).starts_with(kAssume)) {
        const auto level = wb::ReadInteger(std::string_view(typed).substr(kAssume.size()));
        if (level && *level >= 0) {
            arguments.update = ComputeArguments::Update::Assume;
            arguments.level = *level;
            return {};
        }
    }
    return Expected("--update", "check, force or assume:LEVEL with a whole number from 0", typed);
}

std::string ReadOnePart(const ComputeCommandOptions& options, wb::ComputeOptions& compute)
{
    wb::DensityPriority first = Common::WBDensityFirst;
    if (!options.densityFirst.empty()) {
        if (!ReadWord(kDensityOrders, options.densityFirst, first)) {
            return Expected("--density-first", "wb or material", options.densityFirst);
        }
        compute.densityPriority = first;
    }
    compute.material = options.material;
    if (compute.asked == wb::ComputeOptions::Asked::Root &&
        (compute.densityPriority || !compute.material.empty())) {
        return "--density-first and --material: expected one part, found --entity root; below the "
               "root each part has a material and an order of its own";
    }
    return {};
}

std::string ReadDeviations(const std::string& typed, wb::ComputeOptions& compute)
{
    constexpr const char* kExpected =
        "LOWER,UPPER% of the mass or LOWER,UPPERkg, two numbers from 0 with \".\" for the decimal "
        "mark";
    wb::ComputeOptions::DefinedPrecision defined;
    std::string_view text = typed;
    const auto hasUnit = [&](std::string_view unit) {
        const bool has = text.ends_with(unit);
        text.remove_suffix(has ? unit.size() : 0);
        return has;
    };
    defined.percentage = hasUnit("%");
    if (!defined.percentage && !hasUnit("kg")) {
        return Expected("--deviations", kExpected, typed);
    }
    const std::vector<std::string_view> items = SplitAtCommas(text);
    const auto lower = wb::ReadNumber(items.front());
    const auto upper = wb::ReadNumber(items.back());
    if (items.size() != 2 || !lower || !upper || *lower < 0.0 || *upper < 0.0) {
        return Expected("--deviations", kExpected, typed);
    }
    defined.lower = *lower;
    defined.upper = *upper;
    compute.definedPrecision = defined;
    return {};
}

std::string ReadPoint(const std::string& typed, ComputeArguments& arguments)
{
    if (ReadWord(kPoints, typed, arguments.point)) {
        return {};
    }
    const std::vector<std::string_view> items = SplitAtCommas(typed);
    bool isGood = items.size() == arguments.at.size();
    for (std::size_t i = 0; isGood && i < items.size(); ++i) {
        const auto number = wb::ReadNumber(items[i]);
        arguments.at[i] = number.value_or(0.0);
        isGood = number.has_value();
    }
    arguments.point = ComputeArguments::Point::Typed;
    return isGood ? ""
                  : Expected("--at",
                             "cg, origin or X,Y,Z, three numbers with \".\" for the decimal mark",
                             typed);
}

/// The option's number is optional, so a path right behind it is taken for one: it is the path.
std::string ReadExplain(const std::string& typed, ComputeArguments& arguments)
{
    const auto count = wb::ReadInteger(typed);
    if (typed.empty() || (!count && arguments.path.empty())) {
        arguments.path += typed;
        arguments.compute.contributors = kUsualContributors;
        return {};
    }
    if (!count || *count < 1) {
        return Expected("--explain", "how many to list, a whole number from 1", typed);
    }
    arguments.compute.contributors = static_cast<std::size_t>(*count);
    return {};
}

std::string ReadFilterOption(const ComputeCommandOptions& options, wb::Filter& filter)
{
    if (!options.filter) {
        return {};
    }
    if (!options.included.empty() || !options.excluded.empty()) {
        return "--filter beside --include or --exclude: expected one way to name a filter";
    }
    const std::string error = wb::ReadFilterText(*options.filter, filter);
    return error.empty() ? "" : "--filter: " + error;
}

std::string ReadAll(const ComputeCommandOptions& options, ComputeArguments& arguments)
{
    std::string problem = ReadPrecision(options.precision, arguments.compute);
    const auto next = [&problem](const auto& read) {
        problem = problem.empty() ? read() : problem;
    };
    next([&] { return ReadOrElse(options.orElse, arguments.compute); });
    next([&] { return ReadUpdate(options.update, arguments); });
    next([&] {
        return ReadWord(kEntities, options.entity, arguments.compute.asked)
                   ? ""
                   : Expected("--entity", "instance, root or part", options.entity);
    });
    next([&] { return ReadOnePart(options, arguments.compute); });
    next([&] { return ReadFilterOption(options, arguments.compute.filter); });
    next([&] {
        return options.deviations ? ReadDeviations(*options.deviations, arguments.compute) : "";
    });
    next([&] { return ReadPoint(options.at, arguments); });
    next([&] { return options.explain ? ReadExplain(*options.explain, arguments) : ""; });
    next([&] {
        return arguments.path.empty() ? "path: expected ROOT/INSTANCE/INSTANCE, found none" : "";
    });
    return problem;
}
} // namespace

std::optional<ComputeArguments> ReadComputeArguments(const ComputeCommandOptions& options,
                                                     std::string& problem)
{
    ComputeArguments arguments;
    arguments.path = options.path;
    problem = ReadAll(options, arguments);
    if (!problem.empty()) {
        return std::nullopt;
    }
    arguments.rss = options.rss;
    wb::ComputeOptions& compute = arguments.compute;
    compute.errorsApart = options.apart;
    // Errors apart are those of the uncertainties, unless something else that was asked shows them.
    arguments.uncertainty =
        options.uncertainty || (options.apart && !options.rss && compute.contributors == 0);
    // The share of each contributor is one in the uncertainty of the whole.
    compute.uncertainty = arguments.uncertainty || compute.contributors > 0;
    return arguments;
}

std::string MassTypeProblem(const std::vector<wb::MassType>& types,
                            const wb::ComputeOptions& compute)
{
    if (compute.precision != wb::ComputeOptions::Precision::Specified ||
        compute.massType == Common::Computed ||
        std::ranges::find(types, compute.massType, &wb::MassType::name) != types.end()) {
        return {};
    }
    std::string known = "active, most-precise, Computed";
    for (const wb::MassType& type : types) {
        known += ", " + type.name;
    }
    return Expected("--precision", known, compute.massType);
}
