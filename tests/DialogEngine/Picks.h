#pragma once

#include "CATPathElement.h"

/// A picked path of one object.
inline CATPathElement_var MakePick()
{
    return CATPathElement_var::Adopt(
        new CATPathElement({CATBaseUnknown_var::Adopt(new CATBaseUnknown)}));
}
