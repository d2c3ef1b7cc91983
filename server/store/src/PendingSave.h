#pragma once

#include "Database.h"
#include "OutdatedSets.h"
#include "StoreWrites.h"
#include "WBStore.h"

#include <string>
#include <vector>

namespace wb
{
/// Writes one user's pending changes, none of which conflicts, inside a transaction that the caller
/// commits.
class PendingSave
{
public:
    PendingSave(const Store& store, Database& database);

    /// Throws StoreError where a value cannot be stated any more. Call it once.
    void Run(const std::string& user, const std::vector<PendingState>& changes);

private:
    using Changes = std::vector<const PendingState*>;

    void SavePart(RowId row, const Changes& changes);
    void SaveUse(RowId row, const Changes& changes);
    static std::vector<std::string> RestatedSets(const Changes& changes);

    const Store& m_store;
    Database& m_database;
    OutdatedSets m_outdated;
    PartWriter m_writer;
    std::vector<ChangedFact> m_facts;
};

/// Throws StoreError where the sentence is not empty.
void RefuseValue(const Database& database, const std::string& subject, const std::string& sentence);
} // namespace wb
