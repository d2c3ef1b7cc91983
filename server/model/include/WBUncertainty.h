#pragma once

#include "WBBody.h"

#include <string>
#include <vector>

namespace wb
{
/// Standard uncertainties of a total, to first order, straight from the leaves: whatever stands
/// between the asked node and them does not change the answer.
struct Uncertainty
{
    double mass = 0.0;              // kg
    std::array<double, 3> centre{}; // mm; unknown where the centre is
    Inertia inertia{};              // about the centre
    /// Share of the mass whose uncertainty nobody stated: a mass type's default stands for it.
    double shareUnstated = 0.0;
    /// Parts whose centre is less certain than it is far from the total's. Squares of errors, which
    /// the first order leaves out, count there: the answer understates.
    std::vector<std::string> understated;
};

/// One part's share in a total.
struct Contributor
{
    std::string part; // identifier
    std::string version;
    std::string name;
    double pieces = 0.0;
    double mass = 0.0;      // kg, of all pieces
    double sigmaMass = 0.0; // kg, what this part adds to the uncertainty of the mass
};
} // namespace wb
