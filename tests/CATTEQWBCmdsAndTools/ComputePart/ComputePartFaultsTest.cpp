#include "ComputePartSession.h"

#include "CATDlgApplication.h"
#include "CATEnvironment.h"
#include "CATSettingRepository.h"

#include <filesystem>
#include <unistd.h>

// A server that breaks the layout ends the command that asked it, and nothing else.

namespace
{

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

class ComputePartFaults : public ComputePart
{
protected:
    ComputePartFaults()
    {
        std::filesystem::create_directories(m_settings);
        CATSetEnvironmentSource([this](const char* name) -> std::optional<std::string> {
            if (std::string_view(name) == "CATUserSettingPath") {
                return m_settings.string();
            }
            return std::nullopt;
        });
        CATSettingRepository::CloseAll();
    }
    ~ComputePartFaults() override
    {
        CATSettingRepository::CloseAll();
        CATSetEnvironmentSource({});
        std::filesystem::remove_all(m_settings);
    }

    /// The answer with "x" where the number of mass types stands.
    static std::string WithABrokenCount(std::string answer)
    {
        const std::size_t count = answer.find("1|Calculated|1|");
        EXPECT_NE(count, std::string::npos);
        return answer.replace(count, 1, "x");
    }
    bool PickLeaf(const char* workshop)
    {
        return Pick(workshop == std::string_view(kNavigator) ? Firewall() : aeroplane.Path(4));
    }
    static testing::Matcher<Box> IsTheFaultReport()
    {
        return AllOf(
            Field(&Box::name, "FaultReport"), Field(&Box::style, 0x10000000),
            Field(&Box::text,
                  HasSubstr("\"CATTEQWBComputePartCmd\" met an error that it cannot handle:\n"
                            "AssertionFailed:lStatus == 1 "
                            "(CATTEQWBCmdsAndTools.m/src/CATWBToken:")));
    }
    /// A command started now fills a panel, and ends with it.
    void ExpectTheNextCommandWorks(const char* workshop)
    {
        boxes.clear();
        Start(workshop);
        EXPECT_TRUE(PickLeaf(workshop));
        ASSERT_EQ(FakePanel::s_made.size(), 1U);
        double mass = 0.0;
        Panel()->record->GetMass("Calculated", mass);
        EXPECT_EQ(mass, 2.0);
        EXPECT_THAT(boxes, IsEmpty());
        CATSession::CancelRunningCommand();
        CATDlgApplication::ProcessEvents();
        EXPECT_EQ(Panel(), nullptr);
    }

private:
    std::filesystem::path m_settings =
        std::filesystem::temp_directory_path() / ("wb-faults-" + std::to_string(getpid()));
};

/// The text up to each "|", once without it and once with it.
std::vector<std::string> Cuts(const std::string& text)
{
    std::vector<std::string> cuts;
    for (std::size_t end = text.find('|'); end != std::string::npos;
         end = text.find('|', end + 1)) {
        cuts.push_back(text.substr(0, end));
        cuts.push_back(text.substr(0, end + 1));
    }
    return cuts;
}

} // namespace

TEST_F(ComputePartFaults, BrokenCountOfMassTypesEndsTheCommandAndTellsTheUserOnce)
{
    for (const char* workshop : {kNavigator, kStructure}) {
        boxes.clear();
        StartIn(workshop);
        const CATCommandWatch<CATCommand> watch(command);
        server->answer = WithABrokenCount(server->answer);
        EXPECT_FALSE(PickLeaf(workshop));
        EXPECT_THAT(boxes, ElementsAre(IsTheFaultReport())) << workshop;
        EXPECT_EQ(CATSession::RunningCommand(), nullptr);
        EXPECT_EQ(frame->Prompt(), "");
        EXPECT_EQ(Panel(), nullptr);
        CATDlgApplication::ProcessEvents(); // the session's loop destroys what was asked for
        EXPECT_EQ(watch.Get(), nullptr);
        EXPECT_EQ(CATSession::PendingDestructions(), 0);
        EXPECT_EQ(boxes.size(), 1U);
        frame.reset();
    }
}

TEST_F(ComputePartFaults, ReportIsAWindowThatTheUserCloses)
{
    CATDlgNotify::SetAnswerer({});
    StartIn(kNavigator);
    server->answer = WithABrokenCount(server->answer);
    PickLeaf(kNavigator);
    CATDlgDialog* window = frame->MainWindow();
    ASSERT_EQ(window->ChildCount(), 1);
    auto* box = dynamic_cast<CATDlgNotify*>(window->Child(1));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->Name(), "FaultReport");
    CATDlgApplication::ProcessEvents();
    EXPECT_TRUE(box->IsVisible()); // it outlives the command that it tells of
    box->Send(CATDlgDialog::WindowClosed);
    CATDlgApplication::ProcessEvents();
    EXPECT_EQ(window->ChildCount(), 0);
}

TEST_F(ComputePartFaults, OtherWindowsStay)
{
    StartIn(kNavigator);
    frame->MainWindow()->SetVisibility(true);
    const CATCommandWatch<CATDlgDialog> beside(new CATDlgDialog(&CATSession::Root(), "Beside", 0));
    const CATCommandWatch<CATDlgDialog> below(new CATDlgDialog(frame->MainWindow(), "Below", 0));
    beside.Get()->SetVisibility(true);
    below.Get()->SetVisibility(true);
    server->answer = WithABrokenCount(server->answer);
    EXPECT_FALSE(PickLeaf(kNavigator));
    CATDlgApplication::ProcessEvents();
    EXPECT_TRUE(frame->MainWindow()->IsVisible());
    ASSERT_NE(beside.Get(), nullptr);
    EXPECT_TRUE(beside.Get()->IsVisible());
    ASSERT_NE(below.Get(), nullptr);
    EXPECT_TRUE(below.Get()->IsVisible());
}

TEST_F(ComputePartFaults, PanelOfTheEndedCommandGoesWithIt)
{
    StartIn(kNavigator);
    PickLeaf(kNavigator);
    ASSERT_NE(Panel(), nullptr);
    server->answer = WithABrokenCount(server->answer);
    PickLeaf(kNavigator);
    EXPECT_EQ(Panel()->refills, 0);
    CATDlgApplication::ProcessEvents();
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(ComputePartFaults, SettingsStay)
{
    CATSettingRepository* settings = CATSettingRepository::GetRepository("Kept");
    ASSERT_NE(settings, nullptr);
    settings->WriteSetting("Saved", 1);
    settings->SaveRepository();
    settings->WriteSetting("Unsaved", 2);
    StartIn(kNavigator);
    server->answer = WithABrokenCount(server->answer);
    EXPECT_FALSE(PickLeaf(kNavigator));
    CATDlgApplication::ProcessEvents();

    settings = CATSettingRepository::GetRepository("Kept");
    int value = 0;
    EXPECT_EQ(settings->ReadSetting("Saved", value), S_OK);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(settings->ReadSetting("Unsaved", value), S_OK);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(settings->SaveRepository(), S_OK);
    CATSettingRepository::CloseAll();
    settings = CATSettingRepository::GetRepository("Kept");
    EXPECT_EQ(settings->ReadSetting("Unsaved", value), S_OK);
    EXPECT_EQ(value, 2);
}

TEST_F(ComputePartFaults, CommandStartedAfterwardsWorks)
{
    StartIn(kNavigator);
    server->answer = WithABrokenCount(server->answer);
    EXPECT_FALSE(PickLeaf(kNavigator));
    CATDlgApplication::ProcessEvents();
    ExpectTheNextCommandWorks(kNavigator);
    ExpectTheNextCommandWorks(kStructure);
}

TEST_F(ComputePartFaults, CommandStartedFromTheReportWorks)
{
    // The user starts anew while the old command still waits for its destruction.
    StartIn(kNavigator);
    server->answer = WithABrokenCount(server->answer);
    EXPECT_FALSE(PickLeaf(kNavigator));
    ExpectTheNextCommandWorks(kNavigator);
}

TEST_F(ComputePartFaults, AnswerCutAnywhereFillsAPanelOrEndsInTheReport)
{
    frame = std::make_unique<CATApplicationFrame>(
        new CATDlgDialog(&CATSession::Root(), "MainWindow", 0));
    for (const char* workshop : {kNavigator, kStructure}) {
        const std::string whole =
            workshop == std::string_view(kNavigator) ? kNavigatorAnswer : kStructureAnswer;
        bool isFilled = false;
        for (const std::string& cut : Cuts(whole)) {
            SCOPED_TRACE(cut);
            boxes.clear();
            Start(workshop);
            server->answer = cut;
            isFilled = PickLeaf(workshop);
            if (isFilled) {
                ASSERT_EQ(FakePanel::s_made.size(), 1U);
                EXPECT_TRUE(Panel()->IsVisible());
                EXPECT_THAT(boxes, IsEmpty());
                ExpectWaitsAgain();
            } else {
                EXPECT_EQ(Panel(), nullptr);
                EXPECT_THAT(boxes, ElementsAre(IsTheFaultReport()));
                EXPECT_EQ(CATSession::RunningCommand(), nullptr);
            }
            // The number of properties stands last: all that lacks it is no record.
            EXPECT_EQ(isFilled, cut.size() >= whole.size() - 1);
            CATSession::CancelRunningCommand();
            CATDlgApplication::ProcessEvents();
            EXPECT_EQ(Panel(), nullptr);
            EXPECT_EQ(CATSession::PendingDestructions(), 0);
        }
        EXPECT_TRUE(isFilled); // the last one is whole
        ExpectTheNextCommandWorks(workshop);
    }
}
