#pragma once

#include "Database.h"
#include "WBStore.h"

#include <string_view>
#include <vector>

namespace wb
{
/// The facts that an earlier version of the program kept as lines, "part P A, mass: 2 lb", those
/// from before and those from after one beside the other. Their owners are looked for by name; one
/// that is not there, or of which there are several, has no row and keeps its name as it was.
std::vector<ChangedFact> FactsOfLines(Database& database, std::string_view before,
                                      std::string_view after);
} // namespace wb
