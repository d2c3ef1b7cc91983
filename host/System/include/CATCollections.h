#pragma once

#include "CATUnicodeString.h"

#include <initializer_list>
#include <utility>
#include <vector>

/// An ordered list whose positions count from 1, as everywhere at the host's interfaces. Asking for
/// a position outside 1..Size() raises the host's fatal error.
template <class T>
class CATList
{
public:
    CATList() = default;
    CATList(std::initializer_list<T> items) : m_items(items) {}
    explicit CATList(std::vector<T> items) : m_items(std::move(items)) {}

    int Size() const { return static_cast<int>(m_items.size()); }
    bool IsEmpty() const { return m_items.empty(); }
    const T& operator[](int position) const { return m_items[Index(position)]; }
    T& operator[](int position) { return m_items[Index(position)]; }
    void Append(T item) { m_items.push_back(std::move(item)); }
    void Append(const CATList& list)
    {
        m_items.insert(m_items.end(), list.m_items.begin(), list.m_items.end());
    }
    /// Puts the item before the one at `position`; beyond the end it appends.
    void Insert(int position, T item);
    void RemovePosition(int position)
    {
        m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(Index(position)));
    }
    void RemoveAll() { m_items.clear(); }
    /// Makes the list `size` long; new items are `value`.
    void Resize(int size, const T& value = T())
    {
        m_items.resize(size < 0 ? 0U : static_cast<std::size_t>(size), value);
    }
    /// The position of the first item equal to `item`, 0 when there is none.
    int Locate(const T& item) const;
    const std::vector<T>& Items() const { return m_items; }
    friend bool operator==(const CATList& a, const CATList& b) { return a.m_items == b.m_items; }

private:
    std::size_t Index(int position) const;

    std::vector<T> m_items;
};

using CATListValCATUnicodeString = CATList<CATUnicodeString>;
using CATRawCollint = CATList<int>;
using CATRawColldouble = CATList<double>;

/// Raises the fatal error of a list asked for a position that it does not have. There is no item to
/// go on with, so where a handler returns the error is thrown all the same.
[[noreturn]] WB_EXPORT void CATRaisePositionOutOfRange(int position, int size);

template <class T>
std::size_t CATList<T>::Index(int position) const
{
    if (position < 1 || position > Size()) {
        CATRaisePositionOutOfRange(position, Size());
    }
    return static_cast<std::size_t>(position) - 1;
}

template <class T>
void CATList<T>::Insert(int position, T item)
{
    if (position > Size()) {
        Append(std::move(item));
        return;
    }
    m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(Index(position)), std::move(item));
}

template <class T>
int CATList<T>::Locate(const T& item) const
{
    for (std::size_t index = 0; index < m_items.size(); ++index) {
        if (m_items[index] == item) {
            return static_cast<int>(index) + 1;
        }
    }
    return 0;
}
