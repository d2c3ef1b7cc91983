#include "Computations.h"

#include "KeptSums.h"
#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

#include <algorithm>
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
    if (result.total.counts.IsWithoutAnyMass()) {
        text += "\nERROR: nothing that was asked for has a mass of this kind.";
    }
    return text;
}

/// Which sums are made to be kept: those that are missing or stale. Once that of the asked node is
/// there, so is all that was worth keeping below it.
class Wishes
{
public:
    explicit Wishes(const std::vector<KeptLine>& lines)
    {
        for (const KeptLine& line : lines) {
            if (line.upToDate) {
                m_there.emplace(line.part, line.bytes);
            }
        }
    }

    bool IsThere(RowId part) const { return m_there.contains(part); }

    /// Asked of the nearest first. What is there counts against what a product may keep, so that
    /// its sums do not grow from one computation to the next.
    bool Wants(RowId part)
    {
        constexpr std::int64_t kMostBytes = 16000000;
        const auto found = m_there.find(part);
        if (found != m_there.end()) {
            m_bytes += found->second;
            return false;
        }
        return m_bytes < kMostBytes;
    }

private:
    std::unordered_map<RowId, std::int64_t> m_there; // up to date, with their bytes
    std::int64_t m_bytes = 0;
};

std::string CodeOf(const Store& store, RowId part)
{
    return store.ReadPart(part).part.code;
}

/// The code of a part, or of the nearest one above it that has one.
std::string CodeAt(const Store& store, const PickedPart& picked)
{
    for (std::size_t i = picked.uses.size(); i-- > 0;) {
        std::string code = CodeOf(store, picked.uses[i].part.id);
        if (!code.empty()) {
            return code;
        }
    }
    return CodeOf(store, picked.root.id);
}

/// Rows as numbers of nodes where no graph is at hand: each row gets the next number.
class NextNumbers
{
public:
    std::uint32_t operator()(RowId row)
    {
        return m_numbers.try_emplace(row, static_cast<std::uint32_t>(m_numbers.size()))
            .first->second;
    }

private:
    std::unordered_map<RowId, std::uint32_t> m_numbers;
};
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

PartLine AskedRoot(const Store& store, const ComputationRequest& request)
{
    CheckIsRoot(request.options.asked);
    auto root = store.FindRoot(request.root);
    if (!root) {
        throw RequestError("The field root of the request names \"" + request.root +
                           "\", which is no product root of the database.");
    }
    return *std::move(root);
}

const ResidentProduct& Computations::ProductOf(RowId root, ComputationRequest::Policy policy,
                                               const CallContext& context)
{
    return m_products.Of(root, policy == ComputationRequest::Policy::Force, m_pendingNumber,
                         context);
}

bool Computations::IsKept(const ComputeOptions& options) const
{
    return !options.definedPrecision && !options.orActive && m_pendingNumber == 0;
}

std::unordered_map<std::uint32_t, KeptSum>
Computations::StaleSums(const ResidentProduct& product, const std::string& key,
                        const std::vector<KeptLine>& lines) const
{
    // What is up to date equals what is made now, so only the stale ones make a difference.
    if (std::ranges::all_of(lines, &KeptLine::upToDate)) {
        return {};
    }
    const ProductGraph& graph = *product.graph;
    std::unordered_map<RowId, std::uint32_t> nodes;
    for (const RowId row : product.rows) {
        nodes.emplace(row, static_cast<std::uint32_t>(nodes.size()));
    }
    const auto nodeOf = [&](RowId row) {
        // What is no longer there gets the numbers behind.
        return nodes.try_emplace(row, static_cast<std::uint32_t>(nodes.size())).first->second;
    };
    std::unordered_map<std::uint32_t, KeptSum> sums;
    for (const KeptLine& line : lines) {
        const auto node = nodes.find(line.part);
        // A standard part is never stale.
        if (line.upToDate || node == nodes.end() || node->second >= graph.Parts().size() ||
            graph.Parts()[node->second].standard) {
            continue;
        }
        const auto kept = m_store.FindKept(line.part, key);
        auto sum = kept ? ReadSum(kept->result, nodeOf) : std::nullopt;
        if (sum) {
            sum->isStale = true;
            sums.emplace(node->second, std::move(*sum));
        }
    }
    return sums;
}

Computations::Computation Computations::Make(const PickedPart& picked,
                                             const ComputationRequest& request,
                                             const CallContext& context)
{
    using Policy = ComputationRequest::Policy;
    CheckMassType(m_store.MassTypes(), request.options);
    ResidentProduct& product =
        m_products.Of(picked.root.id, request.policy == Policy::Force, m_pendingNumber, context);
    // A material that nothing of the product is made of can be tried all the same.
    if (const auto material = m_store.FindMaterial(request.options.material)) {
        product.graph->AddMaterial(*material);
    }
    Report(context, 0.5, "summing up");
    ComputeOptions options = request.options;
    options.cancelled = [&] {
        return IsCancelled(context);
    };
    const std::string key = SumKey(options);
    const std::vector<KeptLine> lines =
        m_pendingNumber == 0 ? m_store.KeptLines(key) : std::vector<KeptLine>();
    std::unordered_map<std::uint32_t, KeptSum> stale;
    if (request.policy == Policy::Assume) {
        stale = StaleSums(product, key, lines);
        options.kept = &stale;
        options.level = request.level;
    }
    const ProductGraph& graph = *product.graph;
    const AskedPath path = PathTo(graph, picked);
    const bool isRoot = options.asked == ComputeOptions::Asked::Root;
    const RowId asked = product.rows[graph.Nodes()[graph.NodeAt(isRoot ? AskedPath() : path)].part];
    Wishes wishes(request.policy == Policy::Force ? std::vector<KeptLine>() : lines);
    if (IsKept(options) && !wishes.IsThere(asked)) {
        options.wantsSum = [&](std::uint32_t part) {
            return wishes.Wants(product.rows[part]);
        };
    }

    Computation computation;
    computation.changeNumber = product.changeNumbers.front();
    computation.result = Compute(graph, path, options);
    const ComputeResult& result = computation.result;
    if (!result.error.empty()) {
        throw RequestError(result.error);
    }
    for (const ComputeResult::MadeSum& made : result.sums) {
        computation.kept.push_back(
            {product.rows[made.part], key, product.changeNumbers[made.part],
             WriteSum(made.sum, [&](std::uint32_t node) { return product.rows[node]; })});
    }
    return computation;
}

ComputeResult Computations::ComputeAt(const PickedPart& picked, const ComputationRequest& request,
                                      const CallContext& context)
{
    Computation computation = Make(picked, request, context);
    m_store.Keep(computation.kept, context.user);
    return std::move(computation.result);
}

KeptComputed Computations::ComputedBelow(const PickedPart& picked, const CallContext& context)
{
    ComputationRequest request;
    request.options.derived = true;
    request.options.validate = false;
    const RowId part = picked.Part().id;
    const auto kept =
        m_pendingNumber == 0 ? m_store.FindKept(part, SumKey(request.options)) : std::nullopt;
    const auto sum = kept ? ReadSum(kept->result, NextNumbers()) : std::nullopt;
    if (sum) {
        const bool upToDate = kept->changeNumber == m_store.ChangeNumber(part);
        // A standard part is never stale.
        if (upToDate || m_store.ReadPart(part).part.standard != Answer::Yes) {
            const std::string code = sum->withoutCode == 0.0 ? "" : CodeAt(m_store, picked);
            return {TotalOf(*sum), StatisticsOf(*sum, code), upToDate};
        }
    }
    ComputeResult result = ComputeAt(picked, request, context);
    return {result.total, std::move(result.statistics), true};
}

std::optional<std::string> Computations::KeptAnswer(RowId root, const ComputationRequest& request,
                                                    const CallContext& context)
{
    if (request.policy == ComputationRequest::Policy::Force || !IsKept(request.options)) {
        return std::nullopt;
    }
    const auto kept = m_store.FindKept(root, AnswerKey(request.options));
    if (!kept || kept->changeNumber != m_store.ChangeNumber(root)) {
        return std::nullopt;
    }
    auto texts = ReadTexts(kept->result);
    if (!texts) {
        return std::nullopt;
    }
    KeepWarnings(context.user, texts->warnings);
    return std::move(texts->answer);
}

std::string Computations::ComputeValues(std::string_view text, const CallContext& context)
{
    ForgetWarnings(context.user);
    const ComputationRequest request = ReadComputationRequest(text);
    const PartLine root = AskedRoot(m_store, request);
    if (auto kept = KeptAnswer(root.id, request, context)) {
        return std::move(*kept);
    }
    Computation computation = Make({root, {}, {}}, request, context);
    const ComputeResult& result = computation.result;
    std::string answer = AnswerOf(result);
    const std::string warnings = WarningsOf(result);
    if (IsKept(request.options) && !result.looksAtStale) {
        computation.kept.push_back({root.id, AnswerKey(request.options), computation.changeNumber,
                                    WriteTexts({answer, warnings})});
    }
    m_store.Keep(computation.kept, context.user);
    KeepWarnings(context.user, warnings);
    return answer;
}

void Computations::KeepWarnings(const std::string& user, const ComputeResult& result)
{
    KeepWarnings(user, WarningsOf(result));
}

void Computations::KeepWarnings(const std::string& user, const std::string& warnings)
{
    ForgetWarnings(user);
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
