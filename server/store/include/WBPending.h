#pragma once

#include "WBQuantity.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace wb
{
class Store;

using RowId = std::int64_t; // of a row of the database; never 0

/// Whose value it is: of a part version, wherever it is used, or of one use below its parent.
enum class OwnerKind
{
    Part,
    Use
};

/// A change that a user has made and neither saved nor given up. Texts are those of Quantity.
struct PendingChange
{
    OwnerKind kind = OwnerKind::Part;
    RowId owner = 0;
    Quantity quantity;
    std::string seen;  // what was committed and shown to him when he changed it
    std::string after; // what he wants
    std::string when;  // UTC, yyyy-mm-dd hh:mm:ss; filled by reads
};

/// The same beside what is committed now.
struct PendingState : PendingChange
{
    std::string subject; // "part WING A", "use WING A / left"
    std::string stored;  // what is committed now; empty where the owner is gone
    /// Somebody else saved another value than the one that was seen, or the owner is gone.
    bool conflicts = false;
    /// Of a conflict: who committed what is stored now, and when (UTC, yyyy-mm-dd hh:mm:ss). Empty
    /// where the history does not tell, as of facts that an import added where there were none.
    std::string by;
    std::string at;
    bool isGone = false; // an import has removed the owner meanwhile
};

/// What came of saving. Either all was saved or nothing: there are conflicts then.
struct SaveOutcome
{
    std::size_t saved = 0;
    std::vector<PendingState> conflicts;
};

/// One fact that somebody changed, as the history keeps it.
struct FactChange
{
    std::string when; // UTC, yyyy-mm-dd hh:mm:ss
    std::string who;
    std::string what;    // "import" or "save"
    std::string file;    // of an import
    std::string subject; // "part WING A", "use WING A / left"
    std::string fact;    // "mass type Weighed, mass"; empty: the use itself, which was removed
    std::string before;
    std::string after; // empty: it is gone
};

class PendingOverlay;

/// While it lives, all reads of the store see a user's pending changes as if he had saved them,
/// other users' never: facts of parts and uses, products, counts of densities, properties of uses.
/// Sets of assemblies above such a change count as older than it, as they would after saving.
/// Costs a single question where he has none. What the same store object puts, saves or gives up
/// meanwhile is seen at once. Views nest; the innermost counts. One that is to see committed values
/// alone has an empty user.
class PendingView
{
public:
    /// Borrows the store. Throws StoreError.
    PendingView(const Store& store, const std::string& user);
    PendingView(const PendingView&) = delete;
    PendingView& operator=(const PendingView&) = delete;
    ~PendingView();

    /// The number of what is seen, as Store::PendingNumber answers it: 0 where nothing is pending.
    std::int64_t Number() const;

private:
    const Store& m_store;
    std::unique_ptr<PendingOverlay> m_outer;
};
} // namespace wb
