#pragma once

#include "CATCollections.h"
#include "CATMathTransformation.h"
#include "CATUnicodeString.h"

#include <vector>

/// One use of a part, or a root, as a source of products tells it.
struct CATProductRow
{
    CATUnicodeString instance; ///< the name below the parent; of a root, its part number
    CATUnicodeString part;
    CATUnicodeString version;
    CATUnicodeString name; ///< as people say it
    CATUnicodeString type; ///< "product", "assembly", "part", "adjustment"
    int quantity = 1;
    bool hasUses = false;
    CATMathTransformation placement; ///< of the part's axes in the parent's; lengths in mm
};

/// Where a product structure comes from: the server, or a file. Answers part by part, so that a
/// large product costs what the user opens.
class WB_EXPORT CATProductSource
{
public:
    virtual ~CATProductSource();
    virtual std::vector<CATProductRow> Roots() = 0;
    virtual std::vector<CATProductRow> Uses(const CATUnicodeString& part,
                                            const CATUnicodeString& version) = 0;
};
