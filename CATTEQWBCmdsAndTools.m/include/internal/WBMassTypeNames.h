#pragma once

#include "CATIDOMDocument.h"

#include <vector>

/// The names of the mass types in the server's answer, in its order. At an element that cannot be
/// read the walk ends, with a diagnostic line; the names before it are kept.
std::vector<CATUnicodeString> WBReadMassTypeNames(const CATIDOMDocument_var& document);
