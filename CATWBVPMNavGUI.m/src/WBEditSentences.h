#pragma once

#include "WBEdits.h"
#include "WBPanelRecord.h"

/// What is said about edits, as sentences; empty where there is nothing to say.

/// What an edit or a conflict is about.
struct WBEditStory
{
    WBEdits::State state = WBEdits::State::Plain;
    CATUnicodeString stored; ///< as the field would show it; empty: nothing
    CATUnicodeString by;     ///< who saved it in between, and when
    CATUnicodeString at;
};
CATUnicodeString WBTellStory(const WBEditStory& story);

/// What the record goes by where a field states nothing: a size times a density, another mass
/// type's figure, a default. `materialOwner` is whose density and material are shown.
CATUnicodeString WBTellWhatCounts(const WBPanelRecord& record, const WBEditField& field,
                                  const CATUnicodeString& materialOwner);

/// That a mass type's quantity has some of its pieces and lacks others.
CATUnicodeString WBTellIncomplete(const CATUnicodeString& quantity,
                                  const CATUnicodeString& massType);

/// Where a part counts beside the place that was picked.
CATUnicodeString WBTellPlaces(const WBStatedValues& stated, const WBPanelRecord& record);
