#include "WBPanelEditing.h"

#include "WBPanelControls.h"
#include "WBPanelTexts.h"
#include "WBServerAnswer.h"

#include "CATDlgNotify.h"
#include "CATWBServices.h"
#include "RunServerCode.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kYes = 1;
constexpr int kNo = 2;
/// A question names so many edits.
constexpr std::size_t kMostNamed = 5;

CATUnicodeString Joined(const std::vector<CATUnicodeString>& lines)
{
    CATUnicodeString text;
    for (const CATUnicodeString& line : lines) {
        text += text.IsEmpty() ? line : "\n" + line;
    }
    return text;
}

/// "Apply|OK|n|"
bool IsApplied(const CATUnicodeString& answer)
{
    return answer.View().starts_with("Apply|OK|");
}

} // namespace

WBPanelEditing::WBPanelEditing(CATDialog& window, std::function<void()> onApplied)
    : m_window(window), m_onApplied(std::move(onApplied)), m_form(window, [this] { ShowBar(); })
{}

void WBPanelEditing::BuildBar(CATDialog* frame, CATDlgLabel* marks)
{
    constexpr int kFirstButton = 2;
    m_bar = frame;
    m_marks = marks;
    m_words = new CATDlgLabel(frame, "EditWords");
    m_words->SetTitle({});
    m_words->SetPlacement(0, 0);
    const auto addButton = [&](const char* name, int place, void (WBPanelEditing::*action)()) {
        auto* button = new CATDlgPushButton(frame, name);
        button->SetPlacement(0, place);
        m_window.Subscribe(button, CATDlgPushButton::Activated,
                           [this, action](const CATNotification&) { (this->*action)(); });
        return button;
    };
    m_undo = addButton("UndoButton", kFirstButton, &WBPanelEditing::Undo);
    m_discard = addButton("DiscardButton", kFirstButton + 1, &WBPanelEditing::Discard);
    m_apply = new CATDlgPushButton(frame, "ApplyButton");
    m_apply->SetPlacement(0, kFirstButton + 2);
    m_window.Subscribe(m_apply, CATDlgPushButton::Activated,
                       [this](const CATNotification&) { Apply(); });
}

void WBPanelEditing::Begin(CATWBAllDataBuffer* record)
{
    End();
    m_record = record;
    if (record != nullptr) {
        m_stated = WBAskStatedValues(*record);
    }
    BeginAgain();
}

void WBPanelEditing::BeginAgain()
{
    if (m_record != nullptr) {
        m_edits = std::make_unique<WBEdits>(*m_record, m_stated);
    }
    m_form.SetEdits(m_edits.get());
}

void WBPanelEditing::End()
{
    m_form.SetEdits(nullptr);
    m_edits.reset();
    m_record = nullptr;
    m_stated = {};
}

void WBPanelEditing::Show()
{
    m_form.Show();
    ShowBar();
}

void WBPanelEditing::ShowBar()
{
    const CATUnicodeString words = WBEditWords(Counts());
    m_words->SetTitle(words);
    // They may stand on other pages, or belong to another mass type than the selected one.
    m_words->SetTooltip(Joined(UnappliedLines()));
    // A text that is not there leaves its room to the other one.
    m_bar->SetColumnStretch(0, words.IsEmpty() ? 0 : 1);
    m_bar->SetColumnStretch(1, words.IsEmpty() || m_marks->IsVisible() ? 1 : 0);
    const bool hasUnapplied = HasUnapplied();
    for (CATDlgPushButton* button : {m_undo, m_discard, m_apply}) {
        button->SetSensitivity(hasUnapplied);
    }
}

WBEditCounts WBPanelEditing::Counts() const
{
    WBEditCounts counts;
    counts.isAnythingStated = m_record == nullptr || !m_stated.quantities.empty();
    counts.isStandardPart = m_stated.isStandardPart;
    counts.edits = m_edits == nullptr ? 0 : m_edits->EditCount();
    counts.problems = static_cast<int>(m_form.Problems().size());
    for (const WBStatedQuantity& quantity : m_stated.quantities) {
        counts.unsaved += quantity.isPending ? 1 : 0;
        counts.conflicts += quantity.isInConflict ? 1 : 0;
    }
    return counts;
}

std::vector<CATUnicodeString> WBPanelEditing::UnappliedLines() const
{
    std::vector<CATUnicodeString> lines = m_form.Problems();
    if (m_edits != nullptr) {
        const std::vector<CATUnicodeString> edits = m_edits->EditLines();
        lines.insert(lines.end(), edits.begin(), edits.end());
    }
    return lines;
}

CATUnicodeString WBPanelEditing::UnappliedWords() const
{
    const WBEditCounts counts = Counts();
    CATUnicodeString words = WBPanelText("Edits.Of", "@/p1: ", {WBOrDash(m_stated.partName)});
    words += counts.edits > 0 ? WBUnappliedWords(counts.edits) : WBEditWords({0, counts.problems});
    std::vector<CATUnicodeString> lines = UnappliedLines();
    if (lines.size() > kMostNamed) {
        const auto more = static_cast<int>(lines.size() - kMostNamed);
        lines.resize(kMostNamed);
        lines.push_back(
            WBPanelText("Edits.More", "@and /p1 more", {CATUnicodeString::FromInt(more)}));
    }
    return words + "\n" + Joined(lines);
}

bool WBPanelEditing::HasUnapplied() const
{
    return m_edits != nullptr && (m_edits->HasEdits() || m_form.HasUntaken());
}

void WBPanelEditing::Undo()
{
    m_form.TakeTyped();
    if (!m_form.TakeBackProblem()) {
        m_edits->Undo();
    }
    Show();
}

void WBPanelEditing::Discard()
{
    m_form.TakeTyped();
    m_form.TakeBackProblems();
    m_edits->UndoAll();
    Show();
}

bool WBPanelEditing::Apply()
{
    m_form.TakeTyped();
    if (!HasUnapplied()) {
        return true;
    }
    if (!IsComplete() || !AreOtherPlacesMeant() || !Send()) {
        return false;
    }
    // They are the server's now, whatever comes of reading them anew.
    End();
    m_onApplied();
    return true;
}

bool WBPanelEditing::IsComplete()
{
    const CATUnicodeString problems = Joined(m_form.Problems());
    if (!problems.IsEmpty()) {
        TellError(WBPanelText("EntryError.Title", "@An entry cannot be taken"),
                  WBPanelText("EntryError.Text",
                              "@Nothing is applied yet. Correct the entry, or take it back with "
                              "Esc in its field:\n/p1",
                              {problems}));
        return false;
    }
    const CATUnicodeString missing = m_edits->CompletenessError();
    if (!missing.IsEmpty()) {
        TellError(WBPanelText("IncompleteError.Title", "@Something is missing"),
                  WBPanelText("IncompleteError.Text", "@Nothing is applied yet.\n/p1", {missing}));
        return false;
    }
    return true;
}

bool WBPanelEditing::AreOtherPlacesMeant()
{
    const CATUnicodeString warning = m_edits->PlacesWarning();
    return warning.IsEmpty() ||
           Ask({"OtherPlaces", WBPanelText("OtherPlaces.Title", "@Counts in other places too"),
                WBPanelText("OtherPlaces.Text", "@/p1\nApply it?", {warning}),
                WBPanelText("OtherPlaces.Yes", "@Apply"),
                WBPanelText("OtherPlaces.No", "@Do not apply"), CATDlgNotify::kQuestion}) == kYes;
}

bool WBPanelEditing::Send()
{
    const std::optional<CATUnicodeString> answer =
        WBCheckedAnswer(&m_window, RunServerCode("WBApplyValues", m_edits->ApplyRequest()),
                        WBPanelText("NotApplied.Text",
                                    "@The server did not answer, so nothing was applied: the edits "
                                    "are still here. Check that it is running, then apply again."));
    if (answer && !IsApplied(*answer)) {
        TellError(WBPanelText("AnswerError.Title", "@The answer cannot be read"),
                  WBPanelText("ApplyAnswerError.Text",
                              "@The server did not say whether it took the edits: they are still "
                              "here. Apply them again; what it has already is not changed twice."));
        return false;
    }
    return answer.has_value();
}

bool WBPanelEditing::ApplyBeforeReplacing()
{
    m_form.TakeTyped();
    if (!HasUnapplied()) {
        return true;
    }
    const Question question{
        "ApplyBeforeReplacing",
        WBPanelText("Unapplied.Title", "@Edits are not applied"),
        WBPanelText("Replacing.Text",
                    "@/p1\nApply them and go on to what was picked, or stay here with them?",
                    {UnappliedWords()}),
        WBPanelText("Replacing.Yes", "@Apply and go on"),
        WBPanelText("Replacing.No", "@Stay here"),
        CATDlgNotify::kQuestion};
    return Ask(question) == kYes && Apply();
}

bool WBPanelEditing::ApplyBeforeComputing()
{
    m_form.TakeTyped();
    if (!HasUnapplied()) {
        return true;
    }
    const Question question{
        "ApplyBeforeComputing",
        WBPanelText("Unapplied.Title", "@Edits are not applied"),
        WBPanelText("Computing.Text",
                    "@/p1\nA computation counts what is applied. Apply them and compute?",
                    {UnappliedWords()}),
        WBPanelText("Computing.Yes", "@Apply and compute"),
        WBPanelText("Computing.No", "@Do not compute"),
        CATDlgNotify::kQuestion};
    return Ask(question) == kYes && Apply();
}

bool WBPanelEditing::MayClose()
{
    m_form.TakeTyped();
    if (!HasUnapplied()) {
        return true;
    }
    const Question question{"ApplyBeforeClosing",
                            WBPanelText("Unapplied.Title", "@Edits are not applied"),
                            WBPanelText("Closing.Text",
                                        "@/p1\nApply them before this window closes?",
                                        {UnappliedWords()}),
                            WBPanelText("Closing.Yes", "@Apply"),
                            WBPanelText("Closing.No", "@Discard edits"),
                            CATDlgNotify::kQuestionWithCancel};
    switch (Ask(question)) {
    case kYes:
        return Apply();
    case kNo:
        Discard();
        return true;
    default:
        return false;
    }
}

int WBPanelEditing::Ask(const Question& question)
{
    CATDlgNotify box(&m_window, question.name, question.style);
    box.SetTitle(question.title);
    box.SetText(question.text);
    box.SetChoices(question.yes, question.no);
    return box.DisplayBlocking();
}

void WBPanelEditing::TellError(const CATUnicodeString& title, const CATUnicodeString& text)
{
    CATWBServices::DisplayMsg(&m_window, title, text, kErrorStyle);
}
