#include "CATHandle.h"
#include "TestModule.h"

extern "C" WB_EXPORT CATCommand* fctCreateFailingCommand()
{
    const CATHandle<CATCommand> nothing;
    return nothing->Parent();
}
