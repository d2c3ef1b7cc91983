#pragma once

#include "CATPendingChanges.h"

#include <string>
#include <string_view>
#include <vector>

/// Reads the answer of method "WBPendingChanges". `problem` is empty, or a sentence that says why
/// there are no changes: no answer, what the server says instead, the field that cannot be read.
std::vector<CATPendingChange> ReadPendingChanges(std::string_view answer, std::string& problem);
