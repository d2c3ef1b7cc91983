#include "CATBaseUnknown.h"

#include "CATHandle.h"

CATBaseUnknown::CATBaseUnknown() = default;

CATBaseUnknown::CATBaseUnknown(const CATBaseUnknown& /*other*/)
{}

// Assigning copies what the object says, not who holds it.
CATBaseUnknown& CATBaseUnknown::operator=(
    const CATBaseUnknown& /*other*/) // NOLINT(bugprone-unhandled-self-assignment):
                                     // nothing is copied
{
    return *this;
}

CATBaseUnknown::~CATBaseUnknown() = default;

const char* CATBaseUnknown::ClassName() const
{
    return "CATBaseUnknown";
}

void CATBaseUnknown::OnLastRelease() const
{
    delete this;
}

void CATRaiseNullHandle()
{
    throw CATNullHandle();
}
