#include "TestModule.h"

extern "C" WB_EXPORT CATCommand* fctCreateNoCommand()
{
    return nullptr;
}
