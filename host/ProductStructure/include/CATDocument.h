#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATHandle.h"
#include "CATIProduct.h"
#include "CATProductSource.h"
#include "CATStatus.h"
#include "CATUnicodeString.h"

#include <memory>

/// A document that is open in the session, and where it is stored.
class WB_EXPORT CATDocument : public CATBaseUnknown
{
public:
    /// Which document it is: S_OK and the text, E_FAIL with the output untouched.
    virtual long GetIdentifier(CATUnicodeString& identifier) const = 0;
    /// Where it is stored: "ENOVIA5" in the PDM, "FILE" on disk. S_OK, or E_FAIL with the output
    /// untouched.
    virtual long GetStorageEnvironment(CATUnicodeString& environment) const = 0;
};
using CATDocument_var = CATHandle<CATDocument>;

/// A document that holds a product structure. A handle on the document, or on any of its products,
/// keeps the whole document: there is no closing it while somebody holds a piece of it. Two handles
/// on one place in the structure are equal as long as one of them is held.
class WB_EXPORT CATProductDocument : public CATDocument
{
public:
    static constexpr const char* kPdmEnvironment = "ENOVIA5";
    static constexpr const char* kFileEnvironment = "FILE";

    /// The document of a root as its source gives it. Nothing below the root is read yet. It is
    /// identified by the root's part number and, where there is one, a blank and the version. Null
    /// without a source.
    static CATHandle<CATProductDocument> Open(std::shared_ptr<CATProductSource> source,
                                              const CATProductRow& root,
                                              const CATUnicodeString& environment);
    /// Answers CATIMovable, CATILinkableObject too.
    virtual CATIProduct_var GetRoot() = 0;
    /// The product at instance names from the root down (the root itself not among them); null when
    /// there is none.
    virtual CATIProduct_var FindProduct(const CATListValCATUnicodeString& instanceNames) = 0;
};
using CATProductDocument_var = CATHandle<CATProductDocument>;
