#include "CATDiagnostics.h"
#include "TestModule.h"

extern "C" WB_EXPORT void TestCompanionGoodRegister()
{
    CATDiagnosticOutput().Line("TestCompanionGood registers");
}
