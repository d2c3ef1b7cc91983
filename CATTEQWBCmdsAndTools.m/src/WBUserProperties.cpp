#include "WBUserProperties.h"

#include "WBReportAttributes.h"

#include "CATDiagnostics.h"
#include "CATIDOMElement.h"
#include "CATIDOMNamedNodeMap.h"

namespace
{

constexpr std::string_view kMagnitudePrefix = "__magnitude__";

/// The name of the property whose magnitude the attribute of this name holds.
std::string_view PropertyOf(std::string_view name)
{
    return name.starts_with(kMagnitudePrefix) ? name.substr(kMagnitudePrefix.size()) : name;
}

} // namespace

WBUserProperties::WBUserProperties(const CATIDOMDocument& document, WBUnitsTask task,
                                   WBShowOptions options,
                                   const CATListValCATUnicodeString& magnitudeAttributes)
    : m_document(document), m_task(task), m_options(options)
{
    for (const CATUnicodeString& name : magnitudeAttributes.Items()) {
        const std::string_view property = PropertyOf(name.View());
        m_list.push_back({m_document.FindName(name.View()), m_document.FindName(property),
                          std::string(property)});
    }
}

void WBUserProperties::RewriteOwn(CATIDOMElement& element, int iteration)
{
    const CATIDOMNamedNodeMap_var attributes = element.Attributes();
    if (attributes.IsNull()) {
        CATDiagnosticOutput().Line(
            "Error encountered: Could not retrieve the list of attributes for the node at "
            "iteration ",
            iteration, "!");
        return;
    }
    // Walks from 1 over a map that counts from 0: reports name attributes by this index, and a
    // server that puts a property's companion first does so to have the value left alone.
    const int length = attributes->Length();
    for (int index = 1; index <= length; ++index) {
        if (index == length) {
            CATDiagnosticOutput().Line("Error encountered: attribute ", index,
                                       " is null for the node at iteration ", iteration);
            continue;
        }
        if (const std::optional<Companion>& companion = CompanionOf(element.AttributeName(index))) {
            Rewrite(element, index, *companion);
        }
    }
}

void WBUserProperties::RewriteListed(CATIDOMElement& element)
{
    for (const Companion& companion : m_list) {
        const int index = element.FindAttribute(companion.name);
        if (index >= 0) {
            Rewrite(element, index, companion);
        }
    }
}

/// The companion that an attribute of that name is; none when it is an ordinary attribute.
const std::optional<WBUserProperties::Companion>& WBUserProperties::CompanionOf(CATDOMName name)
{
    const auto number = static_cast<std::size_t>(name.number);
    if (number >= m_meanings.size()) {
        m_meanings.resize(number + 1);
    }
    Meaning& meaning = m_meanings[number];
    if (!meaning.isKnown) {
        meaning.isKnown = true;
        const std::string_view text = m_document.NameText(name);
        if (text.starts_with(kMagnitudePrefix)) {
            const std::string_view property = PropertyOf(text);
            meaning.companion =
                Companion{name, m_document.FindName(property), std::string(property)};
        }
    }
    return meaning.companion;
}

WBUserProperties::Magnitude& WBUserProperties::MagnitudeOf(std::string_view name)
{
    const auto known = m_magnitudes.find(name);
    if (known != m_magnitudes.end()) {
        return known->second;
    }
    Magnitude& made = m_magnitudes[std::string(name)];
    const CATICkeMagnitude_var magnitude = KnownMagnitude(name);
    if (!magnitude.IsNull()) {
        made.isKnown = true;
        const WBUnitPair units = UnitsFor(*magnitude, m_task);
        if (units.IsComplete()) {
            made.display.emplace(units, m_options);
        }
    }
    return made;
}

/// Rewrites the property whose magnitude stands in the attribute at `index`.
void WBUserProperties::Rewrite(CATIDOMElement& element, int index, const Companion& companion)
{
    const std::string_view name = element.AttributeText(index);
    const std::string& property = companion.propertyText;
    if (element.FindAttribute(companion.property) < 0) {
        CATDiagnosticOutput().Line("Error encountered: could not find the XML attribute ", property,
                                   " on the current node!");
        return;
    }
    Magnitude& magnitude = MagnitudeOf(name);
    if (!magnitude.isKnown) {
        CATDiagnosticOutput().Line("Error encountered: could not find the magnitude ", name,
                                   " for ", property, "!");
        return;
    }
    if (!magnitude.display) {
        const char* const unit = m_task == WBUnitsTask::Convert ? "current/storage" : "current";
        CATDiagnosticOutput().Line("Error encountered: could not find the ", unit,
                                   " unit for magnitude ", name, " associated with ", property,
                                   "!");
        return;
    }
    RewriteValue(element, companion.property, *magnitude.display);
}
