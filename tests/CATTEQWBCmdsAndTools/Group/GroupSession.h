#pragma once

#include "CATWBVPMNavGroup.h"

#include "../../System/TestEnvironment.h"
#include "../Report/RecordServer.h"

#include "CATWBVPMNavGUITable.h"

#include "CATApplicationFrame.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"

#include <memory>
#include <set>

/// A panel that remembers what it was given.
class FakeGroupPanel : public CATWBVPMNavGroupPanel
{
public:
    FakeGroupPanel(CATCommand* parent, const CATUnicodeString& root, const CATUnicodeString& part,
                   const CATUnicodeString& version)
        : CATWBVPMNavGroupPanel(parent)
    {
        if (s_hasCloseButton) {
            m_close = new CATDlgPushButton(this, "CloseButton");
        }
        calls.push_back(("made for " + root + ", " + part + ", " + version).ToStdString());
        s_made.push_back(this);
    }
    ~FakeGroupPanel() override { std::erase(s_made, this); }

    void Build() override
    {
        if (s_cannotBeBuilt) {
            CATRaiseFatalError("a control is missing", "panel", 1);
        }
        calls.emplace_back(IsVisible() ? "built too late" : "built");
    }
    bool IsInstanceInputActive() const override { return instancesWanted > 0; }
    void AddValuesInMultiList(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count, const CATUnicodeString& partName) override
    {
        calls.push_back((IsVisible() ? "" : "while hidden: ") +
                        Joined(instance, part, version, path, count) + ", " +
                        partName.ToStdString());
    }
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override
    {
        calls.push_back("wanted: " + Joined(instance, part, version, path, count));
        --instancesWanted;
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

    static CATWBVPMNavGroupPanel* Create(CATCommand* parent, const CATUnicodeString& root,
                                         const CATUnicodeString& part,
                                         const CATUnicodeString& version)
    {
        return new FakeGroupPanel(parent, root, part, version);
    }
    static std::string Joined(const CATUnicodeString& instance, const CATUnicodeString& part,
                              const CATUnicodeString& version, const CATUnicodeString& path,
                              int count)
    {
        return (instance + ", " + part + ", " + version + ", " + path + ", " +
                CATUnicodeString::FromInt(count))
            .ToStdString();
    }

    std::vector<std::string> calls;
    int instancesWanted = 0; ///< after so many the panel takes no more
    static inline bool s_hasCloseButton = true;
    static inline bool s_cannotBeBuilt = false;
    static inline std::vector<FakeGroupPanel*> s_made;

private:
    CATDlgPushButton* m_close = nullptr;
};

/// A filter that leaves out the parts that a test names, and keeps what it was asked.
class FakeFilter
{
public:
    static bool IsValid(const CATUnicodeString& root, const CATUnicodeString& instance,
                        const CATUnicodeString& part, const CATUnicodeString& version, int count,
                        const CATUnicodeString& path)
    {
        s_asked.push_back(root.ToStdString() + ": " +
                          FakeGroupPanel::Joined(instance, part, version, path, count));
        return s_leavesOut.count(part.ToStdString()) == 0;
    }
    static inline std::set<std::string> s_leavesOut;
    static inline std::vector<std::string> s_asked;
};

struct GroupBox
{
    std::string title;
    std::string text;
    int style;
    bool blocking = false;
    bool operator==(const GroupBox&) const = default;
};
inline void PrintTo(const GroupBox& box, std::ostream* stream)
{
    *stream << box.title << ": " << box.text << " (" << std::hex << box.style << ")";
}

/// A session whose navigator has the aeroplane open.
class GroupCommand : public testing::Test
{
protected:
    GroupCommand()
    {
        CATSetServerCaller(server);
        CATWBVPMNavGUITable table;
        table.createGroupPanel = FakeGroupPanel::Create;
        table.isFilterValid = FakeFilter::IsValid;
        CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back(
                {box.title.ToStdString(), box.text.ToStdString(), box.style, box.blocking});
            return 1;
        });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
        OpenAeroplane();
    }
    ~GroupCommand() override
    {
        CATSession::Close();
        frame.reset();
        CATNavigator::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable({});
        CATSetServerCaller(nullptr);
        FakeGroupPanel::s_hasCloseButton = true;
        FakeGroupPanel::s_cannotBeBuilt = false;
        FakeFilter::s_leavesOut.clear();
        FakeFilter::s_asked.clear();
    }

    void Make()
    {
        command = dynamic_cast<CATWBVPMNavGroup*>(fctCreateCATWBVPMNavGroup());
        ASSERT_NE(command, nullptr);
    }
    void Start()
    {
        Make();
        ASSERT_TRUE(CATSession::Start(command));
        agent = command->CurrentState()->Agents().front();
    }
    /// Picks the fuselage, which opens the panel, and forgets what came of it.
    void StartWithPanel()
    {
        Start();
        server->answer = kFuselage;
        ASSERT_TRUE(CATOfferPick({PathToFuselage()}));
        ASSERT_NE(Panel(), nullptr);
        Panel()->calls.clear();
        FakeFilter::s_asked.clear();
        server->calls.clear();
    }
    static FakeGroupPanel* Panel()
    {
        return FakeGroupPanel::s_made.empty() ? nullptr : FakeGroupPanel::s_made.back();
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
        const CATCommandWatch<CATWBVPMNavGroup> ending(command);
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
    std::vector<GroupBox> boxes;
    CATWBVPMNavGroup* command = nullptr;
    CATCommandWatch<CATDialogAgent> agent; // of the command that was started
};
