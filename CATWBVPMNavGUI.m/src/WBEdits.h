#pragma once

#include "CATHandle.h"
#include "CATUnicodeString.h"
#include "CATWBAllDataBuffer.h"
#include "WBEditedRecord.h"
#include "WBPanelRecord.h"
#include "WBQuantityTexts.h"
#include "WBStatedValues.h"

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

struct WBTypedPieces;

/// One place of the main panel in which a user types or chooses.
struct WBEditField
{
    enum class Kind
    {
        Mass,
        CentreX,
        CentreY,
        CentreZ,
        Ixx,
        Iyy,
        Izz,
        Ixy, ///< products with the sign of + integral of x y dm
        Ixz,
        Iyz,
        PrecisionKind,
        LowerPrecision,
        UpperPrecision,
        ActiveMassType,
        Density, ///< of the object that AppliedOn names; so is the material
        Material,
        AppliedOn,
        DensityOrder,
        Property
    };
    Kind kind = Kind::Mass;
    CATUnicodeString massType = {}; ///< of the fields up to UpperPrecision
    int property = 0;               ///< of Property: its position in the record, from 1

    friend bool operator==(const WBEditField&, const WBEditField&) = default;
};

/// The user's edits of one record, from what he types to the request that carries them. Fields show
/// what is stated: never a figure that another mass type lends or that follows from a density.
/// Every edit is written into the record too, so that it shows what will be sent.
class WBEdits
{
public:
    /// The record is borrowed and must live as long. Without stated values nothing can be edited.
    WBEdits(CATWBAllDataBuffer& record, WBStatedValues stated);
    WBEdits(const WBEdits&) = delete;
    WBEdits& operator=(const WBEdits&) = delete;

    /// Computed follows from what is below and is never edited; nor is what the server said nothing
    /// about.
    bool IsEditable(const WBEditField& field) const;
    /// What the field shows: a number in the current unit with its symbol, a date in the record's
    /// format, a choice in the user's language; empty where nothing is stated.
    CATUnicodeString Text(const WBEditField& field) const;
    /// Takes what the user typed or chose: a number with either decimal separator, one with a unit
    /// of the magnitude behind it ("12 lb"), two numbers with an operator between them, one of
    /// Choices; empty clears. Answers what is wrong, as a sentence with nothing changed, or an
    /// empty text. A text that reads as what the field shows changes nothing, so that showing's
    /// rounding never becomes the value; only in a conflict it confirms the user's value.
    CATUnicodeString Type(const WBEditField& field, const CATUnicodeString& text);
    /// What can be chosen, for PrecisionKind, ActiveMassType, Material, AppliedOn, DensityOrder and
    /// yes-or-no properties; none for fields in which one types. An empty choice clears.
    std::vector<CATUnicodeString> Choices(const WBEditField& field) const;

    enum class State
    {
        Plain,
        Edited,  ///< here, and not applied
        Pending, ///< applied, and not saved
        Conflict ///< pending, and somebody else saved another value since
    };
    State StateOf(const WBEditField& field) const;
    /// Says what the state means, with the saved value; where nothing is stated, what counts
    /// instead.
    CATUnicodeString Tooltip(const WBEditField& field) const;

    /// What the field is about, as changes are listed: "Estimated: mass", "property Vendor".
    CATUnicodeString Name(const WBEditField& field) const;
    /// A line for each quantity that was edited: its name, what stands there and what shall.
    std::vector<CATUnicodeString> EditLines() const;

    bool HasEdits() const;
    /// How many quantities were edited: a centre of gravity is one.
    int EditCount() const;
    /// Takes the last accepted Type back and answers its field; nothing when there is none.
    std::optional<WBEditField> Undo();
    /// Takes all back: record and fields are as they were at first.
    void UndoAll();

    /// What has to be completed before the edits can be applied, as a sentence; else empty.
    CATUnicodeString CompletenessError() const;
    /// Where else an edited density or material of the part counts; empty when nowhere else.
    CATUnicodeString PlacesWarning() const;
    /// The request of "WBApplyValues". Only what was edited is named in it.
    CATUnicodeString ApplyRequest() const;

private:
    /// What makes fields differ from what is stated.
    struct Draft
    {
        std::map<std::size_t, WBPieces> edited; ///< by the quantity's place among the stated ones
        CATUnicodeString materialOwner;         ///< whose density and material are shown
    };
    struct Step
    {
        WBEditField field;
        Draft before;
    };
    /// A choice as users see it, and as it travels.
    struct Choice
    {
        CATUnicodeString text;
        CATUnicodeString piece;
    };

    std::optional<std::size_t> PlaceOf(const WBEditField& field) const;
    const WBStatedQuantity* StatedOf(const WBEditField& field) const;
    const WBPanelProperty* PropertyOf(const WBEditField& field) const;
    WBPieces PiecesAt(std::size_t place) const;
    /// Of a quantity that the server named, or of nothing.
    WBEditedPieces EditedPieces(const WBStatedQuantity* quantity,
                                const CATUnicodeString& name) const;

    std::vector<Choice> ChoicesOf(const WBEditField& field) const;
    std::vector<Choice> ActiveChoices() const;
    bool HasBothOwners() const;
    CATUnicodeString Shown(const WBEditField& field, const WBPieces& pieces) const;
    bool ReadsAsShown(const WBEditField& field, const CATUnicodeString& text) const;

    WBTypedPieces Read(const WBEditField& field, const CATUnicodeString& text,
                       const WBPieces& pieces) const;
    WBTypedPieces ReadChoice(const WBEditField& field, const CATUnicodeString& text,
                             const WBPieces& pieces) const;
    CATUnicodeString TypeOwner(const CATUnicodeString& text);
    void Put(Draft& draft, std::size_t place, const WBPieces& pieces) const;
    void Accept(const WBEditField& field, Draft draft);
    void GoTo(Draft draft);
    void WriteIntoRecord(std::size_t place);
    int PositionOf(const WBStatedQuantity& quantity) const;
    CATUnicodeString Listed(const WBStatedQuantity& quantity, const WBPieces& pieces) const;

    CATWBAllDataBuffer& m_record;
    CATHandle<CATWBAllDataBuffer> m_original;
    WBStatedValues m_stated;
    WBPanelRecord m_before; // what the record said before the first edit
    Draft m_draft;
    std::vector<Step> m_steps;
};
