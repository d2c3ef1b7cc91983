#pragma once

#include "WBUnitDisplay.h"

#include "CATCollections.h"
#include "CATIDOMDocument.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The properties that users have added to part instances, in one document and for one task. An
/// attribute "__magnitude__N" says which magnitude the value of the attribute N has. What cannot
/// be shown is reported on the diagnostic output and left as it is.
class WBUserProperties
{
public:
    /// `magnitudeAttributes`: those that RewriteListed looks for, by their whole names.
    WBUserProperties(const CATIDOMDocument& document, WBUnitsTask task, WBShowOptions options,
                     const CATListValCATUnicodeString& magnitudeAttributes);

    /// Rewrites the properties that the element's own attributes name; `iteration` is how the
    /// reports number the element. The first attribute is not examined: a property that is named
    /// there keeps its value. One attribute is asked for past the end, which reports it as null.
    void RewriteOwn(CATIDOMElement& element, int iteration);

    /// Rewrites the properties that the list names, in its order. An element that lacks one of its
    /// attributes has no such property, and nothing is reported.
    void RewriteListed(CATIDOMElement& element);

private:
    /// An attribute as the document names it, and the property that it would be the magnitude of.
    struct Companion
    {
        CATDOMName name;
        CATDOMName property;
        std::string propertyText;
    };
    /// What a name of the document means here; worked out when it is first met.
    struct Meaning
    {
        bool isKnown = false;
        std::optional<Companion> companion;
    };
    struct Magnitude
    {
        bool isKnown = false;
        std::optional<WBUnitDisplay> display; // none when it lacks a unit
    };

    const std::optional<Companion>& CompanionOf(CATDOMName name);
    Magnitude& MagnitudeOf(std::string_view name);
    void Rewrite(CATIDOMElement& element, int index, const Companion& companion);

    const CATIDOMDocument& m_document;
    const WBUnitsTask m_task;
    const WBShowOptions m_options;
    std::vector<Meaning> m_meanings; // by the name's number
    std::map<std::string, Magnitude, std::less<>> m_magnitudes;
    std::vector<Companion> m_list;
};
