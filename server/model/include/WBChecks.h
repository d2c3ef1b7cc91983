#pragma once

#include "WBBody.h"

#include <string>
#include <vector>

namespace wb
{
/// What cannot be true of a body, as the rest of a sentence that begins with its name: "has a
/// negative mass". The values are used as they stand.
struct Finding
{
    enum class Kind
    {
        Impossible,
        Rounding // off by so little that digits were dropped somewhere
    };

    Kind kind = Kind::Impossible;
    std::string text;
};

/// Looks at stated values; unknown figures are not looked at. An adjustment may take mass away.
std::vector<Finding> CheckBody(const Body& body, bool isAdjustment);
} // namespace wb
