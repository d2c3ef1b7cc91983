#pragma once

#include "CATStatus.h"
#include "CATUnicodeString.h"
#include "CATVariant.h"

/// Calls a server method with the text in `input`; the answer's text comes in `output`. The caller
/// waits; a call that takes longer shows a progress box with Cancel. S_OK when the method answered;
/// E_FAIL with an empty text in `output` when the call could not be made (no server, or it did not
/// answer). A cancelled call answers the server's error marker and a sentence. A call made while
/// another one waits is refused like one that could not be made. An empty `input` is the empty
/// text.
WB_EXPORT long RunServerCode(const CATUnicodeString& method, const CATVariant& input,
                             CATVariant& output);

/// The same from text to text: the answer, or the empty text when the call could not be made.
WB_EXPORT CATUnicodeString RunServerCode(const CATUnicodeString& method,
                                         const CATUnicodeString& request = {});
