#pragma once

#include "DomArena.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// The names of one document, each kept once and known by its number from 0.
class NameTable
{
public:
    explicit NameTable(DomArena& arena);

    /// The number of the name, which is added when it is new.
    std::uint32_t Intern(std::string_view name);
    /// The number, or -1 when the name was never added.
    int Find(std::string_view name) const;
    std::size_t Count() const { return m_names.size(); }

    std::string_view Text(std::uint32_t number) const
    {
        return {m_names[number].text + 1, m_names[number].length};
    }
    /// The name as it stands before an attribute's value: ` name="`.
    std::string_view AttributeStart(std::uint32_t number) const
    {
        return {m_names[number].text, m_names[number].length + 3};
    }
    /// Whether the text is that name and ends with a zero behind it.
    bool IsAt(std::uint32_t number, const char* zeroTerminated) const;

    /// True once an element or attribute had the name; lists may ask for names that none has.
    bool IsUsed(std::uint32_t number) const { return m_names[number].isUsed; }
    void MarkUsed(std::uint32_t number) { m_names[number].isUsed = true; }

    /// Where an attribute of that name stood when one was last looked for: a guess.
    std::uint32_t LastIndex(std::uint32_t number) const { return m_names[number].lastIndex; }
    void SetLastIndex(std::uint32_t number, std::uint32_t index) const
    {
        m_names[number].lastIndex = index;
    }

private:
    struct Name
    {
        const char* text; // as AttributeStart gives it
        std::uint32_t length;
        mutable std::uint32_t lastIndex;
        std::uint64_t hash;
        bool isUsed;
    };

    std::uint64_t Hash(std::string_view name) const;
    // The slot that holds the name's number, or the free one where it belongs.
    std::size_t SlotOf(std::string_view name, std::uint64_t hash) const;
    void Grow();

    DomArena& m_arena;
    std::uint64_t m_salt;
    std::vector<Name> m_names;
    std::vector<std::uint32_t> m_slots; // numbers from 1; 0 is free; the size is a power of two
};
