#include "ChangeTexts.h"

#include "WBNumbers.h"

#include <array>
#include <charconv>
#include <ctime>
#include <optional>
#include <vector>

namespace
{
using Unit = ComputeUnits::Unit ComputeUnits::*;

/// Per cent has no place among the units that a user chooses.
constexpr Unit kPerCent = nullptr;

struct FactRow
{
    std::string_view fact;
    Unit unit;
};

// What a user changes goes by the name of the whole quantity, an import tells of single numbers.
constexpr std::array kFacts{
    FactRow{"mass", &ComputeUnits::mass},
    FactRow{"centre", &ComputeUnits::length},
    FactRow{"inertia", &ComputeUnits::inertia},
    FactRow{"density", &ComputeUnits::density},
    FactRow{"surface_density", &ComputeUnits::surfaceDensity},
    FactRow{"material_density", &ComputeUnits::density},
    FactRow{"material_surface_density", &ComputeUnits::surfaceDensity},
    FactRow{"lower", &ComputeUnits::mass},
    FactRow{"upper", &ComputeUnits::mass},
    FactRow{"lower_pct", kPerCent},
    FactRow{"upper_pct", kPerCent},
    FactRow{"growth_pct", kPerCent},
    FactRow{"cgx", &ComputeUnits::length},
    FactRow{"cgy", &ComputeUnits::length},
    FactRow{"cgz", &ComputeUnits::length},
    FactRow{"ixx", &ComputeUnits::inertia},
    FactRow{"iyy", &ComputeUnits::inertia},
    FactRow{"izz", &ComputeUnits::inertia},
    FactRow{"ixy", &ComputeUnits::inertia},
    FactRow{"ixz", &ComputeUnits::inertia},
    FactRow{"iyz", &ComputeUnits::inertia},
    FactRow{"sigma_mass", &ComputeUnits::mass},
    FactRow{"sigma_cgx", &ComputeUnits::length},
    FactRow{"sigma_cgy", &ComputeUnits::length},
    FactRow{"sigma_cgz", &ComputeUnits::length},
    FactRow{"sigma_ixx", &ComputeUnits::inertia},
    FactRow{"sigma_iyy", &ComputeUnits::inertia},
    FactRow{"sigma_izz", &ComputeUnits::inertia},
    FactRow{"sigma_ixy", &ComputeUnits::inertia},
    FactRow{"sigma_ixz", &ComputeUnits::inertia},
    FactRow{"sigma_iyz", &ComputeUnits::inertia},
};

constexpr std::string_view kProperty = "property ";
constexpr std::string_view kPrecision = "precision";
constexpr std::string_view kPercent = "percent";
constexpr std::string_view kAbsolute = "absolute";

/// "mass" of "mass type Weighed, mass".
std::string_view NameOf(std::string_view fact)
{
    constexpr std::string_view kMark = ", ";
    const std::size_t mark = fact.rfind(kMark);
    return mark == std::string_view::npos ? fact : fact.substr(mark + kMark.size());
}

std::vector<std::string_view> Split(std::string_view text)
{
    std::vector<std::string_view> pieces;
    for (std::size_t mark = text.find(';'); mark != std::string_view::npos; mark = text.find(';')) {
        pieces.push_back(text.substr(0, mark));
        text.remove_prefix(mark + 1);
    }
    pieces.push_back(text);
    return pieces;
}

/// Nine digits show every change that matters and no rounding of a conversion.
std::string Rounded(double value)
{
    constexpr int kDigits = 9;
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::general, kDigits);
    return {text.data(), end.ptr};
}

/// The numbers in that unit and its symbol; empty where one is no number.
std::string InUnit(std::string_view text, const ComputeUnits& units, Unit unit)
{
    std::string shown;
    for (const std::string_view piece : Split(text)) {
        const std::optional<double> value = wb::ReadNumber(piece);
        if (!value) {
            return {};
        }
        const double converted = unit == kPerCent ? *value : (units.*unit).fromStorage(*value);
        shown += (shown.empty() ? "" : "; ") +
                 (converted == *value ? std::string(piece) : Rounded(converted));
    }
    return shown + ' ' + (unit == kPerCent ? "%" : (units.*unit).symbol);
}

std::string PrecisionText(std::string_view text, const ComputeUnits& units)
{
    const std::vector<std::string_view> pieces = Split(text);
    if (pieces.size() != 3 || (pieces[0] != kPercent && pieces[0] != kAbsolute)) {
        return {};
    }
    const Unit unit = pieces[0] == kPercent ? kPerCent : &ComputeUnits::mass;
    const std::string lower = InUnit(pieces[1], units, unit);
    const std::string upper = InUnit(pieces[2], units, unit);
    return lower.empty() || upper.empty() ? "" : "lower " + lower + ", upper " + upper;
}

std::string WithUnits(std::string_view fact, std::string_view text, const ComputeUnits& units)
{
    // The user gave a property its name and says himself what its numbers mean.
    if (fact.starts_with(kProperty)) {
        return {};
    }
    const std::string_view name = NameOf(fact);
    if (name == kPrecision) {
        return PrecisionText(text, units);
    }
    for (const FactRow& row : kFacts) {
        if (row.fact == name) {
            return InUnit(text, units, row.unit);
        }
    }
    return {};
}
} // namespace

std::string ShownChangeValue(std::string_view fact, std::string_view text,
                             const ComputeUnits& units)
{
    if (text.empty()) {
        return "-";
    }
    const std::string shown = WithUnits(fact, text, units);
    return shown.empty() ? std::string(text) : shown;
}

std::string ShownMoment(const std::string& moment)
{
    std::tm parts{};
    const char* end = strptime(moment.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    if (end == nullptr || *end != '\0') {
        return moment;
    }
    const std::time_t seconds = timegm(&parts);
    std::tm local{};
    localtime_r(&seconds, &local);
    std::array<char, 64> text;
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y/%m/%d %H:%M:%S", &local);
    return {text.data(), length};
}

std::string MomentForPrograms(const std::string& moment)
{
    const std::size_t blank = moment.find(' ');
    return blank == std::string::npos
               ? moment
               : moment.substr(0, blank) + 'T' + moment.substr(blank + 1) + 'Z';
}
