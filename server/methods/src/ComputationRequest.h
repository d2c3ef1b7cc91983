#pragma once

#include "WBCompute.h"

#include <string>
#include <string_view>

namespace wb
{
/// What a client asks to be computed of a whole product.
struct ComputationRequest
{
    enum class Policy
    {
        Check = 0, // what is no longer up to date is computed
        Force = 1, // everything is, from the database on
        Assume = 2 // what lies deeper than a level may be taken as stored
    };

    std::string root;
    Policy policy = Policy::Check;
    ComputeOptions options;
};

/// Throws RequestError with a sentence that names the wrong or missing field.
ComputationRequest ReadComputationRequest(std::string_view text);
} // namespace wb
