#include "WBGroupCriteriaPage.h"

#include "WBGroupStoreBar.h"
#include "WBGroupTexts.h"
#include "WBListTable.h"
#include "WBPanelControls.h"

#include "CATWBServices.h"

#include <algorithm>

const CATEvent WBGroupCriteriaPage::FindAsked("FindInstances");

namespace
{

constexpr int kLeastLines = 2;
constexpr int kValueCharacters = 10;
constexpr int kErrorStyle = 0x10000000;

CATDlgPushButton* AddButton(CATDlgFrame* frame, const char* name, int column)
{
    auto* button = new CATDlgPushButton(frame, name);
    button->SetPlacement(0, column);
    return button;
}

} // namespace

WBGroupCriteriaPage::WBGroupCriteriaPage(CATDlgTabContainer* pages, const CATUnicodeString& root)
    : WBGroupPage(pages, "CriteriaPage")
{
    m_store = new WBGroupStoreBar(this, WBGroupKind::Criteria, root,
                                  {[this] { return WBStoredCriteria(m_criteria); },
                                   [this](const WBStoredGroup& group) { return Take(group); },
                                   [this](const CATUnicodeString& word) {
                                       Say(word);
                                   }});
    m_store->SetPlacement(0, 0);
    BuildList();
    BuildEdit();
    BuildJoin();
    OfferAttributes();
    Show();
}

void WBGroupCriteriaPage::BuildList()
{
    auto* frame = new CATDlgFrame(this, "Criteria", kWBPlainFrame);
    frame->SetPlacement(1, 0);
    frame->SetColumnStretch(0, 1);
    SetRowStretch(1, 1);
    m_list = WBAddList(frame, "List", 0, WBGroupText("Criteria.None", "@No criteria"));
    m_list->SetVisibleLines(kLeastLines);
    m_list->SetAccessibleName(WBGroupText("Criteria.Spoken", "@Criteria"));
    auto* buttons = new CATDlgFrame(frame, "Buttons", kWBPlainFrame);
    buttons->SetPlacement(0, 1);
    m_remove = new CATDlgPushButton(buttons, "RemoveButton");
    m_remove->SetPlacement(0, 0);
    m_clear = new CATDlgPushButton(buttons, "ClearButton");
    m_clear->SetPlacement(1, 0);
    buttons->SetRowStretch(2, 1);
    Subscribe(m_remove, CATDlgPushButton::Activated, [this](const CATNotification&) { Remove(); });
    Subscribe(m_clear, CATDlgPushButton::Activated, [this](const CATNotification&) { Clear(); });
}

void WBGroupCriteriaPage::BuildEdit()
{
    auto* frame = new CATDlgFrame(this, "Edit", kWBPlainFrame);
    frame->SetPlacement(2, 0);
    frame->SetColumnStretch(0, 2);
    frame->SetColumnStretch(1, 1);
    frame->SetColumnStretch(2, 2);
    m_attribute = new CATDlgCombo(frame, "Attribute");
    m_attribute->SetPlacement(0, 0);
    m_attribute->SetAccessibleName(WBGroupText("Attribute.Title", "@Attribute"));
    m_comparison = new CATDlgCombo(frame, "Comparison");
    m_comparison->SetPlacement(0, 1);
    m_comparison->SetAccessibleName(WBGroupText("Comparison.Title", "@Comparison"));
    m_value = new CATDlgEditor(frame, "Value");
    m_value->SetPlacement(0, 2);
    m_value->SetVisibleTextWidth(kValueCharacters);
    m_value->SetAccessibleName(WBGroupText("Value.Title", "@Value"));
    m_add = AddButton(frame, "AddButton", 3);
    Subscribe(m_attribute, CATDlgCombo::Selected,
              [this](const CATNotification&) { OfferComparisons(); });
    Subscribe(m_add, CATDlgPushButton::Activated, [this](const CATNotification&) { Add(); });
}

void WBGroupCriteriaPage::BuildJoin()
{
    auto* frame = new CATDlgFrame(this, "Join", kWBPlainFrame);
    frame->SetPlacement(3, 0);
    frame->SetColumnStretch(2, 1);
    m_and = new CATDlgRadioButton(frame, "And");
    m_and->SetPlacement(0, 0);
    m_and->SetChecked(true);
    m_or = new CATDlgRadioButton(frame, "Or");
    m_or->SetPlacement(0, 1);
    m_fromPick = new CATDlgCheckButton(frame, "TakeFromPick");
    m_fromPick->SetPlacement(0, 3);
    m_find = AddButton(frame, "FindButton", 4);
    Subscribe(m_or, CATDlgRadioButton::Modified, [this](const CATNotification& change) {
        ChangeJoin(change.detail == 1 ? WBJoined::Or : WBJoined::And);
    });
    Subscribe(m_find, CATDlgPushButton::Activated,
              [this](const CATNotification&) { Send(FindAsked); });
}

const WBGroupAttribute* WBGroupCriteriaPage::ChosenAttribute() const
{
    const int line = m_attribute->SelectedIndex();
    return line < 0 ? nullptr : &m_attributes[static_cast<std::size_t>(line)];
}

void WBGroupCriteriaPage::OfferAttributes()
{
    const WBGroupAttribute* const chosen = ChosenAttribute();
    const CATUnicodeString before = chosen == nullptr ? CATUnicodeString() : chosen->name;
    m_attributes =
        m_figures == nullptr ? std::vector<WBGroupAttribute>() : WBGroupAttributes(*m_figures);
    m_attribute->RemoveAll();
    for (const WBGroupAttribute& attribute : m_attributes) {
        const int line = m_attribute->LineCount();
        m_attribute->SetLine(line, attribute.title);
        if (attribute.name == before) {
            m_attribute->Select(line);
        }
    }
    OfferComparisons();
}

void WBGroupCriteriaPage::OfferComparisons()
{
    const WBGroupAttribute* const attribute = ChosenAttribute();
    const int before = m_comparison->SelectedIndex();
    CATListValCATUnicodeString titles;
    if (attribute != nullptr) {
        for (const WBComparison comparison : WBComparisonsOf(WBKindOf(attribute->magnitude))) {
            titles.Append(WBComparisonTitle(comparison));
        }
    }
    const bool isSame = m_comparison->LineCount() == titles.Size() && !titles.IsEmpty() &&
                        m_comparison->Line(0) == titles[1];
    if (isSame) {
        m_comparison->Select(before);
        return;
    }
    m_comparison->RemoveAll();
    for (const CATUnicodeString& title : titles.Items()) {
        m_comparison->SetLine(m_comparison->LineCount(), title);
    }
    ShowWhatCanBeDone();
}

void WBGroupCriteriaPage::Add()
{
    const WBGroupAttribute* const attribute = ChosenAttribute();
    const int comparison = m_comparison->SelectedIndex();
    if (attribute == nullptr || comparison < 0) {
        return;
    }
    const WBTypedValue typed = WBReadTypedValue(m_value->Text(), attribute->magnitude);
    if (!typed.problem.IsEmpty()) {
        CATWBServices::DisplayMsg(
            this, WBGroupText("Value.Error", "@The value cannot be read"),
            WBGroupText("Value.Of", "@/p1: /p2", {attribute->title, typed.problem}), kErrorStyle);
        return;
    }
    const auto& comparisons = WBComparisonsOf(WBKindOf(attribute->magnitude));
    const WBCriterion criterion{attribute->name, comparisons[static_cast<std::size_t>(comparison)],
                                typed.value, attribute->magnitude};
    const auto& criteria = m_criteria.criteria;
    if (std::ranges::find(criteria, criterion) != criteria.end()) {
        Say(WBGroupText("Criteria.Known", "@This criterion is there already."));
        return;
    }
    m_criteria.criteria.push_back(criterion);
    EndValueInput();
    ShowChange();
    m_list->SelectRow(m_list->RowCount());
}

void WBGroupCriteriaPage::Remove()
{
    const int row = m_list->SelectedRow();
    if (row < 1) {
        return;
    }
    m_criteria.criteria.erase(m_criteria.criteria.begin() + row - 1);
    ShowChange();
    m_list->SelectRow(std::min(row, m_list->RowCount()));
}

void WBGroupCriteriaPage::Clear()
{
    m_criteria.criteria.clear();
    ShowChange();
}

void WBGroupCriteriaPage::ChangeJoin(WBJoined joined)
{
    if (joined != m_criteria.joined) {
        m_criteria.joined = joined;
        Say({});
        Send(Changed);
    }
}

void WBGroupCriteriaPage::ShowChange()
{
    Show();
    Say({});
    Send(Changed);
}

void WBGroupCriteriaPage::Show()
{
    WBShowTable(*m_list, WBCriteriaTable(m_criteria.criteria, m_attributes));
    m_and->SetChecked(m_criteria.joined == WBJoined::And);
    m_or->SetChecked(m_criteria.joined == WBJoined::Or);
    ShowWhatCanBeDone();
}

void WBGroupCriteriaPage::ShowWhatCanBeDone()
{
    const bool hasCriteria = !m_criteria.criteria.empty();
    m_add->SetSensitivity(!m_attributes.empty());
    m_fromPick->SetSensitivity(!m_attributes.empty());
    m_remove->SetSensitivity(hasCriteria);
    m_clear->SetSensitivity(hasCriteria);
    m_find->SetSensitivity(hasCriteria && m_figures != nullptr);
}

bool WBGroupCriteriaPage::IsValueInputActive() const
{
    return m_fromPick->IsChecked();
}

void WBGroupCriteriaPage::EndValueInput()
{
    m_fromPick->SetChecked(false);
}

void WBGroupCriteriaPage::TakeValueOf(const WBPickedInstance& picked)
{
    EndValueInput();
    const WBGroupAttribute* const attribute = ChosenAttribute();
    const int row = m_figures == nullptr ? WBGroupFigures::kNone : m_figures->Find(picked);
    if (attribute == nullptr || row == WBGroupFigures::kNone) {
        Say(WBGroupText("FromPick.Unknown",
                        "@/p1 is not in the figures: the filter leaves it out, or it is newer than "
                        "they are. Refresh reads them anew.",
                        {picked.instance}));
        return;
    }
    const auto texts = WBAttributeTexts(*m_figures, row, attribute->name, attribute->magnitude);
    const CATUnicodeString value =
        texts.empty() ? CATUnicodeString() : WBTypedForm(texts.front(), attribute->magnitude);
    if (value.IsEmpty()) {
        Say(WBGroupText("FromPick.None", "@/p1 has no value: /p2.",
                        {picked.instance, attribute->title}));
        return;
    }
    m_value->SetText(value);
    Say(WBGroupText("FromPick.Done", "@The value of /p1 was taken.", {picked.instance}));
}

void WBGroupCriteriaPage::TakeFigures(const WBGroupFigures* figures)
{
    m_figures = figures;
    OfferAttributes();
    WBRewriteTable(*m_list, WBCriteriaTable(m_criteria.criteria, m_attributes));
    ShowWhatCanBeDone();
}

bool WBGroupCriteriaPage::Take(const WBStoredGroup& group)
{
    const std::optional<WBGroupCriteria> read = WBReadStoredCriteria(group);
    if (!read) {
        return false;
    }
    m_criteria = *read;
    ShowChange();
    return true;
}
