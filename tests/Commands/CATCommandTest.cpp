#include "CATCommand.h"

#include "CATCommandWatch.h"
#include "CATSession.h"
#include "RecordingCommand.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
const CATEvent kPressed("Pressed");
const CATEvent kReleased("Released");

class CATCommandTree : public testing::Test
{
protected:
    void TearDown() override
    {
        CATSession::Close();
        CATSession::SetFaultReporter({});
    }

    RecordingCommand* Make(CATCommand* parent, const char* name)
    {
        return new RecordingCommand(parent, name, m_log);
    }

    Log m_log;
};
using CATCommandCallbacks = CATCommandTree;
} // namespace

TEST_F(CATCommandTree, ChildJoinsItsParentAsTheLastOne)
{
    CATCommand root(nullptr, "Root");
    auto* first = Make(&root, "First");
    auto* second = Make(&root, "Second");

    EXPECT_EQ(first->Name(), "First");
    EXPECT_EQ(first->Parent(), &root);
    EXPECT_EQ(root.ChildCount(), 2);
    EXPECT_EQ(root.Child(1), first);
    EXPECT_EQ(root.Child(2), second);
}

TEST_F(CATCommandTree, ThereIsNoChildOutsideThePositions)
{
    CATCommand root(nullptr, "Root");
    Make(&root, "Only");

    EXPECT_EQ(root.Child(0), nullptr);
    EXPECT_EQ(root.Child(2), nullptr);
    EXPECT_EQ(root.Child(-1), nullptr);
}

TEST_F(CATCommandTree, ChildrenAreDestroyedLastToFirst)
{
    auto* parent = Make(nullptr, "Parent");
    Make(Make(parent, "First"), "Grandchild");
    Make(parent, "Second");

    parent->Release();

    EXPECT_THAT(m_log, ElementsAre("Parent destroyed", "Second destroyed", "First destroyed",
                                   "Grandchild destroyed"));
}

TEST_F(CATCommandTree, DestroyedChildLeavesItsParent)
{
    CATCommand root(nullptr, "Root");
    auto* first = Make(&root, "First");
    auto* second = Make(&root, "Second");

    first->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();

    EXPECT_EQ(root.ChildCount(), 1);
    EXPECT_EQ(root.Child(1), second);
}

TEST_F(CATCommandTree, ChildThatIsStillHeldBecomesARootOfItsOwn)
{
    auto* parent = Make(nullptr, "Parent");
    const CATHandle<CATCommand> held(Make(parent, "Child"));

    parent->Release();

    EXPECT_THAT(m_log, ElementsAre("Parent destroyed"));
    EXPECT_EQ(held->Parent(), nullptr);
}

TEST_F(CATCommandTree, ChildThatADestructorAddsGoesWithTheParent)
{
    auto* parent = Make(nullptr, "Parent");
    auto* child = Make(parent, "Child");
    child->onDestroyed = [this, parent] {
        Make(parent, "Late");
    };

    parent->Release();

    EXPECT_THAT(m_log, ElementsAre("Parent destroyed", "Child destroyed", "Late destroyed"));
}

TEST_F(CATCommandTree, PlainCommandDoesWhatItsDefaultsSay)
{
    auto* command = new CATCommand(nullptr, "Plain");

    EXPECT_EQ(command->Activate(nullptr, nullptr), S_OK);
    EXPECT_EQ(command->Desactivate(nullptr, nullptr), S_OK);
    EXPECT_EQ(command->GetResourceFilename(0), "");
    EXPECT_EQ(command->GetResourceFilename(1), "");
    EXPECT_FALSE(command->RecoverFromFault());
    EXPECT_EQ(command->Mode(), CATCommandMode::Exclusive);
    EXPECT_FALSE(command->IsDestructionRequested());
    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);
    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(CATCommandTree, WatchForgetsADestroyedCommand)
{
    auto* command = Make(nullptr, "Watched");
    const CATCommandWatch<RecordingCommand> watch(command);
    EXPECT_EQ(watch.Get(), command);

    command->Release();

    EXPECT_EQ(watch.Get(), nullptr);
}

TEST_F(CATCommandTree, WatchOnNothingIsEmpty)
{
    EXPECT_EQ(CATCommandWatch<CATCommand>().Get(), nullptr);
    EXPECT_EQ(CATCommandWatch<CATCommand>(nullptr).Get(), nullptr);
}

TEST_F(CATCommandTree, WatchIsEmptyWhileTheChildrenAreDestroyed)
{
    auto* parent = Make(nullptr, "Parent");
    const CATCommandWatch<CATCommand> watch(parent);
    Make(parent, "Child")->onDestroyed = [&] {
        m_log.emplace_back(watch.Get() == nullptr ? "empty" : "dangling");
    };

    parent->Release();

    EXPECT_THAT(m_log, ElementsAre("Parent destroyed", "Child destroyed", "empty"));
}

TEST_F(CATCommandTree, DelayedDestructionMayBeAskedForOfNothing)
{
    CATRequestDelayedDestruction(nullptr);

    EXPECT_EQ(CATSession::PendingDestructions(), 0);
}

TEST_F(CATCommandTree, DelayedDestructionIsAskedForThroughThePlainFunctionToo)
{
    auto* command = Make(nullptr, "Command");

    CATRequestDelayedDestruction(command);

    EXPECT_TRUE(command->IsDestructionRequested());
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATCommandCallbacks, HandlersHearTheirEventInTheOrderOfSubscription)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    CATCommand other(nullptr, "Other");
    panel.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("first"); });
    other.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("second"); });
    panel.Subscribe(&button, kReleased, [this](const auto&) { m_log.emplace_back("released"); });

    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("first", "second"));
}

TEST_F(CATCommandCallbacks, NotificationCarriesEventSenderAndDetail)
{
    CATCommand tabs(nullptr, "Tabs");
    CATCommand panel(nullptr, "Panel");
    panel.Subscribe(&tabs, kPressed, [&](const CATNotification& notification) {
        EXPECT_STREQ(notification.event.Name(), "Pressed");
        EXPECT_EQ(&notification.event, &kPressed);
        EXPECT_EQ(&notification.sender, &tabs);
        m_log.push_back(std::to_string(notification.detail));
    });

    tabs.Send(kPressed, 3);
    tabs.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("3", "0"));
}

TEST_F(CATCommandCallbacks, EventsOfOneNameAreStillTwo)
{
    const CATEvent namesake("Pressed");
    CATCommand button(nullptr, "Button");
    button.Subscribe(&button, namesake, [this](const auto&) { m_log.emplace_back("wrong"); });

    button.Send(kPressed);

    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATCommandCallbacks, SubscribingToNothingOrWithNothingIsRefused)
{
    CATCommand panel(nullptr, "Panel");

    EXPECT_EQ(panel.Subscribe(nullptr, kPressed, [](const auto&) {}), 0);
    EXPECT_EQ(panel.Subscribe(&panel, kPressed, {}), 0);
    panel.Send(kPressed);
}

TEST_F(CATCommandCallbacks, UnsubscribedHandlerHearsNothing)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    const auto first =
        panel.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("first"); });
    const auto second =
        panel.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("second"); });
    EXPECT_NE(first, 0);
    EXPECT_NE(first, second);

    panel.Unsubscribe(first);
    panel.Unsubscribe(first);
    panel.Unsubscribe(99);
    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("second"));
}

TEST_F(CATCommandCallbacks, UnsubscribingFromAPublisherKeepsTheOthers)
{
    CATCommand button(nullptr, "Button");
    CATCommand editor(nullptr, "Editor");
    CATCommand panel(nullptr, "Panel");
    CATCommand other(nullptr, "Other");
    panel.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("pressed"); });
    panel.Subscribe(&button, kReleased, [this](const auto&) { m_log.emplace_back("released"); });
    panel.Subscribe(&editor, kPressed, [this](const auto&) { m_log.emplace_back("editor"); });
    other.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("other"); });

    panel.UnsubscribeFrom(&button);
    button.Send(kPressed);
    button.Send(kReleased);
    editor.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("other", "editor"));
}

TEST_F(CATCommandCallbacks, SubscriptionEndsWithTheSubscriber)
{
    CATCommand button(nullptr, "Button");
    auto* panel = Make(nullptr, "Panel");
    panel->Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });

    panel->Release();
    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("Panel destroyed"));
}

TEST_F(CATCommandCallbacks, SubscriptionEndsWithThePublisher)
{
    CATCommand panel(nullptr, "Panel");
    auto* button = Make(nullptr, "Button");
    const auto callback = panel.Subscribe(button, kPressed, [](const auto&) {});

    button->Release();

    panel.Unsubscribe(callback); // must find nothing to touch
    panel.UnsubscribeFrom(button);
}

TEST_F(CATCommandCallbacks, HandlerMayEndItsOwnSubscription)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    CATCommand::CallbackId callback = 0;
    const std::string text(100, 'x'); // lives in the handler itself
    callback = panel.Subscribe(&button, kPressed, [this, &panel, &callback, text](const auto&) {
        panel.Unsubscribe(callback);
        m_log.push_back(text);
    });

    button.Send(kPressed);
    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre(std::string(100, 'x')));
}

TEST_F(CATCommandCallbacks, SubscriptionEndedWhileSendingIsLeftOut)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    CATCommand other(nullptr, "Other");
    panel.Subscribe(&button, kPressed, [&](const auto&) { other.UnsubscribeFrom(&button); });
    other.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });

    button.Send(kPressed);

    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(CATCommandCallbacks, SubscriptionMadeWhileSendingWaitsForTheNext)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    const auto late = [this](const auto&) {
        m_log.emplace_back("late");
    };
    const auto first = panel.Subscribe(
        &button, kPressed, [&](const auto&) { panel.Subscribe(&button, kPressed, late); });

    button.Send(kPressed);
    EXPECT_THAT(m_log, IsEmpty());
    panel.Unsubscribe(first);
    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("late"));
}

TEST_F(CATCommandCallbacks, HandlerMayDestroyThePublisher)
{
    auto* button = Make(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    panel.Subscribe(button, kPressed, [&](const auto&) { button->Release(); });
    panel.Subscribe(button, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });

    button->Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("Button destroyed"));
}

TEST_F(CATCommandCallbacks, HandlerMayDestroyItsOwnSubscriber)
{
    CATCommand button(nullptr, "Button");
    auto* panel = Make(nullptr, "Panel");
    const std::string text(100, 'x');
    panel->Subscribe(&button, kPressed, [this, panel, text](const auto&) {
        panel->Release();
        m_log.push_back(text);
    });
    panel->Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });

    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("Panel destroyed", std::string(100, 'x')));
}

TEST_F(CATCommandCallbacks, HandlerMaySendAgain)
{
    CATCommand button(nullptr, "Button");
    CATCommand panel(nullptr, "Panel");
    panel.Subscribe(&button, kPressed, [&](const CATNotification& notification) {
        m_log.push_back(std::to_string(notification.detail));
        if (notification.detail < 2) {
            button.Send(kPressed, notification.detail + 1);
        }
    });

    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("0", "1", "2"));
}

TEST_F(CATCommandCallbacks, DyingCommandHearsNothingOfItsChildren)
{
    auto* panel = Make(nullptr, "Panel");
    auto* child = Make(panel, "Child");
    panel->Subscribe(child, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });
    child->onDestroyed = [child] {
        child->Send(kPressed);
    };

    panel->Release();

    EXPECT_THAT(m_log, ElementsAre("Panel destroyed", "Child destroyed"));
}

TEST_F(CATCommandCallbacks, FailingHandlerEndsItsSubscriberAndTheOthersStillHear)
{
    CATSession::SetFaultReporter([this](const auto& command, const auto& what) {
        m_log.push_back("told: " + command.ToStdString() + ": " + what.ToStdString());
    });
    CATCommand button(nullptr, "Button");
    auto* panel = Make(nullptr, "Panel");
    CATCommand other(nullptr, "Other");
    panel->Subscribe(&button, kPressed, [](const auto&) { RaiseFatalError(); });
    other.Subscribe(&button, kPressed, [this](const auto&) { m_log.emplace_back("heard"); });

    button.Send(kPressed);

    EXPECT_THAT(m_log, ElementsAre("Panel cancelled",
                                   std::string("told: Panel: ") + kFatalErrorSentence, "heard"));
    EXPECT_TRUE(panel->IsDestructionRequested());
    EXPECT_FALSE(button.IsDestructionRequested());
}
