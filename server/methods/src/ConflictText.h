#pragma once

#include "WBPending.h"

#include <string>

namespace wb
{
/// Why a pending change cannot be saved, for the user who made it: "part WING A, mass type Weighed,
/// mass: you changed 10 kg to 12 kg, but ANNA saved 11 kg on 2026/11/21 19:00:00".
std::string ConflictText(const PendingState& change);
} // namespace wb
