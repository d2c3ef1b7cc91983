#pragma once

#include "CATDlgDialog.h"

/// The session's main window and where the user is in it. One a session; without a window (a
/// script) it still knows the workshop.
class WB_EXPORT CATApplicationFrame
{
public:
    /// Null until an application made one.
    static CATApplicationFrame* GetFrame();

    /// Makes the frame of the session; `window` may be null for a session without windows. The
    /// frame goes away with this object.
    explicit CATApplicationFrame(CATDlgDialog* window);
    virtual ~CATApplicationFrame();
    CATApplicationFrame(const CATApplicationFrame&) = delete;
    CATApplicationFrame& operator=(const CATApplicationFrame&) = delete;

    /// The main window; its parent is the session's root. In a session without windows, a dialog
    /// that is never shown. Null once the session has closed and destroyed it.
    CATDlgDialog* MainWindow() const { return m_window; }
    const CATString& Workshop() const { return m_workshop; }
    const CATString& Workbench() const { return m_workbench; }
    void SetWorkshop(const CATString& workshop, const CATString& workbench);
    /// The prompt of the running command, in the status line.
    virtual void SetPrompt(const CATUnicodeString& prompt);
    const CATUnicodeString& Prompt() const { return m_prompt; }

private:
    friend class CATDlgDialog;
    static void Forget(const CATDlgDialog* window);

    CATDlgDialog* m_window;
    bool m_madeWindow;
    CATString m_workshop;
    CATString m_workbench;
    CATUnicodeString m_prompt;
};
