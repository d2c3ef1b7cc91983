#pragma once

#include "CATTEQWBDefineFilterCmd.h"

#include "../../System/TestEnvironment.h"
#include "../Report/RecordServer.h"

#include "CATWBVPMNavGUITable.h"

#include "CATApplicationFrame.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"

#include <memory>

/// A panel that remembers what it was asked for.
class FakeFilterPanel : public CATWBVPMNavFilterPanel
{
public:
    explicit FakeFilterPanel(CATCommand* parent) : CATWBVPMNavFilterPanel(parent)
    {
        if (s_hasButtons) {
            m_ok = new CATDlgPushButton(this, "OkButton");
            m_cancel = new CATDlgPushButton(this, "CancelButton");
        }
        s_made.push_back(this);
    }
    ~FakeFilterPanel() override { std::erase(s_made, this); }

    void SetPRCId(const CATUnicodeString& rootIdentifier) override
    {
        calls.push_back("root " + rootIdentifier.ToStdString());
    }
    void Build() override
    {
        if (s_cannotBeBuilt) {
            CATRaiseFatalError("a control is missing", "panel", 1);
        }
        calls.emplace_back(IsVisible() ? "built too late" : "built");
    }
    void SetCurrentFilters() override
    {
        calls.emplace_back(IsVisible() ? "current filters too late" : "current filters");
    }
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count) override
    {
        calls.push_back((instance + ", " + part + ", " + version + ", " + path + ", " +
                         CATUnicodeString::FromInt(count))
                            .ToStdString());
    }
    CATDlgPushButton* GetOkButton() override { return m_ok; }
    CATDlgPushButton* GetCancelButton() override { return m_cancel; }

    static CATWBVPMNavFilterPanel* Create(CATCommand* parent)
    {
        return new FakeFilterPanel(parent);
    }

    std::vector<std::string> calls;
    static inline bool s_hasButtons = true;
    static inline bool s_cannotBeBuilt = false;
    static inline std::vector<FakeFilterPanel*> s_made;

private:
    CATDlgPushButton* m_ok = nullptr;
    CATDlgPushButton* m_cancel = nullptr;
};

/// A session whose navigator has the aeroplane open.
class FilterCommand : public testing::Test
{
protected:
    FilterCommand()
    {
        CATSetServerCaller(server);
        CATWBVPMNavGUITable table;
        table.createFilterPanel = FakeFilterPanel::Create;
        CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back(box.text.ToStdString());
            return 1;
        });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
        OpenAeroplane();
    }
    ~FilterCommand() override
    {
        EXPECT_THAT(boxes, testing::IsEmpty()) << "the command shows no boxes of its own";
        CATSession::Close();
        frame.reset();
        CATNavigator::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable({});
        CATSetServerCaller(nullptr);
        FakeFilterPanel::s_hasButtons = true;
        FakeFilterPanel::s_cannotBeBuilt = false;
    }

    void Make()
    {
        command = dynamic_cast<CATTEQWBDefineFilterCmd*>(fctCreateCATTEQWBDefineFilterCmd());
        ASSERT_NE(command, nullptr);
    }
    void Start()
    {
        Make();
        ASSERT_TRUE(CATSession::Start(command));
        agent = command->CurrentState()->Agents().front();
    }
    static FakeFilterPanel* Panel()
    {
        return FakeFilterPanel::s_made.empty() ? nullptr : FakeFilterPanel::s_made.back();
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
        const CATCommandWatch<CATTEQWBDefineFilterCmd> ending(command);
        CATSession::RunDelayedDestructions();
        EXPECT_EQ(ending.Get(), nullptr);
        EXPECT_EQ(agent.Get(), nullptr);
        EXPECT_EQ(Panel(), nullptr);
        EXPECT_EQ(CATSession::RunningCommand(), nullptr);
        EXPECT_EQ(CATSession::PendingDestructions(), 0);
    }

    std::shared_ptr<RecordServer> server = std::make_shared<RecordServer>();
    TestEnvironment environment;
    DiagnosticCapture output{CATDiagnosticOutput()};
    DiagnosticCapture errors{CATDiagnosticErrors()};
    std::unique_ptr<CATApplicationFrame> frame;
    std::vector<std::string> boxes;
    CATTEQWBDefineFilterCmd* command = nullptr;
    CATCommandWatch<CATDialogAgent> agent; // of the command that was started
};
