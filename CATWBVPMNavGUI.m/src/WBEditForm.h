#pragma once

#include "CATUnicodeString.h"
#include "WBEdits.h"

#include <functional>
#include <vector>

class CATCommand;
class CATDialog;
class CATDlgCombo;
class CATDlgEditor;
class CATDlgLabel;

/// The fields of the main panel in which values are typed or chosen. An entry is taken when the
/// user leaves the field or presses Enter. One that cannot be taken stays in its field, marked,
/// with the sentence of what is wrong in the line of problems below, until it is corrected or taken
/// back by Esc; also while another mass type or property is shown meanwhile.
class WBEditForm
{
public:
    using Kind = WBEditField::Kind;
    /// Where caption and field stand side by side: in the row, from the column on.
    struct Place
    {
        CATDialog* parent;
        const char* name;
        int row;
        int column;
        int fieldColumns = 1;
    };
    /// `listener` hears the fields and outlives them; `onChange` is called when the user has typed
    /// or chosen something.
    WBEditForm(CATCommand& listener, std::function<void()> onChange);
    WBEditForm(const WBEditForm&) = delete;
    WBEditForm& operator=(const WBEditForm&) = delete;

    /// The line in which the problems of the fields stand that are added from now on.
    void AddProblemLine(CATDialog* parent, int row, int columns);
    /// A field that is grey where nothing can be entered: caption NAMELabel, field NAMEEditor where
    /// one types, NAMEChoice where one chooses.
    void AddField(const Place& place, Kind kind);
    /// A field in the cell of a fact: the label, which is answered and whose name is the place's,
    /// shows where nothing can be entered, and says why. Where nothing is stated the field says
    /// quietly what the label holds, since that is what counts then.
    CATDlgLabel* AddFact(const Place& place, Kind kind);

    /// What is edited from now on; null: nothing. What was not taken before is forgotten.
    void SetEdits(WBEdits* edits);
    /// Which mass type and which property (from 1; 0: none) the fields of one show.
    void SetMassType(const CATUnicodeString& massType);
    void SetProperty(int position);
    /// Shows all fields anew, in the present units. What is being typed stays.
    void Show();

    bool IsEditable(Kind kind) const;
    /// Why the field of that kind cannot be edited, or what its state means.
    CATUnicodeString Tooltip(Kind kind) const;

    /// Takes what was typed and not left yet.
    void TakeTyped();
    /// Whether something stands in a field that was not taken.
    bool HasUntaken() const;
    /// What is wrong with it, a sentence each behind the name of what it was typed for: that may be
    /// another property or mass type than the one that is shown.
    std::vector<CATUnicodeString> Problems() const;
    /// Takes back the latest entry that could not be taken; false when there is none.
    bool TakeBackProblem();
    void TakeBackProblems();

private:
    struct Field
    {
        Kind kind = Kind::Mass;
        CATDlgEditor* editor = nullptr; // where one types; a property's field has both
        CATDlgCombo* combo = nullptr;
        CATDlgLabel* plain = nullptr;
        CATDlgLabel* problem = nullptr;
        CATUnicodeString shown; // in the editor, by this form
        bool isStated = true;   // when it was last read; else the label says what counts instead
        std::vector<CATUnicodeString> choices;
        std::vector<CATUnicodeString> lines; // as the combo has them
    };
    struct Untaken
    {
        WBEditField field;
        CATUnicodeString text;
        CATUnicodeString sentence;
    };

    Field& Add(const Place& place, Kind kind);
    void Hear(std::size_t index);
    WBEditField WhatIs(const Field& field) const;
    bool IsBeingTyped(const Field& field) const;
    const Untaken* UntakenOf(const WBEditField& what) const;
    void Forget(const WBEditField& what);
    void Take(std::size_t index, const CATUnicodeString& text);
    void ShowField(Field& field);
    void ShowEditor(Field& field, const WBEditField& what);
    CATUnicodeString CountingInstead(const Field& field, const char* key, const char* text) const;
    void OfferChoices(Field& field, std::vector<CATUnicodeString> choices);
    void ShowCombo(Field& field, const WBEditField& what);
    void ShowProblems();

    CATCommand& m_listener;
    std::function<void()> m_onChange;
    // Controls belong to the controls that they stand in.
    std::vector<Field> m_fields;
    std::vector<CATDlgLabel*> m_problemLines;
    WBEdits* m_edits = nullptr;
    CATUnicodeString m_massType;
    int m_property = 0;
    std::vector<Untaken> m_untaken; // in the order of their entry
};
