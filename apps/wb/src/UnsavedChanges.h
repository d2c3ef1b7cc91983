#pragma once

#include "CATServerCallWatch.h"
#include "CATUnicodeString.h"

#include <vector>

class CATDlgDialog;
class QLabel;
struct CATPendingChange;

/// What the user has changed and not saved, in the workbench: how many changes, in the status line,
/// right after each change, save and giving up; and the question what becomes of them before the
/// workbench closes.
class UnsavedChanges
{
public:
    /// Borrows both: the label is hidden while there are none; boxes stand before the window.
    UnsavedChanges(QLabel* label, CATDlgDialog* window);

    /// Asks the server how many there are. What the label shows stays where it cannot say.
    void Update();
    /// Asks the user what becomes of them, if there are any: saves them, or leaves them for the
    /// next time. False: the workbench stays open, because he thought better of it or because they
    /// could not be saved, which he is told. A server that cannot say whether there are some keeps
    /// nobody in: the user is told, and true is the answer.
    bool MayClose();

private:
    bool Save();
    int Ask(const std::vector<CATPendingChange>& changes);
    void Tell(int style, const CATUnicodeString& title, const CATUnicodeString& text);

    QLabel* m_label;
    CATDlgDialog* m_window;
    CATServerCallWatch m_watch;
};
