#pragma once

#include "WBPanelTexts.h"

#include <functional>
#include <optional>
#include <vector>

class CATDlgLabel;
class CATDlgMultiList;

/// How a table comes into its list: as another one, or as the same rows in other units.
using WBTableWriter = void (*)(CATDlgMultiList& list, const WBPanelTable& table);

/// A label and which of several facts it shows.
template <class Facts>
struct WBFactLabel
{
    CATDlgLabel* label;
    CATUnicodeString Facts::*text;
};

/// Shows a record, and marks what reads otherwise than it did before a computation: the old text
/// stands in the tooltip then. Compared is what the user reads, in the current units; a difference
/// that these units do not show is not marked.
class WBShowing
{
public:
    /// `before`: null where nothing is to be marked. Both records must outlive this.
    WBShowing(const WBPanelRecord& now, const WBPanelRecord* before, WBTableWriter write)
        : m_now(now), m_before(before), m_write(write)
    {}

    using TableOf = std::function<WBPanelTable(const WBPanelRecord&)>;
    void ShowTable(CATDlgMultiList& list, const TableOf& read);

    template <class Facts>
    void ShowFacts(const std::vector<WBFactLabel<Facts>>& labels,
                   const std::function<Facts(const WBPanelRecord&)>& read)
    {
        const Facts now = read(m_now);
        const std::optional<Facts> before =
            m_before == nullptr ? std::nullopt : std::optional<Facts>(read(*m_before));
        for (const WBFactLabel<Facts>& fact : labels) {
            ShowText(*fact.label, now.*fact.text, before ? &((*before).*fact.text) : nullptr);
        }
    }

    /// Whether anything was marked.
    bool HasMarks() const { return m_hasMarks; }

private:
    void ShowText(CATDlgLabel& label, const CATUnicodeString& now, const CATUnicodeString* before);

    const WBPanelRecord& m_now;
    const WBPanelRecord* m_before;
    WBTableWriter m_write;
    bool m_hasMarks = false;
};
