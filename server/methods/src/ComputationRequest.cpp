#include "ComputationRequest.h"

#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

ComputationRequest::Place ReadPlace(Request& request)
{
    ComputationRequest::Place place;
    place.hasInstance = request.Any("has-instance");
    place.instance = request.Any("instance");
    place.part = request.Any("part");
    place.version = request.Any("version");
    const std::int64_t count = request.Choice("path count", kDeepest);
    for (std::int64_t i = 0; i < count; ++i) {
        place.path.push_back(request.Any("path"));
    }
    place.densityPriority = request.Any("density priority");
    place.material = request.Any("material");
    return place;
}

void ReadPrecision(Request& request, ComputeOptions& options)
{
    const std::string_view precision = request.Text("precision");
    if (precision == "Active") {
        options.precision = ComputeOptions::Precision::Active;
    } else if (precision == "MostPrecise") {
        options.precision = ComputeOptions::Precision::MostPrecise;
    } else {
        options.precision = ComputeOptions::Precision::Specified;
        options.massType = precision;
    }
}

void ReadPolicy(Request& request, ComputationRequest& result)
{
    result.policy = static_cast<ComputationRequest::Policy>(request.Choice("update policy", 2));
    if (result.policy == ComputationRequest::Policy::Assume) {
        result.level = request.Count("level");
    }
}

ComputeOptions::Asked ReadEntity(Request& request)
{
    switch (request.Choice("entity", Common::PartAlone)) {
    case Common::Root:
        return ComputeOptions::Asked::Root;
    case Common::PartAlone:
        return ComputeOptions::Asked::Alone;
    default:
        return ComputeOptions::Asked::Node;
    }
}

void ReadFilterFields(Request& request, Filter& filter)
{
    const std::string error =
        ReadFilter([&](const char* field) { return std::string(request.Any(field)); }, filter);
    if (!error.empty()) {
        throw RequestError(error);
    }
}

void ReadDefinedPrecision(Request& request, ComputeOptions& options)
{
    if (request.Choice("precision type", 1) == Common::NoPrecision) {
        return;
    }
    ComputeOptions::DefinedPrecision defined;
    defined.percentage = request.Choice("precision value type", 1) == Common::Percentage;
    defined.lower = request.Size("lower precision");
    defined.upper = request.Size("upper precision");
    options.definedPrecision = defined;
}
} // namespace

ComputationRequest ReadComputationRequest(std::string_view text)
{
    Request request(text);
    ComputationRequest result;
    result.place = ReadPlace(request);
    ReadPrecision(request, result.options);
    ReadPolicy(request, result);
    result.options.asked = ReadEntity(request);
    result.root = request.Text("root");
    ReadFilterFields(request, result.options.filter);
    ReadDefinedPrecision(request, result.options);
    request.End();
    return result;
}

void CheckMassType(const std::vector<MassType>& types, const ComputeOptions& options)
{
    const bool isNamedType = options.precision == ComputeOptions::Precision::Specified &&
                             options.massType != Common::Computed;
    if (isNamedType && FindMassType(types, options.massType) == nullptr) {
        throw RequestError("The field precision of the request names \"" + options.massType +
                           "\", which is no mass type of the database.");
    }
}
} // namespace wb
