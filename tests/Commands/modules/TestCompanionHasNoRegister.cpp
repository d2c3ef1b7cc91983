#include "TestModule.h"

extern "C" WB_EXPORT void RegisterUnderAnotherName()
{}
