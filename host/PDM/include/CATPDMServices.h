#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATHandle.h"
#include "CATIPLMIdentificator.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"

class WB_EXPORT CATPDMCSServices
{
public:
    /// Runs an object service of the server on the identificators: `identificators` keeps those
    /// that the service knows, one for each record of the answer; they are appended to `found` too.
    /// `answer` is a new array of characters that the caller frees with delete[]. A failed call
    /// gives E_FAIL, a null answer and lists as they were. Unless the environment has
    /// "KR4_DA_FOR_CGR", each record carries the part's name as its last field. A cancelled call is
    /// a failed one, and so is an answer for an object that was not asked for. A null `input` is
    /// the empty text. A null handle among the identificators raises CATNullHandle before anything
    /// is called.
    static long RunObjectService(const CATUnicodeString& service,
                                 CATListIdentificators& identificators, const char* input,
                                 CATListIdentificators& found, char*& answer);
};

class WB_EXPORT CATPDMCATIAServices
{
public:
    /// The PDM identifier of a product instance of a document that lives in the PDM. E_FAIL, with
    /// the output untouched, for any other object.
    static long ExtractEnoviaIdFromCATIA(const CATBaseUnknown_var& product,
                                         CATIPLMIdentificator_var& identificator);
};

class WB_EXPORT CATPDMNavServices
{
public:
    /// The PDM identifier of a navigator node; null for any other object.
    static CATIPLMIdentificator_var ExtractEnoviaIdFromNav(const CATBaseUnknown_var& node);
};

class WB_EXPORT CATImmCAAServices
{
public:
    /// What the navigator's current root is called in the PDM: parallel lists of names and values,
    /// "V_ID" first, and the root's type. E_FAIL, with the outputs untouched, when no root is open.
    static long GetCurrentRootIdentifiers(CATListValCATUnicodeString& names,
                                          CATListValCATUnicodeString& values,
                                          CATUnicodeString& rootType);
    /// The empty text when no root is open.
    static CATUnicodeString GetCurrentRootType();
};
