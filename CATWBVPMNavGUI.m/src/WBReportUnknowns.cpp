#include "WBReportUnknowns.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"

#include <array>
#include <span>

namespace
{

constexpr std::array kMass{"WB_Mass"};
constexpr std::array kCentre{"COGx", "COGy", "COGz"};
constexpr std::array kInertia{"MOIxx", "MOIyy", "MOIzz", "POIxy", "POIxz", "POIyz"};

using Names = std::span<const char* const>;

template <class Visit>
void WalkElements(const CATIDOMDocument_var& document, Visit visit)
{
    for (const char* tag : {"PartInstance", "PRC", "WB_Section"}) {
        const CATIDOMNodeList_var elements = document->ElementsByTagName(tag);
        for (int index = 0, count = elements->Length(); index < count; ++index) {
            visit(*elements->Item(index)->AsElement());
        }
    }
}

bool HasAll(const CATIDOMElement& element, Names names)
{
    for (const char* name : names) {
        if (!element.HasAttribute(name)) {
            return false;
        }
    }
    return true;
}

void RemoveAll(CATIDOMElement& element, Names names)
{
    for (const char* name : names) {
        element.RemoveAttribute(name);
    }
}

} // namespace

WBReportUnknowns::WBReportUnknowns(const CATIDOMDocument_var& document)
{
    WalkElements(document, [this](const CATIDOMElement& element) {
        m_known.push_back(
            {HasAll(element, kMass), HasAll(element, kCentre), HasAll(element, kInertia)});
    });
}

void WBReportUnknowns::Restore(const CATIDOMDocument_var& document, Inertia inertia) const
{
    auto known = m_known.begin();
    WalkElements(document, [&known, inertia](CATIDOMElement& element) {
        if (!known->centre) {
            RemoveAll(element, kCentre);
        }
        const bool isMovable = known->mass && known->centre;
        if (!known->inertia || (inertia == Inertia::Moved && !isMovable)) {
            RemoveAll(element, kInertia);
        }
        ++known;
    });
}
