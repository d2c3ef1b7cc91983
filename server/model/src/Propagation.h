#pragma once

#include "Selection.h"
#include "WBUncertainty.h"
#include "Walk.h"

#include <cstdint>
#include <vector>

namespace wb
{
enum class Errors : std::uint8_t
{
    AsStated, // all uses of a part share its errors, unless the part says otherwise
    Apart     // every piece has its own
};

/// The uncertainty of the asked node's total, which must be the walk's. Something must be asked.
Uncertainty Propagate(const Selection& selection, const Walk& walk,
                      const std::vector<double>& pieces, const Body& total, Errors errors);

/// The standard uncertainty of the mass of one piece: the stated one, or that of an even spread
/// between the deviations.
double SigmaOfMass(const Claim& claim, const Sigmas* sigmas);

/// What the pieces of one part add to the uncertainty of the mass.
double SigmaOfPieces(double sigma, double pieces, bool apart);
} // namespace wb
