#pragma once

#include "WBEditForm.h"
#include "WBEditWords.h"
#include "WBStatedValues.h"

#include <functional>
#include <memory>
#include <vector>

class CATDlgPushButton;
class CATWBAllDataBuffer;

/// Editing in the main panel: the edits of the record that it shows, the form in which they are
/// made, the bar that counts them, and what is asked before they could be lost. The record belongs
/// to the panel; edits are written into it, and lists and sums show them once they are applied.
class WBPanelEditing
{
public:
    /// Boxes belong to the window, which outlives this. `onApplied`: the record is to be read anew,
    /// its edits are the server's now.
    WBPanelEditing(CATDialog& window, std::function<void()> onApplied);

    WBEditForm& Form() { return m_form; }
    /// Words in the first column of the frame, three buttons from the third on; `marks`, the other
    /// text of the frame, stands between and shares the room.
    void BuildBar(CATDialog* frame, CATDlgLabel* marks);

    /// Another record is shown, or the same one as it is now: the server is asked what is stated.
    /// Null: there is nothing to edit. Edits of before are forgotten.
    void Begin(CATWBAllDataBuffer* record);
    /// The record has got what a computation gave; what is stated is as it was.
    void BeginAgain();
    /// The record is about to become another one: nothing of it is edited any more.
    void End();
    /// Shows fields and bar, in the present units.
    void Show();

    /// Whether there are edits that the server knows nothing of, or entries that were not taken.
    bool HasUnapplied() const;
    /// Hands the edits to the server, after asking about what else they change. False, after a box
    /// that says why, when they stay here.
    bool Apply();
    /// Asks whether to apply before another record takes this one's place, or before a computation;
    /// true when nothing is left to apply.
    bool ApplyBeforeReplacing();
    bool ApplyBeforeComputing();
    /// Asks before the panel closes: applies, or discards, or answers false.
    bool MayClose();

private:
    struct Question
    {
        const char* name;
        CATUnicodeString title;
        CATUnicodeString text;
        CATUnicodeString yes;
        CATUnicodeString no;
        int style;
    };
    int Ask(const Question& question);
    void TellError(const CATUnicodeString& title, const CATUnicodeString& text);
    bool IsComplete();
    bool AreOtherPlacesMeant();
    bool Send();
    void Undo();
    void Discard();
    void ShowBar();
    WBEditCounts Counts() const;
    /// An entry or an edit each, entries first.
    std::vector<CATUnicodeString> UnappliedLines() const;
    CATUnicodeString UnappliedWords() const;

    CATDialog& m_window;
    std::function<void()> m_onApplied;
    WBEditForm m_form;
    CATWBAllDataBuffer* m_record = nullptr;
    WBStatedValues m_stated;
    std::unique_ptr<WBEdits> m_edits;

    // Controls belong to the controls that they stand in.
    CATDialog* m_bar = nullptr;
    CATDlgLabel* m_words = nullptr;
    CATDlgLabel* m_marks = nullptr;
    CATDlgPushButton* m_undo = nullptr;
    CATDlgPushButton* m_discard = nullptr;
    CATDlgPushButton* m_apply = nullptr;
};
