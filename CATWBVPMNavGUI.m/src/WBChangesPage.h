#pragma once

#include "WBChanges.h"
#include "WBListTable.h"
#include "WBShowing.h"

class CATDlgLabel;
class CATDlgMultiList;
class CATDlgTabContainer;
class CATWBAllDataBuffer;

/// The page "Changes" of the main panel: what the user has changed anywhere and not saved, and who
/// changed what of the shown part and place. The server is asked when the page is looked at and
/// what it shows may have changed.
class WBChangesPage
{
public:
    explicit WBChangesPage(CATDlgTabContainer* tabs);

    /// What the page is about from now on, borrowed; null: nothing. It is empty until it is looked
    /// at.
    void SetRecord(const CATWBAllDataBuffer* record);
    /// Something was applied, saved or given up.
    void Outdate() { m_isRead = false; }
    /// The page is looked at.
    void Look();
    /// Shows what was read, in the present units.
    void Show(WBTableWriter write);

private:
    void Read();

    const CATWBAllDataBuffer* m_record = nullptr;
    bool m_isRead = true; // of no record there is nothing to read
    std::optional<std::vector<CATPendingChange>> m_pending;
    std::optional<std::vector<WBSavedChange>> m_history;

    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_words = nullptr;
    CATDlgMultiList* m_pendingList = nullptr;
    CATDlgMultiList* m_historyList = nullptr;
};
