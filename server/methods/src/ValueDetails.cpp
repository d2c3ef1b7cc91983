#include "Computations.h"
#include "Methods.h"
#include "PartComputation.h"
#include "PickedNode.h"
#include "Request.h"
#include "WBLenders.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

/// Where a figure comes from.
enum class Origin
{
    Unknown = 0,
    Stated = 1,
    Sized = 2, // size times density
    Lent = 3,  // stated by another set, which completes this one in sums
    Summed = 4
};

enum class PrecisionOrigin
{
    None = 0,
    Stated = 1,
    Default = 2 // of the mass type
};

constexpr std::array kSigmas{Fact::SigmaMass, Fact::SigmaCgX, Fact::SigmaCgY, Fact::SigmaCgZ,
                             Fact::SigmaIxx,  Fact::SigmaIyy, Fact::SigmaIzz, Fact::SigmaIxy,
                             Fact::SigmaIxz,  Fact::SigmaIyz};

/// What is told of one set of values.
struct SetDetails
{
    std::string name;
    Origin mass = Origin::Unknown;
    Origin centre = Origin::Unknown;
    Origin inertia = Origin::Unknown;
    Lenders lenders;
    PrecisionOrigin precision = PrecisionOrigin::None;
    ValueSet set; // sigmas and source
    std::optional<Inertia> known;
};

Origin StatedOr(bool isStated, const std::string& lender)
{
    if (isStated) {
        return Origin::Stated;
    }
    return lender.empty() ? Origin::Unknown : Origin::Lent;
}

PrecisionOrigin PrecisionOf(const ValueSet& set)
{
    if (set.Has(Fact::Lower) || set.Has(Fact::LowerPct)) {
        return PrecisionOrigin::Stated;
    }
    return set.Has(Fact::Mass) ? PrecisionOrigin::Default : PrecisionOrigin::None;
}

SetDetails DetailsOf(const Node& node, const ProductGraph& graph, std::uint32_t graphNode,
                     const std::string& massType)
{
    SetDetails details;
    details.name = massType;
    const ValueSet* stated = node.Sets().Find(massType);
    if (stated == nullptr) {
        return details;
    }
    details.set = node.CompleteSet(massType);
    details.lenders = LendersOf(graph, graphNode, massType);
    if (details.set.Has(Fact::Mass)) {
        details.mass = SizedBy(*stated) ? Origin::Sized : Origin::Stated;
    }
    details.centre = StatedOr(details.set.HasCentre(), details.lenders.centre);
    details.inertia = StatedOr(details.set.HasInertia(), details.lenders.inertia);
    details.precision = PrecisionOf(details.set);
    if (details.set.HasInertia()) {
        const ValueSet& set = details.set;
        details.known = {set[Fact::Ixx], set[Fact::Iyy], set[Fact::Izz],
                         set[Fact::Ixy], set[Fact::Ixz], set[Fact::Iyz]};
    }
    return details;
}

/// Computed where one of the asked node's own sets was taken: that set's figures.
void TakeFrom(const ComputeResult& result, const SetDetails& taken, SetDetails& computed)
{
    computed.mass = taken.mass;
    computed.lenders = {result.centreFrom, result.inertiaFrom};
    const auto origin = [](bool isKnown, const std::string& lender) {
        return isKnown ? StatedOr(lender.empty(), lender) : Origin::Unknown;
    };
    computed.centre = origin(result.total.HasCentre(), result.centreFrom);
    computed.inertia = origin(result.total.HasInertia(), result.inertiaFrom);
    computed.precision = taken.precision;
}

SetDetails ComputedDetails(const ComputeResult& result, const SetDetails* taken)
{
    SetDetails computed;
    computed.name = Common::Computed;
    const Total& total = result.total;
    if (!total.HasMass() || total.counts.leaves == 0.0) {
        return computed;
    }
    if (taken != nullptr) {
        TakeFrom(result, *taken, computed);
    } else {
        computed.mass = Origin::Summed;
        computed.centre = total.HasCentre() ? Origin::Summed : Origin::Unknown;
        computed.inertia = total.HasInertia() ? Origin::Summed : Origin::Unknown;
    }
    if (result.precisionDefined) {
        computed.precision = PrecisionOrigin::Stated;
    }
    if (total.HasInertia()) {
        computed.known = total.body.inertia;
    }
    return computed;
}

void AddSet(AnswerText& answer, const SetDetails& details)
{
    answer.Add(details.name);
    for (const Origin origin : {details.mass, details.centre, details.inertia}) {
        answer.Add(static_cast<int>(origin));
    }
    answer.Add(details.lenders.centre).Add(details.lenders.inertia);
    answer.Add(static_cast<int>(details.precision));
    for (const Fact sigma : kSigmas) {
        answer.AddFigure(details.set[sigma]);
    }
    answer.Add(details.set.source)
        .Add(WireDate(details.set.sourceDate))
        .Add(details.set.author)
        .Add(details.set.note);
    std::array<double, 3> principal{kUnknown, kUnknown, kUnknown};
    if (details.known) {
        principal = PrincipalMoments(*details.known);
    }
    for (const double moment : principal) {
        answer.AddFigure(moment);
    }
}

void AddCoverage(AnswerText& answer, const Counts& counts)
{
    answer.Add(counts.leaves)
        .Add(counts.withoutMass)
        .Add(counts.massWithoutCentre)
        .Add(counts.massWithoutInertia);
}

void AddShares(AnswerText& answer, const Statistics& statistics)
{
    for (const auto* shares : {&statistics.codes, &statistics.massTypes}) {
        answer.Add(shares->size());
        for (const NamedShare& share : *shares) {
            answer.Add(share.name).Add(share.mass);
        }
    }
    answer.Add(statistics.growthAllowance);
}

void AddTwelve(AnswerText& answer, const Body& body)
{
    answer.AddFigure(body.mass).AddFigure(body.lower).AddFigure(body.upper);
    for (const double coordinate : body.centre) {
        answer.AddFigure(coordinate);
    }
    for (const double term : body.inertia) {
        answer.AddFigure(term);
    }
}

/// own: the node as it counts in sums. What is below it is told as the computation has it, which
/// may rest on sums that are no longer up to date.
void AddImposed(AnswerText& answer, const ComputeResult& own, const Body& below)
{
    answer.Add(own.imposed.has_value());
    if (own.imposed) {
        answer.Add(own.takenType);
        AddTwelve(answer, own.total.body);
        AddTwelve(answer, below);
        AddTwelve(answer, Difference(own.total.body, below));
    }
}

void AddUncertainty(AnswerText& answer, const ComputeResult& result)
{
    const bool isTold = result.uncertainty && result.total.HasMass();
    answer.Add(isTold);
    if (!isTold) {
        return;
    }
    const Uncertainty& uncertainty = *result.uncertainty;
    answer.AddFigure(uncertainty.mass);
    for (const double coordinate : uncertainty.centre) {
        answer.AddFigure(coordinate);
    }
    // An inertia that nobody stated is summed up as that of a point, without any error.
    for (const double term : uncertainty.inertia) {
        answer.AddFigure(result.total.HasInertia() ? term : kUnknown);
    }
    answer.AddFigure(uncertainty.shareUnstated);
}

/// What was computed, and how the asked node counts in sums, where its own values may stand for
/// what is below it.
struct Findings
{
    ComputeResult computed;
    ComputeResult own;
};

/// The same node as it counts in sums: by its own choices of density and material and with its own
/// deviations.
ComputeResult OwnOf(Computations& computations, const PickedPart& asked,
                    const ComputationRequest& request, const CallContext& context)
{
    ComputationRequest own;
    own.options.precision = request.options.precision;
    own.options.massType = request.options.massType;
    own.options.asked = request.options.asked;
    own.options.filter = request.options.filter;
    own.options.validate = false;
    return computations.ComputeAt(asked, own, context);
}

Findings ComputeShown(Computations& computations, const PickedPart& asked,
                      ComputationRequest request, const CallContext& context)
{
    // The client computed it just before; what was read anew then is in memory.
    if (request.policy == ComputationRequest::Policy::Force) {
        request.policy = ComputationRequest::Policy::Check;
    }
    // Uncertainties come from the leaves, which nobody looks at who assumes that sums hold.
    request.options.uncertainty = request.policy != ComputationRequest::Policy::Assume;
    Findings findings;
    findings.computed = computations.ComputeAt(asked, request, context);
    findings.own = OwnOf(computations, asked, request, context);
    return findings;
}

/// What the record holds before anybody computes: of a leaf nothing, of an assembly the sum of what
/// is below by active values.
Findings FindStored(Computations& computations, const PickedPart& place, const CallContext& context)
{
    Findings findings;
    if (!place.Part().hasUses) {
        return findings;
    }
    ComputationRequest request;
    request.options.derived = true;
    const KeptComputed kept = computations.ComputedBelow(place, context);
    if (kept.upToDate) {
        return ComputeShown(computations, place, request, context);
    }
    findings.computed.total = kept.total;
    findings.computed.statistics = kept.statistics;
    findings.computed.warnings = {"the values were computed before something below was changed"};
    findings.own = OwnOf(computations, place, request, context);
    return findings;
}

/// All that is stated. An assembly's product is in memory, since its sum was asked for.
std::vector<SetDetails> SetsOf(const MethodCall& call, const Node& node)
{
    const std::unique_ptr<ProductGraph> leaf = node.IsLeaf() ? GraphOfLeaf(node) : nullptr;
    const ProductGraph& graph =
        leaf ? *leaf
             : call.computations.GraphOf(node.picked.root.id, ComputationRequest::Policy::Check,
                                         call.context);
    const std::uint32_t graphNode = leaf ? static_cast<std::uint32_t>(graph.Nodes().size() - 1)
                                         : graph.NodeAt(PathTo(graph, node.picked));
    std::vector<SetDetails> sets;
    for (const MassType& type : node.types) {
        sets.push_back(DetailsOf(node, graph, graphNode, type.name));
    }
    return sets;
}
} // namespace

std::string GetValueDetails(const MethodCall& call, std::string_view text)
{
    const bool isShown = Request(text).Flag("shown");
    constexpr std::size_t kFlag = 2;
    const ComputationRequest request =
        ReadComputationRequest(text.substr(std::min(kFlag, text.size())));
    const PartComputation computation = FindComputation(call.store, request);
    const PickedPart place = FindPlace(call.store, request);
    const Findings findings = isShown ? ComputeShown(call.computations, computation.asked,
                                                     computation.request, call.context)
                                      : FindStored(call.computations, place, call.context);
    const Node node = ReadNode(call.store, place);
    const std::vector<SetDetails> sets = SetsOf(call, node);
    const auto taken = std::ranges::find_if(
        sets, [&](const SetDetails& set) { return set.name == findings.computed.takenType; });
    AnswerText answer;
    answer.Add(node.part.ShownName()).Add(sets.size() + 1);
    AddSet(answer, ComputedDetails(findings.computed, taken == sets.end() ? nullptr : &*taken));
    for (const SetDetails& set : sets) {
        AddSet(answer, set);
    }
    AddCoverage(answer, findings.computed.total.counts);
    AddShares(answer, findings.computed.statistics);
    AddImposed(answer, findings.own, findings.computed.total.body);
    AddUncertainty(answer, findings.computed);
    answer.Add(findings.computed.warnings.size());
    for (const std::string& warning : findings.computed.warnings) {
        answer.Add(warning);
    }
    return answer.Take();
}
} // namespace wb
