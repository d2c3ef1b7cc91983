#pragma once

#include "Database.h"
#include "WBStore.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace wb
{
/// The pending changes of a user as they were put, oldest first, without what is said of conflicts.
struct PendingRows
{
    std::vector<PendingState> changes;
    std::int64_t number = 0; // as Store::PendingNumber answers it
};

/// None in a file of an earlier version.
PendingRows ReadPending(Database& database, const std::string& user);

/// One user's pending changes, laid over what is read. Few people change many things at a time, so
/// they are kept in memory while they are looked at.
class PendingOverlay
{
public:
    /// Throws StoreError.
    PendingOverlay(Database& database, std::string user);

    const std::string& User() const { return m_user; }
    std::int64_t Number() const { return m_number; }

    /// A text that cannot be stated any more, as of a mass type that became a goal, is not seen.
    void Apply(StoredPart& stored, const KnownProducts& known) const;
    /// For uses that the user changes; type is that of the part, which costs a read.
    void Apply(StoredUse& stored, PartType type, const KnownProducts& known) const;
    void Apply(RowId use, Property& property) const;

    bool Changes(OwnerKind kind, RowId owner) const { return m_changes.contains({kind, owner}); }

    /// Where a density or a material is pending: whether the owner says of a density then, 1 or 0,
    /// by "use" or "part" and its row. Empty where none is.
    std::string DensitiesAsJson(const Store& store) const;

    /// Marks what saving would make older than a change below it, and unmarks what it would
    /// restate.
    void MarkOutdatedSets(ReadProductRows& rows) const;

private:
    using Owner = std::pair<OwnerKind, RowId>;

    std::string m_user;
    std::int64_t m_number = 0;
    std::map<Owner, std::vector<PendingState>> m_changes;
};
} // namespace wb
