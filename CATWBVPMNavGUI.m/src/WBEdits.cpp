#include "WBEdits.h"

#include "WBChanges.h"
#include "WBEditFields.h"
#include "WBEditSentences.h"
#include "WBEditTexts.h"
#include "WBPanelTexts.h"
#include "WBPropertyEdits.h"
#include "WBTypedQuantity.h"

#include <algorithm>
#include <set>
#include <utility>

namespace
{

using Definitions = CATENOWBCSCommonDefinitions;
using Kind = WBEditField::Kind;

/// What the wire has for nothing.
constexpr const char* kNothing = "__null__";

bool IsOfMaterial(const WBStatedQuantity& quantity)
{
    return quantity.massType.IsEmpty() &&
           (quantity.name == kWBDensityQuantity || quantity.name == kWBMaterialQuantity);
}

CATUnicodeString OwnerOf(const WBPanelProperty& property)
{
    return property.owner == "Instance" ? Definitions::partInst : Definitions::partRef;
}

WBPieces StatedPieces(const WBStatedQuantity& quantity)
{
    return WBPiecesOf(quantity.name, quantity.text);
}

/// As the server names it in lists of changes.
CATUnicodeString FactOf(const WBStatedQuantity& quantity)
{
    return quantity.massType.IsEmpty() ? quantity.name
                                       : "mass type " + quantity.massType + ", " + quantity.name;
}

CATUnicodeString OrNothing(const CATUnicodeString& text)
{
    return text.IsEmpty() ? kNothing : text;
}

CATUnicodeString RequestLine(const WBStatedQuantity& quantity, const WBPieces& pieces)
{
    const char* const stated = WBTextOf(pieces).IsEmpty() ? "0" : "1";
    return quantity.owner + "|" + OrNothing(quantity.massType) + "|" + quantity.name + "|" +
           stated + "|" + OrNothing(quantity.stored) + "|";
}

} // namespace

WBEdits::WBEdits(CATWBAllDataBuffer& record, WBStatedValues stated)
    : m_record(record),
      m_original(CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer(record))),
      m_stated(std::move(stated)),
      m_before(WBReadPanelRecord(record, {}))
{
    // Where the use states something of its own, that is what counts there.
    const bool isOfUse =
        HasBothOwners() &&
        std::ranges::any_of(m_stated.quantities, [](const WBStatedQuantity& quantity) {
            return IsOfMaterial(quantity) && quantity.owner == Definitions::partInst &&
                   !quantity.text.IsEmpty();
        });
    m_draft.materialOwner = isOfUse ? Definitions::partInst : Definitions::partRef;
}

bool WBEdits::HasBothOwners() const
{
    // The material of an instance that the PDM knows belongs to the part.
    return !m_before.hasInstanceInPDM &&
           m_stated.Find(Definitions::partRef, {}, kWBDensityQuantity) != nullptr &&
           m_stated.Find(Definitions::partInst, {}, kWBDensityQuantity) != nullptr;
}

const WBPanelProperty* WBEdits::PropertyOf(const WBEditField& field) const
{
    const bool isThere = field.property >= 1 &&
                         static_cast<std::size_t>(field.property) <= m_before.properties.size();
    return isThere ? &m_before.properties[static_cast<std::size_t>(field.property) - 1] : nullptr;
}

const WBStatedQuantity* WBEdits::StatedOf(const WBEditField& field) const
{
    const CATUnicodeString quantity = WBRowOf(field.kind).quantity;
    if (WBIsOfMassType(field.kind)) {
        const bool isListed =
            std::ranges::count(m_before.massTypes, field.massType, &WBPanelMassType::name) > 0;
        return isListed && !(field.massType == Definitions::Computed)
                   ? m_stated.Find(field.massType, quantity)
                   : nullptr;
    }
    switch (field.kind) {
    case Kind::Density:
    case Kind::Material:
        return m_stated.Find(m_draft.materialOwner, {}, quantity);
    case Kind::Property: {
        const WBPanelProperty* property = PropertyOf(field);
        return property == nullptr
                   ? nullptr
                   : m_stated.Find(OwnerOf(*property), {}, quantity + property->name);
    }
    default:
        return m_stated.Find({}, quantity); // AppliedOn has none
    }
}

std::optional<std::size_t> WBEdits::PlaceOf(const WBEditField& field) const
{
    const WBStatedQuantity* quantity = StatedOf(field);
    return quantity == nullptr
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(quantity - m_stated.quantities.data()));
}

WBPieces WBEdits::PiecesAt(std::size_t place) const
{
    const auto edited = m_draft.edited.find(place);
    return edited == m_draft.edited.end() ? StatedPieces(m_stated.quantities[place])
                                          : edited->second;
}

bool WBEdits::IsEditable(const WBEditField& field) const
{
    return field.kind == Kind::AppliedOn ? HasBothOwners() : StatedOf(field) != nullptr;
}

CATUnicodeString WBEdits::Text(const WBEditField& field) const
{
    if (field.kind == Kind::AppliedOn) {
        const bool isKnown = StatedOf({Kind::Density}) != nullptr;
        return isKnown ? Shown(field, {m_draft.materialOwner}) : CATUnicodeString();
    }
    const std::optional<std::size_t> place = PlaceOf(field);
    return place ? Shown(field, PiecesAt(*place)) : CATUnicodeString();
}

CATUnicodeString WBEdits::Shown(const WBEditField& field, const WBPieces& pieces) const
{
    if (field.kind == Kind::Property) {
        return WBShownProperty(*PropertyOf(field), m_before.dateFormat, pieces[0]);
    }
    for (const Choice& choice : ChoicesOf(field)) {
        if (choice.piece == pieces[0]) {
            return choice.text;
        }
    }
    // A material or mass type that can no longer be chosen may still be the one.
    return WBShownPiece(field.kind, pieces);
}

std::vector<WBEdits::Choice> WBEdits::ActiveChoices() const
{
    const WBStatedQuantity* active = m_stated.Find({}, kWBActiveQuantity);
    // Nothing imposed on an assembly means that it is summed up; of a use, that its part's counts.
    const bool isSummedUp =
        active != nullptr && active->owner == Definitions::partRef && !m_stated.isLeaf;
    std::vector<Choice> choices{
        {isSummedUp ? CATUnicodeString(Definitions::Computed) : CATUnicodeString(), {}}};
    for (const WBPanelMassType& massType : m_before.massTypes) {
        const bool isGoal = std::ranges::count(m_stated.goals, massType.name) > 0;
        if (!isGoal && !(massType.name == Definitions::Computed)) {
            choices.push_back({massType.name, massType.name});
        }
    }
    return choices;
}

std::vector<WBEdits::Choice> WBEdits::ChoicesOf(const WBEditField& field) const
{
    switch (field.kind) {
    case Kind::PrecisionKind:
        return {{{}, {}},
                {WBEditText("Precision.Percent", "@in percent"), kWBPercent},
                {WBEditText("Precision.Absolute", "@as a mass"), kWBAbsolute}};
    case Kind::ActiveMassType:
        return ActiveChoices();
    case Kind::Material: {
        std::vector<Choice> choices{{{}, {}}};
        for (const CATUnicodeString& material : m_stated.materials) {
            choices.push_back({material, material});
        }
        return choices;
    }
    case Kind::AppliedOn:
        return {
            {WBPanelText("AppliedOn.Part", "@the part, wherever it is used"), Definitions::partRef},
            {WBPanelText("AppliedOn.Instance", "@this instance alone"), Definitions::partInst}};
    case Kind::DensityOrder:
        return {
            {{}, {}},
            {WBPanelText("Priority.Own", "@the density stated for the part"), kWBOwnDensityFirst},
            {WBPanelText("Priority.Material", "@the density of the material"), kWBMaterialFirst}};
    case Kind::Property: {
        const WBPanelProperty* property = PropertyOf(field);
        if (property == nullptr || !WBIsYesOrNo(*property)) {
            return {};
        }
        return {{{}, {}},
                {WBPanelText("Answer.Yes", "@yes"), "yes"},
                {WBPanelText("Answer.No", "@no"), "no"}};
    }
    default:
        return {};
    }
}

std::vector<CATUnicodeString> WBEdits::Choices(const WBEditField& field) const
{
    std::vector<CATUnicodeString> texts;
    for (const Choice& choice : ChoicesOf(field)) {
        texts.push_back(choice.text);
    }
    return texts;
}

CATUnicodeString WBEdits::Type(const WBEditField& field, const CATUnicodeString& text)
{
    if (!IsEditable(field)) {
        return WBEditText("NotEditable.Text", "@This value cannot be changed here.");
    }
    const CATUnicodeString typed = text.Stripped();
    if (field.kind == Kind::AppliedOn) {
        return TypeOwner(typed);
    }
    const std::size_t place = *PlaceOf(field);
    WBPieces pieces = PiecesAt(place);
    if (!ReadsAsShown(field, typed)) {
        WBTypedPieces read = Read(field, typed, pieces);
        if (!read.wrong.IsEmpty()) {
            return read.wrong;
        }
        pieces = std::move(read.pieces);
    }
    Draft draft = m_draft;
    Put(draft, place, pieces);
    if (draft.edited != m_draft.edited) {
        Accept(field, std::move(draft));
    }
    return {};
}

bool WBEdits::ReadsAsShown(const WBEditField& field, const CATUnicodeString& text) const
{
    const CATUnicodeString shown = Text(field).Stripped();
    const bool isNumeric = field.kind == Kind::Property ? WBIsNumeric(*PropertyOf(field))
                                                        : *WBRowOf(field.kind).magnitude != '\0';
    return isNumeric ? WBReadsAsShown(text, shown) : text == shown;
}

WBTypedPieces WBEdits::Read(const WBEditField& field, const CATUnicodeString& text,
                            const WBPieces& pieces) const
{
    if (!ChoicesOf(field).empty()) {
        return ReadChoice(field, text, pieces);
    }
    if (field.kind != Kind::Property) {
        return WBReadTypedPieces(field.kind, text, pieces);
    }
    if (text.IsEmpty()) {
        return {{text}, {}};
    }
    const WBTypedPiece read = WBReadTypedProperty(*PropertyOf(field), m_before.dateFormat, text);
    return {{read.piece}, read.wrong};
}

WBTypedPieces WBEdits::ReadChoice(const WBEditField& field, const CATUnicodeString& text,
                                  const WBPieces& pieces) const
{
    const std::vector<Choice> choices = ChoicesOf(field);
    auto chosen = std::ranges::find(choices, text, &Choice::text);
    if (chosen == choices.end()) { // nobody has to mind the letter case
        chosen = std::ranges::find_if(
            choices, [&](const Choice& choice) { return choice.text.Compare(text) != 0; });
    }
    if (chosen == choices.end()) {
        return {{},
                field.kind == Kind::Material
                    ? WBEditText("NotRead.Material", "@\"/p1\" is not a material of the database.",
                                 {text})
                    : WBEditText("NotRead.Choice", "@\"/p1\" is none of the choices.", {text})};
    }
    if (field.kind == Kind::PrecisionKind) {
        return {chosen->piece == pieces[0]
                    ? pieces
                    : WBPrecisionOfKind(chosen->piece, StatedPieces(*StatedOf(field))),
                {}};
    }
    return {{chosen->piece}, {}};
}

/// What was typed for one owner and not applied yet is meant for the other one then: the record has
/// one place for it. What was cleared needs none and stays cleared.
CATUnicodeString WBEdits::TypeOwner(const CATUnicodeString& text)
{
    const WBEditField field{Kind::AppliedOn};
    const WBTypedPieces read = ReadChoice(field, text, {m_draft.materialOwner});
    if (!read.wrong.IsEmpty() || read.pieces[0] == m_draft.materialOwner) {
        return read.wrong;
    }
    Draft draft = m_draft;
    draft.materialOwner = read.pieces[0];
    for (const auto& [place, pieces] : m_draft.edited) {
        const WBStatedQuantity& quantity = m_stated.quantities[place];
        if (IsOfMaterial(quantity) && !WBTextOf(pieces).IsEmpty()) {
            draft.edited.erase(place);
            const WBStatedQuantity* other = m_stated.Find(read.pieces[0], {}, quantity.name);
            if (other != nullptr) {
                Put(draft, static_cast<std::size_t>(other - m_stated.quantities.data()), pieces);
            }
        }
    }
    Accept(field, std::move(draft));
    return {};
}

/// In a conflict the same value is an edit too: it says that the user keeps it.
void WBEdits::Put(Draft& draft, std::size_t place, const WBPieces& pieces) const
{
    const WBStatedQuantity& quantity = m_stated.quantities[place];
    if (pieces == StatedPieces(quantity) && !quantity.isInConflict) {
        draft.edited.erase(place);
    } else {
        draft.edited.insert_or_assign(place, pieces);
    }
}

void WBEdits::Accept(const WBEditField& field, Draft draft)
{
    m_steps.push_back({field, m_draft});
    GoTo(std::move(draft));
}

void WBEdits::GoTo(Draft draft)
{
    std::set<std::size_t> places;
    for (const Draft* either : {&m_draft, &draft}) {
        for (const auto& [place, pieces] : either->edited) {
            places.insert(place);
        }
    }
    m_draft = std::move(draft);
    for (const std::size_t place : places) {
        WriteIntoRecord(place);
    }
}

WBEditedPieces WBEdits::EditedPieces(const WBStatedQuantity* quantity,
                                     const CATUnicodeString& name) const
{
    if (quantity == nullptr) {
        return {WBPiecesOf(name, {}), false};
    }
    const auto place = static_cast<std::size_t>(quantity - m_stated.quantities.data());
    return {PiecesAt(place), m_draft.edited.contains(place)};
}

void WBEdits::WriteIntoRecord(std::size_t place)
{
    const WBStatedQuantity& quantity = m_stated.quantities[place];
    const WBEditedPieces edited = EditedPieces(&quantity, quantity.name);
    if (!quantity.massType.IsEmpty()) {
        const auto piecesOf = [&](const char* name) {
            return EditedPieces(m_stated.Find(quantity.massType, name), name);
        };
        WBWriteSet(m_record, *m_original, quantity.massType,
                   {piecesOf(kWBMassQuantity), piecesOf(kWBCentreQuantity),
                    piecesOf(kWBInertiaQuantity), piecesOf(kWBPrecisionQuantity)});
    } else if (IsOfMaterial(quantity)) {
        const auto materialOf = [&](const CATUnicodeString& owner) {
            const auto piecesOf = [&](const char* name) {
                return EditedPieces(m_stated.Find(owner, {}, name), name);
            };
            return WBEditedMaterial{piecesOf(kWBDensityQuantity), piecesOf(kWBMaterialQuantity)};
        };
        WBWriteMaterial(m_record, *m_original, m_draft.materialOwner,
                        materialOf(m_draft.materialOwner), materialOf(Definitions::partRef));
    } else if (quantity.name == kWBActiveQuantity) {
        WBWriteActive(m_record, *m_original, Shown({Kind::ActiveMassType}, edited.pieces),
                      edited.isEdited);
    } else if (quantity.name == kWBDensityOrderQuantity) {
        WBWriteDensityOrder(m_record, *m_original, edited);
    } else {
        WBWriteProperty(m_record, *m_original, PositionOf(quantity), edited);
    }
}

/// The property's position in the record; edited ones stand there.
int WBEdits::PositionOf(const WBStatedQuantity& quantity) const
{
    const auto found =
        std::ranges::find_if(m_before.properties, [&](const WBPanelProperty& property) {
            return OwnerOf(property) == quantity.owner &&
                   kWBPropertyQuantity + property.name == quantity.name;
        });
    return static_cast<int>(found - m_before.properties.begin()) + 1;
}

WBEdits::State WBEdits::StateOf(const WBEditField& field) const
{
    const std::optional<std::size_t> place = PlaceOf(field);
    if (!place) {
        return State::Plain;
    }
    const WBStatedQuantity& quantity = m_stated.quantities[*place];
    const std::size_t piece = WBRowOf(field.kind).piece;
    const WBPieces stated = StatedPieces(quantity);
    const auto edited = m_draft.edited.find(*place);
    const bool isEdited = edited != m_draft.edited.end();
    if (isEdited && (quantity.isInConflict || edited->second[piece] != stated[piece])) {
        return State::Edited;
    }
    if (quantity.isInConflict) {
        return State::Conflict;
    }
    const bool differs = stated[piece] != WBPiecesOf(quantity.name, quantity.stored)[piece];
    return quantity.isPending && differs ? State::Pending : State::Plain;
}

CATUnicodeString WBEdits::Tooltip(const WBEditField& field) const
{
    if (WBIsOfMassType(field.kind) && field.massType == Definitions::Computed) {
        return WBEditText("Computed.Tooltip",
                          "@Computed follows from what is below; it is not typed.");
    }
    if (field.kind == Kind::AppliedOn && m_before.hasInstanceInPDM) {
        return WBEditText("AppliedOn.Tooltip",
                          "@Density and material of this instance are those of its part.");
    }
    const WBStatedQuantity* quantity = StatedOf(field);
    if (quantity == nullptr) {
        return {};
    }
    const State state = StateOf(field);
    CATUnicodeString tooltip =
        WBTellStory({state, Shown(field, WBPiecesOf(quantity->name, quantity->stored)),
                     quantity->by, quantity->at});
    // What counts once an edit has cleared a value is the server's to say.
    if (state != State::Edited && Text(field).IsEmpty()) {
        const CATUnicodeString counts = WBTellWhatCounts(m_before, field, m_draft.materialOwner);
        tooltip += tooltip.IsEmpty() || counts.IsEmpty() ? counts : " " + counts;
    }
    return tooltip;
}

CATUnicodeString WBEdits::Name(const WBEditField& field) const
{
    const WBStatedQuantity* quantity = StatedOf(field);
    return quantity == nullptr ? CATUnicodeString() : WBFactText(FactOf(*quantity));
}

std::vector<CATUnicodeString> WBEdits::EditLines() const
{
    std::vector<CATUnicodeString> lines;
    for (const auto& [place, pieces] : m_draft.edited) {
        const WBStatedQuantity& quantity = m_stated.quantities[place];
        lines.push_back(
            WBEditText("Edit.Line", "@/p1 (/p2 → /p3)",
                       {WBFactText(FactOf(quantity)), Listed(quantity, StatedPieces(quantity)),
                        Listed(quantity, pieces)}));
    }
    return lines;
}

CATUnicodeString WBEdits::Listed(const WBStatedQuantity& quantity, const WBPieces& pieces) const
{
    if (!WBAreComplete(pieces)) {
        return WBEditText("Edit.Incomplete", "@incomplete");
    }
    if (quantity.name.View().starts_with(kWBPropertyQuantity)) {
        return WBOrDash(Shown({Kind::Property, {}, PositionOf(quantity)}, pieces));
    }
    return WBChangedText(FactOf(quantity), WBTextOf(pieces));
}

bool WBEdits::HasEdits() const
{
    return !m_draft.edited.empty();
}

int WBEdits::EditCount() const
{
    return static_cast<int>(m_draft.edited.size());
}

std::optional<WBEditField> WBEdits::Undo()
{
    if (m_steps.empty()) {
        return std::nullopt;
    }
    Step last = std::move(m_steps.back());
    m_steps.pop_back();
    GoTo(std::move(last.before));
    return last.field;
}

void WBEdits::UndoAll()
{
    if (!m_steps.empty()) {
        GoTo(m_steps.front().before);
        m_steps.clear();
    }
}

CATUnicodeString WBEdits::CompletenessError() const
{
    for (const auto& [place, pieces] : m_draft.edited) {
        if (!WBAreComplete(pieces)) {
            const WBStatedQuantity& quantity = m_stated.quantities[place];
            return WBTellIncomplete(quantity.name, quantity.massType);
        }
    }
    return {};
}

CATUnicodeString WBEdits::PlacesWarning() const
{
    const bool isOfPart = std::ranges::any_of(m_draft.edited, [&](const auto& edit) {
        const WBStatedQuantity& quantity = m_stated.quantities[edit.first];
        return IsOfMaterial(quantity) && quantity.owner == Definitions::partRef;
    });
    return isOfPart ? WBTellPlaces(m_stated, m_before) : CATUnicodeString();
}

CATUnicodeString WBEdits::ApplyRequest() const
{
    // The record itself says what it is; on the way a set without a mass says that it has values.
    const auto sent = CATHandle<CATWBAllDataBuffer>::Adopt(new CATWBAllDataBuffer(m_record));
    CATUnicodeString lines;
    int count = 0;
    for (const auto& [place, pieces] : m_draft.edited) {
        const WBStatedQuantity& quantity = m_stated.quantities[place];
        if (!WBAreComplete(pieces)) {
            continue;
        }
        ++count;
        lines += RequestLine(quantity, pieces);
        if (!quantity.massType.IsEmpty()) {
            WBMakeSetTravel(*sent, quantity.massType);
        } else if (IsOfMaterial(quantity)) {
            sent->SetWBDensityStatus(Definitions::Assigned);
        }
    }
    CATUnicodeString values;
    sent->GetAllData(values);
    return WBPlaceOf(m_record) + CATUnicodeString::FromInt(count) + "|" + lines + values;
}
