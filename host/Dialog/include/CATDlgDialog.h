#pragma once

#include "CATDialog.h"

/// A modeless window of controls. Style words: 0x4001 and 0x4201 have no standard buttons,
/// 0x10000201 has Close. Made hidden; its texts are read from its resources when it is first shown.
/// Closing it (window frame, Esc) hides it and sends WindowClosed; the toolkit never deletes it.
class WB_EXPORT CATDlgDialog : public CATDialog
{
public:
    CATDlgDialog(CATCommand* parent, const CATString& name, int style);
    ~CATDlgDialog() override;

    static const CATEvent WindowClosed; ///< the window was closed by its frame or by Esc
    static const CATEvent
        CloseActivated; ///< the standard button Close was pressed; the window hides

    /// Preferred size in pixels, bounded by the screen.
    void SetPreferredSize(int width, int height);
    /// Shows the window above the others.
    void BringToFront();

protected:
    /// A window that the toolkit's application made itself.
    CATDlgDialog(CATCommand* parent, const CATString& name, QWidget* window);
};
