#include "WBFilterPanel.h"

#include "WBFilterLines.h"
#include "WBFilterSettings.h"
#include "WBNavigatorPlaces.h"
#include "WBPanelControls.h"
#include "WBPanelTexts.h"
#include "WBPickReading.h"
#include "WBRootFilter.h"

#include "CATDlgNotify.h"
#include "CATWBServices.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace
{

constexpr int kPreferredWidth = 820;
constexpr int kPreferredHeight = 520;
constexpr int kErrorStyle = 0x10000000;

CATUnicodeString NameOfEntry(const WBFilterSet::Entry& entry)
{
    constexpr int kMostShown = 40; // of a text that may be of any length
    return entry.IsDamaged() ? WBFilterText("Damaged.Name", "@(cannot be read) /p1",
                                            {entry.damaged.Part(0, kMostShown)})
                             : entry.filter.name;
}

bool HasDamaged(const WBFilterSet& set)
{
    return std::ranges::any_of(set.entries, &WBFilterSet::Entry::IsDamaged);
}

} // namespace

WBFilterPanel::WBFilterPanel(CATCommand* parent)
    : CATWBVPMNavFilterPanel(parent), m_drafts(WBFilterDrafts::Below(parent))
{
    SetPreferredSize(kPreferredWidth, kPreferredHeight);
    SetGuard([this] { return MayClose(); });
}

WBFilterPanel::~WBFilterPanel()
{
    WBFilterDrafts* drafts = m_drafts.Get();
    if (drafts != nullptr && IsChanged()) {
        drafts->Put(m_root, m_set);
    }
}

const char* WBFilterPanel::ClassName() const
{
    return "WBFilterPanel";
}

CATString WBFilterPanel::GetResourceFilename(int level) const
{
    return level == 0 ? CATString(kName) : CATWBVPMNavFilterPanel::GetResourceFilename(level - 1);
}

bool WBFilterPanel::RecoverFromFault()
{
    return true;
}

void WBFilterPanel::SetPRCId(const CATUnicodeString& rootIdentifier)
{
    if (rootIdentifier == m_root) {
        TellHandler();
        return;
    }
    if (IsChanged()) {
        Say(WBFilterText("KeepFirst.Text",
                         "@/p1 is open now. Press OK or Cancel for the filters of /p2 first.",
                         {rootIdentifier, m_root}),
            CATDlgLabel::Role::Warning);
        return;
    }
    m_root = rootIdentifier;
    ReadKept();
    TakeDraft();
    ShowFirst();
}

void WBFilterPanel::Build()
{
    BuildHeading();
    BuildChoice();
    m_lines = new WBFilterLines(this);
    m_lines->SetPlacement(2, 0);
    SetRowStretch(2, 1);
    WBAddNote(this, "Rule", 3);
    m_rest = WBAddNote(this, "Rest", 4);
    BuildLastLine();
    Subscribe(m_lines, WBFilterLines::Changed, [this](const CATNotification&) {
        ShownFilter()->lines = m_lines->Lines();
        Say({});
        ShowRest();
    });
    ShowAll();
}

void WBFilterPanel::BuildHeading()
{
    auto* frame = new CATDlgFrame(this, "Heading", kWBPlainFrame);
    frame->SetPlacement(0, 0);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(3, 2);
    m_product = WBAddFact(frame, "Product", 0);
    m_counting = WBAddFact(frame, "Counting", 0, 2);
}

void WBFilterPanel::BuildChoice()
{
    auto* frame = new CATDlgFrame(this, "Choice", kWBPlainFrame);
    frame->SetPlacement(1, 0);
    frame->SetColumnStretch(1, 1);
    m_filters = WBAddChoice(frame, "Filter", 0, 0);
    m_new = new CATDlgPushButton(frame, "NewButton");
    m_new->SetPlacement(0, 2);
    m_delete = new CATDlgPushButton(frame, "DeleteButton");
    m_delete->SetPlacement(0, 3);
    auto* caption = new CATDlgLabel(frame, "NameLabel");
    caption->SetRole(CATDlgLabel::Role::Caption);
    caption->SetPlacement(1, 0);
    m_name = new CATDlgEditor(frame, "Name");
    m_name->SetPlacement(1, 1);
    m_on = new CATDlgCheckButton(frame, "On");
    m_on->SetPlacement(1, 2, 1, 2);
    Subscribe(m_filters, CATDlgCombo::Selected,
              [this](const CATNotification& selected) { ChooseFilter(selected.detail); });
    Subscribe(m_new, CATDlgPushButton::Activated,
              [this](const CATNotification&) { BeginFilter(); });
    Subscribe(m_delete, CATDlgPushButton::Activated,
              [this](const CATNotification&) { DeleteFilter(); });
    Subscribe(m_name, CATDlgEditor::Modified, [this](const CATNotification&) { Rename(); });
    Subscribe(m_on, CATDlgCheckButton::Modified,
              [this](const CATNotification& modified) { Switch(modified.detail != 0); });
}

void WBFilterPanel::BuildLastLine()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(5, 0);
    frame->SetColumnStretch(0, 1);
    m_word = WBAddNote(frame, "Word", 0);
    m_ok = new CATDlgPushButton(frame, "OkButton");
    m_ok->SetPlacement(0, 1);
    m_ok->SetDefault();
    // Before anybody hears of it: what cannot be kept leaves the panel open.
    m_ok->SetGuard([this] { return Keep(); });
    m_cancel = new CATDlgPushButton(frame, "CancelButton");
    m_cancel->SetPlacement(0, 2);
    Subscribe(m_ok, CATDlgPushButton::Activated,
              [this](const CATNotification&) { SetVisibility(false); });
    Subscribe(m_cancel, CATDlgPushButton::Activated, [this](const CATNotification&) {
        GiveUp();
        SetVisibility(false);
    });
}

void WBFilterPanel::SetCurrentFilters()
{
    ReadKept();
    ShowFirst();
}

void WBFilterPanel::ReadKept()
{
    m_kept = m_root.IsEmpty() ? WBFilterSet() : WBKeptFilters(m_root);
    m_set = m_kept;
    m_isDraft = false;
    TellHandler();
}

void WBFilterPanel::TakeDraft()
{
    WBFilterDrafts* drafts = m_drafts.Get();
    std::optional<WBFilterSet> draft = drafts == nullptr ? std::nullopt : drafts->Take(m_root);
    if (draft) {
        m_set = std::move(*draft);
        m_isDraft = true;
    }
}

void WBFilterPanel::ShowFirst()
{
    m_shown = m_set.counting;
    if (m_shown == WBFilterSet::kNone && !m_set.entries.empty()) {
        m_shown = 0;
    }
    if (IsBuilt()) {
        ShowAll();
    }
}

void WBFilterPanel::TellHandler() const
{
    const WBDefinedFilter* counting = m_kept.Counting();
    selectedPRCConfigHandler = counting == nullptr ? CATUnicodeString("NoConfig") : counting->name;
}

void WBFilterPanel::AddValuesInMultiList(const CATUnicodeString& instance,
                                         const CATUnicodeString& part,
                                         const CATUnicodeString& version,
                                         const CATUnicodeString& path, int count)
{
    if (!IsBuilt()) {
        return;
    }
    if (m_root.IsEmpty() || WBIsOtherRootOpen(m_root)) {
        Say(WBFilterText("OtherRoot.Text", "@/p1 was not added: it is no part of /p2.",
                         {instance, WBOrDash(m_root)}),
            CATDlgLabel::Role::Warning);
        return;
    }
    const std::optional<WBPickedInstance> picked =
        WBReadPickedInstance(instance, part, version, path, count);
    if (!picked) {
        Say(WBFilterText("Unusable.Text",
                         "@\"/p1\" was not added: what the server says of it cannot stand in a "
                         "filter.",
                         {instance}),
            CATDlgLabel::Role::Warning);
        return;
    }
    if (ShownFilter() == nullptr) {
        BeginFilter();
    }
    if (!m_lines->Add(*picked)) {
        Say(WBFilterText("Known.Text", "@/p1 is in the list already.", {instance}));
        return;
    }
    ShownFilter()->lines.push_back(m_lines->Lines().back());
    Say({});
    ShowRest();
}

WBDefinedFilter* WBFilterPanel::ShownFilter()
{
    if (m_shown == WBFilterSet::kNone) {
        return nullptr;
    }
    WBFilterSet::Entry& entry = m_set.entries[static_cast<std::size_t>(m_shown)];
    return entry.IsDamaged() ? nullptr : &entry.filter;
}

void WBFilterPanel::ShowAll()
{
    m_product->SetTitle(WBOrDash(m_root));
    m_new->SetSensitivity(!m_root.IsEmpty());
    ShowCounting();
    ShowNames();
    ShowFilter();
    if (HasDamaged(m_set)) {
        Say(WBFilterText("Damaged.Text",
                         "@A stored filter of /p1 cannot be read. It stays stored "
                         "until you delete it.",
                         {m_root}),
            CATDlgLabel::Role::Warning);
    } else if (m_isDraft) {
        Say(WBFilterText("Draft.Text",
                         "@What you changed last time was not kept yet: press OK or Cancel."),
            CATDlgLabel::Role::Warning);
    } else {
        Say({});
    }
}

void WBFilterPanel::ShowNames()
{
    m_filters->RemoveAll();
    for (const WBFilterSet::Entry& entry : m_set.entries) {
        m_filters->SetLine(m_filters->LineCount(), NameOfEntry(entry));
    }
    m_filters->Select(m_shown);
    m_filters->SetSensitivity(!m_set.entries.empty());
}

void WBFilterPanel::ShowCounting()
{
    const WBDefinedFilter* counting = m_set.Counting();
    const bool isDamaged = counting == nullptr && m_set.counting != WBFilterSet::kNone;
    m_counting->SetTitle(counting != nullptr ? counting->name
                         : isDamaged         ? WBUnreadableFilterText()
                                             : WBNoFilterText());
    m_counting->SetRole(isDamaged ? CATDlgLabel::Role::Warning : CATDlgLabel::Role::Plain);
}

void WBFilterPanel::ShowFilter()
{
    const WBDefinedFilter* filter = ShownFilter();
    const bool isFilter = filter != nullptr;
    m_delete->SetSensitivity(m_shown != WBFilterSet::kNone);
    m_name->SetText(isFilter ? filter->name : CATUnicodeString());
    m_name->SetSensitivity(isFilter);
    m_on->SetChecked(isFilter && m_shown == m_set.counting);
    m_on->SetSensitivity(isFilter);
    if (isFilter) {
        m_lines->Show(m_root, filter->lines);
    } else if (m_shown != WBFilterSet::kNone) {
        m_lines->ShowText(WBFilterText(
            "Damaged.Stored", "@In the settings CATWBVPMNavFilterPanel this is no filter:\n/p1",
            {m_set.entries[static_cast<std::size_t>(m_shown)].damaged}));
    } else {
        m_lines->ShowText(
            m_root.IsEmpty()
                ? WBFilterText("Filters.NoRoot", "@No product is open")
                : WBFilterText("Filters.None", "@No filters yet: pick instances in the navigator"));
    }
    ShowRest();
}

void WBFilterPanel::ShowRest()
{
    const auto& lines = m_lines->Lines();
    if (lines.empty()) {
        m_rest->SetTitle({});
        return;
    }
    m_rest->SetTitle(std::ranges::any_of(lines, &WBFilterLine::isIn)
                         ? WBFilterText("Rest.Out", "@Everything else is left out.")
                         : WBFilterText("Rest.In", "@Everything else is left in."));
}

void WBFilterPanel::Say(const CATUnicodeString& text, CATDlgLabel::Role role)
{
    if (IsBuilt()) {
        m_word->SetTitle(text);
        m_word->SetRole(role);
    }
}

void WBFilterPanel::BeginFilter()
{
    m_shown = m_set.Add([](int number) {
        return WBFilterText("New.Name", "@Filter /p1", {CATUnicodeString::FromInt(number)});
    });
    ShowAll();
}

void WBFilterPanel::DeleteFilter()
{
    m_set.Remove(m_shown);
    m_shown = std::min(m_shown, static_cast<int>(m_set.entries.size()) - 1);
    ShowAll();
}

void WBFilterPanel::ChooseFilter(int index)
{
    m_shown = index;
    ShowFilter();
}

void WBFilterPanel::Rename()
{
    const CATUnicodeString name = m_name->Text().Stripped();
    ShownFilter()->name = name;
    m_filters->SetLine(m_shown, name);
    ShowCounting();
    const CATUnicodeString problem = WBNameProblem(name);
    Say(problem, problem.IsEmpty() ? CATDlgLabel::Role::Plain : CATDlgLabel::Role::Warning);
}

void WBFilterPanel::Switch(bool on)
{
    m_set.counting = on ? m_shown : WBFilterSet::kNone;
    ShowCounting();
    Say({});
}

bool WBFilterPanel::Keep()
{
    if (!IsChanged()) {
        return true;
    }
    const WBFilterProblem problem = WBProblemOf(m_set);
    if (problem.index != WBFilterSet::kNone) {
        m_shown = problem.index;
        ShowAll();
        CATWBServices::DisplayMsg(this, Title(), problem.sentence, kErrorStyle);
        return false;
    }
    if (!WBKeepFilters(m_root, m_set)) {
        CATWBServices::DisplayMsg(
            this, Title(),
            WBFilterText("NotKept.Text",
                         "@The filters of /p1 could not be written to your settings. What was "
                         "stored before still counts. Mend that and press OK again, or Cancel.",
                         {m_root}),
            kErrorStyle);
        return false;
    }
    m_kept = m_set;
    m_isDraft = false;
    TellHandler();
    return true;
}

void WBFilterPanel::GiveUp()
{
    SetCurrentFilters();
}

bool WBFilterPanel::MayClose()
{
    if (!IsChanged()) {
        return true;
    }
    constexpr int kYes = 1;
    constexpr int kNo = 2;
    auto* question = new CATDlgNotify(this, "ChangedFilters", CATDlgNotify::kQuestionWithCancel);
    question->SetTitle(Title());
    question->SetText(WBFilterText("Close.Question",
                                   "@Shall the changes of the filters of /p1 be kept?", {m_root}));
    const int answer = question->DisplayBlocking();
    question->RequestDelayedDestruction();
    if (answer == kNo) {
        GiveUp();
    }
    return answer == kNo || (answer == kYes && Keep());
}
