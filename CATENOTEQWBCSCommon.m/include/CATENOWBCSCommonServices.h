#pragma once

#include "CATIDOMDocument.h"

/// What client and panels share beside the definitions. Nothing here keeps a state.
class WB_EXPORT CATENOWBCSCommonServices
{
public:
    CATENOWBCSCommonServices() = delete;

    /// Reads an answer of the server as a document. E_FAIL, with the output untouched and a line on
    /// the diagnostic error stream that names line and column, when the text is none.
    static long GetDOMFromXMLStringBuffer(const CATUnicodeString& text,
                                          CATIDOMDocument_var& document);
};
