#pragma once

#include "CATCkeGlobalFunctions.h"

#include <utility>

/// Hears of changed units as long as it stands: a window holds one, and is not told any more when
/// it is gone.
class WBUnitWatch
{
public:
    explicit WBUnitWatch(CATCkeGlobalFunctions::UnitListener listener)
        : m_number(CATCkeGlobalFunctions::AddUnitListener(std::move(listener)))
    {}
    ~WBUnitWatch() { CATCkeGlobalFunctions::RemoveUnitListener(m_number); }
    WBUnitWatch(const WBUnitWatch&) = delete;
    WBUnitWatch& operator=(const WBUnitWatch&) = delete;

private:
    int m_number;
};
