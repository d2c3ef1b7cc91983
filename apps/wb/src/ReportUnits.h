#pragma once

#include "CATIDOMDocument.h"
#include "CATWBReportConversion.h"

#include <string>
#include <vector>

/// Makes the units of "MASS=lb,LENGTH=in" the current ones of this session alone. False, with a
/// sentence that lists what there is, when a magnitude or a unit is not known.
bool UseReportUnits(const std::string& choices, std::string& problem);

/// Why the reference point cannot be brought in: it comes in millimetres and moves inertias in
/// kg.m2, and the values of the report stand in other units. Empty when nothing is in its way.
std::string ReferenceProblem(const CATWBReportConversion& conversion);

/// A sentence for each unit that the report names for its own numbers and that is not the one in
/// which the conversion takes them: most likely the report was converted before. One more where a
/// report that names no units at all, as the server's do, is taken in others than the server's, and
/// one where statistics stay behind that no conversion treats.
std::vector<std::string> UnitWarnings(const CATIDOMDocument_var& document,
                                      CATWBReportConversion::Values values);
