#pragma once

#include "Database.h"
#include "WBStore.h"

#include <string>
#include <vector>

namespace wb
{
/// Who changes what: the head of an entry of the history.
struct HistoryHead
{
    std::string who;
    std::string what;
    std::string subject; // as of a HistoryEntry
    std::string checksum;
};

/// Tells the history of a change and of the facts that gave way to it.
void WriteHistory(Database& database, const HistoryHead& head,
                  const std::vector<ChangedFact>& facts);

void WriteImport(Database& database, const ImportOptions& options,
                 const std::vector<ChangedFact>& facts);

/// The facts of an entry that is there.
void WriteChangedFacts(Database& database, RowId entry, const std::vector<ChangedFact>& facts);
} // namespace wb
