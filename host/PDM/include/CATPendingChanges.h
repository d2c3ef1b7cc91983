#pragma once

#include "CATUnicodeString.h"
#include "CATWireFields.h"
#include "WBExport.h"

#include <vector>

/// Something that a user has changed and neither saved nor given up, as the server tells it. Texts
/// are those of the server: numbers in storage units, several joined by ";"; empty: nobody stated
/// one.
struct CATPendingChange
{
    CATUnicodeString subject;  ///< "part WING A", "use WING A / left"
    CATUnicodeString fact;     ///< "mass type Weighed, mass"
    CATUnicodeString seen;     ///< what was stored when the user changed it
    CATUnicodeString after;    ///< what he wants
    CATUnicodeString stored;   ///< what is stored at present
    bool isInConflict = false; ///< somebody else has stored another value meanwhile
    CATUnicodeString by;       ///< who that was; may be unknown
    CATUnicodeString at;       ///< when he did
    CATUnicodeString when;     ///< when the user made his change
};

/// Reads the answer of method "WBPendingChanges" to its end. What it gives counts only if the
/// fields are sound afterwards.
WB_EXPORT std::vector<CATPendingChange> CATReadPendingChanges(CATWireFields& fields);
