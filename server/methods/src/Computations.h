#pragma once

#include "ComputationRequest.h"
#include "PickedPart.h"
#include "ResidentProducts.h"
#include "WBProductGraph.h"
#include "WBServer.h"
#include "WBStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace wb
{
/// What this program derived of an assembly: the sum of what stands below it by its active values,
/// nothing left out, whatever the assembly says of itself.
struct KeptComputed
{
    Total total; // in the axes of the part
    Statistics statistics;
    bool upToDate = true; // nothing that it was summed up from has changed since
};

/// The way to a place in a product that is in memory. Throws RequestError where the product has
/// changed since the place was found, or goes round in a circle.
AskedPath PathTo(const ProductGraph& graph, const PickedPart& picked);

/// The product root of a computation that only a whole product has. Throws RequestError where
/// another entity is asked, or a root that is not there.
PartLine AskedRoot(const Store& store, const ComputationRequest& request);

/// Computes products and keeps what came of it: the answer of a whole product, and the sums below
/// its assemblies, for whoever later assumes that they hold. What is kept is derived: where it
/// cannot be written or read, it is just made again. Of what a user with pending changes asks for
/// nothing is kept, and nothing that was kept is taken for it.
class Computations
{
public:
    /// Borrows the store.
    explicit Computations(Store& store) : m_store(store), m_products(store) {}

    /// The method of the same name. Wrong input throws RequestError, a failing database StoreError.
    /// Whatever comes of it, the warnings of the user's computation before are forgotten.
    std::string ComputeValues(std::string_view request, const CallContext& context);
    /// The warnings of the user's last computation, once.
    std::string TakeWarnings(const std::string& user);
    /// What the user's computation had to say, in place of what the one before said.
    void KeepWarnings(const std::string& user, const ComputeResult& result);
    void KeepWarnings(const std::string& user, const std::string& warnings);
    void ForgetWarnings(const std::string& user) { m_warnings.erase(user); }

    /// Told at the start of every call: the number of the caller's pending changes as the call
    /// sees them, 0 where there are none.
    void Begin(std::int64_t pendingNumber) { m_pendingNumber = pendingNumber; }

    // For all methods that compute. A call that the context cancels throws RequestError.

    /// The product below a root, or below any other part, in memory; the part is number 0 there.
    /// Good until the next call.
    const ResidentProduct& ProductOf(RowId root, ComputationRequest::Policy policy,
                                     const CallContext& context);
    const ProductGraph& GraphOf(RowId root, ComputationRequest::Policy policy,
                                const CallContext& context)
    {
        return *ProductOf(root, policy, context).graph;
    }
    /// Computes a place of a product by the request's policy, level and options; the request's
    /// place and root are not looked at. What cannot be computed throws RequestError, so the
    /// result's error is empty.
    ComputeResult ComputeAt(const PickedPart& picked, const ComputationRequest& request,
                            const CallContext& context);
    /// Of an assembly: what was made last; where nothing was made yet, it is made now.
    KeptComputed ComputedBelow(const PickedPart& picked, const CallContext& context);

private:
    /// A result, and what of it is to be kept once all is well.
    struct Computation
    {
        ComputeResult result;
        std::vector<KeptResult> kept;
        std::int64_t changeNumber = 0; // of the root when the product was read
    };
    Computation Make(const PickedPart& picked, const ComputationRequest& request,
                     const CallContext& context);
    /// A precision that a request defines is typed for that one time, so its answer is not kept;
    /// what falls back to other values is no sum by the precision that the key names; and what a
    /// user has not saved is not what others shall find.
    bool IsKept(const ComputeOptions& options) const;
    std::unordered_map<std::uint32_t, KeptSum> StaleSums(const ResidentProduct& product,
                                                         const std::string& key,
                                                         const std::vector<KeptLine>& lines) const;
    std::optional<std::string> KeptAnswer(RowId root, const ComputationRequest& request,
                                          const CallContext& context);

    Store& m_store;
    ResidentProducts m_products;
    std::int64_t m_pendingNumber = 0;                        // of the present call
    std::unordered_map<std::string, std::string> m_warnings; // by user
};
} // namespace wb
