#include "CATApplicationFrame.h"
#include "CATDlgControls.h"
#include "CATDlgMultiList.h"
#include "DialogSession.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace
{

using CATDlgDialogTest = DialogSession;

TEST_F(CATDlgDialogTest, IsMadeHidden)
{
    EXPECT_FALSE(m_window.IsVisible());
    Show();
    EXPECT_TRUE(m_window.IsVisible());
    EXPECT_TRUE(m_window.Widget()->isVisible());
}

TEST_F(CATDlgDialogTest, ClosingByTheFrameHidesAndSaysSoOnce)
{
    const auto& closed = Notes(m_window, CATDlgDialog::WindowClosed);
    Show();
    m_window.Widget()->close();
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_EQ(closed.size(), 1U);
    m_window.Widget()->close();
    EXPECT_EQ(closed.size(), 1U);
    Settle();
    EXPECT_NE(m_window.Widget(), nullptr);
    Show();
    EXPECT_TRUE(m_window.IsVisible());
}

TEST_F(CATDlgDialogTest, EscCloses)
{
    const auto& closed = Notes(m_window, CATDlgDialog::WindowClosed);
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    Show();
    QTest::keyClick(editor->Widget(), Qt::Key_Escape);
    EXPECT_FALSE(m_window.IsVisible());
    EXPECT_EQ(closed.size(), 1U);
}

TEST_F(CATDlgDialogTest, HidingByProgramIsNotClosing)
{
    const auto& closed = Notes(m_window, CATDlgDialog::WindowClosed);
    Show();
    m_window.SetVisibility(false);
    EXPECT_TRUE(closed.empty());
}

TEST_F(CATDlgDialogTest, HandlerOfTheCloseMayAskForItsDestruction)
{
    const QPointer<QWidget> widget(m_window.Widget());
    m_root.Subscribe(&m_window, CATDlgDialog::WindowClosed,
                     [](const CATNotification& notification) {
                         notification.sender.RequestDelayedDestruction();
                     });
    Show();
    QTest::keyClick(m_window.Widget(), Qt::Key_Escape);
    EXPECT_FALSE(widget.isNull()); // not beneath the handler
    Settle();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(CATDlgDialogTest, EnterInAnEditorPressesNoButton)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    auto* button = new CATDlgPushButton(&m_window, "Button");
    const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
    Show();
    editor->Widget()->setFocus();
    QTest::keyClick(editor->Widget(), Qt::Key_Return);
    EXPECT_TRUE(pressed.empty());
    EXPECT_TRUE(m_window.IsVisible());
    button->Widget()->setFocus();
    QTest::keyClick(button->Widget(), Qt::Key_Return);
    EXPECT_EQ(pressed.size(), 1U);
}

TEST_F(CATDlgDialogTest, KeysGoFirstToWhatTakesSomething)
{
    constexpr int kReadOnly = 0x4000000;
    new CATDlgEditor(&m_window, "Read", kReadOnly); // the window owns it
    auto* list = new CATDlgMultiList(&m_window, "List");
    new CATDlgEditor(&m_window, "Typed"); // the window owns it
    Show();
    EXPECT_EQ(m_window.Widget()->focusWidget(), list->Widget());
}

TEST_F(CATDlgDialogTest, EnterPressesTheDefaultButtonFromWhereverNoButtonIs)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    auto* radio = new CATDlgRadioButton(&m_window, "Radio");
    auto* button = new CATDlgPushButton(&m_window, "Button");
    auto* other = new CATDlgPushButton(&m_window, "Other");
    button->SetDefault();
    const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
    const auto& otherPressed = Notes(*other, CATDlgPushButton::Activated);
    Show();
    for (const CATDialog* control :
         {static_cast<CATDialog*>(editor), static_cast<CATDialog*>(radio)}) {
        control->Widget()->setFocus();
        QTest::keyClick(control->Widget(), Qt::Key_Return);
    }
    EXPECT_EQ(pressed.size(), 2U);
    EXPECT_FALSE(radio->IsChecked());
    button->Widget()->setFocus();
    QTest::keyClick(button->Widget(), Qt::Key_Enter);
    EXPECT_EQ(pressed.size(), 3U);
    EXPECT_TRUE(otherPressed.empty());
    other->Widget()->setFocus();
    QTest::keyClick(other->Widget(), Qt::Key_Return);
    EXPECT_EQ(otherPressed.size(), 1U);
    EXPECT_EQ(pressed.size(), 3U);
}

TEST_F(CATDlgDialogTest, EnterDoesNotPressADefaultButtonThatIsGreyed)
{
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetDefault();
    button->SetSensitivity(false);
    const auto& pressed = Notes(*button, CATDlgPushButton::Activated);
    Show();
    editor->Widget()->setFocus();
    QTest::keyClick(editor->Widget(), Qt::Key_Return);
    EXPECT_TRUE(pressed.empty());
}

TEST_F(CATDlgDialogTest, CloseButtonStandsOnlyWhereTheStyleHasIt)
{
    EXPECT_EQ(Child<QPushButton>(m_window, "StandardCloseButton"), nullptr);
    TestWindow plain(nullptr, "Plain", 0x4201);
    EXPECT_EQ(Child<QPushButton>(plain, "StandardCloseButton"), nullptr);
    TestWindow unknown(nullptr, "Unknown", 0x77);
    EXPECT_EQ(Child<QPushButton>(unknown, "StandardCloseButton"), nullptr);
    EXPECT_EQ(unknown.Style(), 0x77);
}

TEST_F(CATDlgDialogTest, CloseButtonHidesAndSaysSo)
{
    TestWindow window(nullptr, "Window", 0x10000201);
    const auto& pressed = Notes(window, CATDlgDialog::CloseActivated);
    const auto& closed = Notes(window, CATDlgDialog::WindowClosed);
    window.SetVisibility(true);
    auto* button = Child<QPushButton>(window, "StandardCloseButton");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), "Close");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(pressed.size(), 1U);
    EXPECT_TRUE(closed.empty());
    EXPECT_FALSE(window.IsVisible());
}

TEST_F(CATDlgDialogTest, PreferredSizeIsTakenWithinTheScreen)
{
    m_window.SetPreferredSize(640, 300);
    Show();
    EXPECT_EQ(m_window.Widget()->size(), QSize(640, 300));
    m_window.SetPreferredSize(100000, 100000);
    const QSize screen = QApplication::primaryScreen()->availableSize();
    EXPECT_LE(m_window.Widget()->width(), screen.width());
    EXPECT_LE(m_window.Widget()->height(), screen.height());
}

TEST_F(CATDlgDialogTest, WindowThatIsTooSmallForItsControlsScrolls)
{
    for (int row = 0; row < 60; ++row) {
        (new CATDlgEditor(&m_window, CATString("Editor") + CATString::FromInt(row)))
            ->SetPlacement(row, 0);
    }
    m_window.SetPreferredSize(800, 600);
    Show();
    EXPECT_EQ(m_window.Widget()->height(), 600);
    EXPECT_GT(Child<QWidget>(m_window, "Editor59")->y(), 600);
}

TEST_F(CATDlgDialogTest, SizeThatTheUserGaveStaysWhenItIsShownAgain)
{
    Show();
    m_window.Widget()->resize(500, 345);
    m_window.SetVisibility(false);
    m_window.SetVisibility(true);
    EXPECT_EQ(m_window.Widget()->size(), QSize(500, 345));
}

TEST_F(CATDlgDialogTest, StaysAboveTheWindowItWasMadeFor)
{
    auto* frame = new CATDlgFrame(&m_window, "Frame");
    const TestWindow* inner = new TestWindow(frame, "Inner");
    EXPECT_EQ(inner->Widget()->parentWidget(), m_window.Widget());
    EXPECT_TRUE(inner->Widget()->isWindow());
}

TEST_F(CATDlgDialogTest, WindowOfTheRootStaysAboveTheMainWindow)
{
    const CATApplicationFrame frame(&m_window);
    const TestWindow* panel = new TestWindow(&m_root, "Panel");
    EXPECT_EQ(panel->Widget()->parentWidget(), m_window.Widget());
    EXPECT_EQ(panel->Parent(), &m_root);
}

TEST_F(CATDlgDialogTest, WindowsWithinAWindowAreNoControlsOfIt)
{
    auto* inner = new TestWindow(&m_window, "Inner");
    Show();
    inner->SetVisibility(true);
    Settle();
    EXPECT_TRUE(inner->Widget()->isWindow());
    m_window.SetVisibility(false);
    EXPECT_FALSE(m_window.IsVisible());
}

TEST_F(CATDlgDialogTest, UserBeginsInAControlAndNotInATextToCopy)
{
    (new CATDlgLabel(&m_window, "Label"))->SetPlacement(0, 0);
    auto* editor = new CATDlgEditor(&m_window, "Editor");
    editor->SetPlacement(1, 0);
    Show();
    EXPECT_EQ(m_window.Widget()->focusWidget(), editor->Widget());
}

TEST_F(CATDlgDialogTest, UserBeginsAtTheDefaultButton)
{
    (new CATDlgEditor(&m_window, "Editor"))->SetPlacement(0, 0);
    auto* button = new CATDlgPushButton(&m_window, "Button");
    button->SetPlacement(1, 0);
    button->SetDefault();
    Show();
    EXPECT_EQ(m_window.Widget()->focusWidget(), button->Widget());
}

TEST_F(CATDlgDialogTest, BringToFrontShows)
{
    m_window.BringToFront();
    EXPECT_TRUE(m_window.IsVisible());
}

} // namespace
