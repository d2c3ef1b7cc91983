#include "CATDlgApplication.h"
#include "CATDlgControls.h"
#include "CATSession.h"
#include "DialogSession.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <thread>

namespace
{

using namespace std::chrono_literals;

class CATDlgWaitForTest : public DialogSession
{
protected:
    static QWidget* ProgressBox()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "ProgressBox" && window->isVisible()) {
                return window;
            }
        }
        return nullptr;
    }
    /// Waits for something that lasts so long on another thread; `look` is called on the way.
    void WaitFor(std::chrono::milliseconds length, int lookAfter, const std::function<void()>& look,
                 double progress = -1.0)
    {
        std::jthread work([this, length] {
            const auto end = std::chrono::steady_clock::now() + length;
            while (std::chrono::steady_clock::now() < end && !m_isCancelled) {
                std::this_thread::sleep_for(1ms);
            }
            m_isDone = true;
        });
        QTimer::singleShot(lookAfter, [&] {
            m_hasLooked = true;
            look();
        });
        CATDlgWaitFor(
            "Computing", [this] { return m_isDone.load(); },
            [this] {
                ++m_cancels;
                m_isCancelled = true;
            },
            [progress] { return progress; });
        EXPECT_TRUE(m_isDone);
    }

    std::atomic<bool> m_isDone{false};
    std::atomic<bool> m_isCancelled{false};
    int m_cancels = 0;
    bool m_hasLooked = false;
};

TEST_F(CATDlgWaitForTest, QuickWorkShowsNoBox)
{
    WaitFor(150ms, 100, [] { EXPECT_EQ(ProgressBox(), nullptr); });
    EXPECT_TRUE(m_hasLooked);
    EXPECT_EQ(m_cancels, 0);
}

TEST_F(CATDlgWaitForTest, LongWorkShowsHowFarItIsAndTakesAllInput)
{
    WaitFor(
        900ms, 750,
        [] {
            QWidget* box = ProgressBox();
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->windowTitle(), "Computing");
            EXPECT_EQ(QApplication::activeModalWidget(), box);
            const auto* bar = box->findChild<QProgressBar*>("Progress");
            EXPECT_EQ(bar->value() * 4, bar->maximum());
        },
        0.25);
    EXPECT_TRUE(m_hasLooked);
    EXPECT_EQ(ProgressBox(), nullptr);
}

TEST_F(CATDlgWaitForTest, WorkOfUnknownLengthShowsABusyBar)
{
    WaitFor(800ms, 700, [] {
        ASSERT_NE(ProgressBox(), nullptr);
        EXPECT_EQ(ProgressBox()->findChild<QProgressBar*>("Progress")->maximum(), 0);
    });
    EXPECT_TRUE(m_hasLooked);
}

TEST_F(CATDlgWaitForTest, CancelIsAskedForOnce)
{
    const auto start = std::chrono::steady_clock::now();
    WaitFor(20s, 700, [] {
        ASSERT_NE(ProgressBox(), nullptr);
        auto* button = ProgressBox()->findChild<QPushButton*>("CancelButton");
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(button->isEnabled());
        QTest::keyClick(ProgressBox(), Qt::Key_Escape);
    });
    EXPECT_EQ(m_cancels, 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST_F(CATDlgWaitForTest, EscCancelsAndTheBoxStaysUntilTheWorkHasEnded)
{
    WaitFor(20s, 700, [] {
        ASSERT_NE(ProgressBox(), nullptr);
        QTest::keyClick(ProgressBox(), Qt::Key_Escape);
        EXPECT_NE(ProgressBox(), nullptr);
    });
    EXPECT_EQ(m_cancels, 1);
}

TEST_F(CATDlgWaitForTest, DestructionsWait)
{
    const QPointer<QWidget> widget(m_window.Widget());
    m_window.RequestDelayedDestruction();
    WaitFor(150ms, 100, [&] { EXPECT_FALSE(widget.isNull()); });
    EXPECT_FALSE(widget.isNull());
    Settle();
    EXPECT_TRUE(widget.isNull());
}

} // namespace
