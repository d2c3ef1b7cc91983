#pragma once

#include "CATUnicodeString.h"

/// The filter of a root, from the user's settings (repository "CATWBVPMNavFilterPanel", the setting
/// "<root>.Filter"). A stored text that is no filter counts as none and is told on the diagnostic
/// error stream: a server would refuse it, and the user could compute nothing.

/// What stands where there is none.
inline constexpr const char* kWBNoFilter = "0|No Filter";

/// As the server takes it.
CATUnicodeString WBFilterOfRoot(const CATUnicodeString& rootIdentifier);
/// As users read it: its name, or the catalog's text for no filter, or for one that cannot be read.
CATUnicodeString WBShownFilterOfRoot(const CATUnicodeString& rootIdentifier);
/// What users read where no filter is on.
CATUnicodeString WBNoFilterText();
/// What they read where the one that shall count is no filter, so that nobody takes the whole
/// product for a part of it.
CATUnicodeString WBUnreadableFilterText();

/// Whether the text is a filter with at least one line, and nothing else: "n|name" and n lines of I
/// or X, instance, part, version, a count and so many names.
bool WBIsFilter(const CATUnicodeString& text);
