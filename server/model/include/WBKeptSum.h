#pragma once

#include "WBBody.h"
#include "WBStatistics.h"

#include <cstdint>
#include <string>
#include <vector>

namespace wb
{
/// What stands below an assembly, unfiltered, by one precision, in the axes of its part: in a form
/// that can be kept and later taken in place of summing up. Every figure is for one piece of the
/// assembly, and all but the bodies simply add up.
struct KeptSum
{
    /// What the pieces of one node of the graph add to deviations that they share: a part, or a use
    /// that states something of its own.
    struct SharedErrors
    {
        /// Number of the node. A node that is no longer in the graph has a number from the count of
        /// the graph's nodes on, the same one in all sums of a computation.
        std::uint32_t node = 0;
        Deviations sum;

        bool operator==(const SharedErrors& other) const
        {
            return node == other.node && sum.lower == other.sum.lower &&
                   sum.upper == other.sum.upper;
        }
    };

    Body firm;                // of what has a centre and no negative mass
    Body taken;               // negative masses with a centre
    Body loose;               // masses without one; its centre says nothing
    bool hasApart = false;    // there is something in the latter two
    bool massMissing = false; // something below has no mass

    Counts counts;
    std::vector<MaterialShare> materials; // largest first, then by name
    std::vector<NamedShare> massTypes;    // the least mature first
    std::vector<NamedShare> codes;        // largest first
    double withoutCode = 0.0;             // kg that go to the code of whatever is above
    double growthAllowance = 0.0;
    std::vector<SharedErrors> sharedErrors; // by node
    Deviations ownSquares;   // squares of the deviations of pieces whose errors are their own
    Deviations apartSquares; // the same if those of all pieces were

    /// Something that it was made from has changed since.
    bool isStale = false;
};

/// Largest first, then by name: a list that is read from the top.
void SortByMass(std::vector<NamedShare>& shares);

/// The sum as the total of an assembly whatever that says of itself.
Total TotalOf(const KeptSum& sum);
/// codeAbove: the code of the assembly or of the nearest node above it; empty: none.
Statistics StatisticsOf(const KeptSum& sum, const std::string& codeAbove);
} // namespace wb
