#pragma once

#include "CATIPLMIdentificator.h"
#include "CATUnicodeString.h"

#include <optional>

/// What the PDM says about picked objects.
struct WBObjectServiceAnswer
{
    long status;                          ///< the service's own
    std::optional<CATUnicodeString> text; ///< nothing when no answer came
};

/// Asks the PDM's object service for a record of each of the objects; `identificators` keeps those
/// that it knows, one for each record.
WBObjectServiceAnswer WBAskObjectService(CATListIdentificators& identificators,
                                         const CATUnicodeString& input);
