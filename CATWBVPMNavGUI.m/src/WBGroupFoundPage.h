#pragma once

#include "WBGroupCriteria.h"
#include "WBGroupItems.h"
#include "WBGroupPage.h"

class CATDlgMultiList;

/// The page of the instances that match the criteria.
class WBGroupFoundPage : public WBGroupPage
{
public:
    WBGroupFoundPage(CATDlgTabContainer* pages, const CATUnicodeString& root);

    static const CATEvent AddAsked; ///< the user wants the found instances in the picked group

    /// Looks for the instances that match, and goes on following the figures.
    void Find(const WBGroupCriteria& criteria);
    /// What was found does not answer the present criteria any more.
    void Forget();
    /// The instances that were found, in the order of the product.
    std::vector<WBGroupItem> Found() const;

    void TakeFigures(const WBGroupFigures* figures) override;
    void FollowUnits() override;
    std::optional<WBGroupTotals> Totals() const override;
    CATUnicodeString WhatCounts() const override;

private:
    bool HasFound() const { return m_criteria && m_figures != nullptr; }
    void LookForMatches();
    void Show();

    CATUnicodeString m_root;
    std::optional<WBGroupCriteria> m_criteria; // once they were asked about
    const WBGroupFigures* m_figures = nullptr;
    std::vector<int> m_rows; // of the figures

    // Controls belong to the controls that they stand in.
    CATDlgMultiList* m_list = nullptr;
    CATDlgPushButton* m_add = nullptr;
};
