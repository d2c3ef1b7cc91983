#include "Walk.h"

#include "Completion.h"
#include "Decision.h"

namespace wb
{
namespace
{
constexpr ApartSum kNothingApart{};

Body StandingAt(const ProductGraph::UseRow& use, const Body& body)
{
    Body standing = body;
    if (use.turned) {
        standing = Placed(body, use.placement);
    } else {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            standing.centre[axis] += use.placement.shift[axis];
        }
    }
    return use.pieces == 1 ? standing : Pieces(standing, use.pieces);
}

/// Adds masses that have no place: what counts of the inertia is how they are turned.
void AddLoose(Body& sum, const Body& body, const ProductGraph::UseRow& use)
{
    const Inertia turned = Turned(body.inertia, use.placement.rotation);
    const double pieces = use.pieces;
    sum.mass += pieces * body.mass;
    sum.lower += pieces * body.lower;
    sum.upper += pieces * body.upper;
    for (std::size_t term = 0; term < 6; ++term) {
        sum.inertia[term] += pieces * turned[term];
    }
}
} // namespace

Body Finished(const Body& firm, const ApartSum& apart)
{
    const bool hasTaken = apart.taken.mass != 0.0;
    Body total = hasTaken ? Merged(firm, apart.taken) : firm;
    const double placed = total.mass;
    total.mass += apart.loose.mass;
    total.lower += apart.loose.lower;
    total.upper += apart.loose.upper;
    for (std::size_t term = 0; term < 6; ++term) {
        total.inertia[term] += apart.loose.inertia[term];
    }
    const bool isNowhere = placed == 0.0;
    if (total.mass == 0.0 || (isNowhere && (apart.looseLacks || firm.mass != 0.0))) {
        total.inertia.fill(kUnknown);
    }
    if (total.mass == 0.0 || isNowhere) {
        total.centre.fill(kUnknown);
    }
    return total;
}

ApartSum ApartIn(const KeptSum& sum)
{
    // Only asked for where nothing has a centre: what lacks an inertia is loose then.
    return {sum.taken, sum.loose, sum.counts.massWithoutInertia != 0.0};
}

Walk::Walk(const Selection& selection, const WalkRule& rule, const AskedRule& asked,
           const Sources& sources)
    : m_sources(sources), m_graphNodes(static_cast<std::uint32_t>(selection.graph->Nodes().size()))
{
    constexpr std::size_t kNodesBetweenLooks = 4096;
    m_results.resize(sources.shared == nullptr ? selection.Count() : selection.own.size());
    std::size_t done = 0;
    for (const std::uint32_t number : selection.childrenFirst) {
        if (&Holder(number) == this) {
            Evaluate(selection, rule, asked, number);
        }
        if (++done % kNodesBetweenLooks == 0 && sources.cancelled && sources.cancelled()) {
            return;
        }
    }
}

const Walk& Walk::Holder(std::uint32_t number) const
{
    return m_sources.shared != nullptr && number < m_graphNodes ? *m_sources.shared : *this;
}

const NodeResult& Walk::At(std::uint32_t number) const
{
    const Walk& holder = Holder(number);
    return holder.m_results[holder.m_sources.shared == nullptr ? number : number - m_graphNodes];
}

const KeptSum& Walk::KeptBelow(const Selection& selection, std::uint32_t number) const
{
    return Holder(number).m_sources.kept->at(
        selection.graph->Nodes()[selection.GraphNode(number)].part);
}

const ApartSum& Walk::ApartOf(std::uint32_t number) const
{
    const std::int32_t apart = At(number).apart;
    return apart < 0 ? kNothingApart : Holder(number).m_aparts[static_cast<std::size_t>(apart)];
}

const Body& Walk::BelowOf(std::uint32_t number) const
{
    return Holder(number).m_belows[static_cast<std::size_t>(At(number).below)];
}

Body Walk::Total(std::uint32_t number) const
{
    return Finished(At(number).body, ApartOf(number));
}

Walk::Below Walk::BelowAt(const Selection& selection, std::uint32_t number, bool isKept) const
{
    if (!isKept) {
        return SumBelow(selection, number);
    }
    const KeptSum& kept = KeptBelow(selection, number);
    return {kept.firm, ApartIn(kept), kept.hasApart, kept.massMissing, kept.isStale};
}

Walk::Below Walk::SumBelow(const Selection& selection, std::uint32_t number) const
{
    Below below;
    m_firm.Clear();
    m_taken.Clear();
    selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
        const NodeResult& result = At(child);
        below.massMissing |= result.massMissing;
        below.isStale |= result.isStale;
        m_firm.Add(StandingAt(use, result.body));
        if (result.apart >= 0) {
            const ApartSum& apart = ApartOf(child);
            below.hasApart = true;
            m_taken.Add(StandingAt(use, apart.taken));
            AddLoose(below.apart.loose, apart.loose, use);
            below.apart.looseLacks |= apart.looseLacks;
        }
    });
    below.body = m_firm.Total();
    below.apart.taken = m_taken.Total();
    return below;
}

void Walk::KeepApart(NodeResult& result, const ApartSum& apart)
{
    result.apart = static_cast<std::int32_t>(m_aparts.size());
    m_aparts.push_back(apart);
}

void Walk::TakeClaim(NodeResult& result, const Completed& completed)
{
    Body known = completed.body;
    result.centreLender = completed.centreLender;
    result.inertiaLender = completed.inertiaLender;
    result.noCentre = !IsKnown(known.centre[0]);
    result.noInertia = !IsKnown(known.inertia[0]);
    if (result.noCentre) {
        known.centre = {};
    }
    if (result.noInertia) {
        known.inertia = {};
    }
    if (result.noCentre) {
        KeepApart(result, {{}, known, result.noInertia});
    } else if (known.mass < 0.0) {
        KeepApart(result, {known, {}, false});
    } else {
        result.body = known;
    }
}

void Walk::Evaluate(const Selection& selection, const WalkRule& rule, const AskedRule& asked,
                    std::uint32_t number)
{
    const ProductGraph& graph = *selection.graph;
    const std::uint32_t node = selection.GraphNode(number);
    const bool isAsked = number == selection.asked && asked.IsSpecial();
    NodeResult& result = m_results[m_sources.shared == nullptr ? number : number - m_graphNodes];

    NodeState state;
    state.claims =
        isAsked && asked.ownClaims ? std::span<const Claim>(asked.claims) : graph.ClaimsOf(node);
    state.active = graph.Nodes()[node].active;
    state.isLeaf = graph.PartOf(node).IsLeaf();
    Below below;
    Body sumBelow;
    if (!state.isLeaf) {
        const std::uint32_t part = graph.Nodes()[node].part;
        result.isKept =
            m_sources.kept != nullptr && !selection.IsOwn(number) && m_sources.kept->contains(part);
        below = BelowAt(selection, number, result.isKept);
        state.massMissingBelow = below.massMissing;
        sumBelow = Finished(below.body, below.apart);
        if (m_sources.activeBelow != nullptr && number < m_sources.activeBelow->size()) {
            (*m_sources.activeBelow)[number] = sumBelow;
        }
    }

    Decision decision = isAsked ? DecideAsked(state, rule, asked.kind, graph.Types())
                                : Decide(state, rule, graph.Types());
    const bool filtered = selection.IsOwn(number) && selection.Own(number).filtered;
    if (filtered && decision.outcome == NodeResult::Outcome::Taken) {
        decision = {};
        result.cut = true;
    }
    result.outcome = decision.outcome;
    result.claim = decision.claim;
    result.fellBack = decision.fellBack;
    result.activeWithoutMass = decision.activeWithoutMass;

    if (decision.outcome == NodeResult::Outcome::Missing) {
        result.massMissing = true;
    } else if (decision.outcome == NodeResult::Outcome::Descended) {
        result.massMissing = below.massMissing;
        result.isStale = below.isStale;
        result.body = below.body;
        if (below.hasApart) {
            KeepApart(result, below.apart);
        }
    } else {
        // Alone, a node has its own values and nothing below it lends any. The active sum below is
        // this walk's own where it is an active one, also where that took what was kept.
        const bool sumLends = !state.isLeaf && !(isAsked && asked.kind == AskedRule::Kind::Alone);
        const bool ownSum = m_sources.kept != nullptr && rule == WalkRule() && !filtered;
        const Body& active = ownSum ? sumBelow : graph.ActiveBelow(graph.Nodes()[node].part);
        TakeClaim(result, Complete(*decision.claim, state.claims, sumLends ? &active : nullptr,
                                   graph.Types()));
        const bool lent = result.centreLender == kSumBelow || result.inertiaLender == kSumBelow;
        // The most precise of two claims depends on whether something below has no mass.
        result.isStale = below.isStale &&
                         ((ownSum && lent) || rule.precision == WalkRule::Precision::MostPrecise);
        if (!state.isLeaf) {
            result.below = static_cast<std::int32_t>(m_belows.size());
            m_belows.push_back(sumBelow);
        }
    }
}
} // namespace wb
