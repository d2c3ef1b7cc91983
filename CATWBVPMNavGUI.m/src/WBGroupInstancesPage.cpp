#include "WBGroupInstancesPage.h"

#include "WBGroupStoreBar.h"
#include "WBGroupTexts.h"
#include "WBListTable.h"
#include "WBPanelControls.h"

#include "CATWBServices.h"

#include <algorithm>

namespace
{

constexpr int kLeastLines = 3;
constexpr int kWarningStyle = 0x8000000;

CATUnicodeString Joined(const std::vector<CATUnicodeString>& sentences)
{
    CATUnicodeString text;
    for (const CATUnicodeString& sentence : sentences) {
        text += (text.IsEmpty() ? "" : " ") + sentence;
    }
    return text;
}

} // namespace

WBGroupInstancesPage::WBGroupInstancesPage(CATDlgTabContainer* pages, const CATUnicodeString& root)
    : WBGroupPage(pages, "InstancesPage"), m_root(root), m_items(root)
{
    m_store = new WBGroupStoreBar(this, WBGroupKind::Instances, root,
                                  {[this] { return m_items.Stored(); },
                                   [this](const WBStoredGroup& group) { return Take(group); },
                                   [this](const CATUnicodeString& word) {
                                       Say(word);
                                   }});
    m_store->SetPlacement(0, 0);
    m_list =
        WBAddList(this, "List", 1, WBGroupText("Instances.None", "@Pick instances in the tree"));
    m_list->SetVisibleLines(kLeastLines);
    m_list->SetAccessibleName(WBGroupText("Instances.Spoken", "@Instances of the group"));
    SetRowStretch(1, 1);
    BuildButtons();
    Show();
}

void WBGroupInstancesPage::BuildButtons()
{
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(2, 0);
    frame->SetColumnStretch(0, 1);
    int column = 0;
    const auto addButton = [&](const char* name, auto action) {
        auto* button = new CATDlgPushButton(frame, name);
        button->SetPlacement(0, ++column);
        Subscribe(button, CATDlgPushButton::Activated,
                  [action](const CATNotification&) { action(); });
        return button;
    };
    m_remove = addButton("RemoveButton", [this] { Remove(); });
    m_removeGone = addButton("RemoveGoneButton", [this] { RemoveGone(); });
    m_clear = addButton("ClearButton", [this] { Clear(); });
}

void WBGroupInstancesPage::Add(const WBGroupItem& item)
{
    if (!m_items.Add(item)) {
        m_list->SelectRow(m_items.Position(item.picked));
        Say(WBGroupText("Instances.Known", "@/p1 is in the group already.",
                        {item.picked.instance}));
        return;
    }
    // One row alone: a user may pick thousands at once, and they come one by one.
    const auto row = static_cast<int>(m_items.Items().size());
    const WBPanelRow cells = m_items.Row(row);
    for (int column = 0; column < cells.Size(); ++column) {
        m_list->SetCell(column, row, cells[column + 1]);
    }
    m_shown.push_back(m_items.Standings().back());
    m_list->SelectRow(row);
    ShowRemarks();
    ShowWhatCanBeDone();
    Say({});
    Send(Changed);
}

int WBGroupInstancesPage::AddAll(const std::vector<WBGroupItem>& items)
{
    const int added = m_items.AddAll(items);
    Show();
    Say({});
    Send(Changed);
    return added;
}

void WBGroupInstancesPage::TakeFigures(const WBGroupFigures* figures)
{
    m_items.LookUp(figures);
    FollowUnits();
    ShowWhatCanBeDone();
}

void WBGroupInstancesPage::FollowUnits()
{
    WBRewriteTable(*m_list, m_items.Table());
    m_shown = m_items.Standings();
}

void WBGroupInstancesPage::Show()
{
    WBShowTable(*m_list, m_items.Table());
    m_shown = m_items.Standings();
    ShowWhatCanBeDone();
}

void WBGroupInstancesPage::ShowRemarks()
{
    const std::vector<WBItemStanding>& standings = m_items.Standings();
    for (std::size_t index = 0; index < standings.size(); ++index) {
        if (!(standings[index] == m_shown[index])) {
            const int row = static_cast<int>(index) + 1;
            m_list->SetCell(kWBRemarkColumn, row, m_items.Row(row)[kWBRemarkColumn + 1]);
        }
    }
    m_shown = standings;
}

void WBGroupInstancesPage::ShowWhatCanBeDone()
{
    const bool hasItems = !m_items.Items().empty();
    m_remove->SetSensitivity(hasItems);
    m_clear->SetSensitivity(hasItems);
    m_removeGone->SetSensitivity(m_items.CountOf(WBItemState::Gone) > 0);
}

CATUnicodeString WBGroupInstancesPage::WhatCounts() const
{
    std::vector<CATUnicodeString> sentences;
    if (const int gone = m_items.CountOf(WBItemState::Gone)) {
        sentences.push_back(WBGroupCount("Counts.Gone", gone, "@1 is gone.", "@/p1 are gone."));
    }
    if (const int leftOut = m_items.CountOf(WBItemState::FilteredOut)) {
        sentences.push_back(WBGroupCount("Counts.FilteredOut", leftOut, "@The filter leaves out 1.",
                                         "@The filter leaves out /p1."));
    }
    if (const int inside = m_items.CountOf(WBItemState::CountsWithAssembly)) {
        sentences.push_back(WBInsideText(inside));
    }
    return Joined(sentences);
}

bool WBGroupInstancesPage::Take(const WBStoredGroup& group)
{
    if (!m_items.Take(group)) {
        return false;
    }
    Show();
    Send(Changed);
    TellWhatIsGone();
    return true;
}

void WBGroupInstancesPage::TellWhatIsGone()
{
    const std::vector<CATUnicodeString> gone = m_items.GoneTexts();
    if (gone.empty()) {
        return;
    }
    constexpr std::size_t kMostLines = 10;
    CATUnicodeString lines;
    for (std::size_t index = 0; index < std::min(gone.size(), kMostLines); ++index) {
        lines += "\n" + gone[index];
    }
    if (gone.size() > kMostLines) {
        lines +=
            "\n" +
            WBGroupText("Gone.More", "@and /p1 more",
                        {CATUnicodeString::FromInt(static_cast<int>(gone.size() - kMostLines))});
    }
    CATWBServices::DisplayMsg(
        this, WBGroupText("Gone.Title", "@Instances are gone"),
        WBGroupText("Gone.Text",
                    "@/p1 does not hold these instances of the group any more. They stay in the "
                    "group, without a mass, until you remove them:",
                    {m_root}) +
            lines,
        kWarningStyle);
}

void WBGroupInstancesPage::Remove()
{
    const int row = m_list->SelectedRow();
    m_items.Remove(row);
    Show();
    m_list->SelectRow(std::min(row, m_list->RowCount()));
    Say({});
    Send(Changed);
}

void WBGroupInstancesPage::RemoveGone()
{
    m_items.RemoveGone();
    Show();
    Say({});
    Send(Changed);
}

void WBGroupInstancesPage::Clear()
{
    m_items.Clear();
    Show();
    Say({});
    Send(Changed);
}
