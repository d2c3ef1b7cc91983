#pragma once

#include "CATENOWBCSCommonDefinitions.h"
#include "CATUnicodeString.h"

#include <vector>

class CATWBAllDataBuffer;

/// What the main panel asks the server to compute, and whether an answer can be taken.

enum class WBStoredSums
{
    Check,
    Force,
    Assume ///< the sums of assemblies deeper than the level are taken as they are stored
};

struct WBComputationChoice
{
    CATENOWBCSCommonDefinitions::Entity entity = CATENOWBCSCommonDefinitions::InstanceWithChildren;
    CATUnicodeString precision = kActive; ///< kActive, kMostPrecise or a mass type
    WBStoredSums storedSums = WBStoredSums::Check;
    CATUnicodeString level = "0"; ///< of WBStoredSums::Assume, as it was typed

    static constexpr const char* kActive = "Active";
    static constexpr const char* kMostPrecise = "MostPrecise";
};

/// Fills the record's fields that a computation goes by: the entity, and the filter that its root
/// has at present.
void WBFillChoices(CATWBAllDataBuffer& record, const WBComputationChoice& choice);

/// The request of a computation, for a record whose choices are filled.
CATUnicodeString WBComputationRequest(CATWBAllDataBuffer& record,
                                      const WBComputationChoice& choice);

/// The request that asks about the values which a record came with: everything as it is by default.
CATUnicodeString WBStoredValuesRequest(const CATWBAllDataBuffer& record);

/// Whether the text is a level: a whole number from 0.
bool WBIsLevel(const CATUnicodeString& text);

/// Whether the answer has as many fields as its own counts announce. What stands in the fields is
/// the record's to judge.
bool WBIsComputedAnswer(const CATUnicodeString& answer);

/// Whether the server keeps what it computes so as the sum that the record's up-to-date flag is
/// about.
bool WBIsKeptAsTheSum(const CATWBAllDataBuffer& record, const WBComputationChoice& choice);
