#pragma once

#include "CATCollections.h"
#include "CATIPLMIdentificator.h"
#include "CATPathElement.h"
#include "CATUnicodeString.h"

class CATImmIdentifierAcquisitionAgent;
class CATPathElementAgent;

/// What a pick tells about its object before the server is asked.
struct WBPickedObject
{
    CATListIdentificators identificators; ///< the object, as the object service takes it
    CATUnicodeString rootIdentifier;
    CATUnicodeString fieldA;
    CATUnicodeString fieldB; ///< "---" where field A alone says what was picked
    bool hasInstance = true; ///< the PDM has an instance of its own for the object
    int depth = 0;           ///< objects on the picked path, root and leaf included; 0: unknown
};

/// Whether the object's own "Type" is that of an item instance; false for no object.
bool WBIsItemInstance(const CATBaseUnknown_var& object);

/// Whether a navigator type, which names the family before the kind ("Item/..."), is that of an
/// item instance.
bool WBIsNavigatorInstanceType(const CATUnicodeString& type);

/// The value whose name is "V_ID" among a root's identifiers; false, with the output untouched,
/// when there is none.
bool WBFindRootIdentifier(const CATListValCATUnicodeString& names,
                          const CATListValCATUnicodeString& values, CATUnicodeString& identifier);

// Both write a diagnostic line and answer false when a piece is missing.

/// The navigator's pick: the root by its "V_ID", the object by its part and version.
bool WBIdentifyNavigatorPick(const CATImmIdentifierAcquisitionAgent* agent, WBPickedObject& picked);
/// The product structure's pick: root and object by their part numbers.
bool WBIdentifyProductPick(const CATPathElementAgent* agent, WBPickedObject& picked);

/// Where a product stands in its document. `depth` counts root and leaf; `path` holds the instance
/// names between them, the leaf's parent first, joined by "|": Root/SubA/SubB/Leaf has the depth 4,
/// the leaf name Leaf and the path SubB|SubA. S_OK; E_FAIL, after a diagnostic line, when there is
/// no path (the depth is then -1) or an object on it is missing or no product.
long WBReadInstancePath(const CATPathElement_var& picked, int& depth, CATUnicodeString& leafName,
                        CATUnicodeString& path);
