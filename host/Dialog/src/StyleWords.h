#pragma once

#include <span>

/// What a style word does to one kind of control. Each kind has one table of the words it knows; a
/// word that is not in it leaves the kind's plain look.
template <class Look>
struct StyleWord
{
    int word;
    Look look;
};

template <class Look>
constexpr Look LookOf(int style, std::span<const StyleWord<Look>> words, Look plain)
{
    for (const StyleWord<Look>& entry : words) {
        if (entry.word == style) {
            return entry.look;
        }
    }
    return plain;
}
