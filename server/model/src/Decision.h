#pragma once

#include "Walk.h"

#include <span>

namespace wb
{
/// What the walk does at a node.
struct Decision
{
    NodeResult::Outcome outcome = NodeResult::Outcome::Descended;
    const Claim* claim = nullptr; // of a node whose values are taken
    bool fellBack = false;
    bool activeWithoutMass = false;
};

/// What a node knows of itself when it is decided about.
struct NodeState
{
    std::span<const Claim> claims; // the most mature first
    std::int32_t active = -1;      // mass type; -1: Computed
    bool isLeaf = false;
    bool massMissingBelow = false;
};

Decision Decide(const NodeState& node, const WalkRule& rule, const std::vector<MassType>& types);

/// The asked node: the rule, unless it is treated in a way of its own.
Decision DecideAsked(const NodeState& node, const WalkRule& rule, AskedRule::Kind kind,
                     const std::vector<MassType>& types);
} // namespace wb
