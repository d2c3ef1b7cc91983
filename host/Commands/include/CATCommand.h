#pragma once

#include "CATBaseUnknown.h"
#include "CATCollections.h"
#include "CATEvent.h"
#include "CATStatus.h"
#include "CATString.h"

#include <functional>
#include <memory>
#include <vector>

/// How a command shares the session with others.
enum class CATCommandMode {
    Exclusive = 0, ///< cancels the running exclusive command when it starts
    Shared = 1,    ///< runs beside an exclusive one, hidden (Desactivate) while that one runs
};

/// A node of the session's command tree: interactive commands, agents, windows and controls are such
/// nodes. The tree owns them: a command goes away with its parent or by delayed destruction, and
/// nobody else deletes it.
class WB_EXPORT CATCommand : public CATBaseUnknown
{
public:
    using Handler = std::function<void(const CATNotification& notification)>;
    /// Identifies one subscription of a subscriber; 0 is none.
    using CallbackId = long;

    /// Joins the parent's children as the last one. Without a parent the command is a root of its
    /// own, and belongs to whoever made it.
    CATCommand(CATCommand* parent, const CATString& name);
    CATCommand(const CATCommand&) = delete;
    CATCommand& operator=(const CATCommand&) = delete;
    /// Destroys the children, last to first, drops the callbacks of both sides, leaves the parent and
    /// the destruction queue.
    ~CATCommand() override;

    // Slot order is binary interface: append, never sort.

    /// The session gives the command the hand. `from` is who asked, or null. 0 when done.
    virtual long Activate(CATCommand* from, const CATNotification* why);
    /// Another command takes the hand; the command stays alive. 0 when done.
    virtual long Desactivate(CATCommand* from, const CATNotification* why);
    /// The command shall end. 0 when done.
    virtual long Cancel(CATCommand* from, const CATNotification* why);
    /// The name of the catalog and resource file: the command's own at level 0, its bases' above;
    /// the empty name when there is none (left).
    virtual CATString GetResourceFilename(int level) const;
    /// Asked when one of the command's handlers failed: a command that can go on brings itself back
    /// into order and answers true; the default false has it cancelled and destroyed.
    virtual bool RecoverFromFault();

    const CATString& Name() const { return m_name; }
    CATCommand* Parent() const { return m_parent; }
    /// The children, oldest first; positions count from 1.
    int ChildCount() const { return static_cast<int>(m_children.size()); }
    CATCommand* Child(int position) const;

    /// Asks for destruction when control is back in the outermost event loop. Asking twice is
    /// harmless.
    void RequestDelayedDestruction();
    /// Tells the session in which mode the command wants to run; counts from the next activation on.
    void RequestStatusChange(CATCommandMode mode) { m_mode = mode; }
    CATCommandMode Mode() const { return m_mode; }

    /// Has `handler` called whenever `publisher` sends `event`, in the order of subscription. The
    /// subscription ends with either side. 0 and no subscription when the publisher is null.
    CallbackId Subscribe(CATCommand* publisher, const CATEvent& event, Handler handler);
    void Unsubscribe(CallbackId callback);
    /// Ends all subscriptions of this command to that publisher.
    void UnsubscribeFrom(CATCommand* publisher);
    /// Calls the handlers subscribed to this command's event. A handler that fails is caught here: its
    /// command is cancelled and destroyed, or recovers; the other handlers still run.
    void Send(const CATEvent& event, int detail = 0);

private:
    struct Subscription;
    struct Callbacks;
    friend class CATDestructionQueue;

    CATString m_name;
    CATCommand* m_parent;
    std::vector<CATCommand*> m_children;
    std::unique_ptr<Callbacks> m_callbacks;
    CATCommandMode m_mode = CATCommandMode::Exclusive;
};

/// Asks for the delayed destruction of a command that may be absent.
inline void CATRequestDelayedDestruction(CATCommand* command)
{
    if (command != nullptr) {
        command->RequestDelayedDestruction();
    }
}
