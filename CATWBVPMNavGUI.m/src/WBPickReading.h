#pragma once

#include "WBReportRequest.h"

#include <optional>

/// Whether a text may stand in a request, which has no way to write a "|".
bool WBMayEnterRequests(const CATUnicodeString& text);

/// An instance as commands hand it over, the names of its path joined by "|". Nothing when there
/// are not as many names as the count says, a name is empty, or a text must not enter requests.
std::optional<WBPickedInstance> WBReadPickedInstance(const CATUnicodeString& instance,
                                                     const CATUnicodeString& part,
                                                     const CATUnicodeString& version,
                                                     const CATUnicodeString& path, int count);
