#pragma once

#include "ComputationRequest.h"
#include "WBProductGraph.h"
#include "WBServer.h"
#include "WBStore.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace wb
{
/// Computes products and keeps them in memory: reading one takes far longer than summing it up. A
/// product is read again when its change number has risen, or when that is forced.
class Computations
{
public:
    /// Borrows the store.
    explicit Computations(const Store& store) : m_store(store) {}

    /// The method of the same name. Wrong input throws RequestError, a failing database StoreError.
    /// Whatever comes of it, the warnings of the user's computation before are forgotten.
    std::string ComputeValues(std::string_view request, const CallContext& context);
    /// The warnings of the user's last computation, once.
    std::string TakeWarnings(const std::string& user);
    /// What the user's computation had to say, in place of what the one before said.
    void KeepWarnings(const std::string& user, const ComputeResult& result);
    void ForgetWarnings(const std::string& user) { m_warnings.erase(user); }

    /// The product below a root, in memory. Good until the next call.
    const ProductGraph& GraphOf(RowId root, ComputationRequest::Policy policy);

private:
    struct Resident
    {
        std::int64_t changeNumber = 0;
        std::unique_ptr<ProductGraph> graph;
    };

    const Store& m_store;
    std::unordered_map<RowId, Resident> m_residents;
    std::unordered_map<std::string, std::string> m_warnings; // by user
};
} // namespace wb
