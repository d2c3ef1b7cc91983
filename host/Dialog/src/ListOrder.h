#pragma once

#include "CATCollections.h"

#include <string_view>
#include <vector>

/// The rows of a list as their owner wrote them; a row may be shorter than the list has columns.
using ListRows = std::vector<CATListValCATUnicodeString>;

enum class ListSort
{
    AsDelivered,
    Up,
    Down
};

/// The text of a cell; `row` and `column` count from 0, and a cell that is not there is empty.
const CATUnicodeString& CellText(const ListRows& rows, std::size_t row, std::size_t column);

/// Whether a row holds every word of `filter` in some cell, whatever its letter case. An empty
/// filter lets every row pass.
bool RowPasses(const CATListValCATUnicodeString& row, const std::vector<std::string>& words);
/// The words of a filter text, in lower case.
std::vector<std::string> FilterWords(const CATUnicodeString& filter);

/// The rows that are shown, in the order in which they are shown, as indices into `rows`.
///
/// A column whose every filled cell begins with a number is sorted by these numbers, whatever unit
/// follows them; "---" stands for no value and counts as empty. Any other column is sorted as text,
/// whatever its letter case, numbers within the texts by their value. Empty cells come last in both
/// directions, and rows that are equal keep the owner's order.
std::vector<int> ShownRows(const ListRows& rows, const std::vector<std::string>& filterWords,
                           ListSort sort, std::size_t column);
