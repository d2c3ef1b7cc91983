#pragma once

#include "CATString.h"
#include "CATUnicodeString.h"

class CATDialog;

/// Asks the user whether to go on without a filter; false when the user refuses.
bool ConfirmComputeWithoutFilter(CATDialog& parent);

/// Shows a message box below the parent and goes on; the box deletes itself when it is closed.
void ShowMessage(CATDialog& parent, const CATString& name, const CATUnicodeString& text, int style);

/// The server's pending warning; empty when there is none or no answer.
CATUnicodeString PendingServerWarning();
