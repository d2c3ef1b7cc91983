#pragma once

#include "TableColumns.h"
#include "TableDraft.h"
#include "WBProduct.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

namespace wb
{
/// A number that somebody typed, cut into what it says.
struct TypedNumber
{
    NumberText shown;
    double value = kUnknown;  // as typed
    double stored = kUnknown; // in storage units
};

/// The number of that column among the texts as typed; nothing where none was kept.
std::optional<TypedNumber> ReadTyped(const std::string& typed, Column column);

/// As typed where that reads back as what is stored. The shortest form in the storage unit, which
/// is the first of its magnitude, always does.
NumberText TextOf(double stored, const std::string& typed, Column column);

/// Fills the row's cell of that column; an unknown number fills nothing.
void PutNumber(TableDraft& draft, Column column, double stored, const std::string& typed);

/// All of some neighbouring columns as typed; nothing where one of them was not.
template <std::size_t count>
std::optional<std::array<TypedNumber, count>> ReadAllTyped(const std::string& typed, Column first)
{
    std::array<TypedNumber, count> all;
    for (std::size_t i = 0; i < count; ++i) {
        auto one = ReadTyped(typed, Next(first, i));
        if (!one) {
            return std::nullopt;
        }
        all[i] = std::move(*one);
    }
    return all;
}
} // namespace wb
