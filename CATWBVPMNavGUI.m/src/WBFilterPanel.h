#pragma once

#include "CATCommandWatch.h"
#include "CATWBVPMNavFilterPanel.h"
#include "WBFilterDrafts.h"
#include "WBFilterSet.h"

class WBFilterLines;

/// The filter panel as users see it: the filters of a root, the lines of one of them, and which one
/// is on. Everything happens in the panel alone until OK keeps it. Where the panel goes without a
/// word of the user, the next one of that root goes on with what was changed.
class WBFilterPanel : public CATWBVPMNavFilterPanel
{
public:
    explicit WBFilterPanel(CATCommand* parent);
    ~WBFilterPanel() override;

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open as it was.
    bool RecoverFromFault() override;
    /// Another root is not shown while changes of the present one are not kept: they would be lost.
    void SetPRCId(const CATUnicodeString& rootIdentifier) override;
    void Build() override;
    void SetCurrentFilters() override;
    /// An instance that is no part of the shown root, or a pick that cannot be read, is not added
    /// and the last line says so. Without a filter one is begun.
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count) override;
    CATDlgPushButton* GetOkButton() override { return m_ok; }
    CATDlgPushButton* GetCancelButton() override { return m_cancel; }

private:
    void BuildHeading();
    void BuildChoice();
    void BuildLastLine();

    bool IsBuilt() const { return m_ok != nullptr; }
    bool IsChanged() const { return !(m_set == m_kept); }
    /// The filter that is shown; null for none, and for a damaged one.
    WBDefinedFilter* ShownFilter();

    void ReadKept();
    void TakeDraft();
    void ShowFirst();
    void TellHandler() const;
    void ShowAll();
    void ShowNames();
    void ShowCounting();
    void ShowFilter();
    void ShowRest();
    void Say(const CATUnicodeString& text, CATDlgLabel::Role role = CATDlgLabel::Role::Plain);

    void BeginFilter();
    void DeleteFilter();
    void ChooseFilter(int index);
    void Rename();
    void Switch(bool on);

    /// False when something keeps it from being kept; the user has been told.
    bool Keep();
    void GiveUp();
    bool MayClose();

    CATUnicodeString m_root; // empty where none is open
    WBFilterSet m_set;       // as the user sees it
    WBFilterSet m_kept;      // as it stands in the settings
    int m_shown = WBFilterSet::kNone;
    bool m_isDraft = false; // what was changed was changed in an earlier panel
    CATCommandWatch<WBFilterDrafts> m_drafts;

    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_product = nullptr;
    CATDlgLabel* m_counting = nullptr;
    CATDlgCombo* m_filters = nullptr;
    CATDlgPushButton* m_new = nullptr;
    CATDlgPushButton* m_delete = nullptr;
    CATDlgEditor* m_name = nullptr;
    CATDlgCheckButton* m_on = nullptr;
    WBFilterLines* m_lines = nullptr;
    CATDlgLabel* m_rest = nullptr;
    CATDlgLabel* m_word = nullptr;
    CATDlgPushButton* m_ok = nullptr;
    CATDlgPushButton* m_cancel = nullptr;
};
