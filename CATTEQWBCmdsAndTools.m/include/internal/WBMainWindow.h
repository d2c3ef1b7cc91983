#pragma once

#include "CATApplicationFrame.h"

/// The session's main window, which dialogs stand above; null where no application has made one.
inline CATDlgDialog* WBMainWindow()
{
    const CATApplicationFrame* frame = CATApplicationFrame::GetFrame();
    return frame == nullptr ? nullptr : frame->MainWindow();
}
