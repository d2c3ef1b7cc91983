#include "WBPickedObject.h"

#include "CATDiagnostics.h"
#include "CATIProduct.h"
#include "CATImmIdentifierAcquisitionAgent.h"
#include "CATNavigator.h"
#include "CATPDMServices.h"

namespace
{

constexpr const char* kRootIdentifierName = "V_ID";
constexpr const char* kItemInstanceType = "ENOVIA_VPMItemInstance";
constexpr const char* kNoSecondField = "---";

bool Refuse(const char* reason)
{
    CATDiagnosticErrors().Line(reason);
    return false;
}

bool ReadRootIdentifier(CATUnicodeString& identifier)
{
    CATListValCATUnicodeString names;
    CATListValCATUnicodeString values;
    CATUnicodeString rootType;
    if (CATImmCAAServices::GetCurrentRootIdentifiers(names, values, rootType) != S_OK) {
        return false;
    }
    return WBFindRootIdentifier(names, values, identifier);
}

} // namespace

bool WBFindRootIdentifier(const CATListValCATUnicodeString& names,
                          const CATListValCATUnicodeString& values, CATUnicodeString& identifier)
{
    const int position = names.Locate(kRootIdentifierName);
    if (position == 0 || position > values.Size()) {
        return false;
    }
    identifier = values[position];
    return true;
}

bool WBIsItemInstance(const CATBaseUnknown_var& object)
{
    const CATISpecAttrAccess_var attributes = object;
    CATUnicodeString type;
    return !attributes.IsNull() && attributes->GetString("Type", type) == S_OK &&
           type == kItemInstanceType;
}

bool WBIsNavigatorInstanceType(const CATUnicodeString& type)
{
    // A type that begins with the name, without the family before it, is not taken.
    return type.Find(kItemInstanceType) >= 1;
}

bool WBIdentifyNavigatorPick(const CATImmIdentifierAcquisitionAgent* agent, WBPickedObject& picked)
{
    if (agent == nullptr) {
        return Refuse("Acquisition agent not initialized!");
    }
    const CATIPLMIdentificator_var identificator = agent->GetIdentificator();
    CATListValCATUnicodeString identifiers;
    if (identificator.IsNull() || !ReadRootIdentifier(picked.rootIdentifier) ||
        agent->GetIdentifiers(identifiers) != S_OK) {
        return Refuse("Unable to retrieve the current product's identifier!");
    }
    picked.identificators.Append(identificator);
    picked.fieldA = identifiers[1];
    picked.fieldB = identifiers[2];
    picked.hasInstance = true;
    picked.depth = 0;
    return true;
}

bool WBIdentifyProductPick(const CATPathElementAgent* agent, WBPickedObject& picked)
{
    if (agent == nullptr) {
        return Refuse("Unable to retrieve the current object!");
    }
    const CATPathElement_var path = agent->GetValue();
    if (path.IsNull()) {
        return Refuse("Could not retrieve the path for the current object!");
    }
    if (path->InitToTopElement() != S_OK) {
        return Refuse("Unable to obtain the first element from the path (t-d)!");
    }
    const CATIProduct_var root = path->Current();
    if (root.IsNull()) {
        return Refuse("Could not obtain a valid CATIprd pointer for the topmost object!");
    }
    path->InitToLeafElement();
    const CATBaseUnknown_var leafObject = path->Current();
    if (leafObject.IsNull()) {
        return Refuse("Unable to obtain the first element from the path (b-u)!");
    }
    const CATIProduct_var leaf = leafObject;
    if (leaf.IsNull()) {
        return Refuse("Could not obtain a valid CATIprd pointer for the selected object!");
    }
    CATIPLMIdentificator_var identificator;
    if (CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(leafObject, identificator) != S_OK) {
        return Refuse("Unable to retrieve the PLM id of the current selection!");
    }
    picked.identificators.Append(identificator);
    picked.rootIdentifier = root->GetPartNumber();
    picked.fieldA = leaf->GetPartNumber();
    picked.fieldB = kNoSecondField;
    picked.hasInstance = false;
    picked.depth = path->Size();
    return true;
}

long WBReadInstancePath(const CATPathElement_var& picked, int& depth, CATUnicodeString& leafName,
                        CATUnicodeString& path)
{
    depth = -1;
    leafName = CATUnicodeString();
    path = CATUnicodeString();
    if (picked.IsNull()) {
        CATDiagnosticErrors().Line("Could not retrieve the path of the selected object!");
        return E_FAIL;
    }
    depth = picked->Size();
    // Position 1 is the root, which is no part of the path.
    for (int position = depth; position >= 2; --position) {
        const CATBaseUnknown_var object = picked->Element(position);
        if (object.IsNull()) {
            CATDiagnosticErrors().Line("Unable to obtain the object/parent at position ", position);
            return E_FAIL;
        }
        const CATIProduct_var product = object;
        if (product.IsNull()) {
            CATDiagnosticErrors().Line(
                "Unable to obtain a valid CATIprd pointer for the object/parent at position ",
                position);
            return E_FAIL;
        }
        if (position == depth) {
            leafName = product->GetInstanceName();
            continue;
        }
        path += product->GetInstanceName();
        if (position > 2) {
            path += "|";
        }
    }
    return S_OK;
}
