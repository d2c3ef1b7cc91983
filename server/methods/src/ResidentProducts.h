#pragma once

#include "WBProductGraph.h"
#include "WBServer.h"
#include "WBStore.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wb
{
/// A product in memory, with what leads back to the database.
struct ResidentProduct
{
    std::unique_ptr<ProductGraph> graph;
    /// Parallel to the graph's parts: their change numbers as of the moment at which it was read.
    std::vector<std::int64_t> changeNumbers;
    /// Parallel to the graph's nodes: a part by its row, a use that states something of its own by
    /// its row with the other sign.
    std::vector<RowId> rows;
    std::vector<RowId> uses; // parallel to the graph's uses: their rows
    /// Of the pending changes that are in it, as the store numbers them; 0: none.
    std::int64_t pendingNumber = 0;
    std::uint64_t lastUsed = 0;
};

/// Products that stay in memory: reading one takes far longer than summing it up.
class ResidentProducts
{
public:
    /// Borrows the store.
    explicit ResidentProducts(const Store& store) : m_store(store) {}

    /// What stands below a part, as the caller has changed it: who has pending changes gets a
    /// product of his own. It is read where it is not there, where something in it has changed, and
    /// anew in any case when that is wanted. Good until the next call. Throws RequestError when the
    /// context cancels it. pending: the number of the caller's pending changes as he sees them.
    ResidentProduct& Of(RowId root, bool anew, std::int64_t pending, const CallContext& context);

private:
    void MakeRoom();
    ResidentProduct Read(RowId root, const CallContext& context) const;

    const Store& m_store;
    /// By part, and by user where it holds pending changes of his.
    std::map<std::pair<RowId, std::string>, ResidentProduct> m_products;
    std::uint64_t m_calls = 0;
};

bool IsCancelled(const CallContext& context);
void Report(const CallContext& context, double done, std::string_view what);
} // namespace wb
