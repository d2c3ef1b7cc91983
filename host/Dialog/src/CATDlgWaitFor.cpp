#include "CATDlgApplication.h"
#include "CATSession.h"
#include "DialogWindow.h"
#include "Toolkit.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <chrono>
#include <thread>

namespace
{

constexpr int kQuietMilliseconds = 500;
constexpr int kQuickMilliseconds = 2; ///< how often is asked while nothing is shown
constexpr int kCalmMilliseconds = 20; ///< and while the box is
constexpr int kSteps = 1000;

void SleepUntil(const std::function<bool()>& isDone)
{
    while (!isDone()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

/// Says that work is under way, how far it is, and lets the user cancel it.
class ProgressBox
{
public:
    ProgressBox(const QString& title, const std::function<void()>& cancel)
        : m_window(QApplication::activeWindow()),
          m_bar(new QProgressBar(m_window.Content())),
          m_note(new QLabel(m_window.Content())),
          m_cancel(cancel)
    {
        m_window.setObjectName(QStringLiteral("ProgressBox"));
        m_window.setWindowTitle(title);
        m_window.setWindowModality(Qt::ApplicationModal);
        auto* grid = new QGridLayout(m_window.Content());
        m_bar->setObjectName(QStringLiteral("Progress"));
        m_bar->setAccessibleName(title);
        m_bar->setMinimumWidth(280);
        m_note->setText(title);
        grid->addWidget(m_note, 0, 0);
        grid->addWidget(m_bar, 1, 0);
        m_button = m_window.Buttons()->addButton(DialogMessage("Button.Cancel", "@Cancel"),
                                                 QDialogButtonBox::RejectRole);
        m_button->setObjectName(QStringLiteral("CancelButton"));
        m_button->setAutoDefault(false);
        QObject::connect(m_button, &QPushButton::clicked, &m_window, [this] { OnCancel(); });
        // Closing the box is cancelling; it stays until the work has really ended.
        m_window.SetOnClosed([this] {
            OnCancel();
            m_window.show();
        });
        m_window.show();
    }

    void ShowProgress(double progress)
    {
        m_bar->setRange(0, progress < 0.0 ? 0 : kSteps);
        if (progress >= 0.0) {
            m_bar->setValue(static_cast<int>(std::min(progress, 1.0) * kSteps));
        }
    }

private:
    void OnCancel()
    {
        if (!m_button->isEnabled()) {
            return;
        }
        m_button->setEnabled(false);
        m_note->setText(
            DialogMessage("Wait.Cancelling", "@Cancelling; the work ends at its next safe place."));
        m_cancel();
    }

    DialogWindow m_window;
    QProgressBar* m_bar;
    QLabel* m_note;
    QPushButton* m_button = nullptr;
    const std::function<void()>& m_cancel;
};

} // namespace

void CATDlgWaitFor(const std::string& title, const std::function<bool()>& isDone,
                   const std::function<void()>& cancel, const std::function<double()>& progress)
{
    if (!HasToolkit()) {
        SleepUntil(isDone);
        return;
    }
    const CATSession::NestedLoop nested;
    QElapsedTimer elapsed;
    elapsed.start();
    // Most calls are answered at once: they should not pay for a timer.
    while (!isDone() && elapsed.elapsed() < kQuickMilliseconds) {
        std::this_thread::yield();
    }
    QTimer timer; // wakes the loop to ask again
    timer.start(kQuickMilliseconds);
    while (!isDone() && elapsed.elapsed() < kQuietMilliseconds) {
        // What the user does meanwhile waits; windows repaint.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
    if (isDone()) {
        return;
    }
    ProgressBox box(QString::fromStdString(title), cancel);
    timer.start(kCalmMilliseconds);
    while (!isDone()) {
        box.ShowProgress(progress ? progress() : -1.0);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}
