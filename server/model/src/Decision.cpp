#include "Decision.h"

#include "Completion.h"

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;
using Precision = WalkRule::Precision;

const Claim* WithMassOf(std::span<const Claim> claims, std::int32_t type)
{
    for (const Claim& claim : claims) {
        if (static_cast<std::int32_t>(claim.type) == type && claim.HasMass()) {
            return &claim;
        }
    }
    return nullptr;
}

const Claim* MostMature(std::span<const Claim> claims, const std::vector<MassType>& types)
{
    for (const Claim& claim : claims) {
        if (claim.HasMass() && types[claim.type].kind == MassType::Kind::Claim) {
            return &claim;
        }
    }
    return nullptr;
}

Decision Stop(const Claim& claim)
{
    return {Outcome::Taken, &claim};
}

Decision DescendOrMiss(bool isLeaf)
{
    return {isLeaf ? Outcome::Missing : Outcome::Descended};
}

Decision ByActive(const NodeState& node)
{
    if (const Claim* active = WithMassOf(node.claims, node.active)) {
        return Stop(*active);
    }
    Decision decision = DescendOrMiss(node.isLeaf);
    decision.activeWithoutMass = !node.isLeaf && node.active >= 0;
    return decision;
}

Decision ByMaturity(const NodeState& node, const std::vector<MassType>& types)
{
    const Claim* best = MostMature(node.claims, types);
    if (best == nullptr) {
        return DescendOrMiss(node.isLeaf);
    }
    const bool aboveCalculated = types[best->type].order > CalculatedOrder(types);
    if (node.isLeaf || aboveCalculated || node.massMissingBelow) {
        return Stop(*best);
    }
    return {};
}

Decision ByType(const NodeState& node, const WalkRule& rule)
{
    if (const Claim* stated = WithMassOf(node.claims, rule.type)) {
        return Stop(*stated);
    }
    if (node.isLeaf && rule.orActive) {
        Decision decision = ByActive(node);
        decision.fellBack = decision.outcome == Outcome::Taken;
        return decision;
    }
    return DescendOrMiss(node.isLeaf);
}

/// What this program derives of a leaf: the set that states a size, the active one before others.
Decision BySize(const NodeState& node, const std::vector<MassType>& types)
{
    const Claim* sized = WithMassOf(node.claims, node.active);
    if (sized != nullptr && sized->followsSize) {
        return Stop(*sized);
    }
    for (const Claim& claim : node.claims) {
        if (claim.followsSize && claim.HasMass() &&
            types[claim.type].kind == MassType::Kind::Claim) {
            return Stop(claim);
        }
    }
    return ByActive(node);
}
} // namespace

Decision Decide(const NodeState& node, const WalkRule& rule, const std::vector<MassType>& types)
{
    switch (rule.precision) {
    case Precision::MostPrecise:
        return ByMaturity(node, types);
    case Precision::Specified:
        return ByType(node, rule);
    case Precision::Computed:
        return node.isLeaf ? ByActive(node) : Decision();
    case Precision::Active:
        break;
    }
    return ByActive(node);
}

Decision DecideAsked(const NodeState& node, const WalkRule& rule, AskedRule::Kind kind,
                     const std::vector<MassType>& types)
{
    switch (kind) {
    case AskedRule::Kind::Descend:
        return node.isLeaf ? Decide(node, rule, types) : Decision();
    case AskedRule::Kind::Derived:
        return node.isLeaf ? BySize(node, types) : Decision();
    case AskedRule::Kind::Alone: {
        NodeState alone = node;
        alone.isLeaf = true;
        return Decide(alone, rule, types);
    }
    case AskedRule::Kind::AsElsewhere:
        break;
    }
    return Decide(node, rule, types);
}
} // namespace wb
