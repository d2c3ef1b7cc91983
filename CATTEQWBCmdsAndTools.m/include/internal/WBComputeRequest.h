#pragma once

#include "CATUnicodeString.h"

/// What a user asks of the computation of a whole product, and the text that asks the server.

/// Whose values count.
enum class WBComputePrecision
{
    Active,      ///< of each part the mass type that is active
    MostPrecise, ///< of each part the mass type of the highest rank
    Specified    ///< one mass type everywhere
};

/// What becomes of results that are stored; the digits are the server's.
enum class WBUpdatePolicy : int
{
    Check = 0,
    Force = 1,
    Assume = 2
};

struct WBComputeOptions
{
    WBComputePrecision precision = WBComputePrecision::Active;
    CATUnicodeString massType; ///< with Specified
    WBUpdatePolicy policy = WBUpdatePolicy::Check;
    CATUnicodeString level; ///< with Assume: down to where the server computes, as it was typed
    CATUnicodeString rootIdentifier;
    CATUnicodeString filter; ///< the filter's text for the server
};

/// The request of method "WBComputeVPMValues"; every field ends in "|".
CATUnicodeString WBComputeRequest(const WBComputeOptions& options);
