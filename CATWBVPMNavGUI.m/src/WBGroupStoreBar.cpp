#include "WBGroupStoreBar.h"

#include "WBGroupDrafts.h"
#include "WBGroupTexts.h"
#include "WBPanelControls.h"

#include "CATDlgNotify.h"
#include "CATWBServices.h"

#include <utility>

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kYes = 1;
constexpr int kNameCharacters = 12;

CATDlgPushButton* AddButton(CATDlgFrame* frame, const char* name, int column)
{
    auto* button = new CATDlgPushButton(frame, name);
    button->SetPlacement(0, column);
    return button;
}

} // namespace

WBGroupStoreBar::WBGroupStoreBar(CATDialog* page, WBGroupKind kind, const CATUnicodeString& root,
                                 WBGroupOnPage group)
    : CATDlgFrame(page, "Store", kWBPlainFrame),
      m_kind(kind),
      m_root(root),
      m_group(std::move(group)),
      m_empty(m_group.stored()),
      m_kept(m_empty)
{
    SetColumnStretch(1, 1);
    SetColumnStretch(4, 1);
    BuildNames();
    BuildStored();
    Offer({});
    if (WBStoredGroupNames(m_kind, m_root).isDamaged) {
        m_group.say(WBGroupText("Names.Damaged",
                                "@The list of the stored groups is damaged. Offered are those that "
                                "were found without it; the list is mended when you save."));
    }
}

void WBGroupStoreBar::BuildNames()
{
    auto* caption = new CATDlgLabel(this, "NameLabel");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(0, 0);
    m_name = new CATDlgEditor(this, "Name");
    m_name->SetPlacement(0, 1);
    m_name->SetVisibleTextWidth(kNameCharacters);
    Subscribe(AddButton(this, "SaveButton", 2), CATDlgPushButton::Activated,
              [this](const CATNotification&) { Save(); });
}

void WBGroupStoreBar::BuildStored()
{
    m_stored = WBAddChoice(this, "Stored", 0, 3);
    m_retrieve = AddButton(this, "RetrieveButton", 5);
    m_delete = AddButton(this, "DeleteButton", 6);
    Subscribe(m_retrieve, CATDlgPushButton::Activated,
              [this](const CATNotification&) { Retrieve(); });
    Subscribe(m_delete, CATDlgPushButton::Activated, [this](const CATNotification&) { Delete(); });
}

void WBGroupStoreBar::Offer(const CATUnicodeString& chosen)
{
    const std::vector<CATUnicodeString> names = WBStoredGroupNames(m_kind, m_root).names;
    m_stored->RemoveAll();
    for (const CATUnicodeString& name : names) {
        const int line = m_stored->LineCount();
        m_stored->SetLine(line, name);
        if (name == chosen) {
            m_stored->Select(line);
        }
    }
    for (CATDialog* control :
         {static_cast<CATDialog*>(m_stored), static_cast<CATDialog*>(m_retrieve),
          static_cast<CATDialog*>(m_delete)}) {
        control->SetSensitivity(!names.empty());
    }
}

CATUnicodeString WBGroupStoreBar::Chosen() const
{
    const int line = m_stored->SelectedIndex();
    return line < 0 ? CATUnicodeString() : m_stored->Line(line);
}

bool WBGroupStoreBar::HasUnsaved() const
{
    return !(m_group.stored() == m_kept);
}

void WBGroupStoreBar::NoteAsKept(const CATUnicodeString& name)
{
    m_keptName = name;
    m_kept = m_group.stored();
    m_name->SetText(name);
}

bool WBGroupStoreBar::Ask(const char* name, const CATUnicodeString& text)
{
    auto* question = new CATDlgNotify(this, name, CATDlgNotify::kQuestion);
    question->SetTitle(WBGroupText("Question.Title", "@Stored groups"));
    question->SetText(text);
    const bool isYes = question->DisplayBlocking() == kYes;
    question->RequestDelayedDestruction();
    return isYes;
}

void WBGroupStoreBar::TellError(const CATUnicodeString& text)
{
    CATWBServices::DisplayMsg(this, WBGroupText("Question.Title", "@Stored groups"), text,
                              kErrorStyle);
}

bool WBGroupStoreBar::MayReplaceStored(const CATUnicodeString& name)
{
    if (!WBIsGroupStored(m_kind, m_root, name)) {
        return true;
    }
    if (!WBReadStoredGroup(m_kind, m_root, name)) {
        return Ask("ReplaceDamaged",
                   WBGroupText("Save.ReplaceDamaged",
                               "@There is a stored group /p1 that is damaged. Shall this group "
                               "take its place? What is left of it is lost then.",
                               {name}));
    }
    return name == m_keptName ||
           Ask("ReplaceStored",
               WBGroupText("Save.Replace",
                           "@There is a stored group /p1. Shall this group take its place?",
                           {name}));
}

bool WBGroupStoreBar::Save()
{
    const CATUnicodeString name = m_name->Text().Stripped();
    const CATUnicodeString problem = WBGroupNameProblem(name);
    if (!problem.IsEmpty()) {
        TellError(problem);
        return false;
    }
    if (!MayReplaceStored(name)) {
        return false;
    }
    if (!WBSaveGroup(m_kind, m_root, name, m_group.stored())) {
        TellError(WBGroupText("Save.Failed",
                              "@The group /p1 could not be saved: your settings cannot be written. "
                              "It stands here as before, and so do the stored groups. Check the "
                              "directory of your settings, then save again.",
                              {name}));
        return false;
    }
    NoteAsKept(name);
    Offer(name);
    m_group.say(WBGroupText("Save.Done", "@Saved as /p1.", {name}));
    return true;
}

void WBGroupStoreBar::Retrieve()
{
    const CATUnicodeString name = Chosen();
    if (HasUnsaved() &&
        !Ask("ReplaceUnsaved",
             WBGroupText("Retrieve.Replace",
                         "@This group is not saved. Shall the stored group /p1 take its place?",
                         {name}))) {
        return;
    }
    const std::optional<WBStoredGroup> group = WBReadStoredGroup(m_kind, m_root, name);
    if (!group || !m_group.take(*group)) {
        TellError(WBGroupText("Retrieve.Damaged",
                              "@The stored group /p1 is damaged: entries are missing or cannot be "
                              "read. It stays stored as it is until you save over it or delete "
                              "it.",
                              {name}));
        return;
    }
    NoteAsKept(name);
    m_group.say(WBGroupText("Retrieve.Done", "@/p1 was retrieved.", {name}));
}

void WBGroupStoreBar::PutDraft(WBGroupDrafts& drafts) const
{
    if (HasUnsaved() && !m_isGivenUp) {
        drafts.Put(m_kind, m_root, m_group.stored());
    }
}

void WBGroupStoreBar::TakeDraft(WBGroupDrafts& drafts)
{
    const std::optional<WBStoredGroup> draft = drafts.Take(m_kind, m_root);
    if (draft && m_group.take(*draft)) {
        m_group.say(WBGroupText("Draft.Text", "@What you had not saved is here again."));
    }
}

void WBGroupStoreBar::Delete()
{
    const CATUnicodeString name = Chosen();
    if (!Ask("DeleteStored",
             WBGroupText("Delete.Question", "@Shall the stored group /p1 be deleted?", {name}))) {
        return;
    }
    if (!WBDeleteGroup(m_kind, m_root, name)) {
        TellError(WBGroupText("Delete.Failed",
                              "@The group /p1 could not be deleted: your settings cannot be "
                              "written.",
                              {name}));
        return;
    }
    if (name == m_keptName) {
        // What is shown is stored nowhere any more.
        m_keptName = {};
        m_kept = m_empty;
    }
    Offer({});
    m_group.say(WBGroupText("Delete.Done", "@The stored group /p1 was deleted.", {name}));
}
