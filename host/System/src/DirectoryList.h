#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The directories of a search path: a list separated by ";", its empty entries skipped.
std::vector<std::string> SplitDirectories(std::string_view list);
