#include "WBReportPicks.h"

#include "WBListTable.h"
#include "WBPanelControls.h"

#include <algorithm>

const CATEvent WBReportPicks::TakenOut("PickedInstancesTakenOut");

WBReportPicks::WBReportPicks(CATDialog* window)
    : CATDlgFrame(window, "Instances"),
      m_list(WBAddList(this, "List", 0, {})),
      m_addPicked(nullptr),
      m_remove(nullptr),
      m_clear(nullptr)
{
    constexpr int kLeastLines = 3;
    m_list->SetVisibleLines(kLeastLines);
    m_list->SetAccessibleName(WBReportText("Instances.Spoken", "@Picked instances"));
    auto* buttons = new CATDlgFrame(this, "Buttons", kWBPlainFrame);
    buttons->SetPlacement(1, 0);
    buttons->SetColumnStretch(0, 1);
    m_addPicked = new CATDlgCheckButton(buttons, "AddPicked");
    m_addPicked->SetPlacement(0, 0);
    m_addPicked->SetChecked(true);
    m_remove = new CATDlgPushButton(buttons, "RemoveButton");
    m_remove->SetPlacement(0, 1);
    m_clear = new CATDlgPushButton(buttons, "ClearButton");
    m_clear->SetPlacement(0, 2);
    Subscribe(m_remove, CATDlgPushButton::Activated, [this](const CATNotification&) { Remove(); });
    Subscribe(m_clear, CATDlgPushButton::Activated, [this](const CATNotification&) { Clear(); });
    Show();
}

bool WBReportPicks::IsInputActive() const
{
    return m_addPicked->IsChecked();
}

bool WBReportPicks::Add(const WBPickedInstance& picked)
{
    const bool isNew = m_picked.Add(picked);
    const auto& items = m_picked.Items();
    if (isNew) {
        // One row alone: a user may pick thousands at once, and they come one by one.
        const WBPanelRow cells = m_picked.Row(picked);
        for (int column = 0; column < cells.Size(); ++column) {
            m_list->SetCell(column, static_cast<int>(items.size()), cells[column + 1]);
        }
        ShowWhatCanBeTakenOut();
    }
    const auto found = std::ranges::find(items, picked);
    m_list->SelectRow(static_cast<int>(found - items.begin()) + 1);
    return isNew;
}

bool WBReportPicks::SetRoot(const CATUnicodeString& root)
{
    if (root == m_picked.Root()) {
        return true; // what the user sorted and selected in the list stays
    }
    const bool hadInstances = !m_picked.Items().empty();
    m_picked.SetRoot(root);
    Show();
    return !hadInstances;
}

void WBReportPicks::Remove()
{
    const int row = m_list->SelectedRow();
    m_picked.Remove(row);
    Show();
    m_list->SelectRow(std::min(row, m_list->RowCount()));
    Send(TakenOut);
}

void WBReportPicks::Clear()
{
    m_picked.Clear();
    Show();
    Send(TakenOut);
}

void WBReportPicks::Show()
{
    m_list->SetEmptyText(m_picked.EmptyText());
    WBShowTable(*m_list, m_picked.Table());
    ShowWhatCanBeTakenOut();
}

void WBReportPicks::ShowWhatCanBeTakenOut()
{
    const bool hasInstances = !m_picked.Items().empty();
    m_remove->SetSensitivity(hasInstances);
    m_clear->SetSensitivity(hasInstances);
}
