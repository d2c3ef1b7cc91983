#pragma once

#include "WBCompute.h"
#include "WBProductGraph.h"
#include "WBStatistics.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace wb
{
/// What a report looks at beside masses, centres and inertias.
struct ReportOptions
{
    bool materials = false;
    bool massTypes = false;
    bool volumes = false;
};

/// What counts under one weight code: of the stops of the root's sum whose node has that code, or
/// whose nearest node above with a code has it. All sections together are the root's sum.
struct ReportSection
{
    std::string code; // "(no code)" where nothing above has one
    /// In the root's axes. A mass without centre stands where the root's sum puts it: at the centre
    /// of the rest of the whole product.
    Total total;
    std::vector<MaterialShare> materials; // largest first, then by name
    double volume = kUnknown;             // m3; unknown where one of the stops has none
};

class ReportVisitor;

/// All nodes of a product with what each of them weighs, as if it were the asked one. Every sum is
/// made once in the axes of its part, by the very walk that answers a computation; a node that a
/// filter line, values or a material of its use make different has a sum of its own. The product
/// is then opened out, use by use, and each place gets its sum moved into the root's axes: a
/// hundred thousand instances of a thousand parts cost a thousand sums and one walk.
class ReportWalk
{
public:
    static constexpr std::uint32_t kRoot = ~std::uint32_t{0};

    /// One node of the opened-out product.
    struct Place
    {
        std::uint32_t number = 0;  // of its sum; the same at all places that weigh the same
        std::uint32_t use = kRoot; // of the graph; kRoot: the root
        std::int32_t code = -1;    // its own, else that of the nearest node above; -1: none
        double pieces = 1.0;       // of its use and of all uses above, multiplied
        Placement placement;       // in the root's axes
        bool isTurned = false;     // more than shifted
    };

    /// Computes the first part of the graph by precision, mass type and filter of the options;
    /// their other fields are not looked at. Asks cancelled now and then.
    ReportWalk(const ProductGraph& graph, const ComputeOptions& options,
               const ReportOptions& wanted);
    ReportWalk(const ReportWalk&) = delete;
    ReportWalk& operator=(const ReportWalk&) = delete;
    ~ReportWalk();

    /// A sentence that says why nothing could be computed; then nothing else may be asked for.
    const std::string& Error() const { return m_error; }

    /// The root. Its figures are those of nothing where the filter leaves all of it out.
    Place Root() const;
    /// Where uses lead to from the root down; nothing where the filter leaves that out.
    std::optional<Place> Find(std::span<const std::uint32_t> uses) const;
    /// How many places stand below a sum of that number, opened out.
    double PlacesBelow(std::uint32_t number) const;
    /// The place and everything below it that the filter leaves in, depth first, in stored order.
    void Visit(const Place& start, ReportVisitor& visitor) const;

    /// The node of the graph that a sum is of.
    std::uint32_t NodeOf(std::uint32_t number) const;
    /// One piece in the axes of the part, as a computation that asks for this node answers it.
    const Total& TotalOf(std::uint32_t number) const;
    /// The values of its own that it took; null where it was summed up and where it has no mass.
    const Claim* TakenOf(std::uint32_t number) const;
    /// What one piece is made of. Empty where the options do not want it.
    std::vector<MaterialShare> MaterialsOf(std::uint32_t number) const; // largest first
    std::vector<NamedShare> MassTypesOf(std::uint32_t number) const;    // the least mature first
    /// Of one piece in m3: of its own values, of an assembly else the sum of its leaves; unknown
    /// where one of those states none.
    double VolumeOf(std::uint32_t number) const;

    /// All pieces at a place in the root's axes, the inertia about their common centre. What is
    /// unknown stays unknown.
    Body BodyAt(const Place& place) const;

    /// Largest mass first, then by name; those without any mass last. look is called now and then
    /// and may end the walk by throwing.
    std::vector<ReportSection> Sections(const std::function<void()>& look) const;

private:
    struct Sums;

    std::string m_error;
    std::unique_ptr<Sums> m_sums;
};

/// Is told of places in depth-first order.
class ReportVisitor
{
public:
    ReportVisitor() = default;
    ReportVisitor(const ReportVisitor&) = delete;
    ReportVisitor& operator=(const ReportVisitor&) = delete;
    virtual ~ReportVisitor() = default;

    /// Returns whether to go below. A visitor may end the walk by throwing.
    virtual bool Enter(const ReportWalk::Place& place) = 0;
    /// After everything below the place, also where the visitor did not go below.
    virtual void Leave(const ReportWalk::Place& place) = 0;
};
} // namespace wb
