#include "DomArena.h"

// A room that is free is out of bounds where the build looks for such mistakes.
#include <sanitizer/asan_interface.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <new>

namespace
{

constexpr std::size_t kFinest = 8;
constexpr std::size_t kEndOfFine = 128;
constexpr std::size_t kFineClasses = kEndOfFine / kFinest;
constexpr std::size_t kClassesOfDoubling = 8;

std::size_t RoundUp(std::size_t bytes, std::size_t step)
{
    return (bytes + step - 1) / step * step;
}

// The distance of neighbouring classes above kEndOfFine.
std::size_t StepOf(std::size_t bytes)
{
    return std::bit_ceil(bytes) / (2 * kClassesOfDoubling);
}

void* Allocate(std::size_t bytes)
{
    void* block = std::malloc(bytes);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

DomArena::~DomArena()
{
    while (m_chunks != nullptr) {
        Chunk* chunk = m_chunks;
        m_chunks = chunk->next;
        std::free(chunk);
    }
    while (m_large != nullptr) {
        LargeRoom* room = m_large;
        m_large = room->next;
        std::free(room);
    }
}

std::size_t DomArena::RoomFor(std::size_t bytes)
{
    if (bytes <= kEndOfFine) {
        return RoundUp(std::max(bytes, kFinest), kFinest);
    }
    return RoundUp(bytes, StepOf(bytes));
}

std::size_t DomArena::ClassOf(std::size_t room)
{
    if (room <= kEndOfFine) {
        return room / kFinest;
    }
    const auto doublings =
        static_cast<std::size_t>(std::bit_width(std::bit_ceil(room) / kEndOfFine)) - 2;
    return kFineClasses + doublings * kClassesOfDoubling + room / StepOf(room) - kClassesOfDoubling;
}

void* DomArena::Take(std::size_t bytes)
{
    const std::size_t room = RoomFor(bytes);
    if (room > kMostInChunk) {
        return TakeLarge(room);
    }
    FreeRoom*& free = m_free[ClassOf(room)];
    if (free != nullptr) {
        FreeRoom* taken = free;
        ASAN_UNPOISON_MEMORY_REGION(taken, room);
        free = taken->next;
        return taken;
    }
    if (static_cast<std::size_t>(m_end - m_at) < room) {
        AddChunk(room);
    }
    char* taken = m_at;
    m_at += room;
    return taken;
}

void DomArena::GiveBack(void* room, std::size_t bytes)
{
    const std::size_t size = RoomFor(bytes);
    if (size > kMostInChunk) {
        GiveBackLarge(room);
        return;
    }
    FreeRoom*& free = m_free[ClassOf(size)];
    free = new (room) FreeRoom{free};
    ASAN_POISON_MEMORY_REGION(room, size);
}

// A small document costs little, a large one asks the system rarely.
void DomArena::AddChunk(std::size_t room)
{
    const std::size_t size = std::max(m_nextChunk, sizeof(Chunk) + room);
    auto* bytes = static_cast<char*>(Allocate(size));
    m_chunks = new (bytes) Chunk{m_chunks};
    m_at = bytes + sizeof(Chunk);
    m_end = bytes + size;
    m_nextChunk = std::min(2 * m_nextChunk, kLargestChunk);
}

void* DomArena::TakeLarge(std::size_t room)
{
    auto* taken = new (Allocate(sizeof(LargeRoom) + room)) LargeRoom{nullptr, m_large};
    if (m_large != nullptr) {
        m_large->previous = taken;
    }
    m_large = taken;
    return taken + 1;
}

void DomArena::GiveBackLarge(void* room)
{
    LargeRoom* given = static_cast<LargeRoom*>(room) - 1;
    (given->previous == nullptr ? m_large : given->previous->next) = given->next;
    if (given->next != nullptr) {
        given->next->previous = given->previous;
    }
    std::free(given);
}
