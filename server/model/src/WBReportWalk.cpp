#include "WBReportWalk.h"

#include "AskedTotal.h"
#include "ReportShares.h"
#include "Selection.h"
#include "Walk.h"

#include <algorithm>
#include <utility>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;

/// Thrown and caught in this file.
struct Cancelled
{};

constexpr std::size_t kStepsBetweenLooks = 4096;

Body Moved(const Body& body, const ReportWalk::Place& place)
{
    Body moved = body;
    if (place.isTurned) {
        moved = Placed(body, place.placement);
    } else {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            moved.centre[axis] += place.placement.shift[axis];
        }
    }
    return place.pieces == 1.0 ? moved : Pieces(moved, place.pieces);
}

/// A sum about the common centre that grows by one body at a time.
void AddTo(Body& sum, const Body& body)
{
    sum = sum == Body() ? body : Merged(sum, body);
}

/// What the stops of one code add up to.
struct SectionSum
{
    bool isMet = false;
    Body firm;
    ApartSum apart;
    Counts counts;
    double volume = 0.0;
    std::unordered_map<std::uint32_t, double> materials;
};

/// Collects the sections at the stops of the root's sum.
class SectionVisitor : public ReportVisitor
{
public:
    SectionVisitor(const Selection& selection, const Walk& walk, const ReportShares& shares,
                   bool wantsVolumes, const std::function<void()>& look)
        : m_walk(walk),
          m_shares(shares),
          m_wantsVolumes(wantsVolumes),
          m_look(look),
          m_sections(selection.graph->Codes().size() + 1)
    {}

    bool Enter(const ReportWalk::Place& place) override
    {
        if (++m_steps % kStepsBetweenLooks == 0 && m_look) {
            m_look();
        }
        const NodeResult& result = m_walk.At(place.number);
        if (result.Descends()) {
            return true;
        }
        const std::size_t behindNone =
            place.code < 0 ? 0 : static_cast<std::size_t>(place.code) + 1;
        SectionSum& section = m_sections[behindNone];
        section.isMet = true;
        section.counts.leaves += place.pieces;
        if (m_wantsVolumes) {
            section.volume += place.pieces * m_shares.VolumeOf(place.number);
        }
        if (result.outcome == Outcome::Missing) {
            section.counts.withoutMass += place.pieces;
            return false;
        }
        m_shares.AddMaterials(place.number, place.pieces, section.materials);
        const double mass = place.pieces * result.claim->body.mass;
        section.counts.massWithoutCentre += result.noCentre ? mass : 0.0;
        section.counts.massWithoutInertia += result.noInertia ? mass : 0.0;
        Add(result, place, section);
        return false;
    }
    void Leave(const ReportWalk::Place&) override {}

    /// The code with the position before it; 0: none.
    const std::vector<SectionSum>& Sections() const { return m_sections; }

private:
    void Add(const NodeResult& result, const ReportWalk::Place& place, SectionSum& section) const
    {
        if (result.apart < 0) {
            AddTo(section.firm, Moved(result.body, place));
            return;
        }
        const ApartSum& apart = m_walk.ApartOf(place.number);
        if (!result.noCentre) {
            AddTo(section.apart.taken, Moved(apart.taken, place));
            return;
        }
        const Body loose = Moved(apart.loose, place);
        section.apart.looseLacks |= apart.looseLacks;
        Body& sum = section.apart.loose;
        sum.mass += loose.mass;
        sum.lower += loose.lower;
        sum.upper += loose.upper;
        for (std::size_t term = 0; term < 6; ++term) {
            sum.inertia[term] += loose.inertia[term];
        }
    }

    const Walk& m_walk;
    const ReportShares& m_shares;
    const bool m_wantsVolumes;
    const std::function<void()>& m_look;
    std::vector<SectionSum> m_sections;
    std::size_t m_steps = 0;
};

/// centre: of the whole product, where masses without one stand.
Body SectionBody(const SectionSum& section, const std::array<double, 3>& centre)
{
    Body body;
    if (section.apart.loose.mass == 0.0 || !IsKnown(centre[0])) {
        body = Finished(section.firm, section.apart);
    } else {
        Body loose = section.apart.loose;
        loose.centre = centre;
        Body firm = section.firm;
        AddTo(firm, loose);
        body = Finished(firm, {section.apart.taken, {}, false});
    }
    if (section.counts.IsWithoutAnyMass()) {
        body.mass = kUnknown;
    }
    return WithoutRests(body);
}
} // namespace

/// Everything that was computed; by number.
struct ReportWalk::Sums
{
    Sums(const ProductGraph& graphOf, const ComputeOptions& options, const WalkRule& rule,
         const ReportOptions& wantedOf)
        : graph(graphOf),
          wanted(wantedOf),
          selection(Select(graphOf, {}, options.filter, false)),
          walk(selection, rule, {},
               {rule == WalkRule() ? &graphOf.Active() : nullptr, nullptr, nullptr,
                options.cancelled}),
          shares(selection, walk, wantedOf),
          totals(selection.Count()),
          placesBelow(selection.Count(), 0.0)
    {
        std::size_t done = 0;
        for (const std::uint32_t number : selection.childrenFirst) {
            if (done++ % kStepsBetweenLooks == 0 && options.cancelled && options.cancelled()) {
                throw Cancelled();
            }
            Make(number);
        }
        nothing.body.centre.fill(kUnknown);
        nothing.body.inertia.fill(kUnknown);
    }

    void Make(std::uint32_t number)
    {
        const NodeResult& result = walk.At(number);
        Counts& counts = totals[number].counts;
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            placesBelow[number] += 1.0 + placesBelow[child];
            if (result.Descends()) {
                Add(counts, totals[child].counts, use.pieces);
            }
        });
        if (!result.Descends()) {
            counts.leaves = 1.0;
        }
        if (result.outcome == Outcome::Missing) {
            counts.withoutMass = 1.0;
        } else if (result.outcome == Outcome::Taken) {
            counts.massWithoutCentre = result.noCentre ? result.claim->body.mass : 0.0;
            counts.massWithoutInertia = result.noInertia ? result.claim->body.mass : 0.0;
        }
        totals[number].body = KnownTotal(walk, number, counts);
        shares.Make(number);
    }

    static void Add(Counts& counts, const Counts& child, double pieces)
    {
        counts.leaves += pieces * child.leaves;
        counts.withoutMass += pieces * child.withoutMass;
        counts.massWithoutCentre += pieces * child.massWithoutCentre;
        counts.massWithoutInertia += pieces * child.massWithoutInertia;
    }

    Place Below(const Place& above, const Selection::Child& child) const
    {
        const ProductGraph::UseRow& use = graph.UseAt(child.use);
        Place place;
        place.number = child.number;
        place.use = child.use;
        const std::int32_t code = graph.PartOf(use.node).code;
        place.code = code < 0 ? above.code : code;
        place.pieces = above.pieces * use.pieces;
        place.isTurned = above.isTurned || use.turned;
        if (above.isTurned) {
            place.placement = above.placement * use.placement;
        } else {
            place.placement = use.placement;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                place.placement.shift[axis] += above.placement.shift[axis];
            }
        }
        return place;
    }

    const ProductGraph& graph;
    const ReportOptions wanted;
    Selection selection;
    Walk walk;
    ReportShares shares;
    std::vector<Total> totals;
    std::vector<double> placesBelow;
    Total nothing; // of a root that the filter leaves out
};

ReportWalk::ReportWalk(const ProductGraph& graph, const ComputeOptions& options,
                       const ReportOptions& wanted)
    : m_error(graph.Error())
{
    WalkRule rule;
    if (m_error.empty()) {
        m_error = RuleOf(graph, options, rule);
    }
    if (!m_error.empty()) {
        return;
    }
    try {
        m_sums = std::make_unique<Sums>(graph, options, rule, wanted);
    } catch (const Cancelled&) {
        m_error = "The computation was cancelled.";
    }
}

ReportWalk::~ReportWalk() = default;

ReportWalk::Place ReportWalk::Root() const
{
    Place root;
    root.number = m_sums->selection.asked.value_or(kRoot);
    root.code = m_sums->graph.PartOf(0).code;
    return root;
}

std::optional<ReportWalk::Place> ReportWalk::Find(std::span<const std::uint32_t> uses) const
{
    const Selection& selection = m_sums->selection;
    Place place = Root();
    for (const std::uint32_t use : uses) {
        if (place.number == kRoot) {
            return std::nullopt;
        }
        const std::size_t count = selection.ChildCount(place.number);
        // What is left in stands in the order of the uses.
        std::size_t first = 0;
        std::size_t end = count;
        while (first < end) {
            const std::size_t middle = (first + end) / 2;
            if (selection.ChildAt(place.number, middle).use < use) {
                first = middle + 1;
            } else {
                end = middle;
            }
        }
        if (first == count || selection.ChildAt(place.number, first).use != use) {
            return std::nullopt;
        }
        place = m_sums->Below(place, selection.ChildAt(place.number, first));
    }
    return place;
}

double ReportWalk::PlacesBelow(std::uint32_t number) const
{
    return number == kRoot ? 0.0 : m_sums->placesBelow[number];
}

void ReportWalk::Visit(const Place& start, ReportVisitor& visitor) const
{
    struct Open
    {
        Place place;
        std::size_t next = 0; // of its children
        std::size_t count = 0;
    };
    const Selection& selection = m_sums->selection;
    // A product may be deeper than a call stack.
    std::vector<Open> open;
    const auto enter = [&](const Place& place) {
        const bool goesBelow = visitor.Enter(place) && place.number != kRoot;
        open.push_back({place, 0, goesBelow ? selection.ChildCount(place.number) : 0});
    };
    enter(start);
    while (!open.empty()) {
        Open& top = open.back();
        if (top.next == top.count) {
            visitor.Leave(top.place);
            open.pop_back();
            continue;
        }
        enter(m_sums->Below(top.place, selection.ChildAt(top.place.number, top.next++)));
    }
}

std::uint32_t ReportWalk::NodeOf(std::uint32_t number) const
{
    return number == kRoot ? 0 : m_sums->selection.GraphNode(number);
}

const Total& ReportWalk::TotalOf(std::uint32_t number) const
{
    return number == kRoot ? m_sums->nothing : m_sums->totals[number];
}

const Claim* ReportWalk::TakenOf(std::uint32_t number) const
{
    return number == kRoot ? nullptr : m_sums->walk.At(number).claim;
}

std::vector<MaterialShare> ReportWalk::MaterialsOf(std::uint32_t number) const
{
    return number == kRoot ? std::vector<MaterialShare>() : m_sums->shares.MaterialsOf(number);
}

std::vector<NamedShare> ReportWalk::MassTypesOf(std::uint32_t number) const
{
    return number == kRoot ? std::vector<NamedShare>() : m_sums->shares.MassTypesOf(number);
}

double ReportWalk::VolumeOf(std::uint32_t number) const
{
    return number == kRoot || !m_sums->wanted.volumes ? kUnknown : m_sums->shares.VolumeOf(number);
}

Body ReportWalk::BodyAt(const Place& place) const
{
    return WithoutRests(Moved(TotalOf(place.number).body, place));
}

std::vector<ReportSection> ReportWalk::Sections(const std::function<void()>& look) const
{
    std::vector<ReportSection> sections;
    const Place root = Root();
    if (root.number == kRoot) {
        return sections;
    }
    SectionVisitor visitor(m_sums->selection, m_sums->walk, m_sums->shares, m_sums->wanted.volumes,
                           look);
    Visit(root, visitor);
    const std::array<double, 3>& centre = TotalOf(root.number).body.centre;
    for (std::size_t code = 0; code < visitor.Sections().size(); ++code) {
        const SectionSum& sum = visitor.Sections()[code];
        if (!sum.isMet) {
            continue;
        }
        ReportSection section;
        section.code = code == 0 ? "(no code)" : m_sums->graph.Codes()[code - 1];
        // Where the root's own values count there is one section, and it is the root: what nobody
        // states of it stays unknown, while a sum would take it for a point.
        section.total = m_sums->walk.At(root.number).Descends()
                            ? Total{SectionBody(sum, centre), sum.counts}
                            : TotalOf(root.number);
        section.materials = m_sums->shares.Named(sum.materials);
        section.volume = m_sums->wanted.volumes ? sum.volume : kUnknown;
        sections.push_back(std::move(section));
    }
    std::ranges::sort(sections, [](const ReportSection& left, const ReportSection& right) {
        // An unknown mass is no number that could be compared.
        if (left.total.HasMass() != right.total.HasMass()) {
            return left.total.HasMass();
        }
        if (left.total.HasMass() && left.total.body.mass != right.total.body.mass) {
            return left.total.body.mass > right.total.body.mass;
        }
        return left.code < right.code;
    });
    return sections;
}
} // namespace wb
