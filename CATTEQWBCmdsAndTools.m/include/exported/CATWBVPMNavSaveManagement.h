#pragma once

#include "CATDlgDialog.h"
#include "WBExport.h"

/// Saves the user's pending changes on the server, or discards them. The command is its own window,
/// which stays open after either and tells the outcome in a box. There is one such window: a newer
/// command takes the place of an older one.
class WB_EXPORT CATWBVPMNavSaveManagement : public CATDlgDialog
{
public:
    /// The window's name, and that of its catalog and its resource file.
    static constexpr const char* kName = "CATWBVPMNavSaveManagement";

    /// Makes the window below the main window, hidden and without controls, as a command that runs
    /// beside others.
    CATWBVPMNavSaveManagement();

    const char* ClassName() const override;
    /// Level 0 and below are the command's own catalog; above stand those of the dialog base.
    CATString GetResourceFilename(int level) const override;

    /// Shows the window, whose controls are made at the first activation. S_OK.
    long Activate(CATCommand* from, const CATNotification* why) override;
    /// Hides the window. S_OK.
    long Desactivate(CATCommand* from, const CATNotification* why) override;
    /// Hides the window and asks for the command's delayed destruction. S_OK.
    long Cancel(CATCommand* from, const CATNotification* why) override;

    // What the user has done.

    /// Saves all pending changes, or none where the server refuses one.
    void OnPushButton001PushBActivateNotification();
    /// Discards all pending changes.
    void OnPushButton002PushBActivateNotification();

private:
    void EndOlderOnes();
    void Build();

    bool m_isBuilt = false;
};

/// Makes the command; the command tree owns it.
extern "C" WB_EXPORT CATCommand* fctCreateCATWBVPMNavSaveManagement();
