#include "CATCollections.h"

#include "CATFatalError.h"

void CATRaisePositionOutOfRange(int position, int size)
{
    const CATUnicodeString text = "position " + CATUnicodeString::FromInt(position) +
                                  " asked of a list with " + CATUnicodeString::FromInt(size) +
                                  " items";
    const int line = __LINE__;
    CATRaiseFatalError(text, "CATCollections", line);
    throw CATFatalError(text.ToStdString(), "CATCollections", line);
}
