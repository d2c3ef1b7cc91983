#pragma once

#include "WBPartComputation.h"

#include <vector>

/// What the report panel asks the server for.

enum class WBReportKind : int
{
    Report = 0,
    Distributive = 1,
    MaterialStatistics = 2
};

/// An instance that the user picked.
struct WBPickedInstance
{
    CATUnicodeString instance;
    CATUnicodeString part;
    CATUnicodeString version;
    std::vector<CATUnicodeString> path; ///< from its parent up to just below the root

    friend bool operator==(const WBPickedInstance&, const WBPickedInstance&) = default;
};

struct WBReportOptions
{
    WBReportKind kind = WBReportKind::Report;
    bool isOfEveryInstance = false;       ///< of material statistics: not of the product alone
    std::vector<WBPickedInstance> picked; ///< none: all of the root
    /// Beside names, properties and masses, which are always there; "*" alone means all. Material
    /// statistics have no use for either list, and ask for nothing.
    std::vector<CATUnicodeString> values;
    std::vector<CATUnicodeString> properties;
    WBComputationChoice sum; ///< its entity is always the root
    CATUnicodeString root;
    CATUnicodeString filter; ///< as the server takes it
};

/// The request of method "WBMakeReport"; every field ends in "|".
CATUnicodeString WBReportRequest(const WBReportOptions& options);

/// The names that are taken, in their order; "*" alone when all of them are.
std::vector<CATUnicodeString> WBTakenNames(const std::vector<CATUnicodeString>& names,
                                           const std::vector<bool>& isTaken);
