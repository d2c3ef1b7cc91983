#pragma once

#include "WBStatistics.h"

#include <array>
#include <string>

namespace wb
{
/// "381.35925 kg": nine digits, as the tables of weights have them.
std::string ShownMass(double mass);
/// "930.082, -3.070, -195.479 mm"
std::string ShownPlace(const std::array<double, 3>& place);
/// "381.35925 kg at 930.082, -3.070, -195.479 mm", and what is not known or left out.
std::string ShownWeight(const Total& total);
} // namespace wb
