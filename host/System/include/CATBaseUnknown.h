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

    void AddRef() const;
    /// Gives one reference back; the object goes away with its last one.
    void Release() const;
    /// How many references are held.
    int ReferenceCount() const;

private:
    mutable int m_references = 1;
};
