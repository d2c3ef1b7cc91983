#include "WBChangesPage.h"

#include "WBPanelControls.h"
#include "WBStatedValues.h"

#include "CATDiagnostics.h"
#include "CATWBAllDataBuffer.h"
#include "RunServerCode.h"

namespace
{

template <class Changes>
std::optional<Changes> Ask(const char* method, const CATUnicodeString& request,
                           std::optional<Changes> (*read)(const CATUnicodeString&))
{
    const CATUnicodeString answer = RunServerCode(method, request);
    std::optional<Changes> changes = read(answer);
    if (!changes) {
        CATDiagnosticErrors().Line("The answer of ", method, " cannot be read: ", answer);
    }
    return changes;
}

} // namespace

WBChangesPage::WBChangesPage(CATDlgTabContainer* tabs)
{
    auto* page = new CATDlgTabPage(tabs, "Changes");
    m_words = new CATDlgLabel(page, "Words");
    m_words->SetTitle({});
    m_words->SetPlacement(0, 0);
    m_pendingList =
        WBAddList(page, "Pending", 1, WBPanelText("Pending.None", "@Nothing waits to be saved"));
    WBAddNote(page, "HistoryNote", 2);
    m_historyList =
        WBAddList(page, "History", 3, WBPanelText("History.None", "@No change was saved"));
    constexpr int kLines = 3;
    m_pendingList->SetVisibleLines(kLines);
    m_historyList->SetVisibleLines(kLines);
    page->SetRowStretch(1, 2);
    page->SetRowStretch(3, 3);
}

void WBChangesPage::SetRecord(const CATWBAllDataBuffer* record)
{
    m_record = record;
    m_isRead = record == nullptr;
    m_pending = std::vector<CATPendingChange>();
    m_history = std::vector<WBSavedChange>();
}

void WBChangesPage::Look()
{
    if (!m_isRead) {
        m_isRead = true;
        Read();
        Show(WBRewriteTable);
    }
}

void WBChangesPage::Read()
{
    m_pending = Ask("WBPendingChanges", {}, &WBReadPendingChanges);
    m_history = Ask("WBHistory", WBPlaceOf(*m_record), &WBReadHistory);
}

void WBChangesPage::Show(WBTableWriter write)
{
    const bool isKnown = m_pending && m_history;
    m_words->SetRole(isKnown ? CATDlgLabel::Role::Plain : CATDlgLabel::Role::Problem);
    m_words->SetTitle(isKnown && m_isRead
                          ? WBPendingWords(*m_pending)
                          : (isKnown ? CATUnicodeString()
                                     : WBPanelText("Changes.Unknown",
                                                   "@The server does not say what was changed.")));
    const std::vector<CATPendingChange> pending =
        m_pending.value_or(std::vector<CATPendingChange>());
    write(*m_pendingList, WBPendingTable(pending));
    write(*m_historyList, WBHistoryTable(m_history.value_or(std::vector<WBSavedChange>())));
    constexpr int kState = 5;
    int row = 0;
    for (const CATPendingChange& change : pending) {
        ++row;
        m_pendingList->SetCellMark(kState, row, change.isInConflict);
    }
}
