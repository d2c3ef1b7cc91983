#pragma once

#include <string_view>
#include <vector>

/// The text without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// What stands between the commas of an option, without the blanks around it. A text without a
/// comma is one item, an empty one too.
std::vector<std::string_view> SplitAtCommas(std::string_view text);
