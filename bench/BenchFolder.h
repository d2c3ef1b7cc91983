#pragma once

#include <string>

/// A path in a folder of this run's own, which is made at the first call and goes away at the end
/// of the program.
std::string BenchFile(const std::string& name);
