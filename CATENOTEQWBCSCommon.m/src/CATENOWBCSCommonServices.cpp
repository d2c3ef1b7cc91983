#include "CATENOWBCSCommonServices.h"

#include "CATDiagnostics.h"
#include "CATIXMLDOMDocumentBuilder.h"

long CATENOWBCSCommonServices::GetDOMFromXMLStringBuffer(const CATUnicodeString& text,
                                                         CATIDOMDocument_var& document)
{
    CATXMLProblem problem;
    const long status =
        CreateCATIXMLDOMDocumentBuilder()->ParseText(text.View(), document, problem);
    if (status != S_OK) {
        CATDiagnosticErrors().Line("The text is no XML document: ", problem.sentence);
    }
    return status;
}
