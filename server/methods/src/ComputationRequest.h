#pragma once

#include "WBCompute.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wb
{
/// What a client asks to be computed of a whole product or of a part in it.
struct ComputationRequest
{
    /// Where the asked part stands, as the client sent it. The root stands nowhere, so that clients
    /// that ask for it send anything here.
    struct Place
    {
        std::string_view hasInstance;
        std::string_view instance;
        std::string_view part;
        std::string_view version;
        std::vector<std::string_view> path; // leaf side first
        std::string_view densityPriority;
        std::string_view material;
    };

    enum class Policy
    {
        Check = 0, // what is no longer up to date is computed
        Force = 1, // everything is, from the database on
        Assume = 2 // what lies deeper than a level may be taken as stored
    };

    Place place; // views of the request's text
    std::string root;
    Policy policy = Policy::Check;
    /// Of Assume: how deep below the asked node, which is level 0, everything is computed.
    std::int64_t level = 0;
    ComputeOptions options;
};

/// Throws RequestError with a sentence that names the wrong or missing field. What the place says
/// is not looked at; options.asked tells whether it matters.
ComputationRequest ReadComputationRequest(std::string_view text);

/// Throws RequestError where the precision names a mass type that is not there.
void CheckMassType(const std::vector<MassType>& types, const ComputeOptions& options);
} // namespace wb
