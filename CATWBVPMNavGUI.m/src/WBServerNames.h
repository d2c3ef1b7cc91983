#pragma once

#include "CATUnicodeString.h"

#include <vector>

/// The names that the server's database gives its mass types and the users' properties, in the
/// server's order.
struct WBServerNames
{
    std::vector<CATUnicodeString> massTypes;
    std::vector<CATUnicodeString> properties;
};

/// Asks the server (method "WBGetMassTypesAndAttrNames"); no names when it does not answer.
WBServerNames WBAskServerNames();
