#pragma once

#include <optional>
#include <string_view>

/// How a list reads its cells: what is a value, and what is a number.

/// A cell that holds no value: an empty one, or the sign for none.
inline bool IsEmptyCell(std::string_view text)
{
    return text.empty() || text == "---";
}

/// The number that a cell begins with, in the session's locale, whatever follows it ("12.5kg").
/// Words that the C library would read as numbers ("nan", "inf", as in "Nancy") are texts here.
std::optional<double> NumberOf(std::string_view text);

/// Whether a cell begins with a number.
bool BeginsWithNumber(std::string_view text);
