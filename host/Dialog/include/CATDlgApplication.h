#pragma once

#include "WBExport.h"

#include <functional>
#include <string>

class QMainWindow;
class CATCommand;
class CATDlgDialog;

/// Starts the toolkit, joins the session's queue of delayed destructions to its event loop, and
/// takes the number locale from the user's environment. One a program; made before the first
/// window.
class WB_EXPORT CATDlgApplication
{
public:
    CATDlgApplication(int& argc, char** argv);
    /// Destroys all commands and windows, then the toolkit.
    ~CATDlgApplication();
    CATDlgApplication(const CATDlgApplication&) = delete;
    CATDlgApplication& operator=(const CATDlgApplication&) = delete;

    /// Runs the event loop until Quit; the exit code.
    int Run();
    void Quit(int code);
    /// Handles what waits in the event loop, delayed destructions included.
    static void ProcessEvents();
};

/// A window of the application's own making as the session's main window; the dialog takes it over.
/// Its name is the window's object name, "MainWindow" where that is empty. When the user closes it
/// (and the window accepts), WindowClosed is sent and the event loop ends with 0. Controls cannot
/// stand in it, dialogs can have it as their parent.
WB_EXPORT CATDlgDialog* CATDlgAdoptMainWindow(CATCommand& root, QMainWindow* window);

/// Waits for work on another thread: repaints, and after half a second shows a progress box with
/// Cancel; no other window takes input, delayed destructions and notifications wait. Without a
/// running toolkit it just waits. `isDone` is asked often; `cancel` is called once when the user
/// cancels; `progress` answers how far the work is, 0 to 1, or less than 0 when that is unknown.
WB_EXPORT void CATDlgWaitFor(const std::string& title, const std::function<bool()>& isDone,
                             const std::function<void()>& cancel,
                             const std::function<double()>& progress);
