#include "WBReportAttributes.h"

#include "CATCkeGlobalFunctions.h"

namespace
{

/// Replaces a list by what `show` makes of it.
template <class Show>
bool RewriteItems(CATIDOMElement& element, CATDOMName name, Show show)
{
    const int index = element.FindAttribute(name);
    return index >= 0 &&
           element.RewriteAttribute(index, show(element.AttributeText(index))) == S_OK;
}

} // namespace

CATICkeMagnitude_var KnownMagnitude(const CATUnicodeString& name)
{
    return CATCkeGlobalFunctions::GetParmDictionary()->FindMagnitude(name);
}

std::vector<CATDOMName> NamesIn(const CATIDOMDocument& document, std::span<const char* const> names)
{
    std::vector<CATDOMName> found;
    for (const char* name : names) {
        found.push_back(document.FindName(name));
    }
    return found;
}

bool RewriteValue(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display)
{
    const int index = element.FindAttribute(name);
    if (index < 0) {
        return false;
    }
    const WBShownValue shown = display.ShowNumber(element.AttributeText(index));
    return element.RewriteAttribute(index, shown.View()) == S_OK;
}

bool RewriteList(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display)
{
    return RewriteItems(element, name,
                        [&display](std::string_view text) { return ShownList(text, display); });
}

bool RewriteBreakdown(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display)
{
    return RewriteItems(
        element, name, [&display](std::string_view text) { return ShownBreakdown(text, display); });
}

bool RewriteDensities(CATIDOMElement& element, std::span<const CATDOMName> names,
                      WBUnitDisplay& volumic, WBUnitDisplay& surfacic, WBMissingDimension missing)
{
    const int dimensions = element.FindAttribute(names[1]);
    return dimensions >= 0 && RewriteItems(element, names[0], [&](std::string_view text) {
               return ShownDensities(text, element.AttributeText(dimensions), volumic, surfacic,
                                     missing);
           });
}

CATIDOMElement* ElementOf(const CATIDOMNode_var& node)
{
    return node.IsNull() ? nullptr : node->AsElement();
}

void RewriteValues(const CATIDOMNodeList_var& nodes, const CATICkeMagnitude_var& magnitude,
                   std::span<const char* const> attributes, WBUnitsTask task, WBShowOptions options)
{
    if (nodes.IsNull() || magnitude.IsNull()) {
        return;
    }
    const WBUnitPair units = UnitsFor(*magnitude, task);
    if (!units.IsComplete()) {
        return;
    }
    const std::vector<CATDOMName> names = NamesIn(*nodes->OwnerDocument(), attributes);
    WBUnitDisplay display(units, options);
    ForEachElement(*nodes, [&](CATIDOMElement& element, int) {
        for (const CATDOMName name : names) {
            RewriteValue(element, name, display);
        }
    });
}

void RewriteAllDensities(const CATIDOMNodeList_var& nodes,
                         const CATICkeMagnitude_var& volumicMagnitude,
                         const CATICkeMagnitude_var& surfacicMagnitude, WBUnitsTask task,
                         WBShowOptions options)
{
    if (nodes.IsNull() || volumicMagnitude.IsNull() || surfacicMagnitude.IsNull()) {
        return;
    }
    const WBUnitPair volumicUnits = UnitsFor(*volumicMagnitude, task);
    const WBUnitPair surfacicUnits = UnitsFor(*surfacicMagnitude, task);
    if (!volumicUnits.IsComplete() || !surfacicUnits.IsComplete()) {
        return;
    }
    const CATIDOMDocument_var document = nodes->OwnerDocument();
    const std::vector<CATDOMName> density = NamesIn(*document, kDensityAttributes);
    const std::vector<CATDOMName> densities = NamesIn(*document, kMaterialDensityAttributes);
    WBUnitDisplay volumic(volumicUnits, options);
    WBUnitDisplay surfacic(surfacicUnits, options);
    ForEachElement(*nodes, [&](CATIDOMElement& element, int) {
        for (const CATDOMName name : density) {
            RewriteValue(element, name, volumic);
        }
        RewriteDensities(element, densities, volumic, surfacic, WBMissingDimension::AsBefore);
    });
}
