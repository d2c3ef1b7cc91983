#pragma once

#include "CATUnicodeString.h"
#include "ListCells.h"

#include <string>
#include <vector>

enum class ListSort
{
    AsDelivered,
    Up,
    Down
};

/// Whether a row holds every word in some cell, whatever its letter case. Without words every row
/// passes.
bool RowPasses(const ListCells& cells, std::size_t row, const std::vector<std::string>& words);
/// The words of a filter text, in lower case.
std::vector<std::string> FilterWords(const CATUnicodeString& filter);

/// The rows that are shown, in the order in which they are shown, as indices of the rows of
/// `cells`.
///
/// A column whose every filled cell begins with a number is sorted by these numbers, whatever unit
/// follows them; "---" stands for no value and counts as empty. Any other column is sorted as text,
/// whatever its letter case, numbers within the texts by their value. Empty cells come last in both
/// directions, and rows that are equal keep the owner's order.
std::vector<int> ShownRows(const ListCells& cells, const std::vector<std::string>& filterWords,
                           ListSort sort, std::size_t column);
