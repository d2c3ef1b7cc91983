#pragma once

#include "WBGroupAttributes.h"
#include "WBGroupStore.h"
#include "WBPanelTexts.h"

#include <optional>
#include <vector>

/// The criteria of a group and how they are combined.
struct WBGroupCriteria
{
    std::vector<WBCriterion> criteria;
    WBJoined joined = WBJoined::And;
};

WBStoredGroup WBStoredCriteria(const WBGroupCriteria& criteria);
/// Nothing when something in the group cannot be read: another combination than "and" and "or", a
/// comparison that values of that kind do not have, a value that is none, a unit or magnitude that
/// the session does not know.
std::optional<WBGroupCriteria> WBReadStoredCriteria(const WBStoredGroup& group);

/// A row a criterion: attribute, comparison and value, as users read them. An attribute that is not
/// among the offered ones is called by its name.
WBPanelTable WBCriteriaTable(const std::vector<WBCriterion>& criteria,
                             const std::vector<WBGroupAttribute>& offered);
/// The comparison in the user's language; signs are the same in all.
CATUnicodeString WBComparisonTitle(WBComparison comparison);
