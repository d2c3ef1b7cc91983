#include "NameTable.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace
{

constexpr std::size_t kFirstSlots = 64;

// Drawn anew in each process, so that nobody can prepare a text whose names all meet in one slot.
std::uint64_t ProcessSalt()
{
    static const std::uint64_t salt = [] {
        std::random_device device;
        return (std::uint64_t{device()} << 32U) | device();
    }();
    return salt;
}

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9e3779b97f4a7c15U;
    return hash ^ (hash >> 29U);
}

} // namespace

NameTable::NameTable(DomArena& arena)
    : m_arena(arena), m_salt(ProcessSalt()), m_slots(kFirstSlots, 0)
{}

std::uint64_t NameTable::Hash(std::string_view name) const
{
    std::uint64_t hash = m_salt ^ name.size();
    while (name.size() >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, name.data(), sizeof(word));
        hash = Mixed(hash, word);
        name.remove_prefix(sizeof(word));
    }
    std::uint64_t rest = 0;
    std::memcpy(&rest, name.data(), name.size());
    return Mixed(Mixed(hash, rest), m_salt);
}

std::size_t NameTable::SlotOf(std::string_view name, std::uint64_t hash) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hash & mask;
    while (m_slots[slot] != 0) {
        const std::uint32_t number = m_slots[slot] - 1;
        if (m_names[number].hash == hash && Text(number) == name) {
            break;
        }
        slot = (slot + 1) & mask;
    }
    return slot;
}

void NameTable::Grow()
{
    m_slots.assign(2 * m_slots.size(), 0);
    for (std::uint32_t number = 0; number < m_names.size(); ++number) {
        m_slots[SlotOf(Text(number), m_names[number].hash)] = number + 1;
    }
}

std::uint32_t NameTable::Intern(std::string_view name)
{
    const std::uint64_t hash = Hash(name);
    const std::size_t slot = SlotOf(name, hash);
    if (m_slots[slot] != 0) {
        return m_slots[slot] - 1;
    }
    auto* text = static_cast<char*>(m_arena.Take(name.size() + 3));
    char* end = text;
    *end++ = ' ';
    end = std::copy(name.begin(), name.end(), end);
    *end++ = '=';
    *end = '"';
    const auto number = static_cast<std::uint32_t>(m_names.size());
    m_names.push_back({text, static_cast<std::uint32_t>(name.size()), 0, hash, false});
    m_slots[slot] = number + 1;
    if (2 * m_names.size() > m_slots.size()) {
        Grow();
    }
    return number;
}

int NameTable::Find(std::string_view name) const
{
    return static_cast<int>(m_slots[SlotOf(name, Hash(name))]) - 1;
}

bool NameTable::IsAt(std::uint32_t number, const char* zeroTerminated) const
{
    const Name& name = m_names[number];
    return std::strncmp(name.text + 1, zeroTerminated, name.length) == 0 &&
           zeroTerminated[name.length] == '\0';
}
