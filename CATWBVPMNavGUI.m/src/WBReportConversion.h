#pragma once

#include "CATIDOMDocument.h"
#include "CATWBReportConversion.h"

#include "CATCollections.h"

/// Treats a report as the report commands do: axes, reference point, then units. The reference
/// point is one of the report's own axes and turns with them.
void WBConvertReport(CATIDOMDocument_var& document, const CATWBReportConversion& conversion);

/// The names of the "__magnitude__" attributes of all part instances, each once, in the order in
/// which they first appear.
CATListValCATUnicodeString WBMagnitudeAttributes(const CATIDOMDocument_var& document);
