#pragma once

#include "PositionTable.h"

#include <cstdint>

namespace wb
{
/// The part and the use that a row speaks of, as positions in the product.
struct RowSubject
{
    static constexpr std::uint32_t kNone = PositionTable::kNone;

    std::uint32_t part = kNone;   // none: the row was complained about
    std::uint32_t parent = kNone; // none: the row only states facts
    std::uint32_t use = kNone;

    bool HasPart() const { return part != kNone; }
    bool HasUse() const { return use != kNone; }
};
} // namespace wb
