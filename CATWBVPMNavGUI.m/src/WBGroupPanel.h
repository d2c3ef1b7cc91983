#pragma once

#include "CATWBVPMNavGroupPanel.h"

#include "WBGroupDrafts.h"
#include "WBGroupFigures.h"
#include "WBUnitWatch.h"

#include "CATCommandWatch.h"

#include <memory>
#include <vector>

class WBGroupCriteriaPage;
class WBGroupFoundPage;
class WBGroupInstancesPage;
class WBGroupPage;
class WBGroupStoreBar;
class WBGroupTotalsFrame;

/// The group panel as users see it: a page for the instances that were picked, one for criteria and
/// one for the instances that match them, and below them what the group adds up to. The figures are
/// those of one report of the product, read when the panel opens and again on demand.
class WBGroupPanel : public CATWBVPMNavGroupPanel
{
public:
    WBGroupPanel(CATCommand* parent, const CATUnicodeString& root);
    ~WBGroupPanel() override;

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open as it was.
    bool RecoverFromFault() override;
    void Build() override;
    bool IsInstanceInputActive() const override;
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count, const CATUnicodeString& partName) override;
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override;
    CATDlgPushButton* GetCloseButton() override;

private:
    void BuildHeading();
    void BuildPages();
    void BuildLastLine();

    WBGroupPage& PageInFront() const;
    void GoTo(const WBGroupPage* page);
    void ShowPageInFront();
    /// Asks the server for the figures; what was known goes when it does not answer.
    void ReadFigures();
    void Find();
    void AddFound();
    void ShowTotals();
    void ShowWord();
    void FollowUnits();
    /// Whether the window may close: groups that are not saved are asked about.
    bool MayClose();
    bool MayLeave(const WBGroupPage& page, WBGroupStoreBar& store,
                  const CATUnicodeString& question);

    CATUnicodeString m_root;
    CATCommandWatch<WBGroupDrafts> m_drafts;
    std::unique_ptr<WBGroupFigures> m_figures; // null while they are not known

    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_filter = nullptr;
    CATDlgTabContainer* m_container = nullptr;
    WBGroupInstancesPage* m_instances = nullptr;
    WBGroupCriteriaPage* m_criteria = nullptr;
    WBGroupFoundPage* m_found = nullptr;
    std::vector<WBGroupPage*> m_pages; // in the order of the tabs
    WBGroupTotalsFrame* m_totals = nullptr;
    CATDlgLabel* m_word = nullptr;
    CATDlgPushButton* m_close = nullptr;

    WBUnitWatch m_unitWatch; // last: it goes before what it writes to
};
