#pragma once

#include "ComputeUnits.h"

#include <string>
#include <string_view>

/// How people read what was changed.

/// A value of a fact ("mass type Weighed, mass") as the database keeps it, in other units and with
/// them behind it: "12" is "12 kg", "1;2;3" of a centre "1; 2; 3 mm", "percent;2;3" of a precision
/// "lower 2 %, upper 3 %". "-" for an empty text; a text that is no number of its fact stays as it
/// is, so what was typed with a unit keeps it.
std::string ShownChangeValue(std::string_view fact, std::string_view text,
                             const ComputeUnits& units);

/// A moment of the database, UTC "yyyy-mm-dd hh:mm:ss", in the time of this place:
/// "yyyy/mm/dd hh:mm:ss". A text that is none stays as it is.
std::string ShownMoment(const std::string& moment);

/// The same for programs: "yyyy-mm-ddThh:mm:ssZ".
std::string MomentForPrograms(const std::string& moment);
