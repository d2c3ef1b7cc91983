#pragma once

#include "CATCommand.h"
#include "WBGroupStore.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

/// Groups that the user neither saved nor gave up, since the command that the group panel belongs
/// to ended: another one was started, or Esc pressed. The next panel of that root takes them up.
/// Stands below the panels' parent, and ends with it.
class WBGroupDrafts : public CATCommand
{
public:
    /// The one below that parent, made when there is none. Null without a parent.
    static WBGroupDrafts* Below(CATCommand* parent);

    const char* ClassName() const override;
    void Put(WBGroupKind kind, const CATUnicodeString& root, WBStoredGroup group);
    /// Takes out the root's group of that kind; nothing where there is none.
    std::optional<WBStoredGroup> Take(WBGroupKind kind, const CATUnicodeString& root);

private:
    explicit WBGroupDrafts(CATCommand* parent);

    std::map<std::pair<WBGroupKind, std::string>, WBStoredGroup> m_drafts;
};
