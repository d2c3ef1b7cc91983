#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wb
{
/// Finds positions in a list by a hash of what stands there. It keeps no keys of its own: whoever
/// asks compares with the list. That makes it a small flat table, a fraction of the time and memory
/// of a map for tables of many rows.
class PositionTable
{
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    /// The position of that hash for which matches(position) is true; kNone when there is none.
    template <typename Matches>
    std::uint32_t Find(std::size_t hash, const Matches& matches) const
    {
        if (m_slots.empty()) {
            return kNone;
        }
        const auto mark = Mark(hash);
        for (std::size_t slot = mark & Mask(); m_slots[slot].position != kNone;
             slot = (slot + 1) & Mask()) {
            if (m_slots[slot].mark == mark && matches(m_slots[slot].position)) {
                return m_slots[slot].position;
            }
        }
        return kNone;
    }

    /// Adds a position whose key is not in the table.
    void Add(std::size_t hash, std::uint32_t position)
    {
        // At most half of the slots are taken, so that a search soon meets a free one.
        if (m_slots.size() < 2 * (m_count + 1)) {
            Grow();
        }
        ++m_count;
        Place({Mark(hash), position});
    }

private:
    struct Slot
    {
        std::uint32_t mark = 0;
        std::uint32_t position = kNone;
    };

    static std::uint32_t Mark(std::size_t hash)
    {
        return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
    }
    std::size_t Mask() const { return m_slots.size() - 1; }

    void Place(const Slot& added)
    {
        std::size_t slot = added.mark & Mask();
        while (m_slots[slot].position != kNone) {
            slot = (slot + 1) & Mask();
        }
        m_slots[slot] = added;
    }

    void Grow()
    {
        constexpr std::size_t kFirst = 64; // a power of two, as every later size
        std::vector<Slot> before(m_slots.empty() ? kFirst : 2 * m_slots.size());
        before.swap(m_slots);
        for (const Slot& slot : before) {
            if (slot.position != kNone) {
                Place(slot);
            }
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_count = 0;
};
} // namespace wb
