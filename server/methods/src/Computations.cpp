#include "Computations.h"

#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <array>
#include <utility>
#include <vector>

namespace wb
{
namespace
{
/// Positions in Inertia in the order of the answer: xx, yy, zz, yz, xz, xy.
constexpr std::array<std::size_t, 6> kInertiaOrder{0, 1, 2, 5, 4, 3};

void AddMaterials(AnswerText& answer, const std::vector<MaterialShare>& materials)
{
    answer.Add(materials.size());
    for (const MaterialShare& share : materials) {
        answer.Add(share.material);
    }
    for (const MaterialShare& share : materials) {
        answer.Add(static_cast<int>(share.dimension)).Add(share.density);
    }
    for (const MaterialShare& share : materials) {
        answer.Add(share.mass);
    }
}

std::string AnswerOf(const ComputeResult& result)
{
    const Body& body = result.total.body;
    AnswerText answer;
    answer.Add(body.mass).Add(body.lower).Add(body.upper);
    for (const double coordinate : body.centre) {
        answer.Add(coordinate);
    }
    for (const std::size_t position : kInertiaOrder) {
        answer.Add(body.inertia[position]);
    }
    AddMaterials(answer, result.statistics.materials);
    answer.Add(result.statistics.massTypes.size());
    for (const NamedShare& share : result.statistics.massTypes) {
        answer.Add(share.name).Add(share.mass);
    }
    return answer.Take();
}

void CheckIsRoot(ComputeOptions::Asked asked)
{
    if (asked != ComputeOptions::Asked::Root) {
        const char* entity = asked == ComputeOptions::Asked::Node ? "0" : "2";
        throw RequestError(std::string("The field entity of the request holds \"") + entity +
                           "\", expected 1, the root.");
    }
}

/// What a user reads behind an answer. Where nothing has a mass, the zeros are no result at all.
std::string WarningsOf(const ComputeResult& result)
{
    std::string text = WarningText(result.warnings);
    const Counts& counts = result.total.counts;
    if (counts.leaves > 0.0 && counts.withoutMass == counts.leaves) {
        text += "\nERROR: nothing in this product has a mass of this kind.";
    }
    return text;
}

void Report(const CallContext& context, double done, std::string_view what)
{
    if (context.progress) {
        context.progress(done, what);
    }
}

} // namespace

AskedPath PathTo(const ProductGraph& graph, const PickedPart& picked)
{
    if (!graph.Error().empty()) {
        throw RequestError(graph.Error());
    }
    std::vector<std::string> instances;
    for (const UseLine& use : picked.uses) {
        instances.push_back(use.instance);
    }
    auto path = graph.FindPath(0, instances);
    if (!path) {
        throw RequestError("The product has changed meanwhile: it no longer holds \"" +
                           picked.uses.back().instance + "\" there.");
    }
    return std::move(*path);
}

const ProductGraph& Computations::GraphOf(RowId root, ComputationRequest::Policy policy,
                                          const CallContext& context)
{
    // Asked before the product is read: a change in between costs one more reading, later.
    const std::int64_t changeNumber = m_store.ChangeNumber(root);
    const auto found = m_residents.find(root);
    if (found != m_residents.end() && found->second.changeNumber == changeNumber &&
        policy != ComputationRequest::Policy::Force) {
        return *found->second.graph;
    }
    Report(context, 0.0, "reading the product");
    auto graph = std::make_unique<ProductGraph>(m_store.ReadProduct(root), m_store.MassTypes());
    return *(m_residents[root] = {changeNumber, std::move(graph)}).graph;
}

ComputeResult Computations::ComputeAt(const PickedPart& picked, const ComputationRequest& request,
                                      const CallContext& context)
{
    const ProductGraph& graph = GraphOf(picked.root.id, request.policy, context);
    Report(context, 0.5, "summing up");
    CheckMassType(graph, request.options);
    ComputeOptions options = request.options;
    options.cancelled = [&context] {
        return context.cancel != nullptr && *context.cancel;
    };
    ComputeResult result = Compute(graph, PathTo(graph, picked), options);
    if (!result.error.empty()) {
        throw RequestError(result.error);
    }
    return result;
}

KeptComputed Computations::ComputedBelow(const PickedPart& picked, const CallContext& context)
{
    ComputationRequest request;
    request.options.derived = true;
    request.options.validate = false;
    ComputeResult result = ComputeAt(picked, request, context);
    return {result.total, std::move(result.statistics), true};
}

std::string Computations::ComputeValues(std::string_view text, const CallContext& context)
{
    ForgetWarnings(context.user);
    const ComputationRequest request = ReadComputationRequest(text);
    CheckIsRoot(request.options.asked);
    const auto root = m_store.FindRoot(request.root);
    if (!root) {
        throw RequestError("The field root of the request names \"" + request.root +
                           "\", which is no product root of the database.");
    }
    const ComputeResult result = ComputeAt({*root, {}, {}}, request, context);
    KeepWarnings(context.user, result);
    return AnswerOf(result);
}

void Computations::KeepWarnings(const std::string& user, const ComputeResult& result)
{
    ForgetWarnings(user);
    const std::string warnings = WarningsOf(result);
    if (!warnings.empty()) {
        m_warnings[user] = warnings;
    }
}

std::string Computations::TakeWarnings(const std::string& user)
{
    const auto found = m_warnings.find(user);
    if (found == m_warnings.end()) {
        return {};
    }
    std::string text = std::move(found->second);
    m_warnings.erase(found);
    return text;
}
} // namespace wb
