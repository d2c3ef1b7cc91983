#pragma once

#include "CATCommand.h"
#include "WBFilterSet.h"

#include <map>
#include <optional>
#include <string>

/// Changes of filters that the user neither kept nor gave up, since the command that the filter
/// panel belongs to ended: another one was started, or Esc pressed. The next panel of that root
/// takes them up. Stands below the panels' parent, and ends with it.
class WBFilterDrafts : public CATCommand
{
public:
    /// The one below that parent, made when there is none. Null without a parent.
    static WBFilterDrafts* Below(CATCommand* parent);

    const char* ClassName() const override;
    void Put(const CATUnicodeString& root, WBFilterSet set);
    /// Takes out the root's changes; nothing where there are none.
    std::optional<WBFilterSet> Take(const CATUnicodeString& root);

private:
    explicit WBFilterDrafts(CATCommand* parent);

    std::map<std::string, WBFilterSet, std::less<>> m_drafts;
};
