#include "CATServerCallWatch.h"

#include "CATSession.h"
#include "CATToldCalls.h"

#include <utility>
#include <vector>

namespace
{
using Listener = CATServerCallWatch::Listener;

std::vector<std::weak_ptr<const Listener>>& Listeners()
{
    static std::vector<std::weak_ptr<const Listener>> listeners;
    return listeners;
}
} // namespace

CATServerCallWatch::CATServerCallWatch(Listener listener)
    : m_listener(std::make_shared<const Listener>(std::move(listener)))
{
    Listeners().push_back(m_listener);
}

CATServerCallWatch::~CATServerCallWatch()
{
    std::erase_if(Listeners(),
                  [this](const auto& listener) { return listener.lock() == m_listener; });
}

void CATTellServerCall(const CATUnicodeString& method)
{
    // A copy, since listeners come and go while they are told.
    const auto listeners = Listeners();
    for (const auto& watched : listeners) {
        // Held while it runs: it may end its own watch.
        if (const auto listener = watched.lock()) {
            CATSession::RunGuarded(nullptr, [&] { (*listener)(method); });
        }
    }
}
