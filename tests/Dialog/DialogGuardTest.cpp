#include "CATCommandWatch.h"
#include "CATDlgControls.h"
#include "CATFatalError.h"
#include "CATSession.h"
#include "DialogSession.h"

#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

namespace
{

/// A window with a button, and what both have told.
class DialogGuardTest : public DialogSession
{
protected:
    DialogGuardTest()
        : m_button(*new CATDlgPushButton(&m_window, "Button")),
          m_pressed(Notes(m_button, CATDlgPushButton::Activated)),
          m_closed(Notes(m_window, CATDlgDialog::WindowClosed))
    {}

    /// A guard that asks the user in a box; once the box is up, the user does that.
    std::function<bool()> Asking(const std::function<void(QWidget& box)>& user)
    {
        return [this, user] {
            ++m_asked;
            auto* box = new CATDlgNotify(&m_root, "Ask", CATDlgNotify::kQuestion);
            QTimer::singleShot(0, box->Widget(), [box, user] { user(*box->Widget()); });
            const bool isAllowed = box->DisplayBlocking() == 1;
            box->RequestDelayedDestruction();
            return isAllowed;
        };
    }
    static void Press(QWidget& box, const char* button)
    {
        QTest::mouseClick(box.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    CATDlgPushButton& m_button;
    const std::vector<int>& m_pressed;
    const std::vector<int>& m_closed;
    int m_asked = 0;
};

TEST_F(DialogGuardTest, ButtonIsPressedOnlyWhenItsGuardLetsIt)
{
    bool isAllowed = false;
    m_button.SetGuard([&] {
        EXPECT_TRUE(m_pressed.empty()); // asked before anybody is told
        return isAllowed;
    });
    Show();
    Click(m_button);
    EXPECT_TRUE(m_pressed.empty());
    isAllowed = true;
    Click(m_button);
    EXPECT_EQ(m_pressed.size(), 1U);
}

TEST_F(DialogGuardTest, AnEmptyGuardEndsIt)
{
    m_button.SetGuard([] { return false; });
    m_button.SetGuard({});
    Show();
    Click(m_button);
    EXPECT_EQ(m_pressed.size(), 1U);
}

TEST_F(DialogGuardTest, WindowThatMayNotCloseStaysAndTellsNobody)
{
    m_window.SetGuard([this] {
        ++m_asked;
        EXPECT_TRUE(m_window.IsVisible());
        return false;
    });
    Show();
    m_window.Widget()->close();
    QTest::keyClick(m_window.Widget(), Qt::Key_Escape);
    EXPECT_EQ(m_asked, 2);
    EXPECT_TRUE(m_window.IsVisible());
    EXPECT_TRUE(m_closed.empty());
    m_window.SetGuard([] { return true; });
    m_window.Widget()->close();
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_EQ(m_closed.size(), 1U);
}

TEST_F(DialogGuardTest, WindowThatIsHiddenAlreadyAsksNobody)
{
    m_window.SetGuard([this] { return ++m_asked > 0; });
    m_window.Widget()->close();
    Show();
    m_window.SetVisibility(false); // by the program
    EXPECT_EQ(m_asked, 0);
}

TEST_F(DialogGuardTest, StandardButtonCloseAsksTheGuardOfItsWindow)
{
    TestWindow window(nullptr, "Window", 0x10000201);
    const auto& told = Notes(window, CATDlgDialog::CloseActivated);
    bool isAllowed = false;
    window.SetGuard([&] { return isAllowed; });
    window.SetVisibility(true);
    auto* close = Child<QPushButton>(window, "StandardCloseButton");
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_TRUE(window.IsVisible());
    EXPECT_TRUE(told.empty());
    isAllowed = true;
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_FALSE(window.IsVisible());
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(DialogGuardTest, GuardMayAskTheUserInABox)
{
    m_window.SetGuard(Asking([](QWidget& box) { Press(box, "NoButton"); }));
    Show();
    QTest::keyClick(m_window.Widget(), Qt::Key_Escape);
    EXPECT_TRUE(m_window.IsVisible());
    EXPECT_TRUE(m_closed.empty());
    m_window.SetGuard(Asking([](QWidget& box) { Press(box, "YesButton"); }));
    QTest::keyClick(m_window.Widget(), Qt::Key_Escape);
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_EQ(m_closed.size(), 1U);
    EXPECT_EQ(m_asked, 2);
}

TEST_F(DialogGuardTest, WhatIsPressedOrClosedWhileItsGuardAsksDoesNothing)
{
    Show();
    auto* button = qobject_cast<QPushButton*>(m_button.Widget());
    m_button.SetGuard(Asking([button](QWidget& box) {
        button->click();
        Press(box, "YesButton");
    }));
    button->click();
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_pressed.size(), 1U);

    QWidget* window = m_window.Widget();
    m_asked = 0;
    m_window.SetGuard(Asking([window](QWidget& box) {
        QCloseEvent again;
        QApplication::sendEvent(window, &again);
        EXPECT_TRUE(window->isVisible());
        Press(box, "YesButton");
    }));
    window->close();
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_closed.size(), 1U);
    // Afterwards it is asked again.
    Show();
    m_window.SetGuard([] { return false; });
    window->close();
    EXPECT_TRUE(m_window.IsVisible());
}

TEST_F(DialogGuardTest, GuardMayReplaceItself)
{
    m_button.SetGuard([this] {
        m_button.SetGuard({});
        return ++m_asked > 0;
    });
    Show();
    Click(m_button);
    Click(m_button);
    EXPECT_EQ(m_asked, 1);
    EXPECT_EQ(m_pressed.size(), 2U);
}

TEST_F(DialogGuardTest, WindowThatGoesAwayWhileItsGuardAsksTellsNobody)
{
    auto* window = new TestWindow(&m_root, "Window");
    const auto& closed = Notes(*window, CATDlgDialog::WindowClosed);
    const QPointer<QWidget> widget(window->Widget());
    window->SetGuard(Asking([window](QWidget& box) {
        window->Release(); // the session ends
        Press(box, "YesButton");
    }));
    window->SetVisibility(true);
    widget->close();
    EXPECT_EQ(m_asked, 1);
    EXPECT_TRUE(widget.isNull());
    EXPECT_TRUE(closed.empty());
}

TEST_F(DialogGuardTest, WindowThatGoesAwayWhileAGuardOfItsButtonsAsksTellsNobody)
{
    for (const char* name : {"Button", "StandardCloseButton"}) {
        auto* window = new TestWindow(&m_root, "Window", 0x10000201);
        auto* button = new CATDlgPushButton(window, "Button");
        const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
        const auto& closed = Notes(*window, CATDlgDialog::CloseActivated);
        const auto guard = Asking([window](QWidget& box) {
            window->Release();
            Press(box, "YesButton");
        });
        window->SetGuard(guard);
        button->SetGuard(guard);
        window->SetVisibility(true);
        m_asked = 0;
        QTest::mouseClick(Child<QPushButton>(*window, name), Qt::LeftButton);
        EXPECT_EQ(m_asked, 1) << name;
        EXPECT_TRUE(pressed.empty()) << name;
        EXPECT_TRUE(closed.empty()) << name;
    }
}

TEST_F(DialogGuardTest, DestructionThatIsAskedForWhileTheGuardAsksWaitsForIt)
{
    auto* window = new TestWindow(&m_root, "Window");
    const QPointer<QWidget> widget(window->Widget());
    window->SetGuard(Asking([&](QWidget& box) {
        window->RequestDelayedDestruction();
        Settle();
        EXPECT_FALSE(widget.isNull());
        Press(box, "NoButton");
    }));
    window->SetVisibility(true);
    widget->close();
    EXPECT_FALSE(widget.isNull());
    Settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(DialogGuardTest, GuardThatFailsRefusesAndItsWindowRecovers)
{
    class Recovering : public TestWindow
    {
    public:
        using TestWindow::TestWindow;
        bool RecoverFromFault() override { return hasRecovered = true; }
        bool hasRecovered = false;
    };
    CATDlgNotify::SetAnswerer([this](const CATDlgNotify::Shown&) { return ++m_asked; });
    auto* window = new Recovering(&m_root, "Window");
    auto* button = new CATDlgPushButton(window, "Button");
    const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
    button->SetGuard([]() -> bool {
        CATRaiseFatalError("AssertionFailed:x", "File.cpp", 43);
        return true;
    });
    window->SetVisibility(true);
    Click(*button);
    Settle();
    EXPECT_EQ(m_asked, 1); // the user was told
    EXPECT_TRUE(window->hasRecovered);
    EXPECT_TRUE(window->IsVisible());
    EXPECT_TRUE(pressed.empty());
}

TEST_F(DialogGuardTest, AMessageBoxIsNotAskedWhetherItMayGo)
{
    auto* box = new CATDlgNotify(&m_window, "Box", CATDlgNotify::kQuestion);
    box->SetGuard([this] { return ++m_asked < 0; });
    QTimer::singleShot(0, box->Widget(), [box] { Press(*box->Widget(), "YesButton"); });
    EXPECT_EQ(box->DisplayBlocking(), 1);
    EXPECT_EQ(m_asked, 0);
}

/// The application's own main window, with a guard.
class MainWindowGuardTest : public DialogSession
{
protected:
    MainWindowGuardTest()
        : m_main(*CATDlgAdoptMainWindow(m_root, new QMainWindow)), // the dialog takes it over
          m_closed(Notes(m_main, CATDlgDialog::WindowClosed))
    {
        m_main.SetVisibility(true);
    }

    CATDlgDialog& m_main;
    const std::vector<int>& m_closed;
};

TEST_F(MainWindowGuardTest, MainWindowClosesOnlyWhenItsGuardLetsIt)
{
    bool isAllowed = false;
    m_main.SetGuard([&] { return isAllowed; });
    m_main.Widget()->close();
    Settle();
    EXPECT_TRUE(m_main.IsVisible());
    EXPECT_TRUE(m_closed.empty());
    isAllowed = true;
    m_main.Widget()->close();
    Settle();
    EXPECT_FALSE(m_main.IsVisible());
    EXPECT_EQ(m_closed.size(), 1U);
}

TEST_F(MainWindowGuardTest, AFaultOfItsGuardLeavesTheMainWindowInTheSession)
{
    CATDlgNotify::SetAnswerer([](const CATDlgNotify::Shown&) { return 1; });
    m_main.SetGuard([]() -> bool {
        CATRaiseFatalError("AssertionFailed:x", "File.cpp", 43);
        return true;
    });
    const CATCommandWatch<CATDlgDialog> watch(&m_main);
    m_main.Widget()->close();
    Settle();
    ASSERT_NE(watch.Get(), nullptr);
    EXPECT_TRUE(m_main.IsVisible());
}

TEST_F(MainWindowGuardTest, MainWindowMayGoAwayWhileItsGuardAsks)
{
    const QPointer<QWidget> widget(m_main.Widget());
    m_main.SetGuard([this] {
        m_main.Release();
        return true;
    });
    widget->close();
    Settle();
    EXPECT_TRUE(widget.isNull());
    EXPECT_TRUE(m_closed.empty());
}

} // namespace
