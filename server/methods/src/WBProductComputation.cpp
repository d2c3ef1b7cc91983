#include "WBProductComputation.h"

#include "Computations.h"
#include "Request.h"

#include <utility>

namespace wb
{
namespace
{
PickedPart PickedAt(const ProductGraph& graph, const PartLine& root, const AskedPath& path)
{
    PickedPart picked{root, {}, {}};
    for (const std::uint32_t use : path.uses) {
        picked.uses.emplace_back().instance = graph.InstanceOf(use);
    }
    return picked;
}

ComputationRequest::Policy PolicyOf(ProductComputation::Policy policy)
{
    switch (policy) {
    case ProductComputation::Policy::Force:
        return ComputationRequest::Policy::Force;
    case ProductComputation::Policy::Assume:
        return ComputationRequest::Policy::Assume;
    default:
        return ComputationRequest::Policy::Check;
    }
}
} // namespace

ProductComputation::ProductComputation(Store& store, const PartLine& root, std::string user,
                                       Progress progress)
    : m_root(root),
      m_user(std::move(user)),
      m_progress(std::move(progress)),
      m_view(store, m_user),
      m_computations(std::make_unique<Computations>(store))
{}

ProductComputation::~ProductComputation() = default;

const ProductGraph& ProductComputation::Graph()
{
    m_computations->Begin(m_view.Number());
    return m_computations->GraphOf(m_root.id, ComputationRequest::Policy::Check,
                                   {m_user, nullptr, m_progress});
}

ComputeResult ProductComputation::Compute(const AskedPath& path, const ComputeOptions& options,
                                          Policy policy, std::int64_t level)
{
    ComputationRequest request;
    request.policy = PolicyOf(policy);
    request.level = level;
    request.options = options;
    try {
        return m_computations->ComputeAt(PickedAt(Graph(), m_root, path), request,
                                         {m_user, nullptr, m_progress});
    } catch (const RequestError& error) {
        ComputeResult failed;
        failed.error = error.what();
        return failed;
    }
}
} // namespace wb
