#include "WBEditForm.h"

#include "WBPanelControls.h"
#include "WBPanelTexts.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace
{

using Kind = WBEditField::Kind;

/// What one does in a field; a property's depends on its type.
enum class Input
{
    Typing,
    Choosing,
    Either
};

Input InputOf(Kind kind)
{
    switch (kind) {
    case Kind::PrecisionKind:
    case Kind::ActiveMassType:
    case Kind::Material:
    case Kind::AppliedOn:
    case Kind::DensityOrder:
        return Input::Choosing;
    case Kind::Property:
        return Input::Either;
    default:
        return Input::Typing;
    }
}

bool IsOfMassType(Kind kind)
{
    return kind <= Kind::UpperPrecision;
}

CATDlgLook LookOf(WBEdits::State state)
{
    // In the order of the states.
    constexpr std::array kLooks{CATDlgLook::Plain, CATDlgLook::Edited, CATDlgLook::Unsaved,
                                CATDlgLook::Warning};
    return kLooks[static_cast<std::size_t>(state)];
}

} // namespace

WBEditForm::WBEditForm(CATCommand& listener, std::function<void()> onChange)
    : m_listener(listener), m_onChange(std::move(onChange))
{}

void WBEditForm::AddProblemLine(CATDialog* parent, int row, int columns)
{
    auto* line = new CATDlgLabel(parent, "Problem");
    line->SetTitle({});
    line->SetRole(CATDlgLabel::Role::Problem);
    line->SetPlacement(row, 0, 1, columns);
    m_problemLines.push_back(line);
}

WBEditForm::Field& WBEditForm::Add(const Place& place, Kind kind)
{
    Field field;
    field.kind = kind;
    field.problem = m_problemLines.back();
    const Input input = InputOf(kind);
    if (input != Input::Choosing) {
        field.editor = new CATDlgEditor(place.parent, std::string(place.name) + "Editor");
        field.editor->SetPlacement(place.row, place.column + 1, 1, place.fieldColumns);
    }
    if (input != Input::Typing) {
        field.combo = new CATDlgCombo(place.parent, std::string(place.name) + "Choice");
        field.combo->SetPlacement(place.row, place.column + 1, 1, place.fieldColumns);
    }
    m_fields.push_back(field);
    Hear(m_fields.size() - 1);
    return m_fields.back();
}

void WBEditForm::Hear(std::size_t index)
{
    const Field& field = m_fields[index];
    m_listener.Subscribe(field.editor, CATDlgEditor::Finished, [this, index](const auto&) {
        Take(index, m_fields[index].editor->Text());
    });
    m_listener.Subscribe(field.editor, CATDlgEditor::Modified,
                         [this](const auto&) { m_onChange(); });
    m_listener.Subscribe(field.editor, CATDlgEditor::TakenBack, [this, index](const auto&) {
        Field& left = m_fields[index];
        Forget(WhatIs(left));
        left.shown = left.editor->Text();
        Show();
        m_onChange();
    });
    m_listener.Subscribe(field.combo, CATDlgCombo::Selected,
                         [this, index](const CATNotification& chosen) {
                             const auto line = static_cast<std::size_t>(chosen.detail);
                             const std::vector<CATUnicodeString>& choices = m_fields[index].choices;
                             if (line < choices.size()) {
                                 Take(index, CATUnicodeString(choices[line]));
                             }
                         });
}

void WBEditForm::AddField(const Place& place, Kind kind)
{
    Add(place, kind);
    WBAddCaption(place.parent, place.name, place.row, place.column);
}

CATDlgLabel* WBEditForm::AddFact(const Place& place, Kind kind)
{
    // The field first, so that the caption before both is the field's name.
    Field& field = Add(place, kind);
    field.plain = WBAddFact(place.parent, place.name, place.row, place.column, place.fieldColumns);
    return field.plain;
}

void WBEditForm::SetEdits(WBEdits* edits)
{
    m_edits = edits;
    m_untaken.clear();
    for (Field& field : m_fields) {
        field.shown = field.editor == nullptr ? CATUnicodeString() : field.editor->Text();
        field.isStated = edits == nullptr || !edits->Text(WhatIs(field)).IsEmpty();
    }
}

void WBEditForm::SetMassType(const CATUnicodeString& massType)
{
    TakeTyped();
    m_massType = massType;
}

void WBEditForm::SetProperty(int position)
{
    TakeTyped();
    m_property = position;
}

WBEditField WBEditForm::WhatIs(const Field& field) const
{
    return {field.kind, IsOfMassType(field.kind) ? m_massType : CATUnicodeString(),
            field.kind == Kind::Property ? m_property : 0};
}

bool WBEditForm::IsBeingTyped(const Field& field) const
{
    return field.editor != nullptr && field.editor->IsVisible() &&
           !(field.editor->Text() == field.shown);
}

const WBEditForm::Untaken* WBEditForm::UntakenOf(const WBEditField& what) const
{
    const auto found = std::ranges::find(m_untaken, what, &Untaken::field);
    return found == m_untaken.end() ? nullptr : &*found;
}

void WBEditForm::Forget(const WBEditField& what)
{
    std::erase_if(m_untaken, [&what](const Untaken& entry) { return entry.field == what; });
}

void WBEditForm::Take(std::size_t index, const CATUnicodeString& text)
{
    if (m_edits == nullptr) {
        return;
    }
    const WBEditField what = WhatIs(m_fields[index]);
    const CATUnicodeString sentence = m_edits->Type(what, text);
    Forget(what);
    if (!sentence.IsEmpty()) {
        m_untaken.push_back({what, text, sentence});
    }
    m_fields[index].shown = text;
    Show();
    m_onChange();
}

void WBEditForm::TakeTyped()
{
    for (std::size_t index = 0; index < m_fields.size(); ++index) {
        if (IsBeingTyped(m_fields[index])) {
            Take(index, m_fields[index].editor->Text());
        }
    }
}

bool WBEditForm::HasUntaken() const
{
    return !m_untaken.empty() || std::ranges::any_of(m_fields, [this](const Field& field) {
        return IsBeingTyped(field);
    });
}

std::vector<CATUnicodeString> WBEditForm::Problems() const
{
    std::vector<CATUnicodeString> sentences;
    sentences.reserve(m_untaken.size());
    for (const Untaken& entry : m_untaken) {
        sentences.push_back(m_edits->Name(entry.field) + ": " + entry.sentence);
    }
    return sentences;
}

bool WBEditForm::TakeBackProblem()
{
    if (m_untaken.empty()) {
        return false;
    }
    m_untaken.pop_back();
    return true;
}

void WBEditForm::TakeBackProblems()
{
    m_untaken.clear();
}

bool WBEditForm::IsEditable(Kind kind) const
{
    Field field;
    field.kind = kind;
    return m_edits != nullptr && m_edits->IsEditable(WhatIs(field));
}

CATUnicodeString WBEditForm::Tooltip(Kind kind) const
{
    Field field;
    field.kind = kind;
    return m_edits == nullptr ? CATUnicodeString() : m_edits->Tooltip(WhatIs(field));
}

void WBEditForm::Show()
{
    for (Field& field : m_fields) {
        ShowField(field);
    }
    ShowProblems();
}

void WBEditForm::ShowField(Field& field)
{
    const bool isEditable = IsEditable(field.kind);
    const WBEditField what = WhatIs(field);
    std::vector<CATUnicodeString> choices =
        isEditable ? m_edits->Choices(what) : std::vector<CATUnicodeString>();
    const bool isShown = isEditable || field.plain == nullptr;
    const bool isChosen = field.editor == nullptr || (field.combo != nullptr && !choices.empty());
    if (field.editor != nullptr) {
        field.editor->SetVisibility(isShown && !isChosen);
        field.editor->SetSensitivity(isEditable);
        ShowEditor(field, what);
    }
    if (field.combo != nullptr) {
        field.combo->SetVisibility(isShown && isChosen);
        field.combo->SetSensitivity(isEditable);
        OfferChoices(field, std::move(choices));
        ShowCombo(field, what);
    }
    if (field.plain != nullptr) {
        field.plain->SetVisibility(!isEditable);
        if (!isEditable && field.plain->Tooltip().IsEmpty()) {
            field.plain->SetTooltip(Tooltip(field.kind));
        }
    }
}

void WBEditForm::ShowEditor(Field& field, const WBEditField& what)
{
    CATDlgEditor& editor = *field.editor;
    const CATUnicodeString instead =
        CountingInstead(field, "Edits.NotStatedBut", "@/p1 (not stated)");
    editor.SetEmptyText(instead.IsEmpty() ? WBPanelText("Edits.NotStated", "@not stated")
                                          : instead);
    if (m_edits == nullptr) {
        editor.SetText({});
        editor.SetLook(CATDlgLook::Plain);
        editor.SetTooltip({});
        field.shown = {};
        return;
    }
    const Untaken* untaken = UntakenOf(what);
    if (!IsBeingTyped(field)) {
        const CATUnicodeString text = untaken == nullptr ? m_edits->Text(what) : untaken->text;
        if (!(editor.Text() == text)) {
            editor.SetText(text);
        }
        field.shown = text;
    }
    editor.SetLook(untaken == nullptr ? LookOf(m_edits->StateOf(what)) : CATDlgLook::Problem);
    editor.SetTooltip(untaken == nullptr ? m_edits->Tooltip(what) : untaken->sentence);
}

CATUnicodeString WBEditForm::CountingInstead(const Field& field, const char* key,
                                             const char* text) const
{
    const bool isKnown = field.plain != nullptr && field.kind != Kind::Property &&
                         !field.isStated && !(field.plain->Title() == WBOrDash({}));
    return isKnown ? WBPanelText(key, text, {field.plain->Title()}) : CATUnicodeString();
}

void WBEditForm::OfferChoices(Field& field, std::vector<CATUnicodeString> choices)
{
    std::vector<CATUnicodeString> lines;
    lines.reserve(choices.size());
    for (const CATUnicodeString& choice : choices) {
        lines.push_back(choice.IsEmpty() ? WBOrDash(CountingInstead(field, "Edits.ByDefault",
                                                                    "@/p1 (by default)"))
                                         : choice);
    }
    field.choices = std::move(choices);
    if (lines == field.lines) {
        return; // the user may have just chosen one of them
    }
    field.lines = std::move(lines);
    field.combo->RemoveAll();
    int index = 0;
    for (const CATUnicodeString& line : field.lines) {
        field.combo->SetLine(index, line);
        ++index;
    }
}

void WBEditForm::ShowCombo(Field& field, const WBEditField& what)
{
    CATDlgCombo& combo = *field.combo;
    if (m_edits == nullptr) {
        combo.SetLook(CATDlgLook::Plain);
        combo.SetTooltip({});
        return;
    }
    const Untaken* untaken = UntakenOf(what);
    const CATUnicodeString text = untaken == nullptr ? m_edits->Text(what) : untaken->text;
    const auto found = std::ranges::find(field.choices, text);
    combo.Select(found == field.choices.end() ? -1
                                              : static_cast<int>(found - field.choices.begin()));
    combo.SetLook(untaken == nullptr ? LookOf(m_edits->StateOf(what)) : CATDlgLook::Problem);
    combo.SetTooltip(untaken == nullptr ? m_edits->Tooltip(what) : untaken->sentence);
}

void WBEditForm::ShowProblems()
{
    for (CATDlgLabel* line : m_problemLines) {
        CATUnicodeString sentences;
        for (const Field& field : m_fields) {
            const Untaken* untaken = field.problem == line ? UntakenOf(WhatIs(field)) : nullptr;
            if (untaken != nullptr) {
                sentences += sentences.IsEmpty() ? untaken->sentence : "\n" + untaken->sentence;
            }
        }
        line->SetTitle(sentences);
        line->SetVisibility(!sentences.IsEmpty());
    }
}
