#pragma once

#include "CATUnicodeString.h"

/// Whether the navigator keeps its stable order, and what the user is told when that cannot be read
/// (the answer is then false).
struct WBStableOrder
{
    bool used = false;
    CATUnicodeString message;
};

WBStableOrder ReadStableOrder();
