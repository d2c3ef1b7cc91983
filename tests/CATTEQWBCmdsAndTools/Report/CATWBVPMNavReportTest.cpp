#include "CATWBVPMNavReport.h"

#include "../../System/TestEnvironment.h"
#include "RecordServer.h"
#include "TemporaryDirectory.h"
#include "Toolkit.h"
#include "VirtualSlots.h"

#include "CATWBVPMNavGUITable.h"

#include "CATApplicationFrame.h"
#include "CATDlgNotify.h"
#include "CATMsgCatalog.h"
#include "CATSession.h"

#include <memory>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const testing::Environment* const s_toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

/// A panel that remembers what it was given.
class FakeReportPanel : public CATWBVPMNavReportPanel
{
public:
    explicit FakeReportPanel(CATCommand* parent) : CATWBVPMNavReportPanel(parent)
    {
        if (s_hasCloseButton) {
            m_close = new CATDlgPushButton(this, "CloseButton");
        }
        s_made.push_back(this);
    }
    ~FakeReportPanel() override { std::erase(s_made, this); }

    void Build() override
    {
        if (s_cannotBeBuilt) {
            CATRaiseFatalError("a control is missing", "panel", 1);
        }
        calls.emplace_back(IsVisible() ? "built too late" : "built");
    }
    bool IsInstanceInputActive() const override { return instancesWanted > 0; }
    void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part, CATUnicodeString version,
                        CATUnicodeString path, int count) override
    {
        calls.push_back((instance + ", " + part + ", " + version + ", " + path + ", " +
                         CATUnicodeString::FromInt(count))
                            .ToStdString());
        --instancesWanted;
    }
    CATDlgPushButton* GetCloseButton() override { return m_close; }

    static CATWBVPMNavReportPanel* Create(CATCommand* parent)
    {
        return new FakeReportPanel(parent);
    }

    std::vector<std::string> calls;
    int instancesWanted = 100; ///< after so many the panel takes no more
    static inline bool s_hasCloseButton = true;
    static inline bool s_cannotBeBuilt = false;
    static inline std::vector<FakeReportPanel*> s_made;

private:
    CATDlgPushButton* m_close = nullptr;
};

class ReportCommand : public testing::Test
{
protected:
    ReportCommand()
    {
        CATSetServerCaller(server);
        CATWBVPMNavGUITable table;
        table.createReportPanel = FakeReportPanel::Create;
        CATWBVPMNavGUISetTable(table);
        CATDlgNotify::SetAnswerer([](const CATDlgNotify::Shown& box) -> std::optional<int> {
            ADD_FAILURE() << "the command shows no boxes of its own: " << box.text.Text();
            return 1;
        });
        frame = std::make_unique<CATApplicationFrame>(
            new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
        OpenAeroplane();
    }
    ~ReportCommand() override
    {
        CATSession::Close();
        frame.reset();
        CATNavigator::Close();
        CATDlgNotify::SetAnswerer({});
        CATWBVPMNavGUISetTable({});
        CATSetServerCaller(nullptr);
        FakeReportPanel::s_hasCloseButton = true;
        FakeReportPanel::s_cannotBeBuilt = false;
    }

    void Make()
    {
        command = dynamic_cast<CATWBVPMNavReport*>(fctCreateCATWBVPMNavReport());
        ASSERT_NE(command, nullptr);
    }
    void Start()
    {
        Make();
        ASSERT_TRUE(CATSession::Start(command));
        agent = command->CurrentState()->Agents().front();
    }
    static FakeReportPanel* Panel()
    {
        return FakeReportPanel::s_made.empty() ? nullptr : FakeReportPanel::s_made.back();
    }
    /// What the panel was given since it was built.
    static std::vector<std::string> Given()
    {
        const std::vector<std::string>& calls = Panel()->calls;
        return {calls.begin() + 1, calls.end()};
    }
    void ExpectWaitsAgain()
    {
        EXPECT_TRUE(command->IsWaiting());
        EXPECT_FALSE(agent.Get()->IsOutputSet());
        EXPECT_FALSE(command->IsDestructionRequested());
    }
    void ExpectEnds()
    {
        const CATCommandWatch<CATWBVPMNavReport> ending(command);
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
    CATWBVPMNavReport* command = nullptr;
    CATCommandWatch<CATDialogAgent> agent; // of the command that was started
};

} // namespace

// The command itself

TEST_F(ReportCommand, IsMadeByItsFactoryUnderItsName)
{
    Make();
    EXPECT_EQ(command->Name(), "CATWBVPMNavReport");
    EXPECT_STREQ(command->ClassName(), "CATWBVPMNavReport");
    EXPECT_EQ(command->Mode(), CATCommandMode::Exclusive);
    CATSession::Start(command);
}

TEST_F(ReportCommand, HasItsOwnCatalogAtLevelZeroAndBelowAndTheAgentsAbove)
{
    Start();
    const CATCommand* base = command;
    EXPECT_EQ(base->GetResourceFilename(0), "CATWBVPMNavReport");
    EXPECT_EQ(base->GetResourceFilename(-1), "CATWBVPMNavReport");
    EXPECT_EQ(base->GetResourceFilename(1), "");
    EXPECT_EQ(base->GetResourceFilename(2), "");
}

TEST_F(ReportCommand, PromptsForInstances)
{
    Start();
    EXPECT_EQ(frame->Prompt(), "Select the instances that the report shall hold");
}

TEST_F(ReportCommand, PromptsInGermanToo)
{
    CATMsgCatalog::SetLanguage("de");
    Start();
    EXPECT_EQ(frame->Prompt(), "Wählen Sie die Instanzen für den Bericht");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(ReportCommand, PromptsWithItsOwnTextWhereTheCatalogLacksIt)
{
    const TemporaryDirectory resources;
    resources.Write("catalogs/CATWBVPMNavReport.toml", "Other = \"another text\"\n");
    environment.Set("WB_RESOURCE_PATH", resources.Path());
    CATMsgCatalog::SetLanguage("en"); // reads the catalogs anew
    Start();
    EXPECT_EQ(frame->Prompt(), "Select a Part in VPM Navigator");
    environment.Unset("WB_RESOURCE_PATH");
    CATMsgCatalog::SetLanguage("en");
}

TEST_F(ReportCommand, WaitsWithOneAgentOfTheNavigatorThatTakesSets)
{
    Start();
    ASSERT_EQ(command->CurrentState()->Agents().size(), 1U);
    EXPECT_STREQ(agent.Get()->ClassName(), "CATImmIdentifierAcquisitionAgent");
    EXPECT_EQ(agent.Get()->Behaviour(), 0x40a40010);
}

TEST_F(ReportCommand, AddsNoVirtualOperationToTheStateCommand)
{
    EXPECT_EQ(SlotOf(&SlotProbe<CATWBVPMNavReport>::Added),
              SlotOf(&SlotProbe<CATStateCommand>::Added));
    EXPECT_EQ(SlotOf(&CATWBVPMNavReport::Activate), SlotOf(&CATCommand::Activate));
    EXPECT_EQ(SlotOf(&CATWBVPMNavReport::Desactivate), SlotOf(&CATCommand::Activate) + 1);
    EXPECT_EQ(SlotOf(&CATWBVPMNavReport::Cancel), SlotOf(&CATCommand::Activate) + 2);
    EXPECT_EQ(SlotOf(&CATWBVPMNavReport::GetResourceFilename), SlotOf(&CATCommand::Activate) + 3);
}

// The panel

TEST_F(ReportCommand, OpensItsPanelAsSoonAsItIsMade)
{
    Make();
    ASSERT_EQ(FakeReportPanel::s_made.size(), 1U);
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(Panel()->Parent(), frame->MainWindow());
    CATSession::Start(command);
    EXPECT_THAT(Panel()->calls, ElementsAre("built"));
    EXPECT_EQ(FakeReportPanel::s_made.size(), 1U);
}

TEST_F(ReportCommand, ClosingThePanelsWindowEndsTheCommandAndThePanel)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_TRUE(command->IsDestructionRequested());
    ExpectEnds();
}

TEST_F(ReportCommand, CloseButtonOfThePanelEndsTheCommandAndThePanel)
{
    Start();
    Panel()->GetCloseButton()->Send(CATDlgPushButton::Activated);
    EXPECT_TRUE(command->IsDestructionRequested());
    ExpectEnds();
}

TEST_F(ReportCommand, CancelledCommandTakesItsPanelAndItsAgentAlong)
{
    Start();
    CATSession::CancelRunningCommand();
    EXPECT_TRUE(command->IsDestructionRequested());
    ExpectEnds();
}

TEST_F(ReportCommand, CancelAsksForDestructionAndSaysDone)
{
    Start();
    EXPECT_EQ(command->Cancel(nullptr, nullptr), S_OK);
    EXPECT_TRUE(command->IsDestructionRequested());
}

TEST_F(ReportCommand, StartedAgainReplacesTheOneBeforeAndItsPanel)
{
    Start();
    const FakeReportPanel* first = Panel();
    Start();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(FakeReportPanel::s_made.size(), 1U);
    EXPECT_NE(Panel(), first);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, CommandThatWasNeverStartedTakesItsPanelAlong)
{
    Make();
    command->Release(); // it belongs to nobody but whoever made it
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ReportCommand, PanelThatCannotBeBuiltGoesAndLeavesNoCommand)
{
    const FatalErrors fatal(FatalErrors::Then::Throw);
    FakeReportPanel::s_cannotBeBuilt = true;
    EXPECT_THROW(fctCreateCATWBVPMNavReport(), CATFatalError);
    ASSERT_NE(Panel(), nullptr);
    EXPECT_FALSE(Panel()->IsVisible());
    CATSession::RunDelayedDestructions();
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(CATSession::PendingDestructions(), 0);

    FakeReportPanel::s_cannotBeBuilt = false; // the next attempt is whole again
    Start();
    EXPECT_TRUE(Panel()->IsVisible());
    EXPECT_EQ(FakeReportPanel::s_made.size(), 1U);
}

TEST_F(ReportCommand, PanelThatIsGoneGetsNothingMore)
{
    Start();
    Panel()->RequestDelayedDestruction();
    CATSession::RunDelayedDestructions();
    ASSERT_EQ(Panel(), nullptr);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, SessionThatEndsFirstTakesThePanelFromUnderTheCommand)
{
    Start();
    CATSession::Close();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ReportCommand, PanelWithoutACloseButtonEndsTheCommandByItsWindow)
{
    FakeReportPanel::s_hasCloseButton = false;
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    ExpectEnds();
}

TEST_F(ReportCommand, WithoutAPanelsLibraryPicksAreAskedAboutAndDropped)
{
    CATWBVPMNavGUISetTable({});
    Start();
    EXPECT_EQ(Panel(), nullptr);
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    ExpectWaitsAgain();
    CATSession::CancelRunningCommand();
    ExpectEnds();
}

TEST_F(ReportCommand, WithoutAMainWindowThereIsNoPanel)
{
    frame.reset();
    Start();
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    ExpectWaitsAgain();
}

// Picks

TEST_F(ReportCommand, PickedInstanceGoesIntoThePanel)
{
    server->answer = kFirewall;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_THAT(server->calls, ElementsAre("ENOVIA5_GetObjectIdentifier of "
                                           "LA1|FUS-000.1|FUS-100.1|FUS-110.1: LA1|NoConfig"));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2"));
    EXPECT_THAT(output.Lines(),
                ElementsAre("Object list's size: 1", "pElem is a: CATNavigatorNode",
                            "_RootType: ENOVIA_VPMItem", "rootType2: ENOVIA_VPMItem"));
    EXPECT_THAT(errors.Lines(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, InstancesPickedTogetherGoIntoThePanelInPickOrder)
{
    server->answer = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, EveryFurtherPickSendsItsOwnRecords)
{
    Start();
    server->answer = kForward;
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    server->answer = kFirewall;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    server->answer = kForward; // the same again: the panel decides what that means
    EXPECT_TRUE(CATOfferPick({PathToForward()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-100.1, FUS-100, A, FUS-000.1, 1",
                                     "FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-100.1, FUS-100, A, FUS-000.1, 1"));
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, PanelThatTakesNoInstancesGetsNothingButTheServerIsAsked)
{
    server->answer = kFirewall;
    Start();
    Panel()->instancesWanted = 0;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_EQ(server->calls.size(), 1U);
    EXPECT_THAT(Given(), IsEmpty());
    Panel()->instancesWanted = 1;
    EXPECT_TRUE(CATOfferPick({PathToFirewall()}));
    EXPECT_EQ(Given().size(), 1U);
}

TEST_F(ReportCommand, PanelThatHasEnoughAmidAPickGetsNoMoreOfIt)
{
    server->answer = std::string(kFuselage) + kForward + kFirewall;
    Start();
    Panel()->instancesWanted = 1;
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward(), PathToFirewall()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, MixedPickGivesItsItemInstancesAlone)
{
    server->answer = std::string(kFirewall) + kFuselage;
    Start();
    EXPECT_TRUE(CATOfferPick({PathTo(CATNavigator::CurrentRoot()), PathToFirewall(),
                              PathToStranger({{"Type", "Note"}}), PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, PickWithoutPartNamesIsReadWithoutThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->answer = "0|FUS-110.1|FUS-110|B|2|FUS-100.1|FUS-000.1|1|FUS-000.1|FUS-000|A|0|";
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFirewall(), PathToFuselage()}));
    EXPECT_THAT(Given(), ElementsAre("FUS-110.1, FUS-110, B, FUS-100.1|FUS-000.1, 2",
                                     "FUS-000.1, FUS-000, A, , 0"));
}

TEST_F(ReportCommand, PartNamesThatNobodyAskedForShiftTheRecordsBehindThem)
{
    environment.Set("KR4_DA_FOR_CGR", "1");
    server->answer = std::string(kFuselage) + kForward;
    Start();
    EXPECT_TRUE(CATOfferPick({PathToFuselage(), PathToForward()}));
    // "Fuselage" counts as the second record's first field, so its path count reads "A".
    EXPECT_THAT(Given(), ElementsAre("FUS-000.1, FUS-000, A, , 0", "1, FUS-100.1, FUS-100, , 0"));
}

TEST_F(ReportCommand, RootWithoutAnIdentifierMakesEveryPickANoOp)
{
    Start();
    const CATPathElement_var path = PathToFuselage();
    CATNavigator::Open(std::make_shared<AeroplaneSource>(), AeroplaneSource::Row("", "", true));
    EXPECT_FALSE(CATOfferPick({path}));
    EXPECT_FALSE(CATOfferPick({path}));
    EXPECT_THAT(server->calls, IsEmpty());
    EXPECT_THAT(Given(), IsEmpty());
    ExpectWaitsAgain();
}

TEST_F(ReportCommand, FailedServiceLeavesThePanelAsItWas)
{
    server->answer.reset();
    Start();
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(Given(), IsEmpty());
    ExpectWaitsAgain();
    server->answer = kFuselage;
    EXPECT_TRUE(CATOfferPick({PathToFuselage()}));
    EXPECT_EQ(Given().size(), 1U);
}

TEST_F(ReportCommand, NothingIsTakenOnceTheCommandEnds)
{
    Start();
    Panel()->Send(CATDlgDialog::WindowClosed);
    EXPECT_FALSE(CATOfferPick({PathToFuselage()}));
    EXPECT_THAT(server->calls, IsEmpty());
}
