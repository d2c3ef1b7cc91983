#pragma once

#include "CATUnicodeString.h"

/// A name that the host looks things up by (commands, controls, notifications): the same text class
/// under the name that the interfaces use.
using CATString = CATUnicodeString;
