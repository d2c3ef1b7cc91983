#include "CATDiagnostics.h"
#include "CATDlgControls.h"
#include "CATFatalError.h"
#include "CATSession.h"
#include "DialogSession.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QMainWindow>
#include <QMenu>
#include <QProxyStyle>
#include <QPushButton>
#include <QTimer>

namespace
{

class CATDlgApplicationTest : public DialogSession
{
protected:
    CATDlgApplicationTest()
    {
        CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown& box) {
            m_boxes.push_back(box);
            return 1;
        });
    }
    std::vector<CATDlgNotify::Shown> m_boxes;
};

TEST_F(CATDlgApplicationTest, DelayedDestructionsRunFromTheEventLoop)
{
    const QPointer<QWidget> widget(m_window.Widget());
    m_window.RequestDelayedDestruction();
    EXPECT_FALSE(widget.isNull());
    CATDlgApplication::ProcessEvents();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(CATDlgApplicationTest, WhatTheToolkitHasToSayGoesWithTheDiagnosticLines)
{
    std::vector<std::string> lines;
    const auto before = CATDiagnosticErrors().SetListener(
        [&lines](std::string_view line) { lines.emplace_back(line); });
    qWarning("the screen is too small");
    qWarning("This plugin does not support raise()"); // nothing that anybody could do about
    CATDiagnosticErrors().SetListener(before);
    EXPECT_EQ(lines, std::vector<std::string>{"the screen is too small"});
}

TEST_F(CATDlgApplicationTest, DestructionsWaitForLoopsOfTheToolkitsOwn)
{
    const QPointer<QWidget> widget(m_window.Widget());
    QMenu menu;
    menu.addAction("entry");
    QEventLoop outer;
    QTimer::singleShot(0, [&] {
        m_window.RequestDelayedDestruction();
        QTimer::singleShot(100, [&] {
            EXPECT_FALSE(widget.isNull());
            menu.close();
        });
        menu.exec(QPoint(0, 0));
        outer.quit();
    });
    outer.exec();
    QTest::qWait(100);
    EXPECT_TRUE(widget.isNull());
}

TEST_F(CATDlgApplicationTest, FaultOfAHandlerIsToldAndTheSessionLivesOn)
{
    auto* button = new CATDlgPushButton(&m_window, "Button");
    auto* command = new CATCommand(&m_root, "ComputePart");
    command->Subscribe(button, CATDlgPushButton::Activated, [](const CATNotification&) {
        CATRaiseFatalError("AssertionFailed:x", "File.cpp", 43);
    });
    Show();
    Click(*button);
    ASSERT_EQ(m_boxes.size(), 1U);
    EXPECT_EQ(m_boxes.front().style, 0x10000000);
    EXPECT_FALSE(m_boxes.front().blocking);
    EXPECT_FALSE(m_boxes.front().title.IsEmpty());
    EXPECT_TRUE(m_boxes.front().text.Contains("ComputePart"));
    EXPECT_TRUE(m_boxes.front().text.Contains("AssertionFailed:x"));
    Settle();
    EXPECT_TRUE(m_window.IsVisible());
}

TEST_F(CATDlgApplicationTest, WindowsLookTheSameEverywhere)
{
    const auto* style = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->baseStyle()->name(), "fusion");
    EXPECT_EQ(QApplication::font().family(), "DejaVu Sans");
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 200);
}

TEST_F(CATDlgApplicationTest, ButtonsThatTheToolkitMakesHaveNoPictures)
{
    const QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    EXPECT_TRUE(box.button(QDialogButtonBox::Ok)->icon().isNull());
    EXPECT_TRUE(box.button(QDialogButtonBox::Cancel)->icon().isNull());
}

TEST_F(CATDlgApplicationTest, RunGivesTheCodeOfQuit)
{
    int argc = 0;
    QTimer::singleShot(0, [] { QCoreApplication::exit(7); });
    EXPECT_EQ(QApplication::exec(), 7);
    static_cast<void>(argc);
}

TEST_F(CATDlgApplicationTest, AdoptedMainWindowIsADialogOfTheSession)
{
    auto* toolkitWindow = new QMainWindow;
    toolkitWindow->setObjectName("Workbench");
    const QPointer<QWidget> watch(toolkitWindow);
    CATDlgDialog* dialog = CATDlgAdoptMainWindow(m_root, toolkitWindow);
    EXPECT_EQ(dialog->Name(), "Workbench");
    EXPECT_EQ(dialog->Parent(), &m_root);
    EXPECT_EQ(dialog->Widget(), toolkitWindow);
    dialog->SetTitle("Weight and balance");
    EXPECT_EQ(toolkitWindow->windowTitle(), "Weight and balance");
    const auto* inner = new TestWindow(dialog, "Panel");
    EXPECT_EQ(inner->Widget()->parentWidget(), toolkitWindow);
    dialog->Release();
    EXPECT_TRUE(watch.isNull());
}

TEST_F(CATDlgApplicationTest, MainWindowWithoutANameIsCalledMainWindow)
{
    EXPECT_EQ(CATDlgAdoptMainWindow(m_root, new QMainWindow)->Name(), "MainWindow");
}

TEST_F(CATDlgApplicationTest, ClosingTheMainWindowEndsTheEventLoop)
{
    auto* toolkitWindow = new QMainWindow;
    CATDlgDialog* dialog = CATDlgAdoptMainWindow(m_root, toolkitWindow);
    const auto& closed = Notes(*dialog, CATDlgDialog::WindowClosed);
    dialog->SetVisibility(true);
    QTimer::singleShot(0, toolkitWindow, [&] { toolkitWindow->close(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(closed.size(), 1U);
}

TEST_F(CATDlgApplicationTest, MainWindowMayRefuseToClose)
{
    class Refusing : public QMainWindow
    {
        void closeEvent(QCloseEvent* event) override { event->ignore(); }
    };
    auto* toolkitWindow = new Refusing;
    CATDlgDialog* dialog = CATDlgAdoptMainWindow(m_root, toolkitWindow);
    const auto& closed = Notes(*dialog, CATDlgDialog::WindowClosed);
    dialog->SetVisibility(true);
    toolkitWindow->close();
    Settle();
    EXPECT_TRUE(dialog->IsVisible());
    EXPECT_TRUE(closed.empty());
}

} // namespace
