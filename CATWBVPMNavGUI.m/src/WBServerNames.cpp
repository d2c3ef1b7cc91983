#include "WBServerNames.h"

#include "CATENOWBCSCommonServices.h"

#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"
#include "RunServerCode.h"

namespace
{

std::vector<CATUnicodeString> NamesOf(const CATIDOMDocument_var& document, const char* tag)
{
    std::vector<CATUnicodeString> names;
    const CATIDOMNodeList_var elements = document->ElementsByTagName(tag);
    for (int index = 0; index < elements->Length(); ++index) {
        CATUnicodeString name;
        if (elements->Item(index)->AsElement()->GetAttribute("name", name) == S_OK) {
            names.push_back(name);
        }
    }
    return names;
}

} // namespace

WBServerNames WBAskServerNames()
{
    CATIDOMDocument_var document;
    CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer(RunServerCode("WBGetMassTypesAndAttrNames"),
                                                        document);
    if (document.IsNull()) {
        return {};
    }
    return {NamesOf(document, "massType"), NamesOf(document, "attrName")};
}
