#include "CATServerCaller.h"

#include "CATServerCall.h"

#include <utility>

CATServerCaller::~CATServerCaller() = default;

namespace
{
std::shared_ptr<CATServerCaller>& SessionCaller()
{
    static std::shared_ptr<CATServerCaller> caller;
    return caller;
}
} // namespace

std::shared_ptr<CATServerCaller> CATSetServerCaller(std::shared_ptr<CATServerCaller> caller)
{
    return std::exchange(SessionCaller(), std::move(caller));
}

std::shared_ptr<CATServerCaller> CATCurrentServerCaller()
{
    return SessionCaller();
}
