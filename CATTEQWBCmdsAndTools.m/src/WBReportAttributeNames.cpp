#include "WBReportAttributeNames.h"

#include "WBPreviewColumns.h"
#include "WBReportAttributes.h"
#include "WBReportNodes.h"

#include <vector>

namespace
{

constexpr std::string_view kMagnitudePrefix = "__magnitude__";
constexpr std::string_view kAlias = "instIdAttrAlias";

/// What the trace says of an element whose attributes cannot be had.
struct Faults
{
    const char* noMap;
    const char* noLength;
    const char* nullAttribute; // followed by the index and " is null"
};
constexpr Faults kInstanceFaults{
    "Could not retrieve the list of attributes that a PartInstance node has!",
    "Could not obtain a valid CATUnicodeString dynamic array (for a PartInstance node)!",
    "PartInstance node: attribute "};
constexpr Faults kRootFaults{
    "Could not retrieve the list of attributes that the element PRC node has!",
    "Could not obtain a valid CATUnicodeString dynamic array (for PRC node)!", "PRC node: Item "};
constexpr Faults kSectionFaults{
    "Could not retrieve the list of attributes that a section node has!",
    "Could not obtain a valid CATUnicodeString dynamic array (for a section node)!",
    "Section node: Item "};

const Faults& FaultsOf(WBReportElement which)
{
    switch (which) {
    case WBReportElement::Root:
        return kRootFaults;
    case WBReportElement::Section:
        return kSectionFaults;
    case WBReportElement::PartInstance:
        break;
    }
    return kInstanceFaults;
}

/// Visits the name of each attribute of a node; false when the node has no attributes to read.
template <class Visit>
bool ForEachName(const DSTrace& trace, const CATIDOMNode_var& node, const Faults& faults,
                 Visit visit)
{
    const CATIDOMElement* const element = ElementOf(node);
    const CATIDOMNamedNodeMap_var map =
        element == nullptr ? CATIDOMNamedNodeMap_var() : element->Attributes();
    if (map.IsNull()) {
        trace.Line(faults.noMap);
        return false;
    }
    const int length = map->Length();
    if (length < 0) {
        trace.Line(faults.noLength);
        return false;
    }
    for (int index = 0; index < length; ++index) {
        // By number: a node of its own for each of millions of attributes would take seconds.
        const CATDOMName name = element->AttributeName(index);
        if (name.IsKnown()) {
            visit(name);
        } else {
            trace.Line(faults.nullAttribute, index, " is null");
        }
    }
    return true;
}

/// Sorts names into the two lists. A name is looked at once, however many elements have it.
class NameCollector
{
public:
    NameCollector(const CATIDOMDocument& document, bool withoutDate)
        : m_document(document), m_withoutDate(withoutDate)
    {}

    void Take(CATDOMName name)
    {
        const auto number = static_cast<std::size_t>(name.number);
        if (number >= m_isSeen.size()) {
            m_isSeen.resize(number + 1);
        }
        if (!m_isSeen[number]) {
            m_isSeen[number] = true;
            Sort(m_document.NameText(name));
        }
    }
    const WBInstanceAttributes& Names() const { return m_names; }

private:
    void Sort(std::string_view name)
    {
        if (name == kAlias || (m_withoutDate && IsCalculationDate(name))) {
            return;
        }
        // With any letter case, as all names that make or keep away a column.
        const CATUnicodeString prefix(kMagnitudePrefix);
        const bool isMagnitude =
            CATUnicodeString(name).Part(0, prefix.Length()).Compare(prefix) != 0;
        (isMagnitude ? m_names.magnitudes : m_names.columns).Append(name);
    }

    const CATIDOMDocument& m_document;
    bool m_withoutDate;
    std::vector<bool> m_isSeen; // by the document's number of the name
    WBInstanceAttributes m_names;
};

} // namespace

std::optional<WBInstanceAttributes>
ReadInstanceAttributes(const DSTrace& trace, const CATIDOMDocument& document, bool withoutDate)
{
    const CATIDOMNodeList_var instances = document.ElementsByTagName(kPartInstanceElement);
    if (instances.IsNull()) {
        trace.Line("Unable to obtain the PartInstance elements from the DOM of the current "
                   "document");
        return std::nullopt;
    }
    NameCollector collector(document, withoutDate);
    int index = 0;
    for (CATIDOMNode_var node = instances->Item(index); !node.IsNull();
         node = instances->Item(index)) {
        if (!ForEachName(trace, node, kInstanceFaults,
                         [&collector](CATDOMName name) { collector.Take(name); })) {
            return std::nullopt;
        }
        ++index;
    }
    return collector.Names();
}

std::optional<CATListValCATUnicodeString> ReadRootAttributes(const DSTrace& trace,
                                                             const CATIDOMDocument& document)
{
    const CATIDOMNodeList_var roots = document.ElementsByTagName(kRootElement);
    if (roots.IsNull()) {
        trace.Line("Unable to obtain the PRC elements from the DOM of the current document!");
        return std::nullopt;
    }
    const CATIDOMNode_var root = roots->Item(0);
    if (root.IsNull()) {
        trace.Line("Unable to retrieve the first node (of type PRC) from the list!");
        return std::nullopt;
    }
    return ReadAttributes(trace, document, root, WBReportElement::Root);
}

std::optional<CATListValCATUnicodeString> ReadAttributes(const DSTrace& trace,
                                                         const CATIDOMDocument& document,
                                                         const CATIDOMNode_var& element,
                                                         WBReportElement which)
{
    CATListValCATUnicodeString names;
    const bool isRead =
        ForEachName(trace, element, FaultsOf(which), [&document, &names](CATDOMName name) {
            names.Append(document.NameText(name));
        });
    return isRead ? std::optional(names) : std::nullopt;
}
