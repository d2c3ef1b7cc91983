#pragma once

#include "WBPanelTexts.h"
#include "WBReportRequest.h"

/// The instances that a report shall cover, each once, in the order in which they were picked. They
/// belong to one root; no instances at all stand for the whole root.
class WBPickedInstances
{
public:
    /// False when that instance is there already.
    bool Add(WBPickedInstance picked);
    /// The one at that position, from 1; any other position removes nothing.
    void Remove(int position);
    void Clear() { m_items.clear(); }
    /// What follows belongs to that root; the instances of another one go.
    void SetRoot(const CATUnicodeString& root);

    const CATUnicodeString& Root() const { return m_root; }
    const std::vector<WBPickedInstance>& Items() const { return m_items; }
    /// A row an instance: its name, part, version and path, root first.
    WBPanelTable Table() const;
    /// The row of one of them.
    WBPanelRow Row(const WBPickedInstance& picked) const;
    /// What stands in the table's place while nothing is picked.
    CATUnicodeString EmptyText() const;
    /// What a report of them is called, also in names of files: the root, the first instance and
    /// how many more there are ("LA1 WNG-000.1 +3").
    CATUnicodeString SelectionText() const;

private:
    CATUnicodeString m_root;
    std::vector<WBPickedInstance> m_items;
};

/// The report panel's message `key`, `defaultText` where no catalog has it; "/p1", ... are
/// replaced.
CATUnicodeString WBReportText(const char* key, const char* defaultText,
                              const CATListValCATUnicodeString& parameters = {});
