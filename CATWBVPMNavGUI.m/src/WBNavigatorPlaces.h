#pragma once

#include "WBDefinedFilter.h"

/// What the product that is open in the navigator holds at a place, given by the instance names
/// from below the root down; no names: the root. Unknown for another root than the open one, and
/// where the server does not say. What the user has not opened yet is asked of the server, a call
/// an assembly on the way.
WBProductPlace WBFindInNavigator(const CATUnicodeString& rootIdentifier,
                                 const std::vector<CATUnicodeString>& names);
/// Whether the navigator has another root open, to which picks belong then.
bool WBIsOtherRootOpen(const CATUnicodeString& rootIdentifier);
