#pragma once

#include "AeroplanePicks.h"
#include "CommandSession.h"

#include "CATWBVPMNavGUITable.h"

#include "CATCommandWatch.h"

#include <algorithm>
#include <string>
#include <vector>

/// An instance as a panel is told of it.
inline std::string InstanceText(const CATUnicodeString& instance, const CATUnicodeString& part,
                                const CATUnicodeString& version, const CATUnicodeString& path,
                                int count)
{
    return (instance + ", " + part + ", " + version + ", " + path + ", " +
            CATUnicodeString::FromInt(count))
        .ToStdString();
}

/// A panel that remembers what it was asked for; the double of each panel adds what it is given.
template <class Panel>
class PanelDouble : public Panel
{
public:
    explicit PanelDouble(CATCommand* parent) : Panel(parent) { s_made.push_back(this); }
    ~PanelDouble() override { std::erase(s_made, this); }

    void Build() override
    {
        if (s_cannotBeBuilt) {
            CATRaiseFatalError("a control is missing", "panel", 1);
        }
        calls.emplace_back(this->IsVisible() ? "built too late" : "built");
    }

    std::vector<std::string> calls;
    static inline bool s_hasButtons = true;
    static inline bool s_cannotBeBuilt = false;
    static inline std::vector<PanelDouble*> s_made;

protected:
    CATDlgPushButton* MakeButton(const char* name)
    {
        return s_hasButtons ? new CATDlgPushButton(this, name) : nullptr;
    }
};

/// A command of the navigator and its panel, in a session whose navigator has the aeroplane open.
template <class TestedCommand, class FakePanel>
class NavigatorSession : public CommandSession
{
public:
    using Command = TestedCommand;

protected:
    NavigatorSession(CATCommand* (*factory)(), const CATWBVPMNavGUITable& panels)
        : m_factory(factory)
    {
        CATWBVPMNavGUISetTable(panels);
        OpenAeroplane();
    }
    ~NavigatorSession() override
    {
        CATSession::Close();
        CATNavigator::Close();
        CATWBVPMNavGUISetTable({});
        FakePanel::s_hasButtons = true;
        FakePanel::s_cannotBeBuilt = false;
    }

    void Make()
    {
        command = dynamic_cast<Command*>(m_factory());
        ASSERT_NE(command, nullptr);
    }
    void Start()
    {
        Make();
        ASSERT_TRUE(CATSession::Start(command));
        agent = command->CurrentState()->Agents().front();
    }
    static FakePanel* Panel()
    {
        return FakePanel::s_made.empty() ? nullptr
                                         : static_cast<FakePanel*>(FakePanel::s_made.back());
    }
    /// What the panel was asked for since it was built.
    static std::vector<std::string> Given()
    {
        const std::vector<std::string>& calls = Panel()->calls;
        return {std::find(calls.begin(), calls.end(), "built") + 1, calls.end()};
    }
    void ExpectWaitsAgain()
    {
        EXPECT_TRUE(command->IsWaiting());
        EXPECT_FALSE(agent.Get()->IsOutputSet());
        EXPECT_FALSE(command->IsDestructionRequested());
    }
    void ExpectEnds()
    {
        EXPECT_TRUE(command->IsDestructionRequested());
        const CATCommandWatch<Command> ending(command);
        CATSession::RunDelayedDestructions();
        EXPECT_EQ(ending.Get(), nullptr);
        EXPECT_EQ(agent.Get(), nullptr);
        EXPECT_EQ(Panel(), nullptr);
        EXPECT_EQ(CATSession::RunningCommand(), nullptr);
        EXPECT_EQ(CATSession::PendingDestructions(), 0);
    }

    Command* command = nullptr;
    CATCommandWatch<CATDialogAgent> agent; // of the command that was started

private:
    CATCommand* (*m_factory)();
};

/// What a command of the navigator says below its windows.
struct NavigatorPrompts
{
    const char* catalog;
    const char* english;
    const char* german;
    const char* byDefault; ///< where the catalog lacks it
};
