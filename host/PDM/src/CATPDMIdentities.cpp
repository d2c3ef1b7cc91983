#include "CATDocument.h"
#include "CATNavigator.h"
#include "CATPDMServices.h"

#include <algorithm>
#include <vector>

namespace
{
CATIPLMIdentificator_var IdentificatorOf(const std::vector<CATUnicodeString>& rootFirst)
{
    CATUnicodeString text;
    for (const CATUnicodeString& name : rootFirst) {
        text += text.IsEmpty() ? name : "|" + name;
    }
    // Counted: its last handle frees it.
    return CATIPLMIdentificator_var::Adopt(new CATIPLMIdentificator(text));
}

bool LivesInPdm(const CATILinkableObject_var& object)
{
    const CATDocument_var document = object->GetDocument();
    CATUnicodeString environment;
    return !document.IsNull() && document->GetStorageEnvironment(environment) == S_OK &&
           environment == CATProductDocument::kPdmEnvironment;
}

/// The root's part number and the instance names below it, root first. (The root's instance name is
/// its part number.)
std::vector<CATUnicodeString> NamesFromRoot(CATIProduct_var product)
{
    std::vector<CATUnicodeString> names;
    for (; !product.IsNull(); product = product->GetParent()) {
        names.push_back(product->GetInstanceName());
    }
    std::ranges::reverse(names);
    return names;
}
} // namespace

long CATPDMCATIAServices::ExtractEnoviaIdFromCATIA(const CATBaseUnknown_var& product,
                                                   CATIPLMIdentificator_var& identificator)
{
    const CATIProduct_var instance = product;
    const CATILinkableObject_var object = product;
    if (instance.IsNull() || object.IsNull() || !LivesInPdm(object)) {
        return E_FAIL;
    }
    identificator = IdentificatorOf(NamesFromRoot(instance));
    return S_OK;
}

CATIPLMIdentificator_var CATPDMNavServices::ExtractEnoviaIdFromNav(const CATBaseUnknown_var& node)
{
    const CATNavigatorNode_var navigatorNode = node;
    if (navigatorNode.IsNull()) {
        return {};
    }
    return IdentificatorOf(navigatorNode->PathNames().Items());
}
