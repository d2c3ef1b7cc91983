#pragma once

#include "CATBaseUnknown.h"

#include <utility>

/// Raised when a handle that holds nothing is asked for its object. The session catches it where a
/// command runs, so that a missing object ends one command and not the program.
class WB_EXPORT CATNullHandle
{
public:
    const char* What() const { return "a null handle was used"; }
};

/// Raises CATNullHandle; kept out of line so that the handle stays small where it is used.
[[noreturn]] WB_EXPORT void CATRaiseNullHandle();

/// A counted handle on a shared object. T derives from CATBaseUnknown or is an interface that such
/// an object implements: taking a handle of another type asks the object whether it answers T, and
/// gives a null handle when it does not.
template <class T>
class CATHandle
{
public:
    CATHandle() = default;
    /// Shares the object: the caller keeps the reference it has.
    CATHandle(T* object) : m_object(object) { Hold(); } // NOLINT(google-explicit-constructor)
    CATHandle(const CATHandle& other) : m_object(other.m_object) { Hold(); }
    CATHandle(CATHandle&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    CATHandle(const CATHandle<U>& other) // NOLINT(google-explicit-constructor)
        : m_object(dynamic_cast<T*>(other.Get()))
    {
        Hold();
    }
    CATHandle& operator=(CATHandle other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~CATHandle() { Drop(); }

    /// Takes over the reference that the caller owns, as after "new".
    static CATHandle Adopt(T* object)
    {
        CATHandle handle;
        handle.m_object = object;
        return handle;
    }

    T* Get() const { return m_object; }
    bool IsNull() const { return m_object == nullptr; }
    explicit operator bool() const { return m_object != nullptr; }
    /// Raises CATNullHandle when the handle is empty.
    T* operator->() const
    {
        if (m_object == nullptr) {
            CATRaiseNullHandle();
        }
        return m_object;
    }
    T& operator*() const { return *operator->(); }
    friend bool operator==(const CATHandle& a, const CATHandle& b)
    {
        return a.m_object == b.m_object;
    }

private:
    // The count is reached through the complete object, since T may be an interface beside it.
    static const CATBaseUnknown* Counted(T* object)
    {
        return dynamic_cast<const CATBaseUnknown*>(object);
    }
    void Hold() const
    {
        if (m_object != nullptr) {
            Counted(m_object)->AddRef();
        }
    }
    void Drop() const
    {
        if (m_object != nullptr) {
            Counted(m_object)->Release();
        }
    }

    T* m_object = nullptr;
};

using CATBaseUnknown_var = CATHandle<CATBaseUnknown>;
