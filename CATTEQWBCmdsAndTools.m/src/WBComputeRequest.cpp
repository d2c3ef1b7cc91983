#include "WBComputeRequest.h"

#include <string>

namespace
{

// The request's grammar serves parts and products alike. A whole product has no instance: what
// stands here is read past, and each part goes by its own order of densities.
constexpr const char* kHead = "1|DummyInstance|DummyPart|DummyVersion|0|1|WBMaterial|";
// The root with everything below it.
constexpr const char* kWholeProduct = "1|";
// No deviation is to be computed from a precision.
constexpr const char* kNoPrecision = "0|";

std::string PrecisionField(const WBComputeOptions& options)
{
    if (options.precision == WBComputePrecision::MostPrecise) {
        return "MostPrecise";
    }
    return options.precision == WBComputePrecision::Specified ? options.massType.ToStdString()
                                                              : "Active";
}

/// The policy's digit; with Assume a second field says down to which level.
std::string PolicyFields(const WBComputeOptions& options)
{
    std::string fields = std::to_string(static_cast<int>(options.policy)) + "|";
    if (options.policy == WBUpdatePolicy::Assume) {
        fields += options.level.ToStdString() + "|";
    }
    return fields;
}

} // namespace

CATUnicodeString WBComputeRequest(const WBComputeOptions& options)
{
    return kHead + PrecisionField(options) + "|" + PolicyFields(options) + kWholeProduct +
           options.rootIdentifier.ToStdString() + "|" + options.filter.ToStdString() + "|" +
           kNoPrecision;
}
