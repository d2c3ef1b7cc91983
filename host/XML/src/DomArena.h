#pragma once

#include <array>
#include <cstddef>

/// The room of one document: nodes, attributes, names and texts. Rooms come in classes of sizes and
/// are used again by class, so that giving back and taking in turns does not grow the document.
/// All of it goes away at once, with the document.
class DomArena
{
public:
    DomArena() = default;
    DomArena(const DomArena&) = delete;
    DomArena& operator=(const DomArena&) = delete;
    ~DomArena();

    /// A room of at least so many bytes, aligned for a pointer; it really has RoomFor(bytes).
    void* Take(std::size_t bytes);
    /// Gives a room back; `bytes` is what was asked for, or what RoomFor made of it.
    void GiveBack(void* room, std::size_t bytes);
    /// The size of the room that is taken for so many bytes.
    static std::size_t RoomFor(std::size_t bytes);

private:
    struct FreeRoom
    {
        FreeRoom* next;
    };
    struct Chunk
    {
        Chunk* next;
    };
    /// Heads a room that is too large for the chunks and is a block of memory of its own.
    struct LargeRoom
    {
        LargeRoom* previous;
        LargeRoom* next;
    };

    // Up to 128 bytes every multiple of 8 is a class, beyond that eight classes to each doubling.
    static constexpr std::size_t kMostInChunk = 16384;
    static constexpr std::size_t kClasses = 73;
    static constexpr std::size_t kFirstChunk = 4096;
    static constexpr std::size_t kLargestChunk = std::size_t{1} << 20U;

    static std::size_t ClassOf(std::size_t room);
    void AddChunk(std::size_t room);
    void* TakeLarge(std::size_t room);
    void GiveBackLarge(void* room);

    std::array<FreeRoom*, kClasses> m_free{};
    Chunk* m_chunks = nullptr;
    std::size_t m_nextChunk = kFirstChunk;
    char* m_at = nullptr;
    char* m_end = nullptr;
    LargeRoom* m_large = nullptr;
};
