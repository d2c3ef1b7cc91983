#pragma once

#include <string>

/// Writes all of the text to the standard output. False when it, or what was printed before, could
/// not be written: the device is full, say.
bool WriteStandardOutput(const std::string& text);

inline constexpr const char* kStandardOutputProblem = "the standard output cannot be written";
