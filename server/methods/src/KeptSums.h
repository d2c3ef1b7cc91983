#pragma once

#include "WBCompute.h"
#include "WBStore.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wb
{
/// The key of the sums below assemblies by the precision of the options.
std::string SumKey(const ComputeOptions& options);
/// The key of a whole product's answer.
std::string AnswerKey(const ComputeOptions& options);

/// A sum as bytes. In the database a node is a row: a part by its row, a use that states something
/// of its own by its row with the other sign.
std::string WriteSum(const KeptSum& sum, const std::function<RowId(std::uint32_t node)>& rowOf);
/// Nothing where the bytes hold no sum.
std::optional<KeptSum> ReadSum(std::string_view bytes,
                               const std::function<std::uint32_t(RowId row)>& nodeOf);

/// The answer of a whole product and what was to be said beside it.
struct KeptTexts
{
    std::string answer;
    std::string warnings;
};
std::string WriteTexts(const KeptTexts& texts);
/// Nothing where the bytes hold no answer.
std::optional<KeptTexts> ReadTexts(std::string_view bytes);
} // namespace wb
