#pragma once

#include "CATDlgControls.h"
#include "CATDlgDialog.h"

class CATWBAllDataBuffer;

/// The main panel: everything that is known about one part or product instance. Closing it, by its
/// frame (WindowClosed) or its close button (Activated), hides it.
class WB_EXPORT CATWBVPMMainPanel : public CATDlgDialog
{
public:
    /// Makes the panel through the table of the panels library and fills it; the panel takes a
    /// counted reference on the record. Null when no panels library is registered.
    static CATWBVPMMainPanel* Create(CATCommand* parent, CATWBAllDataBuffer* record);
    /// The panel's dialog name.
    static constexpr const char* kName = "CATWBVPMMainPanel";

    // Slot order is binary interface: append, never sort.
    /// Shows another record in place of the present one; takes a counted reference on it.
    virtual void SetModel(CATWBAllDataBuffer* record) = 0;
    virtual CATDlgPushButton* GetCloseButton() = 0;

protected:
    explicit CATWBVPMMainPanel(CATCommand* parent);
};
