#include "CATCommand.h"

#include "CATCommandWatch.h"
#include "CATDestructionQueue.h"
#include "CATSession.h"

#include <algorithm>

/// Known to both sides, and kept by a sending that is under way: a handler may end its own
/// subscription, or destroy either side, and still runs to its end.
struct CATCommand::Subscription
{
    CallbackId id;
    CATCommand* publisher; // null once the subscription has ended
    CATCommand* subscriber;
    const CATEvent& event;
    Handler handler;
};

struct CATCommand::Callbacks
{
    std::vector<std::shared_ptr<Subscription>> published;
    std::vector<std::shared_ptr<Subscription>> subscribed;
    CallbackId lastId = 0;
};

CATCommand::CATCommand(CATCommand* parent, const CATString& name)
    : m_name(name),
      m_parent(nullptr),
      m_life(std::make_shared<char>()),
      m_callbacks(std::make_unique<Callbacks>())
{
    JoinParent(parent);
}

CATCommand::~CATCommand()
{
    m_life.reset();
    // Before the children go: what they still send must not reach handlers of an object whose own
    // part is gone already.
    DropCallbacks();
    while (!m_children.empty()) {
        GiveBack(m_children.back());
    }
    LeaveParent();
    CATDestructionQueue::Get().Remove(this);
    CATSession::Ended(this);
}

long CATCommand::Activate(CATCommand*, const CATNotification*)
{
    return S_OK;
}

long CATCommand::Desactivate(CATCommand*, const CATNotification*)
{
    return S_OK;
}

long CATCommand::Cancel(CATCommand*, const CATNotification*)
{
    RequestDelayedDestruction();
    return S_OK;
}

CATString CATCommand::GetResourceFilename(int) const
{
    return {};
}

bool CATCommand::RecoverFromFault()
{
    return false;
}

CATCommand* CATCommand::Child(int position) const
{
    if (position < 1 || position > ChildCount()) {
        return nullptr;
    }
    return m_children[static_cast<std::size_t>(position) - 1];
}

void CATCommand::RequestDelayedDestruction()
{
    CATDestructionQueue::Get().Add(this);
    CATSession::Ended(this);
}

bool CATCommand::IsDestructionRequested() const
{
    return CATDestructionQueue::Get().Contains(this);
}

CATCommand::CallbackId CATCommand::Subscribe(CATCommand* publisher, const CATEvent& event,
                                             Handler handler)
{
    if (publisher == nullptr || !handler) {
        return 0;
    }
    const CallbackId id = ++m_callbacks->lastId;
    auto subscription = std::make_shared<Subscription>(
        Subscription{id, publisher, this, event, std::move(handler)});
    publisher->m_callbacks->published.push_back(subscription);
    m_callbacks->subscribed.push_back(std::move(subscription));
    return id;
}

void CATCommand::Unsubscribe(CallbackId callback)
{
    auto& subscribed = m_callbacks->subscribed;
    const auto found =
        std::ranges::find_if(subscribed, [callback](const auto& s) { return s->id == callback; });
    if (found == subscribed.end()) {
        return;
    }
    const std::shared_ptr<Subscription> subscription = *found;
    subscribed.erase(found);
    std::erase(subscription->publisher->m_callbacks->published, subscription);
    subscription->publisher = nullptr;
}

void CATCommand::UnsubscribeFrom(CATCommand* publisher)
{
    std::vector<CallbackId> ids;
    for (const auto& subscription : m_callbacks->subscribed) {
        if (subscription->publisher == publisher) {
            ids.push_back(subscription->id);
        }
    }
    for (const CallbackId id : ids) {
        Unsubscribe(id);
    }
}

void CATCommand::Send(const CATEvent& event, int detail)
{
    // From here on only the copies are touched: any handler may destroy this command.
    std::vector<std::shared_ptr<Subscription>> called;
    std::ranges::copy_if(m_callbacks->published, std::back_inserter(called),
                         [&event](const auto& s) { return &s->event == &event; });
    for (const auto& subscription : called) {
        if (subscription->publisher == nullptr) {
            continue;
        }
        CATSession::RunGuarded(subscription->subscriber, [&] {
            subscription->handler(CATNotification{event, *subscription->publisher, detail});
        });
    }
}

void CATCommand::JoinParent(CATCommand* parent)
{
    m_parent = parent;
    if (parent != nullptr) {
        parent->m_children.push_back(this);
    }
}

void CATCommand::LeaveParent()
{
    if (m_parent != nullptr) {
        std::erase(m_parent->m_children, this);
        m_parent = nullptr;
    }
}

void CATCommand::GiveBack(CATCommand* command)
{
    const CATCommandWatch<CATCommand> watch(command);
    command->Release();
    if (watch.Get() != nullptr) {
        command->LeaveParent();
    }
}

void CATCommand::DropCallbacks()
{
    while (!m_callbacks->subscribed.empty()) {
        Unsubscribe(m_callbacks->subscribed.back()->id);
    }
    while (!m_callbacks->published.empty()) {
        const auto& last = m_callbacks->published.back();
        last->subscriber->Unsubscribe(last->id);
    }
}
