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
enum class CATCommandMode
{
    Exclusive = 0, ///< cancels the running exclusive command when it starts
    Shared = 1,    ///< runs beside an exclusive one, hidden (Desactivate) while that one runs
};

/// A node of the session's command tree: interactive commands, agents, windows and controls are
/// such nodes. The tree owns them, by the reference that a new object has: a command goes away with
/// its parent or by delayed destruction, and nobody else deletes it. Whoever must remember a
/// command across a user action holds a CATCommandWatch on it.
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
    /// Drops the callbacks of both sides, destroys the children, last to first, and leaves the
    /// parent, the destruction queue and the session's running commands.
    ~CATCommand() override;

    // Slot order is binary interface: append, never sort.

    /// The session gives the command the hand. `from` is who asked, or null. 0 when done.
    virtual long Activate(CATCommand* from, const CATNotification* why);
    /// Another command takes the hand; the command stays alive. 0 when done.
    virtual long Desactivate(CATCommand* from, const CATNotification* why);
    /// The command shall end: asks for its delayed destruction. 0 when done.
    virtual long Cancel(CATCommand* from, const CATNotification* why);
    /// The name of the catalog and resource file: the command's own at level 0, its bases' above;
    /// the empty name when there is none (left).
    virtual CATString GetResourceFilename(int level) const;
    /// Asked when one of the command's handlers failed: a command that can go on brings itself back
    /// into order and answers true; the default false has it cancelled and destroyed.
    virtual bool RecoverFromFault();

    const CATString& Name() const { return m_name; }
    CATCommand* Parent() const { return m_parent; }
    /// The children, oldest first; positions count from 1, and there is null outside them.
    int ChildCount() const { return static_cast<int>(m_children.size()); }
    CATCommand* Child(int position) const;

    /// Asks for destruction when control is back in the outermost event loop. Asking twice is
    /// harmless. From now on the command is no longer one of the session's running ones.
    void RequestDelayedDestruction();
    bool IsDestructionRequested() const;
    /// Tells the session in which mode the command wants to run; counts from the next time that the
    /// session gives it the hand.
    void RequestStatusChange(CATCommandMode mode) { m_mode = mode; }
    CATCommandMode Mode() const { return m_mode; }

    /// Has `handler` called whenever `publisher` sends `event`, in the order of subscription. The
    /// subscription ends with either side. 0 and no subscription when the publisher is null or the
    /// handler empty.
    CallbackId Subscribe(CATCommand* publisher, const CATEvent& event, Handler handler);
    /// An id that this command does not have (any more) is ignored.
    void Unsubscribe(CallbackId callback);
    /// Ends all subscriptions of this command to that publisher.
    void UnsubscribeFrom(CATCommand* publisher);
    /// Calls the handlers subscribed to this command's event. Those that end meanwhile are left
    /// out, those that begin meanwhile wait for the next sending. A handler that fails is caught
    /// here: its command is cancelled and destroyed, or recovers; the other handlers still run.
    void Send(const CATEvent& event, int detail = 0);

    /// Expires with the command; what CATCommandWatch looks at.
    std::weak_ptr<const void> Life() const { return m_life; }

private:
    struct Subscription;
    struct Callbacks;
    friend class CATDestructionQueue; // gives the tree's reference back
    friend class CATSession;          // takes commands without a parent into the tree

    void JoinParent(CATCommand* parent);
    void LeaveParent();
    /// Gives the tree's reference back; a command that somebody else still holds leaves the tree
    /// and becomes a root of its own.
    static void GiveBack(CATCommand* command);
    void DropCallbacks();

    CATString m_name;
    CATCommand* m_parent;
    std::vector<CATCommand*> m_children;
    std::shared_ptr<const void> m_life;
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
