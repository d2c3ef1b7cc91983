#pragma once

#include "CATICkeMagnitude.h"
#include "CATIDOMDocument.h"

// What the services know of the report document as a whole: the names of the elements that carry
// weights and balances, and the header that tells a reader of a saved report its units.

inline constexpr const char* kRootElement = "PRC";
inline constexpr const char* kPartInstanceElement = "PartInstance";
inline constexpr const char* kSectionElement = "WB_Section";

/// Whether the node is an element of exactly that name. Texts, comments and attributes are not,
/// whatever they are called; their names are not even asked for.
bool IsElementNamed(const CATIDOMNode_var& node, const CATUnicodeString& name);

/// Writes the symbol of the magnitude's current unit into an attribute. A null magnitude, or one
/// without a current unit, leaves the attribute as it is.
void WriteUnitSymbol(CATIDOMElement& element, const CATUnicodeString& attribute,
                     const CATICkeMagnitude_var& magnitude);

/// Writes the six unit symbols on the document element, replacing earlier ones; a document without
/// one is left alone. See CATWBServices::CreateHeaderSection.
void WriteUnitHeader(const CATIDOMDocument_var& document);
