#include "CATDlgApplication.h"

#include "Appearance.h"
#include "CATApplicationFrame.h"
#include "CATDiagnostics.h"
#include "CATDlgNotify.h"
#include "CATFatalError.h"
#include "CATNumberLocale.h"
#include "CATSession.h"
#include "Toolkit.h"

#include <QApplication>
#include <QMainWindow>
#include <QThread>
#include <QTimer>

namespace
{

constexpr int kErrorStyle = 0x10000000;
constexpr int kRetryMilliseconds = 20;

/// A machine without a display still runs stories and tests: they draw into memory.
void ChoosePlatform()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

/// What the toolkit has to say is for developers too: it goes with the session's diagnostic lines
/// and never into a command's own output.
void TellToolkitMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                        const QString& text)
{
    // The screen that draws into memory says so of each thing that only a real one can do.
    if (!text.startsWith(QLatin1String("This plugin does not support"))) {
        CATDiagnosticErrors().Line(text.toStdString());
    }
}

QApplication* MakeToolkit(int& argc, char** argv)
{
    ChoosePlatform();
    qInstallMessageHandler(TellToolkitMessage);
    auto* application = new QApplication(argc, argv);
    GiveAppearance(*application);
    QApplication::setQuitOnLastWindowClosed(false);
    CATUseNumberLocale("");
    return application;
}

void RunDestructionsSoon(int milliseconds)
{
    QTimer::singleShot(milliseconds, QCoreApplication::instance(), [] {
        // A loop of the toolkit's own (a menu, a drag) stands on the stack and may belong to a
        // window that is about to go.
        if (QThread::currentThread()->loopLevel() > 1) {
            RunDestructionsSoon(kRetryMilliseconds);
        } else {
            CATSession::RunDelayedDestructions();
        }
    });
}

void TellFault(const CATUnicodeString& command, const CATUnicodeString& what)
{
    CATApplicationFrame* frame = CATApplicationFrame::GetFrame();
    CATCommand* parent = frame == nullptr ? nullptr : frame->MainWindow();
    if (parent == nullptr) {
        parent = &CATSession::Root();
    }
    auto* box = new CATDlgNotify(parent, "FaultReport", kErrorStyle); // deletes itself when closed
    box->SetTitle(FromQt(DialogMessage("Fault.Title", "@A command has failed")));
    box->SetText(FromQt(
        DialogMessage("Fault.Text", "@The command \"/p1\" met an error that it cannot handle:\n/p2",
                      {ToQt(command), ToQt(what)})));
    box->DisplayNonBlocking();
}

/// The window that the application made, as a dialog of the session.
class AdoptedWindow : public CATDlgDialog
{
public:
    AdoptedWindow(CATCommand* root, const CATString& name, QMainWindow* window)
        : CATDlgDialog(root, name, window), m_watch(*this)
    {
        window->installEventFilter(&m_watch);
    }

    /// A fault of its guard ends nothing: there is no session without its main window.
    bool RecoverFromFault() override { return true; }

private:
    /// Asks the guard before the window is closed, and sees the window's own answer after it was
    /// given.
    class CloseWatch : public QObject
    {
    public:
        explicit CloseWatch(AdoptedWindow& dialog) : m_dialog(dialog) {}
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Close) {
                if (!m_dialog.IsAllowedByGuard()) {
                    event->ignore();
                    return true;
                }
                auto* window = static_cast<QWidget*>(watched);
                QTimer::singleShot(0, window, [this, window] {
                    if (!window->isVisible()) {
                        SendFromUser(m_dialog, WindowClosed);
                        QCoreApplication::exit(0);
                    }
                });
            }
            return false;
        }

    private:
        AdoptedWindow& m_dialog;
    };

    CloseWatch m_watch;
};

} // namespace

CATDlgApplication::CATDlgApplication(int& argc, char** argv)
{
    MakeToolkit(argc, argv); // the destructor deletes it
    CATSession::SetDestructionScheduler([] { RunDestructionsSoon(0); });
    CATSession::SetFaultReporter(TellFault);
    CATSetFatalErrorHandler([](const CATFatalError& error) { throw error; });
}

CATDlgApplication::~CATDlgApplication()
{
    CATSession::Close();
    CATSetFatalErrorHandler({});
    CATSession::SetFaultReporter({});
    CATSession::SetDestructionScheduler({});
    delete QCoreApplication::instance();
    qInstallMessageHandler(nullptr);
}

int CATDlgApplication::Run()
{
    return QApplication::exec();
}

void CATDlgApplication::Quit(int code)
{
    QCoreApplication::exit(code);
}

void CATDlgApplication::ProcessEvents()
{
    QCoreApplication::processEvents();
}

CATDlgDialog* CATDlgAdoptMainWindow(CATCommand& root, QMainWindow* window)
{
    const QString name = window->objectName();
    return new AdoptedWindow(&root, name.isEmpty() ? CATString("MainWindow") : FromQt(name),
                             window);
}
