#pragma once

#include "CATUnicodeString.h"

/// The configuration filters of the products.
class WB_EXPORT CATWBVPMNavFilterPanel
{
public:
    /// The filter text of a root, as the server takes it; "0|No Filter" where none is defined or no
    /// panels library is registered.
    static CATUnicodeString GetFilter(const CATUnicodeString& rootIdentifier);
    /// The root's filter as users read it; the catalog's text for no filter where no panels library
    /// is registered.
    static CATUnicodeString GetDisplayFilter(const CATUnicodeString& rootIdentifier);
    /// The configuration handler of the current root, as the object service takes it; "NoConfig"
    /// until one is chosen.
    static CATUnicodeString selectedPRCConfigHandler;
};
