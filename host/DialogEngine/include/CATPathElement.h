#pragma once

#include "CATBaseUnknown.h"
#include "CATHandle.h"

#include <vector>

/// A path of objects, from the root (position 1) down to the picked leaf, with a cursor.
class WB_EXPORT CATPathElement : public CATBaseUnknown
{
public:
    /// Root first. The cursor stands on the leaf.
    explicit CATPathElement(std::vector<CATBaseUnknown_var> objects);
    const char* ClassName() const override;

    int Size() const { return static_cast<int>(m_objects.size()); }
    /// The object at a position from 1; null outside the path.
    CATBaseUnknown_var Element(int position) const;

    /// Puts the cursor on the root, on the leaf. S_FALSE for an empty path.
    long InitToTopElement();
    long InitToLeafElement();
    /// The position of the cursor, 0 in an empty path.
    int Position() const { return m_position; }
    CATBaseUnknown_var Current() const { return Element(m_position); }
    /// Moves the cursor one towards the root or the leaf; S_FALSE at the end, where it stays.
    long ToParent();
    long ToChild();

    /// The object nearest to the leaf that answers T, null when none does.
    template <class T>
    CATHandle<T> Search() const
    {
        for (int position = Size(); position >= 1; --position) {
            if (CATHandle<T> object = Element(position)) {
                return object;
            }
        }
        return {};
    }

private:
    std::vector<CATBaseUnknown_var> m_objects;
    int m_position;
};
using CATPathElement_var = CATHandle<CATPathElement>;
