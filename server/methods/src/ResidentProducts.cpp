#include "ResidentProducts.h"

#include "Request.h"

#include <algorithm>
#include <utility>

namespace wb
{
namespace
{
constexpr double kShareOfReading = 0.5; // of a whole computation, as its progress shows it

std::vector<RowId> RowsOfNodes(const ProductGraph& graph, const std::vector<RowId>& parts,
                               const std::vector<RowId>& uses)
{
    std::vector<RowId> rows = parts;
    rows.resize(graph.Nodes().size());
    // A product is read parent by parent, so its uses stand in the order of the graph's.
    for (std::size_t use = 0; use < uses.size(); ++use) {
        const std::uint32_t node = graph.UseAt(static_cast<std::uint32_t>(use)).node;
        if (node >= parts.size()) {
            rows[node] = -uses[use];
        }
    }
    return rows;
}
} // namespace

bool IsCancelled(const CallContext& context)
{
    return context.cancel != nullptr && *context.cancel;
}

void Report(const CallContext& context, double done, std::string_view what)
{
    if (context.progress) {
        context.progress(done, what);
    }
}

ResidentProduct& ResidentProducts::Of(RowId root, bool anew, std::int64_t pending,
                                      const CallContext& context)
{
    const std::pair key(root, pending == 0 ? std::string() : context.user);
    const auto found = m_products.find(key);
    const bool isThere = found != m_products.end() &&
                         found->second.changeNumbers.front() == m_store.ChangeNumber(root) &&
                         found->second.pendingNumber == pending;
    if (!isThere || anew) {
        // The old one goes first: two of them may be more than memory holds.
        m_products.erase(key);
        MakeRoom();
        m_products[key] = Read(root, context);
    }
    ResidentProduct& product = m_products[key];
    product.pendingNumber = pending;
    product.lastUsed = ++m_calls;
    return product;
}

void ResidentProducts::MakeRoom()
{
    constexpr std::size_t kMost = 8; // a session works on one or two
    if (m_products.size() < kMost) {
        return;
    }
    m_products.erase(std::ranges::min_element(
        m_products, {}, [](const auto& entry) { return entry.second.lastUsed; }));
}

ResidentProduct ResidentProducts::Read(RowId root, const CallContext& context) const
{
    constexpr double kStep = 0.01; // who shows progress need not draw more often
    double told = 0.0;
    Report(context, 0.0, "reading the product");
    const auto goOn = [&](double share) {
        if (share >= told + kStep) {
            told = share;
            Report(context, share * kShareOfReading, "reading the product");
        }
        return !IsCancelled(context);
    };
    try {
        ReadProductRows read = m_store.ReadRows(root, goOn);
        // Read later than the product: a change of the mass types in between makes the product's
        // change number an old one, never the other way round.
        const std::vector<MassType> types = m_store.MassTypes();
        Report(context, kShareOfReading, "preparing the sum");
        ResidentProduct product;
        product.graph = std::make_unique<ProductGraph>(read.product, types,
                                                       [&] { return IsCancelled(context); });
        if (!product.graph->Error().empty()) {
            throw RequestError(product.graph->Error());
        }
        product.rows = RowsOfNodes(*product.graph, read.parts, read.uses);
        product.uses = std::move(read.uses);
        product.changeNumbers = std::move(read.changeNumbers);
        return product;
    } catch (const ReadingStopped&) {
        throw RequestError("The computation was cancelled.");
    }
}
} // namespace wb
