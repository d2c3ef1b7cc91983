#pragma once

#include "CATUnicodeString.h"
#include "WBPanelRecord.h"

/// The users' properties in fields that are typed into: their values as they travel, and as people
/// see and type them.

/// The value with its unit where it has one, a date in that format.
CATUnicodeString WBShownProperty(const WBPanelProperty& property,
                                 const CATUnicodeString& dateFormat, const CATUnicodeString& value);

/// What was read of a typed text: a value as it travels, or the sentence that says what is wrong.
struct WBTypedPiece
{
    CATUnicodeString piece;
    CATUnicodeString wrong;
};
/// A number as for WBReadTypedQuantity, a date in that format or as yyyy-mm-dd, a text that can
/// travel. `text` is not empty.
WBTypedPiece WBReadTypedProperty(const WBPanelProperty& property,
                                 const CATUnicodeString& dateFormat, const CATUnicodeString& text);

/// Whether it can only be answered with yes or no.
bool WBIsYesOrNo(const WBPanelProperty& property);
/// Whether a text with other blanks or another separator says the same.
bool WBIsNumeric(const WBPanelProperty& property);
