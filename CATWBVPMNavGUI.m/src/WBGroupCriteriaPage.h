#pragma once

#include "WBGroupCriteria.h"
#include "WBGroupItems.h"
#include "WBGroupPage.h"

class CATDlgMultiList;
class WBGroupStoreBar;

/// The page on which the user says what instances shall be like, and finds those that are.
class WBGroupCriteriaPage : public WBGroupPage
{
public:
    WBGroupCriteriaPage(CATDlgTabContainer* pages, const CATUnicodeString& root);

    static const CATEvent AddFound; ///< the user wants the found instances in the picked group

    /// Whether the next pick gives the value that is asked about.
    bool IsValueInputActive() const;
    /// Waits for a pick no longer.
    void EndValueInput();
    /// Writes what the instance has for the chosen attribute into the value's field.
    void TakeValueOf(const WBPickedInstance& picked);
    /// The instances that were found, in the order of the product.
    std::vector<WBGroupItem> Found() const;

    void TakeFigures(const WBGroupFigures* figures) override;
    void FollowUnits() override;
    std::optional<WBGroupTotals> Totals() const override;
    CATUnicodeString WhatCounts() const override;
    bool HasUnsaved() const override;
    bool Save() override;

private:
    void BuildEdit();
    void BuildJoin();
    void BuildFound();
    bool Take(const WBStoredGroup& group);
    /// The attribute that the user chose; null where none is offered.
    const WBGroupAttribute* ChosenAttribute() const;
    void OfferAttributes();
    void OfferComparisons();
    void Add();
    void Remove();
    void Clear();
    void ChangeJoin(WBJoined joined);
    void Find();
    /// What was found does not answer the present criteria any more.
    void ForgetFound();
    void ShowCriteria();
    void ShowFound();
    void ShowWhatCanBeDone();

    CATUnicodeString m_root;
    WBGroupCriteria m_criteria;
    const WBGroupFigures* m_figures = nullptr;
    std::vector<WBGroupAttribute> m_attributes;
    std::optional<std::vector<int>> m_found; // rows of the figures, once they were looked for

    // Controls belong to the controls that they stand in.
    WBGroupStoreBar* m_store = nullptr;
    CATDlgMultiList* m_list = nullptr;
    CATDlgCombo* m_attribute = nullptr;
    CATDlgCombo* m_comparison = nullptr;
    CATDlgEditor* m_value = nullptr;
    CATDlgCheckButton* m_fromPick = nullptr;
    CATDlgRadioButton* m_and = nullptr;
    CATDlgRadioButton* m_or = nullptr;
    CATDlgPushButton* m_add = nullptr;
    CATDlgPushButton* m_remove = nullptr;
    CATDlgPushButton* m_clear = nullptr;
    CATDlgPushButton* m_find = nullptr;
    CATDlgPushButton* m_addFound = nullptr;
    CATDlgMultiList* m_foundList = nullptr;
};
