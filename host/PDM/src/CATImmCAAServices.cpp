#include "CATNavigator.h"
#include "CATPDMServices.h"

#include <array>

namespace
{
// "V_ID" stands first: readers take the first value for the root's identifier.
constexpr std::array kRootAttributes{"V_ID", "V_version", "V_Name"};
} // namespace

long CATImmCAAServices::GetCurrentRootIdentifiers(CATListValCATUnicodeString& names,
                                                  CATListValCATUnicodeString& values,
                                                  CATUnicodeString& rootType)
{
    const CATNavigatorNode_var root = CATNavigator::CurrentRoot();
    if (root.IsNull()) {
        return E_FAIL;
    }
    names.RemoveAll();
    values.RemoveAll();
    for (const char* attribute : kRootAttributes) {
        CATUnicodeString value;
        root->GetString(attribute, value);
        names.Append(attribute);
        values.Append(value);
    }
    return root->GetString("Type", rootType);
}

CATUnicodeString CATImmCAAServices::GetCurrentRootType()
{
    const CATNavigatorNode_var root = CATNavigator::CurrentRoot();
    CATUnicodeString type;
    if (!root.IsNull()) {
        root->GetString("Type", type);
    }
    return type;
}
