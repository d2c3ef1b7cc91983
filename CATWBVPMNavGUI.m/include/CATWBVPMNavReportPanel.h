#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

/// The report panel: collects the instances that the user picks, asks for the kind of report and
/// what it shall hold, has the server make it, and opens its preview. Closing it, by its frame
/// (WindowClosed) or its close button (Activated), hides it.
class WB_EXPORT CATWBVPMNavReportPanel : public CATDlgDialog
{
public:
    /// Makes the panel through the table of the panels library, hidden and without controls. Null
    /// when no panels library is registered.
    static CATWBVPMNavReportPanel* Create(CATCommand* parent);
    /// The panel's dialog name.
    static constexpr const char* kName = "CATWBVPMNavReportPanel";

    // Slot order is binary interface: append, never sort.
    /// Lays out the controls; called once, before the panel is shown.
    virtual void Build() = 0;
    /// Whether picks belong into the list of instances. The panel itself sets and clears it.
    virtual bool IsInstanceInputActive() const = 0;
    /// Adds a picked instance: its name, part identifier and version, and the `count` instance
    /// names from its parent up to just below the root, joined by "|".
    virtual void SetWMMInstance(CATUnicodeString instance, CATUnicodeString part,
                                CATUnicodeString version, CATUnicodeString path, int count) = 0;
    virtual CATDlgPushButton* GetCloseButton() = 0;

protected:
    explicit CATWBVPMNavReportPanel(CATCommand* parent);
};
