#pragma once

#include "WBBody.h"

#include <cstdint>
#include <span>

namespace wb
{
/// Sums up a tree of bodies in one sweep. The records stand depth first, a parent right before its
/// first child; sizes[i] counts the records of the subtree that begins at i, itself included, so it
/// is 1 for a leaf. All records are in the same axes. Leaves stay as they are, every other record
/// becomes the sum of its children; what it held before does not count.
void RollUpTree(std::span<Body> records, std::span<const std::uint32_t> sizes);

/// The same where every record is in axes of its own: placements[i] says where record i stands in
/// the axes of its parent. The placement of the first record is not looked at.
void RollUpTree(std::span<Body> records, std::span<const std::uint32_t> sizes,
                std::span<const Placement> placements);

/// Puts right what a change of one record changes above it: parents[i] is the record that i stands
/// below, the first one's is itself. Costs a sum over the children of each record on the way up.
/// For records in the same axes.
void RollUpAbove(std::span<Body> records, std::span<const std::uint32_t> sizes,
                 std::span<const std::uint32_t> parents, std::uint32_t changed);
} // namespace wb
