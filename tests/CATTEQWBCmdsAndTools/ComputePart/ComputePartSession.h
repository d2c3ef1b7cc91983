#pragma once

#include "CATTEQWBComputePartCmd.h"

#include "../CommandServer.h"
#include "../ModuleSession.h"
#include "PickedProducts.h"

#include "CATWBAllDataBuffer.h"
#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavGUITable.h"

#include "CATApplicationFrame.h"
#include "CATDlgNotify.h"
#include "CATSession.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

constexpr const char* kNavigator = "NavigatorWorkshop";
constexpr const char* kStructure = "StructureWorkshop";

// One mass type, Calculated with 2 kg; no density; the last twelve fields before the final 0 are
// the position, which the client's own replaces in the product structure.
constexpr const char* kNavigatorAnswer =
    "1|0|1|0|0|0|1|0|"
    "1|Calculated|1|2|0.06|0.1|2|0|-60|0.5|0.25|0.125|0|0|0|0|0|3|5|"
    "1|Calculated||0|0|"
    "1|0|0|"
    "1|0|0|0|1|0|0|0|1|7|8|9|"
    "0|";
// Without an instance in the PDM the part reference's status and density follow the density.
constexpr const char* kStructureAnswer =
    "1|0|1|0|0|0|1|0|"
    "1|Calculated|1|2|0.06|0.1|2|0|-60|0.5|0.25|0.125|0|0|0|0|0|3|5|"
    "1|Calculated||0|0|0|0|"
    "1|0|0|"
    "1|0|0|0|1|0|0|0|1|7|8|9|"
    "0|";

/// A panel that remembers what it was given.
class FakePanel : public CATWBVPMMainPanel
{
public:
    FakePanel(CATCommand* parent, CATWBAllDataBuffer* first) : CATWBVPMMainPanel(parent)
    {
        m_close = new CATDlgPushButton(this, "CloseButton");
        SetTheRecord(first);
        s_made.push_back(this);
    }
    ~FakePanel() override { std::erase(s_made, this); }
    void SetModel(CATWBAllDataBuffer* another) override
    {
        ++refills;
        SetTheRecord(another);
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

    static CATWBVPMMainPanel* Create(CATCommand* parent, CATWBAllDataBuffer* first)
    {
        return new FakePanel(parent, first);
    }

    CATHandle<CATWBAllDataBuffer> record;
    int references = 0; // when the record was set
    int refills = 0;
    static inline std::vector<FakePanel*> s_made;

private:
    void SetTheRecord(CATWBAllDataBuffer* newRecord)
    {
        record = CATHandle<CATWBAllDataBuffer>(newRecord);
        references = newRecord->ReferenceCount();
    }
    CATDlgPushButton* m_close;
};

struct Box
{
    std::string name;
    std::string text;
    int style;
    bool operator==(const Box&) const = default;
};
inline void PrintTo(const Box& box, std::ostream* stream)
{
    *stream << box.name << ": " << box.text << " (" << std::hex << box.style << ")";
}

class ComputePart : public testing::Test
{
protected:
    ComputePart()
    {
        server->record = "0|FUS-110.1|FUS-110|A|2|FUS-100.1|FUS-000.1|Firewall";
        CATSetServerCaller(server);
        CATWBVPMNavGUITable table;
        table.createMainPanel = FakePanel::Create;
        CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) -> std::optional<int> {
            boxes.push_back({box.name.ToStdString(), box.text.ToStdString(), box.style});
            EXPECT_FALSE(box.blocking);
            return 1;
        });
    }
    ~ComputePart() override
    {
        CATSession::Close();
        frame.reset();
        CATNavigator::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable({});
        CATSetServerCaller(nullptr);
    }

    /// Starts the command in a session whose main window is a real one.
    void StartIn(const char* workshop)
    {
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
        Start(workshop);
    }
    void Start(const char* workshop)
    {
        frame->SetWorkshop(workshop, "Weight");
        if (std::string_view(workshop) == kNavigator) {
            CATNavigator::Open(std::make_shared<AeroplaneSource>(),
                               AeroplaneSource::Row("LA1", "LA1", true));
            server->answer = kNavigatorAnswer;
        } else {
            server->answer = kStructureAnswer;
        }
        command = dynamic_cast<CATTEQWBComputePartCmd*>(fctCreateCATTEQWBComputePartCmd());
        ASSERT_NE(command, nullptr);
        ASSERT_TRUE(CATSession::Start(command));
    }
    static CATPathElement_var Firewall()
    {
        return PathTo(CATNavigator::Find({"FUS-000.1", "FUS-100.1", "FUS-110.1"}));
    }
    bool Pick(const CATPathElement_var& path) { return CATOfferPick({path}); }
    FakePanel* Panel() const
    {
        return FakePanel::s_made.empty() ? nullptr : FakePanel::s_made.back();
    }
    /// A failed pick leaves no panel and a command that waits for the next.
    void ExpectNothingShown(const char* line)
    {
        EXPECT_THAT(errors.Lines(), testing::Contains(line));
        EXPECT_EQ(Panel(), nullptr);
        EXPECT_THAT(boxes, testing::IsEmpty());
        ExpectWaitsAgain();
    }
    void ExpectWaitsAgain()
    {
        EXPECT_TRUE(command->IsWaiting());
        for (const CATDialogAgent* agent : command->CurrentState()->Agents()) {
            EXPECT_FALSE(agent->IsOutputSet());
        }
    }

    std::shared_ptr<CommandServer> server = std::make_shared<CommandServer>();
    DiagnosticCapture output{CATDiagnosticOutput()};
    DiagnosticCapture errors{CATDiagnosticErrors()};
    std::unique_ptr<CATApplicationFrame> frame;
    std::vector<Box> boxes;
    CATTEQWBComputePartCmd* command = nullptr;
    FakeAeroplane aeroplane;
};
