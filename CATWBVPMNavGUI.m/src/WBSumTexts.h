#pragma once

#include "WBPanelTexts.h"

/// What the panel says about a sum: what was summed up, what it covers, and what it is made of.

struct WBSumFacts
{
    CATUnicodeString items;          ///< how many of how many have a mass
    CATUnicodeString withoutCentre;  ///< how much mass has no centre of gravity
    CATUnicodeString withoutInertia; ///< how much mass has no inertia
    CATUnicodeString growth;
    CATUnicodeString predicted; ///< the sum with its growth allowance
    CATUnicodeString
        uncertainty; ///< standard uncertainty of the mass, and how much of it is stated
};
WBSumFacts WBReadSumFacts(const WBPanelRecord& record);
/// Whether Computed came with the record, or was computed here and from what.
CATUnicodeString WBWhatIsSummedUp(const WBPanelRecord& record);

/// What is unusual about Computed where that is active: that it is of something else, by other
/// values or filtered; a line each, empty for the usual sum.
CATUnicodeString WBUnusualSum(const WBPanelRecord& record);

/// Mass by code, and by mass type in order of maturity, with the share of each in the whole.
WBPanelTable WBCodeTable(const WBPanelRecord& record);
WBPanelTable WBMassTypeShareTable(const WBPanelRecord& record);
/// Every warning in full.
WBPanelTable WBWarningTable(const WBPanelRecord& record);

/// Own figures, those of what is below, and the difference, where an assembly's own values stand
/// for what is below it; no rows elsewhere.
WBPanelTable WBImposedTable(const WBPanelRecord& record);
/// Which values stand for what, and whose they are where the mass type does not state them.
CATUnicodeString WBImposedWords(const WBPanelRecord& record);

/// What a computation can be asked for, as users read it.
CATUnicodeString WBEntityText(CATENOWBCSCommonDefinitions::Entity entity);
CATUnicodeString WBPrecisionChoiceText(const CATUnicodeString& precision);
CATUnicodeString WBStoredSumsText(WBStoredSums storedSums);
