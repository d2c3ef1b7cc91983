#pragma once

#include "CATServerCaller.h"

#include <functional>
#include <memory>

/// The caller that CATSetServerCaller installed last; null when there is no server.
std::shared_ptr<CATServerCaller> CATCurrentServerCaller();

/// How a call to the server ended.
enum class CATServerCallEnd
{
    Done,      ///< the caller came back
    Cancelled, ///< the user had it stopped; what the caller came back with does not count
    Failed,    ///< the caller threw; what it did before that is not known
    NotMade,   ///< no server, or another call is waiting; the diagnostics say which
};

using CATServerWork = std::function<void(CATServerCaller& caller, CATServerCallState& state)>;

/// Runs `work` on the server thread while the interface thread waits for it. What `work` uses must
/// be plain data: texts and handles of the host stay on the interface thread. It may refer to the
/// locals of whoever calls, since the thread is done with it before this returns.
CATServerCallEnd CATCallServer(const CATServerWork& work);
