#pragma once

#include <string>
#include <string_view>

/// Appends a text with its quotes, as JSON wants it.
void AppendJsonText(std::string& json, std::string_view text);
/// Appends the shortest text that reads back as exactly this number; null for an unknown one.
void AppendJsonNumber(std::string& json, double value);
