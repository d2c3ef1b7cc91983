#pragma once

#include "WBGroupItems.h"
#include "WBGroupPage.h"

class CATDlgMultiList;
class WBGroupStoreBar;

/// The page of the instances that the user picked.
class WBGroupInstancesPage : public WBGroupPage
{
public:
    WBGroupInstancesPage(CATDlgTabContainer* pages, const CATUnicodeString& root);

    /// Adds an instance, or goes to it where it is there already, and says so.
    void Add(const WBGroupItem& item);
    /// The number of those that were not there yet.
    int AddAll(const std::vector<WBGroupItem>& items);

    void TakeFigures(const WBGroupFigures* figures) override;
    void FollowUnits() override;
    std::optional<WBGroupTotals> Totals() const override { return m_items.Totals(); }
    CATUnicodeString WhatCounts() const override;
    WBGroupStoreBar& Store() const { return *m_store; }

private:
    void BuildButtons();
    bool Take(const WBStoredGroup& group);
    void TellWhatIsGone();
    void Remove();
    void Clear();
    void RemoveGone();
    /// Writes all rows: as other ones, or the same ones.
    void Show();
    void ShowRemarks();
    void ShowWhatCanBeDone();

    CATUnicodeString m_root;
    WBGroupItems m_items;
    std::vector<WBItemStanding> m_shown; // as the list tells them

    // Controls belong to the controls that they stand in.
    WBGroupStoreBar* m_store = nullptr;
    CATDlgMultiList* m_list = nullptr;
    CATDlgPushButton* m_remove = nullptr;
    CATDlgPushButton* m_removeGone = nullptr;
    CATDlgPushButton* m_clear = nullptr;
};
