#include "CATApplicationFrame.h"
#include "CATDiagnostics.h"
#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgFile.h"
#include "CATDlgMultiList.h"
#include "CATDlgNotify.h"
#include "CATSession.h"
#include "CATStatus.h"
#include "DiagnosticCapture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace
{

class DialogWithoutToolkit : public testing::Test
{
protected:
    ~DialogWithoutToolkit() override
    {
        CATDlgNotify::SetAnswerer({});
        CATSession::Close();
    }
    CATDlgDialog& m_window = *new CATDlgDialog(&CATSession::Root(), "Window", 0x4001);
};

TEST_F(DialogWithoutToolkit, WindowKeepsNameStyleAndTitle)
{
    m_window.SetTitle("Title");
    m_window.SetVisibility(true);
    m_window.BringToFront();
    m_window.SetPreferredSize(100, 100);
    EXPECT_EQ(m_window.Widget(), nullptr);
    EXPECT_EQ(m_window.Name(), "Window");
    EXPECT_EQ(m_window.Style(), 0x4001);
    EXPECT_EQ(m_window.Title(), "Title");
    EXPECT_FALSE(m_window.IsVisible());
}

TEST_F(DialogWithoutToolkit, ControlsAnswerAsEmptyOnes)
{
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    auto* editor = new CATDlgEditor(frame, "Editor");
    editor->SetText("12");
    editor->SetPlacement(1, 2);
    editor->SetSensitivity(true);
    editor->SetTooltip("tip");
    editor->SetAccessibleName("name");
    EXPECT_EQ(editor->Text(), "");
    EXPECT_EQ(editor->Tooltip(), "");
    EXPECT_FALSE(editor->IsSensitive());
    auto* combo = new CATDlgCombo(frame, "Combo");
    combo->SetLine(0, "x");
    EXPECT_EQ(combo->LineCount(), 0);
    EXPECT_EQ(combo->SelectedIndex(), -1);
    auto* tabs = new CATDlgTabContainer(frame, "Tabs");
    EXPECT_EQ((new CATDlgTabPage(tabs, "Page"))->Widget(), nullptr);
    EXPECT_EQ(tabs->SelectedPage(), -1);
    auto* radio = new CATDlgRadioButton(frame, "Radio");
    radio->SetChecked(true);
    EXPECT_FALSE(radio->IsChecked());
    (new CATDlgLabel(frame, "Label"))->SetRole(CATDlgLabel::Role::Good);
}

TEST_F(DialogWithoutToolkit, CheckButtonKeepsItsValueAndTellsIt)
{
    auto* check = new CATDlgCheckButton(&m_window, "Check");
    int told = -1;
    m_window.Subscribe(
        check, CATDlgCheckButton::Modified,
        [&told](const CATNotification& notification) { told = notification.detail; });
    check->SetChecked(true);
    EXPECT_TRUE(check->IsChecked());
    EXPECT_EQ(told, -1);
    check->SetChecked(true, CATDlgTelling::Notify);
    EXPECT_EQ(told, 1);
}

TEST_F(DialogWithoutToolkit, SpinnerKeepsItsValueAndTellsIt)
{
    auto* spinner = new CATDlgSpinner(&m_window, "Spinner");
    int told = -1;
    m_window.Subscribe(
        spinner, CATDlgSpinner::Modified,
        [&told](const CATNotification& notification) { told = notification.detail; });
    spinner->SetRange(0.0, 8.0, 8);
    spinner->SetFormat("%.2g");
    spinner->SetVisibleTextWidth(2);
    spinner->SetUpSensitivity(16);
    spinner->SetVisibility(false);
    spinner->SetValue(9.0);
    EXPECT_EQ(spinner->Value(), 8.0);
    EXPECT_EQ(told, -1);
    spinner->SetValue(2.5, CATDlgTelling::Notify);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(spinner->Text(), "2.5");
    EXPECT_EQ(spinner->UpSensitivity(), 16);
    EXPECT_EQ(spinner->Widget(), nullptr);
}

TEST_F(DialogWithoutToolkit, ListTakesNoRows)
{
    auto* list = new CATDlgMultiList(&m_window, "List");
    list->SetColumnTitles({"A"});
    EXPECT_EQ(list->ColumnCount(), 0);
    EXPECT_EQ(list->SetCell(0, 1, "x"), E_INVALIDARG);
    list->SetRows({{"x"}});
    list->SelectRow(1);
    list->SetRowEmphasis(1, true);
    EXPECT_EQ(list->RowCount(), 0);
    EXPECT_EQ(list->SelectedRow(), 0);
    EXPECT_EQ(list->Cell(0, 1), "");
}

TEST_F(DialogWithoutToolkit, BoxGoesToTheErrorStreamAndAQuestionIsAnsweredByNo)
{
    const DiagnosticCapture errors(CATDiagnosticErrors());
    auto* box = new CATDlgNotify(&m_window, "Error", 0x10000000);
    box->SetTitle("Server error");
    box->SetText("The part has no mass.");
    box->DisplayNonBlocking();
    EXPECT_EQ(errors.Lines(), std::vector<std::string>{"Server error: The part has no mass."});
    EXPECT_EQ(CATSession::PendingDestructions(), 1);
    auto* question = new CATDlgNotify(&m_window, "Question", 0x8800200);
    EXPECT_EQ(question->DisplayBlocking(), 4);
    EXPECT_EQ((new CATDlgNotify(&m_window, "Q", CATDlgNotify::kQuestion))->DisplayBlocking(), 2);
    auto* cancellable = new CATDlgNotify(&m_window, "C", CATDlgNotify::kQuestionWithCancel);
    cancellable->SetChoices("Save", "Leave for later"); // no widget, nothing to say it
    EXPECT_EQ(cancellable->DisplayBlocking(), 5);
    EXPECT_EQ((new CATDlgNotify(&m_window, "Plain", 0))->DisplayBlocking(), 1);
}

TEST_F(DialogWithoutToolkit, AnswererIsAskedFirst)
{
    CATDlgNotify::SetAnswerer([](const CATDlgNotify::Shown&) { return 3; });
    const DiagnosticCapture errors(CATDiagnosticErrors());
    EXPECT_EQ((new CATDlgNotify(&m_window, "Question", 0x8800200))->DisplayBlocking(), 3);
    EXPECT_TRUE(errors.Lines().empty());
}

TEST_F(DialogWithoutToolkit, FileBoxIsCancelled)
{
    EXPECT_EQ((new CATDlgFile(&m_window, "File", CATDlgFile::Mode::Open))->DisplayBlocking(), "");
}

TEST_F(DialogWithoutToolkit, SessionHasAMainWindow)
{
    const CATApplicationFrame frame(nullptr);
    ASSERT_NE(frame.MainWindow(), nullptr);
    EXPECT_EQ(frame.MainWindow()->Widget(), nullptr);
}

TEST_F(DialogWithoutToolkit, WaitingJustWaits)
{
    std::atomic<bool> isDone{false};
    std::jthread work([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        isDone = true;
    });
    CATDlgWaitFor(
        "Working", [&] { return isDone.load(); }, [] { FAIL() << "nobody cancelled"; }, {});
    EXPECT_TRUE(isDone);
}

} // namespace
