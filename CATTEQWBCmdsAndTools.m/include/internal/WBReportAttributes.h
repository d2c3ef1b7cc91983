#pragma once

#include "WBUnitDisplay.h"

#include "CATIDOMDocument.h"

#include <array>
#include <span>
#include <vector>

/// The attributes of a report's elements that hold values, and how one or many of them are
/// rewritten.

inline constexpr std::array kCentreAttributes{"COGx", "COGy", "COGz"};
inline constexpr std::array kMassAttributes{"WB_Mass", "WB_Lower_deviation", "WB_Upper_deviation"};
inline constexpr std::array kInertiaAttributes{"MOIxx", "MOIyy", "MOIzz",
                                               "POIxy", "POIxz", "POIyz"};
inline constexpr std::array kDensityAttributes{"WB_Density"};
inline constexpr std::array kVolumeAttributes{"Cut_Volume"};
/// The list of material densities and the list that says of each which kind of density it is.
inline constexpr std::array kMaterialDensityAttributes{"Density", "Density_dimension"};

/// Null when the dictionary has no such magnitude.
CATICkeMagnitude_var KnownMagnitude(const CATUnicodeString& name);

/// The names as the document keeps them, so that a walk asks for each once.
std::vector<CATDOMName> NamesIn(const CATIDOMDocument& document,
                                std::span<const char* const> names);

// Each rewrites one attribute and says whether it did; an element that lacks it stays as it is.

bool RewriteValue(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display);
bool RewriteList(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display);
bool RewriteBreakdown(CATIDOMElement& element, CATDOMName name, WBUnitDisplay& display);
/// The names: the list, which is rewritten, and its dimensions; both must be there.
bool RewriteDensities(CATIDOMElement& element, std::span<const CATDOMName> names,
                      WBUnitDisplay& volumic, WBUnitDisplay& surfacic, WBMissingDimension missing);

/// The node as an element; null when the node is null or another kind of node.
CATIDOMElement* ElementOf(const CATIDOMNode_var& node);

/// Visits the elements of a list in its order, each with its index in the list. The list is not
/// asked for its length, since a live one would walk the whole document once more to count.
template <class Visit>
void ForEachElement(const CATIDOMNodeList& nodes, Visit visit)
{
    int index = 0;
    for (CATIDOMNode_var node = nodes.Item(index); !node.IsNull(); node = nodes.Item(index)) {
        if (CATIDOMElement* const element = node->AsElement()) {
            visit(*element, index);
        }
        ++index;
    }
}

// Of every element of the list. A null list, a null magnitude or one without its units leaves all
// as it is.

void RewriteValues(const CATIDOMNodeList_var& nodes, const CATICkeMagnitude_var& magnitude,
                   std::span<const char* const> attributes, WBUnitsTask task,
                   WBShowOptions options);
/// "WB_Density" and the material densities. Both magnitudes have to be there with their units
/// before anything is rewritten.
void RewriteAllDensities(const CATIDOMNodeList_var& nodes,
                         const CATICkeMagnitude_var& volumicMagnitude,
                         const CATICkeMagnitude_var& surfacicMagnitude, WBUnitsTask task,
                         WBShowOptions options);
