#include "ComputationRequest.h"

#include "Request.h"

#include "CATENOWBCSCommonDefinitions.h"

namespace wb
{
namespace
{
using Common = CATENOWBCSCommonDefinitions;

/// One of a few whole numbers; most is the last of them.
std::int64_t Choice(Request& request, const char* field, std::int64_t most)
{
    const std::int64_t value = request.Count(field);
    if (value > most) {
        throw RequestError(std::string("The field ") + field + " of the request holds \"" +
                           std::to_string(value) + "\", expected a whole number from 0 to " +
                           std::to_string(most) + ".");
    }
    return value;
}

/// What says where a part is used. The root stands nowhere, so clients send anything here.
void ReadPastPlace(Request& request)
{
    for (const char* field : {"has-instance", "instance", "part", "version"}) {
        request.Any(field);
    }
    const std::int64_t count = request.Count("path count");
    for (std::int64_t i = 0; i < count; ++i) {
        request.Any("path");
    }
    for (const char* field : {"density priority", "material"}) {
        request.Any(field);
    }
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

ComputationRequest::Policy ReadPolicy(Request& request)
{
    const auto policy =
        static_cast<ComputationRequest::Policy>(Choice(request, "update policy", 2));
    // Every figure is made from the values themselves, so nothing stale can enter below any level.
    if (policy == ComputationRequest::Policy::Assume) {
        request.Count("level");
    }
    return policy;
}

void ReadEntity(Request& request)
{
    const std::int64_t entity = request.Count("entity");
    if (entity != Common::Root) {
        throw RequestError("The field entity of the request holds \"" + std::to_string(entity) +
                           "\", expected 1, the root.");
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
    if (Choice(request, "precision type", 1) == Common::NoPrecision) {
        return;
    }
    ComputeOptions::DefinedPrecision defined;
    defined.percentage = Choice(request, "precision value type", 1) == Common::Percentage;
    defined.lower = request.Size("lower precision");
    defined.upper = request.Size("upper precision");
    options.definedPrecision = defined;
}
} // namespace

ComputationRequest ReadComputationRequest(std::string_view text)
{
    Request request(text);
    ComputationRequest result;
    result.options.asked = ComputeOptions::Asked::Root;
    ReadPastPlace(request);
    ReadPrecision(request, result.options);
    result.policy = ReadPolicy(request);
    ReadEntity(request);
    result.root = request.Text("root");
    ReadFilterFields(request, result.options.filter);
    ReadDefinedPrecision(request, result.options);
    request.End();
    return result;
}
} // namespace wb
