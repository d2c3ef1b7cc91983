#include "TestModule.h"

void FunctionThatNoLibraryHas();

extern "C" WB_EXPORT CATCommand* fctCreateGoodCommand()
{
    FunctionThatNoLibraryHas();
    return nullptr;
}
