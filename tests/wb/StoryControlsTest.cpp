#include "StoryControls.h"

#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATDlgDialog.h"
#include "CATDlgMultiList.h"
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
        CATDlgApplication::ProcessEvents();
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
    new CATDlgPushButton(&m_window, "Next"); // where Tab leads to
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

/// A list of three rows beside the workbench.
class ListStory : public StoryControlsTest
{
protected:
    ListStory() : m_list(*new CATDlgMultiList(&m_window, "Parts"))
    {
        m_list.SetColumnTitles({"Name", "Mass"});
        m_list.SetRows({{"wing", "30kg"}, {"rudder", "4kg"}, {"wheel, left", "5kg"}});
    }

    CATDlgMultiList& m_list;
};

TEST_F(ListStory, SortsFiltersAndExportsAsSeen)
{
    const std::string out = m_folder.At("out.csv");
    EXPECT_EQ(Play("sort Parts Mass\n"
                   "expect-cell Parts 1 Name rudder\n"
                   "select Parts wing\n"
                   "key Ctrl+F\n"
                   "type PartsFilter W\n"
                   "expect-cell Parts 1 Name \"wheel, left\"\n"
                   "select Parts wing\n"
                   "file " +
                   out +
                   "\n"
                   "key Ctrl+E\n"
                   "expect-file " +
                   out + " wing\n"),
              "");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Mass\r\n\"wheel, left\",5kg\r\nwing,30kg\r\n");
}

TEST_F(ListStory, AnExistingFileIsReplacedOnlyWhenTheAnswerIsYes)
{
    const std::string out = m_folder.Write("out.csv", "old");
    const std::string exported = "click Parts\nfile " + out + "\nkey Ctrl+E\n";
    EXPECT_EQ(Play("answer No\n" + exported + "expect-file " + out + " old\n"), "");
    EXPECT_EQ(Play("answer Yes\n" + exported + "expect-file " + out + " wing\n"), "");
}

TEST_F(ListStory, ExportThatFailsShowsABox)
{
    EXPECT_EQ(Play("click Parts\nfile /no/such/directory/out.csv\nkey Ctrl+E\n"
                   "expect-box \"there is no such directory\"\n"),
              "");
}

TEST_F(ListStory, CopiesWithTitles)
{
    EXPECT_EQ(Play("select Parts rudder\nkey Ctrl+A\nkey Ctrl+C\n"
                   "expect-copied \"Name\\tMass\\nwing\\t30kg\\nrudder\\t4kg\\n"
                   "wheel, left\\t5kg\"\n"),
              "");
    EXPECT_NE(Play("expect-copied nothing\n").find("expected \"nothing\", seen \"Name\tMass"),
              std::string::npos);
}

TEST_F(ListStory, WhatCannotBeTypedOrReadSaysWhy)
{
    const auto fails = [this](const std::string& step, const char* why) {
        EXPECT_NE(Play(step).find(why), std::string::npos) << step << Play(step);
    };
    fails("type PartsFilter w\n", "the control is hidden or greyed"); // Ctrl+F shows it
    fails("type OtherFilter w\n", "no open window has a control \"OtherFilter\"");
    fails("type Filter w\n", "no open window has a control \"Filter\"");
    fails("type Parts w\n", "this control takes no text");
    fails("expect-file /no/such/file x\n", "/no/such/file cannot be read");
    fails("expect-file " + m_folder.Write("a.txt", "abc") + " x\n", "does not hold \"x\"");
}

} // namespace
