#pragma once

#include "WBTexts.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The text without the blanks around it.
std::string_view WithoutBlanks(std::string_view text);

/// What stands between the commas of an option, without the blanks around it. A text without a
/// comma is one item, an empty one too.
std::vector<std::string_view> SplitAtCommas(std::string_view text);

/// "--at: expected cg or origin, found "here"".
std::string Expected(const char* option, const std::string& expected, std::string_view typed);

/// A word that an option knows, in lower case, and what it means.
template <class Value>
struct OptionWord
{
    std::string_view name;
    Value value;
};

/// The value of a word in any letter case, or nothing.
template <class Words>
auto FindWord(const Words& words, std::string_view typed)
    -> std::optional<decltype(words.front().value)>
{
    for (const auto& word : words) {
        if (wb::LowerCase(typed) == word.name) {
            return word.value;
        }
    }
    return std::nullopt;
}
