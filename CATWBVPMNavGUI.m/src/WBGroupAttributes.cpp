#include "WBGroupAttributes.h"

#include "WBGroupTexts.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

namespace
{

constexpr const char* kText = "";

struct KnownAttribute
{
    const char* name;
    const char* title; // default of the message "Attribute.<name>"
    const char* magnitude;
};
// In the order in which they are offered.
constexpr std::array kKnown{
    KnownAttribute{"Name", "@Name", kText},
    KnownAttribute{"Instance_ID", "@Instance", kText},
    KnownAttribute{"Part_ID", "@Part", kText},
    KnownAttribute{"Version", "@Version", kText},
    KnownAttribute{"Code", "@Code", kText},
    KnownAttribute{"Material", "@Material", kText},
    KnownAttribute{"WB_Mass", "@Mass", "MASS"},
    KnownAttribute{"Unit_mass", "@Mass of one piece", "MASS"},
    KnownAttribute{"WB_Lower_deviation", "@Lower deviation", "MASS"},
    KnownAttribute{"WB_Upper_deviation", "@Upper deviation", "MASS"},
    KnownAttribute{"COGx", "@CoG x", "LENGTH"},
    KnownAttribute{"COGy", "@CoG y", "LENGTH"},
    KnownAttribute{"COGz", "@CoG z", "LENGTH"},
    KnownAttribute{"MOIxx", "@Ixx", "INERTIAMOMENT"},
    KnownAttribute{"MOIyy", "@Iyy", "INERTIAMOMENT"},
    KnownAttribute{"MOIzz", "@Izz", "INERTIAMOMENT"},
    KnownAttribute{"POIxy", "@Ixy", "INERTIAMOMENT"},
    KnownAttribute{"POIxz", "@Ixz", "INERTIAMOMENT"},
    KnownAttribute{"POIyz", "@Iyz", "INERTIAMOMENT"},
    KnownAttribute{"WB_Density", "@Stated density", "DENSITY"},
    KnownAttribute{"Density", "@Density of a material", "DENSITY"},
    KnownAttribute{"Cut_Volume", "@Volume", "VOLUME"},
    KnownAttribute{"Quantity", "@Pieces", kWBPlainNumber},
    KnownAttribute{"WB_Status", "@Status", kText},
    KnownAttribute{"Source", "@Source", kText},
    KnownAttribute{"WBActiveMassTypeID", "@Active mass type", kText},
    KnownAttribute{"WBLastImposedMassTypeID", "@Mass type imposed last", kText},
    KnownAttribute{"WBActiveDocumentID", "@Active document", kText},
    KnownAttribute{"InstancePath", "@Path", kText},
};
// What a report holds beside them that is no property.
constexpr std::array<std::string_view, 4> kNoProperties{
    "instIdAttrAlias", "Density_dimension", "WB_Mass_Details", "WB_Last_calculation_date"};
constexpr std::string_view kMagnitudePrefix = "__magnitude__";
// Lists with ";" between their items, one a material.
constexpr std::array<std::string_view, 2> kLists{"Material", "Density"};

const KnownAttribute* FindKnown(std::string_view name)
{
    const auto* const found = std::ranges::find(kKnown, name, &KnownAttribute::name);
    return found == kKnown.end() ? nullptr : found;
}

bool IsProperty(std::string_view name)
{
    return FindKnown(name) == nullptr && !name.starts_with(kMagnitudePrefix) &&
           std::ranges::find(kNoProperties, name) == kNoProperties.end();
}

/// What the values of a property have been so far.
struct Seen
{
    CATDOMName name;
    CATUnicodeString magnitude;
    std::array<bool, 3> isAlways{true, true, true}; // of the kinds below
};
constexpr std::array kKinds{kWBDate, kWBYesNo, kWBPlainNumber};

void LookAt(Seen& seen, std::string_view text)
{
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
        seen.isAlways[kind] = seen.isAlways[kind] && !WBTypedForm(text, kKinds[kind]).IsEmpty();
    }
}

CATUnicodeString MagnitudeOf(const Seen& seen)
{
    if (!seen.magnitude.IsEmpty()) {
        return seen.magnitude;
    }
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
        if (seen.isAlways[kind]) {
            return kKinds[kind];
        }
    }
    return kText;
}

/// The magnitude that the report states beside a property.
CATUnicodeString StatedMagnitude(const WBGroupFigures& figures, int row, std::string_view property)
{
    return figures.Text(row, std::string(kMagnitudePrefix) + std::string(property));
}

std::vector<Seen> PropertiesOf(const WBGroupFigures& figures)
{
    std::vector<Seen> properties;
    constexpr int kUnknown = -2;
    constexpr int kIsNone = -1;
    // Few names and very many attributes: each name is looked at once.
    std::vector<int> places;
    for (int row = 0; row < figures.Count(); ++row) {
        for (int index = 0; index < figures.AttributeCount(row); ++index) {
            const CATDOMName name = figures.AttributeName(row, index);
            const auto number = static_cast<std::size_t>(name.number);
            if (number >= places.size()) {
                places.resize(number + 1, kUnknown);
            }
            if (places[number] == kUnknown) {
                const std::string_view text = figures.AttributeName(name);
                places[number] = IsProperty(text) ? static_cast<int>(properties.size()) : kIsNone;
                if (places[number] != kIsNone) {
                    properties.push_back({name, StatedMagnitude(figures, row, text)});
                }
            }
            if (places[number] != kIsNone) {
                LookAt(properties[static_cast<std::size_t>(places[number])],
                       figures.AttributeText(row, index));
            }
        }
    }
    return properties;
}

std::vector<std::string_view> ItemsOf(std::string_view list)
{
    std::vector<std::string_view> items;
    while (true) {
        const std::size_t end = std::min(list.find(';'), list.size());
        items.push_back(list.substr(0, end));
        if (end == list.size()) {
            return items;
        }
        list.remove_prefix(end + 1);
    }
}

/// Densities of what is sheet are of another magnitude; an unknown one stands as 0.
std::vector<std::string_view> VolumicDensities(const WBGroupFigures& figures, int row,
                                               const std::vector<std::string_view>& densities)
{
    const auto dimensions =
        ItemsOf(figures.Text(row, figures.Name("Density_dimension")).value_or(""));
    std::vector<std::string_view> volumic;
    for (std::size_t index = 0; index < std::min(densities.size(), dimensions.size()); ++index) {
        if (dimensions[index] == "3" && densities[index] != "0") {
            volumic.push_back(densities[index]);
        }
    }
    return volumic;
}

bool IsStatedIn(const CATUnicodeString& magnitude, const WBGroupFigures& figures, int row,
                const CATUnicodeString& attribute)
{
    if (WBKindOf(magnitude) != WBValueKind::Number || magnitude == kWBPlainNumber) {
        return true;
    }
    const KnownAttribute* known = FindKnown(attribute.View());
    return magnitude ==
           (known != nullptr ? known->magnitude : StatedMagnitude(figures, row, attribute.View()));
}

/// A criterion and what it takes to ask it of many rows.
class Question
{
public:
    explicit Question(const WBCriterion& criterion) : m_criterion(criterion), m_test(criterion) {}

    bool IsMetBy(const WBGroupFigures& figures, int row) const
    {
        const auto texts =
            WBAttributeTexts(figures, row, m_criterion.attribute, m_criterion.magnitude);
        const auto meets = [this](std::string_view text) {
            return m_test.Meets(text);
        };
        const bool asksAll = m_criterion.comparison == WBComparison::IsNot ||
                             m_criterion.comparison == WBComparison::NotEqual;
        return asksAll ? !texts.empty() && std::ranges::all_of(texts, meets)
                       : std::ranges::any_of(texts, meets);
    }

private:
    WBCriterion m_criterion;
    WBCriterionTest m_test;
};

} // namespace

std::vector<WBGroupAttribute> WBGroupAttributes(const WBGroupFigures& figures)
{
    std::vector<WBGroupAttribute> attributes;
    for (const KnownAttribute& known : kKnown) {
        const std::string key = std::string("Attribute.") + known.name;
        attributes.push_back({known.name, WBGroupText(key.c_str(), known.title), known.magnitude});
    }
    for (const Seen& seen : PropertiesOf(figures)) {
        const CATUnicodeString name = figures.AttributeName(seen.name);
        attributes.push_back({name, name, MagnitudeOf(seen)});
    }
    return attributes;
}

std::vector<std::string_view> WBAttributeTexts(const WBGroupFigures& figures, int row,
                                               const CATUnicodeString& attribute,
                                               const CATUnicodeString& magnitude)
{
    const auto text = figures.Text(row, figures.Name(attribute.View()));
    if (!text || !IsStatedIn(magnitude, figures, row, attribute)) {
        return {};
    }
    if (std::ranges::find(kLists, attribute.View()) == kLists.end()) {
        return {*text};
    }
    return attribute == "Density" ? VolumicDensities(figures, row, ItemsOf(*text)) : ItemsOf(*text);
}

std::vector<int> WBMatchingRows(const WBGroupFigures& figures,
                                const std::vector<WBCriterion>& criteria, WBJoined joined)
{
    std::vector<Question> questions;
    questions.reserve(criteria.size());
    for (const WBCriterion& criterion : criteria) {
        questions.emplace_back(criterion);
    }
    std::vector<int> rows;
    for (int row = 0; !questions.empty() && row < figures.Count(); ++row) {
        const auto isMet = [&](const Question& question) {
            return question.IsMetBy(figures, row);
        };
        if (joined == WBJoined::And ? std::ranges::all_of(questions, isMet)
                                    : std::ranges::any_of(questions, isMet)) {
            rows.push_back(row);
        }
    }
    return rows;
}
