#pragma once

#include "WBExport.h"

/// The base of everything that the session shares by counted reference. A new object has one
/// reference, which belongs to whoever made it. Objects live on the user-interface thread; the
/// count is not protected against others.
class WB_EXPORT CATBaseUnknown
{
public:
    CATBaseUnknown();
    /// A copy is an object of its own: it starts with one reference, whatever the original has.
    CATBaseUnknown(const CATBaseUnknown& other);
    CATBaseUnknown& operator=(const CATBaseUnknown& other);

    // Slot order is binary interface: append, never sort.
    virtual ~CATBaseUnknown();
    /// The name of the object's own class, for diagnostic lines.
    virtual const char* ClassName() const;

    void AddRef() const { ++m_references; }
    /// Gives one reference back; the object goes away with its last one.
    void Release() const
    {
        if (--m_references == 0) {
            OnLastRelease();
        }
    }
    /// How many references are held.
    int ReferenceCount() const { return m_references; }

protected:
    /// What happens when nobody holds the object any more: it is deleted. An object that lives in a
    /// larger one overrides it and stays; it may be held again.
    virtual void OnLastRelease() const;
    /// Makes the object one that nobody holds yet, to be called once by such an object.
    void BeginUnheld() const { m_references = 0; }

private:
    mutable int m_references = 1;
};
