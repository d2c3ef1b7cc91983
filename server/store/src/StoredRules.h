#pragma once

#include "Database.h"
#include "ImportErrors.h"
#include "WBStore.h"

#include <vector>

namespace wb
{
/// Rules that a table keeps by itself and may break together with what is stored: nothing below a
/// single part, negative masses for adjustments alone, no part inside itself.
class StoredRules
{
public:
    StoredRules(Store& store, Database& database, const Product& product, ImportErrors& errors)
        : m_store(store), m_database(database), m_product(product), m_errors(errors)
    {}

    /// A new use below a part that is stored.
    void CheckParent(const Use& use);
    /// A stored part of that row, as the table states it and as it would become.
    void CheckPart(const Part& stated, const Part& merged, RowId row);
    /// All uses, when they are stored. partIds: the rows of the product's parts.
    void CheckCycles(const std::vector<RowId>& partIds);

private:
    bool HasUses(RowId part);
    bool HasNegativeMass(const Part& merged, RowId row);
    bool Asks(const char* sql, RowId id);

    Store& m_store;
    Database& m_database;
    const Product& m_product;
    ImportErrors& m_errors;
};
} // namespace wb
