#pragma once

#include "CATWBVPMNavReportPanel.h"

#include "WBReportRequest.h"
#include "WBUnitWatch.h"

#include "CATIDOMDocument.h"

#include <memory>

class WBReportContents;
class WBReportPicks;
class WBReportPlacing;
class WBSumChoices;
struct WBPlacing;

/// The report panel as users see it: the instances that were picked, what kind of report it shall
/// be and what shall stand in it, which values count, and about which point. Every report that is
/// generated opens a window of its own, which stays when the panel goes.
class WBReportPanel : public CATWBVPMNavReportPanel
{
public:
    explicit WBReportPanel(CATCommand* parent);
    ~WBReportPanel() override;

    const char* ClassName() const override;
    CATString GetResourceFilename(int level) const override;
    /// What failed was the panel's own action: it stays open as it was.
    bool RecoverFromFault() override;
    void Build() override;
    bool IsInstanceInputActive() const override;
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override;
    CATDlgPushButton* GetCloseButton() override;

private:
    void BuildHeading();
    void BuildSums();
    void BuildLastLine();

    /// Takes up the root that is open now. False, with a word in the last line, when picked
    /// instances of another root had to go.
    bool FollowRoot();
    void Say(const CATUnicodeString& text);
    void ShowWhatCounts();

    void Generate();
    WBReportOptions Options() const;
    /// The report that the server made; null, after a box, when there is none.
    CATIDOMDocument_var AskForReport(const WBReportOptions& options);
    void OpenReport(const WBReportOptions& options, const WBPlacing& placing,
                    CATIDOMDocument_var& document);

    CATUnicodeString m_root; // empty where none is open

    // Controls belong to the controls that they stand in.
    CATDlgLabel* m_product = nullptr;
    CATDlgLabel* m_filter = nullptr;
    WBReportPicks* m_picks = nullptr;
    WBReportContents* m_contents = nullptr;
    WBReportPlacing* m_placing = nullptr;
    CATDlgLabel* m_word = nullptr;
    CATDlgPushButton* m_close = nullptr;
    std::unique_ptr<WBSumChoices> m_sums;

    WBUnitWatch m_unitWatch; // last: it goes before what it writes to
};
