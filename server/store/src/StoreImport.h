#pragma once

#include "Database.h"
#include "ImportErrors.h"
#include "KnownParts.h"
#include "OutdatedSets.h"
#include "PartMerge.h"
#include "StoreWrites.h"
#include "StoredRules.h"
#include "UseRemoval.h"
#include "WBStore.h"

#include <cstdint>
#include <vector>

namespace wb
{
/// One import: everything is compared and written inside one transaction, which the caller commits
/// when nothing was wrong.
class StoreImport
{
public:
    StoreImport(Store& store, Database& database, const Product& product,
                const ImportOptions& options);

    /// Call it once.
    ImportOutcome Run();
    /// Afterwards: whether the database holds anything that it did not hold before.
    bool Changes() const { return m_changes; }

private:
    void ImportMaterials();
    void TouchUsersOf(RowId material);
    void ImportParts();
    void ImportKnownPart(const Part& part, RowId row);
    void ImportUses();
    void ImportUse(const Use& use);
    void ImportKnownUse(const Use& use, const UseLine& known);
    void ListUnusedParts();
    bool IsUsed(RowId part);

    Store& m_store;
    Database& m_database;
    const Product& m_product;
    const ImportOptions& m_options;
    ImportErrors m_errors;
    ImportCounts m_counts;
    KnownParts m_known;
    PartMerge m_merge;
    StoredRules m_rules;
    UseRemoval m_removal;
    PartWriter m_writer;
    OutdatedSets m_outdated;
    std::int64_t m_changeNumber = 0;
    std::vector<RowId> m_partIds; // per part of the product
    std::vector<bool> m_isNew;    // per part of the product
    bool m_materialsChanged = false;
    bool m_changes = false;
};
} // namespace wb
