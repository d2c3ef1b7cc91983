#include "PartComputation.h"

#include "Computations.h"
#include "MaterialStatistics.h"
#include "Methods.h"
#include "PickedNode.h"
#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;
using Precision = ComputeOptions::Precision;

/// Positions in Inertia in the order of the record's streams: xx, yy, zz, xz, xy, yz.
constexpr std::array<std::size_t, 6> kInertiaOrder{0, 1, 2, 4, 3, 5};

void CheckFlag(const char* field, std::string_view value)
{
    if (value != "0" && value != "1") {
        throw RequestError(std::string("The field ") + field + " of the request holds \"" +
                           std::string(value) + "\", expected 0 or 1.");
    }
}

/// The density that shall go first and the material that shall be tried.
void ReadChoices(const Store& store, const ComputationRequest::Place& place,
                 ComputeOptions& options)
{
    CheckFlag("density priority", place.densityPriority);
    options.densityPriority =
        place.densityPriority == "0" ? Common::WBDensityFirst : Common::MaterialDensityFirst;
    if (place.material.empty() || place.material == "__null__") {
        return;
    }
    if (!store.FindMaterial(place.material)) {
        throw RequestError("The field material of the request names \"" +
                           std::string(place.material) + "\", which the database does not hold.");
    }
    options.material = place.material;
}

bool AsksForOneType(const ComputeOptions& options)
{
    return options.precision == Precision::MostPrecise ||
           (options.precision == Precision::Specified && options.massType != Common::Computed);
}

PickedPart RootOf(const Store& store, const std::string& identifier)
{
    const auto root = store.FindRoot(identifier);
    if (!root) {
        throw RequestError("The field root of the request names \"" + identifier +
                           "\", which is no product root of the database.");
    }
    return {*root, {}, {}};
}
} // namespace

PickedPart FindPlace(const Store& store, const ComputationRequest& request)
{
    const ComputationRequest::Place& place = request.place;
    CheckFlag("has-instance", place.hasInstance);
    return FindPicked(store, {request.root, place.instance, place.part, place.version, place.path});
}

PartComputation FindComputation(const Store& store, const ComputationRequest& request)
{
    PartComputation computation{{}, request};
    ComputeOptions& options = computation.request.options;
    if (options.asked == ComputeOptions::Asked::Root) {
        computation.asked = RootOf(store, request.root);
    } else {
        computation.asked = FindPlace(store, request);
        ReadChoices(store, request.place, options);
    }
    options.derived = computation.asked.Part().hasUses || !AsksForOneType(options);
    return computation;
}

void AddBody(AnswerText& answer, const Body& body)
{
    answer.Add(body.mass).Add(body.lower).Add(body.upper);
    for (const double coordinate : body.centre) {
        answer.Add(coordinate);
    }
    for (const std::size_t position : kInertiaOrder) {
        answer.Add(body.inertia[position]);
    }
}

std::string ComputeValues(const MethodCall& call, std::string_view text)
{
    return call.computations.ComputeValues(text, call.context);
}

std::string ComputePart(const MethodCall& call, std::string_view text)
{
    call.computations.ForgetWarnings(call.context.user);
    const auto [asked, request] = FindComputation(call.store, ReadComputationRequest(text));
    const ComputeResult result = call.computations.ComputeAt(asked, request, call.context);
    AnswerText answer;
    AddBody(answer, result.total.body);
    AddMaterialStatistics(answer, result.statistics.materials);
    answer.Add(result.statistics.massTypes.size());
    for (const NamedShare& share : result.statistics.massTypes) {
        answer.Add(share.name).Add(share.mass);
    }
    for (const double coefficient : Coefficients(asked.placement)) {
        answer.Add(coefficient);
    }
    call.computations.KeepWarnings(call.context.user, result);
    return answer.Take();
}
} // namespace wb
