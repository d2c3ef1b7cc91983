#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

/// The place of a virtual operation in its table. A pointer to such a member begins with the offset
/// of the place in bytes, plus 1.
template <class Member>
std::ptrdiff_t SlotOf(Member member)
{
    std::ptrdiff_t encoded = 0;
    static_assert(sizeof(member) == 2 * sizeof(encoded));
    std::memcpy(&encoded, &member, sizeof(encoded));
    EXPECT_EQ(encoded % static_cast<std::ptrdiff_t>(sizeof(void*)), 1) << "is not virtual";
    return (encoded - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

/// A virtual operation added to a class stands behind all that the class has.
template <class Class>
class SlotProbe : public Class
{
public:
    using Class::Class;
    virtual void Added() {}
};
