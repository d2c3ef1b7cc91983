#pragma once

#include "ComputationRequest.h"
#include "PickedPart.h"
#include "WBBody.h"

#include <array>
#include <string_view>

namespace wb
{
class AnswerText;

/// A computation that a client asks for beside one part.
struct PartComputation
{
    PickedPart asked; // the root where the request asks for it
    ComputationRequest request;
};

/// The main panel's computation. Its answer is what this program derives: an assembly is summed up
/// whatever its own values say, and a leaf is size times density, the density being the one that
/// the request asks for. Only where a leaf is asked for its most precise or one type's values it is
/// those. Throws RequestError with a sentence that names the wrong field.
PartComputation FindComputation(const Store& store, const ComputationRequest& request);

/// The place that the request names, whatever it asks to be computed.
PickedPart FindPlace(const Store& store, const ComputationRequest& request);

/// Mass and deviations, centre, Ixx, Iyy, Izz, Pxz, Pxy, Pyz: the order of all record streams.
/// Unknown figures travel as 0.
void AddBody(AnswerText& answer, const Body& body);
} // namespace wb
