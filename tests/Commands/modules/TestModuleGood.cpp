#include "TestModule.h"

namespace
{
class GoodCommand : public CATCommand
{
public:
    GoodCommand() : CATCommand(nullptr, "GoodCommand") {}
    const char* ClassName() const override { return "GoodCommand"; }
};
} // namespace

extern "C" WB_EXPORT CATCommand* fctCreateGoodCommand()
{
    return new GoodCommand; // the command tree takes it over
}
