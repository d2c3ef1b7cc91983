#pragma once

#include "ComputeArguments.h"
#include "ComputeUnits.h"
#include "WBCompute.h"
#include "WBProductGraph.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

/// A computation as it is shown: every figure in the units of the output, unknown ones unknown.
struct ComputeReport
{
    struct PartNames
    {
        std::string identifier;
        std::string version;
        std::string name; ///< the identifier where the part has none
    };
    /// What a user reads as mass properties of one body.
    struct Figures
    {
        wb::Body body; ///< the inertia about the point that was asked for
        std::array<double, 3> principalMoments{};
        /// Where all of the mass would have to stand off each axis; unknown where there is no mass,
        /// or a moment of the other sign.
        std::array<double, 3> radiiOfGyration{};
    };

    ComputeArguments arguments;
    ComputeUnits units;
    PartNames product;
    PartNames node; ///< in whose axes everything stands
    std::string path;
    std::vector<std::string> filter; ///< in words: its name where it has one, then its lines
    Figures total;
    /// Everything else, in the units of the output too. The inertias of own values and of what is
    /// below them stand each about its own centre.
    wb::ComputeResult result;

    bool IsRoot() const { return path == product.identifier; }
    /// Per cent of the total mass; unknown without one.
    double ShareOf(double mass) const;
    /// Per cent of the square of the mass's standard uncertainty; unknown where it is 0.
    double ShareOfVariance(double sigma) const;
    /// Where the inertia was taken about, in the axes of the node.
    std::array<double, 3> InertiaPoint() const;
    double PredictedMass() const { return total.body.mass + result.statistics.growthAllowance; }
};

/// "active", "most-precise", "Computed" or a mass type.
std::string PrecisionWord(const wb::ComputeOptions& options);
/// "check", "force" or "assume:2".
std::string UpdateWord(const ComputeArguments& arguments);
/// "cg", "origin" or "point".
const char* PointWord(const ComputeArguments& arguments);
/// "wb" or "material"; empty where each part's own order counts.
const char* DensityFirstWord(const wb::ComputeOptions& options);
/// "instance", "root" or "part".
const char* EntityWord(wb::ComputeOptions::Asked asked);

/// What was asked, before it is computed: the graph is read here and not kept.
ComputeReport BeginComputeReport(const ComputeArguments& arguments, const ComputeUnits& units,
                                 const wb::ProductGraph& graph, const wb::AskedPath& path);
/// Brings in what came of it, which stands in storage units.
void AddComputeResult(ComputeReport& report, wb::ComputeResult result);
