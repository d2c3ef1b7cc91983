#pragma once

#include "Selection.h"
#include "WBBody.h"
#include "WBKeptSum.h"
#include "WBProductGraph.h"

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace wb
{
/// Which of the values that a node states count.
struct WalkRule
{
    enum class Precision : std::uint8_t
    {
        Active,
        MostPrecise,
        Computed, // active values of the leaves, nothing imposed above them
        Specified // one mass type alone
    };

    Precision precision = Precision::Active;
    std::int32_t type = -1; // the specified one
    bool orActive = false;  // a leaf without the specified type takes its active values

    bool operator==(const WalkRule&) const = default;
};

/// How the asked node is treated, where that differs from what the rule says of any node.
struct AskedRule
{
    enum class Kind : std::uint8_t
    {
        AsElsewhere,
        Descend, // what is below, whatever the node says of itself
        Alone,   // its own values, nothing below
        Derived  // what this program derives: the sum below, or size times density
    };

    Kind kind = Kind::AsElsewhere;
    bool ownClaims = false; // claims stand for those of the graph
    std::vector<Claim> claims;
    std::int32_t material = -1; // the one that the claims were made with

    bool IsSpecial() const { return kind != Kind::AsElsewhere || ownClaims; }
};

/// What the sum of a node holds beside the bodies that have a centre. Negative masses add up by
/// themselves, so that nothing cancels before the end. A mass without centre stands at the centre
/// of the rest of whatever node is asked, so it waits until that is known.
struct ApartSum
{
    Body taken;              // negative masses with a centre
    Body loose;              // masses without one; its centre says nothing
    bool looseLacks = false; // some of those have no inertia either
};

/// Who gave a set what it lacked.
constexpr std::int16_t kNobody = -1;
constexpr std::int16_t kSumBelow = -2; // the active sum of what is below; else a mass type

struct NodeResult
{
    enum class Outcome : std::uint8_t
    {
        Descended,
        Taken,
        Missing
    };

    Body body;                    // of what has a centre and no negative mass
    const Claim* claim = nullptr; // where the walk stopped
    std::int32_t apart = -1;      // position of the ApartSum; -1: nothing stands apart
    std::int32_t below = -1;      // position of the sum below a node whose own values were taken
    std::int16_t centreLender = kNobody;
    std::int16_t inertiaLender = kNobody;
    Outcome outcome = Outcome::Descended;
    bool massMissing = false; // of this leaf or of one below
    bool noCentre = false;    // of the values taken, after completion
    bool noInertia = false;
    bool fellBack = false;          // took its active values since the specified ones are missing
    bool cut = false;               // own values do not count since the filter leaves something out
    bool activeWithoutMass = false; // an assembly whose active values have no mass
    bool isKept = false;            // what is below was taken as it was kept
    bool isStale = false;           // something stale is in these figures

    /// True where what stands below was looked at and counts.
    bool Descends() const { return outcome == Outcome::Descended && !isKept; }
};

using KeptSums = std::unordered_map<std::uint32_t, KeptSum>; // by part

struct Completed;

/// The results of all selected nodes, each made once, in its own axes.
class Walk
{
public:
    /// What a walk may take over instead of making it, and what it leaves behind.
    struct Sources
    {
        const Walk* shared = nullptr;   // results of the graph's own nodes by the same rule
        const KeptSums* kept = nullptr; // taken below the graph's own nodes
        std::vector<Body>* activeBelow = nullptr; // gets the sum below each part
        std::function<bool()> cancelled = {}; // true: the walk ends where it is and is of no use
    };

    Walk(const Selection& selection, const WalkRule& rule, const AskedRule& asked,
         const Sources& sources);

    const NodeResult& At(std::uint32_t number) const;
    /// Empty where nothing stands apart.
    const ApartSum& ApartOf(std::uint32_t number) const;
    /// The sum below a node whose own values were taken.
    const Body& BelowOf(std::uint32_t number) const;
    /// The sum that was taken below a node as it was kept.
    const KeptSum& KeptBelow(const Selection& selection, std::uint32_t number) const;
    /// The node's sum; unknown figures are unknown.
    Body Total(std::uint32_t number) const;

    struct Below
    {
        Body body;
        ApartSum apart;
        bool hasApart = false;
        bool massMissing = false;
        bool isStale = false;
    };
    /// What stands below a node whose children have their results, summed up anew.
    Below SumBelow(const Selection& selection, std::uint32_t number) const;

private:
    const Walk& Holder(std::uint32_t number) const;
    void Evaluate(const Selection& selection, const WalkRule& rule, const AskedRule& asked,
                  std::uint32_t number);
    Below BelowAt(const Selection& selection, std::uint32_t number, bool isKept) const;
    void TakeClaim(NodeResult& result, const Completed& completed);
    void KeepApart(NodeResult& result, const ApartSum& apart);

    const Sources m_sources;
    std::uint32_t m_graphNodes;
    std::vector<NodeResult> m_results; // without shared results: of all; else of the own nodes
    std::vector<ApartSum> m_aparts;
    std::vector<Body> m_belows;
    mutable BodySum m_firm; // kept between nodes: making one costs more than most sums
    mutable BodySum m_taken;
};

/// Everything together, where a mass without centre stands at the centre of the rest. Without any
/// mass, or without a centre, those figures are unknown. Where nothing has a centre, everything
/// stands at one point that nobody knows, so the inertia about it is known if that of each is.
Body Finished(const Body& firm, const ApartSum& apart);

/// What stands apart in a sum that was kept.
ApartSum ApartIn(const KeptSum& sum);
} // namespace wb
