#include "Tally.h"

#include "Collector.h"

#include <algorithm>

namespace wb
{
namespace
{
using Outcome = NodeResult::Outcome;

/// Goes over the stops of a walk once for each sum that is wanted of it.
class Tallies
{
public:
    Tallies(const Selection& selection, const Walk& walk)
        : m_selection(selection),
          m_walk(walk),
          m_collector(*selection.graph),
          m_withoutCode(selection.Count(), 0.0)
    {}

    /// One node that counts: a stop, or an assembly whose children were looked at before. asked:
    /// how the asked node is treated; null where it is not among the nodes.
    void Add(std::uint32_t number, double pieces, const AskedRule* asked)
    {
        const NodeResult& result = m_walk.At(number);
        if (result.outcome == Outcome::Missing) {
            m_collector.Missing(pieces);
            return;
        }
        const std::uint32_t node = m_selection.GraphNode(number);
        double mass = 0.0;
        bool any = true;
        if (result.outcome == Outcome::Taken) {
            const bool other =
                asked != nullptr && number == m_selection.asked && asked->material >= 0;
            m_collector.Taken(result, node,
                              other ? asked->material : m_selection.graph->Nodes()[node].material,
                              pieces);
            mass = result.claim->body.mass;
        } else if (result.isKept) {
            const KeptSum& sum = m_walk.KeptBelow(m_selection, number);
            m_collector.Kept(sum, pieces);
            mass = sum.withoutCode;
            any = mass != 0.0;
        } else {
            mass = WithoutCodeBelow(number, any);
        }
        // What has no code of its own waits in its node until a node above has one.
        const std::int32_t code = m_selection.graph->PartOf(node).code;
        if (code < 0) {
            m_withoutCode[number] = mass;
        } else if (any) {
            m_collector.Code(code, pieces * mass);
        }
    }

    double WithoutCode(std::uint32_t number) const { return m_withoutCode[number]; }

    double WithoutCodeBelow(std::uint32_t number, bool& any) const
    {
        double mass = 0.0;
        any = false;
        m_selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            mass += use.pieces * m_withoutCode[child];
            any = any || m_withoutCode[child] != 0.0;
        });
        return mass;
    }

    KeptSum Finish(double withoutCode) { return m_collector.Finish(withoutCode); }

private:
    const Selection& m_selection;
    const Walk& m_walk;
    Collector m_collector;
    std::vector<double> m_withoutCode; // by number; of one piece
};

/// Makes the sums below single nodes. What it needs for each of them is as large as what stands
/// below, so a product of very many assemblies is not walked through for each from end to end.
class SumMaker
{
public:
    SumMaker(const Selection& selection, const Walk& walk)
        : m_selection(selection),
          m_walk(walk),
          m_tallies(selection, walk),
          m_pieces(selection.Count(), 0.0),
          m_metFor(selection.Count(), 0)
    {}

    KeptSum Make(std::uint32_t number, const Walk::Below& below)
    {
        FindBelow(number);
        m_pieces[number] = 1.0;
        SpreadPieces(number);
        for (std::size_t i = m_childrenFirst.size(); i-- > 0;) {
            SpreadPieces(m_childrenFirst[i]);
        }
        for (const std::uint32_t child : m_childrenFirst) {
            m_tallies.Add(child, m_pieces[child], nullptr);
        }
        bool any = false;
        KeptSum sum = m_tallies.Finish(m_tallies.WithoutCodeBelow(number, any));
        sum.firm = below.body;
        sum.taken = below.apart.taken;
        sum.loose = below.apart.loose;
        sum.hasApart = below.hasApart;
        sum.massMissing = below.massMissing;
        return sum;
    }

    /// Nodes and uses looked at up to now.
    std::size_t Work() const { return m_work; }

private:
    /// Everything that counts below a node, each after what is below it.
    void FindBelow(std::uint32_t number)
    {
        m_childrenFirst.clear();
        ++m_round;
        m_open.clear();
        const auto open = [&](std::uint32_t parent) {
            m_selection.ForEachChild(parent, [&](std::uint32_t child, const ProductGraph::UseRow&) {
                ++m_work;
                if (m_metFor[child] != m_round) {
                    m_open.push_back({child, false});
                }
            });
        };
        open(number);
        while (!m_open.empty()) {
            const auto [child, isDone] = m_open.back();
            m_open.pop_back();
            if (isDone) {
                m_childrenFirst.push_back(child);
                continue;
            }
            if (m_metFor[child] == m_round) {
                continue;
            }
            m_metFor[child] = m_round;
            m_pieces[child] = 0.0;
            m_open.push_back({child, true});
            if (m_walk.At(child).Descends()) {
                open(child);
            }
        }
        m_work += m_childrenFirst.size();
    }

    void SpreadPieces(std::uint32_t number)
    {
        const bool isTop = m_metFor[number] != m_round;
        if (!isTop && !m_walk.At(number).Descends()) {
            return;
        }
        m_selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            m_pieces[child] += m_pieces[number] * use.pieces;
        });
    }

    struct Open
    {
        std::uint32_t number;
        bool isDone; // all below it stands in m_childrenFirst
    };

    const Selection& m_selection;
    const Walk& m_walk;
    Tallies m_tallies;
    std::vector<double> m_pieces;
    std::vector<std::uint32_t> m_metFor; // the round in which a number was met last
    std::uint32_t m_round = 0;
    std::vector<Open> m_open;
    std::vector<std::uint32_t> m_childrenFirst;
    std::size_t m_work = 0;
};

/// The sum below a node whether its own values were taken or not.
Walk::Below BelowOf(const Selection& selection, const Walk& walk, std::uint32_t number)
{
    const NodeResult& result = walk.At(number);
    if (result.outcome != Outcome::Descended) {
        return walk.SumBelow(selection, number);
    }
    return {result.body, walk.ApartOf(number), result.apart >= 0, result.massMissing,
            result.isStale};
}

/// Work that is worth the sums of a product: a few times that of looking at all of it once.
std::size_t MostWork(const ProductGraph& graph)
{
    constexpr std::size_t kTimes = 4;
    std::size_t once = 0;
    for (const ProductGraph::PartRow& part : graph.Parts()) {
        once += 1 + part.useCount;
    }
    return kTimes * once;
}
} // namespace

std::vector<double> PiecesOf(const Selection& selection, const Walk& walk)
{
    std::vector<double> pieces(selection.Count(), 0.0);
    if (!selection.asked) {
        return pieces;
    }
    pieces[*selection.asked] = 1.0;
    for (std::size_t i = selection.childrenFirst.size(); i-- > 0;) {
        const std::uint32_t number = selection.childrenFirst[i];
        const double here = pieces[number];
        if (here == 0.0 || !walk.At(number).Descends()) {
            continue;
        }
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow& use) {
            pieces[child] += here * use.pieces;
        });
    }
    return pieces;
}

Statistics Tally(const Selection& selection, const Walk& walk, const AskedRule& asked,
                 const std::vector<double>& pieces, std::int32_t codeAbove)
{
    Tallies tallies(selection, walk);
    for (const std::uint32_t number : selection.childrenFirst) {
        if (pieces[number] != 0.0) {
            tallies.Add(number, pieces[number], &asked);
        }
    }
    const double rest = selection.asked ? tallies.WithoutCode(*selection.asked) : 0.0;
    return StatisticsOf(tallies.Finish(rest),
                        codeAbove < 0
                            ? std::string()
                            : selection.graph->Codes()[static_cast<std::size_t>(codeAbove)]);
}

std::vector<ComputeResult::MadeSum> MakeSums(const Selection& selection, const Walk& walk,
                                             const std::function<bool(std::uint32_t)>& wantsSum,
                                             const std::function<bool()>& cancelled)
{
    // Of all that a sum holds only the errors that pieces share grow with the product; so many of
    // them are some twelve megabytes.
    constexpr std::size_t kMostShared = 500000;
    const ProductGraph& graph = *selection.graph;
    const std::size_t mostWork = MostWork(graph);
    std::vector<ComputeResult::MadeSum> made;
    std::vector<bool> met(selection.Count(), false);
    std::vector<bool> isMade(graph.Parts().size(), false);
    SumMaker maker(selection, walk);
    std::size_t shared = 0;
    std::vector<std::uint32_t> nearestFirst{*selection.asked};
    for (std::size_t i = 0; i < nearestFirst.size(); ++i) {
        const std::uint32_t number = nearestFirst[i];
        const std::uint32_t part = graph.Nodes()[selection.GraphNode(number)].part;
        const bool filtered = selection.IsOwn(number) && selection.Own(number).filtered;
        if (graph.Parts()[part].IsLeaf() || walk.At(number).isKept || (cancelled && cancelled())) {
            continue;
        }
        if (!filtered && !isMade[part] && wantsSum(part)) {
            const Walk::Below below = BelowOf(selection, walk, number);
            if (!below.isStale) {
                isMade[part] = true;
                made.push_back({part, maker.Make(number, below)});
                shared += made.back().sum.sharedErrors.size();
            }
        }
        if (maker.Work() > mostWork || shared > kMostShared) {
            break;
        }
        selection.ForEachChild(number, [&](std::uint32_t child, const ProductGraph::UseRow&) {
            if (!met[child]) {
                met[child] = true;
                nearestFirst.push_back(child);
            }
        });
    }
    return made;
}
} // namespace wb
