#include "CATImmIdentifierAcquisitionAgent.h"

#include "CATNavigator.h"
#include "CATPDMServices.h"

namespace
{
/// The object at the end of the path, wherever the path's cursor stands; null when nothing is
/// picked.
CATBaseUnknown_var Leaf(const CATPathElement_var& path)
{
    return path.IsNull() ? CATBaseUnknown_var() : path->Element(path->Size());
}
} // namespace

CATImmIdentifierAcquisitionAgent::CATImmIdentifierAcquisitionAgent(int option)
    : CATPathElementAgent("CATImmIdentifierAcquisitionAgent")
{
    SetBehaviour(option);
}

const char* CATImmIdentifierAcquisitionAgent::ClassName() const
{
    return "CATImmIdentifierAcquisitionAgent";
}

CATUnicodeString CATImmIdentifierAcquisitionAgent::GetType() const
{
    const CATISpecAttrAccess_var attributes = Leaf(GetValue());
    CATUnicodeString type;
    if (attributes.IsNull() || attributes->GetString("Type", type) != S_OK) {
        return {};
    }
    return "Item/" + type;
}

CATIPLMIdentificator_var CATImmIdentifierAcquisitionAgent::GetIdentificator() const
{
    return CATPDMNavServices::ExtractEnoviaIdFromNav(Leaf(GetValue()));
}

long CATImmIdentifierAcquisitionAgent::GetIdentifiers(CATListValCATUnicodeString& values) const
{
    const CATISpecAttrAccess_var attributes = Leaf(GetValue());
    CATUnicodeString part;
    CATUnicodeString version;
    if (attributes.IsNull() || attributes->GetString("V_ID", part) != S_OK ||
        attributes->GetString("V_version", version) != S_OK) {
        return E_FAIL;
    }
    values = {part, version};
    return S_OK;
}
