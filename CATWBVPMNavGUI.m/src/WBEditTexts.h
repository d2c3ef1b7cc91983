#pragma once

#include "CATCollections.h"
#include "CATUnicodeString.h"

/// A message about edits, `defaultText` where no catalog has it; "/p1", "/p2", ... are replaced.
CATUnicodeString WBEditText(const char* key, const char* defaultText,
                            const CATListValCATUnicodeString& parameters = {});

/// A message by its key, as tables hold it.
struct WBEditMessage
{
    const char* key;
    const char* defaultText;
};
CATUnicodeString WBEditText(const WBEditMessage& message,
                            const CATListValCATUnicodeString& parameters = {});
