#pragma once

#include "ReportRequest.h"
#include "WBProductGraph.h"

#include <cstdint>
#include <vector>

namespace wb
{
/// The uses that lead to each picked instance from the root down, in the order of the picks. One
/// that is picked twice, or stands inside another picked one, counts once. Throws RequestError with
/// a sentence that names the field where a pick leads nowhere or to another part than it names.
std::vector<std::vector<std::uint32_t>> FindPicks(const ProductGraph& graph,
                                                  const std::vector<ReportRequest::Pick>& picks);
} // namespace wb
