#include "Computations.h"

#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <array>
#include <utility>

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
} // namespace

const ProductGraph& Computations::GraphOf(RowId root, ComputationRequest::Policy policy)
{
    // Asked before the product is read: a change in between costs one more reading, later.
    const std::int64_t changeNumber = m_store.ChangeNumber(root);
    const auto found = m_residents.find(root);
    if (found != m_residents.end() && found->second.changeNumber == changeNumber &&
        policy != ComputationRequest::Policy::Force) {
        return *found->second.graph;
    }
    auto graph = std::make_unique<ProductGraph>(m_store.ReadProduct(root), m_store.MassTypes());
    return *(m_residents[root] = {changeNumber, std::move(graph)}).graph;
}

std::string Computations::ComputeValues(std::string_view text, const CallContext& context)
{
    ForgetWarnings(context.user);
    ComputationRequest request = ReadComputationRequest(text);
    CheckIsRoot(request.options.asked);
    const auto root = m_store.FindRoot(request.root);
    if (!root) {
        throw RequestError("The field root of the request names \"" + request.root +
                           "\", which is no product root of the database.");
    }
    const auto report = [&](double done, std::string_view what) {
        if (context.progress) {
            context.progress(done, what);
        }
    };
    report(0.0, "reading the product");
    const ProductGraph& graph = GraphOf(root->id, request.policy);
    report(0.5, "summing up");
    ComputeOptions& options = request.options;
    CheckMassType(graph, options);
    options.cancelled = [&context] {
        return context.cancel != nullptr && *context.cancel;
    };
    const ComputeResult result = Compute(graph, {0, {}}, options);
    if (!result.error.empty()) {
        throw RequestError(result.error);
    }
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
