#include "WBReportNodes.h"

#include "CATCkeGlobalFunctions.h"
#include "CATWBUnitHeader.h"

bool IsElementNamed(const CATIDOMNode_var& node, const CATUnicodeString& name)
{
    return node->NodeType() == CATDOMNodeType::Element && node->NodeName() == name;
}

void WriteUnitSymbol(CATIDOMElement& element, const CATUnicodeString& attribute,
                     const CATICkeMagnitude_var& magnitude)
{
    if (magnitude.IsNull()) {
        return;
    }
    const CATICkeUnit_var unit = magnitude->CurrentUnit();
    if (!unit.IsNull()) {
        element.SetAttribute(attribute, unit->Symbol());
    }
}

void WriteUnitHeader(const CATIDOMDocument_var& document)
{
    const CATIDOMElement_var element = document->DocumentElement();
    if (element.IsNull()) {
        return;
    }
    const CATICkeParmDictionary_var dictionary = CATCkeGlobalFunctions::GetParmDictionary();
    for (const CATWBUnitHeaderRow& row : kCATWBUnitHeader) {
        WriteUnitSymbol(*element, row.attribute, dictionary->FindMagnitude(row.magnitude));
    }
}
