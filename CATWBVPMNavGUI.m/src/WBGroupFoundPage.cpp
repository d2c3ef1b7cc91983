#include "WBGroupFoundPage.h"

#include "WBGroupTexts.h"
#include "WBListTable.h"
#include "WBPanelControls.h"

const CATEvent WBGroupFoundPage::AddAsked("AddFoundInstances");

namespace
{

constexpr int kLeastLines = 3;

} // namespace

WBGroupFoundPage::WBGroupFoundPage(CATDlgTabContainer* pages, const CATUnicodeString& root)
    : WBGroupPage(pages, "FoundPage"), m_root(root)
{
    m_list = WBAddList(this, "List", 0, {});
    m_list->SetVisibleLines(kLeastLines);
    m_list->SetAccessibleName(WBGroupText("Found.Spoken", "@Found instances"));
    SetRowStretch(0, 1);
    auto* frame = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    frame->SetPlacement(1, 0);
    frame->SetColumnStretch(0, 1);
    m_add = new CATDlgPushButton(frame, "AddFoundButton");
    m_add->SetPlacement(0, 1);
    Subscribe(m_add, CATDlgPushButton::Activated,
              [this](const CATNotification&) { Send(AddAsked); });
    Show();
}

void WBGroupFoundPage::Find(const WBGroupCriteria& criteria)
{
    m_criteria = criteria;
    LookForMatches();
    Show();
    Say(WBGroupCount("Found", static_cast<int>(m_rows.size()), "@1 instance was found.",
                     "@/p1 instances were found."));
    Send(Changed);
}

void WBGroupFoundPage::Forget()
{
    m_criteria.reset();
    Show();
    Say({});
    Send(Changed);
}

void WBGroupFoundPage::LookForMatches()
{
    m_rows = HasFound() ? WBMatchingRows(*m_figures, m_criteria->criteria, m_criteria->joined)
                        : std::vector<int>();
}

void WBGroupFoundPage::Show()
{
    m_list->SetEmptyText(
        HasFound() ? WBGroupText("Found.None", "@No instance matches the criteria")
                   : WBGroupText("Found.NotYet", "@Find shows which instances match the criteria"));
    WBShowTable(*m_list, HasFound() ? WBFoundTable(m_root, *m_figures, m_rows)
                                    : WBGroupItems(m_root).Table());
    m_add->SetSensitivity(HasFound() && !m_rows.empty());
}

std::vector<WBGroupItem> WBGroupFoundPage::Found() const
{
    std::vector<WBGroupItem> items;
    for (const int row : m_rows) {
        items.push_back({m_figures->Instance(row), m_figures->Text(row, "Name")});
    }
    return items;
}

void WBGroupFoundPage::TakeFigures(const WBGroupFigures* figures)
{
    m_figures = figures;
    LookForMatches();
    Show();
}

void WBGroupFoundPage::FollowUnits()
{
    if (HasFound()) {
        WBRewriteTable(*m_list, WBFoundTable(m_root, *m_figures, m_rows));
    }
}

std::optional<WBGroupTotals> WBGroupFoundPage::Totals() const
{
    return HasFound() ? std::optional(WBTotalsOf(*m_figures, m_rows)) : std::nullopt;
}

CATUnicodeString WBGroupFoundPage::WhatCounts() const
{
    const std::optional<WBGroupTotals> totals = Totals();
    const int inside = totals ? static_cast<int>(m_rows.size()) - totals->items : 0;
    return inside == 0 ? CATUnicodeString() : WBInsideText(inside);
}
