#pragma once

#include "CATDlgControls.h"
#include "WBGroupStore.h"

#include <functional>

class WBGroupDrafts;

/// What the store bar needs of the page that shows the group, which is empty at first.
struct WBGroupOnPage
{
    std::function<WBStoredGroup()> stored; ///< the group as it is now, to be kept
    /// Puts a stored group in the place of the present one; false, with nothing changed, when it
    /// cannot be read.
    std::function<bool(const WBStoredGroup&)> take;
    /// Tells the user, in a quiet line of the window.
    std::function<void(const CATUnicodeString&)> say;
};

/// The line of a page with which its user saves the group under a name, retrieves and deletes
/// stored ones. A box asks before anything that is not kept elsewhere goes.
class WBGroupStoreBar : public CATDlgFrame
{
public:
    WBGroupStoreBar(CATDialog* page, WBGroupKind kind, const CATUnicodeString& root,
                    WBGroupOnPage group);

    /// Whether the group differs from what is stored of it; an empty one that was never stored does
    /// not.
    bool HasUnsaved() const;
    /// As the button does it; false, after a box, when the group is not saved.
    bool Save();
    /// The user does not want what is not saved.
    void GiveUp() { m_isGivenUp = true; }
    /// Keeps what is not saved and not given up for the next panel.
    void PutDraft(WBGroupDrafts& drafts) const;
    /// Takes up what the last panel kept so; it is not saved here either.
    void TakeDraft(WBGroupDrafts& drafts);

private:
    void BuildNames();
    void BuildStored();
    void Offer(const CATUnicodeString& chosen);
    void Retrieve();
    void Delete();
    bool MayReplaceStored(const CATUnicodeString& name);
    void NoteAsKept(const CATUnicodeString& name);
    CATUnicodeString Chosen() const;
    bool Ask(const char* name, const CATUnicodeString& text);
    void TellError(const CATUnicodeString& text);

    WBGroupKind m_kind;
    CATUnicodeString m_root;
    WBGroupOnPage m_group;
    WBStoredGroup m_empty;
    CATUnicodeString m_keptName; // of the group that is shown; empty when it was never stored
    WBStoredGroup m_kept;        // as it was stored or retrieved last
    bool m_isGivenUp = false;

    // Controls belong to the controls that they stand in.
    CATDlgEditor* m_name = nullptr;
    CATDlgCombo* m_stored = nullptr;
    CATDlgPushButton* m_retrieve = nullptr;
    CATDlgPushButton* m_delete = nullptr;
};
