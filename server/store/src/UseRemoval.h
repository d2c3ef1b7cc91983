#pragma once

#include "Database.h"
#include "ImportErrors.h"
#include "KnownParts.h"
#include "WBStore.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace wb
{
/// Makes the structure below a product root that of a table: takes away the stored uses that the
/// table lacks, in the root and in every assembly that the table places below it. An assembly that
/// leaves the product keeps what is below it.
class UseRemoval
{
public:
    UseRemoval(Store& store, Database& database, const KnownParts& known, const Product& product,
               const std::string& root);

    /// What keeps the table from replacing anything goes to the errors.
    void Run(ImportErrors& errors);

    /// What was removed, as the history tells it.
    const std::vector<ChangedFact>& Removed() const { return m_removed; }
    /// The parents that lost uses, once for each.
    const std::vector<RowId>& Bereft() const { return m_bereft; }
    /// Parts that lost their last use, as "identifier version"; to be asked when the uses of the
    /// table are stored.
    std::vector<std::string> ReleasedParts();
    /// Product roots, other than the replaced one, that share an assembly which lost uses.
    std::vector<std::string> BereftRoots();

private:
    struct StoredUseLine
    {
        RowId id;
        std::string instance;
        RowId part;
    };

    std::vector<std::uint32_t> RootsToReplace(ImportErrors& errors);
    std::string UserOf(std::uint32_t part);
    std::vector<StoredUseLine> StoredUsesOf(RowId parent);
    void Remove(const StoredUseLine& use, RowId parent, const Part& named);

    Store& m_store;
    Database& m_database;
    const KnownParts& m_known;
    const Product& m_product;
    const std::string& m_root;
    const std::vector<std::vector<std::uint32_t>> m_usesBelow; // per part of the product
    std::vector<ChangedFact> m_removed;
    std::vector<RowId> m_bereft;
    std::set<RowId> m_released; // parts whose uses were removed
};
} // namespace wb
