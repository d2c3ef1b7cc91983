#pragma once

#include "Subcommands.h"
#include "WBCompute.h"
#include "WBProductComputation.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What `wb compute` is asked to do, before anything is known of the product.
struct ComputeArguments
{
    enum class Point
    {
        Centre,
        Origin,
        Typed
    };
    using Update = wb::ProductComputation::Policy;

    std::string path;
    wb::ComputeOptions compute; ///< what paths add to its filter is not in it yet
    Update update = Update::Check;
    std::int64_t level = 0; ///< for Assume
    Point point = Point::Centre;
    std::array<double, 3> at{}; ///< in the unit of length of the output
    bool rss = false;
    bool uncertainty = false; ///< shown; a list of contributors needs it computed all the same
};

/// Nothing, with a sentence, when an option holds what nobody can mean.
std::optional<ComputeArguments> ReadComputeArguments(const ComputeCommandOptions& options,
                                                     std::string& problem);

/// Empty, or a sentence when the precision names a mass type that is not among the known ones.
std::string MassTypeProblem(const std::vector<wb::MassType>& types,
                            const wb::ComputeOptions& compute);
