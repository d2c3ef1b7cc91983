#pragma once

#include "WBFilter.h"
#include "WBKeptSum.h"
#include "WBProductGraph.h"
#include "WBStatistics.h"
#include "WBUncertainty.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace wb
{
/// What is asked of a product.
struct ComputeOptions
{
    enum class Precision
    {
        Active,
        MostPrecise,
        Specified // massType says which
    };
    enum class Asked
    {
        Node, // the node that the path leads to, as the filter leaves it
        Root, // the root of the product, as the filter leaves it
        Alone // the node's own values, nothing below
    };

    Precision precision = Precision::Active;
    std::string massType;  // "Computed": active values of the leaves, nothing imposed above them
    bool orActive = false; // leaves without the specified type take their active values
    Asked asked = Asked::Node;
    Filter filter;
    /// The main panel's computation: the answer is what this program derives. An assembly is summed
    /// up whatever is active; a leaf is size times density, without a size its active values.
    bool derived = false;
    // A request about one part may let another density go first there, or try another material.
    // They do not matter where the root is asked.
    std::optional<DensityPriority> densityPriority;
    std::string material;
    /// A precision defined on the asked node's computed type: takes the place of the deviations.
    struct DefinedPrecision
    {
        bool percentage = true; // of the mass; else kg
        double lower = 0.0;
        double upper = 0.0;
    };
    std::optional<DefinedPrecision> definedPrecision;
    /// False: nobody reads the warnings, so values are not checked and none are written.
    bool validate = true;
    bool uncertainty = false;
    bool errorsApart = false; // in the uncertainty: every piece has errors of its own
    /// Asked between the steps of the work; true: the answer is an error and nothing else.
    std::function<bool()> cancelled;
    std::size_t contributors = 0; // how many of the largest to list

    /// Sums that were kept, by part. Assemblies deeper than the level (the asked node is level 0)
    /// whose sum is here take it instead of being summed up; their own values count as ever. What
    /// looks at single leaves has no use for sums: with uncertainty, contributors or orActive none
    /// is taken. Null: none. Borrowed.
    const std::unordered_map<std::uint32_t, KeptSum>* kept = nullptr;
    std::int64_t level = 0;
    /// Asked of the assemblies from the asked node down, the nearest first: true for those whose
    /// sum below is to be handed out. Empty: none is.
    std::function<bool(std::uint32_t part)> wantsSum;
};

/// Own values that stand for what is below them. The difference is own less below; unknown where
/// one of the two is.
struct Imposed
{
    Total below;
    Body difference;
};

struct ComputeResult
{
    /// A sentence that says why nothing could be computed; empty: the rest holds.
    std::string error;

    /// In the axes of the asked node, the inertia about its centre.
    Total total;
    bool precisionDefined = false; // the deviations are those that the request defined
    /// The mass type whose values were taken at the asked node; empty where it was summed up.
    std::string takenType;
    /// Who lent the asked node's own values a centre or an inertia: a mass type, or "Computed" for
    /// the sum of what is below; empty: nobody.
    std::string centreFrom;
    std::string inertiaFrom;
    std::optional<Imposed> imposed;

    Statistics statistics;
    std::optional<Uncertainty> uncertainty;
    std::vector<Contributor> largestMasses;
    std::vector<Contributor> largestUncertainties;
    /// Of a filtered product: how many of the items below the asked node the filter leaves out.
    struct LeftOut
    {
        std::string filter; // its name
        double items = 0.0; // in pieces, and so is the other
        double of = 0.0;
    };
    std::optional<LeftOut> leftOut;
    /// Leaves that took their active values since they have none of the specified type.
    std::vector<std::string> fellBack;

    /// Assemblies whose sum is in these figures as it was kept although it is stale.
    std::size_t staleTaken = 0;
    /// True also where own values are merely compared with a stale sum below them: the warnings may
    /// say what no longer holds.
    bool looksAtStale = false;
    /// The sums that were wanted and made, except those made from a stale one. In a product of very
    /// many assemblies only those nearest the asked node are made, so that the answer does not wait
    /// for them.
    struct MadeSum
    {
        std::uint32_t part = 0;
        KeptSum sum;
    };
    std::vector<MadeSum> sums;

    /// Lines without "- ", sums first, then the worst effect first.
    std::vector<std::string> warnings;
};

ComputeResult Compute(const ProductGraph& graph, const AskedPath& path,
                      const ComputeOptions& options);

/// A name as it may stand in a warning: "- " begins a line there, and clients count on it.
std::string WithoutLineMark(std::string name);

/// Warnings as one text, a line each with "- " before it: the first eight and how many more there
/// are. most: how many lines at most; 0: all.
std::string WarningText(const std::vector<std::string>& warnings, std::size_t most = 8);
} // namespace wb
