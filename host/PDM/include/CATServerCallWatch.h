#pragma once

#include "CATUnicodeString.h"
#include "WBExport.h"

#include <functional>
#include <memory>

/// Has a listener told of each call of a server method (RunServerCode) that the session has made,
/// while the watch lives: a window that shows what others may have changed reads it anew. It is
/// told on the interface thread, after the server has answered and before the caller has the
/// answer; also of a call that failed or was cancelled, since the server may have done its work all
/// the same. Calls that never went to a server, because there was none or another call was waiting,
/// are not told.
///
/// The listener may call the server itself (the watches are told of that call too), and may end
/// this watch or others: one that ended is not told any more, one that began meanwhile hears the
/// next call. A fault in a listener is reported and keeps nobody else from being told.
class WB_EXPORT CATServerCallWatch
{
public:
    using Listener = std::function<void(const CATUnicodeString& method)>;
    explicit CATServerCallWatch(Listener listener);
    ~CATServerCallWatch();
    CATServerCallWatch(const CATServerCallWatch&) = delete;
    CATServerCallWatch& operator=(const CATServerCallWatch&) = delete;

private:
    std::shared_ptr<const Listener> m_listener;
};
