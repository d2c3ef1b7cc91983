#include "StoryControls.h"

#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATNumberLocale.h"
#include "CATSession.h"
#include "StoryPlayer.h"
#include "TemporaryDirectory.h"
#include "Workbench.h"

#include <QJsonArray>

#include <gtest/gtest.h>

#include <array>
#include <memory>

namespace
{

/// Stories on a window of the test's own, beside the workbench.
class StoryControlsTest : public testing::Test
{
protected:
    StoryControlsTest()
        : m_application(std::make_unique<CATDlgApplication>(m_count, m_arguments.data())),
          m_workbench(new WorkbenchWindow("none.db")), // goes with the application
          m_window(*new CATDlgDialog(&CATSession::Root(), "Window", 0x4001))
    {
        CATUseNumberLocale("C");
    }

    /// Plays the steps; what failed, or nothing.
    std::string Play(const std::string& steps)
    {
        m_window.SetVisibility(true);
        StoryPlayer player(*m_workbench);
        return player.Play(m_folder.Write("a.story", steps)) ? std::string() : player.Failure();
    }

    TemporaryDirectory m_folder;
    std::array<char, 3> m_name{'w', 'b', '\0'};
    std::array<char*, 2> m_arguments{m_name.data(), nullptr};
    int m_count = 1;
    std::unique_ptr<CATDlgApplication> m_application;
    WorkbenchWindow* m_workbench;
    CATDlgDialog& m_window;
};

TEST_F(StoryControlsTest, SpinnerIsTypedIntoExpectedAndDumped)
{
    auto* spinner = new CATDlgSpinner(&m_window, "Digits");
    spinner->SetRange(0.0, 8.0, 8);
    int told = -1;
    m_window.Subscribe(
        spinner, CATDlgSpinner::Modified,
        [&told](const CATNotification& notification) { told = notification.detail; });
    EXPECT_EQ(Play("type Digits 5\nexpect Digits 5\n"), "");
    EXPECT_EQ(told, 5);
    EXPECT_EQ(spinner->Value(), 5.0);
    const QJsonObject window = DumpWindows()["windows"].toArray().last().toObject();
    const QJsonObject control = window["controls"].toArray().first().toObject();
    EXPECT_EQ(control["name"].toString(), "Digits");
    EXPECT_EQ(control["text"].toString(), "5");
    EXPECT_EQ(control["value"].toDouble(), 5.0);
}

} // namespace
