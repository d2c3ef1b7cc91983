#pragma once

#include "CATUnicodeString.h"

/// Tells the watches that the server has been called.
void CATTellServerCall(const CATUnicodeString& method);
