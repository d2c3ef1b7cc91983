#include "WBQuantity.h"

#include "WBNumbers.h"
#include "WBRules.h"
#include "WBTexts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

namespace wb
{
namespace
{
constexpr char kSeparator = ';';
constexpr std::string_view kPercent = "percent";
constexpr std::string_view kAbsolute = "absolute";

constexpr std::array kMassFacts{Fact::Mass};
constexpr std::array kCentreFacts{Fact::CgX, Fact::CgY, Fact::CgZ};
constexpr std::array kInertiaFacts{Fact::Ixx, Fact::Iyy, Fact::Izz,
                                   Fact::Ixy, Fact::Ixz, Fact::Iyz};
constexpr std::array kSizeFacts{Fact::Lower, Fact::Upper};
constexpr std::array kPercentageFacts{Fact::LowerPct, Fact::UpperPct};
constexpr std::array kPrecisionFacts{Fact::Lower, Fact::Upper, Fact::LowerPct, Fact::UpperPct};
/// The form in which an inertia was typed goes with its numbers: radii, sign and point.
constexpr std::array kInertiaForms{"kx", "ky", "kz", "poi_sign", "inertia_at"};

/// A quantity of a set that is plain numbers.
struct NumbersRow
{
    std::string_view name;
    std::span<const Fact> facts;
    std::string_view expected;
};

constexpr std::array kNumberRows{
    NumbersRow{kMassQuantity, kMassFacts, "a number in kg"},
    NumbersRow{kCentreQuantity, kCentreFacts, "three numbers in mm, joined by \";\""},
    NumbersRow{kInertiaQuantity, kInertiaFacts, "six numbers in kg.m2, joined by \";\""}};

const NumbersRow* FindNumbers(const Quantity& quantity)
{
    const auto found = std::ranges::find(kNumberRows, quantity.name, &NumbersRow::name);
    return quantity.massType.empty() || found == kNumberRows.end() ? nullptr : &*found;
}

bool IsPrecision(const Quantity& quantity)
{
    return !quantity.massType.empty() && quantity.name == kPrecisionQuantity;
}

/// The facts of the owner itself, by the name of the quantity.
constexpr std::array kOwnFacts{std::pair{kActiveQuantity, Fact::Active},
                               std::pair{kDensityQuantity, Fact::Density},
                               std::pair{kMaterialQuantity, Fact::Material},
                               std::pair{kDensityOrderQuantity, Fact::DensityFirst}};

/// The owner's own fact of that name; nothing where the quantity is none.
std::optional<Fact> OwnFact(const Quantity& quantity)
{
    const auto found = std::ranges::find_if(
        kOwnFacts, [&](const auto& entry) { return entry.first == quantity.name; });
    return !quantity.massType.empty() || found == kOwnFacts.end() ? std::nullopt
                                                                  : std::optional(found->second);
}

bool IsProperty(const Quantity& quantity)
{
    return quantity.massType.empty() && quantity.name.starts_with(kPropertyQuantity);
}

std::string_view PropertyName(const Quantity& quantity)
{
    return std::string_view(quantity.name).substr(kPropertyQuantity.size());
}

std::string Found(const Quantity& quantity, std::string_view text, std::string_view expected)
{
    std::string sentence = QuantityName(quantity) + ": found \"";
    return sentence.append(text).append("\", expected ").append(expected);
}

std::string NotInDatabase(const Quantity& quantity, std::string_view text, const char* kind)
{
    std::string sentence = QuantityName(quantity) + ": \"";
    return sentence.append(text).append("\" is not a ").append(kind).append(" of the database");
}

std::string Joined(const ValueSet& set, std::span<const Fact> facts)
{
    std::string text;
    for (const Fact fact : facts) {
        text += (text.empty() ? "" : std::string(1, kSeparator)) + WriteNumber(set[fact]);
    }
    return text;
}

/// Beyond it a mass times the square of a distance is no number any more, and a sum would be lost.
constexpr double kLargest = 1e90;

/// As many numbers as are expected; nothing where the text holds others.
std::optional<std::vector<double>> ReadNumbers(std::string_view text, std::size_t count)
{
    std::vector<double> numbers;
    while (true) {
        const std::size_t end = std::min(text.find(kSeparator), text.size());
        const auto number = ReadNumber(text.substr(0, end));
        if (!number || std::abs(*number) > kLargest) {
            return std::nullopt;
        }
        // A negative zero becomes a plain one.
        numbers.push_back(*number + 0.0);
        if (end == text.size()) {
            break;
        }
        text.remove_prefix(end + 1);
    }
    return numbers.size() == count ? std::optional(std::move(numbers)) : std::nullopt;
}

/// Unknown is another thing than 0.
bool SaysTheSame(double stated, double value)
{
    return IsKnown(stated) == IsKnown(value) && AreAlike(stated, value);
}

/// Returns whether the number is another one than before.
bool Assign(ValueSet& set, Fact fact, double value)
{
    if (SaysTheSame(set[fact], value)) {
        return false;
    }
    set[fact] = value;
    ForgetTyped(set.typed, FactName(fact));
    return true;
}

std::string PrecisionText(const ValueSet& set)
{
    if (set.Has(Fact::Lower)) {
        return std::string(kAbsolute) + kSeparator + Joined(set, kSizeFacts);
    }
    return set.Has(Fact::LowerPct)
               ? std::string(kPercent) + kSeparator + Joined(set, kPercentageFacts)
               : std::string();
}

std::string SetText(const std::vector<ValueSet>& sets, const Quantity& quantity)
{
    const ValueSet* set = FindSet(sets, quantity.massType);
    if (set == nullptr) {
        return {};
    }
    if (const NumbersRow* row = FindNumbers(quantity)) {
        return set->Has(row->facts.front()) ? Joined(*set, row->facts) : std::string();
    }
    return IsPrecision(quantity) ? PrecisionText(*set) : std::string();
}

std::string PropertyText(const std::vector<Property>& properties, const Quantity& quantity)
{
    const auto found = std::ranges::find(properties, PropertyName(quantity), &Property::name);
    return found == properties.end() ? std::string() : found->value;
}

const char* OrderWord(DensityOrder order)
{
    constexpr std::array kWords{"", "wb", "material"};
    return kWords[static_cast<std::size_t>(order)];
}

/// What a part and a use may both state.
template <typename Owner>
std::string CommonText(const Owner& owner, const Quantity& quantity)
{
    if (!quantity.massType.empty()) {
        return SetText(owner.sets, quantity);
    }
    if (IsProperty(quantity)) {
        return PropertyText(owner.properties, quantity);
    }
    switch (OwnFact(quantity).value_or(Fact::Name)) {
    case Fact::Active:
        return owner.activeType;
    case Fact::Density:
        return IsKnown(owner.density) ? WriteNumber(owner.density) : std::string();
    case Fact::Material:
        return owner.material;
    default:
        return {};
    }
}

std::string SetNumbers(ValueSet& set, const Quantity& quantity, const NumbersRow& row,
                       std::string_view text)
{
    std::vector<double> numbers(row.facts.size(), kUnknown);
    if (!text.empty()) {
        auto read = ReadNumbers(text, row.facts.size());
        if (!read) {
            return Found(quantity, text, row.expected);
        }
        numbers = std::move(*read);
    }
    bool changed = false;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        changed = Assign(set, row.facts[i], numbers[i]) || changed;
    }
    if (changed && row.facts.front() == Fact::Ixx) {
        for (const Fact fact : row.facts) {
            ForgetTyped(set.typed, FactName(fact));
        }
        for (const char* form : kInertiaForms) {
            ForgetTyped(set.typed, form);
        }
    }
    return {};
}

/// The two numbers behind the word; nothing where the text is another or they are no sizes.
std::optional<std::vector<double>> ReadPrecision(std::string_view text, std::string_view word)
{
    if (!text.starts_with(word) || text.substr(word.size(), 1) != std::string(1, kSeparator)) {
        return std::nullopt;
    }
    auto numbers = ReadNumbers(text.substr(word.size() + 1), 2);
    const bool areSizes =
        numbers && std::ranges::all_of(*numbers, [](double number) { return number >= 0.0; });
    return areSizes ? std::move(numbers) : std::nullopt;
}

/// A precision in kg and one in per cent exclude each other.
std::string SetPrecision(ValueSet& set, const Quantity& quantity, std::string_view text)
{
    const auto sizes = ReadPrecision(text, kAbsolute);
    const auto percentages = ReadPrecision(text, kPercent);
    if (!sizes && !percentages && !text.empty()) {
        return Found(quantity, text,
                     "percent or absolute and two numbers that are not negative, joined by \";\"");
    }
    for (std::size_t i = 0; i < kSizeFacts.size(); ++i) {
        Assign(set, kSizeFacts[i], sizes ? (*sizes)[i] : kUnknown);
        Assign(set, kPercentageFacts[i], percentages ? (*percentages)[i] : kUnknown);
    }
    return {};
}

bool SaysNothing(const ValueSet& set)
{
    return !set.HasSomething() && set.source.empty() && set.sourceDate.empty() &&
           set.author.empty() && set.note.empty();
}

int OrderOf(const std::vector<MassType>& types, std::string_view name)
{
    const MassType* type = FindMassType(types, name);
    return type == nullptr ? 0 : type->order;
}

std::string ChangeSet(ValueSet& set, PartType type, const Quantity& quantity, std::string_view text)
{
    if (IsPrecision(quantity)) {
        return SetPrecision(set, quantity, text);
    }
    const NumbersRow* row = FindNumbers(quantity);
    if (row == nullptr) {
        return QuantityName(quantity) + ": no value set states this";
    }
    std::string problem = SetNumbers(set, quantity, *row, text);
    if (problem.empty() && set[Fact::Mass] < 0.0 && type != PartType::Adjustment) {
        return Found(quantity, text, "a mass that is not negative, or a part of type adjustment");
    }
    return problem;
}

/// Sets stand by the order of their mass types.
std::string SetInSets(std::vector<ValueSet>& sets, PartType type, const Quantity& quantity,
                      std::string_view text, const std::vector<MassType>& types)
{
    if (FindMassType(types, quantity.massType) == nullptr) {
        return NotInDatabase(quantity, quantity.massType, "mass type");
    }
    const auto known = std::ranges::find(sets, quantity.massType, &ValueSet::massType);
    ValueSet set = known == sets.end() ? ValueSet() : *known;
    set.massType = quantity.massType;
    std::string problem = ChangeSet(set, type, quantity, text);
    if (!problem.empty()) {
        return problem;
    }
    if (known != sets.end()) {
        const bool isEmptied = SaysNothing(set) && !SaysNothing(*known);
        *known = std::move(set);
        if (isEmptied) {
            sets.erase(known);
        }
    } else if (!SaysNothing(set)) {
        const int order = OrderOf(types, quantity.massType);
        const auto above = std::ranges::find_if(
            sets, [&](const ValueSet& other) { return OrderOf(types, other.massType) > order; });
        sets.insert(above, std::move(set));
    }
    return {};
}

template <typename Owner>
std::string SetActive(Owner& owner, const Quantity& quantity, std::string_view text,
                      const std::vector<MassType>& types)
{
    if (!text.empty()) {
        const MassType* type = FindMassType(types, text);
        if (type == nullptr) {
            return NotInDatabase(quantity, text, "mass type");
        }
        if (type->kind == MassType::Kind::Goal) {
            return Found(quantity, text, "a claim, since a goal never counts");
        }
    }
    owner.lastImposed = owner.Imposed();
    owner.activeType = text;
    return {};
}

template <typename Owner>
std::string SetDensity(Owner& owner, const Quantity& quantity, std::string_view text)
{
    double density = kUnknown;
    if (!text.empty()) {
        const auto number = ReadNumber(text);
        if (!number || *number < 0.0 || *number > kLargest) {
            return Found(quantity, text, "a number in kg/m3 that is not negative");
        }
        density = *number + 0.0;
    }
    if (!SaysTheSame(owner.density, density)) {
        owner.density = density;
        ForgetTyped(owner.typed, FactName(Fact::Density));
    }
    return {};
}

template <typename Owner>
std::string SetMaterial(Owner& owner, const Quantity& quantity, std::string_view text,
                        const KnownProducts& known)
{
    if (!text.empty() && !known.FindMaterial(text)) {
        return NotInDatabase(quantity, text, "material");
    }
    owner.material = text;
    return {};
}

/// A text as a property of that kind keeps it; nothing, and what is expected, where it is no such.
std::optional<std::string> PropertyValue(const Property& property, std::string_view text,
                                         std::string& expected)
{
    switch (property.type) {
    case Property::Type::Integer: {
        const auto number = ReadInteger(text);
        expected = "a whole number";
        return number ? std::optional(std::to_string(*number)) : std::nullopt;
    }
    case Property::Type::Real:
    case Property::Type::Dimensioned: {
        const auto number = ReadNumber(text);
        expected = "a number";
        return number ? std::optional(WriteNumber(*number)) : std::nullopt;
    }
    case Property::Type::YesNo: {
        std::string word = LowerCase(text);
        expected = "yes or no";
        return word == "yes" || word == "no" ? std::optional(std::move(word)) : std::nullopt;
    }
    case Property::Type::Text:
        break;
    }
    std::string value(text);
    if (property.isDate) {
        std::ranges::replace(value, '/', '-');
        expected = "a date yyyy-mm-dd";
        return IsDate(value) ? std::optional(std::move(value)) : std::nullopt;
    }
    const auto forbidden = ForbiddenText(text);
    expected = "a text " + std::string(forbidden.value_or("in UTF-8"));
    return forbidden || FirstNonUtf8(text) ? std::nullopt : std::optional(std::move(value));
}

std::string SetProperty(std::vector<Property>& properties, const Quantity& quantity,
                        std::string_view text)
{
    const auto found = std::ranges::find(properties, PropertyName(quantity), &Property::name);
    if (found == properties.end()) {
        return QuantityName(quantity) + ": there is no such property here";
    }
    std::string expected;
    auto value =
        text.empty() ? std::optional<std::string>("") : PropertyValue(*found, text, expected);
    if (!value) {
        return Found(quantity, text, expected);
    }
    if (*value != found->value) {
        found->value = std::move(*value);
        found->typed.clear();
    }
    return {};
}

template <typename Owner>
std::string SetCommon(Owner& owner, PartType type, const Quantity& quantity, std::string_view text,
                      const KnownProducts& known)
{
    if (!quantity.massType.empty()) {
        return SetInSets(owner.sets, type, quantity, text, known.MassTypes());
    }
    if (IsProperty(quantity)) {
        return SetProperty(owner.properties, quantity, text);
    }
    switch (OwnFact(quantity).value_or(Fact::Name)) {
    case Fact::Active:
        return SetActive(owner, quantity, text, known.MassTypes());
    case Fact::Density:
        return SetDensity(owner, quantity, text);
    case Fact::Material:
        return SetMaterial(owner, quantity, text, known);
    default:
        return QuantityName(quantity) + ": nothing of this name can be stated here";
    }
}

std::string SetDensityOrder(Part& part, const Quantity& quantity, std::string_view text)
{
    for (const DensityOrder order :
         {DensityOrder::Unstated, DensityOrder::WeightAndBalance, DensityOrder::Material}) {
        if (text == OrderWord(order)) {
            part.densityFirst = order;
            return {};
        }
    }
    return Found(quantity, text, "wb or material");
}
} // namespace

std::string QuantityName(const Quantity& quantity)
{
    return (quantity.massType.empty() ? "" : "mass type " + quantity.massType + ", ") +
           quantity.name;
}

std::vector<std::string> FactsOf(const Quantity& quantity)
{
    std::span<const Fact> facts;
    if (const NumbersRow* row = FindNumbers(quantity)) {
        facts = row->facts;
    } else if (IsPrecision(quantity)) {
        facts = kPrecisionFacts;
    } else if (const auto own = OwnFact(quantity)) {
        return {FactName(*own)};
    }
    std::vector<std::string> names;
    for (const Fact fact : facts) {
        names.push_back(QuantityName({quantity.massType, FactName(fact)}));
    }
    return names.empty() ? std::vector{QuantityName(quantity)} : names;
}

std::string QuantityText(const Part& part, const Quantity& quantity)
{
    return OwnFact(quantity) == Fact::DensityFirst ? OrderWord(part.densityFirst)
                                                   : CommonText(part, quantity);
}

std::string QuantityText(const Use& use, const Quantity& quantity)
{
    return CommonText(use, quantity);
}

std::string SetQuantity(Part& part, const Quantity& quantity, std::string_view text,
                        const KnownProducts& known)
{
    return OwnFact(quantity) == Fact::DensityFirst
               ? SetDensityOrder(part, quantity, text)
               : SetCommon(part, part.type, quantity, text, known);
}

std::string SetQuantity(Use& use, PartType type, const Quantity& quantity, std::string_view text,
                        const KnownProducts& known)
{
    return SetCommon(use, type, quantity, text, known);
}

bool TouchesSums(const Quantity& quantity)
{
    return !IsProperty(quantity);
}
} // namespace wb
