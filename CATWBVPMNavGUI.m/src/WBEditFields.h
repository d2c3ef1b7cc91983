#pragma once

#include "WBEditTexts.h"
#include "WBEdits.h"
#include "WBPropertyEdits.h"
#include "WBQuantityTexts.h"

/// Which piece of which quantity a field shows, and how pieces become texts and typed texts pieces.

struct WBFieldRow
{
    WBEditField::Kind kind;
    const char* quantity; ///< of a property its beginning; empty for AppliedOn, which selects
    std::size_t piece;    ///< of the quantity's text
    const char* magnitude;
    WBEditMessage notRead; ///< says so of /p1, with an example in /p2
};
const WBFieldRow& WBRowOf(WBEditField::Kind kind);

/// Whether the field belongs to one mass type.
bool WBIsOfMassType(WBEditField::Kind kind);

/// A field's number with its unit; any other piece as it is.
CATUnicodeString WBShownPiece(WBEditField::Kind kind, const WBPieces& pieces);

/// Reads a typed number of a field, or an empty text, into its piece. A precision that has no kind
/// yet gets it from what is typed, a percentage unless a unit of mass stands there; without both
/// numbers it is none.
struct WBTypedPieces
{
    WBPieces pieces;
    CATUnicodeString wrong; ///< a sentence, with the pieces to be left alone; else empty
};
WBTypedPieces WBReadTypedPieces(WBEditField::Kind kind, const CATUnicodeString& text,
                                WBPieces pieces);

/// The pieces of a precision of another kind: those that are stated when they are of it, else no
/// numbers, since 5 % is not 5 kg.
WBPieces WBPrecisionOfKind(const CATUnicodeString& kind, const WBPieces& stated);
