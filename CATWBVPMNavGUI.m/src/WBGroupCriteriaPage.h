#pragma once

#include "WBGroupCriteria.h"
#include "WBGroupPage.h"

class CATDlgMultiList;
class WBGroupStoreBar;

/// The page on which the user says what instances shall be like.
class WBGroupCriteriaPage : public WBGroupPage
{
public:
    WBGroupCriteriaPage(CATDlgTabContainer* pages, const CATUnicodeString& root);

    static const CATEvent FindAsked; ///< the user wants to see the instances that match

    const WBGroupCriteria& Criteria() const { return m_criteria; }

    /// Whether the next pick gives the value that is asked about.
    bool IsValueInputActive() const;
    /// Waits for a pick no longer.
    void EndValueInput();
    /// Writes what the instance has for the chosen attribute into the value's field.
    void TakeValueOf(const WBPickedInstance& picked);
    void TakeFigures(const WBGroupFigures* figures) override;
    WBGroupStoreBar& Store() const { return *m_store; }

private:
    void BuildList();
    void BuildEdit();
    void BuildJoin();
    bool Take(const WBStoredGroup& group);
    /// The attribute that the user chose; null where none is offered.
    const WBGroupAttribute* ChosenAttribute() const;
    void OfferAttributes();
    void OfferComparisons();
    void Add();
    void Remove();
    void Clear();
    void ChangeJoin(WBJoined joined);
    /// Shows the criteria as they are now, and tells that they are others.
    void ShowChange();
    void Show();
    void ShowWhatCanBeDone();

    WBGroupCriteria m_criteria;
    const WBGroupFigures* m_figures = nullptr;
    std::vector<WBGroupAttribute> m_attributes;

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
};
