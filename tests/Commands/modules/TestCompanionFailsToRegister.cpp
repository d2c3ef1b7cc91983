#include "CATHandle.h"
#include "TestModule.h"

extern "C" WB_EXPORT void TestCompanionFailsToRegisterRegister()
{
    CATRaiseNullHandle();
}
