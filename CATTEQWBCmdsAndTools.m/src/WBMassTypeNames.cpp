#include "WBMassTypeNames.h"

#include "CATDiagnostics.h"
#include "CATIDOMElement.h"
#include "CATIDOMNodeList.h"

namespace
{
constexpr const char* kNameAttribute = "name";
} // namespace

std::vector<CATUnicodeString> WBReadMassTypeNames(const CATIDOMDocument_var& document)
{
    std::vector<CATUnicodeString> names;
    const CATIDOMNodeList_var elements = document->ElementsByTagName("massType");
    if (elements.IsNull()) {
        CATDiagnosticOutput().Line("Could not retrieve the \"massTypes\" elements");
        return names;
    }
    for (int index = 0; index < elements->Length(); ++index) {
        const CATIDOMNode_var node = elements->Item(index);
        if (node.IsNull()) {
            CATDiagnosticOutput().Line("The node at iteration ", index, " is null!");
            return names;
        }
        const CATIDOMElement* element = node->AsElement();
        CATUnicodeString name;
        if (element == nullptr || element->GetAttribute(kNameAttribute, name) != S_OK) {
            CATDiagnosticOutput().Line("Could not get the value of the attribute ", kNameAttribute,
                                       " for the node at iteration ", index);
            return names;
        }
        names.push_back(name);
    }
    return names;
}
