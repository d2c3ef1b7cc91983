#pragma once

#include "CATUnicodeString.h"
#include "WBQuantityTexts.h"

class CATWBAllDataBuffer;

/// How edits stand in the record: as what the user stated, with everything that follows from it at
/// once. `original` is the record before the first edit; what is not edited goes back to it.

/// A quantity's pieces, as stated or as edited.
struct WBEditedPieces
{
    WBPieces pieces;
    bool isEdited = false;

    bool IsStated() const { return !WBTextOf(pieces).IsEmpty(); }
};

struct WBEditedSet
{
    WBEditedPieces mass;
    WBEditedPieces centre;
    WBEditedPieces inertia;
    WBEditedPieces precision;
};
/// Deviations follow mass and precision: an absolute precision is one, a percentage is taken of the
/// mass, and without a precision the mass type's default one counts.
void WBWriteSet(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                const CATUnicodeString& massType, const WBEditedSet& set);

struct WBEditedMaterial
{
    WBEditedPieces density;
    WBEditedPieces material;

    bool IsEdited() const { return density.isEdited || material.isEdited; }
};
/// The density that another material brings is the server's to know: until it says so the record
/// has none. `ofOwner` is what is shown as that of the owner,
/// CATENOWBCSCommonDefinitions::partRef or partInst; `ofPart` is the same where that is the part.
void WBWriteMaterial(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                     const CATUnicodeString& owner, const WBEditedMaterial& ofOwner,
                     const WBEditedMaterial& ofPart);

/// An empty name: nothing is chosen.
void WBWriteActive(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                   const CATUnicodeString& massType, bool isEdited);
void WBWriteDensityOrder(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original,
                         const WBEditedPieces& order);
/// `position` from 1.
void WBWriteProperty(CATWBAllDataBuffer& record, const CATWBAllDataBuffer& original, int position,
                     const WBEditedPieces& value);

/// Makes the stream carry the values of a mass type that WBWriteSet wrote, also where it has no
/// mass: it travels with values or without any.
void WBMakeSetTravel(CATWBAllDataBuffer& record, const CATUnicodeString& massType);
