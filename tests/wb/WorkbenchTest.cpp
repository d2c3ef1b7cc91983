#include "Workbench.h"

#include "AnsweringServer.h"
#include "CATCkeGlobalFunctions.h"
#include "CATDlgApplication.h"
#include "CATDlgFile.h"
#include "CATDlgNotify.h"
#include "CATENOWBCSCommonDefinitions.h"
#include "CATSession.h"
#include "CATWBVPMMainPanel.h"
#include "CATWBVPMNavFilterPanel.h"
#include "CATWBVPMNavUnitsConversion.h"
#include "HostSession.h"
#include "ProductTreeModel.h"
#include "ProductTreeView.h"
#include "RunServerCode.h"
#include "SampleProducts.h"
#include "TemporaryDirectory.h"

#include <QAction>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QTimer>

#include <gmock/gmock.h>

#include <array>
#include <memory>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

/// A workbench on the two samples, in this process.
class Workbench : public testing::Test
{
protected:
    Workbench()
    {
        std::string problem;
        SessionOptions options;
        options.database = SampleDatabase(m_folder.Path(), problem);
        m_session = std::make_unique<HostSession>(options, m_folder.At("settings"));
        EXPECT_TRUE(m_session->Connect(problem)) << problem;
        m_application = std::make_unique<CATDlgApplication>(m_count, m_arguments.data());
        m_window = new WorkbenchWindow("samples.db"); // goes with the application
        m_window->show();
        CATUnicodeString reason;
        EXPECT_TRUE(m_window->OpenRoot("LA1", reason)) << reason.Text();
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            m_boxes.push_back(box.title.ToStdString() + ": " + box.text.ToStdString());
            return std::optional<int>(1);
        });
    }
    ~Workbench() override
    {
        m_application.reset();
        CATDlgNotify::SetAnswerer({});
        CATDlgFile::SetChooser({});
    }

    QAction& Action(const QString& text) const
    {
        for (QAction* action : m_window->findChildren<QAction*>()) {
            if (action->text().remove('&') == text) {
                return *action;
            }
        }
        ADD_FAILURE() << "there is no action " << text.toStdString();
        return *m_window->actions().front();
    }
    std::string DocumentLine() const
    {
        return m_window->findChild<QLabel*>("DocumentLabel")->text().toStdString();
    }
    static std::string Root(const ProductTreeView& tree)
    {
        return tree.model()->index(0, 0).data().toString().toStdString();
    }

    TemporaryDirectory m_folder;
    std::array<char, 3> m_name{'w', 'b', '\0'};
    std::array<char*, 2> m_arguments{m_name.data(), nullptr};
    int m_count = 1;
    std::unique_ptr<HostSession> m_session;
    std::unique_ptr<CATDlgApplication> m_application;
    WorkbenchWindow* m_window = nullptr;
    std::vector<std::string> m_boxes;
};

/// A main panel that the user may want to stay with.
class PanelWithEdits : public CATWBVPMMainPanel
{
public:
    PanelWithEdits() : CATWBVPMMainPanel(&CATSession::Root())
    {
        SetGuard([] { return s_mayClose; });
        SetVisibility(true);
    }
    void SetModel(CATWBAllDataBuffer*) override {}
    CATDlgPushButton* GetCloseButton() override { return nullptr; }

    static inline bool s_mayClose = false;
};

} // namespace

TEST_F(Workbench, OpenProductOffersTheRootsAndBeginsWithTheOpenOne)
{
    CATUnicodeString reason;
    ASSERT_TRUE(m_window->OpenRoot("SC1", reason));
    std::vector<std::string> offered;
    std::string chosen;
    QTimer::singleShot(0, [&] {
        auto* dialog = m_window->findChild<QInputDialog*>();
        ASSERT_NE(dialog, nullptr);
        for (const QString& line : dialog->comboBoxItems()) {
            offered.push_back(line.toStdString());
        }
        chosen = dialog->textValue().toStdString();
        dialog->setTextValue(dialog->comboBoxItems().front());
        dialog->accept();
    });
    Action("Open product...").trigger();
    EXPECT_THAT(offered, ElementsAre("LA1   Light aeroplane, two seats, basic empty",
                                     "SC1   Small satellite, wings deployed, tank full"));
    EXPECT_THAT(chosen, testing::StartsWith("SC1"));
    EXPECT_EQ(Root(m_window->CurrentTree()), "LA1");
    EXPECT_EQ(m_window->windowTitle().toStdString(), "LA1 - Weight and Balance");
    EXPECT_EQ(DocumentLine(), "Document of LA1, in the database");
}

TEST_F(Workbench, OpenProductThatIsCancelledChangesNothing)
{
    QTimer::singleShot(0, [&] { m_window->findChild<QInputDialog*>()->reject(); });
    Action("Open product...").trigger();
    EXPECT_EQ(Root(m_window->CurrentTree()), "LA1");
    EXPECT_TRUE(m_boxes.empty());
}

TEST_F(Workbench, OpenTableFileShowsItAsALocalDocument)
{
    CATDlgFile::SetChooser([](const CATDlgFile::Request& request) {
        EXPECT_EQ(request.mode, CATDlgFile::Mode::Open);
        EXPECT_EQ(request.extension, CATUnicodeString("csv"));
        return std::optional<CATUnicodeString>(WB_SOURCE_DIR "/data/small_satellite.csv");
    });
    Action("Open table file...").trigger();
    EXPECT_EQ(CATApplicationFrame::GetFrame()->Workshop(),
              CATString(CATENOWBCSCommonDefinitions::prodStructWshp));
    EXPECT_EQ(Root(m_window->CurrentTree()), "SC1");
    EXPECT_THAT(DocumentLine(), HasSubstr("data/small_satellite.csv, outside the database"));
    EXPECT_TRUE(m_boxes.empty());
}

TEST_F(Workbench, ATableFileThatIsWrongIsToldAndTheDocumentStays)
{
    const std::string file = m_folder.Write("bad.csv", "parent,what\n");
    CATDlgFile::SetChooser(
        [&](const CATDlgFile::Request&) { return std::optional<CATUnicodeString>(file); });
    Action("Open table file...").trigger();
    EXPECT_THAT(m_boxes,
                ElementsAre(testing::AllOf(testing::StartsWith("The file was not opened: "),
                                           HasSubstr("bad.csv"), HasSubstr("what"))));
    EXPECT_EQ(DocumentLine(), "Document of LA1, in the database");
}

TEST_F(Workbench, OpenTableFileThatIsCancelledChangesNothing)
{
    CATDlgFile::SetChooser(
        [](const CATDlgFile::Request&) { return std::optional<CATUnicodeString>(""); });
    Action("Open table file...").trigger();
    EXPECT_TRUE(m_boxes.empty());
    EXPECT_EQ(DocumentLine(), "Document of LA1, in the database");
}

TEST_F(Workbench, EveryCommandHasItsShortcutATooltipAndAPicture)
{
    const struct
    {
        const char* title;
        const char* shortcut;
        bool alsoInTheStructure;
    } commands[] = {{"Part or assembly", "Ctrl+1", true}, {"Compute product", "Ctrl+2", false},
                    {"Report", "Ctrl+3", false},          {"Define filter", "Ctrl+4", false},
                    {"Groups", "Ctrl+5", false},          {"Save changes", "Ctrl+S", true}};
    for (const auto& each : commands) {
        Action("Navigator").trigger();
        const QAction& command = Action(each.title);
        EXPECT_EQ(command.shortcut(), QKeySequence(each.shortcut)) << each.title;
        EXPECT_NE(command.toolTip(), each.title); // what it shows without one
        EXPECT_FALSE(command.icon().pixmap(32, 32).isNull()) << each.title;
        EXPECT_TRUE(command.isEnabled()) << each.title;
        Action("Product structure").trigger();
        EXPECT_EQ(command.isEnabled(), each.alsoInTheStructure) << each.title;
    }
}

TEST_F(Workbench, TheRunningCommandIsCheckedAndCanBeStopped)
{
    QAction& command = Action("Part or assembly");
    EXPECT_FALSE(command.isChecked());
    command.trigger();
    EXPECT_TRUE(command.isChecked());
    ASSERT_NE(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(m_window->findChild<QLabel*>("Prompt")->text().toStdString(),
              "Select a part or an assembly");

    Action("Stop the running command").trigger();
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_FALSE(command.isChecked());
    EXPECT_EQ(m_window->findChild<QLabel*>("Prompt")->text().toStdString(),
              "Choose a command, then pick in the tree");
}

TEST_F(Workbench, AnotherWorkshopEndsTheRunningCommand)
{
    Action("Part or assembly").trigger();
    Action("Product structure").trigger();
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_TRUE(Action("Product structure").isChecked());
    EXPECT_EQ(Root(m_window->CurrentTree()), "LA1");
    Action("Navigator").trigger();
    EXPECT_EQ(CATApplicationFrame::GetFrame()->Workshop(),
              CATString(CATENOWBCSCommonDefinitions::vpmNavWshp));
}

TEST_F(Workbench, WhoeverStaysWithEditsKeepsTheRunningCommandAndAllThatIsOpen)
{
    Action("Part or assembly").trigger();
    const CATCommand* running = CATSession::RunningCommand();
    ASSERT_NE(running, nullptr);
    PanelWithEdits::s_mayClose = false;
    const auto* panel = new PanelWithEdits; // goes with the session
    CATDlgFile::SetChooser([](const CATDlgFile::Request&) {
        return std::optional<CATUnicodeString>(WB_SOURCE_DIR "/data/small_satellite.csv");
    });
    for (const char* action : {"Compute product", "Part or assembly", "Stop the running command",
                               "Product structure", "Open table file...", "Save changes"}) {
        Action(action).trigger();
        EXPECT_EQ(CATSession::RunningCommand(), running) << action;
        EXPECT_TRUE(panel->IsVisible()) << action;
        EXPECT_TRUE(Action("Part or assembly").isChecked()) << action;
        EXPECT_TRUE(Action("Navigator").isChecked()) << action;
        EXPECT_EQ(DocumentLine(), "Document of LA1, in the database") << action;
    }
    CATUnicodeString reason;
    EXPECT_TRUE(m_window->OpenRoot("SC1", reason));
    EXPECT_EQ(Root(m_window->CurrentTree()), "LA1");
    EXPECT_TRUE(m_boxes.empty());

    PanelWithEdits::s_mayClose = true;
    EXPECT_TRUE(m_window->OpenRoot("SC1", reason));
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_EQ(CATSession::RunningCommand(), nullptr);
    EXPECT_EQ(Root(m_window->CurrentTree()), "SC1");
}

TEST_F(Workbench, AnotherProductDoesNotTakeOverTheConfigurationOfTheLastOne)
{
    CATWBVPMNavFilterPanel::selectedPRCConfigHandler = "Without tail";
    CATUnicodeString reason;
    ASSERT_TRUE(m_window->OpenRoot("SC1", reason));
    EXPECT_EQ(CATWBVPMNavFilterPanel::selectedPRCConfigHandler, "NoConfig");
}

TEST_F(Workbench, AboutSaysHowToBegin)
{
    Action("About").trigger();
    ASSERT_EQ(m_boxes.size(), 1U);
    EXPECT_THAT(m_boxes.front(), testing::AllOf(testing::StartsWith("About Weight and Balance: "),
                                                HasSubstr("Press F2"), HasSubstr("F3")));
}

TEST_F(Workbench, ToolsUnitsShowsTheUnitsPanelInFrontEachTime)
{
    QAction& units = Action("Units...");
    EXPECT_EQ(units.shortcut(), QKeySequence("Ctrl+U"));
    EXPECT_EQ(units.statusTip().toStdString(), "Chooses the units in which values are shown");
    units.trigger();
    CATWBVPMNavUnitsConversion* panel = CATWBVPMNavUnitsConversion::Instance();
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(panel->Title(), CATUnicodeString("Units"));
    EXPECT_EQ(panel->Parent(), CATApplicationFrame::GetFrame()->MainWindow());
    panel->SetVisibility(false);
    units.trigger();
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_EQ(CATWBVPMNavUnitsConversion::Instance(), panel);
    EXPECT_TRUE(m_boxes.empty());
}

TEST_F(Workbench, SameProblemOfAFileIsToldOnce)
{
    m_folder.Write("settings/units.toml", "this is no table of units");
    for (int reading = 0; reading < 2; ++reading) {
        CATCkeGlobalFunctions::SetParmDictionary({});
        CATCkeGlobalFunctions::GetParmDictionary();
    }
    for (int round = 0; round < 3; ++round) {
        CATDlgApplication::ProcessEvents();
    }
    CATCkeGlobalFunctions::SetParmDictionary({});
    EXPECT_THAT(m_boxes,
                ElementsAre(testing::AllOf(testing::StartsWith("Something cannot be used: "),
                                           HasSubstr("settings/units.toml"))));
}

TEST_F(Workbench, QuitClosesAllWindowsAndAsksWhatBecomesOfPendingUnits)
{
    Action("Units...").trigger();
    CATWBVPMNavUnitsConversion* panel = CATWBVPMNavUnitsConversion::Instance();
    auto* preset = panel->Widget()->findChild<QComboBox*>("Preset");
    ASSERT_NE(preset, nullptr);
    preset->setCurrentIndex(preset->findText("SI"));
    CATDlgApplication::ProcessEvents();
    Action("Quit").trigger();
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_THAT(m_boxes, ElementsAre(HasSubstr("not applied yet")));
}

TEST_F(Workbench, QuitClosesTheWindow)
{
    Action("Quit").trigger();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(Workbench, QuitAsksWhatBecomesOfUnsavedChanges)
{
    constexpr const char* kOnePending =
        "1|part WNG-211 B|mass type Weighed, mass|1|2|1|0|__null__|__null__|2026/11/21 18:00:00|";
    AnsweringServer server;
    server.Answer("WBPendingChanges") = kOnePending;
    std::optional<int> answer = 5;
    CATDlgNotify::SetAnswerer([&](const CATDlgNotify::Shown& box) {
        m_boxes.push_back(box.text.ToStdString());
        return answer;
    });
    const auto close = {std::function<void()>([this] { m_window->close(); }),
                        std::function<void()>([this] { Action("Quit").trigger(); })};
    for (const auto& tryToClose : close) {
        m_boxes.clear();
        tryToClose();
        EXPECT_TRUE(m_window->isVisible());
        EXPECT_THAT(m_boxes, ElementsAre(HasSubstr("part WNG-211 B")));
    }
    EXPECT_EQ(Action("Quit").shortcut(), QKeySequence("Ctrl+Q"));
    answer = 2;
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(Workbench, WindowThatMayNotCloseKeepsTheWorkbenchOpenBeforeAnybodyIsAskedMore)
{
    AnsweringServer server;
    auto* panel = new CATDlgDialog(CATApplicationFrame::GetFrame()->MainWindow(), "Panel", 0x4001);
    bool mayClose = false;
    panel->SetGuard([&] { return mayClose; });
    panel->SetVisibility(true);
    m_window->close();
    EXPECT_TRUE(panel->IsVisible());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(server.Calls().empty());
    mayClose = true;
    server.Answer("WBPendingChanges") = "0|";
    m_window->close();
    EXPECT_FALSE(panel->IsVisible());
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(Workbench, WhatAClosingPanelAppliesIsAmongTheUnsavedChangesThatAreAsked)
{
    AnsweringServer server;
    server.Answer("WBPendingChanges") = "0|";
    server.Answer("WBApplyValues") = "Apply|OK|1|";
    auto* panel = new CATDlgDialog(CATApplicationFrame::GetFrame()->MainWindow(), "Panel", 0x4001);
    panel->SetGuard([&] {
        server.Answer("WBPendingChanges") =
            "1|part P A|density|1|2|1|0|__null__|__null__|2026/11/21 18:00:00|";
        return RunServerCode("WBApplyValues") == "Apply|OK|1|";
    });
    panel->SetVisibility(true);
    m_window->close();
    EXPECT_THAT(m_boxes, testing::Contains(HasSubstr("part P A, density")));
}

TEST_F(Workbench, StatusLineSaysWhatTheLastSessionLeftUnsaved)
{
    const auto* label = m_window->findChild<QLabel*>("UnsavedChanges");
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->isHidden());
    AnsweringServer server;
    server.Answer("WBPendingChanges") =
        "1|part P A|density|1|2|1|0|__null__|__null__|2026/11/21 18:00:00|";
    const auto* later = new WorkbenchWindow("samples.db"); // goes with the application
    EXPECT_EQ(later->findChild<QLabel*>("UnsavedChanges")->text().toStdString(),
              "1 unsaved change");
}
