#pragma once

#include "CATCollections.h"

/// The group panel's message `key`, `defaultText` where no catalog has it; "/p1", "/p2", ... are
/// replaced.
CATUnicodeString WBGroupText(const char* key, const char* defaultText,
                             const CATListValCATUnicodeString& parameters = {});
/// A text of which there are two, for one and for several of something; the number is "/p1" of the
/// second. Keys are `key` with ".One" and ".Several" behind it.
CATUnicodeString WBGroupCount(const char* key, int count, const char* defaultOne,
                              const char* defaultSeveral);
